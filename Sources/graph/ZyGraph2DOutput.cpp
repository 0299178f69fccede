// The ways out of a chart: into pictures, files, the clipboard and printers, without a screen.

#include <algorithm>
#include <string_view>
#include <utility>

#include "annotations/ZyRichLabel.h"
#include "graph/ZyGraph2D.h"
#include "platform/controls/TClipboard.h"
#include "platform/controls/TPrinter.h"
#include "platform/drawing/Bitmap.h"
#include "platform/drawing/Graphics.h"
#include "platform/drawing/Metafile.h"

namespace zy {
namespace {

constexpr ARGB TransparentWhite = 0x00FFFFFF;

/// A flag that is up until its end, however that comes.
class TRaisedFlag {
 public:
  explicit TRaisedFlag(bool& Flag, bool Value = true) : FFlag(Flag) { FFlag = Value; }
  ~TRaisedFlag() { FFlag = false; }
  TRaisedFlag(const TRaisedFlag&) = delete;
  TRaisedFlag& operator=(const TRaisedFlag&) = delete;

 private:
  bool& FFlag;
};

/// What encoders call the format; empty when none encodes it.
std::string_view EncoderOf(TZyImageFileFormat Format) {
  if (Format == TZyImageFileFormat::EXIF || Format == TZyImageFileFormat::Icon) return {};
  return EnumInfo(Format).Values[static_cast<std::size_t>(Format)];
}

bool IsDrawing(TZyImageFileFormat Format) {
  return Format == TZyImageFileFormat::EMF || Format == TZyImageFileFormat::SVG || Format == TZyImageFileFormat::PDF;
}

}  // namespace

// --- The picture of all coupled graphs ------------------------------------------------------------------------------

/// The graphs from the top of the picture to its bottom.
std::vector<TZyGraph2D*> TZyGraph2D::StackedGraphs() {
  if (FNeedsRecalculate) CheckCoupled();
  TZyGraph2D* const Master = MasterGraph() != nullptr ? MasterGraph() : this;
  if (Master->FNeedsRecalculate) Master->CheckCoupled();
  std::vector<TZyGraph2D*> Result(Master->FChildGraphs.rbegin(), Master->FChildGraphs.rend());
  Result.push_back(Master);
  return Result;
}

int TZyGraph2D::HeightInImage() const {
  const TScrollBar* const Bar = HorizontalScrollBar();
  const bool HasBar = Bar != nullptr && Bar->Visible() && (FIsCoupledGraph || Visible());
  return ClientHeight() - (HasBar ? Bar->Height() : 0);
}

int TZyGraph2D::ImgageGraphHeight() {
  int Result = 0;
  for (const TZyGraph2D* Graph : StackedGraphs()) Result += Graph->HeightInImage();
  return Result;
}

int TZyGraph2D::ImageGraphLeft() {
  const std::vector<TZyGraph2D*> Graphs = StackedGraphs();
  int Result = 0;
  for (const TZyGraph2D* Graph : Graphs) {
    const TScrollBar* const Bar = Graph->VerticalScrollbar();
    if (Bar != nullptr && Bar->Visible() && (Graph->FIsCoupledGraph || Graph->Visible()))
      Result = std::max(Result, Bar->Width());
  }
  if (Result == 0 || Graphs.size() == 1) return Result;
  for (const TZyGraph2D* Graph : Graphs)  // no axis is cut off
    for (const TZyAxis* Axis : Graph->Axes())
      if (Axis->Position() == TZyAxisPosition::Left) Result = std::min(Result, Axis->Left());
  return Result;
}

/// Lays all graphs of the picture out as for the screen, so that the output leaves nothing behind that the next paint
/// of the screen would have to undo. Whether the picture has any extent.
bool TZyGraph2D::PrepareImage() {
  const bool AsMetafile = std::exchange(FDoingMetafile, false);
  PreparePaint();
  for (TZyGraph2D* Graph : StackedGraphs())
    if (Graph->PreparePaint()) Graph->ShowScrollBars();
  FDoingMetafile = AsMetafile;
  return Width() > ImageGraphLeft() && ImgageGraphHeight() > 0;
}

void TZyGraph2D::PaintToImage(Bitmap& Image, float X, float Y) {
  Graphics Gr(Image);
  PaintPicture(Gr, X, Y);
}

void TZyGraph2D::PaintToImage(Metafile& Image, float X, float Y) {
  Graphics Gr(Image);
  PaintPicture(Gr, X, Y);
}

void TZyGraph2D::PaintPicture(Graphics& Gr, float X, float Y) {
  const bool AsMetafile = FDoingMetafile;
  PrepareImage();
  if (X != 0 || Y != 0) Gr.TranslateTransform(X, Y);
  for (TZyGraph2D* Graph : StackedGraphs()) {
    Graph->PaintInto(Gr, AsMetafile);
    Gr.TranslateTransform(0, static_cast<float>(Graph->HeightInImage()));
  }
}

/// The graph and what its picture shows of the controls on it, kept within its place as a window would keep it.
void TZyGraph2D::PaintInto(Graphics& Gr, bool AsMetafile) {
  const TRaisedFlag Image(FDoingImage), Fractions(FDoingMetafile, AsMetafile);
  const Region Saved = Gr.GetClip();
  Gr.SetClip({0, 0, static_cast<float>(Width()), static_cast<float>(HeightInImage())}, CombineModeIntersect);
  PaintGr(Gr);
  const Matrix Transform = Gr.GetTransform();
  for (TControl* Control : Controls()) {
    if (!Control->Visible()) continue;
    Gr.TranslateTransform(static_cast<float>(Control->Left()), static_cast<float>(Control->Top()));
    if (auto* const Marker = dynamic_cast<IZyGraphMarker*>(Control)) Marker->PaintGr(Gr);
    if (auto* const Label = dynamic_cast<TZyRichLabel*>(Control)) Label->PaintGr(Gr);
    Gr.SetTransform(Transform);
  }
  Gr.SetClip(Saved);
}

// --- Out ------------------------------------------------------------------------------------------------------------

/// The picture as a drawing; it must have some extent.
Metafile TZyGraph2D::Recorded() {
  const int Cut = ImageGraphLeft();
  Metafile Result(static_cast<float>(Width() - Cut), static_cast<float>(ImgageGraphHeight()));
  const TRaisedFlag Fractions(FDoingMetafile);
  PaintToImage(Result, static_cast<float>(-Cut), 0);
  return Result;
}

/// The picture as the screen would show it; it must have some extent.
Bitmap TZyGraph2D::PaintedBitmap(bool RemoveTransparency, TColor Ground) {
  const int Cut = ImageGraphLeft();
  Bitmap Result(Width() - Cut, ImgageGraphHeight());
  Result.SetOpaque(RemoveTransparency);
  Graphics(Result).Clear(RemoveTransparency ? TColorToARGB(Ground) : TransparentWhite);
  PaintToImage(Result, static_cast<float>(-Cut), 0);
  return Result;
}

void TZyGraph2D::SaveImage(TStream& Stream, TZyImageFileFormat Format, bool RemoveTransparency,
                           TColor TransparentExchangeColor) {
  const std::string_view Encoder = EncoderOf(Format);
  if (!PrepareImage() || Encoder.empty()) return;
  if (IsDrawing(Format))
    Recorded().Save(Stream, Encoder);
  else
    PaintedBitmap(RemoveTransparency, TransparentExchangeColor).Save(Stream, Encoder);
}

void TZyGraph2D::CopyToClipboard() {
  if (PrepareImage()) Clipboard().SetPicture(Recorded(), PaintedBitmap(false, 0));
}

void TZyGraph2D::PrintTo(TPrinter* APrinter, const TRect& Rect) {
  if (APrinter == nullptr) return;
  Graphics& Page = APrinter->Handle();
  if (Rect.Width() <= 0 || Rect.Height() <= 0 || !PrepareImage()) return;
  const Metafile Picture = Recorded();
  constexpr float Unit = 1.0f / 6;  // of the page, in printer pixels
  const float Ratio = Picture.GetWidth() / Picture.GetHeight();
  const auto Width = static_cast<float>(Rect.Width()), Height = static_cast<float>(Rect.Height());
  RectF Place{static_cast<float>(Rect.Left) * Unit, static_cast<float>(Rect.Top) * Unit, Width * Unit, Height * Unit};
  if (Width / Height < Ratio) {
    Place.Height = Width / Ratio * Unit;
  } else {
    Place.Width = Height * Ratio * Unit;
    Place.X += (Width * Unit - Place.Width) * 0.5f;
  }
  Page.DrawImage(Picture, Place);
}

}  // namespace zy
