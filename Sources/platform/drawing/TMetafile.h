#pragma once

#include <cstddef>
#include <filesystem>
#include <span>
#include <vector>

#include "platform/framework/TPersistent.h"

namespace zy {

class TStream;

/// An enhanced metafile as a document: read, handed on to other programs and written, byte for byte. It is not drawn:
/// that takes a player of the whole format, and drawings that are to be replayed by this program are a `Metafile`.
/// Empty at first.
class TMetafile : public TPersistent {
  ZY_CLASS(TMetafile, TPersistent)

  bool Empty() const { return FBytes.empty(); }
  /// Extent of the picture in pixels of the device that it was made for; 0 when empty.
  int Width() const;
  int Height() const;
  /// The same in units of 0.01 mm.
  int MMWidth() const;
  int MMHeight() const;
  /// The file.
  std::span<const std::byte> Bytes() const { return FBytes; }

  /// Takes one metafile from the stream's position and leaves the stream behind it. An empty stream makes this empty.
  /// Throws EStreamError, with the old content kept and the stream where it was, for anything that is not a whole
  /// enhanced metafile.
  void LoadFromStream(TStream& Stream);
  void LoadFromFile(const std::filesystem::path& FileName);
  void SaveToStream(TStream& Stream) const;
  /// Writes the file in one step. Throws EFileError, with an old file whole, when it cannot be written.
  void SaveToFile(const std::filesystem::path& FileName) const;

  void Assign(const TPersistent* Source) override;

 private:
  std::vector<std::byte> FBytes;
};

}  // namespace zy
