#pragma once

#include <functional>

#include "platform/framework/TypeName.h"

namespace zy {

class TObject;

/// A value on its way from a vector to an axis or into a calculation.
struct TZyTransformEventArgs {
  double Value = 0;
  int Index = 0;
};
/// Returns the transformed value. It is taken to be monotonic. It is asked in the middle of ranges, pixels and
/// calculations, and may throw there; it must not change or free what it is asked for, its data or the chart.
using TZyValueTransformation = std::function<double(TObject* Sender, const TZyTransformEventArgs& Args)>;
template <>
inline std::string_view TypeName<TZyValueTransformation>() {
  return "TZyValueTransformation";
}

}  // namespace zy
