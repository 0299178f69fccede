#pragma once

#include <functional>
#include <initializer_list>
#include <span>
#include <string>
#include <vector>

#include "annotations/captions/ZyCaptionOfName.h"
#include "annotations/captions/ZyParentFont.h"
#include "annotations/captions/ZyRichCaption.h"
#include "axes/ZyAxisData.h"
#include "axes/ZyAxisEnds.h"
#include "axes/ZyAxisLabels.h"
#include "axes/ZyAxisLook.h"
#include "axes/ZyAxisTicks.h"
#include "axes/ZyScrollRange.h"
#include "axes/ZyZoomStages.h"
#include "graph/parts/ZyGraphParts.h"
#include "graph/styles/ZyArrowSettings.h"
#include "persistence/ZyRecord.h"
#include "platform/controls/TGraphicControl.h"
#include "platform/framework/TRef.h"
#include "platform/framework/TRefList.h"
#include "series/vectors/ZyBoundTexts.h"
#include "texts/ZyLocalize.h"
#include "undo/ZyUndoLink.h"

namespace zy {

class Graphics;
class IZyAxisGraph;

/// One scale: its ends, ticks and labels, and the way between values and pixels.
///
/// An axis is a child control of a graph. Its ends come from what was set and from the data of its series; they are
/// rounded to ticks. The layout pass of its parent fixes where it stands and how long it is.
///
/// The class holds the properties; what it is made of are parts with a state of their own: the ends, the steps and the
/// kind of scale that chooses them, the ticks, the labels, the zoom stages, the rubrics.
class TZyAxis : public TGraphicControl, public TZyRecord, public IZyUndoUser {
  ZY_CLASS(TZyAxis, TGraphicControl)
  explicit TZyAxis(TComponent* Owner = nullptr);
  ~TZyAxis() override;

  /// The tip at the end where the values grow to.
  TZyAxisArrowPoint& ArrowPoint() { return FArrowPoint; }
  const TZyAxisArrowPoint& ArrowPoint() const { return FArrowPoint; }

