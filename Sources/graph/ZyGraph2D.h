#pragma once

#include <memory>
#include <vector>

#include "axes/ZyAxis.h"
#include "graph/ZyCustomGraph.h"
#include "graph/ZyStyles.h"
#include "platform/drawing/Geometry.h"
#include "texts/ZyLocalize.h"

namespace zy {

class TZySeries;

/// The cartesian chart: finds its axes and series, and turns a change or a paint request into a picture.
///
/// Axes are child controls of the graph; series join it by themselves. The graph owns neither: all belong to the
/// graph's owner. A graph without axes makes its two primary ones at the first paint; they are the graph's own when it
/// has no owner.
class TZyGraph2D : public TZyCustomGraph {
  ZY_CLASS(TZyGraph2D, TZyCustomGraph)
  explicit TZyGraph2D(TComponent* Owner = nullptr);
  ~TZyGraph2D() override;

  TZyColor DataAreaColor() const { return FDataAreaColor; }
  void SetDataAreaColor(TZyColor Value);
  TZyLineSettings& DataAreaFrame() { return *FDataAreaFrame; }
  TZyLineSettings& MajorGridHorizontal() { return *FMajorGridHorizontal; }
  TZyLineSettings& MinorGridHorizontal() { return *FMinorGridHorizontal; }
  TZyLineSettings& MajorGridVertical() { return *FMajorGridVertical; }
  TZyLineSettings& MinorGridVertical() { return *FMinorGridVertical; }
  TZyAxis* PrimaryXAxis() const { return FPrimaryXAxis; }
  void SetPrimaryXAxis(TZyAxis* Value);
  TZyAxis* PrimaryYAxis() const { return FPrimaryYAxis; }
  void SetPrimaryYAxis(TZyAxis* Value);
  /// Margins in pixels to the control's edges.
  float DistanceBorderAxisTop() const { return FDistanceBorderAxisTop; }
  void SetDistanceBorderAxisTop(float Value);
  float DistanceBorderAxisBottom() const { return FDistanceBorderAxisBottom; }
  void SetDistanceBorderAxisBottom(float Value);
  float DistanceBorderAxisLeft() const { return FDistanceBorderAxisLeft; }
  void SetDistanceBorderAxisLeft(float Value);
  float DistanceBorderAxisRight() const { return FDistanceBorderAxisRight; }
  void SetDistanceBorderAxisRight(float Value);
  void SetUndoStack(TZyUndoStack* Value) override;

  /// Draws the whole chart: the one order for screen, image and printer.
  void PaintGr(Graphics& Gr);
  void Paint(Graphics& Gr) override { PaintGr(Gr); }
  void Modified() override;
  void Calculate() override;
  /// The series have to compute their pixels anew.
  void SeriesModified();
  /// Makes the primary axes where they are missing.
  void TestPrimaryAxis();
  /// Takes new data of the series into the ranges of the axes.
  void TestSeriesAndAxis();
  /// Sorts the series by their layers and renumbers these from 0.
  void SortLayers();

  /// The data area in client pixels; width and height count one pixel more than the distance between the edges.
  const RectF& DrawingArea() const { return FDrawingArea; }
  /// The series of the graph in drawing order. They enter and leave by themselves; AddRelatedSeries says whether one
  /// was new.
  const std::vector<TZySeries*>& RelatedSeries() const { return FRelatedSeries; }
  bool AddRelatedSeries(TZySeries* Series);
  void RemoveRelatedSeries(TZySeries* Series) { std::erase(FRelatedSeries, Series); }
  /// All child axes in control order.
  std::vector<TZyAxis*> Axes() const;

  // For the layout pass.
  void SetDrawingArea(const RectF& Value) { FDrawingArea = Value; }
  float TitleHeight() const { return FTitleRec.Height(); }
  void PlaceTitle();

 protected:
  void Notification(TComponent* AComponent, TOperation Operation) override;
  void BoundsChanged() override;

 private:
  std::unique_ptr<TZyLineSettings> MakeLine(TZyColor Color);
  std::vector<TZyLineSettings*> Lines() const;
  void SetMargin(float& Field, float Value, TZyText Label, const char* PropName);
  void CalculateWhenDirty();
  void PaintBackground(Graphics& Gr) const;
  void PaintDataArea(Graphics& Gr) const;
  void PaintVerticalGrid(Graphics& Gr) const;
  void PaintHorizontalGrid(Graphics& Gr) const;
  void PaintSeries(Graphics& Gr);
  void PaintFrame(Graphics& Gr) const;
  void PaintAxes(Graphics& Gr);

  TZyColor FDataAreaColor = Colors::Transparent;
  std::unique_ptr<TZyLineSettings> FDataAreaFrame;
  std::unique_ptr<TZyLineSettings> FMajorGridHorizontal, FMinorGridHorizontal;
  std::unique_ptr<TZyLineSettings> FMajorGridVertical, FMinorGridVertical;
  TRef<TZyAxis> FPrimaryXAxis{this}, FPrimaryYAxis{this};
  float FDistanceBorderAxisTop = 0;
  float FDistanceBorderAxisBottom = 0;
  float FDistanceBorderAxisLeft = 0;
  float FDistanceBorderAxisRight = 0;
  bool FOnce = true;
  RectF FDrawingArea;
  std::vector<TZySeries*> FRelatedSeries;
};

}  // namespace zy
