#pragma once

#include <string>

#include "undo/controls/ZyDropDnButton.h"

namespace zy {

/// The button that undoes: the newest step, or as many as are marked in its list. Enabled while there is a step.
class TZyUndoButton : public TZyDropDnButton {
  ZY_CLASS(TZyUndoButton, TZyDropDnButton)
  explicit TZyUndoButton(TComponent* Owner = nullptr);
  ~TZyUndoButton() override;

  void LeftClick() override;
  void RightClick() override;
  void DoIdle(TObject* Sender, bool& Done) override;

 protected:
  std::string OwnName() const override;
  bool HasOwnGlyph() const override { return true; }
  void PaintOwnGlyph(Graphics& Canvas, ARGB Color) const override;
};

/// The button that redoes what was undone, likewise.
class TZyRedoButton : public TZyDropDnButton {
  ZY_CLASS(TZyRedoButton, TZyDropDnButton)
  explicit TZyRedoButton(TComponent* Owner = nullptr);
  ~TZyRedoButton() override;

  void LeftClick() override;
  void RightClick() override;
  void DoIdle(TObject* Sender, bool& Done) override;

 protected:
  std::string OwnName() const override;
  bool HasOwnGlyph() const override { return true; }
  void PaintOwnGlyph(Graphics& Canvas, ARGB Color) const override;
};

}  // namespace zy