  /// Text beside the axis. Trailing blanks are dropped. Setting it throws what a variable of it throws, and
  /// EConvertError for a malformed colour, with the text set; a form that is loaded throws nothing.
  const TZyRichCaption& Caption() const { return FCaptionRec.Caption(); }
  void SetCaption(const TZyRichCaption& Value);
  bool CaptionVisible() const { return FLook.CaptionVisible; }
  void SetCaptionVisible(bool Value);
  /// Where the caption stands along the axis; left is the lower end of a vertical one.
  TAlignment CaptionAlignment() const { return FLook.CaptionAlignment; }
  void SetCaptionAlignment(TAlignment Value);
  /// Whether the caption of a vertical axis reads as that of a horizontal one.
  bool CaptionHorizontalOnVerticalAxis() const { return FLook.CaptionHorizontalOnVerticalAxis; }
  void SetCaptionHorizontalOnVerticalAxis(bool Value);
  /// Pixels above and below the caption, as it stands when it is read.
  float CaptionDistanceBefore() const { return FLook.CaptionDistanceBefore; }
  void SetCaptionDistanceBefore(float Value);
  float CaptionDistanceAfter() const { return FLook.CaptionDistanceAfter; }
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
  bool NumbersVisible() const { return FLook.NumbersVisible; }
  void SetNumbersVisible(bool Value);
  TZyColor ForeColor() const { return FLook.ForeColor; }
  /// Colour of the line, and of the ticks as long as theirs was not set apart.
  void SetForeColor(TZyColor Value);
  TZyColor TickColor() const { return FLook.TickColor; }
  void SetTickColor(TZyColor Value);
  TZyColor MajorTickColor() const { return FLook.MajorTickColor; }
  void SetMajorTickColor(TZyColor Value);
  TZyAxisPosition Position() const { return FGeometry.Position; }
  void SetPosition(TZyAxisPosition Value);
  /// Whether values grow to the left, or downwards.
  bool Twisted() const { return FGeometry.Twisted; }
  void SetTwisted(bool Value);
  bool TicksPointToData() const { return FLook.TicksPointToData; }
  void SetTicksPointToData(bool Value);
  /// Widths and lengths in pixels; stored as absolute values.
  float AxisThicknes() const { return FLook.AxisThicknes; }
  void SetAxisThicknes(float Value);
  float MajorTickThicknes() const { return FLook.MajorTickThicknes; }
  void SetMajorTickThicknes(float Value);
  float TickThicknes() const { return FLook.TickThicknes; }
  void SetTickThicknes(float Value);
  float TickLength() const { return FLook.TickLength; }
  void SetTickLength(float Value);
  float MajorTickLength() const { return FLook.MajorTickLength; }
  void SetMajorTickLength(float Value);
  /// Scales the gap between labels, 0.1 to 10.
  float LabelDistanceFactor() const { return FStepRules.LabelDistanceFactor; }
  void SetLabelDistanceFactor(float Value);
  /// Degrees, counter-clockwise, by which the labels are turned; brought into 0 up to 360.
  float RubricsAngle() const { return FLabels.Angle(); }
  void SetRubricsAngle(float Value);
  TZyAxisScaling Scaling() const { return FKind->Scaling(); }
  /// Seconds, dates and rubrics choose their steps themselves: AutoTickParts becomes true.
  void SetScaling(TZyAxisScaling Value);
  /// Number of decades up to which a logarithmic axis is linear after all; 0 for never.
  double LogToNormalScalingLevel() const { return FStepRules.LogToNormalScalingLevel; }
  void SetLogToNormalScalingLevel(double Value);
  /// The texts of a rubric axis; null while they come from a data set. Setting copies them, or throws Exception while
  /// they come from a data set; null clears.
  TStringList* Rubrics() { return FRubrics.ByHand(); }
  void SetRubrics(const TStringList* Value);
  /// The field of a data set whose texts are the rubrics, one for each record; a null is an empty text. They are read
  /// at the next layout after a change of the data.
  const std::string& RubricsField() const { return FRubrics.Link().FieldName(); }
  void SetRubricsField(const std::string& Value);
  TDataSource* DataSource() const { return FRubrics.Link().DataSource(); }
  void SetDataSource(TDataSource* Value);
  /// The link to the field, with the text of what keeps it from its data.
  TZyListLink& RubricsLink() { return FRubrics.Link(); }
  /// Whether the steps are chosen from the room that there is. They can be set only while they are not.
  bool AutoTickParts() const { return FStepRules.AutoTickParts; }
  void SetAutoTickParts(bool Value);
  bool HasOwnTickParts() const { return !FStepRules.AutoTickParts; }
  /// The steps as parts of the decade in which the span lies. Stored as absolute value, 0 as 0.001.
  double LabelPart() const { return FSteps.LabelPart; }
  void SetLabelPart(double Value);
  double MajorTickPart() const { return FSteps.MajorTickPart; }
  void SetMajorTickPart(double Value);
  double TickPart() const { return FSteps.TickPart; }
  void SetTickPart(double Value);
  /// The table of steps. One whose entries are not all above 0 stands for the one that an axis has at first.
  const TZyTickTable& TickTable() const { return FStepRules.TickTable; }
  void SetTickTable(const TZyTickTable& Value);
  /// The formats of the labels of dates and times, taken from `FormatSettings` when the axis is made.
  const TZyDateTimeFormats& DateTimeFormats() const { return FStepRules.DateTimeFormats; }
  void SetDateTimeFormats(const TZyDateTimeFormats& Value);
  /// One step between major ticks and between ticks in values of the axis, in decades of a logarithmic one; what a
  /// scroll bar moves by.
  double MajorIncrement() const { return FKind->MajorIncrement(FSteps); }
  double MinorIncrement() const { return FKind->MinorIncrement(FSteps); }
  TZyMajorGridMode MajorGridMode() const { return FMajorGridMode; }
  void SetMajorGridMode(TZyMajorGridMode Value);
  TZyAxisEndRounding EndRounding() const { return FEnds.Rules.EndRounding; }
  void SetEndRounding(TZyAxisEndRounding Value);
  /// Fractions of the span that are added at the ends. Only values above 0 are taken, and none is undone.
  double StartPadding() const { return FEnds.Rules.StartPadding; }
  void SetStartPadding(double Value);
  double StopPadding() const { return FEnds.Rules.StopPadding; }
  void SetStopPadding(double Value);
  /// Width of a moving range, and the step by which it jumps; 0 for the width set by the ends, and for a third of it.
  double MovingSlitWidth() const { return FEnds.Rules.MovingSlitWidth; }
  void SetMovingSlitWidth(double Value);
  double MovingSlitIncrement() const { return FEnds.Rules.MovingSlitIncrement; }
  void SetMovingSlitIncrement(double Value);
  /// Values from which, and below which, the power of ten stands apart from the labels.
  double MaxForExtraExponent() const { return FStepRules.MaxForExtraExponent; }
  void SetMaxForExtraExponent(double Value);
  double MinForExtraExponent() const { return FStepRules.MinForExtraExponent; }
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
  int ExtraDigits() const { return FStepRules.ExtraDigits; }
  void SetExtraDigits(int Value);
  /// Gaps in pixels: between data area and axis line, between ticks and labels.
  float DistanceValuesAxis() const { return FLook.DistanceValuesAxis; }
  void SetDistanceValuesAxis(float Value);
  float DistanceAxisLabels() const { return FLook.DistanceAxisLabels; }
  void SetDistanceAxisLabels(float Value);
  /// Gap between the line of the labels and the power of ten that stands apart.
  float DistanceAxisExtraExponent() const { return FLook.DistanceAxisExtraExponent; }
  void SetDistanceAxisExtraExponent(float Value);
  /// The ends of the scale.
  double Start() const { return FEnds.Start(); }
  void SetStart(double Value);
  double Stop() const { return FEnds.Stop(); }
  void SetStop(double Value);
  /// All that is known of an end, which is what undo brings back of it.
  std::vector<double> StartState() const { return FEnds.StateOf(&TZyAxisRange::Start); }
  void SetStartState(const std::vector<double>& Value) { RestoreEnd(&TZyAxisRange::Start, Value); }
  std::vector<double> StopState() const { return FEnds.StateOf(&TZyAxisRange::Stop); }
  void SetStopState(const std::vector<double>& Value) { RestoreEnd(&TZyAxisRange::Stop, Value); }
  TZyAxisEnd StartEnd() const { return FEnds.Rules.StartEnd; }
  /// MovingSlit is for the stop only and counts as Fixed here.
  void SetStartEnd(TZyAxisEnd Value);
  /// MovingSlit makes the start Fixed, switches Zoom().Auto of the graph off, and takes the scroll bar of the direction
  /// away; another end does not bring them back.
  TZyAxisEnd StopEnd() const { return FEnds.Rules.StopEnd; }
  void SetStopEnd(TZyAxisEnd Value);
  /// Both ends at once, as a zoom sets them: without undo, and the ends that the user set stay known.
  void SetStartStop(double AStart, double AStop);
  /// Whether the layout pass sizes and places the control; true at first.
  void SetAutoSize(bool Value) override;
  /// Asked for the text of each label, and before that for the room that labels will need. It must not free an axis.
  const TZyScaleLabelEventHandler& OnGetScaleLabel() const { return mGetScaleLabel; }
  void SetOnGetScaleLabel(TZyScaleLabelEventHandler Value) { mGetScaleLabel = std::move(Value); }
  /// Runs before ticks are computed. It must not free an axis.
  const TNotifyEvent& OnGetTicks() const { return mGetTicks; }
  void SetOnGetTicks(TNotifyEvent Value) { mGetTicks = std::move(Value); }
  /// Runs after each layout, and may free axes and series.
  const TNotifyEvent& OnCalculated() const { return mCalculated; }
  void SetOnCalculated(TNotifyEvent Value) { mCalculated = std::move(Value); }
  TZyUndoStack* UndoStack() const override { return FUndo; }
  void SetUndoStack(TZyUndoStack* Value) override;

