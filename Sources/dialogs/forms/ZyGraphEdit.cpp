#include "dialogs/forms/ZyGraphEdit.h"

#include <algorithm>

#include "annotations/ZyLegend.h"
#include "dialogs/forms/ZyComponentsOf.h"
#include "dialogs/frames/ZyAxisSettingsFrame.h"
#include "dialogs/frames/ZyGraphSettingsFrame.h"
#include "dialogs/frames/ZyLegendSettingsFrame.h"
#include "dialogs/frames/ZyObjectItems.h"
#include "dialogs/frames/ZySeriesListBox.h"
#include "dialogs/frames/ZySeriesSettingsFrame.h"
#include "platform/controls/TButtonControl.h"
#include "platform/controls/TPanel.h"
#include "platform/controls/TStatusBar.h"
#include "platform/framework/ScopedFlag.h"
#include "platform/framework/TPropInfo.h"
#include "texts/ZySettingsTexts.h"
#include "undo/ZyUndoGroup.h"

namespace zy {

ZY_PUBLISHED(TGraphEdit, TZySettingsForm)

namespace {

constexpr const char *GraphFrameName = "GraphFrame", *LegendFrameName = "LegendEdit";

}  // namespace

TGraphEdit::TGraphEdit(TComponent* Owner) : TZySettingsForm(Owner, "SettingsTab", _sManageGraph) {
  AddAxesPage();
  AddSeriesPage();
  AddDesignBars();
  SetInteractiveCalculationRanges(true);
  SetShowOutliersSupport(false);
  SetGraphProperties();
  OpenGraphDialogs().push_back(this);
}

TGraphEdit::~TGraphEdit() {
  std::erase(OpenGraphDialogs(), this);
  Destroying();
}

// --- Options --------------------------------------------------------------------------------------------------------

void TGraphEdit::SetAsDesigner(bool Value) {
  if (Value == FAsDesigner) return;
  FAsDesigner = Value;
  SeriesSettingsFrame->SetAsDesigner(Value);
  SetGraphProperties();
}

bool TGraphEdit::ExtendedAxisOptions() const { return AxisSettingsFrame->ExtendedAxisOptions(); }
void TGraphEdit::SetExtendedAxisOptions(bool Value) { AxisSettingsFrame->SetExtendedAxisOptions(Value); }
bool TGraphEdit::ExtendedBarLabelOptions() const { return SeriesSettingsFrame->ExtendedBarLabelOptions(); }
void TGraphEdit::SetExtendedBarLabelOptions(bool Value) { SeriesSettingsFrame->SetExtendedBarLabelOptions(Value); }
bool TGraphEdit::InteractiveCalculationRanges() const { return SeriesSettingsFrame->InteractiveCalculationRanges(); }
void TGraphEdit::SetInteractiveCalculationRanges(bool Value) {
  SeriesSettingsFrame->SetInteractiveCalculationRanges(Value);
}
bool TGraphEdit::ShowFitCovariance() const { return SeriesSettingsFrame->ShowFitCovariance(); }
void TGraphEdit::SetShowFitCovariance(bool Value) { SeriesSettingsFrame->SetShowFitCovariance(Value); }
bool TGraphEdit::ShowOutliersSupport() const { return SeriesSettingsFrame->ShowOutliersSupport(); }
void TGraphEdit::SetShowOutliersSupport(bool Value) { SeriesSettingsFrame->SetShowOutliersSupport(Value); }

// --- Graphs and pages -----------------------------------------------------------------------------------------------

void TGraphEdit::SetGraph(TZyGraph2D* Value) {
  if (Value == FGraph.Get() && Value != nullptr) return;
  FGraph = Value;
  SetGraphProperties();
  if (FAsDesigner && UndoStack() != nullptr) UndoStack()->Clear();
}

/// The graph that has the X axis, and those that are coupled to it.
std::vector<TZyGraph2D*> TGraphEdit::Graphs() const {
  std::vector<TZyGraph2D*> Result;
  if (FGraph == nullptr) return Result;
  TZyGraph2D* const Main = FGraph->MasterGraph() == nullptr ? FGraph.Get() : FGraph->MasterGraph();
  Result.push_back(Main);
  for (TZyGraph2D* Child : Main->ChildGraphs())
    if (Child != Main) Result.push_back(Child);
  return Result;
}

std::vector<TZyLegend*> TGraphEdit::Legends() const {
  std::vector<TZyLegend*> Result;
  const auto Take = [&Result](const TZyGraph2D& Graph) {
    for (IZyGraphLegend* Each : Graph.RelatedLegends())
      if (auto* const Legend = dynamic_cast<TZyLegend*>(&Each->Control())) Result.push_back(Legend);
  };
  if (FGraph == nullptr) return Result;
  Take(*FGraph);
  if (FGraph->MasterGraph() != nullptr) Take(*FGraph->MasterGraph());
  return Result;
}

/// All pages but those of axes and series.
void TGraphEdit::FreePages() {
  for (TTabSheet* Page : Pages().Pages())
    if (Page != AxesPage && Page != SeriesPage) delete Page;
}

/// The stack is silent while the frames are filled.
void TGraphEdit::SetGraphProperties() {
  if (AxesPage == nullptr || SeriesSettingsFrame == nullptr) return;
  SeriesSettingsFrame->EndInteractiveRange();
  FreePages();
  Pages().SetVisible(FGraph != nullptr);
  SecondLine().SetVisible(FGraph != nullptr && FAsDesigner);
  if (FGraph == nullptr) {
    TakeUndoStack(nullptr);
    SeriesSettingsFrame->SetSelectedSeries(nullptr);
    AxisSettingsFrame->SetSelectedAxis(nullptr);
    Pages().SetActivePageIndex(0);
    return;
  }
  Part<TWinControl>("AddLegendButton").SetEnabled(FGraph->RelatedLegends().empty());
  FGraph->CheckCoupled();
  if (FGraph->MasterGraph() != nullptr) FGraph->MasterGraph()->CheckCoupled();
  FindStack();
  {
    const TZyQuietStack Quiet(UndoStack());
    const TScopedValue Shows(FCanSet, false);
    UpdateCombos();
    if (!ZeroOriginCheck->Enabled()) FGraph->SetZeroOrigin(false);
    for (TZyLegend* Legend : Legends()) AddLegendPage(*Legend);
    for (TZyGraph2D* Graph : Graphs()) AddGraphPage(*Graph);
    for (const char* BarName : {"DesignToolBar", "AddToolBar"}) Part<TWinControl>(BarName).SetVisible(FAsDesigner);
    SecondLine().SetVisible(UndoStack() != nullptr || FAsDesigner);
    ZeroOriginCheck->SetChecked(FGraph->ZeroOrigin());
  }
  Pages().SetActivePageIndex(0);
}

/// The graphs on one X axis have one stack, or none that counts; in a form designer the dialog lends them its own.
void TGraphEdit::FindStack() {
  const std::vector<TZyGraph2D*> All = Graphs();
  TZyUndoStack* Found = All.front()->UndoStack();
  const bool IsShared =
      std::ranges::all_of(All, [Found](const TZyGraph2D* Each) { return Each->UndoStack() == Found; });
  if (FOwnStack != nullptr && FOwnStack.Get() != Found) delete FOwnStack.Get();
  if (Found == nullptr && IsShared && All.front()->IsDesigning()) {
    Found = new TZyUndoStack(this);
    FOwnStack = Found;
    for (TZyGraph2D* Each : All) Each->SetUndoStack(Found);
  }
  TakeUndoStack(Found);
}

/// In front of the axes, in the order of their adding.
void TGraphEdit::AddGraphPage(TZyGraph2D& Graph) {
  const bool IsAlone = Graphs().size() == 1 && !FGraph->IsCoupledGraph();
  const std::string Title = IsAlone ? LoadResString(_sPageGraph) : Graph.CaptionAsString();
  TTabSheet& Page = AddPage(nullptr, Title);
  const auto Axes = std::ranges::find(Pages().Controls(), static_cast<TControl*>(AxesPage));
  Pages().SetChildIndex(Page, static_cast<int>(Axes - Pages().Controls().begin()));
  auto* const Frame = new TZyGraphSettingsFrame(&Page);
  AddFrame(Page, *Frame, GraphFrameName);
  Frame->SetZoomScrollPanningOptions(FZoomScrollPanningOptions);
  Frame->Part<TWinControl>("BottomPanel").SetVisible(FAsDesigner);
  Frame->SetGraph(&Graph);
}

void TGraphEdit::AddLegendPage(TZyLegend& Legend) {
  TTabSheet& Page = AddPage(nullptr, Legend.CaptionAsString());
  auto* const Frame = new TZyLegendSettingsFrame(&Page);
  AddFrame(Page, *Frame, LegendFrameName);
  Frame->SetLegend(&Legend);
}

// --- Keeping in step ------------------------------------------------------------------------------------------------

void TGraphEdit::UpdateControls() {
  if (FGraph == nullptr) return;
  const TZyQuietStack Quiet(UndoStack());
  const TScopedValue Shows(FCanSet, false);
  if (ListsDiffer()) UpdateCombos();
  TestPages();
  TTabSheet* const Page = Pages().ActivePage();
  if (Page == AxesPage) {
    ZeroOriginCheck->SetChecked(FGraph->ZeroOrigin());
    AxisSettingsFrame->UpdateControls();
  } else if (Page == SeriesPage) {
    CheckOrderChanged();
    SeriesSettingsFrame->UpdateControls();
  } else if (TZySettingsFrame* const Frame = FrameOn(Page, GraphFrameName)) {
    Frame->UpdateControls();
  } else if (TZySettingsFrame* const Legend = FrameOn(Page, LegendFrameName)) {
    Legend->UpdateControls();
  }
}

/// Whether the pages are those of other legends than there are.
bool TGraphEdit::LegendsDiffer() const {
  std::vector<const TZyLegend*> Shown;
  for (const TTabSheet* Page : Pages().Pages())
    if (const auto* const Frame = dynamic_cast<const TZyLegendSettingsFrame*>(FrameOn(Page, LegendFrameName)))
      Shown.push_back(Frame->Legend());
  const std::vector<TZyLegend*> Present = Legends();
  return !std::ranges::equal(Shown, Present);
}

/// Whether the lists are those of other axes and series than there are, or of other vectors.
bool TGraphEdit::ListsDiffer() const {
  int Axes = 0, Series = 0;
  bool IsKnown = true;
  for (TZyGraph2D* Graph : Graphs()) {
    Graph->ForEachAxis([&](const TZyAxis& Axis) { IsKnown = IsKnown && FAxes->ObjectAt(Axes++) == &Axis; });
    for (const TZySeries* Each : Graph->RelatedSeries()) {
      IsKnown = IsKnown && SeriesListBox->IndexOfObject(Each) >= 0;
      ++Series;
    }
  }
  const TZyAxis* const Primary = FGraph->PrimaryXAxis();  // it may be the child of another graph
  if (Primary != nullptr && FAxes->IndexOfObject(Primary) >= Axes) ++Axes;
  if (!IsKnown || Axes != FAxes->ObjectCount()) return true;
  if (!FAsDesigner) return Series != SeriesListBox->ObjectCount();
  constexpr int Fixed = 2;  // none, and the index
  return Series > SeriesListBox->ObjectCount() ||
         static_cast<int>(AllOf<TZyDoubleVector>().size()) + Fixed !=
             SeriesSettingsFrame->Part<TZyObjectCombo>("AssXDataCombo").ObjectCount();
}

/// Legends come and go with undo, and with the application; titles follow captions.
void TGraphEdit::TestPages() {
  if (LegendsDiffer()) {
    TTabSheet* const Active = Pages().ActivePage();
    const bool Stays = FrameOn(Active, LegendFrameName) == nullptr;
    for (TTabSheet* Page : Pages().Pages())
      if (FrameOn(Page, LegendFrameName) != nullptr) delete Page;
    for (TZyLegend* Legend : Legends()) AddLegendPage(*Legend);
    if (!Stays) Pages().SetActivePageIndex(0);
    Part<TWinControl>("AddLegendButton").SetEnabled(FGraph->RelatedLegends().empty());
  }
  const bool IsAlone = Graphs().size() == 1 && !FGraph->IsCoupledGraph();
  for (TTabSheet* Page : Pages().Pages()) {
    if (const auto* const Legend = dynamic_cast<TZyLegendSettingsFrame*>(FrameOn(Page, LegendFrameName)))
      Page->SetCaption(Legend->Legend()->CaptionAsString());
    const auto* const Graph = dynamic_cast<TZyGraphSettingsFrame*>(FrameOn(Page, GraphFrameName));
    if (Graph != nullptr && Graph->Graph() != nullptr && !IsAlone) Page->SetCaption(Graph->Graph()->CaptionAsString());
  }
}

void TGraphEdit::UpdateLegends() {
  if (SeriesListBox != nullptr && Visible()) SeriesListBox->Invalidate();
}

void TGraphEdit::Idle() {
  TZySettingsForm::Idle();
  if (FGraph == nullptr) return;
  FListsAreStale = FListsAreStale || ListsDiffer();
  if (!FListsAreStale && !LegendsDiffer()) return;
  const TZyQuietStack Quiet(UndoStack());
  const TScopedValue Shows(FCanSet, false);
  if (FListsAreStale) UpdateCombos();
  TestPages();
}

void TGraphEdit::DoShow() {
  Inherited::DoShow();
  FListsAreStale = true;
}

void TGraphEdit::Hidden() { SeriesSettingsFrame->EndInteractiveRange(); }

void TGraphEdit::SettingsTabChange() {
  TTabSheet* const Page = Pages().ActivePage();
  if (auto* const Legend = dynamic_cast<TZyLegendSettingsFrame*>(FrameOn(Page, LegendFrameName))) Legend->SetList();
  SeriesPage->SetTabVisible(SeriesListBox->ObjectCount() > 0);
  if (Page != SeriesPage) SeriesSettingsFrame->EndInteractiveRange();
  UpdateControls();
}

void TGraphEdit::SetActivPage(TComponent* Target) {
  if (auto* const Axis = dynamic_cast<TZyAxis*>(Target)) {
    if (FAxes->IndexOfObject(Axis) < 0) UpdateCombos();
    for (int Index = 0; Index < FAxes->ObjectCount(); ++Index)
      FAxes->SetSelected(Index, FAxes->ObjectAt(Index) == Axis);
    FAxes->SetItemIndex(FAxes->IndexOfObject(Axis));
    AxesListClick();
    return Pages().SetActivePage(AxesPage);
  }
  if (auto* const Series = dynamic_cast<TZySeries*>(Target)) {
    if (SeriesListBox->IndexOfObject(Series) < 0) UpdateCombos();
    SeriesListBox->SetItemIndex(-1);
    SeriesListBox->SetItemIndex(SeriesListBox->IndexOfObject(Series));
    SeriesListBoxClick();
    return Pages().SetActivePage(SeriesPage);
  }
  for (TTabSheet* Page : Pages().Pages()) {
    const auto* const Graph = dynamic_cast<TZyGraphSettingsFrame*>(FrameOn(Page, GraphFrameName));
    const auto* const Legend = dynamic_cast<TZyLegendSettingsFrame*>(FrameOn(Page, LegendFrameName));
    const bool IsShown = (Graph != nullptr && Graph->Graph() == Target) ||
                         (Legend != nullptr && static_cast<TComponent*>(Legend->Legend()) == Target);
    if (!IsShown || Target == nullptr) continue;
    Pages().SetActivePage(Page);
    return SettingsTabChange();
  }
}

// --- Order of the series --------------------------------------------------------------------------------------------

/// The first item lies on top of all.
void TGraphEdit::UpdateLayers() {
  const std::vector<TZyGraph2D*> All = Graphs();
  if (All.empty()) return;
  const int Count = SeriesListBox->ObjectCount();
  {
    const TZyUndoGroup Group(UndoStack(), _sSeriesLayering);
    for (int Index = 0; Index < Count; ++Index)
      if (TZySeries* const Series = SeriesListBox->SeriesAt(Index)) Series->SetLayer(Count - Index - 1);
  }
  All.front()->LegendsModified();
  for (TZyGraph2D* Graph : All) Graph->Modified();
}

/// Undo changes the order as well.
void TGraphEdit::CheckOrderChanged() {
  TZySeries* const Selected = SeriesListBox->SelectedSeries();
  if (FGraph == nullptr || Selected == nullptr) return;
  int Place = 0;
  bool IsSorted = true;
  for (const TZySeries* Series : FGraph->RelatedSeries()) IsSorted = IsSorted && Series->Layer() == Place++;
  if (IsSorted && !FListsAreStale) return;
  FGraph->SortLayers();
  UpdateCombos();
  SeriesListBox->SetItemIndex(SeriesListBox->IndexOfObject(Selected));
  SeriesListBoxClick();
}

/// A click that takes an axis out of the selection leaves the first of the others.
void TGraphEdit::AxesListClick() {
  int Index = FAxes->ItemIndex();
  if (Index >= 0 && !FAxes->Selected(Index) && FAxes->SelCount() > 0)
    for (Index = 0; !FAxes->Selected(Index);) ++Index;
  auto* const Axis = dynamic_cast<TZyAxis*>(FAxes->ObjectAt(Index));
  if (Axis != nullptr) AxisSettingsFrame->SetSelectedAxis(Axis);
}

void TGraphEdit::SeriesListBoxClick() {
  TZySeries* const Series = SeriesListBox->SelectedSeries();
  if (Series == nullptr) return;
  SeriesSettingsFrame->SetRelatedSeriesList(SeriesListBox);
  SeriesSettingsFrame->SetSelectedSeries(Series);
  SeriesSettingsFrame->ListsChanged();
}

}  // namespace zy
