#include "graph/styles/ZyArrowSettings.h"

#include "persistence/ZyArchive.h"
#include "platform/drawing/GraphicsPath.h"
#include "platform/framework/TPropInfo.h"
#include "undo/ZyChange.h"

namespace zy {

ZY_PUBLISHED(TZyArrowSettings, TZyLineSettings,
             Published<&TZyArrowSettings::PointLength, &TZyArrowSettings::SetPointLength>("PointLength", 5.0f),
             Published<&TZyArrowSettings::InnerLength, &TZyArrowSettings::SetInnerLength>("InnerLength", 3.0f),
             Published<&TZyArrowSettings::PointHeight, &TZyArrowSettings::SetPointHeight>("PointHeight", 2.0f))
ZY_PUBLISHED(TZyAxisArrowPoint, TPersistent,
             Published<&TZyAxisArrowPoint::Visible, &TZyAxisArrowPoint::SetVisible>("Visible", false),
             Published<&TZyAxisArrowPoint::PointLength, &TZyAxisArrowPoint::SetPointLength>("PointLength", 7.0f),
             Published<&TZyAxisArrowPoint::InnerLength, &TZyAxisArrowPoint::SetInnerLength>("InnerLength", 5.0f),
             Published<&TZyAxisArrowPoint::PointHeight, &TZyAxisArrowPoint::SetPointHeight>("PointHeight", 3.0f))

namespace {

/// What is no number counts as too short.
float AtLeastMin(float Value) { return Value >= MinArrowLength ? Value : MinArrowLength; }

template <class TSettings>
std::unique_ptr<CustomLineCap> MakeCap(const TSettings& Settings) {
  const float H = Settings.PointHeight(), L = Settings.PointLength(), I = Settings.InnerLength();
  const PointF Points[] = {{H, -L}, {0, 0}, {-H, -L}, {0, -I}, {H, -L}};
  GraphicsPath Path(FillModeAlternate);
  Path.AddPolygon(Points);
  return std::make_unique<CustomLineCap>(&Path, nullptr, LineCapFlat, I);
}

}  // namespace

void TZyArrowSettings::SetLength(float& Field, float Value, TZyText Label, const char* PropName) {
  if (Field == Value) return;
  if (UndoStack() != nullptr) UndoStack()->PushProperty(this, LoadResString(Label), PropName);
  Field = AtLeastMin(Value);
  Modified();
}

void TZyArrowSettings::SetPointLength(float Value) {
  SetLength(FPointLength, Value, _sArrowPointLength, "PointLength");
}

void TZyArrowSettings::SetInnerLength(float Value) {
  SetLength(FInnerLength, Value, _sArrowInnerLength, "InnerLength");
}

void TZyArrowSettings::SetPointHeight(float Value) {
  SetLength(FPointHeight, Value, _sArrowPointHeight, "PointHeight");
}

std::unique_ptr<TZyPen> TZyArrowSettings::GetPen(const RectF& View, float Angle) const {
  auto Result = TZyLineSettings::GetPen(View, Angle);
  Result->SetCustomEndCap(*ArrowPointCap(*this));
  return Result;
}

void TZyArrowSettings::Assign(const TPersistent* Source) {
  if (const auto* const Arrow = dynamic_cast<const TZyArrowSettings*>(Source)) {
    FPointLength = Arrow->FPointLength;
    FInnerLength = Arrow->FInnerLength;
    FPointHeight = Arrow->FPointHeight;
  }
  TZyLineSettings::Assign(Source);
}

void TZyAxisArrowPoint::SetLength(float& Field, float Value, TZyText Label, const char* PropName) {
  if (Field == Value) return;
  if (UndoStack() != nullptr) UndoStack()->PushProperty(this, LoadResString(Label), PropName);
  Field = AtLeastMin(Value);
  Modified();
}

void TZyAxisArrowPoint::SetVisible(bool Value) {
  Change(this, FVisible, Value, _sAxisArrowVisible, "Visible", &TZyAxisArrowPoint::Modified);
}

void TZyAxisArrowPoint::SetPointLength(float Value) {
  SetLength(FPointLength, Value, _sAxisArrowPointLength, "PointLength");
}

void TZyAxisArrowPoint::SetInnerLength(float Value) {
  SetLength(FInnerLength, Value, _sAxisArrowInnerLength, "InnerLength");
}

void TZyAxisArrowPoint::SetPointHeight(float Value) {
  SetLength(FPointHeight, Value, _sAxisArrowPointHeight, "PointHeight");
}

void TZyAxisArrowPoint::Assign(const TPersistent* Source) {
  const auto* const Other = dynamic_cast<const TZyAxisArrowPoint*>(Source);
  if (Other == nullptr) return TPersistent::Assign(Source);
  FVisible = Other->FVisible;
  FPointLength = Other->FPointLength;
  FInnerLength = Other->FInnerLength;
  FPointHeight = Other->FPointHeight;
}

std::unique_ptr<CustomLineCap> ArrowPointCap(const TZyArrowSettings& Settings) { return MakeCap(Settings); }

std::unique_ptr<CustomLineCap> ArrowPointCap(const TZyAxisArrowPoint& Settings) { return MakeCap(Settings); }

void TZyArrowSettings::Fields(TZyArchive& Archive) {
  using T = TZyArrowSettings;
  Archive.Field<&T::Visible, &T::SetVisible>(*this, "Visible");
  Archive.Field<&T::PointLength, &T::SetPointLength>(*this, "PointLength");
  Archive.Field<&T::InnerLength, &T::SetInnerLength>(*this, "InnerLength");
  Archive.Field<&T::PointHeight, &T::SetPointHeight>(*this, "PointHeight");
}

void TZyAxisArrowPoint::Fields(TZyArchive& Archive) {
  using T = TZyAxisArrowPoint;
  Archive.Field<&T::Visible, &T::SetVisible>(*this, "Visible");
  Archive.Field<&T::PointLength, &T::SetPointLength>(*this, "PointLength");
  Archive.Field<&T::InnerLength, &T::SetInnerLength>(*this, "InnerLength");
  Archive.Field<&T::PointHeight, &T::SetPointHeight>(*this, "PointHeight");
}

}  // namespace zy
