#pragma once

#include <memory>
#include <string>
#include <vector>

#include "annotations/ZyRichCaption.h"
#include "platform/controls/TGraphicControl.h"
#include "platform/framework/EnumInfo.h"
#include "platform/framework/TRef.h"
#include "texts/ZyLocalize.h"

namespace zy {

class Graphics;
class TZyGraph2D;
class TZySeries;
class TZyUndoStack;

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

/// One scale: its ends, ticks and labels, and the way between values and pixels.
///
/// An axis is a child control of a graph. Its ends come from what was set and from the data of its series; they are
/// rounded to ticks. The layout pass of its parent fixes where it stands and how long it is.
class TZyAxis : public TGraphicControl {
  ZY_CLASS(TZyAxis, TGraphicControl)
  explicit TZyAxis(TComponent* Owner = nullptr);
  ~TZyAxis() override;

  /// Text beside the axis. Trailing blanks are dropped.
  const TZyRichCaption& Caption() const { return FCaptionRec.Caption(); }
  void SetCaption(const TZyRichCaption& Value);
  bool CaptionVisible() const { return FCaptionVisible; }
  void SetCaptionVisible(bool Value);
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
  /// Font of the numbers.
  TZyFont& Font() { return FFont; }
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
  /// Decimals of the labels beyond those that the ticks need.
  int ExtraDigits() const { return FExtraDigits; }
  void SetExtraDigits(int Value);
  /// Gaps in pixels: between data area and axis line, between ticks and labels.
  float DistanceValuesAxis() const { return FDistanceValuesAxis; }
  void SetDistanceValuesAxis(float Value);
  float DistanceAxisLabels() const { return FDistanceAxisLabels; }
  void SetDistanceAxisLabels(float Value);
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
  TZyUndoStack* UndoStack() const { return FUndoStack; }
  void SetUndoStack(TZyUndoStack* Value);

  /// True at the bottom and at the top.
  bool GetHorizontal() const { return FPosition == TZyAxisPosition::Bottom || FPosition == TZyAxisPosition::Top; }
  /// Pixel of a value, in the coordinates of the axis's parent. Values far outside saturate 100000 pixels away.
  float NumberToWorld(double Value) const;
  /// Value at a pixel; the inverse.
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
  /// Restores the unrounded ends after a change of size.
  void CheckResize();

  /// Pixel of each tick, in parent coordinates along the axis.
  const std::vector<float>& Ticks() const { return FTicks; }
  /// Per tick: whether it is drawn as a major tick, and whether a major grid line starts there.
  const std::vector<bool>& MajorTicks() const { return FMajorTick; }
  const std::vector<bool>& MajorGridTicks() const { return FMajorGridTick; }
  /// Texts of the labels in tick order.
  std::vector<std::string> LabelTexts() const;
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

 protected:
  void Notification(TComponent* AComponent, TOperation Operation) override;

 private:
  friend class TZyAxisLayout;

  /// Steps and number format of the present ends.
  struct TScale {
    int RangeExponent = 0;
    int LabelExponent = 0;
    int Digits = 0;
    double LabelPart = 1, MajorTickPart = 0.5, TickPart = 0.1;  // as parts of 10^RangeExponent
  };

  TZyGraph2D* Graph() const;
  /// Whether the axis lies below or right of its data area, and so its texts behind each other outwards.
  bool PointsOutwards() const { return FPosition == TZyAxisPosition::Bottom || FPosition == TZyAxisPosition::Right; }
  void DoInvalidate();
  void SetEnd(double& End, double& InitialEnd, double& LastEnd, double Value, TZyText Label, const char* PropName);

  // Ranging.
  void RoundEnds(double& Start, double& Stop);
  double RoundEnd(double Value, bool Up, bool ToMajor) const;

  // Ticks and labels.
  float LayoutLength() const;
  void GetNormalAxisParts(double Start, double Stop);
  void GetExponentAndDigits(double Start, double Stop);
  std::string NormalCaption(double Value) const;
  float ApproxLen(const std::string& Text) const;
  void CalculateTicks();
  void AddLabel(const std::string& Text, float Pos);
  void PlaceCaption();
  float LabelBase() const;

  // Painting.
  float CaptionExtent() const;
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
  bool FTicksPointToData = false;
  bool FTickColorFollows = true;
  bool FMajorTickColorFollows = true;
  TZyAxisPosition FPosition = TZyAxisPosition::Bottom;
  TZyAxisEnd FStartEnd = TZyAxisEnd::AutoRange;
  TZyAxisEnd FStopEnd = TZyAxisEnd::AutoRange;
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
  int FExtraDigits = 0;
  TZyFont FFont;
  TZyRichCaptionObject FCaptionRec;

  double FStart = 0, FStop = 10;
  double FInitialStart = 0, FInitialStop = 10;  // last set by the user
  double FLastStart = 0, FLastStop = 10;        // last computed by GetNewRanges
  double FValuesStart, FValuesStop;             // range of the data
  double FNormalizeConst = 1;                   // values per pixel
  float FAxLength = 400;                        // pixels between the ends
  float FAxLeft = 0, FAxTop = 0;                // start of the axis line in the control

  TScale FScale;
  std::vector<float> FTicks;
  std::vector<bool> FMajorTick, FMajorGridTick;
  TZyRichCaptionObjects FAxLabels;
  float FMaxNumberLabelWidth = 0, FMaxNumberLabelHeight = 0;
  std::vector<TZySeries*> FRelatedSeries;
};

}  // namespace zy
