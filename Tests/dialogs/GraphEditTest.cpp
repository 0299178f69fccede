// The dialog of a graph: pages, lists, undo, and charts that change under it.

#include <QListWidget>

#include "annotations/ZyCaptionEdit.h"
#include "annotations/ZyLegend.h"
#include "controls/KeyEvents.h"
#include "dialogs/forms/ZyGraphSettingsTool.h"
#include "dialogs/frames/ZyGraphSettingsFrame.h"
#include "dialogs/frames/ZyLegendSettingsFrame.h"
#include "dialogs/frames/ZySeriesSettingsFrame.h"
#include "graph/SampleChart.h"
#include "platform/controls/TPanel.h"
#include "platform/controls/TSpeedButton.h"
#include "series/ZyLinearRegression.h"
#include "undo/ZyUndoStack.h"

namespace zy {
namespace {

class GraphEditTest : public ::testing::Test {
 protected:
  GraphEditTest() {
    for (const char* Name : {"One", "Two", "Three"}) FSeries.push_back(FChart.AddSeries(Name, {0, 1, 2}, {2, 1, 3}));
    FChart.Graph->SetUndoStack(&FStack);
    FChart.Paint();
    FTool.SetGraph(FChart.Graph);
  }

  TGraphEdit& Open() {
    FStack.Clear();
    FTool.Show();
    HandleEvents();
    return *FTool.Dialog();
  }
  std::string Titles() {
    std::string Result;
    for (const TTabSheet* Page : FTool.Dialog()->Pages().Pages())
      if (Page->TabVisible()) Result += Page->Caption() + ";";
    return Result;
  }
  std::string Order() {
    std::string Result;
    const auto& List = FTool.Dialog()->Part<TZySeriesListBox>("SeriesListBox");
    for (int Index = 0; Index < List.ObjectCount(); ++Index) Result += List.SeriesAt(Index)->Name() + ";";
    return Result;
  }
  TZyLegend* AddLegend() {
    auto* const Legend = new TZyLegend(&FChart.Form);
    Legend->SetName("Legend");
    Legend->SetParent(FChart.Graph);
    Legend->SetGraph(FChart.Graph);
    Legend->SetCaption("Key");
    return Legend;
  }

