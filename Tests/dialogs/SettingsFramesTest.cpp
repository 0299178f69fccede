// Every control of the settings frames, set by mouse and keys.

#include "annotations/ZyLegend.h"
#include "dialogs/SettingsChanges.h"
#include "dialogs/frames/ZyAxisSettingsFrame.h"
#include "dialogs/frames/ZyGraphSettingsFrame.h"
#include "dialogs/frames/ZyLegendSettingsFrame.h"
#include "dialogs/frames/ZySeriesSettingsFrame.h"
#include "graph/SampleChart.h"
#include "platform/controls/TStatusBar.h"
#include "series/ZyBars.h"
#include "series/ZyFittedLine.h"
#include "series/ZyLeastSquares.h"
#include "undo/ZyUndoStack.h"

namespace zy {
namespace {

/// A window with a frame beside a chart that has everything.
class SettingsFramesTest : public TSettingsTest {
 protected:
  SettingsFramesTest() {
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
    FChart.Graph->BeginUpdate();  // no data move a range in the midst of it
  }

  testing::TSampleChart FChart;
  TZyLegend* FLegend = nullptr;
  std::vector<TZySeries*> FSeries;
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
  Second->SetPosition(TZyAxisPosition::Bottom);
  Frame.UpdateControls();
  const auto& Masters = Frame.Part<TZyObjectCombo>("MasterAxisCombo");
  EXPECT_EQ(Masters.ObjectCount(), 2) << "none and X";
  FChart.X->SetPosition(TZyAxisPosition::Left);
  EXPECT_TRUE(Frame.IsOutdated()) << "another axis runs another way";
  Frame.UpdateControls();
  EXPECT_EQ(Masters.ObjectCount(), 1);
  EXPECT_FALSE(Frame.IsOutdated());
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
  ChangeAsUser(Frame.Part<TWinControl>("AxLineColorPick"));
  EXPECT_NE(FChart.Y->ForeColor(), Old);
  EXPECT_EQ(FChart.X->ForeColor(), FChart.Y->ForeColor());
  EXPECT_EQ(FStack.UndoList().Text(), "Axis foreground color\n");
  FStack.Undo();
  EXPECT_EQ(FChart.Y->ForeColor(), Old);
  ChangeAsUser(Frame.Part<TWinControl>("AxAutrangeCheck"));
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
    if (Frame.Part<TCheckBox>(Name).Checked() != Frame.Part<TCheckBox>(std::string("Pan") + (Name + 4)).Checked())
      ChangeAsUser(Frame.Part<TWinControl>(Name));
  for (const char* Name : {"MouseLeftRadio", "MouseMiddleRadio", "MouseRightRadio"})
    if (Frame.Part<TRadioButton>(std::string("Pan") + Name).Checked())
      ChangeAsUser(Frame.Part<TWinControl>(std::string("Zoom") + Name));
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
    // Partners are no step. What is in pairs: a formula takes its coefficients along, the orientation of bars their
    // data.
    EXPECT_GT(ChangeAll(Frame, *Series,
                        {"ExpressionEdit", "BarHorizontalRadio", "BarVerticalRadio", "MergeLegendItemCombo",
                         "BandToCombo", "RangeFromCombo"}),
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
  ChangeAsUser(Frame.Part<TWinControl>("ExpressionEdit"));
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
  ChangeAsUser(Frame.Part<TWinControl>("BarCuboidRadio"));
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
