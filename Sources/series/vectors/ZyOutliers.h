#pragma once

#include <span>
#include <vector>

namespace zy {

/// The marks of a vector's outliers: indexes in the order in which they were marked, and a sorted index over them.
class TZyOutliers {
 public:
  bool IsEmpty() const { return FMarked.empty(); }
  bool Contains(int Idx) const;
  /// In the order of marking, and in ascending order.
  std::span<const int> Marked() const { return FMarked; }
  std::span<const int> Sorted() const { return FSorted; }

  /// Whether the mark is new.
  bool Add(int Idx);
  /// Whether any of them is new; in a time that hardly grows beyond their number.
  bool Add(std::span<const int> Indexes);
  /// Whether there was one.
  bool Remove(int Idx);
  void Clear();
  /// Keeps the marks on their values when Number of them come in at Idx, or leave there.
  void Inserted(int Idx, int Number = 1);
  void Deleted(int Idx, int Number = 1);

 private:
  std::vector<int> FMarked, FSorted;
};

}  // namespace zy
