#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "platform/drawing/ZyRasterStroke.h"
#include "platform/drawing/ZyRasterThin.h"

namespace zy {

class TRasterCells;

/// Draws lines of dense data: on every column of pixels a bar straight up or down, and short ways from bar to bar.
///
/// Where neighbouring bars touch, only the outline of the bars together is left to draw, two steps for each bar however
/// long it is, and the way of the line from one to the other where it leaves what both cover. Of bars of an opaque
/// colour that cover whole columns of pixels, the insides and the ends go straight into the picture. All else goes to
/// the stroker, or is drawn like any thin line.
class TRasterComb {
 public:
  /// Where pixels that are covered in full may be written at once.
  struct TInk {
    TRasterTarget Target;
    TRasterRect Box;
    std::uint32_t Color = 0;  // opaque
  };

  void Run(TRasterCells& Cells, TRasterStroker& Stroker, const TRasterGuard& Guard, std::span<const PointF> Points,
           const TRasterStroke& Stroke, double Width, const std::optional<TInk>& Ink);

 private:
  struct TBar {
    std::size_t First;  // index of its first point; the second one follows
    double X, Top, Bottom;
  };

  bool Follows(const TBar& Last, const TBar& Next, double Step) const;
  void StrokeWay(const TBar& Last, const TBar& Next);
  void StrokePart(std::span<const PointF> Points, TRasterCap StartCap = TRasterCap::Flat,
                  TRasterCap EndCap = TRasterCap::Flat);
  void StrokeUpTo(std::size_t Last);
  void FillGroup();
  void OutlineGroup();
  bool FillsPixels() const;
  void FillPixels(std::span<const TBar> Bars);
  void FillRows(int Left, int Right, int Top, int Bottom);
  void BlendPart(int Left, int Right, int Row, double Part);

  TRasterCells* FCells = nullptr;
  TRasterStroker* FStroker = nullptr;
  const TRasterGuard* FGuard = nullptr;
  std::span<const PointF> FPoints;
  const TRasterStroke* FStroke = nullptr;
  double FWidth = 0;
  std::size_t FDrawn = 0;  // the line up to this point is done
  std::vector<TBar> FGroup;
  std::vector<PointF> FPart;  // of a way
  std::optional<TInk> FInk;
  std::optional<TRasterThin> FThin;  // draws what is not a bar, where it can
};

}  // namespace zy
