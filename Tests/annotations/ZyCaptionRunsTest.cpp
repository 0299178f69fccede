#include "annotations/captions/ZyCaptionRuns.h"

#include <gtest/gtest.h>

#include <random>

#include "analysis/ZyParseFktLists.h"
#include "annotations/CaptionRoundTrip.h"

namespace zy {
namespace {

class CaptionRunsTest : public ::testing::Test {
 protected:
  CaptionRunsTest() {
    const auto Add = [](const char* Name, const char* Value) {
      AddStringToList(Name, "", nullptr, GlobalStringList(), [Value] { return Value; });
    };
    Add("Plain", "value");
    Add("Nothing", "");
    Add("Bold", "x\\by");
    Add("Lines", "one\ntwo\\+");
    Add("Odd", "\\");
    Add("Less", "a<");
    Add("Percent", "\\iz%");
    Add("Half", "\\c[A=255, R=1");
  }
  ~CaptionRunsTest() override { GlobalStringList().RemoveContainer(nullptr); }
};

TEST_F(CaptionRunsTest, CaptionsAreWrittenAsTheyWereReadOrLookTheSame) {
  struct {
    const char* Caption;
    const char* Written;  // null: the same
  } const Cases[] = {
      {"plain", nullptr},
      {"a\\bb\\b\\ic\\i\\-2\\-\\+3\\+", nullptr},
      {"\\c[A=9, R=8, G=7, B=6]a\\c[]\\f[Courier New]b\\f[]", nullptr},
      {"a\\\\b \\\\\\c", nullptr},
      {"one\r\ntwo\r\n\r\n", nullptr},
      {"<%<%no variable", nullptr},
      {"\\b<%Plain%>\\b, <%2*Pi;0.00%>", nullptr},
      {"<%Bold%>z\\b", nullptr},  // the value ends in bold
      {"\\<%Odd%>b<%Plain%>", nullptr},
      {"\\c[A=255, R=<%Pi;0%>, G=0, B=0]red", nullptr},
      {"<%Half%>, G=2, B=3]green", nullptr},
      {"a\xE2\x80\xA8"
       "b\xEF\xBF\xBC\xFF"
       "c",
       nullptr},
      {"a\nb\rc", "a\r\nb\r\nc"},
      {"a\\b\\bb\\x\\", "abx"},
      {"a\\bb", "a\\bb\\b"},
      {"\\c[R=1,A=2,R=3,G=4,B=5,x", "c[R=1,A=2,R=3,G=4,B=5,x"},
  };
  for (const auto& Case : Cases) {
    SCOPED_TRACE(Case.Caption);
    EXPECT_EQ(testing::RoundTripFault(Case.Caption), "");
    const std::string Wanted = Case.Written == nullptr ? Case.Caption : Case.Written;
    EXPECT_EQ(WriteCaption(ReadCaption(Case.Caption, nullptr)), Wanted);
  }
}

TEST_F(CaptionRunsTest, AnyCaptionThatCanBeDrawnKeepsItsLook) {
  constexpr const char* Parts[] = {"a",
                                   "b",
                                   "<",
                                   "%",
                                   ">",
                                   "<%",
                                   "%>",
                                   "\\",
                                   "\\b",
                                   "\\i",
                                   "\\-",
                                   "\\+",
                                   "\\c",
                                   "\\f[",
                                   "[]",
                                   "]",
                                   "A=255, R=1, G=2, B=3]",
                                   "Courier New]",
                                   "\n",
                                   "\r",
                                   "<%Plain%>",
                                   "<%Nothing%>",
                                   "<%Bold%>",
                                   "<%Lines%>",
                                   "<%Odd%>",
                                   "<%Less%>",
                                   "<%Percent%>",
                                   "<%Half%>",
                                   "é",
                                   "\xFF"};
  std::mt19937 Random(1);
  int Drawn = 0;
  for (int Round = 0; Round < 20000; ++Round) {
    std::string Caption;
    for (auto Count = Random() % 12; Count > 0; --Count) Caption += Parts[Random() % std::size(Parts)];
    ASSERT_EQ(testing::RoundTripFault(Caption), "") << Caption;
    try {
      Drawn += ReadCaption(Caption, nullptr).empty() ? 0 : 1;
    } catch (const Exception&) {
    }
  }
  EXPECT_GT(Drawn, 5000);
}

TEST_F(CaptionRunsTest, WhatCannotBeWrittenIsWrittenAsNearAsItCan) {
  const auto RunOf = [](const char* Text, TFontStyles Toggled = {}) {
    TZyCaptionRun Run;
    Run.Style.Toggled = Toggled;
    Run.Text = Text;
    return Run;
  };
  const auto VariableOf = [](const char* Name) {
    TZyCaptionRun Run;
    Run.Atom = CaptionAtomOf(Name, nullptr);
    return Run;
  };
  const TFontStyles Bold{TFontStyle::Bold};
  EXPECT_EQ(WriteCaption({RunOf("a\\"), RunOf("b", Bold)}), "a\\b\\\\b\\b");
  EXPECT_EQ(WriteCaption({RunOf("a\\", Bold)}), "\\ba\\\\");
  EXPECT_EQ(WriteCaption({RunOf("<% <%Plain%> %>")}), "<%<% <%<%Plain%> %>");
  EXPECT_EQ(WriteCaption({VariableOf("Nothing"), VariableOf("Plain")}), "<%Nothing%>\\b\\b<%Plain%>");
  EXPECT_THROW(CaptionAtomOf("Plain%> <%Plain", nullptr), EConvertError);
  EXPECT_EQ(ReadCaption("<%Nowhere%>", nullptr, TZyCaptionReading::Lenient)[0].Atom->Shown, "...");
  EXPECT_EQ(ReadCaption("\\c[x]<%Nowhere%>", nullptr, TZyCaptionReading::Lenient)[0].Atom->Shown, "\\c[x]<%Nowhere%>");
}

}  // namespace
}  // namespace zy
