#pragma once

#include <cstdint>
#include <functional>
#include <list>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/drawing/ZyRaster.h"

namespace zy {

/// Draws many small symbols of one look by painting the look once and blitting it.
///
/// A symbol's place is rounded to quarters of a device pixel, so a look is painted at most 16 times; each such stamp is
/// made when a place first needs it. The looks used last are kept.
class TZySymbolStamps {
 public:
  /// Paints the symbol about Anchor into Stamp, whose pixels are transparent. Coordinates as in TZyRaster: corners of
  /// pixels at integers.
  using TPaintSymbol = std::function<void(const TRasterTarget& Stamp, PointF Anchor)>;

  /// The extent that looks are cut to, in device pixels.
  static constexpr float LargestExtent = 2048;

  /// Capacity is the number of looks that are kept, as far as they do not take more than 16 MiB.
  explicit TZySymbolStamps(std::size_t Capacity = 32);

  /// Draws a symbol at each of Places (device pixels), over what is there and in this order. Look names everything that
  /// decides the symbol's pixels (shape, size, colours, pixel ratio), in any bytes. Extent is the box around the
  /// anchor, in device pixels, that the symbol stays within, so its X and Y are as a rule negative; it belongs to the
  /// look and is cut to LargestExtent. Places that are not finite are left out.
  void Draw(const TRasterTarget& Target, const TRasterClip& Clip, std::string_view Look, const RectF& Extent,
            std::span<const PointF> Places, const TPaintSymbol& PaintSymbol);
  /// Draws a symbol whose stamp is there already; false when it has yet to be painted.
  bool DrawMade(const TRasterTarget& Target, const TRasterClip& Clip, std::string_view Look, PointF Place);
  /// Forgets all looks.
  void Clear();

 private:
  struct TStamp {
    TRasterRect Box;  // of what was painted, relative to the anchor's whole pixel
    int Stride = 0;
    std::vector<std::uint32_t> Pixels;
    bool Made = false;
  };
  struct TLook {
    std::string Key;
    TStamp Stamps[16];
  };
  /// A place in quarters of a pixel.
  struct TQuarters {
    explicit TQuarters(const PointF& Place);
    int X, Y;
    std::size_t Stamp() const { return static_cast<std::size_t>(Y & 3) * 4 + static_cast<std::size_t>(X & 3); }
  };

  void DropOldest();
  TLook* Find(std::string_view Key);
  TLook& LookOf(std::string_view Key);
  static bool MayShow(const TRasterRect& Box, const PointF& Place);
  void Make(TStamp& Stamp, const RectF& Extent, PointF Fraction, const TPaintSymbol& PaintSymbol);
  static void DrawInLanes(const TRasterTarget& Target, const TRasterClip& Clip, const TLook& Look,
                          std::span<const TQuarters> Places);
  static void Blit(const TRasterTarget& Target, const TRasterClip& Clip, const TStamp& Stamp, int X, int Y);

  std::size_t FCapacity;
  std::size_t FPixels = 0;  // of all stamps
  std::list<TLook> FLooks;  // the one used last comes first
  std::unordered_map<std::string_view, std::list<TLook>::iterator> FIndex;
};

}  // namespace zy
