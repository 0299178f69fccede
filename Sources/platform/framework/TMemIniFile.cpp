#include "platform/framework/TMemIniFile.h"

#include <algorithm>
#include <charconv>

#include "platform/framework/TStream.h"
#include "platform/framework/WholeFile.h"
#include "texts/Exceptions.h"
#include "texts/Utf8.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

constexpr std::string_view Blanks = " \t";
constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

unsigned char Folded(char Character) {
  const auto Byte = static_cast<unsigned char>(Character);
  return Byte >= 'A' && Byte <= 'Z' ? static_cast<unsigned char>(Byte + ('a' - 'A')) : Byte;
}

bool IsBlank(char Character) { return Blanks.find(Character) != std::string_view::npos; }

bool IsControl(char Character) { return static_cast<unsigned char>(Character) < 0x20 || Character == 0x7F; }

std::string_view Trimmed(std::string_view Text) {
  const auto First = Text.find_first_not_of(Blanks);
  if (First == std::string_view::npos) return {};
  return Text.substr(First, Text.find_last_not_of(Blanks) - First + 1);
}

/// What sections and keys have in common; see WriteString for the rules.
bool IsName(std::string_view Name) {
  return !Name.empty() && !IsBlank(Name.front()) && !IsBlank(Name.back()) && Name.front() != ';' &&
         Name.front() != '#' && std::none_of(Name.begin(), Name.end(), IsControl) && IsUtf8(Name);
}

bool IsSectionName(std::string_view Name) { return IsName(Name) && Name.find_first_of("[]") == std::string_view::npos; }

bool IsKeyName(std::string_view Name) {
  return IsName(Name) && Name.front() != '[' && Name.find('=') == std::string_view::npos;
}

bool NeedsQuotes(std::string_view Value) {
  if (Value.empty()) return false;
  return IsBlank(Value.front()) || IsBlank(Value.back()) || Value.front() == '"' ||
         std::any_of(Value.begin(), Value.end(), IsControl) || !IsUtf8(Value);
}

void AppendEscape(std::string& Text, char Byte) {
  constexpr char Digits[] = "0123456789ABCDEF";
  const unsigned Value = static_cast<unsigned char>(Byte);
  Text += {'\\', 'x', Digits[Value >> 4], Digits[Value & 15]};
}

/// The value in quotes. A backslash is escaped only where it could be taken for an escape, so that "@\r", the mark of a
/// line end in captions, stands as it is.
std::string Quoted(std::string_view Value) {
  std::string Text = "\"";
  while (!Value.empty()) {
    const std::size_t Length = FirstUtf8Char(Value).Length;
    if (Length == 0 || IsControl(Value.front()) || Value.substr(0, 2) == "\\x") {
      AppendEscape(Text, Value.front());
      Value.remove_prefix(1);
    } else {
      Text += Value.substr(0, Length);
      Value.remove_prefix(Length);
    }
  }
  return Text += '"';
}

/// Inverse of Quoted for what stands between the quotes; nothing when an escape is malformed.
std::optional<std::string> Unescaped(std::string_view Text) {
  std::string Value;
  for (;;) {
    const auto Escape = Text.find("\\x");
    Value += Text.substr(0, Escape);
    if (Escape == std::string_view::npos) return Value;
    const std::string_view Digits = Text.substr(Escape + 2, 2);
    const char* const End = Digits.data() + Digits.size();
    unsigned Byte = 0;
    const auto [Stop, Error] = std::from_chars(Digits.data(), End, Byte, 16);
    if (Digits.size() != 2 || Error != std::errc() || Stop != End) return std::nullopt;
    Value += static_cast<char>(Byte);
    Text.remove_prefix(Escape + 4);
  }
}

/// Cuts the first line with its end off Text and returns it without the end.
std::string_view TakeLine(std::string_view& Text) {
  const auto End = Text.find_first_of("\r\n");
  const std::string_view Line = Text.substr(0, End);
  Text.remove_prefix(Line.size());
  if (!Text.empty()) Text.remove_prefix(Text.substr(0, 2) == "\r\n" ? 2 : 1);
  return Line;
}

}  // namespace

std::size_t detail::TIniNameHash::operator()(std::string_view Name) const {
  std::uint64_t Hash = 14695981039346656037u;  // FNV-1a
  for (const char Character : Name) Hash = (Hash ^ Folded(Character)) * 1099511628211u;
  return static_cast<std::size_t>(Hash);
}

bool detail::TIniNameEqual::operator()(std::string_view Left, std::string_view Right) const {
  return std::equal(Left.begin(), Left.end(), Right.begin(), Right.end(),
                    [](char A, char B) { return Folded(A) == Folded(B); });
}

/// Reads a text line by line into sections of its own.
class TMemIniFile::TParser {
 public:
  explicit TParser(std::string_view SourceName) : FSourceName(SourceName) {}

