#include "dialogs/controls/ZyIntegerEdit.h"

#include <utility>

#include "platform/framework/TPropInfo.h"
#include "texts/Exceptions.h"
#include "texts/NumberText.h"

namespace zy {

// The limits stand before the value, so that a stored value comes into limits that are there already.
ZY_PUBLISHED(TZyIntegerEdit, TCustomEdit,
             Published<&TZyIntegerEdit::MinValue, &TZyIntegerEdit::SetMinValue>("MinValue", 0),
             Published<&TZyIntegerEdit::MaxValue, &TZyIntegerEdit::SetMaxValue>("MaxValue", 0),
             Published<&TZyIntegerEdit::Value, &TZyIntegerEdit::SetValue>("Value", 0),
             Published<&TZyIntegerEdit::PropertyLinks>("PropertyLinks"),
             Published<&TZyIntegerEdit::OnValueChanged, &TZyIntegerEdit::SetOnValueChanged>("OnValueChanged"))

TZyIntegerEdit::TZyIntegerEdit(TComponent* Owner) : TZyNumberEdit(Owner) {
  SetText("0");
  LinkBy("Value");
}

TZyIntegerEdit::~TZyIntegerEdit() { Destroying(); }

std::string TZyIntegerEdit::TextOf(int Value) const { return IntToStr(Value); }

std::optional<int> TZyIntegerEdit::Parse(const std::string& Text) const {
  try {
    const std::int64_t Whole = StrToInt(Text);
    if (std::in_range<int>(Whole)) return static_cast<int>(Whole);
  } catch (const EConvertError&) {
  }
  return std::nullopt;
}

bool TZyIntegerEdit::Accepts(char32_t Key) const { return (Key >= U'0' && Key <= U'9') || Key == U'-'; }

std::string TZyIntegerEdit::Fitted(int Width) { return TextOrHashes(TextOf(Value()), Width); }

}  // namespace zy
