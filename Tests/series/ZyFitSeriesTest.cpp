// Fitted lines, polynomials and spectra as series of a chart.

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "analysis/ZyParseFkt.h"
#include "framework/Errors.h"
#include "graph/SampleChart.h"
#include "series/ZyDiscreteFourier.h"
#include "series/ZyFittedLine.h"
#include "series/ZyLeastSquares.h"
#include "texts/Exceptions.h"
#include "undo/ZyUndoStack.h"

namespace zy::testing {
namespace {

TEST(ZyFitSeriesTest, PolynomialThroughItsPoints) {
  TSampleChart Chart;
  auto* const Curve = Chart.AddSeries<TZyPolynomial>("Curve", {0, 1, 2, 4}, {1, 6, 17, 57});
  TZyUndoStack Stack;
  Curve->SetUndoStack(&Stack);
  Chart.Paint();
  for (int k = 0; k < 3; ++k) EXPECT_NEAR(Curve->Coeff(k), k + 1, 1e-12) << "1 + 2 x + 3 x^2";
  EXPECT_EQ(MessageOf<ERangeError>([&] { Curve->Coeff(3); }),
            "General Linear Least Squares: Index of variable out of range");
  TZyFunctionParser Parser;
  Parser.SetExpression("Form.Curve.Coefficients(2)*Form.Curve.Probability");
  EXPECT_NEAR(Parser.GetResult(), 3, 1e-11);
  Curve->SetOrder(1);
  EXPECT_FALSE(Stack.CanUndo()) << "2 is the lowest order";
  Curve->SetOrder(4);
  EXPECT_EQ(Curve->Coeff(2), 1) << "until it is calculated";
  Chart.Paint();
  EXPECT_TRUE(Curve->Points().empty()) << "four points are too few";
  Stack.Undo(0);
  Chart.Paint();
  EXPECT_NEAR(Curve->Coeff(2), 3, 1e-12);
  const std::pair<int, const char*> Formulas[] = {{2, "Y=a+bX+cX\\+2\\+"},
                                                  {5, "Y=a+bX+cX\\+2\\++dX\\+3\\++eX\\+4\\++fX\\+5\\+"},
                                                  {27, "Y=a+bX+cX\\+2\\++dX\\+3\\++eX\\+4\\++...+abX\\+27\\+"}};
  for (const auto& [Order, Text] : Formulas) {
    Curve->SetOrder(Order);
    EXPECT_EQ(Curve->GetFormula(), Text);
  }
}

TEST(ZyFitSeriesTest, BasisFunctionsMayChangeEverything) {
  TSampleChart Chart;
  auto* const Curve = Chart.AddSeries<TZyGeneralLinearLeastSquares>("Curve", {0, 1, 2, 3}, {1, 3, 5, 7});
  std::string Message;
  Curve->SetOnCalculationError([&](TObject*, const std::exception& e) { Message = e.what(); });
  Chart.Paint();
  EXPECT_EQ(Message, "No BasisFunction defined");
  const std::function<void()> Changes[] = {[&] { Curve->SetOrder(0); }, [&] { Curve->SetXAxis(nullptr); },
                                           [&] { static_cast<TZyDoubleVector*>(Curve->YData())->Clear(); },
                                           [&] {
                                             for (int i = 0; i < 5000; ++i)  // the values go elsewhere
                                               for (auto* const Data : {Curve->XData(), Curve->YData()})
                                                 static_cast<TZyDoubleVector*>(Data)->Add(i);
                                           },
                                           [&] { delete Curve; }};
  for (const auto& Change : Changes) {
    Curve->SetXAxis(Chart.X);
    static_cast<TZyDoubleVector*>(Curve->YData())->SetInternalArray({1, 3, 5, 7});
    int Calls = 0;
    Curve->SetBasisFunction([&](TObject*, const TZyGeneralLinearFittingArgs& e) {
      if (++Calls == 3) Change();
      return std::pow(e.X, e.Index);
    });
    Curve->SetOrder(1);
    EXPECT_NO_THROW(Chart.Paint());
    EXPECT_NO_THROW(Chart.Paint());
  }
}

TEST(ZyFitSeriesTest, FittedLineKeepsItsCoefficients) {
  TSampleChart Chart;
  auto* const Line = Chart.AddSeries<TZyFittedLine>("Line", {0, 1, 2, 3}, {1, 3, 5, 7});
  TZyUndoStack Stack;
  Line->SetUndoStack(&Stack);
  Line->SetExpression("A*X+B");
  const std::vector<double> Fresh = Line->Coefficients();
  Chart.Paint();
  const std::vector<double> Fitted = Line->Coefficients();
  EXPECT_NEAR(Fitted[0], 2, 1e-3);
  Line->SetExpression("A+C*X");
  EXPECT_EQ(Line->Order(), 3);
  Stack.Undo(0);
  EXPECT_EQ(Line->Expression(), "A*X+B");
  EXPECT_EQ(Line->Coefficients(), Fitted) << "with the formula";
  EXPECT_THROW(Line->SetExpression("A*X+"), EMathError);
  EXPECT_EQ(Line->Expression(), "A*X+");
  std::string Message;
  Line->SetOnCalculationError([&](TObject*, const std::exception& e) { Message = e.what(); });
  Chart.Paint();
  EXPECT_NE(Message, "") << "told where errors of calculations go";
  Stack.Undo(0);
  Stack.Undo(0);
  EXPECT_EQ(Line->Coefficients(), std::vector<double>()) << "before any formula";
  Stack.Redo(0);
  EXPECT_EQ(Line->Coefficients(), Fitted);

  Line->SetCoefficients({5});
  Line->SetExpression("A*X+B+C");
  Stack.Undo(0);
  EXPECT_EQ(Line->Coefficients(), std::vector<double>{5}) << "another number than the formula has";
  const int Steps = Stack.UndoCount();
  EXPECT_THROW(Line->SetCoefficients(std::vector<double>(1001)), ERangeError);
  EXPECT_EQ(Stack.UndoCount(), Steps) << "nothing changed";

  Line->SetIterations(0);
  Line->SetCoefficients({-1, 4});
  static_cast<TZyDoubleVector*>(Line->YData())->Clear();
  Line->SetAutoStart(false);
  Line->SetAutoStop(false);
  Line->SetCalculationStart(0);
  Line->SetCalculationStop(4);
  TSampleChart::FixEnds(Chart.X, 0, 4);
  TSampleChart::FixEnds(Chart.Y, 0, 4);
  Chart.Paint();
  ASSERT_FALSE(Line->Points().empty()) << "without data";
  EXPECT_NEAR(Line->Points().back().Y, Chart.Y->NumberToWorld(0), 0.01);
  Line->SetAutoStart(true);
  Line->SetCalculationStart(1);
  Line->SetIterations(3);
  Chart.Paint();
  EXPECT_TRUE(Line->Points().empty());
  EXPECT_EQ(Line->CalculationStart(), 1) << "no data say where to begin";
}

TEST(ZyFitSeriesTest, AFitCanBeStoppedAndFreed) {
  TSampleChart Chart;
  auto* const Line = Chart.AddSeries<TZyFittedLine>("Line", {0, 1, 2, 3}, {1, 3.5, 5, 7});
  int Steps = 0;
  Line->SetOnIteration([&](TObject*) {
    if (++Steps == 7) Line->StopIterations();
    Chart.Paint();  // a progress display may do that
  });
  Line->SetExpression("A*X+B");
  Chart.Paint();
  EXPECT_EQ(Steps, 7);
  EXPECT_EQ(Line->Iteration(), 300 - 7);
  EXPECT_FALSE(Line->Points().empty());
  Line->SetFittingFunction([](TObject*, const TZyFittingFunctionArgs& e) -> double {
    if (e.X > 3.5) throw EMathError("too far");
    return e.Coefficients[0] * e.X;
  });
  TSampleChart::FixEnds(Chart.X, 0, 4);
  Line->SetCoupleCalculationAndDisplay(false);
  Line->SetDisplayAutoStop(false);
  Line->SetDisplayStop(4);
  std::string Message;
  Line->SetOnCalculationError([&](TObject*, const std::exception& e) { Message = e.what(); });
  EXPECT_NO_THROW(Chart.Paint());
  EXPECT_EQ(Message, "too far");
  Line->SetOnNewCorner([&](TObject*, std::span<double>) { delete Line; });
  Line->SetIterations(5);
  EXPECT_NO_THROW(Chart.Paint());
}

TEST(ZyFitSeriesTest, SpectrumWithItsPhase) {
  TSampleChart Chart;
  std::vector<double> X, Y;
  for (int i = 0; i < 64; ++i) {
    X.push_back(i);
    Y.push_back(5 + 3 * std::cos(2 * std::numbers::pi * (i * 8 / 64.0) - 0.5));
  }
  auto* const Spectrum = Chart.AddSeries<TZyDiscreteFourier>("Spectrum", X, Y);
  EXPECT_EQ(Spectrum->GetY(8 / 63.0), 0) << "before the first paint";
  Chart.Paint();
  ASSERT_EQ(Spectrum->Points().size(), 32u) << "one for each line";
  EXPECT_NEAR(Spectrum->GetY(8 / 63.0), 3, 1e-9);
  EXPECT_NEAR(Spectrum->GetY(0), 10, 1e-9) << "twice the mean";
  EXPECT_NEAR(Spectrum->GetY(8.5 / 63.0), 1.5, 1e-9);
  EXPECT_NEAR(Spectrum->XStop(), 31 / 63.0, 1e-12);
  const PointF Peak = Spectrum->Points()[8];
  EXPECT_EQ(Spectrum->FindPoint(static_cast<int>(Peak.X), static_cast<int>(Peak.Y), 1.5f), 8);
  TZyChildSeries& Phase = Spectrum->Phase();
  EXPECT_TRUE(Phase.Points().empty()) << "hidden";
  Phase.SetVisible(true);
  Chart.Paint();
  ASSERT_EQ(Phase.YData()->Count(), 32);
  EXPECT_NEAR(Phase.YData()->GetValue(8), 0.5, 1e-9);
  EXPECT_NEAR(Phase.XStop(), 31 / 63.0, 1e-12);
  EXPECT_FALSE(Phase.Points().empty());
  auto* const Second = new TZyAxis(&Chart.Form);
  Second->SetPosition(TZyAxisPosition::Right);
  Second->SetParent(Chart.Graph);
  Phase.SetYAxis(Second);
  Spectrum->SetYAxis(nullptr);
  EXPECT_EQ(Phase.YAxis(), Second);
  Spectrum->SetYAxis(Chart.Y);
  EXPECT_EQ(Phase.YAxis(), Second) << "its own";
  delete Spectrum;
  EXPECT_EQ(Chart.Graph->SeriesCount(), 0);
  EXPECT_NO_THROW(Chart.Paint());
}

// A spectrum of many lines keeps the extremes of each column.
TEST(ZyFitSeriesTest, ManyLinesKeepTheirPeaks) {
  TSampleChart Chart;
  std::vector<double> X(100000), Y(100000);
  for (std::size_t i = 0; i < X.size(); ++i) {
    X[i] = static_cast<double>(i);
    Y[i] = std::sin(2 * std::numbers::pi * 12345 * static_cast<double>(i) / 1e5);
  }
  auto* const Spectrum = Chart.AddSeries<TZyDiscreteFourier>("Spectrum", X, Y);
  Chart.Paint();
  EXPECT_LT(Spectrum->Points().size(), 4u * 600);
  float Highest = 1e9f;
  for (const PointF& Pixel : Spectrum->Points()) Highest = std::min(Highest, Pixel.Y);
  EXPECT_NEAR(Highest, Chart.Y->NumberToWorld(1), 0.01);
}

}  // namespace
}  // namespace zy::testing
