#include <gtest/gtest.h>

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <array>

#include "controls/ControlSamples.h"
#include "platform/controls/TCustomPanel.h"
#include "platform/controls/TGraphicControl.h"
#include "platform/controls/TPopupMenu.h"
#include "platform/framework/Exceptions.h"
#include "platform/framework/TReader.h"
#include "platform/framework/TStream.h"
#include "platform/framework/TWriter.h"

namespace zy {
namespace {

void SendKey(QWidget& Widget, int Key, Qt::KeyboardModifiers Keys = Qt::NoModifier, const char* Text = "") {
  QKeyEvent Down(QEvent::KeyPress, Key, Keys, Text);
  QCoreApplication::sendEvent(&Widget, &Down);
}

/// A form with the panels a to d, of which c holds two more, c1 and c2.
class TabOrderTest : public testing::Test {
 protected:
  TabOrderTest() {
    for (std::size_t Place = 0; Place < FPanels.size(); ++Place) {
      TCustomPanel& Panel = FPanels[Place];
      Panel.SetName(Names[Place]);
      Panel.SetBounds(10, 10 + static_cast<int>(Place) * 20, 20, 20);
      Panel.SetTabStop(Place != 2);
      Panel.SetParent(Place > 3 ? static_cast<TWinControl*>(&FPanels[2]) : &FForm);
    }
    FForm.Show();
    HandleEvents();
  }

  /// Where the tabulator key leads from a on, round the form.
  std::string Walk(bool Back = false) {
    FPanels[0].SetFocus();
    std::string Seen;
    for (int Step = 0; Step < 5; ++Step) {
      QWidget* const Focus = FForm.Widget()->focusWidget();
      for (TCustomPanel& Panel : FPanels)
        if (Panel.Focused()) Seen += Panel.Name() + " ";
      SendKey(*Focus, Back ? Qt::Key_Backtab : Qt::Key_Tab, Back ? Qt::ShiftModifier : Qt::NoModifier, "\t");
    }
    return Seen;
  }

  static constexpr std::array Names{"a", "b", "c", "d", "c1", "c2"};
  TForm FForm;
  std::array<TCustomPanel, 6> FPanels;
};

TEST_F(TabOrderTest, TheTabulatorKeyFollowsTheOrder) {
  EXPECT_EQ(Walk(), "a b c1 c2 d ");
  FPanels[3].SetTabOrder(1);
  FPanels[5].SetTabOrder(0);
  EXPECT_EQ(Walk(), "a d b c2 c1 ");
  EXPECT_EQ(Walk(true), "a c1 c2 b d ");
  FPanels[0].SetTabOrder(99);
  EXPECT_EQ(FPanels[0].TabOrder(), 3) << "the last place";
  FPanels[1].SetEnabled(false);
  FPanels[4].SetVisible(false);
  EXPECT_EQ(Walk(), "a d c2 a d ") << "over what cannot have the keyboard";
  TCustomPanel Late;
  Late.SetTabStop(true);
  Late.SetParent(&FPanels[2]);
  EXPECT_EQ(Late.TabOrder(), 2);
  Late.SetTabOrder(0);
  EXPECT_EQ(Walk(), "a d c2 a ") << "the late one has no name";
  Late.SetParent(nullptr);
  EXPECT_EQ(Late.TabOrder(), -1);
}

TEST(TabOrderStreamTest, TheOrderIsReadBack) {
  TMemoryStream Stream;
  {
    TForm Form;
    Form.SetName("Form");
    const std::array Names{"a", "b", "c"};
    for (const char* Name : Names) {
      auto* const Panel = new TCustomPanel(&Form);
      Panel->SetName(Name);
      Panel->SetParent(&Form);
    }
    static_cast<TWinControl*>(Form.FindComponent("a"))->SetTabOrder(2);
    static_cast<TWinControl*>(Form.FindComponent("c"))->SetTabOrder(0);
    TWriter(Stream).WriteRootComponent(Form);
  }
  Stream.SetPosition(0);
  TForm Form;
  TReader(Stream).ReadRootComponent(&Form);
  std::string Orders;
  for (const char* Name : {"a", "b", "c"})
    Orders += std::to_string(static_cast<TWinControl*>(Form.FindComponent(Name))->TabOrder());
  EXPECT_EQ(Orders, "210") << "each place but the first lies beyond the controls that are there when it is read";
}

// --- Menus ----------------------------------------------------------------------------------------------------------

/// A form with a panel and a graphic control in it, at 10, 10.
class MenuTest : public testing::Test {
 protected:
  MenuTest() {
    FForm.SetBounds(0, 0, 400, 300);
    FPanel.SetBounds(100, 50, 200, 200);
    FPanel.SetTabStop(true);
    FPanel.SetParent(&FForm);
    FPatch.SetBounds(10, 10, 40, 40);
    FPatch.SetParent(&FPanel);
    FForm.Show();
    HandleEvents();
    FMenu.SetOnPopup([this](TObject*) { FLog.push_back("popup"); });
    for (const char* Caption : {"&Copy", "-", "&Grid"})
      FMenu.Items().Add(Caption,
                        [this](TObject* Sender) { FLog.push_back(static_cast<TMenuItem*>(Sender)->Caption()); });
  }
  ~MenuTest() override { Shown(); }

