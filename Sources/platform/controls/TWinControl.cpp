#include "platform/controls/TWinControl.h"

#include <QApplication>
#include <QFont>
#include <QImage>
#include <QLayout>
#include <QPaintEvent>
#include <QPainter>
#include <QPalette>
#include <QRegion>
#include <QStyle>
#include <QStyleOptionFocusRect>
#include <QTransform>
#include <QWidget>
#include <algorithm>
#include <cmath>
#include <exception>
#include <utility>

#include "platform/controls/AccessibleControls.h"
#include "platform/controls/InputDispatch.h"
#include "platform/controls/Mnemonics.h"
#include "platform/controls/TApplication.h"
#include "platform/controls/TGraphicControl.h"
#include "platform/drawing/Graphics.h"
#include "platform/framework/Reflection.h"
#include "platform/framework/TPropInfo.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

/// A widget that wants the extent that its control has, or what a layout in it needs.
class TPaintedWidget : public QWidget {
 public:
  explicit TPaintedWidget(const TControl& Control) : FHint(Control.Width(), Control.Height()) {}
  QSize sizeHint() const override { return layout() != nullptr ? QWidget::sizeHint() : FHint; }

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

/// Events of widgets that are being handled, one in another.
int EventDepth = 0;

class TEventDepth {
 public:
  TEventDepth() { ++EventDepth; }
  ~TEventDepth() { --EventDepth; }
  TEventDepth(const TEventDepth&) = delete;
  TEventDepth& operator=(const TEventDepth&) = delete;
};

/// Whether what lies behind the control that is being painted is drawn already.
bool BehindIsDrawn = false;

class TBehindIsDrawn {
 public:
  TBehindIsDrawn() : FOuter(std::exchange(BehindIsDrawn, true)) {}
  ~TBehindIsDrawn() { BehindIsDrawn = FOuter; }
  TBehindIsDrawn(const TBehindIsDrawn&) = delete;
  TBehindIsDrawn& operator=(const TBehindIsDrawn&) = delete;

 private:
  bool FOuter;
};

std::string CaptionOf(const TControl& Control) {
  const TPropInfo* const Caption = GetPropInfo(Control, "Caption");
  return Caption != nullptr && Caption->Kind == TPropKind::String ? Caption->GetStr(Control) : std::string();
}

QFont ToToolkit(const TControlFont& Face) {
  QFont Result(QString::fromStdString(Face.Name()));
  Result.setPixelSize(std::max(1, static_cast<int>(std::lround(Face.Size() * Font::PixelsPerPoint))));
  Result.setBold(Face.Style().Contains(TFontStyle::Bold));
  Result.setItalic(Face.Style().Contains(TFontStyle::Italic));
  Result.setUnderline(Face.Style().Contains(TFontStyle::Underline));
  Result.setStrikeOut(Face.Style().Contains(TFontStyle::Strikeout));
  return Result;
}

RectF ToRectF(int Left, int Top, int Width, int Height) {
  return {static_cast<float>(Left), static_cast<float>(Top), static_cast<float>(Width), static_cast<float>(Height)};
}

}  // namespace

/// Brings the widget's events and its death to the control. Exceptions end here: the toolkit cannot carry them.
class TWinControl::TWidgetLink : public QObject {
 public:
  explicit TWidgetLink(TWinControl& Control) : FControl(&Control) {
    Control.FWidget->installEventFilter(this);
    connect(Control.FWidget, &QObject::destroyed, this, [this] { FControl->FWidget = nullptr; });
  }

  bool eventFilter(QObject* Target, QEvent* Event) override {
    if (FControl == nullptr || Target != FControl->FWidget) return false;
    bool Done = true;
    HandleEvent([&] { Done = FControl->WidgetEvent(*Event); });
    return Done || FControl == nullptr;  // nothing of a widget without a control goes on
  }

