#pragma once

#include <optional>

#include "graph/parts/ZyGraphParts.h"
#include "series/ZyLabelText.h"
#include "series/ZySeries.h"
#include "series/vectors/ZyBoundTexts.h"

namespace zy {

/// The form of bars.
enum class TZyBarStyle { Flat, Cuboid, Cylinder };
ZY_ENUM(TZyBarStyle, "Flat", "Cuboid", "Cylinder")

/// How the bars of several series share a class: side by side, or one on the other.
enum class TZyBarsOverlayStyle { Shift, Stack };
ZY_ENUM(TZyBarsOverlayStyle, "Shift", "Stack")

/// Where the label of a bar stands; parts of the bar are counted from its base.
enum class TZyBarLabelPosition { Invisible, OnBottom, Centered, GoldenCut, ThreeFourth, InTop, OnTopOfBar };
ZY_ENUM(TZyBarLabelPosition, "Invisible", "OnBottom", "Centered", "GoldenCut", "ThreeFourth", "InTop", "OnTopOfBar")

class TZyBarPainter;
class TZyPointLook;

/// Bars: flat, cuboids or cylinders, upright or lying.
///
/// The vector along the classes holds their boundaries, one more than there are bars; without one, class i goes from i
/// to i + 1. The other vector holds the values: Y for upright bars, X for lying ones. Bars grow from 0, on a
/// logarithmic axis from its start.
///
/// The bars of a graph are one group. Style, depth, distance, direction and overlay that are set for one of them are
/// set for all, and the first visible series paints all of them, class by class, so that solids overlap rightly.
///
/// A class beside a boundary without a value, which then counts as 0, may run backwards: its bar is not drawn. A bar
/// that is not wider than its pen is drawn as one line of that pen.
class TZyBars : public TZySeries, public IZySolidSeries {
  ZY_CLASS(TZyBars, TZySeries)
  explicit TZyBars(TComponent* Owner = nullptr);

  // ---- Set for all bars of the graph ----

  TZyBarStyle BarStyle() const { return FBarStyle; }
  void SetBarStyle(TZyBarStyle Value);
  /// Whether bars grow along the X axis. Changing it exchanges X and Y data.
  bool BarsHorizontal() const { return FBarsHorizontal; }
  void SetBarsHorizontal(bool Value);
  /// Depth of solids in percent of the width of the bars.
  double Depth3D() const { return FDepth3D; }
  void SetDepth3D(double Value);
  /// Gap between classes in percent of their width.
  double ClassesDistance() const { return FClassesDistance; }
  void SetClassesDistance(double Value);
  TZyBarsOverlayStyle OverlayStyle() const { return FOverlayStyle; }
  void SetOverlayStyle(TZyBarsOverlayStyle Value);

  // ---- Labels ----

  TZyBarLabelPosition LabelPosition() const { return FLabelPosition; }
  void SetLabelPosition(TZyBarLabelPosition Value);
  TZyLabelStyle LabelFrom() const { return FLabelFrom; }
  void SetLabelFrom(TZyLabelStyle Value);
  /// Format of numbers, see FormatFloat; empty for the general one. Percents get a "%" behind it when it has none.
  const std::string& LabelFormat() const { return FLabelFormat; }
  void SetLabelFormat(const std::string& Value);
  /// Whether labels stand upright, turned by 90 degrees.
  bool LabelVertical() const { return FLabelVertical; }
  void SetLabelVertical(bool Value);
  /// Size of the labels' font, in points for each hundred pixels of the narrowest bar. Of thousands of labels, those of
  /// less than a point are left out, as nobody can read them.
  float LabelSize() const { return FLabelSize; }
  void SetLabelSize(float Value);
  /// Font of the labels; LabelSize counts in place of its size.
  TZyFont& Font() { return FFont; }
  void SetFont(const TZyFont& Value);
  TZyColor LabelColor() const { return FFont.FillColor(); }
  void SetLabelColor(TZyColor Value);
  /// A text for each bar; null while they come from a data set. Setting a list makes it the list of the bars, which
  /// goes on to be the caller's, and follows its changes; null empties the present one. Throws EExternal while the
  /// texts come from a data set.
  TStringList* Captions() { return FCaptions.ByHand(); }
  void SetCaptions(TStringList* Value);
  const std::string& CaptionsField() const { return FCaptions.Link().FieldName(); }
  void SetCaptionsField(const std::string& Value);
  TDataSource* DataSource() const { return FCaptions.Link().DataSource(); }
  void SetDataSource(TDataSource* Value);
  /// The link to the field, with the text of what keeps it from its data.
  TZyListLink& CaptionsLink() { return FCaptions.Link(); }
  /// Asked for the caption of each label. It may free the series.
  const TZyGetLabelEventHandler& OnGetLabel() const { return mGetLabel; }
  void SetOnGetLabel(TZyGetLabelEventHandler Value);

