// Legends under the mouse and the keyboard, by the events of a window.

#include <gtest/gtest.h>

#include <QAccessible>
#include <QKeyEvent>

#include "annotations/ZyLegend.h"
#include "controls/ControlSamples.h"
#include "graph/SampleChart.h"
#include "undo/ZyUndoStack.h"

namespace zy::testing {
namespace {

class ZyLegendDragTest : public ::testing::Test, public TSampleChart {
 protected:
  ZyLegendDragTest() {
    Form.SetBounds(0, 0, 600, 400);
    Graph->SetTabStop(true);
    Stack.SetName("Stack");
    Graph->SetUndoStack(&Stack);
    Line.SetCaption("A");
    Line.SetOnGetPen([this](TObject*, TZyPenEventArgs&) { ++Segments; });
    Legend->SetParent(Graph);
    Legend->SetGraph(Graph);
    Legend->SetBackColor(0xFFFFFF80);
    Legend->SetBounds(100, 100, 10, 10);
    ShowNow(Form);
    Graph->SetFocus();
    HandleEvents();
    Stack.Clear();
  }
  void Key(int Code, Qt::KeyboardModifiers Keys = Qt::NoModifier) {
    QKeyEvent Event(QEvent::KeyPress, Code, Keys);
    QCoreApplication::sendEvent(Graph->Widget(), &Event);
  }
  TPoint Place() const { return {Legend->Left(), Legend->Top()}; }
  QImage OnScreen() {
    HandleEvents();
    return Graph->Widget()->grab().toImage();
  }

