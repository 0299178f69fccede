#include "texts/ZyLocalize.h"
#include "texts/ZyTableTexts.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <fstream>
#include <limits>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "framework/Bytes.h"
#include "framework/Errors.h"
#include "texts/Exceptions.h"

namespace zy {
namespace {

class ZyLocalizeTest : public ::testing::Test {
 protected:
  void TearDown() override { ResetLanguage(); }

  static void Load(const std::string& Content) {
    std::istringstream Stream(Content);
    LoadLanguage(Stream, "test.lng");
  }
};

TZyText Row(std::size_t Index) { return static_cast<TZyText>(Index); }

TEST_F(ZyLocalizeTest, TableIsCompleteAndNamesAreUnique) {
  EXPECT_EQ(ChartTextCount, 439U);
  EXPECT_GT(TextCount, ChartTextCount);
  std::set<std::string_view> Symbols;
  for (std::size_t i = 0; i < AllTextCount; ++i) {
    const std::string_view Symbol = TextSymbol(Row(i));
    EXPECT_TRUE(Symbols.insert(Symbol).second) << Symbol;
    EXPECT_TRUE(Symbol.starts_with("_s")) << Symbol;
    const std::string& Text = LoadResString(Row(i));
    ASSERT_FALSE(Text.empty()) << Symbol;
    EXPECT_TRUE(Text.front() != ' ' && Text.back() != ' ') << Symbol << ": a language file could not give this text";
    EXPECT_EQ(FindText(Symbol), Row(i));
  }
  for (const char* Unknown : {"", "_s", "_saxisstart", "_sAxisStart ", "AxisStart"}) EXPECT_FALSE(FindText(Unknown));
}

TEST_F(ZyLocalizeTest, WordingsAreTheGivenOnes) {
  const std::vector<std::pair<TZyText, std::string>> Cases = {
      // Spelled as given
      {_sAxisMovingSlitIncrement, "Incement to move axis range"},
      {_sCalloutSpaceToBorder, "Calllout space to border"},
      {_sMvgAvgAveragingRangeMethod, "Moving average by count/diatance"},
      {_sOnlyOneDimensional, "Only one dimensional arrays suported"},
      {_sMatrixToSmall, "Not enough data, matrix is to small to solve"},
      // Not what the symbol says
      {_sZoomResetOnRightBottomLeftTopFrame, "Graph zoom reset dragging bottom/right top/left"},
      {_sAxisThicknes, "Width of axis line"},
      {_sPolynOrder, "General linear least squares order"},
      {_sr2, "Probability of the fitted line"},
      {_sOnlySetIfFixed, "The offset should only be set with fixed offset\rDou You want to set it to True?"},
      {_sExponentialFactorForN,
       "Factor (<1) to multiply n\xC2\xB1"
       "1 th value for exponential decay of weighting"},
  };
  for (const auto& [Symbol, Text] : Cases) EXPECT_EQ(LoadResString(Symbol), Text) << TextSymbol(Symbol);
}

TEST_F(ZyLocalizeTest, PlaceholdersAreThoseThatTheCallersFill) {
  const std::map<TZyText, std::string> Expected = {{_sUndoStatus, "d"},
                                                   {_sRedoStatus, "d"},
                                                   {_sVectorIdxOutOfRange, "d"},
                                                   {_sMissingCloseBracket, "u"},
                                                   {_sMissingOpenBracket, "u"},
                                                   {_sParserError, "s"},
                                                   {_sNoNode, "s"},
                                                   {_sPropNotFound, "s"}};
  for (std::size_t i = 0; i < ChartTextCount; ++i) {
    const std::string& Text = LoadResString(Row(i));
    std::string Kinds;
    for (std::size_t At = Text.find('%'); At != std::string::npos; At = Text.find('%', At + 1))
      Kinds += Text.substr(At + 1, 1);
    const auto Found = Expected.find(Row(i));
    EXPECT_EQ(Kinds, Found == Expected.end() ? "" : Found->second) << TextSymbol(Row(i));
  }
}

TEST_F(ZyLocalizeTest, Format) {
  const std::string Name = "XAxis";
  const char* const Null = nullptr;
  const std::vector<std::pair<std::string, std::string>> Cases = {
      {Format(LoadResString(_sCannotAssign), {Name, "TZyAxis"}), "Cannot assign a XAxis to a TZyAxis"},
      {Format("%d %u", {std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::uint64_t>::max()}),
       "-9223372036854775808 18446744073709551615"},
      {Format("%d|%s|%u", {"text", 1234567, -1}), "text|1234567|-1"},
      {Format("100%% of %s%%", {"all"}), "100% of all%"},
      {Format("%s and %s", {"one"}), "one and %s"},
      {Format("%s %s", {"%s %d", "end"}), "%s %d end"},  // an argument is no text with placeholders
      {Format("%x %5d %", {1}), "%x %5d %"},             // no placeholders of ours
      {Format("%%s %s", {1}), "%s 1"},
      {Format("[%s]", {Null}), "[]"},
      {Format("%d", {}), "%d"},
  };
  for (const auto& [Result, Expected] : Cases) EXPECT_EQ(Result, Expected);
}

TEST_F(ZyLocalizeTest, LanguageReplacesItsRowsAndLeavesTheOthersInEnglish) {
  Load(
      "\xEF\xBB\xBF# Deutsch\r\n"
      "\r\n"
      "_sUndo = R\xC3\xBC"
      "ckg\xC3\xA4ngig\r\n"
      "\t _sParserError\t=  Fehler:\\r%s\\n(\\\\) = \xF0\x9F\x93\x88  \t\r\n"
      "   # _sRedo = no row\n"
      "_sClassNotFound = Klasse %s fehlt");
  EXPECT_EQ(LoadResString(_sUndo),
            "R\xC3\xBC"
            "ckg\xC3\xA4ngig");
  EXPECT_EQ(LoadResString(_sParserError), "Fehler:\r%s\n(\\) = \xF0\x9F\x93\x88");
  EXPECT_EQ(LoadResString(_sRedo), "Redo");
  EXPECT_EQ(Format(LoadResString(_sClassNotFound), {"TZyPie"}), "Klasse TZyPie fehlt");

  Load("_sRedo = Wiederholen\n");
  EXPECT_EQ(LoadResString(_sUndo), "Undo") << "rows of the former language must not shine through";
  EXPECT_EQ(LoadResString(_sRedo), "Wiederholen");
  ResetLanguage();
  EXPECT_EQ(LoadResString(_sRedo), "Redo");
}

TEST_F(ZyLocalizeTest, BadLanguageFilesAreNamedAndChangeNothing) {
  const std::pair<std::string, std::string> Cases[] = {
      {"_sRedo", "\"_sRedo\" is not a row"},
      {"= text", "\"= text\" is not a row"},
      {"_sRedo =  ", "\"_sRedo =\" is not a row"},
      {"_sRedo = a\\tb", "\"_sRedo = a\\tb\" is not a row"},
      {"_sRedo = end\\", "\"_sRedo = end\\\" is not a row"},
      {"_sReDo = text", "\"_sReDo = text\" begins with an unknown symbol"},
      {"_sUndo = twice", "\"_sUndo = twice\" gives a symbol a second text"},
      {"# \xFF", "\"# \xEF\xBF\xBD\" is not valid UTF-8"},
      {"_sRedo = \xC3", "UTF-8"},              // cut off
      {"_sRedo = \xC0\xAF", "UTF-8"},          // overlong, two bytes
      {"_sRedo = \xE0\x80\xAF", "UTF-8"},      // overlong, three bytes
      {"_sRedo = \xF0\x8F\xBF\xBF", "UTF-8"},  // overlong, four bytes
      {"_sRedo = \xED\xA0\x80", "UTF-8"},      // surrogate
      {"_sRedo = \xF4\x90\x80\x80", "UTF-8"},  // past the last code point
      {"_sRedo = \xE2\x82z", "UTF-8"},         // continuation missing
  };
  Load("_sRedo = Wiederholen");
  for (const auto& [Line, Part] : Cases) {
    const std::string Message =
        testing::MessageOf<EStreamError>([&] { Load("_sUndo = new\n\n" + Line + "\n_sErr = new"); });
    EXPECT_TRUE(Message.starts_with("test.lng, line 3: ")) << Message;
    EXPECT_NE(Message.find(Part), std::string::npos) << Message;
    EXPECT_EQ(LoadResString(_sUndo), "Undo");
    EXPECT_EQ(LoadResString(_sRedo), "Wiederholen");
  }
}

TEST_F(ZyLocalizeTest, LanguageFromAFile) {
  const testing::TTemporaryFolder Folder;
  const std::filesystem::path File = Folder / "fran\u00E7ais.lng";
  std::ofstream(File, std::ios::binary) << "_sUndo = Annuler\r\n";
  LoadLanguage(File);
  EXPECT_EQ(LoadResString(_sUndo), "Annuler");

  EXPECT_THROW(LoadLanguage(Folder / "missing.lng"), EFileError);
  EXPECT_THROW(LoadLanguage(Folder.Path()), EStreamError) << "a folder is no file";
  EXPECT_EQ(LoadResString(_sUndo), "Annuler");
}

}  // namespace
}  // namespace zy
