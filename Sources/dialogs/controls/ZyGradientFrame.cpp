#include "dialogs/controls/ZyGradientFrame.h"

#include <cmath>

#include "dialogs/controls/ZyDialogParts.h"
#include "graph/styles/ZyGradientBrushes.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/Graphics.h"
#include "platform/framework/ScopedFlag.h"
#include "platform/framework/TPropInfo.h"
#include "undo/ZyUndoGroup.h"

namespace zy {

ZY_PUBLISHED(TZyGradientFrame, TFrame,
             Published<&TZyGradientFrame::Gradient, &TZyGradientFrame::SetGradient>("Gradient").NotStored(),
             Published<&TZyGradientFrame::OnChanged, &TZyGradientFrame::SetOnChanged>("OnChanged"))

namespace {

constexpr int SampleWidth = 160, LinearHeight = 40, RadialHeight = 120;

/// The pixel of a panel for a part of its extent, and back.
double ToPixel(float Part, int Extent) { return std::round(static_cast<double>(Part) * (Extent - 1)); }
double ToPart(double Pixel, int Extent) { return Pixel / (Extent - 1); }

}  // namespace

TZyGradientFrame::TZyGradientFrame(TComponent* Owner) : TFrame(Owner) {
  SetShowHint(true);
  MakeStyles();
  MakeLinear();
  MakeRadial();
  SetPanels();
}

TZyGradientFrame::~TZyGradientFrame() { Destroying(); }

// --- Controls -------------------------------------------------------------------------------------------------------

void TZyGradientFrame::MakeStyles() {
  const auto Add = [this](const char* PartName, TZyText Text, TZyText PartHint, TZyGradientStyle Style) {
    auto* const Radio = AddPart<TRadioButton>(*this, *this, PartName, PartHint);
    Radio->SetCaption(LoadResString(Text));
    Radio->SetOnClick(
        [this, Style](TObject*) { Write([Style](TZyGradientSettings& Settings) { Settings.SetStyle(Style); }); });
    return Radio;
  };
  LinearRadio = Add("LinearRadio", _sStyleLinear, _sStyleLinearHint, TZyGradientStyle::Linear);
  RadialRadio = Add("RadialRadio", _sStyleRadial, _sStyleRadialHint, TZyGradientStyle::Radial);
  EllipticalRadio = Add("EllipticalRadio", _sStyleElliptical, _sStyleEllipticalHint, TZyGradientStyle::Elliptical);
  LinearRadio->SetChecked(true);
  LinearGradientPanel = AddPart<TPanel>(*this, *this, "LinearGradientPanel");
  RadialGradientPanel = AddPart<TPanel>(*this, *this, "RadialGradientPanel");
  using T = TZyGradientSettings;
  FColors = {TColorPart{&T::FirstColor, &T::SetFirstColor, nullptr, nullptr},
             TColorPart{&T::MiddleColor, &T::SetMiddleColor, nullptr, nullptr},
             TColorPart{&T::LastColor, &T::SetLastColor, nullptr, nullptr}};
  AddColor(0, "LinearFirstColor", _sGradientFirst, _sGradientFirstHint, "RadialFirstColor", _sGradientBorder,
           _sGradientBorderHint);
  AddColor(1, "LinearMiddleColor", _sGradientMiddle, _sGradientMiddleHint, "RadialMiddleColor", _sGradientMiddle,
           _sGradientMiddleHint);
  AddColor(2, "LinearLastColor", _sGradientLast, _sGradientLastHint, "RadialLastColor", _sGradientInner,
           _sGradientInnerHint);
}

void TZyGradientFrame::AddColor(std::size_t Place, const char* LinearName, TZyText LinearLabel, TZyText LinearHint,
                                const char* RadialName, TZyText RadialLabel, TZyText RadialHint) {
  FColors[Place].Linear = AddPick(*LinearGradientPanel, LinearName, LinearLabel, LinearHint, Place);
  FColors[Place].Radial = AddPick(*RadialGradientPanel, RadialName, RadialLabel, RadialHint, Place);
}

TZyColorPickCombo* TZyGradientFrame::AddPick(TPanel& Panel, const char* PartName, TZyText Text, TZyText PartHint,
                                             std::size_t Place) {
  auto* const Pick = AddPart<TZyColorPickCombo>(*this, Panel, PartName, PartHint);
  AddLabel(*this, *Pick, Text);
  Pick->SetOnChanged([this, Pick, Place](TObject*) {
    Write([&](TZyGradientSettings& Settings) { (Settings.*FColors[Place].Set)(Pick->ActiveColor()); });
  });
  return Pick;
}

TZyNumericUpDn* TZyGradientFrame::AddEdit(TPanel& Panel, const char* PartName, TZyText Text, TZyText PartHint,
                                          double Max, double Step, void (TZyGradientSettings::*Set)(float)) {
  auto* const Edit = AddPart<TZyNumericUpDn>(*this, Panel, PartName, PartHint);
  Edit->SetMaxValue(Max);
  Edit->SetIncrement(Step);
  if (Step < 1) Edit->SetDigits(2);
  AddLabel(*this, *Edit, Text);
  Edit->SetOnValueChanged([this, Edit, Set](TObject*) {
    Write([&](TZyGradientSettings& Settings) { (Settings.*Set)(static_cast<float>(Edit->Value())); });
  });
  return Edit;
}

void TZyGradientFrame::MakeLinear() {
  using T = TZyGradientSettings;
  AngleEdit = AddEdit(*LinearGradientPanel, "AngleEdit", _sGradientAngleLabel, _sGradientAngleHint, 360, 45,
                      &T::SetLinearAngle);
  LinearCenterEdit = AddEdit(*LinearGradientPanel, "LinearCenterEdit", _sGradientCenterLabel, _sGradientCenterHint, 1,
                             0.05, &T::SetLinearCenter);
  LinearCenterPanel = AddPart<TPanel>(*this, *LinearGradientPanel, "LinearCenterPanel", _sGradientMarkerHint);
  LinearCenterPanel->SetBounds(0, 0, SampleWidth, LinearHeight);
  LinearCenterPanel->SetTabStop(true);
  LinearCenterPanel->SetOnPaint([this](TObject*, Graphics& Canvas) { PaintSample(Canvas, *LinearCenterPanel); });
  LinearCenterMarker =
      AddPart<TZyVerticalMarker>(*this, *LinearCenterPanel, "LinearCenterMarker", _sGradientMarkerHint);
  LinearCenterMarker->SetOnMarkerMoving([this](TObject*) { MarkerMoving(false); });
  LinearCenterMarker->SetOnMarkerMoved([this](TObject*) { MarkerMoved(false); });
}

void TZyGradientFrame::MakeRadial() {
  using T = TZyGradientSettings;
  RadialCenterX = AddEdit(*RadialGradientPanel, "RadialCenterX", _sGradientCenterXLabel, _sGradientCenterXHint, 1, 0.05,
                          &T::SetRadialCenterX);
  RadialCenterY = AddEdit(*RadialGradientPanel, "RadialCenterY", _sGradientCenterYLabel, _sGradientCenterYHint, 1, 0.05,
                          &T::SetRadialCenterY);
  RadialSamplePanel = AddPart<TPanel>(*this, *RadialGradientPanel, "RadialSamplePanel", _sGradientCrossHint);
  RadialSamplePanel->SetBounds(0, 0, SampleWidth, RadialHeight);
  RadialSamplePanel->SetTabStop(true);
  RadialSamplePanel->SetOnPaint([this](TObject*, Graphics& Canvas) { PaintSample(Canvas, *RadialSamplePanel); });
  RadialCenterMarker = AddPart<TZyCrossHair>(*this, *RadialSamplePanel, "RadialCenterMarker", _sGradientCrossHint);
  RadialCenterMarker->SetOnMarkerMoving([this](TObject*) { MarkerMoving(true); });
  RadialCenterMarker->SetOnMarkerMoved([this](TObject*) { MarkerMoved(true); });
}

// --- The gradient ---------------------------------------------------------------------------------------------------

TZyGradientSettings* TZyGradientFrame::Gradient() const {
  return FGradient == 0 ? nullptr : static_cast<TZyGradientSettings*>(TPersistent::FromLiveHandle(FGradient));
}

void TZyGradientFrame::SetGradient(TZyGradientSettings* Value) {
  FGradient = Value == nullptr ? 0 : Value->LiveHandle();
  ShowAll();
}

/// What a control of the user's does: changes the settings, shows what they made of it, and tells.
template <class F>
void TZyGradientFrame::Write(F Do) {
  TZyGradientSettings* const Settings = Gradient();
  if (!FCanSet) return;
  const std::uint64_t Alive = LiveHandle();
  if (Settings != nullptr) Do(*Settings);
  if (FromLiveHandle(Alive) == nullptr) return;
  ShowAll();
  Changed();
}

void TZyGradientFrame::ShowAll() {
  const TZyGradientSettings* const Settings = Gradient();
  if (Settings == nullptr) return UpdateSamples();
  const TScopedValue Shows(FCanSet, false);
  LinearRadio->SetChecked(Settings->Style() == TZyGradientStyle::Linear);
  RadialRadio->SetChecked(Settings->Style() == TZyGradientStyle::Radial);
  EllipticalRadio->SetChecked(Settings->Style() == TZyGradientStyle::Elliptical);
  for (const TColorPart& Part : FColors) {
    Part.Linear->SetActiveColor((Settings->*Part.Get)());
    Part.Radial->SetActiveColor((Settings->*Part.Get)());
  }
  const auto Carry = [](TZyNumericUpDn& Edit, float Value) {
    const double Shown = std::round(static_cast<double>(Value) * 1e6) / 1e6;  // a single's own digits
    if (static_cast<float>(Edit.Value()) != Value) Edit.SetValue(Shown);
  };
  Carry(*AngleEdit, Settings->LinearAngle());
  Carry(*LinearCenterEdit, Settings->LinearCenter());
  Carry(*RadialCenterX, Settings->RadialCenterX());
  Carry(*RadialCenterY, Settings->RadialCenterY());
  if (!FDragging) {
    LinearCenterMarker->SetX(ToPixel(Settings->LinearCenter(), LinearCenterPanel->Width()));
    RadialCenterMarker->SetX(ToPixel(Settings->RadialCenterX(), RadialSamplePanel->Width()));
    RadialCenterMarker->SetY(ToPixel(Settings->RadialCenterY(), RadialSamplePanel->Height()));
  }
  SetPanels();
}

bool TZyGradientFrame::IsLinear() const { return !RadialRadio->Checked() && !EllipticalRadio->Checked(); }

void TZyGradientFrame::SetPanels() {
  LinearGradientPanel->SetVisible(IsLinear());
  RadialGradientPanel->SetVisible(!IsLinear());
  UpdateSamples();
}

void TZyGradientFrame::UpdateSamples() {
  LinearCenterMarker->Line().SetColor(ContrastForeColorARGB(FColors[1].Linear->ActiveColor()));
  RadialCenterMarker->Line().SetColor(ContrastForeColorARGB(FColors[2].Radial->ActiveColor()));
  (IsLinear() ? LinearCenterPanel : RadialSamplePanel)->Invalidate();
}

void TZyGradientFrame::PaintSample(Graphics& Canvas, const TPanel& Panel) const {
  const RectF Box{0, 0, static_cast<float>(Panel.Width()), static_cast<float>(Panel.Height())};
  const TZyColor First = FColors[0].Linear->ActiveColor(), Middle = FColors[1].Linear->ActiveColor(),
                 Last = FColors[2].Linear->ActiveColor();
  const PointF Center{static_cast<float>(RadialCenterX->Value()), static_cast<float>(RadialCenterY->Value())};
  const auto Fill = [&](const std::unique_ptr<Brush>& Shades) { Canvas.FillRectangle(*Shades, Box); };
  if (IsLinear())
    return Fill(LinearBrush(Box, static_cast<float>(AngleEdit->Value()), static_cast<float>(LinearCenterEdit->Value()),
                            First, Middle, Last));
  if (RadialRadio->Checked()) return Fill(RadialBrush(Box, Center, First, Middle, Last));
  Fill(EllipticalBrush(Box, Center, First, Middle, Last));
}

void TZyGradientFrame::Changed() {
  if (const TNotifyEvent Event = mChanged) Event(this);
}

// --- Dragging -------------------------------------------------------------------------------------------------------

/// The first step of a drag begins it, whether mouse or keys make it: a press alone must leave everything as it was.
void TZyGradientFrame::MarkerMoving(bool IsRadial) {
  if (!FCanSet && !FDragging) return;
  FDragging = true;
  const TScopedValue Shows(FCanSet, false);
  if (IsRadial) {
    RadialCenterX->SetValue(ToPart(RadialCenterMarker->X(), RadialSamplePanel->Width()));
    RadialCenterY->SetValue(ToPart(RadialCenterMarker->Y(), RadialSamplePanel->Height()));
  } else {
    LinearCenterEdit->SetValue(ToPart(LinearCenterMarker->X(), LinearCenterPanel->Width()));
  }
  UpdateSamples();
}

void TZyGradientFrame::MarkerMoved(bool IsRadial) {
  if (!FDragging) return;
  FDragging = false;
  Write([&](TZyGradientSettings& Settings) {
    if (!IsRadial) return Settings.SetLinearCenter(static_cast<float>(LinearCenterEdit->Value()));
    const TZyUndoGroup Group(UndoStack(), _sGradientRadialCenter);
    const auto Y = static_cast<float>(RadialCenterY->Value());
    Settings.SetRadialCenterX(static_cast<float>(RadialCenterX->Value()));
    Settings.SetRadialCenterY(Y);
  });
}

}  // namespace zy
