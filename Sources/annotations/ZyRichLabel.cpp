#include "annotations/ZyRichLabel.h"

#include <cmath>
#include <numbers>

#include "analysis/ZyMath.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/Graphics.h"
#include "platform/framework/TPropInfo.h"

namespace zy {

ZY_PUBLISHED(TZyRichLabel, TCustomLabel, Published<&TZyRichLabel::Angle, &TZyRichLabel::SetAngle>("Angle", 0.0f),
             Published<&TZyRichLabel::AutoSize, &TZyRichLabel::SetAutoSize>("AutoSize", true),
             Published<&TZyRichLabel::BackColor, &TZyRichLabel::SetBackColor>("BackColor", Colors::Transparent),
             Published<&TZyRichLabel::Caption, &TZyRichLabel::SetCaption>("Caption", TZyRichCaption()),
             Published<&TZyRichLabel::ParentFont, &TZyRichLabel::SetParentFont>("ParentFont", true),
             Published<&TZyRichLabel::Font>("Font").StoredIf<&TZyRichLabel::HasOwnFont>(),
             Published<&TZyRichLabel::ForeColor, &TZyRichLabel::SetForeColor>("ForeColor")
                 .StoredIf<&TZyRichLabel::HasOwnForeColor>(),
             Published<&TZyRichLabel::TextAlign, &TZyRichLabel::SetTextAlign>("TextAlign",
                                                                              TZyContentAlignment::TopLeft))

TZyRichLabel::TZyRichLabel(TComponent* Owner)
    : TCustomLabel(Owner), FCaptionRec([this] {
        FLabelFont.FontChanged();
        Invalidate();
      }) {
  Font().SetFillColor(ColorToARGB("ControlText"));
  Font().OnNeedsResize = [this] {
    FLabelFont.FontChanged();
    FitBounds();
    Invalidate();
  };
  FCaptionRec.OnVariablesChanged = [this] {
    FitBounds();
    Invalidate();
  };
  SetParentFont(true);
}

TZyRichLabel::~TZyRichLabel() { Destroying(); }

void TZyRichLabel::SetCaption(const TZyRichCaption& Value) {
  const TZyRichCaption Trimmed = TrimRight(Value);
  if (Trimmed == Caption()) return;
  FCaptionRec.SetCaption(Trimmed);
  FCaptionOfName.WasSet();
  Invalidate();
  AdjustBounds();
}

void TZyRichLabel::SetName(const std::string& Value) {
  TCustomLabel::SetName(Value);
  FCaptionOfName.Follow(*this, Value);
}

void TZyRichLabel::SetAngle(float Value) {
  const auto Fitted = static_cast<float>(FitTo360Degrees(static_cast<double>(Value)));
  if (Fitted == Angle()) return;
  FCaptionRec.Angle = Fitted;
  FitBounds();
  Invalidate();
}

void TZyRichLabel::SetTextAlign(TZyContentAlignment Value) {
  if (Value == TextAlign()) return;
  FCaptionRec.Alignment = Value;
  FitBounds();
  Invalidate();
}

void TZyRichLabel::SetBackColor(TZyColor Value) {
  if (Value == FBackColor) return;
  FBackColor = Value;
  Invalidate();
}

void TZyRichLabel::SetForeColor(TZyColor Value) {
  Font().SetColor(ARGBToTColor(Value));
  Invalidate();
}

bool TZyRichLabel::HasOwnForeColor() const { return ForeColor() != ColorToARGB("ControlText"); }

void TZyRichLabel::ParentFontChanged() {
  TCustomLabel::ParentFontChanged();
  FLabelFont.Take();
}

// --- Place ----------------------------------------------------------------------------------------------------------

void TZyRichLabel::Resize() {
  TCustomLabel::Resize();
  FitBounds();
  Invalidate();
}

void TZyRichLabel::AdjustSize() { FitBounds(); }

void TZyRichLabel::AdjustBounds() {
  if (Parent() == nullptr || FOnce) return;
  FCaptionRec.ParseForSize();
  FitBounds();
}

/// The bounds that are set here come back as a new size.
void TZyRichLabel::FitBounds() {
  if (FFitting || Parent() == nullptr || FOnce) return;
  FCaptionRec.ParseIfNeeded();
  if (AutoSize() && !IsLoading()) {
    const double Turn = static_cast<double>(Angle()) * std::numbers::pi / 180;
    const double Sine = std::fabs(std::sin(Turn)), Cosine = std::fabs(std::cos(Turn));
    const auto Long = static_cast<double>(FCaptionRec.Width()), High = static_cast<double>(FCaptionRec.Height());
    FFitting = true;
    SetBounds(Left(), Top(), static_cast<int>(std::lround(Cosine * Long + Sine * High)),
              static_cast<int>(std::lround(Cosine * High + Sine * Long)));
    FFitting = false;
  }
  PlaceCaption();
}

/// Puts the anchor where the box around the turned caption lies in the label as TextAlign says.
void TZyRichLabel::PlaceCaption() {
  Matrix Turn;
  Turn.Rotate(-Angle());
  const int Row = static_cast<int>(TextAlign()) / 3, Column = static_cast<int>(TextAlign()) % 3;
  const float Left = -FCaptionRec.Width() * static_cast<float>(Column) / 2;
  const float Top = -FCaptionRec.Height() * static_cast<float>(Row) / 2;
  const float Right = Left + FCaptionRec.Width(), Bottom = Top + FCaptionRec.Height();
  float MinX = 0, MaxX = 0, MinY = 0, MaxY = 0;  // the anchor itself is a point of the box
  for (const PointF Corner : {PointF{Left, Top}, {Right, Top}, {Left, Bottom}, {Right, Bottom}}) {
    const PointF Turned = Turn.TransformPoint(Corner);
    MinX = std::min(MinX, Turned.X);
    MaxX = std::max(MaxX, Turned.X);
    MinY = std::min(MinY, Turned.Y);
    MaxY = std::max(MaxY, Turned.Y);
  }
  FXOffs = -MinX + (static_cast<float>(Width()) - MaxX + MinX) * static_cast<float>(Column) / 2;
  FYOffs = -MinY + (static_cast<float>(Height()) - MaxY + MinY) * static_cast<float>(Row) / 2;
}

// --- Painting -------------------------------------------------------------------------------------------------------

void TZyRichLabel::PaintGr(Graphics& Gr) {
  if (FOnce) {
    FOnce = false;
    FitBounds();
  }
  if (GetAlpha(FBackColor) > 0)
    Gr.FillRectangle(SolidBrush(FBackColor), 0, 0, static_cast<float>(Width()), static_cast<float>(Height()));
  FCaptionRec.X = FXOffs;
  FCaptionRec.Y = FYOffs;
  FCaptionRec.PaintGr(Gr);
}

}  // namespace zy
