#include "graph/styles/ZyPointSymbolSettings.h"

#include "persistence/ZyArchive.h"
#include "platform/framework/TPropInfo.h"
#include "undo/ZyChange.h"

namespace zy {

// Symbol, colours and visibility have no default: owners start with their own, and a reader could not tell.
ZY_PUBLISHED(
    TZyPointSymbolSettings, TPersistent,
    Published<&TZyPointSymbolSettings::Visible, &TZyPointSymbolSettings::SetVisible>("Visible", _sPointSymbolVisible),
    Published<&TZyPointSymbolSettings::Size, &TZyPointSymbolSettings::SetSize>("Size", 11.0f, _sPointSymbolSize),
    Published<&TZyPointSymbolSettings::BorderLineWidth, &TZyPointSymbolSettings::SetBorderLineWidth>(
        "BorderLineWidth", 1.0f, _sPointSymbolBorderLineWidth),
    Published<&TZyPointSymbolSettings::BorderColor, &TZyPointSymbolSettings::SetBorderColor>("BorderColor",
                                                                                             _sPointSymbolBorderColor),
    Published<&TZyPointSymbolSettings::FillColor, &TZyPointSymbolSettings::SetFillColor>("FillColor",
                                                                                         _sPointSymbolFillColor),
    Published<&TZyPointSymbolSettings::PointSymbol, &TZyPointSymbolSettings::SetPointSymbol>("PointSymbol",
                                                                                             _sPointSymbolPointSymbol))

void TZyPointSymbolSettings::SetVisible(bool Value) {
  Change(this, FVisible, Value, "Visible", &TZyPointSymbolSettings::Modified);
}

void TZyPointSymbolSettings::SetSize(float Value) {
  Change(this, FSize, Value, "Size", &TZyPointSymbolSettings::Modified);
}

void TZyPointSymbolSettings::SetBorderLineWidth(float Value) {
  Change(this, FBorderLineWidth, Value, "BorderLineWidth", &TZyPointSymbolSettings::Modified);
}

void TZyPointSymbolSettings::SetBorderColor(TZyColor Value) {
  Change(this, FBorderColor, Value, "BorderColor", &TZyPointSymbolSettings::Modified);
}

void TZyPointSymbolSettings::SetFillColor(TZyColor Value) {
  Change(this, FFillColor, Value, "FillColor", &TZyPointSymbolSettings::Modified);
}

void TZyPointSymbolSettings::SetPointSymbol(TZyPointSymbol Value) {
  Change(this, FPointSymbol, Value, "PointSymbol", &TZyPointSymbolSettings::Modified);
}

void TZyPointSymbolSettings::Fields(TZyArchive& Archive) {
  using T = TZyPointSymbolSettings;
  Archive.Field<&T::Visible, &T::SetVisible>(*this, "Visible");
  Archive.Field<&T::Size, &T::SetSize>(*this, "Size");
  Archive.Field<&T::BorderLineWidth, &T::SetBorderLineWidth>(*this, "BorderLineWidth");
  Archive.Field<&T::BorderColor, &T::SetBorderColor>(*this, "BorderColor");
  Archive.Field<&T::FillColor, &T::SetFillColor>(*this, "FillColor");
  Archive.Field<&T::PointSymbol, &T::SetPointSymbol>(*this, "Symbol");
}

}  // namespace zy
