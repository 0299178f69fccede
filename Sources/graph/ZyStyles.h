#pragma once

#include <functional>
#include <memory>

#include "graph/ZyColors.h"
#include "graph/ZyGDI.h"
#include "platform/drawing/Geometry.h"
#include "platform/framework/TPersistent.h"

namespace zy {

class TZyUndoStack;

/// What a settings object calls after a change; may be empty. Its owner gives it at construction and outlives it.
using ModifiedCallback = std::function<void()>;

/// How to draw a line: colour, width in pixels, dash style.
class TZySimpleLineSettings : public TPersistent {
  ZY_CLASS(TZySimpleLineSettings, TPersistent)
  explicit TZySimpleLineSettings(ModifiedCallback WhenModified);

  TZyColor Color() const { return FColor; }
  void SetColor(TZyColor Value);
  TDashStyle DashStyle() const { return FDashStyle; }
  void SetDashStyle(TDashStyle Value);
  float Width() const { return FWidth; }
  void SetWidth(float Value);

  /// A pen with these settings for drawing inside View.
  virtual std::unique_ptr<TZyPen> GetPen(const RectF& View, float Angle) const;

  /// Copies colour, width and dash style, and tells the owner once.
  void Assign(const TPersistent* Source) override;
  TZyUndoStack* UndoStack() const { return FUndoStack; }
  void SetUndoStack(TZyUndoStack* Value) { FUndoStack = Value; }

 protected:
  void Modified();
  bool FVisible = true;

 private:
  ModifiedCallback mModifiedCallBack;
  TZyUndoStack* FUndoStack = nullptr;  // the owner's; it clears it here when the stack dies
  TZyColor FColor = Colors::Red;
  TDashStyle FDashStyle = DashStyleSolid;
  float FWidth = 1;
};

/// A line that can be switched off.
class TZyLineSettings : public TZySimpleLineSettings {
  ZY_CLASS(TZyLineSettings, TZySimpleLineSettings)
  using TZySimpleLineSettings::TZySimpleLineSettings;

  bool Visible() const { return FVisible; }
  void SetVisible(bool Value);
  /// Also copies Visible, through its setter.
  void Assign(const TPersistent* Source) override;
};

}  // namespace zy
