#include <QBackingStore>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QProcess>
#include <QScreen>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionSlider>
#include <cmath>

#include "controls/ControlSamples.h"
#include "platform/controls/TLabel.h"
#include "platform/controls/TScrollBar.h"
#include "platform/controls/TTimer.h"
#include "platform/drawing/Pen.h"
#include "texts/Exceptions.h"

namespace zy {
namespace {

// --- Painting -------------------------------------------------------------------------------------------------------

/// Notes the box of each paint, and draws a mark above itself.
class TMarkedPanel : public TPanelPatch {
 public:
  using TPanelPatch::TPanelPatch;
  using TWinControl::InvalidateOverlay;
  std::vector<TRect> Boxes;
  int Mark = -10;

 protected:
  void Paint(Graphics& Canvas) override {
    Boxes.push_back(PaintBox());
    TPanelPatch::Paint(Canvas);
  }
  void PaintOverlay(Graphics& Canvas) override {
    Canvas.FillRectangle(SolidBrush(Red), static_cast<float>(Mark), 10.0f, 5.0f, 5.0f);
  }
};

class PaintTest : public testing::Test {
 protected:
  PaintTest() {
    FForm.SetBounds(0, 0, 400, 300);
    FPanel.SetParent(&FForm);
    FPanel.SetAlign(alClient);
  }
  TForm FForm;
  TMarkedPanel FPanel{&FForm};
};

TEST_F(PaintTest, OnlyWhatIsNeededIsPainted) {
  TGraphicPatch Near(&FForm, Red), Far(&FForm, Green);
  Put(Near, FPanel, 10, 10, 20, 30);
  Put(Far, FPanel, 200, 200, 20, 20);
  ShowNow(FForm);
  FPanel.Boxes.clear();
  Far.Paints = 0;
  Near.Invalidate();
  EXPECT_TRUE(FPanel.Boxes.empty());
  Near.Update();
  FPanel.Update();  // nothing waits any more
  EXPECT_EQ(FPanel.Boxes, (std::vector<TRect>{{10, 10, 30, 40}}));
  Near.SetLeft(15);
  FForm.Update();
  EXPECT_EQ(FPanel.Boxes.back(), (TRect{10, 10, 35, 40})) << "the old box and the new one";
  EXPECT_EQ(Far.Paints, 0);
  ExpectPixels(Shown(FPanel), {{14, 15, White}, {15, 15, Red}});
}

TEST_F(PaintTest, AMarkAboveAControlMovesWithoutAPaint) {
  ShowNow(FForm);
  const auto MoveMark = [&](int To) {
    FPanel.InvalidateOverlay({FPanel.Mark, 10, FPanel.Mark + 5, 15});
    FPanel.Mark = To;
    FPanel.InvalidateOverlay({To, 10, To + 5, 15});
  };
  MoveMark(50);
  HandleEvents();
  FPanel.Boxes.clear();
  MoveMark(100);
  HandleEvents();
  EXPECT_TRUE(FPanel.Boxes.empty());
  ExpectPixels(Shown(FPanel), {{102, 12, Red}, {52, 12, White}});
  FPanel.Boxes.clear();
  MoveMark(20);
  FPanel.Invalidate();  // the control itself too
  HandleEvents();
  EXPECT_FALSE(FPanel.Boxes.empty());
}

TEST(PictureTest, HoldsTheInnerWindowsToo) {
  TPanelPatch Outer(nullptr), Inner(nullptr, Blue), Hidden(nullptr, Red);
  TGraphicPatch Patch(nullptr, Green);
  Outer.SetBounds(0, 0, 60, 60);
  Hidden.SetVisible(false);
  Put(Inner, Outer, 20, 30, 20, 20);
  Put(Hidden, Outer, 0, 0, 5, 5);
  Put(Patch, Inner, 10, 10, 50, 50);
  ExpectPixels(Painted(Outer),
               {{0, 0, White}, {20, 30, Blue}, {30, 40, Green}, {39, 49, Green}, {40, 45, White}, {35, 50, White}});
}

/// A panel that shows what lies behind it, and draws a line at its top.
class TGlass : public TCustomPanel {
 public:
  explicit TGlass(TComponent* Owner) : TCustomPanel(Owner) { SetControlStyle({csParentBackground}); }

