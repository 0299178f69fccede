#include "series/ZyBubbles.h"

#include <algorithm>
#include <cmath>
#include <functional>

#include "graph/parts/ZySeriesGraph.h"
#include "graph/shapes/ZyDrawing.h"
#include "persistence/ZyArchive.h"
#include "platform/controls/TWinControl.h"
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

namespace {

bool IsEven(const TZyAxis& Axis) { return !Axis.HasLogScaling() && Axis.Scaling() != TZyAxisScaling::DateTime; }

/// A value in the units in which the scale of an axis is even; not-a-number for what a logarithmic one has no place
/// for.
double OnScale(const TZyAxis& Axis, double Value) { return Axis.HasLogScaling() ? std::log10(Value) : Value; }

/// A radius at a value in these units.
double RadiusOnScale(const TZyAxis& Axis, double At, double Radius) {
  return Axis.HasLogScaling() ? OnScale(Axis, At + Radius) - OnScale(Axis, At) : Radius;
}

/// A radius at a value in pixels.
float RadiusInPixels(const TZyAxis& Axis, double At, double Radius) {
  if (IsEven(Axis)) return static_cast<float>(Radius / Axis.NormalizeConst());
  if (Axis.HasLogScaling() && !(At > 0)) return 0;
  return std::fabs(Axis.NumberToWorld(At + Radius) - Axis.NumberToWorld(At));
}

}  // namespace

void TZyBubbles::TakeEnds(const TZyAxis& Axis, double At, double Radius, TRange& Range) {
  double Low = At - Radius;
  if (Axis.HasLogScaling() && !(Low > 0)) Low = At > 0 ? At * (At / (At + Radius)) : At + Radius;
  Range.Take(Low);
  Range.Take(At + Radius);
}

/// The Y range first: a radius in Y gives the same pixels along X by the spans of both. Where the spans have no ratio,
/// as with all Y equal and radii of 0, X takes in the points alone.
void TZyBubbles::TakeRanges(TRange& X, TRange& Y) {
  const TZyAxis &XAxis = *FXAxis, &YAxis = *FYAxis;
  FLargest = 0;
  ForEachPoint(0, Count(), [&](int i) {
    const double r = GetR(i);
    TakeEnds(YAxis, FY.At(i), r, Y);
    const double Radius = FElliptical ? RadiusOnScale(XAxis, FX.At(i), r) : RadiusOnScale(YAxis, FY.At(i), r);
    if (std::isfinite(Radius)) FLargest = std::max(FLargest, Radius);
  });
  X = RangeOf(FX, FY, XAxis);
  FRatio = static_cast<double>(YAxis.AxLength()) / XAxis.AxLength();
  const auto SpanOf = [](const TZyAxis& Axis, const TRange& Range) {
    return OnScale(Axis, Range.High) - OnScale(Axis, Range.Low);
  };
  double k = SpanOf(XAxis, X) / SpanOf(YAxis, Y) * FRatio;
  if (!std::isfinite(k)) k = 0;
  ForEachPoint(0, Count(), [&](int i) {
    const double x = FX.At(i), r = GetR(i);
    if (FElliptical) return TakeEnds(XAxis, x, r, X);
    const double Radius = RadiusOnScale(YAxis, FY.At(i), r) * k;
    if (!XAxis.HasLogScaling()) return TakeEnds(XAxis, x, Radius, X);
    X.Take(x / std::pow(10, Radius));
    X.Take(x * std::pow(10, Radius));
  });
}