  /// Hears no more, and goes when the present event is done.
  void Retire() {
    disconnect();
    FControl = nullptr;
    deleteLater();
  }

 private:
  TWinControl* FControl;
};

ZY_PUBLISHED(TWinControl, TControl, Published<&TWinControl::TabOrder, &TWinControl::SetTabOrder>("TabOrder", -1),
             Published<&TWinControl::TabStop, &TWinControl::SetTabStop>("TabStop", false),
             Published<&TWinControl::DoubleBuffered, &TWinControl::SetDoubleBuffered>("DoubleBuffered", true),
             Published<&TWinControl::OnKeyDown, &TWinControl::SetOnKeyDown>("OnKeyDown"),
             Published<&TWinControl::OnKeyUp, &TWinControl::SetOnKeyUp>("OnKeyUp"),
             Published<&TWinControl::OnKeyPress, &TWinControl::SetOnKeyPress>("OnKeyPress"),
             Published<&TWinControl::OnEnter, &TWinControl::SetOnEnter>("OnEnter"),
             Published<&TWinControl::OnExit, &TWinControl::SetOnExit>("OnExit"))

/// What has to be painted before the screen shows the control as it is.
struct TWinControl::TDamage {
  QRegion Picture;  // the control itself
  QRegion Overlay;  // what lies above it
};

/// What the control shows, without what lies above it.
struct TWinControl::TPicture {
  QImage Image;
  QTransform FromLogical;  // to the pixels of Image
};

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

/// Parts of other controls, such as the grips of one, do not count: they come and go with these.
int TWinControl::ChildIndex(const TComponent& Child) const {
  if (Child.ParentComponent() != this) return Inherited::ChildIndex(Child);
  const auto IsWhole = [](const TControl* Control) { return !Control->IsSubComponent(); };
  return static_cast<int>(std::count_if(FControls.begin(), std::ranges::find(FControls, &Child), IsWhole));
}

void TWinControl::SetChildIndex(TComponent& Child, int Index) {
  if (Child.ParentComponent() != this) return Inherited::SetChildIndex(Child, Index);
  int Place = 0;
  for (const TControl* Control : FControls) {
    if (Control == &Child) continue;
    if (!Control->IsSubComponent() && Index-- <= 0) break;
    ++Place;
  }
  MoveIn(FControls, Child, Place);
  for (TControl* Control : std::vector(FControls))
    if (auto* const Inner = dynamic_cast<TWinControl*>(Control); Inner != nullptr && Inner->FWidget != nullptr)
      Inner->FWidget->raise();
  Invalidate();
}

// --- Parents and controls -------------------------------------------------------------------------------------------

void TWinControl::SetParent(TWinControl* Value) {
  if (Value == Parent()) return;
  Inherited::SetParent(Value);
  DestroyWidget();
  // One that was read alone finds all others there; in a form that is being read its Loaded sorts them.
  if (Value != nullptr && !Value->IsLoading() && FReadTabOrder >= 0) SetTabOrder(std::exchange(FReadTabOrder, -1));
  if (Value == nullptr || !Value->HasWidget()) return;
  Widget();
  Value->ApplyTabOrder();
}

void TWinControl::InsertControl(TControl* Control) {
  TControl& Inserted = *Control;
  Inserted.FParent = this;
  FControls.push_back(&Inserted);
  if (auto* const Inner = dynamic_cast<TWinControl*>(&Inserted)) FTabList.push_back(Inner);
  Inserted.Invalidate();
}

void TWinControl::RemoveControl(TControl* Control) {
  if (Control->FVisible) InvalidateBox(Control->FLeft, Control->FTop, Control->FWidth, Control->FHeight);
  if (Control->MouseCapture()) ReleaseCapture();
  if (Control == FActiveControl.Get()) SetActiveControl(nullptr);
  std::erase(FControls, Control);
  std::erase_if(FTabList, [Control](const TControl* Inner) { return Inner == Control; });
  Control->FParent = nullptr;
  if (Control->FAlign != alNone && !IsDestroying()) AlignControls();
}

