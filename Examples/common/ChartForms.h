#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace zy::examples {

/// The forms in which a chart is stored.
enum class TChartForm { Stream, Xml, Ini };

/// The form that a file's extension stands for, in any case of letters: ".zys" a stream, ".zyx" and ".xml" XML, ".zyi"
/// and ".ini" INI. Nothing for any other.
std::optional<TChartForm> ChartFormOf(const std::filesystem::path& FileName);

/// The extensions in one line, for messages: ".zys, .zyx, ...".
std::string ChartExtensions();

/// The forms as the filter of a dialog for files: for saving one by one, for opening all of them first.
std::string ChartFileFilter(bool ToSave);

}  // namespace zy::examples
