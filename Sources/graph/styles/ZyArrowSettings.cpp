#include "graph/styles/ZyArrowSettings.h"

#include <algorithm>
#include <limits>

#include "persistence/ZyArchive.h"
#include "platform/drawing/GraphicsPath.h"
#include "platform/framework/TPropInfo.h"
#include "undo/ZyChange.h"

namespace zy {
namespace {

constexpr double Longest = std::numeric_limits<float>::max();

}  // namespace

ZY_PUBLISHED(TZyArrowSettings, TZyLineSettings,
             Published<&TZyArrowSettings::PointLength, &TZyArrowSettings::SetPointLength>("PointLength", 5.0f,
                                                                                          _sArrowPointLength)
                 .Clamped(MinArrowLength, Longest),
             Published<&TZyArrowSettings::InnerLength, &TZyArrowSettings::SetInnerLength>("InnerLength", 3.0f,
                                                                                          _sArrowInnerLength)
                 .Clamped(MinArrowLength, Longest),
             Published<&TZyArrowSettings::PointHeight, &TZyArrowSettings::SetPointHeight>("PointHeight", 2.0f,
                                                                                          _sArrowPointHeight)
                 .Clamped(MinArrowLength, Longest))
ZY_PUBLISHED(TZyAxisArrowPoint, TPersistent,
             Published<&TZyAxisArrowPoint::Visible, &TZyAxisArrowPoint::SetVisible>("Visible", false,
                                                                                    _sAxisArrowVisible),
             Published<&TZyAxisArrowPoint::PointLength, &TZyAxisArrowPoint::SetPointLength>("PointLength", 7.0f,
                                                                                            _sAxisArrowPointLength)
                 .Clamped(MinArrowLength, Longest),
             Published<&TZyAxisArrowPoint::InnerLength, &TZyAxisArrowPoint::SetInnerLength>("InnerLength", 5.0f,
                                                                                            _sAxisArrowInnerLength)
                 .Clamped(MinArrowLength, Longest),
             Published<&TZyAxisArrowPoint::PointHeight, &TZyAxisArrowPoint::SetPointHeight>("PointHeight", 3.0f,
                                                                                            _sAxisArrowPointHeight)
                 .Clamped(MinArrowLength, Longest))

namespace {

float AtLeastMin(float Value) { return std::max(Value, MinArrowLength); }

template <class TSettings>
std::unique_ptr<CustomLineCap> MakeCap(const TSettings& Settings) {
  const float H = Settings.PointHeight(), L = Settings.PointLength(), I = Settings.InnerLength();
  const PointF Points[] = {{H, -L}, {0, 0}, {-H, -L}, {0, -I}, {H, -L}};
  GraphicsPath Path(FillModeAlternate);
  Path.AddPolygon(Points);
  return std::make_unique<CustomLineCap>(&Path, nullptr, LineCapFlat, I);
}

}  // namespace

void TZyArrowSettings::SetLength(float& Field, float Value, const char* PropName) {
  ChangeBy(this, Field, Value, PropName, [&](float Length) {
    Field = AtLeastMin(Length);
    Modified();
  });
}

void TZyArrowSettings::SetPointLength(float Value) { SetLength(FPointLength, Value, "PointLength"); }

void TZyArrowSettings::SetInnerLength(float Value) { SetLength(FInnerLength, Value, "InnerLength"); }

void TZyArrowSettings::SetPointHeight(float Value) { SetLength(FPointHeight, Value, "PointHeight"); }

std::unique_ptr<TZyPen> TZyArrowSettings::GetPen(const RectF& View, float Angle) const {
  auto Result = TZyLineSettings::GetPen(View, Angle);
  Result->SetCustomEndCap(*ArrowPointCap(*this));
  return Result;
}

void TZyAxisArrowPoint::SetVisible(bool Value) {
  Change(this, FVisible, Value, "Visible", &TZyAxisArrowPoint::Modified);
}

void TZyAxisArrowPoint::SetLength(float& Field, float Value, const char* PropName) {
  ChangeBy(this, Field, Value, PropName, [&](float Length) {
    Field = AtLeastMin(Length);
    Modified();
  });
}

void TZyAxisArrowPoint::SetPointLength(float Value) { SetLength(FPointLength, Value, "PointLength"); }

void TZyAxisArrowPoint::SetInnerLength(float Value) { SetLength(FInnerLength, Value, "InnerLength"); }

void TZyAxisArrowPoint::SetPointHeight(float Value) { SetLength(FPointHeight, Value, "PointHeight"); }

void TZyAxisArrowPoint::Assign(const TPersistent* Source) {
  if (!CopyFrom(Source)) TZyStyleSettings::Assign(Source);
}

std::unique_ptr<CustomLineCap> ArrowPointCap(const TZyArrowSettings& Settings) { return MakeCap(Settings); }

std::unique_ptr<CustomLineCap> ArrowPointCap(const TZyAxisArrowPoint& Settings) { return MakeCap(Settings); }

void TZyArrowSettings::TipFields(TZyArchive& Archive) {
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
