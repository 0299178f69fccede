// The paint of a pie chart, its picture, and what is seen at a place.

#include <algorithm>

#include "pie/ZyPieDonut.h"
#include "pie/ZyPieFaces.h"
#include "pie/ZyPiePainter.h"
#include "platform/drawing/ClipGuard.h"
#include "platform/drawing/Graphics.h"
#include "platform/framework/ScopedFlag.h"
#include "texts/Exceptions.h"

namespace zy {
namespace {

class TZyPiePicture : public TZyChartPicture {
 public:
  explicit TZyPiePicture(TZyPieChart& Chart) : FChart(Chart) {}
  void LayOut() override { FChart.BringUpToDate(); }
  int Width() const override { return FChart.ClientWidth(); }
  int Height() const override { return FChart.ClientHeight(); }
  void Paint(Graphics& Gr, float X, float Y, bool) override { FChart.PaintToImage(Gr, X, Y); }

 private:
  TZyPieChart& FChart;
};

}  // namespace

void TZyPieChart::PaintGr(Graphics& Gr) {
  BringUpToDate();
  TZyPiePainter(*this, Gr).Paint();
}

void TZyPieChart::Paint(Graphics& Gr) {
  PaintGr(Gr);
  TZyCustomGraph::Paint(Gr);
}

std::unique_ptr<TZyChartPicture> TZyPieChart::MakePicture() { return std::make_unique<TZyPiePicture>(*this); }

/// Legends paint themselves on the screen.
void TZyPieChart::PaintToImage(Graphics& Gr, float X, float Y) {
  const TScopedValue Image(FDoingImage, true);
  const TClipGuard Clip(Gr);
  const Matrix Outer = Gr.GetTransform();
  Gr.TranslateTransform(X, Y);
  Gr.SetClip({0, 0, static_cast<float>(ClientWidth()), static_cast<float>(ClientHeight())}, CombineModeIntersect);
  const Matrix Own = Gr.GetTransform();
  PaintGr(Gr);
  for (std::size_t i = 0; i < Controls().size(); ++i) {
    TControl& Control = *Controls()[i];
    auto* const Legend = dynamic_cast<IZyGraphLegend*>(&Control);
    auto* const Part = dynamic_cast<IZyPicturePart*>(&Control);
    if (!Control.Visible() || (Legend == nullptr && Part == nullptr)) continue;
    Gr.TranslateTransform(static_cast<float>(Control.Left()), static_cast<float>(Control.Top()));
    try {
      Legend != nullptr ? Legend->PaintGr(Gr) : Part->PaintGr(Gr);
    } catch (const EAbort&) {
      // A handler freed it.
    }
    Gr.SetTransform(Own);
  }
  Gr.SetTransform(Outer);
}

TZyPieFaces TZyPieChart::FacesOf(const TZyPieCalculation& Layout, int Segment, float Sweep) const {
  const TZyPieSegment& Data = Layout.Segments()[static_cast<std::size_t>(Segment)];
  const RectF& Pie = Layout.PieRect();
  const RectF Rim{Pie.X + Data.Shift.X, Pie.Y + Data.Shift.Y, Pie.Width, Pie.Height};
  const auto Hole = Layout.Shape().IsDonut() ? std::optional(TZyPieFaces::HoleIn(Rim, FShape.HoleSize)) : std::nullopt;
  return {Rim, Hole, Layout.WallHeight(), Data.Start, Sweep};
}

/// The angles and parts of cuts of a segment that has moved out before the walls of those behind it. On the far side
/// there are no such walls: all that comes later stands before the cut.
std::vector<std::pair<float, TZyPieFaces::TCut>> TZyPieChart::CutsBeyond(const TZyPieCalculation& Layout, int Segment,
                                                                         const TZyPieFaces& Faces) const {
  std::vector<std::pair<float, TZyPieFaces::TCut>> Result;
  if (!Layout.AnyExploded()) return Result;
  const auto Count = static_cast<int>(Layout.Segments().size());
  for (const float Angle : Faces.CutsBeforeHole()) {
    const bool IsStart = Angle > 90 && Angle < 270;
    const int Other = (Segment + (IsStart ? Count - 1 : 1)) % Count;
    const RectF Rim = FacesOf(Layout, Other, 0).Rim();
    if (const auto Cut = Faces.CutBeyond(Angle, Rim); Cut && Rim != Faces.Rim()) Result.emplace_back(Angle, *Cut);
  }
  return Result;
}

/// What is drawn last is seen: the passes of the painter backwards.
int TZyPieChart::SegmentAt(float X, float Y) const {
  if (FLayout == nullptr || !(FLayout->PieRect().Width > 0)) return -1;
  const TZyPieCalculation& Layout = *FLayout;
  const PointF Place{X, Y};
  const bool IsClosed = !Layout.AnyExploded() && Layout.Shape().TotalAngle >= 360;
  const auto IsIn = [Place](const TZyPieFaces::TCut& Cut) {
    GraphicsPath Path;
    Path.AddPolygon(Cut);
    return Path.IsVisible(Place);
  };
  const auto HasCut = [&](const TZyPieFaces& Faces, const std::vector<float>& Angles) {
    return !IsClosed && std::ranges::any_of(Angles, [&](float Angle) { return IsIn(Faces.CutAt(Angle)); });
  };
  const auto Find = [&](const auto& IsHit) {
    for (auto i = Layout.Order().rbegin(); i != Layout.Order().rend(); ++i)
      if (IsHit(FacesOf(Layout, *i, Layout.Segments()[static_cast<std::size_t>(*i)].Sweep), *i)) return *i;
    return -1;
  };
  int Found = Find([&](const TZyPieFaces& Faces, int) { return Faces.Top().IsVisible(Place); });
  if (Found >= 0 || !Layout.Shape().Is3D()) return Found;
  Found = Find([&](const TZyPieFaces& Faces, int Segment) {
    for (const TZyPieArc& Arc : Faces.OuterArcs())
      if (Faces.OuterWall(Arc).IsVisible(Place)) return true;
    return std::ranges::any_of(CutsBeyond(Layout, Segment, Faces), [&](const auto& Cut) { return IsIn(Cut.second); });
  });
  if (Found < 0 && Layout.Shape().IsDonut())
    Found = Find([&](const TZyPieFaces& Faces, int) {
      if (HasCut(Faces, Faces.CutsBeforeHole())) return true;
      for (const TZyPieArc& Arc : Faces.InnerArcs())
        if (Faces.InnerWall(Arc).IsVisible(Place)) return true;
      return false;
    });
  if (Found < 0) Found = Find([&](const TZyPieFaces& Faces, int) { return HasCut(Faces, Faces.Cuts()); });
  return Found;
}

}  // namespace zy
