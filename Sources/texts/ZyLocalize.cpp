#include "texts/ZyLocalize.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <bitset>
#include <charconv>
#include <forward_list>
#include <fstream>
#include <istream>
#include <mutex>
#include <utility>

#include "texts/Exceptions.h"
#include "texts/Utf8.h"
#include "texts/ZyTableTexts.h"

namespace zy {
namespace {

struct TRow {
  std::string_view Symbol;
  std::string_view English;
};

constexpr std::array<TRow, AllTextCount> Rows{{
#define ZY_TEXT(Symbol, Text) {#Symbol, Text},
#include "texts/ZyTextRows.inl"

#include "texts/ZyPlatformTextRows.inl"

#include "texts/ZySettingsTextRows.inl"

#include "texts/ZyQtTextRows.inl"

#include "texts/ZyTableTextRows.inl"
#undef ZY_TEXT
}};

using TTexts = std::array<std::string, AllTextCount>;

TTexts EnglishTexts() {
  TTexts Result;
  std::transform(Rows.begin(), Rows.end(), Result.begin(), [](const TRow& Row) { return std::string(Row.English); });
  return Result;
}

// The tables that were ever in use, each once. A text that somebody has loaded stays where it is, whatever language
// comes, and every thread may load texts.
class TTables {
 public:
  TTables() { Use(EnglishTexts()); }
  const TTexts& Current() const { return *FCurrent.load(std::memory_order_acquire); }
  void Use(TTexts Texts) {
    const std::lock_guard Lock(FMutex);
    auto Table = std::find(FTables.begin(), FTables.end(), Texts);
    if (Table == FTables.end()) Table = FTables.insert_after(FTables.before_begin(), std::move(Texts));
    FCurrent.store(&*Table, std::memory_order_release);
  }

 private:
  std::mutex FMutex;
  std::forward_list<TTexts> FTables;
  std::atomic<const TTexts*> FCurrent = nullptr;
};

// Made at the first use, so that static objects of other units may load texts.
TTables& Tables() {
  static TTables Tables;
  return Tables;
}

std::string_view Trimmed(std::string_view Text) {
  const std::size_t First = Text.find_first_not_of(" \t");
  if (First == std::string_view::npos) return {};
  return Text.substr(First, Text.find_last_not_of(" \t") - First + 1);
}

// The text with the replacement character for each byte that is no UTF-8.
std::string Readable(std::string_view Text) {
  std::string Result;
  while (!Text.empty()) {
    const std::size_t Length = FirstUtf8Char(Text).Length;
    Result += Length == 0 ? std::string_view("\xEF\xBF\xBD") : Text.substr(0, Length);
    Text.remove_prefix(std::max<std::size_t>(Length, 1));
  }
  return Result;
}

// The text of a row with its escapes resolved, nothing when a backslash stands in front of anything else.
std::optional<std::string> Unescaped(std::string_view Text) {
  std::string Result;
  for (std::size_t i = 0; i < Text.size(); ++i) {
    if (Text[i] != '\\') {
      Result += Text[i];
      continue;
    }
    const char Escape = ++i < Text.size() ? Text[i] : '\0';
    if (Escape == 'r') {
      Result += '\r';
    } else if (Escape == 'n') {
      Result += '\n';
    } else if (Escape == '\\') {
      Result += '\\';
    } else {
      return std::nullopt;
    }
  }
  return Result;
}

// Reads a language file line by line into a table of its own, so that a failure leaves the texts in use alone.
class TLanguageReader {
 public:
  explicit TLanguageReader(std::string_view Name) : FName(Name), FTexts(EnglishTexts()) {}

  TTexts Read(std::istream& Stream) {
    for (std::string Line; std::getline(Stream, Line);) {
      ++FLine;
      TakeLine(Line);
    }
    if (!Stream.eof()) throw EStreamError(Format(LoadResString(_sLanguageUnreadable), {FName, FLine}));
    return std::move(FTexts);
  }

