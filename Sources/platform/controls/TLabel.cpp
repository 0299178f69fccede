#include "platform/controls/TLabel.h"

#include <QCoreApplication>
#include <algorithm>
#include <cmath>
#include <string_view>

#include "platform/drawing/Brush.h"
#include "platform/drawing/Graphics.h"
#include "platform/framework/TPropInfo.h"

namespace zy {
namespace {

constexpr ARGB DisabledColor = 0xFF808080;

}  // namespace

ZY_PUBLISHED(TCustomLabel, TGraphicControl)

TCustomLabel::TCustomLabel(TComponent* Owner) : TGraphicControl(Owner) {
  TCustomLabel::SetBounds(0, 0, 65, 17);
  TCustomLabel::SetAutoSize(true);
}

TCustomLabel::~TCustomLabel() { Destroying(); }

void TCustomLabel::SetCaption(const std::string& Value) {
  if (Value == FCaption) return;
  FCaption = Value;
  TextChanged();
}

void TCustomLabel::SetAlignment(TAlignment Value) {
  if (Value == FAlignment) return;
  FAlignment = Value;
  Invalidate();
}

void TCustomLabel::SetLayout(TTextLayout Value) {
  if (Value == FLayout) return;
  FLayout = Value;
  Invalidate();
}

void TCustomLabel::SetTransparent(bool Value) {
  if (Value == FTransparent) return;
  FTransparent = Value;
  Invalidate();
}

void TCustomLabel::SetColor(ARGB Value) {
  if (Value == FColor) return;
  FColor = Value;
  Invalidate();
}

void TCustomLabel::TextChanged() {
  Invalidate();
  if (AutoSize()) AdjustSize();
}

void TCustomLabel::AdjustSize() {
  if (IsLoading() || FCaption.empty() || QCoreApplication::instance() == nullptr) return;
  const SizeF Extent = ControlFont().ToFont().MeasureString(FCaption);
  const int NewWidth = static_cast<int>(std::ceil(Extent.Width));
  const int NewHeight = static_cast<int>(std::ceil(Extent.Height));
  int Shift = Width() - NewWidth;
  if (FAlignment == TAlignment::taLeftJustify) Shift = 0;
  if (FAlignment == TAlignment::taCenter) Shift /= 2;
  SetBounds(Left() + Shift, Top(), NewWidth, NewHeight);
}

void TCustomLabel::Paint(Graphics& Canvas) {
  const auto BoxWidth = static_cast<float>(Width());
  const auto BoxHeight = static_cast<float>(Height());
  if (!FTransparent) Canvas.FillRectangle(SolidBrush(FColor), 0, 0, BoxWidth, BoxHeight);
  const Font Face = ControlFont().ToFont();
  const SolidBrush Ink(Enabled() ? ControlFont().Color() : DisabledColor);
  float Y = (BoxHeight - Canvas.MeasureString(FCaption, Face).Height) * 0.5f * static_cast<float>(FLayout);
  std::string_view Rest = FCaption;
  while (!Rest.empty()) {
    const std::string_view Line = Rest.substr(0, Rest.find('\n'));
    Rest.remove_prefix(std::min(Line.size() + 1, Rest.size()));
    float X = 0;
    if (FAlignment != TAlignment::taLeftJustify) X = BoxWidth - Canvas.MeasureString(Line, Face).Width;
    if (FAlignment == TAlignment::taCenter) X /= 2;
    Canvas.DrawString(Line, Face, Ink, X, Y);
    Y += Face.GetHeight();
  }
}

ZY_PUBLISHED(TLabel, TCustomLabel, Published<&TLabel::Caption, &TLabel::SetCaption>("Caption", std::string()),
             Published<&TLabel::Alignment, &TLabel::SetAlignment>("Alignment", TAlignment::taLeftJustify),
             Published<&TLabel::Layout, &TLabel::SetLayout>("Layout", tlTop),
             Published<&TLabel::AutoSize, &TLabel::SetAutoSize>("AutoSize", true),
             Published<&TLabel::Transparent, &TLabel::SetTransparent>("Transparent", true),
             Published<&TLabel::Color, &TLabel::SetColor>("Color", 0xFFFFFFFF),
             Published<&TLabel::ParentFont, &TLabel::SetParentFont>("ParentFont", true),
             Published<&TLabel::ControlFont, &TLabel::SetControlFont>("Font").StoredIf<&TLabel::HasOwnFont>())

TLabel::TLabel(TComponent* Owner) : TCustomLabel(Owner) {}

TLabel::~TLabel() { Destroying(); }

}  // namespace zy
