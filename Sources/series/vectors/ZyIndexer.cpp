#include "series/vectors/ZyIndexer.h"

#include <algorithm>
#include <numeric>

#include "platform/framework/TPropInfo.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {

ZY_PUBLISHED(TZyIndexer, TZyCustomDoubleVector)

double TZyIndexer::GetMinimum() {
  FLastCount = GetCount();
  return 0;
}

double TZyIndexer::GetMaximum() {
  FLastCount = GetCount();
  return std::max(FLastCount - 1, 0);
}

double TZyIndexer::GetSum() { return (GetCount() - 1.0) / 2 * GetCount(); }

void TZyIndexer::SetValue(int, double) { throw EExternal(LoadResString(_sSetIndexerValueNotSupported)); }

TZyExtremes TZyIndexer::FindExtremes(int First, int Last) const {
  First = std::max(First, 0);
  Last = std::min(Last, GetCount());
  if (First >= Last) return {};
  return {First, Last - 1, (First + Last - 1) / 2.0 * (Last - First), static_cast<double>(First), Last - 1.0};
}

std::span<const double> TZyIndexer::ValuesAt(int First, int Count, std::span<double> Scratch) const {
  const auto Part = Scratch.first(static_cast<std::size_t>(Count));
  std::iota(Part.begin(), Part.end(), static_cast<double>(First));
  return Part;
}

void TZyIndexer::Notification(TComponent* AComponent, TOperation Operation) {
  TZyCustomDoubleVector::Notification(AComponent, Operation);
  if (Operation == TOperation::Remove && AComponent == FRefVector) FRefVector = nullptr;
}

}  // namespace zy
