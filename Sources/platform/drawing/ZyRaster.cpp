#include "platform/drawing/ZyRaster.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <optional>
#include <vector>

#include "platform/drawing/ZyRasterBlend.h"
#include "platform/drawing/ZyRasterCells.h"
#include "platform/drawing/ZyRasterComb.h"
#include "platform/drawing/ZyRasterStroke.h"
#include "platform/drawing/ZyRasterThin.h"
#include "platform/drawing/ZyRasterThinQueue.h"
#include "platform/framework/TCrew.h"

namespace zy {
namespace {

/// What is kept from shape to shape.
struct TScratch {
  TRasterCells Cells;
  TRasterDasher Dasher;
  TRasterComb Comb;
  std::vector<double> Dashes;
  std::vector<std::uint32_t> Colors;
  std::vector<std::uint8_t> Coverage, Masked;
};

TScratch& Scratch() {
  thread_local TScratch Result;
  return Result;
}

/// Blends the coverage that comes in.
class TBlender : public TCoverageSink {
 public:
  TBlender(const TRasterTarget& Target, const TRasterClip& Clip, std::uint8_t Opacity, const TRasterPaint& Paint)
      : FTarget(Target),
        FClip(Clip),
        FOpacity(Opacity),
        FPaint(Paint),
        FSolid(Paint.IsSolid(FColor)),
        FIsUpright(Paint.IsUpright()) {
    if (!FSolid) FColors.resize(std::max(FColors.size(), static_cast<std::size_t>(Target.Width)));
  }

  void Rows(int X, int Y, int Count, std::uint8_t* Coverage, int Rows) override {
    if (FClip.Mask == nullptr && FOpacity != 255) ScaleBytes(Coverage, FOpacity, Count);
    const bool AreAlike = (FSolid || FIsUpright) && FClip.Mask == nullptr;
    if (AreAlike && Rows > 1 && Count <= WidestTogether) {
      std::uint32_t Colors[WidestTogether];
      if (FSolid) std::fill_n(Colors, Count, FColor);
      std::uint32_t* const Pixels = FTarget.Pixels + Y * FTarget.Stride + X;
      return BlendRows(Pixels, FTarget.Stride, Rows, Coverage, Count, FSolid ? Colors : ColorsOf(X, Y, Count));
    }
    for (int Row = Y; Row < Y + Rows; ++Row)
      BlendRow(X, Row, Count, FClip.Mask == nullptr ? Coverage : Masked(X, Row, Count, Coverage));
  }
  bool EvenRows(int X, int Y, int Count, std::uint8_t Coverage, int Rows) override {
    if (FClip.Mask != nullptr || !FSolid) return false;
    for (int Row = Y; Row < Y + Rows; ++Row)
      BlendEven(FTarget.Pixels + Row * FTarget.Stride + X, ScaledByte(Coverage, FOpacity), Count, FColor);
    return true;
  }

 private:
  static constexpr int WidestTogether = 64;  // wider runs are blended row by row

  void BlendRow(int X, int Y, int Count, const std::uint8_t* Coverage) {
    std::uint32_t* const Pixels = FTarget.Pixels + Y * FTarget.Stride + X;
    if (FSolid) return BlendColor(Pixels, Coverage, Count, FColor);
    BlendColors(Pixels, Coverage, Count, ColorsOf(X, Y, Count));
  }

  const std::uint8_t* Masked(int X, int Y, int Count, const std::uint8_t* Coverage) {
    std::vector<std::uint8_t>& Result = Scratch().Masked;
    Result.assign(Coverage, Coverage + Count);
    ScaleBytes(Result.data(), FClip.Mask + Y * FClip.MaskStride + X, Count);
    if (FOpacity != 255) ScaleBytes(Result.data(), FOpacity, Count);
    return Result.data();
  }