  TZyUndoStack Stack{&Form};
  TZyLineSeries& Line = *AddSeries("A", {0, 1, 2}, {1, 2, 1});
  TZyLegend* Legend = new TZyLegend(&Form);
  int Segments = 0;
};

TEST_F(ZyLegendDragTest, ADragIsOneStepAndPaintsOnlyTheLegend) {
  int Starts = 0;
  Legend->SetOnStartFreeFloating([&](TObject*) { ++Starts; });
  Press(*Graph, 110, 110);
  Drag(*Graph, 111, 111);
  HandleEvents();
  Segments = 0;
  for (int Step = 2; Step <= 40; ++Step) {
    Drag(*Graph, 110 + Step, 110 + Step / 2);
    HandleEvents();
  }
  EXPECT_EQ(Segments, 0) << "the chart's last picture is shown while it is dragged";
  Drag(*Graph, 2000, 110);  // leaves the window, and comes back
  Drag(*Graph, 150, 130);
  EXPECT_EQ(Place(), (TPoint{140, 120}));
  Release(*Graph, 150, 130);
  Drag(*Graph, 300, 300);
  EXPECT_EQ(Place(), (TPoint{140, 120})) << "it is over";
  EXPECT_EQ(Starts, 1);
  EXPECT_EQ(Stack.UndoCount(), 1);
  const QImage Kept = OnScreen();
  Graph->Invalidate();
  EXPECT_EQ(Kept, OnScreen()) << "no trace is left";
  Stack.Undo();
  EXPECT_EQ(Place(), (TPoint{100, 100}));
}

TEST_F(ZyLegendDragTest, WhatEndsADragOtherwise) {
  const std::tuple<const char*, std::function<void()>, TPoint, int> Cases[] = {
      {"nothing moved", [] {}, {100, 100}, 0},
      {"Escape", [&] { Drag(*Graph, 200, 200), Key(Qt::Key_Escape), Drag(*Graph, 220, 220); }, {100, 100}, 0},
      {"hidden",
       [&] {
         Drag(*Graph, 200, 200);
         Legend->SetVisible(false);
         Legend->SetVisible(true);
       },
       {100, 100},
       2},
      {"a release that went elsewhere", [&] { Drag(*Graph, 120, 120), MoveMouse(*Graph, 300, 300); }, {110, 110}, 1},
      {"the far edge", [&] { Drag(*Graph, 5000, 5000); }, {100 + 599 - 110, 100 + 399 - 110}, 1},
      {"another place", [&] { Drag(*Graph, 120, 120), Legend->SetPosition(TZyLegendPosition::LeftTopOfAxis); }, {}, 2},
  };
  for (const auto& [What, Act, Expected, Steps] : Cases) {
    Legend->SetPosition(TZyLegendPosition::FreeFloating);
    Legend->SetBounds(100, 100, Legend->Width(), Legend->Height());
    Stack.Clear();
    Press(*Graph, 110, 110);
    Act();
    Release(*Graph, 110, 110);
    EXPECT_FALSE(Legend->IsMoving()) << What;
    EXPECT_EQ(Stack.UndoCount(), Steps) << What;
    if (Legend->Position() == TZyLegendPosition::FreeFloating) {
      EXPECT_EQ(Place(), Expected) << What;
    }
    EXPECT_EQ(Legend->Cursor(), crDefault) << What;
    while (Stack.CanUndo()) Stack.Undo();
    EXPECT_EQ(Place(), (TPoint{100, 100})) << What;
  }
  SendMouse(*Graph, QEvent::MouseButtonPress, 110, 110, Qt::LeftButton, Qt::LeftButton, Qt::ShiftModifier);
  EXPECT_FALSE(Legend->IsMoving()) << "one key too many";
  SendMouse(*Graph, QEvent::MouseButtonRelease, 110, 110, Qt::LeftButton);
  Press(*Graph, 110, 110);
  Drag(*Graph, 150, 150);
  delete Legend;
  Drag(*Graph, 160, 160);
  Release(*Graph, 160, 160);
}

TEST_F(ZyLegendDragTest, ArrowKeysMoveTheActiveLegend) {
  Key(Qt::Key_Right);
  EXPECT_EQ(Place(), (TPoint{100, 100})) << "keys are the chart's";
  Key(Qt::Key_Tab);
  EXPECT_EQ(Graph->ActiveControl(), Legend);
  Key(Qt::Key_Right);
  Key(Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(Place(), (TPoint{101, 110}));
  Key(Qt::Key_Escape);
  EXPECT_EQ(Place(), (TPoint{100, 100}));
  EXPECT_EQ(Stack.UndoCount(), 0);
  Key(Qt::Key_Left);
  Key(Qt::Key_Left);
  Press(*Graph, 5, 5);  // elsewhere
  Release(*Graph, 5, 5);
  EXPECT_EQ(Graph->ActiveControl(), nullptr);
  EXPECT_EQ(Stack.UndoCount(), 1);
  Stack.Undo();
  EXPECT_EQ(Place(), (TPoint{100, 100}));
}

TEST_F(ZyLegendDragTest, ScreenReadersFindAListOfItems) {
  Legend->SetCaption("Measured");
  Legend->SetCaptionVisible(true);
  AddSeries("B", {0, 1}, {1, 2})->SetCaption(R"(\bbold\b)");
  HandleEvents();
  QAccessibleInterface* const Chart = QAccessible::queryAccessibleInterface(Graph->Widget());
  QAccessibleInterface* List = nullptr;
  for (int Index = 0; Index < Chart->childCount(); ++Index)
    if (Chart->child(Index)->role() == QAccessible::List) List = Chart->child(Index);
  ASSERT_NE(List, nullptr);
  EXPECT_EQ(List->text(QAccessible::Name), "Measured");
  EXPECT_EQ(Chart->child(Chart->indexOfChild(List)), List);
  ASSERT_EQ(List->childCount(), 2);
  EXPECT_EQ(List->child(0)->text(QAccessible::Name), "A");
  EXPECT_EQ(List->child(1)->text(QAccessible::Name), "bold");
  EXPECT_EQ(List->child(1)->parent(), List);
  const QPoint Corner = Graph->Widget()->mapToGlobal(QPoint(Legend->Left(), Legend->Top()));
  EXPECT_EQ(List->rect().topLeft(), Corner);
  EXPECT_EQ(Chart->childAt(Corner.x() + 3, Corner.y() + 3), List);
  Key(Qt::Key_Tab);
  EXPECT_TRUE(List->state().focused);
  delete Legend;
  EXPECT_FALSE(List->isValid());
  EXPECT_EQ(List->childCount(), 0);
}

}  // namespace
}  // namespace zy::testing