void TWinControl::MoveControl(TControl& Control, bool ToFront) {
  const auto Place = std::ranges::find(FControls, &Control);
  if (ToFront) {
    std::rotate(Place, Place + 1, FControls.end());
  } else {
    std::rotate(FControls.begin(), Place, Place + 1);
  }
  if (const auto* const Inner = dynamic_cast<TWinControl*>(&Control); Inner != nullptr && Inner->FWidget != nullptr) {
    if (ToFront) {
      Inner->FWidget->raise();
    } else {
      Inner->FWidget->lower();
    }
  }
  Control.Invalidate();
}

TControl* TWinControl::ControlAtPos(int X, int Y) const {
  const std::vector<TControl*> Candidates = FControls;  // a hit test may lay out, and so reorder
  for (auto Place = Candidates.rbegin(); Place != Candidates.rend(); ++Place) {
    TControl* const Control = *Place;
    if (dynamic_cast<TGraphicControl*>(Control) == nullptr || !Control->FVisible || !Control->FEnabled) continue;
    const int Inside = X - Control->FLeft;
    const int Down = Y - Control->FTop;
    if (Inside < 0 || Down < 0 || Inside >= Control->FWidth || Down >= Control->FHeight) continue;
    if (Control->CMHitTest(Inside, Down)) return Control;
  }
  return nullptr;
}

TPoint TWinControl::ClientToScreen(TPoint Place) const {
  if (FWidget == nullptr) return Inherited::ClientToScreen(Place);
  const QPoint Mapped = FWidget->mapToGlobal(QPoint(Place.X, Place.Y));
  return {Mapped.x(), Mapped.y()};
}

void TWinControl::SpreadFont() {
  for (TControl* Control : std::vector(FControls)) Control->ParentFontChanged();
}

// --- Widget ---------------------------------------------------------------------------------------------------------

QWidget* TWinControl::Widget() {
  if (FWidget != nullptr) return FWidget;
  if (qobject_cast<QApplication*>(QCoreApplication::instance()) == nullptr)
    throw EInvalidOperation(Format(LoadResString(_sWidgetNeedsApplication), {Name()}));
  QWidget* const Outer = Parent() == nullptr ? nullptr : Parent()->Widget();
  if (FWidget != nullptr) return FWidget;  // the parent's widget came with all that lies in it
  FWidget = CreateWidget();
  FPainted = dynamic_cast<TPaintedWidget*>(FWidget) != nullptr;
  if (FPainted) TellScreenReaders(*FWidget, *this);
  FLink.reset();
  FWidget->resize(Width(), Height());
  if (Outer != nullptr) {
    Parent()->TakeWidget(*this, *FWidget);
  } else if (Left() != 0 || Top() != 0) {
    FWidget->move(Left(), Top());
  }
  FWidget->setMouseTracking(true);
  FLink = std::make_unique<TWidgetLink>(*this);
  ApplyEnabled();
  ApplyStyle();
  ApplyFont();
  ApplyHint();
  for (TControl* Control : std::vector(FControls))
    if (auto* const Inner = dynamic_cast<TWinControl*>(Control)) Inner->Widget();
  ApplyTabOrder();
  ArrangeWidgets();
  ApplyVisible();
  return FWidget;
}

void TWinControl::TakeWidget(TWinControl& Inner, QWidget& InnerWidget) {
  InnerWidget.setParent(FWidget);
  InnerWidget.move(Inner.Left(), Inner.Top());
}

QWidget* TWinControl::CreateWidget() { return new TPaintedWidget(*this); }

void TWinControl::DestroyWidget() {
  QWidget* const Doomed = std::exchange(FWidget, nullptr);
  if (EventDepth == 0 || Doomed == nullptr) {
    FLink.reset();
    delete Doomed;
    return;
  }
  // The toolkit may be in the midst of one of its events, and the link too.
  Doomed->removeEventFilter(FLink.get());
  FLink.release()->Retire();
  Doomed->hide();
  Doomed->setParent(nullptr);
  Doomed->deleteLater();
}

