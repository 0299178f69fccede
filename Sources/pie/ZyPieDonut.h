#pragma once

#include <array>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "graph/ZyCustomGraph.h"
#include "graph/styles/ZyArrowSettings.h"
#include "pie/ZyFillPalette.h"
#include "pie/ZyPieCalculation.h"
#include "pie/ZyPieTypes.h"
#include "series/ZyLabelText.h"
#include "series/ZySeriesEvents.h"
#include "series/vectors/ZyBoundTexts.h"
#include "series/vectors/ZyCustomDoubleVector.h"
#include "series/vectors/ZyValueTransformation.h"
#include "undo/ZyUndoParts.h"

namespace zy {

class TZyDoubleVector;
class TZyPieFaces;

/// A pie or donut chart, flat or as a solid: each value of a vector above 0 becomes a segment, as large as its share of
/// the sum of all values, those at and below 0 included.
///
/// Colours go by the place of a segment, captions and explosions by the index of its value. Labels stand on the
/// segments or in boxes around them (callouts); legends stand at eight places, for which the layout makes room. A chart
/// without segments shows an empty ring.
///
/// A change marks the chart, and the next paint lays it out (Calculate), unless AutoUpdate is off: then nothing changes
/// until Calculate is called. Handlers that are asked during layout and paint may throw, and may free vectors, palette,
/// legends and undo stack, but not the chart.
class TZyPieChart : public TZyCustomGraph, public IZyVectorReader, public IZyUndoHolder {
  ZY_CLASS(TZyPieChart, TZyCustomGraph)
  explicit TZyPieChart(TComponent* Owner = nullptr);
  ~TZyPieChart() override;

  // --- Data ---

  /// The values. While the form is designed, an empty vector gets samples.
  TZyCustomDoubleVector* Values() const { return FValues; }
  void SetValues(TZyCustomDoubleVector* Value);
  /// By the index of a value, the percent of the radius by which its segment moves out; 100 at most.
  TZyCustomDoubleVector* ExplodePercent() const { return FExplodePercent; }
  void SetExplodePercent(TZyCustomDoubleVector* Value);
  const TZyValueTransformation& ValueTransformation() const { return mValueTransformation; }
  void SetValueTransformation(TZyValueTransformation Value);
  const TZyValueTransformation& ExplodePercentTransformation() const { return mExplodePercentTransformation; }
  void SetExplodePercentTransformation(TZyValueTransformation Value);
  /// Whether changes are taken up by themselves.
  bool AutoUpdate() const { return FAutoUpdate; }
  void SetAutoUpdate(bool Value) { FAutoUpdate = Value; }
  bool OutliersVisible() const { return FOutliersVisible; }
  void SetOutliersVisible(bool Value);
  /// Whether segments are sorted by size, the smallest first.
  bool OrderAscending() const { return FOrderAscending; }
  void SetOrderAscending(bool Value);

  // --- Shape ---

  TZyPieChartType PieChartType() const { return FShape.Type; }
  void SetPieChartType(TZyPieChartType Value);
  /// Height of the ellipse of a solid in percent of its width, from 10 to 80.
  float ThreeDElevation() const { return FShape.Elevation; }
  void SetThreeDElevation(float Value);
  /// Height of the wall of a solid in percent of the pie's width, from 0.001 to 100.
  float ThreeDPieHeight() const { return FShape.PieHeight; }
  void SetThreeDPieHeight(float Value);
  /// Hole of a donut in percent of the pie, from 1 to 99.
  float DonutHoleSize() const { return FShape.HoleSize; }
  void SetDonutHoleSize(float Value);
  /// Angle of the first segment in degrees, clockwise from the x axis, brought into 0 to below 360.
  float StartAngle() const { return FShape.StartAngle; }
  void SetStartAngle(float Value);
  /// Degrees that the segments share, from 10 to 360.
  float TotalAngle() const { return FShape.TotalAngle; }
  void SetTotalAngle(float Value);
  bool DropShadow() const { return FShape.DropShadow; }
  void SetDropShadow(bool Value);
  /// Margins in pixels to the control's edges.
  float DistanceAtTop() const { return FDistances.Top; }
  void SetDistanceAtTop(float Value);
  float DistanceAtBottom() const { return FDistances.Bottom; }
  void SetDistanceAtBottom(float Value);
  float DistanceAtLeft() const { return FDistances.Left; }
  void SetDistanceAtLeft(float Value);
  float DistanceAtRight() const { return FDistances.Right; }
  void SetDistanceAtRight(float Value);
  TZyLineSettings& SegmentBorder() { return FSegmentBorder; }
  /// The fills of the segments, in their order. While the form is designed, an empty palette is filled.
  TZyFillPalette* SegmentSettingsPalette() const { return FPalette; }
  void SetSegmentSettingsPalette(TZyFillPalette* Value);
  /// Asked for the pen of each segment's outline and for its fill, each time that a part of it is drawn: Index is that
  /// of the value, X the transformed value and Y the sweep in degrees; a pen handler may change Y. A handler that
  /// throws leaves the segment its own pen and fill: a paint does not end for it.
  const TZyPenEventHandler& OnGetPen() const { return mGetPen; }
  void SetOnGetPen(TZyPenEventHandler Value);
  const TZyBrushEventHandler& OnGetBrush() const { return mGetBrush; }
  void SetOnGetBrush(TZyBrushEventHandler Value);

