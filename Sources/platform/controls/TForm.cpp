#include "platform/controls/TForm.h"

#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>
#include <QScreen>
#include <QWidget>

#include "platform/controls/TButtonControl.h"
#include "platform/framework/Application.h"
#include "platform/framework/TPropInfo.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {

ZY_PUBLISHED(TForm, TWinControl, Published<&TForm::Caption, &TForm::SetCaption>("Caption", std::string()),
             Published<&TForm::Position, &TForm::SetPosition>("Position", poDefault),
             Published<&TForm::ControlFont, &TForm::SetControlFont>("Font"),
             Published<&TForm::OnShow, &TForm::SetOnShow>("OnShow"),
             Published<&TForm::OnCloseQuery, &TForm::SetOnCloseQuery>("OnCloseQuery"),
             Published<&TForm::OnClose, &TForm::SetOnClose>("OnClose"),
             Published<&TForm::OnActivate, &TForm::SetOnActivate>("OnActivate"),
             Published<&TForm::OnDeactivate, &TForm::SetOnDeactivate>("OnDeactivate"),
             Published<&TForm::Visible, &TForm::SetVisible>("Visible", false))

namespace {

/// The first button in a control, at any depth, that the user could click and that Fits takes; null for none.
TButton* ButtonIn(TWinControl& Outer, const std::function<bool(TButton&)>& Fits) {
  for (TControl* Control : Outer.Controls()) {
    auto* const Inner = dynamic_cast<TWinControl*>(Control);
    if (Inner == nullptr || !Inner->Visible() || !Inner->Enabled()) continue;
    if (auto* const Button = dynamic_cast<TButton*>(Inner); Button != nullptr && Fits(*Button)) return Button;
    if (TButton* const Found = ButtonIn(*Inner, Fits)) return Found;
  }
  return nullptr;
}

}  // namespace

TForm::TForm(TComponent* Owner) : TWinControl(Owner) {
  NoteVisible(false);
  TForm::SetBounds(0, 0, 640, 480);
  Screen().AddForm(this);
}

TForm::~TForm() {
  Destroying();
  if (FModalLoop != nullptr) FModalLoop->quit();
  Screen().RemoveForm(this);
}

void TForm::SetCaption(const std::string& Value) {
  if (Value == FCaption) return;
  FCaption = Value;
  if (HasWidget()) Widget()->setWindowTitle(QString::fromStdString(FCaption));
  ApplyAccessibleName();
}

void TForm::Show() {
  SetVisible(true);
  if (!HasWidget()) return;  // OnShow closed it
  Widget()->raise();
  Widget()->activateWindow();
}

// Through the widget, so that the toolkit notices when the last window closes.
void TForm::Close() {
  if (HasWidget()) {
    Widget()->close();
  } else if (MayHide()) {
    SetVisible(false);
  }
}

void TForm::Release() {
  if (QCoreApplication::instance() == nullptr) return;
  QMetaObject::invokeMethod(
      QCoreApplication::instance(), [Form = LiveHandle()] { delete FromLiveHandle(Form); }, Qt::QueuedConnection);
}

int TForm::ShowModal() {
  if (Visible()) throw EInvalidOperation(Format(LoadResString(_sFormIsVisible), {Name()}));
  const std::uint64_t Alive = LiveHandle();
  QEventLoop Loop;
  FModalLoop = &Loop;
  FModalResult = mrNone;
  Widget()->setWindowModality(Qt::ApplicationModal);
  Show();
  if (FromLiveHandle(Alive) != nullptr && Visible()) Loop.exec();
  if (FromLiveHandle(Alive) == nullptr) return mrCancel;
  FModalLoop = nullptr;
  if (HasWidget()) Widget()->setWindowModality(Qt::NonModal);
  if (FModalResult == mrNone) FModalResult = mrCancel;
  return FModalResult;
}

void TForm::SetModalResult(int Value) {
  FModalResult = Value;
  if (Value == mrNone || FModalLoop == nullptr) return;
  const std::uint64_t Alive = LiveHandle();
  const bool Hides = MayHide();
  if (FromLiveHandle(Alive) == nullptr) return;
  if (Hides) {
    SetVisible(false);
  } else {
    FModalResult = mrNone;
  }
}

void TForm::CMVisibleChanged() {
  Inherited::CMVisibleChanged();
  if (!Visible() && FModalLoop != nullptr) FModalLoop->quit();
}

void TForm::KeyDown(TKey& Key, TShiftState Shift) {
  const std::uint64_t Alive = LiveHandle();
  Inherited::KeyDown(Key, Shift);
  if (FromLiveHandle(Alive) == nullptr || !Shift.Empty() || (Key != vkReturn && Key != vkEscape)) return;
  TButton* const Chosen =
      ButtonIn(*this, [Key](TButton& Each) { return Key == vkReturn ? Each.Default() : Each.Cancel(); });
  if (Chosen == nullptr) return;
  Key = 0;
  Chosen->PerformClick();
}

/// Asks whether the form may be closed, and does what is to be done instead of hiding, or beyond it.
bool TForm::MayHide() {
  const std::uint64_t Alive = LiveHandle();
  bool CanClose = true;
  if (const TCloseQueryEvent Event = FOnCloseQuery) Event(this, CanClose);
  if (!CanClose || FromLiveHandle(Alive) == nullptr) return false;
  TCloseAction Action = caHide;
  if (const TCloseEvent Event = FOnClose) Event(this, Action);
  if (FromLiveHandle(Alive) == nullptr) return false;
  if (Action == caFree) Release();
  if (Action == caMinimize && HasWidget()) Widget()->showMinimized();
  return Action == caHide || Action == caFree;
}

bool TForm::WidgetEvent(QEvent& Event) {
  const std::uint64_t Alive = LiveHandle();
  switch (Event.type()) {
    case QEvent::Close:
      if (!MayHide()) {
        Event.ignore();
        return true;
      }
      NoteVisible(false);
      break;
    case QEvent::Show:
      if (!Event.spontaneous()) DoShow();
      break;
    case QEvent::WindowActivate:
      Activate();
      break;
    case QEvent::WindowDeactivate:
      Deactivate();
      break;
    default:
      break;
  }
  return FromLiveHandle(Alive) == nullptr || !HasWidget() || Inherited::WidgetEvent(Event);
}

void TForm::DoShow() {
  if (const TNotifyEvent Event = FOnShow) Event(this);
}

void TForm::Activate() {
  if (const TNotifyEvent Event = FOnActivate) Event(this);
}

void TForm::Deactivate() {
  if (const TNotifyEvent Event = FOnDeactivate) Event(this);
}

QWidget* TForm::CreateWidget() {
  QWidget* const Result = Inherited::CreateWidget();
  Result->setWindowTitle(QString::fromStdString(FCaption));
  return Result;
}

void TForm::ApplyVisible() {
  if (!HasWidget() && !Visible()) return;
  if (Visible()) PlaceWindow();
  Widget()->setVisible(Visible());
}

void TForm::PlaceWindow() {
  if (FPosition == poDesigned) Widget()->move(Left(), Top());
  if (FPosition != poScreenCenter || Widget()->screen() == nullptr) return;
  const QRect Desk = Widget()->screen()->availableGeometry();
  Widget()->move(Desk.center() - QPoint(Width() / 2, Height() / 2));
}

}  // namespace zy
