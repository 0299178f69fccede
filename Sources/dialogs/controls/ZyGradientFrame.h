#pragma once

#include <array>
#include <cstdint>
#include <utility>

#include "annotations/ZyCrossHair.h"
#include "annotations/ZyLineMarkers.h"
#include "dialogs/controls/ZyColorPickCombo.h"
#include "dialogs/controls/ZyNumericUpDn.h"
#include "graph/styles/ZyGradientSettings.h"
#include "platform/controls/TButtonControl.h"
#include "platform/controls/TFrame.h"
#include "platform/controls/TPanel.h"
#include "undo/ZyUndoLink.h"

namespace zy {

/// A part of a form in which the user changes the settings of a gradient, with a sample. What is changed is written at
/// once; a drag of the centre's marker is written once, when it ends.
class TZyGradientFrame : public TFrame {
  ZY_CLASS(TZyGradientFrame, TFrame)
  explicit TZyGradientFrame(TComponent* Owner = nullptr);
  ~TZyGradientFrame() override;

  /// The settings, which belong to somebody else; null for none, and once they died. What the controls show is read
  /// when they are set.
  TZyGradientSettings* Gradient() const;
  void SetGradient(TZyGradientSettings* Value);
  /// The stack on which a drag in both directions is one step.
  TZyUndoStack* UndoStack() const { return FUndo; }
  void SetUndoStack(TZyUndoStack* Value) { FUndo.Set(Value); }

  /// Runs after each change by the user.
  const TNotifyEvent& OnChanged() const { return mChanged; }
  void SetOnChanged(TNotifyEvent Value) { mChanged = std::move(Value); }

 protected:
  void ArrangeWidgets() override;
  virtual void Changed();

 private:
  /// A colour of the gradient, with the control for it on each panel.
  struct TColorPart {
    TZyColor (TZyGradientSettings::*Get)() const;
    void (TZyGradientSettings::*Set)(TZyColor);
    TZyColorPickCombo *Linear, *Radial;
  };

  void MakeStyles();
  void MakeLinear();
  void MakeRadial();
  void AddColor(std::size_t Place, const char* LinearName, TZyText LinearLabel, TZyText LinearHint,
                const char* RadialName, TZyText RadialLabel, TZyText RadialHint);
  TZyColorPickCombo* AddPick(TPanel& Panel, const char* Name, TZyText Label, TZyText Hint, std::size_t Place);
  TZyNumericUpDn* AddEdit(TPanel& Panel, const char* Name, TZyText Label, TZyText Hint, double Max, double Step,
                          void (TZyGradientSettings::*Set)(float));
  template <class F>
  void Write(F Do);
  void ShowAll();
  void SetPanels();
  void UpdateSamples();
  void PaintSample(Graphics& Canvas, const TPanel& Panel) const;
  void MarkerMoving(bool IsRadial);
  void MarkerMoved(bool IsRadial);
  bool IsLinear() const;

  std::uint64_t FGradient = 0;
  bool FCanSet = true;
  bool FDragging = false;
  TNotifyEvent mChanged;
  TZyUndoLink FUndo{this, &TZyGradientFrame::SetUndoStack};

  TRadioButton *LinearRadio = nullptr, *RadialRadio = nullptr, *EllipticalRadio = nullptr;
  TPanel *LinearGradientPanel = nullptr, *RadialGradientPanel = nullptr, *LinearCenterPanel = nullptr,
         *RadialSamplePanel = nullptr;
  std::array<TColorPart, 3> FColors{};
  TZyNumericUpDn *AngleEdit = nullptr, *LinearCenterEdit = nullptr, *RadialCenterX = nullptr, *RadialCenterY = nullptr;
  TZyVerticalMarker* LinearCenterMarker = nullptr;
  TZyCrossHair* RadialCenterMarker = nullptr;
};

}  // namespace zy
