#include "series/ZyFunctionSeries.h"

#include <gtest/gtest.h>

#include "analysis/ZyParseFktLists.h"
#include "framework/Errors.h"
#include "graph/SampleChart.h"
#include "platform/framework/Application.h"
#include "series/ZyInterpolation.h"
#include "series/ZyLinearRegression.h"
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

/// The transformation of a curve's values takes something away in the middle of the calculation.
template <class TCurve>
void TakeAway(int What, int When) {
  TSampleChart Chart;
  auto* const Line = Chart.AddSeries<TCurve>("Line", {1, 2, 3, 4, 5, 6, 7}, {1, 2.5, 2.7, 4.2, 5.1, 5.5, 6});
  auto* const X = Line->XData();
  auto* const Y = dynamic_cast<TZyDoubleVector*>(Line->YData());
  int Calls = 0;
  Line->SetYValueTransformation([&](TObject*, const TZyTransformEventArgs& e) {
    if (++Calls != When) return e.Value;
    switch (What) {  // and nothing of the handler itself afterwards, which goes with the series
      case 0:
        delete X;
        break;
      case 1:
        delete Line;
        break;
      case 2:
        Y->Clear();
        break;
      case 3:
        delete Chart.X;
        break;
      default:
        delete Y;
    }
    return e.Value;
  });
  Chart.Paint();
  Chart.Paint();
}

TEST_F(ZyFunctionSeriesTest, TransformationsMayTakeAwayWhatIsComputedFrom) {
  for (int What = 0; What < 5; ++What)
    for (int When = 1; When < 30; When += 2) {
      TakeAway<TZyIntegral>(What, When);
      TakeAway<TZyMovingAverage>(What, When);
      TakeAway<TZyLinearRegression>(What, When);
    }
}

/// What the application would have told and asked its user.
struct TMessages {
  TMessages() {
    Application().OnShowMessage = [this](std::string_view Text) { Told.emplace_back(Text); };
    Application().OnConfirm = [this](std::string_view Text) {
      Told.emplace_back(Text);
      return Answer;
    };
  }
  ~TMessages() {
    Application().OnShowMessage = {};
    Application().OnConfirm = {};
  }
  std::vector<std::string> Told;
  bool Answer = false;
};

TEST_F(ZyFunctionSeriesTest, InterpolationAnswersBetweenASetterAndThePaint) {
  TMessages Messages;
  TZyUndoStack Stack(&Chart.Form);
  auto* const Line = Chart.AddSeries<TZyInterpolation>("Line", {0, 1, 2, 3, 4, 5}, {0, 1, 8, 27, 64, 125});
  Line->SetUndoStack(&Stack);
  auto* const Average = Chart.AddSeries<TZyMovingAverage>("Average", {-2, 0, 4}, {5, 5, 5});
  EXPECT_EQ(Line->GetY(2), 8) << "of all data, before any paint";
  EXPECT_NEAR(Average->GetY(3), 5, 1e-14);
  Chart.Paint();
  Line->SetInterpolationMethod(TZyInterpolationMethod::CubicSpline);
  EXPECT_NEAR(Line->GetY(2.5), 15.625, 1e-12) << "the cube, before any paint";
  Line->SetSmoothPoints(true);
  Line->SetSmoothingRange(1.5);
  EXPECT_NE(Line->GetY(2), 8);
  Line->SetInterpolationMethod(TZyInterpolationMethod::ApproximativeSpline);
  ASSERT_EQ(Messages.Told.size(), 1u);
  EXPECT_FALSE(Line->SmoothPoints());
  EXPECT_EQ(Line->MinCount(), 6);
  EXPECT_EQ(Line->GetFormula(), "Interpolation (approximative spline)");
  Line->SetSmoothPoints(true);
  EXPECT_EQ(Messages.Told.size(), 2u);
  Line->SetElasticityFactor(0);
  EXPECT_EQ(Line->ElasticityFactor(), 1e-300);
  Stack.Undo();
  Stack.Undo();
  EXPECT_TRUE(Line->SmoothPoints()) << "came back with the method, in one step";
  EXPECT_EQ(Line->InterpolationMethod(), TZyInterpolationMethod::CubicSpline);
  Stack.Redo();
  EXPECT_EQ(Line->InterpolationMethod(), TZyInterpolationMethod::ApproximativeSpline);
  EXPECT_EQ(Messages.Told.size(), 2u);
  delete Line->YData();
  Chart.Paint();
  EXPECT_EQ(Line->GetFormula(), "Interpolation (approximative spline)") << "of the index";
}

