#include "platform/controls/TCustomComboBox.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <QStylePainter>
#include <algorithm>

#include "platform/drawing/Graphics.h"
#include "platform/drawing/QtText.h"
#include "platform/framework/TPropInfo.h"

namespace zy {

template class TWidgetOf<QComboBox>;

ZY_PUBLISHED(
    TCustomComboBox, TWinControl, Published<&TCustomComboBox::TabStop, &TCustomComboBox::SetTabStop>("TabStop", true),
    Published<&TCustomComboBox::Style, &TCustomComboBox::SetStyle>("Style", csDropDown).Hidden(),
    Published<static_cast<TStrings& (TCustomComboBox::*)()>(&TCustomComboBox::Items), &TCustomComboBox::SetItems>(
        "Items")
        .Hidden(),
    Published<&TCustomComboBox::DropDownCount, &TCustomComboBox::SetDropDownCount>("DropDownCount", 8).Hidden(),
    Published<&TCustomComboBox::ItemHeight, &TCustomComboBox::SetItemHeight>("ItemHeight", 0).Hidden(),
    Published<&TCustomComboBox::ItemIndex, &TCustomComboBox::SetItemIndex>("ItemIndex", -1).Hidden(),
    Published<&TCustomComboBox::Text, &TCustomComboBox::SetText>("Text").Hidden(), Republished("ParentFont Font"),
    Published<&TCustomComboBox::OnSelect, &TCustomComboBox::SetOnSelect>("OnSelect"),
    Published<&TCustomComboBox::OnChange, &TCustomComboBox::SetOnChange>("OnChange"),
    Published<&TCustomComboBox::OnDropDown, &TCustomComboBox::SetOnDropDown>("OnDropDown"),
    Published<&TCustomComboBox::OnDrawItem, &TCustomComboBox::SetOnDrawItem>("OnDrawItem"))
ZY_PUBLISHED(TComboBox, TCustomComboBox, Republished("Style Items DropDownCount ItemHeight ItemIndex Text"))

/// The toolkit's combo box, which asks the control before its list opens, and shows an item drawn by it.
class TCustomComboBox::TComboWidget : public QComboBox {
 public:
  explicit TComboWidget(TCustomComboBox& Owner) : FOwner(Owner.LiveHandle()) {}

  void showPopup() override {
    bool Opens = false;
    HandleEvent([&] {
      if (TCustomComboBox* const Owner = Control()) Opens = Owner->DropDown();
    });
    if (Opens && Control() != nullptr) QComboBox::showPopup();
  }

 protected:
  void paintEvent(QPaintEvent* Event) override {
    TCustomComboBox* const Owner = Control();
    if (Owner == nullptr || Owner->FStyle != csOwnerDrawFixed) return QComboBox::paintEvent(Event);
    QStylePainter Painter(this);
    QStyleOptionComboBox Option;
    initStyleOption(&Option);
    Option.currentText.clear();
    Painter.drawComplexControl(QStyle::CC_ComboBox, Option);
    const QRect Field = style()->subControlRect(QStyle::CC_ComboBox, &Option, QStyle::SC_ComboBoxEditField, this);
    TOwnerDrawState State{odComboBoxEdit};
    if (!isEnabled()) State.Include(odDisabled);
    if (hasFocus()) State.Include(odFocused);
    if (!isEnabled()) Painter.setOpacity(0.4);
    DrawOwnItem(Painter, Owner->FItemIndex, {Field.left(), Field.top(), Field.right() + 1, Field.bottom() + 1}, State,
                [Owner](auto&&... Args) { Owner->DrawItem(Args...); });
  }

 private:
  TCustomComboBox* Control() const { return static_cast<TCustomComboBox*>(TPersistent::FromLiveHandle(FOwner)); }

