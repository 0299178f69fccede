#pragma once

#include <exception>
#include <functional>
#include <memory>

#include "analysis/curves/ZyCalculation.h"
#include "series/ZyLineSeries.h"

namespace zy {

/// A calculation that failed: the series, and what it threw.
using TZyCalculationErrorHandler = std::function<void(TObject* Sender, const std::exception& e)>;
template <>
inline std::string_view TypeName<TZyCalculationErrorHandler>() {
  return "TZyCalculationErrorHandler";
}

/// Base of the curves that are computed from data: a line with a value everywhere and no points of its own.
///
/// The series hands its vectors to a calculation and samples the resulting curve once for each column of pixels. New
/// data and a changed setting mark it; the next paint, or poll, of the graph calculates, once. A calculation that fails
/// leaves no curve until there are new data or settings, and ends in `OnCalculationError`; without a handler the
/// exception goes on to the caller.
///
/// A kind of curve makes its calculation in the constructor and overrides `GetY`, `GetFormula` and, where it has
/// variables, `RegisterVariables`, for which the constructor ends with `RegisterWhenAsked`.
class TZyFunctionSeries : public TZyLineSeries {
  ZY_CLASS(TZyFunctionSeries, TZyLineSeries)
  using TNotifyEvent = std::function<void(TObject* Sender)>;

  /// Weights of the points, by their magnitude; may be null.
  TZyCustomDoubleVector* Weight() const { return FWeight.Vector(); }
  void SetWeight(TZyCustomDoubleVector* Value);
  const TZyValueTransformation& WeightValueTransformation() const { return FWeight.Transformation(); }
  void SetWeightValueTransformation(TZyValueTransformation Value) { SetTransformation(FWeight, std::move(Value)); }
  /// Whether the range of X whose points are computed with is that of the data, at each end.
  bool AutoStart() const { return FAutoStart; }
  void SetAutoStart(bool Value);
  bool AutoStop() const { return FAutoStop; }
  void SetAutoStop(bool Value);
  double CalculationStart() const { return FCalcStart; }
  void SetCalculationStart(double Value) { SetSetting(FCalcStart, Value, "CalculationStart"); }
  double CalculationStop() const { return FCalcStop; }
  void SetCalculationStop(double Value) { SetSetting(FCalcStop, Value, "CalculationStop"); }
  /// Whether the curve is shown over the range of the calculation; else over one of its own.
  bool CoupleCalculationAndDisplay() const { return FCoupleCalculationAndDisplay; }
  void SetCoupleCalculationAndDisplay(bool Value);
  bool DisplayAutoStart() const { return FDisplayAutoStart; }
  void SetDisplayAutoStart(bool Value);
  bool DisplayAutoStop() const { return FDisplayAutoStop; }
  void SetDisplayAutoStop(bool Value);
  double DisplayStart() const { return FDisplayStart; }
  void SetDisplayStart(double Value);
  double DisplayStop() const { return FDisplayStop; }
  void SetDisplayStop(double Value);
  /// Whether the curve leaves the Y axis to the other series there, and is cut where it leaves the data area.
  bool ClipYValues() const { return FClipYValues; }
  void SetClipYValues(bool Value) { SetSetting(FClipYValues, Value, "ClipYValues"); }
  /// Runs after each calculation that succeeded. It may free the series.
  const TNotifyEvent& OnCalculated() const { return mCalculated; }
  void SetOnCalculated(TNotifyEvent Value) { mCalculated = std::move(Value); }
  const TZyCalculationErrorHandler& OnCalculationError() const { return mCalculationError; }
  void SetOnCalculationError(TZyCalculationErrorHandler Value) { mCalculationError = std::move(Value); }

  /// The ranges as the last calculation took them.
  double GetCalcStart() const { return FCalcStart; }
  double GetCalcStop() const { return FCalcStop; }
  double GetDisplayStart() const { return FDisplayStart; }
  double GetDisplayStop() const { return FDisplayStop; }

  /// Text of the curve's formula. Throws EMethodNotFound unless a descendant has one.
  virtual std::string GetFormula() const;
  /// Computes the curve and its range of Y, from at least MinCount points, and runs OnCalculated. Throws EAbort when
  /// that freed the series: nothing of it may be touched on the way out.
  virtual void CalculateFunction();

