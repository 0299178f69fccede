#pragma once

#include "platform/drawing/Geometry.h"
#include "series/vectors/ZyVectors.h"

namespace zy {

class TZyPointVector;

/// Walks the points of a vector: `while (Enum.MoveNext()) Use(Enum.GetCurrent());`
class TZyPointVectorEnum {
 public:
  explicit TZyPointVectorEnum(const TZyPointVector& Vector) : FVector(Vector) {}
  bool MoveNext();
  const PointF& GetCurrent() const;

 private:
  const TZyPointVector& FVector;
  int FIndex = -1;
};

/// Pixels or other points of single precision.
class TZyPointVector : public TZyGrowingArray<PointF> {
 public:
  using TZyGrowingArray::TZyGrowingArray;
  float GetX(int i) const { return GetValue(i).X; }
  float GetY(int i) const { return GetValue(i).Y; }
  void SetX(int i, float Value) { Element(i).X = Value; }
  void SetY(int i, float Value) { Element(i).Y = Value; }
  TZyPointVectorEnum GetEnumerator() const { return TZyPointVectorEnum(*this); }
};

inline bool TZyPointVectorEnum::MoveNext() {
  if (FIndex >= FVector.Count() - 1) return false;
  ++FIndex;
  return true;
}

inline const PointF& TZyPointVectorEnum::GetCurrent() const { return FVector.GetValue(FIndex); }

}  // namespace zy
