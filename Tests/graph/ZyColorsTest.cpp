#include "graph/ZyColors.h"

#include <gtest/gtest.h>

#include <QColor>

#include "graph/ZyGDI.h"
#include "platform/drawing/SystemColors.h"
#include "platform/framework/Exceptions.h"
#include "platform/framework/TStrings.h"

namespace zy {
namespace {

TEST(ZyColorsTest, FixedColorsHaveTheValuesOfTheWeb) {
  for (int Index = FirstFixedColor + 1; Index <= NamedColorCount; ++Index) {
    const std::string Name(ColorName(Index));
    EXPECT_EQ(NamedColor(Index), QColor(Name.c_str()).rgb()) << Name;  // the toolkit's own table of the same names
    EXPECT_EQ(ColorToARGB(Name), NamedColor(Index)) << Name;
  }
  EXPECT_THROW(ColorName(0), ERangeError);
  EXPECT_THROW(NamedColor(NamedColorCount + 1), ERangeError);
  static_assert(Colors::DarkRed == 0xFF8B0000 && Colors::Transparent == 0x00FFFFFF);
}

TEST(ZyColorsTest, TheTableIsInItsOrder) {
  const std::pair<int, const char*> Places[] = {{1, "ActiveBorder"}, {10, "ControlText"}, {13, "Highlight"},
                                                {19, "Info"},        {26, "WindowText"},  {27, "Transparent"},
                                                {28, "Black"},       {52, "LightSalmon"}, {96, "LimeGreen"},
                                                {117, "Aqua"},       {166, "Pink"},       {167, "LightPink"}};
  for (const auto& [Index, Name] : Places) EXPECT_EQ(ColorName(Index), Name);
}

TEST(ZyColorsTest, DesktopColorsAreOpaqueAndNumbered) {
  const std::pair<const char*, int> Numbers[] = {{"ScrollBar", 0}, {"Desktop", 1},      {"Window", 5},
                                                 {"Control", 15},  {"WindowText", 8},   {"Info", 24},
                                                 {"HotTrack", 26}, {"ControlText", 18}, {"ControlLightLight", 20}};
  for (const auto& [Name, Number] : Numbers) {
    EXPECT_EQ(ColorToARGB(Name), SystemColor(Number)) << Name;
    EXPECT_EQ(TColorToARGB(SystemColorFlag | Number), SystemColor(Number)) << Name;
    EXPECT_EQ(GetAlpha(SystemColor(Number)), 255u);
  }
  EXPECT_NE(ColorToARGB("Window"), ColorToARGB("WindowText"));
  EXPECT_EQ(SystemColor(-1), Colors::Black);
  EXPECT_EQ(TColorToARGB(SystemColorFlag | 9999), Colors::Black);
}

TEST(ZyColorsTest, ColorsAreReadFromNamesAndNumbers) {
  const std::pair<const char*, TZyColor> Good[] = {{"cYaN", 0xFF00FFFF},
                                                   {"TRANSPARENT", 0x00FFFFFF},
                                                   {"$80ff0102", 0x80FF0102},
                                                   {"255", 255},
                                                   {"-1", 0xFFFFFFFF},
                                                   {"4294967295", 0xFFFFFFFF},
                                                   {"$0", 0}};
  for (const auto& [Text, Color] : Good) EXPECT_EQ(ColorToARGB(Text), Color) << Text;
  for (const char* Bad : {"", "Reddish", "Red ", "#FF0000", "$123456789", "4294967296", "-2147483649", "1.5"})
    EXPECT_THROW(ColorToARGB(Bad), EConvertError) << Bad;
}

TEST(ZyColorsTest, ColorsAreWrittenAsTheFirstNameOrAsANumber) {
  EXPECT_EQ(ARGBToString(0xFF00FFFF, false), "Aqua");
  EXPECT_EQ(ARGBToString(0xFFFF00FF, false), "Magenta");
  EXPECT_EQ(ARGBToString(0x00FFFFFF, false), "Transparent");
  EXPECT_EQ(ARGBToString(0x0A0B0C0D, false), "$0A0B0C0D");
  const TZyColor Desktop = SystemColor(10);
  EXPECT_EQ(ARGBToString(Desktop, true), "ActiveBorder");
  EXPECT_EQ(ColorToARGB(ARGBToString(Desktop, false)), Desktop);
}

TEST(ZyColorsTest, RichIdsComeBackWithoutTheirBracket) {
  EXPECT_EQ(ARGBToRichID(0x80FF0102), "[A=128, R=255, G=1, B=2]");
  EXPECT_EQ(RGBToRichID(0x00332211), "[A=255, R=17, G=34, B=51]");
  EXPECT_EQ(RichIDToTZyColor("[A=128, R=255, G=1, B=2"), 0x80FF0102u);
  EXPECT_EQ(RichIDToTZyColor("A=256,R=257,G=-1,B= 3"), 0x0001FF03u);
  EXPECT_EQ(RichIDToTColor("[A=128, R=17, G=34, B=51"), 0x00332211);
  for (const char* Bad : {"", "[A=1, R=2, G=3, B=4]", "[A=1, R=2, G=3", "[R=2, A=1, G=3, B=4", "[A=x, R=2, G=3, B=4",
                          "[A=1 R=2, G=3, B=4"})
    EXPECT_THROW(RichIDToTZyColor(Bad), EConvertError) << Bad;
}

TEST(ZyColorsTest, HueSaturationAndLightness) {
  struct TCase {
    TZyColor Color;
    double Hue, Saturation, Brightness;
  };
  const TCase Cases[] = {
      {0xFF000000, 0, 0, 0},
      {0xFFFFFFFF, 0, 0, 1},
      {0xFF808080, 0, 0, 128.0 / 255},
      {0xFF336699, 210, 0.5, 0.4},
      {0xFFFFCC00, 48, 1, 0.5},
      {0xFF00FF80, 120 + 60 * 128.0 / 255, 1, 0.5},
      {0xFFFF0080, 360 - 60 * 128.0 / 255, 1, 0.5},
      {0xFFE0C0FF, 240 + 60 * 32.0 / 63, 1, 447.0 / 510},
      {0xFFBF4040, 0, 127.0 / 255, 0.5},
  };
  for (const TCase& Case : Cases) {
    EXPECT_NEAR(static_cast<double>(GetHue(Case.Color)), Case.Hue, 1e-4) << std::hex << Case.Color;
    EXPECT_NEAR(static_cast<double>(GetSaturation(Case.Color)), Case.Saturation, 1e-6) << std::hex << Case.Color;
    EXPECT_NEAR(static_cast<double>(GetBrightness(Case.Color)), Case.Brightness, 1e-6) << std::hex << Case.Color;
    EXPECT_EQ(HSLToColor(Case.Hue / 360, Case.Saturation, Case.Brightness), Case.Color);
  }
  EXPECT_EQ(HSLToColor(0.3, 1, 0), Colors::Black);
  EXPECT_EQ(HSLToColor(0.3, 0, 7), Colors::White);
}

TEST(ZyColorsTest, BrightenKeepsAlphaAndHue) {
  EXPECT_EQ(Brighten(0x80336699, 1.5), 0x806699CCu);  // lightness 0.4 to 0.6
  EXPECT_EQ(Brighten(0xFFFFFFFF, 0.5), 0xFF808080u);
  EXPECT_EQ(Brighten(0x12000000, 5), 0x12000000u);
  EXPECT_EQ(Brighten(0x40336699, 10), 0x40FFFFFFu);
  EXPECT_EQ(Brighten(0x40336699, -1), 0x40000000u);
}

TEST(ZyColorsTest, ContrastsTurnAtTheirLimits) {
  const std::pair<TZyColor, TZyColor> BackGrounds[] = {
      {0xFFFFC003, Colors::White},    // hue 45
      {0xFFFFC103, Colors::DimGray},  // hue just above
      {0xFF808000, Colors::White},    // a dark yellow
      {0xFFFF9898, Colors::White},    // brightness 407 / 510
      {0xFFFF9999, Colors::DimGray},  // brightness 0.8
  };
  for (const auto& [Color, Contrast] : BackGrounds)
    EXPECT_EQ(ContrastBackGroundARGB(Color), Contrast) << std::hex << Color;
  EXPECT_EQ(ContrastBackGround(0x0003C1FF), Colors::DimGray);

  const std::pair<TZyColor, TZyColor> ForeColors[] = {
      {0xFFFFBF03, Colors::LightGreen},  // hue just below 45
      {0xFFFFC003, Colors::DarkRed},     // hue 45
      {0xFF2D03FF, Colors::DarkRed},     // hue 250
      {0xFF2E03FF, Colors::LightGreen},  // hue just above
      {0xFF004000, Colors::LightCoral}, {0xFFFFFFFF, Colors::DarkGreen},
  };
  for (const auto& [Color, Contrast] : ForeColors)
    EXPECT_EQ(ContrastForeColorARGB(Color), Contrast) << std::hex << Color;
}

TEST(ZyColorsTest, AreaStylesAreHatchesButTheLast) {
  const auto& Names = EnumInfo(TZyAreaStyle::Total).Values;
  EXPECT_EQ(Names.size(), 54u);
  for (const auto& [Style, Name, Hatch] :
       {std::tuple(TZyAreaStyle::Percent50, "Percent50", HatchStyle50Percent),
        std::tuple(TZyAreaStyle::DashedUpwardDiagonal, "DashedUpwardDiagonal", HatchStyleDashedUpwardDiagonal),
        std::tuple(TZyAreaStyle::SolidDiamond, "SolidDiamond", HatchStyleSolidDiamond)}) {
    EXPECT_EQ(Names[static_cast<std::size_t>(Style)], Name);
    const auto Made = GetAreaBrush(Style, Colors::Red, Colors::Blue);
    const auto* const Brush = dynamic_cast<HatchBrush*>(Made.get());
    ASSERT_NE(Brush, nullptr);
    EXPECT_EQ(Brush->GetHatchStyle(), Hatch);
    EXPECT_EQ(Brush->GetForegroundColor(), Colors::Red);
    EXPECT_EQ(Brush->GetBackgroundColor(), Colors::Blue);
  }
  const auto Total = GetAreaBrush(TZyAreaStyle::Total, Colors::Red, Colors::Blue);
  ASSERT_NE(dynamic_cast<SolidBrush*>(Total.get()), nullptr);
  EXPECT_EQ(dynamic_cast<SolidBrush&>(*Total).GetColor(), Colors::Red);
}

TEST(ZyColorsTest, FontNamesReplaceWhatWasInTheList) {
  GetInstalledFontNames(nullptr);
  TStringList Names;
  Names.Add("no font");
  GetInstalledFontNames(&Names);
  EXPECT_EQ(Names.IndexOf("no font"), -1);
  EXPECT_GE(Names.IndexOf("DejaVu Sans"), 0);
}

}  // namespace
}  // namespace zy