  const std::uint32_t* ColorsOf(int X, int Y, int Count) {
    std::uint32_t* const Colors = FColors.data();
    if (!FIsUpright) {
      FPaint.Fetch(X, Y, Count, Colors);
      return Colors;
    }
    if (FFrom == FTo) FFrom = FTo = X;
    if (X < FFrom) FPaint.Fetch(X, Y, FFrom - X, Colors + X);
    if (X + Count > FTo) FPaint.Fetch(FTo, Y, X + Count - FTo, Colors + FTo);
    FFrom = std::min(FFrom, X);
    FTo = std::max(FTo, X + Count);
    return Colors + X;
  }

  const TRasterTarget& FTarget;
  const TRasterClip& FClip;
  std::uint8_t FOpacity;
  const TRasterPaint& FPaint;
  std::uint32_t FColor = 0;
  bool FSolid, FIsUpright;
  int FFrom = 0, FTo = 0;                                  // columns whose colours are known, where all rows are alike
  std::vector<std::uint32_t>& FColors = Scratch().Colors;  // of one row
};

/// Blends what many layers of one colour let through, by their number as a part of 255.
class TLayerBlender : public TCoverageSink {
 public:
  TLayerBlender(const TRasterTarget& Target, const TRasterClip& Clip, int Layers, std::uint32_t Color)
      : FTarget(Target), FClip(Clip), FLayers(Layers), FAlpha(static_cast<std::uint8_t>(Color >> 24)) {
    TSolidPaint(Color | 0xFF000000).IsSolid(FColor);
    const std::uint8_t Alpha = FAlpha;
    int Below = 0;  // layers that are there in full
    std::uint8_t Opacity = 0, Next = Alpha;
    for (int Part = 0; Part < 256; ++Part) {
      while (Below < Part * Layers / 255) {
        ++Below;
        Opacity = Next;
        Next = static_cast<std::uint8_t>(Alpha + ScaledByte(Next, static_cast<std::uint8_t>(255 - Alpha)));
      }
      const int Rest = Part * Layers - Below * 255;
      FOpacities[static_cast<std::size_t>(Part)] =
          static_cast<std::uint8_t>(Opacity + ((Next - Opacity) * Rest + 127) / 255);
    }
  }

  void Rows(int X, int Y, int Count, std::uint8_t* Coverage, int Rows) override {
    if (FClip.Mask == nullptr) {
      for (int i = 0; i < Count; ++i) Coverage[i] = FOpacities[Coverage[i]];
      for (int Row = Y; Row < Y + Rows; ++Row) BlendColor(PixelsAt(X, Row), Coverage, Count, FColor);
      return;
    }
    std::vector<std::uint8_t>& Masked = Scratch().Masked;
    for (int Row = Y; Row < Y + Rows; ++Row) {
      Masked.assign(Coverage, Coverage + Count);
      const std::uint8_t* const Mask = FClip.Mask + Row * FClip.MaskStride + X;
      ScaleBytes(Masked.data(), Mask, Count);
      BlendRuns(PixelsAt(X, Row), Masked.data(), Coverage, Mask, Count);
    }
  }

 private:
  std::uint32_t* PixelsAt(int X, int Y) const { return FTarget.Pixels + Y * FTarget.Stride + X; }

  /// Of a trail, most is cut out as a rule, where the shape itself lies.
  void BlendRuns(std::uint32_t* Pixels, std::uint8_t* Masked, const std::uint8_t* Coverage, const std::uint8_t* Mask,
                 int Count) {
    constexpr int Word = 8;
    const auto IsEmpty = [&](int At) {
      std::uint64_t Eight = 0;
      std::memcpy(&Eight, Masked + At, static_cast<std::size_t>(std::min(Word, Count - At)));
      return Eight == 0;
    };
    for (int From = 0; From < Count;) {
      while (From < Count && IsEmpty(From)) From += Word;
      int To = From;
      while (To < Count && !IsEmpty(To)) To += Word;
      if (From >= Count) return;
      To = std::min(To, Count);
      for (int i = From; i < To; ++i)
        Masked[i] = Mask[i] == 255 ? FOpacities[Coverage[i]] : Mask[i] == 0 ? 0 : Through(Coverage[i], Mask[i]);
      BlendColor(Pixels + From, Masked + From, To - From, FColor);
      From = To;
    }
  }

