#include "platform/drawing/ClipMask.h"

#include <algorithm>

#include "platform/drawing/QtGeometry.h"
#include "platform/drawing/ZyRasterBlend.h"
#include "platform/drawing/ZyRasterCells.h"

namespace zy {
namespace {

/// Takes coverage out of a mask: what is covered, or what is not.
class TMaskSink : public TCoverageSink {
 public:
  TMaskSink(std::uint8_t* Bytes, int Stride) : FBytes(Bytes), FStride(Stride) {}
  void Rows(int X, int Y, int Count, std::uint8_t* Coverage, int Rows) override {
    for (int Index = 0; Index < Count; ++Index) Coverage[Index] = static_cast<std::uint8_t>(255 - Coverage[Index]);
    for (int Row = Y; Row < Y + Rows; ++Row)
      ScaleBytes(FBytes + static_cast<std::ptrdiff_t>(Row) * FStride + X, Coverage, Count);
  }

 private:
  std::uint8_t* FBytes;
  int FStride;
};

TRasterCells& Cells() {
  thread_local TRasterCells Shared;
  return Shared;
}

}  // namespace

void TClipMask::ReleaseMemory() { Cells() = {}; }

std::vector<std::vector<PointF>> OutlineOf(const Region::TPart& Part, const QTransform& ToDevice) {
  const QTransform Place = AsQt(Part.Transform);
  if (!Part.IsRect) return Part.Path->Flatten(FromQt(Place * QTransform::fromTranslate(0.5, 0.5) * ToDevice));
  std::vector<PointF> Corners;
  for (const QPointF& Corner : (Place * ToDevice).map(QPolygonF(AsQt(Part.Rect)))) Corners.push_back(FromQt(Corner));
  return {std::move(Corners)};
}

void TClipMask::Update(const Region& Clip, const QTransform& ToDevice, int Width, int Height) {
  std::size_t First = FClip.PartCount();
  const bool GoesOn = First > 0 && FWidth == Width && FHeight == Height && FClip.IsStartOf(Clip);
  if (!GoesOn) {
    First = 0;
    FWidth = Width;
    FHeight = Height;
    FBytes.assign(static_cast<std::size_t>(Width) * static_cast<std::size_t>(Height), 255);
  }
  for (const Region::TPart& Part : Clip.Parts().subspan(First)) Apply(Part, ToDevice);
  FClip = Clip;
}

void TClipMask::Apply(const Region::TPart& Part, const QTransform& ToDevice) {
  if (Part.Nested != nullptr) {
    TClipMask Inner;
    Inner.Update(Part.Nested->Transformed(Part.Transform), ToDevice, FWidth, FHeight);
    for (std::size_t Index = 0; Index < FBytes.size(); ++Index)
      FBytes[Index] = ScaledByte(FBytes[Index], static_cast<std::uint8_t>(255 - Inner.FBytes[Index]));
    return;
  }
  Multiply(OutlineOf(Part, ToDevice), !Part.IsRect && Part.Path->GetFillMode() == FillModeWinding, Part.IsExcluded);
}

/// What remains of a shape is what is left when all around it is cut out: the target's own edge, wound the other way,
/// turns the shape inside out for the alternate rule. The winding rule has no such way and goes through a second mask.
void TClipMask::Multiply(std::span<const std::vector<PointF>> Figures, bool Winding, bool IsExcluded) {
  const TRasterRect Whole{0, 0, FWidth, FHeight};
  if (Whole.IsEmpty()) return;
  if (!IsExcluded && Winding) {
    std::vector<std::uint8_t> Before(FBytes.size(), 255);
    std::swap(Before, FBytes);
    Multiply(Figures, true, true);
    for (std::size_t Index = 0; Index < FBytes.size(); ++Index)
      FBytes[Index] = ScaledByte(Before[Index], static_cast<std::uint8_t>(255 - FBytes[Index]));
    return;
  }
  TRasterRect Box = Whole;
  if (IsExcluded) {
    double Left = FWidth, Top = FHeight, Right = 0, Bottom = 0;
    for (const auto& Figure : Figures)
      for (const PointF& Point : Figure) {
        Left = std::min<double>(Left, Point.X);
        Right = std::max<double>(Right, Point.X);
        Top = std::min<double>(Top, Point.Y);
        Bottom = std::max<double>(Bottom, Point.Y);
      }
    const auto Clamped = [](double Value, int Limit) { return static_cast<int>(std::clamp<double>(Value, 0, Limit)); };
    Box = {Clamped(Left, FWidth), Clamped(Top, FHeight), Clamped(Right + 1, FWidth), Clamped(Bottom + 1, FHeight)};
    if (Box.IsEmpty()) return;
  }
  Cells().Begin(Box, true);
  const auto AddFigure = [](std::span<const PointF> Figure) {
    if (!AreFinite(Figure)) return;  // carried beyond all numbers by the transform
    for (std::size_t Index = 0; Index < Figure.size(); ++Index) {
      const PointF& From = Figure[Index];
      const PointF& To = Figure[(Index + 1) % Figure.size()];
      Cells().AddEdge(From.X, From.Y, To.X, To.Y);
    }
  };
  for (const auto& Figure : Figures) AddFigure(Figure);
  if (!IsExcluded) {
    const auto Width = static_cast<float>(FWidth), Height = static_cast<float>(FHeight);
    const PointF Edge[] = {{0, 0}, {Width, 0}, {Width, Height}, {0, Height}};
    AddFigure(Edge);
  }
  TMaskSink Sink(FBytes.data(), FWidth);
  Cells().Sweep(Winding, Sink);
}

}  // namespace zy
