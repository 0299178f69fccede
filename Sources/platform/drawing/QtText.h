#pragma once

#include <QString>
#include <algorithm>
#include <string_view>
#include <utility>

namespace zy {

/// UTF-8 text for the toolkit. Malformed bytes become replacement characters.
inline QString ToQString(std::string_view Text) {
  return QString::fromUtf8(Text.data(), static_cast<qsizetype>(Text.size()));
}

/// A line of a text as it is drawn and measured, in all formats alike: a tab is blanks up to the next of the columns
/// that lie eight characters apart, any other control character is nothing.
inline QString ToShownLine(std::string_view Line) {
  constexpr qsizetype TabColumns = 8;
  QString Text = ToQString(Line);
  const auto IsPlain = [](QChar Character) {
    return Character.category() != QChar::Other_Control && Character.unicode() < 0xFFFE;
  };
  if (std::all_of(Text.cbegin(), Text.cend(), IsPlain)) return Text;
  QString Result;
  for (const QChar Character : std::as_const(Text)) {
    if (Character == u'\t') Result.append(QString(TabColumns - Result.size() % TabColumns, u' '));
    if (IsPlain(Character)) Result.append(Character);
  }
  return Result;
}

/// Calls Proc for each of the lines that '\n' separates; at least once.
template <class TProc>
void ForEachLine(std::string_view Text, TProc Proc) {
  for (;;) {
    const std::size_t End = Text.find('\n');
    Proc(Text.substr(0, End));
    if (End == std::string_view::npos) return;
    Text.remove_prefix(End + 1);
  }
}

}  // namespace zy
