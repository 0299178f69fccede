// The settings of pie charts, set by mouse and keys, and the list of series to be shown.

#include <QListWidget>

#include "dialogs/SettingsChanges.h"
#include "dialogs/forms/ZyPieSettings.h"
#include "dialogs/frames/ZyFillPaletteFrame.h"
#include "dialogs/frames/ZyPieFrames.h"
#include "dialogs/frames/ZySelectSeriesFrame.h"
#include "graph/SampleChart.h"
#include "platform/controls/TPanel.h"
#include "platform/controls/TSpeedButton.h"

namespace zy {
namespace {

class PieFramesTest : public TSettingsTest {
 protected:
  PieFramesTest() {
    FChartForm.SetName("ChartForm");
    FPie.SetName("Pie");
    FPie.SetParent(&FChartForm);
    FValues.AddRange({1.0, 2.0, 3.0});
    FPie.SetValues(&FValues);
    FPalette.FillDefaults();
    FPie.SetSegmentSettingsPalette(&FPalette);
    FLegend.SetName("Legend");
    FLegend.SetParent(&FPie);
    FLegend.SetPieChart(&FPie);
    FPie.SetUndoStack(&FStack);
    FPalette.SetUndoStack(&FStack);
    FStack.Clear();
  }

  TForm FChartForm;
  TZyDoubleVector FValues{&FChartForm};
  TZyFillPalette FPalette{&FChartForm};
  TZyPieChart FPie{&FChartForm};
  TZyPieLegend FLegend{&FChartForm};
};

TEST_F(PieFramesTest, EveryControl) {
  auto& General = Show<TZyPieGeneralSettingsFrame>();
  General.SetPieChart(&FPie);
  EXPECT_GT(ChangeAll(General, FPie), 9);
  General.SetVisible(false);
  auto& Fill = Show<TZyPieDonutFillFrame>();
  Fill.SetPieChart(&FPie);
  EXPECT_GT(ChangeAll(Fill, FPie), 9);
  Fill.SetVisible(false);
  auto& Labels = Show<TZyPieLabelsFrame>();
  Labels.SetPieChart(&FPie);
  EXPECT_GT(ChangeAll(Labels, FPie), 20);
  Labels.SetVisible(false);
  auto& Legend = Show<TZyPieLegendSettingsFrame>();
  Legend.SetLegend(&FLegend);
  EXPECT_GT(ChangeAll(Legend, FLegend), 28);
}

TEST_F(PieFramesTest, PartsOfABorderExcludeEachOther) {
  auto& Frame = Show<TZyPieLabelsFrame>();
  Frame.SetPieChart(&FPie);
  const auto Set = [&](bool Line, bool Raised, bool Lowered, bool Shadow, bool Gradient) {
    FPie.CalloutFrame().SetVisible(Line);
    FPie.SetCalloutRaised(Raised);
    FPie.SetCalloutLowered(Lowered);
    FPie.SetCalloutShadow(Shadow);
    FPie.CalloutGradient().SetVisible(Gradient);
    FStack.Clear();
    Frame.UpdateControls();
  };
  const auto State = [&] {
    return std::string(FPie.CalloutFrame().Visible() ? "F" : "") + (FPie.CalloutRaised() ? "R" : "") +
           (FPie.CalloutLowered() ? "L" : "") + (FPie.CalloutShadow() ? "S" : "") +
           (FPie.CalloutGradient().Visible() ? "G" : "");
  };
  struct {
    bool Line, Raised, Lowered, Shadow, Gradient;
    const char *Click, *After;
  } const Cases[] = {{false, true, true, false, true, "CalloutFrameCheck", "FG"},
                     {true, false, true, true, true, "CalloutRaisedCheck", "RLS"},
                     {false, true, true, true, false, "CalloutRaisedCheck", "S"},
                     {true, false, false, true, true, "CalloutLoweredCheck", "LG"},
                     {true, true, false, true, false, "CalloutLoweredCheck", "RLS"},
                     {false, false, true, false, false, "CalloutShadowCheck", "S"},
                     {false, true, true, false, false, "CalloutShadowCheck", "RLS"}};
  for (const auto& Case : Cases) {
    Set(Case.Line, Case.Raised, Case.Lowered, Case.Shadow, Case.Gradient);
    const std::string Before = State();
    ChangeAsUser(Frame.Part<TWinControl>(Case.Click));
    EXPECT_EQ(State(), Case.After) << Before << ", " << Case.Click;
    EXPECT_EQ(FStack.UndoCount(), 1);
    FStack.Undo();
    EXPECT_EQ(State(), Before) << Case.Click;
  }
}

TEST_F(PieFramesTest, EntriesOfAPalette) {
  auto& Frame = Show<TZyFillPaletteFrame>();
  Frame.SetPalette(&FPalette);
  auto& List = Frame.Part<TZyDragListBox>("PaletteList");
  const auto Click = [&](const char* Name) { Frame.Part<TSpeedButton>(Name).PerformClick(); };
  const TZyColor First = FPalette.Items(0).ForeColor(), Last = FPalette.Items(7).ForeColor();
  Click("TopButton");
  EXPECT_EQ(FPalette.Items(0).ForeColor(), First) << "there already";
  Click("BottomButton");
  EXPECT_EQ(FPalette.Items(7).ForeColor(), First);
  EXPECT_EQ(List.ItemIndex(), 7);
  Click("DeleteButton");
  EXPECT_EQ(FPalette.Count(), 7);
  EXPECT_EQ(List.ItemIndex(), 6) << "the one before";
  EXPECT_EQ(FPalette.Items(6).ForeColor(), Last);
  Click("AddButton");
  EXPECT_EQ(List.ItemIndex(), 7);
  EXPECT_EQ(ChangeAll(Frame, FPalette.Items(7)), 3);
  while (FPalette.Count() > 0) Click("DeleteButton");
  EXPECT_EQ(List.ItemIndex(), -1);
  Click("DeleteButton");
}

TEST_F(PieFramesTest, TheDialogFollowsChartAndLegends) {
  auto* const Tool = new TZyPieSettingsTool(&FChartForm);
  Tool->SetPieChart(&FPie);
  Tool->Show();
  HandleEvents();
  TZyPieSettingsForm& Dialog = *Tool->Dialog();
  EXPECT_EQ(FStack.UndoCount(), 0);
  ASSERT_EQ(Dialog.Pages().Pages().size(), 4u);
  Dialog.SetActivPage(&FLegend);
  EXPECT_EQ(Dialog.Pages().ActivePageIndex(), 3);
  FPie.SetCalloutShadow(true);
  FStack.Undo();
  EXPECT_FALSE(Dialog.Part<TZyPieLabelsFrame>("PieLabelsFrame").Part<TCheckBox>("CalloutShadowCheck").Checked());
  FLegend.SetPieChart(nullptr);
  TApplication::Idle();
  EXPECT_EQ(Dialog.Pages().Pages().size(), 3u);
  Dialog.SetAsDesigner(true);
  auto& Values = Dialog.Part<TZyObjectCombo>("ValueDataCombo");
  EXPECT_EQ(Values.SelectedObject(), &FValues);
  Values.SetItemIndex(0);
  Values.OnSelect()(&Values);
  EXPECT_EQ(FPie.Values(), nullptr);
  Dialog.Close();
  Tool->SetPieChart(nullptr);
  EXPECT_FALSE(Dialog.Pages().Visible());
  delete Tool;
}

TEST_F(PieFramesTest, SeriesAreTickedToBeShown) {
  testing::TSampleChart Chart;
  auto* const One = Chart.AddSeries("One", {0, 1}, {2, 1});
  auto* const Two = Chart.AddSeries("Two", {0, 1}, {3, 1});
  Two->SetMergeLegendItemWith(One);
  auto& Frame = Show<TZySelectSeriesFrame>();
  Frame.SetGraph(Chart.Graph);
  auto& List = dynamic_cast<TCheckListBox&>(*Frame.FindComponent("SeriesCheckListBox"));
  ASSERT_EQ(List.Items().Count(), 2);
  auto& Box = *static_cast<QListWidget*>(List.Widget());
  Box.setCurrentRow(0);
  SendKey(List, Qt::Key_Space, " ");
  EXPECT_FALSE(One->Visible());
  EXPECT_TRUE(Two->Visible());
  Two->SetIncludeInLegend(false);
  Frame.SetFromIncludeInLegend(true);
  ASSERT_EQ(List.Items().Count(), 1);
  EXPECT_TRUE(List.Checked(0)) << "by the one that is merged with it";
  Box.setCurrentRow(0);
  SendKey(List, Qt::Key_Space, " ");
  EXPECT_FALSE(Two->Visible());
  SendKey(List, Qt::Key_Space, " ");
  EXPECT_TRUE(One->Visible() && Two->Visible());
}

}  // namespace
}  // namespace zy
