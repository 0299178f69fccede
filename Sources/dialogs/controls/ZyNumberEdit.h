#pragma once

#include <algorithm>
#include <exception>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>

#include "dialogs/controls/ZyLinked.h"
#include "platform/controls/TCustomEdit.h"
#include "platform/framework/ScopedFlag.h"

namespace zy {

/// What the edits of a number have in common.
///
/// A text that is a number within the limits is the value at once, and the event and the links hear of it. Any other
/// text is dropped: the last value returns when the keyboard leaves. Both "." and the locale's separator are taken,
/// and none between thousands. Typed characters that no number has are refused with a beep; what is pasted or composed
/// is not filtered, but as little taken as long as it is no number.
template <class TValue>
class TZyNumberEdit : public TZyLinked<TCustomEdit> {
 public:
  /// Limits hold only while MaxValue is above MinValue.
  TValue MinValue() const { return FMinValue; }
  void SetMinValue(TValue Value) { SetLimit(FMinValue, Value); }
  TValue MaxValue() const { return FMaxValue; }
  void SetMaxValue(TValue Value) { SetLimit(FMaxValue, Value); }
  TValue Value() const { return FValue; }
  /// Brings the value within the limits, shows it and tells it, changed or not. A value without a text shows as
  /// "Error", and nobody hears of it.
  void SetValue(TValue Value) {
    const std::uint64_t Alive = LiveHandle();
    try {
      const TScopedValue Setting(FSetting, true);
      FValue = Check(Value);
      FLastValid = TextOf(FValue);
      SetText(FLastValid);
      const bool IsTypedIn = HasKeyboard();
      if (!IsTypedIn || std::is_integral_v<TValue>) DisplayOrHash();
      if (IsTypedIn == std::is_integral_v<TValue>) FNeedSelectAll = true;
    } catch (const std::exception&) {
      const TScopedValue Setting(FSetting, true);
      return SetText(ErrorText);
    }
    if (FromLiveHandle(Alive) != nullptr) TellValue();
  }

  /// Takes the text as far as it is a number, brought within the limits. Runs when the keyboard leaves and at the
  /// return key, which then acts as a double click.
  void ValidateText() {
    const std::optional<TValue> Typed = Parse(Text());
    if (!Typed.has_value()) return;
    const TValue Within = Check(*Typed);
    if (IsSame(Within, FValue)) return;
    FValue = Within;
    {
      const TScopedValue Setting(FSetting, true);
      FLastValid = TextOf(FValue);
      SetText(FLastValid);
    }
    Beep();
    TellValue();
  }

  /// The value within the limits.
  virtual TValue Check(TValue Value) const {
    return FMaxValue > FMinValue ? std::clamp(Value, FMinValue, FMaxValue) : Value;
  }

  /// Runs whenever a value was set, typed or validated.
  const TNotifyEvent& OnValueChanged() const { return mValueChanged; }
  void SetOnValueChanged(TNotifyEvent Value) { mValueChanged = std::move(Value); }

  void KeyPress(char32_t& Key) override {
    TCustomEdit::KeyPress(Key);
    constexpr char32_t Tab = 9, Return = 13, Escape = 27, Delete = 127;  // the others are keys, no characters
    constexpr std::u32string_view Edits = U"\1\3\10\26\30\32";  // select all, copy, backspace, paste, cut, undo
    if (Key == 0 || Key == Tab || Key == Escape || Key == Delete || Accepts(Key)) return;
    if (Edits.find(Key) != std::u32string_view::npos) return;
    const bool IsReturn = Key == Return;
    Key = 0;
    if (!IsReturn || std::is_integral_v<TValue>) Beep();
    if (!IsReturn) return;
    const std::uint64_t Alive = LiveHandle();
    ValidateText();
    if (FromLiveHandle(Alive) != nullptr) DblClick();
  }

 protected:
  using TZyLinked::TZyLinked;

