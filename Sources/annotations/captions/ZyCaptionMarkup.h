#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include "platform/drawing/Font.h"
#include "texts/Utf8.h"

namespace zy {

/// The text with a carriage return for each line end.
std::string CaptionWithReturns(std::string_view Text);

namespace detail {

struct TCaptionArgument {
  std::string_view Text;
  std::size_t Taken = 0;  // with the letter and the brackets; 0 when the closing one is missing
};

inline TCaptionArgument CaptionArgumentOf(std::string_view Text) {
  const std::size_t Start = 1 + std::max<std::size_t>(FirstUtf8Char(Text.substr(1)).Length, 1);
  const std::size_t End = Text.find(']', Start);
  if (End == std::string_view::npos) return {};
  return {Text.substr(Start, End - Start), End + 1};
}

/// Carries out a sequence that stands at the start of the text, and returns how much of the text it takes.
template <class TSink>
std::size_t ObeyCaptionSequence(std::string_view Text, TSink& Sink) {
  switch (Text.empty() ? '\0' : Text.front()) {
    case 'b':
      return Sink.Toggle(TFontStyle::Bold), 1;
    case 'i':
      return Sink.Toggle(TFontStyle::Italic), 1;
    case 'u':
      return Sink.Toggle(TFontStyle::Underline), 1;
    case 'o':
      return Sink.Toggle(TFontStyle::Strikeout), 1;
    case '+':
      return Sink.ToggleSuperscript(), 1;
    case '-':
      return Sink.ToggleSubscript(), 1;
    case 'c': {
      const TCaptionArgument Argument = CaptionArgumentOf(Text);
      return Sink.SetColor(Argument.Text), Argument.Taken;
    }
    case 'f': {
      const TCaptionArgument Argument = CaptionArgumentOf(Text);
      return Sink.SetFamily(Argument.Text), Argument.Taken;
    }
    default:
      return 0;
  }
}

}  // namespace detail

/// Takes a text in the markup of captions apart; the variables are replaced already, and each line end is a carriage
/// return. What it is made of goes to the sink in order: Append(text), BreakLine(), Toggle(TFontStyle),
/// ToggleSuperscript(), ToggleSubscript(), and SetColor(argument) and SetFamily(argument), which are empty for the
/// caption's own. BeginRun() comes before each of them but Append, and before what an idle backslash stands in front
/// of. See TZyCaptionLayout for the language.
template <class TSink>
void ReadCaptionMarkup(std::string_view Text, TSink& Sink) {
  for (;;) {
    const std::size_t At = Text.find_first_of("\\\r");
    Sink.Append(Text.substr(0, At));
    if (At == std::string_view::npos) return;
    const bool IsBreak = Text[At] == '\r';
    Text.remove_prefix(At + 1);
    const std::size_t Literals = IsBreak ? 0 : std::min(Text.find_first_not_of('\\'), Text.size());
    if (Literals > 0) {
      Sink.Append(Text.substr(0, Literals));
      Text.remove_prefix(Literals);
      continue;
    }
    Sink.BeginRun();
    if (IsBreak) {
      Sink.BreakLine();
    } else {
      Text.remove_prefix(detail::ObeyCaptionSequence(Text, Sink));
    }
  }
}

}  // namespace zy
