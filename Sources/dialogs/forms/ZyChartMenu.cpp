#include "dialogs/forms/ZyChartMenu.h"

#include "annotations/ZyCustomLegend.h"
#include "dialogs/frames/ZyObjectItems.h"
#include "graph/ZyImageFileNames.h"
#include "platform/controls/TFileDialog.h"
#include "platform/controls/TMenuItem.h"
#include "platform/controls/TPrintDialog.h"
#include "platform/controls/TPrinter.h"
#include "platform/framework/TPropInfo.h"
#include "texts/ZySettingsTexts.h"

namespace zy {

ZY_PUBLISHED(TZyChartMenu, TPopupMenu, Published<&Self::Chart, &Self::SetChart>("Chart"))

TZyChartMenu::TZyChartMenu(TComponent* Owner) : TPopupMenu(Owner) {
  FGraphTool.SetExtendedAxisOptions(true);
  FGraphTool.SetExtendedBarLabelOptions(true);
  FGraphTool.SetZoomScrollPanningOptions(true);
}

TZyChartMenu::~TZyChartMenu() {
  SetChart(nullptr);
  Destroying();
}

void TZyChartMenu::SetChart(TZyCustomGraph* Value) {
  if (FChart != nullptr && !FChart->IsDestroying() && FChart->PopupMenu() == this) FChart->SetPopupMenu(nullptr);
  FChart = Value;
  FGraphTool.SetGraph(dynamic_cast<TZyGraph2D*>(Value));
  FPieTool.SetPieChart(dynamic_cast<TZyPieChart*>(Value));
  if (Value == nullptr) return;
  Value->SetPopupMenu(this);
  const auto IsMine = [this, Alive = LiveHandle(), Value] {
    return FromLiveHandle(Alive) != nullptr && FChart == Value;
  };
  Value->SetOnMouseDown([this, IsMine, Before = Value->OnMouseDown()](TObject* Sender, TMouseButton Button,
                                                                      TShiftState Shift, int X, int Y) {
    if (IsMine()) FPressed = {X, Y};
    if (Before) Before(Sender, Button, Shift, X, Y);
  });
  Value->SetOnDblClick([this, IsMine, Before = Value->OnDblClick()](TObject* Sender) {
    if (Before) Before(Sender);
    if (IsMine()) ShowSettings(*PartAt(FPressed));
  });
  HookLegends();
}

/// Legends keep the mouse for themselves.
void TZyChartMenu::HookLegends() {
  for (IZyGraphLegend* Each : FChart->RelatedLegends()) {
    TControl& Legend = Each->Control();
    Legend.SetOnDblClick([this, Alive = LiveHandle(), &Legend](TObject*) {
      if (FromLiveHandle(Alive) != nullptr && FChart != nullptr) ShowSettings(Legend);
    });
  }
}

TComponent* TZyChartMenu::PartAt(TPoint Place) const {
  for (TControl* Each = FChart->ControlAtPos(Place.X, Place.Y); Each != nullptr;) {
    if (dynamic_cast<TZyAxis*>(Each) != nullptr || dynamic_cast<TZyCustomLegend*>(Each) != nullptr) return Each;
    break;
  }
  const auto* const Graph = dynamic_cast<const TZyGraph2D*>(FChart.Get());
  if (Graph == nullptr) return FChart;
  const TZyFindSeriesPointResult Point = Graph->FindSeriesPoint(Place.X, Place.Y);
  if (Point.Found) return Point.InSeries;
  return FChart;
}

void TZyChartMenu::ShowSettings(TComponent& Part) {
  if (dynamic_cast<TZyGraph2D*>(FChart.Get()) != nullptr) return FGraphTool.Show(Part);
  FPieTool.Show(Part);
}

void TZyChartMenu::SavePicture() {
  TSaveDialog Dialog;
  Dialog.Title = LoadResString(_sMenuSaveTitle);
  Dialog.Filter = ImageFileFilter();
  Dialog.FileName = FChart->Name().empty() ? "chart" : FChart->Name();
  if (!Dialog.Execute(FChart->Parent()) || FChart == nullptr) return;
  FChart->SaveImage(Dialog.FileName, ImageFileFormatOf(Dialog.FileName).value_or(TZyImageFileFormat::PNG));
}

void TZyChartMenu::Print() {
  TPrinter Printer;
  Printer.SetTitle(FChart->CaptionAsString());
  Printer.SetOrientation(poLandscape);
  if (!TPrintDialog::Execute(Printer, FChart->Parent()) || FChart == nullptr) return;
  Printer.BeginDoc();
  FChart->PrintTo(&Printer, {0, 0, Printer.PageWidth(), Printer.PageHeight()});
  Printer.EndDoc();
}

void TZyChartMenu::Popup(int X, int Y) {
  if (FChart == nullptr) return;
  HookLegends();
  Fill(*PartAt(FChart->ScreenToClient({X, Y})));
  Inherited::Popup(X, Y);
}

void TZyChartMenu::Fill(TComponent& Part) {
  Items().Clear();
  const bool IsChart = &Part == FChart.Get();
  auto* const Legend = dynamic_cast<TZyCustomLegend*>(&Part);
  const std::string Name = Legend != nullptr ? Legend->CaptionAsString() : PlainName(Part, Part.Name());
  const std::string Text = IsChart ? LoadResString(_sMenuSettings) : Format(LoadResString(_sMenuSettingsOf), {Name});
  Items().Add(Text, [this, Target = Part.LiveHandle()](TObject*) {
    auto* const Alive = static_cast<TComponent*>(FromLiveHandle(Target));
    if (Alive != nullptr && FChart != nullptr) ShowSettings(*Alive);
  });
  if (auto* const Graph = dynamic_cast<TZyGraph2D*>(FChart.Get())) AddGraphItems(*Graph);
  if (TZyUndoStack* const Stack = FChart->UndoStack()) {
    const auto Replay = [Alive = Stack->LiveHandle()](bool Forward) {
      auto* const Present = static_cast<TZyUndoStack*>(FromLiveHandle(Alive));
      if (Present != nullptr) Forward ? Present->Redo() : Present->Undo();
    };
    Items().Add("-");
    Items().Add(LoadResString(_sUndo), [Replay](TObject*) { Replay(false); }).SetEnabled(Stack->CanUndo());
    Items().Add(LoadResString(_sRedo), [Replay](TObject*) { Replay(true); }).SetEnabled(Stack->CanRedo());
  }
  const auto Add = [this](TZyText Label, auto Do) {
    Items().Add(LoadResString(Label), [this, Do](TObject*) {
      if (FChart != nullptr) Do();
    });
  };
  Items().Add("-");
  Add(_sMenuCopy, [this] { FChart->CopyToClipboard(); });
  Add(_sMenuSave, [this] { SavePicture(); });
  Add(_sMenuPrint, [this] { Print(); });
}

void TZyChartMenu::AddGraphItems(TZyGraph2D& Graph) {
  const auto Add = [&](TZyText Label, void (TZyGraph2D::*Do)()) {
    Items()
        .Add(LoadResString(Label),
             [this, Do](TObject*) {
               if (auto* const Present = dynamic_cast<TZyGraph2D*>(FChart.Get())) (Present->*Do)();
             })
        .SetEnabled(Graph.GetCanZoomBack());
  };
  Items().Add("-");
  Add(_sMenuZoomBack, &TZyGraph2D::ZoomBack);
  Add(_sMenuWhole, &TZyGraph2D::ZoomReset);
}

}  // namespace zy
