#include "annotations/captions/ZyCaptionLayout.h"

#include <algorithm>

#include "annotations/captions/ZyCaptionMarkup.h"
#include "graph/values/ZyColors.h"
#include "platform/drawing/StringFormat.h"

namespace zy {
namespace {

constexpr const char* FallbackFamily = "Arial";
constexpr float ScriptSize = 0.66f;        // of the font's size
constexpr float SubscriptDrop = 0.33f;     // of the line's height
constexpr float SuperscriptLift = 0.025f;  // of the line's height
constexpr float ScriptGap = 0.1f;          // pixels for each point of a run's size, where a script begins or ends

/// Goes through a text and places its runs.
class TTypesetter {
 public:
  TTypesetter(TZyCaptionLayout& Layout, const TZyCaptionLook& Look)
      : FLayout(Layout), FLook(Look), FFontName(Look.FontName), FStyle(Look.FontStyle), FColor(Look.Color) {
    const TZyCaptionFace Base = Face();
    FLineHeight = Base.LineHeight;
    FBearings = 2 * StringFormat::GenericDefault().Padding() * Base.Face.GetSize() * Font::PixelsPerPoint;
  }

  void Place(std::string_view Text);

  // What the markup asks for.
  void Append(std::string_view Text) { FRun.append(Text); }
  void BeginRun() { Flush(); }
  void BreakLine();
  void Toggle(TFontStyle Style);
  void ToggleSuperscript() { ToggleScript(FIsSuperscript); }
  void ToggleSubscript() { ToggleScript(FIsSubscript); }
  void SetColor(std::string_view Argument);
  void SetFamily(std::string_view Argument);

 private:
  TZyCaptionFace Face();
  void Flush();
  void ToggleScript(bool& IsOn);
  void ApplyStyle();

  TZyCaptionLayout& FLayout;
  const TZyCaptionLook& FLook;
  float FLineHeight, FBearings;
  std::string FRun;  // text of the run that waits to be placed
  std::string FFontName;
  TFontStyles FStyle;
  TZyColor FColor;
  float FSize = FLook.FontSize;
  bool FIsSuperscript = false, FIsSubscript = false;
  bool FEntersScript = false, FLeavesScript = false;  // between the last run and the next one
  PointF FPen;
  int FLine = 0;
};

void TTypesetter::Place(std::string_view Text) {
  ReadCaptionMarkup(Text, *this);
  Flush();
  FLayout.Height = static_cast<float>(FLine + 1) * FLineHeight;
}

/// The face of the present state. A missing family is another one from then on.
TZyCaptionFace TTypesetter::Face() {
  TZyCaptionFace Wanted = CaptionFaceOf(FFontName, FSize, FStyle);
  if (Wanted.IsAvailable || FFontName == FallbackFamily) return Wanted;
  FFontName = FallbackFamily;
  return CaptionFaceOf(FFontName, FSize, FStyle);
}

void TTypesetter::Flush() {
  if (FRun.empty()) return;
  TZySubCaption& Run = FLayout.SubCaptions.emplace_back(Face().Face);
  Run.Caption = std::move(FRun);
  FRun.clear();
  FLayout.PlainText += Run.Caption;
  Run.DrawEffects = FLook.DrawEffects;
  Run.Color = FColor;
  Run.LineIndex = FLine;
  Run.Position = FPen;
  float Width = Run.GetWidth();
  const float Gap = ScriptGap * FSize;
  const float Shift = (FEntersScript ? Gap : 0) - (FLeavesScript ? Gap : 0);
  Run.Position.X += Shift;
  Width += Shift;
  FEntersScript = FLeavesScript = false;
  FPen.X += Width;
  const float End = FPen.X + FBearings;
  FLayout.Width = std::max(FLayout.Width, End);
  FLayout.LineWidths.resize(static_cast<std::size_t>(FLine) + 1);
  FLayout.LineWidths.back() = End;
}

/// What is raised or lowered stays so.
void TTypesetter::BreakLine() {
  ++FLine;
  FPen.X = 0;
  FPen.Y += FLineHeight;
}

void TTypesetter::Toggle(TFontStyle Style) {
  if (FStyle.Contains(Style)) {
    FStyle.Exclude(Style);
  } else {
    FStyle.Include(Style);
  }
  ApplyStyle();
}

void TTypesetter::ToggleScript(bool& IsOn) {
  (IsOn ? FLeavesScript : FEntersScript) = true;
  IsOn = !IsOn;
  ApplyStyle();
}

void TTypesetter::ApplyStyle() {
  FSize = FLook.FontSize * (FIsSuperscript || FIsSubscript ? ScriptSize : 1);
  FPen.Y = static_cast<float>(FLine) * FLineHeight;
  if (FIsSuperscript) {
    FPen.Y -= SuperscriptLift * FLineHeight;
  } else if (FIsSubscript) {
    FPen.Y += SubscriptDrop * FLineHeight;
  }
}

void TTypesetter::SetColor(std::string_view Argument) {
  FColor = Argument.empty() ? FLook.Color : RichIDToTZyColor(Argument);
  ApplyStyle();
}

void TTypesetter::SetFamily(std::string_view Argument) {
  FFontName = Argument.empty() ? FLook.FontName : Argument;
  ApplyStyle();
}

}  // namespace

TZyCaptionLayout::TZyCaptionLayout(std::string_view CaptionText, const TZyCaptionLook& CaptionLook)
    : Text(CaptionText), FFontName(CaptionLook.FontName), FLook(CaptionLook) {
  FLook.FontName = {};
  const TZyCaptionLook Wanted = Look();
  TTypesetter(*this, Wanted).Place(CaptionWithReturns(Text));
  AlignLines();
}

TZyCaptionLook TZyCaptionLayout::Look() const {
  TZyCaptionLook Result = FLook;
  Result.FontName = FFontName;
  return Result;
}

void TZyCaptionLayout::AlignLines() {
  if (SubCaptions.size() < 2) return;
  const float Part = static_cast<float>(FLook.Column) / 2;
  for (TZySubCaption& Run : SubCaptions)
    Run.Position.X += (Width - LineWidths[static_cast<std::size_t>(Run.LineIndex)]) * Part;
}

std::string CaptionVerbatim(std::string_view Text) {
  std::string Result;
  for (std::size_t i = 0; i < Text.size(); ++i) {
    Result += Text[i];
    if (Text[i] == '\\' && (i == 0 || Text[i - 1] != '\\')) Result += '\\';
  }
  return Result;
}

}  // namespace zy
