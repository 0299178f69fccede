#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <array>

#include "controls/ControlSamples.h"
#include "platform/controls/TPopupMenu.h"
#include "texts/Exceptions.h"

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
      Panel.SetName(std::array{"a", "b", "c", "d", "c1", "c2"}[Place]);
      Panel.SetTabStop(Place != 2);
      TWinControl& Parent = Place > 3 ? static_cast<TWinControl&>(FPanels[2]) : FForm;
      Put(Panel, Parent, 10, 10 + static_cast<int>(Place) * 20, 20, 20);
    }
    ShowNow(FForm);
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
  TForm Form, Read;
  Form.SetName("Form");
  const std::array Names{"a", "b", "c"};
  for (const char* Name : Names) {
    auto* const Panel = new TCustomPanel(&Form);
    Panel->SetName(Name);
    Panel->SetParent(&Form);
  }
  static_cast<TWinControl*>(Form.FindComponent("a"))->SetTabOrder(2);
  static_cast<TWinControl*>(Form.FindComponent("c"))->SetTabOrder(0);
  ReadBack(Form, Read);
  std::string Orders;
  for (const char* Name : Names)
    Orders += std::to_string(static_cast<TWinControl*>(Read.FindComponent(Name))->TabOrder());
  EXPECT_EQ(Orders, "210") << "each place but the first lies beyond the controls that are there when it is read";
}

// --- Menus ----------------------------------------------------------------------------------------------------------

/// A form with a panel and a graphic control in it, at 10, 10.
class MenuTest : public testing::Test {
 protected:
  MenuTest() {
    FForm.SetBounds(0, 0, 400, 300);
    FPanel.SetTabStop(true);
    Put(FPanel, FForm, 100, 50, 200, 200);
    Put(FPatch, FPanel, 10, 10, 40, 40);
    ShowNow(FForm);
    FMenu.SetOnPopup([this](TObject*) { FLog.push_back("popup"); });
    for (const char* Caption : {"&Copy", "-", "&Grid"})
      FMenu.Items().Add(Caption,
                        [this](TObject* Sender) { FLog.push_back(static_cast<TMenuItem*>(Sender)->Caption()); });
  }
  ~MenuTest() override { Shown(); }

  static void Click(TWinControl& Control, int X, int Y, int MovedTo) {
    SendMouse(Control, QEvent::MouseButtonPress, X, Y, Qt::RightButton, Qt::RightButton);
    SendMouse(Control, QEvent::MouseButtonRelease, MovedTo, Y, Qt::RightButton);
  }
  static QMenu* Open() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }
  /// The lines of the menu that a right click shows, "" without one; closes it.
  std::string RightClick(int X, int Y, const char* Choose = nullptr) {
    Click(FPanel, X, Y, X);
    return Shown(Choose);
  }
  std::string Shown(const char* Choose = nullptr) {
    QMenu* const Menu = Open();
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
  TLog FLog;
  QPoint FPlace;
  TForm FForm;
  TCustomPanel FPanel;
  TGraphicControl FPatch;
  TPopupMenu FMenu;
};

