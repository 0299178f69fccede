#pragma once

#include <filesystem>
#include <functional>
#include <memory>

#include "platform/framework/Argb.h"
#include "platform/framework/TPersistent.h"

namespace zy {

class Bitmap;
class Graphics;
class TStream;

/// A picture as controls and forms use it: opaque pixels, of which one colour may count as transparent. Empty, without
/// a pixel, at first.
class TBitmap : public TPersistent {
  ZY_CLASS(TBitmap, TPersistent)
  TBitmap();
  ~TBitmap() override;
  TBitmap(const TBitmap&) = delete;
  TBitmap& operator=(const TBitmap&) = delete;

  bool Empty() const { return FPicture == nullptr; }
  /// Pixels, 0 without a picture.
  int Width() const;
  int Height() const;
  /// Colour of a pixel, as 0x00BBGGRR. Throws ERangeError outside the picture.
  TColor Pixel(int X, int Y) const;

  /// Whether the pixels of TransparentColor are left out when the picture is drawn.
  bool Transparent() const { return FTransparent; }
  void SetTransparent(bool Value);
  /// The colour in the lower left corner until one is set; 0 without a picture.
  TColor TransparentColor() const;
  void SetTransparentColor(TColor Value);

  /// Runs after the picture, or what of it counts as transparent, was set.
  std::function<void(TObject* Sender)> OnChange;

  /// Draws the picture with its upper left corner at a place.
  void Draw(Graphics& Canvas, float X, float Y) const;

  /// Takes a picture of any format that the toolkit reads; transparent parts come on white. What is empty makes this
  /// empty. Throws EStreamError, with the old picture kept, for anything else.
  void LoadFromStream(TStream& Stream);
  void LoadFromFile(const std::filesystem::path& FileName);
  /// Writes a BMP of 24 bits per pixel; nothing without a picture.
  void SaveToStream(TStream& Stream) const;
  /// The same into a file, in one step. Throws EFileError, with an old file whole, when it cannot be written.
  void SaveToFile(const std::filesystem::path& FileName) const;

  /// Copies picture and transparency of another one.
  void Assign(const TPersistent* Source) override;
  /// Stores the picture within a form.
  void DefineProperties(TFiler& Filer) override;

 private:
  void Changed();

  std::unique_ptr<Bitmap> FPicture;         // opaque
  mutable std::unique_ptr<Bitmap> FCutOut;  // the same without the pixels of the transparent colour, once drawn
  bool FTransparent = false;
  bool FHasColor = false;
  TColor FColor = 0;
};

}  // namespace zy
