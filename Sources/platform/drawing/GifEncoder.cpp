#include "platform/drawing/GifEncoder.h"

#include <gif_lib.h>

#include <QImage>
#include <algorithm>
#include <cmath>
#include <memory>
#include <new>
#include <span>
#include <unordered_map>
#include <utility>
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

/// A colour of the picture, and how many pixels have it.
struct TColorUse {
  QRgb Color;
  int Count;
};

int ChannelOf(QRgb Color, int Channel) { return static_cast<int>(Color >> (8 * Channel) & 255u); }

/// Colours that become one of the palette. They are parted where the pixels' distance to their mean is largest, in the
/// middle of that channel's pixels (P. Heckbert, "Color image quantization for frame buffer display", 1982).
struct TColorBox {
  explicit TColorBox(std::span<TColorUse> Uses) : Colors(Uses) {
    double Count = 0;
    for (const TColorUse& Use : Colors) Count += Use.Count;
    for (int Part = 0; Part < 3; ++Part) {
      double Sum = 0, Squares = 0;
      for (const TColorUse& Use : Colors) {
        const double Value = ChannelOf(Use.Color, Part);
        Sum += Value * Use.Count;
        Squares += Value * Value * Use.Count;
      }
      Mean[Part] = Sum / Count;
      if (const double Off = Squares - Sum * Mean[Part]; Colors.size() > 1 && Off > Error) {
        Error = Off;
        Channel = Part;
      }
    }
  }

  /// The mean, but for boxes that are mostly of one colour: grounds stay as they are.
  QRgb Color() const {
    const auto Most =
        std::max_element(Colors.begin(), Colors.end(), [](auto& A, auto& B) { return A.Count < B.Count; });
    int Count = 0;
    for (const TColorUse& Use : Colors) Count += Use.Count;
    if (2 * Most->Count > Count) return Most->Color;
    const auto Rounded = [this](int Part) { return static_cast<int>(std::lround(Mean[Part])); };
    return qRgb(Rounded(2), Rounded(1), Rounded(0));
  }

  /// Both parts have a colour at least.
  std::pair<TColorBox, TColorBox> Parted() const {
    std::sort(Colors.begin(), Colors.end(), [this](const TColorUse& A, const TColorUse& B) {
      return ChannelOf(A.Color, Channel) < ChannelOf(B.Color, Channel);
    });
    const auto Second = std::find_if(Colors.begin() + 1, Colors.end() - 1, [this](const TColorUse& Use) {
      return ChannelOf(Use.Color, Channel) > Mean[Channel];
    });
    const auto Size = static_cast<std::size_t>(Second - Colors.begin());
    return {TColorBox(Colors.first(Size)), TColorBox(Colors.subspan(Size))};
  }

  std::span<TColorUse> Colors;
  double Mean[3];
  double Error = 0;  // squared, summed over the pixels
  int Channel = 0;   // with that error
};

/// The colours of the pixels that show: all of them when they are few, else the best ones for this picture.
QList<QRgb> PaletteOf(const QImage& Picture) {
  std::unordered_map<QRgb, int> Counts;
  for (int Y = 0; Y < Picture.height(); ++Y) {
    const auto* const Row = reinterpret_cast<const QRgb*>(Picture.constScanLine(Y));
    for (int X = 0; X < Picture.width(); ++X)
      if (qAlpha(Row[X]) >= 128) ++Counts[Row[X] | 0xFF000000];
  }
  std::vector<TColorUse> Uses;
  Uses.reserve(Counts.size());
  for (const auto& [Color, Count] : Counts) Uses.push_back({Color, Count});
  std::sort(Uses.begin(), Uses.end(), [](auto& A, auto& B) { return A.Color < B.Color; });  // the same on each run
  QList<QRgb> Result;
  if (Uses.size() <= TransparentIndex) {
    for (const TColorUse& Use : Uses) Result.append(Use.Color);
    return Result;
  }
  std::vector<TColorBox> Boxes{TColorBox(Uses)};
  while (Boxes.size() < TransparentIndex) {
    const auto Worst = std::max_element(Boxes.begin(), Boxes.end(), [](auto& A, auto& B) { return A.Error < B.Error; });
    auto [First, Second] = Worst->Parted();
    *Worst = First;
    Boxes.push_back(Second);
  }
  for (const TColorBox& Box : Boxes) Result.append(Box.Color());
  return Result;
}

}  // namespace

QByteArray EncodeGif(const QImage& Picture) {
  const QImage Alpha = Picture.convertToFormat(QImage::Format_ARGB32);
  QList<QRgb> Palette = PaletteOf(Alpha);
  if (Palette.isEmpty()) Palette.append(qRgb(0, 0, 0));
  const QImage Indexed = Alpha.convertToFormat(QImage::Format_RGB32).convertToFormat(QImage::Format_Indexed8, Palette);
  std::vector<GifColorType> Colors(ColorCount);
  for (qsizetype Index = 0; Index < Palette.size(); ++Index) {
    const QRgb Color = Palette[Index];
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
