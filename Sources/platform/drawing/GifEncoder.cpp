#include "platform/drawing/GifEncoder.h"

#include <gif_lib.h>

#include <QImage>
#include <algorithm>
#include <memory>
#include <new>
#include <vector>

#include "texts/Exceptions.h"

namespace zy {
namespace {

constexpr int ColorCount = 256;
constexpr int TransparentIndex = ColorCount - 1;

int AppendBytes(GifFileType* File, const GifByteType* Bytes, int Count) {
  static_cast<QByteArray*>(File->UserData)->append(reinterpret_cast<const char*>(Bytes), Count);
  return Count;
}

struct TFileCloser {
  void operator()(GifFileType* File) const { EGifCloseFile(File, nullptr); }
};
struct TMapDeleter {
  void operator()(ColorMapObject* Map) const { GifFreeMapObject(Map); }
};

void Check(int Result, const GifFileType& File) {
  if (Result == GIF_ERROR) throw EStreamError(GifErrorString(File.Error));
}

/// Picks the colours: those of the picture when they are few, else the toolkit's choice of them.
QImage WithPalette(const QImage& Picture) {
  QList<QRgb> Colors;
  QImage Opaque = Picture.convertToFormat(QImage::Format_RGB32);
  for (int Y = 0; Y < Opaque.height() && Colors.size() < ColorCount; ++Y) {
    const auto* const Row = reinterpret_cast<const QRgb*>(Opaque.constScanLine(Y));
    for (int X = 0; X < Opaque.width() && Colors.size() < ColorCount; ++X)
      if (!Colors.contains(Row[X])) Colors.append(Row[X]);
  }
  if (Colors.size() < ColorCount) return Opaque.convertToFormat(QImage::Format_Indexed8, Colors, Qt::ThresholdDither);
  Colors.clear();
  constexpr int CubeSize = 6 * 6 * 6;  // six steps of each channel; grays behind them
  for (int Index = 0; Index < CubeSize; ++Index)
    Colors.append(qRgb(Index / 36 * 51, Index / 6 % 6 * 51, Index % 6 * 51));
  while (Colors.size() < TransparentIndex) {
    const int Gray = (static_cast<int>(Colors.size()) - CubeSize) * 255 / (TransparentIndex - CubeSize);
    Colors.append(qRgb(Gray, Gray, Gray));
  }
  return Opaque.convertToFormat(QImage::Format_Indexed8, Colors, Qt::DiffuseDither);
}

}  // namespace

QByteArray EncodeGif(const QImage& Picture) {
  const QImage Indexed = WithPalette(Picture);
  const QImage Alpha = Picture.convertToFormat(QImage::Format_ARGB32);
  std::vector<GifColorType> Colors(ColorCount);
  for (int Index = 0; Index < std::min<int>(static_cast<int>(Indexed.colorCount()), TransparentIndex); ++Index) {
    const QRgb Color = Indexed.color(Index);
    Colors[static_cast<std::size_t>(Index)] = {static_cast<GifByteType>(qRed(Color)),
                                               static_cast<GifByteType>(qGreen(Color)),
                                               static_cast<GifByteType>(qBlue(Color))};
  }
  const std::unique_ptr<ColorMapObject, TMapDeleter> Map(GifMakeMapObject(ColorCount, Colors.data()));

  QByteArray Bytes;
  int Error = 0;
  std::unique_ptr<GifFileType, TFileCloser> File(EGifOpen(&Bytes, &AppendBytes, &Error));
  if (File == nullptr || Map == nullptr) throw std::bad_alloc();
  EGifSetGifVersion(File.get(), true);
  Check(EGifPutScreenDesc(File.get(), Picture.width(), Picture.height(), 8, 0, Map.get()), *File);
  GraphicsControlBlock Control{DISPOSAL_UNSPECIFIED, false, 0, TransparentIndex};
  GifByteType Extension[4];
  EGifGCBToExtension(&Control, Extension);
  Check(EGifPutExtension(File.get(), GRAPHICS_EXT_FUNC_CODE, sizeof Extension, Extension), *File);
  Check(EGifPutImageDesc(File.get(), 0, 0, Picture.width(), Picture.height(), false, nullptr), *File);
  std::vector<GifPixelType> Line(static_cast<std::size_t>(Picture.width()));
  for (int Y = 0; Y < Picture.height(); ++Y) {
    const uchar* const Index = Indexed.constScanLine(Y);
    const auto* const Color = reinterpret_cast<const QRgb*>(Alpha.constScanLine(Y));
    for (std::size_t X = 0; X < Line.size(); ++X)
      Line[X] = static_cast<GifPixelType>(qAlpha(Color[X]) < 128 ? TransparentIndex : Index[X]);
    Check(EGifPutLine(File.get(), Line.data(), Picture.width()), *File);
  }
  File.reset();  // writes the trailer
  return Bytes;
}

}  // namespace zy
