#pragma once

#include <string>
#include <vector>

#include "axes/ZyAxis.h"
#include "dialogs/forms/ZySettingsForm.h"
#include "graph/ZyGraph2D.h"
#include "graph/parts/ZyGraphDialogs.h"
#include "series/ZySeries.h"

namespace zy {

class TCheckBox;
class TZyAxisSettingsFrame;
class TZyLegend;
class TZyObjectListBox;
class TZySeriesListBox;
class TZySeriesSettingsFrame;

/// The dialog with all settings of a graph, of those that share its X axis, and of their axes, series and legends.
/// Every edit changes the chart at once, and can be undone.
///
/// Axes, series and legends may come and go while it is open: the lists follow at the next idle moment, and keep what
/// is chosen in them as long as it is there. Without a graph, as when that has died, no page is shown.
class TGraphEdit : public TZySettingsForm, public IZyGraphDialog {
  ZY_CLASS(TGraphEdit, TZySettingsForm)
  explicit TGraphEdit(TComponent* Owner = nullptr);
  ~TGraphEdit() override;

  TZyGraph2D* Graph() const { return FGraph; }
  void SetGraph(TZyGraph2D* Value);
  /// Whether the dialog serves a form designer: data and axes of series can be chosen then, and buttons offer to add
  /// axes, series, vectors and a legend. What these do is the designer's.
  bool AsDesigner() const { return FAsDesigner; }
  void SetAsDesigner(bool Value);
  bool ExtendedAxisOptions() const;
  void SetExtendedAxisOptions(bool Value);
  bool ExtendedBarLabelOptions() const;
  void SetExtendedBarLabelOptions(bool Value);
  bool InteractiveCalculationRanges() const;
  void SetInteractiveCalculationRanges(bool Value);
  bool ShowFitCovariance() const;
  void SetShowFitCovariance(bool Value);
  bool ShowOutliersSupport() const;
  void SetShowOutliersSupport(bool Value);
  /// Counts for graphs that are shown from then on.
  bool ZoomScrollPanningOptions() const { return FZoomScrollPanningOptions; }
  void SetZoomScrollPanningOptions(bool Value) { FZoomScrollPanningOptions = Value; }

  /// Shows the page of a graph, an axis, a series or a legend, with that one chosen.
  void SetActivPage(TComponent* Target);
  /// Fills the lists anew. What was chosen stays so, else the graph's X axis and the first series are.
  void UpdateCombos();
  void UpdateControls() override;

  void ListsModified() override { FListsAreStale = true; }
  void UpdateLegends() override;

 protected:
  void Idle() override;
  void Hidden() override;
  void BeforeUndo() override { Hidden(); }
  void DoShow() override;
  void ArrangePage(TTabSheet& Page) override;

 private:
  void AddAxesPage();
  void AddSeriesPage();
  void AddDesignBars();
  void SetGraphProperties();
  void FindStack();
  void AddGraphPage(TZyGraph2D& Graph);
  void AddLegendPage(TZyLegend& Legend);
  void FreePages();
  std::vector<TZyGraph2D*> Graphs() const;
  std::vector<TZyLegend*> Legends() const;
  void FillAxes();
  void FillSeries();
  void FillAssociations();
  void AddAssociation(TZyAxis* Axis);
  bool LegendsDiffer() const;
  bool ListsDiffer() const;
  void TestPages();
  void AxesListClick();
  void SeriesListBoxClick();
  void SettingsTabChange();
  void UpdateLayers();
  void CheckOrderChanged();

  bool FZoomScrollPanningOptions = false;
  bool FListsAreStale = false;
  TRef<TZyGraph2D> FGraph{this, &TGraphEdit::SetGraph};
  TRef<TZyUndoStack> FOwnStack{this};
  TTabSheet *AxesPage = nullptr, *SeriesPage = nullptr;
  TCheckBox* ZeroOriginCheck = nullptr;
  TZyObjectListBox* FAxes = nullptr;
  TZyAxisSettingsFrame* AxisSettingsFrame = nullptr;
  TZySeriesListBox* SeriesListBox = nullptr;
  TZySeriesSettingsFrame* SeriesSettingsFrame = nullptr;
};

}  // namespace zy
