#pragma once

namespace zy {

class TControl;
class TZyFont;

/// Keeps the font of a control's captions that of its parent, until it is changed by itself: the rich fonts' side of
/// TControl::ParentFont.
class TZyParentFont {
 public:
  /// Both outlive this object.
  TZyParentFont(TControl& Control, TZyFont& Font) : FControl(Control), FFont(Font) {}
  /// Takes over the parent's font where ParentFont says so. To be called when it has changed.
  void Take();
  /// Ends ParentFont, unless the change came from Take or from a stored form.
  void FontChanged();

 private:
  TControl& FControl;
  TZyFont& FFont;
  bool FSetting = false;
};

}  // namespace zy
