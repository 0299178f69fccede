#pragma once

#include <array>
#include <functional>
#include <memory>

#include "dialogs/controls/ZyColorHistory.h"
#include "dialogs/controls/ZyNumericUpDn.h"
#include "dialogs/controls/ZyTunedColor.h"
#include "platform/controls/TButtonControl.h"
#include "platform/controls/TPanel.h"
#include "platform/controls/TPopupForm.h"
#include "platform/controls/TSpeedButton.h"
#include "platform/controls/TTrackBar.h"

namespace zy {

using TZySetColor = std::function<void(TZyColor Color)>;

/// The form in which the user mixes a colour: by hue, saturation and brightness, by red, green and blue, by opacity,
/// and from the history of what was made before. Sliders, strips, square and edits all show the one colour.
///
/// There is one for the whole program, made by whoever needs it first (TuneColorsForm).
class TZyTuneColorsForm : public TPopupForm {
  ZY_CLASS(TZyTuneColorsForm, TPopupForm)
  explicit TZyTuneColorsForm(TComponent* Owner = nullptr);
  ~TZyTuneColorsForm() override;

  /// The colour that the form was given, and after OK the one that was made.
  TZyColor ActiveColor() const { return FActiveColor; }
  /// Without EnableAlpha the colour comes in as an opaque one.
  void SetActiveColor(TZyColor Value);
  /// Whether the opacity can be changed.
  bool EnableAlpha() const { return FEnableAlpha; }
  void SetEnableAlpha(bool Value);
  /// The colour being made.
  TZyColor CurrentColor() const { return FCurrent.Color(); }
  const TZyColorHistory& PreviousColors() const { return FHistory; }

  /// Drops the form down below a control. OK gives the colour to Callback; the keyboard goes back to Focus.
  void Show(TWinControl& Below, const TFocusMark& Focus, TZySetColor Callback);
  /// Shows the form in the middle of the screen until the user is done; whether that was with OK.
  bool Execute();

 protected:
  void ArrangeWidgets() override;
  void CMVisibleChanged() override;

 private:
  void MakeEdits();
  void MakePictures();
  void MakeButtons();
  TZyNumericUpDn* AddEdit(const char* Name, TZyText Label, TZyText Hint, double Max, std::function<void(double)> Take);
  TPanel* AddPicture(const char* Name, int Width, int Height, TZyText Hint, TPaintEvent Paint,
                     const std::function<void(int X, int Y)>& Drag);
  TTrackBar* AddTrack(const char* Name, int Max, TZyText Hint);
  void UpdateRGB();
  void UpdateHSL();
  void ShowSpaces();
  void ShowColor();
  void TakeFromSquare(int X, int Y);
  void DrawCircleBmp(Graphics& Canvas) const;
  void DrawGradientBmp(Graphics& Canvas);
  void DrawAlphaBmp(Graphics& Canvas) const;
  void DrawSampleBmp(Graphics& Canvas) const;
  void UpdateBtnColors();
  void FindBtnPushed();
  void OKBtnClick();
  const TZyHueSquare& Square();

  TZyTunedColor FCurrent;
  TZyColor FActiveColor = Colors::Red;
  TZyColorHistory FHistory;
  TPoint FMark{-1, -1};  // in the square; -1 until it is looked for
  bool FSetting = false;
  bool FromShow = false;
  bool FEnableAlpha = true;
  TZySetColor FFromShowSet;
  TFocusMark FFocusControl;
  std::unique_ptr<TZyHueSquare> FSquare;

  TZyNumericUpDn *HEdit = nullptr, *SEdit = nullptr, *LEdit = nullptr, *REdit = nullptr, *GEdit = nullptr,
                 *BEdit = nullptr, *AlphaEdit = nullptr;
  TTrackBar *HueTrack = nullptr, *AlphaTrack = nullptr;
  TPanel *FCircle = nullptr, *SBGradient = nullptr, *FAlpha = nullptr, *FSample = nullptr, *PreviousColorsBar = nullptr;
  std::array<TToolButton*, TZyColorHistory::Count> FPrevious{};
  TButton *OKBtn = nullptr, *CancelBtn = nullptr;
};

/// The form of the program.
TZyTuneColorsForm& TuneColorsForm();

}  // namespace zy
