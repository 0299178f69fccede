#pragma once

#include <QCoreApplication>
#include <QMouseEvent>
#include <QWidget>

#include "Cases.h"
#include "platform/controls/TApplication.h"

namespace zy::cases {

/// A line of so many points in a window that gets events of the mouse. What an event takes ends with the pixels.
struct TWindowChart : TChart {
  explicit TWindowChart(int Count) {
    TData Data(Count);
    Form.SetBounds(0, 0, Width, Height);
    Graph->SetParent(&Form);
    Take(Data).SetCaption("noise");
  }
  void Show() {
    Form.Show();
    dynamic_cast<TApplication&>(Application()).ProcessMessages();
  }
  void Send(QEvent::Type Type, int X, int Y, Qt::MouseButton Button, Qt::MouseButtons Buttons) {
    QWidget* const Widget = Graph->Widget();
    QMouseEvent Event(Type, QPointF(X, Y), Widget->mapToGlobal(QPointF(X, Y)), Button, Buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(Widget, &Event);
    dynamic_cast<TApplication&>(Application()).ProcessMessages();
  }
  /// Moves of the mouse from a place on, pressed or not.
  TResult Moves(TPoint From, bool IsPressed) {
    if (IsPressed) Send(QEvent::MouseButtonPress, From.X, From.Y, Qt::LeftButton, Qt::LeftButton);
    int Step = 0;
    const auto Move = [&] {
      Step = (Step + 7) % 400;
      Send(QEvent::MouseMove, From.X + Step, From.Y + Step / 2, Qt::NoButton,
           IsPressed ? Qt::LeftButton : Qt::NoButton);
    };
    for (int Times = 0; Times < 3; ++Times) Move();  // the first one paints the chart alone
    return Median(Move);
  }
};

}  // namespace zy::cases