 protected:
  void Paint(Graphics& Canvas) override {
    Canvas.FillRectangle(SolidBrush(Blue), 0, 0, static_cast<float>(Width()), 1);
  }
};

TEST(PictureTest, WhatLiesBehindIsDrawnFromTheOutermostOn) {
  TPanelPatch Outer(nullptr);
  Outer.SetBounds(7, 7, 100, 100);
  TGraphicPatch Below(&Outer, Red), Above(&Outer, Green);
  TGlass Middle(&Outer), Inner(&Outer);
  Put(Below, Outer, 0, 0, 30, 100);
  Put(Middle, Outer, 20, 20, 60, 60);
  Put(Inner, Middle, 5, -3, 40, 20);
  Put(Above, Outer, 60, 0, 10, 100);
  ExpectPixels(Painted(Inner), {{2, 0, Blue, "its own picture"},
                                {4, 3, Blue, "that of the parent"},
                                {4, 5, Red, "the outermost parent's control, at 29, 22"},
                                {5, 5, White},
                                {35, 5, Green, "windows lie above it as well"},
                                {4, 2, Red, "beside its parent"}});
  Bitmap Ground(10, 100);
  Graphics GroundCanvas(Ground);
  Below.DrawParentBackground(GroundCanvas);
  EXPECT_EQ(Ground.GetPixel(5, 50), White) << "without the control itself";
}

/// Runs in a process of its own whose screen has two pixels for each logical one; see below.
TEST(HiDpiTest, DISABLED_LineOnDenseScreen) {
  TForm Form;
  TPanelPatch Line(&Form);
  Line.OnPaint = [](Graphics& Canvas) { Canvas.DrawLine(Pen(0xFF000000, 1), 0, 5, 90, 5); };
  Put(Line, Form, 3, 3, 80, 20);
  ShowNow(Form);
  const QImage Picture = Shown(Line);
  ASSERT_EQ(Picture.size(), QSize(160, 40));
  for (int Y = 0; Y < 40; ++Y) ASSERT_EQ(Picture.pixel(50, Y), Y == 10 || Y == 11 ? 0xFF000000 : White) << Y;
}

/// Runs in a process of its own whose screen has a fractional number of pixels for each logical one; see below.
/// Slanted smooth lines, at an odd place of the form, below a child that draws the same.
TEST(HiDpiTest, DISABLED_PartsOnFractionalScreen) {
  TForm Form;
  TPanelPatch Ground(&Form), Inner(&Form);
  TGraphicPatch Mark(&Form, Red);
  Form.SetBounds(0, 0, 230, 210);
  Put(Ground, Form, 7, 9, 201, 183);
  Put(Inner, Ground, 101, 51, 61, 67);
  Put(Mark, Ground, 3, 3, 9, 9);
  Ground.OnPaint = Inner.OnPaint = [](Graphics& Canvas) {
    for (int X = -200; X < 200; X += 7)
      Canvas.DrawLine(Pen(0xFF000000, 1.3F), static_cast<float>(X), 0, static_cast<float>(X + 190), 171);
  };
  ShowNow(Form);
  const qreal Ratio = Form.Widget()->devicePixelRatioF();
  ASSERT_NE(Ratio, std::floor(Ratio));
  const QSize Pixels = (QSizeF(230, 210) * Ratio).toSize();
  const auto Screenshot = [&] {
    HandleEvents();
    return static_cast<QImage*>(Form.Widget()->backingStore()->paintDevice())->copy();  // what the window shows
  };
  for (const bool Buffered : {true, false}) {
    Ground.SetDoubleBuffered(Buffered);
    Inner.SetDoubleBuffered(Buffered);
    Ground.Widget()->repaint();
    for (int Step = 0; Step < 40; ++Step) {
      // Parts exposed as by a window that moved away, then a control that moves by odd steps.
      Ground.Widget()->repaint(QRect(Step * 5 % 160, Step * 7 % 150, 1 + Step % 23, 1 + Step % 19));
      Mark.SetBounds(3 + Step * 11 % 170, 3 + Step * 13 % 150, 9 + Step % 4, 9 + Step % 3);
      const QImage ByParts = Screenshot();
      Form.Widget()->repaint();
      ASSERT_EQ(ByParts.size(), Pixels);
      ASSERT_NE(ByParts.pixel(Pixels.width() - 2, Pixels.height() - 2), 0U) << "the form's ground, far right";
      ASSERT_TRUE(ByParts == Screenshot()) << "step " << Step << (Buffered ? ", buffered" : "");
    }
  }
}

void RunAtScale(const char* Factor, const char* Name) {
  QProcess Child;
  QProcessEnvironment Environment = QProcessEnvironment::systemEnvironment();
  Environment.insert("QT_SCALE_FACTOR", Factor);
  Environment.insert("QT_QPA_PLATFORM", "offscreen");
  Child.setProcessEnvironment(Environment);
  Child.setProcessChannelMode(QProcess::MergedChannels);
  Child.start(QCoreApplication::applicationFilePath(),
              {"--gtest_also_run_disabled_tests", QString("--gtest_filter=HiDpiTest.DISABLED_") + Name});
  ASSERT_TRUE(Child.waitForFinished(60000));
  const std::string Output = Child.readAll().toStdString();
  EXPECT_EQ(Child.exitCode(), 0) << Output;
  EXPECT_NE(Output.find("1 test from"), std::string::npos) << Output;
}

TEST(HiDpiTest, LinesAreSharpAndPartsFitIntoTheWhole) {
  RunAtScale("2", "LineOnDenseScreen");
  for (const char* Factor : {"1.25", "1.5", "1.1", "2.75"}) RunAtScale(Factor, "PartsOnFractionalScreen");
}

// --- Scroll bars ----------------------------------------------------------------------------------------------------

class ScrollBarTest : public testing::Test {
 protected:
  ScrollBarTest() {
    FForm.SetBounds(0, 0, 400, 300);
    Put(FBar, FForm, 0, 100, 300, 17);
    FBar.SetMax(1000);
    FBar.SetPageSize(200);
    FBar.SetSmallChange(10);
    FBar.SetLargeChange(200);
    FBar.SetPosition(400);
    FBar.SetOnScroll([this](TObject*, TScrollCode Code, int& Position) {
      FLog.push_back(std::string(EnumInfo(Code).Values[Code]) + " " + IntToStr(Position));
    });
    FBar.SetOnChange([this](TObject*) { FLog.push_back("change " + IntToStr(FBar.Position())); });
    ShowNow(FForm);
  }
  QRect Part(QStyle::SubControl Control) {
    auto& Bar = static_cast<QScrollBar&>(*FBar.Widget());
    QStyleOptionSlider Option;
    Option.initFrom(&Bar);
    Option.orientation = Bar.orientation();
    Option.minimum = Bar.minimum();
    Option.maximum = Bar.maximum();
    Option.sliderPosition = Option.sliderValue = Bar.value();
    Option.singleStep = Bar.singleStep();
    Option.pageStep = Bar.pageStep();
    return Bar.style()->subControlRect(QStyle::CC_ScrollBar, &Option, Control, &Bar);
  }
  void ClickOn(QStyle::SubControl Control) {
    const QPoint Place = Part(Control).center();
    Press(FBar, Place.x(), Place.y());
    Release(FBar, Place.x(), Place.y());
  }
  static void PressEnd(TScrollBar& Bar) {
    QKeyEvent End(QEvent::KeyPress, Qt::Key_End, Qt::NoModifier);
    QCoreApplication::sendEvent(Bar.Widget(), &End);
  }

