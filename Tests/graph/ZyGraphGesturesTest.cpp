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
  bool ZoomAround(TPoint, double Factor) override { return Log += Factor < 1 ? " in" : " out", true; }
  bool MouseInDataArea() const override { return false; }
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

  bool HasAxes = true, IsZoomed = true, IsPanning = false, IsDead = false;
  TCursor Pointer = crDefault;
  char DiesAt = 0;
  std::string Log;

 private:
  TZyGraph2D FGraph;
};

/// What the letters of a script stand for. Those up to 'h' say whether the chart is still there.
const std::map<char, bool (*)(TZyGraphGestures&)> Steps = {
    {'d',
     [](auto& User) {
       return User.MouseDown(mbLeft, {ssLeft}, {50, 50});
     }},
    {'D',
     [](auto& User) {
       return User.MouseDown(mbLeft, {ssShift, ssLeft}, {50, 50});
     }},
    {'r',
     [](auto& User) {
       return User.MouseDown(mbRight, {ssLeft, ssRight}, {70, 70});
     }},
    {'R', [](auto& User) { return User.MouseUp(mbRight); }},
    {'u', [](auto& User) { return User.MouseUp(mbLeft); }},
    {'h', [](auto& User) { return User.Cancel(); }},
    {'m',
     [](auto& User) {
       return User.MouseMove({90, 80}), true;
     }},
    {'b',
     [](auto& User) {
       return User.MouseMove({10, 20}), true;
     }},
    {'s',
     [](auto& User) {
       return User.MouseMove({53, 80}), true;
     }},
    {'c', [](auto& User) { return User.Click(), true; }},
    {'C', [](auto& User) { return User.DblClick(), true; }},
    {'e', [](auto& User) { return User.KeyDown(vkEscape, {}); }},
    {'+', [](auto& User) { return User.KeyDown(vkAdd, {}); }},
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
  const auto Thumb = [](TToldTarget& Target) { Target.IsPanning = true; };
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
      {"a drag is no click", Plain, "dmcu", "z # # # to Z"},
      {"nor is a pan", Plain, "Dmcu", "p pan -40,30 keep P"},
      {"pan", Plain, "Dmu", "p pan -40,30 keep P"},
      {"the whole range stays", Whole, "Dmup>t", ""},
      {"Escape", Plain, "dmemuDmemu", "z # # # p pan -40,30 undo P"},
      {"another button neither begins nor ends anything", Plain, "drRmu", "z # # # to Z"},
      {"hidden meanwhile", Plain, "dmhmDmhm", "z # # # p pan -40,30 undo P"},
      {"no gesture beside a thumb, and nothing to take back", Thumb, "ewpz+>", ""},
      {"half notches", Plain, "www", "z in Z"},
      {"keys", Plain, "+>", "z in Z right"},
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
