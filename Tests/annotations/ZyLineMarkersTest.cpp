// Line markers: their boxes, and how they go by mouse, keys, data and undo.

#include <gtest/gtest.h>

#include <QKeyEvent>

#include "annotations/ZyLineMarkerBox.h"
#include "annotations/ZyLineMarkers.h"
#include "controls/ControlSamples.h"
#include "graph/SampleChart.h"
#include "undo/ZyUndoStack.h"

namespace zy::testing {
namespace {

TEST(ZyLineMarkerBoxTest, EnclosesLineAndCaptionAtEveryPlace) {
  for (const bool IsHorizontal : {true, false})
    for (const bool IsVertical : {true, false})
      for (int Place = 0; Place < 9; ++Place)
        for (const int Delta : {-70, -3, 0, 4, 90}) {
          const TZyLineMarkerBox Box({.IsHorizontal = IsHorizontal,
                                      .Length = 200,
                                      .HasCaption = true,
                                      .Caption = {60, 20},
                                      .Delta = {Delta, -Delta},
                                      .Place = static_cast<TZyContentAlignment>(Place),
                                      .IsVertical = IsVertical});
          EXPECT_EQ(IsHorizontal ? Box.Line.Width() : Box.Line.Height(), 200);
          EXPECT_EQ(IsVertical ? Box.Caption.Height() : Box.Caption.Width(), 60);
          EXPECT_EQ(std::min(Box.Line.Left, Box.Caption.Left), 0) << Place << " " << Delta;
          EXPECT_EQ(std::min(Box.Line.Top, Box.Caption.Top), 0) << Place << " " << Delta;
          EXPECT_EQ(std::max(Box.Line.Right, Box.Caption.Right), Box.Width) << Place << " " << Delta;
          EXPECT_EQ(std::max(Box.Line.Bottom, Box.Caption.Bottom), Box.Height) << Place << " " << Delta;
        }
}

class ZyLineMarkersTest : public ::testing::Test, public TSampleChart {
 protected:
  ZyLineMarkersTest() {
    Form.SetBounds(0, 0, 600, 400);
    Graph->SetTabStop(true);
    Stack.SetName("Stack");
    Graph->SetUndoStack(&Stack);
    Line.SetOnGetPen([this](TObject*, TZyPenEventArgs&) { ++Segments; });
    Marker->SetParent(Graph);
    Marker->SetUndoStack(&Stack);
    Marker->SetYAxis(Graph->PrimaryYAxis());
    Marker->SetCaption("here");
    Marker->SetCaptionVisible(true);
    Marker->SetY(1.5);
    ShowNow(Form);
    Graph->SetFocus();
    HandleEvents();
    Stack.Clear();
  }
  TPoint OnLine() const {
    return {Marker->Left() + 5, static_cast<int>(std::nearbyint(Graph->PrimaryYAxis()->NumberToWorld(Marker->Y())))};
  }

  TZyUndoStack Stack{&Form};
  TZyLineSeries& Line = *AddSeries("A", {0, 1, 2}, {1, 2, 1});
  TZyHorizontalMarker* Marker = new TZyHorizontalMarker(&Form);
  int Segments = 0;
};

TEST_F(ZyLineMarkersTest, ADragIsOneStepAndPaintsOnlyTheMarker) {
  const TPoint From = OnLine();
  Press(*Graph, From.X, From.Y);
  HandleEvents();
  Segments = 0;
  for (int Step = 1; Step <= 20; ++Step) {
    Drag(*Graph, From.X, From.Y - Step);
    HandleEvents();
  }
  EXPECT_EQ(Segments, 0);
  EXPECT_EQ(OnLine().Y, From.Y - 20);
  Drag(*Graph, From.X, 5000);
  Drag(*Graph, From.X, From.Y - 20);
  Release(*Graph, From.X, From.Y - 20);
  EXPECT_EQ(OnLine().Y, From.Y - 20);
  EXPECT_EQ(Stack.UndoCount(), 1);
  Stack.Undo();
  EXPECT_EQ(Marker->Y(), 1.5);
}

TEST_F(ZyLineMarkersTest, ADragSnapsToPointsAndEscapeGivesTheOldPlaceBack) {
  Marker->SetSnapToSeriesValues(true);
  const TPoint From = OnLine();
  Press(*Graph, From.X, From.Y);
  Drag(*Graph, From.X, From.Y - 30);
  EXPECT_EQ(Marker->Y(), 2);
  EXPECT_EQ(Marker->SnappedSeries(), &Line);
  EXPECT_EQ(Marker->SnappedIdx(), 1);
  Drag(*Graph, From.X, From.Y + 30);
  EXPECT_EQ(Marker->Y(), 1);
  EXPECT_EQ(Marker->SnappedIdx(), 0) << "the first of equally near ones";
  QKeyEvent Escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
  QCoreApplication::sendEvent(Graph->Widget(), &Escape);
  EXPECT_EQ(Marker->Y(), 1.5);
  EXPECT_EQ(Stack.UndoCount(), 0);
}

}  // namespace
}  // namespace zy::testing
