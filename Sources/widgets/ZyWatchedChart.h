#pragma once

#include <QMouseEvent>
#include <QPointer>
#include <cstdint>
#include <exception>
#include <utility>

#include "platform/framework/TPersistent.h"
#include "widgets/ZyCustomChartWidget.h"

namespace zy {

/// The chart of a chart widget, which hears of what happens to it. It leaves the events of the chart to the
/// application, and has the class of the chart for all that stores it.
template <class TChart>
class TZyWatchedChart : public TChart {
 public:
  TZyWatchedChart(TComponent* Owner, ZyCustomChartWidget& Widget) : TChart(Owner), FWidget(&Widget) {
    this->FPollingThread.OnPoll = [this, Poll = std::move(this->FPollingThread.OnPoll)] { Guarded([&] { Poll(); }); };
  }

 protected:
  /// Clicks are told wherever they go within the chart, behind what they do there. A handler of the application may
  /// have freed the widget by then, and the chart with it.
  bool WidgetEvent(QEvent& Event) override {
    const QPointer<ZyCustomChartWidget> Widget = FWidget;
    const auto Mouse = Event.type();
    const QPoint Place =
        Event.isSinglePointEvent() ? static_cast<QSinglePointEvent&>(Event).position().toPoint() : QPoint();
    if (Mouse == QEvent::MouseButtonPress) FPressed = Place;
    const QPoint From = FPressed;
    bool Done = true;
    const auto Handle = [&] { Guarded([&] { Done = TChart::WidgetEvent(Event); }); };
    if (Mouse == QEvent::Paint)
      Quietly(Handle);
    else
      Handle();
    if (Widget == nullptr) return Done;
    if (Mouse == QEvent::MouseButtonRelease && static_cast<QMouseEvent&>(Event).button() == Qt::LeftButton)
      Widget->NoteClick(From, Place);
    if (Mouse == QEvent::MouseButtonDblClick) emit Widget->doubleClicked(Place);
    return Done;
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

  QPoint FPressed;
  int FQuiet = 0;
};

}  // namespace zy