  int MinCount() const override { return 2; }
  TPointValues ValuesOfPixel(int Index, float PixelX) const override;
  /// 0 within Delta pixels of the curve both ways; a curve has no data index.
  int FindPoint(int X, int Y, float Delta) const override;
  using TZyLineSeries::FindPoint;
  void RegisterVariables() override;
  void Fields(TZyArchive& Archive) override;
  void Calculate() override;
  void CalculatePoints() override;
  void PaintGr(Graphics& Gr) override;
  /// Any change of its data means to compute the curve anew.
  void DataInvalidated() override { SetLastCount(0); }

 protected:
  TZyFunctionSeries(TComponent* Owner, std::unique_ptr<TZyCalculation> Calculation);
  TZyCalculation& Calculation() const { return *FCalculation; }
  /// The setter of a setting of the calculation: the next paint calculates.
  template <class TField, class TValue>
  void SetSetting(TField& Field, TValue Value, const char* PropName) {
    Change(this, Field, Value, PropName, &TZyFunctionSeries::CalculationModified);
  }
  /// Enters a number that captions can name.
  template <class TKind>
  void AddVariable(const char* Id, TZyText Comment, double (TKind::*Getter)() const) {
    AddVariableToList(Id, LoadResString(Comment), this, GlobalVariableList(),
                      [this, Getter] { return (static_cast<TKind*>(this)->*Getter)(); });
  }
  /// The same for numbers in a row; Getter throws ERangeError beyond them.
  void AddArray(const char* Id, TZyText Comment, TZyArrayValGetter Getter) {
    AddArrayToList(Id, LoadResString(Comment), this, GlobalArrayList(), std::move(Getter));
  }
  /// The next paint calculates. Of too few points nothing stays to be seen.
  void CalculationModified() {
    SetLastCount(0);
    if (Count() < MinCount()) PointsModified();
  }
  /// Whether there is a curve: the last calculation succeeded.
  virtual bool HasCurve() const { return FHasCurve; }
  /// Runs the calculation over the data and the range as they stand; a range that follows the data is that of all
  /// data as long as no paint has taken it. The vectors are lent for this one run: they may die before the next.
  void CalculateCurve() const;
  /// Takes the ranges of calculation and display that follow the data.
  void SetLimits();
  /// Takes the range of Y of the curve within its display range, and ends in TellCalculated.
  void TakeRangeOfCurve();
  /// Whether the Y axis has a visible series of data, to whose scale the curve then keeps.
  bool AnyOtherSeries() const;
  /// What ends CalculateFunction: OnCalculated, after which the series may be gone.
  void TellCalculated();
  /// Calls Do(x) once for each column of pixels of the X axis, ends included; on a logarithmic one evenly by
  /// logarithms. A range of no width, or on an axis of none, is sampled at its start alone.
  void ForEachColumn(double Start, double Stop, const std::function<void(double x)>& Do) const;

  void TakeNewPixels() override;
  std::string WhyNoRange() const override;
  std::string WhyNothingDrawn() const override;

 private:
  void DisplayModified() { PointsModified(); }
  static TZyValueTransformation Handed(const TZySeriesInput& Input);
  TRange RangeOfX();
  template <class TSample>
  void Sample(double Start, double Stop, const TSample& Do) const;
  bool SetAuto(bool& Field, bool Value, std::initializer_list<std::string_view> Names);
  void SetDisplayLimit(double& Field, double Value, const char* PropName, bool LiesOutside);

  std::unique_ptr<TZyCalculation> FCalculation;
  TZySeriesInput FWeight{*this, "Weight", TZyInputUse::Apart};
  bool FAutoStart = true;
  bool FAutoStop = true;
  bool FDisplayAutoStart = true;
  bool FDisplayAutoStop = true;
  bool FCoupleCalculationAndDisplay = true;
  bool FClipYValues = true;
  bool FHasCurve = false;  // the last calculation succeeded
  bool FIsCalculating = false;
  bool FHadLogX = false, FHadLogY = false;  // the scaling of the axes as the last calculation found it
  double FCalcStart = 0, FCalcStop = 0;
  double FDisplayStart = 0, FDisplayStop = 0;
  TZyCalculationErrorHandler mCalculationError;
  TNotifyEvent mCalculated;
};

}  // namespace zy
