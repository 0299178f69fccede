#include "analysis/ZyParseFktFunctions.h"

#include <chrono>
#include <cmath>
#include <concepts>
#include <limits>
#include <numbers>

#include "texts/ZyLocalize.h"

namespace zy {
namespace {

/// A real without fraction carried through an integer, which has no -0 and no value for what does not fit.
template <std::integral TInteger>
double Through(double Whole) {
  constexpr double Beyond = -static_cast<double>(std::numeric_limits<TInteger>::min());
  if (!(Whole >= -Beyond && Whole < Beyond)) return std::numeric_limits<double>::quiet_NaN();
  return static_cast<double>(static_cast<TInteger>(Whole));
}

constexpr struct {
  const char* Id;
  TZyText Comment;
  TZyOnePrmFunction Function;
} Rows[] = {
    {"Abs", _sAbs, [](double One) { return std::fabs(One); }},
    {"ArcCos", _sArcCos, [](double One) { return std::acos(One); }},
    {"ArcCosh", _sArcCosh, [](double One) { return std::acosh(One); }},
    {"ArcSin", _sArcSin, [](double One) { return std::asin(One); }},
    {"ArcSinh", _sArcSinh, [](double One) { return std::asinh(One); }},
    {"ArcTan", _sArcTan, [](double One) { return std::atan(One); }},
    {"ArcTanh", _sArcTanh, [](double One) { return std::atanh(One); }},
    {"Ceil", _sCeil, [](double One) { return Through<std::int32_t>(std::ceil(One)); }},
    {"Cos", _sCos, [](double One) { return std::cos(One); }},
    {"Cosh", _sCosh, [](double One) { return std::cosh(One); }},
    {"Cotan", _sCotan, [](double One) { return 1 / std::tan(One); }},
    {"DegToRad", _sDegToRad, [](double One) { return One * (std::numbers::pi / 180); }},
    {"Exp", _sExp, [](double One) { return std::exp(One); }},
    {"Floor", _sFloor, [](double One) { return Through<std::int32_t>(std::floor(One)); }},
    {"Frac", _sFrac, [](double One) { return One - std::trunc(One); }},
    {"Int", _sInt, [](double One) { return std::trunc(One); }},
    {"Ln", _sLn, [](double One) { return std::log(One); }},
    {"Lg10", _sLg10, [](double One) { return std::log10(One); }},
    {"Lg", _sLg10, [](double One) { return std::log10(One); }},
    {"Lg2", _sLg2, [](double One) { return std::log2(One); }},
    {"RadToDeg", _sRadToDeg, [](double One) { return One * (180 / std::numbers::pi); }},
    {"Round", _sRound, [](double One) { return Through<std::int64_t>(std::nearbyint(One)); }},
    {"Sin", _sSin, [](double One) { return std::sin(One); }},
    {"Sinh", _sSinh, [](double One) { return std::sinh(One); }},
    {"Sqrt", _sSqrt, [](double One) { return std::sqrt(One); }},
    {"Sqr", _sSqr, [](double One) { return One * One; }},
    {"Tan", _sTan, [](double One) { return std::tan(One); }},
    {"Tanh", _sTanh, [](double One) { return std::tanh(One); }},
};

/// State of a SplitMix64 generator (Steele, Lea, Flood: Fast Splittable Pseudorandom Number Generators, 2014).
std::uint64_t& RandomState() {
  static std::uint64_t State = 0;
  return State;
}

std::uint64_t NextRandom() {
  std::uint64_t Bits = RandomState() += 0x9E3779B97F4A7C15U;
  Bits = (Bits ^ (Bits >> 30U)) * 0xBF58476D1CE4E5B9U;
  Bits = (Bits ^ (Bits >> 27U)) * 0x94D049BB133111EBU;
  return Bits ^ (Bits >> 31U);
}

}  // namespace

void AddLibraryFunctions(TZyFunctionsList& List) {
  for (const auto& [Id, Comment, Function] : Rows) AddFunctionToList(Id, LoadResString(Comment), Function, List);
}

double RandomReal() { return static_cast<double>(NextRandom() >> 11U) * 0x1p-53; }

void SeedRandomReal() {
  const auto Ticks = std::chrono::system_clock::now().time_since_epoch().count();
  RandomState() = NextRandom() ^ static_cast<std::uint64_t>(Ticks);
}

bool RoundToIndex(double Value, std::int32_t& Index) {
  const double Whole = Through<std::int32_t>(std::nearbyint(Value));
  if (std::isnan(Whole)) return false;
  Index = static_cast<std::int32_t>(Whole);
  return true;
}

}  // namespace zy
