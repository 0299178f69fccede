#include "platform/controls/TLabel.h"

#include <QCoreApplication>
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string_view>

#include "platform/drawing/Brush.h"
#include "platform/drawing/Graphics.h"
#include "platform/framework/TPropInfo.h"

namespace zy {
namespace {

constexpr ARGB DisabledColor = 0xFF808080;

/// How much of a line's beginning stands in Width: up to a space, but at least a word.
std::size_t FittingPart(std::string_view Line, const Font& Face, float Width) {
  std::size_t Fits = std::string_view::npos;
  const std::size_t Begin = std::min(Line.find_first_not_of(' '), Line.size());
  for (std::size_t Space = Line.find(' ', Begin); Space != std::string_view::npos; Space = Line.find(' ', Space + 1)) {
    if (Fits != std::string_view::npos && Face.MeasureString(Line.substr(0, Space)).Width > Width) return Fits;
    Fits = Space;
  }
  return Face.MeasureString(Line).Width > Width ? std::min(Fits, Line.size()) : Line.size();
}

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

void TCustomLabel::SetWordWrap(bool Value) {
  if (Value == FWordWrap) return;
  FWordWrap = Value;
  TextChanged();
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

void TCustomLabel::Resize() {
  Inherited::Resize();
  if (FWordWrap && AutoSize()) AdjustSize();
}

void TCustomLabel::AdjustSize() {
  if (IsLoading() || FCaption.empty() || QCoreApplication::instance() == nullptr) return;
  const Font Face = ControlFont().ToFont();
  if (FWordWrap) {
    const auto Rows = static_cast<float>(Lines(Face).size());
    SetBounds(Left(), Top(), Width(), static_cast<int>(std::ceil(Rows * Face.GetHeight())));
    return;
  }
  const SizeF Extent = Face.MeasureString(FCaption);
  const int NewWidth = static_cast<int>(std::ceil(Extent.Width));
  const int NewHeight = static_cast<int>(std::ceil(Extent.Height));
  int Shift = Width() - NewWidth;
  if (FAlignment == TAlignment::taLeftJustify) Shift = 0;
  if (FAlignment == TAlignment::taCenter) Shift /= 2;
  SetBounds(Left() + Shift, Top(), NewWidth, NewHeight);
}

/// The lines as they are drawn: parts of the caption.
std::vector<std::string_view> TCustomLabel::Lines(const Font& Face) const {
  std::vector<std::string_view> Result;
  std::string_view Rest = FCaption;
  while (!Rest.empty()) {
    std::string_view Line = Rest.substr(0, Rest.find('\n'));
    Rest.remove_prefix(std::min(Line.size() + 1, Rest.size()));
    do {
      const std::size_t Part = FWordWrap ? FittingPart(Line, Face, static_cast<float>(Width())) : Line.size();
      Result.push_back(Line.substr(0, Part));
      Line.remove_prefix(std::min(Line.find_first_not_of(' ', Part), Line.size()));
    } while (!Line.empty());
  }
  return Result;
}

void TCustomLabel::Paint(Graphics& Canvas) {
  const auto BoxWidth = static_cast<float>(Width());
  const auto BoxHeight = static_cast<float>(Height());
  if (!FTransparent) Canvas.FillRectangle(SolidBrush(FColor), 0, 0, BoxWidth, BoxHeight);
  const Font Face = ControlFont().ToFont();
  const SolidBrush Ink(Enabled() ? ControlFont().Color() : DisabledColor);
  const std::vector<std::string_view> Rows = Lines(Face);
  float Y = (BoxHeight - static_cast<float>(Rows.size()) * Face.GetHeight()) * 0.5f * static_cast<float>(FLayout);
  for (const std::string_view Line : Rows) {
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
             Published<&TLabel::WordWrap, &TLabel::SetWordWrap>("WordWrap", false),
             Published<&TLabel::Transparent, &TLabel::SetTransparent>("Transparent", true),
             Published<&TLabel::Color, &TLabel::SetColor>("Color", 0xFFFFFFFF), Republished("ParentFont Font"))

TLabel::TLabel(TComponent* Owner) : TCustomLabel(Owner) {}

TLabel::~TLabel() { Destroying(); }

}  // namespace zy