TEST_F(MenuTest, ARightClickBringsUpTheMenuOfTheControlOrItsParent) {
  EXPECT_EQ(RightClick(15, 15), "") << "nobody has a menu";
  FForm.SetPopupMenu(&FMenu);
  EXPECT_EQ(RightClick(15, 15), "&Copy - &Grid ");
  EXPECT_EQ(FMenu.PopupComponent(), &FForm);
  EXPECT_EQ(FPlace, FPanel.Widget()->mapToGlobal(QPoint(15, 15)));
  Click(FPanel, 15, 15, 45);
  EXPECT_EQ(Shown(), "") << "a gesture of the right button is no click";
  TPopupMenu Own;
  Own.Items().Add("Own");
  FPatch.SetPopupMenu(&Own);
  EXPECT_EQ(RightClick(15, 15), "Own ");
  Own.SetAutoPopup(false);
  EXPECT_EQ(RightClick(15, 15), "&Copy - &Grid ");
  TPoint Asked;
  bool Keep = true;
  FPanel.SetOnContextPopup([&](TObject*, TPoint Place, bool& Handled) {
    Asked = Place;
    Handled = Keep;
  });
  EXPECT_EQ(RightClick(60, 70), "");
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
  TMenuItem& Grid = *FMenu.Items().Items()[2];
  FMenu.SetOnPopup([&](TObject*) { Grid.SetChecked(true); });
  FMenu.Items().Items()[0]->SetShortCut("ctrl+c");
  FMenu.Items().Add("Off").SetEnabled(false);
  FMenu.Items().Add("Hidden").SetVisible(false);
  FPanel.SetPopupMenu(&FMenu);
  EXPECT_EQ(RightClick(5, 5, "&Grid"), "&CopyCtrl+C - &Grid(ticked) Off(off) ");
  EXPECT_EQ(Taken(FLog), "&Grid");
  RightClick(5, 5, "Off");
  EXPECT_EQ(Taken(FLog), "");

  TMenuItem& Sides = FMenu.Items().Add("Sides");
  Sides.SetOnClick([&](TObject*) {
    Sides.Clear();
    Sides.Add("Left", [this](TObject*) { FLog.push_back("left"); });
  });
  for (const bool Filled : {false, true}) {
    Click(FPanel, 5, 5, 5);
    ASSERT_NE(Open(), nullptr);
    QAction* const Last = Open()->actions().back();
    EXPECT_EQ(Last->menu() != nullptr, Filled);
    if (!Filled) {
      Open()->close();
      Sides.Click();
    } else {
      Open()->setActiveAction(Last);
      SendKey(*Open(), Qt::Key_Right);
    }
  }
  EXPECT_EQ(Shown("Left"), "Left ") << "filled anew as it opened";
  EXPECT_EQ(Taken(FLog), "left");
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
  EXPECT_EQ(Taken(FLog), "116");
  SendKey(*FPanel.Widget(), Qt::Key_F5, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(Taken(FLog), "popup; &Copy");
  FMenu.SetOnPopup([&](TObject*) { Copy.SetEnabled(false); });
  SendKey(*FPanel.Widget(), Qt::Key_F5, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(Taken(FLog), "116") << "OnPopup says what is possible";
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
  Click(*Panel, 5, 5, 5);
  EXPECT_EQ(Shown("Delete all"), "Delete all ");
  EXPECT_EQ(Panel, nullptr);
}

TEST(MenuItemTest, ItemsMoveAndStream) {
  TForm Form, Read;
  Form.SetName("Form");
  auto* const Menu = new TPopupMenu(&Form);
  Menu->SetName("Menu");
  TMenuItem* Items[3];
  for (const int Index : {0, 1, 2}) {
    Items[Index] = new TMenuItem(&Form);
    Items[Index]->SetCaption(std::array{"outer", "inner", "first"}[static_cast<std::size_t>(Index)]);
  }
  Items[2]->SetShortCut("F2");
  Menu->Items().Insert(0, *Items[0]);
  Menu->Items().Insert(0, *Items[2]);
  Items[0]->Insert(0, *Items[1]);
  EXPECT_THROW(Items[1]->Insert(0, *Items[0]), EInvalidOperation);
  EXPECT_THROW(Menu->Items().Insert(2, *Items[0]), ERangeError) << "it lies there already";
  Form.SetPopupMenu(Menu);
  ReadBack(Form, Read);
  ASSERT_NE(Read.PopupMenu(), nullptr);
  std::string Seen;
  for (const TMenuItem* Item : Read.PopupMenu()->Items().Items()) {
    Seen += Item->Caption() + Item->ShortCut() + "(";
    for (const TMenuItem* Inner : Item->Items()) Seen += Inner->Caption();
    Seen += ") ";
  }
  EXPECT_EQ(Seen, "firstF2() outer(inner) ");
}

}  // namespace
}  // namespace zy