  /// True at the bottom and at the top.
  bool GetHorizontal() const { return FGeometry.Horizontal(); }
  /// Whether values lie by their logarithms now.
  bool HasLogScaling() const { return FSteps.HasLogScaling; }
  /// Pixel of a value, in the coordinates of the axis's parent. Values far outside saturate 100000 pixels away from the
  /// start; on a logarithmic axis what is not positive lies 100 pixels before it.
  float NumberToWorld(double Value) const { return Transform().PixelOf(Value); }
  /// The pixels of many values, the very same ones. Pixels has room for all of them.
  void NumberToWorld(std::span<const double> Values, std::span<float> Pixels) const {
    Transform().PixelsOf(Values, Pixels);
  }
  /// Value at a pixel; the inverse. Dates count from the start in calendar distance.
  double WorldToNumber(float Pixel) const { return Transform().ValueAt(Pixel); }
  /// The way from values to pixels as of the last ticks, for who maps many of them. Ends that were set since count from
  /// the next layout on, together with their ticks.
  const TZyAxisTransform& Transform() const { return FTransform; }
  /// The caption, or the name of the component without one.
  const std::string& ToString() const { return Caption().empty() ? Name() : Caption(); }
  /// The caption without its markup, or the name, with the first and the last label; the items are the labels.
  std::string AccessibleName() const override;
  /// The labels without markup, each with the power of ten that stands apart.
  std::vector<std::string> AccessibleItems() const override;

