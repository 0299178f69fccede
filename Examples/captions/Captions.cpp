// A sheet of captions: their markup, places, angles and effects, and values that change while they are shown.
//
//   captions [FOLDER]

#include <cmath>
#include <filesystem>
#include <iostream>
#include <string>

#include "analysis/ZyParseFktLists.h"
#include "annotations/ZyRichLabel.h"
#include "common/Pictures.h"
#include "graph/ZyGraph2D.h"
#include "platform/controls/TApplication.h"
#include "platform/controls/TForm.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/Graphics.h"
#include "platform/drawing/Pen.h"
#include "series/ZyLineSeries.h"
#include "series/vectors/ZyDoubleVector.h"

namespace {

using namespace zy;

constexpr int SheetWidth = 1200;
constexpr int SheetHeight = 900;

/// A caption at a place. What it shows can be changed before it is painted.
struct TPlacedCaption {
  TPlacedCaption(const std::string& Text, float X, float Y, float Size) {
    Record.CaptionFont().SetName("DejaVu Sans");
    Record.CaptionFont().SetSize(Size);
    Record.SetCaption(Text);
    Record.X = X;
    Record.Y = Y;
  }
  void Paint(Graphics& Canvas) {
    Record.ParseForSize();
    Record.PaintGr(Canvas);
  }
  TZyRichCaptionObject Record;
};

void DrawHeading(Graphics& Canvas, const std::string& Text, float X, float Y) {
  TPlacedCaption Heading(R"(\b\c[A=255, R=0, G=0, B=139])" + Text, X, Y, 11);
  Heading.Paint(Canvas);
}

void DrawMarkup(Graphics& Canvas) {
  DrawHeading(Canvas, "Markup", 14, 10);
  constexpr const char* Texts[] = {R"(plain, \bbold\b, \iitalic\i, \uunderlined\u, \ostruck out\o)",
                                   R"(\b\i\uall at once\b\i\u and none)",
                                   R"(H\-2\-O, E = mc\+2\+, x\-i\-\+2\+, 10\+-3\+ m\+3\+s\+-1\+)",
                                   R"(\c[A=255, R=220, G=20, B=60]red\c[A=128, R=0, G=0, B=205] pale blue\c[] own)",
                                   R"(\f[Times New Roman]Times, \f[Courier New]Courier, \f[]own family)",
                                   R"(C:\\Data\\new, \qquiet, broken \c[A=1, R=2)"};
  float Y = 38;
  for (const char* const Text : Texts) {
    TPlacedCaption Source("", 20, Y, 8);
    Source.Record.CaptionFont().SetName("DejaVu Sans Mono");
    Source.Record.CaptionFont().SetFillColor(Colors::DimGray);
    Source.Record.SetCaption(CaptionVerbatim(Text));
    Source.Paint(Canvas);
    TPlacedCaption Shown(Text, 20, Y + 14, 14);
    Shown.Paint(Canvas);
    Y += 50;
  }
}

void DrawCross(Graphics& Canvas, float X, float Y) {
  const Pen Thin(Colors::Red, 1);
  Canvas.DrawLine(Thin, X - 5, Y, X + 5, Y);
  Canvas.DrawLine(Thin, X, Y - 5, X, Y + 5);
}

void DrawPlaces(Graphics& Canvas, float Left, float Top) {
  DrawHeading(Canvas, "Places at an anchor", Left, Top);
  for (int Place = 0; Place < 9; ++Place) {
    const int Row = Place / 3, Column = Place % 3;
    const float X = Left + 80 + 150 * static_cast<float>(Column), Y = Top + 70 + 84 * static_cast<float>(Row);
    TPlacedCaption Caption(
        std::string(EnumInfo(TZyContentAlignment{}).Values[static_cast<std::size_t>(Place)]) + "\nmore\nlines", X, Y,
        9);
    Caption.Record.Alignment = static_cast<TZyContentAlignment>(Place);
    Caption.Paint(Canvas);
    DrawCross(Canvas, X, Y);
  }
}

void DrawAngles(Graphics& Canvas, float X, float Y) {
  for (int Angle = 0; Angle < 360; Angle += 30) {
    TPlacedCaption Caption(
        R"(        \b)" + std::to_string(Angle) + R"(\b° of 360° \+\c[A=255, R=0, G=128, B=0]turned)", X, Y, 11);
    Caption.Record.Alignment = TZyContentAlignment::MiddleLeft;
    Caption.Record.Angle = static_cast<float>(Angle);
    Caption.Paint(Canvas);
  }
}

void DrawEffects(Graphics& Canvas, float Left, float Top) {
  DrawHeading(Canvas, "Effects, gradients, rendering hints", Left, Top);
  Canvas.FillRectangle(SolidBrush(Colors::LightSteelBlue), Left + 6, Top + 30, 560, 142);
  float X = Left + 14;
  for (const auto Effect :
       {TZyCharDrawEffect::Shadow, TZyCharDrawEffect::Outline, TZyCharDrawEffect::Lowered, TZyCharDrawEffect::Raised}) {
    TPlacedCaption Caption(std::string(EnumInfo(Effect).Values[static_cast<std::size_t>(Effect)]), X, Top + 34, 16);
    Caption.Record.CaptionFont().SetStyle({TFontStyle::Bold});
    Caption.Record.CaptionFont().SetDrawEffects({Effect});
    Caption.Record.CaptionFont().SetFillColor(Colors::DarkBlue);
    Caption.Paint(Canvas);
    X += 140;
  }
  X = Left + 14;
  for (const auto Style : {TZyGradientStyle::Linear, TZyGradientStyle::Radial, TZyGradientStyle::Elliptical}) {
    TPlacedCaption Caption("One \\igradient", X, Top + 84, 16);
    TZyGradientSettings& Gradient = Caption.Record.CaptionFont().Gradient();
    Gradient.SetVisible(true);
    Gradient.SetStyle(Style);
    Gradient.SetFirstColor(Colors::Crimson);
    Gradient.SetMiddleColor(Colors::Gold);
    Gradient.SetLastColor(Colors::DarkGreen);
    Caption.Record.CaptionFont().SetStyle({TFontStyle::Bold});
    Caption.Paint(Canvas);
    X += 184;
  }
  X = Left + 14;
  for (const auto Hint : {TZyTextRenderingHint::SystemDefault, TZyTextRenderingHint::SingleBitPerPixel,
                          TZyTextRenderingHint::AntiAlias}) {
    TPlacedCaption Caption(std::string(EnumInfo(Hint).Values[static_cast<std::size_t>(Hint)]), X, Top + 136, 12);
    Caption.Record.CaptionFont().SetRenderingHint(Hint);
    Caption.Paint(Canvas);
    X += 184;
  }
}

void DrawTurnedEffects(Graphics& Canvas, float Left, float Top) {
  DrawHeading(Canvas, "The same, turned, in two lines", Left, Top);
  Canvas.FillRectangle(SolidBrush(Colors::LightSteelBlue), Left + 6, Top + 30, 560, 142);
  float X = Left + 64;
  for (const TZyCharDrawEffects Effects : {TZyCharDrawEffects{TZyCharDrawEffect::Shadow},
                                           {TZyCharDrawEffect::Outline},
                                           {TZyCharDrawEffect::Lowered},
                                           {TZyCharDrawEffect::Raised},
                                           {}}) {
    TPlacedCaption Caption("Turned\nlines", X, Top + 100, 16);
    Caption.Record.Alignment = TZyContentAlignment::MiddleCenter;
    Caption.Record.Angle = 35;
    TZyFont& Face = Caption.Record.CaptionFont();
    Face.SetFillColor(Colors::DarkBlue);
    Face.SetStyle({TFontStyle::Bold});
    Face.SetDrawEffects(Effects);
    if (Effects.Empty()) {
      Face.Gradient().SetVisible(true);
      Face.Gradient().SetFirstColor(Colors::Crimson);
      Face.Gradient().SetMiddleColor(Colors::Gold);
      Face.Gradient().SetLastColor(Colors::DarkGreen);
    }
    Caption.Paint(Canvas);
    X += 112;
  }
}

/// A chart whose title and axes show its own values and those of its series, and a label with a measured one.
class TLiveValues {
 public:
  TLiveValues() {
    AddVariableToList("Temperature", "Last measured", nullptr, GlobalVariableList(), [this] { return FTemperature; });
    FForm.SetName("Plant");
    FForm.SetBounds(0, 0, 590, 335);
    FGraph.SetName("Chart");
    FBoiler.SetName("Boiler");
    FBoiler.SetCaption("Boiler 1");
    FGraph.SetParent(&FForm);
    FGraph.SetBounds(0, 0, 590, 335);
    FGraph.SetCaptionVisible(true);
    FGraph.SetCaption(R"(\b<%Plant.Boiler.Caption%>\b: last \c[A=255, R=220, G=20, B=60]<%Temperature;0.0%> °C)");
    FGraph.Font().SetSize(14);
    FGraph.SetCaptionDistanceBefore(6);
    FGraph.TestPrimaryAxis();
    FGraph.PrimaryXAxis()->SetCaption(R"(\it\i / h, shown by \u<%Plant.Chart.Name%>)");
    FGraph.PrimaryYAxis()->SetCaption(R"(T\-<%Plant.Boiler.Name%>\- / 10\+2\+ °C)");
    FBoiler.SetXData(&FHours);
    FBoiler.SetYData(&FValues);
    FBoiler.SetXAxis(FGraph.PrimaryXAxis());
    FBoiler.SetYAxis(FGraph.PrimaryYAxis());
    FLabel.SetParent(&FForm);
    FLabel.Font().SetSize(12);
    FLabel.SetBackColor(0xC0FFF8DC);
    FLabel.SetAngle(20);
    FLabel.SetCaption("\\b<%Plant.Boiler.Caption%>\\b\n<%Temperature;0.0%> °C = <%Temperature+273.15;0.00%> K");
    FLabel.SetBounds(90, 180, 10, 10);
  }

