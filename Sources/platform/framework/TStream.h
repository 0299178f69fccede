#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <span>
#include <streambuf>
#include <vector>

namespace zy {

/// From where TStream::Seek counts.
enum class TSeekOrigin { Beginning, Current, End };

/// Bytes with a position.
class TStream {
 public:
  TStream() = default;
  virtual ~TStream() = default;
  TStream(const TStream&) = delete;
  TStream& operator=(const TStream&) = delete;

  /// Reads up to Count bytes and returns how many there were.
  virtual std::size_t Read(void* Buffer, std::size_t Count) = 0;
  /// Writes Count bytes at the position, growing the stream. Returns Count; throws EStreamError when it cannot.
  virtual std::size_t Write(const void* Buffer, std::size_t Count) = 0;
  /// Moves the position and returns it, counted from the start. Throws EStreamError for a place before the start.
  virtual std::int64_t Seek(std::int64_t Offset, TSeekOrigin Origin) = 0;
  virtual std::int64_t Size() const = 0;
  /// Cuts the stream off, or extends it with zeros. A position behind the new end moves to the end.
  virtual void SetSize(std::int64_t Value) = 0;
  /// Takes what was written to where it is kept; a full disk shows here and not at the end of the stream. Throws
  /// EStreamError.
  virtual void Flush() {}

  std::int64_t Position() { return Seek(0, TSeekOrigin::Current); }
  void SetPosition(std::int64_t Value) { Seek(Value, TSeekOrigin::Beginning); }
  /// Bytes from the position to the end.
  std::int64_t Remaining() { return Size() - Position(); }

  /// Reads exactly Count bytes. Throws EReadError, with nothing consumed, when fewer are left.
  void ReadBuffer(void* Buffer, std::size_t Count);
  void WriteBuffer(const void* Buffer, std::size_t Count) { Write(Buffer, Count); }
  /// Copies Count bytes from Source's position to this stream's. Throws EReadError when fewer are left there.
  void CopyFrom(TStream& Source, std::int64_t Count);
};

/// A stream in memory.
class TMemoryStream : public TStream {
 public:
  TMemoryStream() = default;
  explicit TMemoryStream(std::span<const std::byte> Bytes);

  std::size_t Read(void* Buffer, std::size_t Count) override;
  std::size_t Write(const void* Buffer, std::size_t Count) override;
  std::int64_t Seek(std::int64_t Offset, TSeekOrigin Origin) override;
  std::int64_t Size() const override { return static_cast<std::int64_t>(FBytes.size()); }
  void SetSize(std::int64_t Value) override;
  /// The bytes; valid until the stream is written to.
  std::span<const std::byte> Bytes() const;

 private:
  std::vector<std::byte> FBytes;
  std::size_t FPosition = 0;
};

/// How TFileStream opens a file.
inline constexpr int fmCreate = 0xFF00;          ///< new and empty, for reading and writing
inline constexpr int fmExclusive = 0x0004;       ///< with fmCreate: fails when the file exists
inline constexpr int fmOpenRead = 0x0000;        ///< for reading
inline constexpr int fmOpenReadWrite = 0x0002;   ///< for reading and writing
inline constexpr int fmShareDenyWrite = 0x0020;  ///< others may read; advisory, not enforced on every system

/// A stream on a file. The file is closed, not deleted, at destruction.
class TFileStream : public TStream {
 public:
  /// Throws EFileError, naming the file, when it cannot be opened.
  TFileStream(const std::filesystem::path& FileName, int Mode);

  std::size_t Read(void* Buffer, std::size_t Count) override;
  std::size_t Write(const void* Buffer, std::size_t Count) override;
  std::int64_t Seek(std::int64_t Offset, TSeekOrigin Origin) override;
  /// As it was when it was asked for first, or after a write of this stream; asked for behind that, it is looked up
  /// anew.
  std::int64_t Size() const override;
  void SetSize(std::int64_t Value) override;
  void Flush() override;
  const std::filesystem::path& FileName() const { return FFileName; }

 private:
  struct TCloser {
    void operator()(std::FILE* File) const { std::fclose(File); }
  };
  enum class TLast { None, Read, Write };
  void Turn(TLast Operation);

  std::filesystem::path FFileName;
  bool FWritable = false;
  std::unique_ptr<std::FILE, TCloser> FFile;
  mutable std::int64_t FSize = -1;  // not known: finding it out takes two seeks, too many for each text of a record
  TLast FLast = TLast::None;        // the C library wants a seek between reading and writing
};

/// Lends a TStream to whatever reads from or writes to a standard stream: `std::ostream Out(&Adapter)`.
/// The TStream stays the caller's and is left behind the last byte written, or read in whole blocks.
class TStreamAdapter : public std::streambuf {
 public:
  explicit TStreamAdapter(TStream& Stream) : FStream(Stream) {}

 protected:
  int_type overflow(int_type Character) override;
  std::streamsize xsputn(const char* Text, std::streamsize Count) override;
  int_type underflow() override;

 private:
  TStream& FStream;
  char FBuffer[1024];
};

}  // namespace zy
