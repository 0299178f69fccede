#include <gtest/gtest.h>

#include <QVBoxLayout>
#include <QWidget>
#include <array>
#include <functional>

#include "platform/controls/TApplication.h"
#include "platform/controls/TCustomPanel.h"
#include "platform/controls/TForm.h"
#include "platform/controls/TGraphicControl.h"
#include "platform/drawing/Bitmap.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/Graphics.h"
#include "platform/framework/Exceptions.h"

namespace zy {
namespace {

constexpr ARGB Red = 0xFFFF0000;
constexpr ARGB Green = 0xFF00FF00;
constexpr ARGB Blue = 0xFF0000FF;
constexpr ARGB White = 0xFFFFFFFF;

void ProcessMessages() { dynamic_cast<TApplication&>(Application()).ProcessMessages(); }

/// Fills far more than its box with its colour, and counts.
template <class TBase>
class TPatch : public TBase {
 public:
  explicit TPatch(TComponent* Owner, ARGB Color = White) : TBase(Owner), FColor(Color) {}
  int Paints = 0;
  int Resizes = 0;
  std::function<void()> OnPaint;

 protected:
  void Paint(Graphics& Canvas) override {
    ++Paints;
    Canvas.FillRectangle(SolidBrush(FColor), -1000, -1000, 3000, 3000);
    Canvas.SetSmoothingMode(SmoothingModeAntiAlias);
    Canvas.TranslateTransform(3, 3);
    if (OnPaint) OnPaint();
  }
  void Resize() override { ++Resizes; }

