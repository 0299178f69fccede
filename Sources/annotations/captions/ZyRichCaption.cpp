#include "annotations/captions/ZyRichCaption.h"

#include <cmath>

#include "analysis/ZyParseFktCaptions.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/Graphics.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {

TZyRichCaption TrimRight(const TZyRichCaption& Text) {
  std::size_t Length = Text.size();
  while (Length > 0 && static_cast<unsigned char>(Text[Length - 1]) <= ' ') --Length;
  return Text.substr(0, Length);
}

TZyRichCaptionObject::TZyRichCaptionObject(ModifiedCallback NeedsInvalidate)
    : mNeedsInvalidate(std::move(NeedsInvalidate)), FFont([this] { DoFontInvalidate(); }) {}

void TZyRichCaptionObject::SetCaption(const TZyRichCaption& Value) {
  FNeedsParse = true;
  FCaption = Value;
}

void TZyRichCaptionObject::SetColorOverride(TZyColor Value) {
  if (FColorOverride == Value) return;
  FColorOverride = Value;
  TakeColor();
}

/// A new colour needs no new layout.
void TZyRichCaptionObject::DoFontInvalidate() {
  TakeColor();
  if (mNeedsInvalidate) mNeedsInvalidate();
}

void TZyRichCaptionObject::TakeColor() {
  if (SubCaptions().empty()) return;
  auto Own = std::make_shared<TZyCaptionLayout>(*FLayout);  // other captions may share the present one
  const TZyColor First = Own->SubCaptions.front().Color;
  for (TZySubCaption& Run : Own->SubCaptions) {
    if (Run.Color == First) Run.Color = FillColor();
    Run.DrawEffects = FFont.DrawEffects();
  }
  FLayout = std::move(Own);
}

TZyCaptionLook TZyRichCaptionObject::Look() const {
  const auto Column = static_cast<TZyCaptionColumn>(static_cast<int>(Alignment) % 3);
  return {FFont.Name(), FFont.Size(), FFont.Style(), Column, FillColor(), FFont.DrawEffects()};
}

void TZyRichCaptionObject::ParseForSize() {
  if (FCaption.empty()) return;
  const bool HasVariables = FCaption.find("<%") != std::string::npos;
  FLayout = HasVariables ? CaptionLayoutOf(ParseVariables(FCaption, this), Look()) : CaptionLayoutOf(FCaption, Look());
  FNeedsParse = false;
}

void TZyRichCaptionObject::ParseIfNeeded() {
  if (FCaption.empty()) return;
  if (FNeedsParse) try {
      return ParseForSize();
    } catch (const std::exception&) {
      if (FLayout == nullptr) FLayout = CaptionLayoutOf(CaptionVerbatim(FCaption), Look());
    }
  if (!FLayout->Look().HasShapeOf(Look())) FLayout = CaptionLayoutOf(std::string(FLayout->Text), Look());
}

void TZyRichCaptionObject::VariablesChanged() {
  const auto Before = FLayout;
  try {
    ParseForSize();
  } catch (const std::exception&) {
    return;
  }
  if (FLayout == Before || !OnVariablesChanged) return;
  // A long text is laid out apart each time.
  const bool IsSame = Before != nullptr && FLayout->Text == Before->Text && FLayout->Look() == Before->Look();
  if (!IsSame) OnVariablesChanged();
}

const std::string& TZyRichCaptionObject::PlainText() const {
  static const std::string Nothing;
  if (FLayout == nullptr) return Nothing;
  return FLayout->PlainText;
}

std::span<const TZySubCaption> TZyRichCaptionObject::SubCaptions() const {
  if (FLayout == nullptr) return {};
  return FLayout->SubCaptions;
}

std::span<const float> TZyRichCaptionObject::LineWidths() const {
  if (FLayout == nullptr) return {};
  return FLayout->LineWidths;
}

void TZyRichCaptionObject::PaintGr(Graphics& Gr) {
  if (FCaption.empty() || !std::isfinite(X) || !std::isfinite(Y) || !std::isfinite(Angle)) return;
  if (FLayout == nullptr) ParseIfNeeded();
  const Matrix Saved = Gr.GetTransform();
  Matrix Transform = Saved;
  Transform.RotateAt(-Angle, {X, Y});
  const int Row = static_cast<int>(Alignment) / 3, Column = static_cast<int>(Alignment) % 3;
  Transform.Translate(X - Width() * static_cast<float>(Column) / 2, Y - Height() * static_cast<float>(Row) / 2);
  Gr.SetTransform(Transform);
  Gr.SetTextRenderingHint(static_cast<TextRenderingHint>(FFont.RenderingHint()));
  SolidBrush Plain(FillColor());
  const TZyGradientSettings& Gradient = FFont.Gradient();
  const auto Shaded = Gradient.Visible() ? Gradient.GetBrush(RectF{0, 0, Width(), Height()}, 0) : nullptr;
  for (const TZySubCaption& Run : SubCaptions()) Run.PaintGr(Gr, Shaded != nullptr ? *Shaded : Plain);
  Gr.SetTransform(Saved);
}

// --- TZyRichCaptionObjects ------------------------------------------------------------------------------------------

namespace {

[[noreturn]] void ThrowOutOfRange(int i) { throw ERangeError(Format(LoadResString(_sVectorIdxOutOfRange), {i})); }

}  // namespace

int TZyRichCaptionObjects::Count() const { return static_cast<int>(size()); }

void TZyRichCaptionObjects::SetCount(int Value) { resize(static_cast<std::size_t>(Value < 0 ? 0 : Value)); }

void TZyRichCaptionObjects::Clear() { clear(); }

int TZyRichCaptionObjects::Add(std::unique_ptr<TZyRichCaptionObject> Value) {
  push_back(std::move(Value));
  return Count();
}

TZyRichCaptionObject* TZyRichCaptionObjects::GetValue(int i) const {
  if (i < 0 || i >= Count()) ThrowOutOfRange(i);
  return (*this)[static_cast<std::size_t>(i)].get();
}

void TZyRichCaptionObjects::SetValue(int i, std::unique_ptr<TZyRichCaptionObject> Value) {
  if (i < 0) ThrowOutOfRange(i);
  if (i >= Count()) SetCount(i + 1);
  (*this)[static_cast<std::size_t>(i)] = std::move(Value);
}

void TZyRichCaptionObjects::Delete(int i) {
  if (i >= 0 && i < Count()) erase(begin() + i);
}

}  // namespace zy
