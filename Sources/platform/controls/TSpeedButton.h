#pragma once

#include <functional>
#include <string>
#include <utility>

#include "platform/controls/TButtonControl.h"
#include "platform/framework/TRef.h"

namespace zy {

class Graphics;
class TPopupMenu;

/// Draws a square picture of Size logical pixels with its corner at the origin.
using TGlyphPainter = std::function<void(Graphics& Canvas, float Size)>;

/// A button that leaves the keyboard where it is. Those of one parent with the same GroupIndex other than 0 go down one
/// at a time. 23 by 22 pixels at first.
class TSpeedButton : public TButtonControl {
  ZY_CLASS(TSpeedButton, TButtonControl)
  explicit TSpeedButton(TComponent* Owner = nullptr);
  ~TSpeedButton() override;

  /// With 0 the button never stays down; with another number a click puts it down and raises the others of the group.
  int GroupIndex() const { return FGroupIndex; }
  void SetGroupIndex(int Value);
  bool Down() const { return IsChecked(); }
  /// Nothing for a button without a group, and for raising one whose group must have one down.
  void SetDown(bool Value);
  /// Whether a click raises a button that is down, so that none of the group is.
  bool AllowAllUp() const { return FAllowAllUp; }
  void SetAllowAllUp(bool Value) { FAllowAllUp = Value; }
  /// Whether the button shows no edge until the mouse is over it.
  bool Flat() const { return FFlat; }
  void SetFlat(bool Value);
  /// The menu that an arrow on the button opens.
  TPopupMenu* DropDownMenu() const { return FDropDownMenu; }
  void SetDropDownMenu(TPopupMenu* Value);
  /// Width and height of the glyph.
  int GlyphSize() const { return FGlyphSize; }
  /// Gives the button a picture, drawn anew for each resolution of a screen. None for an empty painter.
  void SetGlyph(TGlyphPainter Painter, int Size);

 protected:
  QAbstractButton* Make() override;
  void Configure(QAbstractButton& Box) override;
  void BeforeClick() override;
  void CMChanged() override;
  bool TakesFocusByClick() const override { return false; }
  bool WidgetEvent(QEvent& Event) override;

 private:
  void ShowGlyph(QAbstractButton& Box);
  void ShowMenu(QAbstractButton& Box);

  int FGroupIndex = 0;
  int FGlyphSize = 0;
  bool FAllowAllUp = false;
  bool FFlat = false;
  TGlyphPainter FGlyph;
  TRef<TPopupMenu> FDropDownMenu{this, &TSpeedButton::SetDropDownMenu};
};

/// A speed button in a tool bar: flat, and behind those that were there before.
class TToolButton : public TSpeedButton {
  ZY_CLASS(TToolButton, TSpeedButton)
  explicit TToolButton(TComponent* Owner = nullptr);
  ~TToolButton() override;
};

}  // namespace zy
