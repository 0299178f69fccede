#include "persistence/ZyIniArchive.h"

#include <algorithm>

#include "persistence/ZyIO.h"
#include "platform/framework/TCustomIniFile.h"
#include "texts/Exceptions.h"
#include "texts/NumberText.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

constexpr std::string_view NoItems = "None";  // an empty text would read as an absent key

std::string Numbered(const std::string& Name, std::size_t Index, bool IsSquare) {
  return Name + (IsSquare ? "[" : "(") + std::to_string(Index) + (IsSquare ? "]" : ")");
}

/// Calls Take for each of the words of Text, which are separated by blanks.
template <class TTake>
void ForEachWord(std::string_view Text, const TTake& Take) {
  while (true) {
    Text.remove_prefix(std::min(Text.find_first_not_of(' '), Text.size()));
    if (Text.empty()) return;
    const std::size_t End = std::min(Text.find(' '), Text.size());
    Take(Text.substr(0, End));
    Text.remove_prefix(End);
  }
}

}  // namespace

std::string detail::TIniPlaces::Key(const TZyFieldName& Name, std::size_t Index) const {
  return Numbered(Key(Name), Index, Name.IsSquare());
}

std::string detail::TIniPlaces::CountKey(const TZyFieldName& Name) const {
  return Name.CountName().empty() ? Key(Name) + ".Count" : FPlaces.back().Prefix + std::string(Name.CountName());
}

void detail::TIniPlaces::Enter(const TZyScope& Scope) {
  const TZyFieldName& Name = Scope.Name;
  TPlace Place = FPlaces.back();
  switch (Scope.Kind) {
    case TZyScope::Part:
      if (!Name.IniName().empty()) Place.Prefix = Key(Name) + ".";
      break;
    case TZyScope::Level:
    case TZyScope::List:
      break;
    case TZyScope::Item:
      Place.Prefix = Key(Name, static_cast<std::size_t>(Scope.Index)) + ".";
      break;
    case TZyScope::ListedRecord:
      Place = {Numbered(SectionOf(Name), static_cast<std::size_t>(Scope.Index), Name.IsSquare()), {}};
      break;
    case TZyScope::Record:
      Place = {SectionOf(Name), {}};
      break;
  }
  FPlaces.push_back(std::move(Place));
}

// --- Writer ---------------------------------------------------------------------------------------------------------

void TZyIniWriter::Put(const TZyFieldName& Name, std::string_view Text) {
  FIni.WriteString(FPlaces.Section(), FPlaces.Key(Name), Text);
}

bool TZyIniWriter::Visit(const TZyFieldName& Name, bool& Value) {
  Put(Name, Value ? "1" : "0");
  return false;
}

bool TZyIniWriter::Visit(const TZyFieldName& Name, std::string& Value) {
  Put(Name, Name.IsMultiLine() ? EncodeForIni(Value) : Value);
  return false;
}

void TZyIniWriter::PutItems(const TZyFieldName& Name, std::size_t Count, const TTextAt& TextAt) {
  std::string Line;
  for (std::size_t Index = 0; Index < Count; ++Index) Line.append(Index == 0 ? 0 : 1, ' ').append(TextAt(Index));
  Put(Name, Count == 0 ? NoItems : Line);
}

void TZyIniWriter::PutTexts(const TZyFieldName& Name, const std::vector<std::string>& Texts) {
  auto Count = static_cast<int>(Texts.size());
  VisitCount(Name, Count);
  for (std::size_t Index = 0; Count > 0 && Index < Texts.size(); ++Index)
    FIni.WriteString(FPlaces.Section(), FPlaces.Key(Name, Index), EncodeForIni(Texts[Index]));
}

bool TZyIniWriter::Choose(const TZyFieldName& Name, bool IsFirst) {
  if (!Name.IniName().empty() && !Name.IsSection()) Visit(Name, IsFirst);
  return IsFirst;
}

void TZyIniWriter::VisitCount(const TZyFieldName& Name, int& Count) {
  if (Name.IsOmitted()) Count = -1;
  FIni.WriteInteger(FPlaces.Section(), FPlaces.CountKey(Name), Count);
}

// --- Reader ---------------------------------------------------------------------------------------------------------

std::optional<std::string> TZyIniReader::Get(const TZyFieldName& Name) const {
  const std::string Key = FPlaces.Key(Name);
  if (!FIni.ValueExists(FPlaces.Section(), Key)) {
    if (Name.DefaultText().empty()) return {};
    return std::string(Name.DefaultText());
  }
  const std::string Text = FIni.ReadString(FPlaces.Section(), Key, {});
  return Name.IsMultiLine() ? DecodeFomIni(Text) : Text;
}

bool TZyIniReader::GetItems(const TZyFieldName& Name, const TStart& Start, const TTakeText& Take) const {
  const std::optional<std::string> Line = Get(Name);
  if (!Line) return false;
  Start(0);
  if (*Line != NoItems) ForEachWord(*Line, Take);
  return true;
}

/// The count of a list of keys, below 0 when it is absent or was left out. No list has more keys than its section.
int TZyIniReader::CountOf(const TZyFieldName& Name) const {
  const std::string Key = FPlaces.CountKey(Name);
  const int Count = FIni.ReadInteger(FPlaces.Section(), Key, -1);
  const std::size_t Limit = FIni.ReadSection(FPlaces.Section()).size() + FIni.ReadSections().size();
  if (Count > 0 && static_cast<std::size_t>(Count) > Limit)
    throw EConvertError(Format(LoadResString(_sIniMistyped), {IntToStr(Count), Key, FPlaces.Section()}));
  return Count;
}

bool TZyIniReader::GetTexts(const TZyFieldName& Name, const TStart& Start, const TTakeText& Take) const {
  const int Count = CountOf(Name);
  if (Count < 0) return false;
  Start(static_cast<std::size_t>(Count));
  for (std::size_t Index = 0; Index < static_cast<std::size_t>(Count); ++Index)
    Take(DecodeFomIni(FIni.ReadString(FPlaces.Section(), FPlaces.Key(Name, Index), {})));
  return true;
}

void TZyIniReader::Mistyped(const TZyFieldName& Name, std::string_view Text) const {
  throw EConvertError(Format(LoadResString(_sIniMistyped), {Text, FPlaces.Key(Name), FPlaces.Section()}));
}

bool TZyIniReader::Choose(const TZyFieldName& Name, bool IsFirst) {
  if (Name.IsSection()) return FIni.SectionExists(FPlaces.SectionOf(Name));
  if (Name.IniName().empty()) return true;
  Visit(Name, IsFirst);
  return IsFirst;
}

void TZyIniReader::VisitCount(const TZyFieldName& Name, int& Count) { Count = CountOf(Name); }

TZyIdentity TZyIniReader::Identify(bool) {
  return {FIni.ReadString(FPlaces.Section(), "Type", {}), FIni.ReadString(FPlaces.Section(), "Name", {})};
}

}  // namespace zy
