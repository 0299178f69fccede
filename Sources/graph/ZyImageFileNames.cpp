#include "graph/ZyImageFileNames.h"

#include <algorithm>
#include <string_view>

namespace zy {
namespace {

struct TExtension {
  std::string_view Text;
  TZyImageFileFormat Format;
};

/// The usual extension of a format before its others.
constexpr TExtension Extensions[] = {{".png", TZyImageFileFormat::PNG},  {".svg", TZyImageFileFormat::SVG},
                                     {".pdf", TZyImageFileFormat::PDF},  {".emf", TZyImageFileFormat::EMF},
                                     {".jpg", TZyImageFileFormat::JPEG}, {".jpeg", TZyImageFileFormat::JPEG},
                                     {".tif", TZyImageFileFormat::TIFF}, {".tiff", TZyImageFileFormat::TIFF},
                                     {".gif", TZyImageFileFormat::GIF},  {".bmp", TZyImageFileFormat::BMP}};

}  // namespace

std::optional<TZyImageFileFormat> ImageFileFormatOf(const std::filesystem::path& FileName) {
  std::string Extension = FileName.extension().string();
  for (char& Letter : Extension)
    if (Letter >= 'A' && Letter <= 'Z') Letter = static_cast<char>(Letter - 'A' + 'a');
  for (const TExtension& Known : Extensions)
    if (Known.Text == Extension) return Known.Format;
  return std::nullopt;
}

std::string ImageFileFilter() {
  std::string Result;
  for (const TExtension& Known : Extensions) {
    const std::string_view Name = EnumInfo(Known.Format).Values[static_cast<std::size_t>(Known.Format)];
    const bool IsFurther = &Known != Extensions && (&Known - 1)->Format == Known.Format;
    if (IsFurther)
      Result.append(";*").append(Known.Text);
    else
      Result.append(Result.empty() ? "" : "|").append(Name).append("|*").append(Known.Text);
  }
  return Result;
}

}  // namespace zy
