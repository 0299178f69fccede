#include "platform/controls/TControlFont.h"

#include "platform/framework/TPropInfo.h"
#include "texts/Exceptions.h"
#include "texts/NumberText.h"
#include "texts/ZyLocalize.h"

namespace zy {

// Without defaults: a font is stored whole, since what it would be otherwise is the parent's and not a constant.
ZY_PUBLISHED(TControlFont, TPersistent, Published<&TControlFont::Name, &TControlFont::SetName>("Name"),
             Published<&TControlFont::Size, &TControlFont::SetSize>("Size"),
             Published<&TControlFont::Style, &TControlFont::SetStyle>("Style"),
             Published<&TControlFont::Color, &TControlFont::SetColor>("Color"))

TControlFont::TControlFont(std::function<void()> OnChange) : FOnChange(std::move(OnChange)) {}

TControlFont::~TControlFont() = default;

void TControlFont::SetName(const std::string& Value) { Change(FName, Value); }

void TControlFont::SetSize(float Value) {
  if (!(Value > 0 && Value <= Font::MaxSize))
    throw ERangeError(Format(LoadResString(_sFontSize), {FloatToStr(static_cast<double>(Value))}));
  Change(FSize, Value);
}

void TControlFont::SetStyle(TFontStyles Value) { Change(FStyle, Value); }

void TControlFont::SetColor(ARGB Value) { Change(FColor, Value); }

void TControlFont::Assign(const TPersistent* Source) {
  const auto* const Other = dynamic_cast<const TControlFont*>(Source);
  if (Other == nullptr) return Inherited::Assign(Source);
  if (*this == *Other) return;
  FName = Other->FName;
  FSize = Other->FSize;
  FStyle = Other->FStyle;
  FColor = Other->FColor;
  if (FOnChange) FOnChange();
}

bool TControlFont::operator==(const TControlFont& Other) const {
  return FName == Other.FName && FSize == Other.FSize && FStyle == Other.FStyle && FColor == Other.FColor;
}

}  // namespace zy