  testing::TSampleChart FChart;
  TZyUndoStack FStack{&FChart.Form};
  std::vector<TZySeries*> FSeries;
  TZyGraphSettingsTool FTool{&FChart.Form};
};

TEST_F(GraphEditTest, PagesOfWhatTheChartHas) {
  TZyLegend* const Legend = AddLegend();
  TGraphEdit& Dialog = Open();
  EXPECT_EQ(FStack.UndoCount(), 0);
  EXPECT_TRUE(FStack.Enabled());
  EXPECT_EQ(Titles(), "Graph;Axes;Series;Key;");
  Legend->SetCaption("Names");
  TApplication::Idle();
  EXPECT_EQ(Titles(), "Graph;Axes;Series;Names;");
  Dialog.SetActivPage(Legend);
  delete Legend;
  TApplication::Idle();
  EXPECT_EQ(Titles(), "Graph;Axes;Series;");
  EXPECT_EQ(Dialog.Pages().ActivePageIndex(), 0);
  for (TZySeries* Series : FSeries) delete Series;
  TApplication::Idle();
  EXPECT_EQ(Titles(), "Graph;Axes;") << "no series";
  FChart.AddCoupled().SetCaption("Lower");
  Dialog.Close();
  FTool.SetGraph(nullptr);
  EXPECT_FALSE(Dialog.Pages().Visible());
  FTool.SetGraph(FChart.Graph);
  FTool.Show();
  EXPECT_EQ(Titles(), FChart.Graph->CaptionAsString() + ";Lower;Axes;");
  EXPECT_FALSE(Dialog.Part<TWinControl>("ZeroOriginCheck").Enabled());
  delete FChart.Graph;
  EXPECT_EQ(Dialog.Graph(), nullptr);
  TApplication::Idle();
}

TEST_F(GraphEditTest, AxesInColumns) {
  for (int Index = 0; Index < 3; ++Index) (new TZyAxis(&FChart.Form))->SetParent(FChart.Graph);
  TGraphEdit& Dialog = Open();
  auto& Axes = Dialog.Part<TZyObjectListBox>("FAxes");
  EXPECT_EQ(Axes.ObjectCount(), 5);
  EXPECT_EQ(Axes.Columns(), 3);
  EXPECT_EQ(Axes.Height(), 2 * Axes.ItemHeight() + 6);
  EXPECT_EQ(Axes.SelectedObject(), FChart.X);
  Dialog.SetActivPage(FChart.Y);
  EXPECT_EQ(Axes.SelectedObject(), FChart.Y);
  EXPECT_EQ(Axes.SelCount(), 1);
  FChart.Y->SetCaption("other");
  FChart.Graph->LegendsModified();
  TApplication::Idle();
  EXPECT_EQ(Axes.SelectedObject(), FChart.Y) << "chosen as long as it is there";
  auto* const Late = new TZyAxis(&FChart.Form);
  Late->SetParent(FChart.Graph);
  TApplication::Idle();
  EXPECT_GE(Axes.IndexOfObject(Late), 0);
  delete Late;
  TApplication::Idle();
  EXPECT_EQ(Axes.ObjectCount(), 5);
}

TEST_F(GraphEditTest, TheOrderOfTheSeries) {
  TGraphEdit& Dialog = Open();
  Dialog.SetActivPage(FSeries[0]);
  EXPECT_EQ(Order(), "Three;Two;One;") << "the top layer first";
  auto& Up = Dialog.Part<TSpeedButton>("UpButton");
  Up.PerformClick();
  EXPECT_EQ(Order(), "Three;One;Two;");
  EXPECT_EQ(FSeries[0]->Layer(), 1);
  EXPECT_EQ(FStack.UndoList().Text(), "Series drawing order\n");
  FStack.Undo();
  EXPECT_EQ(Order(), "Three;Two;One;") << "after undo";
  EXPECT_EQ(Dialog.Part<TZySeriesListBox>("SeriesListBox").SelectedSeries(), FSeries[0]);
  HandleEvents();
  auto& List = Dialog.Part<TZySeriesListBox>("SeriesListBox");
  QWidget& Inside = *static_cast<QListWidget*>(List.Widget())->viewport();
  const auto Drag = [&](QPoint From, QPoint To) {
    const auto Send = [&](QEvent::Type Type, QPoint At, Qt::MouseButton Button, Qt::MouseButtons Down) {
      QMouseEvent Event(Type, At, Inside.mapToGlobal(QPointF(At)), Button, Down, Qt::NoModifier);
      QCoreApplication::sendEvent(&Inside, &Event);
    };
    Send(QEvent::MouseButtonPress, From, Qt::LeftButton, Qt::LeftButton);
    Send(QEvent::MouseMove, (From + To) / 2, Qt::NoButton, Qt::LeftButton);
    Send(QEvent::MouseMove, To, Qt::NoButton, Qt::LeftButton);
    Send(QEvent::MouseButtonRelease, To, Qt::LeftButton, Qt::NoButton);
  };
  const auto RowAt = [&](int Index) {
    const TRect Box = List.ItemRect(Index);
    return QPoint((Box.Left + Box.Right) / 2, (Box.Top + Box.Bottom) / 2);
  };
  Drag(RowAt(0), RowAt(2));
  EXPECT_EQ(Order(), "Two;One;Three;");
  EXPECT_EQ(List.SelectedSeries(), FSeries[2]);
  Drag(RowAt(0), QPoint(-50, -50));
  EXPECT_EQ(Order(), "Two;One;Three;") << "a drag that ends outside";
  const QPoint Last = RowAt(2), First = RowAt(0);
  List.OnDragged = [](int, int) { ADD_FAILURE() << "from an item that is gone"; };
  QMouseEvent Down(QEvent::MouseButtonPress, Last, Inside.mapToGlobal(QPointF(Last)), Qt::LeftButton, Qt::LeftButton,
                   {});
  QCoreApplication::sendEvent(&Inside, &Down);
  QMouseEvent Move(QEvent::MouseMove, First, Inside.mapToGlobal(QPointF(First)), Qt::NoButton, Qt::LeftButton, {});
  QCoreApplication::sendEvent(&Inside, &Move);
  delete FSeries[0];
  delete FSeries[1];
  TApplication::Idle();
  QMouseEvent Let(QEvent::MouseButtonRelease, First, Inside.mapToGlobal(QPointF(First)), Qt::LeftButton, Qt::NoButton,
                  {});
  QCoreApplication::sendEvent(&Inside, &Let);
  EXPECT_EQ(Order(), "Three;");
}

TEST_F(GraphEditTest, UndoBringsTheControlsUpToDateAndTheApplicationHears) {
  int Heard = 0;
  FStack.SetOnUndo([&](TObject*) { ++Heard; });
  TGraphEdit& Dialog = Open();
  auto& Frame = dynamic_cast<TZyGraphSettingsFrame&>(*Dialog.Pages().Pages()[0]->FindComponent("GraphFrame"));
  FChart.Graph->SetCaptionVisible(true);
  FStack.Undo();
  EXPECT_EQ(Heard, 1);
  EXPECT_FALSE(Frame.Part<TCheckBox>("TitleVisibleCheck").Checked());
  FStack.Redo();
  EXPECT_TRUE(Frame.Part<TCheckBox>("TitleVisibleCheck").Checked());
  TZyGraphSettingsTool Other;  // a second dialog of the same stack, closed in the other order
  Other.SetGraph(FChart.Graph);
  Other.Show();
  Dialog.Close();
  FStack.Undo();
  EXPECT_EQ(Heard, 2);
  Other.Dialog()->Close();
  FStack.Redo();
  FStack.Undo();
  EXPECT_EQ(Heard, 3);
  FTool.Show();
  HandleEvents();
  EXPECT_FALSE(Frame.Part<TCheckBox>("TitleVisibleCheck").Checked()) << "shown again, refreshed";
}

TEST_F(GraphEditTest, StylesGoToTheCaptionWithTheKeyboard) {
  TGraphEdit& Dialog = Open();
  auto& Bold = Dialog.Part<TSpeedButton>("BoldButton");
  TApplication::Idle();
  EXPECT_FALSE(Bold.Enabled());
  auto& Frame = dynamic_cast<TZyGraphSettingsFrame&>(*Dialog.Pages().Pages()[0]->FindComponent("GraphFrame"));
  auto& Edit = Frame.Part<TZyCaptionEdit>("TitleEdit");
  QApplication::setActiveWindow(Dialog.Widget());
  Edit.SetFocus();
  HandleEvents();
  TApplication::Idle();
  ASSERT_TRUE(Bold.Enabled());
  Type(Edit, "ab");
  Edit.SelectAll();
  Bold.PerformClick();
  SendKey(Edit, Qt::Key_Return, "\r");
  EXPECT_NE(FChart.Graph->Caption().find("\\b"), std::string::npos);
  EXPECT_EQ(FStack.UndoCount(), 1);
}

TEST_F(GraphEditTest, WhatIsTypedStaysUntilUndo) {
  TGraphEdit& Dialog = Open();
  auto& Frame = dynamic_cast<TZyGraphSettingsFrame&>(*Dialog.Pages().Pages()[0]->FindComponent("GraphFrame"));
  auto& Edit = Frame.Part<TZyCaptionEdit>("TitleEdit");
  QApplication::setActiveWindow(Dialog.Widget());
  Edit.SetFocus();
  Type(Edit, "ab");
  FSeries[0]->SetVisible(false);  // the lists are filled anew
  TApplication::Idle();
  EXPECT_EQ(Edit.Text(), "ab");
  FStack.Undo();
  EXPECT_EQ(Edit.Text(), "") << "what the chart has";
  int Heard = 0;
  FStack.SetOnUndo([&](TObject*) { ++Heard; });  // while the dialog is open
  TApplication::Idle();
  FChart.Graph->SetCaptionVisible(true);
  FStack.Undo();
  EXPECT_FALSE(Frame.Part<TCheckBox>("TitleVisibleCheck").Checked());
  Dialog.Close();
  FStack.Redo();
  FStack.Undo();
  EXPECT_EQ(Heard, 2);
}

TEST_F(GraphEditTest, RangesByMarkersAreOneStep) {
  auto* const Line = FChart.AddSeries<TZyLinearRegression>("Fit", {0, 1, 2, 3}, {1, 3, 5, 7});
  FChart.Graph->SetUndoStack(&FStack);
  FChart.Paint();
  TGraphEdit& Dialog = Open();
  Dialog.SetActivPage(Line);
  auto& Frame = Dialog.Part<TZySeriesSettingsFrame>("SeriesSettingsFrame");
  auto& Button = Frame.Part<TSpeedButton>("InteractiveCalcRangeBtn");
  Button.PerformClick();
  ASSERT_TRUE(Button.Down());
  std::vector<TZyVerticalMarker*> Markers;
  for (TControl* Each : FChart.Graph->Controls())
    if (auto* const Marker = dynamic_cast<TZyVerticalMarker*>(Each)) Markers.push_back(Marker);
  ASSERT_EQ(Markers.size(), 2u);
  Markers[0]->SetX(2.5);  // crosswise
  Markers[0]->OnMarkerMoved()(Markers[0]);
  Markers[1]->SetX(1);
  Markers[1]->OnMarkerMoved()(Markers[1]);
  EXPECT_EQ(Line->CalculationStart(), 1);
  EXPECT_EQ(Line->CalculationStop(), 2.5);
  EXPECT_FALSE(Line->AutoStart());
  Dialog.Close();
  EXPECT_EQ(FStack.UndoList().Text(), "Function series calculation range\n");
  FStack.Undo();
  EXPECT_TRUE(Line->AutoStart() && Line->AutoStop());
  Dialog.Show();
  Button.PerformClick();
  delete Line;
  TApplication::Idle();
  EXPECT_EQ(FStack.GroupLevel(), 0);
}

}  // namespace
}  // namespace zy
