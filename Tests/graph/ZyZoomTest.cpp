#include <gtest/gtest.h>

#include <QKeyEvent>
#include <QPointingDevice>
#include <QWheelEvent>
#include <cmath>

#include "controls/ControlSamples.h"
#include "graph/SampleChart.h"
#include "platform/framework/Exceptions.h"
#include "undo/ZyUndoStack.h"

namespace zy {
namespace {

using testing::TSampleChart;

/// A chart whose data area is 500 by 250 pixels from (50, 50), with X from 0 to 100 and Y from 0 to 10: 5 and 25 pixels
/// for 1. Its scroll bars stay away unless a test wants them, and ends are not rounded.
class TZoomChart : public TSampleChart {
 public:
  TZoomChart() {
    UsePlainAxes();
    Series = AddSeries("S", {0, 30, 35, 100}, {0, 6, 7, 10});
    for (TZyAxis* Axis : {X, Y}) Axis->SetEndRounding(TZyAxisEndRounding::RndNothing);
    Graph->Zoom().SetHScrollbarVisible(false);
    Graph->Zoom().SetVScrollbarVisible(false);
    Graph->SetOnBeginZoom([this](TObject*) { Events += "z"; });
    Graph->SetOnEndZoom([this](TObject*) { Events += "Z"; });
    Graph->SetOnBeginPanning([this](TObject*) { Events += "p"; });
    Graph->SetOnEndPanning([this](TObject*) { Events += "P"; });
    Paint();
  }