  // --- Labels ---

  TZyPieLabelPosition LabelPosition() const { return FLabelPosition; }
  void SetLabelPosition(TZyPieLabelPosition Value);
  TZyLabelStyle LabelFrom() const { return FLabelFrom; }
  void SetLabelFrom(TZyLabelStyle Value);
  /// Format of numbers, see LabelText.
  const std::string& LabelFormat() const { return FLabelFormat; }
  void SetLabelFormat(const std::string& Value);
  /// Size of the labels' font, in points for each hundred pixels of the pie's width. A new size of the font changes it
  /// in proportion.
  float LabelSize() const { return FLabelSize; }
  void SetLabelSize(float Value);
  TZyColor LabelColor() const { return FFont.FillColor(); }
  void SetLabelColor(TZyColor Value);
  /// Font of the labels; each layout sets its size. That of the title is CaptionFont, which has nothing to do with the
  /// parent's here.
  TZyFont& Font() override { return FFont; }
  void SetFont(const TZyFont& Value) override;
  /// A text for each value; see TZyBars::Captions. Throws Exception while the texts come from a data set.
  TStringList* Captions() { return FCaptions.ByHand(); }
  void SetCaptions(TStringList* Value);
  const std::string& CaptionsField() const { return FCaptions.Link().FieldName(); }
  void SetCaptionsField(const std::string& Value);
  TDataSource* DataSource() const { return FCaptions.Link().DataSource(); }
  void SetDataSource(TDataSource* Value);
  /// The link to the field, with the text of what keeps it from its data.
  TZyListLink& CaptionsLink() { return FCaptions.Link(); }
  /// Asked for the caption of each segment, in labels, legends and tool tips.
  const TZyGetLabelEventHandler& OnGetLabel() const { return mGetLabel; }
  void SetOnGetLabel(TZyGetLabelEventHandler Value);

  // --- Callouts ---

  /// The line from a callout to its segment. While it is not visible there are none, whatever the mode, which a paint
  /// leaves as it is: undo of the visibility brings the lines back.
  TZyArrowSettings& CalloutArrow() { return FCalloutArrow; }
  /// Any mode but None makes the line visible, in the same step of undo.
  TZyCalloutArrowVisibleMode CalloutArrowVisibleMode() const { return FCalloutArrowVisibleMode; }
  void SetCalloutArrowVisibleMode(TZyCalloutArrowVisibleMode Value);
  TZyColor CalloutBackColor() const { return FCalloutBackColor; }
  void SetCalloutBackColor(TZyColor Value);
  /// Takes the place of the back colour while it is visible.
  TZyGradientSettings& CalloutGradient() { return FCalloutGradient; }
  TZyLineSettings& CalloutFrame() { return FCalloutFrame; }
  /// Edges in light and shade; setting one to true turns the frame off, in the same step of undo.
  bool CalloutRaised() const { return FCalloutRaised; }
  void SetCalloutRaised(bool Value);
  bool CalloutLowered() const { return FCalloutLowered; }
  void SetCalloutLowered(bool Value);
  bool CalloutShadow() const { return FCalloutShadow; }
  void SetCalloutShadow(bool Value);
  /// Gap between rim and box, both inner margins of a box together, and diameter of its corners: one is a fiftieth of
  /// the font size in pixels.
  float CalloutDistanceToPie() const { return FCalloutDistanceToPie; }
  void SetCalloutDistanceToPie(float Value);
  float CalloutSpaceToBorder() const { return FCalloutSpaceToBorder; }
  void SetCalloutSpaceToBorder(float Value);
  float CalloutRounding() const { return FCalloutRounding; }
  void SetCalloutRounding(float Value);

