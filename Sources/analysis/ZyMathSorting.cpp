#include "analysis/ZyMathSorting.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <utility>

namespace zy {
namespace {

using TIndex = std::ptrdiff_t;

/// Sorts a key array; exchanges entries of all arrays together.
template <std::size_t Followers>
class TFollowedSort {
 public:
  TFollowedSort(std::span<double> Key, const std::span<double> (&Others)[Followers]) : FKey(Key.data()) {
    for (std::size_t i = 0; i < Followers; ++i) FFollowers[i] = Others[i].data();
  }

  void Sort(TIndex First, TIndex Last) {
    if (First < Last) Quick(First, Last, 2 * static_cast<int>(std::bit_width(static_cast<std::size_t>(Last - First))));
  }

 private:
  void Exchange(TIndex A, TIndex B) {
    std::swap(FKey[A], FKey[B]);
    for (double* Follower : FFollowers) std::swap(Follower[A], Follower[B]);
  }

  void Quick(TIndex First, TIndex Last, int Depth) {
    while (First < Last) {
      if (Depth-- == 0) return Heap(First, Last);
      TIndex i = First, j = Last;
      const double Pivot = FKey[First + (Last - First) / 2];
      do {
        while (FKey[i] < Pivot) ++i;
        while (FKey[j] > Pivot) --j;
        if (i > j) break;
        if (i != j) Exchange(i, j);
        ++i;
        --j;
      } while (i <= j);
      Quick(First, j, Depth);
      First = i;
    }
  }

  void Heap(TIndex First, TIndex Last) {
    const TIndex Count = Last - First + 1;
    for (TIndex i = Count / 2; i-- > 0;) SiftDown(First, i, Count);
    for (TIndex Left = Count - 1; Left > 0; --Left) {
      Exchange(First, First + Left);
      SiftDown(First, 0, Left);
    }
  }

  void SiftDown(TIndex First, TIndex Parent, TIndex Count) {
    for (TIndex Child = 2 * Parent + 1; Child < Count; Parent = Child, Child = 2 * Parent + 1) {
      if (Child + 1 < Count && FKey[First + Child] < FKey[First + Child + 1]) ++Child;
      if (!(FKey[First + Parent] < FKey[First + Child])) return;
      Exchange(First + Parent, First + Child);
    }
  }

  double* FKey;
  double* FFollowers[Followers];
};

TIndex LastOf(int Last, std::size_t Size) { return std::min<TIndex>(Last, static_cast<TIndex>(Size) - 1); }

}  // namespace

void QuickSortYtoX(int First, int Last, std::span<double> Key, std::span<double> Follower) {
  TFollowedSort<1>(Key, {Follower}).Sort(std::max(First, 0), LastOf(Last, std::min(Key.size(), Follower.size())));
}

void QuickSortYWtoX(int First, int Last, std::span<double> Key, std::span<double> Follower,
                    std::span<double> OtherFollower) {
  TFollowedSort<2>(Key, {Follower, OtherFollower})
      .Sort(std::max(First, 0), LastOf(Last, std::min({Key.size(), Follower.size(), OtherFollower.size()})));
}

}  // namespace zy
