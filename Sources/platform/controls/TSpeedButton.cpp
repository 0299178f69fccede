#include "platform/controls/TSpeedButton.h"

#include <QIcon>
#include <QIconEngine>
#include <QMouseEvent>
#include <QPainter>
#include <QToolButton>

#include "platform/controls/TPopupMenu.h"
#include "platform/drawing/Graphics.h"
#include "platform/framework/TPropInfo.h"

namespace zy {

ZY_PUBLISHED(TSpeedButton, TButtonControl,
             Published<&TSpeedButton::GroupIndex, &TSpeedButton::SetGroupIndex>("GroupIndex", 0),
             Published<&TSpeedButton::AllowAllUp, &TSpeedButton::SetAllowAllUp>("AllowAllUp", false),
             Published<&TSpeedButton::Down, &TSpeedButton::SetDown>("Down", false),
             Published<&TSpeedButton::Flat, &TSpeedButton::SetFlat>("Flat", false),
             Published<&TSpeedButton::DropDownMenu, &TSpeedButton::SetDropDownMenu>("DropDownMenu"),
             Published<&TSpeedButton::TabStop, &TSpeedButton::SetTabStop>("TabStop", false))
ZY_PUBLISHED(TToolButton, TSpeedButton, Published<&TToolButton::Flat, &TToolButton::SetFlat>("Flat", true),
             Published<&TToolButton::Align, &TToolButton::SetAlign>("Align", alLeft))

namespace {

/// Draws a glyph at the pixels of whatever screen it is for.
class TGlyphEngine : public QIconEngine {
 public:
  explicit TGlyphEngine(TGlyphPainter Painter) : FPainter(std::move(Painter)) {}
  void paint(QPainter* Target, const QRect& Box, QIcon::Mode Mode, QIcon::State) override {
    Target->save();
    Target->translate(Box.topLeft());
    if (Mode == QIcon::Disabled) Target->setOpacity(0.4);
    Graphics Canvas(*Target);
    FPainter(Canvas, static_cast<float>(std::min(Box.width(), Box.height())));
    Target->restore();
  }
  QPixmap pixmap(const QSize& Size, QIcon::Mode Mode, QIcon::State State) override {
    return scaledPixmap(Size, Mode, State, 1);
  }
  QPixmap scaledPixmap(const QSize& Size, QIcon::Mode Mode, QIcon::State State, qreal Scale) override {
    QPixmap Result(Size);
    Result.fill(Qt::transparent);
    QPainter Target(&Result);
    Target.scale(Scale, Scale);
    paint(&Target, QRect(QPoint(), Size / Scale), Mode, State);
    return Result;
  }
  QIconEngine* clone() const override { return new TGlyphEngine(*this); }

 private:
  TGlyphPainter FPainter;
};

}  // namespace

TSpeedButton::TSpeedButton(TComponent* Owner) : TButtonControl(Owner) {
  TSpeedButton::SetBounds(0, 0, 23, 22);
  SetTabStop(false);
}

TSpeedButton::~TSpeedButton() { Destroying(); }

QAbstractButton* TSpeedButton::Make() { return new QToolButton; }

void TSpeedButton::Configure(QAbstractButton& Box) {
  Box.setCheckable(FGroupIndex != 0);
  TButtonControl::Configure(Box);
  auto& Tool = static_cast<QToolButton&>(Box);
  Tool.setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  Tool.setAutoRaise(FFlat);
  ShowGlyph(Box);
  ShowMenu(Box);
}

void TSpeedButton::SetGroupIndex(int Value) {
  if (Value == FGroupIndex) return;
  FGroupIndex = Value;
  With([this](QAbstractButton& Box) { Box.setCheckable(FGroupIndex != 0); });
  if (FGroupIndex == 0) SetIsChecked(false);
}

void TSpeedButton::SetDown(bool Value) {
  if (FGroupIndex != 0 && (Value || FAllowAllUp || IsLoading())) SetIsChecked(Value);
}

void TSpeedButton::SetFlat(bool Value) {
  FFlat = Value;
  With([Value](QAbstractButton& Box) { static_cast<QToolButton&>(Box).setAutoRaise(Value); });
}

void TSpeedButton::SetDropDownMenu(TPopupMenu* Value) {
  FDropDownMenu = Value;
  if (!IsDestroying()) With([this](QAbstractButton& Box) { ShowMenu(Box); });
}

void TSpeedButton::SetGlyph(TGlyphPainter Painter, int Size) {
  FGlyph = std::move(Painter);
  FGlyphSize = Size;
  With([this](QAbstractButton& Box) { ShowGlyph(Box); });
}

void TSpeedButton::ShowGlyph(QAbstractButton& Box) {
  Box.setIcon(FGlyph ? QIcon(new TGlyphEngine(FGlyph)) : QIcon());
  if (FGlyph) Box.setIconSize(QSize(FGlyphSize, FGlyphSize));
  static_cast<QToolButton&>(Box).setToolButtonStyle(Caption().empty() ? Qt::ToolButtonIconOnly
                                                                      : Qt::ToolButtonTextBesideIcon);
}

/// The toolkit's arrow, with the menu of ours behind it.
void TSpeedButton::ShowMenu(QAbstractButton& Box) {
  auto& Tool = static_cast<QToolButton&>(Box);
  Tool.setPopupMode(FDropDownMenu == nullptr ? QToolButton::DelayedPopup : QToolButton::MenuButtonPopup);
}

/// A press on the arrow opens the menu below the button; the rest of the button stays a button.
bool TSpeedButton::WidgetEvent(QEvent& Event) {
  if (Event.type() == QEvent::MouseButtonPress && FDropDownMenu != nullptr && Enabled()) {
    const auto& Press = static_cast<QMouseEvent&>(Event);
    constexpr int ArrowWidth = 16;
    const bool IsOnArrow =
        Widget()->isRightToLeft() ? Press.position().x() < ArrowWidth : Press.position().x() >= Width() - ArrowWidth;
    if (IsOnArrow && Press.button() == Qt::LeftButton) {
      const TPoint Below = ClientToScreen({0, Height()});
      FDropDownMenu->Popup(Below.X, Below.Y);
      return true;
    }
  }
  return TButtonControl::WidgetEvent(Event);
}

void TSpeedButton::BeforeClick() {
  if (FGroupIndex != 0) SetIsChecked(!IsChecked() || !FAllowAllUp);
}

void TSpeedButton::CMChanged() {
  TButtonControl::CMChanged();
  if (!Down() || Parent() == nullptr || IsLoading()) return;
  for (TControl* Other : std::vector(Parent()->Controls()))
    if (auto* const Button = dynamic_cast<TSpeedButton*>(Other);
        Button != nullptr && Button != this && Button->FGroupIndex == FGroupIndex)
      Button->SetIsChecked(false);
}

TToolButton::TToolButton(TComponent* Owner) : TSpeedButton(Owner) {
  SetFlat(true);
  SetAlign(alLeft);
}

TToolButton::~TToolButton() { Destroying(); }

}  // namespace zy
