#pragma once

#include <vector>

#include "platform/drawing/Bitmap.h"
#include "platform/drawing/Metafile.h"

namespace zy {

class TZyGraph2D;

/// The picture of a graph and of all that are coupled to it, one below the other, the one with the X axis at the
/// bottom. Scroll bars are left out.
class TZyGraphPicture {
 public:
  explicit TZyGraphPicture(TZyGraph2D& Graph) : FGraph(Graph) { FindGraphs(); }

  /// Lays all graphs of the picture out as for the screen, so that the output leaves nothing behind that the next paint
  /// of the screen would have to undo.
  void LayOut();
  /// Pixels of the control at the left that the picture leaves out.
  int Left() const;
  int Width() const;
  int Height() const;
  bool IsEmpty() const { return Width() <= 0 || Height() <= 0; }
  /// Lays out and paints it, moved by X and Y. AsMetafile keeps the fractions of places.
  void Paint(Graphics& Gr, float X, float Y, bool AsMetafile);
  /// The picture as a drawing; it must not be empty.
  Metafile Recorded();
  /// The picture as the screen would show it; it must not be empty. Without transparency on a ground of that colour.
  Bitmap Painted(bool RemoveTransparency, TColor Ground);

 private:
  void FindGraphs();

  TZyGraph2D& FGraph;
  std::vector<TZyGraph2D*> FGraphs;  // from top to bottom
};

/// Where on a page, in the units of a printer's Graphics, a picture of these proportions, its width by its height, is
/// printed in a rectangle in printer pixels: as large as fits, in the middle across, at the top down.
RectF PlaceOnPage(const TRect& Rect, float Ratio);

}  // namespace zy
