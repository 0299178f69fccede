#include "graph/ZyStyles.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <map>

#include "annotations/ZyFont.h"
#include "drawing/Pixels.h"
#include "platform/controls/TControlFont.h"
#include "platform/drawing/Bitmap.h"
#include "platform/drawing/Graphics.h"
#include "platform/framework/Exceptions.h"
#include "platform/framework/Reflection.h"
#include "undo/ZyUndoStack.h"

namespace zy {
namespace {

/// One object of every settings class, with an undo stack and a count of its callbacks.
class ZyStylesTest : public ::testing::Test {
 protected:
  ZyStylesTest() {
    for (TPersistent* Settings : {static_cast<TPersistent*>(&Gradient), static_cast<TPersistent*>(&Line),
                                  static_cast<TPersistent*>(&Area), static_cast<TPersistent*>(&Symbol),
                                  static_cast<TPersistent*>(&Arrow), static_cast<TPersistent*>(&ArrowPoint)})
      All.push_back(Settings);
    Gradient.SetUndoStack(&Stack);
    Line.SetUndoStack(&Stack);
    Area.SetUndoStack(&Stack);
    Symbol.SetUndoStack(&Stack);
    Arrow.SetUndoStack(&Stack);
    ArrowPoint.SetUndoStack(&Stack);
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
  std::vector<TPersistent*> All;
};

double ValueOf(const TPersistent& Object, const TPropInfo& Info) {
  return Info.GetFloat != nullptr ? Info.GetFloat(Object) : static_cast<double>(Info.GetOrd(Object));
}

void SetValue(TPersistent& Object, const TPropInfo& Info, double Value) {
  if (Info.SetFloat != nullptr)
    Info.SetFloat(Object, Value);
  else
    Info.SetOrd(Object, static_cast<std::int64_t>(Value));
}

TEST_F(ZyStylesTest, EverySetterTellsOnceAndUndoesUnderItsLabel) {
  using TLabels = std::map<std::string, std::string>;
  const TLabels LineLabels = {
      {"Color", "Line color"}, {"DashStyle", "Line dash style"}, {"Width", "Line width"}, {"Visible", "Line visible"}};
  TLabels ArrowLabels = {{"PointLength", "Arrow tip point length"},
                         {"InnerLength", "Arrow tip point inner length"},
                         {"PointHeight", "Arrow tip point height"}};
  ArrowLabels.insert(LineLabels.begin(), LineLabels.end());
  const std::map<TPersistent*, TLabels> Labels = {
      {&Gradient,
       {{"Visible", "Gradient visible"},
        {"Style", "Gradient style"},
        {"FirstColor", "Gradient first color"},
        {"MiddleColor", "Gradient middle color"},
        {"LastColor", "Gradient last color"},
        {"LinearAngle", "Linear gradient angle"},
        {"LinearCenter", "Linear gradient center"},
        {"RadialCenterX", "X component of gradient center"},
        {"RadialCenterY", "Y component of gradient center"}}},
      {&Line, LineLabels},
      {&Area,
       {{"Visible", "Filled area visible"},
        {"AreaStyle", "Area fill style"},
        {"ForeColor", "Area fill foreground color"},
        {"BackColor", "Area fill background color"}}},
      {&Symbol,
       {{"Visible", "Point symbol visible"},
        {"Size", "Point symbol size"},
        {"BorderLineWidth", "Point symbol borderline width"},
        {"BorderColor", "Point symbol borderline color"},
        {"FillColor", "Point symbol fill color"},
        {"PointSymbol", "Point symbol selection"}}},
      {&Arrow, ArrowLabels},
      {&ArrowPoint,
       {{"Visible", "Axis arrow visible"},
        {"PointLength", "Axis arrow tip point length"},
        {"InnerLength", "Axis arrow tip point inner length"},
        {"PointHeight", "Axis arrow tip point height"}}},
  };
  for (const auto& [Object, Expected] : Labels) {
    std::size_t Seen = 0;
    for (const TPropInfo* Info : Object->ClassInfo().Properties()) {
      if (Info->IsOwnedObject) continue;
      SCOPED_TRACE(std::string(Object->ClassName()) + "." + Info->Name);
      const double Old = ValueOf(*Object, *Info);
      const double New = Info->Kind == TPropKind::Enumeration ? (Old == 0 ? 1 : 0) : Old == 0.25 ? 0.5 : 0.25;
      Calls = 0;
      SetValue(*Object, *Info, Old);
      EXPECT_EQ(Calls, 0);
      EXPECT_FALSE(Stack.CanUndo());
      SetValue(*Object, *Info, Info->Kind == TPropKind::Integer ? 7 : New);
      EXPECT_EQ(Calls, 1);
      ASSERT_EQ(Stack.UndoList().Count(), 1);
      EXPECT_EQ(Stack.UndoList().Get(0), Expected.at(Info->Name));
      Stack.Undo();
      EXPECT_EQ(ValueOf(*Object, *Info), Old);
      EXPECT_EQ(Calls, 2);
      Stack.Clear();
      ++Seen;
    }
    EXPECT_EQ(Seen, Expected.size()) << Object->ClassName();
  }
}

TEST_F(ZyStylesTest, ValuesAreBroughtIntoTheirLimits) {
  constexpr float NoNumber = std::numeric_limits<float>::quiet_NaN();
  const std::pair<float, float> Angles[] = {{370, 10}, {-90, 270}, {360, 0}, {NoNumber, 0}};
  for (const auto& [Given, Stored] : Angles) {
    Gradient.SetLinearAngle(Given);
    EXPECT_EQ(Gradient.LinearAngle(), Stored) << Given;
  }
  const std::pair<float, float> Fractions[] = {{1.5f, 1}, {-0.5f, 0}, {0.3f, 0.3f}, {NoNumber, 0}};
  for (const auto& [Given, Stored] : Fractions) {
    Gradient.SetLinearCenter(Given);
    Gradient.SetRadialCenterX(Given);
    Gradient.SetRadialCenterY(Given);
    EXPECT_EQ(Gradient.LinearCenter(), Stored) << Given;
    EXPECT_EQ(Gradient.RadialCenterX(), Stored) << Given;
    EXPECT_EQ(Gradient.RadialCenterY(), Stored) << Given;
  }
  Gradient.SetLinearAngle(10);
  Stack.Clear();
  Gradient.SetLinearAngle(370);
  EXPECT_FALSE(Stack.CanUndo());

  for (int Round = 1; Round <= 2; ++Round) {  // compared before it is limited, so the second one counts as a change too
    Arrow.SetInnerLength(0);
    ArrowPoint.SetPointHeight(-3);
    EXPECT_EQ(Arrow.InnerLength(), 0.00001f);
    EXPECT_EQ(ArrowPoint.PointHeight(), 0.00001f);
    EXPECT_EQ(Stack.UndoList().Count(), 2 * Round);
  }
  Arrow.SetPointLength(NoNumber);
  EXPECT_EQ(Arrow.PointLength(), 0.00001f);
}

TEST_F(ZyStylesTest, DefaultsAreNotStreamedButWhereOwnersHaveTheirOwn) {
  const std::map<TPersistent*, std::vector<std::string>> AlwaysStored = {
      {&Gradient, {}},
      {&Line, {"Color", "DashStyle", "Visible"}},
      {&Area, {"Visible", "ForeColor", "BackColor"}},
      {&Symbol, {"Visible", "BorderColor", "FillColor", "PointSymbol"}},
      {&Arrow, {"Color", "DashStyle", "Visible"}},
      {&ArrowPoint, {}}};
  for (const auto& [Object, Names] : AlwaysStored) {
    std::vector<std::string> Stored;
    for (const TPropInfo* Info : Object->ClassInfo().Properties())
      if (!Info->IsOwnedObject && !Info->IsDefault(*Object)) Stored.push_back(Info->Name);
    EXPECT_EQ(Stored, Names) << Object->ClassName();
  }
}

TEST_F(ZyStylesTest, AssignCopiesItsOwnClassAndRefusesOthers) {
  for (TPersistent* Object : All) {
    SCOPED_TRACE(Object->ClassName());
    EXPECT_THROW(Object->Assign(nullptr), EConvertError);
    EXPECT_THROW(Object->Assign(Object == &Gradient ? static_cast<TPersistent*>(&Area) : &Gradient), EConvertError);
  }
  TZyArrowSettings OtherArrow(nullptr);
  OtherArrow.SetPointLength(9);
  OtherArrow.SetWidth(4);
  OtherArrow.Gradient().SetFirstColor(Colors::Lime);
  Calls = 0;
  Stack.Clear();
  Arrow.Assign(&OtherArrow);
  EXPECT_EQ(Arrow.PointLength(), 9.0f);
  EXPECT_EQ(Arrow.Width(), 4.0f);
  EXPECT_EQ(Arrow.Gradient().FirstColor(), Colors::Lime);
  EXPECT_EQ(Calls, 1);
  EXPECT_FALSE(Stack.CanUndo());
  OtherArrow.SetVisible(false);
  Line.Assign(&OtherArrow);  // a line takes what an arrow has of a line
  EXPECT_EQ(Calls, 3);       // Visible by its setter, then the rest
  EXPECT_EQ(Stack.UndoList().Get(0), "Line visible");
}

TEST_F(ZyStylesTest, AVisibleGradientWinsInPensAndBrushes) {
  Line.SetColor(Colors::Lime);
  Line.SetWidth(2.5f);
  Line.SetDashStyle(DashStyleDot);
  const auto Plain = Line.GetPen(TRect{0, 0, 10, 10}, 0);
  EXPECT_EQ(Plain->Color(), Colors::Lime);
  EXPECT_EQ(Plain->Width(), 2.5f);
  EXPECT_EQ(Plain->DashStyle(), DashStyleDot);
  EXPECT_EQ(Plain->GetMiterLimit(), 0.0f);
  Line.Gradient().SetVisible(true);
  const auto Shaded = Line.GetPen(RectF{0, 0, 10, 10}, 0);
  EXPECT_NE(dynamic_cast<const LinearGradientBrush*>(&Shaded->GetBrush()), nullptr);
  EXPECT_EQ(Shaded->Width(), 2.5f);
  EXPECT_EQ(Shaded->DashStyle(), DashStyleDot);
  EXPECT_EQ(Shaded->GetMiterLimit(), 0.0f);

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
  const PointF Start = Brush.GetStart(), Stop = Brush.GetStop();
  EXPECT_NEAR(Start.Y, 19, 1e-3);
  EXPECT_NEAR(Stop.Y, 60, 1e-3);
  EXPECT_NEAR(Start.X, Stop.X, 1e-3);
  ASSERT_EQ(Brush.Stops().size(), 3u);
  EXPECT_EQ(Brush.Stops()[1].Position, 0.25f);
  EXPECT_EQ(Brush.Stops()[1].Color, Gradient.MiddleColor());
  for (const float Center : {0.0f, 1.0f}) EXPECT_NO_THROW(LinearBrush(RectF{0, 0, 9, 9}, 0, Center, 1, 2, 3));
}

/// Colour of the pixel at a place of a picture of 200 by 100 that a brush fills.
ARGB PixelOf(const Brush& Brush, int X, int Y) {
  Bitmap Picture(200, 100);
  Graphics Gr(Picture);
  Gr.FillRectangle(Brush, RectF{0, 0, 200, 100});
  return Picture.GetPixel(X, Y);
}

/// A filled rectangle samples its brush half a pixel beside the points that are named here.
void ExpectColor(ARGB Color, ARGB Expected) {
  EXPECT_LE(Distance(Color, Expected), 16) << std::hex << Color << " for " << Expected;
}

TEST_F(ZyStylesTest, OtherGradientsRunFromTheOutlineToThePoint) {
  // In a view of 60 by 40 in the middle of the picture the circle has the radius 36.06, the ellipse 42.43 by 28.28.
  const TRect View{70, 30, 130, 70};
  const PointF Center{0.75f, 0.5f};  // x = 115, y = 50
  const auto Radial = RadialBrush(View, Center, Colors::Red, Colors::Lime, Colors::Blue);
  const auto Elliptical = EllipticalBrush(View, Center, Colors::Red, Colors::Lime, Colors::Blue);
  for (const auto* const Brush : {Radial.get(), Elliptical.get()}) ExpectColor(PixelOf(*Brush, 115, 50), Colors::Blue);
  EXPECT_EQ(PixelOf(*Radial, 60, 50) >> 24, 0u);  // left of 63.94
  ExpectColor(PixelOf(*Radial, 65, 50), 0xFFF50A00);
  ExpectColor(PixelOf(*Radial, 89, 50), 0xFF05FA00);        // halfway is 89.47
  EXPECT_EQ(PixelOf(*Elliptical, 53, 50) >> 24, 0u);        // left of 57.57
  ExpectColor(PixelOf(*Elliptical, 86, 50), Colors::Lime);  // halfway is 86.29
  EXPECT_NE(PixelOf(*Radial, 100, 18) >> 24, 0u);           // the circle reaches up to 13.94
  EXPECT_EQ(PixelOf(*Elliptical, 100, 18) >> 24, 0u);       // the ellipse to 21.72
}

TEST_F(ZyStylesTest, ArrowTipsAreBarbsBehindTheEndOfTheLine) {
  const auto Cap = ArrowPointCap(ArrowPoint);  // length 7, inner 5, height 3
  EXPECT_EQ(Cap->GetBaseCap(), LineCapFlat);
  EXPECT_EQ(Cap->GetBaseInset(), 5.0f);
  EXPECT_TRUE(Cap->StrokePath().IsEmpty());
  EXPECT_EQ(Cap->FillPath().GetFillMode(), FillModeAlternate);
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

TEST(ZyFontTest, OneEffectAtATime) {
  using enum TZyCharDrawEffect;
  TZyFont Font;
  const std::pair<TZyCharDrawEffects, TZyCharDrawEffects> Steps[] = {{{Raised, Outline}, {Outline}},
                                                                     {{Outline, Lowered}, {Lowered}},
                                                                     {{Lowered}, {Lowered}},
                                                                     {{Shadow, Outline, Lowered, Raised}, {Shadow}},
                                                                     {{}, {}}};
  for (const auto& [Given, Stored] : Steps) {
    Font.SetDrawEffects(Given);
    EXPECT_EQ(Font.DrawEffects(), Stored);
  }
}

TEST(ZyFontTest, SizesOfNothingFallBackToTheWholeSize) {
  TZyFont Font;
  Font.SetSize(9.75f);
  EXPECT_EQ(Font.WholeSize(), 10);
  Font.SetSize(0);
  EXPECT_EQ(Font.Size(), 10.0f);
  Font.SetSize(0.25f);
  EXPECT_EQ(Font.Size(), 0.25f);
  EXPECT_EQ(Font.WholeSize(), 1);
  EXPECT_THROW(Font.SetSize(std::nanf("")), ERangeError);
  EXPECT_THROW(Font.SetSize(10001), ERangeError);
  EXPECT_EQ(Font.Size(), 0.25f);
}

TEST(ZyFontTest, HasTheViewsOfAControlsFont) {
  TZyFont Font;
  Font.SetSize(9.5f);
  EXPECT_EQ(Font.Height(), -13);  // 10 points
  Font.SetHeight(-32);
  EXPECT_EQ(Font.Size(), 9.5f);
  Font.SetSize(0);
  EXPECT_EQ(Font.Size(), 24.0f);
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
  ASSERT_EQ(Stack.UndoList().Count(), 1);
  EXPECT_EQ(Stack.UndoList().Get(0), "Font of graph title");
  Stack.Undo();
  EXPECT_EQ(Font.Name(), "Arial");
  EXPECT_EQ(Font.Size(), 10.0f);
  EXPECT_EQ(Font.Style(), TFontStyles{});
  EXPECT_EQ(Font.FillColor(), Colors::Black);
  EXPECT_EQ(Font.DrawEffects(), TZyCharDrawEffects{});
  EXPECT_FALSE(Font.Gradient().Visible());
}

}  // namespace
}  // namespace zy