  TForm FForm;
  TScrollBar FBar{&FForm};
  TLog FLog;
};

TEST_F(ScrollBarTest, ActionsHaveTheirCodes) {
  const std::pair<QStyle::SubControl, const char*> Cases[] = {
      {QStyle::SC_ScrollBarAddLine, "scLineDown 410; change 410; scEndScroll 410"},
      {QStyle::SC_ScrollBarSubLine, "scLineUp 400; change 400; scEndScroll 400"},
      {QStyle::SC_ScrollBarAddPage, "scPageDown 600; change 600; scEndScroll 600"},
      {QStyle::SC_ScrollBarSubPage, "scPageUp 400; change 400; scEndScroll 400"}};
  for (const auto& [Control, Told] : Cases) {
    ClickOn(Control);
    EXPECT_EQ(Taken(FLog), Told);
  }
  PressEnd(FBar);
  EXPECT_EQ(Taken(FLog), "scBottom 801; change 801; scEndScroll 801") << "the page ends at Max";
}

TEST_F(ScrollBarTest, TheThumbTracksAndEndsWithItsPosition) {
  const QPoint Place = Part(QStyle::SC_ScrollBarSlider).center();
  Press(FBar, Place.x(), Place.y());
  Drag(FBar, Place.x() + 30, Place.y());
  const std::string Tracked = IntToStr(FBar.Position());
  EXPECT_GT(FBar.Position(), 420);
  EXPECT_EQ(Taken(FLog), "scTrack " + Tracked + "; change " + Tracked);
  Release(FBar, Place.x() + 30, Place.y());
  EXPECT_EQ(Taken(FLog), "scPosition " + Tracked + "; scEndScroll " + Tracked);
}

TEST_F(ScrollBarTest, HandlersMayChangeThePositionOrTakeTheBarAway) {
  FBar.SetOnScroll([](TObject*, TScrollCode, int& Position) { Position = 123; });
  ClickOn(QStyle::SC_ScrollBarAddLine);
  EXPECT_EQ(FBar.Position(), 123);
  EXPECT_EQ(static_cast<QScrollBar&>(*FBar.Widget()).value(), 123);
  auto* Doomed = new TScrollBar(&FForm);
  Doomed->SetParent(&FForm);
  Doomed->SetOnScroll([&](TObject*, TScrollCode, int&) { delete std::exchange(Doomed, nullptr); });
  PressEnd(*Doomed);
  EXPECT_EQ(Doomed, nullptr);
}

TEST_F(ScrollBarTest, ParametersAreLimitedAndToldOnce) {
  FBar.SetPosition(5000);
  FBar.SetMax(300);
  EXPECT_THROW(FBar.SetMin(301), ERangeError);
  EXPECT_EQ(Taken(FLog), "change 1000; change 300");
  FBar.SetKind(sbVertical);
  EXPECT_EQ(FBar.BoundsRect(), (TRect{0, 100, 17, 400}));
}

// --- Labels, forms, timers, idle time -------------------------------------------------------------------------------

/// Columns and rows with ink, as a rectangle.
TRect InkOf(TCustomLabel& Label) {
  TCustomPanel Panel;
  Panel.SetBounds(0, 0, Label.Width(), Label.Height());
  Put(Label, Panel, 0, 0, Label.Width(), Label.Height());
  const QImage Picture = Painted(Panel);
  Label.SetParent(nullptr);
  TRect Ink{Label.Width(), Label.Height(), 0, 0};
  for (int Y = 0; Y < Label.Height(); ++Y)
    for (int X = 0; X < Label.Width(); ++X)
      if (Picture.pixel(X, Y) != 0)
        Ink = {std::min(Ink.Left, X), std::min(Ink.Top, Y), std::max(Ink.Right, X + 1), std::max(Ink.Bottom, Y + 1)};
  return Ink;
}

TEST(LabelTest, SizeAndPlaceFollowTheText) {
  TLabel Label;
  Label.SetCaption("HHH");
  const int OneLine = Label.Height(), Width = Label.Width();
  Label.SetCaption("HHH\nHHH");
  EXPECT_EQ(Label.Width(), Width);
  EXPECT_NEAR(Label.Height(), 2 * OneLine, 2);
  Label.SetAutoSize(false);
  Label.SetCaption("HHH");
  Label.SetBounds(0, 0, 200, 100);
  struct TCase {
    TAlignment Alignment;
    TTextLayout Layout;
    int CenterX, CenterY;  // of the ink, roughly
  };
  for (const TCase& Case :
       {TCase{TAlignment::taLeftJustify, tlTop, Width / 2, OneLine / 2}, TCase{TAlignment::taCenter, tlCenter, 100, 50},
        TCase{TAlignment::taRightJustify, tlBottom, 200 - Width / 2, 100 - OneLine / 2}}) {
    Label.SetAlignment(Case.Alignment);
    Label.SetLayout(Case.Layout);
    const TRect Ink = InkOf(Label);
    EXPECT_NEAR((Ink.Left + Ink.Right) / 2, Case.CenterX, 2);
    EXPECT_NEAR((Ink.Top + Ink.Bottom) / 2, Case.CenterY, 3);
  }
  Label.SetTransparent(false);
  EXPECT_EQ(InkOf(Label), (TRect{0, 0, 200, 100}));
  Label.SetAlignment(TAlignment::taRightJustify);
  Label.SetBounds(0, 0, 200, 20);
  Label.SetAutoSize(true);
  EXPECT_EQ(Label.BoundsRect().Right, 200) << "the aligned edge stays";
}

TEST(LabelTest, LinesBreakBetweenWords) {
  TLabel Label;
  Label.SetCaption("HH");
  const int Word = Label.Width(), OneLine = Label.Height();
  struct TCase {
    const char* Caption;
    double Words;  // room for so many
    int Lines;
  };
  for (const TCase& Case : {TCase{"HH HH HH HH", 2.5, 2}, TCase{"HH HH HH HH", 1.2, 4}, TCase{"HH HH HH HH", 9, 1},
                            TCase{"HHHH HH", 1.2, 2}, TCase{"HH   HH", 1.1, 2}, TCase{"HH    ", 1.1, 1},
                            TCase{"HH HH\n\nHH", 9, 3}, TCase{"   HHHH", 1.1, 1}, TCase{"HH HH", 0, 2}}) {
    Label.SetWordWrap(false);
    Label.SetCaption("");
    Label.SetWordWrap(true);
    const int Width = static_cast<int>(Word * Case.Words);
    Label.SetBounds(0, 0, Width, 5);
    Label.SetCaption(Case.Caption);
    EXPECT_NEAR(Label.Height(), Case.Lines * OneLine, Case.Lines) << Case.Caption << ' ' << Case.Words;
    EXPECT_EQ(Label.Width(), Width);
  }
  Label.SetCaption("HH HH");
  Label.SetWidth(Word + 2);
  EXPECT_NEAR(Label.Height(), 2 * OneLine, 2) << "fits the height to a new width";
  const TRect Ink = InkOf(Label);
  EXPECT_LE(Ink.Right, Word + 1);
  EXPECT_GT(Ink.Bottom, OneLine);
}

TEST(FormTest, EventsOfItsLife) {
  TLog Log;
  TForm Form;
  Form.SetPosition(poScreenCenter);
  Form.SetBounds(0, 0, 200, 100);
  Form.SetOnShow([&](TObject*) { Log.push_back("show"); });
  Form.SetOnActivate([&](TObject*) { Log.push_back("activate"); });
  bool MayClose = false;
  TCloseAction Wanted = caNone;
  Form.SetOnCloseQuery([&](TObject*, bool& CanClose) { CanClose = MayClose; });
  Form.SetOnClose([&](TObject*, TCloseAction& Action) {
    Log.push_back("close");
    Action = Wanted;
  });
  ShowNow(Form);
  EXPECT_EQ(Taken(Log), "show; activate");
  const QPoint Middle = Form.Widget()->screen()->availableGeometry().center();
  constexpr int Frame = 4;  // of the window, which the bounds leave out
  EXPECT_NEAR(Form.Left() + 100, Middle.x(), Frame);
  EXPECT_NEAR(Form.Top() + 50, Middle.y(), Frame);
  Form.Close();
  EXPECT_TRUE(Form.Visible());
  EXPECT_EQ(Taken(Log), "") << "the query says no";
  MayClose = true;
  EXPECT_FALSE(Form.Widget()->close());
  EXPECT_TRUE(Form.Visible());
  EXPECT_EQ(Taken(Log), "close");
  Wanted = caHide;
  Form.Close();
  HandleEvents();
  EXPECT_FALSE(Form.Visible());
  auto* const Freed = new TForm;
  Freed->SetName("Freed");
  Freed->SetOnClose([](TObject*, TCloseAction& Action) { Action = caFree; });
  Freed->Show();
  Freed->Close();
  EXPECT_NE(Screen().FindByName("Freed"), nullptr);
  HandleEvents();
  EXPECT_EQ(Screen().FindByName("Freed"), nullptr);
}

TEST(TimerTest, TicksUntilItIsStoppedOrDies) {
  auto* Timer = new TTimer;
  int Ticks = 0;
  const auto Wait = [](int Milliseconds) {
    QElapsedTimer Clock;
    Clock.start();
    while (Clock.elapsed() < Milliseconds) HandleEvents();
  };
  Timer->SetInterval(1);
  Timer->SetOnTimer([&](TObject*) {
    if (++Ticks == 3) Timer->SetEnabled(false);
  });
  Wait(200);
  EXPECT_EQ(Ticks, 3);
  Timer->SetOnTimer([&](TObject*) {
    ++Ticks;
    delete Timer;
  });
  Timer->SetEnabled(true);
  Wait(100);
  EXPECT_EQ(Ticks, 4);
}

TEST(IdleTest, HandlersRunBeforeTheProgramWaits) {
  TLog Log;
  int Owners[2], Rounds = 0;
  Program().OnIdle = [&](bool& Done) {
    Log.push_back("on");
    Done = ++Rounds == 3;  // two more calls at once
    if (Done) QCoreApplication::quit();
  };
  TApplication::AddIdleHandler(&Owners[0], [&](bool&) {
    Log.push_back("first");
    TApplication::RemoveIdleHandler(&Owners[0]);
    TApplication::RemoveIdleHandler(&Owners[1]);
  });
  TApplication::AddIdleHandler(&Owners[1], [&](bool&) { Log.push_back("old"); });
  TApplication::AddIdleHandler(&Owners[1], [&](bool&) { Log.push_back("removed before its turn"); });
  EXPECT_EQ(Program().Run(), 0);
  EXPECT_EQ(Taken(Log), "on; first; on; on");
  std::string Seen;
  Program().OnException = [&](const std::exception& Error) { Seen = Error.what(); };
  Program().OnIdle = [](bool& Done) {
    Done = false;
    throw ERangeError("idle");
  };
  EXPECT_TRUE(TApplication::Idle()) << "one that fails is not called at once again";
  EXPECT_EQ(Seen, "idle");
  Program().OnIdle = nullptr;
  Program().OnException = nullptr;
}

}  // namespace
}  // namespace zy
