#include "platform/drawing/Bitmap.h"

#include <QBuffer>
#include <QImage>
#include <QImageWriter>
#include <cmath>
#include <new>
#include <string>

#include "platform/framework/Exceptions.h"
#include "platform/framework/TStream.h"

namespace zy {
namespace {

/// Stored pixels along one side; the toolkit's rasteriser reaches this far.
int StoredExtent(int Extent, float PixelRatio) {
  constexpr int Largest = 32767;
  const float Stored = std::round(static_cast<float>(Extent) * PixelRatio);
  if (Extent < 1 || !(Stored >= 1 && Stored <= Largest))
    throw ERangeError("Picture size out of range: " + std::to_string(Extent));
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
}

Bitmap::~Bitmap() = default;
Bitmap::Bitmap(Bitmap&& Other) noexcept = default;
Bitmap& Bitmap::operator=(Bitmap&& Other) noexcept = default;

int Bitmap::GetStoredWidth() const { return FImage->width(); }

int Bitmap::GetStoredHeight() const { return FImage->height(); }

ARGB Bitmap::GetPixel(int X, int Y) const {
  if (!FImage->valid(X, Y)) throw ERangeError("No pixel at " + std::to_string(X) + ", " + std::to_string(Y));
  return FImage->pixel(X, Y);
}

// Encoded in memory first: a failure leaves the stream as it was.
void Bitmap::Save(TStream& Stream, std::string_view Format) const {
  QBuffer Buffer;
  Buffer.open(QIODevice::WriteOnly);
  QImageWriter Writer(&Buffer, QByteArray(Format.data(), static_cast<qsizetype>(Format.size())).toLower());
  if (!Writer.write(*FImage))
    throw EStreamError("Cannot write a picture as \"" + std::string(Format) +
                       "\": " + Writer.errorString().toStdString());
  Stream.WriteBuffer(Buffer.data().constData(), static_cast<std::size_t>(Buffer.data().size()));
}

void Bitmap::Save(const std::filesystem::path& FileName) const {
  const std::string Extension = FileName.extension().string();
  TMemoryStream Encoded;  // an unknown format must not leave an empty file behind
  Save(Encoded, Extension.empty() ? std::string_view() : std::string_view(Extension).substr(1));
  TFileStream File(FileName, fmCreate);
  File.WriteBuffer(Encoded.Bytes().data(), Encoded.Bytes().size());
  File.Flush();
}

}  // namespace zy