  TSections Parse(std::string_view Text) {
    if (Text.substr(0, ByteOrderMark.size()) == ByteOrderMark) Text.remove_prefix(ByteOrderMark.size());
    while (!Text.empty()) {
      const std::string_view Line = TakeLine(Text);
      ++FLine;
      if (!IsUtf8(Line)) Fail(LoadResString(_sIniNoUtf8));
      if (Line.find('\0') != std::string_view::npos) Fail(LoadResString(_sIniNulCharacter));
      ParseLine(Trimmed(Line));
    }
    return std::move(FSections);
  }

 private:
  [[noreturn]] void Fail(std::string_view Reason) const {
    throw EIniFileError(Format(LoadResString(_sIniSyntax), {FSourceName, FLine, Reason}));
  }

  void ParseLine(std::string_view Line) {
    if (Line.empty() || Line.front() == ';' || Line.front() == '#') return;
    if (Line.front() == '[')
      ParseSection(Line);
    else
      ParseKey(Line);
  }

  void ParseSection(std::string_view Line) {
    if (Line.back() != ']') Fail(LoadResString(_sIniOpenSection));
    const std::string_view Name = Trimmed(Line.substr(1, Line.size() - 2));
    if (!IsSectionName(Name)) Fail(Format(LoadResString(_sIniBadName), {Name}));
    FSection = &FSections.Add(Name);
  }

  void ParseKey(std::string_view Line) {
    const auto EqualSign = Line.find('=');
    if (EqualSign == std::string_view::npos) Fail(LoadResString(_sIniNoEqualSign));
    if (FSection == nullptr) Fail(LoadResString(_sIniNoSection));
    const std::string_view Name = Trimmed(Line.substr(0, EqualSign));
    if (!IsKeyName(Name)) Fail(Format(LoadResString(_sIniBadName), {Name}));
    std::string Value = ParseValue(Trimmed(Line.substr(EqualSign + 1)));
    FSection->Add(Name) = std::move(Value);
  }

  std::string ParseValue(std::string_view Text) const {
    if (Text.empty() || Text.front() != '"') return std::string(Text);
    if (Text.size() < 2 || Text.back() != '"') Fail(LoadResString(_sIniOpenQuote));
    std::optional<std::string> Value = Unescaped(Text.substr(1, Text.size() - 2));
    if (!Value) Fail(LoadResString(_sIniBadEscape));
    return std::move(*Value);
  }

  std::string_view FSourceName;
  std::int64_t FLine = 0;
  TSections FSections;
  TKeys* FSection = nullptr;
};

void TMemIniFile::WriteString(std::string_view Section, std::string_view Ident, std::string_view Value) {
  if (!IsSectionName(Section)) throw EIniFileError(Format(LoadResString(_sIniBadName), {Section}));
  if (!IsKeyName(Ident)) throw EIniFileError(Format(LoadResString(_sIniBadName), {Ident}));
  FSections.Add(Section).Add(Ident) = Value;
  FModified = true;
}

std::vector<std::string> TMemIniFile::ReadSection(std::string_view Section) const {
  std::vector<std::string> Names;
  if (const TKeys* const Keys = FSections.Find(Section))
    for (const auto& Key : *Keys) Names.push_back(Key.Name);
  return Names;
}

std::vector<std::string> TMemIniFile::ReadSections() const {
  std::vector<std::string> Names;
  for (const auto& Section : FSections) Names.push_back(Section.Name);
  return Names;
}

bool TMemIniFile::SectionExists(std::string_view Section) const { return FSections.Find(Section) != nullptr; }

void TMemIniFile::DeleteKey(std::string_view Section, std::string_view Ident) {
  TKeys* const Keys = FSections.Find(Section);
  if (Keys != nullptr && Keys->Remove(Ident)) FModified = true;
}

void TMemIniFile::EraseSection(std::string_view Section) {
  if (FSections.Remove(Section)) FModified = true;
}

void TMemIniFile::Clear() {
  if (FSections.IsEmpty()) return;
  FSections = {};
  FModified = true;
}

std::optional<std::string> TMemIniFile::FindValue(std::string_view Section, std::string_view Ident) const {
  const TKeys* const Keys = FSections.Find(Section);
  const std::string* const Value = Keys == nullptr ? nullptr : Keys->Find(Ident);
  return Value == nullptr ? std::nullopt : std::optional(*Value);
}

void TMemIniFile::LoadFromText(std::string_view Text, std::string_view SourceName) {
  FSections = TParser(SourceName).Parse(Text);
  FModified = true;
}

void TMemIniFile::LoadFrom(TStream& Stream, std::string_view SourceName) {
  LoadFromText(ReadToEnd(Stream), SourceName);
}

std::string TMemIniFile::SaveToText() const {
  std::string Text;
  for (const auto& Section : FSections) {
    if (!Text.empty()) Text += '\n';
    Text.append("[").append(Section.Name).append("]\n");
    for (const auto& Key : Section.Value)
      Text.append(Key.Name).append("=").append(NeedsQuotes(Key.Value) ? Quoted(Key.Value) : Key.Value).append("\n");
  }
  return Text;
}

void TMemIniFile::SaveTo(TStream& Stream) const {
  const std::string Text = SaveToText();
  Stream.WriteBuffer(Text.data(), Text.size());
}

}  // namespace zy
