#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <vector>

namespace zy {

namespace detail {

/// Throws ERangeError with the vectors' own message.
[[noreturn]] void VectorIndexOutOfRange(int i);

}  // namespace detail

/// Base of the small vectors: arrays that grow by fixed steps, for data that are computed over and over, such as the
/// pixels of a series.
///
/// Count elements are in use out of Capacity; what lies behind Count keeps its old contents, and freshly grown elements
/// are zero. The storage behind grows geometrically, so that appending costs linear time.
template <class T>
class TZyGrowingArray {
 public:
  /// NewCount is the first capacity and the step of growth; 128 when it is below 1.
  explicit TZyGrowingArray(int NewCount = 0)
      : FIncrement(NewCount < 1 ? DefaultIncrement : NewCount), FCapacity(FIncrement) {}

  int Count() const { return FCount; }
  int Capacity() const { return FCapacity; }
  /// Throws ERangeError outside 0 to Count - 1.
  const T& GetValue(int i) const {
    if (i < 0 || i >= FCount) detail::VectorIndexOutOfRange(i);
    return FArray[static_cast<std::size_t>(i)];
  }
  /// A write past the end extends the vector. Throws ERangeError for a negative index.
  void SetValue(int i, const T& Value) { Element(i) = Value; }
  /// Appends, and returns the new count.
  int Add(const T& Value) {
    const auto i = static_cast<std::size_t>(FCount);
    if (i >= FArray.size()) {
      const T Kept = Value;  // which may be one of the elements
      CheckCount(FCount + 1);
      FArray[i] = Kept;
      return FCount;
    }
    FArray[i] = Value;
    return ++FCount;
  }
  /// Forgets the elements and keeps the storage.
  void Clear() { FCount = 0; }
  /// Forgets the elements from NewCount on, if there are any.
  void Shrink(int NewCount) { FCount = std::clamp(NewCount, 0, FCount); }
  /// Removes one element; nothing outside the vector.
  void Delete(int i) {
    if (i < 0 || i >= FCount) return;
    std::copy(FArray.begin() + i + 1, FArray.begin() + FCount, FArray.begin() + i);
    --FCount;
  }
  /// Makes room for, and extends the vector to, so many elements.
  void CheckCount(int NewCount) {
    if (FCapacity < NewCount) FCapacity += (NewCount - FCapacity + FIncrement - 1) / FIncrement * FIncrement;
    if (FCount < NewCount && FArray.size() < static_cast<std::size_t>(FCapacity))
      FArray.resize(static_cast<std::size_t>(FCapacity));
    FCount = std::max(FCount, NewCount);
  }
  /// Number elements more, to be written; valid until the vector grows.
  std::span<T> Extend(int Number) {
    const auto First = static_cast<std::size_t>(FCount);
    CheckCount(FCount + Number);
    return std::span(FArray).subspan(First, static_cast<std::size_t>(Number));
  }
  /// Only grows.
  void SetCapacity(int Value) {
    if (Value <= FCapacity) return;
    FArray.resize(static_cast<std::size_t>(Value));
    FCapacity = Value;
  }
  /// Makes capacity and count exactly this.
  void SetCount(int Value) {
    FCount = FCapacity = std::max(Value, 0);
    FArray.resize(static_cast<std::size_t>(FCount));
  }
  /// The elements in use; valid until the vector grows.
  std::span<const T> Values() const { return {FArray.data(), static_cast<std::size_t>(FCount)}; }

 protected:
  T& Element(int i) {
    if (i < 0) detail::VectorIndexOutOfRange(i);
    CheckCount(i + 1);
    return FArray[static_cast<std::size_t>(i)];
  }

 private:
  static constexpr int DefaultIncrement = 128;

  int FCount = 0;
  int FIncrement;
  int FCapacity;
  std::vector<T> FArray;  // empty until the first element comes
};

/// Booleans of one byte each.
class TZyBooleanVector : public TZyGrowingArray<std::uint8_t> {
 public:
  using TZyGrowingArray::TZyGrowingArray;
  bool GetValue(int i) const { return TZyGrowingArray::GetValue(i) != 0; }
};

/// Integers.
class TZyIntegerVector : public TZyGrowingArray<std::int32_t> {
 public:
  using TZyGrowingArray::TZyGrowingArray;
};

/// Reals of single precision.
class TZySingleVector : public TZyGrowingArray<float> {
 public:
  using TZyGrowingArray::TZyGrowingArray;
};

}  // namespace zy