  void Measure(int Hours) {
    for (int i = 0; i < Hours; ++i) {
      FHours.Add(FHours.Count());
      FTemperature = 55 + 25 * std::sin(FHours.Count() * 0.3) + 0.7 * FHours.Count();
      FValues.Add(FTemperature / 100);
    }
    // A variable of no component tells nobody that it has changed: its captions are parsed by whoever changes it.
    FGraph.ParseCaption();
    FLabel.AdjustBounds();
  }
  /// Title, axis and label follow by themselves.
  void Rename(const std::string& Caption) { FBoiler.SetCaption(Caption); }

  void Paint(Graphics& Canvas, float X, float Y) {
    const Matrix Saved = Canvas.GetTransform();
    Canvas.TranslateTransform(X, Y);
    FGraph.PaintGr(Canvas);
    Canvas.TranslateTransform(static_cast<float>(FLabel.Left()), static_cast<float>(FLabel.Top()));
    FLabel.PaintGr(Canvas);
    Canvas.SetTransform(Saved);
  }

 private:
  double FTemperature = 0;
  TForm FForm;
  TZyDoubleVector FHours, FValues;
  TZyGraph2D FGraph{&FForm};
  TZyLineSeries FBoiler{&FForm};
  TZyRichLabel FLabel{&FForm};
};

void DrawSheet(Graphics& Canvas) {
  Canvas.Clear(Colors::White);
  Canvas.SetSmoothingMode(SmoothingModeHighQuality);
  DrawMarkup(Canvas);
  DrawPlaces(Canvas, 470, 10);
  DrawAngles(Canvas, 1035, 165);
  DrawEffects(Canvas, 14, 346);
  DrawTurnedEffects(Canvas, 604, 346);
  DrawHeading(Canvas, "Live values, before and after", 14, 530);
  TLiveValues Values;
  Values.Measure(10);
  Values.Paint(Canvas, 8, 556);
  Values.Rename(R"(Boiler 2\-new\-)");
  Values.Measure(30);
  Values.Paint(Canvas, 604, 556);
}

}  // namespace

int main(int ArgCount, char** Args) {
  const TApplication Program(ArgCount, Args);
  try {
    const std::filesystem::path Folder = ArgCount > 1 ? Args[1] : "out";
    std::filesystem::create_directories(Folder);
    examples::SavePictures(Folder / "captions", SheetWidth, SheetHeight, DrawSheet);
    std::cout << "Wrote captions.png and captions@2x.png to " << Folder.string() << '\n';
    return 0;
  } catch (const std::exception& Error) {
    std::cerr << "captions: " << Error.what() << '\n';
    return 1;
  }
}
