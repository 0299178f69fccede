// Every control of the settings frames, set by mouse and keys.

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>

#include "annotations/ZyCaptionEdit.h"
#include "annotations/ZyLegend.h"
#include "controls/KeyEvents.h"
#include "dialogs/controls/ZyAreaStyles.h"
#include "dialogs/controls/ZyColorPickCombo.h"
#include "dialogs/controls/ZyGradientFrame.h"
#include "dialogs/controls/ZyNumericUpDn.h"
#include "dialogs/frames/ZyAxisSettingsFrame.h"
#include "dialogs/frames/ZyGraphSettingsFrame.h"
#include "dialogs/frames/ZyLegendSettingsFrame.h"
#include "dialogs/frames/ZySeriesSettingsFrame.h"
#include "framework/Errors.h"
#include "graph/SampleChart.h"
#include "platform/controls/TStatusBar.h"
#include "series/ZyBars.h"
#include "series/ZyFittedLine.h"
#include "series/ZyLeastSquares.h"
#include "undo/ZyUndoStack.h"

namespace zy {
namespace {

/// A window with a frame beside a chart that has everything.
class SettingsFramesTest : public ::testing::Test {
 protected:
  SettingsFramesTest() {
    FForm.SetName("Dialog");
    FForm.SetBounds(0, 0, 500, 4000);
    FLegend = new TZyLegend(&FChart.Form);
    FLegend->SetName("Legend");
    FLegend->SetParent(FChart.Graph);
    FLegend->SetGraph(FChart.Graph);
    FSeries = FChart.AddOfEachKind("S");
    for (TZySeries* Series : FSeries) {
      if (auto* const Fit = dynamic_cast<TZyFittedLine*>(Series)) Fit->SetExpression("A*X+B");
      if (auto* const Fit = dynamic_cast<TZyGeneralLinearLeastSquares*>(Series))
        Fit->SetBasisFunction([](TObject*, const TZyGeneralLinearFittingArgs& e) { return std::pow(e.X, e.Index); });
    }
    FChart.Graph->SetUndoStack(&FStack);
    for (TZySeries* Series : FSeries) Series->SetUndoStack(&FStack);  // some have too few data to join
    FChart.Paint();
  }

  template <class TFrameClass>
  TFrameClass& Show() {
    auto* const Frame = new TFrameClass(&FForm);
    Frame->SetBounds(0, 0, 480, 3900);
    Frame->SetParent(&FForm);
    ShowNow(FForm);
    QApplication::setActiveWindow(FForm.Widget());
    return *Frame;
  }

  /// Does to a control what a user does to change its value. False for one that has no way of its own.
  static bool Change(TWinControl& Control) {
    QWidget& Box = *Control.Widget();
    if (auto* const Check = dynamic_cast<TCheckBox*>(&Control)) {
      Check->SetFocus();
      SendKey(Control, Qt::Key_Space, " ");
    } else if (auto* const Radio = dynamic_cast<TRadioButton*>(&Control)) {
      if (Radio->Checked()) return false;
      static_cast<QAbstractButton&>(Box).click();
    } else if (auto* const Edit = dynamic_cast<TZyNumericUpDn*>(&Control)) {
      SendKey(Control, Edit->Value() >= Edit->MaxValue() ? Qt::Key_Down : Qt::Key_Up);
    } else if (dynamic_cast<TZyDoubleEdit*>(&Control) != nullptr || dynamic_cast<TEdit*>(&Control) != nullptr) {
      Control.SetFocus();
      static_cast<QLineEdit&>(Box).selectAll();
      Type(Control, "3");
      SendKey(Control, Qt::Key_Return, "\r");
    } else if (dynamic_cast<TZyCaptionEdit*>(&Control) != nullptr) {
      Control.SetFocus();
      Type(Control, "y");
      if (FindLines(Control)) return Control.ReleaseFocus(), true;
      SendKey(Control, Qt::Key_Return, "\r");
    } else if (auto* const Pick = dynamic_cast<TZyColorPickCombo*>(&Control)) {
      Pick->SetActiveColor(Pick->ActiveColor() ^ 0xFF);  // as its palettes do
    } else if (auto* const List = dynamic_cast<TZyAreaStylesList*>(&Control)) {
      List->SetFocus();
      SendKey(Control, List->ItemIndex() == 0 ? Qt::Key_Down : Qt::Key_Home);
    } else if (auto* const Combo = dynamic_cast<TCustomComboBox*>(&Control)) {
      if (Combo->Items().Count() < 2) return false;
      SendKey(Control, Combo->ItemIndex() + 1 < Combo->Items().Count() ? Qt::Key_Down : Qt::Key_Up);
    } else {
      return false;
    }
    HandleEvents();
    return true;
  }
  static bool FindLines(const TWinControl& Control) {
    return Control.Name() == "AxRubrixEdit" || Control.Name() == "LabCaptionsEdit";
  }