  std::uint64_t FOwner;
};

TCustomComboBox::TCustomComboBox(TComponent* Owner) : TWidgetOf(Owner) {
  TCustomComboBox::SetBounds(0, 0, 145, 21);
  SetTabStop(true);
  FItems.OnChange = [this](TObject*) { ItemsChanged(); };
}

TCustomComboBox::~TCustomComboBox() { Destroying(); }

QComboBox* TCustomComboBox::Make() { return new TComboWidget(*this); }

void TCustomComboBox::Configure(QComboBox& Box) {
  const bool IsOwn = FStyle == csOwnerDrawFixed;
  Box.setEditable(FStyle == csDropDown);
  Box.setInsertPolicy(QComboBox::NoInsert);
  Box.setMaxVisibleItems(FDropDownCount);
  if (IsOwn) {
    constexpr int Characters = 4;  // an item of pictures needs no room for its name
    Box.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    Box.setMinimumContentsLength(Characters);
  }
  SetOwnItems(*Box.view(), FItemHeight, 0,
              IsOwn ? TItemDrawer([this](auto&&... Args) { DrawItem(Args...); }) : nullptr);
  ShowItems(Box);
}

void TCustomComboBox::Listen(QComboBox& Box) {
  On(Box, &QComboBox::activated, [this](int Index) {
    FItemIndex = Index;
    if (Index >= 0 && Index < FItems.Count()) FTyped = FItems.Get(Index);
    Select();
  });
  On(Box, &QComboBox::editTextChanged, [this](const QString& Typed) {
    if (FStyle != csDropDown || Typed.toStdString() == FTyped) return;
    FTyped = Typed.toStdString();
    FItemIndex = FItems.IndexOf(FTyped);
    Change();
  });
}

void TCustomComboBox::ShowItems(QComboBox& Box) {
  QStringList Names;
  for (int Index = 0; Index < FItems.Count(); ++Index) Names += ToQString(ItemName(Index));
  Box.clear();
  Box.addItems(Names);
  Box.setCurrentIndex(FItemIndex);
  if (FStyle == csDropDown) Box.setEditText(ToQString(FTyped));
}

void TCustomComboBox::ItemsChanged() {
  if (!IsLoading()) FItemIndex = FItemIndex < FItems.Count() ? FItemIndex : -1;
  With([this](QComboBox& Box) { ShowItems(Box); });
}

/// A stored index may be read before the items are.
void TCustomComboBox::SetItemIndex(int Value) {
  if (!IsLoading() && (Value < 0 || Value >= FItems.Count())) Value = -1;
  if (Value == FItemIndex) return;
  FItemIndex = Value;
  FTyped = Value >= 0 && Value < FItems.Count() ? FItems.Get(Value) : std::string();
  With([this](QComboBox& Box) { Box.setCurrentIndex(FItemIndex); });
}

std::string TCustomComboBox::Text() const {
  if (FStyle == csDropDown) return FTyped;
  return FItemIndex >= 0 && FItemIndex < FItems.Count() ? FItems.Get(FItemIndex) : std::string();
}

void TCustomComboBox::SetText(const std::string& Value) {
  SetItemIndex(FItems.IndexOf(Value));
  if (FStyle != csDropDown) return;
  FTyped = Value;
  With([this](QComboBox& Box) { Box.setEditText(ToQString(FTyped)); });
}

void TCustomComboBox::SetStyle(TComboBoxStyle Value) {
  if (Value == FStyle) return;
  FStyle = Value;
  With([this](QComboBox& Box) { Configure(Box); });
}

void TCustomComboBox::SetDropDownCount(int Value) {
  FDropDownCount = std::max(Value, 1);
  With([this](QComboBox& Box) { Box.setMaxVisibleItems(FDropDownCount); });
}

void TCustomComboBox::SetItemHeight(int Value) {
  if (Value == FItemHeight) return;
  FItemHeight = std::max(Value, 0);
  With([this](QComboBox& Box) { Configure(Box); });
}

bool TCustomComboBox::DroppedDown() const {
  if (!HasWidget()) return false;
  return static_cast<QComboBox*>(const_cast<TCustomComboBox*>(this)->Widget())->view()->isVisible();
}

void TCustomComboBox::SetDroppedDown(bool Value) {
  if (!HasWidget()) return;
  Value ? Toolkit().showPopup() : Toolkit().hidePopup();
}

void TCustomComboBox::Select() {
  const std::uint64_t Alive = LiveHandle();
  if (const TNotifyEvent Event = FOnSelect) Event(this);
  if (FromLiveHandle(Alive) != nullptr) Change();
}

void TCustomComboBox::Change() {
  if (const TNotifyEvent Event = FOnChange) Event(this);
}

bool TCustomComboBox::DropDown() {
  const std::uint64_t Alive = LiveHandle();
  if (const TNotifyEvent Event = FOnDropDown) Event(this);
  return FromLiveHandle(Alive) != nullptr;
}

void TCustomComboBox::DrawItem(Graphics& Canvas, int Index, const TRect& Box, TOwnerDrawState State) {
  if (const TDrawItemEvent Event = FOnDrawItem) Event(this, Canvas, Index, Box, State);
}

TComboBox::TComboBox(TComponent* Owner) : TCustomComboBox(Owner) {}

TComboBox::~TComboBox() { Destroying(); }

}  // namespace zy
