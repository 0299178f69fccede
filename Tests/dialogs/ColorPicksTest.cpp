#include <QAccessible>
#include <QComboBox>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTimer>

#include "controls/KeyEvents.h"
#include "dialogs/controls/ZyColorPickCombo.h"
#include "dialogs/controls/ZyColorPickerForm.h"
#include "dialogs/controls/ZyTuneColorsDialog.h"
#include "dialogs/controls/ZyTuneColorsForm.h"
#include "platform/framework/TRegistryIniFile.h"

namespace zy {
namespace {

class ColorPicksTest : public testing::Test {
 protected:
  ColorPicksTest() {
    Program().SetConfigFolder(FFolder.path().toStdString());
    FForm.SetName("Form");
    FForm.SetBounds(0, 0, 400, 300);
    Put(FCombo, FForm, 8, 8, 60, 24);
    ShowNow(FForm);
    FCombo.SetOnChanged([this](TObject*) { ++FTold; });
  }
  ~ColorPicksTest() override {
    delete &TuneColorsForm();
    delete &ColorPickerForm();
  }
  template <class T = TZyNumericUpDn>
  static T& Part(const char* Name) {
    return dynamic_cast<T&>(*TuneColorsForm().FindComponent(Name));
  }
  static TZyColorBtn& Button(TZyColor Color) {
    for (TControl* Each : ColorPickerForm().Controls())
      if (auto* const Button = dynamic_cast<TZyColorBtn*>(Each); Button != nullptr && Button->SqareColor() == Color)
        return *Button;
    throw std::runtime_error("no button");
  }
  void Open() {
    FCombo.SetFocus();
    SendKey(FCombo, Qt::Key_Return, "\r");
    HandleEvents();
  }