  /// The text of a value; throws for one that has none.
  virtual std::string TextOf(TValue Value) const = 0;
  /// The value of a text, nothing for one that has none.
  virtual std::optional<TValue> Parse(const std::string& Text) const = 0;
  /// Whether a number can have this character.
  virtual bool Accepts(char32_t Key) const = 0;
  /// Whether both are the same to somebody who reads them.
  virtual bool IsSame(TValue Left, TValue Right) const { return Left == Right; }
  /// Told of new limits.
  virtual void LimitsChanged() {}
  void ClampLimits(TValue Lowest, TValue Highest) {
    FMinValue = std::clamp(FMinValue, Lowest, Highest);
    FMaxValue = std::clamp(FMaxValue, Lowest, Highest);
  }
  /// The text of the present value for so many pixels.
  virtual std::string Fitted(int Width) = 0;
  /// The width that a text has for itself.
  virtual int WinWidth() { return TextWidth(); }

  /// Shows the value, in as much room as there is unless the user is in it.
  void DisplayOrHash() {
    if (Parent() == nullptr) return;
    const TScopedValue Setting(FSetting, true);
    try {
      SetText(HasKeyboard() || !HasWidget() ? TextOf(FValue) : Fitted(WinWidth()));
    } catch (const std::exception&) {
      SetText(ErrorText);
    }
  }
  /// For a change of what texts look like, which must not meet a user who types.
  void ShowAnew() {
    if (HasKeyboard()) return;
    try {
      FLastValid = TextOf(FValue);
    } catch (const std::exception&) {
    }
    DisplayOrHash();
  }
  /// The text, or "#" where it is too wide.
  std::string TextOrHashes(std::string Shown, int Width) { return WidthOf(Shown) > Width ? Hashes() : Shown; }

  void Change() override {
    if (FSetting) return;  // nobody hears of the control's own texts
    const std::uint64_t Alive = LiveHandle();
    TCustomEdit::Change();
    if (FromLiveHandle(Alive) == nullptr || Text().empty()) return;
    const std::optional<TValue> Typed = Parse(Text());
    if (!Typed.has_value() || (FMaxValue > FMinValue && (*Typed < FMinValue || *Typed > FMaxValue))) return;
    FLastValid = Text();
    FValue = *Typed;
    TellValue();
  }

  /// The whole text shows again, with the selection of before.
  void DoEnter() override {
    {
      const TScopedValue Setting(FSetting, true);
      if (!FLastValid.empty()) SetText(FLastValid);
    }
    PlaceCaret();
    TCustomEdit::DoEnter();
  }
  void Entered() override {
    PlaceCaret();
    FNeedSelectAll = false;
  }
  void DoExit() override {
    const std::uint64_t Alive = LiveHandle();
    FLastCursorPos = SelStart();
    FLastSelLength = SelLength();
    ValidateText();
    if (FromLiveHandle(Alive) == nullptr) return;
    FHasLeft = true;
    DisplayOrHash();
    FHasLeft = false;
    SetSelStart(0);
    TCustomEdit::DoExit();
  }
  void Resize() override {
    TCustomEdit::Resize();
    if (!HasKeyboard() && !IsLoading()) DisplayOrHash();
  }
  void Appeared() override { Resize(); }
  void CMFontChanged() override {
    TCustomEdit::CMFontChanged();
    if (!IsLoading() && !IsDestroying()) ShowAnew();
  }

 private:
  static constexpr const char* ErrorText = "Error";

  static std::string Hashes() { return std::string(45, '#'); }
  /// Whether the user may be typing. Within DoExit the toolkit may still say so.
  bool HasKeyboard() const { return !FHasLeft && Focused(); }
  void SetLimit(TValue& Limit, TValue Value) {
    if (Value == Limit) return;
    Limit = Value;
    LimitsChanged();
    if (!IsLoading()) SetValue(FValue);
  }
  void PlaceCaret() {
    if (FLastCursorPos > 0 || FLastSelLength > 0) Select(FLastCursorPos, FLastSelLength);
    if (FNeedSelectAll) SelectAll();
  }
  void TellValue() {
    const std::uint64_t Alive = LiveHandle();
    if (const TNotifyEvent Event = mValueChanged) Event(this);
    if (FromLiveHandle(Alive) != nullptr) SetLink(FValue);
  }

  TValue FMinValue = 0, FMaxValue = 0, FValue = 0;
  int FLastCursorPos = 0, FLastSelLength = 0;
  bool FSetting = false;
  bool FHasLeft = false;
  bool FNeedSelectAll = false;
  std::string FLastValid = "0";
  TNotifyEvent mValueChanged;
};

}  // namespace zy
