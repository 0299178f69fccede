#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/drawing/Font.h"

namespace zy {

/// A family of typefaces, asked for by name.
class FontFamily {
 public:
  explicit FontFamily(std::string_view FamilyName) : FFamilyName(FamilyName) {}

  const std::string& GetFamilyName() const { return FFamilyName; }
  /// Whether texts in this family look as meant: it is installed, or the system puts in its place a family made with
  /// the same widths, such as Liberation Sans for Arial. Needs the application object to exist.
  bool IsAvailable() const;
  /// Whether the family has a face of that weight and slant of its own; underline and strikeout are always there.
  bool IsStyleAvailable(TFontStyles Style) const;

 private:
  std::string FFamilyName;
};

/// The families that are installed. Needs the application object to exist.
class InstalledFontCollection {
 public:
  /// In the alphabetical order of their names; those for the toolkit's own use are left out.
  std::vector<FontFamily> GetFamilies() const;
  /// A number that is another one when families have come or gone.
  static unsigned Version();
};

}  // namespace zy
