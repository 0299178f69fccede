#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "axes/ZyAxisWatcher.h"
#include "platform/controls/ControlTypes.h"
#include "platform/data/DataExcerpt.h"
#include "platform/data/TDataSet.h"
#include "platform/framework/EnumInfo.h"
#include "platform/framework/TRef.h"
#include "platform/framework/TypeName.h"
#include "tables/ZyTableReader.h"

namespace zy {

class TTimer;
class TWinControl;
class TZyAxis;
class TZyTableWorker;

ZY_ENUM(TZyTableKind, "Points", "Records")

/// Told once, with what would make questions faster.
using TZyNoticeEvent = std::function<void(TObject* Sender, const std::string& Text)>;
template <>
inline std::string_view TypeName<TZyNoticeEvent>() {
  return "TZyNoticeEvent";
}

/// A table that no memory holds: a data set whose records are what a picture needs of it. Vectors take them through a
/// data source and a field name as those of any data set, and series draw them as any data.
///
/// Of Points, for lines and areas, these are for each column of pixels of XAxis the first, smallest, largest and last
/// row (and some more, or all where they are few), the rows next to the axis at both sides, and a coarser excerpt of
/// all that lies beyond, so that ranges of axes, zooming out and panning know the whole table. The picture is that of a
/// vector with all rows. Of Records, for bars and candles, there is one for each stretch of RecordWidth pixels, with
/// the fields `open`, `high`, `low`, `close`, `mean`, `sum`, `count` beside X, and behind the last one its end alone.
///
/// The table is asked whenever a layout gave the axis other ends or another length, on a thread of its own. Until it
/// has answered, the chart shows the records that are there. Rows with nulls are left out. An answer that fails leaves
/// the records as they are, tells LastError and the links, and is asked for again by Refresh or by the next zoom.
///
/// For other things than pictures the records are an excerpt, and curves that are computed refuse them.
class TZyTableData : public TDataSet, public IDataExcerpt {
  ZY_CLASS(TZyTableData, TDataSet)
  explicit TZyTableData(TComponent* Owner = nullptr);
  ~TZyTableData() override;

  /// Where the database is; see TSqlDataSet. Setting what is read, down to RecordWidth, closes the data set.
  const std::string& ConnectionText() const { return FConnectionText; }
  void SetConnectionText(const std::string& Value) { SetSource(FConnectionText, Value); }
  /// Table or view, in the case in which it was made; a schema may stand before a point.
  const std::string& TableName() const { return FFields.Table; }
  void SetTableName(const std::string& Value) { SetSource(FFields.Table, Value); }
  /// Column of X, numbers that should be unique and have an index: best the primary key, or an index over X and values.
  const std::string& XField() const { return FFields.X; }
  void SetXField(const std::string& Value) { SetSource(FFields.X, Value); }
  /// Column of the values.
  const std::string& YField() const { return FYField; }
  void SetYField(const std::string& Value) { SetSource(FYField, Value); }
  /// Columns of Records in place of YField, where a table has prices by these four; the empty ones read YField.
  const std::string& OpenField() const { return FFields.First; }
  void SetOpenField(const std::string& Value) { SetSource(FFields.First, Value); }
  const std::string& HighField() const { return FFields.Max; }
  void SetHighField(const std::string& Value) { SetSource(FFields.Max, Value); }
  const std::string& LowField() const { return FFields.Min; }
  void SetLowField(const std::string& Value) { SetSource(FFields.Min, Value); }
  const std::string& CloseField() const { return FFields.Last; }
  void SetCloseField(const std::string& Value) { SetSource(FFields.Last, Value); }
  TZyTableKind Kind() const { return FKind; }
  void SetKind(TZyTableKind Value);
  /// Pixels from record to record, at least 1. In X that is rounded up to 1, 2 or 5 times a power of ten.
  float RecordWidth() const { return FRecordWidth; }
  void SetRecordWidth(float Value);
  /// Name of the summary table; by itself that of table and columns. It need not exist; see MakeSummary.
  const std::string& SummaryTable() const { return FSummaryTable; }
  void SetSummaryTable(const std::string& Value) { SetSource(FSummaryTable, Value); }
  /// The axis whose pixels are the columns. Without one there is only the excerpt of the whole table.
  TZyAxis* XAxis() const { return FXAxis; }
  void SetXAxis(TZyAxis* Value);

