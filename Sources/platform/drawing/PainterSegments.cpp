// Many lines of two points each, drawn at once.

#include <cmath>
#include <cstring>
#include <numbers>
#include <optional>
#include <string>
#include <vector>

#include "platform/drawing/KeptSegments.h"
#include "platform/drawing/PainterBackend.h"
#include "platform/drawing/PainterShapes.h"
#include "platform/drawing/QtGeometry.h"
#include "platform/drawing/ZyRasterSum.h"
#include "platform/drawing/ZySymbolStamps.h"

namespace zy {
namespace {

/// What all lines of a call have in common, in device pixels.
struct TSegmentPen {
  float Width = 1;
  std::uint32_t Color = 0;
  float Inset = 0;                         // of the line before its end
  std::vector<std::vector<PointF>> Shape;  // at the end, for a line to the right that ends at the origin
  float Reach = 0;                         // of all this beyond the two ends
};

/// Nothing for pens that are drawn one line at a time.
std::optional<TSegmentPen> SegmentPenOf(const Pen& Pen, float Scale) {
  const auto* const Solid = dynamic_cast<const SolidBrush*>(&Pen.GetBrush());
  const bool IsPlain = Pen.GetDashStyle() == DashStyleSolid && Pen.GetStartCap() == LineCapFlat &&
                       Pen.StartShape() == nullptr && (Pen.GetEndCap() == LineCapFlat || Pen.EndShape() != nullptr);
  if (Solid == nullptr || !IsPlain) return {};
  TSegmentPen Result;
  Result.Width = Pen.EffectiveWidth() * Scale;
  Result.Color = Solid->GetColor();
  Result.Reach = Result.Width;
  if (const CustomLineCap* const Cap = Pen.EndShape()) {
    if (!Cap->StrokePath().IsEmpty()) return {};
    Result.Inset = std::max(Cap->GetBaseInset(), 0.0f) * Result.Width;
    // Caps are drawn for lines upwards, with y up.
    Result.Shape = Cap->FillPath().Flatten(Matrix(0, Result.Width, Result.Width, 0, 0, 0));
    for (const auto& Figure : Result.Shape)
      for (const PointF& Point : Figure) Result.Reach = std::max(Result.Reach, std::hypot(Point.X, Point.Y));
  }
  return Result;
}

bool AreAllLevel(std::span<const PointF> Ends) {
  for (std::size_t i = 0; i + 1 < Ends.size(); i += 2)
    if (Ends[i].X != Ends[i + 1].X && Ends[i].Y != Ends[i + 1].Y) return false;
  return true;
}

bool IsOutside(const PointF& A, const PointF& B, const TRasterRect& Box, float Reach) {
  const auto Misses = [Reach](float From, float To, int Low, int High) {
    return std::max(From, To) + Reach < static_cast<float>(Low) ||
           std::min(From, To) - Reach > static_cast<float>(High);
  };
  return Misses(A.X, B.X, Box.Left, Box.Right) || Misses(A.Y, B.Y, Box.Top, Box.Bottom);
}

/// Draws lines one after the other.
class TSegmentDrawer {
 public:
  TSegmentDrawer(const TRasterTarget& Target, const TRasterClip& Clip, const TSegmentPen& Pen)
      : FTarget(Target), FClip(Clip), FPen(Pen), FPaint(Pen.Color), FRaster(Target, Clip) {
    FStroke.Width = Pen.Width;
  }

  /// Level and upright lines go there from now on.
  void SumUp(TRasterSum* Sum) { FSum = Sum; }
  void StampEnds() {
    constexpr float LargestReach = 10;
    if (FPen.Reach > LargestReach) return;
    FDirections = FPen.Reach > LargestReach / 2 ? 256 : 128;
    FLook.assign(sizeof FDirections, '\0');
    const auto Append = [this](const auto& Value) {
      FLook.append(reinterpret_cast<const char*>(&Value), sizeof Value);
    };
    Append(FPen.Color);
    for (const auto& Figure : FPen.Shape) {
      Append(Figure.size());
      for (const PointF& Point : Figure) Append(Point);
    }
  }

