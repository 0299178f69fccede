#include "platform/framework/TStream.h"

#include <gtest/gtest.h>

#include <istream>
#include <limits>
#include <map>
#include <ostream>

#include "framework/Bytes.h"
#include "framework/Errors.h"
#include "platform/framework/TReader.h"
#include "platform/framework/TWriter.h"
#include "texts/Exceptions.h"

namespace zy::testing {
namespace {

using namespace std::string_literals;

constexpr std::int64_t Largest = std::numeric_limits<std::int64_t>::max();

/// What every stream does, whatever it lies on. The stream is empty.
void CheckSeekingAndSizes(TStream& Stream) {
  Stream.WriteBuffer("abcdef", 6);
  EXPECT_EQ(Stream.Seek(-2, TSeekOrigin::Current), 4);
  EXPECT_EQ(Stream.Seek(-5, TSeekOrigin::End), 1);
  Stream.WriteBuffer("XY", 2);
  char Text[8] = {};
  EXPECT_EQ(Stream.Read(Text, 8), 3u);
  EXPECT_EQ(std::string(Text), "def");
  Stream.SetPosition(4);
  EXPECT_EQ(Stream.Remaining(), 2);
  EXPECT_THROW(Stream.ReadBuffer(Text, 3), EReadError);
  EXPECT_EQ(Stream.Position(), 4);
  EXPECT_THROW(Stream.Seek(-7, TSeekOrigin::End), EStreamError);
  Stream.SetPosition(8);  // behind the end: the gap reads as zeros
  Stream.WriteBuffer("!", 1);
  EXPECT_EQ(Stream.Size(), 9);
  Stream.SetSize(10);
  Stream.SetPosition(0);
  std::string All(10, '?');
  Stream.ReadBuffer(All.data(), All.size());
  EXPECT_EQ(All, "aXYdef\0\0!\0"s);
  Stream.SetSize(2);
  EXPECT_EQ(Stream.Position(), 2);
  EXPECT_THROW(Stream.SetSize(-1), EStreamError);
  EXPECT_EQ(Stream.Size(), 2);
}

TEST(Stream, MemorySeeksReadsAndGrows) {
  TMemoryStream Stream;
  CheckSeekingAndSizes(Stream);
  Stream.SetPosition(1);
  EXPECT_THROW(Stream.Seek(Largest, TSeekOrigin::Current), EStreamError);
  EXPECT_EQ(Stream.Position(), 1);
  Stream.SetPosition(Largest);
  EXPECT_THROW(Stream.Write("x", 1), EStreamError);
  char Byte;
  EXPECT_EQ(Stream.Read(&Byte, 1), 0u);
}

TEST(Stream, FilesSeekReadAndGrow) {
  const TTemporaryFolder Folder;
  {
    TFileStream Stream(Folder / "new", fmCreate);
    CheckSeekingAndSizes(Stream);
  }
  {
    TFileStream Stream(Folder / "new", fmOpenReadWrite);
    Stream.Seek(0, TSeekOrigin::End);
    Stream.WriteBuffer("Z", 1);
  }
  TFileStream Stream(Folder / "new", fmOpenRead | fmShareDenyWrite);
  char Text[3];
  Stream.ReadBuffer(Text, 3);
  EXPECT_EQ(std::string(Text, 3), "aXZ");
  EXPECT_THROW(Stream.Write("x", 1), EStreamError);
  EXPECT_THROW(Stream.SetSize(0), EStreamError);
  EXPECT_EQ(TFileStream(Folder / "new", fmCreate).Size(), 0);
  TFileStream Writer(Folder / "grows", fmCreate), Reader(Folder / "grows", fmOpenRead);
  for (const std::int64_t Size : {2, 4}) {  // the size is kept, but not beyond where it is known
    Writer.WriteBuffer("ab", 2);
    Writer.Flush();
    EXPECT_EQ(Writer.Size(), Size);
    EXPECT_EQ(Reader.Remaining(), 2);
    Reader.SetPosition(Size);
  }
  EXPECT_THROW(TFileStream(Folder / "grows", fmCreate | fmExclusive), EFileError);
  for (const auto& Path : {Folder / "none", Folder.Path(), Folder / "no" / "file"})
    EXPECT_NE(MessageOf<EFileError>([&] { TFileStream Missing(Path, fmOpenRead); }).find(Path.string()),
              std::string::npos);
}

TEST(Stream, CopiesAndLendsItselfToStandardStreams) {
  const std::string Long(100'000, 'x');
  TMemoryStream Source(AsBytes("head" + Long)), Target;
  Source.SetPosition(4);
  Target.CopyFrom(Source, 100'000);
  EXPECT_EQ(AsText(Target), Long);
  EXPECT_THROW(Target.CopyFrom(Source, 1), EReadError);
  Target.SetSize(0);
  TStreamAdapter Adapter(Target);
  std::ostream(&Adapter) << "x=" << 12 << '\n';
  EXPECT_EQ(AsText(Target), "x=12\n");
  Target.SetPosition(2);
  int Number = 0;
  std::istream(&Adapter) >> Number;
  EXPECT_EQ(Number, 12);
}

/// A value and its bytes in a component stream.
struct TStored {
  TVariant Value;
  std::string Bytes;
};

const TStored StoredValues[] = {{TVariant(), "\x00"s},
                                {false, "\x0C"s},
                                {true, "\x0D"s},
                                {127, "\x02\x7F"s},
                                {-128, "\x02\x80"s},
                                {128, "\x03\x80\x00"s},
                                {-32768, "\x03\x00\x80"s},
                                {32768, "\x04\x00\x80\x00\x00"s},
                                {-2147483648LL, "\x04\x00\x00\x00\x80"s},
                                {2147483648LL, "\x05\x00\x00\x00\x80\x00\x00\x00\x00"s},
                                {1.5, "\x06\x00\x00\x00\x00\x00\x00\xF8\x3F"s},
                                {-0.1, "\x06\x9A\x99\x99\x99\x99\x99\xB9\xBF"s},
                                {std::string_view(), "\x07\x00"s},
                                {"n\xC3\xA4h", "\x07\x04n\xC3\xA4h"s},
                                {std::string(256, 'y'), "\x08\x00\x01\x00\x00"s + std::string(256, 'y')},
                                {TVariant::TArray{1, "a", TVariant::TArray{}},
                                 "\x0F\x03\x00\x00\x00\x02\x01\x07\x01"s
                                 "a\x0F\x00\x00\x00\x00"s}};

TEST(Filer, ValuesHaveTheseBytes) {
  for (const TStored& Row : StoredValues) {
    TMemoryStream Stream;
    TWriter(Stream, 16).WriteVariant(Row.Value);
    EXPECT_EQ(AsText(Stream), Row.Bytes);
    Stream.SetPosition(0);
    TReader Reader(Stream, 16);
    EXPECT_EQ(Reader.ReadVariant(), Row.Value);
    EXPECT_EQ(Reader.Position(), Stream.Size());
    Reader.SetPosition(0);
    Reader.SkipValue();
    EXPECT_EQ(Reader.Position(), Stream.Size());
    for (std::int64_t Cut = 0; Cut < Stream.Size(); ++Cut) {
      TMemoryStream Part(Stream.Bytes().first(static_cast<std::size_t>(Cut)));
      TReader Short(Part, 16);
      EXPECT_THROW(Short.ReadVariant(), EReadError) << Cut;
    }
  }
}

TEST(Filer, ReadsTextsOfAllFourKinds) {
  const std::pair<std::string, std::string> Rows[] = {
      {"\x07\x02\xC3\xA4"s, "ä"},
      {"\x08\x02\x00\x00\x00\xC3\xA4"s, "ä"},
      {"\x0A\x02\x00\x00\x00\xC3\xA4"s, "ä"},
      {"\x09\x01\x00\x00\x00\xE4\x00"s, "ä"},
      {"\x09\x03\x00\x00\x00\x3D\xD8\x00\xDE!\x00"s, "\xF0\x9F\x98\x80!"},    // a surrogate pair, U+1F600
      {"\x09\x02\x00\x00\x00\x00\xDE\x3D\xD8"s, "\xEF\xBF\xBD\xEF\xBF\xBD"},  // a pair the wrong way round
      {"\x09\x00\x00\x00\x00"s, ""}};
  for (const auto& [Bytes, Text] : Rows) {
    TMemoryStream Stream(AsBytes(Bytes + "\x02\x05"));
    TReader Reader(Stream);
    EXPECT_EQ(Reader.ReadString(), Text);
    EXPECT_EQ(Reader.ReadInteger(), 5);
  }
}

TEST(Filer, EachReaderTakesItsOwnKinds) {
  const std::string Integer = "\x02\x07"s, Real("\x06\0\0\0\0\0\0\xF8\x3F", 9);
  const std::map<char, std::string> Values = {{'i', Integer}, {'r', Real},   {'t', "\x07\x01x"},       {'b', "\x0D"},
                                              {'l', "\1\0"s}, {'?', "\x10"}, {'n', "\x0B\x01\0\0\0x"s}};
  const auto Refuses = [&](auto Read, std::string_view Kinds) {
    for (const char Kind : Kinds) {
      TMemoryStream Stream(AsBytes(Values.at(Kind)));
      TReader Reader(Stream);
      EXPECT_THROW((Reader.*Read)(), EReadError) << Kind << " in " << Kinds;
    }
  };
  Refuses(&TReader::ReadInteger, "rtbnl?");
  Refuses(&TReader::ReadFloat, "tbnl?");
  Refuses(&TReader::ReadBoolean, "irtnl?");
  Refuses(&TReader::ReadString, "irbnl?");
  Refuses(&TReader::ReadIdent, "irtbl?");
  Refuses(&TReader::ReadListBegin, "it?");
  Refuses(&TReader::ReadVariant, "nl?");
  TMemoryStream Stream(AsBytes(Integer + Real + "!"));
  TReader Reader(Stream);
  EXPECT_EQ(Reader.NextValue(), TValueType::Int8);
  EXPECT_EQ(Reader.ReadFloat(), 7);
  EXPECT_EQ(Reader.NextValue(), TValueType::Double);
  EXPECT_EQ(Reader.ReadFloat(), 1.5);
  EXPECT_EQ(Reader.Position(), 11);
}

TEST(Filer, ListsEndAndAreSkippedWhole) {
  TMemoryStream Stream;
  TWriter Writer(Stream, 16);
  Writer.WriteListBegin();
  Writer.WriteListBegin();
  Writer.WriteString("inner");
  Writer.WriteListEnd();
  Writer.WriteIdent("name");
  Writer.WriteListEnd();
  Writer.WriteBoolean(true);
  Writer.FlushBuffer();
  EXPECT_EQ(AsText(Stream), "\x01\x01\x07\x05inner\0\x0B\x04\0\0\0name\0\x0D"s);
  Stream.SetPosition(0);
  TReader Reader(Stream, 16);
  Reader.SkipValue();
  EXPECT_TRUE(Reader.ReadBoolean());
  Reader.SetPosition(0);
  int Count = 0;
  Reader.ReadListBegin();
  for (; !Reader.EndOfList(); ++Count) Reader.SkipValue();
  Reader.ReadListEnd();
  EXPECT_EQ(Count, 2);
  EXPECT_TRUE(Reader.ReadBoolean());
}

TEST(Filer, HandsTheStreamOverInBothDirections) {
  TMemoryStream Stream;
  {
    TWriter Writer(Stream);
    Writer.WriteInteger(1);
    EXPECT_EQ(Stream.Size(), 0) << "the value waits in the buffer";
    EXPECT_EQ(Writer.Position(), 2);
    Writer.FlushBuffer();
    Stream.WriteBuffer("raw", 3);
    EXPECT_EQ(Writer.Position(), 5);
    Writer.WriteString("end");
    Writer.SetPosition(1);
    Writer.Write("\x09", 1);
  }
  EXPECT_EQ(AsText(Stream), "\x02\x09raw\x07\x03"s + "end");
  Stream.SetPosition(0);
  TReader Reader(Stream);
  EXPECT_EQ(Reader.ReadInteger(), 9);
  EXPECT_EQ(Stream.Position(), Stream.Size()) << "the rest waits in the buffer";
  Reader.FlushBuffer();
  char Raw[3];
  Stream.ReadBuffer(Raw, 3);
  EXPECT_EQ(std::string(Raw, 3), "raw");
  EXPECT_EQ(Reader.Position(), 5);
  EXPECT_EQ(Reader.ReadString(), "end");
}

TEST(Filer, HostileCountsAndDepthsEndInAnError) {
  const std::string Huge = "\xFF\xFF\xFF\xFF"s;
  for (const char Tag : {'\x08', '\x09', '\x0A', '\x0B', '\x0F'}) {
    TMemoryStream Stream(AsBytes(Tag + Huge + "12345"));
    TReader Reader(Stream);
    EXPECT_THROW(Reader.SkipValue(), EReadError);
    Reader.SetPosition(0);
    EXPECT_THROW(Reader.ReadVariant(), EReadError);
  }
  const auto Nested = [](int Depth) {
    std::string Bytes;
    for (int Level = 0; Level < Depth; ++Level) Bytes += "\x0F\x01\x00\x00\x00"s;
    return Bytes + "\x0D";
  };
  for (const auto& [Depth, Fits] : {std::pair{MaxStreamDepth, true}, {MaxStreamDepth + 1, false}, {100'000, false}}) {
    TMemoryStream Stream(AsBytes(Nested(Depth)));
    TReader Reader(Stream);
    EXPECT_EQ(MessageOf<EReadError>([&] { Reader.ReadVariant(); }).empty(), Fits) << Depth;
  }
  TMemoryStream Lists(AsBytes(std::string(100'000, '\x01')));
  TReader Reader(Lists);
  EXPECT_THROW(Reader.SkipValue(), EReadError);
}

}  // namespace
}  // namespace zy::testing
