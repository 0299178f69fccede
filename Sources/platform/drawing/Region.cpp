#include "platform/drawing/Region.h"

#include <algorithm>

namespace zy {

bool Region::TPart::operator==(const TPart& Other) const {
  const auto Same = [](const auto& A, const auto& B) { return A == B || (A != nullptr && B != nullptr && *A == *B); };
  return IsExcluded == Other.IsExcluded && IsRect == Other.IsRect && Rect == Other.Rect &&
         Transform == Other.Transform && Same(Path, Other.Path) && Same(Nested, Other.Nested);
}

std::span<const Region::TPart> Region::Parts() const {
  if (FCount == 1) return {&FOnly, 1};
  if (FParts == nullptr) return {};
  return {FParts->data(), FCount};
}

bool Region::operator==(const Region& Other) const {
  if (FCount != Other.FCount) return false;
  return (FCount > 1 && FParts == Other.FParts) || std::equal(Parts().begin(), Parts().end(), Other.Parts().begin());
}

void Region::Add(TPart Part) {
  if (FCount == 0) {
    FOnly = std::move(Part);
    FCount = 1;
    return;
  }
  // Only the region that has all of the list may lengthen it; any other begins a list of its own.
  const bool IsEnd = FParts != nullptr && FParts->size() == FCount;
  if (!IsEnd) FParts = std::make_shared<std::vector<TPart>>(Parts().begin(), Parts().end());
  FParts->push_back(std::move(Part));
  ++FCount;
  FOnly = {};
}

void Region::Intersect(const RectF& Rect, const Matrix& Transform) {
  const bool IsEmpty = !(Rect.Width > 0 && Rect.Height > 0);
  Add({false, true, IsEmpty ? RectF{} : Rect, {}, {}, Transform});
}

void Region::Intersect(const GraphicsPath& Path, const Matrix& Transform) {
  Add({false, false, {}, std::make_shared<const GraphicsPath>(Path), {}, Transform});
}

void Region::Intersect(const Region& Other) {
  const std::vector<TPart> Cuts(Other.Parts().begin(), Other.Parts().end());  // Other may be this region
  for (const TPart& Part : Cuts) Add(Part);
}

void Region::Exclude(const RectF& Rect, const Matrix& Transform) {
  if (Rect.Width > 0 && Rect.Height > 0) Add({true, true, Rect, {}, {}, Transform});
}

void Region::Exclude(const GraphicsPath& Path, const Matrix& Transform) {
  Add({true, false, {}, std::make_shared<const GraphicsPath>(Path), {}, Transform});
}

void Region::Exclude(const Region& Other, const Matrix& Transform) {
  if (Other.FCount == 1 && !Other.Parts().front().IsExcluded && Other.Parts().front().Nested == nullptr) {
    TPart Part = Other.Parts().front();
    Part.IsExcluded = true;
    Part.Transform.Multiply(Transform, MatrixOrderAppend);
    return Add(std::move(Part));
  }
  Add({true, false, {}, {}, std::make_shared<const Region>(Other), Transform});
}

Region Region::Transformed(const Matrix& Transform) const {
  Region Result;
  for (TPart Part : Parts()) {
    Part.Transform.Multiply(Transform, MatrixOrderAppend);
    Result.Add(std::move(Part));
  }
  return Result;
}

}  // namespace zy
