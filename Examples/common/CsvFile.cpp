#include "common/CsvFile.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <optional>

#include "platform/framework/TStream.h"
#include "platform/framework/WholeFile.h"
#include "texts/Exceptions.h"
#include "texts/NumberText.h"
#include "texts/ZyLocalize.h"

namespace zy::examples {
namespace {

/// Digits as a number; nothing for anything else.
std::optional<int> Digits(std::string_view Text) {
  int Value = 0;
  for (const char Digit : Text) {
    if (Digit < '0' || Digit > '9') return std::nullopt;
    Value = 10 * Value + (Digit - '0');
  }
  return Value;
}

std::optional<std::chrono::year_month_day> ParseDate(std::string_view Text) {
  if (Text.size() != 10 || Text[4] != '-' || Text[7] != '-') return std::nullopt;
  const auto Year = Digits(Text.substr(0, 4)), Month = Digits(Text.substr(5, 2)), Day = Digits(Text.substr(8, 2));
  if (!Year || !Month || !Day) return std::nullopt;
  const std::chrono::year_month_day Date{std::chrono::year(*Year), std::chrono::month(static_cast<unsigned>(*Month)),
                                         std::chrono::day(static_cast<unsigned>(*Day))};
  return Date.ok() ? std::optional(Date) : std::nullopt;
}

}  // namespace

TCsvFile::TCsvFile(const std::filesystem::path& FileName) : FFileName(FileName.string()) {
  TFileStream Stream(FileName, fmOpenRead | fmShareDenyWrite);
  FText = ReadToEnd(Stream);
  std::string_view Rest = FText;
  for (std::size_t Number = 1; !Rest.empty(); ++Number) {
    std::string_view Line = Rest.substr(0, Rest.find('\n'));
    Rest.remove_prefix(std::min(Rest.size(), Line.size() + 1));
    if (Line.ends_with('\r')) Line.remove_suffix(1);
    if (Line.empty()) continue;
    TRow Row = Split(Line, Number);
    if (FHead.Fields.empty()) {
      FHead = std::move(Row);
      continue;
    }
    const std::size_t Found = Row.Fields.size(), Wanted = FHead.Fields.size();
    if (Found != Wanted)
      Fail(Number, Found < Wanted ? Line.size() + 1 : Row.Fields[Wanted].Column,
           Format("%u fields found, %u wanted", {Found, Wanted}));
    FRows.push_back(std::move(Row));
  }
  if (FRows.empty()) Fail(1, 1, "there are no rows of data");
}

TCsvFile::TRow TCsvFile::Split(std::string_view Line, std::size_t Number) const {
  TRow Row{Number, {}};
  for (std::size_t Start = 0; Start <= Line.size();) {
    const bool IsQuoted = Start < Line.size() && Line[Start] == '"';
    if (IsQuoted) ++Start;
    const std::size_t End = std::min(Line.find(IsQuoted ? '"' : ',', Start), Line.size());
    Row.Fields.push_back({Line.substr(Start, End - Start), Start + 1});
    Start = End + (IsQuoted ? 2 : 1);
  }
  return Row;
}

std::size_t TCsvFile::Column(std::string_view Name) const {
  for (std::size_t Index = 0; Index < FHead.Fields.size(); ++Index)
    if (FHead.Fields[Index].Text == Name) return Index;
  Fail(FHead.Line, 1, Format("there is no column \"%s\"", {Name}));
}

double TCsvFile::Real(std::size_t Row, std::size_t Column) const {
  try {
    const double Value = TextToReal(FRows[Row].Fields[Column].Text);
    if (std::isfinite(Value)) return Value;
  } catch (const EConvertError&) {
    // Told below, with its place.
  }
  FailAt(Row, Column, "number");
}

double TCsvFile::Year(std::size_t Row, std::size_t Column) const {
  const auto Date = ParseDate(FRows[Row].Fields[Column].Text);
  if (!Date) FailAt(Row, Column, "date");
  const auto FirstDay = [](std::chrono::year Year) { return std::chrono::sys_days(Year / std::chrono::January / 1); };
  const auto Start = FirstDay(Date->year()), Stop = FirstDay(Date->year() + std::chrono::years(1));
  const auto Passed = std::chrono::sys_days(*Date) - Start;
  return static_cast<int>(Date->year()) +
         static_cast<double>(Passed.count()) / static_cast<double>((Stop - Start).count());
}

double TCsvFile::Day(std::size_t Row, std::size_t Column) const {
  constexpr std::size_t DateLength = 10;
  const std::string_view Field = FRows[Row].Fields[Column].Text;
  const auto Date = ParseDate(Field.substr(0, DateLength));
  int Hour = 0, Minute = 0, Second = 0;
  const std::string Time(Field.substr(std::min(DateLength, Field.size())));
  const bool HasTime = std::sscanf(Time.c_str(), "T%d:%d:%d", &Hour, &Minute, &Second) == 3;
  if (!Date || (!Time.empty() && !HasTime)) FailAt(Row, Column, "date");
  constexpr double UnixEpoch = 25569;  // the day number of 1 January 1970
  const auto Days = static_cast<double>(std::chrono::sys_days(*Date).time_since_epoch().count());
  return UnixEpoch + Days + (Hour * 3600 + Minute * 60 + Second) / 86400.0;
}

void TCsvFile::Fail(std::size_t Line, std::size_t Column, const std::string& Reason) const {
  throw EReadError(Format("%s, line %u, column %u: %s", {FFileName, Line, Column, Reason}));
}

void TCsvFile::FailAt(std::size_t Row, std::size_t Column, std::string_view Wanted) const {
  const TField& Field = FRows[Row].Fields[Column];
  Fail(FRows[Row].Line, Field.Column, Format("\"%s\" is no %s", {Field.Text, Wanted}));
}

}  // namespace zy::examples
