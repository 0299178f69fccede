#include <QAccessible>
#include <limits>

#include "controls/KeyEvents.h"
#include "dialogs/controls/ZyDateTimeInput.h"
#include "dialogs/controls/ZyIntegerEdit.h"
#include "dialogs/controls/ZyLinkedChecks.h"
#include "dialogs/controls/ZyNumericUpDn.h"
#include "platform/framework/ScopedFlag.h"

namespace zy {
namespace {

/// Edits on a shown form, with something else that can have the keyboard.
class NumberEditsTest : public testing::Test {
 protected:
  NumberEditsTest() {
    FForm.SetName("Form");
    FForm.SetBounds(0, 0, 400, 300);
    Put(FOther, FForm, 8, 200, 100, 24);
    Place(FWhole, 8);
    Place(FReal, 40);
    Place(FSteps, 80);
    ShowNow(FForm);
    FOther.SetFocus();
  }
  template <class T>
  void Place(T& Edit, int Top) {
    Put(Edit, FForm, 8, Top, 160, 28);
    Edit.SetOnValueChanged([this](TObject*) { ++FTold; });
  }
  int TakeTold() { return std::exchange(FTold, 0); }
  /// Replaces the text as a user does.
  template <class T>
  void Enter(T& Edit, const QString& Text) {
    Edit.SetFocus();
    Edit.SelectAll();
    Type(Edit, Text);
  }