void TWinControl::HandleEvent(const std::function<void()>& Proc) {
  const TEventDepth Depth;
  try {
    Proc();
  } catch (const std::exception& Error) {
    TApplication::HandleException(Error);
  }
}

bool TWinControl::WidgetEvent(QEvent& Event) {
  switch (Event.type()) {
    case QEvent::Paint:
      if (!FPainted) return false;
      PaintWidget(static_cast<QPaintEvent&>(Event).region());
      return true;
    case QEvent::Resize:
    case QEvent::Move: {
      const QRect Given = FWidget->geometry();
      SetBounds(Given.x(), Given.y(), Given.width(), Given.height());
      return false;
    }
    case QEvent::Show:
      ApplyAccessibleName();
      return false;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::NativeGesture:
    case QEvent::Enter:
    case QEvent::Leave: {
      const bool Painted = FPainted;  // a widget of the toolkit's goes on to handle its mouse events itself
      return DispatchMouse(*this, Event) && Painted;
    }
    case QEvent::ToolTip:
      return DispatchToolTip(*this, Event);
    case QEvent::ContextMenu:
      return DispatchContextMenu(*this, static_cast<QContextMenuEvent&>(Event));
    case QEvent::ShortcutOverride:
      return DispatchShortCutOverride(*this, static_cast<QKeyEvent&>(Event));
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
      return DispatchKey(*this, static_cast<QKeyEvent&>(Event));
    case QEvent::FocusIn:
    case QEvent::FocusOut:
      NoteFocus(Event);
      return false;
    default:
      return false;
  }
}

// --- Painting -------------------------------------------------------------------------------------------------------

/// Paints into a picture first, which Graphics can draw on faster than on a widget, and shows it in one step.
void TWinControl::PaintWidget(const QRegion& Exposed) {
  const TBehindIsDrawn Behind;  // by the toolkit, widget by widget
  QPainter Screen(FWidget);
  const QTransform ToDevice = Screen.deviceTransform();
  if (!FDoubleBuffered) {
    PaintPart(Screen, ToDevice, ToDevice.mapRect(QRectF(Exposed.boundingRect())).toAlignedRect());
  } else {
    const QRect Whole = ToDevice.mapRect(QRectF(FWidget->rect())).toAlignedRect();
    BringPictureUpToDate(Exposed, ToDevice, Whole);
    Screen.save();
    Screen.setTransform(ToDevice.inverted());  // pixel upon pixel
    Screen.drawImage(Whole.topLeft(), FPicture->Image);
    Screen.restore();
  }
  {
    Graphics Canvas(Screen);
    PaintAbove(Canvas);
  }
  if (FFocusShown && FWidget->hasFocus()) PaintFocus(Screen);
  TellScreenReadersOfPaint(*FWidget);
}

/// Around the active control, if there is one, as the place of the keyboard.
void TWinControl::PaintFocus(QPainter& Screen) const {
  QStyleOptionFocusRect Option;
  Option.initFrom(FWidget);
  Option.state |= QStyle::State_KeyboardFocusChange;  // styles frame nothing without it
  if (const TGraphicControl* const Active = FActiveControl; Active != nullptr && FActiveShown)
    Option.rect = QRect(Active->Left(), Active->Top(), Active->Width(), Active->Height());
  FWidget->style()->drawPrimitive(QStyle::PE_FrameFocusRect, &Option, &Screen, FWidget);
}

/// What lies above the picture: controls that say so, and what belongs to this one.
void TWinControl::PaintAbove(Graphics& Canvas) {
  for (TControl* Control : std::vector(FControls)) {
    if (std::ranges::find(FControls, Control) == FControls.end()) continue;  // a paint took it away
    auto* const Child = dynamic_cast<TGraphicControl*>(Control);
    if (Child != nullptr && Child->Visible() && Child->InOverlay()) PaintChild(*Child, Canvas);
  }
  PaintOverlay(Canvas);
}

