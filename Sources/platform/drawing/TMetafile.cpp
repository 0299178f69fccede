#include "platform/drawing/TMetafile.h"

#include <algorithm>
#include <cstdint>

#include "platform/framework/TPropInfo.h"
#include "platform/framework/TStream.h"
#include "platform/framework/WholeFile.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {

ZY_PUBLISHED(TMetafile, TPersistent)

namespace {

// Offsets into the header, and what must stand there.
constexpr std::size_t BoundsPlace = 8, FramePlace = 24, SignaturePlace = 40, SizePlace = 48, SmallestHeader = 88;
constexpr std::uint32_t HeaderType = 1, EndType = 14, Signature = 0x464D4520, SmallestRecord = 8;

/// A little-endian number; 0 beyond the end.
std::uint32_t NumberAt(std::span<const std::byte> Bytes, std::size_t Place) {
  std::uint32_t Result = 0;
  for (std::size_t Index = 0; Index < 4 && Place + 4 <= Bytes.size(); ++Index)
    Result |= std::to_integer<std::uint32_t>(Bytes[Place + Index]) << (8 * Index);
  return Result;
}

/// From the first edge to the last of a box whose edges stand at Place. Axis 0 is across, 1 down.
int DistanceAt(std::span<const std::byte> Bytes, std::size_t Place, std::size_t Axis) {
  const auto Edge = [&](std::size_t Index) {
    return static_cast<std::int64_t>(static_cast<std::int32_t>(NumberAt(Bytes, Place + 4 * Index)));
  };
  return static_cast<int>(std::clamp<std::int64_t>(Edge(Axis + 2) - Edge(Axis), 0, INT32_MAX - 1));
}

/// Whether the records follow each other to the one that ends the file.
bool IsWhole(std::span<const std::byte> Bytes) {
  if (Bytes.size() < SmallestHeader || NumberAt(Bytes, 0) != HeaderType ||
      NumberAt(Bytes, SignaturePlace) != Signature || NumberAt(Bytes, SizePlace) != Bytes.size())
    return false;
  std::size_t Place = 0;
  while (Place < Bytes.size()) {
    const std::uint32_t Type = NumberAt(Bytes, Place), Size = NumberAt(Bytes, Place + 4);
    if (Size < SmallestRecord || Size % 4 != 0 || Size > Bytes.size() - Place) return false;
    Place += Size;
    if (Type == EndType) return Place == Bytes.size();
  }
  return false;
}

}  // namespace

int TMetafile::Width() const { return Empty() ? 0 : DistanceAt(FBytes, BoundsPlace, 0) + 1; }

int TMetafile::Height() const { return Empty() ? 0 : DistanceAt(FBytes, BoundsPlace, 1) + 1; }

int TMetafile::MMWidth() const { return DistanceAt(FBytes, FramePlace, 0); }

int TMetafile::MMHeight() const { return DistanceAt(FBytes, FramePlace, 1); }

void TMetafile::LoadFromStream(TStream& Stream) {
  const std::int64_t Start = Stream.Position();
  std::vector<std::byte> Bytes(static_cast<std::size_t>(Stream.Remaining()));
  Stream.ReadBuffer(Bytes.data(), Bytes.size());
  const std::size_t Size = NumberAt(Bytes, SizePlace);
  if (!Bytes.empty() && Size <= Bytes.size()) Bytes.resize(Size);
  const bool IsGood = (Bytes.empty() && Stream.Position() == Start) || IsWhole(Bytes);
  Stream.SetPosition(IsGood ? Start + static_cast<std::int64_t>(Bytes.size()) : Start);
  if (!IsGood) throw EStreamError(Format(LoadResString(_sNoPicture), {"The stream"}));
  FBytes = std::move(Bytes);
}

void TMetafile::LoadFromFile(const std::filesystem::path& FileName) {
  TFileStream File(FileName, fmOpenRead | fmShareDenyWrite);
  LoadFromStream(File);
}

void TMetafile::SaveToStream(TStream& Stream) const { Stream.WriteBuffer(FBytes.data(), FBytes.size()); }

void TMetafile::SaveToFile(const std::filesystem::path& FileName) const { SaveWholeFile(FileName, FBytes); }

void TMetafile::Assign(const TPersistent* Source) {
  const auto* const Other = dynamic_cast<const TMetafile*>(Source);
  if (Other == nullptr) return TPersistent::Assign(Source);
  FBytes = Other->FBytes;
}

}  // namespace zy