  /// At the edge of a mask, which holds back a part of each layer: rounded as if each was blended by itself.
  std::uint8_t Through(std::uint8_t Coverage, std::uint8_t Mask) const {
    const float Layer = static_cast<float>(ScaledByte(FAlpha, Mask)) / 255;
    return CoverageOfPart(1 - static_cast<double>(std::pow(1 - Layer, static_cast<float>(Coverage * FLayers) / 255)));
  }

  const TRasterTarget& FTarget;
  const TRasterClip& FClip;
  int FLayers;
  std::uint8_t FAlpha;
  std::uint32_t FColor = 0;
  std::array<std::uint8_t, 256> FOpacities;
};

/// The box around points.
struct TBounds {
  float Left = std::numeric_limits<float>::max();
  float Top = std::numeric_limits<float>::max();
  float Right = std::numeric_limits<float>::lowest();
  float Bottom = std::numeric_limits<float>::lowest();

  /// False when a point is not finite.
  bool Add(std::span<const PointF> Points) {
    float Sum = 0;
    for (const PointF& Point : Points) {
      Left = std::min(Left, Point.X);
      Right = std::max(Right, Point.X);
      Top = std::min(Top, Point.Y);
      Bottom = std::max(Bottom, Point.Y);
      Sum += Point.X * 0 + Point.Y * 0;  // not a number once a coordinate is not finite
    }
    return Sum == 0;
  }

