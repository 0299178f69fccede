#pragma once

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QImage>
#include <QMouseEvent>
#include <QPixmap>
#include <QWidget>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "drawing/Pixels.h"
#include "platform/controls/TApplication.h"
#include "platform/controls/TCustomPanel.h"
#include "platform/controls/TForm.h"
#include "platform/controls/TGraphicControl.h"
#include "platform/drawing/Brush.h"
#include "platform/framework/TReader.h"
#include "platform/framework/TStream.h"
#include "platform/framework/TWriter.h"
#include "texts/NumberText.h"

namespace zy {

constexpr ARGB White = 0xFFFFFFFF, Red = 0xFFFF0000, Green = 0xFF00FF00, Blue = 0xFF0000FF;

inline TApplication& Program() { return dynamic_cast<TApplication&>(Application()); }
inline void HandleEvents() { Program().ProcessMessages(); }
inline void ShowNow(TForm& Form) {
  Form.Show();
  HandleEvents();
}
inline void Put(TControl& Control, TWinControl& Parent, int Left, int Top, int Width, int Height) {
  Control.SetBounds(Left, Top, Width, Height);
  Control.SetParent(&Parent);
}
inline QImage Shown(TWinControl& Control) { return Control.Widget()->grab().toImage(); }

/// Writes one component as a root and reads another from that.
inline void ReadBack(TComponent& From, TComponent& To) {
  TMemoryStream Stream;
  TWriter(Stream).WriteRootComponent(From);
  Stream.SetPosition(0);
  TReader(Stream).ReadRootComponent(&To);
}

/// A pixel that a picture must have.
struct TPixel {
  int X, Y;
  ARGB Color;
  const char* What = "";
};
inline void ExpectPixels(const QImage& Picture, std::initializer_list<TPixel> Pixels) {
  for (const TPixel& Each : Pixels)
    EXPECT_EQ(Picture.pixel(Each.X, Each.Y), Each.Color) << Each.What << ' ' << Each.X << ", " << Each.Y;
}
/// Of what a control paints into a picture of its size, without a window.
inline QImage Painted(TWinControl& Control) {
  return PictureOf(Control.Width(), Control.Height(), [&](Graphics& Canvas) { Control.PaintTo(Canvas); }).ToQt();
}

/// Lines of what controls were told, in order.
using TLog = std::vector<std::string>;
/// They, separated by semicolons; the log is empty then.
inline std::string Taken(TLog& Log) {
  std::string Result;
  for (const std::string& Line : std::exchange(Log, {})) Result += (Result.empty() ? "" : "; ") + Line;
  return Result;
}

/// A control of one colour, painted far beyond its box, that logs what the mouse does: "name:what".
template <class TBase>
class TTold : public TBase {
 public:
  TTold(TComponent* Owner, TLog& Log, const char* Name, ARGB Color = White)
      : TBase(Owner), FLog(Log), FName(Name), FColor(Color) {}
  explicit TTold(TComponent* Owner, ARGB Color = White) : TTold(Owner, Unheard, "", Color) {}

  std::function<bool(int X, int Y)> HitTest;
  std::function<void(const std::string& What)> OnTold;
  bool HandlesWheel = false;
  std::function<void(Graphics& Canvas)> OnPaint;
  int Paints = 0;

  void Click() override { TBase::Click(), Tell("click"); }
  void DblClick() override { TBase::DblClick(), Tell("double"); }
  void MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) override {
    Tell("down" + At(Shift, X, Y) + (Button == mbLeft ? "" : "!"));
  }
  void MouseMove(TShiftState Shift, int X, int Y) override { Tell("move" + At(Shift, X, Y)); }
  void MouseUp(TMouseButton, TShiftState Shift, int X, int Y) override { Tell("up" + At(Shift, X, Y)); }
  bool MouseWheel(TShiftState Shift, int WheelDelta, int X, int Y) override {
    const bool Result = HandlesWheel;
    Tell("wheel " + IntToStr(WheelDelta) + At(Shift, X, Y));
    return Result;
  }
  void CMMouseEnter() override { TBase::CMMouseEnter(), Tell("enter"); }
  void CMMouseLeave() override { TBase::CMMouseLeave(), Tell("leave"); }
  bool CMHitTest(int X, int Y) override { return !HitTest || HitTest(X, Y); }

 protected:
  void Paint(Graphics& Canvas) override {
    ++Paints;
    Canvas.FillRectangle(SolidBrush(FColor), -1000, -1000, 3000, 3000);
    Canvas.SetSmoothingMode(SmoothingModeAntiAlias);
    if (OnPaint) OnPaint(Canvas);
    Canvas.TranslateTransform(3, 3);  // ends with the paint, as does the smoothing
  }

 private:
  static std::string At(TShiftState Shift, int X, int Y) {
    return " " + IntToStr(Shift.Bits()) + " " + IntToStr(X) + "," + IntToStr(Y);
  }
  void Tell(const std::string& What) {
    FLog.push_back(std::string(FName) + ":" + What);
    if (const auto Event = OnTold) Event(What);  // may delete this
  }

  inline static TLog Unheard;
  TLog& FLog;
  const char* FName;
  ARGB FColor;
};
using TGraphicPatch = TTold<TGraphicControl>;
using TPanelPatch = TTold<TCustomPanel>;
using TFormPatch = TTold<TForm>;

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