  static std::string TextOf(TPersistent& Object, const std::string& Path) {
    const TZyPropertyPlace Place = FindPlace(Object, Path);
    if (!Place) return "none";
    if (Place.Info->Kind != TPropKind::Class) {
      const TZySettingValue Value = Place.Get();
      if (const auto* const Text = std::get_if<std::string>(&Value)) return *Text;
      if (const auto* const Real = std::get_if<double>(&Value)) return RealToText(*Real);
      return std::to_string(std::get<std::int64_t>(Value));
    }
    if (const auto* const List = dynamic_cast<const TStrings*>(Place.GetObject())) return List->Text();
    return std::to_string(reinterpret_cast<std::uintptr_t>(Place.GetObject()));
  }

  /// Changes each property of an object through its control: it is one step, which undo takes back and redo brings
  /// again. Returns how many there were.
  int ChangeAll(TZySettingsFrame& Frame, TPersistent& Object, const std::set<std::string>& Exceptions = {}) {
    int Changed = 0;
    for (const TZySetting& Each : Frame.Settings()) {
      TWinControl& Control = *Each.Control;
      const std::string What = std::string(Object.ClassName()) + ", " + Control.Name();
      if (!Control.Widget()->isVisible() || !Control.Enabled() || Exceptions.contains(Control.Name())) continue;
      FStack.Clear();
      const std::string Before = TextOf(Object, Each.Path);
      if (!Change(Control)) continue;
      const std::string After = TextOf(Object, Each.Path);
      EXPECT_NE(After, Before) << What;
      EXPECT_EQ(FStack.UndoCount(), 1) << What;
      FStack.Undo();
      Frame.UpdateControls();
      EXPECT_EQ(TextOf(Object, Each.Path), Before) << What << ", undone";
      FStack.Redo();
      Frame.UpdateControls();
      EXPECT_EQ(TextOf(Object, Each.Path), After) << What << ", done again";
      FStack.Undo();
      Frame.UpdateControls();
      ++Changed;
    }
    return Changed;
  }

