#pragma once

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

#include "controls/ControlSamples.h"

namespace zy {

/// Presses and releases a key where the keyboard is, as the toolkit does; Text is what it types.
inline void SendKey(QWidget& Target, int Key, const QString& Text = {}, Qt::KeyboardModifiers Keys = Qt::NoModifier) {
  for (const auto Type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent Event(Type, Key, Keys, Text);
    QCoreApplication::sendEvent(&Target, &Event);
  }
}
inline void SendKey(TWinControl& Control, int Key, const QString& Text = {},
                    Qt::KeyboardModifiers Keys = Qt::NoModifier) {
  SendKey(*Control.Widget(), Key, Text, Keys);
}
/// Types the characters of a text one by one.
inline void Type(TWinControl& Control, const QString& Text) {
  for (const QChar C : Text) SendKey(Control, C.toUpper().unicode(), QString(C));
}
inline void Click(TWinControl& Control, int X, int Y) {
  Press(Control, X, Y);
  Release(Control, X, Y);
}
/// A click on a part of a widget, such as the inside of a list.
inline void ClickOn(QWidget& Part, QPoint Place, Qt::KeyboardModifiers Keys = Qt::NoModifier) {
  const QPointF Global = Part.mapToGlobal(QPointF(Place));
  QMouseEvent Down(QEvent::MouseButtonPress, Place, Global, Qt::LeftButton, Qt::LeftButton, Keys);
  QCoreApplication::sendEvent(&Part, &Down);
  QMouseEvent Up(QEvent::MouseButtonRelease, Place, Global, Qt::LeftButton, Qt::NoButton, Keys);
  QCoreApplication::sendEvent(&Part, &Up);
}

}  // namespace zy
