#include "series/ZyLabelText.h"

#include "texts/FormatFloat.h"

namespace zy {

std::string LabelText(TZyLabelStyle Style, const std::string& Caption, const std::string& Format, double Value,
                      double Percent) {
  using T = TZyLabelStyle;
  std::string Text = Style == T::Value || Style == T::Percent ? std::string() : Caption;
  if (Style == T::CaptionsList) return Text;
  if (!Text.empty()) Text += ' ';
  if (Style == T::Value || Style == T::CaptionAndValue) return Text += FormatFloat(Format, Value);
  std::string Shown = Format.empty() ? "##0.##%" : Format;
  if (Shown.find('%') == std::string::npos) Shown += '%';
  return Text += FormatFloat(Shown, Percent);
}

}  // namespace zy
