#include "graph/styles/ZyStyles.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "annotations/captions/ZyFont.h"
#include "drawing/Pixels.h"
#include "platform/controls/TControlFont.h"
#include "platform/framework/Reflection.h"
#include "texts/Exceptions.h"
#include "undo/ZyUndoStack.h"

namespace zy {
namespace {

/// One object of every settings class, with an undo stack and a count of its callbacks.
class ZyStylesTest : public ::testing::Test {
 protected:
  ZyStylesTest() {
    const auto Join = [this](auto&... Settings) { (Settings.SetUndoStack(&Stack), ...); };
    Join(Gradient, Line, Area, Symbol, Arrow, ArrowPoint);
  }

  int Calls = 0;
  ModifiedCallback Count = [this] { ++Calls; };
  TZyUndoStack Stack;
  TZyGradientSettings Gradient{Count};
  TZyLineSettings Line{Count};
  TZyAreaSettings Area{Count};
  TZyPointSymbolSettings Symbol{Count};
  TZyArrowSettings Arrow{Count};
  TZyAxisArrowPoint ArrowPoint{Count};
};

// A star at what is stored though it is the default, as owners have their own.
TEST_F(ZyStylesTest, RowsHaveTheirLabelsAndDefaults) {
  const std::string LineLabels = "Line color*, Line dash style*, Line width, Line visible*, ";
  const std::pair<TPersistent*, std::string> Cases[] = {
      {&Gradient,
       "Gradient visible, Gradient style, Gradient first color, Gradient middle color, Gradient last color, Linear "
       "gradient angle, Linear gradient center, X component of gradient center, Y component of gradient center, "},
      {&Line, LineLabels},
      {&Area, "Filled area visible*, Area fill style, Area fill foreground color*, Area fill background color*, "},
      {&Symbol,
       "Point symbol visible*, Point symbol size, Point symbol borderline width, Point symbol borderline color*, "
       "Point symbol fill color*, Point symbol selection*, "},
      {&Arrow, LineLabels + "Arrow tip point length, Arrow tip point inner length, Arrow tip point height, "},
      {&ArrowPoint,
       "Axis arrow visible, Axis arrow tip point length, Axis arrow tip point inner length, Axis arrow tip point "
       "height, "}};
  for (const auto& [Object, Labels] : Cases) {
    std::string Found;
    for (const TPropInfo* Info : Object->ClassInfo().Properties()) {
      if (Info->IsOwnedObject) continue;
      Found += LoadResString(Info->Label.value()) + (Info->IsDefault(*Object) ? ", " : "*, ");
    }
    EXPECT_EQ(Found, Labels);
  }
}

TEST_F(ZyStylesTest, ValuesAreBroughtIntoTheirLimits) {
  const float NoNumber = std::nanf(""), Least = 0.00001f;
  const std::array<float, 3> Cases[] = {{370, 10, 1},       {-90, 270, 0},    {360, 0, 1},
                                        {0.3f, 0.3f, 0.3f}, {NoNumber, 0, 0}, {-1e-7f, 0, 0}};
  for (const auto& [Given, Angle, Fraction] : Cases) {
    Gradient.SetLinearAngle(Given);
    Gradient.SetLinearCenter(Given);
    Gradient.SetRadialCenterX(Given);
    Gradient.SetRadialCenterY(Given);
    EXPECT_EQ(Gradient.LinearAngle(), Angle) << Given;
    for (const float Value : {Gradient.LinearCenter(), Gradient.RadialCenterX(), Gradient.RadialCenterY()})
      EXPECT_EQ(Value, Fraction) << Given;
  }
  Stack.Clear();
  Gradient.SetLinearAngle(360);
  EXPECT_FALSE(Stack.CanUndo());

  for (int Round = 1; Round <= 2; ++Round) {  // compared before it is limited, so the second one counts as a change too
    Arrow.SetInnerLength(0);
    ArrowPoint.SetPointHeight(-3);
    EXPECT_EQ(Stack.UndoList().Count(), 2 * Round);
  }
  Arrow.SetPointLength(NoNumber);
  EXPECT_EQ((std::array{Arrow.InnerLength(), ArrowPoint.PointHeight(), Arrow.PointLength()}),
            (std::array{Least, Least, 5.0f}));
}

TEST_F(ZyStylesTest, AssignCopiesItsOwnClassAndRefusesOthers) {
  TZyArrowSettings Other(nullptr);
  for (TPersistent* Object : std::initializer_list<TPersistent*>{&Gradient, &Line, &Area, &Symbol, &Arrow, &ArrowPoint})
    for (TPersistent* Refused :
         {static_cast<TPersistent*>(nullptr), Object == &Area ? static_cast<TPersistent*>(&Gradient) : &Area})
      EXPECT_THROW(Object->Assign(Refused), EConvertError) << Object->ClassName();
  Other.Gradient().SetFirstColor(Colors::Lime);
  Arrow.Assign(&Other);
  EXPECT_EQ(Arrow.Gradient().FirstColor(), Colors::Lime);
  EXPECT_EQ(Calls, 1);
  EXPECT_FALSE(Stack.CanUndo());
  Other.SetVisible(false);
  Line.Assign(&Other);  // a line takes what an arrow has of a line
  EXPECT_EQ(Calls, 3);  // Visible by its setter, then the rest
  EXPECT_EQ(Stack.UndoList().Get(0), "Line visible");
}

TEST_F(ZyStylesTest, AVisibleGradientWinsInPensAndBrushes) {
  Line.SetColor(Colors::Lime);
  Line.SetWidth(2.5f);
  Line.SetDashStyle(DashStyleDot);
  for (const bool Shaded : {false, true}) {
    Line.Gradient().SetVisible(Shaded);
    const auto Pen = Shaded ? Line.GetPen(RectF{0, 0, 10, 10}, 0) : Line.GetPen(TRect{0, 0, 10, 10}, 0);
    EXPECT_EQ(dynamic_cast<const LinearGradientBrush*>(&Pen->GetBrush()) != nullptr, Shaded);
    EXPECT_EQ(std::tuple(Pen->Width(), Pen->DashStyle(), Pen->GetMiterLimit()), std::tuple(2.5f, DashStyleDot, 0.0f));
    EXPECT_TRUE(Shaded || Pen->Color() == Colors::Lime);
  }
  EXPECT_TRUE(Area.Solid());
  EXPECT_NE(dynamic_cast<SolidBrush*>(Area.GetBrush(TRect{0, 0, 10, 10}).get()), nullptr);
  Area.SetAreaStyle(TZyAreaStyle::Wave);
  EXPECT_FALSE(Area.Solid());
  EXPECT_NE(dynamic_cast<HatchBrush*>(Area.GetBrush(RectF{0, 0, 10, 10}).get()), nullptr);
  Area.Gradient().SetVisible(true);
  Area.Gradient().SetStyle(TZyGradientStyle::Radial);
  EXPECT_NE(dynamic_cast<PathGradientBrush*>(Area.GetBrush(RectF{0, 0, 10, 10}).get()), nullptr);
}

TEST_F(ZyStylesTest, LinearGradientsReachOnePixelFurtherAndTurnWithTheirObject) {
  Gradient.SetLinearAngle(30);
  Gradient.SetLinearCenter(0.25f);
  const auto Made = Gradient.GetBrush(TRect{10, 20, 110, 60}, 60);  // 90 degrees: downwards
  const auto& Brush = dynamic_cast<const LinearGradientBrush&>(*Made);
  EXPECT_NEAR(Brush.GetStart().Y, 19, 1e-3);
  EXPECT_NEAR(Brush.GetStop().Y, 60, 1e-3);
  EXPECT_NEAR(Brush.GetStart().X, Brush.GetStop().X, 1e-3);
  ASSERT_EQ(Brush.Stops().size(), 3u);
  EXPECT_EQ(Brush.Stops()[1].Position, 0.25f);
  EXPECT_EQ(Brush.Stops()[1].Color, Gradient.MiddleColor());
  for (const float Center : {0.0f, 1.0f}) EXPECT_NO_THROW(LinearBrush(RectF{0, 0, 9, 9}, 0, Center, 1, 2, 3));
}

/// Colour of the pixel at a place of a picture of 200 by 100 that a brush fills.
ARGB PixelOf(const Brush& Brush, int X, int Y) {
  return PictureOf(200, 100, [&](Graphics& Gr) { Gr.FillRectangle(Brush, 0, 0, 200, 100); }).GetPixel(X, Y);
}

// A filled rectangle samples its brush half a pixel beside the points that are named here. In a view of 60 by 40 in the
// middle of the picture the circle has the radius 36.06, the ellipse 42.43 by 28.28.
TEST_F(ZyStylesTest, OtherGradientsRunFromTheOutlineToThePoint) {
  const TRect View{70, 30, 130, 70};
  const PointF Center{0.75f, 0.5f};  // x = 115, y = 50
  const auto Radial = RadialBrush(View, Center, Colors::Red, Colors::Lime, Colors::Blue);
  const auto Elliptical = EllipticalBrush(View, Center, Colors::Red, Colors::Lime, Colors::Blue);
  const std::tuple<const Brush&, int, ARGB> Places[] = {{*Radial, 115, Colors::Blue},
                                                        {*Radial, 65, 0xFFF50A00},  // the outline is 63.94
                                                        {*Radial, 89, 0xFF05FA00},  // halfway is 89.47
                                                        {*Elliptical, 115, Colors::Blue},
                                                        {*Elliptical, 86, Colors::Lime}};  // halfway is 86.29
  for (const auto& [Brush, X, Color] : Places) EXPECT_LE(Distance(PixelOf(Brush, X, 50), Color), 16) << X;
  EXPECT_EQ(PixelOf(*Radial, 60, 50) >> 24, 0u);       // left of 63.94
  EXPECT_EQ(PixelOf(*Elliptical, 53, 50) >> 24, 0u);   // left of 57.57
  EXPECT_NE(PixelOf(*Radial, 100, 18) >> 24, 0u);      // the circle reaches up to 13.94
  EXPECT_EQ(PixelOf(*Elliptical, 100, 18) >> 24, 0u);  // the ellipse to 21.72
}

TEST_F(ZyStylesTest, ArrowTipsAreBarbsBehindTheEndOfTheLine) {
  const auto Cap = ArrowPointCap(ArrowPoint);  // length 7, inner 5, height 3
  EXPECT_EQ(Cap->GetBaseInset(), 5.0f);
  EXPECT_TRUE(Cap->StrokePath().IsEmpty());
  EXPECT_EQ(Cap->FillPath().GetBounds(), (RectF{-3, -7, 6, 7}));
  EXPECT_TRUE(Cap->FillPath().IsVisible({0, -4}));
  EXPECT_FALSE(Cap->FillPath().IsVisible({0, -6}));
  EXPECT_TRUE(Cap->FillPath().IsVisible({2.5f, -6.5f}));

  const TZyLineSettings& Base = Arrow;  // a virtual operation: the tip comes along
  const auto Pen = Base.GetPen(TRect{0, 0, 10, 10}, 0);
  ASSERT_NE(Pen->EndShape(), nullptr);
  EXPECT_EQ(Pen->EndShape()->FillPath().GetBounds(), (RectF{-2, -5, 4, 5}));
  EXPECT_EQ(Pen->StartShape(), nullptr);
}

TEST(ZyFontTest, AssignKeepsWhatItsViewsDoNotTell) {
  int Looks = 0, Layouts = 0;
  TZyFont Font, Copy([&Looks] { ++Looks; });
  Copy.OnNeedsResize = [&Layouts] { ++Layouts; };
  Font.SetSize(9.5f);
  Font.SetFillColor(0x80FF0000);
  Font.SetDrawEffects({TZyCharDrawEffect::Lowered});
  Font.Gradient().SetFirstColor(Colors::Lime);
  Copy.SetDrawEffects({TZyCharDrawEffect::Shadow});
  Looks = 0;
  Copy.Assign(&Font);
  EXPECT_EQ(std::tuple(Copy.Size(), Copy.FillColor(), Copy.DrawEffects(), Copy.Gradient().FirstColor()),
            std::tuple(9.5f, 0x80FF0000, Font.DrawEffects(), Colors::Lime));
  EXPECT_EQ(std::tuple(Looks, Layouts), std::tuple(1, 1));
}

TEST(ZyFontTest, OneEffectAtATime) {
  using enum TZyCharDrawEffect;
  TZyFont Font;
  const std::pair<TZyCharDrawEffects, TZyCharDrawEffects> Steps[] = {
      {{Raised, Outline}, {Outline}}, {{Outline, Lowered}, {Lowered}}, {{Shadow, Lowered, Raised}, {Shadow}}, {{}, {}}};
  for (const auto& [Given, Stored] : Steps) {
    Font.SetDrawEffects(Given);
    EXPECT_EQ(Font.DrawEffects(), Stored);
  }
}

TEST(ZyFontTest, HasTheViewsOfAControlsFont) {
  TZyFont Font;
  Font.SetSize(9.5f);
  EXPECT_EQ(Font.Height(), -13);  // 10 points
  Font.SetHeight(-32);
  EXPECT_EQ(Font.Size(), 9.5f);
  Font.SetSize(0);  // falls back to the whole size
  EXPECT_EQ(Font.Size(), 24.0f);
  Font.SetSize(0.25f);
  EXPECT_EQ(Font.WholeSize(), 1);
  for (const float Bad : {std::nanf(""), 10001.0f}) EXPECT_THROW(Font.SetSize(Bad), ERangeError) << Bad;
  EXPECT_EQ(Font.Size(), 0.25f);
  Font.SetFillColor(0x80FF0000);
  EXPECT_EQ(Font.Color(), 0x0000FF);
  const auto Same = Font.AsTFont();
  Font.SetColor(Font.Color());
  EXPECT_EQ(Font.FillColor(), Colors::Red);
  Font.SetAsTFont(*Same);
  EXPECT_EQ(Font.FillColor(), 0x80FF0000);
}

TEST(ZyFontTest, ChangesAreToldByWhatTheyChangeAndUndoneAsOneStep) {
  int Looks = 0, Layouts = 0;
  TZyFont Font([&Looks] { ++Looks; });
  Font.OnNeedsResize = [&Layouts] { ++Layouts; };
  Font.PushToUndoStack(nullptr, "nothing");
  TZyUndoStack Stack;
  Font.PushToUndoStack(&Stack, "Font of graph title");
  Font.SetFillColor(Colors::Red);
  Font.SetDrawEffects({TZyCharDrawEffect::Shadow});
  Font.Gradient().SetVisible(true);
  EXPECT_EQ(Looks, 3);
  Font.SetName("DejaVu Sans");
  Font.SetSize(20);
  Font.SetStyle({TFontStyle::Bold});
  Font.SetRenderingHint(TZyTextRenderingHint::AntiAlias);
  EXPECT_EQ(Layouts, 4);
  EXPECT_EQ(Stack.UndoList().Text(), "Font of graph title\n");
  Stack.Undo();
  EXPECT_EQ(std::tuple(Font.Name(), Font.Size(), Font.FillColor()), std::tuple("Arial", 10.0f, Colors::Black));
  EXPECT_TRUE(Font.Style() == TFontStyles{} && Font.DrawEffects() == TZyCharDrawEffects{});
  EXPECT_FALSE(Font.Gradient().Visible());
}

}  // namespace
}  // namespace zy
