#pragma once

#include "platform/controls/TCustomPanel.h"
#include "platform/controls/ToolBarLook.h"

namespace zy {

/// A row of buttons at the top of a form: tool buttons stand side by side in it, in control order, as does whatever is
/// aligned to the left. 150 by 29 pixels at first.
class TToolBar : public TCustomPanel, public IToolBarLook {
  ZY_CLASS(TToolBar, TCustomPanel)
  explicit TToolBar(TComponent* Owner = nullptr);
  ~TToolBar() override;

  bool Flat() const override { return FFlat; }
  void SetFlat(bool Value);
  /// Whether what lies behind shows; true at first.
  bool Transparent() const override { return !HasGradient(); }
  bool HasGradient() const override { return FGradient; }
  void SetGradient(bool Value);
  ARGB GradientStartColor() const override { return FStartColor; }
  void SetGradientStartColor(ARGB Value);
  ARGB GradientEndColor() const override { return FEndColor; }
  void SetGradientEndColor(ARGB Value);

 protected:
  void Paint(Graphics& Canvas) override;

 private:
  template <class T>
  void Change(T& Field, T Value);

  bool FFlat = true;
  bool FGradient = false;
  ARGB FStartColor = 0xFFFFFFFF;
  ARGB FEndColor = 0xFFD3D3D3;
};

}  // namespace zy
