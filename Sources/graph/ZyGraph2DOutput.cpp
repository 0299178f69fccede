// The picture of a chart, and this graph's part of it.

#include <utility>

#include "graph/ZyGraph2D.h"
#include "graph/ZyGraphPicture.h"
#include "platform/drawing/Bitmap.h"
#include "platform/drawing/ClipGuard.h"
#include "platform/drawing/Graphics.h"
#include "platform/drawing/Metafile.h"
#include "platform/framework/ScopedFlag.h"

namespace zy {

// --- This graph's part of the picture -------------------------------------------------------------------------------

int TZyGraph2D::HeightInImage() const {
  const TScrollBar* const Bar = HorizontalScrollBar();
  const bool HasBar = Bar != nullptr && Bar->Visible() && (IsCoupledGraph() || Visible());
  return ClientHeight() - (HasBar ? Bar->Height() : 0);
}

void TZyGraph2D::PrepareForScreen() {
  const TScopedValue OnScreen(FDoingMetafile, false);
  if (PreparePaint()) ShowScrollBars();
}

void TZyGraph2D::PaintInto(Graphics& Gr, bool AsMetafile) {
  const TScopedValue Image(FDoingImage, true), Fractions(FDoingMetafile, AsMetafile);
  const TClipGuard Clip(Gr);
  Gr.SetClip({0, 0, static_cast<float>(Width()), static_cast<float>(HeightInImage())}, CombineModeIntersect);
  PaintGr(Gr);
  const Matrix Transform = Gr.GetTransform();
  for (TControl* Control : Controls()) {
    auto* const Part = dynamic_cast<IZyPicturePart*>(Control);
    if (Part == nullptr || !Control->Visible()) continue;
    Gr.TranslateTransform(static_cast<float>(Control->Left()), static_cast<float>(Control->Top()));
    Part->PaintGr(Gr);
    Gr.SetTransform(Transform);
  }
}

// --- The whole picture ----------------------------------------------------------------------------------------------

int TZyGraph2D::ImgageGraphHeight() { return TZyGraphPicture(*this).Height(); }

int TZyGraph2D::ImageGraphLeft() { return TZyGraphPicture(*this).Left(); }

void TZyGraph2D::PaintToImage(Graphics& Gr, float X, float Y) {
  TZyGraphPicture(*this).Paint(Gr, X, Y, std::exchange(FDoingMetafile, false));
}

void TZyGraph2D::PaintToImage(Bitmap& Image, float X, float Y) {
  Graphics Gr(Image);
  PaintToImage(Gr, X, Y);
}

void TZyGraph2D::PaintToImage(Metafile& Image, float X, float Y) {
  Graphics Gr(Image);
  PaintToImage(Gr, X, Y);
}

std::unique_ptr<TZyChartPicture> TZyGraph2D::MakePicture() { return std::make_unique<TZyGraphPicture>(*this); }

std::vector<TZyCustomGraph*> TZyGraph2D::ChartsOfPicture() {
  const std::vector<TZyGraph2D*> Graphs = StackedGraphs();
  return {Graphs.begin(), Graphs.end()};
}

}  // namespace zy
