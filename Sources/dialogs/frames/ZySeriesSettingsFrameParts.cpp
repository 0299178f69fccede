#include "annotations/ZyCaptionEdit.h"
#include "dialogs/controls/ZyColorPickCombo.h"
#include "dialogs/controls/ZyDashStyles.h"
#include "dialogs/controls/ZyNumericUpDn.h"
#include "dialogs/frames/ZyMoveButtons.h"
#include "dialogs/frames/ZySeriesSettingsFrame.h"
#include "platform/controls/TButtonControl.h"
#include "platform/controls/TPanel.h"
#include "platform/controls/TScrollBox.h"
#include "platform/controls/TSpeedButton.h"
#include "platform/framework/SystemColors.h"
#include "series/ZyArrows.h"
#include "series/ZyBars.h"
#include "series/ZyBubbles.h"
#include "series/ZyCandleSticks.h"
#include "series/ZyFittedLine.h"
#include "series/ZyInterpolation.h"
#include "series/ZyLeastSquares.h"
#include "series/ZyLinearRegression.h"
#include "series/ZyMovingAverage.h"
#include "series/ZyOHLC.h"
#include "series/ZyPointWithErrorSeries.h"
#include "texts/ZySettingsTexts.h"
#include "undo/ZyUndoGroup.h"

