#include <gtest/gtest.h>

#include <QKeyEvent>
#include <QPointingDevice>
#include <QWheelEvent>
#include <cmath>
#include <functional>
#include <tuple>

#include "controls/ControlSamples.h"
#include "graph/SampleChart.h"
#include "texts/Exceptions.h"
#include "undo/ZyUndoStack.h"

namespace zy {
namespace {

using testing::TSampleChart;

/// A chart whose data area is 500 by 250 pixels from (50, 50), with X from 0 to 100 and Y from 0 to 10: 5 and 25 pixels
/// for 1. Its scroll bars stay away unless a test wants them, and ends are not rounded. What acts on it gives back its
/// state.
class TZoomChart : public TSampleChart {
 public:
  TZoomChart() {
    UsePlainAxes();
    for (TZyAxis* Axis : {X, Y}) Axis->SetEndRounding(TZyAxisEndRounding::RndNothing);
    ShowBars(false);
    Graph->SetOnBeginZoom([this](TObject*) { Events += "z"; });
    Graph->SetOnEndZoom([this](TObject*) { Events += "Z"; });
    Graph->SetOnBeginPanning([this](TObject*) { Events += "p"; });
    Graph->SetOnEndPanning([this](TObject*) { Events += "P"; });
    Paint();
  }
  void ShowBars(bool Value) {
    Zoom.SetHScrollbarVisible(Value);
    Zoom.SetVScrollbarVisible(Value);
  }
  static std::string Text(double Value) { return FloatToStr(std::round(Value * 1000) / 1000); }
  /// "X-start..stop Y-start..stop stage/size events" after a paint.
  std::string State() {
    Paint();
    return Text(X->Start()) + ".." + Text(X->Stop()) + " " + Text(Y->Start()) + ".." + Text(Y->Stop()) + " " +
           IntToStr(Graph->GetCurrentZoomStage()) + "/" + IntToStr(Graph->GetZoomBufferSize()) + " " + Events;
  }
  std::string After(const std::function<void()>& Act) {
    Act();
    return State();
  }
  std::string ZoomTo(TPoint From, TPoint To) {
    return After([&] { Graph->ZoomTo(From, To); });
  }
  std::string ZoomIn() { return ZoomTo({150, 100}, {350, 200}); }
  std::string Back() {
    return After([&] { Graph->ZoomBack(); });
  }
  std::string Redo() {
    return After([&] { Graph->RedoZoom(); });
  }
  /// A drag with the left button and keys.
  std::string DragMouse(TPoint From, TPoint To, Qt::KeyboardModifiers Keys = Qt::NoModifier) {
    SendMouse(*Graph, QEvent::MouseButtonPress, From.X, From.Y, Qt::LeftButton, Qt::LeftButton, Keys);
    if (From.X != To.X || From.Y != To.Y)
      SendMouse(*Graph, QEvent::MouseMove, To.X, To.Y, Qt::NoButton, Qt::LeftButton, Keys);
    SendMouse(*Graph, QEvent::MouseButtonRelease, To.X, To.Y, Qt::LeftButton, Qt::NoButton, Keys);
    return State();
  }
  /// The state after an event, or that the graph leaves it to its host.
  std::string Send(QEvent&& Event) {
    QCoreApplication::sendEvent(Graph->Widget(), &Event);
    return Event.isAccepted() ? State() : "the host's";
  }
  std::string Wheel(TPoint At, int Delta, Qt::KeyboardModifiers Keys = Qt::ControlModifier) {
    const QPointF Place(At.X, At.Y);
    return Send(QWheelEvent(Place, Graph->Widget()->mapToGlobal(Place), {}, {0, Delta}, Qt::NoButton, Keys,
                            Qt::NoScrollPhase, false));
  }
  std::string Key(int Code) { return Send(QKeyEvent(QEvent::KeyPress, Code, Qt::NoModifier)); }
  void SetXValues(std::vector<double> Values) {
    dynamic_cast<TZyDoubleVector&>(*Series->XData()).SetInternalArray(std::move(Values));
    Paint();
  }

