// The gestures on their own: a script of what the user does, and the list of what a chart is asked for.

#include "graph/ZyGraphGestures.h"

#include <gtest/gtest.h>

#include <map>
#include <tuple>

#include "graph/ZyGraph2D.h"
#include "texts/NumberText.h"

namespace zy {
namespace {

/// Writes down what gestures ask for; only the settings are those of a real chart.
class TToldTarget : public IZyGestureTarget {
 public:
  TZyZoomSettings& Zoom() { return FGraph.Zoom(); }
  const TZyZoomSettings& Zoom() const override { return FGraph.Zoom(); }
  void BringUpToDate() override {}
  bool HasPrimaryAxes() const override { return HasAxes; }
  bool GetCanZoomBack() const override { return IsZoomed; }
  void ZoomBack() override { Log += " back"; }
  void ZoomReset() override { Log += " reset"; }
  bool ZoomToFrame(TPoint, TPoint) override { return Log += " to", true; }
  bool ZoomAround(TPoint Place, double Factor) override {
    Log += Factor < 1 ? " in" : " out";
    if (Place.X < 0) Log += " Y";
    if (Place.Y < 0) Log += " X";
    return true;
  }
  bool MouseInDataArea() const override { return IsInside; }
  TPoint MiddleOfData() const override { return {}; }
  bool Panning() const override { return IsPanning; }
  void BeginPan() override { IsPanning = true; }
  void PanBy(double Dx, double Dy) override { Log += " pan " + IntToStr(int(Dx)) + "," + IntToStr(int(Dy)); }
  void EndPan(bool Keeps) override {
    IsPanning = false;
    Log += Keeps ? " keep" : " undo";
  }
  void BeginPinch(TPoint) override {}
  void PinchTo(double Scale) override { Log += " pinch " + FloatToStr(Scale); }
  void EndPinch() override { Log += " pinched"; }
  void ScrollStep(bool Horizontal, bool Forward) override { Log += Horizontal == Forward ? " right" : " other"; }
  bool IsTwisted(bool) const override { return false; }
  void FrameChanged(const TRect&) override { Log += " #"; }
  TCursor PointerShape() const override { return Pointer; }
  void SetPointerShape(TCursor Value) override { Pointer = Value; }
  void CaptureKeys(bool) override {}
  bool Tell(TZyGestureEvent Event) override {
    const char Letter = "zZpP"[static_cast<int>(Event)];
    Log += std::string(" ") + Letter;
    IsDead = Letter == DiesAt;
    return !IsDead;
  }

  bool HasAxes = true, IsZoomed = true, IsPanning = false, IsDead = false, IsInside = false;
  TCursor Pointer = crDefault;
  char DiesAt = 0;
  std::string Log;

