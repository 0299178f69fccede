#pragma once

#include <string>
#include <string_view>

namespace zy {

class Bitmap;
class Metafile;

/// What programs copy and paste through. There is one, Clipboard(); it needs an application object with windows, and
/// each operation throws EInvalidOperation without one.
class TClipboard {
 public:
  /// Replaces the content by a picture, in all forms at once that programs paste: the drawing as an enhanced metafile,
  /// as SVG and as PDF, which office and drawing programs take, and the picture as PNG with its transparency and as
  /// plain pixels on white, which all others take. With the metafile go the names that Unix programs know it by; where
  /// the system has a name of its own that the toolkit cannot give, programs take one of the other forms. Throws, with
  /// the old content kept, what the encoders throw.
  void SetPicture(const Metafile& Drawing, const Bitmap& Picture);
  /// The content as text; empty when it is none.
  std::string AsText() const;
  void SetAsText(std::string_view Value);
  /// Whether the content comes in a form, and its bytes: "image/svg+xml", "image/png", "text/plain". Empty when not.
  bool HasFormat(std::string_view MimeType) const;
  std::string AsBytes(std::string_view MimeType) const;
  void Clear();
};

TClipboard& Clipboard();

}  // namespace zy
