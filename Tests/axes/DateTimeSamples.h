#pragma once

#include <cstdio>
#include <string>

#include "axes/ZyDateTime.h"

namespace zy::testing {

/// Value of a text such as "2024-02-29 23:59:59.999", the end of which may be missing.
inline TDateTime At(const char* Text) {
  TDateTimeParts Parts;
  std::sscanf(Text, "%d-%d-%d %d:%d:%d.%d", &Parts.Year, &Parts.Month, &Parts.Day, &Parts.Hour, &Parts.Minute,
              &Parts.Second, &Parts.MilliSecond);
  return TryEncodeDateTime(Parts).value();
}

/// The whole text of a value.
inline std::string Shown(TDateTime Value) {
  const TDateTimeParts Parts = DecodeDateTime(Value);
  char Buffer[90];
  std::snprintf(Buffer, sizeof Buffer, "%04d-%02d-%02d %02d:%02d:%02d.%03d", Parts.Year, Parts.Month, Parts.Day,
                Parts.Hour, Parts.Minute, Parts.Second, Parts.MilliSecond);
  return Buffer;
}

}  // namespace zy::testing