  TZyLineSeries* Series = AddSeries("S", {0, 30, 35, 100}, {0, 6, 7, 10});
  TZyZoomSettings& Zoom = Graph->Zoom();
  std::string Events;
};

const std::string Zoomed = "20..60 4..8 1/2 ", Whole = "0..100 0..10 ";

TEST(Zoom, FrameGestures) {
  const auto Plain = [](TZyZoomSettings&) {};
  const auto Optimizes = [](TZyZoomSettings& Zoom) { Zoom.SetOptimizeSeries(true); };
  const std::tuple<const char*, TPoint, TPoint, void (*)(TZyZoomSettings&), std::string> Rows[] = {
      {"zooms", {150, 100}, {350, 200}, Plain, Zoomed + "zZ"},
      {"outside the data area", {10, 5}, {350, 40}, Plain, Whole + "0/0 z"},
      {"cut to the data area", {10, 5}, {350, 200}, Plain, "0..60 4..10 1/2 zZ"},
      {"to the points inside", {150, 100}, {350, 200}, Optimizes, "30..35 6..7 1/2 zZ"},
      {"to no points", {60, 60}, {90, 90}, Optimizes, Whole + "0/0 zZ"},
  };
  for (const auto& [What, From, To, Set, Expected] : Rows) {
    TZoomChart Chart;
    Set(Chart.Zoom);
    EXPECT_EQ(Chart.DragMouse(From, To), Expected) << What;
  }
}

TEST(Zoom, StagesOfAStackAndOfARing) {
  TZoomChart Chart;
  Chart.ZoomIn();
  EXPECT_EQ(Chart.ZoomTo({50, 50}, {300, 175}), "20..40 6..8 2/3 ");
  EXPECT_FALSE(Chart.Zoom.CanRedoZoom());
  Chart.Back();
  EXPECT_EQ(Chart.Back(), Whole + "0/3 ");
  EXPECT_FALSE(Chart.Zoom.CanZoomBack());
  EXPECT_EQ(Chart.Back(), Whole + "0/3 ");
  EXPECT_EQ(Chart.Redo(), "20..60 4..8 1/3 ");
  EXPECT_EQ(Chart.ZoomTo({50, 50}, {175, 175}), "20..30 6..8 2/3 ") << "the old last stage is gone";
  Chart.Zoom.ZoomToStage(3);
  EXPECT_EQ(Chart.Zoom.CurrentStage(), 2);
  Chart.Zoom.SetBufferType(TZyZoomBufferType::AsCircularBuffer);
  EXPECT_EQ(Chart.Redo(), Whole + "0/3 ");
  EXPECT_EQ(Chart.Back(), "20..30 6..8 2/3 ");
}

TEST(Zoom, NewDataEndTheZoom) {
  TZoomChart Chart;
  Chart.Y->SetStop(12);
  Chart.Y->SetStopEnd(TZyAxisEnd::Fixed);
  Chart.Paint();
  Chart.ZoomIn();
  Chart.Series->XData()->Add(200);
  Chart.Series->YData()->Add(15);
  EXPECT_EQ(Chart.State(), "0..200 0..12 0/0 ");
}

TEST(Zoom, PansByTheMouse) {
  const std::tuple<const char*, TPoint, bool, const char*> Rows[] = {
      // 12.5 pixels for 1 in X, 62.5 in Y
      {"both ways", {325, 275}, false, "10..50 6..10 2/3 pP"},
      {"one way only", {325, 150}, false, "20..60 4..8 2/3 pP"},
      {"an axis at its end stays", {325, 287}, false, "10..50 4..8 2/3 pP"},
      {"the signs of a twisted primary axis cancel", {325, 275}, true, "10..50 6..10 2/3 pP"}};
  for (const auto& [What, To, Twisted, Expected] : Rows) {
    TZoomChart Chart;
    Chart.X->SetTwisted(Twisted);
    Chart.Paint();
    EXPECT_EQ(Chart.DragMouse({200, 150}, To, Qt::ShiftModifier), Whole + "0/0 ") << "not zoomed";
    Chart.ZoomTo({Twisted ? 450 : 150, 100}, {Twisted ? 250 : 350, 200});
    const TCursor Before = Chart.Graph->Cursor();
    EXPECT_EQ(Chart.DragMouse({200, 150}, To, Qt::ShiftModifier), Expected) << What;
    EXPECT_EQ(Chart.Graph->Cursor(), Before);
  }
}

TEST(Zoom, ALogarithmicAxisKeepsTheRatioOfItsEndsWhenPanned) {
  TZoomChart Chart;
  Chart.X->SetScaling(TZyAxisScaling::Log);
  Chart.SetXValues({1, 10, 100, 10000});
  Chart.ZoomTo({175, 100}, {425, 200});  // 125 pixels for a decade
  EXPECT_NEAR(Chart.X->Start(), 10, 1e-4);
  EXPECT_NEAR(Chart.X->Stop(), 1000, 1e-2);
  Chart.DragMouse({200, 150}, {325, 151}, Qt::ShiftModifier);  // half a decade
  EXPECT_NEAR(Chart.X->Start(), std::sqrt(10), 1e-4);
  EXPECT_NEAR(Chart.X->Stop() / Chart.X->Start(), 100, 1e-4);
}

TEST(Zoom, ScrollBars) {
  TZoomChart Chart;
  Chart.ShowBars(true);
  Chart.Graph->Modified();
  Chart.Paint();
  TScrollBar &Across = *Chart.Graph->HorizontalScrollBar(), &Upright = *Chart.Graph->VerticalScrollbar();
  EXPECT_FALSE(Across.Visible() || Upright.Visible());
  Chart.ZoomIn();
  ASSERT_TRUE(Across.Visible() && Upright.Visible());
  EXPECT_EQ(Across.BoundsRect(), (TRect{67, 383, 67 + 484, 400}));  // 17 pixels thick, as long as the data area
  EXPECT_EQ(Upright.BoundsRect(), (TRect{0, 50, 17, 50 + 234}));
  for (const TScrollBar* Bar : {&Across, &Upright})
    EXPECT_EQ(std::pair(Bar->PageSize(), Bar->Position()), std::pair(4000, 2000));

  const double Pixel = Chart.X->NormalizeConst();
  Chart.Zoom.SetScrollSmallIncrement(TZyScrollIncrement::Pixel);
  // A page that ends at the end of the data comes from the first line: whole numbers again.
  const std::tuple<TScrollBar&, TScrollCode, int, std::string> Rows[] = {
      {Across, scLineDown, 0, Chart.Text(20 + Pixel) + ".." + Chart.Text(60 + Pixel) + " 4..8 1/2 "},
      {Across, scPageDown, 0, "60..100 4..8 2/3 "},
      {Across, scEndScroll, 0, "60..100 4..8 3/4 "},
      {Across, scTrack, 1000, "10..50 4..8 3/4 "},
      {Across, scPosition, 1000, "10..50 4..8 4/5 "},
      {Upright, scTrack, 6000, "10..50 0..4 4/5 "},
      {Upright, scPageUp, 0, "10..50 4..8 5/6 "},
      {Upright, scPageUp, 0, "10..50 6..10 6/7 "}};
  for (auto [Bar, Code, Pos, Expected] : Rows) {
    Chart.Graph->Scroll(&Bar, Code, Pos);
    EXPECT_EQ(Chart.Graph->Panning(), Code == scTrack);
    EXPECT_EQ(Chart.State(), Expected) << EnumInfo(Code).Values[Code];
  }
  EXPECT_EQ(Upright.Position(), 0);
  ShowNow(Chart.Form);
  const std::string Paged = Chart.After([&Across] {
    Press(Across, 460, 8);  // the track behind the thumb
    Release(Across, 460, 8);
  });
  EXPECT_EQ(Paged, "50..90 6..10 8/9 ");
  Chart.Graph->ZoomReset();
  Chart.Paint();
  EXPECT_FALSE(Across.Visible() || Upright.Visible());
}

TEST(Zoom, ScrollingKeepsRoundedEndsOnTicks) {
  TZoomChart Chart;
  Chart.X->SetEndRounding(TZyAxisEndRounding::RndToMajor);
  Chart.Zoom.SetScrollLargeIncrement(TZyScrollIncrement::MajorTick);
  Chart.ZoomTo({152, 100}, {347, 200});
  const double Step = Chart.X->MajorIncrement(), Start = Chart.X->Start(), Stop = Chart.X->Stop();
  int Pos = 0;
  Chart.After([&] { Chart.Graph->Scroll(Chart.Graph->HorizontalScrollBar(), scPageDown, Pos); });
  EXPECT_NEAR(Chart.X->Start(), Start + Step, 1e-9);
  EXPECT_NEAR(Chart.X->Stop(), Stop + Step, 1e-9);
  Chart.Zoom.SetScrollSmallIncrement(TZyScrollIncrement::Pixel);
  const double Pixel = Chart.X->NormalizeConst();
  for (const int Moved : {1, 2, 1, 0, -1})  // off the ticks, and the range keeps its width
  {
    const double Shift = Step + Moved * Pixel;
    const bool Up = Chart.X->Start() < Start + Shift;
    Chart.After([&] { Chart.Graph->Scroll(Chart.Graph->HorizontalScrollBar(), Up ? scLineDown : scLineUp, Pos); });
    EXPECT_NEAR(Chart.X->Start(), Start + Shift, 1e-9);
    EXPECT_NEAR(Chart.X->Stop(), Stop + Shift, 1e-9);
  }
  Chart.Zoom.SetScrollLargeIncrement(TZyScrollIncrement::Page);
  Chart.SetXValues({1, 30, 35, 99});  // rounded ends lie beyond the data
  Chart.ZoomTo({152, 100}, {347, 200});
  const double Width = Chart.X->Stop() - Chart.X->Start();
  for (int Page = 0; Page < 4; ++Page)
    Chart.After([&] { Chart.Graph->Scroll(Chart.Graph->HorizontalScrollBar(), scPageDown, Pos); });
  EXPECT_NEAR(Chart.X->Stop() - Chart.X->Start(), Width, 1e-9) << "to the end";
}

TEST(Zoom, CoupledGraphsStayInStep) {
  TZoomChart Chart;
  TZyGraph2D* const Other = &Chart.AddCoupled();
  Other->TestPrimaryAxis();
  TSampleChart::Paint(*Other);
  Chart.Graph->Modified();
  Chart.Paint();
  Chart.DragMouse({150, 100}, {350, 200});
  EXPECT_EQ(std::pair(Other->GetCurrentZoomStage(), Other->GetZoomBufferSize()), std::pair(1, 2));
  EXPECT_EQ(Chart.After([&] { Other->ZoomBack(); }), Whole + "0/2 zZ") << "with the shared axis and the master";
  Chart.Redo();
  EXPECT_EQ(Other->GetCurrentZoomStage(), 1);
  EXPECT_EQ(Chart.After([&] { Other->ZoomReset(); }), Whole + "0/0 zZ");
  EXPECT_EQ(Other->GetZoomBufferSize(), 0);
  Chart.ZoomIn();
  TZyGraph2D* const Late = &Chart.AddCoupled();  // one that comes while they are zoomed has their stages, too
  Late->TestPrimaryAxis();
  TSampleChart::Paint(*Late);
  EXPECT_EQ(std::pair(Late->GetCurrentZoomStage(), Late->GetZoomBufferSize()), std::pair(1, 2));
  EXPECT_EQ(Chart.After([&] { Late->ZoomBack(); }), Whole + "0/2 zZ");
  Late->SetPrimaryXAxis(Late->PrimaryYAxis());
  EXPECT_EQ(Chart.Graph->ImgageGraphHeight(), 400 + Other->Height()) << "one that leaves is not in the picture";
}

// Whatever happened to the data, stage 0 is the range that they have when the zoom begins.
TEST(Zoom, StagesBeginOnWhatIsToBeSeen) {
  for (const bool IsNew : {false, true})
    for (const char* Way : {"frame", "wheel", "scroll bar"}) {
      TZoomChart Chart;
      if (IsNew) {
        Chart.Series->XData()->Add(200);
        Chart.Series->YData()->Add(20);
      } else {
        Chart.ZoomIn();
        Chart.Graph->ZoomReset();
      }
      int Pos = 0;
      if (*Way == 'f') Chart.Graph->ZoomTo({150, 100}, {350, 200});
      if (*Way == 'w') Chart.Graph->ZoomAround({250, 175}, 0.5);
      if (*Way == 's') Chart.Graph->Scroll(Chart.Graph->HorizontalScrollBar(), scPageDown, Pos);
      EXPECT_EQ(Chart.After([&] { Chart.Zoom.ZoomToStage(0); }), IsNew ? "0..200 0..20 0/2 " : Whole + "0/2 ") << Way;
    }
}

TEST(Zoom, HandlersMayFreeTheGraph) {
  for (void (TZyZoomSettings::*const SetHandler)(TNotifyEvent) :
       {&TZyZoomSettings::SetOnBeginZoom, &TZyZoomSettings::SetOnEndZoom, &TZyZoomSettings::SetOnBeginPanning,
        &TZyZoomSettings::SetOnEndPanning}) {
    TZoomChart Chart;
    Chart.ZoomIn();
    (Chart.Zoom.*SetHandler)([](TObject* Sender) { delete Sender; });
    const auto Send = [&](QEvent::Type Type, int Place, Qt::MouseButton Held, Qt::KeyboardModifiers Keys) {
      if (Chart.Form.FindComponent("Graph") != nullptr)
        SendMouse(*Chart.Graph, Type, Place, Place - 80, Qt::LeftButton, Held, Keys);
    };
    for (const Qt::KeyboardModifiers Keys : {Qt::NoModifier, Qt::ShiftModifier}) {
      Send(QEvent::MouseButtonPress, 200, Qt::LeftButton, Keys);
      Send(QEvent::MouseMove, 300, Qt::LeftButton, Keys);
      Send(QEvent::MouseButtonRelease, 300, Qt::NoButton, Keys);
    }
    EXPECT_EQ(Chart.Form.FindComponent("Graph"), nullptr);
  }
}

TEST(Zoom, TheWheelZoomsAroundThePlaceUnderTheMouse) {
  TZoomChart Chart;
  EXPECT_EQ(Chart.Wheel({250, 175}, 120, Qt::NoModifier), "the host's");
  EXPECT_EQ(Chart.Wheel({250, 175}, -120), Whole + "0/0 zZ") << "there is nothing beyond";
  Chart.Events.clear();
  EXPECT_EQ(Chart.Wheel({250, 175}, 120), "13.333..80 1.667..8.333 1/2 zZ") << "around 40 and 5, to two thirds";
  Chart.Wheel({250, 320}, 60);
  EXPECT_EQ(Chart.Wheel({250, 320}, 60), "22.222..66.667 1.667..8.333 2/3 zZzZ") << "below the data area, half notches";
  EXPECT_EQ(Chart.Wheel({250, 175}, -120), "13.333..80 0..10 3/4 zZzZzZ") << "no further than the whole range";
  EXPECT_EQ(Chart.Wheel({250, 175}, -120), Whole + "0/4 zZzZzZzZ") << "the whole range is stage 0";
  EXPECT_EQ(Chart.Redo(), "13.333..80 1.667..8.333 1/4 zZzZzZzZ");
}

// Rounded ends must not hold the wheel up, and it stops where the reals do.
TEST(Zoom, TheWheelNarrowsEachScaleOnAndOn) {
  using enum TZyAxisScaling;
  for (const TZyAxisScaling Scaling : {Normal, Log, Seconds, DateTime}) {
    TZoomChart Chart;
    Chart.X->SetScaling(Scaling);
    Chart.X->SetEndRounding(TZyAxisEndRounding::RndToMajorZoomToMinor);
    Chart.Y->SetEndRounding(TZyAxisEndRounding::RndToMajor);
    Chart.SetXValues({1, 2000, 40000, 45000});
    const auto SizeOf = [&] { return Chart.X->ToScale(Chart.X->Stop()) - Chart.X->ToScale(Chart.X->Start()); };
    for (int Turn = 0; Turn < 200; ++Turn) {
      const double Size = SizeOf();
      Chart.Wheel({450, 120}, 120);
      // Ends within a decade are tenths of it.
      EXPECT_TRUE(Turn >= 12 || SizeOf() < Size || (Scaling == Log && Size < 0.5))
          << static_cast<int>(Scaling) << " " << Turn;
    }
    EXPECT_GT(Chart.X->Stop(), Chart.X->Start());
    EXPECT_GT(Chart.Y->Stop(), Chart.Y->Start());
    Chart.Graph->ZoomReset();
    Chart.Paint();
    EXPECT_TRUE(Chart.X->Start() <= 1 && Chart.X->Stop() >= 45000);
  }
}

TEST(Zoom, TheTouchPadPinchesPansAndTaps) {
  TZoomChart Chart;
  const QPointF At(250, 175), OnScreen = Chart.Graph->Widget()->mapToGlobal(At);
  const auto Native = [&](Qt::NativeGestureType Type, double Value = 0) {
    return Chart.Send(
        QNativeGestureEvent(Type, QPointingDevice::primaryPointingDevice(), 2, At, At, OnScreen, Value, {}));
  };
  const auto Fingers = [&](int Way, Qt::ScrollPhase Phase) {
    return Chart.Send(QWheelEvent(At, OnScreen, {Way, 0}, {Way * 8, 0}, Qt::NoButton, Qt::NoModifier, Phase, false));
  };
  EXPECT_EQ(Fingers(10, Qt::ScrollUpdate), "the host's") << "while all is shown";
  Chart.X->SetEndRounding(TZyAxisEndRounding::RndToMajor);
  Native(Qt::BeginNativeGesture);
  Native(Qt::ZoomNativeGesture, 0.25);
  EXPECT_EQ(Native(Qt::ZoomNativeGesture, 0.2), "13.333..80 1.667..8.333 0/1 z") << "not rounded yet";
  Chart.X->SetEndRounding(TZyAxisEndRounding::RndNothing);
  EXPECT_EQ(Native(Qt::EndNativeGesture), "13.333..80 1.667..8.333 1/2 zZ");
  Fingers(50, Qt::ScrollUpdate);
  Fingers(25, Qt::ScrollUpdate);
  EXPECT_EQ(Fingers(0, Qt::ScrollEnd), "3.333..70 1.667..8.333 2/3 zZpP");
  EXPECT_EQ(Native(Qt::SmartZoomNativeGesture), Whole + "0/0 zZpP");
}

TEST(Zoom, Keys) {
  TZoomChart Chart;
  EXPECT_EQ(Chart.Key(Qt::Key_Left), "the host's") << "there is nothing to pan";
  EXPECT_EQ(Chart.Key(Qt::Key_Plus), "16.667..83.333 1.667..8.333 1/2 zZ");
  Chart.Zoom.SetScrollSmallIncrement(TZyScrollIncrement::MajorTick);
  const double Step = Chart.X->MajorIncrement(), Start = Chart.X->Start();
  Chart.Key(Qt::Key_Left);
  Chart.Key(Qt::Key_Up);
  EXPECT_NEAR(Chart.X->Start(), Start - Step, 1e-9);
  EXPECT_GT(Chart.Y->Start(), 1.667);
}

TEST(Zoom, TheFrameIsDrawnAndRemoved) {
  TZoomChart Chart;
  const auto PixelAt = [&](int X, int Y) {
    return PictureOf(600, 400, [&](Graphics& Gr) { Chart.Graph->PaintTo(Gr); }).GetPixel(X, Y);
  };
  const ARGB Ground = PixelAt(150, 130);
  Press(*Chart.Graph, 150, 100);
  Drag(*Chart.Graph, 350, 200);
  EXPECT_NE(PixelAt(150, 130), Ground);
  Drag(*Chart.Graph, 340, 190);
  EXPECT_EQ(PixelAt(345, 200), Ground) << "the old frame";
  Release(*Chart.Graph, 152, 102);
  Drag(*Chart.Graph, 152, 102);
  EXPECT_EQ(PixelAt(150, 130), Ground);
}

TEST(Zoom, SettingsAreCheckedAndUndone) {
  TZoomChart Chart;
  TZyUndoStack Stack;
  Chart.Graph->SetUndoStack(&Stack);
  EXPECT_THROW(Chart.Zoom.SetZoomShift(Chart.Zoom.StartPanning()), EExternal);
  EXPECT_THROW(Chart.Zoom.SetPanningShift(Chart.Zoom.StartZoom()), EExternal);
  Chart.Zoom.SetZoomShift({ssRight});
  EXPECT_EQ(Stack.UndoList().Get(0), "Graph zoom start keys");
  Stack.Undo();
  EXPECT_EQ(Chart.Zoom.StartZoom(), TShiftState{ssLeft});
  Chart.Zoom.SetHScrollbarVisible(true);
  Chart.X->SetStopEnd(TZyAxisEnd::MovingSlit);  // a range that moves by itself
  EXPECT_FALSE(Chart.Zoom.Auto() || Chart.Zoom.HScrollbarVisible());
  Stack.Undo();
  EXPECT_TRUE(Chart.Zoom.Auto() && Chart.Zoom.HScrollbarVisible());
  Chart.Zoom.SetZoomShift({ssMiddle});
  Chart.Zoom.SetPanningShift({ssLeft});
  Chart.Zoom.SetZoomShift({ssShift, ssLeft});
  TForm Form;
  ReadBack(Chart.Form, Form);
  EXPECT_EQ(dynamic_cast<TZyGraph2D&>(*Form.FindComponent("Graph")).Zoom().StartPanning(), TShiftState{ssLeft});
}

}  // namespace
}  // namespace zy