 private:
  ARGB FColor;
};
using TGraphicPatch = TPatch<TGraphicControl>;
using TPanelPatch = TPatch<TCustomPanel>;
using TFormPatch = TPatch<TForm>;

void ShowNow(TForm& Form) {
  Form.Show();
  ProcessMessages();
}

TEST(ControlsTest, ParentsAndControlsKnowEachOther) {
  TForm Form;
  TCustomPanel Panel(&Form);
  auto* const First = new TGraphicControl(&Form);
  auto* const Second = new TGraphicControl(&Form);
  First->SetParent(&Panel);
  Second->SetParent(&Panel);
  Panel.SetParent(&Form);
  EXPECT_EQ(Panel.Controls(), (std::vector<TControl*>{First, Second}));
  EXPECT_EQ(Form.Controls(), (std::vector<TControl*>{&Panel}));
  First->SetParent(&Form);
  First->SetParent(&Panel);
  EXPECT_EQ(Panel.Controls(), (std::vector<TControl*>{Second, First}));
  EXPECT_THROW(Form.SetParent(&Panel), EInvalidOperation);
  EXPECT_THROW(Panel.SetParent(&Panel), EInvalidOperation);
  Second->SetParent(nullptr);
  EXPECT_FALSE(Second->HasParent());
  delete First;
  EXPECT_TRUE(Panel.Controls().empty());
}

TEST(ControlsTest, OnlyWhatTheRootOwnsIsStreamedInsideItsParent) {
  TForm Form;
  TComponent Other;
  auto* const Panel = new TCustomPanel(&Form);
  auto* const Inner = new TGraphicControl(&Form);
  auto* const Foreign = new TGraphicControl(&Other);
  auto* const Plain = new TComponent(&Form);
  Panel->SetParent(&Form);
  Inner->SetParentComponent(Panel);
  Foreign->SetParent(Panel);
  const auto ChildrenOf = [&](TComponent* Component) {
    std::vector<TComponent*> Result;
    Component->GetChildren([&](TComponent* Child) { Result.push_back(Child); }, &Form);
    return Result;
  };
  EXPECT_EQ(ChildrenOf(&Form), (std::vector<TComponent*>{Panel, Plain}));
  EXPECT_EQ(ChildrenOf(Panel), (std::vector<TComponent*>{Inner}));
}

TEST(ControlsTest, PaintsInControlOrderWithinTheBoxes) {
  TFormPatch Form(nullptr, White);
  Form.SetBounds(0, 0, 100, 80);
  TGraphicPatch Below(&Form, Red);
  TGraphicPatch Above(&Form, Green);
  TGraphicPatch Hidden(&Form, Blue);
  Below.SetBounds(10, 10, 40, 40);
  Above.SetBounds(30, 30, 40, 40);
  Hidden.SetVisible(false);
  Hidden.SetBounds(0, 0, 100, 80);
  for (TGraphicPatch* Patch : {&Below, &Above, &Hidden}) Patch->SetParent(&Form);
  ShowNow(Form);
  const QImage Shown = Form.Widget()->grab().toImage();
  struct TCase {
    int X, Y;
    ARGB Color;
  };
  for (const TCase& Case : {TCase{9, 10, White}, TCase{10, 10, Red}, TCase{29, 49, Red}, TCase{30, 30, Green},
                            TCase{49, 49, Green}, TCase{50, 29, White}, TCase{69, 69, Green}, TCase{70, 69, White}})
    EXPECT_EQ(Shown.pixel(Case.X, Case.Y), Case.Color) << Case.X << ", " << Case.Y;

  Bitmap Picture(100, 80);  // the same without a window
  Graphics Canvas(Picture);
  Form.PaintTo(Canvas);
  for (int Y = 0; Y < 80; Y += 7)
    for (int X = 0; X < 100; ++X) ASSERT_EQ(Picture.GetPixel(X, Y), Shown.pixel(X, Y)) << X << ", " << Y;
}

TEST(ControlsTest, WidgetsOfInnerControlsLieAboveAndFollowTheBounds) {
  TFormPatch Form(nullptr, White);
  Form.SetBounds(0, 0, 100, 80);
  TPanelPatch Panel(&Form, Blue);
  Panel.SetParent(&Form);
  EXPECT_FALSE(Panel.HasWidget());
  ShowNow(Form);
  ASSERT_TRUE(Panel.HasWidget());
  Panel.SetBounds(20, 20, 30, 10);
  TPanelPatch Late(&Form, Red);
  Late.SetBounds(25, 20, 5, 5);
  Late.SetParent(&Form);
  ProcessMessages();
  const QImage Shown = Form.Widget()->grab().toImage();
  EXPECT_EQ(Shown.pixel(19, 20), White);
  EXPECT_EQ(Shown.pixel(20, 20), Blue);
  EXPECT_EQ(Shown.pixel(25, 20), Red);
  EXPECT_EQ(Shown.pixel(49, 29), Blue);
  EXPECT_EQ(Shown.pixel(50, 29), White);
  Panel.SetVisible(false);
  EXPECT_EQ(Form.Widget()->grab().toImage().pixel(20, 20), White);
}

TEST(ControlsTest, InvalidateQueuesOnePaintAndRepaintPaintsNow) {
  TFormPatch Form(nullptr);
  TGraphicPatch Near(&Form);
  TGraphicPatch Far(&Form);
  Near.SetBounds(0, 0, 20, 20);
  Far.SetBounds(200, 200, 20, 20);
  Near.SetParent(&Form);
  Far.SetParent(&Form);
  Form.Repaint();
  EXPECT_EQ(Form.Paints, 0) << "nothing to paint on yet";
  ShowNow(Form);
  const int Before = Form.Paints;
  ASSERT_GT(Before, 0);
  for (int Round = 0; Round < 5; ++Round) Form.Invalidate();
  EXPECT_EQ(Form.Paints, Before);
  ProcessMessages();
  EXPECT_EQ(Form.Paints, Before + 1);
  Form.Repaint();
  EXPECT_EQ(Form.Paints, Before + 2);
  Near.Repaint();
  EXPECT_EQ(Form.Paints, Before + 3);
  Near.SetVisible(false);
  ProcessMessages();
  EXPECT_EQ(Form.Paints, Before + 4) << "what lay below shows again";
  Near.Invalidate();
  Near.Repaint();
  ProcessMessages();
  EXPECT_EQ(Form.Paints, Before + 4) << "invisible controls ask for nothing";
}

TEST(ControlsTest, HostsEmbedAControlInALayout) {
  QWidget Host;
  QVBoxLayout Layout(&Host);
  Layout.setContentsMargins(10, 20, 10, 20);
  TPanelPatch Panel(nullptr, Green);
  Layout.addWidget(Panel.Widget());
  EXPECT_EQ(Panel.Widget()->sizeHint(), QSize(185, 41));
  Host.resize(400, 300);
  Host.show();
  ProcessMessages();
  EXPECT_EQ(Panel.Width(), 380);
  EXPECT_EQ(Panel.Height(), 260);
  EXPECT_EQ(Panel.Left(), 10);
  EXPECT_EQ(Panel.Top(), 20);
  EXPECT_GT(Panel.Paints, 0);
  EXPECT_EQ(Host.grab().toImage().pixel(10, 20), Green);
  const int Resizes = Panel.Resizes;
  Host.resize(200, 100);
  ProcessMessages();
  EXPECT_EQ(Panel.Width(), 180);
  EXPECT_EQ(Panel.Resizes, Resizes + 1);
  Panel.SetVisible(false);
  EXPECT_FALSE(Panel.Widget()->isVisible());
  Panel.SetVisible(true);
  EXPECT_TRUE(Panel.Widget()->isVisible());
}

TEST(ControlsTest, HiddenControlsComeInWithTheirHost) {
  QWidget Host;
  QVBoxLayout Layout(&Host);
  TPanelPatch Panel(nullptr);
  Panel.SetVisible(false);
  Panel.Widget();
  Panel.SetVisible(true);
  EXPECT_FALSE(Panel.Widget()->isVisible()) << "no window of its own";
  Layout.addWidget(Panel.Widget());
  Host.show();
  EXPECT_TRUE(Panel.Widget()->isVisible());
}

/// A form with a panel and a graphic control in it, on the screen, and a control that watches them die.
struct TScene {
  TScene() : Form(new TForm), Panel(new TPanelPatch(nullptr)), Patch(new TGraphicPatch(nullptr)) {
    Panel->SetParent(Form);
    Patch->SetParent(Panel);
    ShowNow(*Form);
  }
  TForm* Form;
  TPanelPatch* Panel;
  TGraphicPatch* Patch;
};

TEST(ControlsTest, AnyOrderOfDestructionIsSafe) {
  for (const auto& Order : {std::array{0, 1, 2}, std::array{0, 2, 1}, std::array{1, 0, 2}, std::array{1, 2, 0},
                            std::array{2, 0, 1}, std::array{2, 1, 0}}) {
    TScene Scene;
    TControl* const Controls[] = {Scene.Form, Scene.Panel, Scene.Patch};
    std::array<bool, 3> Dead{};
    for (const int Index : Order) {
      delete Controls[Index];
      Dead[static_cast<std::size_t>(Index)] = true;
      if (!Dead[1] && Dead[0]) {
        EXPECT_EQ(Scene.Panel->Parent(), nullptr);
        EXPECT_FALSE(Scene.Panel->HasWidget());
        Scene.Panel->Repaint();
      }
      if (!Dead[2] && Dead[1]) {
        EXPECT_EQ(Scene.Patch->Parent(), nullptr);
        Scene.Patch->Invalidate();
      }
      if (!Dead[1] && Dead[2]) {
        EXPECT_TRUE(Scene.Panel->Controls().empty());
      }
      ProcessMessages();
    }
  }
}

TEST(ControlsTest, WidgetsMayDieFirst) {
  TPanelPatch Panel(nullptr);
  TPanelPatch Inner(nullptr);
  Inner.SetParent(&Panel);
  {
    QWidget Host;
    QVBoxLayout Layout(&Host);
    Layout.addWidget(Panel.Widget());
    Host.show();
    ProcessMessages();
    EXPECT_TRUE(Inner.HasWidget());
  }
  EXPECT_FALSE(Panel.HasWidget());
  EXPECT_FALSE(Inner.HasWidget());
  Panel.SetWidth(77);
  Panel.Repaint();
  QWidget Host;  // and it can be embedded anew
  Panel.Widget()->setParent(&Host);
  EXPECT_EQ(Panel.Widget()->width(), 77);
  EXPECT_TRUE(Inner.HasWidget());
}

TEST(ControlsTest, LeavingAParentTakesTheWidgetAway) {
  TForm Form;
  TPanelPatch Panel(nullptr);
  Panel.SetParent(&Form);
  ShowNow(Form);
  ASSERT_TRUE(Panel.HasWidget());
  Panel.SetParent(nullptr);
  EXPECT_FALSE(Panel.HasWidget());
  TForm Other;
  Panel.SetParent(&Other);
  EXPECT_FALSE(Panel.HasWidget());
  ShowNow(Other);
  EXPECT_EQ(Panel.Widget()->parentWidget(), Other.Widget());
}

TEST(ControlsTest, ExceptionsOfAPaintReachTheApplication) {
  auto& Program = dynamic_cast<TApplication&>(Application());
  std::string Seen;
  Program.OnException = [&](const std::exception& Error) { Seen = Error.what(); };
  TFormPatch Form(nullptr);
  Form.OnPaint = [] { throw ERangeError("out of paint"); };
  ShowNow(Form);
  Program.OnException = nullptr;
  EXPECT_EQ(Seen, "out of paint");
}

TEST(ApplicationTest, RunEndsWithTheLastWindow) {
  auto& Program = dynamic_cast<TApplication&>(Application());
  TFormPatch Form(nullptr);
  Form.OnPaint = [&] {
    QMetaObject::invokeMethod(
        Form.Widget(), [&] { Form.Close(); }, Qt::QueuedConnection);
  };
  Form.Show();
  EXPECT_EQ(Program.Run(), 0);
  EXPECT_FALSE(Form.Visible());
}

}  // namespace
}  // namespace zy
