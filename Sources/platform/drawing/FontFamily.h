#pragma once

#include <string>
#include <string_view>

namespace zy {

/// A family of typefaces, asked for by name.
class FontFamily {
 public:
  explicit FontFamily(std::string_view FamilyName) : FFamilyName(FamilyName) {}

  const std::string& GetFamilyName() const { return FFamilyName; }
  /// Whether texts in this family look as meant: it is installed, or the system puts in its place a family made with
  /// the same widths, such as Liberation Sans for Arial. Needs the application object to exist.
  bool IsAvailable() const;

 private:
  std::string FFamilyName;
};

}  // namespace zy
