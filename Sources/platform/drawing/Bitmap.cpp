#include "platform/drawing/Bitmap.h"

#include <QBuffer>
#include <QImage>
#include <QImageWriter>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <new>
#include <string>

#include "platform/drawing/GifEncoder.h"
#include "platform/framework/TStream.h"
#include "platform/framework/WholeFile.h"
#include "platform/framework/WideRegisters.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

/// Stored pixels along one side; the toolkit's rasteriser reaches this far.
int StoredExtent(int Extent, float PixelRatio) {
  constexpr int Largest = 32767;
  const float Stored = std::round(static_cast<float>(Extent) * PixelRatio);
  if (Extent < 1 || !(Stored >= 1 && Stored <= Largest))
    throw ERangeError(Format(LoadResString(_sPictureSize), {Extent}));
  return static_cast<int>(Stored);
}

}  // namespace

Bitmap::Bitmap(int Width, int Height, float PixelRatio)
    : FWidth(Width),
      FHeight(Height),
      FPixelRatio(PixelRatio),
      FImage(std::make_unique<QImage>(StoredExtent(Width, PixelRatio), StoredExtent(Height, PixelRatio),
                                      QImage::Format_ARGB32_Premultiplied)) {
  if (FImage->isNull()) throw std::bad_alloc();
  FImage->setDevicePixelRatio(PixelRatio);
  FImage->fill(0);
  ClearWideRegisters();
}

Bitmap::Bitmap(const QImage& Picture)
    : FWidth(static_cast<int>(std::round(Picture.deviceIndependentSize().width()))),
      FHeight(static_cast<int>(std::round(Picture.deviceIndependentSize().height()))),
      FPixelRatio(static_cast<float>(Picture.devicePixelRatio())),
      FImage(std::make_unique<QImage>(Picture.convertToFormat(QImage::Format_ARGB32_Premultiplied))) {}

Bitmap Bitmap::Clone() const {
  Bitmap Result(*FImage);
  Result.FOpaque = FOpaque;
  return Result;
}

namespace {

/// Source names where the bytes come from.
QImage Decoded(const std::string& Bytes, std::string_view Source) {
  QImage Picture;
  if (!Picture.loadFromData(reinterpret_cast<const uchar*>(Bytes.data()), static_cast<int>(Bytes.size())))
    throw EStreamError(Format(LoadResString(_sNoPicture), {Source}));
  Picture.setDevicePixelRatio(1);
  return Picture;
}

}  // namespace

Bitmap Bitmap::Load(TStream& Stream) { return Bitmap(Decoded(ReadToEnd(Stream), "The stream")); }

Bitmap Bitmap::Load(const std::filesystem::path& FileName) {
  TFileStream File(FileName, fmOpenRead | fmShareDenyWrite);
  return Bitmap(Decoded(ReadToEnd(File), FileName.string()));
}

Bitmap::~Bitmap() = default;
Bitmap::Bitmap(Bitmap&& Other) noexcept = default;
Bitmap& Bitmap::operator=(Bitmap&& Other) noexcept = default;

int Bitmap::GetStoredWidth() const { return FImage->width(); }

int Bitmap::GetStoredHeight() const { return FImage->height(); }

ARGB Bitmap::GetPixel(int X, int Y) const {
  if (!FImage->valid(X, Y)) throw ERangeError(Format(LoadResString(_sNoPixel), {X, Y}));
  return FImage->pixelColor(X, Y).rgba();
}

namespace {

/// Whether nothing shines through anywhere.
bool IsSolid(const QImage& Picture) {
  QRgb InAll = 0xFF000000;
  for (int Y = 0; Y < Picture.height(); ++Y) {
    const auto* const Row = reinterpret_cast<const QRgb*>(Picture.constScanLine(Y));
    for (int X = 0; X < Picture.width(); ++X) InAll &= Row[X];
  }
  return InAll >> 24 == 255;
}

/// The same pixels, of a picture that is solid, without a fourth channel for files to hold.
QImage WithoutAlpha(const QImage& Picture) {
  QImage Result(Picture.constBits(), Picture.width(), Picture.height(), Picture.bytesPerLine(), QImage::Format_RGB32);
  Result.setDevicePixelRatio(Picture.devicePixelRatio());
  Result.setDotsPerMeterX(Picture.dotsPerMeterX());
  Result.setDotsPerMeterY(Picture.dotsPerMeterY());
  return Result;
}

QImage OnWhite(const QImage& Picture) {
  QImage Result(Picture.size(), QImage::Format_RGB32);
  Result.setDevicePixelRatio(Picture.devicePixelRatio());
  Result.setDotsPerMeterX(Picture.dotsPerMeterX());
  Result.setDotsPerMeterY(Picture.dotsPerMeterY());
  Result.fill(Qt::white);
  QPainter(&Result).drawImage(0, 0, Picture);
  return Result;
}

/// The pixels as files hold them: not premultiplied, and white where nothing is.
QImage Unmultiplied(const QImage& Picture) {
  constexpr QRgb TransparentWhite = 0x00FFFFFF;
  QImage Result = Picture.convertToFormat(QImage::Format_ARGB32);
  for (int Y = 0; Y < Result.height(); ++Y) {
    auto* const Row = reinterpret_cast<QRgb*>(Result.scanLine(Y));
    std::replace(Row, Row + Result.width(), QRgb{0}, TransparentWhite);
  }
  return Result;
}

/// Target names where the bytes go.
std::string Encoded(const QImage& Picture, bool Opaque, std::string_view FormatName, std::string_view Target) {
  QByteArray Name = QByteArray(FormatName.data(), static_cast<qsizetype>(FormatName.size())).toLower();
  if (Name == "tif") Name = "tiff";
  const auto Fail = [&](const std::string& Reason) {
    throw EStreamError(Format(LoadResString(_sCannotEncode), {Target, FormatName, Reason}));
  };
  if (Name == "gif") {
    try {
      return EncodeGif(Picture).toStdString();
    } catch (const EStreamError& Error) {
      Fail(Error.what());
    }
  }
  QBuffer Buffer;
  Buffer.open(QIODevice::WriteOnly);
  QImageWriter Writer(&Buffer, Name);
  if (!Writer.canWrite()) Fail(LoadResString(_sUnknownFormat));
  // A third less time than the toolkit's choice takes, for files of the same size.
  constexpr int Quick = 50;
  if (Name == "png") Writer.setCompression(Quick);
  const bool HasGround = Opaque || Name == "bmp" || Name == "jpg" || Name == "jpeg";
  if (!Writer.write(IsSolid(Picture) ? WithoutAlpha(Picture) : HasGround ? OnWhite(Picture) : Unmultiplied(Picture)))
    Fail(Writer.errorString().toStdString());
  return Buffer.data().toStdString();
}

}  // namespace

// Encoded in memory first: a failure leaves the stream as it was, and an old file whole.
void Bitmap::Save(TStream& Stream, std::string_view FormatName) const {
  const std::string Bytes = Encoded(*FImage, FOpaque, FormatName, "a stream");
  Stream.WriteBuffer(Bytes.data(), Bytes.size());
}

void Bitmap::Save(const std::filesystem::path& FileName) const {
  const std::string Extension = FileName.extension().string();
  SaveWholeFile(FileName,
                Encoded(*FImage, FOpaque, Extension.empty() ? Extension : Extension.substr(1), FileName.string()));
}

}  // namespace zy
