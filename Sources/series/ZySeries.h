#pragma once

#include <memory>
#include <string>
#include <vector>

#include "annotations/ZyRichCaption.h"
#include "axes/ZyAxis.h"
#include "graph/ZyStyles.h"
#include "platform/drawing/Geometry.h"
#include "platform/framework/TRef.h"
#include "series/ZyDoubleVector.h"
#include "texts/ZyLocalize.h"

namespace zy {

class Graphics;
class TZyGraph2D;
class TZyUndoStack;

/// Base of everything that shows data in a TZyGraph2D: a component that refers to two vectors and two axes, and turns
/// them into ranges for the axes and a list of pixels to draw.
///
/// A series joins its graph by itself as soon as it has both axes and both vectors, and leaves it when it loses one.
/// Nothing is computed when data change: the next Calculate takes the ranges, the next paint the pixels.
class TZySeries : public TComponent {
  ZY_CLASS(TZySeries, TComponent)
  explicit TZySeries(TComponent* Owner = nullptr);
  ~TZySeries() override;

  bool Visible() const { return FVisible; }
  void SetVisible(bool Value);
  /// Text for legends. Trailing blanks are dropped.
  const TZyRichCaption& Caption() const { return FCaption; }
  void SetCaption(const TZyRichCaption& Value);
  /// Whether the graph takes this series' new data by itself, without a call of the application.
  bool AutoUpdate() const { return FAutoUpdate; }
  void SetAutoUpdate(bool Value) { FAutoUpdate = Value; }
  TZyAxis* XAxis() const { return FXAxis; }
  virtual void SetXAxis(TZyAxis* Value);
  TZyAxis* YAxis() const { return FYAxis; }
  virtual void SetYAxis(TZyAxis* Value);
  TZyCustomDoubleVector* XData() const { return FXData; }
  void SetXData(TZyCustomDoubleVector* Value);
  TZyCustomDoubleVector* YData() const { return FYData; }
  void SetYData(TZyCustomDoubleVector* Value);
  TZyLineSettings& Line() { return *FLineSettings; }
  /// Place in the drawing order, lower first. The graph renumbers all layers from 0.
  int Layer() const { return FLayer; }
  void SetLayer(int Value);
  TZyUndoStack* UndoStack() const { return FUndoStack; }
  virtual void SetUndoStack(TZyUndoStack* Value);

  /// Number of points: the smaller count of the two vectors, 0 when one is missing.
  virtual int GetCount();
  /// Whether there is anything to show: visible, with a visible line.
  virtual bool SeriesVisible() const;
  /// The data range as the axes read it; a start above its stop means that there is none.
  double XStart() const { return FXStart; }
  double XStop() const { return FXStop; }
  double YStart() const { return FYStart; }
  double YStop() const { return FYStop; }
  /// Pixels of the line, in client coordinates of the graph, as the last paint computed them.
  const std::vector<PointF>& Points() const { return FPoints; }
  /// Data index of each pixel.
  const std::vector<int>& PointIndex() const { return FPointIndex; }

  /// Takes new data into the ranges; costs a comparison of counts when there are none.
  virtual void Calculate();
  /// Maps the data to pixels: at most some points for each pixel column, however many values there are.
  virtual void CalculatePoints();
  virtual void PaintGr(Graphics& Gr);
  /// Draws the symbols of the points; the graph calls it after frame and axes, so that they lie on top. The line alone
  /// has none.
  virtual void DrawSymbols(Graphics&) {}
  /// Pixels by which the drawing reaches beyond its data at a side of the data area. None for a line.
  virtual float ExtraSpaceAt(TZyAxisPosition) const { return 0; }
  /// Data index of the first point of the line within a pixel of a place, or -1; always -1 while the pixels are out of
  /// date. Kinds with another shape have another rule.
  virtual int FindPoint(int X, int Y) const;
  /// Whether the line is long, plain and opaque, and nothing is smoothed: the kind that a partial repaint has to follow
  /// up with a whole one.
  bool CanDoCanvasDraw() const;
  /// Follows a change of visibility or style; the graph calls it at each of its calculations.
  virtual void TestVisibleChanged();
  /// Joins or leaves graph and axes, as the references allow.
  virtual void TestAllAssigned();

  /// Repaints the graph.
  void Invalidate();
  /// Makes the series begin anew: ranges, points, axes.
  void RangesModified();
  /// The pixels are out of date.
  void PointsModified();
  /// Lowers the count of points that are known to the ranges, never raises it.
  void SetLastCount(int Value);

  void SetName(const std::string& Value) override;
  void DefineProperties(TFiler& Filer) override;

 protected:
  void Notification(TComponent* AComponent, TOperation Operation) override;
  virtual void DrawLine(Graphics& Gr);

  /// For the constructors of the kinds: the caption that a series has until one is set.
  void SetInitialCaption(std::string_view KindName);

 private:
  void JoinGraph();
  void LeaveGraph();
  void SetVector(TRef<TZyCustomDoubleVector>& Field, TZyCustomDoubleVector* Value, TZyText Label, const char* PropName);
  void SetAxis(TRef<TZyAxis>& Field, TZyAxis* Value, TZyText Label, const char* PropName);
  PointF GetCalcPoint(int Idx) const;
  void GetCalcPointsStartStop(int& Start, int& Stop) const;
  void ReduceToPixels(int Start, int Stop);

  bool FVisible = true;
  bool FAutoUpdate = true;
  bool FLastVisible = true;
  bool FCaptionSet = false;
  bool FRecalculatePoints = false;
  TRef<TZyAxis> FXAxis{this}, FYAxis{this};
  TRef<TZyCustomDoubleVector> FXData{this}, FYData{this};
  TRef<TZyGraph2D> FGraph{this};
  TRef<TZyUndoStack> FUndoStack{this};
  std::unique_ptr<TZyLineSettings> FLineSettings;
  std::unique_ptr<TZyPen> FPen;
  TZyRichCaption FCaption;
  double FXStart, FXStop, FYStart, FYStop;
  int FMinCount = 2;
  int FCount = 0;
  int FLastCount = 0;
  int FLayer = 0;
  std::vector<PointF> FPoints;
  std::vector<int> FPointIndex;
};

}  // namespace zy
