#include <QAccessible>
#include <QComboBox>
#include <QListWidget>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabBar>
#include <QTabWidget>
#include <QTimer>
#include <QWheelEvent>

#include "controls/KeyEvents.h"
#include "platform/controls/TButtonControl.h"
#include "platform/controls/TCustomComboBox.h"
#include "platform/controls/TCustomEdit.h"
#include "platform/controls/TCustomListBox.h"
#include "platform/controls/TPageControl.h"
#include "platform/controls/TPaintBox.h"
#include "platform/controls/TPopupForm.h"
#include "platform/controls/TRadioGroup.h"
#include "platform/controls/TScrollBox.h"
#include "platform/controls/TSpeedButton.h"
#include "platform/controls/TStaticText.h"
#include "platform/controls/TStatusBar.h"
#include "platform/controls/TToolBar.h"
#include "platform/controls/TTrackBar.h"
#include "platform/framework/Reflection.h"
#include "texts/Exceptions.h"

namespace zy {
namespace {

/// A shown form, and a count of what an event told.
class ToolkitTest : public testing::Test {
 protected:
  ToolkitTest() {
    FForm.SetName("Form");
    FForm.SetBounds(0, 0, 400, 300);
  }
  template <class T>
  T& Add(const char* Name, int Left = 8, int Top = 8, int Width = 120, int Height = 28) {
    auto* const Control = new T(&FForm);
    Control->SetName(Name);
    Put(*Control, FForm, Left, Top, Width, Height);
    return *Control;
  }
  TNotifyEvent Counted() {
    return [this](TObject*) { ++FTold; };
  }
  int TakeTold() { return std::exchange(FTold, 0); }

