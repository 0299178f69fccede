#pragma once

#include <cstddef>
#include <initializer_list>
#include <span>
#include <vector>

#include "platform/framework/TComponent.h"
#include "platform/framework/TStream.h"

namespace zy {

class TZySeries;

/// Base of the data vectors: numbers in a row, whose extremes and sums are tracked lazily, and the series that read
/// them.
///
/// A write computes nothing: it marks the related series, and the first reader of an extreme scans what is new. For the
/// thread of the user interface only.
class TZyCustomDoubleVector : public TComponent {
  ZY_CLASS(TZyCustomDoubleVector, TComponent)
  explicit TZyCustomDoubleVector(TComponent* Owner = nullptr);
  ~TZyCustomDoubleVector() override;

  virtual int GetCount() const { return FCount; }
  int Count() const { return GetCount(); }
  /// Value at index i. Throws ERangeError outside 0 to Count - 1.
  virtual double GetValue(int i) const;
  /// Writes the value at index i; a write past the end extends the vector with zeros. Writing what is there already
  /// changes nothing and tells nobody. Throws ERangeError for a negative index.
  virtual void SetValue(int i, double n);
  /// Appends a value and returns the new count.
  int Add(double n);
  /// Removes all values and keeps the storage.
  void Clear();
  /// All values; valid until the vector changes.
  std::span<const double> Values() const { return {FArray.data(), static_cast<std::size_t>(FCount)}; }

  /// Smallest and largest value. An empty vector gives the largest double as minimum and its negative as maximum.
  virtual double GetMinimum() { return Tracked(FMinimum); }
  virtual double GetMaximum() { return Tracked(FMaximum); }
  double Minimum() { return GetMinimum(); }
  double Maximum() { return GetMaximum(); }
  /// Index of the first smallest and the first largest value, -1 when there is none.
  virtual int GetMinimumIdx() { return Tracked(FMinimumIdx); }
  virtual int GetMaximumIdx() { return Tracked(FMaximumIdx); }
  virtual double GetSum() { return Tracked(FSum); }
  double Sum() { return GetSum(); }
  /// Whether each value so far was strictly greater than the one before it; once false, it stays so.
  virtual bool GetOnlyAscending() { return Tracked(FOnlyAscending); }
  bool OnlyAscending() { return GetOnlyAscending(); }
  /// Whether there are values that no scan has seen.
  virtual bool IsChanged() const { return FLastCount < FCount; }

  /// Places that grow by Increment; see SetIncrement.
  int Capacity() const { return FCapacity; }
  /// Takes effect when it lies above Count.
  void SetCapacity(int Value);
  int Increment() const { return FIncrement; }
  /// Ignored below 128.
  void SetIncrement(int Value);

  /// Makes room for, and extends the vector to, so many elements.
  void CheckCount(int NewCount);
  /// Forgets the tracked extremes and sums.
  void ResetRanges();
  /// ResetRanges, and all related series take their ranges anew.
  void OutOfRange();
  /// All related series take their ranges anew.
  void ResetRelatedSeries();
  /// All related series compute their pixels anew.
  void InvalidateRelatedSeries();

  /// The series that read this vector; they enter and leave by themselves.
  const std::vector<TZySeries*>& RelatedSeries() const { return FRelatedSeries; }
  void AddRelatedSeries(TZySeries* Series) { FRelatedSeries.push_back(Series); }
  void RemoveRelatedSeries(TZySeries* Series) { std::erase(FRelatedSeries, Series); }

 protected:
  /// Folds the values that are new since the last scan into the extremes and sums.
  virtual void CheckMinMax();

  std::vector<double> FArray;
  int FCount = 0;

 private:
  template <class T>
  T Tracked(const T& Field) {
    if (FLastCount < FCount) CheckMinMax();
    return Field;
  }
  bool StandsInOrder(int i, double n) const;

  int FCapacity = 128;
  int FIncrement = 128;
  int FLastCount = 0;
  int FMinimumIdx = -1;
  int FMaximumIdx = -1;
  double FMinimum;
  double FMaximum;
  double FSum = 0;
  bool FOnlyAscending = true;
  std::vector<TZySeries*> FRelatedSeries;
};

/// A data vector that holds its values.
class TZyDoubleVector : public TZyCustomDoubleVector {
  ZY_CLASS(TZyDoubleVector, TZyCustomDoubleVector)
  explicit TZyDoubleVector(TComponent* Owner = nullptr);

  /// Whether the values are stored with the form.
  bool PersistentValues() const { return FPersistentValues; }
  void SetPersistentValues(bool Value) { FPersistentValues = Value; }

  /// Appends all values with one notification.
  void AddRange(std::span<const double> Range);
  void AddRange(std::span<const float> Range);
  void AddRange(std::span<const int> Range);
  void AddRange(std::initializer_list<double> Range) { AddRange(std::span(Range.begin(), Range.size())); }

  /// The vector's record in the binary form of stored charts.
  void WriteTo(TStream& Stream) const;
  /// Replaces increment, capacity and values by those of a record. Throws EReadError for a truncated one; what was
  /// read so far stays.
  void ReadFrom(TStream& Stream);

  void DefineProperties(TFiler& Filer) override;

 private:
  template <class T>
  void Append(std::span<const T> Range);

  bool FPersistentValues = false;
};

}  // namespace zy
