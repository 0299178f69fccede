#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "texts/ZyTableTexts.h"

namespace zy {
namespace {

/// Each language file of the tree, against the English texts.
class LanguageFilesTest : public ::testing::TestWithParam<std::filesystem::path> {
 protected:
  void SetUp() override {
    ResetLanguage();
    for (std::size_t i = 0; i < AllTextCount; ++i) FEnglish.push_back(LoadResString(static_cast<TZyText>(i)));
    LoadLanguage(GetParam());  // every symbol is known, and none stands twice
  }
  void TearDown() override { ResetLanguage(); }

  // What of a text another language must have as well, from left to right.
  static std::string Arguments(const std::string& Text) {
    std::string Result;
    for (std::size_t At = Text.find('%'); At < Text.size(); At = Text.find('%', At + 2))
      if (std::string_view("sdu%").find(Text.c_str()[At + 1]) != std::string_view::npos) Result += Text[At + 1];
    return Result;
  }
  /// A choice or a line each; "-" is a line between groups of choices.
  static std::string Breaks(const std::string& Text) {
    std::string Result;
    for (std::size_t At = Text.find('\r'); At < Text.size(); At = Text.find('\r', At + 1))
      Result += Text.compare(At, 3, "\r-\r") == 0 ? '-' : '|';
    return Result;
  }
  static bool HasKey(const std::string& Text) {
    const std::size_t At = Text.find('&');
    return At != std::string::npos && Text.c_str()[At + 1] != ' ';
  }

  std::vector<std::string> FEnglish;
};

TEST_P(LanguageFilesTest, HasEveryRowInTheOrderOfTheTable) {
  std::ifstream Stream(GetParam());
  std::size_t Index = 0;
  for (std::string Line; std::getline(Stream, Line);) {
    if (!Line.starts_with("_s")) continue;
    ASSERT_LT(Index, AllTextCount);
    EXPECT_EQ(Line.substr(0, Line.find(' ')), TextSymbol(static_cast<TZyText>(Index))) << "row " << Index;
    ++Index;
  }
  EXPECT_EQ(Index, AllTextCount);
}

TEST_P(LanguageFilesTest, FillsInTheSameArgumentsAndLists) {
  for (std::size_t i = 0; i < AllTextCount; ++i) {
    const auto Row = static_cast<TZyText>(i);
    const std::string &Text = LoadResString(Row), &English = FEnglish[i];
    EXPECT_EQ(Arguments(Text), Arguments(English)) << TextSymbol(Row) << ": " << Text;
    EXPECT_EQ(Breaks(Text), Breaks(English)) << TextSymbol(Row) << ": " << Text;
    EXPECT_TRUE(HasKey(Text) == HasKey(English) || !Breaks(English).empty())
        << TextSymbol(Row) << " and its access key: " << Text;
    EXPECT_EQ(Text.find('\n'), std::string::npos) << TextSymbol(Row) << ": line breaks are \\r";
  }
}

TEST_P(LanguageFilesTest, GivesEachAccessKeyOnceInAWindowOrMenu) {
  const std::vector<std::vector<std::string>> Windows = {
      {"_sTuneHue", "_sTuneSaturation", "_sTuneLuminance", "_sTuneRed", "_sTuneGreen", "_sTuneBlue", "_sTuneAlpha"},
      {"_sFontName", "_sFontStyle", "_sFontSizeLabel", "_sFontColor", "_sFontUnderline", "_sFontStrikeout",
       "_sFontOutline", "_sFontShadow", "_sFontLowered", "_sFontRaised", "_sFontRendering", "_sFontGradient",
       "_sGradientFirst", "_sGradientMiddle", "_sGradientLast", "_sGradientAngleLabel", "_sGradientCenterLabel",
       "_sApply", "_sHelp"},
      {"_sFontGradient", "_sGradientBorder", "_sGradientMiddle", "_sGradientInner", "_sGradientCenterXLabel",
       "_sGradientCenterYLabel", "_sApply", "_sHelp"},
      {"_sMenuSettingsOf", "_sMenuZoomBack", "_sMenuWhole", "_sMenuCopy", "_sMenuSave", "_sMenuPrint"}};
  for (const auto& Symbols : Windows) {
    std::map<std::string, std::string> Taken;
    for (const std::string& Symbol : Symbols) {
      const std::string& Text = LoadResString(FindText(Symbol).value());
      std::string Key = Text.substr(Text.find('&') + 1, 1);
      if (Key[0] >= 'A' && Key[0] <= 'Z') Key[0] = static_cast<char>(Key[0] - 'A' + 'a');
      EXPECT_TRUE(Taken.emplace(Key, Text).second) << Text << " and " << Taken[Key];
    }
  }
}

std::vector<std::filesystem::path> LanguageFiles() {
  std::vector<std::filesystem::path> Result;
  for (const auto& Each : std::filesystem::directory_iterator(ZY_LANGUAGES))
    if (Each.path().extension() == ".lng") Result.push_back(Each.path());
  return Result;
}

INSTANTIATE_TEST_SUITE_P(Files, LanguageFilesTest, ::testing::ValuesIn(LanguageFiles()),
                         [](const auto& Info) { return Info.param.stem().string(); });

}  // namespace
}  // namespace zy
