#include "series/models/ZyModelNumbers.h"

#include <QVariant>
#include <algorithm>
#include <limits>

#include "platform/framework/TPropInfo.h"
#include "series/models/ModelValues.h"

namespace zy {
namespace {

/// Up to so many changed values are written one by one, which readers of the vector take up one by one.
constexpr int MostSingleWrites = 64;

}  // namespace

ZY_PUBLISHED(TZyModelNumbers, TZyModelLink, Published<&TZyModelNumbers::Vector, &TZyModelNumbers::SetVector>("Vector"))

TZyModelNumbers::TZyModelNumbers(TComponent* Owner) : TZyModelLink(Owner) {}

TZyModelNumbers::~TZyModelNumbers() { Destroying(); }

void TZyModelNumbers::SetVector(TZyDoubleVector* Value) {
  if (Value == FVector) return;
  FVector = Value;
  if (!IsDestroying()) TargetChanged();
}

double TZyModelNumbers::Value(int Row) {
  const QVariant Content = Cell(Row);
  const std::optional<double> Number = NumberOf(Content);
  if (Number) return *Number;
  NoteUnfit(Row, Content);
  return std::numeric_limits<double>::quiet_NaN();
}

std::vector<double> TZyModelNumbers::Read(int First, int Number) {
  std::vector<double> Result(static_cast<std::size_t>(Number));
  for (int i = 0; i < Number; ++i) Result[static_cast<std::size_t>(i)] = Value(First + i);
  return Result;
}

void TZyModelNumbers::TakeAll(int Rows) {
  std::vector<double> Values = Read(0, Rows);
  FVector->ClearOutlieres();
  std::vector<int> Marks;
  if (FMarked)
    for (const QPersistentModelIndex& Row : *FMarked)
      if (Row.isValid()) Marks.push_back(Row.row());
  FVector->AddOutliers(Marks);
  FVector->SetInternalArray(std::move(Values));
}

void TZyModelNumbers::TakeChanged(int First, int Number) {
  const std::vector<double> Values = Read(First, Number);
  if (Number > MostSingleWrites) {
    std::copy(Values.begin(), Values.end(), FVector->InternalArray().begin() + First);
    return FVector->OutOfRange();
  }
  for (int i = 0; i < Number; ++i) FVector->SetValue(First + i, Values[static_cast<std::size_t>(i)]);
}

void TZyModelNumbers::TakeInserted(int First, int Number) { FVector->InsertRange(First, Read(First, Number)); }

void TZyModelNumbers::TakeMoved(int First, int Number, int To) {
  const auto Begin = FVector->InternalArray().begin();
  if (To > First)
    std::rotate(Begin + First, Begin + First + Number, Begin + To);
  else
    std::rotate(Begin + To, Begin + First, Begin + First + Number);
  if (FVector->AnyOutliers()) {
    std::vector<int> Marks(FVector->Outliers().Marked().begin(), FVector->Outliers().Marked().end());
    for (int& Mark : Marks) Mark = PlaceAfterMove(Mark, First, Number, To);
    FVector->ClearOutlieres();
    FVector->AddOutliers(Marks);
  }
  FVector->OutOfRange();
}

void TZyModelNumbers::NoteOrder() {
  FMarked.emplace();
  for (const int Mark : FVector->Outliers().Marked()) FMarked->emplace_back(IndexOf(Mark));
}

}  // namespace zy
