#pragma once

#include <array>

#include "graph/values/ZyColors.h"

namespace zy {

/// The last 12 colours that the user made, the newest at the end; kept in the user's settings from one run of a program
/// to the next.
class TZyColorHistory {
 public:
  static constexpr int Count = 12;

  TZyColor Color(int Index) const { return FColors.at(static_cast<std::size_t>(Index)); }
  /// Moves a colour that is there to the newest place; another one drops the oldest.
  void Use(TZyColor Color);

  /// What is missing in the settings, or is no colour there, stays as it is.
  void ReadFromRegistry();
  /// Throws EFileError where the settings cannot be written.
  void WriteToRegistry() const;

 private:
  std::array<TZyColor, Count> FColors{Colors::LightCoral, Colors::Sienna,     Colors::Bisque,    Colors::Olive,
                                      Colors::Khaki,      Colors::Aquamarine, Colors::Turquoise, Colors::SkyBlue,
                                      Colors::SteelBlue,  Colors::Plum,       Colors::Pink,      Colors::Orchid};
};

}  // namespace zy
