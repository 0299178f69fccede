#include <QComboBox>
#include <QListWidget>

#include "controls/KeyEvents.h"
#include "dialogs/controls/ZyAreaStyles.h"
#include "dialogs/controls/ZyDashStyles.h"
#include "dialogs/controls/ZyPointSymbols.h"

namespace zy {
namespace {

class StylePicksTest : public testing::Test {
 protected:
  StylePicksTest() {
    FForm.SetName("StyleForm");
    FForm.SetBounds(0, 0, 400, 400);
  }
  TNotifyEvent Counted() {
    return [this](TObject*) { ++FTold; };
  }

  TForm FForm;
  int FTold = 0;
};

TEST_F(StylePicksTest, ItemsAreTheValues) {
  TZyAreaStylesList Areas(&FForm);
  EXPECT_EQ(Areas.Items().Count(), 54);
  EXPECT_EQ(Areas.AreaStyle(), TZyAreaStyle::Horizontal) << "read without a selection";
  EXPECT_EQ(Areas.ItemIndex(), 0);
  TZyAreaStylesList Fresh(&FForm);
  Put(Fresh, FForm, 8, 8, 200, 200);
  ShowNow(FForm);
  EXPECT_EQ(Fresh.AreaStyle(), TZyAreaStyle::Total);
  TZyPointSymbolsCombo Symbols(&FForm);
  EXPECT_EQ(Symbols.Items().Count(), 10);
  TZyDashStylesCombo Dashes(&FForm);
  EXPECT_EQ(Dashes.Items().Text(), "Solid\nDash\nDot\nDash Dot\nDash Dot Dot\n");
}

TEST_F(StylePicksTest, TheUsersChoiceIsTold) {
  TZyDashStylesCombo Combo(&FForm);
  Put(Combo, FForm, 8, 8, 120, 24);
  Combo.SetOnValueChanged(Counted());
  ShowNow(FForm);
  Combo.SetDashStyle(DashStyleDot);
  EXPECT_EQ(FTold, 0);
  EXPECT_EQ(Combo.ItemIndex(), 2);
  SendKey(Combo, Qt::Key_Down);
  EXPECT_EQ(Combo.DashStyle(), DashStyleDashDot);
  EXPECT_EQ(FTold, 1);
  EXPECT_EQ(static_cast<QComboBox*>(Combo.Widget())->currentText(), "Dash Dot");
  Combo.SetDashStyle(DashStyleCustom);  // no item for it
  EXPECT_EQ(Combo.DashStyle(), DashStyleCustom);
  EXPECT_EQ(Combo.ItemIndex(), -1);
}

TEST_F(StylePicksTest, ALineIsDrawnAsItsSettingsSayAsLongAsTheyLive) {
  TZyDashStylesCombo Combo(&FForm);
  Put(Combo, FForm, 8, 8, 120, 24);
  ShowNow(FForm);
  const auto Has = [&](ARGB Color) {
    const QImage Picture = Shown(Combo);
    for (int X = 0; X < Picture.width(); ++X)
      if (Picture.pixel(X, Picture.height() / 2) == Color) return true;
    return false;
  };
  EXPECT_TRUE(Has(Red));
  Combo.SetLineColor(Blue);
  EXPECT_TRUE(Has(Blue));
  {
    TZySimpleLineSettings Settings(nullptr);
    Settings.SetColor(Green);
    Combo.SetUseLineSettings(&Settings);
    EXPECT_TRUE(Has(Green));
  }
  EXPECT_TRUE(Has(Blue));
}

TEST_F(StylePicksTest, APickFormDropsAllValues) {
  TZyAreaStylesCombo Combo(&FForm);
  Put(Combo, FForm, 8, 8, 80, 24);
  Combo.SetDropPickList(true);
  Combo.SetDropDownCount(12);
  Combo.SetOnValueChanged(Counted());
  ShowNow(FForm);
  EXPECT_EQ(static_cast<QComboBox*>(Combo.Widget())->maxVisibleItems(), 1);
  Combo.SetDroppedDown(true);
  auto& Pick = SharedForm<TZyAreaStylesForm>();
  ASSERT_TRUE(Pick.Visible());
  EXPECT_EQ(Pick.List().Width(), 24 * 8 + 2);
  EXPECT_EQ(Pick.List().Height(), 24 * 7 + 2);
  EXPECT_EQ(Pick.List().AreaStyle(), TZyAreaStyle::Total);
  HandleEvents();
  const TRect Box = Pick.List().ItemRect(9);
  EXPECT_EQ(Box.Left / 24, 1) << "the second column, filled from the top";
  ClickOn(*static_cast<QListWidget*>(Pick.List().Widget())->viewport(), QPoint(Box.Left + 9, Box.Top + 9));
  EXPECT_FALSE(Pick.Visible());
  EXPECT_EQ(Combo.AreaStyle(), TZyAreaStyle::Percent25);
  EXPECT_EQ(FTold, 1);
  Combo.SetDroppedDown(true);
  SendKey(Pick.List(), Qt::Key_Down);
  EXPECT_EQ(FTold, 1);
  SendKey(Pick.List(), Qt::Key_Return, "\r");
  EXPECT_EQ(Combo.AreaStyle(), TZyAreaStyle::Percent30);
  EXPECT_EQ(FTold, 2);
  Combo.SetDropPickList(false);
  EXPECT_EQ(static_cast<QComboBox*>(Combo.Widget())->maxVisibleItems(), 12);
  delete &Pick;
}

TEST_F(StylePicksTest, ASymbolIsLinkedByItsPublishedName) {
  TZyPointSymbolsCombo First(&FForm), Second(&FForm);
  First.SetName("First");
  Second.PropertyLinks().Items().Add("StyleForm.First.Symbol");
  Put(First, FForm, 8, 8, 80, 24);
  Put(Second, FForm, 8, 40, 80, 24);
  ShowNow(FForm);
  First.SetPointSymbol(TZyPointSymbol::Star);
  TApplication::Idle();
  EXPECT_EQ(Second.PointSymbol(), TZyPointSymbol::Star);
  SendKey(Second, Qt::Key_Down);
  EXPECT_EQ(First.PointSymbol(), TZyPointSymbol::FiveStar);
}

}  // namespace
}  // namespace zy
