#include "axes/ZyDateTimeText.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "graph/values/ZyStringFunctions.h"
#include "texts/Exceptions.h"
#include "texts/NumberText.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

char Lower(char C) { return C >= 'A' && C <= 'Z' ? static_cast<char>(C - 'A' + 'a') : C; }

bool StartsWith(std::string_view Text, std::string_view LowerCasePrefix) {
  return Text.size() >= LowerCasePrefix.size() &&
         std::ranges::equal(Text.substr(0, LowerCasePrefix.size()), LowerCasePrefix,
                            [](char A, char B) { return Lower(A) == B; });
}

/// Length of a word for the half of the day that the text starts with, 0 when there is none.
std::size_t HalfDayLength(std::string_view Text) {
  for (const std::string_view Word : {"am/pm", "ampm", "a/p"})
    if (StartsWith(Text, Word)) return Word.size();
  return 0;
}

/// Length of the quoted text at the start, quotes included; one that is not closed ends with the format.
std::size_t QuotedLength(std::string_view Text) {
  const std::size_t End = Text.find(Text.front(), 1);
  return End == std::string_view::npos ? Text.size() : End + 1;
}

/// Whether the hours that stand before Rest are of 12: a half of the day follows before other hours do.
bool HasHalfDay(std::string_view Rest) {
  while (!Rest.empty()) {
    if (HalfDayLength(Rest) > 0) return true;
    if (Lower(Rest.front()) == 'h') return false;
    const bool Quoted = Rest.front() == '\'' || Rest.front() == '"';
    Rest.remove_prefix(Quoted ? QuotedLength(Rest) : 1);
  }
  return false;
}

/// Writes the fields of one date and time by formats.
class TDateTimeWriter {
 public:
  TDateTimeWriter(std::string& Text, const TDateTimeParts& Parts, int Weekday)
      : FText(Text), FParts(Parts), FWeekday(static_cast<std::size_t>(Weekday - 1)) {}

  void Write(std::string_view Format, int Depth = 0) {
    char Last = 0;
    while (!Format.empty()) {
      const char C = Lower(Format.front());
      std::size_t Length = 1;
      if (C == '\'' || C == '"') {
        Length = QuotedLength(Format);
        const bool Closed = Length > 1 && Format[Length - 1] == Format.front();
        FText += Format.substr(1, Length - (Closed ? 2 : 1));
      } else if (std::string_view("dmyhnszt").find(C) != std::string_view::npos) {
        while (Length < Format.size() && Lower(Format[Length]) == C) ++Length;
        WriteField(C == 'm' && Last == 'h' ? 'n' : C, static_cast<int>(Length), Format.substr(Length), Depth);
        Last = C;
      } else if (C == 'a' && HalfDayLength(Format) > 0) {
        Length = HalfDayLength(Format);
        WriteHalfDay(Format.substr(0, Length));
        Last = C;
      } else if (C == 'c') {
        WriteWhole(Depth);
        Last = C;
      } else if (C == '/' || C == ':') {
        FText += C == '/' ? FSettings.DateSeparator : FSettings.TimeSeparator;
      } else {
        FText += Format.front();
      }
      Format.remove_prefix(Length);
    }
  }

 private:
  void Number(int Value, int Digits) {
    const std::string Text = IntToStr(Value);
    FText.append(static_cast<std::size_t>(std::max(0, Digits - static_cast<int>(Text.size()))), '0');
    FText += Text;
  }

  /// A format inside a format; one that holds itself ends there.
  void Inner(const std::string& Format, int Depth) {
    if (Depth < 2) Write(Format, Depth + 1);
  }

  void WriteField(char Field, int Count, std::string_view Rest, int Depth) {
    const auto Month = static_cast<std::size_t>(FParts.Month - 1);
    switch (Field) {
      case 'y':
        return Count <= 2 ? Number(FParts.Year % 100, 2) : Number(FParts.Year, 4);
      case 'm':
        if (Count <= 2) return Number(FParts.Month, Count);
        FText += Count == 3 ? FSettings.ShortMonthNames[Month] : FSettings.LongMonthNames[Month];
        return;
      case 'd':
        if (Count <= 2) return Number(FParts.Day, Count);
        if (Count >= 5) return Inner(Count == 5 ? FSettings.ShortDateFormat : FSettings.LongDateFormat, Depth);
        FText += Count == 3 ? FSettings.ShortDayNames[FWeekday] : FSettings.LongDayNames[FWeekday];
        return;
      case 'h':
        return Number(HasHalfDay(Rest) ? (FParts.Hour + 11) % 12 + 1 : FParts.Hour, std::min(Count, 2));
      case 'n':
        return Number(FParts.Minute, std::min(Count, 2));
      case 's':
        return Number(FParts.Second, std::min(Count, 2));
      case 'z':
        return Number(FParts.MilliSecond, std::min(Count, 3));
      default:
        return Inner(Count == 1 ? FSettings.ShortTimeFormat : FSettings.LongTimeFormat, Depth);
    }
  }

  /// Words of the format keep their case.
  void WriteHalfDay(std::string_view Words) {
    const bool Morning = FParts.Hour < 12;
    if (Words.size() == 4) {
      FText += Morning ? FSettings.TimeAMString : FSettings.TimePMString;
    } else {
      const std::size_t Slash = Words.find('/');
      FText += Morning ? Words.substr(0, Slash) : Words.substr(Slash + 1);
    }
  }

  void WriteWhole(int Depth) {
    Inner(FSettings.ShortDateFormat, Depth);
    if (FParts.Hour == 0 && FParts.Minute == 0 && FParts.Second == 0 && FParts.MilliSecond == 0) return;
    FText += ' ';
    Inner(FSettings.LongTimeFormat, Depth);
  }