 private:
  void TakeLine(std::string_view Line) {
    if (FLine == 1 && Line.starts_with("\xEF\xBB\xBF")) Line.remove_prefix(3);
    if (Line.ends_with('\r')) Line.remove_suffix(1);
    Line = Trimmed(Line);
    const std::string Shown = Readable(Line);
    if (Shown != Line) Fail(_sLanguageUtf8, Shown);
    if (Line.empty() || Line.front() == '#') return;

    const std::size_t Equals = Line.find('=');
    if (Equals == std::string_view::npos) Fail(_sLanguageRow, Shown);
    const std::string_view Symbol = Trimmed(Line.substr(0, Equals));
    std::optional<std::string> Text = Unescaped(Trimmed(Line.substr(Equals + 1)));
    if (Symbol.empty() || !Text || Text->empty()) Fail(_sLanguageRow, Shown);
    const std::optional<TZyText> Row = FindText(Symbol);
    if (!Row) Fail(_sLanguageSymbol, Shown);
    if (FTaken.test(*Row)) Fail(_sLanguageTwice, Shown);
    FTaken.set(*Row);
    FTexts[*Row] = std::move(*Text);
  }

  [[noreturn]] void Fail(TZyText Message, std::string_view Content) const {
    throw EStreamError(Format(LoadResString(Message), {FName, FLine, Content}));
  }

  std::string_view FName;
  std::size_t FLine = 0;
  TTexts FTexts;
  std::bitset<AllTextCount> FTaken;
};

}  // namespace

const std::string& LoadResString(TZyText Symbol) { return Tables().Current().at(Symbol); }

std::string_view TextSymbol(TZyText Symbol) { return Rows.at(Symbol).Symbol; }

std::optional<TZyText> FindText(std::string_view Symbol) {
  const auto Row = std::find_if(Rows.begin(), Rows.end(), [Symbol](const TRow& r) { return r.Symbol == Symbol; });
  if (Row == Rows.end()) return std::nullopt;
  return static_cast<TZyText>(Row - Rows.begin());
}

void TFormatArg::AppendTo(std::string& Result) const {
  std::array<char, 24> Digits;
  char* const First = Digits.data();
  char* const Last = First + Digits.size();
  switch (FKind) {
    case TKind::Text:
      Result += FText;
      break;
    case TKind::Signed:
      Result.append(First, std::to_chars(First, Last, static_cast<std::int64_t>(FBits)).ptr);
      break;
    case TKind::Unsigned:
      Result.append(First, std::to_chars(First, Last, FBits).ptr);
      break;
  }
}

std::string Format(std::string_view Text, std::initializer_list<TFormatArg> Args) {
  std::string Result;
  const TFormatArg* Arg = Args.begin();
  while (!Text.empty()) {
    const std::size_t Plain = std::min(Text.find('%'), Text.size());
    Result += Text.substr(0, Plain);
    Text.remove_prefix(Plain);
    if (Text.empty()) break;

    const char Kind = Text.size() > 1 ? Text[1] : '\0';
    const bool IsPlaceholder = Kind == 's' || Kind == 'd' || Kind == 'u';
    std::size_t Taken = 1;
    if (Kind == '%') {
      Result += '%';
      Taken = 2;
    } else if (IsPlaceholder && Arg != Args.end()) {
      (Arg++)->AppendTo(Result);
      Taken = 2;
    } else {
      Result += '%';
    }
    Text.remove_prefix(Taken);
  }
  return Result;
}

void LoadLanguage(const std::filesystem::path& File) {
  const std::u8string Utf8 = File.u8string();
  const std::string Name(Utf8.begin(), Utf8.end());
  std::ifstream Stream(File, std::ios::binary);
  if (!Stream) throw EFileError(Format(LoadResString(_sCannotOpenFile), {Name}));
  LoadLanguage(Stream, Name);
}

void LoadLanguage(std::istream& Stream, std::string_view Name) { Tables().Use(TLanguageReader(Name).Read(Stream)); }

void ResetLanguage() { Tables().Use(EnglishTexts()); }

}  // namespace zy
