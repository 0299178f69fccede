#pragma once

#include <optional>

#include "annotations/ZyLineMarkers.h"
#include "dialogs/frames/ZyCurveRange.h"
#include "dialogs/frames/ZySeriesListBox.h"
#include "dialogs/frames/ZySettingsFrame.h"
#include "graph/ZyGraph2D.h"
#include "series/ZySeries.h"

namespace zy {

class TSpeedButton;
class TZyFittedLine;
class TZyFunctionSeries;
class TZyPolynomial;

/// The settings of a series of any kind; only the groups that its class can use are shown.
///
/// The ranges of a curve can be set by two markers on the chart: while one of two buttons is down they are there, and
/// all that is dragged meanwhile is one step. The step ends with the button, with the choice of another series, with
/// the frame being hidden, and with the series.
///
/// A curve without a handler of its own for errors of its calculation has one of the frame's while it is chosen: the
/// message is shown as those of settings are.
class TZySeriesSettingsFrame : public TZySettingsFrame {
  ZY_CLASS(TZySeriesSettingsFrame, TZySettingsFrame)
  explicit TZySeriesSettingsFrame(TComponent* Owner = nullptr);
  ~TZySeriesSettingsFrame() override;

  /// The series that is shown; null for none.
  TZySeries* SelectedSeries() const { return FSelectedSeries; }
  void SetSelectedSeries(TZySeries* Value);
  /// The list of the series from which this one was chosen; its items follow the sizes of the samples, and its series
  /// can be named as partners.
  void SetRelatedSeriesList(TZySeriesListBox* List) { FSeriesList = List; }
  /// Offers what the list and the boxes of axes and data hold by now.
  void ListsChanged();
  /// Shows the groups for the kind of the series.
  void UpdateGroups();
  /// Ends the setting of a range by markers, as the button that began it does.
  void EndInteractiveRange();

  /// Whether axes, data, partners in legends and bands can be set, as somebody needs who designs the chart.
  bool AsDesigner() const { return FAsDesigner; }
  void SetAsDesigner(bool Value) { SetOption(FAsDesigner, Value); }
  /// Whether what the labels of bars say can be set.
  bool ExtendedBarLabelOptions() const { return FExtendedBarLabelOptions; }
  void SetExtendedBarLabelOptions(bool Value) { SetOption(FExtendedBarLabelOptions, Value); }
  /// Whether the ranges of curves are set by markers; by check boxes else. True at first.
  bool InteractiveCalculationRanges() const { return FInteractiveCalculationRanges; }
  void SetInteractiveCalculationRanges(bool Value);
  bool ShowFitCovariance() const { return FShowFitCovariance; }
  void SetShowFitCovariance(bool Value) { SetOption(FShowFitCovariance, Value); }
  bool ShowOutliersSupport() const { return FShowOutliersSupport; }
  void SetShowOutliersSupport(bool Value) { SetOption(FShowOutliersSupport, Value); }
  /// Whether the symbols of points beyond a curve can be set.
  bool ShowOutOfRangeSupport() const { return FShowOutOfRangeSupport; }
  void SetShowOutOfRangeSupport(bool Value) { SetOption(FShowOutOfRangeSupport, Value); }

 protected:
  std::vector<TPersistent*> Targets() const override;
  void ControlsUpdated() override;
  void CMVisibleChanged() override;

 private:
  void AddSeriesPanel();
  void AddPoints();
  void AddLinePanels();
  void AddAreas();
  void AddArrows();
  void AddBars();
  void AddOhlc();
  void AddLabels();
  void AddRanges();
  void AddRegression();
  void AddInterpolation();
  void AddAverage();
  void AddFit();
  void AddAssignments();
  void AddSymbolLine(const char* CheckName, const char* SymbolsName, const char* SizeName, const char* WidthName,
                     const char* ForeName, const char* BackName, const std::string& Path, TZyText Text);

  void SetRangeGraph(TZyGraph2D* Value);
  void SetOption(bool& Option, bool Value);
  bool Is(const TClassInfo& Class) const { return FSelectedSeries->ClassInfo().InheritsFrom(Class); }
  TZyFunctionSeries* Curve() const;
  void KeepPlain();
  void ShowBars();
  void ShowLabels();
  void ShowRanges();
  void ShowFit();
  void FillPartners();
  void SetBarStyle(int Style);
  void TestOrder();
  void RangeButtonClicked(TSpeedButton& Button, bool IsDisplay);
  void HookErrors();
  void UnhookErrors();
  void CalcError(const std::exception& Reason);
  void MakeCoefficients(const TZyFittedLine& Line);
  void SetCoefficient(std::size_t Index);
  void ChangeOrder(int By);
  void DoFit();

  bool FExtendedBarLabelOptions = false;
  bool FShowOutliersSupport = false;
  bool FOnErrorSet = false;
  bool FInteractiveCalculationRanges = true;
  bool FAsDesigner = false;
  bool FShowFitCovariance = false;
  bool FShowOutOfRangeSupport = false;
  TRef<TZySeries> FSelectedSeries{this, &TZySeriesSettingsFrame::SetSelectedSeries};
  TRef<TComponent> FSeriesList{this};
  TRef<TZyGraph2D> FRangeGraph{this, &TZySeriesSettingsFrame::SetRangeGraph};  // where the markers are
  TZyCurveRange FRange{*this};
  std::vector<TZyDoubleEdit*> FCoefficients;  // owned by the frame
};

}  // namespace zy
