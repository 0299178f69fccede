#include "axes/ZyZoomStages.h"

#include <utility>

namespace zy {

void TZyZoomStages::Begin(const TZyAxisRange& Whole) {
  if (!FRanges.empty()) return;
  FRanges.push_back(Whole);
  FCurrent = 0;
}

void TZyZoomStages::Take(std::vector<TZyAxisRange> Ranges, int Current) {
  FRanges = std::move(Ranges);
  FCurrent = Current;
}

void TZyZoomStages::Push(const TZyAxisRange& Range) {
  ++FCurrent;
  FRanges.resize(static_cast<std::size_t>(FCurrent));
  FRanges.push_back(Range);
}

void TZyZoomStages::Clear() {
  FRanges.clear();
  FCurrent = 0;
}

const TZyAxisRange& TZyZoomStages::Show(int Stage) {
  FCurrent = Stage;
  return FRanges[static_cast<std::size_t>(Stage)];
}

}  // namespace zy
