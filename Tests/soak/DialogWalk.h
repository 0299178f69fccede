#pragma once

#include <QAbstractButton>
#include <QLineEdit>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "dialogs/UserChange.h"
#include "dialogs/forms/ZyGraphSettingsTool.h"
#include "dialogs/forms/ZyPieSettings.h"
#include "dialogs/frames/ZyFillPaletteFrame.h"
#include "undo/UndoWalk.h"

namespace zy::testing {

/// A user in the dialogs of a chart with everything in it, while the chart's program makes, frees and changes what the
/// dialogs show. After each action the controls must show what the chart has.
class TDialogWalk {
 public:
  explicit TDialogWalk(unsigned Seed) : FRandom(Seed), FChart(Seed) {
    FGraphTool.SetGraph(FChart.Chart.Graph);
    FGraphTool.SetExtendedAxisOptions(true);
    FGraphTool.SetExtendedBarLabelOptions(true);
    FGraphTool.SetShowOutliersSupport(true);
    FGraphTool.SetZoomScrollPanningOptions(true);
    for (TComponent* Component : FChart.Form.Components())
      if (auto* const Pie = dynamic_cast<TZyPieChart*>(Component)) FPieTool.SetPieChart(Pie);
    FGraphTool.Show();
    FPieTool.Show();
    HandleEvents();
  }
  ~TDialogWalk() {
    for (TZySettingsForm* Form : Dialogs()) Form->Close();
    HandleEvents();
  }

  TUndoForm& Chart() { return FChart; }

  /// Returns what was found to be wrong, nothing when all held.
  std::string Walk(int Actions) {
    while (Actions-- > 0) {
      const std::string What = Act();
      HandleEvents();
      if (Roll(5) == 0) FChart.Paint();
      TApplication::Idle();
      for (TZySettingsForm* Form : Dialogs()) {
        const std::string Shown = TextsOf(*Form);
        Form->UpdateControls();
        if (const std::string Anew = TextsOf(*Form); Anew != Shown)
          return "out of step after " + What + ":\n" + Difference(Shown, Anew);
      }
    }
    return {};
  }

  /// Undoes all with the dialogs open, as their buttons do.
  void UndoAll() {
    for (TZySettingsForm* Form : Dialogs()) Form->Close();  // ends what the user sets with the mouse
    for (TZySettingsForm* Form : Dialogs()) Form->Show();
    FChart.UndoAll();
    HandleEvents();
  }

 private:
  int Roll(std::size_t Count) { return static_cast<int>(FRandom() % Count); }
  template <class T>
  T* AnyOf(const std::vector<T*>& List) {
    return List.empty() ? nullptr : List[FRandom() % List.size()];
  }

  std::vector<TZySettingsForm*> Dialogs() {
    std::vector<TZySettingsForm*> Result;
    if (FGraphTool.Dialog() != nullptr) Result.push_back(FGraphTool.Dialog());
    if (FPieTool.Dialog() != nullptr) Result.push_back(FPieTool.Dialog());
    return Result;
  }

  std::string Act() {
    const int What = Roll(20);
    if (What == 0) return FChart.Walk(3), "the program's doing";
    if (What == 1) return FChart.Stack.Undo(Roll(4)), "undo";
    if (What == 2) return FChart.Stack.Redo(Roll(4)), "redo";
    if (What < 6) return Choose();
    TZySettingsForm* const Form = AnyOf(Dialogs());
    if (Form == nullptr) return "nothing";
    Form->Widget()->activateWindow();  // where a user types
    HandleEvents();
    if (What < 9) return ClickAButton(*Form);
    const std::vector<TZySetting> Settings = ShownSettings(*Form);
    if (Settings.empty()) return "nothing";
    const TZySetting& Setting = Settings[FRandom() % Settings.size()];
    constexpr const char* Typed[] = {"3", "0", "-2.5", "1e9", "1e400", "nan", "abc", "", "17"};
    const std::string Result = Setting.Control->Name() + " of " + Setting.Path;
    ChangeAsUser(*Setting.Control, Typed[Roll(std::size(Typed))]);
    return Result;
  }

  /// Another page, axis, series or legend.
  std::string Choose() {
    TComponent* const Any = AnyOf(FChart.Form.Components());
    const std::string Result = "choosing " + Any->Name();
    if (FGraphTool.Dialog() != nullptr && Roll(3) > 0)
      FGraphTool.Dialog()->SetActivPage(Any);
    else if (TZySettingsForm* const Form = AnyOf(Dialogs()); Form != nullptr && !Form->Pages().Pages().empty())
      Form->Pages().SetActivePageIndex(Roll(Form->Pages().Pages().size()));
    return Result;
  }

