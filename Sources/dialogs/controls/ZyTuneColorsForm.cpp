#include "dialogs/controls/ZyTuneColorsForm.h"

#include <algorithm>
#include <cmath>

#include "dialogs/controls/ZyColorSquare.h"
#include "dialogs/controls/ZyDialogParts.h"
#include "platform/controls/TApplication.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/Graphics.h"
#include "platform/drawing/Pen.h"
#include "platform/framework/ScopedFlag.h"
#include "platform/framework/TPropInfo.h"

namespace zy {

ZY_PUBLISHED(TZyTuneColorsForm, TPopupForm)

namespace {

constexpr int Tall = TZyHueSquare::Extent, StripWidth = 15, MostHue = 360, MostAlpha = 255;
constexpr int SampleWidth = 96, SampleHeight = 48, ButtonExtent = 14;

int ToInt(double Value) { return static_cast<int>(std::lround(Value)); }

}  // namespace

TZyTuneColorsForm& TuneColorsForm() { return SharedForm<TZyTuneColorsForm>(); }

TZyTuneColorsForm::TZyTuneColorsForm(TComponent* Owner) : TPopupForm(Owner) {
  SetCaption(LoadResString(_sTuneColors));
  SetShowHint(true);
  MakePictures();
  MakeEdits();
  MakeButtons();
  TakeMainFont(*this, 12);
  FHistory.ReadFromRegistry();
  UpdateBtnColors();
  SetActiveColor(Colors::Red);
}

TZyTuneColorsForm::~TZyTuneColorsForm() { Destroying(); }

// --- Controls -------------------------------------------------------------------------------------------------------

TPanel* TZyTuneColorsForm::AddPicture(const char* PartName, int PartWidth, int PartHeight, TZyText PartHint,
                                      TPaintEvent Paint, const std::function<void(int X, int Y)>& Drag) {
  auto* const Picture = AddPart<TPanel>(*this, *this, PartName, PartHint);
  Picture->SetBounds(0, 0, PartWidth, PartHeight);
  Picture->SetOnPaint(std::move(Paint));
  if (!Drag) return Picture;
  Picture->SetOnMouseDown([Drag](TObject*, TMouseButton Button, TShiftState, int X, int Y) {
    if (Button == mbLeft) Drag(X, Y);
  });
  Picture->SetOnMouseMove([Drag](TObject*, TShiftState Shift, int X, int Y) {
    if (Shift.Contains(ssLeft)) Drag(X, Y);
  });
  return Picture;
}

void TZyTuneColorsForm::MakePictures() {
  FCircle = AddPicture(
      "HueStrip", StripWidth, Tall, _sTuneHueStripHint, [this](TObject*, Graphics& Canvas) { DrawCircleBmp(Canvas); },
      [this](int, int Y) { HEdit->SetValue(std::round(std::clamp(Y, 0, Tall) * double(MostHue) / Tall)); });
  SBGradient = AddPicture(
      "SBGradient", Tall, Tall, _sTuneSquareHint, [this](TObject*, Graphics& Canvas) { DrawGradientBmp(Canvas); },
      [this](int X, int Y) {
        if (std::min(X, Y) >= 0 && std::max(X, Y) < Tall) TakeFromSquare(X, Y);
      });
  FAlpha = AddPicture(
      "AlphaStrip", StripWidth, Tall, _sTuneAlphaStripHint,
      [this](TObject*, Graphics& Canvas) { DrawAlphaBmp(Canvas); },
      [this](int, int Y) {
        if (!FEnableAlpha) return;
        AlphaEdit->SetValue(std::round((Tall - std::clamp(Y, 0, Tall)) * double(MostAlpha) / Tall));
      });
  FSample = AddPicture(
      "Sample", SampleWidth, SampleHeight, _sTuneSampleHint,
      [this](TObject*, Graphics& Canvas) { DrawSampleBmp(Canvas); }, nullptr);
}

TZyNumericUpDn* TZyTuneColorsForm::AddEdit(const char* PartName, TZyText Text, TZyText PartHint, double Max,
                                           std::function<void(double)> Take) {
  auto* const Edit = AddPart<TZyNumericUpDn>(*this, *this, PartName, PartHint);
  Edit->SetMaxValue(Max);
  AddLabel(*this, *Edit, Text);
  Edit->SetOnValueChanged([this, Edit, Take = std::move(Take)](TObject*) {
    if (!FSetting) Take(Edit->Value());
  });
  return Edit;
}

TTrackBar* TZyTuneColorsForm::AddTrack(const char* PartName, int Max, TZyText PartHint) {
  auto* const Track = AddPart<TTrackBar>(*this, *this, PartName, PartHint);
  Track->SetOrientation(trVertical);
  Track->SetParams(0, 0, Max);
  Track->SetPageSize(Max / 10);
  return Track;
}

void TZyTuneColorsForm::MakeEdits() {
  const auto Part = [this](float TZyTunedColor::*Field, double Scale) {
    return [this, Field, Scale](double Value) {
      FCurrent.*Field = static_cast<float>(Value / Scale);
      UpdateHSL();
    };
  };
  const auto Channel = [this](unsigned TZyTunedColor::*Field) {
    return [this, Field](double Value) {
      FCurrent.*Field = static_cast<unsigned>(Value);
      UpdateRGB();
    };
  };
  constexpr double Percent = 100, Byte = 255;
  HEdit = AddEdit("HEdit", _sTuneHue, _sTuneHueHint, MostHue, Part(&TZyTunedColor::Hue, 1));
  SEdit = AddEdit("SEdit", _sTuneSaturation, _sTuneSaturationHint, Percent, Part(&TZyTunedColor::Saturation, Percent));
  LEdit = AddEdit("LEdit", _sTuneLuminance, _sTuneLuminanceHint, Percent, Part(&TZyTunedColor::Luminance, Percent));
  REdit = AddEdit("REdit", _sTuneRed, _sTuneRedHint, Byte, Channel(&TZyTunedColor::R));
  GEdit = AddEdit("GEdit", _sTuneGreen, _sTuneGreenHint, Byte, Channel(&TZyTunedColor::G));
  BEdit = AddEdit("BEdit", _sTuneBlue, _sTuneBlueHint, Byte, Channel(&TZyTunedColor::B));
  AlphaEdit = AddEdit("AlphaEdit", _sTuneAlpha, _sTuneAlphaHint, MostAlpha, [this](double Value) {
    FCurrent.Alpha = static_cast<unsigned>(Value);
    const TScopedValue Setting(FSetting, true);
    ShowColor();
  });
  HueTrack = AddTrack("HueTrack", MostHue, _sTuneHueTrackHint);
  HueTrack->SetOnChange([this](TObject*) { HEdit->SetValue(HueTrack->Position()); });
  AlphaTrack = AddTrack("AlphaTrack", MostAlpha, _sTuneAlphaTrackHint);
  AlphaTrack->SetOnChange([this](TObject*) { AlphaEdit->SetValue(MostAlpha - AlphaTrack->Position()); });
}

void TZyTuneColorsForm::MakeButtons() {
  PreviousColorsBar = AddPart<TPanel>(*this, *this, "PreviousColorsBar", _sTunePreviousHint);
  for (int Index = 0; Index < TZyColorHistory::Count; ++Index) {
    auto* const Button = new TToolButton(this);
    Button->SetAlign(alNone);  // the bar has two rows
    Button->SetGroupIndex(1);
    Button->SetAllowAllUp(true);
    Button->SetTabStop(true);
    Button->SetParent(PreviousColorsBar);
    Button->SetOnClick([this, Index](TObject*) { SetActiveColor(FHistory.Color(Index)); });
    FPrevious[static_cast<std::size_t>(Index)] = Button;
  }
  OKBtn = AddPart<TButton>(*this, *this, "OKBtn");
  OKBtn->SetCaption(LoadResString(_sOk));
  OKBtn->SetDefault(true);
  OKBtn->SetOnClick([this](TObject*) { OKBtnClick(); });
  CancelBtn = AddPart<TButton>(*this, *this, "CancelBtn");
  CancelBtn->SetCaption(LoadResString(_sCancel));
  CancelBtn->SetCancel(true);
  CancelBtn->SetOnClick([this](TObject*) {
    FFromShowSet = nullptr;
    FromShow ? Close() : SetModalResult(mrCancel);
  });
}

// --- The colour -----------------------------------------------------------------------------------------------------

void TZyTuneColorsForm::UpdateRGB() {
  FCurrent.UpdateRGB();
  ShowSpaces();
}

void TZyTuneColorsForm::UpdateHSL() {
  FCurrent.UpdateHSL();
  ShowSpaces();
}

/// Brings the colour to all controls but the one that it comes from, which has it already.
void TZyTuneColorsForm::ShowSpaces() {
  const TScopedValue Setting(FSetting, true);
  const auto Carry = [](TZyNumericUpDn& Edit, double Value) {
    if (Edit.Value() != Value) Edit.SetValue(Value);
  };
  const int Hue = ToInt(static_cast<double>(FCurrent.Hue));
  Carry(*HEdit, Hue);
  Carry(*SEdit, ToInt(static_cast<double>(FCurrent.Saturation) * 100));
  Carry(*LEdit, ToInt(static_cast<double>(FCurrent.Luminance) * 100));
  Carry(*REdit, FCurrent.R);
  Carry(*GEdit, FCurrent.G);
  Carry(*BEdit, FCurrent.B);
  Carry(*AlphaEdit, FCurrent.Alpha);
  HueTrack->SetPosition(Hue);
  FMark = {-1, -1};
  SBGradient->Invalidate();
  ShowColor();
}

/// Runs with FSetting.
void TZyTuneColorsForm::ShowColor() {
  AlphaTrack->SetPosition(MostAlpha - static_cast<int>(FCurrent.Alpha));
  FAlpha->Invalidate();
  FSample->Invalidate();
}

void TZyTuneColorsForm::SetActiveColor(TZyColor Value) {
  FActiveColor = Value;
  FCurrent.SetColor(Value);
  if (!FEnableAlpha) FCurrent.Alpha = MostAlpha;
  ShowSpaces();
  FindBtnPushed();
}

void TZyTuneColorsForm::SetEnableAlpha(bool Value) {
  FEnableAlpha = Value;
  AlphaEdit->SetEnabled(Value);
  AlphaTrack->SetEnabled(Value);
  FAlpha->SetEnabled(Value);
  if (!Value) AlphaEdit->SetValue(MostAlpha);
}

const TZyHueSquare& TZyTuneColorsForm::Square() {
  if (FSquare == nullptr || FSquare->Hue() != FCurrent.Hue) FSquare = std::make_unique<TZyHueSquare>(FCurrent.Hue);
  return *FSquare;
}

void TZyTuneColorsForm::TakeFromSquare(int X, int Y) {
  const float Hue = FCurrent.Hue;
  const TZyColor Picked = Square().ColorAt(X, Y);
  FCurrent.SetColor(ColorToARGB(FCurrent.Alpha, GetR(Picked), GetG(Picked), GetB(Picked)));
  if (FCurrent.Saturation == 0) FCurrent.Hue = Hue;  // a gray has none, and the square stays what it was
  ShowSpaces();
  FMark = {X, Y};
}

// --- Pictures -------------------------------------------------------------------------------------------------------

void TZyTuneColorsForm::DrawCircleBmp(Graphics& Canvas) const {
  constexpr int Stops = 10;
  std::array<ARGB, Stops> Hues;
  std::array<float, Stops> Places;
  for (std::size_t Index = 0; Index < Stops; ++Index) {
    Hues[Index] = HSLToColor(static_cast<double>(Index) / (Stops - 1), 1, 0.5);
    Places[Index] = static_cast<float>(Index) / (Stops - 1);
  }
  LinearGradientBrush Shades(RectF{0, 0, StripWidth, Tall}, Colors::Red, Colors::Red, LinearGradientModeVertical);
  Shades.SetInterpolationColors(Hues, Places);
  Canvas.FillRectangle(Shades, 0, 0, StripWidth, Tall);
}

void TZyTuneColorsForm::DrawGradientBmp(Graphics& Canvas) {
  const TZyHueSquare& Shades = Square();
  if (FMark.X < 0) FMark = Shades.PlaceOf(FCurrent.Saturation, FCurrent.Luminance);
  Canvas.DrawImage(Shades.Picture(), 0, 0);
  constexpr int Half = 3, NearWhite = 50;
  const TZyColor Line = FMark.X < NearWhite && FMark.Y < NearWhite ? Colors::Black : Colors::White;
  Canvas.DrawRectangle(Pen(Line, 2), static_cast<float>(FMark.X - Half), static_cast<float>(FMark.Y - Half), 2 * Half,
                       2 * Half);
}

void TZyTuneColorsForm::DrawAlphaBmp(Graphics& Canvas) const {
  constexpr RectF Box{0, 0, StripWidth, Tall};
  DrawChequer(Canvas, Box, 5);
  const TZyColor Clear = FCurrent.Opaque() & 0x00FFFFFFu;
  Canvas.FillRectangle(LinearGradientBrush(Box, FCurrent.Opaque(), Clear, LinearGradientModeVertical), Box);
}

void TZyTuneColorsForm::DrawSampleBmp(Graphics& Canvas) const {
  constexpr int HalfWidth = SampleWidth / 2;
  constexpr float Half = HalfWidth, Cell = 12;
  DrawChequer(Canvas, {0, 0, SampleWidth, SampleHeight}, Cell);
  Canvas.FillRectangle(SolidBrush(FActiveColor), 0, 0, Half, SampleHeight);
  Canvas.FillRectangle(SolidBrush(CurrentColor()), Half, 0, Half, SampleHeight);
}

// --- History --------------------------------------------------------------------------------------------------------

void TZyTuneColorsForm::UpdateBtnColors() {
  for (int Index = 0; Index < TZyColorHistory::Count; ++Index) {
    TToolButton& Button = *FPrevious[static_cast<std::size_t>(Index)];
    const TZyColor Color = FHistory.Color(Index);
    Button.SetGlyph(
        [Color](Graphics& Canvas, float Size) {
          DrawColorSquare(Canvas, {0, 0, Size, Size}, Color);
        },
        ButtonExtent);
    Button.SetHint(ARGBToString(Color, false));
  }
}

void TZyTuneColorsForm::FindBtnPushed() {
  for (int Index = 0; Index < TZyColorHistory::Count; ++Index)
    FPrevious[static_cast<std::size_t>(Index)]->SetDown(FHistory.Color(Index) == FActiveColor);
}

void TZyTuneColorsForm::OKBtnClick() {
  FActiveColor = CurrentColor();
  FHistory.Use(FActiveColor);
  UpdateBtnColors();
  FindBtnPushed();
  if (!FromShow) return SetModalResult(mrOk);
  const TZySetColor Callback = std::exchange(FFromShowSet, nullptr);
  const TZyColor Made = FActiveColor;
  Close();
  if (Callback) Callback(Made);
}

// --- Showing --------------------------------------------------------------------------------------------------------

void TZyTuneColorsForm::Show(TWinControl& Below, const TFocusMark& Focus, TZySetColor Callback) {
  FFocusControl.TakeFrom(Focus);
  DropDown(Below);
  FromShow = true;
  FFromShowSet = std::move(Callback);
}

bool TZyTuneColorsForm::Execute() {
  SetVisible(false);
  FromShow = false;
  FFromShowSet = nullptr;
  BecomeDialog();
  return ShowModal() == mrOk;
}

void TZyTuneColorsForm::CMVisibleChanged() {
  Inherited::CMVisibleChanged();
  if (Visible() || IsDestroying()) return;
  FromShow = false;
  try {
    FHistory.WriteToRegistry();
  } catch (const std::exception& Error) {
    TApplication::HandleException(Error);  // the colour goes its way all the same
  }
  FFocusControl.GiveBack();
}

}  // namespace zy