  QTemporaryDir FFolder;
  TForm FForm;
  TZyColorPickCombo FCombo{&FForm};
  int FTold = 0;
};

TEST_F(ColorPicksTest, TheHistoryKeepsTwelve) {
  TZyColorHistory History;
  EXPECT_EQ(History.Color(0), Colors::LightCoral);
  EXPECT_EQ(History.Color(11), Colors::Orchid);
  History.Use(Colors::Olive);  // one that is there
  EXPECT_EQ(History.Color(0), Colors::LightCoral);
  EXPECT_EQ(History.Color(3), Colors::Khaki);
  EXPECT_EQ(History.Color(11), Colors::Olive);
  History.Use(0x12345678);
  EXPECT_EQ(History.Color(0), Colors::Sienna);
  EXPECT_EQ(History.Color(11), 0x12345678u);
  History.WriteToRegistry();
  TRegistryIniFile Settings("Zyphos.VCL.TuneColors");
  EXPECT_EQ(static_cast<unsigned>(Settings.ReadInteger("PreviousSelections", "11", 0)), 0x12345678u);
  Settings.WriteString("PreviousSelections", "3", "rubbish");
  Settings.UpdateFile();
  TZyColorHistory Read;
  Read.ReadFromRegistry();
  EXPECT_EQ(Read.Color(11), 0x12345678u);
  EXPECT_EQ(Read.Color(3), Colors::Olive) << "the entry's own where the settings hold none";
}

TEST_F(ColorPicksTest, ThePickerTakesAColorByMouseAndByKeys) {
  Open();
  ASSERT_TRUE(ColorPickerForm().Visible());
  EXPECT_TRUE(Button(Colors::Red).Down());
  Click(Button(0xff00ff00), 9, 9);
  EXPECT_EQ(FCombo.ActiveColor(), 0xff00ff00u);
  EXPECT_EQ(FTold, 1);
  EXPECT_FALSE(ColorPickerForm().Visible());
  Open();
  SendKey(Button(0xff00ff00), Qt::Key_Right);
  EXPECT_TRUE(Button(0xffffff00).Focused());
  SendKey(Button(0xffffff00), Qt::Key_Down);
  SendKey(Button(0xffffff40), Qt::Key_Return, "\r");
  EXPECT_EQ(FCombo.ActiveColor(), 0xffffff40u);
  Open();
  SendKey(*ColorPickerForm().Widget(), Qt::Key_Escape, "\x1b");
  EXPECT_FALSE(ColorPickerForm().Visible());
  EXPECT_EQ(FTold, 2);
  FCombo.SetActiveColor(0x80123456);
  FCombo.SetEnableAlpha(false);
  Open();
  EXPECT_FALSE(Button(Colors::Transparent).Visible());
  EXPECT_TRUE(Button(0x80123456).Down()) << "in the button for colours of no palette";
}

TEST_F(ColorPicksTest, ControlAndClickTunesTheColor) {
  FCombo.SetEnableAlpha(false);
  Open();
  TZyColorBtn& Blue = Button(0xff0000ff);
  SendMouse(Blue, QEvent::MouseButtonPress, 9, 9, Qt::LeftButton, Qt::LeftButton, Qt::ControlModifier);
  Release(Blue, 9, 9);
  TZyTuneColorsForm& Tune = TuneColorsForm();
  ASSERT_TRUE(Tune.Visible());
  EXPECT_EQ(FTold, 0);
  EXPECT_EQ(Part("HEdit").Value(), 240);
  EXPECT_FALSE(Part("AlphaEdit").Enabled());
  Part("LEdit").SetValue(25);
  EXPECT_EQ(Part("BEdit").Value(), 128);
  Part<TButton>("OKBtn").PerformClick();
  EXPECT_FALSE(Tune.Visible());
  EXPECT_EQ(FCombo.ActiveColor(), 0xff000080u);
  EXPECT_EQ(Tune.PreviousColors().Color(11), 0xff000080u);
}

TEST_F(ColorPicksTest, SlidersStripsAndEditsShowOneColor) {
  TZyTuneColorsForm& Tune = TuneColorsForm();
  Tune.SetEnableAlpha(false);
  Tune.SetActiveColor(0x80FF0000);
  EXPECT_EQ(GetAlpha(Tune.CurrentColor()), 255u);
  Tune.SetEnableAlpha(true);
  Tune.SetActiveColor(0x80FF0000);
  EXPECT_EQ(Part<TTrackBar>("AlphaTrack").Position(), 127);
  Part("GEdit").SetValue(255);
  EXPECT_EQ(Part("HEdit").Value(), 60);
  EXPECT_EQ(Part<TTrackBar>("HueTrack").Position(), 60);
  EXPECT_EQ(Tune.CurrentColor(), 0x80FFFF00u);
  Part("SEdit").SetValue(0);
  EXPECT_EQ(Part("HEdit").Value(), 60) << "a gray keeps the hue that was set";
  Part("SEdit").SetValue(100);
  EXPECT_EQ(Tune.CurrentColor(), 0x80FFFF00u);
  auto& Strip = Part<TPanel>("HueStrip");
  Tune.SetVisible(true);
  Press(Strip, 5, 100);
  EXPECT_EQ(Part("HEdit").Value(), 180);
  Drag(Strip, 5, 500);
  EXPECT_EQ(Part("HEdit").Value(), 360) << "a drag beyond its end";
  Release(Strip, 5, 500);
  Press(Part<TPanel>("AlphaStrip"), 5, 150);
  EXPECT_EQ(Part("AlphaEdit").Value(), 64);
  Press(Part<TPanel>("SBGradient"), 199, 0);
  const TZyColor Pure = Tune.CurrentColor();
  EXPECT_GT(GetR(Pure), 250u);
  EXPECT_LT(GetB(Pure), 6u);
  EXPECT_EQ(Part("REdit").Value(), GetR(Pure));
}

TEST_F(ColorPicksTest, TheSquareFindsTheColorsThatItHas) {
  const TZyHueSquare Square(120);
  for (const TPoint Place : {TPoint{150, 20}, TPoint{100, 100}, TPoint{30, 150}}) {
    const TZyColor Color = Square.ColorAt(Place.X, Place.Y);
    const TPoint Found = Square.PlaceOf(GetSaturation(Color), GetBrightness(Color));
    const TZyColor There = Square.ColorAt(Found.X, Found.Y);
    EXPECT_NEAR(GetSaturation(There), GetSaturation(Color), 0.025f);
    EXPECT_NEAR(GetBrightness(There), GetBrightness(Color), 0.01f);
    EXPECT_GE(Found.X, Place.X) << "the last one of them";
  }
  EXPECT_LT(GetBrightness(Square.ColorAt(100, 199)), 0.02f);
  EXPECT_GT(GetBrightness(Square.ColorAt(0, 0)), 0.98f);
}

TEST_F(ColorPicksTest, TheDialogGivesItsColorAndTellsItsLinks) {
  FForm.SetName("ColorForm");
  FCombo.SetName("Combo");
  TZyTuneColorsDialog Dialog(&FForm);
  Dialog.PropertyLinks().Items().Add("ColorForm.Combo.ActiveColor");
  TApplication::Idle();
  EXPECT_EQ(Dialog.ActiveColor(), FCombo.ActiveColor());
  QTimer::singleShot(0, FForm.Widget(), [] {
    Part("AlphaEdit").SetValue(7);
    SendKey(Part("HEdit"), Qt::Key_Escape, "\x1b");
  });
  EXPECT_FALSE(Dialog.Execute());
  EXPECT_EQ(FCombo.ActiveColor(), Colors::Red);
  QTimer::singleShot(0, FForm.Widget(), [] {
    Part("AlphaEdit").SetValue(7);
    Part<TButton>("OKBtn").PerformClick();
  });
  EXPECT_TRUE(Dialog.Execute());
  EXPECT_EQ(FCombo.ActiveColor(), 0x07FF0000u);
}

TEST_F(ColorPicksTest, AComboMayDieUnderItsForms) {
  auto* const Doomed = new TZyColorPickCombo(&FForm);
  Put(*Doomed, FForm, 100, 8, 60, 24);
  SendKey(*Doomed, Qt::Key_Down);
  ASSERT_TRUE(ColorPickerForm().Visible());
  delete Doomed;
  Click(Button(0xff00ff00), 9, 9);
  EXPECT_FALSE(ColorPickerForm().Visible());
}

TEST_F(ColorPicksTest, AScreenReaderHearsTheColor) {
  FCombo.SetHint("Line color");
  QAccessibleInterface* const Heard = QAccessible::queryAccessibleInterface(FCombo.Widget());
  EXPECT_EQ(FCombo.Widget()->accessibleName(), "Line color");
  EXPECT_EQ(Heard->text(QAccessible::Value), "Red");
  FCombo.SetActiveColor(Colors::SteelBlue);
  EXPECT_EQ(Heard->text(QAccessible::Value), "SteelBlue");
}

}  // namespace
}  // namespace zy