  // ---- Geometry, as of the last pixels ----

  /// Depth of solids in pixels. Of a class that is longer than its axis, as when zoomed, the length of the axis counts.
  float DepthX() const { return FDepthX; }
  float DepthY() const { return FDepthY; }
  /// The end of a bar on the axis of the values, what it stands on included, or the boundary in front of it on the
  /// other axis, also of a bar without a value. 0 for what has no value. Throws ERangeError for an index that the
  /// vector does not have.
  double Get_X(int Idx) const { return FBarsHorizontal ? EndOf(Idx, Below()) : BoundaryAt(Idx); }
  double Get_Y(int Idx) const { return FBarsHorizontal ? BoundaryAt(Idx) : EndOf(Idx, Below()); }
  /// The corners of the bars: left and top are in `Points`, right and bottom here. Of a bar that hangs below 0 the top
  /// is the larger number.
  std::span<const PointF> BottomRight() const { return FBottomRight.Values().first(Points().size()); }
  /// The labels of the bars, null for those that have none.
  const TZyRichCaptionObjects& Labels() const { return FLabels; }

  int GetCount() override;
  int MinCount() const override { return 1; }
  void Calculate() override;
  void CalculatePoints() override;
  void PaintGr(Graphics& Gr) override;
  using TZySeries::FindPoint;
  /// The first bar that holds the place, its depth included.
  int FindPoint(int X, int Y) const override;
  using TZySeries::DrawListItem;
  void DrawListItem(const TZyLegendItemDrawArgs& e, LegendItemStyle Style) override;
  void DrawListItem(const TZyLegendItemDrawArgs& e) override { DrawListItem(e, LegendItemStyle::Filled); }
  /// Room for depth and labels beyond the far end of the data.
  float ExtraSpaceAt(TZyAxisPosition Border) const override;
  void Fields(TZyArchive& Archive) override;
  void DataReset() override;
  void DataInvalidated() override;
  void DataCleared(const TZyCustomDoubleVector& Vector, bool WithLinkedMarkers) override;

  bool IsSolid() const override { return FBarStyle != TZyBarStyle::Flat; }
  void PrepareDepth() override;
  float HorizontalDepth() const override { return FDepthX; }
  float VerticalDepth() const override { return FDepthY; }

 protected:
  bool HasTrackedRanges() const override { return false; }
  void TakeRanges(TRange& X, TRange& Y) override;
  void TakeNewPixels() override;
  void AddBandPoints() override {}

 private:
  friend class TZyBarPainter;
  using TBarsList = std::vector<TZyBars*>;

  /// What pixels depend on beside data and axes: the series' place in its group, and what the group has in common.
  struct TGroup {
    int Number = 1, Place = 1;
    double Distance = 0, Depth = 0;
    std::uint64_t Under = 0;  // live handle of the series that it stands on
    friend bool operator==(const TGroup&, const TGroup&) = default;
  };

