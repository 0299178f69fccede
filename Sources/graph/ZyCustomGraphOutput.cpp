// The ways out of a chart: what all kinds of charts have in common.

#include <system_error>

#include "graph/ZyCustomGraph.h"
#include "platform/drawing/TBitmap.h"
#include "platform/drawing/TMetafile.h"
#include "platform/framework/TStream.h"
#include "platform/framework/WholeFile.h"

namespace zy {

void TZyCustomGraph::PrintTo(TPrinter*, const TRect&) {}

void TZyCustomGraph::SaveImage(TStream&, TZyImageFileFormat, bool, TColor) {}

void TZyCustomGraph::CopyToClipboard() {}

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