  // --- What is shown ---

  /// The layout that is due. Nothing between BeginUpdate and EndUpdate, and from within itself.
  void Calculate() override;
  void Modified() override;
  bool NeedsRecalculate() const { return FNeedsRecalculate; }
  /// Whether the segments are those of the present layout, or of the one that runs.
  bool HasSegments() const { return !FNeedsRecalculate || !FCanSet; }
  /// Does the layout if it is due.
  void BringUpToDate();
  /// The layout that is shown; null before the first one. It stays as it is when the next one comes.
  std::shared_ptr<const TZyPieCalculation> Layout() const { return FLayout; }
  const TZyRichCaptionObjects& Labels() const { return FLabels; }
  /// The space inside the margins, in pixels.
  const RectF& PieExplodedRect() const { return FPieExplodedRect; }
  /// Sum of the values, and 100 by it.
  double TotalSum() const { return FTotalSum; }
  double PercentFactor() const { return FPercentFactor; }
  double TransformValue(double Value, int Idx) const;

  /// For legends: the number of segments, the index of the value of one, its fill, and the caption of a value. A caller
  /// does not free the fill, which is grey without a palette.
  int GetCount() const;
  int GetLegendItemIndex(int i) const;
  TZyFillSettings& PaletteItem(int i);
  TZyRichCaption GetSegmentCaption(int Idx, TZyLabelStyle Style, const std::string& Format) const;

  /// The segment that is seen at a place in client pixels, its walls included, -1 for none.
  int SegmentAt(float X, float Y) const;
  /// Caption, value and share of a segment, as its tool tip says.
  std::string SegmentHint(int Segment) const;

  // --- Users ---

  /// Whether a click, or the space key, on a segment moves it out, and brings it back in. False at first. Each is a
  /// step of undo. Explosions that do not come from a vector with values get one.
  bool ExplodeOnClick() const { return FExplodeOnClick; }
  void SetExplodeOnClick(bool Value);
  /// Moves a segment out, by 10 percent, or back in.
  void ToggleExplosion(int Segment);
  /// The segment that the arrow keys have chosen, -1 for none. With TabStop, the arrow keys go from one to the next.
  int ActiveSegment() const { return FActiveSegment; }
  void SetActiveSegment(int Value);

