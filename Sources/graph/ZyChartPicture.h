#pragma once

#include "platform/drawing/Bitmap.h"
#include "platform/drawing/Geometry.h"
#include "platform/drawing/Metafile.h"
#include "platform/framework/Argb.h"

namespace zy {

class Graphics;

/// A chart as what goes into files, on the clipboard and on paper.
class TZyChartPicture {
 public:
  virtual ~TZyChartPicture() = default;

  /// Lays out as for the screen, so that the output leaves nothing behind that the next paint of the screen would have
  /// to undo.
  virtual void LayOut() = 0;
  /// Pixels of the control at the left that the picture leaves out.
  virtual int Left() const { return 0; }
  virtual int Width() const = 0;
  virtual int Height() const = 0;
  /// Lays out and paints it, moved by X and Y. AsMetafile keeps the fractions of places.
  virtual void Paint(Graphics& Gr, float X, float Y, bool AsMetafile) = 0;

  bool IsEmpty() const { return Width() <= 0 || Height() <= 0; }
  /// The picture as a drawing; it must not be empty. On a page of its own size, or of another one, which cuts it.
  Metafile Recorded() { return Recorded(static_cast<float>(Width()), static_cast<float>(Height())); }
  Metafile Recorded(float PageWidth, float PageHeight);
  /// The picture as a screen of that pixel ratio would show it; it must not be empty. Without transparency on a ground
  /// of that colour.
  Bitmap Painted(bool RemoveTransparency, TColor Ground, float PixelRatio = 1);
};

/// Where on a page, in the units of a printer's Graphics, a picture of these proportions, its width by its height, is
/// printed in a rectangle in printer pixels: as large as fits, in the middle across, at the top down.
RectF PlaceOnPage(const TRect& Rect, float Ratio);

}  // namespace zy
