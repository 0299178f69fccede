#pragma once

#include <span>

namespace zy {

/// Sorts Key from index First to Last, both inclusive, ascending, and moves the entries of the followers along with
/// their keys. Not stable: the order among equal keys is any. Indices outside the arrays are taken to be their ends.
///
/// The partition of C. A. R. Hoare ("Quicksort", The Computer Journal 5, 1962) about the middle entry; where that
/// divides badly, as in a sweep up and back down, heap sort takes over (D. R. Musser, "Introspective Sorting and
/// Selection Algorithms", 1997), so that the time is n log n for all data. Ends with keys that are not numbers, too;
/// where those and the keys around them come to lie is then open.
void QuickSortYtoX(int First, int Last, std::span<double> Key, std::span<double> Follower);
void QuickSortYWtoX(int First, int Last, std::span<double> Key, std::span<double> Follower,
                    std::span<double> OtherFollower);

}  // namespace zy
