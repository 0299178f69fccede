#include "platform/framework/TStream.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <system_error>

#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

[[noreturn]] void TooFewBytes(std::int64_t Wanted, std::int64_t Left) {
  throw EReadError(Format(LoadResString(_sReadBeyondEnd), {Wanted, Left}));
}

[[noreturn]] void SeekFailed(std::int64_t Place) { throw EStreamError(Format(LoadResString(_sSeekFailed), {Place})); }

}  // namespace

void TStream::ReadBuffer(void* Buffer, std::size_t Count) {
  const std::int64_t Start = Position();
  const std::size_t Got = Read(Buffer, Count);
  if (Got == Count) return;
  SetPosition(Start);
  TooFewBytes(static_cast<std::int64_t>(Count), static_cast<std::int64_t>(Got));
}

void TStream::CopyFrom(TStream& Source, std::int64_t Count) {
  if (Count > Source.Remaining()) TooFewBytes(Count, Source.Remaining());
  std::vector<std::byte> Block(static_cast<std::size_t>(std::clamp<std::int64_t>(Count, 0, 65536)));
  while (Count > 0) {
    const auto Part = static_cast<std::size_t>(std::min<std::int64_t>(Count, static_cast<std::int64_t>(Block.size())));
    Source.ReadBuffer(Block.data(), Part);
    Write(Block.data(), Part);
    Count -= static_cast<std::int64_t>(Part);
  }
}

TMemoryStream::TMemoryStream(std::span<const std::byte> Bytes) : FBytes(Bytes.begin(), Bytes.end()) {}

std::span<const std::byte> TMemoryStream::Bytes() const { return FBytes; }

std::size_t TMemoryStream::Read(void* Buffer, std::size_t Count) {
  const std::size_t Left = FPosition < FBytes.size() ? FBytes.size() - FPosition : 0;
  const std::size_t Got = std::min(Count, Left);
  if (Got > 0) std::memcpy(Buffer, FBytes.data() + FPosition, Got);
  FPosition += Got;
  return Got;
}

std::size_t TMemoryStream::Write(const void* Buffer, std::size_t Count) {
  if (Count == 0) return 0;
  if (Count > FBytes.max_size() || FPosition > FBytes.max_size() - Count)
    SeekFailed(static_cast<std::int64_t>(FPosition));
  if (FPosition + Count > FBytes.size()) FBytes.resize(FPosition + Count);
  std::memcpy(FBytes.data() + FPosition, Buffer, Count);
  FPosition += Count;
  return Count;
}

std::int64_t TMemoryStream::Seek(std::int64_t Offset, TSeekOrigin Origin) {
  std::int64_t Base = 0;
  if (Origin == TSeekOrigin::Current) Base = static_cast<std::int64_t>(FPosition);
  if (Origin == TSeekOrigin::End) Base = Size();
  if (Offset < -Base || Offset > std::numeric_limits<std::int64_t>::max() - Base) SeekFailed(Offset);
  const std::int64_t Place = Base + Offset;
  FPosition = static_cast<std::size_t>(Place);
  return Place;
}

void TMemoryStream::SetSize(std::int64_t Value) {
  if (Value < 0) SeekFailed(Value);
  FBytes.resize(static_cast<std::size_t>(Value));
  FPosition = std::min(FPosition, FBytes.size());
}

TFileStream::TFileStream(const std::filesystem::path& FileName, int Mode) : FFileName(FileName) {
  const bool Create = (Mode & fmCreate) == fmCreate;
  FWritable = Create || (Mode & fmOpenReadWrite) != 0;
  const char* const How = Create ? ((Mode & fmExclusive) != 0 ? "wb+x" : "wb+") : FWritable ? "rb+" : "rb";
  std::error_code Error;
  if (!std::filesystem::is_directory(FileName, Error)) FFile.reset(std::fopen(FileName.string().c_str(), How));
  if (FFile == nullptr) throw EFileError(Format(LoadResString(_sCannotOpenFile), {FileName.string()}));
}

void TFileStream::Turn(TLast Operation) {
  if (FLast != Operation && FLast != TLast::None) std::fseek(FFile.get(), 0, SEEK_CUR);
  FLast = Operation;
}

std::size_t TFileStream::Read(void* Buffer, std::size_t Count) {
  if (Count == 0) return 0;  // nothing may come as no buffer at all
  Turn(TLast::Read);
  return std::fread(Buffer, 1, Count, FFile.get());
}

std::size_t TFileStream::Write(const void* Buffer, std::size_t Count) {
  if (Count == 0) return 0;
  Turn(TLast::Write);
  FSize = -1;
  if (std::fwrite(Buffer, 1, Count, FFile.get()) != Count)
    throw EStreamError(Format(LoadResString(_sCannotWriteFile), {FFileName.string()}));
  return Count;
}

std::int64_t TFileStream::Seek(std::int64_t Offset, TSeekOrigin Origin) {
  if (Offset == 0 && Origin == TSeekOrigin::Current) return std::ftell(FFile.get());
  const int Whence = Origin == TSeekOrigin::Beginning ? SEEK_SET : Origin == TSeekOrigin::Current ? SEEK_CUR : SEEK_END;
  if (std::fseek(FFile.get(), static_cast<long>(Offset), Whence) != 0) SeekFailed(Offset);
  FLast = TLast::None;
  return std::ftell(FFile.get());
}

std::int64_t TFileStream::Size() const {
  const long Here = std::ftell(FFile.get());
  if (FSize >= 0 && Here < FSize) return FSize;
  std::fseek(FFile.get(), 0, SEEK_END);
  FSize = std::ftell(FFile.get());
  std::fseek(FFile.get(), Here, SEEK_SET);
  return FSize;
}

void TFileStream::SetSize(std::int64_t Value) {
  if (Value < 0) SeekFailed(Value);
  std::fflush(FFile.get());
  FSize = -1;
  const std::int64_t Here = Position();
  std::error_code Error;
  if (FWritable) std::filesystem::resize_file(FFileName, static_cast<std::uintmax_t>(Value), Error);
  if (Error || !FWritable) throw EStreamError(Format(LoadResString(_sCannotWriteFile), {FFileName.string()}));
  SetPosition(std::min(Here, Value));
}

void TFileStream::Flush() {
  if (std::fflush(FFile.get()) != 0) throw EStreamError(Format(LoadResString(_sCannotWriteFile), {FFileName.string()}));
}

TStreamAdapter::int_type TStreamAdapter::overflow(int_type Character) {
  if (traits_type::eq_int_type(Character, traits_type::eof())) return traits_type::not_eof(Character);
  const char Byte = traits_type::to_char_type(Character);
  FStream.Write(&Byte, 1);
  return Character;
}

std::streamsize TStreamAdapter::xsputn(const char* Text, std::streamsize Count) {
  return static_cast<std::streamsize>(FStream.Write(Text, static_cast<std::size_t>(Count)));
}

TStreamAdapter::int_type TStreamAdapter::underflow() {
  const std::size_t Got = FStream.Read(FBuffer, sizeof FBuffer);
  if (Got == 0) return traits_type::eof();
  setg(FBuffer, FBuffer, FBuffer + Got);
  return traits_type::to_int_type(FBuffer[0]);
}

}  // namespace zy
