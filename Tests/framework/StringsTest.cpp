#include "platform/framework/TStrings.h"

#include <gtest/gtest.h>

#include "texts/Exceptions.h"

namespace zy::testing {
namespace {

/// A list that logs its changes and what it held at each.
struct TLogged {
  TLogged() {
    Lines.OnChanging = [this](TObject* Sender) { Note('<', Sender); };
    Lines.OnChange = [this](TObject* Sender) { Note('>', Sender); };
  }
  void Note(char Mark, const TObject* Sender) {
    EXPECT_EQ(Sender, &Lines);
    Log += Mark + std::to_string(Lines.Count());
  }
  TStringList Lines;
  std::string Log;
};

TEST(StringList, NotifiesBeforeAndAfterEachChange) {
  const std::pair<const char*, std::function<void(TStringList&)>> Rows[] = {
      {"<2>3", [](TStringList& Lines) { EXPECT_EQ(Lines.Add("c"), 2); }},
      {"<2>3", [](TStringList& Lines) { Lines.Insert(0, "c"); }},
      {"<2>2", [](TStringList& Lines) { Lines.Put(1, "c"); }},
      {"<2>1", [](TStringList& Lines) { Lines.Delete(0); }},
      {"<2>0", [](TStringList& Lines) { Lines.Clear(); }},
      {"<2>4", [](TStringList& Lines) { Lines.AddStrings(Lines); }},
      {"<2>1", [](TStringList& Lines) { Lines.SetText("c"); }},
      {"", [](TStringList& Lines) { Lines.Assign(&Lines); }},
      {"", [](TStringList& Lines) { EXPECT_THROW(Lines.Put(2, "c"), ERangeError); }},
      {"", [](TStringList& Lines) { EXPECT_THROW(Lines.Delete(-1), ERangeError); }},
      {"", [](TStringList& Lines) { EXPECT_THROW(Lines.Insert(3, "c"), ERangeError); }},
      {"", [](TStringList& Lines) { Lines.EndUpdate(); }}};  // without a begin
  for (const auto& [Expected, Action] : Rows) {
    TLogged List;
    List.Lines.SetText("a\nb");
    List.Log.clear();
    Action(List.Lines);
    EXPECT_EQ(List.Log, Expected);
    List.Lines.Clear();
    List.Log.clear();
    List.Lines.Add("after");
    EXPECT_EQ(List.Log, "<0>1");
  }
}

TEST(StringList, NestedUpdatesNotifyOnceAtTheOuterEnd) {
  TLogged List;
  List.Lines.BeginUpdate();
  List.Lines.Add("a");
  List.Lines.BeginUpdate();
  List.Lines.SetText("a\nb\nc");
  List.Lines.EndUpdate();
  List.Lines.Delete(0);
  EXPECT_EQ(List.Log, "<0");
  List.Lines.EndUpdate();
  EXPECT_EQ(List.Log, "<0>2");
}

/// A list that another list cannot be filled from.
class TFailingList : public TStringList {
 public:
  std::string Get(int Index) const override {
    if (Index == 1) throw EInvalidOperation("gone");
    return TStringList::Get(Index);
  }
};

TEST(StringList, AFailingUpdateEnds) {
  TFailingList Source;
  Source.SetText("a\nb");
  TLogged List;
  EXPECT_THROW(List.Lines.Assign(&Source), EInvalidOperation);
  List.Lines.Add("b");
  EXPECT_EQ(List.Log, "<0>1<1>2");
}

TEST(StringList, TextIsLinesWithEveryKindOfEnd) {
  const std::pair<const char*, const char*> Rows[] = {
      {"", ""},         {"\n", "|"},      {"a", "a|"},    {"a\n", "a|"},
      {"a\n\n", "a||"}, {"\r\r\n", "||"}, {"\n\r", "||"}, {"a\rb\r\nc\n", "a|b|c|"},
      {" \t\n", " \t|"}};
  for (const auto& [Text, Expected] : Rows) {
    TStringList Lines;
    Lines.SetText(Text);
    std::string Got;
    for (int Index = 0; Index < Lines.Count(); ++Index) Got += Lines.Get(Index) + "|";
    EXPECT_EQ(Got, Expected) << ::testing::PrintToString(Text);
  }
}

}  // namespace
}  // namespace zy::testing
