#include "analysis/ZyParseFktCaptions.h"

#include <gtest/gtest.h>

#include <limits>
#include <list>
#include <sstream>

#include "analysis/ZyParseFktLists.h"
#include "analysis/ZyParseFktPicker.h"
#include "framework/Errors.h"
#include "texts/Exceptions.h"
#include "texts/FormatFloat.h"
#include "texts/NumberText.h"

namespace zy::testing {
namespace {

struct TGraph : TZyVariableContainer {
  std::string VariablesRef() const override { return "Form.Graph"; }
  TZyDependentList* ObjectsToUpdate() override { return &FObjectsToUpdate; }
  void Add(const std::string& Id, const std::string& Text) {
    AddStringToList(Id, "", this, GlobalStringList(), [Text] { return Text; });
  }
  TZyDependentList FObjectsToUpdate;
};

struct TLabel : TZyVariableDependent {
  void VariablesChanged() override {}
};

TEST(ZyParseFktCaptions, MarksAreReplaced) {
  TGraph Graph;
  Graph.Add("Caption", "Title");
  Graph.Add("Nested", "[<%form.graph.caption%>, <%1+1%>]");
  Graph.Add("Marked", "<%<%Pi%>%>");
  // A text that begins with a mark is not expanded again; formats are in upper case as the formula is.
  const std::pair<const char*, const char*> Cases[] = {
      {"", ""},
      {"% > <<%Pi;0.00%>, a<%1+1%>b<%2*3;0.0%>c", "% > <3.14, a2b6.0c"},
      {"<%FORM.Graph.caption%>!<%Form.Graph.Nested%>", "Title![Title, 2]"},
      {"<%<%", "<%"},
      {"x<%<%y%>%>z", "x<%y%>z"},
      {"<%<%<%1%>", "<%1"},
      {"a%>%> <%1%>", "a%> 1"},
      {"a%>%>", "a%>%>"},
      {"a%>b<%1%>", "a%>b1"},
      {"<%2%>%>", "2"},
      {"<%Form.Graph.Marked%> <%3%>", "<%Pi%> 3"},
      {"<%5;0x'a;b'%>", "5XA;B"}};
  for (const auto& [Text, Value] : Cases) EXPECT_EQ(ParseVariables(Text, nullptr), Value) << Text;
  for (const char* Text : {"<%%>", "a<%", "<%1", "<%>", "<%;0.0%>"})
    EXPECT_EQ(MessageOf<EExternal>([&] { ParseVariables(Text, nullptr); }), "No valid expression defined") << Text;
  EXPECT_THROW(ParseVariables("<%Form.Graph.Nothing%>", nullptr), EMathError);
  EXPECT_EQ(FindTheVar("form.graph.CAPTION", nullptr), "Title");
  TLabel Label;
  ParseVariables("<%1%>", &Label);
  EXPECT_TRUE(Graph.FObjectsToUpdate.empty());
  ParseVariables("<%Form.Graph.Caption%>", &Label);
  EXPECT_TRUE(Graph.FObjectsToUpdate.Contains(Label));
}

TEST(ZyParseFktCaptions, EndlessVariablesEnd) {
  TGraph Graph;
  Graph.Add("Self", "a<%Form.Graph.Self%>");
  EXPECT_EQ(ParseVariables("<%Form.Graph.Self%>,<%1%>", nullptr), std::string(16, 'a') + "<%Form.Graph.Self%>,1");
  Graph.Add("Twice", "x<%Form.Graph.Twice%><%Form.Graph.Twice%>");
  Graph.Add("Grows", "y<%<%Form.Graph.Grows%>%>");
  std::string Wide = "z";
  for (int i = 0; i < 12; ++i) {
    const std::string Id = "W" + std::to_string(i);
    Graph.Add(Id, Wide + Wide + Wide + Wide + Wide + Wide + Wide + Wide + Wide + Wide);
    Wide = " <%Form.Graph." + Id + "%>";
  }
  for (const char* Id : {"Twice", "Grows", "W11"})
    EXPECT_LT(ParseVariables("<%Form.Graph." + std::string(Id) + "%>", nullptr).size(), 1'000'000U) << Id;
}

TEST(FormatFloat, SectionsAndPlaceholders) {
  // Formats, values and texts.
  std::istringstream Cases(R"(
      0 2.5 3             0 -2.5 -3           0 0.49999999999999994 0   0.00 0.125 0.13    0.00 1.005 1.00
      0.00 99.999 100.00  00.0 5 05.0         #.## 0.5 .5               #.## 5 5           0.0# 1.5 1.5
      0.0# 1.256 1.26     .00 12.3 12.30      0,000 12 0,012            0-0 12 1-2         #,##0.00 1234567.891 1,234,567.89
      0.00E+00 1234.5 1.23E+03  0.00E-00 1234.5 1.23E03  0.###e+0 -0.00012 -1.2e-4  00.0E+0 12345 12.3E+3
      0E+0000 9.6 1E+0001       0.0E+0 0 0.0E+0          ##0.##% 12.345 12.35%
      0.0;(0.0);none 1.25 1.3   0.0;(0.0);none -1.25 (1.3)   0.0;(0.0);none 0 none   0.0;(0.0);none -0.01 none
      0.0;;none -2 -2.0         0.0;(0.0) -0.01 0.0          ;(0) 7.25 7.25          0'open 1 1open   abc -3 -abc
      0 123456789012345678 123456789012345680   0 1e18 1e+18   0.0000000000000000000000 0.1 0.1000000000000000060000)");
  std::string Format, Text;
  int Count = 0;
  for (double Value = 0; Cases >> Format >> Value >> Text; ++Count)
    EXPECT_EQ(FormatFloat(Format, Value), Text) << Format << " " << Value;
  EXPECT_EQ(Count, 34);
  EXPECT_EQ(FormatFloat("", 1234.5), "1234.5");
  EXPECT_EQ(FormatFloat("#.##", 0), "");
  EXPECT_EQ(FormatFloat("0 'm;\"' \"it's\"", 3), "3 m;\" it's");
  EXPECT_EQ(FormatFloat("0.0", std::numeric_limits<double>::infinity()), "INF");
  FormatSettings() = {',', '.'};
  EXPECT_EQ(FormatFloat("#,##0.00", 1234.5), "1.234,50");
  FormatSettings() = {};
}

/// A tree as a dialog has it.
class TTree : public TZyPickerTree {
 public:
  struct TNode : TZyPickerNode {
    std::string Text() const override { return Name; }
    TZyPickerNode* Parent() const override { return Above; }
    TZyPickerNode* GetNext() const override {
      if (!Below.empty()) return Below.front();
      for (const TNode* Node = this; Node != nullptr; Node = Node->Above)
        if (Node->Behind != nullptr) return Node->Behind;
      return nullptr;
    }
    std::string Name;
    TNode* Above = nullptr;
    TNode* Behind = nullptr;
    std::vector<TNode*> Below;
  };
  void Clear() override { Nodes.clear(); }
  TZyPickerNode* GetFirstNode() const override { return Nodes.empty() ? nullptr : const_cast<TNode*>(&Nodes.front()); }
  TZyPickerNode* AddChild(TZyPickerNode* Parent, const std::string& Text) override {
    TNode& Node = Nodes.emplace_back();
    Node.Name = Text;
    Node.Above = static_cast<TNode*>(Parent);
    if (Node.Above == nullptr) return &Node;
    if (!Node.Above->Below.empty()) Node.Above->Below.back()->Behind = &Node;
    Node.Above->Below.push_back(&Node);
    return &Node;
  }
  std::list<TNode> Nodes;
};

TEST(ZyParseFktPicker, TreesOfNamesAndBack) {
  std::vector<std::string> Strings = {"old"};
  PopulateListWithFunctions(Strings);
  ASSERT_EQ(Strings.size(), 31U);
  EXPECT_EQ(Strings[2] + Strings[3], "RandomAbs()");

  TGraph Graph;
  const auto Zero = [] { return 0.0; };
  AddVariableToList("Start", "", &Graph, GlobalVariableList(), Zero);
  AddVariableToList("Stop", "", &Graph, GlobalVariableList(), Zero);
  AddVariableToList("Alone", "", nullptr, GlobalVariableList(), Zero);
  AddArrayToList("Maxima.X", "", &Graph, GlobalArrayList(), [](std::int32_t) { return 0.0; });
  TTree Tree;
  PopulateTreeWithVariables(Tree);
  std::vector<std::string> Refs;
  for (const TZyPickerNode* Node = Tree.GetFirstNode(); Node != nullptr; Node = Node->GetNext())
    Refs.push_back(RefFromNode(Node));
  EXPECT_EQ(Refs, (std::vector<std::string>{"Form", "Form.Graph", "Form.Graph.Start", "Form.Graph.Stop",
                                            "Form.Graph.Maxima", "Form.Graph.Maxima.X[]", "Form.Alone"}));
  EXPECT_EQ(RefFromNode(FindInTree("Form.Graph.Maxima.X(3)", Tree)), "Form.Graph.Maxima.X[]");
  EXPECT_EQ(RefFromNode(FindInTree("Graph.Stop", Tree)), "Form.Graph.Stop");
  for (const char* Reference : {"", "Form.Graph.Nothing", "Stop.Start", "form"})
    EXPECT_EQ(FindInTree(Reference, Tree), nullptr) << Reference;
  RemoveFromVariablesList(nullptr, GlobalVariableList());
  PopulateTreeWithStrings(Tree);
  EXPECT_EQ(Tree.GetFirstNode(), nullptr);
}

}  // namespace
}  // namespace zy::testing
