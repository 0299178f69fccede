#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "platform/drawing/Geometry.h"

namespace zy {

class TRasterCells;
class TRasterThinQueue;

/// Premultiplied ARGB32 pixels that somebody else owns. Stride is the distance of two rows in pixels.
struct TRasterTarget {
  std::uint32_t* Pixels = nullptr;
  std::ptrdiff_t Stride = 0;
  int Width = 0;
  int Height = 0;
};

/// Whole pixels, right and bottom exclusive.
struct TRasterRect {
  int Left = 0;
  int Top = 0;
  int Right = 0;
  int Bottom = 0;
  bool IsEmpty() const { return Left >= Right || Top >= Bottom; }
};

/// What two boxes share; empty when they do not meet.
TRasterRect Intersection(const TRasterRect& A, const TRasterRect& B);

/// Where drawing may happen: within Box, and there as far as Mask says (a byte for each pixel of the whole target, from
/// its top left one; 0 keeps the pixel, 255 draws it).
struct TRasterClip {
  TRasterRect Box;
  const std::uint8_t* Mask = nullptr;
  std::ptrdiff_t MaskStride = 0;
};

/// What shapes are filled with.
class TRasterPaint {
 public:
  virtual ~TRasterPaint();
  /// Says whether every pixel has the same colour, and which, premultiplied.
  virtual bool IsSolid(std::uint32_t& Premultiplied) const;
  /// Whether all rows are alike, or all pixels of each row.
  virtual bool IsUpright() const;
  virtual bool IsLevel() const;
  /// Writes the premultiplied colours of the pixels (X, Y) to (X + Count - 1, Y). It must not draw with a TZyRaster.
  virtual void Fetch(int X, int Y, int Count, std::uint32_t* Pixels) const = 0;
};

/// One colour for every pixel.
class TSolidPaint : public TRasterPaint {
 public:
  /// Color is 0xAARRGGBB, not premultiplied.
  explicit TSolidPaint(std::uint32_t Color);
  bool IsSolid(std::uint32_t& Premultiplied) const override;
  void Fetch(int X, int Y, int Count, std::uint32_t* Pixels) const override;

 private:
  std::uint32_t FPremultiplied;
};

/// Corners of lines. Miter cuts a corner that would exceed the limit straight through its two outer points (the
/// toolkit's SvgMiterJoin), MiterCut carries both sides on as far as the limit allows (its MiterJoin).
enum class TRasterJoin { Miter, MiterCut, Bevel, Round };
/// Ends of lines: at the point, half a width beyond it, or in a half circle about it.
enum class TRasterCap { Flat, Square, Round };

/// How a line is drawn.
struct TRasterStroke {
  /// Pixels. What is thinner than a pixel is drawn one pixel wide and paler by that much, unless ExactWidth is set.
  float Width = 1;
  bool ExactWidth = false;
  TRasterJoin Join = TRasterJoin::Miter;
  /// Miter: the longest corner, from its inner to its outer point, in units of Width (1 / sin of half the angle between
  /// the lines). MiterCut: how far an outer side may go on past its line's end, in units of Width. Both are the units
  /// of the toolkit's pens.
  float MiterLimit = 10;
  TRasterCap StartCap = TRasterCap::Flat;
  TRasterCap EndCap = TRasterCap::Flat;
  /// Ends of the dashes within the line.
  TRasterCap DashCap = TRasterCap::Flat;
  /// Pixels, dash and gap in turn; an odd count repeats with dash and gap exchanged. What is not a finite length of 0
  /// or more counts as 0; without any length the line is solid. Dashes far too fine to be seen become a paler solid
  /// line.
  std::span<const float> Dashes = {};
  /// Pixels of the pattern that lie before the line's start.
  float DashOffset = 0;
  /// Joins the last point with the first one.
  bool Closed = false;
};

/// Fills and strokes with exact area coverage on a raster target, by one thread.
///
/// The signed area that the edges cut off each pixel is summed up over the whole shape and the paint is blended once
/// per pixel, so the cost follows the pixels that edges touch and not the number of crossings, and a translucent line
/// is even where it meets itself. Opposite edges cancel exactly: sums are kept in integers.
///
/// Coordinates are device pixels with the CORNERS of pixels at integers. A shape with a coordinate that is not finite
/// is left out. Lines keep their visible part up to coordinates of 1e12; farther ones cost no more, but may be missing.
/// Scratch memory (four bytes for each pixel of the largest box that was drawn into) is kept per thread, so that
/// nothing is allocated once warm.
class TZyRaster {
 public:
  TZyRaster(const TRasterTarget& Target, const TRasterClip& Clip);

