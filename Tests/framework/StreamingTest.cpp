#include <gtest/gtest.h>

#include <limits>
#include <memory>

#include "framework/Errors.h"
#include "framework/ReadTrial.h"
#include "platform/framework/Application.h"
#include "platform/framework/TPropInfo.h"
#include "platform/framework/TWriter.h"

namespace zy::testing {
namespace {

using namespace std::string_literals;

/// A sample that has its part from the start, as a component that publishes one does.
class TSampleWithPart : public TSample {
  ZY_CLASS(TSampleWithPart, TSample)
  explicit TSampleWithPart(TComponent* Owner = nullptr) : TSample(Owner) { MakePart(); }
};
ZY_PUBLISHED(TSampleWithPart, TSample)

/// Refuses every reference.
class TStubbornSample : public TSample {
  ZY_CLASS(TStubbornSample, TSample)
  using TSample::TSample;
  ~TStubbornSample() override { ++Deaths; }
  TSample* Friend() const { return nullptr; }
  void SetFriend(TSample*) { throw EInvalidOperation("no"); }
  inline static int Deaths = 0;
};
ZY_PUBLISHED(TStubbornSample, TSample, Published<&TStubbornSample::Friend, &TStubbornSample::SetFriend>("Friend"))

template <class T = TSample>
T* AddTo(TComponent& Owner, const char* Name) {
  auto* const Sample = new T(&Owner);
  Sample->SetName(Name);
  return Sample;
}

/// A root with every kind of property set, a part, two children that refer to each other, to the part and to the root.
std::unique_ptr<TSampleWithPart> FullTree() {
  auto Root = std::make_unique<TSampleWithPart>();
  Root->SetName("Root");
  Root->SetWhole(-2'000'000'000);
  Root->SetSmall(-128);
  Root->SetLetter('\xFF');
  Root->SetSwitch(true);
  Root->SetShade(TShade::Dark);
  Root->SetShades({TShade::Light, TShade::Dark});
  Root->SetSingle(-0.1f);
  Root->SetReal(std::numeric_limits<double>::denorm_min());
  Root->SetText("n\xC3\xA4h\n");
  Root->Lines().SetText("one\n\nthree\n");
  Root->Style().SetWidth(2.5f);
  Root->Style().SetColor(0x80FFFFFF);
  Root->SetBig(std::numeric_limits<std::int64_t>::min());
  Root->SetNumbers({1, -2.5, 1e300});
  Root->SetAny(TVariant::TArray{true, 1, 2.5, "x", TVariant(), TVariant::TArray{}});
  Root->Extra = 77;
  Root->Part()->SetText(std::string(300, 'p'));
  Root->Part()->Extra = 5;
  auto* const First = AddTo(*Root, "First");
  auto* const Second = AddTo<TSampleWithPart>(*Root, "Second");
  First->SetLink(Second);  // forward, to a component that does not exist yet when it is read
  Second->SetLink(First);
  Second->Part()->SetLink(Root.get());
  Root->SetLink(Second->Part());
  Root->Part()->SetLink(Root->Part());
  return Root;
}

std::string MessageOf(const std::string& Bytes) {
  TSample Root;
  return testing::MessageOf<Exception>([&] { ReadBytes(Bytes, &Root); });
}

TEST(Streaming, AWholeTreeComesBackByteForByte) {
  const auto Root = FullTree();
  const std::string Bytes = BytesOf(*Root);
  const std::unique_ptr<TComponent> Copy(ReadBytes(Bytes, nullptr));
  EXPECT_EQ(BytesOf(*Copy), Bytes);
  auto& Read = dynamic_cast<TSampleWithPart&>(*Copy);
  auto* const First = dynamic_cast<TSample*>(Read.FindComponent("First"));
  auto* const Second = dynamic_cast<TSample*>(Read.FindComponent("Second"));
  ASSERT_TRUE(First != nullptr && Second != nullptr);
  EXPECT_EQ(Second->Part()->Link(), &Read);
  for (const TSample* Sample : {static_cast<TSample*>(&Read), Read.Part(), First, Second, Second->Part()})
    EXPECT_EQ(Sample->LoadedCount, 1) << Sample->Name();
  EXPECT_TRUE(IsSettled(Read));
}

TEST(Streaming, ABareComponentHasTheseBytes) {
  TSample Sample;
  Sample.SetName("S");
  Sample.SetShade(TShade::Middle);
  const auto Text = [](const std::string& Value) { return "\x07"s + static_cast<char>(Value.size()) + Value; };
  const std::string Expected = "ZYF1" + Text("TSample") + Text("S") + Text("Shade") + "\x0B\x06\x00\x00\x00"s +
                               "Middle" + Text("Real") + "\x06"s + std::string(8, '\0') + Text("Style.Color") +
                               "\x05\x00\x00\x00\xFF\x00\x00\x00\x00"s + Text("Link") + "\x0E" + Text("Numbers") +
                               "\x0F\x00\x00\x00\x00"s + Text("Any") + "\0\0\0"s;
  EXPECT_EQ(BytesOf(Sample), Expected);
}

TEST(Streaming, FillsAnExistingRootInPlace) {
  const std::string Bytes = BytesOf(*FullTree());
  TSampleWithPart Root;
  auto* const First = AddTo(Root, "First");
  auto* const Own = AddTo(Root, "Own");
  First->SetWhole(3);  // a default in the stream: stays
  EXPECT_EQ(ReadBytes(Bytes, &Root), &Root);
  EXPECT_EQ(Root.FindComponent("First"), First);
  EXPECT_EQ(Own->LoadedCount, 0);
  EXPECT_EQ(First->Whole(), 3);
  EXPECT_EQ(Root.Name(), "Root");
  ReadBytes(Bytes, &Root);
  EXPECT_EQ(Root.Components().size(), 4u);
  EXPECT_EQ(Root.LoadedCount, 2);
}

TEST(Streaming, ReferencesLeadOutsideOrToNull) {
  TDataModule Module;
  Module.SetName("Module");
  auto* const Outside = AddTo(Module, "Outside");
  std::string Bytes;
  {
    TSample Root, Nameless;
    Root.SetLink(Outside);
    AddTo(Root, "Child")->SetLink(&Nameless);
    Bytes = BytesOf(Root);
  }
  const auto LinkAfterRead = [&Bytes] {
    TSample Root;
    Root.SetLink(&Root);
    AddTo(Root, "Child")->SetLink(&Root);
    ReadBytes(Bytes, &Root);
    EXPECT_EQ(dynamic_cast<TSample*>(Root.FindComponent("Child"))->Link(), nullptr) << "it had no name to be found by";
    return Root.Link();
  };
  EXPECT_EQ(LinkAfterRead(), Outside);
  Outside->SetName("Other");
  EXPECT_EQ(LinkAfterRead(), nullptr);
  auto* const Foreign = new TComponent(&Module);
  Foreign->SetName("Outside");
  EXPECT_EQ(LinkAfterRead(), nullptr) << "a component of another class does not fit";
}

/// Bytes of a root of class TSample with these bytes for properties and children.
std::string Root(const std::string& Rest) { return "ZYF1\x07\x07TSample\x07\x01S" + Rest; }

TEST(Streaming, ErrorsNameWhatIsWrong) {
  const auto Property = [](const std::string& Name, const std::string& Value) {
    return Root("\x07"s + static_cast<char>(Name.size()) + Name + Value);
  };
  const std::string Integer = "\x02\x01", Text = "\x07\x01x";
  const std::pair<std::string, const char*> Rows[] = {
      {"ZYF2\x07\x07TSample", "component"},
      {"ZYF1\x07\x05TNone\x07\x01S", "TNone"},
      {"ZYF1\x07\x0BTComponentX\x07\x01S", "TComponentX"},
      {"ZYF1\x07\x0BTStringList\x07\x01S", "TStringList"},
      {Root("\0\x07\x05TNone\x07\x01"s + "C"), "TNone"},
      {Root("\0\x07\x0BTStringList\x07\x01"s + "C"), "TStringList"},  // a class that is no component
      {"ZYF1\x07\x07TSample\x07\x02S!", "S!"},
      {Property("Nothing", Integer), "TSample has no property \"Nothing\""},
      {Property("Style.Nothing", Integer), "Style.Nothing"},
      {Property("Part.Whole", Integer), "Part.Whole"},
      {Property("Link.Whole", Integer), "Link.Whole"},  // never through a reference
      {Property("Whole", Text), "integer"},
      {Property("Small", "\x03\x80\x00"s), "Small"},
      {Property("Shade", "\x0B\x04\0\0\0Pink"s), "Pink"},
      {Property("Shade", "\x02\x03"), "Shade"},
      {Property("Shades", "\x02\x08"), "Shades"},
      {Property("Link", Integer), "name"},
      {Property("Style", Integer), "part"},
      {Property("Numbers", Text), "array"},
      {Property("Lines.Strings", "\x01\x02\x01\0"s), "text"}};
  for (const auto& [Bytes, Expected] : Rows) {
    const std::string Message = MessageOf(Bytes);
    EXPECT_NE(Message.find(Expected), std::string::npos) << Expected << " in: " << Message;
  }
  EXPECT_THROW(ReadBytes(Rows[1].first, nullptr), EClassNotFound);
}

TEST(Streaming, AComponentNeverLiesInItselfNorHasTwoRecords) {
  const std::string Child =
      "\x07\x07TSample\x07\x01"
      "C\0"s;
  EXPECT_NE(MessageOf(Root("\0"s + Child + Child + "\0\0\0"s)).find("C"), std::string::npos);
  EXPECT_NE(MessageOf(Root("\0"s + Child + "\0"s + Child + "\0\0"s)).find("C"), std::string::npos);
  std::string Deep = Root("\0"s);
  for (int Level = 0; Level < 50'000; ++Level) Deep += "\x07\x07TSample\x07\0\0"s;
  EXPECT_NE(MessageOf(Deep), "");
}

TEST(Streaming, ACutOrAWrongByteAnywhereNeverLeavesABrokenObject) {
  const std::string Bytes = BytesOf(*FullTree());
  const auto Fits = [](const std::string& Tried) {
    const TReadTrial<TSampleWithPart> Trial(Tried);
    EXPECT_EQ(Trial.Fault, "");
    return Trial.Fits;
  };
  EXPECT_TRUE(Fits(Bytes));
  for (std::size_t Place = 0; Place < Bytes.size() && !::testing::Test::HasFailure(); ++Place) {
    SCOPED_TRACE(Place);
    EXPECT_FALSE(Fits(Bytes.substr(0, Place)));
    for (const char Flip : {'\x01', '\x20', '\x80', '\xFF'}) {
      std::string Bad = Bytes;
      Bad[Place] = static_cast<char>(Bad[Place] ^ Flip);
      Fits(Bad);
    }
  }
}

TEST(Streaming, WhatAFailedReadCreatedIsDeleted) {
  // The setter fails at the fix-up, when all has been read.
  const std::string Stubborn =
      "\x07\x0FTStubbornSample\x07\x01"
      "C\x07\x06"
      "Friend\x0B\x01\0\0\0C\0\0"s;
  TStubbornSample::Deaths = 0;
  EXPECT_THROW(ReadBytes("ZYF1" + Stubborn, nullptr), EInvalidOperation);
  EXPECT_EQ(TStubbornSample::Deaths, 1);
  TSample Target;
  EXPECT_THROW(ReadBytes(Root("\0"s + Stubborn + "\0"s), &Target), EInvalidOperation);
  EXPECT_EQ(TStubbornSample::Deaths, 2);
  EXPECT_TRUE(Target.Components().empty());
  EXPECT_TRUE(IsSettled(Target));
}

}  // namespace
}  // namespace zy::testing
