#pragma once

#include <algorithm>
#include <functional>
#include <string>
#include <type_traits>
#include <utility>

#include "dialogs/controls/ZyDialogParts.h"
#include "dialogs/controls/ZyLinked.h"
#include "dialogs/controls/ZyStyleSamples.h"
#include "platform/controls/TCustomComboBox.h"
#include "platform/controls/TCustomListBox.h"
#include "platform/controls/TPaletteWatch.h"
#include "platform/controls/TPopupForm.h"

namespace zy {

/// What the lists and combo boxes of style values have in common: one item for each value, drawn by a sample as a chart
/// would draw it. The order of the items is that of the enumeration. TBase is the platform's list or combo box.
///
/// What the user chooses is told by OnValueChanged, then to the links; what code sets is not.
template <class TSample, class TBase>
class TZyStylePick : public TZyLinked<TBase> {
 public:
  using TValue = typename TSample::TValue;
  static constexpr int Count = TSample::Count;

  /// All that the samples are drawn with.
  const TSample& Sample() const { return FSample; }
  void SetSample(const TSample& Value) {
    FSample = Value;
    this->Invalidate();
  }

  const TNotifyEvent& OnValueChanged() const { return mValueChanged; }
  void SetOnValueChanged(TNotifyEvent Value) { mValueChanged = std::move(Value); }

 protected:
  explicit TZyStylePick(TComponent* Owner) : TZyLinked<TBase>(Owner) {
    for (int Index = 0; Index < TSample::Count; ++Index) this->Items().Add(TSample::ItemText(Index));
  }

  /// Changes what the samples are drawn with.
  template <class T>
  void ChangeSample(T TSample::*Field, const T& Value) {
    if (FSample.*Field == Value) return;
    FSample.*Field = Value;
    this->Invalidate();
  }
  void TellValue(TValue Value) {
    const std::uint64_t Alive = this->LiveHandle();
    if (const TNotifyEvent Event = mValueChanged) Event(this);
    if (TPersistent::FromLiveHandle(Alive) != nullptr) this->SetLink(Value);
  }

  std::string ItemName(int Index) const override { return TSample::ItemName(Index); }
  void DrawItem(Graphics& Canvas, int Index, const TRect& Box, TOwnerDrawState State) override {
    const bool DrawingEdit = State.Contains(odComboBoxEdit);
    if (!DrawingEdit) DrawItemGround(Canvas, Box);
    if (Index >= 0 && Index < TSample::Count) FSample.Draw(Canvas, Index, Box);
    if (!DrawingEdit && State.Contains(odSelected)) DrawItemFrame(Canvas, Box);
  }

 private:
  TSample FSample;
  TNotifyEvent mValueChanged;
  TPaletteWatch FPalette{[this] { this->Invalidate(); }};  // the ground of the items is the desktop's
};

/// A list of style values. Until one is chosen it reads as the first, which is selected by that.
template <class TSample>
class TZyStyleList : public TZyStylePick<TSample, TCustomListBox> {
 public:
  using TValue = typename TSample::TValue;

  TValue PickedValue() const {
    if (this->ItemIndex() < 0) const_cast<TZyStyleList*>(this)->SetItemIndex(0);
    return static_cast<TValue>(this->ItemIndex());
  }
  void SetPickedValue(TValue Value) { this->SetItemIndex(static_cast<int>(Value)); }
  void Click() override {
    const std::uint64_t Alive = this->LiveHandle();
    TCustomListBox::Click();
    if (TPersistent::FromLiveHandle(Alive) != nullptr) this->TellValue(PickedValue());
  }

 protected:
  explicit TZyStyleList(TComponent* Owner) : TZyStylePick<TSample, TCustomListBox>(Owner) {
    this->SetStyle(lbOwnerDrawFixed);
    this->SetItemHeight(TSample::ItemHeight);
  }
};

/// A form that drops down with a list of style values in Columns. A click or the return key takes the value under it;
/// the arrow keys only go there.
template <class TList, int Columns>
class TZyPickForm : public TPopupForm {
 public:
  TList& List() { return *FList; }

