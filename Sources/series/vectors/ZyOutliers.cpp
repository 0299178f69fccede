#include "series/vectors/ZyOutliers.h"

#include <algorithm>
#include <unordered_set>

namespace zy {

bool TZyOutliers::Contains(int Idx) const {
  return !FSorted.empty() && std::binary_search(FSorted.begin(), FSorted.end(), Idx);
}

bool TZyOutliers::Add(int Idx) {
  const auto Place = std::lower_bound(FSorted.begin(), FSorted.end(), Idx);
  if (Place != FSorted.end() && *Place == Idx) return false;
  FSorted.insert(Place, Idx);
  FMarked.push_back(Idx);
  return true;
}

bool TZyOutliers::Add(std::span<const int> Indexes) {
  const std::size_t Before = FMarked.size();
  std::unordered_set<int> Known(FMarked.begin(), FMarked.end());
  for (const int Idx : Indexes)
    if (Known.insert(Idx).second) FMarked.push_back(Idx);
  FSorted = FMarked;
  std::sort(FSorted.begin(), FSorted.end());
  return FMarked.size() > Before;
}

bool TZyOutliers::Remove(int Idx) {
  if (!Contains(Idx)) return false;
  FSorted.erase(std::lower_bound(FSorted.begin(), FSorted.end(), Idx));
  FMarked.erase(std::find(FMarked.begin(), FMarked.end(), Idx));
  return true;
}

void TZyOutliers::Clear() {
  FMarked.clear();
  FSorted.clear();
}

void TZyOutliers::Inserted(int Idx, int Number) {
  for (std::vector<int>* Indexes : {&FMarked, &FSorted})
    for (int& Each : *Indexes) Each += Each >= Idx ? Number : 0;
}

void TZyOutliers::Deleted(int Idx, int Number) {
  for (std::vector<int>* Indexes : {&FMarked, &FSorted}) {
    std::erase_if(*Indexes, [=](int Each) { return Each >= Idx && Each - Idx < Number; });
    for (int& Each : *Indexes) Each -= Each > Idx ? Number : 0;
  }
}

}  // namespace zy
