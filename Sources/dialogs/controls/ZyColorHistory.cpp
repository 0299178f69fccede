#include "dialogs/controls/ZyColorHistory.h"

#include <algorithm>
#include <exception>

#include "platform/framework/TRegistryIniFile.h"
#include "texts/Exceptions.h"
#include "texts/NumberText.h"

namespace zy {
namespace {

constexpr const char* StoredKey = "Zyphos.VCL.TuneColors";
constexpr const char* Section = "PreviousSelections";

}  // namespace

void TZyColorHistory::Use(TZyColor Color) {
  auto Place = FColors.begin();
  for (auto Each = FColors.begin(); Each != FColors.end(); ++Each)
    if (*Each == Color) Place = Each;
  std::rotate(Place, Place + 1, FColors.end());
  FColors.back() = Color;
}

void TZyColorHistory::ReadFromRegistry() {
  try {
    const TRegistryIniFile Settings(StoredKey);
    for (int Index = 0; Index < Count; ++Index) {
      TZyColor& Entry = FColors[static_cast<std::size_t>(Index)];
      try {
        Entry = static_cast<TZyColor>(Settings.ReadInteger(Section, IntToStr(Index), static_cast<int>(Entry)));
      } catch (const EConvertError&) {  // somebody else's hand
      }
    }
  } catch (const EFileError&) {  // no settings, no history
  }
}

void TZyColorHistory::WriteToRegistry() const {
  TRegistryIniFile Settings(StoredKey);
  for (int Index = 0; Index < Count; ++Index)
    Settings.WriteInteger(Section, IntToStr(Index), static_cast<int>(Color(Index)));
  Settings.UpdateFile();
}

}  // namespace zy
