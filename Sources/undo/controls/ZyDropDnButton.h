#pragma once

#include <memory>
#include <string>

#include "platform/controls/TApplicationEvents.h"
#include "platform/controls/TGraphicControl.h"
#include "platform/controls/TPaletteWatch.h"
#include "platform/drawing/Bitmap.h"
#include "platform/drawing/TBitmap.h"
#include "undo/ZyUndoStack.h"

namespace zy {

/// Where the picture of a button stands beside its caption.
enum class TZyButtonLayout { GlyphLeft, GlyphRight, GlyphTop, GlyphBottom };
ZY_ENUM(TZyButtonLayout, "GlyphLeft", "GlyphRight", "GlyphTop", "GlyphBottom")

/// What a half of the button shows.
enum class TZyButtonState { Up, Disabled, Down, Exclusive };
ZY_ENUM(TZyButtonState, "Up", "Disabled", "Down", "Exclusive")

/// A button of two halves for tool bars: the left one does something at once, the right one, an arrow of 14 pixels,
/// drops down a list. Both act at the press. 37 by 22 pixels at first.
///
/// As the active control of its window it also takes keys: return and the space bar are the left half; the down key,
/// alone or with alt, and F4 are the right half. Inside an IToolBarLook it takes over
/// the bar's look.
class TZyDropDnButton : public TGraphicControl {
  ZY_CLASS(TZyDropDnButton, TGraphicControl)
  /// While it is designed, the last undo stack of its owner becomes the button's.
  explicit TZyDropDnButton(TComponent* Owner = nullptr);
  ~TZyDropDnButton() override;

  const std::string& Caption() const { return FCaption; }
  void SetCaption(const std::string& Value);
  /// Whether the halves have an edge only under the mouse.
  bool Flat() const { return FFlat; }
  void SetFlat(bool Value) { SetLook(FFlat, Value); }
  /// Whether the parent is the ground, and not the colour of button faces.
  bool Transparent() const { return FTransparent; }
  void SetTransparent(bool Value) { SetLook(FTransparent, Value); }
  /// Pixels between the left half's edge and what stands at that side; -1 puts all in the middle.
  int Margin() const { return FMargin; }
  void SetMargin(int Value) { SetLook(FMargin, Value); }
  /// Pixels between picture and caption.
  int Spacing() const { return FSpacing; }
  void SetSpacing(int Value) { SetLook(FSpacing, Value); }
  TZyButtonLayout Layout() const { return FLayout; }
  void SetLayout(TZyButtonLayout Value) { SetLook(FLayout, Value); }
  /// NumGlyphs pictures of one size side by side: for the states up, disabled, clicked (a half that stays down) and
  /// down (under the mouse). The colour of the lower left corner is transparent. A picture that is missing is made of
  /// the first. The buttons with a picture of their own have it here at first, and again instead of an empty one; that
  /// is drawn in the colours and at the scale of the moment, and not stored.
  TBitmap& Glyph() { return FGlyph; }
  void SetGlyph(const TBitmap& Value) { FGlyph.Assign(&Value); }
  /// 1 to 4; other values are brought between.
  int NumGlyphs() const { return FNumGlyphs; }
  void SetNumGlyphs(int Value);
  TZyUndoStack* UndoStack() const { return FUndoStack; }
  void SetUndoStack(TZyUndoStack* Value);

  /// Whether a half stays pressed.
  bool LeftDown() const { return FLeftDown; }
  void SetLeftDown(bool Value) { SetDown(FLeftDown, FLeftState, Value); }
  bool RightDown() const { return FRightDown; }
  void SetRightDown(bool Value) { SetDown(FRightDown, FRightState, Value); }
  TZyButtonState LeftState() const { return FLeftState; }
  TZyButtonState RightState() const { return FRightState; }
  /// Whether the list is open.
  bool DroppedDn() const { return FDroppedDn; }

