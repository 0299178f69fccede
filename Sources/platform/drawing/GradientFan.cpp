#include "platform/drawing/GradientFan.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

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
    const double Beyond = RimPart * (Bottom - Top);
    FTriangles.push_back({Corner, Inwards, {-Away.AtOrigin, -Away.X, -Away.Y}, RimPart, Top - Beyond, Bottom + Beyond});
  }
}

/// The pixels of a row that have no colour yet.
class TGradientFan::TFreePixels {
 public:
  explicit TFreePixels(int Count) : FNext(static_cast<std::size_t>(Count) + 1) {}
  void Begin() {
    std::iota(FNext.begin(), FNext.end(), 0);
    FLeft = static_cast<int>(FNext.size()) - 1;
  }
  bool IsEmpty() const { return FLeft == 0; }
  /// The first free one from Pixel on; the row's length when there is none.
  int From(int Pixel) {
    int First = Pixel;
    while (Next(First) != First) First = Next(First);
    while (Next(Pixel) != First) Pixel = std::exchange(Next(Pixel), First);
    return First;
  }
  void Take(int Pixel) {
    Next(Pixel) = Pixel + 1;
    --FLeft;
  }

 private:
  int& Next(int Pixel) { return FNext[static_cast<std::size_t>(Pixel)]; }
  std::vector<int> FNext;  // of a pixel that is taken, one behind it
  int FLeft = 0;
};

/// Row by row, from the last triangle to the first, the wedges beyond the outline behind all of them.
template <class TColorsOf>
void TGradientFan::PaintBy(QImage& Picture, const TColorsOf& ColorsOf) const {
  TFreePixels Free(Picture.width());
  for (int Row = 0; Row < Picture.height(); ++Row) {
    const double Y = Row + 0.5;
    auto* const Pixels = reinterpret_cast<QRgb*>(Picture.scanLine(Row));
    Free.Begin();
    for (const bool IsRim : {false, true})
      for (auto Triangle = FTriangles.rbegin(); Triangle != FTriangles.rend() && !Free.IsEmpty(); ++Triangle) {
        if (Y < Triangle->Top - 1 || Y > Triangle->Bottom + 1) continue;
        const double Inwards = Triangle->Inwards.AtOrigin + Triangle->Inwards.Y * Y;
        const double Along = Triangle->Along.AtOrigin + Triangle->Along.Y * Y;
        double From = 0.5, To = Picture.width() - 0.5;
        Narrow(Inwards, Triangle->Inwards.X, IsRim ? -Triangle->Rim : -Hair, From, To);
        Narrow(Along, Triangle->Along.X, -Hair, From, To);
        Narrow(1 - Inwards - Along, -Triangle->Inwards.X - Triangle->Along.X, -Hair, From, To);
        if (!(From <= To)) continue;
        const int Last = static_cast<int>(To - 0.5);
        const auto ColorAt = ColorsOf(Triangle->Corner);
        for (int X = Free.From(static_cast<int>(std::ceil(From - 0.5))); X <= Last; X = Free.From(X + 1)) {
          const double In = Inwards + Triangle->Inwards.X * (X + 0.5), Aside = Along + Triangle->Along.X * (X + 0.5);
          const ARGB Color = In < 0 ? ColorAt(0, std::clamp(Aside / (1 - In), 0.0, 1.0))
                                    : ColorAt(std::min(In, 1.0), std::clamp(Aside, 0.0, 1 - std::min(In, 1.0)));
          Pixels[X] = Color >> 24 == 255 ? Color : qPremultiply(Color);
          Free.Take(X);
        }
      }
  }
}

void TGradientFan::Paint(QImage& Picture, std::span<const ARGB> CornerColors, ARGB CenterColor) const {
  using TChannels = std::array<double, 4>;
  const auto Channels = [](ARGB Color) {
    return TChannels{static_cast<double>(Color >> 24), static_cast<double>(Color >> 16 & 255),
                     static_cast<double>(Color >> 8 & 255), static_cast<double>(Color & 255)};
  };
  std::vector<TChannels> Corners;
  for (const ARGB Color : CornerColors) Corners.push_back(Channels(Color));
  const TChannels Center = Channels(CenterColor);
  const auto ColorOf = [&](std::size_t Corner) -> const TChannels& {
    return Corners[std::min(Corner % FCornerCount, Corners.size() - 1)];
  };
  PaintBy(Picture, [&](std::size_t Corner) {
    return [&, &First = ColorOf(Corner), &Second = ColorOf(Corner + 1)](double In, double Aside) {
      ARGB Result = 0;
      for (std::size_t Channel = 0; Channel < 4; ++Channel) {
        const double Value =
            First[Channel] + (Second[Channel] - First[Channel]) * Aside + (Center[Channel] - First[Channel]) * In;
        Result = Result << 8 | static_cast<ARGB>(static_cast<int>(Value + 0.5));
      }
      return Result;
    };
  });
}

void TGradientFan::Paint(QImage& Picture, std::span<const TGradientStop> Stops) const {
  PaintBy(Picture,
          [&](std::size_t) { return [&](double In, double) { return ColorAt(Stops, static_cast<float>(In)); }; });
}

}  // namespace zy
