// Markers under the mouse and the keyboard of a window, with data and undo beside them.

#include <gtest/gtest.h>

#include <QKeyEvent>
#include <QScreen>

#include <array>
#include <random>

#include "annotations/ZyCrossHair.h"
#include "annotations/ZyLabelWithArrowMarker.h"
#include "controls/ControlSamples.h"
#include "graph/SampleChart.h"
#include "undo/ZyUndoStack.h"

namespace zy::testing {
namespace {

class ZyMarkersTest : public ::testing::Test, public TSampleChart {
 protected:
  ZyMarkersTest() {
    Form.SetBounds(0, 0, 600, 400);
    Graph->SetTabStop(true);
    Stack.SetName("Stack");
    UseTenAxes();  // from (50, 300) on, 50 and 25 pixels for 1
    Graph->SetUndoStack(&Stack);
    Line.SetOnGetPen([this](TObject*, TZyPenEventArgs&) { ++Segments; });
    for (TZyMovable* Marker : std::initializer_list<TZyMovable*>{Level, Cross, Label}) {
      Marker->SetParent(Graph);
      Marker->SetUndoStack(&Stack);
      if (Marker != Level) Marker->SetXAxis(X);
      Marker->SetYAxis(Y);
    }
    Level->SetY(2);
    Cross->SetX(4), Cross->SetY(6);
    Label->SetX(7), Label->SetY(4);
    Label->SetCaption("label");
    ShowNow(Form);
    Graph->SetFocus();
    HandleEvents();
    Stack.Clear();
  }
  static TPoint At(double X, double Y) { return {static_cast<int>(50 + 50 * X), static_cast<int>(300 - 25 * Y)}; }
  void Key(int Code, Qt::KeyboardModifiers Keys = Qt::NoModifier) {
    QKeyEvent Event(QEvent::KeyPress, Code, Keys);
    QCoreApplication::sendEvent(Graph->Widget(), &Event);
  }
  void DragFromTo(TPoint From, TPoint To) {
    Press(*Graph, From.X, From.Y);
    Drag(*Graph, To.X, To.Y);
    Release(*Graph, To.X, To.Y);
  }
  /// What the window shows, painted or not.
  QImage OnScreen() {
    HandleEvents();
    return Form.Widget()->screen()->grabWindow(Form.Widget()->winId()).toImage();
  }