  /// The whole pixels within Clip that what reaches so far from the points can touch.
  TRasterRect Pixels(const TRasterRect& Clip, double Reach) const {
    const auto Cut = [](double Value, int Low, int High) {
      return static_cast<int>(std::clamp(Value, static_cast<double>(Low), static_cast<double>(High)));
    };
    return {Cut(std::floor(Left - Reach), Clip.Left, Clip.Right), Cut(std::floor(Top - Reach), Clip.Top, Clip.Bottom),
            Cut(std::ceil(Right + Reach), Clip.Left, Clip.Right),
            Cut(std::ceil(Bottom + Reach), Clip.Top, Clip.Bottom)};
  }
};

/// A closed polygon that is moved by Offset.
void AddOutline(TRasterCells& Cells, std::span<const PointF> Points, PointF Offset) {
  if (Points.empty()) return;
  PointF Last = Points.back();
  for (std::size_t i = 0; i < Points.size(); ++i) {
    const PointF& Point = Points[i];
    // Of a way up and down at one place only the ends count.
    if (Point.X == Last.X && i + 1 < Points.size() && Points[i + 1].X == Point.X) continue;
    Cells.AddEdge(Last.X + Offset.X, Last.Y + Offset.Y, Point.X + Offset.X, Point.Y + Offset.Y);
    Last = Point;
  }
}

/// What becomes of a dash pattern.
enum class TPattern { Solid, Dashed, Blank };

/// Brings the dashes into an even list of usable lengths. Too fine ones are Solid, and Share says how pale they look.
TPattern PreparePattern(const TRasterStroke& Stroke, double Width, std::vector<double>& Lengths, double& Share) {
  Share = 1;
  Lengths.clear();
  if (Stroke.Dashes.empty()) return TPattern::Solid;
  const int Rounds = Stroke.Dashes.size() % 2 == 0 ? 1 : 2;
  for (int Round = 0; Round < Rounds; ++Round)
    for (const float Length : Stroke.Dashes) Lengths.push_back(std::isfinite(Length) && Length > 0 ? Length : 0.0);
  double Drawn = 0, Period = 0;
  for (std::size_t Entry = 0; Entry < Lengths.size(); ++Entry) {
    Period += Lengths[Entry];
    if (Entry % 2 == 0) Drawn += Lengths[Entry];
  }
  if (!(Period > 0) || Drawn == Period) return TPattern::Solid;
  if (Drawn == 0 && Stroke.DashCap == TRasterCap::Flat) return TPattern::Blank;
  if (Period >= std::max(0.25, Width / 64)) return TPattern::Dashed;
  if (Stroke.DashCap == TRasterCap::Flat) Share = Drawn / Period;
  return TPattern::Solid;
}

/// What may be written without blending; nothing where the old colour of a pixel counts.
std::optional<TRasterComb::TInk> InkOf(const TRasterTarget& Target, const TRasterClip& Clip, const TRasterRect& Box,
                                       const TRasterPaint& Paint, int Opacity) {
  TRasterComb::TInk Result{Target, Box, 0};
  const bool IsOpaque = Paint.IsSolid(Result.Color) && Result.Color >> 24 == 255 && Opacity == 255;
  return IsOpaque && Clip.Mask == nullptr ? std::optional(Result) : std::nullopt;
}

}  // namespace

TRasterPaint::~TRasterPaint() = default;

bool TRasterPaint::IsSolid(std::uint32_t&) const { return false; }

bool TRasterPaint::IsUpright() const { return false; }

bool TRasterPaint::IsLevel() const { return false; }

TSolidPaint::TSolidPaint(std::uint32_t Color) {
  const auto Alpha = static_cast<std::uint8_t>(Color >> 24);
  const auto Channel = [&](int Shift) {
    return static_cast<std::uint32_t>(ScaledByte(static_cast<std::uint8_t>(Color >> Shift), Alpha)) << Shift;
  };
  FPremultiplied = (Color & 0xFF000000) | Channel(16) | Channel(8) | Channel(0);
}

bool TSolidPaint::IsSolid(std::uint32_t& Premultiplied) const {
  Premultiplied = FPremultiplied;
  return true;
}

void TSolidPaint::Fetch(int, int, int Count, std::uint32_t* Pixels) const {
  std::fill_n(Pixels, Count, FPremultiplied);
}

TRasterRect Intersection(const TRasterRect& A, const TRasterRect& B) {
  return {std::max(A.Left, B.Left), std::max(A.Top, B.Top), std::min(A.Right, B.Right), std::min(A.Bottom, B.Bottom)};
}

TZyRaster::TZyRaster(const TRasterTarget& Target, const TRasterClip& Clip) : FTarget(Target), FClip(Clip) {
  FClip.Box = Intersection(Clip.Box, {0, 0, Target.Width, Target.Height});
}

void TZyRaster::Paint(TRasterCells& Cells, bool Winding, int Opacity, const TRasterPaint& Paint) {
  TBlender Blender(FTarget, FClip, static_cast<std::uint8_t>(Opacity), Paint);
  Cells.Sweep(Winding, Blender);
}

void TZyRaster::ReleaseMemory() { Scratch() = {}; }

void TZyRaster::StrokeLines(std::span<const PointF> Points, const TRasterStroke& Stroke, const TRasterPaint& Paint) {
  constexpr double WidestLine = 1e6;
  if (Points.empty() || FClip.Box.IsEmpty() || !std::isfinite(Stroke.Width) || !(Stroke.Width > 0)) return;
  double Width = std::min<double>(Stroke.Width, WidestLine);
  double Opacity = 1;
  if (Width < 1 && !Stroke.ExactWidth) {
    Opacity = Width;
    Width = 1;
  }
  TBounds Bounds;
  if (!Bounds.Add(Points)) return;
  TScratch& Kept = Scratch();
  double Share = 1;
  const TPattern Pattern = PreparePattern(Stroke, Width, Kept.Dashes, Share);
  const int Alpha = static_cast<int>(std::lround(Opacity * Share * 255));
  if (Pattern == TPattern::Blank || Alpha == 0) return;

  TRasterStroker Stroker(Kept.Cells, Stroke, Width);
  const TRasterRect Box = Bounds.Pixels(FClip.Box, Stroker.Reach());
  if (Box.IsEmpty()) return;
  Kept.Cells.Begin(Box, true);
  const TRasterGuard Guard(Box, Stroker.Reach() + 1);
  if (Pattern == TPattern::Dashed)
    Kept.Dasher.Run(Stroker, Guard, Points, Stroke, Kept.Dashes);
  else if (!Stroke.Closed && Stroke.Join != TRasterJoin::Round && FillsColumns(Points, Stroke.Width))
    Kept.Comb.Run(Kept.Cells, Stroker, Guard, Points, Stroke, Width, InkOf(FTarget, FClip, Box, Paint, Alpha));
  else
    StrokeSolid(Stroker, Guard, Points, Stroke);
  this->Paint(Kept.Cells, true, Alpha, Paint);
}

void TZyRaster::ThinLine(std::span<const PointF> Points, float Width, TRasterCap Cap, std::uint32_t Color,
                         TRasterThinQueue* Queue) {
  if (FClip.Box.IsEmpty() || !(Width > 0)) return;
  const auto Alpha = static_cast<std::uint32_t>(std::lround(static_cast<float>(Color >> 24) * std::min(Width, 1.0f)));
  std::uint32_t Ink = 0;
  TSolidPaint((Color & 0x00FFFFFF) | Alpha << 24).IsSolid(Ink);
  if (Queue != nullptr)
    Queue->Add(FTarget, FClip.Box, Ink, Points, Cap);
  else
    TRasterThin(FTarget, FClip.Box, Ink).Line(Points, Cap, Cap);
}

namespace {

/// The pixels of a row or a column that a span touches, and how much of the first and the last one it covers.
struct TTouched {
  TTouched(double From, double To)
      : First(static_cast<int>(From)),
        Last(static_cast<int>(std::ceil(To)) - 1),
        FirstPart(std::min<double>(To, First + 1) - From),
        LastPart(First == Last ? FirstPart : To - Last) {}
  double PartOf(int Pixel) const { return Pixel == First ? FirstPart : Pixel == Last ? LastPart : 1; }

