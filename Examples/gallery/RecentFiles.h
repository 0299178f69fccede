#pragma once

#include <filesystem>
#include <vector>

namespace zy::examples {

/// The files that were opened or saved last, the latest first, kept among the user's settings. Where these cannot be
/// read or written there are no such files, which is no reason to stop anybody.
class TRecentFiles {
 public:
  static std::vector<std::filesystem::path> Files();
  /// Puts a file at the top; the oldest goes when there are too many.
  static void Add(const std::filesystem::path& FileName);
  /// Takes out one that cannot be opened.
  static void Remove(const std::filesystem::path& FileName);
};

}  // namespace zy::examples
