#pragma once

#include <optional>
#include <vector>

#include "platform/framework/TRef.h"
#include "series/models/ZyModelLink.h"
#include "series/vectors/ZyDoubleVector.h"

namespace zy {

/// Keeps a data vector equal to a column of an item model: one value for each row.
///
/// Numbers come as they are, dates and times as days since 30 December 1899, as axes show them, texts that read as one
/// of these as well. An empty cell, and one that is neither number nor date, is a value that is not a number: it is
/// left out of ranges, lines and hit tests. Error has the unfit ones.
///
/// Outlier marks of the application and markers on points go with their rows when others come or go; marks also when
/// rows move or are sorted, while a marker stays with the number of its point then. A reset clears the marks.
class TZyModelNumbers : public TZyModelLink {
  ZY_CLASS(TZyModelNumbers, TZyModelLink)
  explicit TZyModelNumbers(TComponent* Owner = nullptr);
  ~TZyModelNumbers() override;

  /// The vector that is fed. One that is left keeps its values.
  TZyDoubleVector* Vector() const { return FVector; }
  void SetVector(TZyDoubleVector* Value);

 protected:
  int HeldRows() const override { return FVector == nullptr ? -1 : FVector->Count(); }
  void TakeAll(int Rows) override;
  void TakeChanged(int First, int Number) override;
  void TakeInserted(int First, int Number) override;
  void TakeRemoved(int First, int Number) override { FVector->DeleteRange(First, Number); }
  void TakeMoved(int First, int Number, int To) override;
  void NoteOrder() override;
  void ForgetOrder() override { FMarked.reset(); }

 private:
  double Value(int Row);
  std::vector<double> Read(int First, int Number);

  TRef<TZyDoubleVector> FVector{this, &TZyModelNumbers::SetVector};
  std::optional<std::vector<QPersistentModelIndex>> FMarked;  // rows of outliers, while the order changes
};

}  // namespace zy