  /// Set while a layout pass runs, one for the process: it stops paints and resizes from entering it again.
  inline static bool LayoutRunning = false;

  /// Set while a graph reads its record, one for the process: axes ignore changes of ranges then, those of other graphs
  /// as well, which TestRange makes up for.
  inline static bool RangesHeld = false;

  /// Marks the axis for layout.
  void Modified();
  /// The data of a series changed; new ends are taken at the next GetNewRanges.
  void RangeModified();
  /// RangeModified, when data lie outside the range that the axis knows, and when that is to shrink, other ones.
  void TestRange(bool MayShrink);
  /// Takes the ends from the series, when their data changed.
  void GetNewRanges();
  /// Lays out the whole parent: ends, ticks and sizes of all its axes, and the data area of a graph.
  void Calculate();
  /// While a form is designed: scales the sample data of the other series of a vertical axis, so that none lies on top
  /// of another.
  void ShrinkOtherYs();
  /// Restores the unrounded ends after a change of size.
  void CheckResize();

  /// Whether data lie beyond the visible ends, so that there is something to scroll to: an end that was fixed hides
  /// nothing.
  bool GetIsClipped() const;
  /// Whether data of visible series lie beyond the start and beyond the stop, whatever these come from.
  TZyBeyond DataBeyond() const;

  /// Whether there are zoom stages; the first one, 0, is the range before all zooming.
  bool GetCanZoomBack() const { return !FStages.empty(); }
  /// Index of the stage that is shown.
  int GetCurrentZoomStage() const { return FStages.Current(); }
  /// Number of stages.
  int GetZoomBufferSize() const { return FStages.Count(); }
  /// Makes the present ends stage 0, unless there are stages.
  void BeginZoomBuffer() { FStages.Begin(FEnds.Shown()); }
  /// Shows a range as a new stage behind the present one; later stages are gone. An end outside the data stays where it
  /// is.
  void ZoomIn(double NewStart, double NewStop);
  /// The stage before or behind the present one, around the ends of the list; nothing without stages.
  void ZoomBack();
  void RedoZoom();
  /// Nothing when there is no such stage.
  void ZoomToStage(int Stage);
  /// Forgets the stages; the ends stay.
  void ZoomClearBuffer() { FStages.Clear(); }
  /// The whole range that scrolling and panning may show: stage 0, without stages the present ends.
  double GetScrollStart() const { return WholeRange().Start; }
  double GetScrollStop() const { return WholeRange().Stop; }
  /// Whether it is shown.
  bool ShowsWhole() const;
  /// A range and a place in units of a scroll bar whose 10000 are the whole range. The place may lie outside.
  int ScrollRangeSize(double Start, double Stop) const { return ScrollRange().SizeOnBar(Start, Stop); }
  int ScrollPosition(double Value) const { return ScrollRange().PositionOnBar(Value); }

  /// A value as a place on the scale, where equal distances are equal numbers of pixels, and back: its decade on a
  /// logarithmic axis, itself otherwise. The following count in it.
  double ToScale(double Value) const { return Transform().ToScale(Value); }
  double FromScale(double Place) const { return Transform().FromScale(Place); }
  /// Length of the whole range; that of the visible one where there is none.
  double WholeOnScale() const { return ScrollRange().WholeLength(); }
  double IncrementOf(TZyScrollIncrement Increment) const;
  /// Moves the visible range by a part of the whole one, as far as that reaches; with OnTicks to ticks where the ends
  /// are rounded. Without it the ends stay off the ticks until others are shown or the data change.
  void ScrollBy(double Part, bool OnTicks);
  /// Shows a range scaled around a place that stays where it is, as far as the whole range reaches. A span too small
  /// to be drawn is not shown.
  void ZoomAround(double Start, double Stop, double Fixed, double Factor);

