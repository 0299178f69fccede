// The studio's window as a user works in it, and the menu of its chart.

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDockWidget>
#include <QInputDialog>
#include <QMenu>
#include <QPushButton>
#include <QTimer>
#include <fstream>

#include "annotations/ZyLegend.h"
#include "controls/ControlSamples.h"
#include "dialogs/frames/ZySeriesSettingsFrame.h"
#include "framework/Bytes.h"
#include "framework/Errors.h"
#include "platform/sql/TSqlDataSet.h"
#include "series/ZyFunctionSeries.h"
#include "studio/StudioWindow.h"

namespace zy::examples {
namespace {

class StudioTest : public ::testing::Test {
 protected:
  StudioTest() {
    Window.show();
    HandleEvents();
  }

  void OpenCo2() {
    Window.Open(ZY_EXAMPLE_DATA "/co2-concentration.csv");
    for (QPushButton* Button : Window.findChildren<QPushButton*>())
      if (Button->text().contains("Add series")) Button->click();
    HandleEvents();
  }
  TZyGraph2D& Graph() { return Window.Graph(); }
  TZySeries& Measured() { return **Graph().RelatedSeries().begin(); }
  TComponent* ShownIn(const char* FrameName) {
    HandleEvents();
    return &Window.Menu().GraphTool().Dialog()->Part<TComponent>(FrameName);
  }
  /// Two clicks, as the toolkit sends them.
  void DoubleClick(TPoint At) {
    for (const auto Type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick})
      SendMouse(Graph(), Type, At.X, At.Y, Qt::LeftButton,
                Type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton);
    SendMouse(Graph(), QEvent::MouseButtonRelease, At.X, At.Y, Qt::LeftButton);
    HandleEvents();
  }
  /// The lines of the menu under the right mouse button; chooses the first one.
  std::string RightClick(TPoint At) {
    SendMouse(Graph(), QEvent::MouseButtonPress, At.X, At.Y, Qt::RightButton, Qt::RightButton);
    SendMouse(Graph(), QEvent::MouseButtonRelease, At.X, At.Y, Qt::RightButton);
    auto* const Menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (Menu == nullptr) return "";
    std::string Result;
    for (QAction* Action : Menu->actions())
      Result += (Action->isSeparator() ? "-" : Action->text().toStdString()) + (Action->isEnabled() ? ";" : " off;");
    Menu->actions().front()->trigger();
    Menu->close();
    HandleEvents();
    return Result;
  }

  const testing::TTemporaryFolder Folder;
  TStudioWindow Window;
};

TEST_F(StudioTest, DataBecomeSeriesThatAreStoredAndOpened) {
  OpenCo2();
  ASSERT_EQ(Graph().RelatedSeries().size(), 1U);
  EXPECT_EQ(Measured().Count(), 741);
  EXPECT_EQ(Graph().PrimaryXAxis()->Scaling(), TZyAxisScaling::DateTime);
  Window.AddCurve("TZyLinearRegression", Measured());
  Window.AddCurve("TZyDiscreteFourier", Measured());
  Window.AddLegend();
  Window.AddMarker("TZyCrossHair");
  HandleEvents();
  EXPECT_TRUE(Window.windowTitle().contains("New chart*"));
  for (const char* Name : {"a.zyx", "a.zys", "a.zyi"}) {
    Window.SaveTo(Folder / Name);
    const QImage Before = Painted(Window.Document().Page());
    Window.Open(Folder / Name);
    HandleEvents();
    EXPECT_EQ(Graph().RelatedSeries().size(), 4U) << "with the phase";
    EXPECT_TRUE(Painted(Window.Document().Page()) == Before) << Name;
  }
}

TEST_F(StudioTest, ATableOfADatabaseIsChosen) {
  {
    std::ofstream(Folder / "two.db").flush();  // an empty file is an empty database
    TSqlDataSet Data;
    Data.SetConnectionText((Folder / "two.db"));
    Data.ExecSQL("create table other (a real)");
    Data.ExecSQL("create table speeds (t real, v real, note text)");
    Data.ExecSQL("insert into speeds values (0, 1, 'x'), (1, null, ''), (2, 5, null)");
  }
  QTimer::singleShot(0, [] {
    auto* const Dialog = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(Dialog, nullptr);
    Dialog->setTextValue("speeds");
    Dialog->accept();
  });
  Window.Open(Folder / "two.db");
  TZySeries& Series = Window.AddSeries("TZyPointSeries", 0, 1);
  HandleEvents();
  EXPECT_EQ(Series.Count(), 3);
  EXPECT_EQ(Graph().PrimaryYAxis()->Caption(), "v");
  EXPECT_THROW(Window.AddSeries("TZyPointSeries", 0, 2), std::out_of_range) << "texts are no column";
}

TEST_F(StudioTest, WhatCannotBeReadChangesNothing) {
  OpenCo2();
  Window.Document().Undo().MarkSaved();
  std::ofstream(Folder / "words.csv") << "a,b\nx,y\n";
  EXPECT_NE(testing::MessageOf([&] { Window.Open(Folder / "words.csv"); }).find("no column of numbers"),
            std::string::npos);
  std::ofstream(Folder / "broken.zyx") << "<Graph2D>";
  EXPECT_THROW(Window.Open(Folder / "broken.zyx"), std::exception);
  EXPECT_EQ(Graph().RelatedSeries().size(), 1U);
}

TEST_F(StudioTest, TheMenuAndADoubleClickOpenTheSettingsOfWhatIsThere) {
  OpenCo2();
  Measured().SetCaption("CO2");
  HandleEvents();
  const PointF Point = Measured().Points()[Measured().Points().size() / 2];
  const std::string Lines = RightClick({static_cast<int>(Point.X), static_cast<int>(Point.Y)});
  EXPECT_EQ(Lines.substr(0, Lines.find(';')).find("&Settings of"), 0U) << Lines;
  EXPECT_NE(Lines.find("CO2"), std::string::npos) << Lines;
  EXPECT_NE(Lines.find("Undo;Redo off;"), std::string::npos) << Lines;
  auto& Frame = dynamic_cast<TZySeriesSettingsFrame&>(*ShownIn("SeriesSettingsFrame"));
  EXPECT_EQ(Frame.SelectedSeries(), &Measured());
  EXPECT_TRUE(Frame.Widget()->isVisible());
  const TZyAxis& X = *Graph().PrimaryXAxis();
  DoubleClick({X.Left() + X.Width() / 2, X.Top() + X.Height() / 2});
  EXPECT_TRUE(dynamic_cast<TWinControl&>(*ShownIn("AxisSettingsFrame")).Widget()->isVisible());
  delete &Measured();
  EXPECT_EQ(RightClick({static_cast<int>(Point.X), static_cast<int>(Point.Y)}).find("&Settings..."), 0U);
}

}  // namespace
}  // namespace zy::examples
