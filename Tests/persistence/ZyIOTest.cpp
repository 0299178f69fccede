#include "persistence/ZyIO.h"

#include <gtest/gtest.h>

#include <cstdint>

#include "framework/Bytes.h"
#include "graph/values/ZyStringFunctions.h"
#include "platform/framework/Application.h"
#include "platform/framework/TReader.h"
#include "platform/framework/TWriter.h"
#include "texts/Exceptions.h"
#include "texts/NumberText.h"

namespace zy {
namespace {

using namespace std::string_literals;

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
  EXPECT_EQ(testing::AsText(Stream),
            "\x01\x02"
            "\xFE\xFF\xFF\xFF\x02\x01\xFF\x80"
            "\x00\x00\xC0\x3F\x00\x00\x00\x00\x00\x00\x00\xC0"
            "\x03\x00\x00\x00"
            "a\xC3\xA4\x00\x00\x00\x00"
            "\x00\x00\x00\x00\x00\x00\xF0\x3F\x00\x00\x00\x00\x00\x00\xE0\x3F\x00"s);

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
  for (const std::int32_t Length : {-1, INT32_MIN}) EXPECT_EQ(ReadBehind(Length), "");
  for (const std::int32_t Length : {4, INT32_MAX}) EXPECT_THROW(ReadBehind(Length), EReadError);
}

TEST(ZyIOTest, CaptionsSurviveIniValues) {
  for (const auto& [Plain, Encoded] : {std::pair{"\rone\r\rtwo", "@\\rone@\\r@\\rtwo"}, {"a@b\\c\n", "a@b\\c\n"}}) {
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
  for (const double Value : {0.1, 2.5, 7.0}) EXPECT_EQ(GetFloatFromStringOrFloat(Reader), Value);
  EXPECT_THROW(GetFloatFromStringOrFloat(Reader), EReadError);
  EXPECT_EQ(DoubleToStr(-1234.5), "-1234.5");
  EXPECT_EQ(Americanize("1,5"), "1.5");
  EXPECT_EQ(DeAmericanize("1.5"), "1,5");
  FormatSettings().DecimalSeparator = '.';
}

TEST(ZyIOTest, ReferencesAreDottedNames) {
  TDataModule Module;
  TComponent Part(&Module), Inner(&Part), Nameless(&Module), BelowNameless(&Nameless), Lone;
  Module.SetName("Module");
  Part.SetName("Part");
  Inner.SetName("Inner");
  BelowNameless.SetName("Deep");
  Lone.SetName("Lone");
  for (TComponent* Component : std::initializer_list<TComponent*>{&Inner, &Module})
    EXPECT_EQ(GetComponentFromRef(GetComponentRef(Component)), Component);
  EXPECT_EQ(GetComponentRef(&Inner), "Module.Part.Inner");
  for (const TComponent* None : {static_cast<TComponent*>(nullptr), &Nameless, &BelowNameless})
    EXPECT_EQ(GetComponentRef(None), "");
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
  A.SetName("Axis3");
  EXPECT_EQ(UniqueName(&Owner, "Axis"), "Axis1") << "which is free again";
  Owner.RemoveComponent(&B);
  A.SetName("Axis1");
  EXPECT_EQ(UniqueName(&Owner, "Axis"), "Axis2");
  EXPECT_EQ(UniqueName(nullptr, "Graph"), "Graph1");
}

}  // namespace
}  // namespace zy