 private:
  TZyGraph2D FGraph;
};

bool Down(TZyGraphGestures& User, TMouseButton Button, TShiftState Shift, int At) {
  return User.MouseDown(Button, Shift, {At, At});
}
bool Move(TZyGraphGestures& User, int X, int Y) { return User.MouseMove({X, Y}), true; }

/// What the letters of a script stand for. Those up to 'h' say whether the chart is still there.
const std::map<char, bool (*)(TZyGraphGestures&)> Steps = {
    {'d', [](auto& User) { return Down(User, mbLeft, {ssLeft}, 50); }},
    {'D',
     [](auto& User) {
       return Down(User, mbLeft, {ssShift, ssLeft}, 50);
     }},
    {'k',
     [](auto& User) {
       return Down(User, mbLeft, {ssCtrl, ssLeft}, 50);
     }},
    {'r',
     [](auto& User) {
       return Down(User, mbRight, {ssLeft, ssRight}, 70);
     }},
    {'R', [](auto& User) { return User.MouseUp(mbRight); }},
    {'u', [](auto& User) { return User.MouseUp(mbLeft); }},
    {'h', [](auto& User) { return User.Cancel(); }},
    {'m', [](auto& User) { return Move(User, 90, 80); }},
    {'b', [](auto& User) { return Move(User, 10, 20); }},
    {'s', [](auto& User) { return Move(User, 53, 80); }},
    {'c', [](auto& User) { return User.Click(), true; }},
    {'C', [](auto& User) { return User.DblClick(), true; }},
    {'e', [](auto& User) { return User.KeyDown(vkEscape, {}); }},
    {'+', [](auto& User) { return User.KeyDown(vkAdd, {}); }},
    {'H', [](auto& User) { return User.KeyDown(vkHome, {}); }},
    {'B', [](auto& User) { return User.KeyDown(vkBack, {}); }},
    {'^', [](auto& User) { return User.KeyDown(vkUp, {ssCtrl}); }},
    {'<', [](auto& User) { return User.KeyDown(vkLeft, {ssCtrl}); }},
    {'>', [](auto& User) { return User.KeyDown(vkRight, {}); }},
    {'w', [](auto& User) { return User.MouseWheel({ssCtrl}, 60, {}); }},
    {'p', [](auto& User) { return User.Pad({.Kind = gkPan, .DeltaX = 10, .DeltaY = 5}); }},
    {'z', [](auto& User) { return User.Pad({.Kind = gkZoom, .Scale = 2}); }},
    {'x', [](auto& User) { return User.Pad({.Kind = gkEnd}); }},
    {'t', [](auto& User) { return User.Pad({.Kind = gkDoubleTap}); }}};

/// What is told, without the blank before it.
std::string Play(TToldTarget& Target, std::string_view Script) {
  TZyGraphGestures User(Target);
  for (std::size_t i = 0; i < Script.size() && !Target.IsDead; ++i) {
    const bool Answer = Steps.at(Script[i])(User);
    EXPECT_TRUE(Answer != Target.IsDead || std::string_view("dDrRuh").find(Script[i]) == std::string_view::npos);
  }
  EXPECT_TRUE(Target.IsPanning || Target.Pointer == crDefault) << Script;
  return Target.Log.empty() ? "" : Target.Log.substr(1);
}

TEST(ZyGraphGesturesTest, DoWhatTheUserAsks) {
  const auto Plain = [](TToldTarget&) {};
  const auto Whole = [](TToldTarget& Target) { Target.IsZoomed = false; };
  const auto Off = [](TToldTarget& Target) { Target.Zoom().SetAuto(false); };
  const auto Backs = [](TToldTarget& Target) { Target.Zoom().SetBackOnRightBottomLeftTopFrame(true); };
  const auto Resets = [](TToldTarget& Target) { Target.Zoom().SetResetOnRightBottomLeftTopFrame(true); };
  const auto Keyless = [](TToldTarget& Target) { Target.Zoom().SetKeyboardZoom(false); };
  const auto Thumb = [](TToldTarget& Target) { Target.IsPanning = true; };
  const auto Inside = [](TToldTarget& Target) { Target.IsInside = true; };
  const auto Bare = [](TToldTarget& Target) { Target.HasAxes = false; };
  const std::tuple<const char*, void (*)(TToldTarget&), const char*, const char*> Rows[] = {
      {"frame", Plain, "dmu", "z # # # to Z"},
      {"backwards like any other", Plain, "dbu", "z # # # to Z"},
      {"backwards goes back", Backs, "dbu", "z # # # back"},
      {"backwards resets", Resets, "dbu", "z # # # reset"},
      {"a click is a backward frame", Resets, "du", "z # reset"},
      {"too narrow", Plain, "dsu", "z # # #"},
      {"switched off", Off, "dmuDmuwpz+>", ""},
      {"a click beside", Plain, "dcuC", "z back # reset"},
      {"a double click inside", Inside, "C", ""},
      {"another key down", Plain, "kmu", ""},
      {"a drag is no click", Plain, "dmcu", "z # # # to Z"},
      {"nor is a pan", Plain, "Dmcu", "p pan -40,30 keep P"},
      {"pan", Plain, "Dmu", "p pan -40,30 keep P"},
      {"the whole range stays", Whole, "Dmup>t", ""},
      {"Escape", Plain, "dmemuDmemu", "z # # # p pan -40,30 undo P"},
      {"another button neither begins nor ends anything", Plain, "drRmu", "z # # # to Z"},
      {"hidden meanwhile", Plain, "dmhmDmhm", "z # # # p pan -40,30 undo P"},
      {"no gesture beside a thumb, and nothing to take back", Thumb, "ewpz+>", ""},
      {"half notches", Plain, "www", "z in Z"},
      {"keys", Plain, "+>BH", "z in Z right back reset"},
      {"keys for one direction", Plain, "^<", "z in Y Z z out X Z"},
      {"without the keyboard", Keyless, "+>H", ""},
      {"pad", Plain, "ppx", "p pan -10,5 pan -20,10 keep P"},
      {"pinch", Plain, "zpzxt", "z pinch 2 pinch 4 pinched Z reset"},
      {"hidden in a pinch", Plain, "zhx", "z pinch 2 pinched Z"},
      {"without axes", Bare, "Dmuwpzx", ""},
  };
  for (const auto& [What, Set, Script, Expected] : Rows) {
    TToldTarget Target;
    Set(Target);
    EXPECT_EQ(Play(Target, Script), Expected) << What;
  }
}

TEST(ZyGraphGesturesTest, AskADeadChartForNothing) {
  for (const char* Script : {"d", "dmu", "D", "Dmu", "Dme", "Dmh", "ww", "+", "p", "ppx", "z", "zx", "zh"})
    for (const char Event : {'z', 'Z', 'p', 'P'}) {
      TToldTarget Target;
      Target.DiesAt = Event;
      const std::string Told = Play(Target, Script);
      EXPECT_TRUE(!Target.IsDead || Told.ends_with(Event)) << Script << ": " << Told;
    }
}

}  // namespace
}  // namespace zy