  int First, Last;
  double FirstPart, LastPart;
};

void FillUneven(const TRasterTarget& Target, const TRasterClip& Clip, const TTouched& Columns, const TTouched& Rows,
                const TRasterPaint& Paint) {
  std::vector<std::uint8_t>& Coverage = Scratch().Coverage;
  TBlender Blender(Target, Clip, 255, Paint);
  for (int Row = Rows.First; Row <= Rows.Last; ++Row) {
    const double Height = Rows.PartOf(Row);
    Coverage.assign(static_cast<std::size_t>(Columns.Last - Columns.First) + 1, CoverageOfPart(Height));
    Coverage.back() = CoverageOfPart(Height * Columns.LastPart);
    Coverage.front() = CoverageOfPart(Height * Columns.FirstPart);
    Blender.Rows(Columns.First, Row, static_cast<int>(Coverage.size()), Coverage.data(), 1);
  }
}

}  // namespace

void TZyRaster::FillBox(double Left, double Top, double Right, double Bottom, const TRasterPaint& Paint) {
  Left = std::max<double>(Left, FClip.Box.Left);
  Top = std::max<double>(Top, FClip.Box.Top);
  Right = std::min<double>(Right, FClip.Box.Right);
  Bottom = std::min<double>(Bottom, FClip.Box.Bottom);
  if (!(Left < Right) || !(Top < Bottom)) return;
  const TTouched Columns(Left, Right), Rows(Top, Bottom);
  std::uint32_t Ink = 0;
  const bool IsSolid = Paint.IsSolid(Ink);
  if (!IsSolid && !Paint.IsLevel()) return FillUneven(FTarget, {FClip.Box, nullptr, 0}, Columns, Rows, Paint);
  const int FullFrom = Columns.First + (Columns.FirstPart < 1 ? 1 : 0);
  const int FullTo = Columns.Last + (Columns.LastPart < 1 ? 0 : 1);
  const auto FillRow = [&](int Row, std::uint32_t Color) {
    std::uint32_t* const Pixels = FTarget.Pixels + Row * FTarget.Stride;
    const double Height = Rows.PartOf(Row);
    const auto Blend = [&](int From, int To, double Part) {
      if (From < To) BlendEven(Pixels + From, CoverageOfPart(Part * Height), To - From, Color);
    };
    if (Columns.FirstPart < 1) Blend(Columns.First, Columns.First + 1, Columns.FirstPart);
    Blend(FullFrom, FullTo, 1);
    if (Columns.LastPart < 1 && Columns.Last > Columns.First) Blend(Columns.Last, Columns.Last + 1, Columns.LastPart);
  };
  if (!IsSolid) {
    for (int Row = Rows.First; Row <= Rows.Last; ++Row) {
      Paint.Fetch(Columns.First, Row, 1, &Ink);
      FillRow(Row, Ink);
    }
    return;
  }
  // The ground of a large picture is spread over the processors.
  constexpr std::int64_t PixelsOfPiece = 1 << 20;
  const int Height = Rows.Last + 1 - Rows.First;
  const std::int64_t Area = std::int64_t{Height} * std::max(FullTo - FullFrom, 1);
  const int Pieces = static_cast<int>(std::clamp<std::int64_t>(Area / PixelsOfPiece, 1, TCrew::Processors()));
  const auto FillPiece = [&](int Piece) {
    const auto Edge = [&](int i) { return Rows.First + static_cast<int>(std::int64_t{Height} * i / Pieces); };
    for (int Row = Edge(Piece); Row < Edge(Piece + 1); ++Row) FillRow(Row, Ink);
  };
  Pieces == 1 ? FillPiece(0) : InParallel(Pieces, FillPiece);
}

void TZyRaster::FillPolygon(std::span<const PointF> Points, bool Winding, const TRasterPaint& Paint, bool Smooth) {
  FillPolygons({&Points, 1}, Winding, Paint, Smooth);
}

void TZyRaster::FillPolygons(std::span<const std::span<const PointF>> Polygons, bool Winding, const TRasterPaint& Paint,
                             bool Smooth) {
  TBounds Bounds;
  for (const std::span<const PointF> Points : Polygons)
    if (!Bounds.Add(Points)) return;
  if (FClip.Box.IsEmpty() || !(Bounds.Left <= Bounds.Right)) return;
  const TRasterRect Box = Bounds.Pixels(FClip.Box, 0);
  if (Box.IsEmpty()) return;
  TRasterCells& Cells = Scratch().Cells;
  Cells.Begin(Box, Smooth);
  for (const std::span<const PointF> Points : Polygons) AddOutline(Cells, Points, {0, 0});
  this->Paint(Cells, Winding, 255, Paint);
}

void TZyRaster::FillTrail(std::span<const std::span<const PointF>> Polygons, PointF Step, int Count,
                          std::uint32_t Color) {
  TBounds Bounds;
  for (const std::span<const PointF> Points : Polygons)
    if (!Bounds.Add(Points)) return;
  if (FClip.Box.IsEmpty() || !(Bounds.Left <= Bounds.Right) || Count <= 0) return;
  const auto Last = static_cast<float>(Count);
  const PointF Ends[] = {{Bounds.Left + Last * Step.X, Bounds.Top + Last * Step.Y},
                         {Bounds.Right + Last * Step.X, Bounds.Bottom + Last * Step.Y}};
  if (!Bounds.Add(Ends)) return;
  const TRasterRect Box = Bounds.Pixels(FClip.Box, 0);
  if (Box.IsEmpty()) return;
  TRasterCells& Cells = Scratch().Cells;
  Cells.Begin(Box, true);
  for (int Layer = 1; Layer <= Count; ++Layer) {
    const auto Way = static_cast<float>(Layer);
    for (const std::span<const PointF> Points : Polygons) AddOutline(Cells, Points, {Way * Step.X, Way * Step.Y});
  }
  TLayerBlender Blender(FTarget, FClip, Count, Color);
  Cells.SweepLayers(Count, Blender);
}

// Measured by raster_benchmark: the toolkit has a fast way for lines of up to one pixel, at 15 ns per pixel of length
// however often they cross, and needs more time for any wider line. The rasteriser pays about 40 ns per pixel of a line
// that lies alone, and less than 15 where lines lie so densely that they share the pixels that are swept.
bool RasterPays(std::size_t Segments, float Width, float Length) {
  constexpr float DenseLength = 250'000;
  return Segments > 0 && (Width > 1 || Length > DenseLength);
}

}  // namespace zy
