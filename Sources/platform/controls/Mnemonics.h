#pragma once

#include <string>
#include <string_view>

namespace zy {

/// A caption without its marks of access keys: "&" in front of a letter marks it, "&&" is one "&".
inline std::string PlainCaption(std::string_view Caption) {
  std::string Result;
  for (std::size_t Place = 0; Place < Caption.size(); ++Place) {
    if (Caption[Place] == '&' && ++Place == Caption.size()) break;
    Result += Caption[Place];
  }
  return Result;
}

}  // namespace zy
