// A sheet of everything that charts are drawn with, as a picture in two resolutions and as SVG, PDF and EMF.
//
//   palette [FOLDER]

#include <cmath>
#include <filesystem>
#include <iostream>
#include <string>

#include "common/Pictures.h"
#include "graph/shapes/ZyDrawing.h"
#include "graph/styles/ZyStyles.h"
#include "platform/controls/TApplication.h"
#include "platform/drawing/Font.h"
#include "platform/drawing/Graphics.h"

namespace {

using namespace zy;

constexpr int SheetWidth = 1200;
constexpr int SheetHeight = 1012;

void DrawLabel(Graphics& Canvas, const std::string& Text, float X, float Y) {
  Canvas.DrawString(Text, Font("Arial", 7), SolidBrush(Colors::DimGray), X, Y);
}

void DrawHeading(Graphics& Canvas, const std::string& Text, float X, float Y) {
  Canvas.DrawString(Text, Font("Arial", 10, {TFontStyle::Bold}), SolidBrush(Colors::DarkBlue), X, Y);
}

/// Corner of a cell in a table that is filled row by row.
PointF CellAt(PointF Origin, SizeF Step, int Columns, int Index) {
  const int Row = Index / Columns, Column = Index % Columns;
  return {Origin.X + Step.Width * static_cast<float>(Column), Origin.Y + Step.Height * static_cast<float>(Row)};
}

void DrawAreaStyles(Graphics& Canvas, float Top) {
  DrawHeading(Canvas, "Area styles", 20, Top);
  const auto& Names = EnumInfo(TZyAreaStyle{}).Values;
  for (std::size_t Style = 0; Style < Names.size(); ++Style) {
    const auto [X, Y] = CellAt({20, Top + 20}, {97, 54}, 12, static_cast<int>(Style));
    const auto Fill = GetAreaBrush(static_cast<TZyAreaStyle>(Style), Colors::SteelBlue, Colors::Ivory);
    Canvas.FillRectangle(*Fill, X, Y, 90, 36);
    Canvas.DrawString(Names[Style], Font("Arial", 6), SolidBrush(Colors::DimGray), X, Y + 37);
  }
}

void DrawDashes(Graphics& Canvas, float Left, float Top) {
  DrawHeading(Canvas, "Lines", Left, Top);
  for (int Style = DashStyleSolid; Style < DashStyleCustom; ++Style)
    for (int Column = 0; Column < 4; ++Column) {
      TZyPen Line(Colors::Maroon, static_cast<float>(Column) * 1.5f + 1);
      Line.SetDashStyle(static_cast<TDashStyle>(Style));
      const float X = Left + 75 * static_cast<float>(Column), Y = Top + 26 + 14 * static_cast<float>(Style);
      Canvas.DrawLine(Line, X, Y, X + 66, Y);
    }
  for (int Join = LineJoinMiter; Join <= LineJoinRound; ++Join) {
    TZyPen Line(0x80804000, 10);
    Line.SetLineJoin(static_cast<LineJoin>(Join));
    Line.SetStartCap(static_cast<LineCap>(Join));
    Line.SetEndCap(static_cast<LineCap>(Join));
    const float X = Left + 75 * static_cast<float>(Join);
    const PointF Points[] = {{X + 6, Top + 140}, {X + 34, Top + 106}, {X + 60, Top + 140}};
    Canvas.DrawLines(Line, Points);
  }
  TZyArrowSettings Arrow{ModifiedCallback()};
  for (int Index = 0; Index < 3; ++Index) {
    Arrow.SetColor(Index == 1 ? 0x900000FF : Colors::DarkBlue);
    Arrow.SetWidth(static_cast<float>(Index) * 2 + 1);
    const float Y = Top + 140 - 14 * static_cast<float>(Index);
    Canvas.DrawLine(*Arrow.GetPen(RectF{}, 0), Left + 230, Y, Left + 290, Y - 14);
  }
}

void DrawGradients(Graphics& Canvas, float Left, float Top) {
  DrawHeading(Canvas, "Gradients", Left, Top);
  TZyGradientSettings Gradient{ModifiedCallback()};
  Gradient.SetFirstColor(Colors::Crimson);
  Gradient.SetMiddleColor(Colors::Gold);
  Gradient.SetLastColor(Colors::MidnightBlue);
  for (int Index = 0; Index < 10; ++Index) {
    const auto [X, Y] = CellAt({Left, Top + 22}, {68, 64}, 5, Index);
    const RectF Box{X, Y, 60, 52};
    Gradient.SetStyle(Index < 6   ? TZyGradientStyle::Linear
                      : Index < 8 ? TZyGradientStyle::Radial
                                  : TZyGradientStyle::Elliptical);
    Gradient.SetLinearAngle(30 * static_cast<float>(Index));
    Gradient.SetLinearCenter(Index == 5 ? 0.2f : 0.5f);
    Gradient.SetRadialCenterX(Index % 2 == 0 ? 0.5f : 0.25f);
    Gradient.SetRadialCenterY(Index % 2 == 0 ? 0.5f : 0.3f);
    Canvas.FillRectangle(*Gradient.GetBrush(Box, 0), Box);
  }
}

void DrawFans(Graphics& Canvas, float Left, float Top) {
  DrawHeading(Canvas, "Path gradients, text outlines", Left, Top);
  const ARGB Surround[] = {Colors::Red, Colors::Lime, Colors::Blue, Colors::Yellow, Colors::Fuchsia};
  std::vector<PointF> Corners;
  for (int Corner = 0; Corner < 5; ++Corner) {
    const float Angle = 1.2566371f * static_cast<float>(Corner) - 1.5707963f;
    Corners.push_back({Left + 48 + 44 * std::cos(Angle), Top + 68 + 44 * std::sin(Angle)});
  }
  PathGradientBrush Fan{std::span<const PointF>(Corners)};
  Fan.SetSurroundColors(Surround);
  Canvas.FillPolygon(Fan, Corners);
  GraphicsPath Text;
  Text.AddString("Zy", "Times New Roman", {TFontStyle::Bold, TFontStyle::Italic}, 92, {Left + 104, Top + 12});
  Canvas.FillPath(
      *LinearBrush(RectF{Left + 104, Top + 30, 100, 80}, 90, 0.5f, Colors::Orange, Colors::Red, Colors::Indigo), Text);
  Canvas.DrawPath(TZyPen(Colors::Black, 1), Text);
  const Font Face("Arial", 9);
  for (int Step = 0; Step < 10; ++Step) {
    const Matrix Saved = Canvas.GetTransform();
    Canvas.TranslateTransform(Left + 310, Top + 76);
    Canvas.RotateTransform(36 * static_cast<float>(Step));
    Canvas.DrawString("rotated text", Face, SolidBrush(HSLToColor(0.1 * Step, 1, 0.35)), 14, -7);
    Canvas.SetTransform(Saved);
  }
}

void DrawSymbols(Graphics& Canvas, float Top) {
  DrawHeading(Canvas, "Point symbols, and lines kept out of them", 20, Top);
  const auto& Names = EnumInfo(TZyPointSymbol{}).Values;
  const TZyPen Outline(Colors::DarkBlue, 1.5f);
  const SolidBrush Fill(0x6000A0FF);
  const Region Saved = Canvas.GetClip();
  for (std::size_t Index = 0; Index < Names.size(); ++Index) {
    const float X = 50 + 60 * static_cast<float>(Index);
    const auto Symbol = static_cast<TZyPointSymbol>(Index);
    ExcludeSymbolSpace(Canvas, X, Top + 50, 26, Symbol);
  }
  std::vector<PointF> Wave;
  for (int X = 20; X < 620; ++X)
    Wave.push_back({static_cast<float>(X), Top + 50 + 8 * std::sin(static_cast<float>(X) / 12)});
  Canvas.DrawLines(TZyPen(Colors::Crimson, 2), Wave);
  Canvas.SetClip(Saved);
  for (std::size_t Index = 0; Index < Names.size(); ++Index) {
    const float X = 50 + 60 * static_cast<float>(Index);
    DrawPointSymbol(Canvas, Outline, Fill, X, Top + 50, 26, static_cast<TZyPointSymbol>(Index));
    DrawLabel(Canvas, std::string(Names[Index]), X - 16, Top + 72);
  }
}

void DrawSolids(Graphics& Canvas, float Top) {
  DrawHeading(Canvas, "Bars and cylinders", 20, Top);
  const TZyColor Fills[] = {Colors::SteelBlue, Colors::OliveDrab, 0xA0DC143C};
  for (int Index = 0; Index < 3; ++Index) {
    const TZyColor Fill = Fills[Index];
    const float X = 30 + 66 * static_cast<float>(Index), Height = 80 - 20 * static_cast<float>(Index);
    Draw3DBar(Canvas, Colors::Black, Fill, X, Top + 160, X + 36, Top + 160 - Height, 16, 12);
    DrawCylinderVertical(Canvas, Colors::Black, Fill, X + 220, Top + 160, X + 260, Top + 160 - Height, 0, 14);
    DrawCylinderVertical(Canvas, Colors::Transparent, Fill, X + 440, Top + 160, X + 476, Top + 160 - Height, 6, 16);
    const float Y = Top + 40 + 44 * static_cast<float>(Index), Length = 110 - 25 * static_cast<float>(Index);
    DrawCylinderHorizontal(Canvas, Colors::Black, Fill, 680, Y, 680 + Length, Y + 28, 14, 0);
    DrawCylinderHorizontal(Canvas, Colors::Black, Fill, 840, Y, 840 + Length, Y + 28, 16, 6);
    Draw3DBar(Canvas, Colors::Transparent, Fill, 1010, Y, 1010 + Length, Y + 26, 16, 10);
  }
}

void DrawBoxes(Graphics& Canvas, float Top) {
  DrawHeading(Canvas, "Boxes and shadows", 20, Top);
  struct TLook {
    const char* Name;
    float Rounding;
    bool Framed, Shadow, Raised, Lowered;
  };
  constexpr TLook Looks[] = {{"framed", 0, true, false, false, false},
                             {"rounded", 16, true, false, false, false},
                             {"raised", 0, false, false, true, false},
                             {"lowered", 0, false, false, false, true},
                             {"both", 0, false, false, true, true},
                             {"raised, round", 20, false, false, true, false},
                             {"lowered, round", 20, false, false, false, true},
                             {"shadow", 0, true, true, false, false},
                             {"shadow, round", 24, false, true, true, false}};
  const TZyPen Frame(Colors::DarkSlateGray, 1);
  float X = 24;
  for (const TLook& Look : Looks) {
    const RectF Box{X, Top + 26, 104, 48};
    const auto Fill = LinearBrush(Box, 60, 0.5f, Colors::White, Colors::Lavender, Colors::LightSteelBlue);
    DrawRoundRect(Canvas, *Fill, Frame, Box, Look.Rounding, Look.Framed, Look.Shadow, Look.Raised, Look.Lowered);
    DrawLabel(Canvas, Look.Name, X + 4, Top + 82);
    X += 128;
  }
}

void DrawSheet(Graphics& Canvas) {
  Canvas.Clear(Colors::White);
  Canvas.SetSmoothingMode(SmoothingModeHighQuality);
  DrawAreaStyles(Canvas, 14);
  DrawDashes(Canvas, 20, 316);
  DrawGradients(Canvas, 350, 316);
  DrawFans(Canvas, 730, 316);
  DrawSymbols(Canvas, 482);
  DrawSolids(Canvas, 580);
  DrawBoxes(Canvas, 776);
  DrawHeading(Canvas, "Named colours", 20, 886);
  for (int Index = FirstFixedColor + 1; Index <= NamedColorCount; ++Index) {
    const auto [X, Y] = CellAt({20, 910}, {16.6f, 26}, 70, Index - FirstFixedColor - 1);
    Canvas.FillRectangle(SolidBrush(NamedColor(Index)), X, Y, 15, 22);
  }
  Canvas.DrawString("Drawn by Zyphos: the same calls on a picture, in SVG, PDF and EMF",
                    Font("Times New Roman", 14, {TFontStyle::Italic}), SolidBrush(Colors::DarkRed), 20, 972);
}

}  // namespace

int main(int ArgCount, char** Args) {
  const TApplication Program(ArgCount, Args);
  try {
    const std::filesystem::path Folder = ArgCount > 1 ? Args[1] : "out";
    std::filesystem::create_directories(Folder);
    examples::SavePictures(Folder / "palette", SheetWidth, SheetHeight, DrawSheet);
    examples::SaveRecordings(Folder / "palette", SheetWidth, SheetHeight, {".svg", ".pdf", ".emf"}, DrawSheet);
    std::cout << "Wrote palette.png, palette@2x.png, palette.svg, palette.pdf and palette.emf to " << Folder.string()
              << '\n';
    return 0;
  } catch (const std::exception& Error) {
    std::cerr << "palette: " << Error.what() << '\n';
    return 1;
  }
}