/// Pixels are whole ones of the device: on a screen with a fractional scale a logical pixel ends within one of them,
/// and a part that ended there too would leave a seam.
void TWinControl::PaintPart(QPainter& Painter, const QTransform& ToDevice, const QRect& Pixels) {
  const QRectF Clip = ToDevice.inverted().mapRect(QRectF(Pixels));
  const QRect Outer = Clip.toAlignedRect().intersected(FWidget->rect());
  Graphics Canvas(Painter);
  Canvas.SetClip(RectF{static_cast<float>(Clip.x()), static_cast<float>(Clip.y()), static_cast<float>(Clip.width()),
                       static_cast<float>(Clip.height())});
  PaintAll(Canvas, {Outer.left(), Outer.top(), Outer.right() + 1, Outer.bottom() + 1}, nullptr);
}

/// The picture covers the pixels Whole of the device.
void TWinControl::BringPictureUpToDate(const QRegion& Exposed, const QTransform& ToDevice, const QRect& Whole) {
  // By whole pixels, not by logical ones: what lies halfway between two pixels is rounded alike on every device.
  const QTransform ToPicture = ToDevice * QTransform::fromTranslate(-Whole.x(), -Whole.y());
  const bool IsNew =
      FPicture == nullptr || FPicture->Image.size() != Whole.size() || FPicture->FromLogical != ToPicture;
  if (!IsNew && FDamage != nullptr) {
    const bool IsOverlay = Exposed.subtracted(FDamage->Overlay).isEmpty() && !Exposed.intersects(FDamage->Picture);
    FDamage->Overlay -= Exposed;
    FDamage->Picture -= Exposed;
    if (IsOverlay) return;
  }
  if (IsNew) {
    const QSize Stored = Whole.size().expandedTo(QSize(1, 1));
    FPicture = std::make_unique<TPicture>(TPicture{QImage(Stored, QImage::Format_ARGB32_Premultiplied), ToPicture});
  }
  const QRect Part = IsNew ? FWidget->rect() : Exposed.boundingRect();
  const QRect Pixels = ToPicture.mapRect(QRectF(Part)).toAlignedRect().intersected(FPicture->Image.rect());
  QPainter Painter(&FPicture->Image);
  Painter.setCompositionMode(QPainter::CompositionMode_Clear);
  Painter.fillRect(Pixels, Qt::transparent);
  Painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
  Painter.setTransform(ToPicture);
  PaintPart(Painter, ToPicture, Pixels);
}

void TWinControl::InvalidateOverlay(const TRect& Box) {
  if (FWidget == nullptr) return;
  if (FDamage == nullptr) {  // what waits to be painted was not counted so far
    FDamage = std::make_unique<TDamage>();
    InvalidateBox();
  }
  const QRect Part = ToScreenBox(Box.Left, Box.Top, Box.Width(), Box.Height());
  FDamage->Overlay += Part;
  FWidget->update(Part);
}

void TWinControl::PaintTo(Graphics& Canvas) {
  PaintAll(Canvas, ClientRect(), nullptr);
  PaintAbove(Canvas);
  const TBehindIsDrawn Behind;  // for the inner controls, by now
  for (TControl* Control : std::vector(FControls)) {
    auto* const Inner = dynamic_cast<TWinControl*>(Control);
    if (Inner == nullptr || !Inner->Visible()) continue;
    const TCanvasState Kept(Canvas);
    Canvas.TranslateTransform(static_cast<float>(Inner->Left()), static_cast<float>(Inner->Top()));
    Canvas.SetClip(ToRectF(0, 0, Inner->Width(), Inner->Height()), CombineModeIntersect);
    Inner->PaintTo(Canvas);
  }
}