  std::string& FText;
  const TDateTimeParts& FParts;
  std::size_t FWeekday;
  const TFormatSettings& FSettings = FormatSettings();
};

void ReplaceAll(std::string& Text, std::string_view From, std::string_view To) {
  for (std::size_t At = Text.find(From); At != std::string::npos; At = Text.find(From, At + To.size()))
    Text.replace(At, From.size(), To);
}

std::string WithoutSeconds(std::string Format) {
  if (const std::size_t At = Format.find('s'); At != std::string::npos) {
    Format.erase(At > 0 ? At - 1 : 0, At > 0 ? 2 : 1);
    if (const std::size_t Second = Format.find('s'); Second != std::string::npos) Format.erase(Second, 1);
  }
  return Format;
}

/// Takes whole units off Rest and adds them with two digits and a colon.
void AddUnit(std::string& Text, double& Rest, double Seconds) {
  const double Count = std::trunc(Rest / Seconds);
  Rest -= Count * Seconds;
  if (Count < 10) Text += '0';
  Text += FloatToStrFixed(Count, 0) + ':';
}

/// Takes the part behind the last time separator out of Text, and the separator.
std::string_view TakeLast(std::string_view& Text) {
  const std::size_t At = Text.rfind(FormatSettings().TimeSeparator);
  const std::string_view Part = At == std::string_view::npos ? Text : Text.substr(At + 1);
  Text = At == std::string_view::npos ? std::string_view() : Text.substr(0, At);
  return Part;
}

}  // namespace

std::string DateTimeToString(std::string_view Format, TDateTime Value) {
  std::string Text;
  const TDateTimeParts Parts = DecodeDateTime(Value);
  TDateTimeWriter(Text, Parts, DayOfWeek(Value)).Write(Format);
  return Text;
}

void MyDateTimeToString(std::string& Out, std::string_view Format, TDateTime Value) {
  if (Format.find("fff") == std::string_view::npos) {
    Out = DateTimeToString(Format, Value);
    return;
  }
  TDateTimeParts Parts = DecodeDateTime(Value);
  const std::string Digits = IntToStr(1000 + Parts.MilliSecond).substr(1);
  Parts.MilliSecond = 0;
  std::string Text;
  TDateTimeWriter(Text, Parts, DayOfWeek(Value)).Write(Format);
  if (const std::size_t At = Text.find("fff"); At != std::string::npos) Text.replace(At, 3, Digits);
  Out = std::move(Text);
}

TZyDateTimeFormats DefaultDateTimeFormats() {
  const TFormatSettings& Settings = FormatSettings();
  TZyDateTimeFormats Formats;
  Formats.Day = Settings.ShortDateFormat;
  ReplaceAll(Formats.Day, "yyyy", "yy");
  ReplaceAll(Formats.Day, "dd", "d");
  ReplaceAll(Formats.Day, "MM", "M");
  Formats.Minute = WithoutSeconds(Settings.ShortTimeFormat);
  Formats.DayAndHour = Formats.Day + ' ' + Formats.Minute;
  Formats.Second = Settings.LongTimeFormat;
  Formats.MilliSecond = std::string("s") + Settings.DecimalSeparator + "fff";
  return Formats;
}

std::string SecondsToString(double Value, TZySecondsFormatRange Format) {
  constexpr double TooLarge = 1e12;  // beyond it a real has no whole milliseconds to spare
  if (!(std::fabs(Value) < TooLarge)) return RealToStrDigits(Value, 6);
  if (Value < 0) return '-' + SecondsToString(-Value, Format);
  double Rest = Format > 0 ? std::nearbyint(Value * 1000) / 1000 : Value;
  std::string Text;
  if (Format >= 3) {
    const double Days = std::trunc(Rest / 86400);
    Rest -= Days * 86400;
    if (Days > 0) Text = FloatToStrFixed(Days, 0) + '.';
  }
  if (Format >= 2) AddUnit(Text, Rest, 3600);
  if (Format >= 1) AddUnit(Text, Rest, 60);
  if (Rest < 9.999999 && !Text.empty()) Text += '0';
  return Text + (Rest > 1e-6 ? RealToStrDigits(Rest, 6) : "0");
}

std::string DoubleToTimeSpanStr(double Days) {
  if (!(Days >= 0)) throw EConvertError(LoadResString(_sNegTimeSpan));
  double Whole = std::trunc(Days);
  const double Fraction = Days - Whole;
  const TDateTimeParts Time = DecodeDateTime(Fraction);
  // A time that rounds up to midnight completes the day.
  if (Fraction >= 0.5 && Time.Hour == 0) ++Whole;
  std::string Text;
  if (Whole > 0) Text = FloatToStrFixed(Whole, 0) + '.';
  if (Fraction > 0)
    Text += DateTimeToString(std::string("hh:nn:ss") + FormatSettings().DecimalSeparator + "zzz", Fraction);
  return Text;
}

double DoubleFomTimeSpanStr(std::string_view Text) {
  double Days = 0, Hours = 0, Minutes = 0, Seconds = 0;
  const std::size_t Point = Text.find('.');  // npos lies behind every place
  if (Point < Text.find(FormatSettings().TimeSeparator)) {
    Days = static_cast<double>(StrToInt(Text.substr(0, Point)));
    Text.remove_prefix(Point + 1);
  }
  if (!Text.empty()) Seconds = StrToFloat(TakeLast(Text));
  if (!Text.empty()) Minutes = static_cast<double>(StrToInt(TakeLast(Text)));
  if (!Text.empty()) Hours = static_cast<double>(StrToInt(Text));
  return Hours / 24 + Days + Minutes / 1440 + Seconds / 86400;
}

}  // namespace zy
