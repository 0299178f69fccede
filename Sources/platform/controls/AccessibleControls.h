#pragma once

class QWidget;

namespace zy {

class TWinControl;

/// Has screen readers find, in the widget of a control, the controls without a window that lie in it and have a name,
/// each as a list of its items.
void TellScreenReaders(QWidget& Widget, const TWinControl& Control);

/// The widget was painted anew: screen readers, where there are any, hear soon what came, went or has another name in
/// it. Paints that follow each other are one.
void TellScreenReadersOfPaint(QWidget& Widget);

}  // namespace zy