/// Paints what lies in Box, up to the graphic control UpTo, which is left out with all above it.
void TWinControl::PaintAll(Graphics& Canvas, const TRect& Box, const TControl* UpTo) {
  FPaintBox = Box;
  {
    const TCanvasState Kept(Canvas);
    WMEraseBkgnd(Canvas);
  }
  {
    const TCanvasState Kept(Canvas);
    Paint(Canvas);
  }
  for (TControl* Control : std::vector(FControls)) {
    if (Control == UpTo) break;
    if (std::ranges::find(FControls, Control) == FControls.end()) continue;  // a paint took it away
    if (!Control->Visible() || Control->FLeft >= Box.Right || Control->FTop >= Box.Bottom ||
        Control->FLeft + Control->FWidth <= Box.Left || Control->FTop + Control->FHeight <= Box.Top)
      continue;
    auto* const Child = dynamic_cast<TGraphicControl*>(Control);  // the others have their own widgets
    if (Child != nullptr && !Child->InOverlay()) PaintChild(*Child, Canvas);
  }
}

void TWinControl::PaintChild(TGraphicControl& Child, Graphics& Canvas) const {
  const TCanvasState Kept(Canvas);
  Canvas.TranslateTransform(static_cast<float>(Child.Left()), static_cast<float>(Child.Top()));
  Canvas.SetClip(ToRectF(0, 0, Child.Width(), Child.Height()), CombineModeIntersect);
  Child.Paint(Canvas);
}

void TWinControl::PaintBehind(const TControl& Control, Graphics& Canvas) {
  if (BehindIsDrawn) return;
  const TBehindIsDrawn Behind;  // parents with what lies behind them as their ground get it from here
  std::vector<const TControl*> Chain;
  for (const TControl* Inner = &Control; Inner->FParent != nullptr; Inner = Inner->FParent) Chain.push_back(Inner);
  int Left = 0;  // place of the control in the parent whose turn it is, from the outermost on
  int Top = 0;
  for (const TControl* Inner : Chain) {
    Left += Inner->FLeft;
    Top += Inner->FTop;
  }
  for (auto Place = Chain.rbegin(); Place != Chain.rend(); ++Place) {
    const TControl* const Inner = *Place;
    TWinControl& Outer = *Inner->FParent;
    const TCanvasState Kept(Canvas);
    Canvas.SetClip(ToRectF(0, 0, Control.FWidth, Control.FHeight), CombineModeIntersect);
    Canvas.TranslateTransform(static_cast<float>(-Left), static_cast<float>(-Top));
    Canvas.SetClip(ToRectF(0, 0, Outer.Width(), Outer.Height()), CombineModeIntersect);
    Outer.PaintAll(Canvas, {Left, Top, Left + Control.FWidth, Top + Control.FHeight},
                   dynamic_cast<const TGraphicControl*>(Inner));  // a window lies above all controls without one
    Left -= Inner->FLeft;
    Top -= Inner->FTop;
  }
}

bool TWinControl::WMEraseBkgnd(Graphics& Canvas) {
  if (!ControlStyle().Contains(csParentBackground)) return false;
  DrawParentBackground(Canvas);
  return true;
}

void TWinControl::Paint(Graphics&) {}

void TWinControl::PaintOverlay(Graphics&) {}

void TWinControl::Repaint() {
  if (FWidget == nullptr) return;
  NoteDamage(FWidget->rect());
  FWidget->repaint();
}

void TWinControl::Update() {
  if (FWidget == nullptr || !FWidget->isVisible()) return;
  QEvent Request(QEvent::UpdateRequest);
  QCoreApplication::sendEvent(FWidget->window(), &Request);
}

void TWinControl::SetDoubleBuffered(bool Value) {
  if (Value == FDoubleBuffered) return;
  FDoubleBuffered = Value;
  FPicture.reset();
  Invalidate();
}

