#include "persistence/ZyIniArchive.h"

#include "persistence/ZyIO.h"
#include "platform/framework/TCustomIniFile.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

std::string KeyOf(const std::vector<std::string>& Prefixes, const TZyFieldName& Name) {
  std::string Key = Prefixes.empty() ? std::string() : Prefixes.back();
  return Key.append(Name.IniName());
}

}  // namespace

void TZyIniWriter::Put(const TZyFieldName& Name, std::string_view Text) {
  FIni.WriteString(FSection, KeyOf(FPrefixes, Name), Text);
}

bool TZyIniWriter::Visit(const TZyFieldName& Name, bool& Value) {
  Put(Name, Value ? "1" : "0");
  return false;
}

bool TZyIniWriter::Visit(const TZyFieldName& Name, std::string& Value) {
  Put(Name, Name.IsMultiLine() ? EncodeForIni(Value) : Value);
  return false;
}

bool TZyIniWriter::BeginPart(const TZyFieldName& Name) {
  FPrefixes.push_back(KeyOf(FPrefixes, Name) + ".");
  return true;
}

std::optional<std::string> TZyIniReader::Get(const TZyFieldName& Name) const {
  const std::string Key = KeyOf(FPrefixes, Name);
  if (!FIni.ValueExists(FSection, Key)) {
    if (Name.DefaultText().empty()) return {};
    return std::string(Name.DefaultText());
  }
  const std::string Text = FIni.ReadString(FSection, Key, {});
  return Name.IsMultiLine() ? DecodeFomIni(Text) : Text;
}

void TZyIniReader::Mistyped(const TZyFieldName& Name, std::string_view Text) const {
  throw EConvertError(Format(LoadResString(_sIniMistyped), {Text, KeyOf(FPrefixes, Name), FSection}));
}

bool TZyIniReader::BeginPart(const TZyFieldName& Name) {
  FPrefixes.push_back(KeyOf(FPrefixes, Name) + ".");
  return true;
}

}  // namespace zy
