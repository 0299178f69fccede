#include "platform/framework/WholeFile.h"

#include <cstdio>
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

/// Writes a new file with the permissions of Model, if that exists. False, with no file left, when it cannot.
bool WriteNewFile(const fs::path& FileName, std::string_view Content, const fs::path& Model) {
  std::FILE* const File = std::fopen(FileName.string().c_str(), "wbx");
  if (File == nullptr) return false;
  std::error_code Error;
  if (const fs::file_status Status = fs::status(Model, Error); fs::exists(Status))
    fs::permissions(FileName, Status.permissions(), Error);
  const bool Written = Content.empty() || std::fwrite(Content.data(), 1, Content.size(), File) == Content.size();
  if (std::fclose(File) == 0 && Written) return true;
  fs::remove(FileName, Error);
  return false;
}

}  // namespace

std::string ReadToEnd(TStream& Stream) {
  TStreamAdapter Adapter(Stream);
  return {std::istreambuf_iterator<char>(&Adapter), {}};
}

void SaveWholeFile(const fs::path& FileName, std::string_view Content) {
  const fs::path Target = BehindLink(FileName);
  fs::path Temporary = Target;
  Temporary.concat(".").concat(std::to_string(std::random_device()())).concat(".tmp");
  std::error_code Error;
  const fs::file_status Status = fs::status(Target, Error);
  const bool Replaceable = !fs::exists(Status) || fs::is_regular_file(Status);  // no device, no folder
  bool Saved = Replaceable && WriteNewFile(Temporary, Content, Target);
  if (Saved) {
    fs::rename(Temporary, Target, Error);
    Saved = !Error;
    if (!Saved) fs::remove(Temporary, Error);
  }
  if (!Saved) throw EFileError(Format(LoadResString(_sCannotWriteFile), {FileName.string()}));
}

}  // namespace zy
