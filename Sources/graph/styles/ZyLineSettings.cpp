#include "graph/styles/ZyLineSettings.h"

#include "graph/styles/ZyGradientBrushes.h"
#include "persistence/ZyArchive.h"
#include "platform/framework/TPropInfo.h"
#include "undo/ZyChange.h"

namespace zy {

// Colour, dash style and visibility have no default: owners start with their own, and a reader could not tell.
ZY_PUBLISHED(
    TZySimpleLineSettings, TPersistent,
    Published<&TZySimpleLineSettings::Color, &TZySimpleLineSettings::SetColor>("Color", _sLineColor),
    Published<&TZySimpleLineSettings::DashStyle, &TZySimpleLineSettings::SetDashStyle>("DashStyle", _sDashStyle),
    Published<&TZySimpleLineSettings::Width, &TZySimpleLineSettings::SetWidth>("Width", 1.0f, _sLineWidth),
    Published<static_cast<TZyGradientSettings& (TZySimpleLineSettings::*)()>(&TZySimpleLineSettings::Gradient)>(
        "Gradient"))
ZY_PUBLISHED(TZyLineSettings, TZySimpleLineSettings,
             Published<&TZyLineSettings::Visible, &TZyLineSettings::SetVisible>("Visible", _sLineVisible))

TZySimpleLineSettings::TZySimpleLineSettings(ModifiedCallback WhenModified)
    : TZyStyleSettings(std::move(WhenModified)), FGradient([this] { Modified(); }) {}

void TZySimpleLineSettings::SetColor(TZyColor Value) {
  Change(this, FColor, Value, "Color", &TZySimpleLineSettings::Modified);
}

void TZySimpleLineSettings::SetDashStyle(TDashStyle Value) {
  Change(this, FDashStyle, Value, "DashStyle", &TZySimpleLineSettings::Modified);
}

void TZySimpleLineSettings::SetWidth(float Value) {
  Change(this, FWidth, Value, "Width", &TZySimpleLineSettings::Modified);
}

void TZySimpleLineSettings::SetUndoStack(TZyUndoStack* Value) {
  TZyStyleSettings::SetUndoStack(Value);
  FGradient.SetUndoStack(Value);
}

std::unique_ptr<TZyPen> TZySimpleLineSettings::GetPen(const RectF& View, float Angle) const {
  auto Result = FGradient.Visible() ? std::make_unique<TZyPen>(*FGradient.GetBrush(View, Angle), FWidth)
                                    : std::make_unique<TZyPen>(FColor, FWidth);
  Result->SetMiterLimit(0);
  Result->SetDashStyle(FDashStyle);
  return Result;
}

std::unique_ptr<TZyPen> TZySimpleLineSettings::GetPen(const TRect& View, float Angle) const {
  return GetPen(ToRectF(View), Angle);
}

void TZyLineSettings::SetVisible(bool Value) { Change(this, FVisible, Value, "Visible", &TZyLineSettings::Modified); }

void TZyLineSettings::Assign(const TPersistent* Source) {
  if (const auto* const Line = dynamic_cast<const TZyLineSettings*>(Source)) SetVisible(Line->FVisible);
  TZySimpleLineSettings::Assign(Source);
}

void TZySimpleLineSettings::Fields(TZyArchive& Archive) {
  using T = TZySimpleLineSettings;
  Archive.Field<&T::Color, &T::SetColor>(*this, "Color");
  Archive.Field<&T::Width, &T::SetWidth>(*this, TZyFieldName("Width").Default("1"));
  Archive.Field<&T::DashStyle, &T::SetDashStyle>(*this, "DashStyle");
  if (!Archive.NextGroup()) return;
  if (Archive.IsStream()) Archive.Part("Gradient", FGradient);
  Archive.EndRecord();
}

void TZyLineSettings::Fields(TZyArchive& Archive) {
  Archive.Field<&TZyLineSettings::Visible, &TZyLineSettings::SetVisible>(*this, "Visible");
  TZySimpleLineSettings::Fields(Archive);
}

}  // namespace zy
