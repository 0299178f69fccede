#include "undo/controls/ZyUndoListFrm.h"

#include <QMouseEvent>
#include <QScreen>
#include <QWidget>
#include <QWindow>
#include <algorithm>
#include <cmath>

#include "platform/controls/TCustomPanel.h"
#include "platform/controls/TLabel.h"
#include "platform/framework/Application.h"
#include "platform/framework/SystemColors.h"
#include "platform/framework/TPropInfo.h"
#include "texts/ZyLocalize.h"
#include "undo/controls/ZyDropDnButton.h"
#include "undo/controls/ZyLevelsList.h"
#include "undo/controls/ZyUndoButtons.h"

namespace zy {

ZY_PUBLISHED(TZyUndoListFrm, TForm)

namespace {

constexpr int LeastWidth = 199, LeastHeight = 135, Edge = 3;
constexpr const char* FormName = "ZyUndoListFrm";

}  // namespace

TZyUndoListFrm::TZyUndoListFrm(TComponent* Owner)
    : TForm(Owner), FLevelsList(new TZyLevelsList(this)), FStatusLab(new TLabel(this)) {
  SetPosition(poDesigned);
  TZyUndoListFrm::SetBounds(0, 0, LeastWidth, LeastHeight);
  auto* const Panel = new TCustomPanel(this);
  Panel->SetBorderStyle(bsSingle);
  Panel->SetParent(this);
  Panel->SetBounds(0, 0, Width(), Height());
  Panel->SetAnchors({akLeft, akTop, akRight, akBottom});
  FStatusLab->SetName("StatusLab");
  FStatusLab->SetParent(Panel);
  FStatusLab->SetAnchors({akLeft, akRight, akBottom});
  FStatusLab->SetAlignment(TAlignment::taCenter);
  FLevelsList->SetName("LevelsList");
  FLevelsList->SetParent(Panel);
  FLevelsList->SetAnchors({akLeft, akTop, akRight, akBottom});
  FLevelsList->OnGetText = [this](int Index) { return FStack == nullptr ? std::string() : Steps().Get(Index); };
  FLevelsList->OnSelect = [this] { ShowStatus(); };
  FLevelsList->OnChoose = [this] { LevelsListClick(); };
  FLevelsList->OnCancel = [this] { FormDeactivate(); };
}

TZyUndoListFrm::~TZyUndoListFrm() { Destroying(); }

TZyUndoListFrm& TZyUndoListFrm::Get() {
  if (auto* const Present = dynamic_cast<TZyUndoListFrm*>(Application().FindComponent(FormName))) return *Present;
  auto* const Made = new TZyUndoListFrm(&Application());
  Made->SetName(FormName);
  return *Made;
}

/// A popup: above all windows, without a border, and gone with a press elsewhere, which nobody else hears of, so that
/// the button does not open the list again that the press has closed.
QWidget* TZyUndoListFrm::CreateWidget() {
  QWidget* const Result = Inherited::CreateWidget();
  Result->setWindowFlags(Qt::Popup | Qt::FramelessWindowHint);
  Result->setAttribute(Qt::WA_NoMouseReplay);
  return Result;
}

void TZyUndoListFrm::SetParentBtn(TZyDropDnButton* Value) {
  FParentBtn = Value;
  if (Value == nullptr) FormDeactivate();
}

void TZyUndoListFrm::SetStack(TZyUndoStack* Value) {
  FStack = Value;
  if (Value == nullptr) FormDeactivate();
}

void TZyUndoListFrm::DropDown(TZyDropDnButton& Button) {
  FormDeactivate();
  FParentBtn = &Button;
  FStack = Button.UndoStack();
  FForRedo = dynamic_cast<TZyRedoButton*>(&Button) != nullptr;
  Place(Button);
  // Some desktops place a popup only by the window that it belongs to.
  Widget()->winId();
  if (QWindow* const Above = Button.Parent()->Widget()->window()->windowHandle())
    Widget()->windowHandle()->setTransientParent(Above);
  FFocus.Take();
  Show();
  // The reason tells the window of the button that its active control stays the one.
  if (Visible()) FLevelsList->Widget()->setFocus(Qt::PopupFocusReason);
}

/// Grows with the font: the line must fit, and the list shows some steps.
void TZyUndoListFrm::Place(const TZyDropDnButton& Button) {
  const Font Face = FStatusLab->ControlFont().ToFont();
  const std::string Longest = Format(LoadResString(FForRedo ? _sRedoStatus : _sUndoStatus), {FStack->Limit()});
  const auto LineHeight = static_cast<int>(std::ceil(Face.GetHeight())) + 2;
  const int Wanted = static_cast<int>(std::ceil(Face.MeasureString(Longest).Width)) + 4 * Edge;
  const int NewWidth = std::max(LeastWidth, Wanted), NewHeight = std::max(LeastHeight, 7 * LineHeight);
  const TPoint Below = Button.ClientToScreen({0, Button.Height()});
  TPoint Corner = Below;
  if (const QScreen* const Desk = Button.Parent()->Widget()->screen()) {
    const QRect Room = Desk->availableGeometry();
    if (Corner.X + NewWidth > Room.right() + 1) Corner.X = std::max(Room.right() + 1 - NewWidth, Room.left());
    if (Corner.Y + NewHeight > Room.bottom() + 1) Corner.Y = Below.Y - NewHeight - Button.Height();
  }
  SetBounds(Corner.X, Corner.Y, NewWidth, NewHeight);
  constexpr int WindowText = 8;  // the desktop's colour for it, which a dark one has otherwise than a label
  FStatusLab->ControlFont().SetColor(SystemColor(WindowText));
  FStatusLab->SetAutoSize(false);
  FStatusLab->SetBounds(Edge, NewHeight - LineHeight - Edge, NewWidth - 2 * Edge, LineHeight);
  FLevelsList->SetBounds(Edge, Edge, NewWidth - 2 * Edge, NewHeight - LineHeight - 3 * Edge);
}

void TZyUndoListFrm::DoShow() {
  Inherited::DoShow();
  if (FStack == nullptr) return;
  SetCaption(LoadResString(FForRedo ? _sRedo : _sUndo));
  FLevelsList->SetItemIndex(-1);
  Refresh();
  FLevelsList->SetItemIndex(0);
  ShowStatus();
  FIdle.SetOnIdle([this](TObject*, bool&) { Refresh(); });
}

/// Brings the list up to date with the stack.
void TZyUndoListFrm::Refresh() {
  if (FStack == nullptr) return;
  const int Count = Steps().Count();
  if (Count == 0) return FormDeactivate();
  const std::string Newest = Steps().Get(0);
  if (Count == FLevelsList->Count() && Newest == FNewest) return;
  FNewest = Newest;
  FLevelsList->SetCount(Count);
}

void TZyUndoListFrm::ShowStatus() {
  const int Index = FLevelsList->ItemIndex();
  const std::string Text = Index <= 0 ? LoadResString(FForRedo ? _sRedoStatus0 : _sUndoStatus0)
                                      : Format(LoadResString(FForRedo ? _sRedoStatus : _sUndoStatus), {Index + 1});
  FStatusLab->SetCaption(Text);
  FLevelsList->SetHint(Text);  // what a screen reader says of the list
}

/// The list is closed first: what the steps set off may ask the user something, and a popup would keep the mouse.
void TZyUndoListFrm::LevelsListClick() {
  TZyUndoStack* const Stack = FStack;
  const int Index = FLevelsList->ItemIndex();
  const bool IsStep = Stack != nullptr && Index >= 0 && Index < Steps().Count();
  FormDeactivate();
  if (!IsStep) return;
  FForRedo ? Stack->Redo(Index) : Stack->Undo(Index);
}

void TZyUndoListFrm::FormDeactivate() {
  TZyDropDnButton* const Button = FParentBtn;
  FParentBtn = nullptr;
  FStack = nullptr;
  FIdle.SetOnIdle(nullptr);
  if (Button != nullptr) Button->ListClosed();
  if (Visible()) SetVisible(false);
  FFocus.GiveBack();
}

void TZyUndoListFrm::Deactivate() {
  Inherited::Deactivate();
  FormDeactivate();
}

/// While a popup is open, the toolkit brings it the presses elsewhere too.
bool TZyUndoListFrm::WidgetEvent(QEvent& Event) {
  const bool IsPress = Event.type() == QEvent::MouseButtonPress || Event.type() == QEvent::MouseButtonDblClick;
  if (IsPress && !Widget()->rect().contains(static_cast<QMouseEvent&>(Event).position().toPoint())) {
    FormDeactivate();
    return true;
  }
  const std::uint64_t Alive = LiveHandle();
  const bool IsHidden = Event.type() == QEvent::Hide && !Event.spontaneous();
  const bool Done = Inherited::WidgetEvent(Event);
  if (IsHidden && FromLiveHandle(Alive) != nullptr) FormDeactivate();
  return Done;
}

}  // namespace zy
