#pragma once

#include <array>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "annotations/captions/ZyParentFont.h"
#include "annotations/captions/ZyRichCaption.h"
#include "axes/ZyDateTimeSteps.h"
#include "axes/ZySecondsSteps.h"
#include "graph/styles/ZyArrowSettings.h"
#include "platform/controls/TGraphicControl.h"
#include "platform/data/TDataSource.h"
#include "platform/framework/Alignment.h"
#include "platform/framework/EnumInfo.h"
#include "platform/framework/TRef.h"
#include "platform/framework/TStrings.h"
#include "series/vectors/ZyListLink.h"
#include "texts/ZyLocalize.h"

namespace zy {

class Graphics;
class TZyGraph2D;
class TZySeries;
class TZyUndoStack;
enum class TZyScrollIncrement;

/// Side of the data area at which an axis stands.
enum class TZyAxisPosition { Bottom, Left, Top, Right };
ZY_ENUM(TZyAxisPosition, "Bottom", "Left", "Top", "Right")

/// Where an end of an axis comes from.
enum class TZyAxisEnd {
  AutoRange,  ///< follows the data
  FirstSet,   ///< the value that was set, widened outwards when data lie beyond it
  Fixed,      ///< the value that was set
  MovingSlit  ///< a range of fixed width that jumps forward as data grow
};
ZY_ENUM(TZyAxisEnd, "AutoRange", "FirstSet", "Fixed", "MovingSlit")

/// What the values of an axis are, and how they lie along it.
enum class TZyAxisScaling {
  Normal,    ///< plain numbers, evenly spaced
  Log,       ///< positive numbers by their logarithms, labels as plain numbers
  LogEE,     ///< the same with powers of ten as labels
  Seconds,   ///< time spans in seconds
  DateTime,  ///< dates as day numbers with a fraction
  Rubrics    ///< 0, 1, 2 ... stand for texts
};
ZY_ENUM(TZyAxisScaling, "Normal", "Log", "LogEE", "Seconds", "DateTime", "Rubrics")

/// To what the ends of an axis are rounded, and to what while the chart is zoomed.
enum class TZyAxisEndRounding {
  RndToMajorZoomToMinor,
  RndToMajorZoomToNothing,
  RndToMajor,
  RndToMinorZoomToNothing,
  RndToMinor,
  RndNothing
};
ZY_ENUM(TZyAxisEndRounding, "RndToMajorZoomToMinor", "RndToMajorZoomToNothing", "RndToMajor", "RndToMinorZoomToNothing",
        "RndToMinor", "RndNothing")

/// Where the lines of the major grid stand.
enum class TZyMajorGridMode { AtLabel, AtMajorTick };
ZY_ENUM(TZyMajorGridMode, "AtLabel", "AtMajorTick")

/// A label about to be shown. A handler may replace its caption.
struct TZyScaleLabelEventArgs {
  double Value = 0;
  TZyRichCaption Caption;
};
using TZyScaleLabelEventHandler = std::function<void(TObject* Sender, TZyScaleLabelEventArgs& Args)>;

/// The steps between which a linear axis chooses, from coarse to fine, in parts of a power of ten. Behind the last one
/// those of the next lower power follow.
struct TZyTickTable {
  std::array<double, 3> LabelParts{1, 0.5, 0.2};
  std::array<double, 3> MajorParts{0.5, 0.5, 0.1};
  std::array<double, 3> MinorParts{0.1, 0.1, 0.02};
  bool operator==(const TZyTickTable&) const = default;
};

/// One scale: its ends, ticks and labels, and the way between values and pixels.
///
/// An axis is a child control of a graph. Its ends come from what was set and from the data of its series; they are
/// rounded to ticks. The layout pass of its parent fixes where it stands and how long it is.
class TZyAxis : public TGraphicControl {
  ZY_CLASS(TZyAxis, TGraphicControl)
  explicit TZyAxis(TComponent* Owner = nullptr);
  ~TZyAxis() override;

