#include "platform/controls/TWinControl.h"

#include <QApplication>
#include <QImage>
#include <QPaintEvent>
#include <QPainter>
#include <QWidget>
#include <exception>

#include "platform/controls/TApplication.h"
#include "platform/controls/TGraphicControl.h"
#include "platform/drawing/Graphics.h"
#include "platform/framework/Exceptions.h"
#include "platform/framework/TPropInfo.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

/// A widget that wants the extent that its control has.
class TPaintedWidget : public QWidget {
 public:
  explicit TPaintedWidget(const TControl& Control) : FHint(Control.Width(), Control.Height()) {}
  QSize sizeHint() const override { return FHint; }

 private:
  QSize FHint;
};

/// Gives back what a control's painting changes on a canvas that others go on to use.
class TCanvasState {
 public:
  explicit TCanvasState(Graphics& Canvas)
      : FCanvas(Canvas),
        FTransform(Canvas.GetTransform()),
        FClip(Canvas.GetClip()),
        FSmoothing(Canvas.GetSmoothingMode()),
        FHint(Canvas.GetTextRenderingHint()) {}
  ~TCanvasState() {
    FCanvas.SetTransform(FTransform);
    FCanvas.SetClip(FClip);
    FCanvas.SetSmoothingMode(FSmoothing);
    FCanvas.SetTextRenderingHint(FHint);
  }
  TCanvasState(const TCanvasState&) = delete;
  TCanvasState& operator=(const TCanvasState&) = delete;

 private:
  Graphics& FCanvas;
  Matrix FTransform;
  Region FClip;
  SmoothingMode FSmoothing;
  TextRenderingHint FHint;
};

}  // namespace

/// Brings the widget's events and its death to the control. Exceptions end here: the toolkit cannot carry them.
class TWinControl::TWidgetLink : public QObject {
 public:
  explicit TWidgetLink(TWinControl& Control) : FControl(Control) {
    Control.FWidget->installEventFilter(this);
    connect(Control.FWidget, &QObject::destroyed, this, [this] { FControl.FWidget = nullptr; });
  }

  bool eventFilter(QObject* Target, QEvent* Event) override {
    if (Target != FControl.FWidget) return false;
    try {
      return FControl.WidgetEvent(*Event);
    } catch (const std::exception& Error) {
      TApplication::HandleException(Error);
      return true;
    }
  }

 private:
  TWinControl& FControl;
};

ZY_PUBLISHED(TWinControl, TControl)

TWinControl::TWinControl(TComponent* Owner) : TControl(Owner) {}

TWinControl::~TWinControl() {
  Destroying();
  while (!FControls.empty()) FControls.back()->SetParent(nullptr);
  DestroyWidget();
}

void TWinControl::GetChildren(const std::function<void(TComponent*)>& Proc, TComponent* Root) {
  for (TControl* Control : std::vector(FControls))
    if (Control->Owner() == Root) Proc(Control);
  Inherited::GetChildren(Proc, Root);
}

void TWinControl::SetParent(TWinControl* Value) {
  if (Value == Parent()) return;
  Inherited::SetParent(Value);
  DestroyWidget();
  if (Value != nullptr && Value->HasWidget()) Widget();
}

void TWinControl::InsertControl(TControl* Control) {
  FControls.push_back(Control);
  Control->FParent = this;
  Control->Invalidate();
}

void TWinControl::RemoveControl(TControl* Control) {
  if (Control->FVisible) InvalidateBox(Control->FLeft, Control->FTop, Control->FWidth, Control->FHeight);
  std::erase(FControls, Control);
  Control->FParent = nullptr;
}

QWidget* TWinControl::Widget() {
  if (FWidget != nullptr) return FWidget;
  if (qobject_cast<QApplication*>(QCoreApplication::instance()) == nullptr)
    throw EInvalidOperation(Format(LoadResString(_sWidgetNeedsApplication), {Name()}));
  QWidget* const Outer = Parent() == nullptr ? nullptr : Parent()->Widget();
  if (FWidget != nullptr) return FWidget;  // the parent's widget came with all that lies in it
  FWidget = CreateWidget();
  FLink.reset();
  FWidget->resize(Width(), Height());
  if (Outer != nullptr) FWidget->setParent(Outer);
  if (Outer != nullptr || Left() != 0 || Top() != 0) FWidget->move(Left(), Top());
  FLink = std::make_unique<TWidgetLink>(*this);
  ApplyVisible();
  for (TControl* Control : std::vector(FControls))
    if (auto* const Inner = dynamic_cast<TWinControl*>(Control)) Inner->Widget();
  return FWidget;
}

