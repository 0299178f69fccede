#include <array>
#include <memory>

#include "controls/ControlSamples.h"
#include "platform/controls/TFrame.h"
#include "platform/controls/TLabel.h"
#include "platform/framework/Reflection.h"

namespace zy {

/// For the messages of failing tests.
static void PrintTo(const TRect& Rect, std::ostream* Out) {
  *Out << Rect.Left << ", " << Rect.Top << " to " << Rect.Right << ", " << Rect.Bottom;
}

namespace {

TEST(AlignTest, EdgesGoInTheOrderOfTheirKinds) {
  TCustomPanel Panel;
  Panel.SetBounds(0, 0, 200, 100);
  struct TCase {
    TAlign Align;
    int Width, Height;
    TRect First, Larger;  // in a panel of 200 x 100, and of 300 x 150
  };
  const std::vector<TCase> Cases = {{alClient, 1, 1, {30, 20, 160, 90}, {30, 20, 260, 140}},
                                    {alRight, 40, 1, {160, 20, 200, 90}, {260, 20, 300, 140}},
                                    {alLeft, 30, 1, {0, 20, 30, 90}, {0, 20, 30, 140}},
                                    {alBottom, 1, 10, {0, 90, 200, 100}, {0, 140, 300, 150}},
                                    {alTop, 1, 20, {0, 0, 200, 20}, {0, 0, 300, 20}},
                                    {alNone, 50, 50, {0, 0, 50, 50}, {0, 0, 50, 50}}};
  std::vector<std::unique_ptr<TGraphicControl>> Controls;
  for (const TCase& Case : Cases) {
    Controls.push_back(std::make_unique<TGraphicControl>());
    Controls.back()->SetAlign(Case.Align);
    Put(*Controls.back(), Panel, 0, 0, Case.Width, Case.Height);
  }
  for (std::size_t Index = 0; Index < Cases.size(); ++Index)
    EXPECT_EQ(Controls[Index]->BoundsRect(), Cases[Index].First) << Index;
  Panel.SetBounds(5, 5, 300, 150);
  for (std::size_t Index = 0; Index < Cases.size(); ++Index)
    EXPECT_EQ(Controls[Index]->BoundsRect(), Cases[Index].Larger) << Index;
  TControl& Client = *Controls[0];
  Controls[4]->SetVisible(false);
  EXPECT_EQ(Client.BoundsRect(), (TRect{30, 0, 260, 140})) << "what is hidden takes nothing";
  Controls[3]->SetHeight(50);
  EXPECT_EQ(Client.BoundsRect(), (TRect{30, 0, 260, 100}));
  Controls[2].reset();
  EXPECT_EQ(Client.BoundsRect(), (TRect{0, 0, 260, 100}));
  Controls[1]->SetAlign(alNone);
  EXPECT_EQ(Client.BoundsRect(), (TRect{0, 0, 300, 100}));
}

TEST(AlignTest, ControlsAtOneEdgeKeepTheOrderOfTheirPlaces) {
  TCustomPanel Panel;
  Panel.SetBounds(0, 0, 100, 100);
  TGraphicControl First, Second, Third;
  const std::pair<TGraphicControl*, int> Tops[] = {{&First, 50}, {&Second, 70}, {&Third, 5}};
  for (const auto& [Control, Top] : Tops) Put(*Control, Panel, 0, 0, 10, 10);
  for (const auto& [Control, Top] : Tops) {
    Control->SetTop(Top);
    Control->SetAlign(alTop);
  }
  EXPECT_EQ((std::array{First.Top(), Second.Top(), Third.Top()}), (std::array{0, 20, 10}));
  Second.SetTop(-1);
  EXPECT_EQ((std::array{First.Top(), Second.Top(), Third.Top()}), (std::array{10, 0, 20}))
      << "moved to another place in the order";
}

TEST(AlignTest, AnchoredControlsKeepTheirDistances) {
  struct TCase {
    TAnchors Anchors;
    TRect Grown, Shrunk;  // from 10, 10 to 30, 40 in 100 x 100, when that becomes 150 x 180, and 5 x 5
  };
  for (const TCase& Case : {TCase{{akLeft, akTop}, {10, 10, 30, 40}, {10, 10, 30, 40}},
                            TCase{{akRight, akBottom}, {60, 90, 80, 120}, {-85, -85, -65, -55}},
                            TCase{{akLeft, akTop, akRight, akBottom}, {10, 10, 80, 120}, {10, 10, 10, 10}},
                            TCase{{}, {35, 50, 55, 80}, {-37, -37, -17, -7}},
                            TCase{{akLeft, akRight}, {10, 50, 80, 80}, {10, -37, 10, -7}}}) {
    TCustomPanel Panel;
    Panel.SetBounds(0, 0, 100, 100);
    TGraphicControl Control;
    Control.SetParent(&Panel);
    Control.SetAnchors(Case.Anchors);
    Control.SetBounds(10, 10, 20, 30);
    Panel.SetBounds(0, 0, 150, 180);
    EXPECT_EQ(Control.BoundsRect(), Case.Grown) << Case.Anchors.Bits();
    Panel.SetBounds(0, 0, 5, 5);
    EXPECT_EQ(Control.BoundsRect(), Case.Shrunk) << Case.Anchors.Bits();
    for (int Extent = 5; Extent <= 100; ++Extent) Panel.SetBounds(0, 0, Extent, Extent);
    EXPECT_EQ(Control.BoundsRect(), (TRect{10, 10, 30, 40})) << "nothing is lost on the way, " << Case.Anchors.Bits();
  }
}

/// Wants twice the height as soon as it is wide.
class TGreedy : public TGraphicControl {
 protected:
  void Resize() override {
    if (Width() > 50) SetHeight(40);
  }
};

TEST(AlignTest, ControlsMayResizeThemselvesWhileTheyAreAligned) {
  TCustomPanel Panel;
  Panel.SetBounds(0, 0, 40, 100);
  TGreedy Greedy;
  TGraphicControl Client;
  Greedy.SetAlign(alTop);
  Client.SetAlign(alClient);
  Put(Greedy, Panel, 0, 0, 10, 20);
  Client.SetParent(&Panel);
  EXPECT_EQ(Client.BoundsRect(), (TRect{0, 20, 40, 100}));
  Panel.SetWidth(80);
  EXPECT_EQ(Greedy.BoundsRect(), (TRect{0, 0, 80, 40}));
  EXPECT_EQ(Client.BoundsRect(), (TRect{0, 40, 80, 100}));
}

TEST(AlignTest, FontsOfParentsReachTheControlsThatTakeThemOver) {
  TForm Form;
  TFrame Frame;
  TLabel Follows, Own;
  Put(Frame, Form, 0, 0, 9, 9);
  for (TLabel* Label : {&Follows, &Own}) Put(*Label, Frame, 0, 0, 9, 9);
  Own.ControlFont().SetSize(20);
  Form.ControlFont().SetName("Times New Roman");
  EXPECT_EQ(Follows.ControlFont().Name(), "Times New Roman");
  EXPECT_EQ(Own.ControlFont().Name(), "Arial");
  Own.SetParentFont(true);
  EXPECT_EQ(Own.ControlFont(), Form.ControlFont());
  Follows.SetParent(nullptr);
  Form.ControlFont().SetSize(30);
  EXPECT_EQ(Follows.ControlFont().Size(), 9);
  Follows.SetParent(&Form);
  EXPECT_EQ(Follows.ControlFont().Size(), 30);
}

TEST(AlignTest, FormsReadBackAsTheyWereWritten) {
  TForm Form;
  Form.SetBounds(0, 0, 400, 300);
  Form.ControlFont().SetSize(12);
  Form.SetShowHint(true);
  auto* const Frame = new TFrame(&Form);
  Frame->SetName("Frame");
  Frame->SetAlign(alBottom);
  Put(*Frame, Form, 0, 0, 185, 50);
  Frame->SetTabStop(true);
  auto* const Label = new TLabel(&Form);
  Label->SetName("Label");
  Label->SetAutoSize(false);
  Put(*Label, *Frame, 300, 10, 90, 20);
  Label->SetAnchors({akRight, akTop});
  Label->SetCursor(crHandPoint);
  Label->SetHint("a hint");
  Label->SetShowHint(false);
  Label->SetEnabled(false);
  Label->SetVisible(false);
  Label->SetCaption("text");
  Label->ControlFont().SetStyle({TFontStyle::Bold});

  TForm Read;
  ReadBack(Form, Read);
  const auto* const ReadFrame = dynamic_cast<TFrame*>(Read.FindComponent("Frame"));
  auto* const ReadLabel = dynamic_cast<TLabel*>(Read.FindComponent("Label"));
  ASSERT_TRUE(ReadFrame != nullptr && ReadLabel != nullptr);
  EXPECT_EQ(ReadLabel->Parent(), ReadFrame);
  for (const auto& [Before, After] :
       {std::pair<TControl*, TControl*>{&Form, &Read}, {Frame, Read.Controls().front()}, {Label, ReadLabel}})
    for (const TPropInfo* Info : Before->ClassInfo().Properties()) {
      if (Info->Kind == TPropKind::Method || Info->Kind == TPropKind::Class) continue;
      EXPECT_EQ(GetPropValue(*Before, Info->Name), GetPropValue(*After, Info->Name)) << Info->Name;
    }
  EXPECT_EQ(ReadLabel->ControlFont(), Label->ControlFont());
  EXPECT_EQ(Read.ControlFont(), Form.ControlFont());
  Read.SetBounds(0, 0, 500, 300);
  EXPECT_EQ(ReadLabel->Left(), 400) << "the anchors hold from what was read";
}

}  // namespace
}  // namespace zy
