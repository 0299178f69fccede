#include "tables/ZyTableStatements.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
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

TZyTableStatements::TZyTableStatements(TZyTableFields Quoted, TZyTableDialect Dialect)
    : FFields(std::move(Quoted)), FDialect(Dialect) {}

/// With an exponent, so that no engine takes a large number for an integer.
std::string TZyTableStatements::Literal(double Value) {
  std::array<char, 32> Text;
  const auto End = std::to_chars(Text.data(), Text.data() + Text.size(), Value, std::chars_format::scientific).ptr;
  return {Text.data(), End};
}

/// A whole number is not below a limit exactly when it is not below the next whole one.
std::string TZyTableStatements::LimitOf(double X) const {
  if (!FDialect.HasWholeX) return Literal(X);
  const double Whole = std::ceil(X);
  return std::to_string(static_cast<long long>(Whole < -LargestWhole  ? -LargestWhole
                                               : Whole > LargestWhole ? LargestWhole
                                                                      : Whole));
}

std::string TZyTableStatements::ListOf(std::span<const TZyTableRange> Ranges, bool Numbered) const {
  return Joined({"WITH c (", Numbered ? "i, " : "", "lo, hi) AS (VALUES ",
                 ValuesOf(Ranges, Numbered, [this](double X) { return LimitOf(X); }), ")"});
}

/// On a server these are limits that nulls, infinities and not-a-number do not keep. In an embedded database texts
/// would not keep them either, which are to be told of: there it is a difference that is 0 for all but nulls and
/// infinities.
std::string TZyTableStatements::IsFinite() const {
  const std::string Largest = Literal(std::numeric_limits<double>::max());
  std::string Result;
  for (const std::string* Field : {&FFields.First, &FFields.Max, &FFields.Min, &FFields.Last}) {
    if (!Result.empty() && FFields.IsSingle()) break;
    if (!Result.empty()) Result += " AND ";
    Result += FDialect.IsServer ? Joined({"t.", *Field, " BETWEEN -", Largest, " AND ", Largest})
                                : Joined({"t.", *Field, " - t.", *Field, " = 0"});
  }
  return Result;
}

std::string TZyTableStatements::InRange() const {
  return Joined({"t.", FFields.X, " >= c.lo AND t.", FFields.X, " < c.hi AND ", IsFinite()});
}

/// The fields of the rows of each range. An order within keeps a server from taking the ranges out of the subquery
/// again.
std::string TZyTableStatements::EachOf(const std::string& Fields, const std::string& Table,
                                       const std::string& Condition, const std::string& Order) const {
  if (!FDialect.IsServer) return Joined({" SELECT ", Fields, " FROM c CROSS JOIN ", Table, " t WHERE ", Condition});
  return Joined({" SELECT r.* FROM c CROSS JOIN LATERAL (SELECT ", Fields, " FROM ", Table, " t WHERE ", Condition,
                 " ORDER BY ", Order, ") r"});
}

/// X where it is read. A server writes one of 4 bytes as a short text, which is another number with 8; where it is
/// compared the column stands alone, for its index.
std::string TZyTableStatements::XOf(const std::string& Value) const {
  return FDialect.IsServer && !FDialect.HasWholeX ? "CAST(" + Value + " AS DOUBLE PRECISION)" : Value;
}

std::string TZyTableStatements::RowFields() const {
  const std::string X = XOf("t." + FFields.X);
  if (FFields.IsSingle()) return Joined({X, ", t.", FFields.First});
  return Joined({X, ", t.", FFields.First, ", t.", FFields.Max, ", t.", FFields.Min, ", t.", FFields.Last});
}

/// Two statements within one: an engine finds a single extreme by an index, and not both at once.
std::string TZyTableStatements::Ends() const {
  const auto Of = [this](const char* Extreme) {
    return XOf(Joined({"(SELECT ", Extreme, "(t.", FFields.X, ") FROM ", FFields.Table, " t)"}));
  };
  return "SELECT " + Of("MIN") + ", " + Of("MAX");
}