  /// Range of the data; a start above the stop while none were seen.
  double ValuesStart() const { return FEnds.Values().Start; }
  double ValuesStop() const { return FEnds.Values().Stop; }
  /// Values per pixel: of the logarithm on a logarithmic axis, in days of dates.
  double NormalizeConst() const { return FTransform.PerPixel(); }
  /// Pixels between the ends, and where the axis line starts in the control.
  float AxLength() const { return FGeometry.Length; }
  float AxLeft() const { return FGeometry.Left; }
  float AxTop() const { return FGeometry.Top; }

  /// The ticks in the order of their values. Those less than a pixel apart count as one.
  const std::vector<TZyTick>& Ticks() const { return FTicks.Ticks(); }
  /// Texts of the labels in tick order.
  std::vector<std::string> LabelTexts() const { return FLabels.Texts(); }
  /// The labels themselves, and the power of ten that stands apart from them; its text is empty while there is none.
  const TZyRichCaptionObjects& AxLabels() const { return FLabels.Labels(); }
  const TZyRichCaptionObject& ExtraExponent() const { return FLabels.ExtraExponent(); }
  bool NeedsRecalculate() const { return FNeedsRecalculate; }

  /// The series that have this axis. They enter and leave by themselves; AddRelatedSeries says whether one was new.
  const TRefList<IZyAxisSeries>& RelatedSeries() const { return FRelatedSeries; }
  bool AddRelatedSeries(IZyAxisSeries* Series) { return FRelatedSeries.Add(Series, &Series->Component()); }
  void RemoveRelatedSeries(IZyAxisSeries* Series);

  // ---- For the layout pass ----

  const TZyAxisGeometry& Geometry() const { return FGeometry; }
  void SetAxLength(float Value) { FGeometry.Length = Value; }
  void SetAxLeft(float Value) { FGeometry.Left = Value; }
  void SetAxTop(float Value) { FGeometry.Top = Value; }
  /// Reads rubrics that a database changed.
  void UpdateDB() { FRubrics.Update(); }
  /// Rounds the ends, or takes those of the master.
  void TakeEnds();
  /// Makes ticks and labels anew for the ends and the length as they are, and places the caption.
  void CalculateTicks();
  /// The layout pass is done with the axis, or was left half way.
  void SetLaidOut(bool Value) { FNeedsRecalculate = !Value; }
  /// Room in whole pixels across the axis.
  float RoomNeeded() const;
  /// Room that the labels take beyond the ends; negative where they take none, 0 for an axis that shows none.
  TZyOverhang LabelOverhang() const;
  /// Whether the value 0 lies inside the axis.
  bool CrossesZero() const { return !HasLogScaling() && Start() < 0 && Stop() > 0; }
  /// Takes out the label and the tick at 0, over which another axis runs, or the first label, at which it stands.
  void DropAtZero();
  void DropFirstLabel() { FLabels.EraseFirst(); }

  /// Room of the caption on the screen, in height and width.
  float CaptionHeight() const;
  float CaptionWidth() const;

  /// Draws the axis in the control's own coordinates.
  void PaintGr(Graphics& Gr);
  /// Draws the axis in a parent that is no graph; a graph draws its axes itself.
  void Paint(Graphics& Gr) override;
  void SetParent(TWinControl* Value) override;
  void Resize() override;
  void SetName(const std::string& Value) override;
  void DefineProperties(TFiler& Filer) override;

  // ---- Record ----

  /// A reader takes what is stored as it stands, as undo does: no limit and no other property changes it.
  void Fields(TZyArchive& Archive) override;
  /// Without WithRange a reader leaves the ends, and the range of the data, as they are, and drops those of a stream
  /// and of XML; the zoom stages it leaves in all three forms.
  using TZyRecord::ReadFrom;
  void ReadFrom(TStream& Stream, bool WithRange);
  void ReadFrom(const std::filesystem::path& FileName, bool WithRange);
  void ReadFrom(const IXMLNode& Node, bool WithRange);
  void ReadFrom(const TCustomIniFile& Ini, std::string_view Section, bool WithRange);
  /// Does what reads the axis, with or without its range.
  void ReadBy(const std::function<void()>& Read, bool WithRange);

