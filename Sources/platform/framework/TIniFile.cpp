#include "platform/framework/TIniFile.h"

#include <exception>
#include <system_error>

#include "platform/framework/TStream.h"
#include "platform/framework/WholeFile.h"

namespace zy {

TIniFile::TIniFile(const std::filesystem::path& FileName) : FFileName(std::filesystem::absolute(FileName)) {
  std::error_code Error;
  if (std::filesystem::status(FFileName, Error).type() == std::filesystem::file_type::not_found) return;
  TFileStream Stream(FFileName, fmOpenRead | fmShareDenyWrite);
  LoadFrom(Stream, FFileName.string());
  SetModified(false);
}

TIniFile::~TIniFile() {
  try {
    Save();
  } catch (const std::exception&) {
    // A destructor has nobody to tell.
  }
}

void TIniFile::UpdateFile() { Save(); }

void TIniFile::Save() {
  if (!Modified()) return;
  SaveWholeFile(FFileName, SaveToText());
  SetModified(false);
}

}  // namespace zy