  /// The line through Points. Equal points draw a dot of the caps' shape, or nothing with flat ones.
  void StrokeLines(std::span<const PointF> Points, const TRasterStroke& Stroke, const TRasterPaint& Paint);
  /// The line through Points, one pixel wide or thinner, which is paler: segment after segment, as the toolkit draws
  /// thin lines, at a fifth of the cost. Color is 0xAARRGGBB. Corners are not joined, and where a translucent line
  /// meets itself it is darker. The clip's mask does not count. With a queue it is drawn when that is finished.
  void ThinLine(std::span<const PointF> Points, float Width, TRasterCap Cap, std::uint32_t Color,
                TRasterThinQueue* Queue = nullptr);
  /// The upright box between the edges. The clip's mask does not count.
  void FillBox(double Left, double Top, double Right, double Bottom, const TRasterPaint& Paint);
  /// The same in a colour 0xAARRGGBB that is not premultiplied.
  void FillBox(double Left, double Top, double Right, double Bottom, std::uint32_t Color) {
    FillBox(Left, Top, Right, Bottom, TSolidPaint(Color));
  }
  /// Edges of an upright box, in device pixels.
  struct TEdges {
    double Left, Top, Right, Bottom;
  };
  /// A line along the edges of an upright box, half its width to either side of them. Corners are sharp, or cut off
  /// from side to side. The clip's mask does not count.
  void FillFrame(TEdges Box, double Width, bool CutsCorners, std::uint32_t Color);
  /// Boxes of whole pixels. The clip's mask does not count.
  void FillBoxes(std::span<const TRasterRect> Boxes, std::uint32_t Color);
  /// The inside of the closed polygon: by the non-zero winding rule, or else the alternate one. Without Smooth, the
  /// pixels whose centres are inside are filled in full.
  void FillPolygon(std::span<const PointF> Points, bool Winding, const TRasterPaint& Paint, bool Smooth = true);
  /// Several polygons as one shape, so that one can be a hole in another.
  void FillPolygons(std::span<const std::span<const PointF>> Polygons, bool Winding, const TRasterPaint& Paint,
                    bool Smooth = true);
  /// Several polygons as one shape that does not overlap itself, filled Count times in a colour 0xAARRGGBB, each time
  /// moved on by Step: at the cost of one fill of all that is touched.
  void FillTrail(std::span<const std::span<const PointF>> Polygons, PointF Step, int Count, std::uint32_t Color);
  /// Gives back what the thread keeps from shape to shape, some bytes a pixel of the largest one. Not within a call.
  static void ReleaseMemory();

 private:
  void Paint(TRasterCells& Cells, bool Winding, int Opacity, const TRasterPaint& Paint);

  TRasterTarget FTarget;
  TRasterClip FClip;
};

/// Whether TZyRaster beats the toolkit's painter on a polyline of so many segments, drawn smoothly. Width and Length
/// (that of the whole line within the clip, a guess will do) in device pixels.
bool RasterPays(std::size_t Segments, float Width, float Length);
/// Whether a line of this width, in the units of its points, goes straight up or down so often that it fills columns of
/// pixels. TZyRaster draws such lines by their outlines; no other way comes near that.
bool FillsColumns(std::span<const PointF> Points, float Width);

}  // namespace zy
