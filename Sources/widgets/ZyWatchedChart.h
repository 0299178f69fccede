#pragma once

#include <QPointer>
#include <exception>
#include <utility>

#include "platform/framework/ScopedFlag.h"
#include "series/ZySeries.h"
#include "widgets/ZyCustomChartWidget.h"

namespace zy {

/// The chart of a chart widget, which hears of what happens to it. It leaves the events of the chart to the
/// application, and has the class of the chart for all that stores it.
template <class TChart>
class TZyWatchedChart : public TChart {
 public:
  TZyWatchedChart(TComponent* Owner, ZyCustomChartWidget& Widget) : TChart(Owner), FWidget(&Widget) {
    this->FPollingThread.OnPoll = [this, Poll = std::move(this->FPollingThread.OnPoll)] {
      Guarded([&] { Poll(); });
    };
  }

 protected:
  void MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) override {
    FPlace = FPressed = {X, Y};
    TChart::MouseDown(Button, Shift, X, Y);
  }
  void MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) override {
    FPlace = {X, Y};
    TChart::MouseUp(Button, Shift, X, Y);
  }
  // A handler of the application may have freed the widget, and the chart with it.
  void Click() override {
    const QPointer<ZyCustomChartWidget> Widget = FWidget;
    const TPoint From = FPressed, Place = FPlace;
    TChart::Click();
    if (Widget != nullptr) Widget->NoteClick(From, Place);
  }
  void DblClick() override {
    const QPointer<ZyCustomChartWidget> Widget = FWidget;
    const QPoint Place(FPlace.X, FPlace.Y);
    TChart::DblClick();
    if (Widget != nullptr) emit Widget->doubleClicked(Place);
  }
  bool WidgetEvent(QEvent& Event) override {
    bool Done = true;
    Guarded([&] { Done = TChart::WidgetEvent(Event); });
    return Done;
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

  TPoint FPlace, FPressed;
};

}  // namespace zy
