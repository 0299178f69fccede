#include <QTimer>

#include "controls/KeyEvents.h"
#include "dialogs/controls/ZyFontDialog.h"
#include "dialogs/controls/ZyGradientFrame.h"
#include "undo/ZyUndoStack.h"

namespace zy {
namespace {

class GradientFrameTest : public testing::Test {
 protected:
  GradientFrameTest() {
    FForm.SetBounds(0, 0, 400, 400);
    FSettings.SetUndoStack(&FStack);
    FFrame.SetUndoStack(&FStack);
    Put(FFrame, FForm, 0, 0, 400, 300);
    FFrame.SetGradient(&FSettings);
    FFrame.SetOnChanged([this](TObject*) { ++FTold; });
    ShowNow(FForm);
    HandleEvents();
  }
  template <class T>
  T& Part(const char* Name) {
    return dynamic_cast<T&>(*FFrame.FindComponent(Name));
  }

  TForm FForm;
  int FTold = 0;
  TZyUndoStack FStack{&FForm};
  TZyGradientSettings FSettings{nullptr};
  TZyGradientFrame FFrame{&FForm};
};

TEST_F(GradientFrameTest, ControlsShowAndWriteTheSettings) {
  EXPECT_TRUE(Part<TPanel>("LinearGradientPanel").Visible());
  Click(Part<TRadioButton>("RadialRadio"), 8, 8);
  EXPECT_EQ(FSettings.Style(), TZyGradientStyle::Radial);
  EXPECT_FALSE(Part<TPanel>("LinearGradientPanel").Visible());
  EXPECT_TRUE(Part<TPanel>("RadialGradientPanel").Visible());
  Part<TZyColorPickCombo>("RadialMiddleColor").SetActiveColor(0xFF123456);
  EXPECT_EQ(FSettings.MiddleColor(), 0xFF123456u);
  EXPECT_EQ(Part<TZyColorPickCombo>("LinearMiddleColor").ActiveColor(), 0xFF123456u);
  Part<TZyNumericUpDn>("AngleEdit").StepBy(1);
  EXPECT_EQ(FSettings.LinearAngle(), 45);
  Part<TZyNumericUpDn>("LinearCenterEdit").SetValue(7);
  EXPECT_EQ(FSettings.LinearCenter(), 1);
  EXPECT_EQ(FTold, 4);
  TZyGradientSettings Other(nullptr);
  Other.SetLinearAngle(90);
  FFrame.SetGradient(&Other);
  EXPECT_EQ(Part<TZyNumericUpDn>("AngleEdit").Value(), 90);
  EXPECT_EQ(FTold, 4) << "nothing that is only shown is told";
  EXPECT_EQ(FSettings.LinearAngle(), 45);
}

TEST_F(GradientFrameTest, ADragIsOneStep) {
  Click(Part<TRadioButton>("EllipticalRadio"), 8, 8);
  FStack.Clear();
  FTold = 0;
  auto& Sample = Part<TPanel>("RadialSamplePanel");
  const int X = (Sample.Width() - 1) / 2, Y = (Sample.Height() - 1) / 2;
  Press(Sample, X, Y + 1);
  for (int Way = 2; Way <= 20; Way += 2) {
    Drag(Sample, X + Way, Y + 1 + Way);
    EXPECT_EQ(FSettings.RadialCenterX(), 0.5f) << "not before the end";
  }
  EXPECT_GT(Part<TZyNumericUpDn>("RadialCenterX").Value(), 0.6);
  Release(Sample, X + 20, Y + 21);
  EXPECT_NEAR(FSettings.RadialCenterX(), 0.5f + 20.0f / 159, 0.01f);
  EXPECT_NEAR(FSettings.RadialCenterY(), 0.5f + 20.0f / 119, 0.01f);
  EXPECT_EQ(FTold, 1);
  EXPECT_EQ(FStack.UndoCount(), 1);
  FStack.Undo();
  EXPECT_EQ(FSettings.RadialCenterX(), 0.5f);
  EXPECT_EQ(FSettings.RadialCenterY(), 0.5f);
  Press(Sample, X + 20, Y + 21);  // a press alone
  Release(Sample, X + 20, Y + 21);
  Part<TZyNumericUpDn>("RadialCenterX").SetValue(0.25);
  EXPECT_EQ(FSettings.RadialCenterX(), 0.25f) << "the edits are not locked by it";
}

TEST_F(GradientFrameTest, SettingsMayDieFirst) {
  {
    TZyGradientSettings Short(nullptr);
    FFrame.SetGradient(&Short);
  }
  EXPECT_EQ(FFrame.Gradient(), nullptr);
  Part<TZyNumericUpDn>("AngleEdit").StepBy(1);
  Shown(FForm);
}

TEST(FontDialogTest, EditsACopy) {
  TForm FForm;
  TZyFontDialog Dialog(&FForm);
  Dialog.Font().SetName("Liberation Sans");
  Dialog.SetMinFontSize(6);
  Dialog.SetMaxFontSize(72);
  Dialog.SetShowApply(true);
  ShowNow(FForm);
  const auto Part = [&](const char* Name) -> TComponent& { return *Dialog.Components().front()->FindComponent(Name); };
  const auto Check = [&](const char* Name) -> TCheckBox& { return dynamic_cast<TCheckBox&>(Part(Name)); };
  float Applied = 0;
  Dialog.SetOnApply([&](TObject*) { Applied = Dialog.EditedFont().Size(); });
  QTimer::singleShot(0, FForm.Widget(), [&] {
    auto& Styles = dynamic_cast<TListBox&>(Part("StyleList"));
    EXPECT_EQ(Styles.Items().Text(), "Regular\nBold\nItalic\nBold Italic\n");
    Check("OutlineCheck").PerformClick();
    Check("ShadowCheck").PerformClick();
    EXPECT_FALSE(Check("OutlineCheck").Checked());
    Check("UnderlineCheck").PerformClick();
    Styles.SetItemIndex(1);
    Styles.Click();
    dynamic_cast<TZyIntegerEdit&>(Part("SizeEdit")).SetValue(500);
    dynamic_cast<TButton&>(Part("ApplyBtn")).PerformClick();
    EXPECT_EQ(Dialog.Font().Size(), 10) << "not before OK";
    Check("GradientVisibleCheck").PerformClick();
    auto& Lookup = dynamic_cast<TComboBox&>(Part("NameLookup"));
    Lookup.SetFocus();
    Lookup.SetText("No such family");
    Lookup.SetText("DejaVu Serif");
    Lookup.OnChange()(&Lookup);
    dynamic_cast<TButton&>(Part("OKBtn")).PerformClick();
  });
  EXPECT_TRUE(Dialog.Execute());
  EXPECT_EQ(Applied, 72);
  EXPECT_EQ(Dialog.Font().Name(), "DejaVu Serif");
  EXPECT_EQ(Dialog.Font().Size(), 72);
  EXPECT_EQ(Dialog.Font().DrawEffects(), TZyCharDrawEffects{TZyCharDrawEffect::Shadow});
  EXPECT_EQ(Dialog.Font().Style(), (TFontStyles{TFontStyle::Bold, TFontStyle::Underline}));
  EXPECT_TRUE(Dialog.Font().Gradient().Visible());
  QTimer::singleShot(0, FForm.Widget(), [&] {
    Check("RaisedCheck").PerformClick();
    dynamic_cast<TForm&>(*Dialog.Components().front()).Close();
  });
  EXPECT_FALSE(Dialog.Execute());
  EXPECT_EQ(Dialog.Font().DrawEffects(), TZyCharDrawEffects{TZyCharDrawEffect::Shadow});
}

}  // namespace
}  // namespace zy
