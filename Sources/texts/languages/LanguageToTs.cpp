// Writes the text table, with the texts of a language file if one is named, as a translation source of the toolkit:
//   language_to_ts OUT.ts [LANGUAGE.lng]
// Each row is a message of the context "Zyphos", with its symbol as the comment; line breaks are those of translation
// sources. Rows that the language file does not have are left to be translated.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <set>
#include <string>
#include <vector>

#include "texts/Exceptions.h"
#include "texts/ZyTableTexts.h"

namespace {

using namespace zy;

std::string Escaped(const std::string& Text) {
  std::string Result;
  for (const char Letter : Text) {
    switch (Letter) {
      case '&':
        Result += "&amp;";
        break;
      case '<':
        Result += "&lt;";
        break;
      case '>':
        Result += "&gt;";
        break;
      case '"':
        Result += "&quot;";
        break;
      case '\r':
        Result += '\n';
        break;
      default:
        Result += Letter;
    }
  }
  return Result;
}

/// The symbols to which a file that was loaded gives texts, be they the English ones.
std::set<std::string> SymbolsIn(const std::filesystem::path& File) {
  std::set<std::string> Result;
  std::ifstream Stream(File, std::ios::binary);
  for (std::string Line; std::getline(Stream, Line);) {
    const std::size_t First = std::min(Line.find("_s"), Line.find('='));
    if (First != std::string::npos) Result.insert(Line.substr(First, Line.find_first_of(" \t=", First) - First));
  }
  return Result;
}

std::vector<std::string> Texts() {
  std::vector<std::string> Result(AllTextCount);
  for (std::size_t i = 0; i < AllTextCount; ++i) Result[i] = LoadResString(static_cast<TZyText>(i));
  return Result;
}

void Write(std::ostream& Out, const std::filesystem::path& Language) {
  const std::vector<std::string> English = Texts();
  std::set<std::string> Given;
  if (!Language.empty()) {
    LoadLanguage(Language);
    Given = SymbolsIn(Language);
  }
  Out << "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<!DOCTYPE TS>\n<TS version=\"2.1\" sourcelanguage=\"en\"";
  if (!Language.empty()) Out << " language=\"" << Language.stem().string() << '"';
  Out << ">\n<context>\n    <name>Zyphos</name>\n";
  for (std::size_t i = 0; i < AllTextCount; ++i) {
    const auto Row = static_cast<TZyText>(i);
    const std::string Symbol(TextSymbol(Row));
    Out << "    <message>\n        <source>" << Escaped(English[i]) << "</source>\n        <comment>" << Symbol
        << "</comment>\n        <translation";
    if (Given.contains(Symbol))
      Out << '>' << Escaped(LoadResString(Row));
    else
      Out << " type=\"unfinished\">";
    Out << "</translation>\n    </message>\n";
  }
  Out << "</context>\n</TS>\n";
}

}  // namespace

int main(int ArgCount, char** Args) {
  if (ArgCount < 2 || ArgCount > 3) {
    std::cerr << "language_to_ts OUT.ts [LANGUAGE.lng]\n";
    return 2;
  }
  try {
    std::ofstream Out(Args[1], std::ios::binary);
    Write(Out, ArgCount > 2 ? Args[2] : "");
    Out.close();
    if (!Out) throw EFileError(Format(LoadResString(_sCannotWriteFile), {Args[1]}));
  } catch (const Exception& Error) {
    std::cerr << Error.what() << '\n';
    return 1;
  }
  return 0;
}
