#include "common/ChartForms.h"

#include <string_view>

namespace zy::examples {
namespace {

struct TExtension {
  std::string_view Text;
  TChartForm Form;
};

/// Those of one form in a row, the usual one first.
constexpr TExtension Extensions[] = {{".zys", TChartForm::Stream},
                                     {".zyx", TChartForm::Xml},
                                     {".xml", TChartForm::Xml},
                                     {".zyi", TChartForm::Ini},
                                     {".ini", TChartForm::Ini}};

/// All extensions that belong to a form, or to any, each behind Before.
std::string Listed(std::optional<TChartForm> Form, std::string_view Before, std::string_view Between) {
  std::string Result;
  for (const TExtension& Known : Extensions)
    if (!Form || *Form == Known.Form) Result.append(Result.empty() ? "" : Between).append(Before).append(Known.Text);
  return Result;
}

}  // namespace

std::optional<TChartForm> ChartFormOf(const std::filesystem::path& FileName) {
  std::string Extension = FileName.extension().string();
  for (char& Letter : Extension)
    if (Letter >= 'A' && Letter <= 'Z') Letter = static_cast<char>(Letter - 'A' + 'a');
  for (const TExtension& Known : Extensions)
    if (Known.Text == Extension) return Known.Form;
  return std::nullopt;
}

std::string ChartExtensions() { return Listed(std::nullopt, "", ", "); }

std::string ChartFileFilter(bool ToSave) {
  const auto Kind = [](const char* Name, std::optional<TChartForm> Form) {
    return Name + ("|" + Listed(Form, "*", ";"));
  };
  return (ToSave ? std::string() : Kind("Chart", std::nullopt) + "|") + Kind("Chart as XML", TChartForm::Xml) + "|" +
         Kind("Chart as stream", TChartForm::Stream) + "|" + Kind("Chart as INI", TChartForm::Ini);
}

}  // namespace zy::examples
