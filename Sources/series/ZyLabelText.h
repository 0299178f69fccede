#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "annotations/captions/ZyCaptionText.h"
#include "platform/framework/EnumInfo.h"
#include "platform/framework/TypeName.h"

namespace zy {

class TObject;

/// What labels show.
enum class TZyLabelStyle { Value, CaptionsList, Percent, CaptionAndValue, CaptionAndPercent };
ZY_ENUM(TZyLabelStyle, "Value", "CaptionsList", "Percent", "CaptionAndValue", "CaptionAndPercent")

/// A label before it is laid out; a handler may replace the caption. Index is that of the data point.
struct TZyGetLabelEventArgs {
  TZyRichCaption Caption;
  int Index = 0;
};
using TZyGetLabelEventHandler = std::function<void(TObject* Sender, TZyGetLabelEventArgs& Args)>;
template <>
inline std::string_view TypeName<TZyGetLabelEventHandler>() {
  return "TZyGetLabelEventHandler";
}

/// The text of a label: the caption, as far as the style shows it, and behind a blank the value or its percentage.
/// Format is that of FormatFloat, empty for the general one; a percentage gets a "%" behind a format that has none.
std::string LabelText(TZyLabelStyle Style, const std::string& Caption, const std::string& Format, double Value,
                      double Percent);

}  // namespace zy
