// The verbs of the archives by which charts, axes and series tell of their records, with an object of each.

#include "persistence/ZyRecord.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>

#include "framework/Bytes.h"
#include "framework/Errors.h"
#include "persistence/ZyArchive.h"
#include "persistence/ZyFieldTable.h"
#include "platform/framework/Application.h"
#include "platform/framework/TMemIniFile.h"
#include "platform/framework/TPropInfo.h"
#include "platform/framework/XmlDocument.h"
#include "series/vectors/ZyDoubleVector.h"
#include "texts/Exceptions.h"

namespace zy::testing {
namespace {

using namespace std::string_literals;

/// A leaf of a chart: refers to another one, and has texts or the name of where they come from.
class TLeaf : public TComponent, public TZyRecord {
  ZY_CLASS(TLeaf, TComponent)
  explicit TLeaf(TComponent* AOwner = nullptr) : TComponent(AOwner) {}

  TLeaf* Other() const { return FOther; }
  void SetOther(TLeaf* Value) { FOther = Value, ++Sets; }
  void Fields(TZyArchive& Archive) override {
    Archive.TypedIdentity(*this);
    Archive.Value(TZyFieldName("Caption").Text(), Caption);
    Archive.Level("Links", [&] {
      Archive.Reference<&TLeaf::Other, &TLeaf::SetOther>(*this, "Other");
      Archive.Value(TZyFieldName("Keys").Xml("Deep/Inner/K").Ini("Number"), Keys);
      Archive.Value(TZyFieldName("Start").Xml("Deep/Start").Later(), Start);
      Archive.Value(TZyFieldName("Hint").MultiLine(), Hint);
      Archive.EndRecord();
    });
    FromDatabase = Archive.Alternative(
        TZyFieldName("Database").Ini("FromDatabase"), FromDatabase,
        [&] { Archive.Value(TZyFieldName("Source").Xml("Database/Source"), Source); },
        [&] { Archive.Value(TZyFieldName("Texts").CountKey("N").Omit(OmitTexts), Texts); });
    Archive.EndRecord();
  }

  std::string Caption, Source, Hint;
  TShiftState Keys;
  double Start = 0;
  std::vector<std::string> Texts;
  bool FromDatabase = false, OmitTexts = false;
  int Sets = 0, Ends = 0;

 protected:
  void EndRead() override { ++Ends; }

 private:
  TRef<TLeaf> FOther{this};
};
ZY_PUBLISHED(TLeaf, TComponent)

/// Has leaves, two vectors and a list of pairs.
class TTree : public TDataModule, public TZyRecord {
 public:
  void Fields(TZyArchive& Archive) override {
    Archive.Items(
        TZyFieldName("Pairs").Square(), static_cast<int>(Pairs.size()),
        [this](int Count) { Pairs.assign(static_cast<std::size_t>(Count), {}); },
        [&](int Index) {
          Archive.Value("A", Pairs[static_cast<std::size_t>(Index)].first);
          Archive.Value("B", Pairs[static_cast<std::size_t>(Index)].second);
        });
    Archive.Record(TZyFieldName("Zoom").Ini("Zoom.Start"), Starts);
    Archive.Record(TZyFieldName("Zoom").Ini("Zoom.Stop").Behind(1), Stops);
    Archive.Records("Leaves", {Leaves.begin(), Leaves.end()}, true,
                    [this](const TZyIdentity& Who, const TZyArchive::TReadObject& Read) {
                      if (Who.ClassName != "TLeaf") return;
                      auto* Leaf = dynamic_cast<TLeaf*>(GetComponentFromRef(Who.Reference));
                      if (Leaf == nullptr) {
                        Leaf = new TLeaf(this);
                        Leaf->SetName(std::string(ComponentName(Who.Reference)));
                      }
                      Leaves.push_back(Leaf);
                      Read(*Leaf);
                    });
  }
  std::string RecordName() const override { return "Tree"; }