  void Draw(const PointF& A, const PointF& B) {
    if (FSum != nullptr) return DrawBox(A, B);
    if (!AreFinite({A.X, A.Y, B.X, B.Y}) || IsOutside(A, B, FClip.Box, FPen.Reach)) return;
    const float Length = std::hypot(B.X - A.X, B.Y - A.Y);
    if (!(Length > 0)) return;
    const PointF Way{(B.X - A.X) / Length, (B.Y - A.Y) / Length};
    const bool IsLevel = A.X == B.X || A.Y == B.Y;
    if (Length > FPen.Inset)
      DrawLine(A, FPen.Inset > 0 ? PointF{B.X - Way.X * FPen.Inset, B.Y - Way.Y * FPen.Inset} : B, IsLevel);
    if (!FPen.Shape.empty()) DrawEnd(B, Way);
  }

 private:
  void DrawLine(const PointF& A, const PointF& B, bool IsLevel) {
    const bool HasMask = FClip.Mask != nullptr;
    if (IsLevel && FPen.Width >= 1 && !HasMask) return DrawBox(A, B);
    const PointF Points[] = {A, B};
    if (HasMask || FPen.Width > 1)
      FRaster.StrokeLines(Points, FStroke, FPaint);
    else
      FRaster.ThinLine(Points, FPen.Width, TRasterCap::Flat, FPen.Color);
  }

  void DrawBox(const PointF& A, const PointF& B) {
    const float Half = FPen.Width / 2, AcrossX = A.X == B.X ? Half : 0, AcrossY = Half - AcrossX;
    const float Left = std::min(A.X, B.X) - AcrossX, Right = std::max(A.X, B.X) + AcrossX;
    const float Top = std::min(A.Y, B.Y) - AcrossY, Bottom = std::max(A.Y, B.Y) + AcrossY;
    if (FSum != nullptr)
      FSum->Add(Left, Top, Right, Bottom);
    else
      FRaster.FillBox(static_cast<double>(Left), static_cast<double>(Top), static_cast<double>(Right),
                      static_cast<double>(Bottom), FPaint);
  }

  /// Ends of many arrows are stamps for each of so many directions that no corner moves by an eighth of a pixel.
  void DrawEnd(const PointF& End, const PointF& Way) {
    if (FDirections == 0) return FillEnd(FRaster, End, Way);
    const float Turn = std::atan2(Way.Y, Way.X) / (2 * std::numbers::pi_v<float>);
    const int Direction = static_cast<int>(std::lround(Turn * static_cast<float>(FDirections))) & (FDirections - 1);
    std::memcpy(FLook.data(), &Direction, sizeof Direction);
    if (Stamps().DrawMade(FTarget, FClip, FLook, End)) return;
    const double Angle = Direction * 2 * std::numbers::pi / FDirections;
    const PointF StampWay{static_cast<float>(std::cos(Angle)), static_cast<float>(std::sin(Angle))};
    const float Side = FPen.Reach + 1;
    Stamps().Draw(FTarget, FClip, FLook, {-Side, -Side, 2 * Side, 2 * Side}, {&End, 1},
                  [&](const TRasterTarget& Stamp, PointF Anchor) {
                    TZyRaster Raster(Stamp, {{0, 0, Stamp.Width, Stamp.Height}, nullptr, 0});
                    FillEnd(Raster, Anchor, StampWay);
                  });
  }

  void FillEnd(TZyRaster& Raster, const PointF& End, const PointF& Way) {
    FFigures.resize(FPen.Shape.size());
    FSpans.clear();
    for (std::size_t i = 0; i < FFigures.size(); ++i) {
      FFigures[i].clear();
      for (const PointF& P : FPen.Shape[i])
        FFigures[i].push_back({End.X + P.X * Way.X - P.Y * Way.Y, End.Y + P.X * Way.Y + P.Y * Way.X});
      FSpans.emplace_back(FFigures[i]);
    }
    Raster.FillPolygons(FSpans, true, FPaint);
  }

  static TZySymbolStamps& Stamps() {
    constexpr std::size_t MostEnds = 512;
    thread_local TZySymbolStamps Result(MostEnds);
    return Result;
  }

