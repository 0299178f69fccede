#include "analysis/ZyParseFkt.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <functional>
#include <memory>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "analysis/FormulaReference.h"
#include "framework/Errors.h"
#include "texts/Exceptions.h"
#include "texts/NumberText.h"

namespace zy::testing {
namespace {

/// A series as the lists see it: one variable V, one array M.X whose element i is 10 i, one who listens.
struct TSeries : TZyVariableContainer {
  explicit TSeries(std::string Ref) : FRef(std::move(Ref)) {
    AddVariableToList("V", "", this, GlobalVariableList(), [this] { return V; });
    AddArrayToList("M.X", "", this, GlobalArrayList(), [](std::int32_t Idx) { return 10.0 * Idx; });
  }
  std::string VariablesRef() const override { return FRef; }
  TZyDependentList* ObjectsToUpdate() override { return &FObjectsToUpdate; }
  std::string FRef;
  double V = 4;
  TZyDependentList FObjectsToUpdate;
};

/// Enters its variable when somebody looks at the lists.
struct TLateSeries : TZyVariableContainer {
  explicit TLateSeries(std::string Ref) : FRef(std::move(Ref)) { RegisterWhenAsked(); }
  std::string VariablesRef() const override { return FRef; }
  void RegisterVariables() override {
    ++Calls;
    AddVariableToList("V", "", this, GlobalVariableList(), [] { return 1.0; });
  }
  inline static int Calls = 0;
  std::string FRef;
};

TEST(ZyParseFkt, ContainersEnterTheListsWhenTheyAreAskedInTheOrderOfTheirMaking) {
  TLateSeries::Calls = 0;
  const TLateSeries First("F.First");
  auto Gone = std::make_unique<TLateSeries>("F.Gone");
  const TLateSeries Third("F.Third");
  Gone.reset();
  EXPECT_EQ(TLateSeries::Calls, 0);
  const TSeries Eager("F.Eager");
  std::string Names;
  for (const TZyDoubleGetterRec& Row : GlobalVariableList()) Names += FullName(Row) + ' ';
  EXPECT_EQ(Names, "F.First.V F.Third.V F.Eager.V ");
  EXPECT_EQ(TLateSeries::Calls, 2);
}

TEST(ZyParseFkt, FindsEntriesOfLongListsWhoeverGotAnotherNameOrLeft) {
  std::vector<std::unique_ptr<TSeries>> All;
  const auto Owner = [](const std::string& Name) -> const TZyVariableContainer* {
    const TZyDoubleGetterRec* const Row = FindByFullName(GlobalVariableList(), Name);
    return Row == nullptr ? nullptr : Row->Container;
  };
  for (int i = 0; i < 40; ++i) {
    All.push_back(std::make_unique<TSeries>(""));
    Owner("Form.Nobody.V");
    All.back()->FRef = "Form.S" + std::to_string(i);
  }
  for (int i = 0; i < 40; ++i)
    EXPECT_EQ(Owner("FORM.s" + std::to_string(i) + ".v"), All[static_cast<std::size_t>(i)].get());
  std::swap(All[3]->FRef, All[7]->FRef);
  EXPECT_EQ(Owner("Form.S7.V"), All[3].get());
  All.erase(All.begin());
  EXPECT_EQ(Owner("Form.S0.V"), nullptr);
  EXPECT_EQ(Owner("Form.S7.V"), All[2].get());
}

struct TDependent : TZyVariableDependent {
  void VariablesChanged() override {
    ++Calls;
    if (OnChange) OnChange();
  }
  int Calls = 0;
  std::function<void()> OnChange;
};

/// A parser with a variable X of its own.
struct TParser : TZyFunctionParser {
  TParser() {
    AddVariableToList("X", "X-Value", nullptr, FObjectsToUpdate, [this] { return X; });
  }
  double Of(std::string_view Text) {
    SetExpression(Text);
    return GetResult();
  }
  std::string Error(std::string_view Text) {
    return MessageOf<EMathError>([&] { SetExpression(Text); });
  }
  double X = 0.7;
};

/// Formulas and their values, from a list such as "1+1=2 2*3=6".
std::vector<std::pair<std::string, double>> CasesOf(const char* List) {
  std::vector<std::pair<std::string, double>> Result;
  std::istringstream Stream(List);
  std::string Text;
  double Value = 0;
  while (std::getline(Stream >> std::ws, Text, '=') && Stream >> Value) Result.emplace_back(Text, Value);
  return Result;
}

TEST(ZyParseFkt, FormulasHaveTheirValues) {
  const TSeries Series("Form1.Series1");
  TParser Parser;
  // Values by python's math module where they are no plain numbers; X is 0.7.
  const auto Cases = CasesOf(R"(
      3*Sin(X)+Pi=5.074245715302866  ((1.5*X^3-2*X^2+X)/(1+X*X)-Exp(-X)*Cos(2*Pi*X))=0.31083584836396205
      1-2-3=-4  16/4/2=2  2^3^2=64  -2^2=-4  2^-3=0.125  2^-X*4=2.4622888266898326  2*(-3)=-6  +5=5
      s i n ( [ 0 ] ) =0  Sqr[3)=9  ((((7))))=7
      1E5=1e5  1e+5=1e5  1E-5=1e-5  .5=0.5  5.=5  e=2.71828182845905  E-1=1.71828182845905  1E-3+2=2.001
      X*1E-3=0.0007  2+1*1E-3=0.003  2*-1E-3=-0.002  2+1^1E-3=1.001099215984204
      form1.SERIES1.v*2=8  Form1.Series1.M.X[2.5]=20  Form1.Series1.M.X(3.5)=40  Form1.Series1.M.X(-0.6)=-10)");
  ASSERT_EQ(Cases.size(), 29U);
  for (const auto& [Text, Value] : Cases) {
    ASSERT_EQ(Parser.Error(Text), "") << Text;
    EXPECT_NEAR(Parser.GetResult(), Value, std::fabs(Value) * 4e-16) << Text;
  }
}

TEST(ZyParseFkt, FunctionsOfTheLibrary) {
  // Values by python's math module.
  const auto Cases = CasesOf(R"(
      Abs(-0.7)=0.7  ArcCos(0.7)=0.7953988301841436  ArcCosh(1.7)=1.123230982587296  ArcSin(0.7)=0.775397496610753
      ArcSinh(0.7)=0.6526665660823557  ArcTan(0.7)=0.6107259643892086  ArcTanh(0.7)=0.8673005276940531  Ceil(-1.5)=-1
      Cos(0.7)=0.7648421872844885  Cosh(0.7)=1.255169005630943  Cotan(0.7)=1.1872418321266793
      DegToRad(0.7)=0.012217304763960306  Exp(0.7)=2.0137527074704766  Floor(-1.5)=-2  Frac(-1.75)=-0.75  Int(-1.75)=-1
      Ln(0.7)=-0.35667494393873245  Lg10(0.7)=-0.1549019599857432  Lg(0.7)=-0.1549019599857432
      Lg2(0.7)=-0.5145731728297583  RadToDeg(0.7)=40.10704565915762  Round(2.5)=2  Sin(0.7)=0.644217687237691
      Sinh(0.7)=0.7585837018395334  Sqrt(0.7)=0.8366600265340756  Sqr(-3)=9  Tan(0.7)=0.8422883804630794
      Tanh(0.7)=0.6043677771171636)");
  TParser Parser;
  std::size_t Next = 0;
  ASSERT_EQ(GlobalFunctionList().size(), Cases.size());
  for (const auto& [Text, Value] : Cases) {
    EXPECT_NEAR(Parser.Of(Text), Value, std::fabs(Value) * 4e-16) << Text;
    EXPECT_EQ(GlobalFunctionList()[Next++].Id, Text.substr(0, Text.find('(')));
  }
  EXPECT_EQ(GlobalFunctionList()[3].Comment, "Reciprocal of Sine");
  // Through integers: no -0, and not-a-number for what does not fit.
  EXPECT_FALSE(std::signbit(Parser.Of("Ceil(-0.5)")));
  for (const char* Text : {"Ceil(3E9)", "Floor(-3E9)", "Round(1E19)", "Round(0/0)", "Ln(-1)"})
    EXPECT_TRUE(std::isnan(Parser.Of(Text))) << Text;
  EXPECT_EQ(Parser.Of("Floor(-2147483648)"), -2147483648.0);
  std::set<double> Randoms;
  Parser.SetExpression("Random");
  for (int i = 0; i < 100; ++i) Randoms.insert(Parser.GetResult());
  EXPECT_EQ(Randoms.size(), 100U);
  EXPECT_TRUE(*Randoms.begin() >= 0 && *Randoms.begin() < 0.5 && *Randoms.rbegin() > 0.5 && *Randoms.rbegin() < 1);
}

TEST(ZyParseFkt, WhatFailsSaysWhere) {
  const std::string Failed = "Parsing error in function:\r";
  TParser Parser;
  const auto Check = [&Parser](const std::string& Text, const std::string& Message) {
    EXPECT_EQ(Parser.Error(Text), Message) << Text;
    EXPECT_THROW(Parser.GetResult(), EExternal) << Text;
    EXPECT_EQ(Parser.Error(Parser.Expression()), "") << "the same text is not parsed again";
  };
  Check("[[(1]", "2 closing brackets missing");
  Check("1]))", "3 opening brackets missing");
  for (const char* Text : {"2*", "2*-3", "--2", "2^--1", "Sin()", "()"}) Check(Text, Failed);
  for (const char* Text : {")(", "2+1E-3", "SIN", "PI()", "1,5", "1E400"}) Check(Text, Failed + Text);
  const std::pair<const char*, const char*> Pieces[] = {
      {"(A)(B)", "A)(B"}, {"(1)+1E-3", "1)+1E-"},    {"1+ 2 e", "2E"},          {"1+nope(2)", "NOPE(2)"},
      {"Sin(X)Y", "X)"},  {"Sin(0)+1)*(2", "1)*(2"}, {"\xC3\xA4+a", "\xC3\xA4"}};
  for (const auto& [Text, Piece] : Pieces) Check(Text, Failed + Piece);
  Parser.SetExpression("6*7");
  EXPECT_EQ(Parser.Error(" ( 1"), "1 closing brackets missing");
  EXPECT_EQ(Parser.Expression(), "(1");
  EXPECT_EQ(Parser.GetResult(), 42) << "missing brackets leave the old formula";
  Parser.SetExpression("");
  EXPECT_THROW(Parser.GetResult(), EExternal);

  FormatSettings().DecimalSeparator = ',';
  EXPECT_EQ(Parser.Of("1,5"), 1.5);
  EXPECT_EQ(Parser.Error("1.5"), Failed + "1.5");
  FormatSettings().DecimalSeparator = '.';
}

TEST(ZyParseFkt, AgreesWithTheRulesOnRandomTexts) {
  std::mt19937 Random(7);
  const std::string Pieces[] = {"+", "-", "*",  "/", "^",   "(", ")",    "(",   ")",
                                "X", "X", "1E", "2", "3.5", "E", "ABS(", "SQRT"};
  TParser Parser;
  TFormulaReference Reference;
  Reference.X = Parser.X;
  int Valid = 0;
  for (int i = 0; i < 50'000; ++i) {
    std::string Text;
    for (auto Length = 1 + Random() % 12; Length > 0; --Length) Text += Pieces[Random() % std::size(Pieces)];
    // Close or open what is missing, so that most texts get past the count.
    for (auto Sum = std::count(Text.begin(), Text.end(), '(') - std::count(Text.begin(), Text.end(), ')'); Sum != 0;
         Sum += Sum > 0 ? -1 : 1)
      Sum > 0 ? Text += ')' : Text.insert(0, "(");
    Parser.SetExpression("");
    ASSERT_EQ(FaultOf(Parser, Reference, Text, Text), "") << Text;
    Valid += Reference.Value(Text).has_value();
  }
  EXPECT_GT(Valid, 2'000);
}

TEST(ZyParseFkt, ListsAreSearchedReplacedAndEmptied) {
  TParser Parser;
  auto Series = std::make_unique<TSeries>("F.S");
  EXPECT_EQ(Parser.Of("F.S.V+F.S.M.X(1)"), 14);
  Series->V = 5;
  EXPECT_EQ(Parser.GetResult(), 15) << "fetched anew";
  // The same name and container overwrite in place, for formulas that have it as well.
  const std::size_t Count = GlobalVariableList().size();
  AddVariableToList("v", "new", Series.get(), GlobalVariableList(), [] { return 100.0; });
  EXPECT_EQ(GlobalVariableList().size(), Count);
  EXPECT_EQ(GlobalVariableList()[Count - 1].Id, "v");
  EXPECT_EQ(Parser.GetResult(), 110);
  // Another container of the same path comes second, until the first has gone.
  const TSeries Twin("F.S");
  TParser Other;
  EXPECT_EQ(Other.Of("F.S.V"), 100);
  Series.reset();
  EXPECT_EQ(GlobalVariableList().size(), 1U);
  EXPECT_EQ(GlobalArrayList().size(), 1U);
  EXPECT_THROW(Parser.GetResult(), EMathError) << "a removed variable is not called";
  EXPECT_THROW(Other.GetResult(), EMathError);
  Other.Parse();
  EXPECT_EQ(Other.GetResult(), 4);

  // A parser's own entries come first; E takes the place of e.
  AddVariableToList("E", "Variable e", nullptr, Parser.FObjectsToUpdate, [] { return 8.0; });
  AddFunctionToList(
      "SIN", "", [](double One) { return One + 1; }, Parser.FunctionsList);
  EXPECT_EQ(Parser.FObjectsToUpdate.size(), 4U);
  EXPECT_EQ(Parser.Of("sin(e)"), 9);
  AddFunctionToList(
      "Sinus", "", [](double One) { return One; }, Parser.FunctionsList);
  RemoveFromFunctionsList("Si", Parser.FunctionsList);
  ASSERT_EQ(Parser.FunctionsList.size(), 1U);
  EXPECT_EQ(Parser.FunctionsList[0].Id, "SIN");
  EXPECT_THROW(AddFunctionToList("F", "", nullptr, Parser.FunctionsList), EInvalidOperation);
  EXPECT_THROW(AddVariableToList("F", "", nullptr, Parser.FObjectsToUpdate, {}), EInvalidOperation);
}

TEST(ZyParseFkt, DependentsAreNotedOnceAndLeaveWhenTheyDie) {
  TSeries Series("F.S");
  TParser Parser;
  auto Label = std::make_unique<TDependent>();
  TDependent Second;
  for (TDependent* Owner : {Label.get(), &Second}) {
    Parser.SetOwner(Owner);
    Parser.SetExpression("");
    Parser.SetExpression("F.S.V+F.S.M.X(F.S.V)+X");
  }
  EXPECT_EQ(Series.FObjectsToUpdate.size(), 2U);
  UpdateVariablesObjects(Series.FObjectsToUpdate);
  EXPECT_EQ(Label->Calls, 1);
  EXPECT_EQ(Second.Calls, 1);
  Label->OnChange = [&] { Series.FObjectsToUpdate.Remove(Second); };
  UpdateVariablesObjects(Series.FObjectsToUpdate);
  EXPECT_EQ(Second.Calls, 1) << "one that left meanwhile is not called";
  Label.reset();
  EXPECT_TRUE(Series.FObjectsToUpdate.empty());
  {
    TSeries Short("F.T");
    Short.FObjectsToUpdate.Add(Second);
  }  // the list may die first
}

TEST(ZyParseFkt, LongFormulasAndDeepOnes) {
  TParser Parser;
  const auto Repeated = [](std::string_view Piece, int Count) {
    std::string Result;
    while (Count-- > 0) Result += Piece;
    return Result;
  };
  EXPECT_DOUBLE_EQ(Parser.Of("X" + Repeated("-2", 300'000)), 0.7 - 600'000);
  // Hostile ones end one way or the other, and soon.
  for (const char* Piece : {"(", ")", "-", "2^-", "^", "E-1E-", "X(", "1*", "()", ")(", ")-("})
    EXPECT_NE(Parser.Error(Repeated(Piece, 300'000)), "") << Piece;
  const auto Nested = [&](int Depth) { return Repeated("1+2*3^(", Depth) + "0" + Repeated(")", Depth); };
  EXPECT_TRUE(std::isinf(Parser.Of(Nested(200))));
  EXPECT_EQ(Parser.Error(Nested(201)), "The formula is nested more than 200 brackets deep");
}

TEST(ZyParseFkt, BlocksEqualOneByOneBitForBit) {
  TSeries Series("F.S");
  TParser Parser;
  int Calls = 0;
  AddVariableToList("N", "", nullptr, Parser.FObjectsToUpdate, [&Calls] { return 1.0 + Calls++; });
  std::mt19937 Random(3);
  std::vector<double> Arguments(1000);
  for (double& Argument : Arguments) Argument = std::uniform_real_distribution(-3.0, 3.0)(Random);
  Arguments[5] = INFINITY;
  for (const char* Text : {"X", "Pi", "2*3+X", "X*X-X/3+2", "3/X-(2-X)", "X^2+2^X+X^X+X^-1", "-Sin(X)*(X+1)/(X-1)",
                           "Sqr(2)-X", "N*X-N", "(X+N)*(X-N)*Exp(-X*X)", "F.S.V*X+F.S.M.X(X)*N", "-(2^2)", "Abs(X)"}) {
    Parser.SetExpression(Text);
    Calls = 0;
    std::vector<double> Expected;
    for (const double Argument : Arguments) {
      Parser.X = Argument;
      Expected.push_back(Parser.GetResult());
    }
    Calls = 0;
    std::vector<double> Results = Arguments;
    Parser.GetResults("x", Results, Results);
    for (std::size_t i = 0; i < Results.size(); ++i)
      ASSERT_TRUE(std::bit_cast<std::uint64_t>(Results[i]) == std::bit_cast<std::uint64_t>(Expected[i]) ||
                  (std::isnan(Results[i]) && std::isnan(Expected[i])))
          << Text << " at " << Arguments[i];
  }
  std::vector<double> Three(3);
  EXPECT_THROW(Parser.GetResults("Y", Arguments, Arguments), EInvalidOperation);
  EXPECT_THROW(Parser.GetResults("X", Arguments, Three), EInvalidOperation);
}

}  // namespace
}  // namespace zy::testing
