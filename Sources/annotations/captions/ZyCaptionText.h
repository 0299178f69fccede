#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "platform/framework/TypeName.h"

namespace zy {

/// A text in the caption language: see ParseVariables for its variables and TZyCaptionLayout for its markup. A text
/// like any other, but of a type that a property editor can recognise.
class TZyRichCaption : public std::string {
 public:
  using std::string::string;
  TZyRichCaption() = default;
  TZyRichCaption(std::string Text) : std::string(std::move(Text)) {}
};

template <>
inline std::string_view TypeName<TZyRichCaption>() {
  return "TZyRichCaption";
}

/// Text without the blanks, line breaks and other control characters at its end.
TZyRichCaption TrimRight(const TZyRichCaption& Text);

}  // namespace zy
