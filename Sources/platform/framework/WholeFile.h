#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <span>
#include <string>
#include <string_view>

namespace zy {

class TStream;

/// All bytes from the stream's position to its end.
std::string ReadToEnd(TStream& Stream);

/// Gives a file new content in one step: the content goes into a temporary file in the same folder, which then takes
/// the place of the old one and keeps its permissions. A symbolic link stays and its target is replaced. Throws
/// EFileError, with the old file whole and no temporary file left, when any step fails.
///
/// Write puts the content into the temporary file; what it throws passes through, but for errors of the stream.
void SaveWholeFile(const std::filesystem::path& FileName, const std::function<void(TStream& Stream)>& Write);
void SaveWholeFile(const std::filesystem::path& FileName, std::string_view Content);
inline void SaveWholeFile(const std::filesystem::path& FileName, std::span<const std::byte> Content) {
  SaveWholeFile(FileName, std::string_view(reinterpret_cast<const char*>(Content.data()), Content.size()));
}

}  // namespace zy