QWidget* TWinControl::CreateWidget() { return new TPaintedWidget(*this); }

void TWinControl::DestroyWidget() {
  FLink.reset();
  QWidget* const Doomed = FWidget;
  FWidget = nullptr;
  delete Doomed;
}

bool TWinControl::WidgetEvent(QEvent& Event) {
  switch (Event.type()) {
    case QEvent::Paint:
      PaintWidget(static_cast<QPaintEvent&>(Event).rect());
      return true;
    case QEvent::Resize:
    case QEvent::Move: {
      const QRect Given = FWidget->geometry();
      SetBounds(Given.x(), Given.y(), Given.width(), Given.height());
      return false;
    }
    default:
      return false;
  }
}

/// Paints into a picture first, which Graphics can draw on faster than on a widget, and shows it in one step.
void TWinControl::PaintWidget(const QRect& Exposed) {
  const qreal Ratio = FWidget->devicePixelRatioF();
  const QSize Stored = (QSizeF(Exposed.size()) * Ratio).toSize().expandedTo(QSize(1, 1));
  if (FPicture == nullptr || FPicture->size() != Stored)
    FPicture = std::make_unique<QImage>(Stored, QImage::Format_ARGB32_Premultiplied);
  FPicture->setDevicePixelRatio(Ratio);
  FPicture->fill(0);
  {
    QPainter Painter(FPicture.get());
    Painter.translate(-Exposed.topLeft());
    Graphics Canvas(Painter);
    PaintTo(Canvas);
  }
  QPainter(FWidget).drawImage(Exposed.topLeft(), *FPicture);
}

void TWinControl::PaintTo(Graphics& Canvas) {
  {
    const TCanvasState Kept(Canvas);
    Paint(Canvas);
  }
  for (TControl* Control : std::vector(FControls)) {
    auto* const Child = dynamic_cast<TGraphicControl*>(Control);  // the others have their own widgets
    if (Child == nullptr || !Child->Visible()) continue;
    const TCanvasState Kept(Canvas);
    Canvas.TranslateTransform(static_cast<float>(Child->Left()), static_cast<float>(Child->Top()));
    Canvas.SetClip(RectF{0, 0, static_cast<float>(Child->Width()), static_cast<float>(Child->Height())},
                   CombineModeIntersect);
    Child->Paint(Canvas);
  }
}

void TWinControl::Paint(Graphics&) {}

void TWinControl::Repaint() {
  if (FWidget != nullptr) FWidget->repaint();
}

void TWinControl::InvalidateBox() {
  if (FWidget != nullptr) FWidget->update();
}

void TWinControl::InvalidateBox(int Left, int Top, int Width, int Height) {
  if (FWidget != nullptr) FWidget->update(Left, Top, Width, Height);
}

void TWinControl::RepaintBox(int Left, int Top, int Width, int Height) {
  if (FWidget != nullptr) FWidget->repaint(Left, Top, Width, Height);
}

void TWinControl::ApplyBounds() {
  if (FWidget == nullptr) return;
  const QPoint Place(Left(), Top());
  if (FWidget->geometry().topLeft() == Place) {
    FWidget->resize(Width(), Height());  // without a place: the desktop finds one for a new window
  } else {
    FWidget->setGeometry(QRect(Place, QSize(Width(), Height())));
  }
}

void TWinControl::ApplyVisible() {
  if (FWidget == nullptr) return;
  if (Visible() && FWidget->isWindow()) {
    // Not yet in a window: shown together with the window that takes it in, never as one of its own.
    FWidget->setAttribute(Qt::WA_WState_ExplicitShowHide, false);
  } else {
    FWidget->setVisible(Visible());
  }
}

}  // namespace zy