  /// The tip at the end where the values grow to.
  TZyAxisArrowPoint& ArrowPoint() { return FArrowPoint; }
  const TZyAxisArrowPoint& ArrowPoint() const { return FArrowPoint; }

  /// Text beside the axis. Trailing blanks are dropped.
  const TZyRichCaption& Caption() const { return FCaptionRec.Caption(); }
  void SetCaption(const TZyRichCaption& Value);
  bool CaptionVisible() const { return FCaptionVisible; }
  void SetCaptionVisible(bool Value);
  /// Where the caption stands along the axis; left is the lower end of a vertical one.
  TAlignment CaptionAlignment() const { return FCaptionAlignment; }
  void SetCaptionAlignment(TAlignment Value);
  /// Whether the caption of a vertical axis reads as that of a horizontal one.
  bool CaptionHorizontalOnVerticalAxis() const { return FCaptionHorizontalOnVerticalAxis; }
  void SetCaptionHorizontalOnVerticalAxis(bool Value);
  /// Pixels above and below the caption, as it stands when it is read.
  float CaptionDistanceBefore() const { return FCaptionDistanceBefore; }
  void SetCaptionDistanceBefore(float Value);
  float CaptionDistanceAfter() const { return FCaptionDistanceAfter; }
  void SetCaptionDistanceAfter(float Value);
  /// The same two by what they lie between: numbers and caption, caption and the border of the control.
  float DistanceNumbersCaption() const;
  void SetDistanceNumbersCaption(float Value);
  float DistanceToBorder() const;
  void SetDistanceToBorder(float Value);
  TZyFont& CaptionFont() { return FCaptionRec.CaptionFont(); }
  void SetCaptionFont(const TZyFont& Value);
  /// Font of the numbers.
  TZyFont& Font() { return FFont; }
  void SetFont(const TZyFont& Value);
  bool GetStoreFont() const { return !ParentFont(); }
  /// Fill colours of the two fonts.
  TZyColor CaptionColor() const { return FCaptionRec.CaptionFont().FillColor(); }
  void SetCaptionColor(TZyColor Value);
  TZyColor NumbersColor() const { return FFont.FillColor(); }
  void SetNumbersColor(TZyColor Value);
  bool NumbersVisible() const { return FNumbersVisible; }
  void SetNumbersVisible(bool Value);
  TZyColor ForeColor() const { return FForeColor; }
  /// Colour of the line, and of the ticks as long as theirs was not set apart.
  void SetForeColor(TZyColor Value);
  TZyColor TickColor() const { return FTickColor; }
  void SetTickColor(TZyColor Value);
  TZyColor MajorTickColor() const { return FMajorTickColor; }
  void SetMajorTickColor(TZyColor Value);
  TZyAxisPosition Position() const { return FPosition; }
  void SetPosition(TZyAxisPosition Value);
  /// Whether values grow to the left, or downwards.
  bool Twisted() const { return FTwisted; }
  void SetTwisted(bool Value);
  bool TicksPointToData() const { return FTicksPointToData; }
  void SetTicksPointToData(bool Value);
  /// Widths and lengths in pixels; stored as absolute values.
  float AxisThicknes() const { return FAxisThicknes; }
  void SetAxisThicknes(float Value);
  float MajorTickThicknes() const { return FMajorTickThicknes; }
  void SetMajorTickThicknes(float Value);
  float TickThicknes() const { return FTickThicknes; }
  void SetTickThicknes(float Value);
  float TickLength() const { return FTickLength; }
  void SetTickLength(float Value);
  float MajorTickLength() const { return FMajorTickLength; }
  void SetMajorTickLength(float Value);
  /// Scales the gap between labels, 0.1 to 10.
  float LabelDistanceFactor() const { return FLabelDistanceFactor; }
  void SetLabelDistanceFactor(float Value);
  /// Degrees, counter-clockwise, by which the labels are turned; brought into 0 up to 360.
  float RubricsAngle() const { return FRubricsAngle; }
  void SetRubricsAngle(float Value);
  TZyAxisScaling Scaling() const { return FScaling; }
  /// Seconds, dates and rubrics choose their steps themselves: AutoTickParts becomes true.
  void SetScaling(TZyAxisScaling Value);
  /// Number of decades up to which a logarithmic axis is linear after all; 0 for never.
  double LogToNormalScalingLevel() const { return FLogToNormalScalingLevel; }
  void SetLogToNormalScalingLevel(double Value);
  /// The texts of a rubric axis; null while they come from a data set. Setting copies them, or throws Exception while
  /// they come from a data set; null clears.
  TStringList* Rubrics() { return FDBData ? nullptr : &FRubrics; }
  void SetRubrics(const TStringList* Value);
  /// The field of a data set whose texts are the rubrics, one for each record; a null is an empty text. They are read
  /// at the next layout after a change of the data.
  const std::string& RubricsField() const { return FRubricsLink.FieldName(); }
  void SetRubricsField(const std::string& Value);
  TDataSource* DataSource() const { return FRubricsLink.DataSource(); }
  void SetDataSource(TDataSource* Value);
  /// The link to the field, with the text of what keeps it from its data.
  TZyListLink& RubricsLink() { return FRubricsLink; }
  /// Whether the steps are chosen from the room that there is. They can be set only while they are not.
  bool AutoTickParts() const { return FAutoTickParts; }
  void SetAutoTickParts(bool Value);
  bool HasOwnTickParts() const { return !FAutoTickParts; }
  /// The steps as parts of the decade in which the span lies. Stored as absolute value, 0 as 0.001.
  double LabelPart() const { return FScale.LabelPart; }
  void SetLabelPart(double Value);
  double MajorTickPart() const { return FScale.MajorTickPart; }
  void SetMajorTickPart(double Value);
  double TickPart() const { return FScale.TickPart; }
  void SetTickPart(double Value);
  /// The table of steps. One whose entries are not all above 0 stands for the one that an axis has at first.
  const TZyTickTable& TickTable() const { return FTickTable; }
  void SetTickTable(const TZyTickTable& Value);
  /// The formats of the labels of dates and times, taken from `FormatSettings` when the axis is made.
  const TZyDateTimeFormats& DateTimeFormats() const { return FDateTimeFormats; }
  void SetDateTimeFormats(const TZyDateTimeFormats& Value);
  /// One step between major ticks and between ticks in values of the axis, in decades of a logarithmic one; what a
  /// scroll bar moves by.
  double MajorIncrement() const;
  double MinorIncrement() const;
  TZyMajorGridMode MajorGridMode() const { return FMajorGridMode; }
  void SetMajorGridMode(TZyMajorGridMode Value);
  TZyAxisEndRounding EndRounding() const { return FEndRounding; }
  void SetEndRounding(TZyAxisEndRounding Value);
  /// Fractions of the span that are added at the ends. Only values above 0 are taken, and none is undone.
  double StartPadding() const { return FStartPadding; }
  void SetStartPadding(double Value);
  double StopPadding() const { return FStopPadding; }
  void SetStopPadding(double Value);
  /// Width of a moving range, and the step by which it jumps; 0 for the width set by the ends, and for a third of it.
  double MovingSlitWidth() const { return FMovingSlitWidth; }
  void SetMovingSlitWidth(double Value);
  double MovingSlitIncrement() const { return FMovingSlitIncrement; }
  void SetMovingSlitIncrement(double Value);
  /// Values from which, and below which, the power of ten stands apart from the labels.
  double MaxForExtraExponent() const { return FMaxForExtraExponent; }
  void SetMaxForExtraExponent(double Value);
  double MinForExtraExponent() const { return FMinForExtraExponent; }
  void SetMinForExtraExponent(double Value);
  /// The axis whose ends this one shows, times SlaveSlope plus SlaveOffset. An axis across this one, one that is a
  /// slave itself, and this one itself are not taken. Setting it sets IsSlaveAxis too.
  TZyAxis* MasterAxis() const { return FMasterAxis; }
  void SetMasterAxis(TZyAxis* Value);
  /// Without effect as long as there is no master.
  bool IsSlaveAxis() const { return FIsSlaveAxis; }
  void SetIsSlaveAxis(bool Value);
  double SlaveSlope() const { return FSlaveSlope; }
  void SetSlaveSlope(double Value);
  double SlaveOffset() const { return FSlaveOffset; }
  void SetSlaveOffset(double Value);
  /// Decimals of the labels beyond those that the ticks need.
  int ExtraDigits() const { return FExtraDigits; }
  void SetExtraDigits(int Value);
  /// Gaps in pixels: between data area and axis line, between ticks and labels.
  float DistanceValuesAxis() const { return FDistanceValuesAxis; }
  void SetDistanceValuesAxis(float Value);
  float DistanceAxisLabels() const { return FDistanceAxisLabels; }
  void SetDistanceAxisLabels(float Value);
  /// Gap between the line of the labels and the power of ten that stands apart.
  float DistanceAxisExtraExponent() const { return FDistanceAxisExtraExponent; }
  void SetDistanceAxisExtraExponent(float Value);
  /// The ends of the scale.
  double Start() const { return FStart; }
  void SetStart(double Value);
  double Stop() const { return FStop; }
  void SetStop(double Value);
  TZyAxisEnd StartEnd() const { return FStartEnd; }
  /// MovingSlit is for the stop only and counts as Fixed here.
  void SetStartEnd(TZyAxisEnd Value);
  TZyAxisEnd StopEnd() const { return FStopEnd; }
  void SetStopEnd(TZyAxisEnd Value);
  /// Both ends at once, as a zoom sets them: without undo, and the ends that the user set stay known.
  void SetStartStop(double AStart, double AStop);
  /// Whether the layout pass sizes and places the control; true at first.
  void SetAutoSize(bool Value) override;
  /// Asked for the text of each label, and before that for the room that labels will need.
  const TZyScaleLabelEventHandler& OnGetScaleLabel() const { return mGetScaleLabel; }
  void SetOnGetScaleLabel(TZyScaleLabelEventHandler Value) { mGetScaleLabel = std::move(Value); }
  /// Runs before ticks are computed.
  const TNotifyEvent& OnGetTicks() const { return mGetTicks; }
  void SetOnGetTicks(TNotifyEvent Value) { mGetTicks = std::move(Value); }
  /// Runs after each layout.
  const TNotifyEvent& OnCalculated() const { return mCalculated; }
  void SetOnCalculated(TNotifyEvent Value) { mCalculated = std::move(Value); }
  TZyUndoStack* UndoStack() const { return FUndoStack; }
  void SetUndoStack(TZyUndoStack* Value);

