#pragma once

#include <QCoreApplication>
#include <QMouseEvent>
#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include "platform/controls/TApplication.h"
#include "platform/controls/TForm.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/Graphics.h"
#include "platform/framework/NumberText.h"

namespace zy {

inline void HandleEvents() { dynamic_cast<TApplication&>(Application()).ProcessMessages(); }

/// Lines of what controls were told, in order.
using TLog = std::vector<std::string>;

/// A control of one colour that logs what the mouse does: "name:what".
template <class TBase>
class TTold : public TBase {
 public:
  TTold(TComponent* Owner, TLog& Log, const char* Name, ARGB Color = 0xFFFFFFFF)
      : TBase(Owner), FLog(Log), FName(Name), FColor(Color) {}

  std::function<bool(int X, int Y)> HitTest;
  std::function<void(const std::string& What)> OnTold;
  bool HandlesWheel = false;
  int Paints = 0;
  TRect Box;

  void Click() override {
    Tell("click", [this] { TBase::Click(); });
  }
  void DblClick() override {
    Tell("double", [this] { TBase::DblClick(); });
  }
  void MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) override {
    Tell("down" + At(Shift, X, Y) + (Button == mbLeft ? "" : "!"), [] {});
  }
  void MouseMove(TShiftState Shift, int X, int Y) override {
    Tell("move" + At(Shift, X, Y), [] {});
  }
  void MouseUp(TMouseButton, TShiftState Shift, int X, int Y) override {
    Tell("up" + At(Shift, X, Y), [] {});
  }
  bool MouseWheel(TShiftState Shift, int WheelDelta, int X, int Y) override {
    const bool Result = HandlesWheel;
    Tell("wheel " + IntToStr(WheelDelta) + At(Shift, X, Y), [] {});
    return Result;
  }
  void CMMouseEnter() override {
    Tell("enter", [this] { TBase::CMMouseEnter(); });
  }
  void CMMouseLeave() override {
    Tell("leave", [this] { TBase::CMMouseLeave(); });
  }
  bool CMHitTest(int X, int Y) override { return !HitTest || HitTest(X, Y); }

 protected:
  void Paint(Graphics& Canvas) override {
    ++Paints;
    Canvas.FillRectangle(SolidBrush(FColor), 0, 0, static_cast<float>(this->Width()),
                         static_cast<float>(this->Height()));
  }

 private:
  static std::string At(TShiftState Shift, int X, int Y) {
    return " " + IntToStr(Shift.Bits()) + " " + IntToStr(X) + "," + IntToStr(Y);
  }
  template <class TProc>
  void Tell(const std::string& What, const TProc& Inherit) {
    FLog.push_back(std::string(FName) + ":" + What);
    Inherit();
    if (const auto Event = OnTold) Event(What);  // may delete this
  }

  TLog& FLog;
  const char* FName;
  ARGB FColor;
};

/// Sends an event of the mouse to a control's widget, as the toolkit does.
inline void SendMouse(TWinControl& Control, QEvent::Type Type, int X, int Y, Qt::MouseButton Button = Qt::NoButton,
                      Qt::MouseButtons Buttons = Qt::NoButton, Qt::KeyboardModifiers Keys = Qt::NoModifier) {
  QWidget* const Widget = Control.Widget();
  QMouseEvent Event(Type, QPointF(X, Y), Widget->mapToGlobal(QPointF(X, Y)), Button, Buttons, Keys);
  QCoreApplication::sendEvent(Widget, &Event);
}
inline void Press(TWinControl& Control, int X, int Y) {
  SendMouse(Control, QEvent::MouseButtonPress, X, Y, Qt::LeftButton, Qt::LeftButton);
}
inline void Drag(TWinControl& Control, int X, int Y) {
  SendMouse(Control, QEvent::MouseMove, X, Y, Qt::NoButton, Qt::LeftButton);
}
inline void Release(TWinControl& Control, int X, int Y) {
  SendMouse(Control, QEvent::MouseButtonRelease, X, Y, Qt::LeftButton);
}
inline void MoveMouse(TWinControl& Control, int X, int Y) { SendMouse(Control, QEvent::MouseMove, X, Y); }

}  // namespace zy
