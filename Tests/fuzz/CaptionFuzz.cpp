// Captions of any text: an exception of ours that leaves the layout of before, or runs from which no text is missing,
// at finite places, that can be painted.

#include <cmath>
#include <cstdint>
#include <string>

#include "analysis/ZyParseFktCaptions.h"
#include "annotations/CaptionRoundTrip.h"
#include "annotations/captions/ZyRichCaption.h"
#include "fuzz/Check.h"
#include "fuzz/FontLeaks.h"
#include "platform/controls/TApplication.h"
#include "platform/drawing/Bitmap.h"
#include "platform/drawing/Graphics.h"
#include "texts/Exceptions.h"

namespace zy::testing {
namespace {

bool IsLineEnd(char C) { return C == '\n' || C == '\r'; }

/// Whether Part is what is left of Whole when some characters are left out.
bool IsLeftOf(std::string_view Part, std::string_view Whole) {
  for (const char C : Whole)
    if (!Part.empty() && Part.front() == C) Part.remove_prefix(1);
  return Part.empty();
}

std::string WithoutLineEnds(std::string Text) {
  std::erase_if(Text, IsLineEnd);
  return Text;
}

void CheckLayout(const TZyRichCaptionObject& Caption, const std::string& Value) {
  std::string Joined;
  int Line = 0;
  for (const TZySubCaption& Run : Caption.SubCaptions()) {
    Check(!Run.Caption.empty() && Run.Caption.find_first_of("\r\n") == std::string::npos, "runs are text of one line");
    Check(Run.LineIndex >= Line, "lines follow each other");
    Check(std::isfinite(Run.Position.X) && std::isfinite(Run.Position.Y), "runs have a place");
    Line = Run.LineIndex;
    Joined += Run.Caption;
  }
  Check(Joined == Caption.PlainText(), "the plain text is that of the runs");
  Check(std::isfinite(Caption.Width()) && Caption.Width() >= 0 && Caption.Height() > 0, "captions have a size");
  Check(IsLeftOf(Caption.PlainText(), Value), "runs show the text");
  if (Value.find('\\') == std::string::npos)
    Check(Caption.PlainText() == WithoutLineEnds(Value), "without markup no text is missing");
}

void SetLook(TZyRichCaptionObject& Caption, unsigned Look) {
  TZyFont& Font = Caption.CaptionFont();
  Font.SetSize(0.5f + static_cast<float>(Look >> 8 & 31u));
  Font.SetStyle(TFontStyles::FromBits(Look & 15u));
  Font.SetDrawEffects(TZyCharDrawEffects::FromBits(Look >> 4 & 15u));
  Font.Gradient().SetVisible((Look >> 13 & 1u) != 0);
  Caption.Alignment = static_cast<TZyContentAlignment>((Look >> 14) % 9);
  Caption.Angle = static_cast<float>(Look % 360);
}

void CheckText(const std::string& Text, unsigned Look) {
  TZyRichCaptionObject Caption;
  SetLook(Caption, Look);
  Caption.SetCaption("before");
  Caption.ParseForSize();
  Caption.SetCaption(Text);
  try {
    Caption.ParseForSize();
    CheckLayout(Caption, Text.empty() ? "before" : ParseVariables(Text, nullptr));
  } catch (const Exception&) {
    Check(Caption.PlainText() == "before", "a failed layout changes nothing");
  }
  Bitmap Picture(60, 40);
  Graphics Canvas(Picture);
  Caption.X = 30;
  Caption.Y = 20;
  Caption.PaintGr(Canvas);
  const TZyCaptionLayout AsWritten(CaptionVerbatim(Text), {.FontName = "Arial", .FontSize = 9});
  Check(AsWritten.PlainText == WithoutLineEnds(Text), "a text can be shown as it is written");
  if (AsciiUpper(Text).find("RANDOM") == std::string::npos)  // else no two drawings are the same
    Check(RoundTripFault(Text).empty(), "a caption that is read and written stays what it is");
}

}  // namespace
}  // namespace zy::testing

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  static zy::TApplication Program;
  using namespace zy;
  AddStringToList("Self", "", nullptr, GlobalStringList(), [] { return "a<%Self%>"; });
  AddStringToList("Twice", "", nullptr, GlobalStringList(), [] { return "\\b<%Twice%>\n<%Twice%>"; });
  AddStringToList("Markup", "", nullptr, GlobalStringList(), [] { return "\\c[A=9, R=8, G=7, B=6]x\\+"; });
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Data, std::size_t Size) {
  constexpr std::size_t LookBytes = 3;
  if (Size < LookBytes) return 0;
  const unsigned Look = Data[0] | static_cast<unsigned>(Data[1]) << 8 | static_cast<unsigned>(Data[2]) << 16;
  zy::testing::CheckText({reinterpret_cast<const char*>(Data) + LookBytes, Size - LookBytes}, Look);
  return 0;
}