  void RightClick(int X, int Y, int MovedTo = -1) {
    SendMouse(FPanel, QEvent::MouseButtonPress, X, Y, Qt::RightButton, Qt::RightButton);
    SendMouse(FPanel, QEvent::MouseButtonRelease, MovedTo < 0 ? X : MovedTo, Y, Qt::RightButton);
  }
  /// The lines of the menu that is shown, "" without one; closes it.
  std::string Shown(const char* Choose = nullptr) {
    auto* const Menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (Menu == nullptr) return "";
    FPlace = Menu->pos();
    std::string Lines;
    QAction* Chosen = nullptr;
    for (QAction* Line : Menu->actions()) {
      const std::string Text = Line->isSeparator() ? "-" : Line->text().toStdString();
      Lines += Text + (Line->isEnabled() ? "" : "(off)") + (Line->isChecked() ? "(ticked)" : "") +
               Line->shortcut().toString().toStdString() + " ";
      if (Choose != nullptr && Text == Choose) Chosen = Line;
    }
    if (Chosen != nullptr) {
      Menu->setActiveAction(Chosen);
      SendKey(*Menu, Qt::Key_Return);
    } else {
      Menu->close();
    }
    HandleEvents();
    return Lines;
  }
  TLog Taken() { return std::exchange(FLog, {}); }

