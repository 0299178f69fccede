#pragma once

#include <filesystem>
#include <memory>
#include <string_view>

#include "platform/framework/Argb.h"

class QImage;

namespace zy {

class TStream;

/// A picture in memory, premultiplied 32-bit ARGB. New ones are transparent.
class Bitmap {
 public:
  /// Width and Height in logical pixels; the picture holds PixelRatio stored pixels for each, across and down. Throws
  /// ERangeError for an extent below 1 or beyond what a picture can have, and std::bad_alloc when memory is short.
  Bitmap(int Width, int Height, float PixelRatio = 1);
  ~Bitmap();
  Bitmap(Bitmap&& Other) noexcept;
  Bitmap& operator=(Bitmap&& Other) noexcept;

  /// An independent picture of the same content; shares memory until one of them is drawn on.
  Bitmap Clone() const;
  /// A picture from a file or a stream of any format that the toolkit reads; pixel ratio 1. Throws EStreamError for
  /// what is no picture.
  static Bitmap Load(TStream& Stream);
  static Bitmap Load(const std::filesystem::path& FileName);

  /// Logical pixels.
  int GetWidth() const { return FWidth; }
  int GetHeight() const { return FHeight; }
  float GetPixelRatio() const { return FPixelRatio; }
  /// Stored pixels.
  int GetStoredWidth() const;
  int GetStoredHeight() const;
  /// Whether files of the picture leave alpha out; for pictures on an opaque ground. Not at first.
  bool IsOpaque() const { return FOpaque; }
  void SetOpaque(bool Value) { FOpaque = Value; }
  /// Colour of a stored pixel, not premultiplied. Throws ERangeError outside the picture.
  ARGB GetPixel(int X, int Y) const;

  /// Writes the picture to Stream, encoded as FormatName: "BMP", "GIF", "JPEG", "PNG" or "TIFF", in any case of
  /// letters, and what else the toolkit writes. JPEG and BMP have no transparency and get a white ground; GIF has 256
  /// colours, one of them transparent. What is fully transparent is white for programs that know no alpha. Throws
  /// EStreamError, with nothing written, for an unknown format.
  void Save(TStream& Stream, std::string_view FormatName) const;
  /// Writes a file in the format that its extension names. Throws EFileError when it cannot be written and EStreamError
  /// as above, both with the file's name and with an old file whole.
  void Save(const std::filesystem::path& FileName) const;

  /// The toolkit's picture, for Graphics.
  QImage& ToQt() { return *FImage; }
  const QImage& ToQt() const { return *FImage; }

 private:
  explicit Bitmap(const QImage& Picture);

  int FWidth;
  int FHeight;
  float FPixelRatio;
  bool FOpaque = false;
  std::unique_ptr<QImage> FImage;
};

}  // namespace zy
