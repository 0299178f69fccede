#include "platform/drawing/GradientFan.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace zy {
namespace {

constexpr double Hair = 1e-4;  // by which triangles overlap, so that no pixel falls between two

/// Narrows a span to where a number that grows by Slope for each unit is not below Least.
void Narrow(double AtOrigin, double Slope, double Least, double& From, double& To) {
  if (Slope > 0)
    From = std::max(From, (Least - AtOrigin) / Slope);
  else if (Slope < 0)
    To = std::min(To, (Least - AtOrigin) / Slope);
  else if (!(AtOrigin >= Least))
    To = -1;
}

}  // namespace

TGradientFan::TGradientFan(std::vector<QPointF> Corners, QPointF Center, double Rim) : FCornerCount(Corners.size()) {
  for (std::size_t Corner = 0; Corner < Corners.size(); ++Corner) {
    const QPointF First = Corners[Corner], Second = Corners[(Corner + 1) % Corners.size()];
    const QPointF Side = Second - First, In = Center - First;
    const double Area = Side.x() * In.y() - Side.y() * In.x();
    if (!(std::abs(Area) > 1e-6) || !std::isfinite(Area)) continue;
    const auto Plane = [&](const QPointF& Way) {  // 0 along Way, through the first corner
      return TPlane{(Way.y() * First.x() - Way.x() * First.y()) / Area, -Way.y() / Area, Way.x() / Area};
    };
    const TPlane Inwards = Plane(Side), Away = Plane(In);
    const auto [Top, Bottom] = std::minmax({First.y(), Second.y(), Center.y()});
    // Beyond a side, the wedge between the rays from the centre through its ends goes on.
    const double RimPart = Rim * std::hypot(Side.x(), Side.y()) / std::abs(Area);
    FTriangles.push_back({Corner, Inwards, {-Away.AtOrigin, -Away.X, -Away.Y}, RimPart, Top, Bottom});
  }
}

/// The parts of a row that have no colour yet.
class TGradientFan::TFreePixels {
 public:
  void Begin(int Width) { FParts.assign(1, {0, Width}); }
  bool IsEmpty() const { return FParts.empty(); }
  /// Hands Paint what is free from First to before End, and takes it.
  template <class TPaint>
  void Take(int First, int End, const TPaint& Paint) {
    FLeft.clear();
    for (const auto& [From, To] : FParts) {
      const int Left = std::max(From, First), Right = std::min(To, End);
      if (Left >= Right) {
        FLeft.emplace_back(From, To);
        continue;
      }
      Paint(Left, Right);
      if (From < Left) FLeft.emplace_back(From, Left);
      if (Right < To) FLeft.emplace_back(Right, To);
    }
    FParts.swap(FLeft);
  }

 private:
  std::vector<std::pair<int, int>> FParts, FLeft;
};

/// Row by row, from the last triangle to the first, the wedges beyond the outline behind all of them.
template <class TColorsOf>
void TGradientFan::PaintBy(QImage& Picture, const TColorsOf& ColorsOf) const {
  TFreePixels Free;
  for (int Row = 0; Row < Picture.height(); ++Row) {
    const double Y = Row + 0.5;
    auto* const Pixels = reinterpret_cast<QRgb*>(Picture.scanLine(Row));
    Free.Begin(Picture.width());
    for (const bool IsRim : {false, true})
      for (auto Triangle = FTriangles.rbegin(); Triangle != FTriangles.rend() && !Free.IsEmpty(); ++Triangle) {
        const double Reach = IsRim ? Triangle->Rim * (Triangle->Bottom - Triangle->Top) + 1 : 1;
        if (Y < Triangle->Top - Reach || Y > Triangle->Bottom + Reach) continue;
        const double Inwards = Triangle->Inwards.AtOrigin + Triangle->Inwards.Y * Y;
        const double Along = Triangle->Along.AtOrigin + Triangle->Along.Y * Y;
        double From = 0.5, To = Picture.width() - 0.5;
        Narrow(Inwards, Triangle->Inwards.X, IsRim ? -Triangle->Rim : -Hair, From, To);
        Narrow(Along, Triangle->Along.X, -Hair, From, To);
        Narrow(1 - Inwards - Along, -Triangle->Inwards.X - Triangle->Along.X, -Hair, From, To);
        if (!(From <= To)) continue;
        const auto ColorAt = ColorsOf(Triangle->Corner);
        const auto Paint = [&](int Left, int Right) {
          for (int X = Left; X < Right; ++X) {
            const auto Ahead = static_cast<float>(Inwards + Triangle->Inwards.X * (X + 0.5));
            const auto Aside = static_cast<float>(Along + Triangle->Along.X * (X + 0.5));
            const float In = std::clamp(Ahead, 0.0f, 1.0f), Spread = Ahead < 0 ? 1 - Ahead : 1;  // beyond a side
            const ARGB Color = ColorAt(In, std::clamp(Aside / Spread, 0.0f, 1 - In));
            Pixels[X] = Color >> 24 == 255 ? Color : qPremultiply(Color);
          }
        };
        Free.Take(static_cast<int>(std::ceil(From - 0.5)), static_cast<int>(To - 0.5) + 1, Paint);
      }
  }
}

void TGradientFan::Paint(QImage& Picture, std::span<const ARGB> CornerColors, ARGB CenterColor) const {
  using TChannels = std::array<float, 4>;  // from the lowest one
  const auto Channels = [](ARGB Color) {
    TChannels Result;
    for (std::size_t Channel = 0; Channel < 4; ++Channel)
      Result[Channel] = static_cast<float>(Color >> (8 * Channel) & 255);
    return Result;
  };
  const auto ColorOf = [&](std::size_t Corner) {
    return Channels(CornerColors[std::min(Corner % FCornerCount, CornerColors.size() - 1)]);
  };
  const TChannels Center = Channels(CenterColor);
  PaintBy(Picture, [&](std::size_t Corner) {
    TChannels First = ColorOf(Corner), Aside = ColorOf(Corner + 1), In = Center;
    for (std::size_t Channel = 0; Channel < 4; ++Channel) {
      Aside[Channel] -= First[Channel];
      In[Channel] -= First[Channel];
    }
    return [=](float PartIn, float PartAside) {
      ARGB Result = 0;
      for (std::size_t Channel = 0; Channel < 4; ++Channel) {
        const float Value = First[Channel] + Aside[Channel] * PartAside + In[Channel] * PartIn;
        const auto Rounded = static_cast<int>(Value + 0.5f);  // NOLINT(bugprone-incorrect-roundings): never negative
        Result |= static_cast<ARGB>(Rounded) << (8 * Channel);
      }
      return Result;
    };
  });
}

void TGradientFan::Paint(QImage& Picture, std::span<const TGradientStop> Stops) const {
  PaintBy(Picture, [&](std::size_t) { return [&](float In, float) { return ColorAt(Stops, In); }; });
}

}  // namespace zy
