#pragma once

#include <exception>
#include <string>

namespace zy::testing {

/// The text of the exception of a class that Call throws, empty when it throws none.
template <class TError = std::exception, class TCall>
std::string MessageOf(const TCall& Call) {
  try {
    Call();
  } catch (const TError& Error) {
    return Error.what();
  }
  return {};
}

}  // namespace zy::testing
