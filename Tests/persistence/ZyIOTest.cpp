#include "persistence/ZyIO.h"

#include <gtest/gtest.h>

#include <limits>

#include "framework/Bytes.h"
#include "graph/ZyStringFunctions.h"
#include "platform/framework/Application.h"
#include "platform/framework/Exceptions.h"
#include "platform/framework/NumberText.h"
#include "platform/framework/TReader.h"
#include "platform/framework/TWriter.h"

namespace zy {
namespace {

enum class TKind { First, Second, Third };

TEST(ZyIOTest, PrimitivesAreLittleEndianInTheirOwnWidth) {
  TMemoryStream Stream;
  ToStream(Stream, true);
  ToStream(Stream, TKind::Third);
  ToStream(Stream, std::int32_t{-2});
  ToStream(Stream, std::uint32_t{0x80FF0102});
  ToStream(Stream, 1.5f);
  ToStream(Stream, -2.0);
  StringToStream(Stream, "aä");
  EncodeToStream(Stream, "");
  const double Values[] = {1, 0.5};
  ArrayToStream(Stream, Values);
  ContinuationToStream(Stream, false);
  const char Expected[] =
      "\x01\x02"
      "\xFE\xFF\xFF\xFF"
      "\x02\x01\xFF\x80"
      "\x00\x00\xC0\x3F"
      "\x00\x00\x00\x00\x00\x00\x00\xC0"
      "\x03\x00\x00\x00"
      "a\xC3\xA4"
      "\x00\x00\x00\x00"
      "\x00\x00\x00\x00\x00\x00\xF0\x3F\x00\x00\x00\x00\x00\x00\xE0\x3F"
      "\x00";
  EXPECT_EQ(testing::AsText(Stream), std::string(Expected, sizeof Expected - 1));

  Stream.SetPosition(0);
  EXPECT_TRUE(FromStream<bool>(Stream));
  EXPECT_EQ(FromStream<TKind>(Stream), TKind::Third);
  EXPECT_EQ(FromStream<std::int32_t>(Stream), -2);
  EXPECT_EQ(FromStream<std::uint32_t>(Stream), 0x80FF0102u);
  EXPECT_EQ(FromStream<float>(Stream), 1.5f);
  EXPECT_EQ(FromStream<double>(Stream), -2.0);
  EXPECT_EQ(StringFromStream(Stream), "aä");
  EXPECT_EQ(DecodeFromStream(Stream), "");
  double Read[2] = {};
  ArrayFromStream(Stream, Read);
  EXPECT_EQ(Read[1], 0.5);
  EXPECT_FALSE(ContinuationFromStream(Stream));
  EXPECT_THROW(FromStream<bool>(Stream), EReadError);
}

TEST(ZyIOTest, LengthsFromAStreamAreNotTrusted) {
  const auto ReadBehind = [](std::int32_t Length) {
    TMemoryStream Stream;
    ToStream(Stream, Length);
    Stream.WriteBuffer("abc", 3);
    Stream.SetPosition(0);
    return StringFromStream(Stream);
  };
  EXPECT_EQ(ReadBehind(3), "abc");
  EXPECT_EQ(ReadBehind(-1), "");
  EXPECT_EQ(ReadBehind(std::numeric_limits<std::int32_t>::min()), "");
  EXPECT_THROW(ReadBehind(4), EReadError);
  EXPECT_THROW(ReadBehind(std::numeric_limits<std::int32_t>::max()), EReadError);
}

TEST(ZyIOTest, CaptionsSurviveIniValues) {
  const std::pair<const char*, const char*> Cases[] = {
      {"one\rtwo", "one@\\rtwo"}, {"\r\r", "@\\r@\\r"}, {"a@b\\c\n", "a@b\\c\n"}, {"", ""}};
  for (const auto& [Plain, Encoded] : Cases) {
    EXPECT_EQ(EncodeForIni(Plain), Encoded);
    EXPECT_EQ(DecodeFomIni(Encoded), Plain);
  }
  EXPECT_EQ(DecodeFomIni("@\\r@\\"), "\r@\\");
}

TEST(ZyIOTest, RealsAreReadFromTextsAndFromOlderBinaryForms) {
  FormatSettings().DecimalSeparator = ',';
  TMemoryStream Stream;
  {
    TWriter Writer(Stream);
    StoreFloatToString(Writer, 0.1);
    Writer.WriteFloat(2.5);
    Writer.WriteInteger(7);
    Writer.WriteIdent("Red");
  }
  Stream.SetPosition(0);
  TReader Reader(Stream);
  EXPECT_EQ(Reader.ReadString(), "0.1");
  Reader.SetPosition(0);
  EXPECT_EQ(GetFloatFromStringOrFloat(Reader), 0.1);
  EXPECT_EQ(GetFloatFromStringOrFloat(Reader), 2.5);
  EXPECT_EQ(GetFloatFromStringOrFloat(Reader), 7.0);
  EXPECT_THROW(GetFloatFromStringOrFloat(Reader), EReadError);
  EXPECT_EQ(DoubleToStr(-1234.5), "-1234.5");
  EXPECT_EQ(Americanize("1,5"), "1.5");
  EXPECT_EQ(DeAmericanize("1.5"), "1,5");
  FormatSettings().DecimalSeparator = '.';
}

TEST(ZyIOTest, ReferencesAreDottedNames) {
  TDataModule Module;
  Module.SetName("Module");
  TComponent Part(&Module), Inner(&Part), Nameless(&Module), BelowNameless(&Nameless);
  Part.SetName("Part");
  Inner.SetName("Inner");
  BelowNameless.SetName("Deep");
  TComponent Lone;
  Lone.SetName("Lone");
  EXPECT_EQ(GetComponentRef(&Inner), "Module.Part.Inner");
  EXPECT_EQ(GetComponentRef(&Module), "Module");
  EXPECT_EQ(GetComponentRef(nullptr), "");
  EXPECT_EQ(GetComponentRef(&Nameless), "");
  EXPECT_EQ(GetComponentRef(&BelowNameless), "");
  EXPECT_EQ(GetComponentFromRef("Module.Part.Inner"), &Inner);
  EXPECT_EQ(GetComponentFromRef("Module"), &Module);
  for (const char* Wrong : {"", "module", "Module.part", "Module.Part.Nothing", "Other.Part", "Module.",
                            "Module..Inner", ".Module", "Lone"})
    EXPECT_EQ(GetComponentFromRef(Wrong), nullptr) << Wrong;

  EXPECT_EQ(OwnerName("A.B.C"), "A.B");
  EXPECT_EQ(OwnerName("A"), "");
  EXPECT_EQ(ComponentName("A.B.C"), "C");
  EXPECT_EQ(ComponentName("A"), "A");
  EXPECT_EQ(RefOwner("Module.Part"), &Module);
  EXPECT_EQ(RefOwner("Module"), &Application());
  EXPECT_EQ(RefOwner("Other.Part"), nullptr);
}

TEST(ZyIOTest, UniqueNamesTakeTheFirstFreeNumber) {
  TComponent Owner, A(&Owner), B(&Owner), D(&Owner);
  A.SetName("Axis1");
  B.SetName("Axis2");
  D.SetName("Axis4");
  EXPECT_EQ(UniqueName(&Owner, "Axis"), "Axis3");
  EXPECT_EQ(UniqueName(&Owner, "Graph"), "Graph1");
  EXPECT_EQ(UniqueName(nullptr, "Graph"), "Graph1");
}

}  // namespace
}  // namespace zy
