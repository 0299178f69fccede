// The caption of a marker, and what lies behind it.

#include <algorithm>
#include <cmath>

#include "annotations/ZyMovable.h"
#include "graph/ZyCustomGraph.h"
#include "graph/shapes/ZyDrawing.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/Graphics.h"
#include "undo/ZyChange.h"
#include "undo/ZyUndoGroup.h"

namespace zy {

void TZyMovable::SetCaption(const TZyRichCaption& Value) {
  ChangeBy(this, Caption(), TrimRight(Value), "Caption", [this](const TZyRichCaption& Text) {
    FCaptionRec.SetCaption(Text);
    FCaptionOfName.WasSet();
    Modified();
  });
}

void TZyMovable::SetName(const std::string& Value) {
  TZyDraggedControl::SetName(Value);
  FCaptionOfName.Follow(*this, Value);
}

std::string TZyMovable::AccessibleName() const {
  return HasCaption() && !FCaptionRec.PlainText().empty() ? FCaptionRec.PlainText() : Name();
}

void TZyMovable::SetCaptionVisible(bool Value) {
  Change(this, FCaptionVisible, Value, "CaptionVisible", &TZyMovable::Modified);
}

void TZyMovable::SetCaptionVertical(bool Value) {
  Change(this, FCaptionRec.Angle, Value ? 90.0f : 0.0f, "CaptionVertical", &TZyMovable::Modified);
}

void TZyMovable::SetCaptionDeltaX(int Value) {
  Change(this, FCaptionDelta.X, Value, "CaptionDeltaX", &TZyMovable::Modified);
}

void TZyMovable::SetCaptionDeltaY(int Value) {
  Change(this, FCaptionDelta.Y, Value, "CaptionDeltaY", &TZyMovable::Modified);
}

void TZyMovable::SetCaptionPosition(TZyContentAlignment Value) {
  Change(this, FCaptionPosition, Value, "CaptionPosition", &TZyMovable::Modified);
}

void TZyMovable::SetForeColor(TZyColor Value) {
  ChangeBy(this, ForeColor(), Value, "ForeColor", [this](TZyColor Color) { Font().SetFillColor(Color); });
}

void TZyMovable::SetCaptionBackColor(TZyColor Value) {
  Change(this, FBackColor, Value, "CaptionBackColor", &TZyMovable::Modified);
}

void TZyMovable::SetEdge(bool& Field, bool Value, const char* PropName) {
  if (Field == Value) return;
  const TZyUndoGroup Group(FUndo, TZyUndoStack::LabelOf(*this, PropName));
  Change(this, Field, Value, PropName, &TZyMovable::Modified);
  const bool IsRestored = IsLoading() || (FUndo != nullptr && FUndo->Restoring());
  if (Value && !IsRestored) FBackFrame.SetVisible(false);
}

void TZyMovable::SetCaptionBackRaised(bool Value) { SetEdge(FBackRaised, Value, "CaptionBackRaised"); }

void TZyMovable::SetCaptionBackLowered(bool Value) { SetEdge(FBackLowered, Value, "CaptionBackLowered"); }

void TZyMovable::SetCaptionBackShadow(bool Value) {
  Change(this, FBackShadow, Value, "CaptionBackShadow", &TZyMovable::Modified);
}

void TZyMovable::SetCaptionBackSpaceToBorder(float Value) {
  Change(this, FBackSpaceToBorder, Value, "CaptionBackSpaceToBorder", &TZyMovable::Modified);
}

void TZyMovable::SetCaptionBackRounding(float Value) {
  Change(this, FBackRounding, Value, "CaptionBackRounding", &TZyMovable::Modified);
}

void TZyMovable::SetFont(const TZyFont& Value) {
  Font().PushToUndoStack(FUndo, LoadResString(_sMarkerFont));
  Font().Assign(&Value);
}

void TZyMovable::FontChanged() {
  FMarkerFont.FontChanged();
  Modified();
}

void TZyMovable::ParentFontChanged() {
  TZyDraggedControl::ParentFontChanged();
  FMarkerFont.Take();
}

bool TZyMovable::HasBackground() const {
  return GetAlpha(FBackColor) > 0 || FBackFrame.Visible() || FBackGradient.Visible();
}

bool TZyMovable::HasShadow() const {
  constexpr unsigned LeastAlpha = 200;
  return HasBackground() && FBackShadow && (GetAlpha(FBackColor) >= LeastAlpha || FBackGradient.Visible());
}

float TZyMovable::CaptionB() const {
  constexpr float Most = 1 << 20;
  if (!HasBackground()) return 0;
  return std::clamp(static_cast<float>(FCaptionRec.CaptionFont().Size()) * FBackSpaceToBorder * 0.02f, -Most, Most);
}

SizeF TZyMovable::CaptionSize() const {
  return {FCaptionRec.Width() + 2 * CaptionB(), FCaptionRec.Height() + 2 * CaptionB()};
}

void TZyMovable::PaintCaption(Graphics& Gr) {
  if (HasBackground()) {
    const RectF Client{0, 0, static_cast<float>(Width()), static_cast<float>(Height())};
    const float Thick = std::max(FBackFrame.Width(), 1.0f);
    const RectF Box{static_cast<float>(FCaptionRect.Left) + Thick / 2, static_cast<float>(FCaptionRect.Top) + Thick / 2,
                    static_cast<float>(FCaptionRect.Width()) - 1 - Thick,
                    static_cast<float>(FCaptionRect.Height()) - 1 - Thick};
    if (const auto* const Chart = dynamic_cast<const TZyCustomGraph*>(Parent())) {
      Chart->SetHighQuality(Gr, true);
    } else {
      Gr.SetSmoothingMode(SmoothingModeHighQuality);
    }
    const auto Shaded = FBackGradient.Visible() ? FBackGradient.GetBrush(Client, 0) : nullptr;
    const SolidBrush Plain(FBackColor);
    const auto Outline = FBackFrame.GetPen(Client, 0);
    Outline->SetWidth(Thick);
    const Brush& Ground = Shaded != nullptr ? *Shaded : static_cast<const Brush&>(Plain);
    const float Rounding = std::fabs(static_cast<float>(FCaptionRec.CaptionFont().Size()) * FBackRounding * 0.02f);
    if (Box.Width > 0 && Box.Height > 0)
      DrawRoundRect(Gr, Ground, *Outline, Box, Rounding, FBackFrame.Visible(), HasShadow(), FBackRaised, FBackLowered);
  }
  FCaptionRec.PaintGr(Gr);
}

}  // namespace zy