TEST_F(ZyFunctionSeriesTest, ASlopeLooksForASecondAxis) {
  auto* const Slope = Chart.AddSeries<TZyIntegral>("Slope", {0, 1, 2, 3}, {1, 1, 1, 1});
  Slope->SetYAxis(nullptr);
  Slope->SetDefaultAxis(*Chart.Graph);
  EXPECT_EQ(Slope->YAxis(), Chart.Y) << "there is no other";
  auto* const Second = new TZyAxis(&Chart.Form);
  Second->SetPosition(TZyAxisPosition::Right);
  Second->SetParent(Chart.Graph);
  Slope->SetYAxis(nullptr);
  Slope->SetDefaultAxis(*Chart.Graph);
  EXPECT_EQ(Slope->YAxis(), Second);
  Slope->TestAllAssigned();
  Chart.Paint();
  EXPECT_EQ(Slope->GetY(2), 2);
  EXPECT_EQ(Slope->YStop(), 3);
}

TEST_F(ZyFunctionSeriesTest, RegressionDrawsItsBandInTheFittedCoordinates) {
  TMessages Messages;
  delete Curve;
  auto* const Line = Chart.AddSeries<TZyLinearRegression>("Line", {1, 10, 100, 1000}, {20, 18, 9, 11});
  Chart.Paint();
  const auto Calls = Chart.Calls();
  EXPECT_EQ(Chart.CountOf(Calls, "FillPolygon"), 0);
  Line->ConfidenceIntervalArea().SetVisible(true);
  Chart.Paint();
  const auto WithBand = Chart.Calls();
  EXPECT_EQ(Chart.CountOf(WithBand, "FillPolygon"), 1);
  const double Half = Line->Confidence(1), OtherHalf = Line->Confidence(1000);
  EXPECT_NEAR(Line->YStop(), Line->GetY(1) + Half, 1e-12) << "a falling line reaches highest at its start";
  EXPECT_NEAR(Line->YStart(), Line->GetY(1000) - OtherHalf, 1e-12);
  Chart.X->SetScaling(TZyAxisScaling::Log);
  Chart.X->SetLogToNormalScalingLevel(0.5);
  Chart.Paint();
  ASSERT_EQ(Messages.Told.size(), 1u);
  EXPECT_EQ(Chart.X->LogToNormalScalingLevel(), 0);
  EXPECT_EQ(Line->GetFormula(), "Y=a+b(lg(X))");
  EXPECT_NEAR(Line->Slope(), (-1.5 * 20 - 0.5 * 18 + 0.5 * 9 + 1.5 * 11) / 5, 1e-12) << "over 0, 1, 2, 3";
  EXPECT_NEAR(Line->Confidence(1), Line->Confidence(1000), 1e-12) << "as far from the mean of the logarithms";
  EXPECT_EQ(Line->Points().size(), 2u);
  TZyUndoStack Stack(&Chart.Form);
  Line->SetUndoStack(&Stack);
  const double Fitted = Line->Offset();
  Line->SetFixedOffset(true);
  Line->SetOffset(0);
  Chart.Paint();
  EXPECT_NEAR(Line->Slope(), (18 + 2 * 9 + 3 * 11) / 14.0, 1e-12);
  Stack.Undo(1);
  EXPECT_EQ(Line->Offset(), Fitted);
  EXPECT_FALSE(Line->FixedOffset());
  dynamic_cast<TZyDoubleVector&>(*Line->XData()).SetInternalArray({3, 3, 3, 3});
  Chart.Paint();
  EXPECT_TRUE(Line->Points().empty()) << "no line through points of one X";
}

}  // namespace
}  // namespace zy::testing
