// Labels in boxes around a pie.

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "analysis/ZyMath.h"
#include "pie/ZyCalloutBoxes.h"
#include "pie/ZyPieCalculation.h"

namespace zy {
namespace {

/// A box on its way outwards from the middle of a pie, along the ray to a place on the rim.
class TWalk {
 public:
  /// All sizes in units of the radius; Half is half the extent of the box. Quadrant is that of the angle, which decides
  /// the corner that is the nearest to the middle.
  TWalk(PointF Rim, int Quadrant, SizeF Half, double Gap)
      : FX(static_cast<double>(Rim.X) * (Quadrant == 1 || Quadrant == 4 ? 1 : -1)),
        FY(static_cast<double>(Rim.Y) * (Quadrant < 3 ? 1 : -1)),
        FHalfX(static_cast<double>(Half.Width)),
        FHalfY(static_cast<double>(Half.Height)),
        FClear(1 + Gap) {}

  /// Distance of the box's middle from that of the pie: the first in steps of a thousandth of the radius at which the
  /// corner lies outside the rim and the box does not reach over the vertical line through the middle beside the pie.
  /// Ends at a thousand radii whatever the box.
  double Radius() const {
    // Where the box leaves the middle line, to the side or past the pie; its corner lies inside the rim between two
    // distances.
    double First = std::min(FX > 0 ? FHalfX / FX : Furthest, FY > 0 ? (FHalfY + FClear) / FY : Furthest);
    First = std::max(First, FClear);
    const double Along = FHalfX * FX + FHalfY * FY;
    const double Inside = Along * Along - (FHalfX * FHalfX + FHalfY * FHalfY - FClear * FClear);
    if (Inside > 0 && First > Along - std::sqrt(Inside)) First = std::max(First, Along + std::sqrt(Inside));
    const double Steps = std::ceil((First - FClear) / Step);
    auto n = static_cast<std::int64_t>(Steps > 0 ? std::min(Steps, MostSteps) : 0);  // 0 for what is no number
    n = std::max<std::int64_t>(n - 2, 0);  // rounding may make it one more or less
    while (!Fits(RadiusAt(n)) && n < static_cast<std::int64_t>(MostSteps)) ++n;
    return RadiusAt(n);
  }

 private:
  static constexpr double Step = 0.001, MostSteps = 1e6, Furthest = 1e9;

  double RadiusAt(std::int64_t n) const { return FClear + static_cast<double>(n) * Step; }
  bool Fits(double Radius) const {
    const double X = Radius * FX - FHalfX, Y = Radius * FY - FHalfY;
    return X * X + Y * Y >= FClear * FClear && !(X < 0 && Y < FClear);
  }

  double FX, FY;  // of the ray, both as in the first quadrant
  double FHalfX, FHalfY;
  double FClear;  // radius that is kept free
};

float Finite(float Value) { return std::isfinite(Value) ? Value : 0; }

}  // namespace

/// A box in units of the radius, by its middle and half its extent.
struct TZyPieCalculation::TBox {
  PointF Center;
  SizeF Half;
};

TZyPieCalculation::TBox TZyPieCalculation::PlaceBox(const TZyPieSegment& Segment, SizeF Half, float Gap) {
  const auto Middle = static_cast<double>(Segment.Middle());
  const PointF Rim = RimPoint(Middle);
  const int Quarter = Quadrant(Middle);
  const auto Radius = static_cast<float>(TWalk(Rim, Quarter, Half, static_cast<double>(Gap)).Radius());
  PointF Offset = Segment.Shift;
  if (FShape.Is3D() && Quarter < 3) Offset.Y += 2 * 0.01f * FShape.PieHeight / FShape.Squeeze();  // the wall's height
  const PointF Center{Radius * Rim.X + Offset.X, Radius * Rim.Y + Offset.Y};
  FCallouts.push_back({{Rim.X + Offset.X, Rim.Y + Offset.Y}, Center, false});
  return {Center, Half};
}

void TZyPieCalculation::PlaceCallouts(const TZyCalloutLook& Look, std::span<const SizeF> Extents) {
  constexpr float PerPercent = 0.0002f;  // of the font size, counted from a diameter, in units of the radius
  const float Padding = Look.SpaceToBorder * Look.LabelSize * PerPercent;
  const float Gap = Look.DistanceToPie * Look.LabelSize * PerPercent;
  const float Squeeze = FShape.Squeeze();
  std::vector<TBox> Boxes;
  std::vector<RectF> Compared;  // with the room around them
  for (std::size_t i = 0; i < FSegments.size() && i < Extents.size(); ++i) {
    const SizeF Half{Finite(Extents[i].Width * Look.LabelSize * 0.01f + Padding),
                     Finite(Extents[i].Height * Look.LabelSize * 0.01f / Squeeze + Padding / Squeeze)};
    const TBox& Box = Boxes.emplace_back(PlaceBox(FSegments[i], Half, Gap));
    Compared.push_back({Box.Center.X, Box.Center.Y, 2 * (Half.Width + Gap), 2 * (Half.Height + Gap)});
  }
  std::vector<bool> Moved(Boxes.size());
  PushCalloutsApart(Compared, Moved);
  for (std::size_t i = 0; i < Boxes.size(); ++i) {
    Boxes[i].Center.Y = Compared[i].Y;
    FCallouts[i].Overlayed = Moved[i];
    FLabels.push_back(Boxes[i].Center);
  }
  AddOverhangOf(Boxes);
}

/// The room that boxes take, which is not added to that of segments which move out.
void TZyPieCalculation::AddOverhangOf(const std::vector<TBox>& Boxes) {
  const auto Raise = [](float& Overhang, float Beyond) { Overhang = std::max(Overhang, Beyond * 0.5f); };
  for (const auto& [Center, Half] : Boxes) {
    Raise(FOverhangs.Left, -(Center.X - Half.Width + 1));
    Raise(FOverhangs.Right, Center.X + Half.Width - 1);
    Raise(FOverhangs.Top, -(Center.Y - Half.Height + 1));
    Raise(FOverhangs.Bottom, Center.Y + Half.Height - 1);
  }
}

}  // namespace zy
