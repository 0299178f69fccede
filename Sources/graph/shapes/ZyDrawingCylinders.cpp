#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <span>

#include "graph/shapes/ZyDrawing.h"
#include "graph/styles/ZyGradientBrushes.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/Graphics.h"
#include "platform/drawing/Pen.h"

namespace zy {
namespace {

float InDegrees(double Radians) { return static_cast<float>(Radians * (180 / std::numbers::pi)); }

/// Equal but for the last digits of a single.
bool IsSame(float A, float B) {
  constexpr float Tolerance = 4 * std::numeric_limits<float>::epsilon();
  return std::fabs(A - B) <= Tolerance * std::max(std::fabs(A), std::fabs(B));
}

/// Draws with the origin elsewhere, and leaves the transform of a Graphics as it was.
class TLocalSystem {
 public:
  TLocalSystem(Graphics& Gr, float X, float Y, float ShearX, float ShearY) : FGr(Gr), FBefore(Gr.GetTransform()) {
    Matrix Local = FBefore;
    Local.Translate(X, Y);
    Local.Shear(ShearX, ShearY);
    Gr.SetTransform(Local);
  }
  ~TLocalSystem() { FGr.SetTransform(FBefore); }
  TLocalSystem(const TLocalSystem&) = delete;
  TLocalSystem& operator=(const TLocalSystem&) = delete;

