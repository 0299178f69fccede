#include "series/ZyFunctionSeries.h"

#include <gtest/gtest.h>

#include "analysis/ZyParseFktLists.h"
#include "framework/Errors.h"
#include "graph/SampleChart.h"
#include "series/ZyMovingAverage.h"
#include "texts/Exceptions.h"
#include "undo/ZyUndoStack.h"

namespace zy::testing {
namespace {

/// Counts how often it runs, and fails on demand.
class TNotingCalculation : public TZyCalculation {
 public:
  void Calculate() override {
    ++Runs;
    if (Fails) throw EMathError("no curve");
  }
  int Runs = 0;
  bool Fails = false;
};

/// The parabola y = x * x.
class TParabola : public TZyFunctionSeries {
 public:
  explicit TParabola(TComponent* Owner) : TZyFunctionSeries(Owner, std::make_unique<TNotingCalculation>()) {}
  double GetY(double AtX) const override { return AtX * AtX; }
  TNotingCalculation& Noting() const { return static_cast<TNotingCalculation&>(Calculation()); }
};

class ZyFunctionSeriesTest : public ::testing::Test {
 protected:
  ZyFunctionSeriesTest() { Chart.UsePlainAxes(); }
  TSampleChart Chart;
  TParabola* Curve = Chart.AddSeries<TParabola>("Curve", {-1, 2, 4}, {7, 7, 7});
};

TEST_F(ZyFunctionSeriesTest, CalculatesOnceForEachChange) {
  Chart.Paint();
  Chart.Paint();
  EXPECT_EQ(Curve->Noting().Runs, 1);
  EXPECT_EQ(Curve->Points().size(), static_cast<std::size_t>(Chart.X->Width()) + 1) << "one for each column";
  const auto& Data = dynamic_cast<TZyDoubleVector&>(*Curve->YData());
  const struct {
    const char* What;
    std::function<void()> Do;
    int Runs;
  } Changes[] = {{"a value", [&] { const_cast<TZyDoubleVector&>(Data).SetValue(1, 6.5); }, 1},
                 {"an outlier", [&] { const_cast<TZyDoubleVector&>(Data).AddOutlier(1); }, 1},
                 {"a limit", [&] { Curve->SetCalculationStart(0); }, 1},
                 {"a weight",
                  [&] {
                    Curve->SetWeight(Chart.AddVector("Weight", {1, 1, 1}));
                  },
                  1},
                 {"a value of the weight", [&] { dynamic_cast<TZyDoubleVector&>(*Curve->Weight()).SetValue(0, 2); }, 1},
                 {"coupling", [&] { Curve->SetCoupleCalculationAndDisplay(false); }, 1},
                 {"a display within the data", [&] { Curve->SetDisplayStart(1); }, 0},
                 {"a zoom", [&] { Chart.X->SetStartStop(0, 3); }, 0},
                 {"a colour", [&] { Curve->Line().SetColor(Colors::Red); }, 0}};
  for (const auto& Change : Changes) {
    const int Before = Curve->Noting().Runs;
    Change.Do();
    Chart.Paint();
    Chart.Paint();
    EXPECT_EQ(Curve->Noting().Runs - Before, Change.Runs) << Change.What;
  }
}

TEST_F(ZyFunctionSeriesTest, RangesAreThoseOfTheCurveUnlessDataShareTheAxis) {
  Chart.Paint();
  EXPECT_EQ(Curve->XStart(), -1);
  EXPECT_EQ(Curve->XStop(), 4);
  EXPECT_NEAR(Curve->YStart(), 0, 1e-3);
  EXPECT_EQ(Curve->YStop(), 16);
  auto* const Line = Chart.AddSeries<TZyLineSeries>("Line", {0, 1}, {3, 4});
  Curve->SetClipYValues(true);
  Curve->SetLastCount(0);
  Chart.Paint();
  EXPECT_GT(Curve->YStart(), Curve->YStop()) << "no say in the axis";
  EXPECT_LT(Chart.Y->Stop(), 5);
  const auto Calls = Chart.Calls();
  EXPECT_GE(Chart.CountOf(Calls, "SetClip"), 1);
  Line->SetVisible(false);
  Curve->SetLastCount(0);
  Chart.Paint();
  EXPECT_EQ(Curve->YStop(), 16);
  Curve->SetCoupleCalculationAndDisplay(false);
  Curve->SetDisplayAutoStop(false);
  Curve->SetDisplayStop(10);
  Chart.Paint();
  EXPECT_EQ(Curve->XStop(), 10) << "the range covers what is to be seen";
  EXPECT_EQ(Curve->CalculationStop(), 10);
  Chart.X->SetScaling(TZyAxisScaling::Log);
  Chart.Paint();
  Curve->SetLastCount(0);
  Chart.Paint();
  EXPECT_EQ(Curve->XStart(), 2) << "the smallest above 0";
}

TEST_F(ZyFunctionSeriesTest, FailsOnceAndComesBackWithNewData) {
  Curve->Noting().Fails = true;
  EXPECT_NE(MessageOf<EMathError>([&] { Curve->Calculate(); }), "");
  int Errors = 0;
  Curve->SetOnCalculationError([&](TObject* Sender, const std::exception& e) {
    EXPECT_EQ(Sender, Curve);
    EXPECT_STREQ(e.what(), "no curve");
    ++Errors;
  });
  Chart.Paint();
  EXPECT_EQ(Errors, 0) << "not tried again";
  Curve->SetLastCount(0);
  Chart.Paint();
  Chart.X->SetStartStop(0, 3);
  Chart.Paint();
  EXPECT_EQ(Errors, 1);
  EXPECT_TRUE(Curve->Points().empty());
  Curve->Noting().Fails = false;
  dynamic_cast<TZyDoubleVector&>(*Curve->XData()).Add(5);
  dynamic_cast<TZyDoubleVector&>(*Curve->YData()).Add(5);
  Chart.Paint();
  EXPECT_FALSE(Curve->Points().empty());
  while (Curve->YData()->Count() > 1) dynamic_cast<TZyDoubleVector&>(*Curve->YData()).Delete(0);
  Chart.Paint();
  EXPECT_TRUE(Curve->Points().empty()) << "one point makes no curve";
  EXPECT_GT(Curve->XStart(), Curve->XStop());
  EXPECT_NE(MessageOf<EMethodNotFound>([&] { Curve->GetFormula(); }), "");
}

TEST_F(ZyFunctionSeriesTest, ItsHandlersMayFreeIt) {
  for (const bool Fails : {false, true}) {
    auto* const Average = Chart.AddSeries<TZyMovingAverage>(Fails ? "Failing" : "Average", {1, 2, 3}, {4, 6, 5});
    auto* const Next = Chart.AddSeries<TZyLineSeries>(Fails ? "Last" : "Next", {1, 2}, {1, 2});
    if (Fails) Average->SetYValueTransformation([](auto&&...) -> double { throw EMathError("no value"); });
    Average->SetOnCalculated([](TObject* Sender) { delete Sender; });
    Average->SetOnCalculationError([](TObject* Sender, const std::exception&) { delete Sender; });
    Chart.Paint();
    EXPECT_EQ(Listed(Chart.Graph->RelatedSeries()), (std::vector<TZySeries*>{Curve, Next})) << Fails;
    EXPECT_FALSE(Next->RecalculatePoints()) << "drawn all the same";
    delete Next;
  }
}

TEST_F(ZyFunctionSeriesTest, ARangeOfNoWidthEndsTheSampling) {
  for (const double Far : {0.0, 1e300, -1e300}) {
    dynamic_cast<TZyDoubleVector&>(*Curve->XData()).SetInternalArray({Far, Far, Far});
    Chart.Paint();
    EXPECT_LE(Curve->Points().size(), 1u) << Far;
  }
}

TEST_F(ZyFunctionSeriesTest, AverageFollowsItsSettingsAndUndo) {
  TZyUndoStack Stack(&Chart.Form);
  auto* const Average = Chart.AddSeries<TZyMovingAverage>("Average", {0, 1, 2, 3, 4}, {1, 2, 4, 8, 16});
  Average->SetUndoStack(&Stack);
  Average->SetAveragingMethod(TZyAveragingMethod::Simple);
  Average->SetN(-2);
  EXPECT_EQ(Average->N(), 2);
  Average->SetExponentialFactorForN(5);
  EXPECT_EQ(Average->ExponentialFactorForN(), 1);
  Average->SetAutoStart(false);
  Average->SetCalculationStart(1);
  Chart.Paint();
  EXPECT_NEAR(Average->GetY(4), 28.0 / 3, 1e-12);
  EXPECT_EQ(Average->GetFormula(), "Simple moving average (all values equally weighted)");
  Average->SetAutoStart(true);
  Chart.Paint();
  EXPECT_EQ(Average->CalculationStart(), 0);
  Stack.Undo();
  EXPECT_EQ(Average->CalculationStart(), 1) << "what the automatic start wrote over";
  EXPECT_FALSE(Average->AutoStart());
}

}  // namespace
}  // namespace zy::testing
