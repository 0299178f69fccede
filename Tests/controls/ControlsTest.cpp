#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "controls/ControlSamples.h"
#include "texts/Exceptions.h"

namespace zy {
namespace {

TEST(ControlsTest, ParentsAndControlsKnowEachOther) {
  TForm Form;
  TCustomPanel Panel(&Form);
  auto* const First = new TGraphicControl(&Form);
  auto* const Second = new TGraphicControl(&Form);
  First->SetParent(&Panel);
  Second->SetParent(&Panel);
  Panel.SetParent(&Form);
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
  TFormPatch Form(nullptr);
  Form.SetBounds(0, 0, 100, 80);
  TGraphicPatch Below(&Form, Red), Above(&Form, Green), Hidden(&Form, Blue);
  Put(Below, Form, 10, 10, 40, 40);
  Put(Above, Form, 30, 30, 40, 40);
  Hidden.SetVisible(false);
  Put(Hidden, Form, 0, 0, 100, 80);
  ShowNow(Form);
  for (const QImage& Picture : {Shown(Form), Painted(Form)})  // and without a window
    ExpectPixels(Picture, {{9, 10, White},
                           {10, 10, Red},
                           {29, 49, Red},
                           {30, 30, Green},
                           {49, 49, Green},
                           {50, 29, White},
                           {69, 69, Green},
                           {70, 69, White}});
}

TEST(ControlsTest, WidgetsOfInnerControlsLieAboveAndFollowTheBounds) {
  TFormPatch Form(nullptr);
  Form.SetBounds(0, 0, 100, 80);
  TPanelPatch Panel(&Form, Blue), Late(&Form, Red);
  Panel.SetParent(&Form);
  EXPECT_FALSE(Panel.HasWidget());
  ShowNow(Form);
  Panel.SetBounds(20, 20, 30, 10);
  Put(Late, Form, 25, 20, 5, 5);
  HandleEvents();
  ExpectPixels(Shown(Form), {{19, 20, White}, {20, 20, Blue}, {25, 20, Red}, {49, 29, Blue}, {50, 29, White}});
  Panel.SetVisible(false);
  ExpectPixels(Shown(Form), {{20, 20, White}});
  TForm Other;
  for (TForm* const Parent : {static_cast<TForm*>(nullptr), &Other}) {
    Late.SetParent(Parent);
    EXPECT_FALSE(Late.HasWidget()) << "that of the parent it has left";
  }
  ShowNow(Other);
  EXPECT_EQ(Late.Widget()->parentWidget(), Other.Widget());
}

TEST(ControlsTest, InvalidateQueuesOnePaintAndRepaintPaintsNow) {
  TFormPatch Form(nullptr);
  TGraphicPatch Near(&Form), Far(&Form);
  Put(Near, Form, 0, 0, 20, 20);
  Put(Far, Form, 200, 200, 20, 20);
  Form.Repaint();
  EXPECT_EQ(Form.Paints, 0) << "nothing to paint on yet";
  ShowNow(Form);
  const int Before = Form.Paints;
  ASSERT_GT(Before, 0);
  for (int Round = 0; Round < 5; ++Round) Form.Invalidate();
  EXPECT_EQ(Form.Paints, Before);
  HandleEvents();
  EXPECT_EQ(Form.Paints, Before + 1);
  Form.Repaint();
  Near.Repaint();
  EXPECT_EQ(Form.Paints, Before + 3);
  Near.SetVisible(false);
  HandleEvents();
  EXPECT_EQ(Form.Paints, Before + 4) << "what lay below shows again";
  Near.Invalidate();
  Near.Repaint();
  HandleEvents();
  EXPECT_EQ(Form.Paints, Before + 4) << "invisible controls ask for nothing";
}

/// Counts its changes of size.
class TSized : public TPanelPatch {
 public:
  using TPanelPatch::TPanelPatch;
  int Resizes = 0;