  void MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) override;
  void MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) override;
  void KeyDown(TKey& Key, TShiftState Shift) override;
  std::string HintAt(TPoint Place) const override;
  std::vector<std::string> AccessibleItems() const override;

  // --- Ways out, see TZyCustomGraph ---

  /// Draws the chart, without its legends and other controls.
  void PaintGr(Graphics& Gr);
  void Paint(Graphics& Gr) override;
  /// Paints the whole picture, with legends and rich labels.
  void PaintToImage(Graphics& Gr, float X = 0, float Y = 0);

  TZyUndoStack* UndoStack() const override { return TZyCustomGraph::UndoStack(); }
  void SetUndoStack(TZyUndoStack* Value) override;
  /// While the form is designed, a new chart gets a palette and a vector.
  void SetName(const std::string& Value) override;
  /// The vectors, captions, legends and settings, and the entries of the palette.
  void Fields(TZyArchive& Archive) override;

  // For vectors.
  TComponent& Component() override { return *this; }
  void DataReset() override { Modified(); }
  void DataInvalidated() override { Modified(); }
  void DataCleared(const TZyCustomDoubleVector&, bool) override { Modified(); }
  void DataInserted(const TZyCustomDoubleVector&, int, int) override { Modified(); }
  void DataDeleted(const TZyCustomDoubleVector&, int, int) override { Modified(); }

  /// Size of the font at the last change by the user, which sizes are compared with.
  float OldFontSize() const { return FOldFontSize; }
  void SetOldFontSize(float Value) { FOldFontSize = Value; }

 protected:
  void BoundsChanged() override;
  void InvalidateBox() override;
  void ParentFontChanged() override;
  void TitleFontChanged() override {}
  std::unique_ptr<TZyChartPicture> MakePicture() override;
  void PaintOverlay(Graphics& Gr) override;
  void DoEnter() override;
  void DoExit() override;
  void EndRead() override;

 private:
  friend class TZyPieRecord;
  friend class TZyPiePainter;

  void SetVector(TRef<TZyCustomDoubleVector>& Field, TZyCustomDoubleVector* Value, const char* PropName,
                 std::initializer_list<double> Samples);
  void SetDistance(float& Field, float Value, const char* PropName);
  void SetCalloutEdge(bool& Field, bool Value, const char* PropName);
  void TakePalette(TZyFillPalette* Value);
  void FontModified();
  void FontLookModified();
  void CalloutLookModified();
  void CaptionsChanging();
  void DBPoll();

  // The steps of Calculate.
  void ReadData();
  TZyPieMargins StartMargins();
  struct TIndexed {
    int Idx;
    double Value;
  };
  std::vector<TIndexed> TakenValues() const;
  void AddSegments(TZyPieCalculation& Calculation);
  double ExplosionOf(int Idx) const;
  void MeasureLabels(TZyPieCalculation& Calculation);
  void PlaceLegends(TZyPieMargins& Margins);
  void PlaceTitle(const TZyPieMargins& Margins);
  void PlaceLabels(const TZyPieCalculation& Calculation);
  void SetFontSize(float Points);
  bool HasCalloutBox() const;
  double PresentPercentFactor() const;
  TZyPieFaces FacesOf(const TZyPieCalculation& Layout, int Segment, float Sweep) const;
  std::vector<std::pair<float, std::array<PointF, 4>>> CutsBeyond(const TZyPieCalculation& Layout, int Segment,
                                                                  const TZyPieFaces& Faces) const;
  void InvalidateActive();

  TRef<TZyCustomDoubleVector> FValues{this, &TZyPieChart::SetValues};
  TRef<TZyCustomDoubleVector> FExplodePercent{this, &TZyPieChart::SetExplodePercent};
  TRef<TZyFillPalette> FPalette{this, &TZyPieChart::TakePalette};
  TZyFillSettings FDefaultFill;
  TZyValueTransformation mValueTransformation, mExplodePercentTransformation;
  TZyGetLabelEventHandler mGetLabel;
  TZyPenEventHandler mGetPen;
  TZyBrushEventHandler mGetBrush;
  TZyPieShape FShape;
  TZyPieMargins FDistances;
  TZyFont FFont;
  TZyParentFont FLabelsFont{*this, FFont};
  float FLabelSize = 3.5f;
  float FOldFontSize = 10;
  float FFontSizeSeen = 10;  // as it was last set, by whomever
  float FCalloutRounding = 0;
  float FCalloutDistanceToPie = 0;
  float FCalloutSpaceToBorder = 10;
  TZyColor FCalloutBackColor;
  TZyPieLabelPosition FLabelPosition = TZyPieLabelPosition::Invisible;
  TZyLabelStyle FLabelFrom = TZyLabelStyle::Value;
  TZyCalloutArrowVisibleMode FCalloutArrowVisibleMode = TZyCalloutArrowVisibleMode::VisibleIfOverlapped;
  std::string FLabelFormat;
  TZyBoundTexts FCaptions;
  TZyLineSettings FSegmentBorder, FCalloutFrame;
  TZyArrowSettings FCalloutArrow;
  TZyGradientSettings FCalloutGradient;
  bool FAutoUpdate = true;
  bool FOutliersVisible = false;
  bool FOrderAscending = false;
  bool FCalloutRaised = false;
  bool FCalloutLowered = false;
  bool FCalloutShadow = false;
  bool FCanSet = true;         // false while a layout runs, whose writes are no changes
  bool FHasCalloutBox = true;  // as it was laid out
  bool FTellingLegends = false;
  bool FLoadingRecord = false;
  bool FExplodeOnClick = false;
  int FPressedSegment = -1;
  int FActiveSegment = -1;

  double FTotalSum = 0;
  double FPercentFactor = 1;
  std::shared_ptr<const TZyPieCalculation> FLayout;
  TZyRichCaptionObjects FLabels;
  RectF FPieExplodedRect;
};

}  // namespace zy
