#include "graph/values/ZyColors.h"

#include <gtest/gtest.h>

#include <QColor>

#include "graph/styles/ZyGDI.h"
#include "platform/framework/SystemColors.h"
#include "platform/framework/TStrings.h"
#include "texts/Exceptions.h"

namespace zy {
namespace {

TEST(ZyColorsTest, TheTableHasItsOrderAndTheValuesOfTheWeb) {
  for (int Index = FirstFixedColor + 1; Index <= NamedColorCount; ++Index) {
    const std::string Name(ColorName(Index));
    EXPECT_EQ(NamedColor(Index), QColor(Name.c_str()).rgb()) << Name;  // the toolkit's own table of the same names
    EXPECT_EQ(ColorToARGB(Name), NamedColor(Index)) << Name;
  }
  EXPECT_THROW(ColorName(0), ERangeError);
  EXPECT_THROW(NamedColor(NamedColorCount + 1), ERangeError);
  std::string Names;
  for (const int Index : {1, 10, 19, 26, 27, 28, 52, 96, 117, 167}) Names += std::string(ColorName(Index)) + " ";
  EXPECT_EQ(Names, "ActiveBorder ControlText Info WindowText Transparent Black LightSalmon LimeGreen Aqua LightPink ");
}

TEST(ZyColorsTest, DesktopColorsAreOpaqueAndNumbered) {
  const std::pair<const char*, int> Numbers[] = {{"ScrollBar", 0}, {"Window", 5}, {"WindowText", 8},
                                                 {"Control", 15},  {"Info", 24},  {"HotTrack", 26}};
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
  EXPECT_EQ(ColorToARGB("cYaN"), 0xFF00FFFF);
  EXPECT_EQ(ColorToARGB("TRANSPARENT"), 0x00FFFFFFu);
  EXPECT_EQ(ColorToARGB("$80ff0102"), 0x80FF0102);
  EXPECT_EQ(ColorToARGB("255"), 255u);
  for (const char* White : {"-1", "4294967295"}) EXPECT_EQ(ColorToARGB(White), 0xFFFFFFFF) << White;
  for (const char* Bad : {"", "Reddish", "Red ", "#FF0000", "$123456789", "4294967296", "-2147483649", "1.5"})
    EXPECT_THROW(ColorToARGB(Bad), EConvertError) << Bad;
}

TEST(ZyColorsTest, ColorsAreWrittenAsTheFirstNameOrAsANumber) {
  EXPECT_EQ(ARGBToString(0xFF00FFFF, false), "Aqua");
  EXPECT_EQ(ARGBToString(0x00FFFFFF, false), "Transparent");
  EXPECT_EQ(ARGBToString(0x0A0B0C0D, false), "$0A0B0C0D");
  EXPECT_EQ(ARGBToString(SystemColor(10), true), "ActiveBorder");
  EXPECT_EQ(ColorToARGB(ARGBToString(SystemColor(10), false)), SystemColor(10));
}

TEST(ZyColorsTest, RichIdsComeBackWithoutTheirBracket) {
  EXPECT_EQ(ARGBToRichID(0x80FF0102), "[A=128, R=255, G=1, B=2]");
  EXPECT_EQ(RGBToRichID(0x00332211), "[A=255, R=17, G=34, B=51]");
  EXPECT_EQ(RichIDToTZyColor("[A=128, R=255, G=1, B=2"), 0x80FF0102u);
  EXPECT_EQ(RichIDToTZyColor("A=256,R=257,G=-1,B= 3"), 0x0001FF03u);
  EXPECT_EQ(RichIDToTColor("[A=128, R=17, G=34, B=51"), 0x00332211);
  for (const char* Bad : {"", "[A=1, R=2, G=3, B=4]", "[A=1, R=2, G=3", "[R=2, A=1, G=3, B=4", "[A=x, R=2, G=3, B=4"})
    EXPECT_THROW(RichIDToTZyColor(Bad), EConvertError) << Bad;
}

TEST(ZyColorsTest, HueSaturationAndLightness) {
  const std::tuple<TZyColor, double, double, double> Cases[] = {{0xFFFFFFFF, 0, 0, 1},
                                                                {0xFF336699, 210, 0.5, 0.4},
                                                                {0xFFFFCC00, 48, 1, 0.5},
                                                                {0xFF00FF80, 150.117647, 1, 0.5},
                                                                {0xFFFF0080, 329.882353, 1, 0.5},
                                                                {0xFFE0C0FF, 270.476190, 1, 0.87647059}};
  for (const auto& [Color, Hue, Saturation, Brightness] : Cases) {
    EXPECT_NEAR(GetHue(Color), Hue, 1e-4) << std::hex << Color;
    EXPECT_NEAR(GetSaturation(Color), Saturation, 1e-6) << std::hex << Color;
    EXPECT_NEAR(GetBrightness(Color), Brightness, 1e-6) << std::hex << Color;
    EXPECT_EQ(HSLToColor(Hue / 360, Saturation, Brightness), Color);
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
  // Hue 45, a dark yellow, brightness 407 / 510; hue just above 45, brightness 0.8.
  for (const TZyColor Color : {0xFFFFC003, 0xFF808000, 0xFFFF9898})
    EXPECT_EQ(ContrastBackGroundARGB(Color), Colors::White) << std::hex << Color;
  for (const TZyColor Color : {0xFFFFC103, 0xFFFF9999})
    EXPECT_EQ(ContrastBackGroundARGB(Color), Colors::DimGray) << std::hex << Color;
  EXPECT_EQ(ContrastBackGround(0x0003C1FF), Colors::DimGray);

  // Hue just below 45, 45, 250, just above 250.
  const std::pair<TZyColor, TZyColor> ForeColors[] = {
      {0xFFFFBF03, Colors::LightGreen}, {0xFFFFC003, Colors::DarkRed},    {0xFF2D03FF, Colors::DarkRed},
      {0xFF2E03FF, Colors::LightGreen}, {0xFF004000, Colors::LightCoral}, {0xFFFFFFFF, Colors::DarkGreen}};
  for (const auto& [Color, Contrast] : ForeColors)
    EXPECT_EQ(ContrastForeColorARGB(Color), Contrast) << std::hex << Color;
}

TEST(ZyColorsTest, AreaStylesAreHatchesButTheLast) {
  const auto& Names = EnumInfo(TZyAreaStyle::Total).Values;
  EXPECT_EQ(Names.size(), 54u);
  for (const auto& [Style, Name, Hatch] :
       {std::tuple(TZyAreaStyle::Percent50, "Percent50", HatchStyle50Percent),
        std::tuple(TZyAreaStyle::SolidDiamond, "SolidDiamond", HatchStyleSolidDiamond)}) {
    EXPECT_EQ(Names[static_cast<std::size_t>(Style)], Name);
    const auto Made = GetAreaBrush(Style, Colors::Red, Colors::Blue);
    const auto& Brush = dynamic_cast<const HatchBrush&>(*Made);
    EXPECT_EQ(Brush.GetHatchStyle(), Hatch);
    EXPECT_EQ(std::pair(Brush.GetForegroundColor(), Brush.GetBackgroundColor()), std::pair(Colors::Red, Colors::Blue));
  }
  const auto Total = GetAreaBrush(TZyAreaStyle::Total, Colors::Red, Colors::Blue);
  EXPECT_EQ(dynamic_cast<const SolidBrush&>(*Total).GetColor(), Colors::Red);
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
