// The ways out of a chart: into pictures, files, the clipboard and printers, without a screen.

#include <QImage>
#include <QPainter>
#include <algorithm>
#include <cmath>
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
#include "platform/framework/ScopedFlag.h"
#include "platform/framework/TStream.h"
#include "platform/framework/WholeFile.h"
#include "texts/Exceptions.h"
#include "texts/NumberText.h"
#include "texts/ZyLocalize.h"

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

void SaveContent(TMemoryStream& Content, const std::filesystem::path& FileName) {
  std::error_code Ignored;
  if (Content.Size() > 0 || !std::filesystem::exists(FileName, Ignored)) SaveWholeFile(FileName, Content.Bytes());
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

/// Gives the charts of a picture another extent until the end of the block. Their widgets and parents do not hear of
/// it.
class TZyCustomGraph::TResized {
 public:
  /// An exception of a layout brings the extent back as well.
  TResized(TZyCustomGraph& Chart, TZyChartPicture& Picture, const TZyPictureSize& Size) : TResized() {
    Picture.LayOut();
    if (!(Size.Width > 0) && !(Size.Height > 0)) return;
    const int Width = Size.Width > 0 ? Extent(Size.Width) : Picture.Width();
    const int Height = Size.Height > 0 ? Extent(Size.Height) : Picture.Height();
    for (TZyCustomGraph* Each : Chart.ChartsOfPicture())
      FCharts.push_back({Each->LiveHandle(), Each->BoundsRect(), Each});
    // Scroll bars, which the picture leaves out, may come and go with the extent.
    constexpr int Attempts = 3;
    for (int i = 0; i < Attempts && (Picture.Width() != Width || Picture.Height() != Height); ++i) {
      Grow(Width - Picture.Width(), Height - Picture.Height());
      Picture.LayOut();
    }
  }
  ~TResized() {
    for (const TChart& Each : FCharts)
      if (FromLiveHandle(Each.Handle) != nullptr) Resize(*Each.Chart, Each.Bounds.Width(), Each.Bounds.Height());
  }
  TResized(const TResized&) = delete;
  TResized& operator=(const TResized&) = delete;

 private:
  struct TChart {
    std::uint64_t Handle;
    TRect Bounds;
    TZyCustomGraph* Chart;
  };

  TResized() = default;
  static int Extent(double Pixels) {
    return static_cast<int>(std::min(std::ceil(Pixels - 1e-6), static_cast<double>(TControl::MostExtent)));
  }
  static void Resize(TZyCustomGraph& Chart, int Width, int Height) {
    const TScopedValue Sized(Chart.FHasPictureSize, true);
    Chart.BoundsChanged();
    Chart.TCustomPanel::SetBounds(Chart.Left(), Chart.Top(), Width, Height);
  }
  /// Each chart takes its share of the height, the last one what is left.
  void Grow(int Across, int Down) {
    int Total = 0, Left = Down;
    for (const TChart& Each : FCharts) Total += std::max(Each.Bounds.Height(), 1);
    for (const TChart& Each : FCharts) {
      if (FromLiveHandle(Each.Handle) == nullptr) continue;
      const bool IsLast = &Each == &FCharts.back();
      const int Share = IsLast ? Left : static_cast<int>(std::int64_t{Down} * Each.Bounds.Height() / Total);
      Left -= Share;
      Resize(*Each.Chart, Each.Chart->Width() + Across, std::max(Each.Chart->Height() + Share, 1));
    }
  }

  std::vector<TChart> FCharts;
};

namespace {

/// Throws ERangeError for what no picture and no page can have, before anything is laid out for it.
void TestSize(const TZyPictureSize& Size, bool IsDrawing) {
  constexpr double Most = 32767;
  const double Ratio = IsDrawing ? 1 : Size.Dpi / 96;
  for (const double Extent : {Size.Width, Size.Height}) {
    const double Stored = Extent * Ratio;
    if (!std::isfinite(Stored) || !(Ratio > 0) || (Extent > 0 && (Extent < 1 || Stored < 1)) || Stored > Most)
      throw ERangeError(Format(LoadResString(_sPictureSize), {FloatToStr(Stored)}));
  }
}

}  // namespace

void TZyCustomGraph::Encode(TZyChartPicture& Picture, TStream& Stream, TZyImageFileFormat Format,
                            const TZyPictureSize& Size, bool RemoveTransparency, TColor Ground) {
  const double Width = Size.Width > 0 ? Size.Width : Picture.Width();
  const double Height = Size.Height > 0 ? Size.Height : Picture.Height();
  if (IsDrawing(Format)) {
    Picture.Recorded(static_cast<float>(Width), static_cast<float>(Height)).Save(Stream, EncoderOf(Format));
    return;
  }
  constexpr double InchesPerMeter = 1000 / 25.4;
  const double Ratio = Size.Dpi / 96;
  Bitmap Result = Picture.Painted(RemoveTransparency, Ground, static_cast<float>(Ratio));
  // A part of a pixel of the screen may be many stored ones.
  const QSize Stored(static_cast<int>(std::lround(Width * Ratio)), static_cast<int>(std::lround(Height * Ratio)));
  if (Result.ToQt().size() != Stored) Result.ToQt() = Result.ToQt().copy(QRect(QPoint(), Stored));
  for (const auto Set : {&QImage::setDotsPerMeterX, &QImage::setDotsPerMeterY})
    (Result.ToQt().*Set)(static_cast<int>(std::lround(Size.Dpi * InchesPerMeter)));
  Result.Save(Stream, EncoderOf(Format));
}

void TZyCustomGraph::SaveImage(TStream& Stream, TZyImageFileFormat Format, const TZyPictureSize& Size,
                               bool RemoveTransparency, TColor TransparentExchangeColor) {
  const std::unique_ptr<TZyChartPicture> Picture = MakePicture();
  if (Picture == nullptr || EncoderOf(Format).empty()) return;
  TestSize(Size, IsDrawing(Format));
  const TResized Resized(*this, *Picture, Size);
  if (!Picture->IsEmpty()) Encode(*Picture, Stream, Format, Size, RemoveTransparency, TransparentExchangeColor);
}

void TZyCustomGraph::SaveImage(const std::filesystem::path& FileName, TZyImageFileFormat Format,
                               const TZyPictureSize& Size, bool RemoveTransparency, TColor TransparentExchangeColor) {
  TMemoryStream Content;
  SaveImage(Content, Format, Size, RemoveTransparency, TransparentExchangeColor);
  SaveContent(Content, FileName);
}

void TZyCustomGraph::PaintOn(QPainter& Painter, const RectF& Box, const TZyPictureSize& Size) {
  const std::unique_ptr<TZyChartPicture> Picture = MakePicture();
  if (Picture == nullptr || !(Box.Width > 0 && Box.Height > 0)) return;
  const TResized Resized(*this, *Picture, Size);
  if (Picture->IsEmpty()) return;
  const Metafile Recording = Picture->Recorded();
  const float Scale = std::min(Box.Width / Recording.GetWidth(), Box.Height / Recording.GetHeight());
  const float Width = Recording.GetWidth() * Scale;
  Graphics Gr(Painter);
  Gr.DrawImage(Recording, {Box.X + (Box.Width - Width) / 2, Box.Y, Width, Recording.GetHeight() * Scale});
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
  SaveContent(Content, FileName);
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
