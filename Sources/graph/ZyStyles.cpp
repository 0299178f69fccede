#include "graph/ZyStyles.h"

#include "platform/framework/TPropInfo.h"
#include "undo/ZyChange.h"

namespace zy {

ZY_PUBLISHED(TZySimpleLineSettings, TPersistent,
             Published<&TZySimpleLineSettings::Color, &TZySimpleLineSettings::SetColor>("Color"),
             Published<&TZySimpleLineSettings::DashStyle, &TZySimpleLineSettings::SetDashStyle>("DashStyle"),
             Published<&TZySimpleLineSettings::Width, &TZySimpleLineSettings::SetWidth>("Width"))
ZY_PUBLISHED(TZyLineSettings, TZySimpleLineSettings,
             Published<&TZyLineSettings::Visible, &TZyLineSettings::SetVisible>("Visible"))

TZySimpleLineSettings::TZySimpleLineSettings(ModifiedCallback WhenModified)
    : mModifiedCallBack(std::move(WhenModified)) {}

void TZySimpleLineSettings::Modified() {
  if (mModifiedCallBack) mModifiedCallBack();
}

void TZySimpleLineSettings::SetColor(TZyColor Value) {
  Change(this, FColor, Value, _sLineColor, "Color", &TZySimpleLineSettings::Modified);
}

void TZySimpleLineSettings::SetDashStyle(TDashStyle Value) {
  Change(this, FDashStyle, Value, _sDashStyle, "DashStyle", &TZySimpleLineSettings::Modified);
}

void TZySimpleLineSettings::SetWidth(float Value) {
  Change(this, FWidth, Value, _sLineWidth, "Width", &TZySimpleLineSettings::Modified);
}

std::unique_ptr<TZyPen> TZySimpleLineSettings::GetPen(const RectF&, float) const {
  auto Result = std::make_unique<TZyPen>(FColor, FWidth);
  Result->SetMiterLimit(0);
  Result->SetDashStyle(FDashStyle);
  return Result;
}

void TZySimpleLineSettings::Assign(const TPersistent* Source) {
  const auto* const Line = dynamic_cast<const TZySimpleLineSettings*>(Source);
  if (Line == nullptr) return TPersistent::Assign(Source);
  FDashStyle = Line->FDashStyle;
  FColor = Line->FColor;
  FWidth = Line->FWidth;
  Modified();
}

void TZyLineSettings::SetVisible(bool Value) {
  Change(this, FVisible, Value, _sLineVisible, "Visible", &TZyLineSettings::Modified);
}

void TZyLineSettings::Assign(const TPersistent* Source) {
  if (const auto* const Line = dynamic_cast<const TZyLineSettings*>(Source)) SetVisible(Line->FVisible);
  TZySimpleLineSettings::Assign(Source);
}

}  // namespace zy