  const TRasterTarget& FTarget;
  const TRasterClip& FClip;
  const TSegmentPen& FPen;
  TSolidPaint FPaint;
  TZyRaster FRaster;
  TRasterStroke FStroke;
  TRasterSum* FSum = nullptr;
  int FDirections = 0;  // of ends that are stamps; 0 for none
  std::string FLook;    // of such an end, behind its direction
  std::vector<std::vector<PointF>> FFigures;
  std::vector<std::span<const PointF>> FSpans;
};

}  // namespace

bool TKeptSegments::TLook::operator==(const TLook& Other) const {
  return Device == Other.Device && Box.Left == Other.Box.Left && Box.Top == Other.Box.Top &&
         Box.Right == Other.Box.Right && Box.Bottom == Other.Box.Bottom && Width == Other.Width && Alpha == Other.Alpha;
}

/// The thread's, for whoever keeps none: it is there for its memory.
TKeptSegments& TPainterBackend::OwnSegments() {
  thread_local TKeptSegments Result;
  return Result;
}

bool TPainterBackend::DrawSegments(const TDrawState& State, const Pen& Pen, std::span<const PointF> Ends,
                                   TKeptSegments* Kept) {
  const QTransform Transform = AsQt(DeviceTransform(State, TGrid::Centers));
  const double Scale = Transform.m11();
  const bool IsEven = Transform.type() <= QTransform::TxScale && Scale > 0 && Transform.m22() == Scale;
  if (FImage == nullptr || State.Smoothing == SmoothingModeNone || !IsEven) return false;
  const std::optional<TSegmentPen> Used = SegmentPenOf(Pen, static_cast<float>(Scale));
  if (!Used) return false;
  Prepare(State);
  const TRasterTarget Target = SettledPixels();
  const TRasterClip Clip = RasterClip();
  if (Clip.Box.IsEmpty()) return true;
  constexpr double PixelsPerBox = 40;          // that are summed up in the time of one box
  constexpr std::size_t ManySegments = 2'000;  // whose ends are stamps
  const std::size_t Segments = Ends.size() / 2;
  const double Pixels = static_cast<double>(Clip.Box.Right - Clip.Box.Left) * (Clip.Box.Bottom - Clip.Box.Top);
  const auto Factor = static_cast<float>(Scale), Dx = static_cast<float>(Transform.dx());
  const auto Dy = static_cast<float>(Transform.dy());
  const auto DrawAll = [&](TSegmentDrawer& Drawer) {
    const auto Place = [=](const PointF& End) { return PointF{End.X * Factor + Dx, End.Y * Factor + Dy}; };
    for (std::size_t i = 0; i < Segments; ++i) Drawer.Draw(Place(Ends[2 * i]), Place(Ends[2 * i + 1]));
  };
  TSegmentDrawer Drawer(Target, Clip, *Used);
  const bool SumsUp = Used->Shape.empty() && Used->Width >= 1 && AreAllLevel(Ends) &&
                      Pixels < PixelsPerBox * static_cast<double>(Segments);
  if (!SumsUp) {
    if (!Used->Shape.empty() && Segments >= ManySegments) Drawer.StampEnds();
    DrawAll(Drawer);
    return true;
  }
  TKeptSegments& Sums = Kept != nullptr ? *Kept : OwnSegments();
  if (Kept == nullptr) Sums.Clear();
  const TKeptSegments::TLook Look{FromQt(Transform), Clip.Box, Used->Width,
                                  static_cast<std::uint8_t>(Used->Color >> 24)};
  if (!Sums.FIsMade || !(Sums.FLook == Look)) {
    Sums.Clear();
    {
      TRasterSum Sum(Clip.Box, Look.Alpha, Sums.FSums);
      Drawer.SumUp(&Sum);
      DrawAll(Drawer);
    }
    Sums.FLook = Look;
    Sums.FIsMade = true;
  }
  TRasterSum::Blend(Target, Clip, Clip.Box, Sums.FSums, Used->Color);
  return true;
}

}  // namespace zy
