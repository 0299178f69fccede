#pragma once

#include <algorithm>
#include <cstddef>
#include <span>
#include <vector>

#include "platform/framework/TComponent.h"
#include "platform/framework/TRefList.h"
#include "series/vectors/ZyMinMaxPyramid.h"
#include "series/vectors/ZyOutliers.h"
#include "series/vectors/ZyVectorReader.h"

namespace zy {

class TZyCustomDoubleVectorEnum;

/// Base of the data vectors: numbers in a row, whose extremes and sums are tracked lazily, and the series that read
/// them.
///
/// A write computes nothing: it marks the readers, and the first reader of an extreme scans what is new. Values that
/// are not finite take no part in extremes and sums. Single points can be marked as outliers; each extreme and sum
/// exists without and with them. For the thread of the user interface only.
class TZyCustomDoubleVector : public TComponent {
  ZY_CLASS(TZyCustomDoubleVector, TComponent)
  explicit TZyCustomDoubleVector(TComponent* Owner = nullptr);
  ~TZyCustomDoubleVector() override;

  // Readers of vectors go through these slots, since a vector without data overrides them.
  virtual int GetCount() const { return FCount; }
  /// Folds the values that no scan has seen into extremes and sums.
  virtual void CheckMinMax();
  /// Smallest and largest value that is no outlier. Without any, the largest double as minimum and its negative as
  /// maximum.
  virtual double GetMinimum() { return Scanned().FPlain.Minimum; }
  virtual double GetMaximum() { return Scanned().FPlain.Maximum; }
  virtual double GetMinimumIncludingOutliers() { return Scanned().FAll.Minimum; }
  virtual double GetMaximumIncludingOutliers() { return Scanned().FAll.Maximum; }
  /// Their indexes: the first of equal ones, -1 when there is none.
  virtual int GetMinimumIdx() { return Scanned().FPlain.MinimumIdx; }
  virtual int GetMaximumIdx() { return Scanned().FPlain.MaximumIdx; }
  virtual int GetMinimumIdxIncludingOutliers() { return Scanned().FAll.MinimumIdx; }
  virtual int GetMaximumIdxIncludingOutliers() { return Scanned().FAll.MaximumIdx; }
  /// Whether each value so far was strictly greater than the one before it; once false, it stays so. Outliers take no
  /// part, and behind the first of them the order of the first three values is not looked at.
  virtual bool GetOnlyAscending() { return Scanned().FOnlyAscending; }
  virtual double GetSum() { return Scanned().FPlain.Sum; }
  virtual double GetSumIncludingOutliers() { return Scanned().FAll.Sum; }
  /// Value at index i. Throws ERangeError outside 0 to Count - 1.
  virtual double GetValue(int i) const;
  /// Writes the value at index i; a write past the end extends the vector with zeros. Writing what is there already
  /// changes nothing and tells nobody, nor does a 0 that is appended to scanned values. Throws ERangeError for a
  /// negative index.
  virtual void SetValue(int i, double n);
  /// Whether there are values that no scan has seen.
  virtual bool IsChanged() const { return FLastCount < FCount; }
  /// Whether the values as they stand are strictly ascending, so that they can be searched by bisection.
  virtual bool GetIsSorted() { return Scanned().FIsSorted; }
  /// Whether there may be values that are not finite; true also for some time after the last of them went.
  bool GetHasGaps() { return Scanned().FHasGaps; }
  /// Indexes of the smallest and the largest finite value from First up to, but not including, Last, outliers
  /// included; in a time that hardly depends on how many they are.
  virtual TZyExtremes FindExtremes(int First, int Last) const;
  /// Count values from First on: those of the vector itself, valid until it changes, or written into Scratch, which
  /// has room for them.
  virtual std::span<const double> ValuesAt(int First, int Count, std::span<double> Scratch) const;

  int Count() const { return GetCount(); }
  double Minimum() { return GetMinimum(); }
  double Maximum() { return GetMaximum(); }
  double MinimumIncludingOutliers() { return GetMinimumIncludingOutliers(); }
  double MaximumIncludingOutliers() { return GetMaximumIncludingOutliers(); }
  int MinimumIdx() { return GetMinimumIdx(); }
  int MaximumIdx() { return GetMaximumIdx(); }
  int MinimumIdxIncludingOutliers() { return GetMinimumIdxIncludingOutliers(); }
  int MaximumIdxIncludingOutliers() { return GetMaximumIdxIncludingOutliers(); }
  bool OnlyAscending() { return GetOnlyAscending(); }
  double Sum() { return GetSum(); }
  double SumIncludingOutliers() { return GetSumIncludingOutliers(); }
  double operator[](int i) const { return GetValue(i); }

