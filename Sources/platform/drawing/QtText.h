#pragma once

#include <QString>
#include <string_view>

namespace zy {

/// UTF-8 text for the toolkit. Malformed bytes become replacement characters.
inline QString ToQString(std::string_view Text) {
  return QString::fromUtf8(Text.data(), static_cast<qsizetype>(Text.size()));
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
