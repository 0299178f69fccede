#pragma once

#include "dialogs/forms/ZyGraphSettingsTool.h"
#include "dialogs/forms/ZyPieSettings.h"
#include "platform/controls/TPopupMenu.h"

namespace zy {

/// What the users of a chart look for under the right mouse button: the settings of what is there, ways to zoom back,
/// undo, copy, a picture in a file, print. A double click opens the settings at once.
///
///     auto* const Menu = new TZyChartMenu(Form);
///     Menu->SetChart(Graph);
///
/// It takes the chart's PopupMenu, and its OnMouseDown and OnDblClick, behind the handlers that are there by then, and
/// the OnDblClick of its legends. A host adds items of its own in OnPopup, which runs when the others are there.
class TZyChartMenu : public TPopupMenu {
  ZY_CLASS(TZyChartMenu, TPopupMenu)
  explicit TZyChartMenu(TComponent* Owner = nullptr);
  ~TZyChartMenu() override;

  /// A graph or a pie chart; null for none. One that had the menu keeps no trace of it but its handlers, which do
  /// nothing then.
  TZyCustomGraph* Chart() const { return FChart; }
  void SetChart(TZyCustomGraph* Value);
  /// What opens the dialogs, whose options a host may set.
  TZyGraphSettingsTool& GraphTool() { return FGraphTool; }
  TZyPieSettingsTool& PieTool() { return FPieTool; }

  /// The part of the chart at a place in it, of which the settings are: a legend, an axis, a series, or the chart.
  TComponent* PartAt(TPoint Place) const;
  /// Opens the dialog at a part of the chart.
  void ShowSettings(TComponent& Part);
  void SavePicture();
  void Print();

  void Popup(int X, int Y) override;

 private:
  void HookLegends();
  void Fill(TComponent& Part);
  void AddGraphItems(TZyGraph2D& Graph);

  TRef<TZyCustomGraph> FChart{this, &TZyChartMenu::SetChart};
  TZyGraphSettingsTool FGraphTool;
  TZyPieSettingsTool FPieTool;
  TPoint FPressed;  // where the mouse was last pressed
};

}  // namespace zy