  testing::TSampleChart FChart;
  TZyUndoStack FStack{&FChart.Form};
  TZyLegend* FLegend = nullptr;
  std::vector<TZySeries*> FSeries;
  TForm FForm;
};

TEST_F(SettingsFramesTest, EveryControlOfAxes) {
  auto& Frame = Show<TZyAxisSettingsFrame>();
  Frame.SetExtendedAxisOptions(true);
  auto* const Second = new TZyAxis(&FChart.Form);
  Second->SetName("Second");
  Second->SetParent(FChart.Graph);
  Second->SetPosition(TZyAxisPosition::Left);
  FChart.Graph->SetUndoStack(&FStack);
  FChart.Y->SetStartEnd(TZyAxisEnd::Fixed);
  FChart.Y->SetStopEnd(TZyAxisEnd::MovingSlit);
  FChart.Y->SetAutoTickParts(false);
  FStack.Clear();
  Frame.SetSelectedAxis(FChart.Y);
  EXPECT_EQ(FStack.UndoCount(), 0) << "showing changes nothing";
  EXPECT_GT(ChangeAll(Frame, *FChart.Y), 38);
  Second->SetScaling(TZyAxisScaling::Rubrics);
  Frame.SetSelectedAxis(Second);
  EXPECT_GT(ChangeAll(Frame, *Second), 30) << "with a master axis";
}

TEST_F(SettingsFramesTest, SeveralAxesAreOneStep) {
  auto& Frame = Show<TZyAxisSettingsFrame>();
  TZyObjectListBox List(&FForm);
  List.SetMultiSelect(true);
  for (TZyAxis* Axis : {FChart.X, FChart.Y}) List.AddObject("A", Axis);
  for (const int Index : {0, 1}) List.SetSelected(Index, true);
  Frame.SetRelatedAxesList(&List);
  Frame.SetSelectedAxis(FChart.X);
  const TZyColor Old = FChart.Y->ForeColor();
  Change(Frame.Part<TWinControl>("AxLineColorPick"));
  EXPECT_NE(FChart.Y->ForeColor(), Old);
  EXPECT_EQ(FChart.X->ForeColor(), FChart.Y->ForeColor());
  EXPECT_EQ(FStack.UndoList().Text(), "Axis foreground color\n");
  FStack.Undo();
  EXPECT_EQ(FChart.Y->ForeColor(), Old);
  Change(Frame.Part<TWinControl>("AxAutrangeCheck"));
  EXPECT_EQ(FChart.Y->StopEnd(), TZyAxisEnd::Fixed);
  EXPECT_EQ(FStack.UndoList().Text(), "Axis auto range\n");
  FStack.Undo();
  EXPECT_EQ(FChart.X->StartEnd(), TZyAxisEnd::AutoRange);
}

TEST_F(SettingsFramesTest, EveryControlOfGraphs) {
  auto& Frame = Show<TZyGraphSettingsFrame>();
  Frame.SetZoomScrollPanningOptions(true);
  Frame.SetGraph(FChart.Graph);
  // The kind of the buffer and the quality of drawing are no steps; the axes change places with all that is on them.
  const std::set<std::string> Others{"ZoomCircularRadio", "ZoomStackRadio", "PrimaryXCombo", "PrimaryYCombo",
                                     "SmoothingModeCombo"};
  EXPECT_GT(ChangeAll(Frame, *FChart.Graph, Others), 45);
  std::string Message;
  Application().OnShowMessage = [&](std::string_view Text) { Message = Text; };
  const TShiftState Pan = FChart.Graph->Zoom().StartPanning(), Zoom = FChart.Graph->Zoom().StartZoom();
  ASSERT_NE(Pan, Zoom);
  for (const char* Name : {"ZoomShiftCheck", "ZoomCtrlCheck", "ZoomAltCheck"})
    if (Frame.Part<TCheckBox>(Name).Checked() !=
        Frame.Part<TCheckBox>(std::string("Pan") + (Name + 4)).Checked())
      Change(Frame.Part<TWinControl>(Name));
  for (const char* Name : {"MouseLeftRadio", "MouseMiddleRadio", "MouseRightRadio"})
    if (Frame.Part<TRadioButton>(std::string("Pan") + Name).Checked())
      Change(Frame.Part<TWinControl>(std::string("Zoom") + Name));
  EXPECT_EQ(Message, "Please set start zooming and start panning differently");
  EXPECT_NE(FChart.Graph->Zoom().StartZoom(), Pan);
  Application().OnShowMessage = nullptr;
}

TEST_F(SettingsFramesTest, EveryControlOfLegendsAndTheOrderOfItems) {
  auto& Frame = Show<TZyLegendSettingsFrame>();
  Frame.SetLegend(FLegend);
  EXPECT_GT(ChangeAll(Frame, *FLegend), 28);
  auto& List = Frame.Part<TZySeriesListBox>("SeriesListBox");
  ASSERT_EQ(List.ObjectCount(), static_cast<int>(FChart.Graph->RelatedSeries().size()));
  FStack.Clear();
  TZySeries* const Second = List.SeriesAt(1);
  List.SetItemIndex(0);
  List.MoveSelected(TZyDragListBox::TMove::Down);
  EXPECT_EQ(List.SeriesAt(0), Second);
  EXPECT_EQ(FLegend->ItemsOrderList()->Count(), 2);
  EXPECT_EQ(FStack.UndoList().Text(), "Legend items order list\n");
  List.MoveSelected(TZyDragListBox::TMove::Up);
  EXPECT_EQ(FLegend->ItemsOrderList()->Count(), 0) << "their own order needs no list";
  delete Second;
  Frame.UpdateControls();
  EXPECT_EQ(List.IndexOfObject(Second), -1);
}

TEST_F(SettingsFramesTest, EveryControlOfEachKindOfSeries) {
  auto& Frame = Show<TZySeriesSettingsFrame>();
  TZySeriesListBox List(&FForm);
  for (TZySeries* Series : FSeries) List.AddObject("S", Series);
  Frame.SetRelatedSeriesList(&List);
  Frame.SetAsDesigner(true);
  Frame.SetExtendedBarLabelOptions(true);
  Frame.SetShowFitCovariance(true);
  Frame.SetShowOutliersSupport(true);
  Frame.SetShowOutOfRangeSupport(true);
  Frame.SetInteractiveCalculationRanges(false);
  for (TZySeries* Series : FSeries) {
    if (auto* const Bars = dynamic_cast<TZyBars*>(Series)) Bars->SetLabelFrom(TZyLabelStyle::CaptionAndValue);
    Series->Area().SetVisible(true);
    FStack.Clear();
    Frame.SetSelectedSeries(Series);
    EXPECT_EQ(FStack.UndoCount(), 0) << Series->ClassName();
    // Partners are no step. What is in pairs: a formula takes its coefficients along, the orientation of bars their data.
    EXPECT_GT(ChangeAll(Frame, *Series, {"ExpressionEdit", "BarHorizontalRadio", "BarVerticalRadio",
                                          "MergeLegendItemCombo", "BandToCombo", "RangeFromCombo"}),
              3)
        << Series->ClassName();
  }
}

TEST_F(SettingsFramesTest, WhatIsRefusedIsTold) {
  auto& Frame = Show<TZySeriesSettingsFrame>();
  auto* const Status = new TStatusBar(&FForm);
  Status->SetName("ErrorStatus");
  Status->SetParent(&FForm);
  const auto Find = [this](const char* Name) { return dynamic_cast<TZySeries*>(FChart.Form.FindComponent(Name)); };
  Frame.SetSelectedSeries(Find("STZyFittedLine"));
  Change(Frame.Part<TWinControl>("ExpressionEdit"));
  EXPECT_NE(Status->SimpleText().find("independent variable X"), std::string::npos);
  Frame.SetSelectedSeries(Find("STZyPolynomial"));
  for (int Step = 0; Step < 3; ++Step) SendKey(Frame.Part<TWinControl>("PoliOrderUpDown"), Qt::Key_Up);
  EXPECT_EQ(Status->SimpleText(), "Not enough data points to calculate function");
  EXPECT_EQ(dynamic_cast<TZyPolynomial*>(Frame.SelectedSeries())->Order(), 5) << "stays set";
}

TEST_F(SettingsFramesTest, SolidBarsHaveNoGradient) {
  auto& Frame = Show<TZySeriesSettingsFrame>();
  auto& Bars = dynamic_cast<TZyBars&>(*FChart.Form.FindComponent("STZyBars"));
  Bars.Area().SetVisible(true);
  Bars.Area().Gradient().SetVisible(true);
  Bars.Area().SetAreaStyle(TZyAreaStyle::Cross);
  FStack.Clear();
  Frame.SetSelectedSeries(&Bars);
  Change(Frame.Part<TWinControl>("BarCuboidRadio"));
  EXPECT_EQ(Bars.BarStyle(), TZyBarStyle::Cuboid);
  EXPECT_FALSE(Bars.Area().Gradient().Visible());
  EXPECT_FALSE(Frame.Part<TWinControl>("SeriesHatchStyles").Enabled());
  EXPECT_EQ(FStack.UndoCount(), 1);
  FStack.Undo();
  EXPECT_TRUE(Bars.Area().Gradient().Visible());
  EXPECT_EQ(Bars.Area().AreaStyle(), TZyAreaStyle::Cross);
}

}  // namespace
}  // namespace zy
