#include "platform/framework/WholeFile.h"

#include <iterator>
#include <random>
#include <system_error>

#include "platform/framework/TStream.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

namespace fs = std::filesystem;

fs::path BehindLink(const fs::path& FileName) {
  std::error_code Error;
  if (!fs::is_symlink(FileName, Error)) return FileName;
  const fs::path Target = fs::canonical(FileName, Error);
  return Error ? FileName : Target;
}

/// A file that is taken away again, unless its name was cleared.
struct TRemovedFile {
  TRemovedFile() = default;
  ~TRemovedFile() {
    std::error_code Error;
    if (!Name.empty()) fs::remove(Name, Error);
  }
  TRemovedFile(const TRemovedFile&) = delete;
  TRemovedFile& operator=(const TRemovedFile&) = delete;
  fs::path Name;
};

}  // namespace

std::string ReadToEnd(TStream& Stream) {
  TStreamAdapter Adapter(Stream);
  return {std::istreambuf_iterator<char>(&Adapter), {}};
}

void SaveWholeFile(const fs::path& FileName, const std::function<void(TStream& Stream)>& Write) {
  const fs::path Target = BehindLink(FileName);
  fs::path Temporary = Target;
  Temporary.concat(".").concat(std::to_string(std::random_device()())).concat(".tmp");
  std::error_code Error;
  const fs::file_status Status = fs::status(Target, Error);
  const auto Failed = [&] { throw EFileError(Format(LoadResString(_sCannotWriteFile), {FileName.string()})); };
  if (fs::exists(Status) && !fs::is_regular_file(Status)) Failed();  // a device, a folder
  TRemovedFile Removed;
  try {
    TFileStream Stream(Temporary, fmCreate | fmExclusive);
    Removed.Name = Temporary;
    if (fs::exists(Status)) fs::permissions(Temporary, Status.permissions(), Error);
    Write(Stream);
    Stream.Flush();
  } catch (const EStreamError&) {
    Failed();
  }
  fs::rename(Temporary, Target, Error);
  if (Error) Failed();
  Removed.Name.clear();
}

void SaveWholeFile(const fs::path& FileName, std::string_view Content) {
  SaveWholeFile(FileName, [Content](TStream& Stream) { Stream.WriteBuffer(Content.data(), Content.size()); });
}

}  // namespace zy
