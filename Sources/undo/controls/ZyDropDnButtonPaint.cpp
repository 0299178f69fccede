#include <QApplication>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionToolButton>
#include <QWidget>
#include <algorithm>
#include <cmath>

#include "platform/controls/TWinControl.h"
#include "platform/controls/ToolBarLook.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/Graphics.h"
#include "platform/drawing/Pen.h"
#include "platform/framework/ScopedFlag.h"
#include "platform/framework/SystemColors.h"
#include "platform/framework/TStream.h"
#include "undo/controls/ZyDropDnButton.h"

namespace zy {
namespace {

constexpr int OwnGlyphSize = 16;

// Numbers of the desktop's colours.
constexpr int Highlight = 13, ButtonFace = 15, ButtonShadow = 16, GrayText = 17, ButtonText = 18, ButtonHighlight = 20;

RectF ToRectF(const TRect& Box) {
  return {static_cast<float>(Box.Left), static_cast<float>(Box.Top), static_cast<float>(Box.Width()),
          static_cast<float>(Box.Height())};
}

/// The colour between two, nearer to the second the larger Part is.
ARGB Between(ARGB First, ARGB Second, float Part) {
  ARGB Result = 0;
  for (const int Shift : {0, 8, 16, 24}) {
    const auto From = static_cast<float>(First >> Shift & 0xFFu), To = static_cast<float>(Second >> Shift & 0xFFu);
    Result |= static_cast<ARGB>(std::lround(From + (To - From) * Part)) << Shift;
  }
  return Result;
}

Bitmap PartOf(const TBitmap& Strip, int Index, int Width) {
  Bitmap Result(Width, Strip.Height());
  Graphics Canvas(Result);
  Strip.Draw(Canvas, static_cast<float>(-Index * Width), 0);
  return Result;
}

/// A picture in shades of the colour of disabled texts.
Bitmap Grayed(const Bitmap& Picture) {
  Bitmap Result = Picture.Clone();
  const ARGB Gray = SystemColor(GrayText), Face = SystemColor(ButtonFace);
  QImage& Image = Result.ToQt();
  for (int Y = 0; Y < Image.height(); ++Y)
    for (int X = 0; X < Image.width(); ++X) {
      const QColor Color = Image.pixelColor(X, Y);
      QColor Shade = QColor::fromRgba(Between(Gray, Face, static_cast<float>(qGray(Color.rgb())) / 255));
      Shade.setAlpha(Color.alpha());
      Image.setPixelColor(X, Y, Shade);
    }
  return Result;
}

}  // namespace

void TZyDropDnButton::GetBtnGlypImages() {
  for (auto* const Image : {&FUpImage, &FDisabledImage, &FClickedImage, &FDownImage}) Image->reset();
  Invalidate();
  const int Each = FGlyph.Width() / FNumGlyphs;
  if (Each == 0) return;
  TBitmap Strip;
  Strip.Assign(&FGlyph);
  Strip.SetTransparent(true);
  const auto Take = [&](int Index) {
    return std::make_unique<Bitmap>(PartOf(Strip, Index < FNumGlyphs ? Index : 0, Each));
  };
  FUpImage = Take(0);
  FDisabledImage = FNumGlyphs > 1 ? Take(1) : std::make_unique<Bitmap>(Grayed(*FUpImage));
  FClickedImage = Take(2);
  FDownImage = Take(3);
}

const Bitmap* TZyDropDnButton::ImageOf(TZyButtonState State) const {
  switch (State) {
    case TZyButtonState::Disabled:
      return FDisabledImage.get();
    case TZyButtonState::Down:
      return FDownImage.get();
    case TZyButtonState::Exclusive:
      return FClickedImage.get();
    default:
      return FUpImage.get();
  }
}

void TZyDropDnButton::PaintOwnGlyph(Graphics&, ARGB) const {}

/// The pictures for up and disabled, on the white that is transparent.
void TZyDropDnButton::TakeOwnGlyph() {
  Bitmap Strip(2 * OwnGlyphSize, OwnGlyphSize);
  {
    Graphics Canvas(Strip);
    Canvas.Clear(0xFFFFFFFF);
    Canvas.SetSmoothingMode(SmoothingModeAntiAlias);
    PaintOwnGlyph(Canvas, SystemColor(ButtonText));
    Canvas.TranslateTransform(OwnGlyphSize, 0);
    PaintOwnGlyph(Canvas, SystemColor(GrayText));
  }
  TMemoryStream Stream;
  Strip.Save(Stream, "BMP");
  Stream.SetPosition(0);
  FNumGlyphs = 2;
  {
    const TScopedValue Taking(FTakingOwn, true);
    FGlyph.LoadFromStream(Stream);
  }
  FGlyphIsOwn = true;
}

void TZyDropDnButton::GlyphChanged() {
  FGlyphIsOwn = false;
  if (FGlyph.Empty() && HasOwnGlyph() && !FTakingOwn) return TakeOwnGlyph();
  GetBtnGlypImages();
}

/// Black is the colour of a font that was never set: the desktop's then, also a dark one's.
ARGB TZyDropDnButton::TextColor() const {
  constexpr ARGB Unset = 0xFF000000;
  if (!Enabled()) return SystemColor(GrayText);
  const ARGB Own = const_cast<TZyDropDnButton*>(this)->ControlFont().Color();
  return Own == Unset ? SystemColor(ButtonText) : Own;
}

/// The tool bar that the button lies in, directly or in a part of it.
struct TZyDropDnButton::TBar {
  const IToolBarLook* Look = nullptr;
  float Top = 0, Height = 0;  // of the bar, from the button's top