  TForm FForm;
  TEdit FOther{&FForm};
  TZyIntegerEdit FWhole{&FForm};
  TZyDoubleEdit FReal{&FForm};
  TZyNumericUpDn FSteps{&FForm};
  int FTold = 0;
};

TEST_F(NumberEditsTest, WhatIsTypedIsTheValueAtOnceOrIsDropped) {
  Enter(FWhole, "42");
  EXPECT_EQ(FWhole.Value(), 42);
  Type(FWhole, "x.e");
  EXPECT_EQ(FWhole.Text(), "42") << "refused";
  struct TCase {
    const char* Text;
    int Value;
  };
  for (const TCase& Each :
       {TCase{"-", 42}, TCase{"-7", -7}, TCase{"99999999999999999999", -7}, TCase{"2147483647", 2147483647},
        TCase{"2147483648", 2147483647}, TCase{"1-2", 2147483647}, TCase{"", 2147483647}}) {
    {
      FWhole.SetFocus();
      FWhole.SetText(Each.Text);  // as a paste brings it
    }
    FOther.SetFocus();
    EXPECT_EQ(FWhole.Value(), Each.Value) << Each.Text;
    EXPECT_EQ(FWhole.Text(), IntToStr(Each.Value)) << "the valid text is back after " << Each.Text;
  }
}

TEST_F(NumberEditsTest, LimitsHoldAndTellOnce) {
  FWhole.SetMinValue(10);
  FWhole.SetMaxValue(5);
  FWhole.SetValue(100);
  EXPECT_EQ(FWhole.Value(), 100) << "the other way round they are none";
  FWhole.SetMaxValue(20);
  EXPECT_EQ(FWhole.Value(), 20);
  TakeTold();
  Enter(FWhole, "500");
  EXPECT_EQ(FWhole.Value(), 20);
  TakeTold();
  FWhole.SetValue(15);
  TakeTold();
  FWhole.SelectAll();
  FWhole.SetText("500");
  EXPECT_EQ(TakeTold(), 0);
  FOther.SetFocus();
  EXPECT_EQ(FWhole.Value(), 20);
  EXPECT_EQ(FWhole.Text(), "20");
  EXPECT_EQ(TakeTold(), 1);
}

TEST_F(NumberEditsTest, ReturnTakesTheTextAndEndsThere) {
  int Doubles = 0, Downs = 0;
  FReal.SetOnDblClick([&](TObject*) { ++Doubles; });
  FForm.SetOnKeyDown([&](TObject*, TKey& Key, TShiftState) { Downs += Key == vkReturn; });
  FReal.SetMaxValue(3);
  Enter(FReal, "7");
  SendKey(FReal, Qt::Key_Return, "\r");
  EXPECT_EQ(FReal.Value(), 3);
  EXPECT_EQ(Doubles, 1);
  EXPECT_EQ(Downs, 0) << "else it would press a button of the form";
}

TEST_F(NumberEditsTest, BothSeparatorsOfDecimalsAndNoneOfThousands) {
  TFormatSettings German = FormatSettings();
  German.DecimalSeparator = ',';
  German.ThousandSeparator = '.';
  const TScopedValue Locale(FormatSettings(), German);
  struct TCase {
    const char* Text;
    double Value;
  };
  FReal.SetValue(-1);
  EXPECT_EQ(FReal.Text(), "-1");
  for (const TCase& Each : {TCase{"2,5", 2.5}, TCase{"2.25", 2.25}, TCase{"1e3", 1000}, TCase{"1.000,5", 1000},
                            TCase{"1e999", 1000}, TCase{"nan", 1000}}) {
    FReal.SetFocus();
    FReal.SetText(Each.Text);
    FOther.SetFocus();
    EXPECT_EQ(FReal.Value(), Each.Value) << Each.Text;
  }
  FReal.SetFormat("#,##0.00 \"mm\"");
  FReal.SetValue(1234.5);
  EXPECT_EQ(FReal.Text(), "1.234,50 mm");
  FReal.SetFocus();
  FReal.SetText("1.234,75 mm");
  EXPECT_EQ(FReal.Value(), 1234.75) << "a unit and groups of digits that the format has";
}

TEST_F(NumberEditsTest, AValueLosesNoDigitsByAVisit) {
  const double Third = 1.0 / 3;
  FReal.SetValue(Third);
  FReal.SetWidth(50);
  TakeTold();
  FReal.SetFocus();
  FOther.SetFocus();
  EXPECT_EQ(FReal.Value(), Third);
  EXPECT_EQ(TakeTold(), 0);
}

TEST_F(NumberEditsTest, ANarrowEditLosesDigitsAndThenHides) {
  FReal.SetValue(-123456.789012);
  std::size_t Shortest = 100;
  for (int Width = 160; Width > 40; Width -= 10) {
    FReal.SetWidth(Width);
    if (FReal.Text().front() != '#') Shortest = std::min(Shortest, FReal.Text().size());
  }
  EXPECT_LT(Shortest, 12u);
  FReal.SetWidth(20);
  EXPECT_EQ(FReal.Text(), std::string(45, '#'));
  FReal.SetDoHashes(false);
  EXPECT_NE(FReal.Text().front(), '#');
  FReal.SetWidth(300);
  EXPECT_EQ(FReal.Text(), "-123456.789012");
  FWhole.SetValue(1234567890);
  FWhole.SetWidth(30);
  EXPECT_EQ(FWhole.Text(), std::string(45, '#'));
  FWhole.SetFocus();
  EXPECT_EQ(FWhole.Text(), "1234567890") << "whole where it can be changed";
  EXPECT_EQ(FWhole.Value(), 1234567890);
}

TEST_F(NumberEditsTest, DigitsAreBroughtIntoRange) {
  EXPECT_EQ(FReal.DecimalPlaces(), -1);
  FReal.SetDigits(-5);
  EXPECT_EQ(FReal.DecimalPlaces(), 0);
  FReal.SetDigits(30);
  EXPECT_EQ(FReal.DecimalPlaces(), 18);
  FReal.SetDigits(2);
  EXPECT_EQ(FReal.DoubleStr(1.005e3), "1005.00");
  EXPECT_EQ(FReal.DoubleStr(1e300), "1e+300");
}

TEST_F(NumberEditsTest, DatesAndSpansExcludeEachOther) {
  FReal.SetAsTimeSpan(true);
  FReal.SetValue(1.5);
  EXPECT_EQ(FReal.Text(), "1.12:00:00.000");
  FReal.SetValue(-1);
  EXPECT_EQ(FReal.Text(), "Error");
  FReal.SetAsDateTime(true);
  EXPECT_FALSE(FReal.AsTimeSpan());
  FReal.SetValue(45351.75);  // 29 February 2024, 18:00
  EXPECT_EQ(FReal.Text(), "02/29/2024 18:00:00");
  FReal.SetFocus();
  FReal.SetText("12/31/2023");
  EXPECT_EQ(FReal.Value(), 45291);
  FReal.SetText("02/30/2023");
  EXPECT_EQ(FReal.Value(), 45291);
  FReal.SetValue(1e9);
  EXPECT_EQ(FReal.Value(), 2958465.99998843);
}

TEST_F(NumberEditsTest, DatesAreReadInTheLocalesOrder) {
  EXPECT_EQ(DateTimeOfInput("2/29/24 6:30 PM"), 45351 + 18.5 / 24);
  EXPECT_EQ(DateTimeOfInput("18:00"), 0.75);
  EXPECT_EQ(DateTimeOfInput("Feb 29 2024"), 45351);
  for (const char* Text : {"", "12", "2/29/2023", "1/2/3/4/5/6/7/8", "13:00 PM", "a/b/c", "25:00", "1/1/2024 12:"})
    EXPECT_EQ(DateTimeOfInput(Text), std::nullopt) << Text;
  TFormatSettings German = FormatSettings();
  German.ShortDateFormat = "dd.MM.yyyy";
  German.DateSeparator = '.';
  const TScopedValue Locale(FormatSettings(), German);
  EXPECT_EQ(DateTimeOfInput("29.2.2024 00:00:00.5"), 45351 + 0.5 / 86400);
}

TEST_F(NumberEditsTest, StepsByKeysButtonsAndWheel) {
  FSteps.SetIncrement(0.5);
  FSteps.SetDigits(1);
  FSteps.SetMaxValue(2);
  FSteps.SetFocus();
  SendKey(FSteps, Qt::Key_Up);
  SendKey(FSteps, Qt::Key_Up);
  SendKey(FSteps, Qt::Key_Down);
  EXPECT_EQ(FSteps.Value(), 0.5);
  EXPECT_EQ(FSteps.Text(), "0.5");
  Click(FSteps, FSteps.Width() - 8, 7);
  EXPECT_EQ(FSteps.Value(), 1) << "the upper button";
  Click(FSteps, FSteps.Width() - 8, 22);
  EXPECT_EQ(FSteps.Value(), 0.5);
  for (int Count = 0; Count < 9; ++Count) SendKey(FSteps, Qt::Key_Up);
  EXPECT_EQ(FSteps.Value(), 2);
  FSteps.SetMaxValue(0);
  FSteps.SetValue(1e300);
  EXPECT_EQ(FSteps.AsInteger(), std::numeric_limits<int>::max());
  FSteps.SetValue(-2.6);
  EXPECT_EQ(FSteps.AsInteger(), -3);
  EXPECT_EQ(QAccessible::queryAccessibleInterface(FSteps.Widget())->role(), QAccessible::SpinBox);
}

TEST_F(NumberEditsTest, LinksFollowAndWrite) {
  FForm.SetName("LinkForm");
  FWhole.SetName("Whole");
  TZyCheckBox Check(&FForm);
  TZyRadioGroup Group(&FForm);
  Put(Check, FForm, 200, 8, 100, 24);
  Put(Group, FForm, 200, 40, 100, 100);
  Group.Items().SetText("none\nleft\nright");
  FReal.PropertyLinks().Items().Add("LinkForm.Whole.Value");
  Check.PropertyLinks().Items().Add("LinkForm.Whole.Enabled");
  Group.PropertyLinks().Items().Add("LinkForm.Whole.Alignment");
  FWhole.SetValue(5);
  FWhole.SetEnabled(false);
  TApplication::Idle();
  EXPECT_FALSE(Check.Checked());
  EXPECT_EQ(Group.ItemIndex(), 0);
  Click(Check, 8, 12);
  EXPECT_TRUE(FWhole.Enabled());
  Group.SetItemIndex(1);
  EXPECT_EQ(FWhole.Alignment(), TAlignment::taRightJustify);
}

}  // namespace
}  // namespace zy