namespace zy {

void TZySeriesSettingsFrame::AddSeriesPanel() {
  AddPanel("SeriesPanel");
  AddCheck("SeriesVisibleCheck", "Visible", _sSettingsVisible);
  AddCheck("ShowOutliersCheck", "OutliersVisible", _sSeriesOutliers);
  AddGroup("SeriesCaptionGroup", _sGroupCaption);
  AddCheck("SeriesVisibleinLegendCheck", "IncludeInLegend", _sSeriesInLegend);
  AddLine(_sAxisText);
  AddCaption("SeriesLegendCaptionEdit", "Caption", "", "");
  AddLine(_sSeriesMerge).SetName("MergeWithLab");
  AddReference("MergeLegendItemCombo", "MergeLegendItemWith").SetHint(LoadResString(_sSeriesMergeHint));
}

void TZySeriesSettingsFrame::AddSymbolLine(const char* CheckName, const char* SymbolsName, const char* SizeName,
                                           const char* WidthName, const char* ForeName, const char* BackName,
                                           const std::string& Path, TZyText Text) {
  const auto TestHeight = [this] {
    if (auto* const List = static_cast<TZySeriesListBox*>(FSeriesList.Get())) List->TestSeriesItemHeight();
  };
  AddCheck(CheckName, (Path + ".Visible").c_str(), Text);
  AddSymbols(SymbolsName, (Path + ".PointSymbol").c_str());
  SetAfter(AddUpDown(SizeName, (Path + ".Size").c_str()), TestHeight);
  AddLine(_sSeriesSize);
  SetAfter(AddUpDown(WidthName, (Path + ".BorderLineWidth").c_str()), TestHeight);
  AddColor(ForeName, (Path + ".BorderColor").c_str());
  AddColor(BackName, (Path + ".FillColor").c_str());
}

void TZySeriesSettingsFrame::AddPoints() {
  AddGroup("SeriesStylesGroup", _sGroupStyles);
  SetClass(TZyPointSeries::StaticClassInfo());
  AddSubPanel("SymbolStylesPanel");
  AddSymbolLine("SeriesSymbolCheck", "SeriesPointSymbols", "SeriesSymbolSizeUpDown", "SeriesSymbolBorderWidthUpDown",
                "SymbolForeColorPick", "SymbolBackColorPick", "PointSymbol", _sSeriesSymbol);
  EndSubPanel();
  AddSubPanel("OutOfRangePanel");
  AddLine(_sSeriesBeyondOf);
  AddReference("RangeFromCombo", "RangeFromFunction").SetHint(LoadResString(_sSeriesBeyondHint));
  AddSymbolLine("OutOfRangeVisibleCheck", "OutOfRangeSymbols", "OutOfRangeSizeUpDn", "OutOfRangeWidthUpDn",
                "OutOfRangeForeColorCombo", "OutOfRangeBackColorCombo", "OutOfRangePointSymbol", _sSeriesBeyond);
  EndSubPanel();
}

void TZySeriesSettingsFrame::AddLinePanels() {
  SetClass(TZySeries::StaticClassInfo());
  AddSubPanel("LineStylesPanel");
  AddCheck("SeriesLineCheck", "Line.Visible", _sSeriesLine);
  AddDashes("SeriesDashStyles", "Line.DashStyle");
  AddUpDown("SeriesLineWidthUpDown", "Line.Width");
  AddColor("SeriesLineColorPick", "Line.Color");
  AddGradient("LineGradientCheck", "LineGradientFrame", "Line.Gradient", _sSeriesLineGradient);
  EndSubPanel();
  SetClass(TZyPointWithErrorSeries::StaticClassInfo());
  AddSubPanel("ErrorStylesPanel");
  AddCheck("SeriesErrorsCheck", "ErrorIndicator.Visible", _sSeriesErrors);
  AddDashes("ErrorsDashStyles", "ErrorIndicator.DashStyle");
  AddUpDown("ErrorsLineWidthUpDown", "ErrorIndicator.Width");
  AddColor("ErrorsColorPick", "ErrorIndicator.Color");
  EndSubPanel();
}

void TZySeriesSettingsFrame::AddAreas() {
  SetClass(TZySeries::StaticClassInfo());
  AddSubPanel("AreaStylesPanel");
  AddCheck("SeriesAreaCheck", "Area.Visible", _sSeriesArea);
  AddSubPanel("AreaFillPanel");
  AddLine(_sSeriesFill);
  AddRadio("NormalRadio", "Area.Gradient.Visible", 0, _sSeriesNormal);
  AddRadio("GradientRadio", "Area.Gradient.Visible", 1, _sSeriesGradient);
  EndSubPanel();
  AddSubPanel("NormalFillPanel");
  AddLine(_sSeriesAreaColors);
  AddColor("AreaForeColorPick", "Area.ForeColor");
  AddColor("AreaBackColorPick", "Area.BackColor");
  AddLine(_sSeriesHatch);
  AddAreaStyles("SeriesHatchStyles", "Area.AreaStyle");
  EndSubPanel();
  AddGradientFrame("AreaGradientFrame", "Area.Gradient");
  EndSubPanel();
  SetClass(TZyLineSeries::StaticClassInfo());
  AddSubPanel("BandPanel");
  AddLine(_sSeriesBand);
  AddReference("BandToCombo", "DrawBandTo").SetHint(LoadResString(_sSeriesBandHint));
  EndSubPanel();
}

void TZySeriesSettingsFrame::AddArrows() {
  SetClass(TZyArrows::StaticClassInfo());
  AddSubPanel("ArrowPointPanel");
  AddLine(_sSeriesArrow);
  AddUpDown("ArrowHeightUpDown", "Arrow.PointHeight");
  AddLine(_sAxisArrowLength);
  AddUpDown("ArrowPointLengthUpDown", "Arrow.PointLength");
  AddUpDown("ArrowInnerLengthUpDown", "Arrow.InnerLength");
  EndSubPanel();
}

void TZySeriesSettingsFrame::AddBars() {
  constexpr double MostDepth = 1000;
  SetClass(TZyBars::StaticClassInfo());
  AddSubPanel("BarsPanel");
  AddLine(_sBarsStyleLabel);
  const std::tuple<const char*, TZyText, TZyBarStyle> Styles[] = {
      {"BarFlatRadio", _sBarsFlat, TZyBarStyle::Flat},
      {"BarCylinderRadio", _sBarsCylinder, TZyBarStyle::Cylinder},
      {"BarCuboidRadio", _sBarsCuboid, TZyBarStyle::Cuboid}};
  for (const auto& [PartName, Text, Style] : Styles)
    AddFreeRadio(PartName, Text, _sBarsStyle, [this, Style = Style] { SetBarStyle(static_cast<int>(Style)); });
  AddLine(_sBarsOverlay);
  AddRadio("BarStackRadio", "OverlayStyle", static_cast<int>(TZyBarsOverlayStyle::Stack), _sBarsStack);
  AddRadio("BarShiftRadio", "OverlayStyle", static_cast<int>(TZyBarsOverlayStyle::Shift), _sBarsShift);
  AddLine(_sBarsDirection);
  AddRadio("BarHorizontalRadio", "BarsHorizontal", 1, _sBarsHorizontalLabel);
  AddRadio("BarVerticalRadio", "BarsHorizontal", 0, _sBarsVerticalLabel);
  AddLine(_sBarsGap);
  AddUpDown("BarDistanceUpDown", "ClassesDistance");
  AddUpDown("BarDepthUpDown", "Depth3D", 0, MostDepth);
  EndSubPanel();
}

void TZySeriesSettingsFrame::AddOhlc() {
  SetClass(TZyOHLC::StaticClassInfo());
  AddSubPanel("OHLCPanel");
  AddLine(_sOhlcWidth);
  AddUpDown("OHLCWidthUpDown", "BarWidth");
  AddLine(_sOhlcLength);
  AddUpDown("OHLCLengthUpDown", "IndicatorLength");
  EndSubPanel();
  SetClass(TZyCandleSticks::StaticClassInfo());
  AddSubPanel("CandleStickPanel");
  AddLine(_sOhlcWidth);
  AddUpDown("CandleWidthUpDown", "BarWidth");
  AddLine(_sCandleColors);
  AddColor("BearColorPick", "BearColor");
  AddColor("BullColorPick", "BullColor");
  AddCheck("CandleSameShadowCheck", "ShadowsSameColorAsFill", _sCandleShadows);
  EndSubPanel();
  SetClass(TZyBubbles::StaticClassInfo());
  AddSubPanel("BubblePanel");
  AddCheck("EllipticalCheck", "Elliptical", _sBubbleElliptical);
  EndSubPanel();
}

void TZySeriesSettingsFrame::AddLabels() {
  SetClass(TZyBars::StaticClassInfo());
  AddGroup("LabelGroup", _sGroupLabels);
  AddLine(_sLabelsPosition);
  AddCombo("LabPositionCombo", "LabelPosition", _sLabelPositions);
  AddLine(_sLabelsFrom);
  AddCombo("LabFromCombo", "LabelFrom", _sLabelSources);
  AddLine(_sLabelsFormat);
  AddText("LabFormatEdit", "LabelFormat", _sLabelsFormatHint);
  AddLine(_sLabelsCaptions);
  auto& Captions = AddLines("LabCaptionsEdit", "Captions", "Font", "LabelColor");
  SetWriter(Captions, [this, &Captions](TPersistent& Object) {
    const TZyUndoGroup Group(UndoStack(), _sBarsCaptionsList);
    TakeLines(Captions, *static_cast<TZyBars&>(Object).Captions());
  });
  AddLine(_sLabelsSize);
  AddUpDown("LabSizeUpDown", "LabelSize");
  AddFont("LabFontBtn", "Font");
  AddColor("LabColorPick", "LabelColor");
  AddCheck("LabVerticalCheck", "LabelVertical", _sLabelsVertical);
}

void TZySeriesSettingsFrame::AddRanges() {
  SetClass(TZyFunctionSeries::StaticClassInfo());
  AddGroup("CalculationsGroup", _sGroupCalculation);
  const auto AddRangeLine = [this](TZyText Label, const char* StartName, const char* StopName, const char* StartPath,
                                   const char* StopPath, const char* BarName, const char* ButtonName, TZyText HintText,
                                   bool IsDisplay) {
    AddLine(Label);
    AddEdit(StartName, StartPath);
    AddEdit(StopName, StopPath);
    auto& Bar = AddBar(BarName);
    auto* const Button = AddPart<TSpeedButton>(*this, Bar, ButtonName, HintText);
    Button->SetCaption(LoadResString(_sRangeMarkers));
    Button->SetGroupIndex(IsDisplay ? 2 : 1);
    Button->SetAllowAllUp(true);
    Button->SetTabStop(true);
    Button->SetOnClick([this, Button, IsDisplay](TObject*) { RangeButtonClicked(*Button, IsDisplay); });
  };
  AddRangeLine(_sRangeCalculation, "RangeCalcStartEdit", "RangeCalcStopEdit", "CalculationStart", "CalculationStop",
               "InteractiveCalcRangeBar", "InteractiveCalcRangeBtn", _sRangeCalcHint, false);
  AddCheck("RangeCalcStartAutoCheck", "AutoStart", _sRangeStartAuto);
  AddCheck("RangeCalcStopAutoCheck", "AutoStop", _sRangeStopAuto);
  AddCheck("RangeCoupleCheck", "CoupleCalculationAndDisplay", _sRangeCouple);
  AddRangeLine(_sRangeDisplay, "RangeDispStartEdit", "RangeDispStopEdit", "DisplayStart", "DisplayStop",
               "InteractiveDispRangeBar", "InteractiveDispRangeBtn", _sRangeDispHint, true);
  AddCheck("RangeDispStartAutoCheck", "DisplayAutoStart", _sRangeShowStartAuto);
  AddCheck("RangeDispStopAutoCheck", "DisplayAutoStop", _sRangeShowStopAuto);
  AddCheck("CalcClipYCheck", "ClipYValues", _sRangeClip);
  const std::tuple<const char*, TZyText, void (TZyFunctionSeries::*)(bool), void (TZyFunctionSeries::*)(double)>
      Ends[] = {{"RangeCalcStartEdit", _sFunctionsCalculationStart, &TZyFunctionSeries::SetAutoStart,
                 &TZyFunctionSeries::SetCalculationStart},
                {"RangeCalcStopEdit", _sFunctionsCalculationStop, &TZyFunctionSeries::SetAutoStop,
                 &TZyFunctionSeries::SetCalculationStop},
                {"RangeDispStartEdit", _sFunctionsDisplayStart, &TZyFunctionSeries::SetDisplayAutoStart,
                 &TZyFunctionSeries::SetDisplayStart},
                {"RangeDispStopEdit", _sFunctionsDisplayStop, &TZyFunctionSeries::SetDisplayAutoStop,
                 &TZyFunctionSeries::SetDisplayStop}};
  for (const auto& [PartName, Label, SetAuto, SetEnd] : Ends) {
    auto& Edit = Part<TZyDoubleEdit>(PartName);
    SetWriter(Edit, [this, &Edit, Label = Label, SetAuto = SetAuto, SetEnd = SetEnd](TPersistent& Object) {
      const TZyUndoGroup Group(UndoStack(), Label);
      (static_cast<TZyFunctionSeries&>(Object).*SetAuto)(false);
      (static_cast<TZyFunctionSeries&>(Object).*SetEnd)(Edit.Value());
    });
  }
}

void TZySeriesSettingsFrame::AddRegression() {
  constexpr double LeastOrder = 2, MostOrder = 100;
  constexpr int FormulaHeight = 28;
  SetClass(TZyLinearRegression::StaticClassInfo());
  AddGroup("CalcLinRegGroup", _sGroupRegression);
  SetAfter(AddCheck("FixedOffsCheck", "FixedOffset", _sRegressionOffset), [this] {
    if (!Part<TCheckBox>("FixedOffsCheck").Checked() && FSelectedSeries != nullptr) FSelectedSeries->Calculate();
  });
  AddEdit("OffsetEdit", "Offset");
  SetClass(TZyPolynomial::StaticClassInfo());
  AddGroup("CalcPolinomialGroup", _sGroupPolynomial);
  AddLine(_sPolynomialOrder);
  SetAfter(AddUpDown("PoliOrderUpDown", "Order", LeastOrder, MostOrder), [this] { TestOrder(); });
  AddPicture("PoliFormulaLab", FormulaHeight, _sPolynomialFormulaHint, [this](Graphics& Canvas, TPanel& Panel) {
    constexpr int WindowText = 8;
    if (const auto* const Fit = dynamic_cast<const TZyPolynomial*>(FSelectedSeries.Get()))
      DrawItemCaption(Canvas, Panel, Fit->GetFormula(), 0, Panel.ClientRect(), SystemColor(WindowText));
  });
}

void TZySeriesSettingsFrame::AddInterpolation() {
  SetClass(TZyInterpolation::StaticClassInfo());
  AddGroup("CalcInterpolationGroup", _sGroupInterpolation);
  AddLine(_sCurveMethod);
  auto& Method = AddCombo("IntMethCombo", "InterpolationMethod", _sInterpolationMethods);
  SetWriter(Method, [&Method](TPersistent& Object) {
    auto& Curve = static_cast<TZyInterpolation&>(Object);
    const auto Value = static_cast<TZyInterpolationMethod>(Method.ItemIndex());
    const TZyUndoGroup Group(Curve.UndoStack(), TZyUndoStack::LabelOf(Curve, "InterpolationMethod"));
    if (Value == TZyInterpolationMethod::ApproximativeSpline) Curve.SetSmoothPoints(false);
    Curve.SetInterpolationMethod(Value);
  });
  AddCheck("IntSmoothCheck", "SmoothPoints", _sInterpolationSmooth);
  AddEdit("IntSmoothEdit", "SmoothingRange");
  AddLine(_sInterpolationWeight).SetName("IntWeightLab");
  AddEdit("IntWeightEdit", "ElasticityFactor");
}

void TZySeriesSettingsFrame::AddAverage() {
  SetClass(TZyMovingAverage::StaticClassInfo());
  AddGroup("CalcMovingAverageGroup", _sGroupAverage);
  AddLine(_sCurveMethod);
  AddCombo("MovAvgMethCombo", "AveragingMethod", _sAverageMethods);
  AddLine(_sAverageN);
  AddEdit("NEdit", "N");
  AddLine(_sAverageNIs);
  AddRadio("NAsCountRadio", "AveragingRangeMethod", static_cast<int>(TZyAveragingRangeMethod::NasCount),
           _sAverageCount);
  AddRadio("NAsDistanceRadio", "AveragingRangeMethod", static_cast<int>(TZyAveragingRangeMethod::NasXDistance),
           _sAverageDistance);
  AddLine(_sAverageDirection);
  AddRadio("OnlyDownRadio", "AveragingDirection", static_cast<int>(TZyAveragingDirection::OnlyDownwards),
           _sAverageDown);
  AddRadio("UpAndDnRadio", "AveragingDirection", static_cast<int>(TZyAveragingDirection::UpAndDownwards),
           _sAverageBoth);
  AddLine(_sAverageAlpha).SetName("AlphaLab");
  AddEdit("AlphaEdit", "ExponentialFactorForN");
}

void TZySeriesSettingsFrame::AddFit() {
  constexpr int ListHeight = 96;
  SetClass(TZyFittedLine::StaticClassInfo());
  AddGroup("CalcFitGroup", _sGroupFit);
  AddSubPanel("ExpressionPanel");
  AddLine(_sFitFormula);
  AddText("ExpressionEdit", "Expression", _sFitFormulaHint);
  EndSubPanel();
  AddLine(_sFitSteps);
  AddUpDown("IterationsEdit", "Iterations", 0, TZyFittedLine::LargestIterations).SetIncrement(100);
  AddLine(_sFitDeviations);
  AddRadio("OptimizeVarianceRadio", "DoCovariance", 0, _sFitVariance);
  AddRadio("OptimizeCovarianceRadio", "DoCovariance", 1, _sFitBoth);
  AddSubPanel("FitPanel");
  AddLine(_sFitCoefficients);
  auto& Scroll = AddScroll("FitVarsScroll", ListHeight);
  Scroll.SetTabStop(false);
  EndSubPanel();
  AddLine();
  AddTool("PlusBtn", _sFitMore, TZyGlyph::Add, [this] { ChangeOrder(1); });
  AddTool("MinusBtn", _sFitLess, TZyGlyph::Delete, [this] { ChangeOrder(-1); });
  AddButton("DoFitBtn", _sFitGo, _sFitGoHint, [this] { DoFit(); });
}

void TZySeriesSettingsFrame::AddAssignments() {
  AddGroup("AssignmentsGroup", _sGroupAssignments);
  SetClass(TZySeries::StaticClassInfo());
  AddSubPanel("XYAxAssignPanel");
  AddLine(_sAssignAxes);
  AddReference("AssXCombo", "XAxis");
  AddReference("AssYCombo", "YAxis");
  EndSubPanel();
  AddSubPanel("XYDataAssignPanel");
  AddLine(_sAssignData);
  AddData("AssXDataCombo", "XData", true);
  AddData("AssYDataCombo", "YData", true);
  EndSubPanel();
  const auto AddPair = [this](const char* PanelName, const TClassInfo& Class, TZyText Label,
                              std::initializer_list<std::pair<const char*, const char*>> Combos) {
    SetClass(Class);
    if (PanelName != nullptr) AddSubPanel(PanelName);
    AddLine(Label);
    for (const auto& [PartName, Path] : Combos) AddData(PartName, Path, false);
  };
  AddPair("WeightAssignPanel", TZyFunctionSeries::StaticClassInfo(), _sAssignWeight, {{"AssWeightCombo", "Weight"}});
  EndSubPanel();
  AddPair("RadiusAssignPanel", TZyBubbles::StaticClassInfo(), _sAssignRadius, {{"AssRadiusCombo", "RadiusData"}});
  EndSubPanel();
  AddPair("ArrowDeltaPanel", TZyArrows::StaticClassInfo(), _sAssignDelta,
          {{"AssArrowXCombo", "DeltaX"}, {"AssArrowYCombo", "DeltaY"}});
  EndSubPanel();
  const TClassInfo& Ohlc = TZyCustomOHLC::StaticClassInfo();
  AddPair("AssignOHLCPanel", Ohlc, _sAssignOpenClose, {{"AssOpenCombo", "OpenData"}, {"AssCloseCombo", "CloseData"}});
  AddPair(nullptr, Ohlc, _sAssignHighLow, {{"AssHighCombo", "HighData"}, {"AssLowCombo", "LowData"}});
  EndSubPanel();
  const TClassInfo& Errors = TZyPointWithErrorSeries::StaticClassInfo();
  AddPair("AssignErrorsPanel", Errors, _sAssignErrorsX,
          {{"AssErrXPlusCombo", "DeltaXPlus"}, {"AssErrXMinusCombo", "DeltaXMinus"}});
  AddPair(nullptr, Errors, _sAssignErrorsY, {{"AssErrYPlusCombo", "DeltaYPlus"}, {"AssErrYMinusCombo", "DeltaYMinus"}});
  EndSubPanel();
}

}  // namespace zy