  TForm FForm;
  int FTold = 0;
};

TEST_F(ToolkitTest, ButtonsTellTheUsersClicksAndNoOthers) {
  auto& Check = Add<TCheckBox>("Check");
  auto& First = Add<TRadioButton>("First", 8, 40);
  auto& Second = Add<TRadioButton>("Second", 8, 70);
  Check.SetOnClick(Counted());
  Second.SetOnClick(Counted());
  for (const bool IsShown : {false, true}) {
    if (IsShown) ShowNow(FForm);
    Check.SetChecked(true);
    First.SetChecked(true);
    EXPECT_FALSE(Second.Checked());
    Second.SetChecked(true);
    EXPECT_FALSE(First.Checked());
    Second.SetChecked(false);
    EXPECT_FALSE(First.Checked() || Second.Checked());
    EXPECT_EQ(TakeTold(), 0);
    Check.SetChecked(false);
  }
  Click(Check, 8, 14);
  EXPECT_TRUE(Check.Checked());
  EXPECT_EQ(TakeTold(), 1);
  SendKey(Check, Qt::Key_Space, " ");
  EXPECT_FALSE(Check.Checked());
  EXPECT_EQ(TakeTold(), 1);
  First.SetChecked(true);
  Click(Second, 8, 14);
  EXPECT_TRUE(Second.Checked() && !First.Checked());
  EXPECT_EQ(TakeTold(), 1);
  Check.SetEnabled(false);
  Click(Check, 8, 14);
  EXPECT_FALSE(Check.Checked());
}

TEST_F(ToolkitTest, SpeedButtonsOfAGroupGoDownOneAtATime) {
  auto& A = Add<TSpeedButton>("A");
  auto& B = Add<TSpeedButton>("B", 140);
  ShowNow(FForm);
  Click(A, 9, 9);
  EXPECT_FALSE(A.Down()) << "without a group";
  A.SetGroupIndex(1);
  B.SetGroupIndex(1);
  Click(A, 9, 9);
  Click(B, 9, 9);
  EXPECT_TRUE(B.Down() && !A.Down());
  Click(B, 9, 9);
  EXPECT_TRUE(B.Down()) << "one must be";
  B.SetAllowAllUp(true);
  Click(B, 9, 9);
  EXPECT_FALSE(B.Down());
}

TEST_F(ToolkitTest, AToolBarHasItsButtonsSideBySide) {
  auto& Bar = Add<TToolBar>("Bar");
  auto& First = Add<TToolButton>("First", 0, 0, 23);
  auto& Second = Add<TToolButton>("Second", 0, 0, 30);
  First.SetParent(&Bar);
  Second.SetParent(&Bar);
  ShowNow(FForm);
  EXPECT_EQ(Bar.Width(), FForm.Width());
  EXPECT_EQ(First.Left(), 0);
  EXPECT_EQ(Second.Left(), 23);
  EXPECT_EQ(Second.Height(), Bar.Height());
}

TEST_F(ToolkitTest, AnEditTakesWhatIsTypedAndNotRefused) {
  auto& Edit = Add<TEdit>("Edit");
  Edit.SetText("one\r\ntwo\tand\x01 three");
  EXPECT_EQ(Edit.Text(), "onetwoand three") << "no control characters";
  EXPECT_FALSE(Edit.Modified());
  ShowNow(FForm);
  Edit.SetFocus();
  Edit.SelectAll();
  EXPECT_EQ(Edit.SelLength(), 15);
  Edit.SetOnChange(Counted());
  Edit.SetOnKeyPress([](TObject*, char32_t& Key) {
    if (Key == U'x') Key = 0;
  });
  Type(Edit, "ax\u00e4");
  EXPECT_EQ(Edit.Text(), "a\u00e4");
  EXPECT_EQ(Edit.SelStart(), 2);
  EXPECT_TRUE(Edit.Modified());
  EXPECT_EQ(TakeTold(), 2);
  Edit.Select(-5, 100);
  EXPECT_EQ(Edit.SelLength(), 2);
  Edit.SetReadOnly(true);
  Type(Edit, "b");
  EXPECT_EQ(Edit.Text(), "a\u00e4");
}

TEST_F(ToolkitTest, AComboTellsWhatTheUserChose) {
  auto& Combo = Add<TComboBox>("Combo");
  Combo.SetStyle(csDropDownList);
  Combo.Items().SetText("red\ngreen\nblue");
  Combo.SetOnSelect(Counted());
  for (const bool IsShown : {false, true}) {
    if (IsShown) ShowNow(FForm);
    Combo.SetItemIndex(2);
    EXPECT_EQ(Combo.Text(), "blue");
    Combo.SetItemIndex(7);
    EXPECT_EQ(Combo.ItemIndex(), -1);
    Combo.SetItemIndex(0);
  }
  EXPECT_EQ(TakeTold(), 0);
  FForm.Widget()->setFocus();
  QWheelEvent Wheel(QPointF(9, 9), Combo.Widget()->mapToGlobal(QPointF(9, 9)), {}, {0, -120}, Qt::NoButton,
                    Qt::NoModifier, Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(Combo.Widget(), &Wheel);
  EXPECT_EQ(Combo.ItemIndex(), 0) << "the wheel over a control without the keyboard belongs to the page";
  EXPECT_FALSE(Wheel.isAccepted());
  Combo.SetFocus();
  SendKey(Combo, Qt::Key_Down);
  EXPECT_EQ(Combo.ItemIndex(), 1);
  EXPECT_EQ(TakeTold(), 1);
  Combo.Items().Delete(2);
  EXPECT_EQ(Combo.ItemIndex(), 1);
  Combo.Items().Clear();
  EXPECT_EQ(Combo.ItemIndex(), -1);
}

TEST_F(ToolkitTest, AListSelectsOneOrMany) {
  auto& List = Add<TListBox>("List", 8, 8, 200, 200);
  List.Items().SetText("a\nb\nc\nd");
  std::string Drawn;
  List.SetOnDrawItem([&](TObject*, Graphics&, int Index, const TRect& Box, TOwnerDrawState State) {
    Drawn += IntToStr(Index) + (State.Contains(odSelected) ? "*" : "") + (Box.Height() == 30 ? "" : "!");
  });
  List.SetItemHeight(30);
  List.SetStyle(lbOwnerDrawFixed);
  List.SetOnClick(Counted());
  ShowNow(FForm);
  auto& Inside = *static_cast<QListWidget*>(List.Widget())->viewport();
  const auto At = [&](int Index) {
    const TRect Box = List.ItemRect(Index);
    return QPoint(Box.Left + 20, Box.Top + Box.Height() / 2);
  };
  EXPECT_EQ(List.ItemAtPos(At(2).x(), At(2).y()), 2);
  ClickOn(Inside, At(1));
  EXPECT_EQ(List.ItemIndex(), 1);
  ClickOn(Inside, At(1));
  EXPECT_EQ(TakeTold(), 2) << "a click on what is selected counts too";
  Drawn.clear();
  Shown(List);
  EXPECT_EQ(Drawn, "01*23");
  SendKey(List, Qt::Key_Down);
  EXPECT_EQ(List.ItemIndex(), 2);
  EXPECT_EQ(TakeTold(), 1);
  List.SetMultiSelect(true);
  ClickOn(Inside, At(0), Qt::ControlModifier);
  EXPECT_TRUE(List.Selected(0) && List.Selected(2) && !List.Selected(1));
  EXPECT_EQ(List.SelCount(), 2);
  List.SetSelected(3, true);
  EXPECT_EQ(List.SelCount(), 3);
  EXPECT_THROW(List.Selected(4), ERangeError);
}

TEST_F(ToolkitTest, ACheckListTellsItsMarks) {
  auto& List = Add<TCheckListBox>("List", 8, 8, 200, 200);
  List.Items().SetText("a\nb");
  List.SetChecked(1, true);
  List.SetOnClickCheck(Counted());
  ShowNow(FForm);
  List.SetFocus();
  List.SetItemIndex(0);
  SendKey(List, Qt::Key_Space, " ");
  EXPECT_TRUE(List.Checked(0) && List.Checked(1));
  EXPECT_EQ(TakeTold(), 1);
  EXPECT_THROW(List.SetChecked(2, true), ERangeError);
}

TEST_F(ToolkitTest, PagesComeToTheFront) {
  auto& Pages = Add<TPageControl>("Pages", 8, 8, 300, 200);
  std::vector<TTabSheet*> Sheets;
  std::string Front;
  for (const char* Name : {"A", "B", "C"}) {
    auto* const Sheet = new TTabSheet(&FForm);
    Sheet->SetName(Name);
    Sheet->SetCaption(Name);
    Sheet->SetParent(&Pages);
    Sheet->SetOnShow([&Front, Name](TObject*) { Front += Name; });
    Sheets.push_back(Sheet);
  }
  Pages.SetOnChange(Counted());
  EXPECT_EQ(Pages.ActivePage(), Sheets[0]);
  ShowNow(FForm);
  Pages.SetActivePageIndex(2);
  EXPECT_EQ(TakeTold(), 0) << "by code";
  QTabBar& Tabs = *static_cast<QTabWidget*>(Pages.Widget())->tabBar();
  ClickOn(Tabs, Tabs.tabRect(1).center());
  EXPECT_EQ(Pages.ActivePageIndex(), 1);
  EXPECT_EQ(TakeTold(), 1);
  EXPECT_EQ(Front, "CB");
  Sheets[1]->SetTabVisible(false);
  EXPECT_EQ(Pages.ActivePage(), Sheets[0]);
  EXPECT_FALSE(Tabs.isTabVisible(1));
  delete Sheets[0];
  EXPECT_EQ(Pages.Pages().size(), 2u);
  EXPECT_EQ(Tabs.count(), 2);
}

TEST_F(ToolkitTest, AScrollBoxReachesWhatDoesNotFit) {
  auto& Box = Add<TScrollBox>("Box", 0, 0, 200, 100);
  auto& Far = Add<TButton>("Far");
  Put(Far, Box, 10, 400, 80, 30);
  ShowNow(FForm);
  auto& Area = *static_cast<QScrollArea*>(Box.Widget());
  EXPECT_GE(Area.verticalScrollBar()->maximum(), 400 + 30 - 100);
  Far.SetTop(20);
  HandleEvents();
  EXPECT_EQ(Area.verticalScrollBar()->maximum(), 0);
}

TEST_F(ToolkitTest, AModalFormEndsWithItsResult) {
  auto& Ok = Add<TButton>("Ok");
  auto& No = Add<TButton>("No", 140);
  auto& Edit = Add<TEdit>("Edit", 8, 60);
  Ok.SetDefault(true);
  Ok.SetModalResult(mrOk);
  No.SetCancel(true);
  No.SetModalResult(mrNo);
  const auto Ask = [&](std::function<void()> Do) {
    QTimer::singleShot(0, FForm.Widget(), std::move(Do));
    return FForm.ShowModal();
  };
  EXPECT_EQ(Ask([&] { SendKey(Edit, Qt::Key_Return, "\r"); }), mrOk);
  EXPECT_EQ(Ask([&] { SendKey(Edit, Qt::Key_Escape, "\x1b"); }), mrNo);
  EXPECT_EQ(Ask([&] {
              No.SetFocus();
              SendKey(No, Qt::Key_Return, "\r");
            }),
            mrNo)
      << "the button with the keyboard";
  EXPECT_EQ(Ask([&] { FForm.Close(); }), mrCancel);
  EXPECT_EQ(Ask([&] {
              EXPECT_THROW(FForm.ShowModal(), EInvalidOperation);
              bool MayGo = false;
              FForm.SetOnCloseQuery([&](TObject*, bool& CanClose) { CanClose = std::exchange(MayGo, true); });
              Click(Ok, 9, 9);
              EXPECT_TRUE(FForm.Visible()) << "the form refused";
              Click(Ok, 9, 9);
            }),
            mrOk);
  auto* const Doomed = new TForm;
  QTimer::singleShot(0, Doomed->Widget(), [Doomed] { delete Doomed; });
  EXPECT_EQ(Doomed->ShowModal(), mrCancel);
}

TEST_F(ToolkitTest, APopupStaysOnTheScreen) {
  const QRect Desk = FForm.Widget()->screen()->availableGeometry();
  auto& Below = Add<TEdit>("Below", 360, 260, 30, 20);
  FForm.SetPosition(poDesigned);
  FForm.SetBounds(Desk.right() - 400, Desk.bottom() - 300, 400, 300);
  ShowNow(FForm);
  TPopupForm Popup;
  Popup.SetBounds(0, 0, 200, 150);
  Popup.DropDown(Below);
  HandleEvents();
  const TPoint Corner = Below.ClientToScreen({0, 0});
  EXPECT_EQ(Popup.Left() + Popup.Width(), Desk.right() + 1);
  EXPECT_EQ(Popup.Top() + Popup.Height(), Corner.Y) << "above the control";
  Press(Popup, -20, 10);
  EXPECT_FALSE(Popup.Visible()) << "a click beside it";
}

TEST_F(ToolkitTest, OnlyAFontThatWasSetReachesTheWidget) {
  auto& Edit = Add<TEdit>("Edit");
  ShowNow(FForm);
  EXPECT_EQ(Edit.Widget()->font(), QApplication::font(Edit.Widget()));
  EXPECT_EQ(Edit.Widget()->palette().color(QPalette::Text), QApplication::palette().color(QPalette::Text));
  FForm.ControlFont().SetSize(18);
  EXPECT_EQ(Edit.Widget()->font().pixelSize(), 24) << "18 points of 96/72 pixels, from the form";
  Edit.ControlFont().SetColor(Red);
  EXPECT_EQ(Edit.Widget()->palette().color(QPalette::Text).rgba(), Red);
}

/// A form with one of each control, which comes back from a stream.
TEST_F(ToolkitTest, ControlsComeBackWithTheirForm) {
  Add<TCheckBox>("Check").SetChecked(true);
  Add<TButton>("Button").SetModalResult(mrYes);
  Add<TEdit>("Edit").SetText("text");
  auto& Combo = Add<TComboBox>("Combo");
  Combo.Items().SetText("x\ny");
  Combo.SetItemIndex(1);
  auto& List = Add<TListBox>("List");
  List.Items().SetText("x\ny\nz");
  List.SetItemIndex(2);
  auto& Group = Add<TRadioGroup>("Group");
  Group.Items().SetText("x\ny");
  Group.SetItemIndex(1);
  Add<TTrackBar>("Track").SetParams(150, 100, 200);
  auto& Pages = Add<TPageControl>("Pages");
  for (const char* Name : {"One", "Two"}) {
    auto* const Sheet = new TTabSheet(&FForm);
    Sheet->SetName(Name);
    Sheet->SetParent(&Pages);
  }
  Pages.SetActivePageIndex(1);
  auto& Label = Add<TStaticText>("Label");
  Label.SetFocusControl(static_cast<TWinControl*>(FForm.FindComponent("Edit")));
  TForm Read;
  ReadBack(FForm, Read);
  const auto Same = [&](const char* Name, const char* PropName) {
    const std::string Expected = GetPropValue(*FForm.FindComponent(Name), PropName).AsText();
    EXPECT_EQ(GetPropValue(*Read.FindComponent(Name), PropName).AsText(), Expected) << Name;
  };
  Same("Edit", "Text");
  EXPECT_TRUE(static_cast<TCheckBox*>(Read.FindComponent("Check"))->Checked());
  EXPECT_EQ(static_cast<TButton*>(Read.FindComponent("Button"))->ModalResult(), mrYes);
  EXPECT_EQ(static_cast<TComboBox*>(Read.FindComponent("Combo"))->Text(), "y");
  EXPECT_EQ(static_cast<TListBox*>(Read.FindComponent("List"))->ItemIndex(), 2);
  EXPECT_EQ(static_cast<TRadioGroup*>(Read.FindComponent("Group"))->ItemIndex(), 1);
  EXPECT_EQ(static_cast<TTrackBar*>(Read.FindComponent("Track"))->Position(), 150);
  EXPECT_EQ(static_cast<TPageControl*>(Read.FindComponent("Pages"))->ActivePageIndex(), 1);
  EXPECT_EQ(static_cast<TStaticText*>(Read.FindComponent("Label"))->FocusControl(), Read.FindComponent("Edit"));
}

TEST_F(ToolkitTest, ScreenReadersHearNamesAndRoles) {
  auto& Edit = Add<TEdit>("Edit");
  auto& Label = Add<TStaticText>("Label");
  Label.SetCaption("&Width && height");
  Label.SetFocusControl(&Edit);
  auto& Check = Add<TCheckBox>("Check");
  Check.SetCaption("&Visible");
  auto& Track = Add<TTrackBar>("Track");
  Track.SetHint("Opacity");
  struct TCase {
    TWinControl& Control;
    const char* Name;
    QAccessible::Role Role;
  };
  ShowNow(FForm);
  for (const TCase& Each :
       {TCase{Edit, "Width & height", QAccessible::EditableText}, TCase{Check, "Visible", QAccessible::CheckBox},
        TCase{Track, "Opacity", QAccessible::Slider}, TCase{Add<TComboBox>("Combo"), "Combo", QAccessible::ComboBox},
        TCase{Add<TListBox>("List"), "List", QAccessible::List},
        TCase{Add<TButton>("Button"), "Button", QAccessible::Button},
        TCase{Add<TRadioButton>("Radio"), "Radio", QAccessible::RadioButton}}) {
    QAccessibleInterface* const Heard = QAccessible::queryAccessibleInterface(Each.Control.Widget());
    ASSERT_NE(Heard, nullptr);
    EXPECT_EQ(Heard->text(QAccessible::Name).toStdString(), Each.Name);
    EXPECT_EQ(Heard->role(), Each.Role) << Each.Name;
  }
  delete &Label;
  EXPECT_EQ(Edit.Widget()->accessibleName(), "Edit");
}

}  // namespace
}  // namespace zy
