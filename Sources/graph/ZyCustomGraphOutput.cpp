// The ways out of a chart: into pictures, files, the clipboard and printers, without a screen.

#include <string_view>
#include <system_error>
#include <utility>

#include "graph/ZyChartPicture.h"
#include "graph/ZyCustomGraph.h"
#include "platform/controls/TClipboard.h"
#include "platform/controls/TPrinter.h"
#include "platform/drawing/Graphics.h"
#include "platform/drawing/TBitmap.h"
#include "platform/drawing/TMetafile.h"
#include "platform/framework/TStream.h"
#include "platform/framework/WholeFile.h"

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

void TZyCustomGraph::PrintTo(TPrinter* APrinter, const TRect& Rect) {
  if (APrinter == nullptr) return;
  Graphics& Page = APrinter->Handle();
  if (Rect.Width() <= 0 || Rect.Height() <= 0) return;
  const std::unique_ptr<TZyChartPicture> Picture = LaidOutPicture();
  if (Picture == nullptr) return;
  const Metafile Recording = Picture->Recorded();
  Page.DrawImage(Recording, PlaceOnPage(Rect, Recording.GetWidth() / Recording.GetHeight()));
}

void TZyCustomGraph::SaveImage(TStream& Stream, TZyImageFileFormat Format, bool RemoveTransparency,
                               TColor TransparentExchangeColor) {
  const std::string_view Encoder = EncoderOf(Format);
  const std::unique_ptr<TZyChartPicture> Picture = LaidOutPicture();
  if (Picture == nullptr || Encoder.empty()) return;
  if (IsDrawing(Format))
    Picture->Recorded().Save(Stream, Encoder);
  else
    Picture->Painted(RemoveTransparency, TransparentExchangeColor).Save(Stream, Encoder);
}

void TZyCustomGraph::CopyToClipboard() {
  if (const std::unique_ptr<TZyChartPicture> Picture = LaidOutPicture())
    Clipboard().SetPicture(Picture->Recorded(), Picture->Painted(false, 0));
}

/// Null when there is nothing to be seen.
std::unique_ptr<TZyChartPicture> TZyCustomGraph::LaidOutPicture() {
  std::unique_ptr<TZyChartPicture> Picture = MakePicture();
  if (Picture == nullptr) return nullptr;
  Picture->LayOut();
  return Picture->IsEmpty() ? nullptr : std::move(Picture);
}

void TZyCustomGraph::SaveImage(const std::filesystem::path& FileName, TZyImageFileFormat Format,
                               bool RemoveTransparency, TColor TransparentExchangeColor) {
  TMemoryStream Content;
  SaveImage(Content, Format, RemoveTransparency, TransparentExchangeColor);
  std::error_code Ignored;
  if (Content.Size() > 0 || !std::filesystem::exists(FileName, Ignored)) SaveWholeFile(FileName, Content.Bytes());
}

std::unique_ptr<TBitmap> TZyCustomGraph::AsTBitmap(TColor TransparentExchangeColor) {
  TMemoryStream Content;
  SaveImage(Content, TZyImageFileFormat::BMP, true, TransparentExchangeColor);
  Content.SetPosition(0);
  auto Result = std::make_unique<TBitmap>();
  Result->LoadFromStream(Content);
  Result->SetTransparent(true);
  Result->SetTransparentColor(TransparentExchangeColor);
  return Result;
}

std::unique_ptr<TMetafile> TZyCustomGraph::AsTMetafile() {
  constexpr TColor White = 0xFFFFFF;
  TMemoryStream Content;
  SaveImage(Content, TZyImageFileFormat::EMF, false, White);
  Content.SetPosition(0);
  auto Result = std::make_unique<TMetafile>();
  Result->LoadFromStream(Content);
  return Result;
}

}  // namespace zy
