#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/TGraphicControl.h"
#include "platform/framework/Alignment.h"
#include "platform/framework/Argb.h"

namespace zy {

class Font;

/// Where a text stands in the height of its control.
enum TTextLayout { tlTop, tlCenter, tlBottom };
ZY_ENUM(TTextLayout, "tlTop", "tlCenter", "tlBottom")

/// A text in a form; '\n' starts a new line, and with WordWrap so does what the width has no room for. Base of labels.
class TCustomLabel : public TGraphicControl {
  ZY_CLASS(TCustomLabel, TGraphicControl)
  explicit TCustomLabel(TComponent* Owner = nullptr);
  ~TCustomLabel() override;

  const std::string& Caption() const { return FCaption; }
  void SetCaption(const std::string& Value);
  TAlignment Alignment() const { return FAlignment; }
  void SetAlignment(TAlignment Value);
  TTextLayout Layout() const { return FLayout; }
  void SetLayout(TTextLayout Value);
  /// Whether lines end between words where the width ends. A word that is wider stays whole. AutoSize then keeps the
  /// width and fits the height.
  bool WordWrap() const { return FWordWrap; }
  void SetWordWrap(bool Value);
  /// Whether what lies behind shows; else the box is filled with Color.
  bool Transparent() const { return FTransparent; }
  void SetTransparent(bool Value);
  ARGB Color() const { return FColor; }
  void SetColor(ARGB Value);

 protected:
  void Paint(Graphics& Canvas) override;
  void Resize() override;
  /// Fits the bounds to the text; the aligned edge stays. Needs the application object.
  void AdjustSize() override;

 private:
  void TextChanged();
  std::vector<std::string_view> Lines(const Font& Face) const;

  std::string FCaption;
  TAlignment FAlignment = TAlignment::taLeftJustify;
  TTextLayout FLayout = tlTop;
  bool FTransparent = true;
  bool FWordWrap = false;
  ARGB FColor = 0xFFFFFFFF;
};

/// A text in a form, with all its properties published. As large as its text unless AutoSize is off.
class TLabel : public TCustomLabel {
  ZY_CLASS(TLabel, TCustomLabel)
  explicit TLabel(TComponent* Owner = nullptr);
  ~TLabel() override;
};

}  // namespace zy
