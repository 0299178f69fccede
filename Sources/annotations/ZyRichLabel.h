#pragma once

#include <string>

#include "annotations/captions/ZyCaptionOfName.h"
#include "annotations/captions/ZyParentFont.h"
#include "annotations/captions/ZyRichCaption.h"
#include "graph/parts/ZyGraphParts.h"
#include "platform/controls/TLabel.h"

namespace zy {

/// A label in the caption language, at any angle.
///
/// With AutoSize it is as large as the box around its turned text, from its first paint on. Otherwise that box lies in
/// the label as TextAlign says.
class TZyRichLabel : public TCustomLabel, public IZyPicturePart {
  ZY_CLASS(TZyRichLabel, TCustomLabel)
  explicit TZyRichLabel(TComponent* Owner = nullptr);
  ~TZyRichLabel() override;

  /// Trailing blanks are dropped. Throws what ParseForSize throws; the text is stored then, and the old one still
  /// shown.
  const TZyRichCaption& Caption() const { return FCaptionRec.Caption(); }
  void SetCaption(const TZyRichCaption& Value);
  const std::string& PlainText() const { return FCaptionRec.PlainText(); }
  /// Degrees, counter-clockwise on the screen; brought into 0 to below 360.
  float Angle() const { return FCaptionRec.Angle; }
  void SetAngle(float Value);
  TZyContentAlignment TextAlign() const { return FCaptionRec.Alignment; }
  void SetTextAlign(TZyContentAlignment Value);
  TZyColor BackColor() const { return FBackColor; }
  void SetBackColor(TZyColor Value);
  /// The colour of the font. Setting it makes it opaque.
  TZyColor ForeColor() const { return FCaptionRec.CaptionFont().FillColor(); }
  void SetForeColor(TZyColor Value);
  /// That of the parent until it is changed.
  TZyFont& Font() { return FCaptionRec.CaptionFont(); }

  /// Lays the text out and fits the bounds to it. Nothing without a parent and before the first paint. Throws what
  /// ParseForSize throws.
  void AdjustBounds();
  /// Paints the label with its corner at the origin, into whatever it may be.
  void PaintGr(Graphics& Gr) override;

  /// While the form is designed, the caption follows the name until it is set by hand.
  void SetName(const std::string& Value) override;

 protected:
  void Resize() override;
  void Paint(Graphics& Gr) override { PaintGr(Gr); }
  void ParentFontChanged() override;
  /// What AutoSize calls.
  void AdjustSize() override;

 private:
  void FitBounds();
  void PlaceCaption();
  bool HasOwnForeColor() const;

  TZyRichCaptionObject FCaptionRec;
  TZyCaptionOfName FCaptionOfName;
  TZyParentFont FLabelFont{*this, FCaptionRec.CaptionFont()};
  bool FOnce = true;  // not yet painted
  bool FFitting = false;
  float FXOffs = 0;  // anchor of the caption in the label
  float FYOffs = 0;
  TZyColor FBackColor = Colors::Transparent;
};

}  // namespace zy
