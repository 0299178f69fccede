#include "annotations/captions/ZyCaptionLayout.h"

#include <algorithm>

#include "graph/values/ZyColors.h"
#include "platform/drawing/StringFormat.h"
#include "texts/Utf8.h"

namespace zy {
namespace {

constexpr const char* FallbackFamily = "Arial";
constexpr float ScriptSize = 0.66f;        // of the font's size
constexpr float SubscriptDrop = 0.33f;     // of the line's height
constexpr float SuperscriptLift = 0.025f;  // of the line's height
constexpr float ScriptGap = 0.1f;          // pixels for each point of a run's size, where a script begins or ends

void ReplaceAll(std::string& Text, std::string_view What, std::string_view By) {
  std::size_t Done = 0;
  std::string Result;
  for (std::size_t At = Text.find(What); At != std::string::npos; At = Text.find(What, Done)) {
    Result.append(Text, Done, At - Done).append(By);
    Done = At + What.size();
  }
  if (Done > 0) Text = Result.append(Text, Done);
}

/// The text with a carriage return for each line end.
std::string WithReturns(std::string_view Text) {
  std::string Result(Text);
  if (Text.find('\n') == std::string_view::npos) return Result;
  for (const char* End : {"\n\r", "\r\n", "\n"}) ReplaceAll(Result, End, "\r");
  return Result;
}

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

 private:
  TZyCaptionFace Face();
  void Flush();
  void BreakLine();
  /// Carries a sequence out that stands at the start of the text, and returns how much of the text it takes.
  std::size_t Obey(std::string_view Text);
  void Toggle(TFontStyle Style);
  void ToggleScript(bool& IsOn);
  std::size_t SetColor(std::string_view Text);
  std::size_t SetFamily(std::string_view Text);
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
  for (;;) {
    const std::size_t At = Text.find_first_of("\\\r");
    FRun.append(Text.substr(0, At));
    if (At == std::string_view::npos) break;
    const bool IsBreak = Text[At] == '\r';
    Text.remove_prefix(At + 1);
    const std::size_t Literals = IsBreak ? 0 : std::min(Text.find_first_not_of('\\'), Text.size());
    if (Literals > 0) {
      FRun.append(Literals, '\\');
      Text.remove_prefix(Literals);
      continue;
    }
    Flush();
    if (IsBreak) {
      BreakLine();
    } else {
      Text.remove_prefix(Obey(Text));
    }
  }
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

std::size_t TTypesetter::Obey(std::string_view Text) {
  switch (Text.empty() ? '\0' : Text.front()) {
    case 'b':
      Toggle(TFontStyle::Bold);
      return 1;
    case 'i':
      Toggle(TFontStyle::Italic);
      return 1;
    case 'u':
      Toggle(TFontStyle::Underline);
      return 1;
    case 'o':
      Toggle(TFontStyle::Strikeout);
      return 1;
    case '+':
      ToggleScript(FIsSuperscript);
      return 1;
    case '-':
      ToggleScript(FIsSubscript);
      return 1;
    case 'c':
      return SetColor(Text);
    case 'f':
      return SetFamily(Text);
    default:
      return 0;
  }
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

struct TArgument {
  std::string_view Text;
  std::size_t Taken = 0;  // with the letter and the brackets; 0 when the closing one is missing
};

TArgument ArgumentOf(std::string_view Text) {
  const std::size_t Start = 1 + std::max<std::size_t>(FirstUtf8Char(Text.substr(1)).Length, 1);
  const std::size_t End = Text.find(']', Start);
  if (End == std::string_view::npos) return {};
  return {Text.substr(Start, End - Start), End + 1};
}

std::size_t TTypesetter::SetColor(std::string_view Text) {
  const TArgument Argument = ArgumentOf(Text);
  FColor = Argument.Text.empty() ? FLook.Color : RichIDToTZyColor(Argument.Text);
  ApplyStyle();
  return Argument.Taken;
}

std::size_t TTypesetter::SetFamily(std::string_view Text) {
  const TArgument Argument = ArgumentOf(Text);
  FFontName = Argument.Text.empty() ? FLook.FontName : Argument.Text;
  ApplyStyle();
  return Argument.Taken;
}

}  // namespace

TZyCaptionLayout::TZyCaptionLayout(std::string_view CaptionText, const TZyCaptionLook& CaptionLook)
    : Text(CaptionText), FFontName(CaptionLook.FontName), FLook(CaptionLook) {
  FLook.FontName = {};
  const TZyCaptionLook Wanted = Look();
  TTypesetter(*this, Wanted).Place(WithReturns(Text));
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
