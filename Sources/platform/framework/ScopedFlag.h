#pragma once

#include <utility>

namespace zy {

/// Gives a variable another value until the end of the block, however that is left; then the old one comes back. The
/// variable must outlive the block.
template <class T>
class TScopedValue {
 public:
  TScopedValue(T& Variable, T Value) : FVariable(Variable), FOld(std::exchange(Variable, std::move(Value))) {}
  ~TScopedValue() { FVariable = std::move(FOld); }
  TScopedValue(const TScopedValue&) = delete;
  TScopedValue& operator=(const TScopedValue&) = delete;

 private:
  T& FVariable;
  T FOld;
};

}  // namespace zy