  /// A question is under way: it runs when that begins, and OnAnswered when none is any more, whatever the outcome.
  /// Most questions begin within the layout of a chart, so that it must not free a chart or an axis. While one takes
  /// longer than a moment, the parent of the axis shows the hour glass.
  const TNotifyEvent& OnAsked() const { return FOnAsked; }
  void SetOnAsked(TNotifyEvent Value) { FOnAsked = std::move(Value); }
  const TNotifyEvent& OnAnswered() const { return FOnAnswered; }
  void SetOnAnswered(TNotifyEvent Value) { FOnAnswered = std::move(Value); }
  const TZyNoticeEvent& OnNotice() const { return FOnNotice; }
  void SetOnNotice(TZyNoticeEvent Value) { FOnNotice = std::move(Value); }

  bool IsWaiting() const { return FIsWaiting; }
  /// Waits for the answer and takes it, for programs without an event loop. A chart asks when it is laid out: paint,
  /// wait, paint. Whether there was anything to wait for.
  bool WaitForAnswer();
  /// Number, ends, extremes and sum of all rows as of the last Open or Refresh.
  const TZyTableBlock& Total() const { return FWhole.Total; }
  /// Seconds that the last answer took.
  double AnswerSeconds() const { return FRange.Seconds; }

  /// Makes the summary table, or brings it up to date, on the calling thread; see TZyTableSummary. Progress gets the
  /// number of rows done, and may stop the work, of which what is done stays. Throws EDatabaseError.
  ///
  /// On SQLite writers that use REPLACE must set `PRAGMA recursive_triggers = ON`, or use INSERT ... ON CONFLICT DO
  /// UPDATE: else rows of another X that they push out stay summed up until the next call, which finds them.
  void MakeSummary(const std::function<bool(std::int64_t Rows)>& Progress = {}, bool Anew = false);
  void DropSummary();
  /// All rows in the order of X, some ten thousand at a time, for what has to see them all; Y is YField, or CloseField.
  /// False from Visit ends it. On the calling thread; throws EDatabaseError.
  void ForEachBlock(const std::function<bool(std::span<const double> X, std::span<const double> Y)>& Visit);

  bool IsExcerpt() const override;
  std::int64_t RowCount() const override { return FWhole.Total.Count; }
  const std::string& RowSource() const override { return FFields.Table; }

 protected:
  std::vector<TFieldDef> ReadRecords() override;
  void DropRecords() override;
  void RecordsTold() override;
  int GetRecordCount() const override { return static_cast<int>(FRecords.size()); }
  TFieldValue GetValue(int Row, int Field) const override;

 private:
  TZyTableFields Fields() const;
  std::string Summary() const;
  void SetSource(std::string& Field, const std::string& Value);
  void Start();
  void Follow(const TWinControl& Parent);
  std::vector<double> PixelEdges() const;
  void Ask(std::vector<double> Edges);
  void AskRange();
  bool OnlySways(const std::vector<double>& Edges) const;
  void TakeAnswers();
  void TakeAnswer(TZyTableAnswer& Answer);
  void TakeWhole();
  void Merge();
  void SetWaiting(bool Value);
  void TellWaiting();
  void ShowCursor(bool Busy);

  std::string FConnectionText, FYField, FSummaryTable;
  TZyTableFields FFields;  // of the four columns those that were set
  TZyTableKind FKind = TZyTableKind::Points;
  float FRecordWidth = 6;
  TRef<TZyAxis> FXAxis{this, &TZyTableData::SetXAxis};
  TNotifyEvent FOnAsked, FOnAnswered;
  TZyNoticeEvent FOnNotice;

  TZyTableAnswer FWhole, FRange;
  TZyTableAnswer FNewWhole;  // until the answer for the range is there as well
  std::vector<TZyTableBlock> FRecords;
  std::vector<double> FAsked, FAskedBefore;  // edges
  std::vector<double> FTried;                // edges at which the whole was asked for once more
  unsigned FQuestions = 0;
  unsigned FOpenings = 0;
  bool FIsTaking = false;  // an answer becomes the records
  bool FIsWaiting = false;
  bool FIsReading = false;   // the first question is asked in the middle of opening
  bool FTellsAsked = false;  // OnAsked is to run as soon as that is over
  std::string FFailure;
  TRef<TWinControl> FBusyControl{this};
  short FOldCursor = 0;
  std::unique_ptr<TTimer> FCursorTimer;
  std::unique_ptr<TZyAxisWatcher> FWatcher;
  std::unique_ptr<TZyTableWorker> FWorker;
};

}  // namespace zy
