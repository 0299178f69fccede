#pragma once

namespace zy {

/// How much room a text takes beside its letters.
class StringFormat {
 public:
  /// With a sixth of the font's size left of the text and as much right of it, so that texts side by side do not touch.
  static const StringFormat& GenericDefault() {
    static const StringFormat Format(1.0f / 6);
    return Format;
  }
  /// The letters alone.
  static const StringFormat& GenericTypographic() {
    static const StringFormat Format(0);
    return Format;
  }

  /// Room at each side, in parts of the font's size.
  float Padding() const { return FPadding; }

 private:
  explicit StringFormat(float Padding) : FPadding(Padding) {}
  float FPadding;
};

}  // namespace zy
