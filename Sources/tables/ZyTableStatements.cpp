#include "tables/ZyTableStatements.h"

#include <array>
#include <charconv>
#include <cmath>
#include <utility>

namespace zy {
namespace {

/// Integers beyond are no integer of a database any more.
constexpr double LargestWhole = 9e18;

std::string Joined(std::initializer_list<std::string_view> Parts) {
  std::string Result;
  for (const std::string_view Part : Parts) Result += Part;
  return Result;
}

/// Ranges as rows, for a common table expression.
template <class TLimit>
std::string ValuesOf(std::span<const TZyTableRange> Ranges, bool Numbered, const TLimit& Limit) {
  std::string Result;
  Result.reserve(Ranges.size() * 56);
  for (std::size_t i = 0; i < Ranges.size(); ++i) {
    Result += i == 0 ? "(" : ", (";
    if (Numbered) Result += std::to_string(i) + ", ";
    Result += Limit(Ranges[i].Low) + ", " + Limit(Ranges[i].High) + ")";
  }
  return Result;
}

}  // namespace

TZyTableStatements::TZyTableStatements(TZyTableFields Quoted, bool HasWholeX)
    : FFields(std::move(Quoted)), FHasWholeX(HasWholeX) {}

/// With an exponent, so that no engine takes a large number for an integer.
std::string TZyTableStatements::Literal(double Value) {
  std::array<char, 32> Text;
  const auto End = std::to_chars(Text.data(), Text.data() + Text.size(), Value, std::chars_format::scientific).ptr;
  return {Text.data(), End};
}

/// A whole number is not below a limit exactly when it is not below the next whole one.
std::string TZyTableStatements::LimitOf(double X) const {
  if (!FHasWholeX) return Literal(X);
  const double Whole = std::ceil(X);
  return std::to_string(static_cast<long long>(Whole < -LargestWhole  ? -LargestWhole
                                               : Whole > LargestWhole ? LargestWhole
                                                                      : Whole));
}

std::string TZyTableStatements::ListOf(std::span<const TZyTableRange> Ranges, bool Numbered) const {
  return Joined({"WITH c (", Numbered ? "i, " : "", "lo, hi) AS (VALUES ",
                 ValuesOf(Ranges, Numbered, [this](double X) { return LimitOf(X); }), ")"});
}

/// A difference with itself is 0 for numbers alone: neither for a null, nor for what is no number, nor for an infinity.
std::string TZyTableStatements::IsFinite() const {
  std::string Result = Joined({"t.", FFields.First, " - t.", FFields.First, " = 0"});
  if (FFields.IsSingle()) return Result;
  for (const std::string* Field : {&FFields.Max, &FFields.Min, &FFields.Last})
    Result += Joined({" AND t.", *Field, " - t.", *Field, " = 0"});
  return Result;
}

std::string TZyTableStatements::RowFields() const {
  if (FFields.IsSingle()) return Joined({"t.", FFields.X, ", t.", FFields.First});
  return Joined({"t.", FFields.X, ", t.", FFields.First, ", t.", FFields.Max, ", t.", FFields.Min, ", t.", FFields.Last});
}

/// Two statements within one: an engine finds a single extreme by an index, and not both at once.
std::string TZyTableStatements::Ends() const {
  const auto Of = [this](const char* Extreme) {
    return Joined({"(SELECT ", Extreme, "(t.", FFields.X, ") FROM ", FFields.Table, " t)"});
  };
  return "SELECT " + Of("MIN") + ", " + Of("MAX");
}

/// The ranges stand in front in the join, so that each of them is one stretch of the index on X. The X of an extreme is
/// looked for afterwards, from the left end of the range: all in all each row is read twice.
std::string TZyTableStatements::Blocks(std::span<const TZyTableRange> Ranges) const {
  const std::string &Table = FFields.Table, &X = FFields.X;
  const auto ValueAt = [&](const char* Extreme, const std::string& Field, const char* At) {
    return Joined({"(SELECT ", Extreme, "(t.", Field, ") FROM ", Table, " t WHERE t.", X, " = q.", At, " AND ", IsFinite(),
                   ")"});
  };
  const auto PlaceOf = [&](const std::string& Field, const char* Value) {
    return Joined({"(SELECT MIN(t.", X, ") FROM ", Table, " t WHERE t.", X, " >= q.x0 AND t.", X, " <= q.x1 AND t.", Field,
                   " = q.", Value, ")"});
  };
  return Joined({ListOf(Ranges, true), ", q AS (SELECT c.i AS i, MIN(t.", X, ") AS x0, MAX(t.", X, ") AS x1, MIN(t.",
                 FFields.Min, ") AS ymin, MAX(t.", FFields.Max, ") AS ymax, COUNT(*) AS n, SUM(t.", FFields.Last,
                 ") AS s FROM c CROSS JOIN ", Table, " t WHERE t.", X, " >= c.lo AND t.", X, " < c.hi AND ", IsFinite(),
                 " GROUP BY c.i) SELECT q.x0, ", ValueAt("MIN", FFields.First, "x0"), ", q.x1, ",
                 ValueAt("MAX", FFields.Last, "x1"), ", ", PlaceOf(FFields.Min, "ymin"), ", q.ymin, ",
                 PlaceOf(FFields.Max, "ymax"), ", q.ymax, q.n, q.s FROM q ORDER BY q.i"});
}

std::string TZyTableStatements::Rows(std::span<const TZyTableRange> Ranges) const {
  return Joined({ListOf(Ranges, false), " SELECT ", RowFields(), " FROM c CROSS JOIN ", FFields.Table, " t WHERE t.",
                 FFields.X, " >= c.lo AND t.", FFields.X, " < c.hi AND ", IsFinite()});
}

std::string TZyTableStatements::RowAt(const char* Extreme, const char* Relation, double X) const {
  return Joined({"SELECT ", RowFields(), " FROM ", FFields.Table, " t WHERE t.", FFields.X, " = (SELECT ", Extreme, "(t.",
                 FFields.X, ") FROM ", FFields.Table, " t WHERE t.", FFields.X, Relation, LimitOf(X), " AND ", IsFinite(),
                 ") AND ", IsFinite()});
}

std::string TZyTableStatements::RowBefore(double X) const { return RowAt("MAX", " < ", X); }

std::string TZyTableStatements::RowFrom(double X) const { return RowAt("MIN", " >= ", X); }

std::string TZyTableStatements::SummaryBlocks(const std::string& QuotedSummary, int Level,
                                              std::span<const TZyTableRange> Ranges) {
  return Joined({"WITH c (lo, hi) AS (VALUES ", ValuesOf(Ranges, false, Literal), ") SELECT ", BlockFields,
                 " FROM c CROSS JOIN ", QuotedSummary, " t WHERE t.lvl = ", std::to_string(Level),
                 " AND t.x0 >= c.lo AND t.x0 < c.hi"});
}

}  // namespace zy