  // The group.
  TBarsList AllBars() const;
  TBarsList BarsToSet();
  template <class T>
  bool SetForAll(T TZyBars::*Field, T Value, const char* PropName, void (TZyBars::*After)());
  bool SharesClasses(const TZyBars& Other) const;
  TBarsList Below() const;
  bool IsTopMost() const;
  void TellAbove();
  static std::vector<TGroup> GroupsOf(const TBarsList& All);
  TGroup Group() const;
  bool IsShown() const;
  bool IsPaintedByOthers() const;
  void DirectionModified();
  void LayOutAgain();

  // Vectors and axes by what they are for.
  TZySeriesInput& Classes() { return FBarsHorizontal ? FY : FX; }
  const TZySeriesInput& Classes() const { return FBarsHorizontal ? FY : FX; }
  const TZySeriesInput& Values() const { return FBarsHorizontal ? FX : FY; }
  TZyAxis& ClassAxis() const { return *(FBarsHorizontal ? FYAxis : FXAxis); }
  TZyAxis& ValueAxis() const { return *(FBarsHorizontal ? FXAxis : FYAxis); }
  bool HasOwnClasses() const { return FBarsHorizontal ? HasOwnYData() : HasOwnXData(); }
  double BoundaryAt(int Idx) const;
  bool HasBoundary(int Idx) const;
  bool HasValue(int Idx) const;
  double OwnValue(int Idx) const;
  double EndOf(int Idx, const TBarsList& Below) const;
  void AddValues(std::span<double> Ends) const;
  void TakeEnds(const TBarsList& Below);
  void TakeEdges();

  // Pixels.
  void TakeBars(const TBarsList& Below);
  void TakeDepth();
  RectF RectOf(std::size_t Bar) const;
  bool IsEmpty(std::size_t Bar) const;

  // Labels.
  bool HasLabels() const { return FLabelPosition != TZyBarLabelPosition::Invisible; }
  void LabelModified();
  void CaptionsChanging();
  void TakeLabels();
  bool IsInView(int Idx) const;
  std::string TextOf(int Idx, double PercentFactor) const;
  void PlaceOnUprightBar(std::size_t Bar, bool IsInside, TZyRichCaptionObject& Label) const;
  void PlaceOnLyingBar(std::size_t Bar, bool IsInside, TZyRichCaptionObject& Label) const;
  bool StaysInside() const;
  SizeF ExtentOf(const TZyRichCaptionObject& Label) const;
  float DepthBeyond(TZyAxisPosition Border, double ClassWidth) const;
  int FurthestLabel() const;
  float LabelBeyond(TZyAxisPosition Border, double ClassWidth) const;

  void CaptionFields(TZyArchive& Archive);

  TZyBarStyle FBarStyle = TZyBarStyle::Flat;
  TZyBarsOverlayStyle FOverlayStyle = TZyBarsOverlayStyle::Shift;
  bool FBarsHorizontal = false;
  bool FPointsCalculating = false;
  double FDepth3D = 50;
  double FClassesDistance = 0;
  TZyBarLabelPosition FLabelPosition = TZyBarLabelPosition::Invisible;
  TZyLabelStyle FLabelFrom = TZyLabelStyle::Value;
  bool FLabelVertical = false;
  float FLabelSize = 20;
  std::string FLabelFormat;
  TZyFont FFont;
  TZyBoundTexts FCaptions;
  TZyGetLabelEventHandler mGetLabel;
  TZyPointVector FBottomRight;
  std::vector<double> FEnds, FEdges;  // of the bars on their axes, as they were taken last; kept for their memory
  std::vector<float> FEndPixels, FEdgePixels;
  float FNarrowest = 0;       // width of the narrowest class without its gap, in pixels
  float FLastWidth = 0;       // that of the last class
  bool FIsAscending = false;  // no class runs backwards
  float FDepthX = 0, FDepthY = 0;
  float FZylShift = 0;                  // lean of a cylinder in pixels
  TGroup FGroup;                        // as of the last pixels
  std::vector<std::uint64_t> FStoodOn;  // live handles of the series below, as of the last ranges
  TZyRichCaptionObjects FLabels;
  int FFurthest = -1;  // see FurthestLabel
};

}  // namespace zy
