#include "annotations/captions/ZyFont.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "persistence/ZyArchive.h"
#include "platform/controls/TControlFont.h"
#include "platform/framework/Reflection.h"
#include "undo/ZyUndoGroup.h"
#include "undo/ZyUndoStack.h"

namespace zy {

// Color and Height say less than FillColor and Size, which are what is stored.
ZY_PUBLISHED(TZyFont, TPersistent, Published<&TZyFont::Charset, &TZyFont::SetCharset>("Charset", 1),
             Published<&TZyFont::Color, &TZyFont::SetColor>("Color").NotStored(),
             Published<&TZyFont::Height, &TZyFont::SetHeight>("Height").NotStored(),
             Published<&TZyFont::Name, &TZyFont::SetName>("Name"),
             Published<&TZyFont::Size, &TZyFont::SetSize>("Size").Limited(std::numeric_limits<float>::lowest(),
                                                                          Font::MaxSize),
             Published<&TZyFont::Style, &TZyFont::SetStyle>("Style"),
             Published<&TZyFont::FillColor, &TZyFont::SetFillColor>("FillColor"),
             Published<&TZyFont::DrawEffects, &TZyFont::SetDrawEffects>("DrawEffects", {}),
             Published<&TZyFont::RenderingHint, &TZyFont::SetRenderingHint>("RenderingHint",
                                                                            TZyTextRenderingHint::SystemDefault),
             Published<static_cast<TZyGradientSettings& (TZyFont::*)()>(&TZyFont::Gradient)>("Gradient"))

TZyFont::TZyFont(ModifiedCallback NeedsInvalidate)
    : TZyStyleSettings(std::move(NeedsInvalidate)), FGradient([this] { Modified(); }) {}

void TZyFont::NeedsResize() {
  if (OnNeedsResize && !IsCopying()) OnNeedsResize();
}

void TZyFont::SetName(const std::string& Value) {
  if (FName == Value) return;
  FName = Value;
  NeedsResize();
}

void TZyFont::SetSize(float Value) {
  if (FSize == Value) return;
  FindPropInfo(*this, "Size").TestFloat(*this, static_cast<double>(Value));
  FSize = Value;
  if (Value > 0) FWholeSize = std::max(static_cast<int>(std::lround(Value)), 1);
  NeedsResize();
}

int TZyFont::Height() const {
  return -static_cast<int>(std::lround(static_cast<float>(FWholeSize) * Font::PixelsPerPoint));
}

void TZyFont::SetHeight(int Value) {
  const float Points = std::abs(static_cast<float>(Value)) / Font::PixelsPerPoint;
  FWholeSize = std::clamp(static_cast<int>(std::lround(Points)), 1, static_cast<int>(Font::MaxSize));
  NeedsResize();
}

void TZyFont::SetCharset(int Value) {
  if (FCharset == Value) return;
  FCharset = Value;
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
  Modified();
}

void TZyFont::SetColor(TColor Value) {
  FFillColor = TColorToARGB(Value);
  Modified();
}

void TZyFont::SetDrawEffects(TZyCharDrawEffects Value) {
  if (FDrawEffects == Value) return;
  const std::uint32_t Added = Value.Bits() & ~FDrawEffects.Bits();
  FDrawEffects = TZyCharDrawEffects::FromBits(Added & (~Added + 1));  // the lowest bit alone
  Modified();
}

void TZyFont::SetRenderingHint(TZyTextRenderingHint Value) {
  if (FRenderingHint == Value) return;
  FRenderingHint = Value;
  NeedsResize();
}

std::unique_ptr<TControlFont> TZyFont::AsTFont() const {
  auto Result = std::make_unique<TControlFont>();
  Result->SetName(FName);
  Result->SetSize(Size());
  Result->SetStyle(FStyle);
  Result->SetColor(FFillColor);
  return Result;
}

void TZyFont::SetAsTFont(const TControlFont& Value) { Assign(&Value); }

void TZyFont::Assign(const TPersistent* Source) {
  if (const auto* const Other = dynamic_cast<const TZyFont*>(Source)) return AssignFont(*Other);
  if (const auto* const Plain = dynamic_cast<const TControlFont*>(Source)) return AssignPlain(*Plain);
  TZyStyleSettings::Assign(Source);
  NeedsResize();
}

/// Each label of a chart takes a font, so this does not go through the table of properties.
void TZyFont::AssignFont(const TZyFont& Source) {
  FName = Source.FName;
  if (Source.Size() > 0) FWholeSize = std::max(static_cast<int>(std::lround(Source.Size())), 1);
  FSize = Source.Size();
  FCharset = Source.FCharset;
  FStyle = Source.FStyle;
  FFillColor = Source.FFillColor;
  FDrawEffects = Source.FDrawEffects;
  FRenderingHint = Source.FRenderingHint;
  FGradient.Assign(&Source.FGradient);  // tells that the look changed
  NeedsResize();
}

/// Controls count whole points.
void TZyFont::AssignPlain(const TControlFont& Source) {
  FName = Source.Name();
  FWholeSize = static_cast<int>(std::lround(Source.Size()));
  FSize = static_cast<float>(FWholeSize);
  FStyle = Source.Style();
  SetFillColor(Source.Color());
  NeedsResize();
}

void TZyFont::PushToUndoStack(TZyUndoStack* Stack, std::string_view Comment) {
  if (Stack == nullptr) return;
  const TZyUndoGroup Group(Stack, Comment);
  for (const char* Name : {"Name", "Style", "Size", "FillColor", "DrawEffects"}) Stack->PushProperty(this, "", Name);
  for (const char* Name : {"Visible", "Style", "FirstColor", "MiddleColor", "LastColor", "LinearAngle", "LinearCenter",
                           "RadialCenterX", "RadialCenterY"})
    Stack->PushProperty(&FGradient, "", Name);
}

void TZyFont::Fields(TZyArchive& Archive) {
  using T = TZyFont;
  Archive.Field<&T::Name, &T::SetName>(*this, "Name");
  // In a stream the size is a whole number first; its fraction came later.
  if (Archive.IsStream()) {
    Archive.Field(
        "Size", [this] { return static_cast<std::int32_t>(FWholeSize); },
        [this](std::int32_t Value) { SetSize(static_cast<float>(Value)); });
  } else {
    Archive.Field<&T::Size, &T::SetSize>(*this, "Size");
  }
  Archive.Field<&T::Style, &T::SetStyle>(*this, "Style");
  if (!Archive.NextGroup()) return;
  Archive.Field<&T::DrawEffects, &T::SetDrawEffects>(*this, TZyFieldName("DrawEffects").Later());
  Archive.Field<&T::RenderingHint, &T::SetRenderingHint>(*this, TZyFieldName("RenderingHint").Later());
  Archive.Field<&T::FillColor, &T::SetFillColor>(*this, TZyFieldName("FillColor").Later());
  Archive.Part(TZyFieldName("Gradient").Later(), FGradient);
  if (!Archive.NextGroup()) return;
  if (Archive.IsStream()) Archive.Field<&T::Size, &T::SetSize>(*this, "Size");
  Archive.EndRecord();
}

}  // namespace zy