  // The mouse over an axis is the mouse over its graph.
  void Click() override;
  void DblClick() override;
  void MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) override;
  void MouseMove(TShiftState Shift, int X, int Y) override;
  void MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) override;

 protected:
  void EndRead() override { Modified(); }
  void VisibleChanging() override;
  void CMVisibleChanged() override;
  void ParentFontChanged() override;

 private:
  friend class TZyAxisRecord;

  IZyAxisGraph* Graph() const;
  bool LoadingRecord() const;
  void DoInvalidate();
  void DoNothing() {}
  bool Restoring() const;
  bool IsSlave() const { return FIsSlaveAxis && FMasterAxis != nullptr; }
  void LoseMaster(TZyAxis*);
  TZyAxisData Data() const { return {FRelatedSeries, GetHorizontal()}; }
  /// What the whole range is to scrolling: stage 0, without stages the ends.
  const TZyAxisRange& WholeRange() const { return FStages.empty() ? FEnds.Shown() : FStages.Whole(); }
  TZyScrollRange ScrollRange() const { return {Transform(), FEnds.Shown(), WholeRange()}; }
  double LowEnd() const { return FKind->LowEnd(Start(), Stop()); }
  double HighEnd() const { return FKind->HighEnd(Start(), Stop()); }

  void SetReal(double& Field, double Value, const char* PropName);
  void SetTickPartTo(double& Field, double Value, TZyText Label);
  void SetSlaveMapping(double& Field, double Value, TZyText Label, const char* PropName);
  void PushOwnParts(TZyText Label);
  void PushOfNoSlave(TZyText Label);
  void SetMovingSlit(double& Field, double Value, TZyText Label, const char* PropName);
  void SetColor(TZyFont& Font, TZyColor Value);
  void PushAll(TZyText Label, std::initializer_list<const char*> PropNames);
  void FontChanged();
  void NumbersFontChanged();
  void PlaceAsDesigned();
  template <class TStore>
  void SetEnd(double Value, double Present, const char* PropName, const TStore& Store);
  void RestoreEnd(TZyAxisEnds::TEnd End, const std::vector<double>& State);
  void EndSet();

  TZyLabelRoom LabelRoom();
  std::string LabelText(std::string Text, double Value);
  TZyEndRounding Rounding();
  void FollowMaster();
  void RescaleSamples();
  void ShowWholeWhereSet();
  void TakeStage(int Stage);
  float AcrossCaption() const { return GetHorizontal() ? CaptionHeight() : CaptionWidth(); }

  TZyAxisArrowPoint FArrowPoint;
  TZyUndoLink FUndo{this, &TZyAxis::SetUndoStack, FArrowPoint};
  bool FNeedsRecalculate = true;
  bool FIsSlaveAxis = false;
  bool FSettingColor = false;                        // a colour alone needs no layout
  mutable const TWinControl* FCastParent = nullptr;  // whose cast to a graph FGraph is
  mutable IZyAxisGraph* FGraph = nullptr;
  bool FReadsRecord = false;
  bool FReadsRange = true;  // when it does
  bool FTickColorFollows = true;
  bool FMajorTickColorFollows = true;
  TZyMajorGridMode FMajorGridMode = TZyMajorGridMode::AtLabel;
  TRef<TZyAxis> FMasterAxis{this, &TZyAxis::LoseMaster};
  double FSlaveSlope = 1, FSlaveOffset = 0;
  TZyFont FFont;
  TZyParentFont FNumbersFont{*this, FFont};
  TZyRichCaptionObject FCaptionRec;
  TZyCaptionOfName FCaptionOfName;
  TZyBoundTexts FRubrics;
  TRefList<IZyAxisSeries> FRelatedSeries{this, &TZyAxis::RemoveRelatedSeries};

  TZyAxisLook FLook;
  TZyAxisGeometry FGeometry;
  const TZyScaleKind* FKind = &TZyScaleKind::Of(TZyAxisScaling::Normal);
  TZyStepRules FStepRules;
  TZyAxisSteps FSteps;
  TZyAxisEnds FEnds;
  TZyZoomStages FStages;
  TZyAxisTicks FTicks;
  TZyAxisLabels FLabels;
  TZyAxisTransform FTransform{TZyMapping::Linear, 0, 1, FGeometry};  // as of the last ticks
  TZyScaleLabelEventHandler mGetScaleLabel;
  TNotifyEvent mGetTicks, mCalculated;
};

}  // namespace zy