  static bool IsShown(TWinControl& Control) {
    return Control.Widget() != nullptr && Control.Widget()->isVisible() && Control.Enabled();
  }

  /// All controls of a class that the user can reach in a window.
  template <class T>
  static void Collect(TWinControl& Box, std::vector<T*>& Result) {
    for (TControl* Control : Box.Controls()) {
      auto* const Part = dynamic_cast<TWinControl*>(Control);
      if (Part == nullptr || !IsShown(*Part)) continue;
      if (auto* const Found = dynamic_cast<T*>(Part)) Result.push_back(Found);
      Collect(*Part, Result);
    }
  }

  /// Buttons that are tied to a property open a dialog of their own, as do those for fonts; undo is an action of
  /// itself; and the order of a palette is no step.
  std::string ClickAButton(TZySettingsForm& Form) {
    std::vector<TButtonControl*> Buttons;
    Collect(Form, Buttons);
    std::set<const TWinControl*> Bound;
    for (const TZySetting& Setting : AllSettings(Form)) Bound.insert(Setting.Control);
    std::erase_if(Buttons, [&](const TButtonControl* Button) {
      return Bound.contains(Button) || Button->Name().find("Font") != std::string::npos ||
             dynamic_cast<TZyFillPaletteFrame*>(Button->Owner()) != nullptr;
    });
    TButtonControl* const Button = AnyOf(Buttons);
    if (Button == nullptr) return "nothing";
    const std::string Result = "a click on " + Button->Name();
    Button->PerformClick();
    return Result;
  }

  static std::vector<TZySetting> AllSettings(TZySettingsForm& Form) {
    std::vector<TZySettingsFrame*> Frames;
    Collect(Form, Frames);
    std::vector<TZySetting> Result;
    for (const TZySettingsFrame* Frame : Frames)
      for (const TZySetting& Setting : Frame->Settings()) Result.push_back(Setting);
    return Result;
  }

  /// What the user can change with a step of undo.
  static std::vector<TZySetting> ShownSettings(TZySettingsForm& Form) {
    std::vector<TZySetting> Result = AllSettings(Form);
    std::erase_if(Result, [](const TZySetting& Setting) {
      const std::string Name = Setting.Path.substr(Setting.Path.rfind('.') + 1);
      return !IsShown(*Setting.Control) || dynamic_cast<TButton*>(Setting.Control) != nullptr ||
             NotUndone.contains(Name);
    });
    return Result;
  }

  /// What all controls show, a line for each.
  static std::string TextsOf(TZySettingsForm& Form) {
    std::string Result;
    for (const TZySetting& Setting : AllSettings(Form)) {
      const QWidget& Box = *Setting.Control->Widget();
      Result += Setting.Control->Name() + (Box.isVisible() ? " " : " hidden ") + (Box.isEnabled() ? "" : "off ");
      if (const auto* const Button = dynamic_cast<const QAbstractButton*>(&Box))
        Result += Button->isChecked() ? "yes" : "no";
      if (const auto* const Edit = dynamic_cast<const QLineEdit*>(&Box)) Result += Plain(Edit->text()).toStdString();
      if (const auto* const Combo = dynamic_cast<const TCustomComboBox*>(Setting.Control))
        Result += std::to_string(Combo->ItemIndex()) + " of " + std::to_string(Combo->Items().Count());
      if (const auto* const Color = dynamic_cast<const TZyColorPickCombo*>(Setting.Control))
        Result += std::to_string(Color->ActiveColor());
      if (const auto* const Caption = dynamic_cast<const TZyCaptionEdit*>(Setting.Control))
        Result += Caption->Caption();
      Result += "\n";
    }
    return Result;
  }

  /// A number in one of its forms: an edit that is entered again shows the one that was typed.
  static QString Plain(const QString& Text) {
    bool IsNumber = false;
    const double Number = Text.toDouble(&IsNumber);
    return IsNumber ? QString::number(Number, 'g', 17) : Text;
  }

  static std::string Difference(const std::string& Shown, const std::string& Anew) {
    std::size_t Place = 0;
    while (Place < std::min(Shown.size(), Anew.size()) && Shown[Place] == Anew[Place]) ++Place;
    const std::size_t Start = Place == 0 ? 0 : Shown.rfind('\n', Place - 1) + 1;
    return Shown.substr(Start, 80) + "\n---\n" + Anew.substr(Start, 80);
  }

  std::mt19937 FRandom;
  TUndoWalk FChart;
  TZyGraphSettingsTool FGraphTool{nullptr};
  TZyPieSettingsTool FPieTool{nullptr};
};

}  // namespace zy::testing