  TZyUndoStack Stack{&Form};
  TZyLineSeries& Line = *AddSeries("A", {1, 3, 8}, {2, 8, 5});
  TZyHorizontalMarker* Level = new TZyHorizontalMarker(&Form);
  TZyCrossHair* Cross = new TZyCrossHair(&Form);
  TZyLabelWithArrowMarker* Label = new TZyLabelWithArrowMarker(&Form);
  int Segments = 0;
};

TEST_F(ZyMarkersTest, ACrossHairGoesWithItsLinesAndByThem) {
  std::string Told;
  Cross->SetOnMarkerMoving([&](TObject*) { Told += "cross "; });
  Cross->VerticalMarker()->SetOnMarkerMoving([&](TObject*) { Told += "line "; });
  EXPECT_EQ(Cross->HorizontalMarker()->Y(), 6);
  Cross->Line().SetWidth(3);
  EXPECT_EQ(Cross->VerticalMarker()->Line().Width(), 3);
  DragFromTo(At(4, 9), At(5, 2));  // the vertical line
  EXPECT_EQ(Cross->X(), 5);
  EXPECT_EQ(Cross->Y(), 6);
  EXPECT_EQ(Told, "line cross ");
  DragFromTo(At(5, 6), At(2, 3));  // the handle
  EXPECT_EQ(Cross->VerticalMarker()->X(), 2);
  EXPECT_EQ(Cross->HorizontalMarker()->Y(), 3);
  EXPECT_EQ(Stack.UndoList().Count(), 3);
  Stack.Undo();
  Stack.Undo();
  EXPECT_EQ(Cross->X(), 4);
  EXPECT_EQ(Cross->VerticalMarker()->X(), 4);
  Stack.Redo();
  EXPECT_EQ(Cross->X(), 5);
  Cross->SetVisible(false);
  EXPECT_FALSE(Cross->HorizontalMarker()->Visible());
  delete X;
  Graph->SetBounds(0, 0, 500, 300);
  HandleEvents();
  EXPECT_EQ(Cross->VerticalMarker()->XAxis(), nullptr);
}

TEST_F(ZyMarkersTest, GripsBendALabel) {
  const TPoint Tip = At(7, 4), End{Tip.X + 50, Tip.Y - 50};
  const auto ShownGrips = [&] {
    return std::ranges::count_if(Graph->Controls(), [](TControl* Control) {
      return Control->Visible() && dynamic_cast<TZyArrowGrip*>(Control) != nullptr;
    });
  };
  EXPECT_EQ(ShownGrips(), 0);
  MoveMouse(*Graph, Tip.X + 20, Tip.Y - 20);
  EXPECT_EQ(ShownGrips(), 3) << "over the arrow";
  MoveMouse(*Graph, 5, 5);
  EXPECT_EQ(ShownGrips(), 0);
  Label->SetBentLength(20);
  const TPoint Corner{Label->Left() + Label->Width() - 3, Label->Top() + 12};
  const struct {
    const char* What;
    TPoint From, Way;
    std::array<int, 5> Expected;
  } Cases[] = {
      {"free end", End, {-10, 5}, {40, -45, 0, 0, 20}},
      {"longer", {End.X + 20, End.Y}, {7, 30}, {50, -50, 0, 0, 27}},
      {"pushed beyond its beginning", {End.X + 20, End.Y}, {-50, 0}, {50, -50, 0, 0, 0}},
      {"caption", Corner, {3, -8}, {50, -50, 3, -8, 20}},
      {"nothing", End, {0, 0}, {50, -50, 0, 0, 20}},
  };
  int Ends = 0;
  Label->SetOnArrowEndMoved([&](TObject*) { ++Ends; });
  Stack.Clear();
  for (const auto& [What, From, Way, Expected] : Cases) {
    const auto Shape = [&] {
      return std::array{Label->ArrowDeltaX(), Label->ArrowDeltaY(), Label->CaptionDeltaX(), Label->CaptionDeltaY(),
                        Label->BentLength()};
    };
    MoveMouse(*Graph, Tip.X + 20, Tip.Y - 20);
    MoveMouse(*Graph, From.X, From.Y);
    DragFromTo(From, {From.X + Way.X, From.Y + Way.Y});
    EXPECT_EQ(Shape(), Expected) << What;
    EXPECT_EQ(Stack.CanUndo(), Way != TPoint{}) << What;
    Stack.Undo();
    EXPECT_EQ(Shape(), (std::array{50, -50, 0, 0, 20})) << What;
    EXPECT_EQ(Label->X(), 7) << "the tip stays";
  }
  EXPECT_EQ(Ends, 5);
  DragFromTo({Tip.X + 20, Tip.Y - 20}, {Tip.X + 70, Tip.Y + 5});
  EXPECT_EQ(Label->X(), 8);
  EXPECT_EQ(Label->Y(), 3);
  const TPoint Beside{Label->Left() + 2, Label->Top() + 2};
  EXPECT_EQ(Graph->ControlAtPos(Beside.X, Beside.Y), nullptr) << "beside the arrow the mouse is the chart's";
}

TEST_F(ZyMarkersTest, AnglesAndLengthsAreDeltas) {
  const struct {
    float Angle, Length;
    TPoint Delta;
    float ReadAngle;
  } Cases[] = {{0, 30, {30, 0}, 0},
               {-90, 40, {0, 40}, 270},
               {450, 10, {0, -10}, 90},
               {135, 100, {-71, -71}, 135},
               {225, -10, {-7, 7}, 225}};
  for (const auto& Case : Cases) {
    Label->SetArrowLength(1000);
    Label->SetArrowAngle(Case.Angle);
    Label->SetArrowLength(Case.Length);
    EXPECT_EQ((TPoint{Label->ArrowDeltaX(), Label->ArrowDeltaY()}), Case.Delta);
    EXPECT_NEAR(Label->ArrowAngle(), Case.ReadAngle, 0.1);
  }
  Label->SetArrowLength(0);
  EXPECT_EQ(Label->ArrowAngle(), 270);
  Label->SetBentLength(-10);
  EXPECT_EQ(Label->BentLength(), 10);
  while (Stack.CanUndo()) Stack.Undo();
  EXPECT_EQ(Label->ArrowDeltaX(), 50);
  EXPECT_EQ(Label->ArrowDeltaY(), -50);
}

TEST_F(ZyMarkersTest, ADragIsOneStepAndPaintsNothingOfTheChart) {
  const TPoint From = At(1, 2);
  OnScreen();
  Segments = 0;
  Press(*Graph, From.X, From.Y);
  for (int Step = 1; Step <= 20; ++Step) {
    Drag(*Graph, From.X, From.Y - Step);
    HandleEvents();
  }
  Drag(*Graph, From.X, 5000);
  Drag(*Graph, From.X, From.Y - 25);
  Release(*Graph, From.X, From.Y - 25);
  Press(*Graph, 5, 5);
  Release(*Graph, 5, 5);
  HandleEvents();
  EXPECT_EQ(Segments, 0);
  EXPECT_EQ(Level->Y(), 3);
  EXPECT_EQ(Stack.UndoCount(), 1);
  Stack.Undo();
  EXPECT_EQ(Level->Y(), 2);
}

TEST_F(ZyMarkersTest, ADragSnapsAndEscapeOrUndoGiveAllBack) {
  const TPoint From = At(4, 6);
  Cross->SetSnapToSeriesValues(true);
  for (const bool Escapes : {true, false}) {
    Press(*Graph, From.X, From.Y);
    Drag(*Graph, From.X + 150, From.Y + 30);
    EXPECT_EQ(Cross->X(), 8);
    EXPECT_EQ(Cross->Y(), 5);
    EXPECT_EQ(Cross->SnappedSeries(), &Line);
    if (Escapes) Key(Qt::Key_Escape);
    Release(*Graph, From.X + 150, From.Y + 30);
    EXPECT_EQ(Stack.CanUndo(), !Escapes);
    Stack.Undo();
    EXPECT_EQ(Cross->X(), 4);
    EXPECT_EQ(Cross->SnappedSeries(), nullptr);
    EXPECT_EQ(Cross->SnappedIdx(), -1);
  }
  Stack.Redo();
  dynamic_cast<TZyDoubleVector*>(Line.YData())->SetValue(2, 1);
  OnScreen();
  EXPECT_EQ(Cross->Y(), 1) << "goes with its point";
  Cross->SetSnapToSeriesValues(false);
  dynamic_cast<TZyDoubleVector*>(Line.YData())->SetValue(2, 7);
  OnScreen();
  EXPECT_EQ(Cross->Y(), 1) << "holds on to nothing";
  DragFromTo(At(8, 1), At(2, 2));
  EXPECT_EQ(Cross->X(), 2) << "and is not looked for elsewhere";
  Stack.Undo();
  EXPECT_EQ(Cross->X(), 8);
}

TEST_F(ZyMarkersTest, ArrowKeysMoveTheActiveMarker) {
  Key(Qt::Key_Tab);
  ASSERT_EQ(Graph->ActiveControl(), Level);
  Key(Qt::Key_Up, Qt::ShiftModifier);
  Key(Qt::Key_Up, Qt::ShiftModifier);
  for (int Times = 0; Times < 5; ++Times) Key(Qt::Key_Up);
  EXPECT_EQ(Level->Y(), 3);
  Key(Qt::Key_Tab);
  EXPECT_EQ(Stack.UndoCount(), 1);
  Stack.Undo();
  EXPECT_EQ(Level->Y(), 2);
}

TEST_F(ZyMarkersTest, NoTraceIsLeft) {
  Graph->SetSmoothingMode(TZySmoothingMode::None);
  Level->SetCaption("level"), Level->SetCaptionVisible(true);
  Cross->SetCaption("cross"), Cross->SetCaptionBackColor(0xFFFFFF00), Cross->SetCaptionBackShadow(true);
  OnScreen();
  std::mt19937 Random(7);
  const auto Roll = [&](int Count) { return static_cast<int>(Random() % static_cast<unsigned>(Count)); };
  for (int Times = 0; Times < 40; ++Times) {
    const TPoint Froms[] = {{60, Level->Top() + Level->Height() - 3},
                            At(Cross->X(), Cross->Y()),
                            {Label->Left() + Label->Width() - 3, Label->Top() + 12}};
    const TPoint From = Froms[Roll(3)];
    Press(*Graph, From.X, From.Y);
    for (int Moves = Roll(4); Moves > 0; --Moves) {
      Drag(*Graph, Roll(700) - 50, Roll(500) - 50);
      HandleEvents();
    }
    Release(*Graph, Roll(600), Roll(400));
  }
  MoveMouse(*Graph, 5, 5);
  const QImage Kept = OnScreen();
  ASSERT_FALSE(Kept.isNull());
  Graph->Invalidate();
  EXPECT_EQ(Kept, OnScreen());
  EXPECT_GT(Stack.UndoCount(), 3);
}

TEST_F(ZyMarkersTest, HandlersMayThrowAndFree) {
  struct TRefusal {};
  const TPoint From = At(1, 2);
  Level->SetOnMarkerMoving([](TObject*) { throw TRefusal(); });
  Level->MouseDown(mbLeft, {ssLeft}, 10, 2);
  EXPECT_THROW(Level->MouseMove({ssLeft}, 10, -48), TRefusal);
  Level->SetOnMarkerMoving(nullptr);
  Level->MouseUp(mbLeft, {}, 10, 2);
  EXPECT_EQ(Level->Y(), 4);
  Stack.Undo();
  EXPECT_EQ(Level->Y(), 2) << "a step all the same";

  Level->SetOnMarkerMoved([&](TObject*) { delete std::exchange(Level, nullptr); });
  DragFromTo(From, {From.X, From.Y - 20});
  EXPECT_EQ(Level, nullptr);
  Cross->HorizontalMarker()->SetOnMarkerMoving([&](TObject*) { delete std::exchange(Cross, nullptr); });
  Cross->SetOnMarkerMoving([](TObject*) { ADD_FAILURE() << "of a cross hair that is gone"; });
  DragFromTo(At(9, 6), At(9, 5));
  EXPECT_EQ(Cross, nullptr);
  Label->SetOnArrowEndMoving([&](TObject*) { delete std::exchange(Label, nullptr); });
  const TPoint Tip = At(7, 4);
  MoveMouse(*Graph, Tip.X + 20, Tip.Y - 20);
  MoveMouse(*Graph, Tip.X + 50, Tip.Y - 50);
  DragFromTo({Tip.X + 50, Tip.Y - 50}, {Tip.X + 55, Tip.Y - 50});
  EXPECT_EQ(Label, nullptr);
  OnScreen();
  EXPECT_EQ(QWidget::keyboardGrabber(), nullptr);
  while (Stack.CanUndo()) Stack.Undo();
  auto* Other = new TZyCrossHair(&Form);
  Other->SetSnappedSeries(&Line);
  Other->SetSnapToSeriesValues(true);
  Other->SetOnMarkerMoved([&](TObject*) { delete std::exchange(Other, nullptr); });
  Other->SetSnappedIdx(1);
  EXPECT_EQ(Other, nullptr);
}

TEST_F(ZyMarkersTest, ALineBeyondItsAxisHasNoCaption) {
  Level->SetCaption("limit");
  Level->SetCaptionVisible(true);
  const auto Shown = [&](double Value, bool Clips) {
    Level->SetY(Value);
    Level->SetClipToData(Clips);
    const TCalls Drawn = CallsOf([&](Graphics& Gr) { Level->PaintGr(Gr); });
    return std::pair(CountOf(Drawn, "DrawLine"), CountOf(Drawn, "\"limit\""));
  };
  using TShown = std::pair<std::ptrdiff_t, std::ptrdiff_t>;
  EXPECT_EQ(Shown(10, true), TShown(1, 1));
  EXPECT_EQ(Shown(10.1, true), TShown(0, 0));
  EXPECT_EQ(Shown(-0.1, false), TShown(1, 0));
}

TEST_F(ZyMarkersTest, ALineIsStoredAsItDiffersFromItsCrossHair) {
  for (const bool Clips : {false, true}) {
    Cross->SetClipToData(Clips);
    Cross->HorizontalMarker()->SetClipToData(!Clips);
    TZyCrossHair Read;
    ReadBack(*Cross, Read);
    EXPECT_EQ(Read.HorizontalMarker()->ClipToData(), !Clips);
    EXPECT_EQ(Read.VerticalMarker()->ClipToData(), Clips);
  }
}

TEST_F(ZyMarkersTest, WhatIsShownAgainComesToTheFront) {
  for (TZyMovable* Marker : std::initializer_list<TZyMovable*>{Level, Cross}) {
    Marker->SetVisible(false);
    Marker->SetVisible(true);
    EXPECT_EQ(Graph->Controls().back(), Marker);
  }
  Cross->VerticalMarker()->SetVisible(false);
  Cross->VerticalMarker()->SetVisible(true);
  EXPECT_EQ(Graph->Controls().back(), Cross) << "the handle above its lines";
}

}  // namespace
}  // namespace zy::testing