  /// True at the bottom and at the top.
  bool GetHorizontal() const { return FPosition == TZyAxisPosition::Bottom || FPosition == TZyAxisPosition::Top; }
  /// Whether values lie by their logarithms now.
  bool HasLogScaling() const { return FScale.HasLogScaling; }
  /// Pixel of a value, in the coordinates of the axis's parent. Values far outside saturate 100000 pixels away from the
  /// start; on a logarithmic axis what is not positive lies 100 pixels before it.
  float NumberToWorld(double Value) const;
  /// The pixels of many values, the very same ones. Pixels has room for all of them.
  void NumberToWorld(std::span<const double> Values, std::span<float> Pixels) const;
  /// Value at a pixel; the inverse. Dates count from the start in calendar distance.
  double WorldToNumber(float Pixel) const;
  /// The caption, or the name of the component without one.
  const std::string& ToString() const { return Caption().empty() ? Name() : Caption(); }

  /// Set while a layout pass runs, one for the process: it stops paints and resizes from entering it again.
  inline static bool LayoutRunning = false;

  /// Marks the axis for layout.
  void Modified();
  /// The data of a series changed; new ends are taken at the next GetNewRanges.
  void RangeModified();
  /// Takes the ends from the series, when their data changed.
  void GetNewRanges();
  /// Lays out the whole parent: ends, ticks and sizes of all its axes, and the data area of a graph.
  void Calculate();
  /// While a form is designed: scales the sample data of the other series of a vertical axis, so that none lies on top
  /// of another.
  void ShrinkOtherYs();
  /// Restores the unrounded ends after a change of size.
  void CheckResize();

