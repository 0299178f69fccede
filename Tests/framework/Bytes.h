#pragma once

#include <filesystem>
#include <random>
#include <span>
#include <string>
#include <string_view>

#include "platform/framework/TStream.h"

namespace zy::testing {

inline std::span<const std::byte> AsBytes(std::string_view Text) { return std::as_bytes(std::span(Text)); }

inline std::string AsText(const TMemoryStream& Stream) {
  return {reinterpret_cast<const char*>(Stream.Bytes().data()), Stream.Bytes().size()};
}

/// A new folder for the files of one test, removed with all that is in it.
class TTemporaryFolder {
 public:
  TTemporaryFolder() {
    FPath = std::filesystem::temp_directory_path() / ("zyphos-test-" + std::to_string(std::random_device()()));
    std::filesystem::create_directory(FPath);
  }
  ~TTemporaryFolder() { std::filesystem::remove_all(FPath); }
  TTemporaryFolder(const TTemporaryFolder&) = delete;
  TTemporaryFolder& operator=(const TTemporaryFolder&) = delete;

  const std::filesystem::path& Path() const { return FPath; }
  std::filesystem::path operator/(std::string_view Name) const { return FPath / Name; }

 private:
  std::filesystem::path FPath;
};

}  // namespace zy::testing
