#include "annotations/ZyFont.h"

#include "platform/framework/TPropInfo.h"

namespace zy {

ZY_PUBLISHED(TZyFont, TPersistent, Published<&TZyFont::Name, &TZyFont::SetName>("Name"),
             Published<&TZyFont::Size, &TZyFont::SetSize>("Size"),
             Published<&TZyFont::Style, &TZyFont::SetStyle>("Style"),
             Published<&TZyFont::FillColor, &TZyFont::SetFillColor>("FillColor"))

TZyFont::TZyFont(ModifiedCallback NeedsInvalidate) : mNeedsInvalidate(std::move(NeedsInvalidate)) {}

void TZyFont::NeedsResize() {
  if (OnNeedsResize) OnNeedsResize();
}

void TZyFont::SetName(const std::string& Value) {
  if (FName == Value) return;
  FName = Value;
  NeedsResize();
}

void TZyFont::SetSize(float Value) {
  if (FSize == Value) return;
  FSize = Value;
  NeedsResize();
}

void TZyFont::SetStyle(TFontStyles Value) {
  if (FStyle == Value) return;
  FStyle = Value;
  NeedsResize();
}

void TZyFont::SetFillColor(TZyColor Value) {
  if (FFillColor == Value) return;
  FFillColor = Value;
  if (mNeedsInvalidate) mNeedsInvalidate();
}

void TZyFont::Assign(const TPersistent* Source) {
  const auto* const Other = dynamic_cast<const TZyFont*>(Source);
  if (Other == nullptr) return TPersistent::Assign(Source);
  FName = Other->FName;
  FSize = Other->FSize;
  FStyle = Other->FStyle;
  FFillColor = Other->FFillColor;
  NeedsResize();
}

}  // namespace zy
