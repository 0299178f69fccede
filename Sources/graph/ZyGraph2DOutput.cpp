// The ways out of a chart: into pictures, files, the clipboard and printers, without a screen.

#include <string_view>
#include <utility>

#include "graph/ZyGraph2D.h"
#include "graph/ZyGraphPicture.h"
#include "platform/controls/TClipboard.h"
#include "platform/controls/TPrinter.h"
#include "platform/drawing/Bitmap.h"
#include "platform/drawing/ClipGuard.h"
#include "platform/drawing/Graphics.h"
#include "platform/drawing/Metafile.h"
#include "platform/framework/ScopedFlag.h"

namespace zy {
namespace {

/// What encoders call the format; empty when none encodes it.
std::string_view EncoderOf(TZyImageFileFormat Format) {
  if (Format == TZyImageFileFormat::EXIF || Format == TZyImageFileFormat::Icon) return {};
  return EnumInfo(Format).Values[static_cast<std::size_t>(Format)];
}

bool IsDrawing(TZyImageFileFormat Format) {
  return Format == TZyImageFileFormat::EMF || Format == TZyImageFileFormat::SVG || Format == TZyImageFileFormat::PDF;
}

}  // namespace

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

void TZyGraph2D::SaveImage(TStream& Stream, TZyImageFileFormat Format, bool RemoveTransparency,
                           TColor TransparentExchangeColor) {
  const std::string_view Encoder = EncoderOf(Format);
  TZyGraphPicture Picture(*this);
  Picture.LayOut();
  if (Picture.IsEmpty() || Encoder.empty()) return;
  if (IsDrawing(Format))
    Picture.Recorded().Save(Stream, Encoder);
  else
    Picture.Painted(RemoveTransparency, TransparentExchangeColor).Save(Stream, Encoder);
}

void TZyGraph2D::CopyToClipboard() {
  TZyGraphPicture Picture(*this);
  Picture.LayOut();
  if (!Picture.IsEmpty()) Clipboard().SetPicture(Picture.Recorded(), Picture.Painted(false, 0));
}

void TZyGraph2D::PrintTo(TPrinter* APrinter, const TRect& Rect) {
  if (APrinter == nullptr) return;
  Graphics& Page = APrinter->Handle();
  if (Rect.Width() <= 0 || Rect.Height() <= 0) return;
  TZyGraphPicture Picture(*this);
  Picture.LayOut();
  if (Picture.IsEmpty()) return;
  const Metafile Recording = Picture.Recorded();
  Page.DrawImage(Recording, PlaceOnPage(Rect, Recording.GetWidth() / Recording.GetHeight()));
}

}  // namespace zy