 protected:
  void Resize() override { ++Resizes; }
};

TEST(ControlsTest, HostsEmbedAControlInALayout) {
  QWidget Host;
  QVBoxLayout Layout(&Host);
  Layout.setContentsMargins(10, 20, 10, 20);
  TSized Panel(nullptr, Green);
  Panel.SetVisible(false);
  Panel.Widget();
  Panel.SetVisible(true);
  EXPECT_FALSE(Panel.Widget()->isVisible()) << "no window of its own";
  Layout.addWidget(Panel.Widget());
  EXPECT_EQ(Panel.Widget()->sizeHint(), QSize(185, 41));
  Host.resize(400, 300);
  Host.show();
  HandleEvents();
  EXPECT_EQ(Panel.BoundsRect(), (TRect{10, 20, 390, 280}));
  EXPECT_EQ(Host.grab().toImage().pixel(10, 20), Green);
  const int Resizes = Panel.Resizes;
  Host.resize(200, 100);
  HandleEvents();
  EXPECT_EQ(Panel.Width(), 180);
  EXPECT_EQ(Panel.Resizes, Resizes + 1);
  for (const bool Visible : {false, true}) {
    Panel.SetVisible(Visible);
    EXPECT_EQ(Panel.Widget()->isVisible(), Visible);
  }
}

TEST(ControlsTest, AnyOrderOfDestructionIsSafe) {
  std::array Order{0, 1, 2};
  do {
    auto* const Form = new TForm;
    auto* const Panel = new TPanelPatch(nullptr);
    auto* const Patch = new TGraphicPatch(nullptr);
    Panel->SetParent(Form);
    Patch->SetParent(Panel);
    ShowNow(*Form);
    TControl* const Controls[] = {Form, Panel, Patch};
    std::array<bool, 3> Dead{};
    for (const int Index : Order) {
      delete Controls[Index];
      Dead[static_cast<std::size_t>(Index)] = true;
      if (!Dead[1] && Dead[0]) {
        EXPECT_EQ(Panel->Parent(), nullptr);
        EXPECT_FALSE(Panel->HasWidget());
        Panel->Repaint();
      }
      if (!Dead[2] && Dead[1]) {
        EXPECT_EQ(Patch->Parent(), nullptr);
        Patch->Invalidate();
      }
      EXPECT_TRUE(Dead[1] || !Dead[2] || Panel->Controls().empty());
      HandleEvents();
    }
  } while (std::next_permutation(Order.begin(), Order.end()));
}

TEST(ControlsTest, WidgetsMayDieFirst) {
  TPanelPatch Panel(nullptr), Inner(nullptr);
  Inner.SetParent(&Panel);
  {
    QWidget Host;
    Panel.Widget()->setParent(&Host);
    Host.show();
    EXPECT_TRUE(Inner.HasWidget());
  }
  EXPECT_FALSE(Panel.HasWidget() || Inner.HasWidget());
  Panel.SetWidth(77);
  Panel.Repaint();
  QWidget Host;  // and it can be embedded anew
  Panel.Widget()->setParent(&Host);
  EXPECT_EQ(Panel.Widget()->width(), 77);
  EXPECT_TRUE(Inner.HasWidget());
}

TEST(ControlsTest, ExceptionsOfHandlersAndPaintsReachTheApplication) {
  TLog Seen;
  Program().OnException = [&](const std::exception& Error) { Seen.push_back(Error.what()); };
  TFormPatch Form(nullptr);
  Form.OnPaint = [](Graphics&) { throw ERangeError("painted"); };
  ShowNow(Form);
  Form.OnPaint = nullptr;
  Form.SetOnClick([](TObject*) { throw ERangeError("clicked"); });
  Press(Form, 15, 15);
  Release(Form, 15, 15);
  Program().OnException = nullptr;
  ASSERT_GE(Seen.size(), 2U);
  EXPECT_EQ(Seen.front() + ", " + Seen.back(), "painted, clicked");
}

TEST(ApplicationTest, RunEndsWithTheLastWindow) {
  TFormPatch Form(nullptr);
  Form.OnPaint = [&](Graphics&) {
    QMetaObject::invokeMethod(
        Form.Widget(), [&] { Form.Close(); }, Qt::QueuedConnection);
  };
  Form.Show();
  EXPECT_EQ(Program().Run(), 0);
  EXPECT_FALSE(Form.Visible());
}

}  // namespace
}  // namespace zy