  /// A drag with the left button and keys.
  void DragMouse(TPoint From, TPoint To, Qt::KeyboardModifiers Keys = Qt::NoModifier) {
    SendMouse(*Graph, QEvent::MouseButtonPress, From.X, From.Y, Qt::LeftButton, Qt::LeftButton, Keys);
    if (From.X != To.X || From.Y != To.Y)
      SendMouse(*Graph, QEvent::MouseMove, To.X, To.Y, Qt::NoButton, Qt::LeftButton, Keys);
    SendMouse(*Graph, QEvent::MouseButtonRelease, To.X, To.Y, Qt::LeftButton, Qt::NoButton, Keys);
    Paint();
  }
  bool Wheel(TPoint At, int Delta, Qt::KeyboardModifiers Keys = Qt::ControlModifier) {
    QWheelEvent Event(QPointF(At.X, At.Y), Graph->Widget()->mapToGlobal(QPointF(At.X, At.Y)), {}, {0, Delta},
                      Qt::NoButton, Keys, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(Graph->Widget(), &Event);
    Paint();
    return Event.isAccepted();
  }
  bool Key(int Code) {
    QKeyEvent Event(QEvent::KeyPress, Code, Qt::NoModifier);
    QCoreApplication::sendEvent(Graph->Widget(), &Event);
    Paint();
    return Event.isAccepted();
  }
  /// "X-start..stop Y-start..stop stage/size events".
  std::string State() const {
    const auto Text = [](double Value) { return FloatToStr(std::round(Value * 1000) / 1000); };
    return Text(X->Start()) + ".." + Text(X->Stop()) + " " + Text(Y->Start()) + ".." + Text(Y->Stop()) + " " +
           IntToStr(Graph->GetCurrentZoomStage()) + "/" + IntToStr(Graph->GetZoomBufferSize()) + " " + Events;
  }
  static TZyDoubleVector& Data(TZyCustomDoubleVector* Vector) { return dynamic_cast<TZyDoubleVector&>(*Vector); }
  void ZoomIn() { Graph->ZoomTo({150, 100}, {350, 200}); }

  TZyLineSeries* Series = nullptr;
  std::string Events;
};

const std::string Zoomed = "20..60 4..8 1/2 ";

TEST(Zoom, FrameGestures) {
  struct TRow {
    const char* What;
    bool ZoomedBefore;
    TPoint From, To;
    Qt::KeyboardModifiers Keys;
    void (*Set)(TZyZoomSettings&);
    std::string Expected;
  };
  const auto Plain = [](TZyZoomSettings&) {};
  const auto Backs = [](TZyZoomSettings& Zoom) { Zoom.SetBackOnRightBottomLeftTopFrame(true); };
  const auto Resets = [](TZyZoomSettings& Zoom) { Zoom.SetResetOnRightBottomLeftTopFrame(true); };
  const auto Optimizes = [](TZyZoomSettings& Zoom) { Zoom.SetOptimizeSeries(true); };
  const std::string Whole = "0..100 0..10 0/0 ";
  const TRow Rows[] = {
      {"zooms", false, {150, 100}, {350, 200}, {}, Plain, Zoomed + "zZ"},
      {"backwards like any other", false, {350, 200}, {150, 100}, {}, Plain, Zoomed + "zZ"},
      {"too narrow", false, {150, 100}, {153, 200}, {}, Plain, Whole + "z"},
      {"cut to the data area", false, {10, 5}, {350, 200}, {}, Plain, "0..60 4..10 1/2 zZ"},
      {"another key down", false, {150, 100}, {350, 200}, Qt::ControlModifier, Plain, Whole},
      {"switched off", false, {150, 100}, {350, 200}, {}, [](TZyZoomSettings& Zoom) { Zoom.SetAuto(false); }, Whole},
      {"backwards goes back", true, {350, 200}, {150, 100}, {}, Backs, "0..100 0..10 0/2 z"},
      {"backwards resets", true, {350, 200}, {150, 100}, {}, Resets, Whole + "z"},
      {"a click is a backward frame", true, {250, 150}, {250, 150}, {}, Resets, Whole + "z"},
      {"a click in the data", true, {250, 150}, {250, 150}, {}, Plain, Zoomed + "z"},
      {"a click beside", true, {250, 20}, {250, 20}, {}, Plain, "0..100 0..10 0/2 z"},
      {"to the points inside", false, {150, 100}, {350, 200}, {}, Optimizes, "30..35 6..7 1/2 zZ"},
      {"to no points", false, {60, 60}, {90, 90}, {}, Optimizes, Whole + "zZ"},
  };
  for (const TRow& Row : Rows) {
    TZoomChart Chart;
    Row.Set(Chart.Graph->Zoom());
    if (Row.ZoomedBefore) Chart.Graph->ZoomTo({150, 100}, {350, 200});
    Chart.Paint();
    Chart.DragMouse(Row.From, Row.To, Row.Keys);
    EXPECT_EQ(Chart.State(), Row.Expected) << Row.What;
  }
}

TEST(Zoom, ADoubleClickBesideShowsTheWholeRange) {
  TZoomChart Chart;
  Chart.ZoomIn();
  Chart.Graph->Zoom().SetBackOnClickBeside(false);
  for (const int Top : {150, 20}) {
    SendMouse(*Chart.Graph, QEvent::MouseButtonDblClick, 250, Top, Qt::LeftButton, Qt::LeftButton);
    Release(*Chart.Graph, 250, Top);
    Chart.Paint();
    EXPECT_EQ(Chart.State(), Top == 150 ? Zoomed : "0..100 0..10 0/0 ");
  }
}

TEST(Zoom, StagesOfAStackAndOfARing) {
  TZoomChart Chart;
  Chart.ZoomIn();
  Chart.Paint();
  Chart.Graph->ZoomTo({50, 50}, {300, 175});
  Chart.Paint();
  EXPECT_EQ(Chart.State(), "20..40 6..8 2/3 ");
  TZyZoomSettings& Zoom = Chart.Graph->Zoom();
  EXPECT_FALSE(Zoom.CanRedoZoom());
  Zoom.ZoomBack();
  Zoom.ZoomBack();
  EXPECT_EQ(Chart.State(), "0..100 0..10 0/3 ");
  Zoom.ZoomBack();
  EXPECT_FALSE(Zoom.CanZoomBack());
  EXPECT_EQ(Zoom.CurrentStage(), 0);
  Zoom.RedoZoom();
  EXPECT_EQ(Chart.State(), "20..60 4..8 1/3 ");
  Chart.Paint();
  Chart.Graph->ZoomTo({50, 50}, {175, 175});
  EXPECT_EQ(Chart.State(), "20..30 6..8 2/3 ");  // the old last stage is gone
  Zoom.ZoomToStage(3);
  EXPECT_EQ(Zoom.CurrentStage(), 2);
  Zoom.SetBufferType(TZyZoomBufferType::AsCircularBuffer);
  Zoom.RedoZoom();
  EXPECT_EQ(Chart.State(), "0..100 0..10 0/3 ");
  Zoom.ZoomBack();
  EXPECT_EQ(Chart.State(), "20..30 6..8 2/3 ");
}

TEST(Zoom, NewDataEndTheZoom) {
  TZoomChart Chart;
  Chart.Y->SetStop(12);
  Chart.Y->SetStopEnd(TZyAxisEnd::Fixed);
  Chart.Paint();
  Chart.ZoomIn();
  Chart.Data(Chart.Series->XData()).AddRange({200.0});
  Chart.Data(Chart.Series->YData()).AddRange({15.0});
  Chart.Paint();
  EXPECT_EQ(Chart.State(), "0..200 0..12 0/0 ");
}

TEST(Zoom, PansByTheMouse) {
  struct TRow {
    const char* What;
    TPoint To;
    bool TwistedX;
    std::string Expected;
  };
  const TRow Rows[] = {
      // 12.5 pixels for 1 in X, 62.5 in Y
      {"both ways", {325, 275}, false, "10..50 6..10 2/3 pP"},
      {"one way only", {325, 150}, false, "20..60 4..8 2/3 pP"},
      {"an axis at its end stays", {325, 287}, false, "10..50 4..8 2/3 pP"},
      {"twisted: the signs of the primary axis and of the axis cancel", {325, 275}, true, "10..50 6..10 2/3 pP"},
  };
  for (const TRow& Row : Rows) {
    TZoomChart Chart;
    Chart.X->SetTwisted(Row.TwistedX);
    Chart.Paint();
    Chart.DragMouse({200, 150}, Row.To, Qt::ShiftModifier);
    EXPECT_EQ(Chart.State(), "0..100 0..10 0/0 ") << "not zoomed";
    if (Row.TwistedX) {
      Chart.Graph->ZoomTo({450, 100}, {250, 200});
    } else {
      Chart.ZoomIn();
    }
    Chart.Paint();
    const TCursor Before = Chart.Graph->Cursor();
    Chart.DragMouse({200, 150}, Row.To, Qt::ShiftModifier);
    EXPECT_EQ(Chart.State(), Row.Expected) << Row.What;
    EXPECT_EQ(Chart.Graph->Cursor(), Before);
  }
}

TEST(Zoom, ALogarithmicAxisKeepsTheRatioOfItsEndsWhenPanned) {
  TZoomChart Chart;
  Chart.X->SetScaling(TZyAxisScaling::Log);
  Chart.Data(Chart.Series->XData()).SetInternalArray({1, 10, 100, 10000});
  Chart.Paint();
  Chart.Graph->ZoomTo({175, 100}, {425, 200});  // 125 pixels for a decade
  EXPECT_NEAR(Chart.X->Start(), 10, 1e-4);
  EXPECT_NEAR(Chart.X->Stop(), 1000, 1e-2);
  Chart.Paint();
  Chart.DragMouse({200, 150}, {325, 151}, Qt::ShiftModifier);  // half a decade
  EXPECT_NEAR(Chart.X->Start(), std::sqrt(10), 1e-4);
  EXPECT_NEAR(Chart.X->Stop() / Chart.X->Start(), 100, 1e-4);
}

TEST(Zoom, ScrollBars) {
  TZoomChart Chart;
  Chart.Graph->Zoom().SetHScrollbarVisible(true);
  Chart.Graph->Zoom().SetVScrollbarVisible(true);
  Chart.Graph->Modified();
  Chart.Paint();
  TScrollBar &Across = *Chart.Graph->HorizontalScrollBar(), &Upright = *Chart.Graph->VerticalScrollbar();
  EXPECT_FALSE(Across.Visible() || Upright.Visible());
  Chart.ZoomIn();
  Chart.Paint();
  ASSERT_TRUE(Across.Visible() && Upright.Visible());
  EXPECT_EQ(Across.BoundsRect(), (TRect{67, 383, 67 + 484, 400}));  // 17 pixels thick, as long as the data area
  EXPECT_EQ(Upright.BoundsRect(), (TRect{0, 50, 17, 50 + 234}));
  EXPECT_EQ(Across.PageSize(), 4000);
  EXPECT_EQ(Across.Position(), 2000);
  EXPECT_EQ(Upright.PageSize(), 4000);
  EXPECT_EQ(Upright.Position(), 2000);

  struct TRow {
    TScrollBar& Bar;
    TScrollCode Code;
    int Pos;
    std::string Expected;
  };
  const double Pixel = Chart.X->NormalizeConst();
  Chart.Graph->Zoom().SetScrollSmallIncrement(TZyScrollIncrement::Pixel);
  const auto Text = [](double Value) { return FloatToStr(std::round(Value * 1000) / 1000); };
  const TRow Rows[] = {{Across, scLineDown, 0, Text(20 + Pixel) + ".." + Text(60 + Pixel) + " 4..8 1/2 "},
                       {Across, scPageDown, 0, "60..100 4..8 2/3 "},
                       {Across, scEndScroll, 0, "60..100 4..8 3/4 "},
                       {Across, scTrack, 1000, "10..50 4..8 3/4 "},
                       {Across, scPosition, 1000, "10..50 4..8 4/5 "},
                       {Upright, scTrack, 6000, "10..50 0..4 4/5 "},
                       {Upright, scPageUp, 0, "10..50 4..8 5/6 "},
                       {Upright, scPageUp, 0, "10..50 6..10 6/7 "}};
  for (const TRow& Row : Rows) {
    int Pos = Row.Pos;
    Chart.Graph->Scroll(&Row.Bar, Row.Code, Pos);
    EXPECT_EQ(Chart.Graph->Panning(), Row.Code == scTrack);
    Chart.Paint();
    // A page that ends at the end of the data comes from the first line: whole numbers again.
    EXPECT_EQ(Chart.State(), Row.Expected) << EnumInfo(Row.Code).Values[Row.Code];
  }
  EXPECT_EQ(Upright.Position(), 0);
  Chart.Graph->ZoomReset();
  Chart.Paint();
  EXPECT_FALSE(Across.Visible() || Upright.Visible());
}

TEST(Zoom, ScrollingKeepsRoundedEndsOnTicks) {
  TZoomChart Chart;
  Chart.X->SetEndRounding(TZyAxisEndRounding::RndToMajor);
  Chart.Graph->Zoom().SetScrollLargeIncrement(TZyScrollIncrement::MajorTick);
  Chart.Graph->ZoomTo({152, 100}, {347, 200});
  Chart.Paint();
  const double Step = Chart.X->MajorIncrement(), Start = Chart.X->Start(), Size = Chart.X->Stop() - Start;
  int Pos = 0;
  Chart.Graph->Scroll(Chart.Graph->HorizontalScrollBar(), scPageDown, Pos);
  Chart.Paint();
  EXPECT_NEAR(Chart.X->Start(), Start + Step, 1e-9);
  EXPECT_NEAR(Chart.X->Stop(), Start + Step + Size, 1e-9);
}

TEST(Zoom, CoupledGraphsStayInStep) {
  TZoomChart Chart;
  auto* const Other = new TZyGraph2D(&Chart.Form);
  auto* const OtherY = new TZyAxis(&Chart.Form);
  Other->SetParent(&Chart.Form);
  OtherY->SetPosition(TZyAxisPosition::Left);
  OtherY->SetParent(Other);
  Other->SetPrimaryXAxis(Chart.X);
  Other->SetPrimaryYAxis(OtherY);
  TSampleChart::Paint(*Other);
  Chart.Graph->Modified();
  Chart.Paint();
  ASSERT_EQ(Chart.Graph->ChildGraphs().size(), 1U);
  Chart.DragMouse({150, 100}, {350, 200});
  EXPECT_EQ(Other->GetCurrentZoomStage(), 1);
  EXPECT_EQ(Other->GetZoomBufferSize(), 2);
  Other->ZoomBack();  // takes the shared axis and the master along
  EXPECT_EQ(Chart.State(), "0..100 0..10 0/2 zZ");
  Chart.Graph->RedoZoom();
  EXPECT_EQ(Other->GetCurrentZoomStage(), 1);
  Other->ZoomReset();
  Chart.Paint();
  EXPECT_EQ(Chart.State(), "0..100 0..10 0/0 zZ");
  EXPECT_EQ(Other->GetZoomBufferSize(), 0);
}

TEST(Zoom, TheWheelZoomsAroundThePlaceUnderTheMouse) {
  TZoomChart Chart;
  EXPECT_FALSE(Chart.Wheel({250, 175}, 120, Qt::NoModifier)) << "is the host's";
  EXPECT_TRUE(Chart.Wheel({250, 175}, 120));
  EXPECT_EQ(Chart.State(), "13.333..80 1.667..8.333 1/2 zZ");  // around 40 and 5, to two thirds
  EXPECT_TRUE(Chart.Wheel({250, 320}, 60) && Chart.Wheel({250, 320}, 60));
  EXPECT_EQ(Chart.State(), "22.222..66.667 1.667..8.333 2/3 zZzZ") << "below the data area, two half notches";
  Chart.Events.clear();
  Chart.Wheel({250, 175}, -120);
  EXPECT_EQ(Chart.State(), "13.333..80 0..10 3/4 zZ") << "no further than the whole range";
  Chart.Wheel({250, 175}, -120);
  EXPECT_EQ(Chart.State(), "0..100 0..10 0/4 zZzZ") << "the whole range is stage 0";
  Chart.Graph->RedoZoom();
  EXPECT_EQ(Chart.State(), "13.333..80 1.667..8.333 1/4 zZzZ");
}

/// Rounded ends must not hold the wheel up, and it stops where the reals do.
TEST(Zoom, TheWheelNarrowsEachScaleOnAndOn) {
  for (const TZyAxisScaling Scaling :
       {TZyAxisScaling::Normal, TZyAxisScaling::Log, TZyAxisScaling::Seconds, TZyAxisScaling::DateTime}) {
    TZoomChart Chart;
    Chart.X->SetScaling(Scaling);
    Chart.X->SetEndRounding(TZyAxisEndRounding::RndToMajorZoomToMinor);
    Chart.Y->SetEndRounding(TZyAxisEndRounding::RndToMajor);
    Chart.Data(Chart.Series->XData()).SetInternalArray({1, 2000, 40000, 45000});
    Chart.Paint();
    double Size = Chart.X->ToScale(Chart.X->Stop()) - Chart.X->ToScale(Chart.X->Start());
    for (int Turn = 0; Turn < 12; ++Turn) {
      Chart.Wheel({450, 120}, 120);
      const double Next = Chart.X->ToScale(Chart.X->Stop()) - Chart.X->ToScale(Chart.X->Start());
      // Ends within a decade are tenths of it.
      EXPECT_TRUE(Next < Size || (Scaling == TZyAxisScaling::Log && Size < 0.5))
          << static_cast<int>(Scaling) << " " << Turn;
      Size = Next;
    }
    for (int Turn = 0; Turn < 200; ++Turn) Chart.Wheel({450, 120}, 120);
    EXPECT_GT(Chart.X->Stop(), Chart.X->Start());
    EXPECT_GT(Chart.Y->Stop(), Chart.Y->Start());
    Chart.Graph->ZoomReset();
    Chart.Paint();
    EXPECT_LE(Chart.X->Start(), 1);
    EXPECT_GE(Chart.X->Stop(), 45000);
  }
}

TEST(Zoom, TheTouchPadPinchesPansAndTaps) {
  TZoomChart Chart;
  const QPointingDevice* const Pad = QPointingDevice::primaryPointingDevice();
  const QPointF At(250, 175);
  const auto Native = [&](Qt::NativeGestureType Type, double Value = 0) {
    QNativeGestureEvent Event(Type, Pad, 2, At, At, Chart.Graph->Widget()->mapToGlobal(At), Value, {});
    QCoreApplication::sendEvent(Chart.Graph->Widget(), &Event);
    Chart.Paint();
  };
  const auto Fingers = [&](QPoint Way, Qt::ScrollPhase Phase) {
    QWheelEvent Event(At, Chart.Graph->Widget()->mapToGlobal(At), Way, Way * 8, Qt::NoButton, Qt::NoModifier, Phase,
                      false);
    QCoreApplication::sendEvent(Chart.Graph->Widget(), &Event);
    Chart.Paint();
    return Event.isAccepted();
  };
  EXPECT_FALSE(Fingers({10, 0}, Qt::ScrollUpdate)) << "the host's, while all is shown";
  Chart.X->SetEndRounding(TZyAxisEndRounding::RndToMajor);
  Native(Qt::BeginNativeGesture);
  Native(Qt::ZoomNativeGesture, 0.25);
  Native(Qt::ZoomNativeGesture, 0.2);
  EXPECT_EQ(Chart.State(), "13.333..80 1.667..8.333 0/1 z") << "not rounded yet";
  Chart.X->SetEndRounding(TZyAxisEndRounding::RndNothing);
  Native(Qt::EndNativeGesture);
  EXPECT_EQ(Chart.State(), "13.333..80 1.667..8.333 1/2 zZ");
  EXPECT_TRUE(Fingers({50, 0}, Qt::ScrollUpdate));
  EXPECT_TRUE(Fingers({25, 0}, Qt::ScrollUpdate));
  EXPECT_TRUE(Fingers({}, Qt::ScrollEnd));
  EXPECT_EQ(Chart.State(), "3.333..70 1.667..8.333 2/3 zZpP");
  Native(Qt::SmartZoomNativeGesture);
  EXPECT_EQ(Chart.State(), "0..100 0..10 0/0 zZpP");
}

TEST(Zoom, Keys) {
  TZoomChart Chart;
  EXPECT_FALSE(Chart.Key(Qt::Key_Left)) << "there is nothing to pan";
  EXPECT_TRUE(Chart.Key(Qt::Key_Plus));
  EXPECT_EQ(Chart.State(), "16.667..83.333 1.667..8.333 1/2 zZ");
  Chart.Graph->Zoom().SetScrollSmallIncrement(TZyScrollIncrement::MajorTick);
  const double Step = Chart.X->MajorIncrement(), Start = Chart.X->Start();
  EXPECT_TRUE(Chart.Key(Qt::Key_Left));
  EXPECT_NEAR(Chart.X->Start(), Start - Step, 1e-9);
  EXPECT_TRUE(Chart.Key(Qt::Key_Up));
  EXPECT_GT(Chart.Y->Start(), 1.667);
  EXPECT_TRUE(Chart.Key(Qt::Key_Home));
  EXPECT_EQ(Chart.State(), "0..100 0..10 0/0 zZ");
  Press(*Chart.Graph, 150, 100);
  Drag(*Chart.Graph, 350, 200);
  EXPECT_TRUE(Chart.Key(Qt::Key_Escape));
  Release(*Chart.Graph, 350, 200);
  EXPECT_EQ(Chart.State(), "0..100 0..10 0/0 zZz");
  Chart.Graph->Zoom().SetKeyboardZoom(false);
  EXPECT_FALSE(Chart.Key(Qt::Key_Plus));
}

TEST(Zoom, TheFrameIsDrawnAndRemoved) {
  TZoomChart Chart;
  const auto Shown = [&] {
    Bitmap Picture(600, 400);
    Graphics Gr(Picture);
    Chart.Graph->PaintTo(Gr);
    return Picture;
  };
  const Bitmap Before = Shown();
  const ARGB Ground = Before.GetPixel(150, 130);
  Press(*Chart.Graph, 150, 100);
  Drag(*Chart.Graph, 350, 200);
  EXPECT_NE(Shown().GetPixel(150, 130), Ground);
  Drag(*Chart.Graph, 340, 190);
  EXPECT_EQ(Shown().GetPixel(345, 200), Ground) << "the old frame";
  Release(*Chart.Graph, 152, 102);
  Drag(*Chart.Graph, 152, 102);
  EXPECT_EQ(Shown().GetPixel(150, 130), Ground);
}

TEST(Zoom, SettingsAreCheckedAndUndone) {
  TZoomChart Chart;
  TZyUndoStack Stack;
  Chart.Graph->SetUndoStack(&Stack);
  TZyZoomSettings& Zoom = Chart.Graph->Zoom();
  EXPECT_THROW(Zoom.SetZoomShift(Zoom.StartPanning()), EExternal);
  EXPECT_THROW(Zoom.SetPanningShift(Zoom.StartZoom()), EExternal);
  Zoom.SetZoomShift({ssRight});
  EXPECT_EQ(Stack.UndoList().Get(0), "Graph zoom start keys");
  Stack.Undo();
  EXPECT_EQ(Zoom.StartZoom(), TShiftState{ssLeft});
  Zoom.SetHScrollbarVisible(true);
  Chart.X->SetStopEnd(TZyAxisEnd::MovingSlit);  // a range that moves by itself
  EXPECT_FALSE(Zoom.Auto() || Zoom.HScrollbarVisible());
  Stack.Undo();
  EXPECT_TRUE(Zoom.Auto() && Zoom.HScrollbarVisible());
}

}  // namespace
}  // namespace zy
