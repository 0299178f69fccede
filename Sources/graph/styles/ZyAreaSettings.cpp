#include "graph/styles/ZyAreaSettings.h"

#include "graph/styles/ZyGradientBrushes.h"
#include "persistence/ZyArchive.h"
#include "platform/framework/TPropInfo.h"
#include "undo/ZyChange.h"

namespace zy {

// Colours and visibility have no default: owners start with their own, and a reader could not tell.
ZY_PUBLISHED(
    TZyAreaSettings, TPersistent,
    Published<&TZyAreaSettings::Visible, &TZyAreaSettings::SetVisible>("Visible", _sAreaVisible),
    Published<&TZyAreaSettings::AreaStyle, &TZyAreaSettings::SetAreaStyle>("AreaStyle", TZyAreaStyle::Total,
                                                                           _sAreaStyle),
    Published<&TZyAreaSettings::ForeColor, &TZyAreaSettings::SetForeColor>("ForeColor", _sAreaForeColor),
    Published<&TZyAreaSettings::BackColor, &TZyAreaSettings::SetBackColor>("BackColor", _sAreaBackColor),
    Published<static_cast<TZyGradientSettings& (TZyAreaSettings::*)()>(&TZyAreaSettings::Gradient)>("Gradient"))

TZyAreaSettings::TZyAreaSettings(ModifiedCallback WhenModified)
    : TZyStyleSettings(std::move(WhenModified)), FGradient([this] { Modified(); }) {}

void TZyAreaSettings::SetVisible(bool Value) { Change(this, FVisible, Value, "Visible", &TZyAreaSettings::Modified); }

void TZyAreaSettings::SetAreaStyle(TZyAreaStyle Value) {
  Change(this, FAreaStyle, Value, "AreaStyle", &TZyAreaSettings::Modified);
}

void TZyAreaSettings::SetForeColor(TZyColor Value) {
  Change(this, FForeColor, Value, "ForeColor", &TZyAreaSettings::Modified);
}

void TZyAreaSettings::SetBackColor(TZyColor Value) {
  Change(this, FBackColor, Value, "BackColor", &TZyAreaSettings::Modified);
}

void TZyAreaSettings::SetUndoStack(TZyUndoStack* Value) {
  TZyStyleSettings::SetUndoStack(Value);
  FGradient.SetUndoStack(Value);
}

std::unique_ptr<Brush> TZyAreaSettings::GetBrush(const RectF& View) const {
  if (FGradient.Visible()) return FGradient.GetBrush(View, 0);
  return GetAreaBrush(FAreaStyle, FForeColor, FBackColor);
}

std::unique_ptr<Brush> TZyAreaSettings::GetBrush(const TRect& View) const { return GetBrush(ToRectF(View)); }

void TZyAreaSettings::Fields(TZyArchive& Archive) {
  using T = TZyAreaSettings;
  Archive.Field<&T::Visible, &T::SetVisible>(*this, "Visible");
  Archive.Field<&T::ForeColor, &T::SetForeColor>(*this, "ForeColor");
  Archive.Field<&T::BackColor, &T::SetBackColor>(*this, "BackColor");
  Archive.Field<&T::AreaStyle, &T::SetAreaStyle>(*this, TZyFieldName("AreaStyle").Ini("Style"));
  if (!Archive.NextGroup()) return;
  Archive.Part(TZyFieldName("Gradient").Later(), FGradient);
  Archive.EndRecord();
}

}  // namespace zy
