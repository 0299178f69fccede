#include "dialogs/frames/ZyObjectItems.h"

#include <QFontInfo>
#include <QWidget>

#include "annotations/captions/ZyRichCaption.h"
#include "axes/ZyAxis.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/Graphics.h"
#include "platform/framework/SystemColors.h"
#include "platform/framework/TPropInfo.h"
#include "series/ZySeries.h"

namespace zy {

ZY_PUBLISHED(TZyObjectCombo, TComboBox)
ZY_PUBLISHED(TZyObjectListBox, TListBox)

namespace {

/// What a reader of the chart knows an axis or a series by; anything else by the text of its item.
std::string ShownName(const TComponent* Object, const std::string& Text) {
  if (const auto* const Axis = dynamic_cast<const TZyAxis*>(Object)) return Axis->ToString();
  if (const auto* const Series = dynamic_cast<const TZySeries*>(Object)) return Series->ToString();
  return Text;
}

/// Draws an item that stands for an object, or has a text of its own.
void DrawObject(Graphics& Canvas, TWinControl& Control, const TComponent* Object, const std::string& Text,
                const TRect& Box, ARGB Color) {
  constexpr int Inset = 3;
  DrawItemCaption(Canvas, Control, ShownName(Object, Text), Box.Left + Inset, Box, Color);
}

}  // namespace

std::string PlainName(const TComponent& Object, const std::string& Text) {
  TZyRichCaptionObject Caption;
  Caption.SetCaption(ShownName(&Object, Text));
  Caption.ParseIfNeeded();
  return Caption.PlainText();
}

ARGB DrawItemBack(Graphics& Canvas, const TRect& Box, bool IsMarked) {
  constexpr int Window = 5, WindowText = 8, Highlight = 13, HighlightText = 14;  // numbers of the desktop's colours
  const RectF Ground{static_cast<float>(Box.Left), static_cast<float>(Box.Top),
                     static_cast<float>(Box.Right - Box.Left), static_cast<float>(Box.Bottom - Box.Top)};
  Canvas.FillRectangle(SolidBrush(SystemColor(IsMarked ? Highlight : Window)), Ground);
  return SystemColor(IsMarked ? HighlightText : WindowText);
}

void DrawItemCaption(Graphics& Canvas, TWinControl& Control, const std::string& Text, int X, const TRect& Box,
                     ARGB Color) {
  const QFontInfo Face(Control.Widget()->font());
  TZyRichCaptionObject Caption;
  Caption.CaptionFont().SetName(Face.family().toStdString());
  Caption.CaptionFont().SetSize(static_cast<float>(Face.pointSizeF()));
  Caption.CaptionFont().SetFillColor(Color);
  Caption.SetCaption(Text);
  Caption.Alignment = TZyContentAlignment::MiddleLeft;
  Caption.X = static_cast<float>(X);
  Caption.Y = static_cast<float>(Box.Top + Box.Bottom) / 2;
  Caption.ParseIfNeeded();
  Caption.PaintGr(Canvas);
}

TZyObjectCombo::TZyObjectCombo(TComponent* Owner) : TZyObjectItems(Owner) { SetStyle(csOwnerDrawFixed); }

TZyObjectCombo::~TZyObjectCombo() { Destroying(); }

void TZyObjectCombo::DrawItem(Graphics& Canvas, int Index, const TRect& Box, TOwnerDrawState State) {
  const bool IsClosed = State.Contains(odComboBoxEdit);
  constexpr int ButtonText = 18;
  const ARGB Color = IsClosed ? SystemColor(ButtonText) : DrawItemBack(Canvas, Box, State.Contains(odSelected));
  if (Index >= 0 && Index < Items().Count()) DrawObject(Canvas, *this, ObjectAt(Index), Items().Get(Index), Box, Color);
}

TZyObjectListBox::TZyObjectListBox(TComponent* Owner) : TZyObjectItems(Owner) { SetStyle(lbOwnerDrawFixed); }

TZyObjectListBox::~TZyObjectListBox() { Destroying(); }

void TZyObjectListBox::DrawItem(Graphics& Canvas, int Index, const TRect& Box, TOwnerDrawState State) {
  const ARGB Color = DrawItemBack(Canvas, Box, State.Contains(odSelected));
  if (Index >= 0 && Index < Items().Count()) DrawObject(Canvas, *this, ObjectAt(Index), Items().Get(Index), Box, Color);
}

}  // namespace zy
