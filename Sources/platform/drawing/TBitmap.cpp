#include "platform/drawing/TBitmap.h"

#include <QByteArray>
#include <QImage>
#include <algorithm>

#include "platform/drawing/Bitmap.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/Graphics.h"
#include "platform/framework/SystemColors.h"
#include "platform/framework/TPropInfo.h"
#include "platform/framework/TReader.h"
#include "platform/framework/TStream.h"
#include "platform/framework/TWriter.h"
#include "platform/framework/WholeFile.h"

namespace zy {

ZY_PUBLISHED(TBitmap, TPersistent)

namespace {

constexpr ARGB White = 0xFFFFFFFF, OpaqueBits = 0xFF000000;
constexpr TColor ColorBits = 0xFFFFFF;

/// Exchanges red and blue, which turns either kind of colour into the other.
constexpr std::uint32_t WithChannelsTurned(std::uint32_t Color) {
  return (Color & 0xFFu) << 16 | (Color & 0xFF00u) | (Color >> 16 & 0xFFu);
}

ARGB AsArgb(TColor Color) {
  const auto Bits = static_cast<std::uint32_t>(Color);
  if ((Bits & OpaqueBits) == static_cast<std::uint32_t>(SystemColorFlag)) return SystemColor(Color & ColorBits);
  return OpaqueBits | WithChannelsTurned(Bits);
}

Bitmap OnWhite(const Bitmap& Picture) {
  Bitmap Result(Picture.GetWidth(), Picture.GetHeight());
  Graphics Canvas(Result);
  Canvas.Clear(White);
  Canvas.DrawImage(Picture, 0, 0);
  return Result;
}

Bitmap WithoutColor(const Bitmap& Picture, ARGB Color) {
  Bitmap Result = Picture.Clone();
  QImage& Image = Result.ToQt();
  for (int Y = 0; Y < Image.height(); ++Y) {
    auto* const Row = reinterpret_cast<ARGB*>(Image.scanLine(Y));
    std::replace(Row, Row + Image.width(), Color, ARGB{0});
  }
  return Result;
}

}  // namespace

TBitmap::TBitmap() = default;
TBitmap::~TBitmap() = default;

int TBitmap::Width() const { return Empty() ? 0 : FPicture->GetWidth(); }

int TBitmap::Height() const { return Empty() ? 0 : FPicture->GetHeight(); }

TColor TBitmap::Pixel(int X, int Y) const {
  const ARGB Color = Empty() ? Bitmap(1, 1).GetPixel(X + 1, Y + 1) : FPicture->GetPixel(X, Y);
  return static_cast<TColor>(WithChannelsTurned(Color));
}

void TBitmap::Changed() {
  FCutOut.reset();
  if (const auto Event = OnChange) Event(this);
}

void TBitmap::SetTransparent(bool Value) {
  FTransparent = Value;
  Changed();
}

TColor TBitmap::TransparentColor() const { return FHasColor ? FColor : Empty() ? 0 : Pixel(0, Height() - 1); }

void TBitmap::SetTransparentColor(TColor Value) {
  FHasColor = true;
  FColor = Value;
  Changed();
}

void TBitmap::Draw(Graphics& Canvas, float X, float Y) const {
  if (Empty()) return;
  if (FTransparent && FCutOut == nullptr)
    FCutOut = std::make_unique<Bitmap>(WithoutColor(*FPicture, AsArgb(TransparentColor())));
  Canvas.DrawImage(FTransparent ? *FCutOut : *FPicture, X, Y);
}

void TBitmap::LoadFromStream(TStream& Stream) {
  FPicture = Stream.Remaining() > 0 ? std::make_unique<Bitmap>(OnWhite(Bitmap::Load(Stream))) : nullptr;
  Changed();
}

void TBitmap::LoadFromFile(const std::filesystem::path& FileName) {
  TFileStream File(FileName, fmOpenRead | fmShareDenyWrite);
  LoadFromStream(File);
}

void TBitmap::SaveToStream(TStream& Stream) const {
  if (!Empty()) FPicture->Save(Stream, "BMP");
}

void TBitmap::SaveToFile(const std::filesystem::path& FileName) const {
  TMemoryStream Content;
  SaveToStream(Content);
  SaveWholeFile(FileName, Content.Bytes());
}

void TBitmap::Assign(const TPersistent* Source) {
  const auto* const Other = dynamic_cast<const TBitmap*>(Source);
  if (Other == nullptr) return TPersistent::Assign(Source);
  FPicture = Other->Empty() ? nullptr : std::make_unique<Bitmap>(Other->FPicture->Clone());
  FTransparent = Other->FTransparent;
  FHasColor = Other->FHasColor;
  FColor = Other->FColor;
  Changed();
}

void TBitmap::DefineProperties(TFiler& Filer) {
  Inherited::DefineProperties(Filer);
  const auto Read = [this](TReader& Reader) {
    const QByteArray Content = QByteArray::fromBase64(QByteArray::fromStdString(Reader.ReadString()));
    TMemoryStream Stream;
    Stream.Write(Content.data(), static_cast<std::size_t>(Content.size()));
    Stream.SetPosition(0);
    LoadFromStream(Stream);
  };
  const auto Write = [this](TWriter& Writer) {
    TMemoryStream Stream;
    SaveToStream(Stream);
    const auto& Bytes = Stream.Bytes();
    const QByteArray Content(reinterpret_cast<const char*>(Bytes.data()), static_cast<qsizetype>(Bytes.size()));
    Writer.WriteString(Content.toBase64().toStdString());
  };
  Filer.DefineProperty("Data", Read, Write, !Empty());
}

}  // namespace zy