  TLog FLog;
  QPoint FPlace;
  TForm FForm;
  TCustomPanel FPanel;
  TGraphicControl FPatch;
  TPopupMenu FMenu;
};

TEST_F(MenuTest, ARightClickBringsUpTheMenuOfTheControlOrItsParent) {
  RightClick(15, 15);
  EXPECT_EQ(Shown(), "") << "nobody has a menu";
  FForm.SetPopupMenu(&FMenu);
  RightClick(15, 15);
  EXPECT_EQ(Shown(), "&Copy - &Grid ");
  EXPECT_EQ(FMenu.PopupComponent(), &FForm);
  EXPECT_EQ(FPlace, FPanel.Widget()->mapToGlobal(QPoint(15, 15)));
  RightClick(15, 15, 45);
  EXPECT_EQ(Shown(), "") << "a gesture of the right button is no click";
  TPopupMenu Own;
  Own.Items().Add("Own");
  FPatch.SetPopupMenu(&Own);
  RightClick(15, 15);
  EXPECT_EQ(Shown(), "Own ");
  Own.SetAutoPopup(false);
  RightClick(15, 15);
  EXPECT_EQ(Shown(), "&Copy - &Grid ");
  TPoint Asked;
  bool Keep = true;
  FPanel.SetOnContextPopup([&](TObject*, TPoint Place, bool& Handled) {
    Asked = Place;
    Handled = Keep;
  });
  RightClick(60, 70);
  EXPECT_EQ(Shown(), "");
  EXPECT_EQ(Asked, (TPoint{60, 70}));
  Keep = false;
  QContextMenuEvent ByKey(QContextMenuEvent::Keyboard, QPoint(1, 1), QPoint(1, 1));
  QCoreApplication::sendEvent(FPanel.Widget(), &ByKey);
  EXPECT_EQ(Shown(), "&Copy - &Grid ");
  EXPECT_EQ(Asked, (TPoint{-1, -1}));
  EXPECT_EQ(FPlace, FForm.Widget()->mapToGlobal(QPoint(0, 0)));
  {
    TPopupMenu Brief;
    FPanel.SetPopupMenu(&Brief);
  }
  EXPECT_EQ(FPanel.PopupMenu(), nullptr);
}

TEST_F(MenuTest, ItemsShowTheirStateAndAreClicked) {
  TMenuItem& Copy = *FMenu.Items().Items()[0];
  TMenuItem& Grid = *FMenu.Items().Items()[2];
  FMenu.SetOnPopup([&](TObject*) { Grid.SetChecked(true); });
  Copy.SetShortCut("ctrl+c");
  FMenu.Items().Add("Off").SetEnabled(false);
  FMenu.Items().Add("Hidden").SetVisible(false);
  FPanel.SetPopupMenu(&FMenu);
  RightClick(5, 5);
  EXPECT_EQ(Shown("&Grid"), "&CopyCtrl+C - &Grid(ticked) Off(off) ");
  EXPECT_EQ(Taken(), (TLog{"&Grid"}));
  RightClick(5, 5);
  EXPECT_NE(Shown("Off"), "");
  EXPECT_TRUE(Taken().empty());

  TMenuItem& Sides = FMenu.Items().Add("Sides");
  Sides.SetOnClick([&](TObject*) {
    Sides.Clear();
    Sides.Add("Left", [this](TObject*) { FLog.push_back("left"); });
  });
  RightClick(5, 5);
  auto* const Menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(Menu, nullptr);
  EXPECT_EQ(Menu->actions().back()->menu(), nullptr) << "nothing in it yet";
  Menu->close();
  Sides.Click();
  RightClick(5, 5);
  QMenu* const Outer = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(Outer, nullptr);
  Outer->setActiveAction(Outer->actions().back());
  SendKey(*Outer, Qt::Key_Right);
  EXPECT_EQ(Shown("Left"), "Left ") << "filled anew as it opened";
  EXPECT_EQ(Taken(), (TLog{"left"}));
}

TEST_F(MenuTest, KeysOfItemsWorkWhileTheControlHasTheKeyboard) {
  FForm.SetPopupMenu(&FMenu);
  TMenuItem& Copy = *FMenu.Items().Items()[0];
  Copy.SetShortCut("Ctrl+Shift+F5");
  EXPECT_THROW(Copy.SetShortCut("Ctrl+Nonsense"), EConvertError);
  EXPECT_EQ(Copy.ShortCut(), "Ctrl+Shift+F5");
  FPanel.SetOnKeyDown([this](TObject*, TKey& Key, TShiftState) { FLog.push_back(IntToStr(Key)); });
  FPanel.SetFocus();
  SendKey(*FPanel.Widget(), Qt::Key_F5, Qt::ControlModifier);
  EXPECT_EQ(Taken(), (TLog{"116"}));
  SendKey(*FPanel.Widget(), Qt::Key_F5, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(Taken(), (TLog{"popup", "&Copy"}));
  FMenu.SetOnPopup([&](TObject*) { Copy.SetEnabled(false); });
  SendKey(*FPanel.Widget(), Qt::Key_F5, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(Taken(), (TLog{"116"})) << "OnPopup says what is possible";
}

TEST_F(MenuTest, HandlersMayDeleteMenuAndWindow) {
  auto* Menu = new TPopupMenu;
  auto* Panel = new TCustomPanel;
  Panel->SetParent(&FForm);
  Panel->SetPopupMenu(Menu);
  Menu->Items().Add("Delete all", [&](TObject*) {
    delete std::exchange(Menu, nullptr);
    delete std::exchange(Panel, nullptr);
  });
  SendMouse(*Panel, QEvent::MouseButtonPress, 5, 5, Qt::RightButton, Qt::RightButton);
  SendMouse(*Panel, QEvent::MouseButtonRelease, 5, 5, Qt::RightButton);
  EXPECT_EQ(Shown("Delete all"), "Delete all ");
  EXPECT_EQ(Panel, nullptr);
}

TEST(MenuItemTest, ItemsMoveAndStream) {
  TMemoryStream Stream;
  {
    TForm Form;
    Form.SetName("Form");
    auto* const Menu = new TPopupMenu(&Form);
    Menu->SetName("Menu");
    TMenuItem* Items[3];
    for (TMenuItem*& Item : Items) Item = new TMenuItem(&Form);
    Items[0]->SetCaption("outer");
    Items[1]->SetCaption("inner");
    Items[2]->SetCaption("first");
    Items[2]->SetShortCut("F2");
    Menu->Items().Insert(0, *Items[0]);
    Menu->Items().Insert(0, *Items[2]);
    Items[0]->Insert(0, *Items[1]);
    EXPECT_THROW(Items[1]->Insert(0, *Items[0]), EInvalidOperation);
    EXPECT_THROW(Menu->Items().Insert(2, *Items[0]), ERangeError) << "it lies there already";
    Form.SetPopupMenu(Menu);
    TWriter(Stream).WriteRootComponent(Form);
  }
  Stream.SetPosition(0);
  TForm Form;
  TReader(Stream).ReadRootComponent(&Form);
  ASSERT_NE(Form.PopupMenu(), nullptr);
  const std::vector<TMenuItem*>& Items = Form.PopupMenu()->Items().Items();
  ASSERT_EQ(Items.size(), 2U);
  EXPECT_EQ(Items[0]->Caption() + Items[0]->ShortCut(), "firstF2");
  ASSERT_EQ(Items[1]->Items().size(), 1U);
  EXPECT_EQ(Items[1]->Items()[0]->Caption(), "inner");
}

}  // namespace
}  // namespace zy
