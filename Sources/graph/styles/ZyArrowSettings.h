#pragma once

#include <memory>

#include "graph/styles/ZyLineSettings.h"

namespace zy {

/// A line that ends in an arrow tip. The tip's measures are in units of the line's width and never below
/// MinArrowLength.
class TZyArrowSettings : public TZyLineSettings {
  ZY_CLASS(TZyArrowSettings, TZyLineSettings)
  using TZyLineSettings::TZyLineSettings;

  /// From the point of the tip back to its barbs.
  float PointLength() const { return FPointLength; }
  void SetPointLength(float Value);
  /// From the point of the tip back to where the line enters it.
  float InnerLength() const { return FInnerLength; }
  void SetInnerLength(float Value);
  /// From the line to a barb.
  float PointHeight() const { return FPointHeight; }
  void SetPointHeight(float Value);

  using TZyLineSettings::GetPen;
  /// A pen that draws the tip at the end of each line.
  std::unique_ptr<TZyPen> GetPen(const RectF& View, float Angle) const override;
  /// What a record has of the tip, with the visibility of the line. `Fields` are those of the line alone.
  void TipFields(TZyArchive& Archive);

 private:
  void SetLength(float& Field, float Value, const char* PropName);

  float FPointLength = 5;
  float FInnerLength = 3;
  float FPointHeight = 2;
};

/// The arrow tip at the end of an axis; measures as for TZyArrowSettings.
class TZyAxisArrowPoint : public TZyStyleSettings {
  ZY_CLASS(TZyAxisArrowPoint, TPersistent)
  explicit TZyAxisArrowPoint(ModifiedCallback WhenModified) : TZyStyleSettings(std::move(WhenModified)) {}

  bool Visible() const { return FVisible; }
  void SetVisible(bool Value);
  float PointLength() const { return FPointLength; }
  void SetPointLength(float Value);
  float InnerLength() const { return FInnerLength; }
  void SetInnerLength(float Value);
  float PointHeight() const { return FPointHeight; }
  void SetPointHeight(float Value);

  /// Copies all values; tells nobody.
  void Assign(const TPersistent* Source) override;
  void Fields(TZyArchive& Archive) override;

 private:
  void SetLength(float& Field, float Value, const char* PropName);

  bool FVisible = false;
  float FPointLength = 7;
  float FInnerLength = 5;
  float FPointHeight = 3;
};

/// A tip without extent cannot be drawn.
inline constexpr float MinArrowLength = 1e-5f;

/// The tip as a shape for the end of a pen's lines: its point lies on the line's end and it grows back along the line.
std::unique_ptr<CustomLineCap> ArrowPointCap(const TZyArrowSettings& Settings);
std::unique_ptr<CustomLineCap> ArrowPointCap(const TZyAxisArrowPoint& Settings);

}  // namespace zy
