#pragma once

#include <memory>

#include "analysis/curves/ZyDiscreteFourierCalculation.h"
#include "series/ZyChildSeries.h"
#include "series/ZyFunctionSeries.h"

namespace zy {

/// The amplitude spectrum of its data over the frequency, in turns for each unit of X, and beside it, hidden at first,
/// the phase spectrum; see TZyDiscreteFourierCalculation. Where many lines lie on a column of pixels, the first, the
/// last, the lowest and the highest of them are kept.
class TZyDiscreteFourier : public TZyFunctionSeries {
  ZY_CLASS(TZyDiscreteFourier, TZyFunctionSeries)
  explicit TZyDiscreteFourier(TComponent* Owner = nullptr);
  ~TZyDiscreteFourier() override;

  using TZyFunctionSeries::OnGetPointSymbol;
  using TZyFunctionSeries::PointSymbol;
  using TZyFunctionSeries::SetOnGetPointSymbol;

  /// The phase in radians, on the same X axis and on a Y axis of its own choice; at first that of the amplitude. It is
  /// computed while it is visible, and no part of a chart's record.
  TZyChildSeries& Phase() const { return *FPhaseSeries; }
  /// Frequency of a line; the transformation that gives the phase its X.
  double GetFrequency(TObject* Sender, const TZyTransformEventArgs& e) const;

  /// Amplitude between the lines; 0 while the pixels are out of date.
  double GetY(double AtX) const override;
  std::string GetFormula() const override;
  /// The number of the first line that was drawn within Delta pixels both ways; -1 for none.
  int FindPoint(int X, int Y, float Delta) const override;
  using TZyFunctionSeries::FindPoint;
  TPointValues ValuesOfPixel(int Index, float PixelX) const override;
  void SetXAxis(TZyAxis* Value) override;
  void SetYAxis(TZyAxis* Value) override;
  void SetUndoStack(TZyUndoStack* Value) override;
  void CalculateFunction() override;

 protected:
  void TakeDefaultAxis(IZyAxisGraph& FromGraph) override;
  void TakeNewPixels() override;

 private:
  void KeepLine(int i);
  void ReduceToColumns(int First, int Last);
  void GivePhaseAxes();

  TZyDiscreteFourierCalculation& FCalc;
  std::unique_ptr<TZyChildSeries> FPhaseSeries;
};

}  // namespace zy