TZySeries::TRange TZyBubbles::ReachIntoX() const {
  const TZyAxis& Of = *(FElliptical ? XAxis() : YAxis());
  if (Of.Scaling() == TZyAxisScaling::DateTime) return {-HUGE_VAL, HUGE_VAL};
  const float Pixels = static_cast<float>(FLargest / Of.NormalizeConst()) + 1;
  const TRange Shown = TZySeries::ReachIntoX();
  const float Start = FXAxis->NumberToWorld(Shown.Low), Stop = FXAxis->NumberToWorld(Shown.High);
  const float Way = Start <= Stop ? Pixels : -Pixels;
  return {FXAxis->WorldToNumber(Start - Way), FXAxis->WorldToNumber(Stop + Way)};
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
  ForEachPoint(Start, Stop + 1, [&](int i) {
    const double x = FX.At(i), y = FY.At(i), r = GetR(i);
    const float Height = RadiusInPixels(*FYAxis, y, r);
    const float Width = FElliptical ? RadiusInPixels(*FXAxis, x, r) : Height;
    if (!std::isfinite(x) || !std::isfinite(y) || !std::isfinite(Width) || !std::isfinite(Height)) return;
    Keep({FXAxis->NumberToWorld(x) - Width, FYAxis->NumberToWorld(y) - Height}, i);
    FSize.Add({2 * Width, 2 * Height});
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

namespace {

/// The part of an ellipse that lies in some rows, as a line down its left side and up its right one, in steps that are
/// finer near its top and its bottom.
std::vector<PointF> SidesOf(const RectF& R, float Top, float Bottom) {
  const PointF Centre{R.X + R.Width / 2, R.Y + R.Height / 2};
  const float First = std::max(R.Y, Top), Last = std::min(R.Y + R.Height, Bottom);
  std::vector<PointF> Result;
  for (float y = First, Step = 0; y <= Last; y = y < Last ? std::min(y + Step, Last) : Last + 1) {
    const float Part = (y - Centre.Y) / (R.Height / 2);
    Step = std::clamp(std::min(y - R.Y, R.Y + R.Height - y) / 4, 0.02f, 1.0f);
    Result.push_back({Centre.X - R.Width / 2 * std::sqrt(std::max(1 - Part * Part, 0.0f)), y});
  }
  for (std::size_t i = Result.size(); i-- > 0;) Result.push_back({2 * Centre.X - Result[i].X, Result[i].Y});
  return Result;
}

}  // namespace

/// Of a bubble far larger than the chart, as when it was zoomed into, only what can be seen is drawn.
void TZyBubbles::DrawBubble(Graphics& Gr, const RectF& R, const Brush* Fill, const TZyPen* Edge) const {
  constexpr float Large = 4000;
  const TWinControl& Control = Graph()->Control();
  const float Room = Edge == nullptr ? 1 : Edge->EffectiveWidth() + 1;
  const float Right = static_cast<float>(Control.Width()) + Room, Bottom = static_cast<float>(Control.Height()) + Room;
  if (R.X > Right || R.X + R.Width < -Room || R.Y > Bottom || R.Y + R.Height < -Room) return;
  if (R.Width <= Large && R.Height <= Large) {
    if (Fill != nullptr) Gr.FillEllipse(*Fill, R);
    if (Edge != nullptr) Gr.DrawEllipse(*Edge, R);
    return;
  }
  std::vector<PointF> Sides = SidesOf(R, -Room, Bottom);
  if (Fill != nullptr) Gr.FillPolygon(*Fill, Sides);
  if (Edge == nullptr) return;
  const bool JoinsAtTop = R.Y >= -Room, JoinsAtBottom = R.Y + R.Height <= Bottom;
  const auto Half = Sides.begin() + static_cast<std::ptrdiff_t>(Sides.size() / 2);
  if (JoinsAtTop && JoinsAtBottom) return Gr.DrawPolygon(*Edge, Sides);
  if (JoinsAtTop) std::rotate(Sides.begin(), Half, Sides.end());
  if (JoinsAtTop || JoinsAtBottom) return Gr.DrawLines(*Edge, Sides);
  Gr.DrawLines(*Edge, {Sides.begin(), Half});
  Gr.DrawLines(*Edge, {Half, Sides.end()});
}

/// A brush of the settings fits each bubble, gradients included. A brush of a handler is for its bubble alone.
void TZyBubbles::DrawPoints(Graphics& Gr) {
  if (DrawStamps(Gr)) return;
  const bool FitsBrush = OwnsBrush() && !(Area().Solid() && !Area().Gradient().Visible());
  TZyPointLook Look(*this);
  for (std::size_t i = 0; i < Points().size(); ++i) {
    const RectF R = RectOf(i);
    const auto Fitting = FitsBrush ? Area().GetBrush(R) : nullptr;
    if (Fitting)
      Look.SetBrush(*Fitting);
    else
      Look.ResetBrush();
    if (Look.AskBrush(i)) DrawBubble(Gr, R, &Look.Brush(), nullptr);
    if (Look.AskPen(i)) DrawBubble(Gr, R, nullptr, &Look.Pen());
  }
}

/// Many bubbles of one look but for their size: what is not large is painted once for each size, in quarters of a
/// pixel, and put down from then on. False when they are few, or of more than two colours.
bool TZyBubbles::DrawStamps(Graphics& Gr) {
  constexpr std::size_t Many = 2000;
  constexpr float Largest = 24;  // pixels
  const auto* const Fill = dynamic_cast<const SolidBrush*>(AreaBrush());
  const TZyPen& Edge = *LinePen();
  const bool IsPlain = Fill != nullptr && dynamic_cast<const SolidBrush*>(&Edge.GetBrush()) != nullptr &&
                       Edge.DashStyle() == DashStyleSolid && Edge.EndShape() == nullptr;
  if (!IsPlain || OnGetBrush() || OnGetPen() || Points().size() < Many) return false;
  const bool IsFilled = Area().Visible(), HasEdge = Line().Visible();
  struct TLook {
    float Width, Height, EdgeWidth;
    TZyColor Fill, Edge;
  } Look{0, 0, HasEdge ? Edge.Width() : 0, IsFilled ? Fill->GetColor() : 0, HasEdge ? Edge.Color() : 0};
  const Brush* const FillUsed = IsFilled ? Fill : nullptr;
  const TZyPen* const EdgeUsed = HasEdge ? &Edge : nullptr;
  for (std::size_t i = 0; i < Points().size(); ++i) {
    const RectF R = RectOf(i);
    Look.Width = std::round(R.Width * 4) / 4;
    Look.Height = std::round(R.Height * 4) / 4;
    if (!(std::max(R.Width, R.Height) + Look.EdgeWidth <= Largest) || !(Look.Width > 0) || !(Look.Height > 0)) {
      DrawBubble(Gr, R, FillUsed, EdgeUsed);
      continue;
    }
    const PointF Centre{R.X + R.Width / 2, R.Y + R.Height / 2};
    const RectF Stamp{-Look.Width / 2, -Look.Height / 2, Look.Width, Look.Height};
    const float Room = Look.EdgeWidth / 2 + 1;
    const RectF Extent{Stamp.X - Room, Stamp.Y - Room, Stamp.Width + 2 * Room, Stamp.Height + 2 * Room};
    const auto PaintStamp = [&](Graphics& Canvas) {
      const bool IsStamp = &Canvas != &Gr;  // else a target that has none, and takes all sizes
      const RectF Box = IsStamp ? Stamp : RectF{-R.Width / 2, -R.Height / 2, R.Width, R.Height};
      if (FillUsed != nullptr) Canvas.FillEllipse(*FillUsed, Box);
      if (EdgeUsed != nullptr) Canvas.DrawEllipse(*EdgeUsed, Box);
    };
    Gr.DrawStamps({reinterpret_cast<const char*>(&Look), sizeof Look}, Extent, {&Centre, 1}, std::cref(PaintStamp));
  }
  return true;
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