/// The ranges stand in front in the join, so that each of them is one stretch of the index on X. The X of an extreme is
/// looked for afterwards, from the left end of the range: all in all each row is read twice.
std::string TZyTableStatements::Blocks(std::span<const TZyTableRange> Ranges) const {
  const std::string &Table = FFields.Table, &X = FFields.X;
  const std::string Whole =
      Joined({"MIN(t.", X, ") AS x0, MAX(t.", X, ") AS x1, MIN(t.", FFields.Min, ") AS ylow, MAX(t.", FFields.Max,
              ") AS yhigh, COUNT(*) AS n, SUM(t.", FFields.Last, ") AS s FROM "});
  const std::string Grouped =
      FDialect.IsServer
          ? Joined({"SELECT c.i, r.* FROM c CROSS JOIN LATERAL (SELECT ", Whole, Table, " t WHERE ", InRange(),
                    ") r WHERE r.n > 0"})
          : Joined({"SELECT c.i AS i, ", Whole, "c CROSS JOIN ", Table, " t WHERE ", InRange(), " GROUP BY c.i"});
  const auto ValueAt = [&](const char* Extreme, const std::string& Field, const char* At) {
    return Joined(
        {"(SELECT ", Extreme, "(t.", Field, ") FROM ", Table, " t WHERE t.", X, " = q.", At, " AND ", IsFinite(), ")"});
  };
  const auto PlaceOf = [&](const std::string& Field, const char* Value) {
    return XOf(Joined({"(SELECT MIN(t.", X, ") FROM ", Table, " t WHERE t.", X, " >= q.x0 AND t.", X, " <= q.x1 AND t.",
                       Field, " = q.", Value, ")"}));
  };
  return Joined({ListOf(Ranges, true), ", q AS (", Grouped, ") SELECT ", XOf("q.x0"), ", ",
                 ValueAt("MIN", FFields.First, "x0"), ", ", XOf("q.x1"), ", ", ValueAt("MAX", FFields.Last, "x1"), ", ",
                 PlaceOf(FFields.Min, "ylow"), ", q.ylow, ", PlaceOf(FFields.Max, "yhigh"),
                 ", q.yhigh, q.n, q.s FROM q ORDER BY q.i"});
}

std::string TZyTableStatements::Rows(std::span<const TZyTableRange> Ranges) const {
  return ListOf(Ranges, false) + EachOf(RowFields(), FFields.Table, InRange(), "t." + FFields.X);
}

std::string TZyTableStatements::Page(double X, std::size_t Most) const {
  return Joined({"SELECT ", RowFields(), " FROM ", FFields.Table, " t WHERE t.", FFields.X, " >= ", LimitOf(X), " AND ",
                 IsFinite(), " ORDER BY t.", FFields.X, " LIMIT ", std::to_string(Most)});
}

std::string TZyTableStatements::CountBefore(double X) const {
  return Joined(
      {"SELECT COUNT(*) FROM ", FFields.Table, " t WHERE t.", FFields.X, " < ", LimitOf(X), " AND ", IsFinite()});
}

std::string TZyTableStatements::RowAt(const char* Extreme, const char* Relation, double X) const {
  return Joined({"SELECT ", RowFields(), " FROM ",  FFields.Table, " t WHERE t.", FFields.X,     " = (SELECT ",
                 Extreme,   "(t.",       FFields.X, ") FROM ",     FFields.Table, " t WHERE t.", FFields.X,
                 Relation,  LimitOf(X),  " AND ",   IsFinite(),    ") AND ",      IsFinite()});
}

std::string TZyTableStatements::RowBefore(double X) const { return RowAt("MAX", " < ", X); }

std::string TZyTableStatements::RowFrom(double X) const { return RowAt("MIN", " >= ", X); }

std::string TZyTableStatements::SummaryBlocks(const std::string& QuotedSummary, int Level,
                                              std::span<const TZyTableRange> Ranges) const {
  return Joined({"WITH c (lo, hi) AS (VALUES ", ValuesOf(Ranges, false, Literal), ")",
                 EachOf(BlockFields, QuotedSummary,
                        Joined({"t.lvl = ", std::to_string(Level), " AND t.x0 >= c.lo AND t.x0 < c.hi"}), "t.x0")});
}

}  // namespace zy