  /// Whether data lie beyond the visible ends.
  bool GetIsClipped() const;

  /// Whether there are zoom stages; the first one, 0, is the range before all zooming.
  bool GetCanZoomBack() const { return !FLastZoomStart.empty(); }
  /// Index of the stage that is shown.
  int GetCurrentZoomStage() const { return FZoomIdx; }
  /// Number of stages.
  int GetZoomBufferSize() const { return static_cast<int>(FLastZoomStart.size()); }
  /// Makes the present ends stage 0, unless there are stages.
  void BeginZoomBuffer();
  /// Shows a range as a new stage behind the present one; later stages are gone. An end outside the data stays where it
  /// is.
  void ZoomIn(double NewStart, double NewStop);
  /// The stage before or behind the present one, around the ends of the list; nothing without stages.
  void ZoomBack();
  void RedoZoom();
  /// Nothing when there is no such stage.
  void ZoomToStage(int Stage);
  /// Forgets the stages; the ends stay.
  void ZoomClearBuffer();
  /// The whole range that scrolling and panning may show: stage 0, without stages the present ends.
  double GetScrollStart() const { return GetCanZoomBack() ? FLastZoomStart.front() : FStart; }
  double GetScrollStop() const { return GetCanZoomBack() ? FLastZoomStop.front() : FStop; }
  /// Whether it is shown.
  bool ShowsWhole() const;
  /// A range and a place in units of a scroll bar whose 10000 are the whole range. The place may lie outside.
  int ScrollRangeSize(double Start, double Stop) const;
  int ScrollPosition(double Value) const;