void TWinControl::InvalidateBox() {
  if (FWidget == nullptr) return;
  NoteDamage(FWidget->rect());
  FWidget->update();
}

void TWinControl::InvalidateBox(int Left, int Top, int Width, int Height) {
  if (FWidget == nullptr) return;
  const QRect Part = ToScreenBox(Left, Top, Width, Height);
  NoteDamage(Part);
  FWidget->update(Part);
}

void TWinControl::RepaintBox(int Left, int Top, int Width, int Height) {
  if (FWidget == nullptr) return;
  const QRect Part = ToScreenBox(Left, Top, Width, Height);
  NoteDamage(Part);
  FWidget->repaint(Part);
}

/// The box to paint for a changed one: with a fractional scale one more all around, so that it holds every pixel of the
/// screen that the changed one touches, whichever way the toolkit rounds.
QRect TWinControl::ToScreenBox(int Left, int Top, int Width, int Height) const {
  const qreal Ratio = FWidget->devicePixelRatioF();
  const int More = Ratio == std::floor(Ratio) ? 0 : 1;
  return QRect(Left, Top, Width, Height).adjusted(-More, -More, More, More);
}

void TWinControl::NoteDamage(const QRect& Part) {
  if (FDamage != nullptr) FDamage->Picture += Part;
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

void TWinControl::ApplyEnabled() {
  if (FWidget != nullptr) FWidget->setEnabled(Enabled());
}

void TWinControl::ApplyStyle() {
  if (FWidget == nullptr || !FPainted) return;
  FWidget->setAttribute(Qt::WA_OpaquePaintEvent, ControlStyle().Contains(csOpaque));
  FWidget->setFocusPolicy(FTabStop ? Qt::StrongFocus : Qt::NoFocus);
}

void TWinControl::ApplyHint() {
  if (FWidget == nullptr) return;
  FWidget->setAccessibleDescription(QString::fromStdString(Hint()));
  ApplyAccessibleName();
}

std::string TWinControl::AccessibleName() const {
  if (std::string Text = CaptionOf(*this); !Text.empty()) return Text;
  if (FLabel != nullptr)
    if (std::string Text = CaptionOf(*FLabel); !Text.empty()) return PlainCaption(Text);
  return Hint().empty() ? Name() : Hint();
}

void TWinControl::SetLabel(TControl* Value) {
  FLabel = Value;
  if (!IsDestroying()) ApplyAccessibleName();
}

void TWinControl::CMFontChanged() {
  Inherited::CMFontChanged();
  ApplyFont();
}

void TWinControl::ApplyFont() {
  if (FWidget == nullptr || FPainted) return;
  bool IsOwn = false;
  for (TControl* Outer = this; Outer != nullptr && !IsOwn; Outer = Outer->ParentFont() ? Outer->Parent() : nullptr)
    IsOwn = !Outer->ParentFont();
  FWidget->setFont(IsOwn ? ToToolkit(ControlFont()) : QFont());
  QPalette Colors;
  constexpr ARGB Unset = 0xFF000000;  // the colour of a font that was never given one
  if (IsOwn && ControlFont().Color() != Unset)
    for (const auto Role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
      Colors.setColor(Role, QColor::fromRgba(ControlFont().Color()));
  FWidget->setPalette(Colors);
}

void TWinControl::ApplyFocusPolicy(bool ByClick) {
  if (FWidget != nullptr) FWidget->setFocusPolicy(FTabStop ? Qt::StrongFocus : ByClick ? Qt::ClickFocus : Qt::NoFocus);
}

bool TWinControl::IsForeignWheel(QEvent& Event) const {
  if (Event.type() != QEvent::Wheel || FWidget->hasFocus()) return false;
  Event.ignore();
  return true;
}

void TWinControl::ApplyAccessibleName() {
  if (FWidget != nullptr) FWidget->setAccessibleName(QString::fromStdString(AccessibleName()));
}

}  // namespace zy
