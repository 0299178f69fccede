#pragma once

#include "platform/framework/TRef.h"
#include "series/vectors/ZyCustomDoubleVector.h"

namespace zy {

/// A vector without data that stands in for a missing X or Y: its value i is the number i, and it is as long as
/// another vector. Each series has one.
class TZyIndexer : public TZyCustomDoubleVector {
  ZY_CLASS(TZyIndexer, TZyCustomDoubleVector)
  using TZyCustomDoubleVector::TZyCustomDoubleVector;

  /// The vector whose length this one has; none means a length of 0.
  TZyCustomDoubleVector* RefVector() const { return FRefVector; }
  void SetRefVector(TZyCustomDoubleVector* Value) { FRefVector = Value; }

  int GetCount() const override { return FRefVector == nullptr ? 0 : FRefVector->Count(); }
  void CheckMinMax() override {}
  /// 0 and Count - 1, which is not below 0. Both count all values as scanned.
  double GetMinimum() override;
  double GetMaximum() override;
  double GetMinimumIncludingOutliers() override { return GetMinimum(); }
  double GetMaximumIncludingOutliers() override { return GetMaximum(); }
  int GetMinimumIdx() override { return GetCount() < 1 ? -1 : 0; }
  int GetMaximumIdx() override { return GetCount() - 1; }
  int GetMinimumIdxIncludingOutliers() override { return GetMinimumIdx(); }
  int GetMaximumIdxIncludingOutliers() override { return GetMaximumIdx(); }
  bool GetOnlyAscending() override { return true; }
  bool GetIsSorted() override { return true; }
  double GetSum() override;
  double GetSumIncludingOutliers() override { return GetSum(); }
  /// i itself, whatever it is; 0 without a reference.
  double GetValue(int i) const override { return FRefVector == nullptr ? 0 : i; }
  /// Throws EExternal: there is nothing to write to.
  void SetValue(int i, double n) override;
  bool IsChanged() const override { return FRefVector != nullptr && FRefVector->IsChanged(); }
  TZyExtremes FindExtremes(int First, int Last) const override;
  std::span<const double> ValuesAt(int First, int Count, std::span<double> Scratch) const override;

 protected:
  void Notification(TComponent* AComponent, TOperation Operation) override;

 private:
  TRef<TZyCustomDoubleVector> FRefVector{this};
};

}  // namespace zy
