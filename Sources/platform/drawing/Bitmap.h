#pragma once

#include <filesystem>
#include <memory>
#include <string_view>

#include "platform/drawing/Argb.h"

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

  /// Logical pixels.
  int GetWidth() const { return FWidth; }
  int GetHeight() const { return FHeight; }
  float GetPixelRatio() const { return FPixelRatio; }
  /// Stored pixels.
  int GetStoredWidth() const;
  int GetStoredHeight() const;
  /// Colour of a stored pixel, not premultiplied. Throws ERangeError outside the picture.
  ARGB GetPixel(int X, int Y) const;

  /// Writes the picture to Stream, encoded as Format: "PNG" and what else the toolkit writes. Throws EStreamError, with
  /// nothing written, for an unknown format.
  void Save(TStream& Stream, std::string_view Format) const;
  /// Writes a file in the format that its extension names. Throws EFileError when it cannot be created and EStreamError
  /// as above.
  void Save(const std::filesystem::path& FileName) const;

  /// The toolkit's picture, for Graphics.
  QImage& ToQt() { return *FImage; }
  const QImage& ToQt() const { return *FImage; }

 private:
  int FWidth;
  int FHeight;
  float FPixelRatio;
  std::unique_ptr<QImage> FImage;
};

}  // namespace zy
