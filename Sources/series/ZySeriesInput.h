#pragma once

#include <functional>
#include <memory>
#include <span>
#include <utility>

#include "platform/framework/TRef.h"
#include "series/vectors/ZyCustomDoubleVector.h"
#include "series/vectors/ZyValueTransformation.h"
#include "series/vectors/ZyVectors.h"

namespace zy {

class TZyArchive;
class TZyFieldName;
class TZySeries;

/// What an input decides of the points of its series.
enum class TZyInputUse {
  Coordinate,  ///< X or Y: every point needs its value, and the index stands in for one of the two
  Needed,      ///< every point needs its value
  Partial,     ///< points that it reaches need its value; those beyond its end do without
  Apart        ///< nothing: the series looks after it by itself
};

/// A vector that a series reads: the reference, what transforms its values, and what the series has to know of it.
///
/// A kind of series has one as a member for each of its vectors. The member enters the list of the series by itself;
/// from then on the series walks it for counts, values, outliers, databases, new and shrinking data, joining, leaving,
/// and the death of the vector:
///
///     TZySeriesInput FRadius{*this, "RadiusData", TZyInputUse::Needed};
class TZySeriesInput {
 public:
  /// PropName is the property of the series through which undo writes; its row tells the label.
  TZySeriesInput(TZySeries& Series, const char* PropName, TZyInputUse Use);
  ~TZySeriesInput();
  TZySeriesInput(const TZySeriesInput&) = delete;
  TZySeriesInput& operator=(const TZySeriesInput&) = delete;

  const char* PropName() const { return FPropName; }
  TZyInputUse Use() const { return FUse; }
  /// For the constructor of a kind that asks more, or less, of X or Y than the base does.
  void SetUse(TZyInputUse Value) { FUse = Value; }
  bool IsNeeded() const { return FUse == TZyInputUse::Coordinate || FUse == TZyInputUse::Needed; }

  /// The vector, null for none; of a coordinate it may be the indexer of the series.
  TZyCustomDoubleVector* Vector() const { return FVector; }
  TZyCustomDoubleVector* operator->() const { return FVector; }
  explicit operator bool() const { return FVector != nullptr; }
  /// Stores the reference alone; TZySeries::SetInput is the setter.
  void Point(TZyCustomDoubleVector* Value) {
    NoteChange();
    FVector = Value;
  }
  /// Tells calls of handlers that are under way that inputs, axes or counts of a series are others, or it dies.
  static void NoteChange() { ++FChanges; }
  int Count() const { return FVector == nullptr ? 0 : FVector->Count(); }

  const TZyValueTransformation& Transformation() const { return mTransformation; }
  bool IsTransformed() const { return mTransformation != nullptr; }
  void SetTransformation(TZyValueTransformation Value) {
    NoteChange();
    mTransformation = std::move(Value);
  }
  /// Value as the event makes it. Throws EAbort when the handler changed what any series reads, or freed one: nothing
  /// of this one may be touched on the way out. What was under way is done anew at the next paint.
  double Transform(double Value, int Idx) const;
  /// A handler that ends in the same way after a call which changed what any series reads. It may be replaced while it
  /// runs.
  template <class TResult, class... TArgs>
  static std::function<TResult(TArgs...)> Watched(std::function<TResult(TArgs...)> Handler) {
    if (!Handler) return {};
    return [Shared = std::make_shared<const std::function<TResult(TArgs...)>>(std::move(Handler))](TArgs... Args) {
      const auto Kept = Shared;  // NOLINT(performance-unnecessary-copy-initialization): it may take itself away
      const unsigned Before = FChanges;
      const TResult Result = (*Kept)(Args...);
      TestUnchanged(Before);
      return Result;
    };
  }
  /// The transformed value at an index. Throws ERangeError outside the vector.
  double At(int Idx) const { return Transform(FVector->GetValue(Idx), Idx); }
  /// The reference in the record of the series; the index has none there.
  void Fields(TZyArchive& Archive, const TZyFieldName& Name);
  /// Pixels that a kind computes of this input, one beside each kept point: the place of a value on an axis.
  std::span<const float> Pixels() const { return FPixels.Values(); }
  void AddPixel(float Value) { FPixels.Add(Value); }
  /// Room for those of Number points more, to be written.
  std::span<float> AddPixels(int Number);
  void KeepPixels(int Count) { FPixels.Shrink(Count); }
  /// Exchanges vectors and transformations of two inputs of a series.
  void SwapWith(TZySeriesInput& Other);

 private:
  static void TestUnchanged(unsigned Before);

  inline static unsigned FChanges = 0;

  TZySeries& FSeries;
  const char* FPropName;
  TZyInputUse FUse;
  TRef<TZyCustomDoubleVector> FVector;
  TZyValueTransformation mTransformation;
  TZySingleVector FPixels;
};

}  // namespace zy
