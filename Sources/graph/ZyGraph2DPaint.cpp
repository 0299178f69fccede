// The paint of a chart on the screen, and what comes before every drawing of it.

#include "graph/ZyGraph2D.h"
#include "graph/ZyGraphPainter.h"
#include "platform/drawing/Graphics.h"
#include "platform/framework/ScopedFlag.h"
#include "platform/framework/WideRegisters.h"
#include "series/ZySeries.h"

namespace zy {

void TZyGraph2D::Paint(Graphics& Gr) {
  const TRect Clip = PaintBox();
  if (FLastClip.Right == 0) FLastClip = Clip;
  const bool Grows = Clip.Left < FLastClip.Left || Clip.Bottom > FLastClip.Bottom;
  const bool Moves = Clip.Left != FLastClip.Left || Clip.Right != FLastClip.Right;
  // A line in whole pixels, and the pattern of an area, may not fit what stands beside the part that is painted.
  bool DoRepaint = false;
  if (!IsDesigning() && (Grows || Moves))
    for (TZySeries* Series : FRelatedSeries)
      DoRepaint = DoRepaint || (Series->Visible() && ((Grows && Series->CanDoCanvasDraw()) ||
                                                      (Moves && Series->Area().Visible() && !Series->Area().Solid())));
  FLastClip = Clip;
  {
    const TScopedValue OnScreen(FPaintsScreen, true);
    PaintGr(Gr);
  }
  TZyCustomGraph::Paint(Gr);
  if (DoRepaint) Invalidate();
}

/// What comes before any drawing: the axes, new data, the layout. Whether there is something to draw.
bool TZyGraph2D::PreparePaint() {
  if (FOnce) {
    TestPrimaryAxis();
    SetBounds(Left(), Top(), Width(), Height());
    FOnce = false;
  }
  BringUpToDate();
  return HasPrimaryAxes();  // handlers may have freed one
}

void TZyGraph2D::PaintGr(Graphics& Gr) {
  if (!PreparePaint()) return;
  ClearWideRegisters();
  TZyGraphPainter(*this, Gr).Paint();
  ShowScrollBars();
}

bool TZyGraph2D::ShowsWalls() const {
  return FDataAreaColor != BackColor() || FMajorGridHorizontal->Visible() || FMinorGridHorizontal->Visible() ||
         FMajorGridVertical->Visible() || FMinorGridVertical->Visible();
}

}  // namespace zy
