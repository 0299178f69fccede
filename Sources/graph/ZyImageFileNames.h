#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "graph/ZyImageFileFormat.h"

namespace zy {

/// The format that a file's extension stands for, in any case of letters; nothing for any other.
std::optional<TZyImageFileFormat> ImageFileFormatOf(const std::filesystem::path& FileName);

/// All formats that can be saved, as the filter of a TSaveDialog.
std::string ImageFileFilter();

}  // namespace zy