  /// A value as a place on the scale, where equal distances are equal numbers of pixels, and back: its decade on a
  /// logarithmic axis, itself otherwise. The following count in it.
  double ToScale(double Value) const;
  double FromScale(double Place) const;
  /// Length of the whole range; that of the visible one where there is none.
  double WholeOnScale() const;
  double IncrementOf(TZyScrollIncrement Increment) const;
  /// Moves the visible range by a part of the whole one, as far as that reaches, to ticks where the ends are rounded.
  void ScrollBy(double Part, bool AddsStage);
  /// Shows a range scaled around a place that stays where it is, as far as the whole range reaches. A span too small
  /// to be drawn is not shown.
  void ZoomAround(double Start, double Stop, double Fixed, double Factor);

  /// Range of the data; a start above the stop while none were seen.
  double ValuesStart() const { return FValuesStart; }
  double ValuesStop() const { return FValuesStop; }
  /// Values per pixel: of the logarithm on a logarithmic axis, in days of dates.
  double NormalizeConst() const { return FNormalizeConst; }
  /// Pixels between the ends, and where the axis line starts in the control.
  float AxLength() const { return FAxLength; }
  float AxLeft() const { return FAxLeft; }
  float AxTop() const { return FAxTop; }

  /// Pixel of each tick, in parent coordinates along the axis. Those less than a pixel apart count as one.
  const std::vector<float>& Ticks() const { return FTicks; }
  /// Per tick: whether it is drawn as a major tick, and whether a major grid line starts there.
  const std::vector<bool>& MajorTicks() const { return FMajorTick; }
  const std::vector<bool>& MajorGridTicks() const { return FMajorGridTick; }
  /// Texts of the labels in tick order.
  std::vector<std::string> LabelTexts() const;
  /// The labels themselves, and the power of ten that stands apart from them; its text is empty while there is none.
  const TZyRichCaptionObjects& AxLabels() const { return FAxLabels; }
  const TZyRichCaptionObject& ExtraExponent() const { return FExtraExponentRec; }
  bool NeedsRecalculate() const { return FNeedsRecalculate; }

