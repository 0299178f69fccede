// Key-value files: whatever the text, loading ends in a content or in an exception of ours that changes nothing, and a
// content that was loaded is saved and loaded again to the same text. The same bytes as names and values either are
// refused or read back exactly.

#include "fuzz/Check.h"
#include "platform/framework/TMemIniFile.h"
#include "texts/Exceptions.h"

namespace zy::testing {
namespace {

void CheckText(std::string_view Text) {
  TMemIniFile Ini;
  Ini.WriteString("Kept", "Key", "kept");
  const std::string Before = Ini.SaveToText();
  try {
    Ini.LoadFromText(Text);
  } catch (const Exception&) {
    Check(Ini.SaveToText() == Before, "a failed load changes nothing");
    return;
  }
  const std::string Saved = Ini.SaveToText();
  TMemIniFile Again;
  Again.LoadFromText(Saved);
  Check(Again.SaveToText() == Saved, "a loaded text is saved and loaded again the same");
  Check(Again.ReadSections() == Ini.ReadSections(), "sections keep their order");
  for (const std::string& Section : Ini.ReadSections()) {
    Check(Again.ReadSection(Section) == Ini.ReadSection(Section), "keys keep their order");
    for (const std::string& Key : Ini.ReadSection(Section)) {
      Check(Again.ReadString(Section, Key, "") == Ini.ReadString(Section, Key, ""), "values come back");
      try {
        Ini.ReadFloat(Section, Key, 0);
        Ini.ReadInteger(Section, Key, 0);
      } catch (const EConvertError&) {
      }
    }
  }
}

void CheckNamesAndValue(std::string_view Bytes) {
  const std::string_view Name = Bytes.substr(0, Bytes.size() / 2), Value = Bytes.substr(Bytes.size() / 2);
  TMemIniFile Ini;
  Ini.WriteString("S", "Key", Value);
  bool HasName = true;
  try {
    Ini.WriteString(Name, "Key", Value);
    Ini.WriteString("S", Name, Value);
  } catch (const EIniFileError&) {
    HasName = false;  // perhaps for the second name alone
  }
  TMemIniFile Again;
  Again.LoadFromText(Ini.SaveToText());
  Check(Again.ReadString("S", "Key", "?") == Value, "a value reads back exactly");
  if (!HasName) return;
  Check(Again.ReadString(Name, "Key", "?") == Value, "a section name reads back");
  Check(Again.ReadString("S", Name, "?") == Value, "a key name reads back");
}

}  // namespace
}  // namespace zy::testing

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Data, std::size_t Size) {
  const std::string_view Bytes(reinterpret_cast<const char*>(Data), Size);
  zy::testing::CheckText(Bytes);
  zy::testing::CheckNamesAndValue(Bytes);
  return 0;
}
