#include "axes/ZyDateTime.h"

#include <cmath>

namespace zy {
namespace {

struct TDayAndTime {
  double Day;
  double Time;
};

/// A time within some nanoseconds of the next day comes from rounding and is that of the day itself.
TDayAndTime Split(double Value) {
  const double Day = std::trunc(Value);
  const double Time = std::fabs(Value - Day);
  return {Day, Time > 0.99999999999999 ? 0 : Time};
}

}  // namespace

double DateTimeSpan(double From, double To) {
  const TDayAndTime First = Split(From), Last = Split(To);
  return (Last.Time - First.Time) + Last.Day - First.Day;
}

}  // namespace zy