  /// Appends a value and returns the new count.
  int Add(double n);
  /// Puts a value in front of the one at Idx and returns the new count; Idx may be Count. Throws ERangeError outside.
  int Insert(int Idx, double n);
  /// The same for many at the price of one.
  int InsertRange(int Idx, std::span<const double> Range);
  /// Removes a value; nothing outside the vector. With WithLinkedMarkers, markers on the point of a series that has
  /// this vector as Y data go as well, and those behind it move along.
  void Delete(int Idx, bool WithLinkedMarkers = true);
  /// The same for Number values from Idx on, or for those that there are, at the price of one.
  void DeleteRange(int Idx, int Number, bool WithLinkedMarkers = true);
  /// Removes all values and marks, and keeps the storage.
  void Clear(bool WithLinkedMarkers = true);
  /// All values, for readers that walk them; valid until the vector changes. Empty for a vector without data.
  std::span<const double> Values() const { return {FArray.data(), static_cast<std::size_t>(FCount)}; }
  /// Walks all values: `while (Enum.MoveNext()) Use(Enum.GetCurrent());`
  TZyCustomDoubleVectorEnum GetEnumerator() const;

  /// Marks of single points. Whether Idx lies in the vector is not asked.
  bool IsOutlier(int Idx) const { return FOutliers.Contains(Idx); }
  void AddOutlier(int Idx);
  /// The same for many, in that order, with one notification.
  void AddOutliers(std::span<const int> Indexes);
  void RemoveOutlier(int Idx);
  void SetOutlier(int i, bool Value);
  void ClearOutlieres();
  bool AnyOutliers() const { return !FOutliers.IsEmpty(); }
  const TZyOutliers& Outliers() const { return FOutliers; }

  /// Places that grow by Increment. The storage behind grows geometrically, so that single appends cost linear time.
  int Capacity() const { return FCapacity; }
  /// Takes effect when it lies above Count.
  void SetCapacity(int Value);
  int Increment() const { return FIncrement; }
  /// Ignored below 128.
  void SetIncrement(int Value);

  // Housekeeping, for those that fill vectors directly.

  /// Makes room for, and extends the vector to, so many elements.
  void CheckCount(int NewCount);
  /// Forgets the tracked extremes and sums.
  void ResetRanges();
  /// ResetRanges, and all readers take their ranges anew.
  void OutOfRange();
  /// All readers take their ranges anew.
  void ResetRelatedSeries();
  /// All readers compute their pixels anew.
  void InvalidateRelatedSeries();

  /// The series and charts that read this vector; they enter and leave by themselves.
  const TRefList<IZyVectorReader>& RelatedSeries() const { return FRelatedSeries; }
  void AddRelatedSeries(IZyVectorReader* Reader) { FRelatedSeries.Add(Reader, &Reader->Component()); }
  void RemoveRelatedSeries(IZyVectorReader* Reader) { FRelatedSeries.Remove(Reader); }

 protected:
  /// SetCapacity without setting memory aside: a record may name any capacity.
  void NoteCapacity(int Value);

  std::vector<double> FArray;  // as long as FCount
  int FCount = 0;
  int FLastCount = 0;  // the values below are folded into extremes and sums
  mutable TZyMinMaxPyramid FPyramid;

 private:
  struct TTracked {
    double Minimum, Maximum;
    double Sum = 0;
    int MinimumIdx = -1, MaximumIdx = -1;

    TTracked();
    void Take(int i, double Value);
  };

  TZyCustomDoubleVector& Scanned() {
    if (FLastCount < FCount) CheckMinMax();
    return *this;
  }
  void ScanPlain();
  void ScanWithOutliers();
  bool MovesRanges(int i, double n) const;
  bool StandsInOrder(int i, double n) const;
  void TellOutOfRange();

  int FCapacity = 128;
  int FIncrement = 128;
  TTracked FPlain, FAll;  // without and with outliers
  bool FOnlyAscending = true;
  bool FIsSorted = true;
  bool FHasGaps = false;
  TZyOutliers FOutliers;
  TRefList<IZyVectorReader> FRelatedSeries{this, &TZyCustomDoubleVector::RemoveRelatedSeries};
};

/// Walks the values of a vector from the first to the last.
class TZyCustomDoubleVectorEnum {
 public:
  explicit TZyCustomDoubleVectorEnum(const TZyCustomDoubleVector& Vector) : FVector(Vector) {}
  bool MoveNext() {
    if (FIndex >= FVector.Count() - 1) return false;
    ++FIndex;
    return true;
  }
  double GetCurrent() const { return FVector.GetValue(FIndex); }

 private:
  const TZyCustomDoubleVector& FVector;
  int FIndex = -1;
};

inline TZyCustomDoubleVectorEnum TZyCustomDoubleVector::GetEnumerator() const {
  return TZyCustomDoubleVectorEnum(*this);
}

}  // namespace zy