  /// The series that have this axis. They enter and leave by themselves; AddRelatedSeries says whether one was new.
  const std::vector<TZySeries*>& RelatedSeries() const { return FRelatedSeries; }
  bool AddRelatedSeries(TZySeries* Series);
  void RemoveRelatedSeries(TZySeries* Series);

  /// Draws the axis in the control's own coordinates.
  void PaintGr(Graphics& Gr);
  /// Draws the axis in a parent that is no graph; a graph draws its axes itself.
  void Paint(Graphics& Gr) override;
  void SetParent(TWinControl* Value) override;
  void Resize() override;
  void SetName(const std::string& Value) override;
  void DefineProperties(TFiler& Filer) override;
  // The mouse over an axis is the mouse over its graph.
  void Click() override;
  void DblClick() override;
  void MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) override;
  void MouseMove(TShiftState Shift, int X, int Y) override;
  void MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) override;

 protected:
  void VisibleChanging() override;
  void CMVisibleChanged() override;
  void ParentFontChanged() override;
  void Notification(TComponent* AComponent, TOperation Operation) override;

 private:
  friend class TZyAxisLayout;

  /// Steps, number format and kind of the present ends.
  struct TScale {
    bool HasLogScaling = false;
    double LogStart = 0, LogStop = 1;  // decadic logarithms of the ends
    int RangeExponent = 0;
    int LabelExponent = 0;
    int Digits = 0;
    bool ExtraExponent = false;                                 // labels show mantissas of 10^LabelExponent
    double LabelPart = 1, MajorTickPart = 0.5, TickPart = 0.1;  // as parts of 10^RangeExponent
    TZyDtParameters DateTime;
    TZySecParameters Seconds;
  };

  TZyGraph2D* Graph() const;
  /// Whether the axis lies below or right of its data area, and so its texts behind each other outwards.
  bool PointsOutwards() const { return FPosition == TZyAxisPosition::Bottom || FPosition == TZyAxisPosition::Right; }
  void DoInvalidate();
  bool Restoring() const;
  bool HasLogKind() const { return FScaling == TZyAxisScaling::Log || FScaling == TZyAxisScaling::LogEE; }
  bool ChoosesOwnParts() const { return FScaling > TZyAxisScaling::LogEE; }
  bool Panning() const;
  bool KeepsEnds() const;
  bool IsSlave() const { return FIsSlaveAxis && FMasterAxis != nullptr; }
  void DoNothing() {}
  /// Dates before the first day do not order as their numbers do.
  bool RunsDown(double Start, double Stop) const {
    return FScaling == TZyAxisScaling::DateTime ? DateTimeSpan(Start, Stop) < 0 : Start > Stop;
  }
  double LowEnd() const { return RunsDown(FStart, FStop) ? FStop : FStart; }
  double HighEnd() const { return RunsDown(FStart, FStop) ? FStart : FStop; }
  void SetReal(double& Field, double Value, TZyText Label, const char* PropName);
  void SetTickPartTo(double& Field, double Value, TZyText Label, const char* PropName);
  void SetMovingSlit(double& Field, double Value, TZyText Label, const char* PropName);
  void FontChanged();
  void NumbersFontChanged();
  double LimitedToDates(double Value) const;
  void PlaceAsDesigned();
  void SetEnd(double& End, double& InitialEnd, double& LastEnd, double Value, TZyText Label, const char* PropName);

  // Ranging.
  void TakeCandidates(double& Start, double& Stop);
  void SetUpRubrics();
  void DBModified();
  void UpdateDB();
  void DsgnRescaleSeriesVectors();
  void TakeMovingSlit(double& Start, double& Stop);
  void RoundEnds(double& Start, double& Stop);
  void RepairOrder(double& Start, double& Stop) const;
  void WidenEqualEnds(double& Start, double& Stop) const;
  void TakeLogEnds(double& Start, double& Stop) const;
  void TakeLogScaling(double Start, double Stop);
  double SmallestPositiveBelow(double Stop) const;
  void TakeLogarithms(double Start, double Stop);
  void LimitEnds(double& Start, double& Stop) const;
  void AddPadding(double& Start, double& Stop);
  void RoundToSteps(double& Start, double& Stop);
  void TakeTickParts(double Start, double Stop);
  void RoundToTicks(double& Start, double& Stop) const;
  double RoundEnd(double Value, bool Up, bool ToMajor) const;
  double RoundToPart(double Value, double Part, bool Up) const;
  void RoundOwnEnds();
  void FollowMaster();
  void TakeStage(int Stage);
  void EndUserZoom();
  double ScrolledStart(double Distance, bool Rounds) const;

  // Steps and number format.
  /// A row of the table of steps, and the power of ten that it is used with.
  struct TTableStep {
    std::size_t Row = 0;
    double Power = 10;
    TTableStep Next() const { return Row < 2 ? TTableStep{Row + 1, Power} : TTableStep{0, Power / 10}; }
  };
  float LayoutLength() const;
  void TakeParts(const TZyTickTable& Table, const TTableStep& Step);
  TZyLabelRoom LabelRoom();
  void GetNormalAxisParts(double Start, double Stop);
  void GetLogAxisParts(double Start, double Stop);
  void GetDtParameters(double Start, double Stop);
  void GetSecParameters(double Start, double Stop);
  void LimitLogParts();
  void GetExponentAndDigits(double Start, double Stop);
  void TakeDigits();
  double PartSize(double Part) const;
  std::string NormalCaption(double Value) const;
  std::string LogCaption(double Value) const;
  float ApproxLen(std::string Text, double Value);

  // Ticks.
  void CalculateTicks();
  void SetUpScale();
  void TakeTicks();
  void TakeEvenTicks();
  void TakeLogTicks();
  void TakeDecadeTicks();
  void TakeTicksInDecades();
  bool IsLogLabel(int Decade, double Fraction) const;
  void TakeDateTimeTicks();
  void TakeRubrics();
  bool AddTick(float Pos, bool Major, bool Labelled, bool Grid);

  // Labels.
  std::string LabelText(std::string Text, double Value);
  float AlongAxis(float TextWidth, float TextHeight) const;
  float AcrossAxis(float TextWidth, float TextHeight) const;
  float LabelBase() const;
  void AddLabel(const std::string& Text, double Value, float Pos);
  float SlantShift(float Along) const;
  void PlaceExtraExponent();
  float ExtraExponentReach() const;
  float NumbersReach() const;
  void PlaceCaption();

  // Painting.
  float CaptionHeight() const;
  float CaptionWidth() const;
  bool CaptionIsTurned() const { return !GetHorizontal() && !FCaptionHorizontalOnVerticalAxis; }
  void PaintTicks(Graphics& Gr) const;
  void PaintLine(Graphics& Gr) const;

  TRef<TZyUndoStack> FUndoStack{this};
  bool FValuesRounded = false;
  bool FNeedsRecalculate = true;
  bool FRedoRange = false;
  bool FCaptionSet = false;
  bool FCaptionVisible = true;
  bool FNumbersVisible = true;
  bool FTwisted = false;
  bool FAutoTickParts = true;
  bool FIsSlaveAxis = false;
  bool FCaptionHorizontalOnVerticalAxis = false;
  bool FSettingColor = false;  // a colour alone needs no layout
  bool FTicksPointToData = false;
  bool FTickColorFollows = true;
  bool FMajorTickColorFollows = true;
  TZyAxisPosition FPosition = TZyAxisPosition::Bottom;
  TZyAxisEnd FStartEnd = TZyAxisEnd::AutoRange;
  TZyAxisEnd FStopEnd = TZyAxisEnd::AutoRange;
  TZyAxisScaling FScaling = TZyAxisScaling::Normal;
  TZyAxisEndRounding FEndRounding = TZyAxisEndRounding::RndToMajorZoomToMinor;
  TZyMajorGridMode FMajorGridMode = TZyMajorGridMode::AtLabel;
  TAlignment FCaptionAlignment = TAlignment::taCenter;
  TRef<TZyAxis> FMasterAxis{this};
  TZyAxisArrowPoint FArrowPoint;
  TStringList FRubrics;
  TZyListLink FRubricsLink;
  TRef<TDataSource> FDataSource{this};  // for the notice of its death
  bool FDBData = false;                 // the rubrics come from a data set
  bool FRubricsChanged = false;         // what was read is out of date
  bool FReadingRubrics = false;
  TZyColor FForeColor = Colors::Black;
  TZyColor FTickColor = Colors::Black;
  TZyColor FMajorTickColor = Colors::Black;
  float FAxisThicknes = 1;
  float FMajorTickThicknes = 1;
  float FTickThicknes = 1;
  float FTickLength = 6;
  float FMajorTickLength = 10;
  float FLabelDistanceFactor = 1;
  float FCaptionDistanceBefore = 0;
  float FCaptionDistanceAfter = 0;
  float FDistanceValuesAxis = 0;
  float FDistanceAxisLabels = 0;
  float FDistanceAxisExtraExponent = 10;
  float FRubricsAngle = 0;
  float FSine = 0, FCosine = 1;  // absolute values, of the angle of the labels
  int FExtraDigits = 0;
  TZyFont FFont;
  TZyParentFont FNumbersFont{*this, FFont};
  TZyRichCaptionObject FExtraExponentRec;
  TZyRichCaptionObject FCaptionRec;
  TZyTickTable FTickTable;
  TZyDateTimeFormats FDateTimeFormats = DefaultDateTimeFormats();

  double FStart = 0, FStop = 10;
  double FInitialStart = 0, FInitialStop = 10;   // last set by the user
  double FLastStart = 0, FLastStop = 10;         // last computed by GetNewRanges
  double FUnpaddedStart = 0, FUnpaddedStop = 0;  // before and after the last rounding
  double FPaddedStart = 0, FPaddedStop = 0;
  double FValuesStart, FValuesStop;  // range of the data
  double FStartPadding = 0, FStopPadding = 0;
  double FMovingSlitWidth = 0, FMovingSlitIncrement = 0;
  double FLogToNormalScalingLevel = 0;
  double FSlaveSlope = 1, FSlaveOffset = 0;
  double FMaxForExtraExponent = 1000, FMinForExtraExponent = 0.001;
  double FNormalizeConst = 1;     // values per pixel
  float FAxLength = 400;          // pixels between the ends
  float FAxLeft = 0, FAxTop = 0;  // start of the axis line in the control

  TScale FScale;
  std::vector<float> FTicks;
  std::vector<bool> FMajorTick, FMajorGridTick;
  bool FLastTickLabelled = false;
  TZyRichCaptionObjects FAxLabels;
  float FMaxNumberLabelWidth = 0, FMaxNumberLabelHeight = 0;
  std::vector<double> FLastZoomStart, FLastZoomStop;  // ends of each zoom stage
  int FZoomIdx = 0;                                   // the stage that is shown
  std::vector<TZySeries*> FRelatedSeries;
  TZyScaleLabelEventHandler mGetScaleLabel;
  TNotifyEvent mGetTicks, mCalculated;
};

}  // namespace zy
