#include "series/ZyBubbles.h"

#include <cmath>

#include "graph/parts/ZySeriesGraph.h"
#include "graph/shapes/ZyDrawing.h"
#include "persistence/ZyArchive.h"
#include "platform/drawing/Graphics.h"
#include "platform/framework/TPropInfo.h"
#include "series/ZyPointLook.h"
#include "undo/ZyChange.h"

namespace zy {

ZY_PUBLISHED(TZyBubbles, TZySeries,
             Published<&Self::Elliptical, &Self::SetElliptical>("Elliptical", false, _sBubblesElliptical),
             Published<&Self::RadiusData, &Self::SetRadiusData>("RadiusData", _sBubblesRadius),
             Published<&Self::RadiusTransformation>("RadiusTransformation"),
             Republished("AutoUpdate OutliersVisible XAxis YAxis XData YData Line Area XValueTransformation "
                         "YValueTransformation OnGetPen OnGetBrush"))

TZyBubbles::TZyBubbles(TComponent* Owner) : TZySeries(Owner) { Initialize(StaticClassInfo().Name()); }

void TZyBubbles::SetElliptical(bool Value) {
  Change(this, FElliptical, Value, "Elliptical", &TZyBubbles::EllipticalModified);
}

void TZyBubbles::EllipticalModified() {
  if (LastCount() > 0) RangesModified();
}

double TZyBubbles::GetR(int Idx) const { return std::fabs(FRadius.Transform(std::fabs(FRadius->GetValue(Idx)), Idx)); }

void TZyBubbles::Fields(TZyArchive& Archive) {
  TZySeries::Fields(Archive);
  Archive.Level("Bubbles", *this, "Elliptical RadiusData");
}

/// The Y range first: a radius in Y gives the same pixels along X by the spans of both. Where the spans have no ratio,
/// as with all Y equal and radii of 0, X takes in the points alone.
void TZyBubbles::TakeRanges(TRange& X, TRange& Y) {
  ForEachPoint(0, Count(), [&](int i) {
    const double y = FY.At(i), r = GetR(i);
    Y.Take(y - r);
    Y.Take(y + r);
  });
  X = RangeOf(FX, FY, *FXAxis);
  double k = 1;
  FRatio = static_cast<double>(FYAxis->AxLength()) / FXAxis->AxLength();
  if (!FElliptical) k = (X.High - X.Low) / (Y.High - Y.Low) * FRatio;
  if (!std::isfinite(k)) k = 0;
  ForEachPoint(0, Count(), [&](int i) {
    const double x = FX.At(i), r = GetR(i) * k;
    X.Take(x - r);
    X.Take(x + r);
  });
}

/// After a first layout, and another size of the chart, the ranges are taken anew, unless the ratio hardly changed.
void TZyBubbles::TakeNewPixels() {
  constexpr double Tolerance = 0.02;
  TZySeries::TakeNewPixels();
  const double Ratio = static_cast<double>(FYAxis->AxLength()) / FXAxis->AxLength();
  if (FElliptical || std::fabs(Ratio - FRatio) <= Tolerance * Ratio) return;
  SetLastCount(0);
  Invalidate();
}

void TZyBubbles::TakePixels(int Start, int Stop) {
  const double k = FElliptical ? 1 : FXAxis->NormalizeConst() / FYAxis->NormalizeConst();
  ForEachPoint(Start, Stop + 1, [&](int i) {
    const double r = GetR(i), rx = k * r;
    Keep({FXAxis->NumberToWorld(FX.At(i) + (FXAxis->Twisted() ? rx : -rx)),
          FYAxis->NumberToWorld(FY.At(i) + (FYAxis->Twisted() ? -r : r))},
         i);
    FSize.Add(
        {static_cast<float>(2 * rx / FXAxis->NormalizeConst()), static_cast<float>(2 * r / FYAxis->NormalizeConst())});
  });
}

RectF TZyBubbles::RectOf(std::size_t Pixel) const {
  const PointF Corner = Points()[Pixel], Size = Sizes()[Pixel];
  return {Corner.X, Corner.Y, Size.X, Size.Y};
}

int TZyBubbles::FindPoint(int X, int Y) const {
  const auto x = static_cast<float>(X), y = static_cast<float>(Y);
  return FirstPoint([&](std::size_t i) {
    const RectF R = RectOf(i);
    return x >= R.X && x <= R.X + R.Width && y >= R.Y && y <= R.Y + R.Height;
  });
}

/// A brush of the settings fits each bubble, gradients included.
void TZyBubbles::DrawPoints(Graphics& Gr) {
  TZyPointLook Look(*this);
  for (std::size_t i = 0; i < Points().size(); ++i) {
    const RectF R = RectOf(i);
    const auto Fitting = OwnsBrush() ? Area().GetBrush(R) : nullptr;
    if (Fitting) Look.SetBrush(*Fitting);
    if (Look.AskBrush(i)) Gr.FillEllipse(Look.Brush(), R);
    if (Look.AskPen(i)) Gr.DrawEllipse(Look.Pen(), R);
  }
}

void TZyBubbles::DrawListItem(const TZyLegendItemDrawArgs& e, LegendItemStyle) {
  const float Edge = std::max(LinePen() == nullptr ? 1.0f : LinePen()->Width(), 1.0f);
  const RectF Item = TRectToRectF(e.Rect);
  RectF R{Item.X + Edge, Item.Y + Edge, Item.Width - 2 * Edge, Item.Height - 2 * Edge};
  if (!FElliptical) {
    R.X += (R.Width - R.Height) / 2;
    R.Width = R.Height;
  }
  if (Area().Visible()) e.Graphics->FillEllipse(*Area().GetBrush(R), R);
  if (Line().Visible()) e.Graphics->DrawEllipse(*Line().GetPen(Item, 0), R);
}

/// Radii of about a thirtieth of the X axis, and points whose first and last bubble touch the ends of the axes.
void TZyBubbles::AddSampleData() {
  constexpr int Steps = 10;
  const double Radius = (FXAxis->Stop() - FXAxis->Start()) / 30;
  FillRandom(RadiusData(), Steps + 1, Radius);
  if (FRadius.Count() == 0) return;
  const double First = FRadius->GetValue(0), Last = FRadius->GetValue(FRadius.Count() - 1);
  const auto Fill = [&](TZyCustomDoubleVector* Data, const TZyAxis& Axis) {
    const double Step = (Axis.Stop() - Axis.Start() - Last - First) / Steps;
    return FillSample(Data, First + Axis.Start(), Step, 1, Axis.Stop() - Last);
  };
  Fill(XData(), *FXAxis);
  if (Fill(YData(), *FYAxis)) FYAxis->ShrinkOtherYs();
}

}  // namespace zy