  /// Shows all values in items of ItemHeight pixels below a control. Picked runs once the user has chosen, when the
  /// form is hidden.
  void Show(TWinControl& Below, int ItemHeight, std::function<void()> Picked) {
    constexpr int Rows = (TList::Count + Columns - 1) / Columns, More = 2, Line = 1;
    FPicked = std::move(Picked);
    FByKey = false;
    FList->SetItemHeight(ItemHeight);
    FList->SetBounds(Line, Line, ItemHeight * Columns + More, ItemHeight * Rows + More);
    SetBounds(Left(), Top(), FList->Width() + 2 * Line, FList->Height() + 2 * Line);
    DropDown(Below);
    if (FList->CanFocus()) FList->SetFocus();
  }

 protected:
  explicit TZyPickForm(TComponent* Owner) : TPopupForm(Owner), FList(AddPart<TList>(*this, *this, "List")) {
    FList->SetColumns(Columns);
    FList->SetBorderStyle(bsNone);
    FList->SetOnMouseDown([this](TObject*, TMouseButton, TShiftState, int, int) { FByKey = false; });
    FList->SetOnKeyDown([this](TObject*, TKey& Key, TShiftState) {
      FByKey = true;
      if (Key != vkReturn && Key != vkSpace) return;
      Key = 0;
      Choose();
    });
    FList->SetOnValueChanged([this](TObject*) {
      if (!FByKey) Choose();
    });
  }

 private:
  void Choose() {
    const std::function<void()> Picked = std::exchange(FPicked, nullptr);
    Close();
    if (Picked) Picked();
  }

  TList* FList;
  bool FByKey = false;
  std::function<void()> FPicked;
};

/// A combo box of style values. With DropPickList its arrow opens the one TPickForm of the program, with all values in
/// columns; without it the list of the platform.
template <class TSample, class TPickForm = void>
class TZyStyleCombo : public TZyStylePick<TSample, TCustomComboBox> {
 public:
  using TValue = typename TSample::TValue;

  bool DropPickList() const { return FDropPickList; }
  void SetDropPickList(bool Value) {
    FDropPickList = Value;
    TCustomComboBox::SetDropDownCount(FDropPickList ? 1 : FDropDownCount);
  }
  /// Lines of the platform's list.
  int DropDownCount() const { return FDropDownCount; }
  void SetDropDownCount(int Value) {
    FDropDownCount = std::max(Value, 1);
    SetDropPickList(FDropPickList);
  }

 protected:
  TZyStyleCombo(TComponent* Owner, TValue Value) : TZyStylePick<TSample, TCustomComboBox>(Owner), FValue(Value) {
    this->SetStyle(csOwnerDrawFixed);
    this->SetItemHeight(TSample::ItemHeight);
    this->SetItemIndex(static_cast<int>(Value));
  }
  TValue PickedValue() const { return FValue; }
  /// A value without an item is kept, and shown as none.
  void SetPickedValue(TValue Value) {
    if (Value == FValue) return;
    FValue = Value;
    this->SetItemIndex(static_cast<int>(Value));
    this->Invalidate();
  }
  void Select() override {
    const std::uint64_t Alive = this->LiveHandle();
    FValue = static_cast<TValue>(this->ItemIndex());
    TCustomComboBox::Select();
    if (TPersistent::FromLiveHandle(Alive) != nullptr) this->TellValue(FValue);
  }
  bool DropDown() override {
    if (!TCustomComboBox::DropDown()) return false;
    if constexpr (std::is_void_v<TPickForm>) {
      return true;
    } else {
      if (!FDropPickList || !this->HasWidget()) return true;
      constexpr int LeastHeight = 20;
      auto& Form = SharedForm<TPickForm>();
      Form.List().SetSample(this->Sample());
      Form.List().SetPickedValue(FValue);
      Form.Show(*this, std::max(this->Height(), LeastHeight), [Alive = this->LiveHandle(), &Form] {
        auto* const Combo = static_cast<TZyStyleCombo*>(TPersistent::FromLiveHandle(Alive));
        if (Combo != nullptr) Combo->PickChanged(Form.List().PickedValue());
      });
      return false;
    }
  }

 private:
  void PickChanged(TValue Value) {
    SetPickedValue(Value);
    this->TellValue(Value);
  }

  TValue FValue;
  bool FDropPickList = false;
  int FDropDownCount = 8;
};

}  // namespace zy
