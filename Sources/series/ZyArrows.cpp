#include "series/ZyArrows.h"

#include <cmath>
#include <numbers>

#include "graph/parts/ZySeriesGraph.h"
#include "graph/shapes/ZyDrawing.h"
#include "persistence/ZyArchive.h"
#include "platform/drawing/Graphics.h"
#include "platform/framework/TPropInfo.h"
#include "series/ZyPointLook.h"

namespace zy {

ZY_PUBLISHED(TZyArrows, TZySeries, Published<&Self::Arrow>("Arrow"),
             Published<&Self::DeltaX, &Self::SetDeltaX>("DeltaX", _sArrowsDeltaX),
             Published<&Self::DeltaY, &Self::SetDeltaY>("DeltaY", _sArrowsDeltaY),
             Published<&Self::XDeltaTransformation>("XDeltaTransformation"),
             Published<&Self::YDeltaTransformation>("YDeltaTransformation"),
             Republished("AutoUpdate OutliersVisible XAxis YAxis XData YData XValueTransformation YValueTransformation "
                         "OnGetPen"))

TZyArrows::TZyArrows(TComponent* Owner) : TZySeries(Owner) {
  Initialize(StaticClassInfo().Name());
  ReplaceLine(std::make_unique<TZyArrowSettings>([this] { TestVisibleChanged(); }));
}

void TZyArrows::Fields(TZyArchive& Archive) {
  TZySeries::Fields(Archive);
  Archive.Level("Arrows", [&] {
    Archive.Part(TZyFieldName("Arrow").Xml(""), [&] { Arrow().TipFields(Archive); });
    Archive.Properties(*this, "DeltaX DeltaY");
    Archive.EndRecord();
  });
}

void TZyArrows::Calculate() {
  if (HasArrows()) TZySeries::Calculate();
}

void TZyArrows::TakeRanges(TRange& X, TRange& Y) {
  FReach = {0, 0};
  ForEachPoint(0, Count(), [&](int i) {
    const double x = FX.At(i), y = FY.At(i), dx = FdX.At(i), dy = FdY.At(i);
    X.Take(x);
    X.Take(x + dx);
    Y.Take(y);
    Y.Take(y + dy);
    FReach.Take(dx);
  });
}

TZySeries::TRange TZyArrows::ReachIntoX() const {
  const TRange Shown = TZySeries::ReachIntoX();
  return {Shown.Low - FReach.High, Shown.High - FReach.Low};
}

void TZyArrows::TakePixels(int Start, int Stop) {
  ForEachPoint(Start, Stop + 1, [&](int i) {
    const double x = FX.At(i), y = FY.At(i), Tip[] = {x + FdX.At(i), y + FdY.At(i)};
    if (!std::isfinite(Tip[0]) || !std::isfinite(Tip[1])) return;
    Keep({FXAxis->NumberToWorld(x), FYAxis->NumberToWorld(y)}, i);
    FTips.Add({FXAxis->NumberToWorld(Tip[0]), FYAxis->NumberToWorld(Tip[1])});
  });
}

// --- Drawing --------------------------------------------------------------------------------------------------------

void TZyArrows::DrawPoints(Graphics& Gr) {
  const TZyGradientSettings& Gradient = Arrow().Gradient();
  if (!OnGetPen() && OwnsPen() && Gradient.Visible() && Gradient.Style() == TZyGradientStyle::Linear)
    return DrawGradients(Gr);
  if (!OnGetPen()) {
    FEnds.clear();
    for (std::size_t i = 0; i < Points().size(); ++i) FEnds.insert(FEnds.end(), {Points()[i], Tips()[i]});
    return Gr.DrawSegments(*LinePen(), FEnds);
  }
  TZyPointLook Look(*this);
  for (std::size_t i = 0; i < Points().size(); ++i) {
    if (!Look.AskPen(i) || i >= Points().size()) continue;
    const PointF Tail = Points()[i], Tip = Tips()[i];
    Gr.DrawLine(Look.Pen(), Tail.X, Tail.Y, Tip.X, Tip.Y);
  }
}

namespace {

/// Direction of an arrow in degrees, clockwise from the x axis; that of one without length points to the left.
float AngleOf(const PointF& Tail, const PointF& Tip) {
  if (Tail == Tip) return 180;
  return std::atan2(Tip.Y - Tail.Y, Tip.X - Tail.X) * 180 / std::numbers::pi_v<float>;
}

}  // namespace

/// Each arrow has a pen of its own, whose gradient runs from the tail to the tip.
void TZyArrows::DrawGradients(Graphics& Gr) {
  for (std::size_t i = 0; i < Points().size(); ++i) {
    const PointF Tail = Points()[i], Tip = Tips()[i];
    RectF Box = OrderedRect(Tail.X, Tail.Y, Tip.X, Tip.Y);
    Box.Width = std::max(Box.Width, LinePen()->Width());
    Box.Height = std::max(Box.Height, LinePen()->Width());
    Gr.DrawLine(*Arrow().GetPen(Box, AngleOf(Tail, Tip)), Tail.X, Tail.Y, Tip.X, Tip.Y);
  }
}

/// Displacements of a fifteenth of the axes and more, and points of which the last tip reaches the ends of the axes.
void TZyArrows::AddSampleData() {
  constexpr int Steps = 10;
  FillRandom(DeltaX(), Steps + 1, (FXAxis->Stop() - FXAxis->Start()) / 15);
  FillRandom(DeltaY(), Steps + 1, (FYAxis->Stop() - FYAxis->Start()) / 15);
  const auto Fill = [](TZyCustomDoubleVector* Data, const TZySeriesInput& Delta, const TZyAxis& Axis) {
    if (Delta.Count() == 0) return false;
    const double Last = Delta->GetValue(Delta.Count() - 1), Step = (Axis.Stop() - Axis.Start() - Last) / Steps;
    return FillSample(Data, Axis.Start(), Step, 0.2, Axis.Stop() - Last);
  };
  Fill(XData(), FdX, *FXAxis);
  if (Fill(YData(), FdY, *FYAxis)) FYAxis->ShrinkOtherYs();
}

}  // namespace zy
