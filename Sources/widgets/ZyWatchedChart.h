#pragma once

#include <QEvent>
#include <QPointer>
#include <QWidget>
#include <cstdint>
#include <exception>
#include <utility>

#include "annotations/ZyMovable.h"
#include "graph/parts/ZyMarkerListener.h"
#include "platform/framework/TPersistent.h"
#include "widgets/ZyCustomChartWidget.h"

namespace zy {

/// The chart of a chart widget, which hears of what happens to it: by what it overrides, of markers as their listener,
/// and of the mouse by the widget's events. It leaves the events of the chart to the application, and has the class of
/// the chart for all that stores it.
template <class TChart>
class TZyWatchedChart : public TChart, public IZyMarkerListener {
 public:
  TZyWatchedChart(TComponent* Owner, ZyCustomChartWidget& Widget) : TChart(Owner), FWidget(&Widget) {
    this->FPollingThread.OnPoll = [this, Poll = std::move(this->FPollingThread.OnPoll)] { Guarded([&] { Poll(); }); };
  }

 protected:
  /// The mouse is told wherever it goes within the chart, behind what it does there. A handler of the application may
  /// have freed the widget by then, and the chart with it.
  bool WidgetEvent(QEvent& Event) override {
    const QPointer<ZyCustomChartWidget> Widget = FWidget;
    if (Widget != nullptr) Widget->NotePress(Event);
    bool Done = true;
    const auto Handle = [&] { Guarded([&] { Done = TChart::WidgetEvent(Event); }); };
    if (Event.type() == QEvent::Paint)
      Quietly(Handle);
    else
      Handle();
    if (Widget != nullptr) Widget->TellMouse(Event);
    return Done;
  }
  void MarkerMoves(TControl& Marker, bool IsOver) override {
    auto* const Told = dynamic_cast<TZyMovable*>(&Marker);
    if (FWidget == nullptr || Told == nullptr) return;
    if (IsOver)
      emit FWidget->markerMoved(Told);
    else
      emit FWidget->markerMoving(Told);
  }
  /// Other styles of the control leave the focus policy that the widget was given.
  void ApplyStyle() override {
    const bool IsSame = this->HasWidget() && this->TabStop() == FHadTabStop;
    const Qt::FocusPolicy Given = IsSame ? this->Widget()->focusPolicy() : Qt::NoFocus;
    TChart::ApplyStyle();
    if (IsSame) this->Widget()->setFocusPolicy(Given);
    FHadTabStop = this->TabStop();
  }
  /// What a paint finds out was noted when it happened.
  void NoteContent() {
    if (FWidget != nullptr && FQuiet == 0) FWidget->NoteContent();
  }
  /// Runs something that is no other content. It may free the chart.
  template <class F>
  void Quietly(F Do) {
    const std::uint64_t Alive = this->LiveHandle();
    const auto Leave = [this, Alive] {
      if (TPersistent::FromLiveHandle(Alive) != nullptr) --FQuiet;
    };
    ++FQuiet;
    try {
      Do();
    } catch (...) {
      Leave();
      throw;
    }
    Leave();
  }

  QPointer<ZyCustomChartWidget> FWidget;

 private:
  template <class F>
  void Guarded(F Do) {
    const QPointer<ZyCustomChartWidget> Widget = FWidget;
    try {
      Do();
    } catch (const std::exception& Error) {
      if (Widget == nullptr || !Widget->TellError(Error.what())) throw;
    }
  }

  int FQuiet = 0;
  bool FHadTabStop = false;
};

}  // namespace zy