 private:
  Graphics& FGr;
  Matrix FBefore;
};

/// The round side in light and shade; positions are those of the full colour, the highlight and the shadows. Reach says
/// how many times as long as these colours the brush is.
void SetBodyColors(LinearGradientBrush& Brush, TZyColor Color, float HighlightAt, double ShadowFactor,
                   float Reach = 1) {
  const TZyColor Last = Brighten(Color, 0.4);
  const ARGB Colors[] = {Color, Brighten(Color, 1.4), Color, Brighten(Color, ShadowFactor), Last, Last};
  const float Positions[] = {0, HighlightAt / Reach, 0.5f / Reach, 0.75f / Reach, 1 / Reach, 1};
  const std::size_t Count = Reach > 1 ? std::size(Colors) : std::size(Colors) - 1;
  Brush.SetInterpolationColors(std::span(Colors).first(Count), std::span(Positions).first(Count));
}

LinearGradientBrush CapBrush(const RectF& Cap, TZyColor Color) {
  return {Cap, Brighten(Color, 1.4), Brighten(Color, 0.8), 97};
}

LinearGradientBrush EndBrush(const RectF& End, TZyColor Color) {
  return {End, Brighten(Color, 0.4), Brighten(Color, 0.8), 20};
}

/// How the outline of a body goes on along its cap: along the edge that the cap hides, or, below an opaque cap, along
/// the far one, so that no seam shows between the two.
float SweepAlongCap(TZyColor FillColor) { return GetAlpha(FillColor) > 254 ? 180 : -180; }

/// How far the caps are sheared; none without a cap to shear.
float ShearOf(float Lean, float CapDepth) { return Lean > 0 && CapDepth > 0 ? Lean / CapDepth : 0; }

}  // namespace

// Of the points with a given tangent, the half angle in the ellipse's own parameter follows from a quadratic equation;
// the last step turns the parameter into the angle that is seen from the centre.
float EllipseTangentAngle(float A, float B, float Slope) {
  constexpr float None = std::numeric_limits<float>::quiet_NaN();
  thread_local float LastA = None, LastB = None, LastSlope = None, LastAngle = None;
  if (IsSame(A, LastA) && IsSame(B, LastB) && IsSame(Slope, LastSlope)) return LastAngle;
  const double a = A, b = B, m = Slope;
  const double s = std::sqrt(m * m * b * b + a * a);
  const double u = std::atan2(s + m * b, a);
  const double p = 2 * std::numbers::pi - 2 * u;
  LastA = A;
  LastB = B;
  LastSlope = Slope;
  LastAngle = Slope == 0 ? 180 : InDegrees(std::atan2(std::cos(p) * b, std::sin(p) * a));
  return LastAngle;
}

void DrawCylinderVertical(Graphics& Gr, TZyColor FrameColor, TZyColor FillColor, float X1, float Y1, float X2, float Y2,
                          float DepthX, float DepthY) {
  const auto [X, Y, Width, Height] = OrderedRect(X1, Y1, X2, Y2);
  const float Depth = DepthY, Lean = std::max(DepthX, 0.0f);
  const float Shear = ShearOf(Lean, Depth);
  const TLocalSystem Local(Gr, X, Y, -Shear, 0);
  const RectF Cap{0, -Depth, Width, Depth};

  const float Angle = Shear > 0 ? EllipseTangentAngle(Width / 2, Depth / 2, -Shear) : 180;
  GraphicsPath Body;
  Body.AddArc({Height * Shear, Height - Depth, Width, Depth}, Angle - 180, 180);
  Body.AddArc(Cap, Angle, SweepAlongCap(FillColor));
  Body.CloseFigure();
  LinearGradientBrush BodyBrush(RectF{0, 0, Width + Lean, Height}, FillColor, FillColor, LinearGradientModeHorizontal);
  SetBodyColors(BodyBrush, FillColor, 0.25f, 0.6);
  Matrix Upright;  // undoes the shear, so that the bands run along the side
  Upright.Shear(Shear, 0);
  BodyBrush.SetTransform(Upright);
  Gr.FillPath(BodyBrush, Body);

  Gr.FillEllipse(CapBrush(Cap, FillColor), Cap);
  Gr.FillEllipse(*EllipticalBrush(Cap, {0.3f, 0.85f}, 0x00FFFFFF, 0x3CFFFFFF, 0x8CFFFFFF), Cap);
  if (FrameColor != Colors::Transparent) Gr.DrawEllipse(Pen(CapBrush(Cap, FrameColor), 1), Cap);
}

void DrawCylinderHorizontal(Graphics& Gr, TZyColor FrameColor, TZyColor FillColor, float X1, float Y1, float X2,
                            float Y2, float DepthX, float DepthY) {
  const auto [X, Y, Width, Height] = OrderedRect(X1, Y1, X2, Y2);
  const float Depth = DepthX, Lean = std::max(DepthY, 0.0f);
  const float Shear = ShearOf(Lean, Depth);
  const TLocalSystem Local(Gr, X, Y, 0, -Shear);
  const RectF Start{0, 0, Depth, Height}, End{Width, Width * Shear, Depth, Height};

  const float Angle = Shear > 0 ? EllipseTangentAngle(Depth / 2, Height / 2, -1 / Shear) - 180 : 270;
  GraphicsPath Body;
  Body.AddArc(End, Angle - 180, -SweepAlongCap(FillColor));
  Body.AddArc(Start, Angle, -180);
  Body.CloseFigure();
  const float Side = Height + Lean;
  LinearGradientBrush BodyBrush(RectF{0, 0, Side, Side}, FillColor, FillColor, LinearGradientModeVertical);
  float Reach = 1;
  if (Shear > 0) {
    // Across the slope that the side has in the sheared system: turned about the corner, then moved. The colours reach
    // that far down that they would begin anew near the lower edge; the last one goes on instead.
    Reach = 2;
    BodyBrush =
        LinearGradientBrush(RectF{0, 0, Reach * Side, Side}, FillColor, FillColor, LinearGradientModeHorizontal);
    Matrix Across;
    Across.Translate(Height, 0);
    Across.Rotate(InDegrees(std::atan(Shear)) + 90);
    BodyBrush.SetTransform(Across);
  }
  SetBodyColors(BodyBrush, FillColor, 0.35f, 0.7, Reach);
  Gr.FillPath(BodyBrush, Body);

  Gr.FillEllipse(EndBrush(End, FillColor), End);
  if (FrameColor != Colors::Transparent) Gr.DrawEllipse(Pen(EndBrush(End, FrameColor), 1), End);
}

}  // namespace zy
