#include "dialogs/frames/ZyCurveRange.h"

#include <algorithm>

#include "axes/ZyAxis.h"
#include "graph/ZyGraph2D.h"
#include "graph/values/ZyColors.h"
#include "platform/framework/ScopedFlag.h"
#include "platform/framework/SystemColors.h"
#include "series/ZyFunctionSeries.h"
#include "texts/ZyLocalize.h"

namespace zy {

namespace {

/// The ground that the markers stand on: what is behind the data, the graph, or else the form.
TZyColor GroundOf(const TZyGraph2D& Graph) {
  for (const TZyColor Color : {Graph.DataAreaColor(), Graph.BackColor()})
    if (GetAlpha(Color) != 0) return Color;
  constexpr int ButtonFace = 15;
  return SystemColor(ButtonFace);
}

}  // namespace

TZyFunctionSeries* TZyCurveRange::Curve() const {
  return static_cast<TZyFunctionSeries*>(TPersistent::FromLiveHandle(FCurve));
}

/// The markers have no name and no stack: they are no part of the chart that is stored or undone.
void TZyCurveRange::Begin(TZyFunctionSeries& OfCurve, bool IsDisplay, std::function<void()> Moved) {
  constexpr float LineWidth = 3;
  End();
  auto* const Graph = OfCurve.XAxis() == nullptr ? nullptr : dynamic_cast<TZyGraph2D*>(OfCurve.XAxis()->Parent());
  if (Graph == nullptr) return;
  FCurve = OfCurve.LiveHandle();
  FIsDisplay = IsDisplay;
  FMoved = std::move(Moved);
  FGroup.emplace(OfCurve.UndoStack(), IsDisplay ? _sFunctionsDisplayRange : _sFunctionsCalculationRange);
  for (auto& Marker : FMarkers) {
    Marker = std::make_unique<TZyVerticalMarker>();
    Marker->SetVisible(false);
    Marker->SetXAxis(OfCurve.XAxis());
    Marker->SetParent(Graph);
    Marker->SetUndoStack(nullptr);
    Marker->Line().SetWidth(LineWidth);
    Marker->Line().SetColor(ContrastBackGroundARGB(GroundOf(*Graph)));
    Marker->SetOnMarkerMoved([this](TObject*) { MarkerMoved(); });
    Marker->BringToFront();
    Marker->SetVisible(true);
  }
  Show();
}

void TZyCurveRange::End() {
  for (auto& Marker : FMarkers) Marker.reset();
  FGroup.reset();
  FCurve = 0;
}

void TZyCurveRange::Show() {
  const TZyFunctionSeries* const Shown = Curve();
  if (Shown == nullptr || FMarkers[0] == nullptr) return;
  const TScopedValue Setting(FCanSet, false);
  FMarkers[0]->SetX(FIsDisplay ? Shown->DisplayStart() : Shown->CalculationStart());
  FMarkers[1]->SetX(FIsDisplay ? Shown->DisplayStop() : Shown->CalculationStop());
}

/// Whichever of both is on the left is the start. A range of the calculation that reaches the ends of the data follows
/// them again.
void TZyCurveRange::MarkerMoved() {
  TZyFunctionSeries* const Moved = Curve();
  if (!FCanSet || Moved == nullptr) return;
  const auto [Low, High] = std::minmax({FMarkers[0]->X(), FMarkers[1]->X()});
  const auto IsAlive = [this, Moved] { return Curve() == Moved; };  // handlers may free it
  if (FIsDisplay) {
    if (Moved->DisplayStart() != Low) {
      Moved->SetDisplayAutoStart(false);
      Moved->SetDisplayStart(Low);
    }
    if (IsAlive() && Moved->DisplayStop() != High) {
      Moved->SetDisplayAutoStop(false);
      Moved->SetDisplayStop(High);
    }
  } else {
    if (Moved->CalculationStart() != Low) {
      Moved->SetAutoStart(Low <= Moved->XStart());
      Moved->SetCalculationStart(Low);
    }
    if (IsAlive() && Moved->CalculationStop() != High) {
      Moved->SetAutoStop(High >= Moved->XStop());
      Moved->SetCalculationStop(High);
    }
  }
  Show();
  if (const auto Told = FMoved) Told();
}

}  // namespace zy
