#include "axes/ZyAxisTicks.h"

#include <algorithm>
#include <cmath>

namespace zy {
namespace {

constexpr float NearestTicks = 0.9f;  // pixels; a bit below 1, for ticks exactly one pixel apart

int Rank(const TZyTick& Tick) { return Tick.Labelled ? 2 : Tick.Major ? 1 : 0; }

}  // namespace

void TZyAxisTicks::Clear() {
  FTicks.clear();
  FLabels.clear();
  FHasExponent = false;
}

bool TZyAxisTicks::Add(const TZyTick& Tick) {
  if (!FTicks.empty() && std::fabs(Tick.Position - FTicks.back().Position) < NearestTicks) {
    if (Rank(Tick) <= Rank(FTicks.back())) return false;
    FTicks.pop_back();
  }
  FTicks.push_back(Tick);
  return true;
}

void TZyAxisTicks::AddLabel(std::string Text, double Value, float Position) {
  FLabels.push_back({std::move(Text), Value, Position});
}

void TZyAxisTicks::SetExponent(int Value) {
  FHasExponent = true;
  FExponent = Value;
}

void TZyAxisTicks::EraseNear(float Position, float Distance) {
  const auto Tick = std::find_if(FTicks.begin(), FTicks.end(), [&](const TZyTick& Candidate) {
    return std::fabs(Candidate.Position - Position) < Distance;
  });
  if (Tick != FTicks.end()) FTicks.erase(Tick);
}

}  // namespace zy