  std::vector<std::pair<std::int32_t, bool>> Pairs;
  TZyDoubleVector Starts, Stops;
  std::vector<TLeaf*> Leaves;
};

TTree* NewTree(bool Filled) {
  auto* const Tree = new TTree;
  Tree->SetName("Tree");
  if (!Filled) return Tree;
  Tree->Pairs = {{1, true}, {2, false}};
  Tree->Starts.AddRange({0.1, -1e300, 1.0 / 3, std::nan("")});
  Tree->Starts.AddOutlier(2);
  Tree->Stops.AddRange({2, 3});
  for (const char* Name : {"First", "Second"}) {
    Tree->Leaves.push_back(new TLeaf(Tree));
    Tree->Leaves.back()->SetName(Name);
  }
  Tree->Leaves[0]->Caption = "a < b\r";
  Tree->Leaves[0]->Keys = {ssLeft, ssDouble};
  Tree->Leaves[0]->Start = 0.1;
  Tree->Leaves[0]->Hint = "a\rb";
  Tree->Leaves[0]->Texts = {"x y", "\r"};
  Tree->Leaves[1]->FromDatabase = true;
  Tree->Leaves[1]->Source = "s";
  Tree->Leaves[1]->SetOther(Tree->Leaves[0]);
  return Tree;
}

const std::string NewLinks = "\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"s;  // keys, start, hint, end
const std::string LeafStart =
    "\x05\0\0\0TLeaf\x0A\0\0\0Tree.First\x06\0\0\0a < b\r\0\0\0\0"
    "\x48\x00\x9A\x99\x99\x99\x99\x99\xB9\x3F\x03\0\0\0a\rb\0"s;

TEST(ZyRecordTest, WritesReferencesListsAndAlternatives) {
  const std::unique_ptr<TTree> Tree(NewTree(true));
  TMemoryStream Stream;
  Tree->Leaves[0]->WriteTo(Stream);
  Tree->Leaves[1]->OmitTexts = true;
  Tree->Leaves[1]->WriteTo(Stream);
  EXPECT_EQ(AsText(Stream), LeafStart + "\0\x02\0\0\0\x03\0\0\0x y\x01\0\0\0\r\0"s +
                                "\x05\0\0\0TLeaf\x0B\0\0\0Tree.Second\0\0\0\0\x0A\0\0\0Tree.First"s + NewLinks +
                                "\x01\x01\0\0\0s\0"s);
  TXMLDocument Document("R");
  Tree->WriteTo(Document.DocumentElement());
  const std::string Xml = Document.SaveToText();
  for (const char* Part :
       {"<Pairs Count=\"2\">\n      <Item A=\"1\" B=\"true\" />",
        "<TLeaf Name=\"Tree.First\">\n        <Caption>a &lt; b&#13;</Caption>\n        <Links Other=\"\" "
        "Hint=\"a&#13;b\">\n"
        "          <Deep Start=\"0.1\">\n            <Inner K=\"72\" />\n          </Deep>\n        </Links>\n"
        "        <Texts Count=\"2\">\n          <Item>x y</Item>",
        "<Links Other=\"Tree.First\"", "</Links>\n        <Database Source=\"s\" />"})
    EXPECT_NE(Xml.find(Part), std::string::npos) << Part << "\n" << Xml;
  TMemIniFile Ini;
  Tree->WriteTo(Ini, "T");
  const std::map<std::pair<const char*, const char*>, const char*> Keys = {
      {{"T", "Pairs.Count"}, "2"},          {{"T", "Pairs[1].A"}, "2"},
      {{"T", "Leaves.Count"}, "2"},         {{"T.Zoom.Stop", "Values"}, "2 3"},
      {{"T.Leaves(0)", "N"}, "2"},          {{"T.Leaves(0)", "Texts(1)"}, "@\\r"},
      {{"T.Leaves(0)", "Type"}, "TLeaf"},   {{"T.Leaves(1)", "Name"}, "Tree.Second"},
      {{"T.Leaves(1)", "Source"}, "s"},     {{"T.Leaves(1)", "FromDatabase"}, "1"},
      {{"T.Leaves(1)", "N"}, nullptr},      {{"T.Leaves(0)", "Caption"}, "a < b@\\r"},
      {{"T.Leaves(0)", "Number"}, "72"},    {{"T.Leaves(0)", "Hint"}, "a@\\rb"},
      {{"T.Leaves(0)", "Start"}, "0.1"},    {{"T.Zoom.Start", "Outliers"}, "2"},
      {{"T.Zoom.Stop", "Outliers"}, "None"}};
  for (const auto& [Key, Value] : Keys)
    EXPECT_EQ(Ini.ReadString(Key.first, Key.second, "absent"), Value == nullptr ? "absent" : Value) << Key.second;
}

/// Writes a tree by Write, frees it, reads another one by Read, which makes the leaves, and compares its bytes.
template <class TWrite, class TRead>
void CheckTree(const TWrite& Write, const TRead& Read) {
  TMemoryStream Before, After;
  std::unique_ptr<TTree> Tree(NewTree(true));
  Tree->WriteTo(Before);
  Write(*Tree);
  Tree.reset();
  Tree.reset(NewTree(false));
  Read(*Tree);
  Tree->WriteTo(After);
  EXPECT_EQ(AsText(After), AsText(Before));
  ASSERT_EQ(Tree->Leaves.size(), 2u);
  EXPECT_EQ(Tree->Leaves[1]->Other(), Tree->Leaves[0]);
  EXPECT_EQ(Tree->Leaves[1]->Ends, 1);
}

TEST(ZyRecordTest, ObjectsAreMadeAndReadInEachForm) {
  const TTemporaryFolder Folder;
  CheckTree([&](TTree& Tree) { Tree.WriteTo(Folder / "tree"); }, [&](TTree& Tree) { Tree.ReadFrom(Folder / "tree"); });
  TXMLDocument Document("R");
  const IXMLNode Root = Document.DocumentElement();
  CheckTree([&](TTree& Tree) { Tree.WriteTo(Root); }, [&](TTree& Tree) { Tree.ReadFrom(Root); });
  TMemIniFile Ini;
  CheckTree([&](TTree& Tree) { Tree.WriteTo(Ini, "T"); }, [&](TTree& Tree) { Tree.ReadFrom(Ini, "T"); });
}

TEST(ZyRecordTest, WhatDoesNotResolveOrWasLeftOut) {
  const std::unique_ptr<TTree> Tree(NewTree(true));
  TLeaf& Leaf = *Tree->Leaves[1];
  const auto Read = [&](const std::string& Bytes) {
    TMemoryStream Stream(AsBytes(Bytes));
    Leaf.ReadFrom(Stream);
    EXPECT_EQ(Stream.Remaining(), 0);
  };
  const std::string Start = "\0\0\0\0\0\0\0\0\0\0\0\0"s;
  for (const std::string& Ref : {"\x04\0\0\0Tree"s, "\x06\0\0\0Tree.X"s}) {  // of another class, and nobody
    Leaf.SetOther(Tree->Leaves[0]);
    Leaf.Texts = {"kept"};
    Read(Start + Ref + NewLinks + "\0\xFF\xFF\xFF\xFF\0"s);
    EXPECT_EQ(Leaf.Other(), nullptr);
    EXPECT_EQ(Leaf.Texts, std::vector<std::string>{"kept"});
  }
  Leaf.OmitTexts = true;
  Leaf.FromDatabase = false;
  TMemIniFile Ini;
  Leaf.WriteTo(Ini, "S");
  EXPECT_EQ(Ini.ReadString("S", "N", ""), "-1");
  Leaf.ReadFrom(Ini, "S");
  TXMLDocument Document("R");
  Leaf.WriteTo(Document.DocumentElement());
  Leaf.ReadFrom(Document.DocumentElement().Node("TLeaf"));
  EXPECT_EQ(Leaf.Texts, std::vector<std::string>{"kept"});
  Ini.DeleteKey("S", "Other");
  const int Sets = Leaf.Sets;
  Ini.WriteString("S", "Number", "128");
  EXPECT_THROW(Leaf.ReadFrom(Ini, "S"), EConvertError);
  Ini.DeleteKey("S", "Number");
  Leaf.ReadFrom(Ini, "S");
  EXPECT_EQ(Leaf.Sets, Sets);
}

TEST(ZyRecordTest, ErrorsNameTheObjectAndTheField) {
  const std::unique_ptr<TTree> Tree(NewTree(true));
  const auto Message = [&](const std::string& Bytes) {
    TMemoryStream Stream(AsBytes(Bytes));
    return MessageOf<EStreamError>([&] { Tree->ReadFrom(Stream); });
  };
  TMemoryStream Whole;
  Tree->WriteTo(Whole);
  const std::string Bytes = AsText(Whole);
  const std::size_t Leaf = Bytes.find("\x05\0\0\0TLeaf"s), Count = Bytes.find("\0\x02\0\0\0\x03\0\0\0x y"s) + 1;
  const std::string Huge = "\xFF\xFF\xFF\x7F";
  const int Ends = Tree->Leaves[0]->Ends;
  EXPECT_EQ(Message(std::string(Bytes).replace(Count, 4, Huge)).find("Tree Tree, Leaves(0): TLeaf First, Texts: "), 0u);
  EXPECT_EQ(Tree->Leaves[0]->Ends, Ends + 1) << "also after a failure";
  EXPECT_EQ(Message(Huge).find("Tree Tree, Pairs: "), 0u);
  EXPECT_EQ(Message(Bytes.substr(0, 8)).find("Tree Tree, Pairs(0).B: "), 0u);
  EXPECT_EQ(Message(std::string(Bytes).replace(Leaf + 4, 1, "X")).find("Tree Tree, Leaves(0): "), 0u);
  TMemIniFile Ini;
  for (const auto& [Key, Place] : {std::pair{"Pairs.Count", "Pairs"}, {"Leaves.Count", "Leaves"}}) {
    Tree->WriteTo(Ini, "T");
    Ini.WriteInteger("T", Key, 1000000);
    const std::string Text = MessageOf<EConvertError>([&] { Tree->ReadFrom(Ini, "T"); });
    EXPECT_EQ(Text.find("Tree Tree, "s + Place + ": \"1000000\""), 0u) << Text;
  }
}

TEST(ZyRecordTest, TheListsTellTheTableOfFields) {
  TZyDoubleVector Vector;
  EXPECT_EQ(FieldTableText(FieldTable(Vector)),
            "| # | width | kind | XML | INI |\n|---|---|---|---|---|\n"
            "| 1 |  | text | Name | Name |\n"
            "| 2 | 4 | integer | Increment | Increment |\n"
            "| 3 | 4 | integer | Capacity | Capacity |\n"
            "| 4 | 1 | alternative | Database | FromDatabase |\n"
            "| 5 |  | text | Database/DataSource | DataSource |\n"
            "| 6 |  | text | Database/DataField | DataField |\n"
            "| 7 | 8 | count of doubles | Values | Values |\n"
            "| 8 | 1 | alternative | Outliers |  |\n"
            "| 9 | 4 | count of integers | Outliers | Outliers |\n"
            "| 10 | 1 | continuation, 0 |  |  |\n");
}

}  // namespace
}  // namespace zy::testing
