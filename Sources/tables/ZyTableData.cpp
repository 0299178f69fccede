#include "tables/ZyTableData.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <limits>

#include "axes/ZyAxis.h"
#include "platform/controls/TTimer.h"
#include "platform/controls/TWinControl.h"
#include "platform/framework/ScopedFlag.h"
#include "platform/framework/TPropInfo.h"
#include "platform/sql/SqlConnection.h"
#include "tables/ZyTableSummary.h"
#include "tables/ZyTableWorker.h"
#include "texts/Exceptions.h"
#include "texts/ZyTableTexts.h"

namespace zy {
namespace {

/// Milliseconds of waiting that need no hour glass.
constexpr int Moment = 200;

constexpr const char* RecordFields[] = {"open", "high", "low", "close", "mean", "sum", "count"};

}  // namespace

ZY_PUBLISHED(TZyTableData, TDataSet, Published<&Self::ConnectionText, &Self::SetConnectionText>("ConnectionText", ""),
             Published<&Self::TableName, &Self::SetTableName>("TableName", ""),
             Published<&Self::XField, &Self::SetXField>("XField", ""),
             Published<&Self::YField, &Self::SetYField>("YField", ""),
             Published<&Self::OpenField, &Self::SetOpenField>("OpenField", ""),
             Published<&Self::HighField, &Self::SetHighField>("HighField", ""),
             Published<&Self::LowField, &Self::SetLowField>("LowField", ""),
             Published<&Self::CloseField, &Self::SetCloseField>("CloseField", ""),
             Published<&Self::Kind, &Self::SetKind>("Kind", TZyTableKind::Points),
             Published<&Self::RecordWidth, &Self::SetRecordWidth>("RecordWidth", 6.0f),
             Published<&Self::SummaryTable, &Self::SetSummaryTable>("SummaryTable", ""),
             Published<&Self::XAxis, &Self::SetXAxis>("XAxis"), Published<&Self::OnAsked>("OnAsked"),
             Published<&Self::OnAnswered>("OnAnswered"), Published<&Self::OnNotice>("OnNotice"),
             Published<&Self::Active, &Self::SetActive>("Active", false))

TZyTableData::TZyTableData(TComponent* Owner) : TDataSet(Owner), FCursorTimer(std::make_unique<TTimer>()) {
  FCursorTimer->SetEnabled(false);
  FCursorTimer->SetInterval(Moment);
  FCursorTimer->SetOnTimer([this](TObject*) { ShowCursor(true); });
}

TZyTableData::~TZyTableData() {
  Destroying();
  TZyTableWorker::Retire(std::move(FWorker));
  ShowCursor(false);
}

// --- Properties -----------------------------------------------------------------------------------------------------

void TZyTableData::SetSource(std::string& Field, const std::string& Value) {
  if (Value == Field) return;
  if (Active()) Close();
  Field = Value;
}

void TZyTableData::SetKind(TZyTableKind Value) {
  if (Value == FKind) return;
  if (Active()) Close();
  FKind = Value;
}

void TZyTableData::SetRecordWidth(float Value) {
  Value = Value >= 1 ? Value : 1;
  if (Value == FRecordWidth) return;
  if (Active()) Close();
  FRecordWidth = Value;
}

void TZyTableData::SetXAxis(TZyAxis* Value) {
  if (Value == FXAxis) return;
  FXAxis = Value;
  FWatcher.reset();
  if (Value == nullptr) return;
  FWatcher = std::make_unique<TZyAxisWatcher>([this](const TWinControl& Parent) { Follow(Parent); });
  if (Active() && Value->Parent() != nullptr) Follow(*Value->Parent());
}

TZyTableFields TZyTableData::Fields() const {
  TZyTableFields Result = FFields;
  for (std::string* Field : {&Result.First, &Result.Max, &Result.Min, &Result.Last})
    if (Field->empty() || FKind == TZyTableKind::Points) *Field = FYField;
  return Result;
}

std::string TZyTableData::Summary() const {
  return FSummaryTable.empty() ? TZyTableSummary::NameFor(Fields()) : FSummaryTable;
}

// --- Reading --------------------------------------------------------------------------------------------------------

/// What an answer brought, or the beginning: the table is tested at once, and then asked.
std::vector<TFieldDef> TZyTableData::ReadRecords() {
  if (std::exchange(FIsTaking, false)) {  // what a handler asks for meanwhile is a question again
    if (!FFailure.empty()) throw EDatabaseError(FFailure);
    Merge();
  } else {
    const TScopedValue<bool> Reading(FIsReading, true);
    Start();
  }
  std::vector<TFieldDef> Result{{FFields.X, TFieldType::Float}};
  if (FKind == TZyTableKind::Points) {
    Result.push_back({FYField, TFieldType::Float});
  } else {
    for (const char* Name : RecordFields) Result.push_back({Name, TFieldType::Float});
  }
  return Result;
}

void TZyTableData::Start() {
  const TZyTableFields Names = Fields();
  for (const std::string* Each : {&Names.Table, &Names.X, &Names.First, &Names.Max, &Names.Min, &Names.Last})
    if (Each->empty()) throw EDatabaseError(Format(LoadResString(_sTableUnset), {Title()}));
  const std::shared_ptr<TSqlConnection> Connection = TSqlConnection::Share(FConnectionText);
  TZyTable(*Connection, Names, Title()).Statements();
  if (FWorker == nullptr) {
    ++FOpenings;
    FWorker = std::make_unique<TZyTableWorker>(TZyTableSource{FConnectionText, Names, Summary(), Title()},
                                               [this] { TakeAnswers(); });
  }
  FAsked.clear();
  FAskedBefore.clear();
  Ask({});
}

/// The first question was asked in the middle of opening, where no handler may run.
void TZyTableData::RecordsTold() {
  if (std::exchange(FTellsAsked, false)) TellWaiting();
}

void TZyTableData::DropRecords() {
  TZyTableWorker::Retire(std::move(FWorker));
  FRecords.clear();
  FWhole = FNewWhole = FRange = {};
  FAsked.clear();
  FAskedBefore.clear();
  FTried.clear();
  FIsWaiting = FTellsAsked = false;  // without a word, in the middle of closing
  ShowCursor(false);
}

TFieldValue TZyTableData::GetValue(int Row, int Field) const {
  const TZyTableBlock& Record = FRecords[static_cast<std::size_t>(Row)];
  const auto Count = static_cast<double>(Record.Count);
  const double Values[] = {Record.FirstX, Record.First,       Record.Max, Record.Min,
                           Record.Last,   Record.Sum / Count, Record.Sum, Count};
  TFieldValue Result;
  if (Record.Count == 0 && Field > 0) return Result;
  Result.Type = TFieldType::Float;
  Result.Real = Values[Field];
  return Result;
}

/// The range that was asked for last, between what is known of the whole table beside it. Behind the last of Records
/// stands one with nothing but X, where it ends: bars need an end more than they have values.
void TZyTableData::Merge() {
  std::vector<TZyTableBlock> Records;
  Records.reserve(FWhole.Records.size() + FRange.Records.size() + 2);
  const auto Add = [&Records](const TZyTableBlock& Each) {
    if (Records.empty() || Records.back().FirstX < Each.FirstX) Records.push_back(Each);
  };
  const bool HasRange = FRange.Low < FRange.High;
  const auto Beside = std::ranges::partition_point(
      FWhole.Records, [&](const TZyTableBlock& Each) { return !HasRange || Each.FirstX < FRange.Low; });
  std::for_each(FWhole.Records.begin(), Beside, Add);
  if (HasRange) {
    for (const auto* Part : {&FRange.Before, &FRange.Records, &FRange.Behind}) std::ranges::for_each(*Part, Add);
    std::for_each(Beside, FWhole.Records.end(), [&](const TZyTableBlock& Each) {
      if (Each.FirstX >= FRange.High) Add(Each);
    });
  }
  if (FKind == TZyTableKind::Records && !Records.empty()) {
    const double Last = Records.back().FirstX;
    TZyTableBlock End;
    End.FirstX = HasRange && Last >= FRange.Low && Last < FRange.High ? FRange.Close : FWhole.Close;
    Add(End);
  }
  FRecords = std::move(Records);
}

/// A table that grew since may show more rows in the range than the whole of it had.
bool TZyTableData::IsExcerpt() const {
  const auto HasAll = [](const std::vector<TZyTableBlock>& Records, const TZyTableBlock& Total) {
    return std::ranges::count(Records, 1, &TZyTableBlock::Count) >= Total.Count;
  };
  if (FRange.Number > 0 && (!HasAll(FRange.Records, FRange.Total) || FRange.Total.Count > FWhole.Total.Count))
    return true;
  return !HasAll(FRecords, FWhole.Total);
}

// --- Questions and answers ------------------------------------------------------------------------------------------

/// After a layout: asks when the columns are others. Only notes and asks, since the layout is not quite over.
void TZyTableData::Follow(const TWinControl& Parent) {
  if (FXAxis == nullptr || FXAxis->Parent() != &Parent || FWorker == nullptr) return;
  if (FWhole.Number > 0) return AskRange();
  if (FIsWaiting) return;
  std::vector<double> Edges = PixelEdges();  // a zoom tries once more what failed
  if (Edges != std::exchange(FTried, Edges)) Ask({});
}

/// Whether these columns are those of before the last answer, but for some pixels the same. Means and sums of records
/// are others where these are wider, and labels beside the axis that are wider with one answer than with the other
/// would have it ask for ever. Records that are a little wider or narrower do as well.
bool TZyTableData::OnlySways(const std::vector<double>& Edges) const {
  return FKind == TZyTableKind::Records && FRange.Number == FQuestions && Edges == FAskedBefore && !FAsked.empty() &&
         Edges.front() == FAsked.front() && Edges.back() == FAsked.back() &&
         Edges.size() < FAsked.size() + FAsked.size() / 8 && FAsked.size() < Edges.size() + Edges.size() / 8;
}

void TZyTableData::AskRange() {
  if (FXAxis == nullptr || FXAxis->Parent() == nullptr || FXAxis->NeedsRecalculate()) return;
  std::vector<double> Edges = PixelEdges();
  if (Edges.size() < 2 || Edges == FAsked || OnlySways(Edges)) return;
  FAskedBefore = std::exchange(FAsked, Edges);
  Ask(std::move(Edges));
}

/// The ends of the axis, and between them where a series divides columns of pixels.
std::vector<double> TZyTableData::PixelEdges() const {
  constexpr float MostPixels = 20000;
  const double Low = std::min(FXAxis->Start(), FXAxis->Stop()), High = std::max(FXAxis->Start(), FXAxis->Stop());
  const float First = FXAxis->NumberToWorld(Low), Last = FXAxis->NumberToWorld(High);
  if (!(std::fabs(Last - First) >= 1) || std::fabs(Last - First) > MostPixels) return {};
  std::vector<double> Result{Low, std::nextafter(High, std::numeric_limits<double>::infinity())};
  const auto From = static_cast<int>(std::floor(std::min(First, Last))) - 1;
  const auto To = static_cast<int>(std::ceil(std::max(First, Last)));
  for (int Pixel = From; Pixel <= To; ++Pixel) {
    const double Edge = FXAxis->WorldToNumber(static_cast<float>(Pixel) + 0.5f);
    if (Edge > Low && Edge <= High) Result.push_back(Edge);
  }
  std::ranges::sort(Result);
  Result.erase(std::unique(Result.begin(), Result.end()), Result.end());
  return Result;
}

void TZyTableData::Ask(std::vector<double> Edges) {
  TZyTableQuestion Question;
  Question.Number = ++FQuestions;
  Question.Kind = FKind;
  if (Edges.size() > 1)
    Question.Width =
        static_cast<double>(FRecordWidth) * (Edges.back() - Edges.front()) / static_cast<double>(Edges.size() - 1);
  Question.Edges = std::move(Edges);
  FWorker->Ask(std::move(Question));
  SetWaiting(true);
}

bool TZyTableData::WaitForAnswer() {
  if (!FIsWaiting) return false;
  FWorker->Wait();
  TakeAnswers();
  return true;
}

/// A handler may free the data set, close it, or open it anew, which makes what is left of the answers void.
void TZyTableData::TakeAnswers() {
  if (FWorker == nullptr) return;
  const std::uint64_t Handle = LiveHandle();
  const auto IsOpen = [this, Handle, Opening = FOpenings] {
    return FromLiveHandle(Handle) != nullptr && FWorker != nullptr && FOpenings == Opening;
  };
  std::exception_ptr Thrown;
  for (TZyTableAnswer& Answer : FWorker->TakeAnswers()) {
    try {
      TakeAnswer(Answer);
    } catch (...) {  // a handler's, which keeps nothing from being taken
      if (Thrown == nullptr) Thrown = std::current_exception();
    }
    if (!IsOpen()) break;
    FIsTaking = false;
  }
  if (IsOpen() && !FWorker->IsBusy()) SetWaiting(false);
  if (Thrown != nullptr) std::rethrow_exception(Thrown);
}

/// A renewed answer for the whole table waits for that for the range, so that they take effect together.
void TZyTableData::TakeAnswer(TZyTableAnswer& Answer) {
  FFailure = Answer.Error;
  const std::string Notice = std::exchange(Answer.Notice, {});
  if (!FFailure.empty()) {
    FNewWhole = {};  // and what was asked for stays noted: not every layout asks once more
  } else if (Answer.IsWhole) {
    FNewWhole = std::move(Answer);
    AskRange();
    if (FRange.Number == 0 || FAsked.empty()) TakeWhole();
  } else if (Answer.Number > FRange.Number) {  // a handler with an event loop of its own may have had a newer one taken
    FRange = std::move(Answer);
    TakeWhole();
  }
  const std::uint64_t Handle = LiveHandle();
  try {
    FIsTaking = FNewWhole.Number == 0;
    if (FIsTaking) Refresh();
  } catch (const EDatabaseError&) {
    // LastError and the links have it.
  }
  if (FromLiveHandle(Handle) == nullptr) return;
  FIsTaking = false;
  if (const TZyNoticeEvent Handler = FOnNotice; Handler && !Notice.empty()) Handler(this, Notice);
}

void TZyTableData::TakeWhole() {
  if (FNewWhole.Number == 0) return;
  FWhole = std::exchange(FNewWhole, {});
  if (FRange.Number < FWhole.Number) FRange = {};
}

// --- Waiting --------------------------------------------------------------------------------------------------------

void TZyTableData::SetWaiting(bool Value) {
  if (Value == FIsWaiting) return;
  FIsWaiting = Value;
  FCursorTimer->SetEnabled(Value);
  if (!Value) ShowCursor(false);
  FTellsAsked = Value && FIsReading;
  if (!FTellsAsked) TellWaiting();
}

void TZyTableData::TellWaiting() {
  if (const TNotifyEvent Handler = FIsWaiting ? FOnAsked : FOnAnswered; Handler && !IsDestroying()) Handler(this);
}

/// A cursor that somebody set meanwhile stays.
void TZyTableData::ShowCursor(bool Busy) {
  FCursorTimer->SetEnabled(false);
  if (Busy == (FBusyControl != nullptr)) return;
  if (Busy) {
    if (FXAxis == nullptr || FXAxis->Parent() == nullptr) return;
    FBusyControl = FXAxis->Parent();
    FOldCursor = FBusyControl->Cursor();
    FBusyControl->SetCursor(crHourGlass);
  } else {
    if (FBusyControl->Cursor() == crHourGlass) FBusyControl->SetCursor(FOldCursor);
    FBusyControl = nullptr;
  }
}

// --- All rows -------------------------------------------------------------------------------------------------------

void TZyTableData::MakeSummary(const std::function<bool(std::int64_t Rows)>& Progress, bool Anew) {
  const std::shared_ptr<TSqlConnection> Connection = TSqlConnection::Share(FConnectionText);
  TZyTable Table(*Connection, Fields(), Title());
  TZyTableSummary(Table, Summary()).Update(Progress, Anew);
}

void TZyTableData::DropSummary() {
  const std::shared_ptr<TSqlConnection> Connection = TSqlConnection::Share(FConnectionText);
  TZyTable Table(*Connection, Fields(), Title());
  TZyTableSummary(Table, Summary()).Drop();
}

void TZyTableData::ForEachBlock(
    const std::function<bool(std::span<const double> X, std::span<const double> Y)>& Visit) {
  const std::shared_ptr<TSqlConnection> Connection = TSqlConnection::Share(FConnectionText);
  std::vector<double> X, Y;
  TZyTableReader(*Connection, Fields(), Summary(), Title()).ForEachBlock([&](std::span<const TZyTableBlock> Rows) {
    X.clear();
    Y.clear();
    for (const TZyTableBlock& Row : Rows) {
      X.push_back(Row.LastX);
      Y.push_back(Row.Last);
    }
    return Visit(X, Y);
  });
}

}  // namespace zy