  virtual void LeftClick();
  virtual void RightClick();
  /// Runs at idle unless the button is designed.
  virtual void DoIdle(TObject* Sender, bool& Done);
  /// Opens the list of steps below the button, or above it where there is no room. The list tells its end by
  /// ListClosed.
  void ShowListWindow();
  void ListClosed();

  void MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) override;
  void MouseMove(TShiftState Shift, int X, int Y) override;
  void MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) override;
  void CMMouseEnter() override;
  void CMMouseLeave() override;
  void KeyDown(TKey& Key, TShiftState Shift) override;
  bool TakesKeys() const override { return true; }
  /// The caption, else the hint, else OwnName.
  std::string AccessibleName() const override;
  TAccessibleRole AccessibleRole() const override { return TAccessibleRole::DropDownButton; }

 protected:
  void Paint(Graphics& Canvas) override;
  void CMEnabledChanged() override;
  void CMFontChanged() override;
  /// What the button is called without caption and hint.
  virtual std::string OwnName() const { return Name(); }
  /// Whether the button has a picture of its own, and that, in one colour in a box of 16 by 16.
  virtual bool HasOwnGlyph() const { return false; }
  virtual void PaintOwnGlyph(Graphics& Canvas, ARGB Color) const;
  /// Sets Glyph to the own picture; for the constructors of buttons with one.
  void TakeOwnGlyph();
  /// Makes the pictures of the states from Glyph.
  void GetBtnGlypImages();

 private:
  static constexpr int ArrowWidth = 14;
  struct TFace;
  struct TBar;

  bool HasForeignGlyph() const { return !FGlyphIsOwn; }
  void GlyphChanged();
  void PaletteChanged() { FGlyphIsOwn ? TakeOwnGlyph() : GetBtnGlypImages(); }
  void ReleaseHalves();
  bool IsRight(int X) const { return X >= Width() - ArrowWidth; }
  template <class T>
  void SetLook(T& Field, const T& Value) {
    if (Field == Value) return;
    Field = Value;
    Invalidate();
  }
  void SetDown(bool& Down, TZyButtonState& State, bool Value);
  void PressLeft();
  void PressRight();
  TBar BarAbove() const;
  void TakeLook();
  void SettleStates();
  void PaintGround(Graphics& Canvas) const;
  void PaintHalf(Graphics& Canvas, const TRect& Box, TZyButtonState State) const;
  bool PaintGradient(Graphics& Canvas, const RectF& Box, bool IsSunken, bool IsHot) const;
  bool PaintThemed(Graphics& Canvas, const TRect& Box, TZyButtonState State, bool IsHot) const;
  void PaintClassic(Graphics& Canvas, const RectF& Box, bool IsSunken, bool IsRaised) const;
  void PaintFace(Graphics& Canvas);
  void PaintArrow(Graphics& Canvas) const;
  TFace FaceOf() const;
  ARGB TextColor() const;
  const Bitmap* ImageOf(TZyButtonState State) const;

  std::string FCaption;
  bool FFlat = true;
  bool FTransparent = true;
  bool FLeftDown = false;
  bool FRightDown = false;
  bool FMouseInControl = false;
  bool FDroppedDn = false;
  TZyButtonState FLeftState = TZyButtonState::Up;
  TZyButtonState FRightState = TZyButtonState::Up;
  int FMargin = -1;
  int FSpacing = 4;
  TBitmap FGlyph;
  bool FGlyphIsOwn = false;
  bool FTakingOwn = false;
  std::unique_ptr<Bitmap> FUpImage, FDisabledImage, FClickedImage, FDownImage;  // null without a Glyph
  TZyButtonLayout FLayout = TZyButtonLayout::GlyphLeft;
  int FNumGlyphs = 2;
  TRef<TZyUndoStack> FUndoStack{this, &TZyDropDnButton::SetUndoStack};
  TApplicationEvents FIdle;
  TPaletteWatch FPalette{[this] { PaletteChanged(); }};
};

}  // namespace zy