  bool HasGradient() const { return Look != nullptr && Look->HasGradient(); }
};

TZyDropDnButton::TBar TZyDropDnButton::BarAbove() const {
  TBar Result;
  int FromTop = Top();
  for (const TWinControl* Outer = Parent(); Outer != nullptr && Result.Look == nullptr; Outer = Outer->Parent()) {
    Result = {dynamic_cast<const IToolBarLook*>(Outer), static_cast<float>(-FromTop),
              static_cast<float>(Outer->Height())};
    FromTop += Outer->Top();
  }
  return Result;
}

void TZyDropDnButton::TakeLook() {
  const TBar Bar = BarAbove();
  if (Bar.Look == nullptr) return;
  FFlat = Bar.Look->Flat();
  FTransparent = Bar.Look->Transparent();
}

void TZyDropDnButton::SettleStates() {
  const auto Settle = [this](TZyButtonState& State, bool Down) {
    if (!Enabled()) State = TZyButtonState::Disabled;
    if (Enabled() && State == TZyButtonState::Disabled) State = Down ? TZyButtonState::Exclusive : TZyButtonState::Up;
  };
  Settle(FLeftState, FLeftDown);
  Settle(FRightState, FRightDown);
}

void TZyDropDnButton::Paint(Graphics& Canvas) {
  TakeLook();
  SettleStates();
  PaintGround(Canvas);
  PaintHalf(Canvas, {0, 0, Width() - ArrowWidth, Height()}, FLeftState);
  PaintHalf(Canvas, {Width() - ArrowWidth, 0, Width(), Height()}, FRightState);
  PaintFace(Canvas);
  PaintArrow(Canvas);
}

/// Where the ground is that of the parent, it is there already.
void TZyDropDnButton::PaintGround(Graphics& Canvas) const {
  const TBar Bar = BarAbove();
  const RectF Box = ToRectF(ClientRect());
  if (Bar.HasGradient()) {
    const LinearGradientBrush Ground({0, Bar.Top}, {0, Bar.Top + Bar.Height}, Bar.Look->GradientStartColor(),
                                     Bar.Look->GradientEndColor());
    Canvas.FillRectangle(Ground, Box);
  } else if (Bar.Look == nullptr && !FTransparent) {
    Canvas.FillRectangle(SolidBrush(SystemColor(ButtonFace)), Box);
  }
}

void TZyDropDnButton::PaintHalf(Graphics& Canvas, const TRect& Box, TZyButtonState State) const {
  const bool IsHot = (FMouseInControl || FDroppedDn) && Enabled();
  const bool IsSunken = State == TZyButtonState::Down || State == TZyButtonState::Exclusive;
  const bool IsRaised = !FFlat || IsHot;
  if (IsRaised || IsSunken) {
    const RectF Area = ToRectF(Box);
    if (!PaintGradient(Canvas, Area, IsSunken, IsHot) && !PaintThemed(Canvas, Box, State, IsHot))
      PaintClassic(Canvas, Area, IsSunken, IsRaised);
  }
  if (State != TZyButtonState::Exclusive || (IsHot && FFlat)) return;
  const HatchBrush Dither(HatchStyle50Percent, SystemColor(ButtonHighlight), SystemColor(ButtonFace));
  Canvas.FillRectangle(Dither, ToRectF({Box.Left + 2, Box.Top + 2, Box.Right - 2, Box.Bottom - 2}));
}

bool TZyDropDnButton::PaintGradient(Graphics& Canvas, const RectF& Box, bool IsSunken, bool IsHot) const {
  const TBar Bar = BarAbove();
  if (!Bar.HasGradient()) return false;
  const ARGB Mark = SystemColor(Highlight);
  const float Strength = IsSunken ? 0.6f : IsHot ? 0.35f : 0;
  ARGB Top = Between(Bar.Look->GradientStartColor(), Mark, Strength);
  ARGB Bottom = Between(Bar.Look->GradientEndColor(), Mark, Strength);
  if (IsSunken) std::swap(Top, Bottom);
  Canvas.FillRectangle(LinearGradientBrush({0, Box.Y}, {0, Box.Y + Box.Height}, Top, Bottom), Box);
  Canvas.SetSmoothingMode(SmoothingModeNone);
  Canvas.DrawRectangle(Pen(IsHot || IsSunken ? Mark : SystemColor(ButtonShadow), 1), Box.X, Box.Y, Box.Width - 1,
                       Box.Height - 1);
  return true;
}

/// The toolkit's own look of a button in a tool bar; a recording, and a program without the toolkit, have none.
bool TZyDropDnButton::PaintThemed(Graphics& Canvas, const TRect& Box, TZyButtonState State, bool IsHot) const {
  if (qobject_cast<QApplication*>(QCoreApplication::instance()) == nullptr) return false;
  QPainter* const Painter = Canvas.GetHDC();
  if (Painter == nullptr) return false;
  QWidget* const Window = Parent() != nullptr && Parent()->HasWidget() ? Parent()->Widget() : nullptr;
  QStyleOptionToolButton Option;
  if (Window != nullptr) Option.initFrom(Window);
  Option.rect = QRect(Box.Left, Box.Top, Box.Width(), Box.Height());
  Option.state = QStyle::State_None;
  if (Window != nullptr && Window->isActiveWindow()) Option.state |= QStyle::State_Active;
  if (Enabled()) Option.state |= QStyle::State_Enabled;
  if (FFlat) Option.state |= QStyle::State_AutoRaise;
  if (IsHot) Option.state |= QStyle::State_MouseOver;
  if (State == TZyButtonState::Down) Option.state |= QStyle::State_Sunken;
  if (State == TZyButtonState::Exclusive) Option.state |= QStyle::State_On;
  if (State == TZyButtonState::Up && (IsHot || !FFlat)) Option.state |= QStyle::State_Raised;
  QStyle* const Style = Window != nullptr ? Window->style() : QApplication::style();
  Style->drawPrimitive(QStyle::PE_PanelButtonTool, &Option, Painter, Window);
  Canvas.ReleaseHDC();
  return true;
}

void TZyDropDnButton::PaintClassic(Graphics& Canvas, const RectF& Box, bool IsSunken, bool IsRaised) const {
  if (!FFlat) Canvas.FillRectangle(SolidBrush(SystemColor(ButtonFace)), Box);
  if (!IsSunken && !IsRaised) return;
  const Pen Light(SystemColor(ButtonHighlight), 1), Dark(SystemColor(ButtonShadow), 1);
  const float Right = Box.X + Box.Width - 1, Bottom = Box.Y + Box.Height - 1;
  Canvas.SetSmoothingMode(SmoothingModeNone);
  for (const bool IsUpper : {true, false}) {
    const Pen& Line = IsUpper == IsSunken ? Dark : Light;
    const float X = IsUpper ? Box.X : Right, Y = IsUpper ? Box.Y : Bottom;
    Canvas.DrawLine(Line, Box.X, Y, Right, Y);
    Canvas.DrawLine(Line, X, Box.Y, X, Bottom);
  }
}

/// Places of picture and caption on the left half.
struct TZyDropDnButton::TFace {
  SizeF Glyph, Text;
  PointF GlyphAt, TextAt;
};

TZyDropDnButton::TFace TZyDropDnButton::FaceOf() const {
  TFace Face;
  if (FUpImage != nullptr)
    Face.Glyph = {static_cast<float>(FUpImage->GetWidth()), static_cast<float>(FUpImage->GetHeight())};
  if (!FCaption.empty() && QCoreApplication::instance() != nullptr)
    Face.Text = const_cast<TZyDropDnButton*>(this)->ControlFont().ToFont().MeasureString(FCaption);
  const bool IsRow = FLayout == TZyButtonLayout::GlyphLeft || FLayout == TZyButtonLayout::GlyphRight;
  const bool GlyphFirst = FLayout == TZyButtonLayout::GlyphLeft || FLayout == TZyButtonLayout::GlyphTop;
  const auto Room = SizeF{static_cast<float>(Width() - ArrowWidth), static_cast<float>(Height())};
  const float Gap = FCaption.empty() || FUpImage == nullptr ? 0 : static_cast<float>(FSpacing);
  const auto Along = [IsRow](const SizeF& Size) { return IsRow ? Size.Width : Size.Height; };
  const auto Across = [IsRow](const SizeF& Size) { return IsRow ? Size.Height : Size.Width; };
  const float Total = Along(Face.Glyph) + Gap + Along(Face.Text);
  float Start = (Along(Room) - Total) / 2;
  if (FMargin >= 0)  // from the side at which the picture stands
    Start = GlyphFirst ? static_cast<float>(FMargin) : Along(Room) - static_cast<float>(FMargin) - Total;
  const auto Place = [&](float From, const SizeF& Size) {
    const float Side = std::floor((Across(Room) - Across(Size)) / 2);
    return IsRow ? PointF{std::floor(From), Side} : PointF{Side, std::floor(From)};
  };
  const SizeF& First = GlyphFirst ? Face.Glyph : Face.Text;
  Face.GlyphAt = Place(GlyphFirst ? Start : Start + Along(First) + Gap, Face.Glyph);
  Face.TextAt = Place(GlyphFirst ? Start + Along(First) + Gap : Start, Face.Text);
  return Face;
}

void TZyDropDnButton::PaintFace(Graphics& Canvas) {
  const TFace Face = FaceOf();
  const bool IsDown = FLeftState == TZyButtonState::Down || FLeftState == TZyButtonState::Exclusive;
  const float Shift = IsDown ? 1 : 0;
  const Matrix Before = Canvas.GetTransform();
  Canvas.TranslateTransform(Face.GlyphAt.X + Shift, Face.GlyphAt.Y + Shift);
  if (FGlyphIsOwn) {
    Canvas.SetSmoothingMode(SmoothingModeAntiAlias);
    PaintOwnGlyph(Canvas, TextColor());
  } else if (const Bitmap* const Image = ImageOf(FLeftState)) {
    Canvas.DrawImage(*Image, 0, 0);
  }
  Canvas.SetTransform(Before);
  if (!FCaption.empty())
    Canvas.DrawString(FCaption, ControlFont().ToFont(), SolidBrush(TextColor()), Face.TextAt.X + Shift,
                      Face.TextAt.Y + Shift);
}

void TZyDropDnButton::PaintArrow(Graphics& Canvas) const {
  const bool IsDown = FRightState == TZyButtonState::Down || FRightState == TZyButtonState::Exclusive;
  const float Shift = IsDown ? 1 : 0;
  const int Middle = Height() / 2;
  const float X = static_cast<float>(Width() - 9) + Shift, Y = static_cast<float>(Middle - 2) + Shift;
  Canvas.SetSmoothingMode(SmoothingModeNone);
  const SolidBrush Fill(TextColor());
  for (int Row = 0; Row < 3; ++Row)
    Canvas.FillRectangle(Fill, X + static_cast<float>(Row), Y + static_cast<float>(Row),
                         static_cast<float>(5 - 2 * Row), 1);
}

}  // namespace zy
