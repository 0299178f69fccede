// The caption language: text in, runs out; measures as relations that hold for any font; painting as a list of calls.

#include "annotations/captions/ZyRichCaption.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <functional>

#include "graph/SampleChart.h"
#include "platform/drawing/TRecordingGraphics.h"
#include "texts/Exceptions.h"

namespace zy::testing {
namespace {

constexpr float Size = 20;

/// A caption, laid out.
struct TLaid : TZyRichCaptionObject {
  explicit TLaid(const std::string& Text, TFontStyles Style = {}, TZyContentAlignment Place = {},
                 std::function<void()> OnLook = {})
      : TZyRichCaptionObject(std::move(OnLook)) {
    Alignment = Place;
    CaptionFont().SetName("DejaVu Sans");
    CaptionFont().SetSize(Size);
    CaptionFont().SetStyle(Style);
    Take(Text);
  }
  void Take(const std::string& Text) {
    SetCaption(Text);
    ParseForSize();
  }
};

/// A run as its text and what differs from plain black text of the first line in full size.
std::string Describe(const TZySubCaption& Run) {
  std::string Looks;
  const auto Add = [&Looks](const std::string& Look) { Looks += (Looks.empty() ? "" : " ") + Look; };
  const TFontStyles Style = Run.RunFont.GetStyle();
  for (const auto& [Part, Name] : {std::pair{TFontStyle::Bold, "bold"}, std::pair{TFontStyle::Italic, "italic"},
                                   std::pair{TFontStyle::Underline, "under"}, std::pair{TFontStyle::Strikeout, "out"}})
    if (Style.Contains(Part)) Add(Name);
  if (Run.RunFont.GetSize() != Size) Add(std::to_string(std::lround(Run.RunFont.GetSize() / Size * 100)) + "%");
  if (Run.FontName() != "DejaVu Sans") Add(Run.FontName());
  if (Run.Color != Colors::Black) Add(ARGBToString(Run.Color, false));
  if (Run.LineIndex > 0) Add("line " + std::to_string(Run.LineIndex));
  return Run.Caption + (Looks.empty() ? "" : " {" + Looks + "}");
}

std::string Describe(const TZyRichCaptionObject& Caption) {
  std::string Result;
  for (const TZySubCaption& Run : Caption.SubCaptions()) Result += (Result.empty() ? "" : " | ") + Describe(Run);
  return Result;
}

TEST(ZyRichCaptionTest, MarkupBecomesRuns) {
  const std::pair<const char*, const char*> Cases[] = {
      {"plain", "plain"},
      {R"(a\bb\b\ic\i\ud\u\oe)", "a | b {bold} | c {italic} | d {under} | e {out}"},
      {R"(\b\i\u\ox)", "x {bold italic under out}"},
      {R"(a\b\bb)", "a | b"},
      {R"(H\-2\-O)", "H | 2 {66%} | O"},
      {R"(\+a\-b\+c\-d)", "a {66%} | b {66%} | c {66%} | d"},
      {R"(\c[A=255, R=255, G=0, B=0]a\c[]b)", "a {Red} | b"},
      {R"(\cXA=255, R=255, G=0, B=0]a\c{]b)", "a {Red} | b"},
      {"\\c\u20acA=128, R=0, G=0, B=0]a", "a {$80000000}"},  // the bracket may be any one character
      {R"(\f[Times New Roman]a\f[]b)", "a {Times New Roman} | b"},
      {R"(\f[No such family]a\bb\f[]c)", "a {Arial} | b {bold Arial} | c {bold}"},
      // Backslashes.
      {R"(a\\b)", R"(a\b)"},
      {R"(\\\\x\by)", R"(\\\x | y {bold})"},
      {R"(a\\\b)", R"(a\\b)"},
      {R"(a\)", "a"},
      {R"(\)", ""},
      {"\\\u00e4b", "\u00e4b"},
      // Broken arguments.
      {R"(\c)", "c"},
      {R"(\c[)", "c["},
      {R"(\f[Arial \bx)", "f[Arial  | x {bold}"},
      {R"(\c[A=255, R=255, G=0, B=0]a\c[no)", "a {Red} | c[no"},
      // Line ends.
      {"a\nb\rc\r\nd\n\re", "a | b {line 1} | c {line 2} | d {line 3} | e {line 4}"},
      {"a\r\n\r\nb", "a | b {line 2}"},
      {"\\ba\\\nb\n", "a {bold} | b {bold line 1}"},
      {"a\\\\\nb", "a\\ | b {line 1}"},
      // Variables come first, so that their values are markup too.
      {"<%1+1;0.0%>", "2.0"},
      {R"(<%<%\b%>%>)", "<% | %> {bold}"},
  };
  for (const auto& [Text, Runs] : Cases) {
    const TLaid Caption(Text);
    EXPECT_EQ(Describe(Caption), Runs) << Text;
    std::string Joined;
    for (const TZySubCaption& Run : Caption.SubCaptions()) Joined += Run.Caption;
    EXPECT_EQ(Caption.PlainText(), Joined) << Text;
  }
  EXPECT_EQ(Describe(TLaid(R"(a\b\ub)", {TFontStyle::Bold, TFontStyle::Underline})), "a {bold under} | b");
}

TEST(ZyRichCaptionTest, ScriptsAreMovedByPartsOfLineAndFont) {
  const TLaid Caption(R"(H\-2\-O\+3\-\-4\+5)");
  const Font Face("DejaVu Sans", Size), Script("DejaVu Sans", Size * 0.66f);
  const float Line = Face.GetHeight();
  const auto Width = [](const Font& Measured, const char* Text) { return Measured.MeasureString(Text).Width; };
  const float In = 0.1f * 0.66f * Size, Out = 0.1f * Size;
  const float Ends[] = {Width(Face, "H"), Width(Script, "2") + In, Width(Face, "O") - Out, Width(Script, "3") + In,
                        // A subscript that ends before its first letter still moves back, and none of its way is lost.
                        Width(Script, "4") + In - In, Width(Face, "5") - Out};
  const float Shifts[] = {0, In, -Out, In, 0, -Out}, Ys[] = {0, 0.33f, 0, -0.025f, -0.025f, 0};
  ASSERT_EQ(Caption.SubCaptions().size(), std::size(Ends));
  float Pen = 0;
  for (std::size_t i = 0; i < std::size(Ends); ++i) {
    const TZySubCaption& Run = Caption.SubCaptions()[i];
    EXPECT_NEAR(Run.Position.X, Pen + Shifts[i], 1e-3f) << i;
    EXPECT_NEAR(Run.Position.Y, Ys[i] * Line, 1e-3f) << i;
    Pen += Ends[i];
  }
  const float Bearings = Size * 96 / 72 / 3;
  EXPECT_NEAR(Caption.Width(), Pen + Bearings, 1e-3f);
  EXPECT_EQ(Caption.Height(), Line);
}

TEST(ZyRichCaptionTest, LinesStandOneBelowTheOtherAndAreAligned) {
  for (const auto Place :
       {TZyContentAlignment::MiddleLeft, TZyContentAlignment::TopCenter, TZyContentAlignment::BottomRight}) {
    const TLaid Caption("wide line\ni\\ba\\b\n\nx\\+y\nz", {}, Place);
    ASSERT_EQ(Describe(Caption),
              "wide line | i {line 1} | a {bold line 1} | x {line 3} | y {66% line 3} | z {66% line 4}");
    const auto Runs = Caption.SubCaptions();
    const auto Widths = Caption.LineWidths();
    const float Line = Caption.Height() / 5, Part = static_cast<float>(static_cast<int>(Place) % 3) / 2;
    ASSERT_EQ(Widths.size(), 5u);
    EXPECT_EQ(Widths[0], Caption.Width());
    EXPECT_EQ(Widths[2], 0.0f);
    EXPECT_EQ(Runs[0].Position, (PointF{0, 0}));
    EXPECT_NEAR(Runs[1].Position.X, (Caption.Width() - Widths[1]) * Part, 1e-3f);
    EXPECT_NEAR(Runs[2].Position.X - Runs[1].Position.X, Runs[1].GetWidth(), 1e-3f);
    EXPECT_NEAR(Runs[3].Position.Y, 3 * Line, 1e-3f);
    EXPECT_NEAR(Runs[5].Position.Y, (4 - 0.025f) * Line, 1e-3f) << "a script goes on in the next line";
  }
  EXPECT_EQ(TLaid("\nalone", {}, TZyContentAlignment::TopRight).SubCaptions()[0].Position.X, 0.0f);
}

TEST(ZyRichCaptionTest, WhatCannotBeEvaluatedKeepsTheLayout) {
  TLaid Caption("");
  EXPECT_EQ(Caption.Width(), 0.0f);
  for (const char* Text : {"<%NoSuchName%>", "<%", R"(\c[red]x)", R"(x\c[A=1, R=2, G=3, B=x]y)"}) {
    TZyRichCaptionObject New;
    New.SetCaption(Text);
    EXPECT_THROW(New.ParseForSize(), Exception) << Text;
    New.ParseIfNeeded();
    EXPECT_EQ(New.PlainText(), Text);
    Caption.Take("good");
    EXPECT_THROW(Caption.Take(Text), Exception) << Text;
    EXPECT_EQ(Describe(Caption), "good");
  }
  const float Width = Caption.Width();
  Caption.CaptionFont().SetSize(2 * Size);
  Caption.ParseIfNeeded();
  EXPECT_NEAR(Caption.Width(), 2 * Width, 0.5f) << "the text that is shown follows the font";
  Caption.Take("");
  EXPECT_EQ(Caption.PlainText(), "good");
  TRecordingGraphics Canvas;
  Caption.PaintGr(Canvas);
  EXPECT_TRUE(Canvas.Calls().empty());
  TZyRichCaptionObject New;
  New.SetCaption("good");
  New.PaintGr(Canvas);
  EXPECT_EQ(Canvas.Calls().size(), 1U) << "painted for the first time, it is laid out";
}

TEST(ZyRichCaptionTest, LookChangesReachTheRunsWithoutALayout) {
  int Looks = 0;
  const char* const Text = R"(a\c[A=255, R=255, G=0, B=0]b\c[]c)";
  const TLaid Same(Text);
  TLaid Caption(Text, {}, {}, [&Looks] { ++Looks; });
  Caption.CaptionFont().SetFillColor(Colors::Blue);
  EXPECT_EQ(Describe(Caption), "a {Blue} | b {Red} | c {Blue}");
  EXPECT_EQ(Describe(Same), "a | b {Red} | c") << "captions of the same text are not the same caption";
  Caption.CaptionFont().SetDrawEffects({TZyCharDrawEffect::Outline});
  EXPECT_EQ(Caption.SubCaptions()[1].DrawEffects, TZyCharDrawEffects{TZyCharDrawEffect::Outline});
  EXPECT_EQ(Looks, 2);
  Caption.SetColorOverride(Colors::Lime);
  EXPECT_EQ(Describe(Caption), "a {Lime} | b {Red} | c {Lime}");
  Caption.ParseForSize();
  EXPECT_EQ(Describe(Caption), "a {Lime} | b {Red} | c {Lime}");
  Caption.SetColorOverride(0);
  EXPECT_EQ(Describe(Caption), "a {Blue} | b {Red} | c {Blue}");
}

/// What paints a caption with an effect: names of the calls, and the transforms and clips they are made under.
std::string CallsOf(TZyRichCaptionObject& Caption, TZyCharDrawEffects Effects) {
  Caption.CaptionFont().SetDrawEffects(Effects);
  TRecordingGraphics Canvas;
  Caption.PaintGr(Canvas);
  std::string Result;
  for (const std::string& Call : Canvas.Calls()) {
    if (Call.starts_with("SetTransform") || Call.starts_with("DrawString")) Result += Call + "\n";
    if (Call.starts_with("SetClip")) Result += Call.starts_with("SetClip(not ") ? "cut out\n" : "whole\n";
    if (Call.starts_with("Fill") || Call.starts_with("DrawPath")) Result += Call.substr(0, Call.find(',')) + "\n";
  }
  return Result;
}

TEST(ZyRichCaptionTest, EffectsDrawShadowsOutlinesAndEdges) {
  using enum TZyCharDrawEffect;
  TLaid Caption("x");
  TZyFont& Face = Caption.CaptionFont();
  Face.SetFillColor(Colors::Red);
  // A sixth of 26.67 pixels inside.
  const std::string Text = "DrawString(\"x\", DejaVu Sans 20, FFFF0000, 4.44 0)\n";
  EXPECT_EQ(CallsOf(Caption, {}), Text);
  EXPECT_EQ(CallsOf(Caption, {Outline}), "DrawPath(pen FFFF0000 1\n");
  const std::string Down = "SetTransform(1 0 0 1, 1 1)\n", Up = "SetTransform(1 0 0 1, -1 -1)\n";
  const std::string Dark = "cut out\nFillPath(5A000000\n", Light = "FillPath(D2FFFFFF\n";
  EXPECT_EQ(CallsOf(Caption, {Raised}), Down + Dark + Up + Light);
  EXPECT_EQ(CallsOf(Caption, {Lowered}), Up + Dark + Down + Light);
  const std::string Shadowed = CallsOf(Caption, {Shadow});  // nine copies under a transform each, and the text
  EXPECT_EQ(std::count(Shadowed.begin(), Shadowed.end(), '\n'), 20);
  EXPECT_NE(Shadowed.find("\nDrawString(\"x\", DejaVu Sans 20, 24000000, 4.44 0)\n"), std::string::npos);
  EXPECT_NE(Shadowed.find("\nSetTransform(1 0 0 1, 3.6 2.7)\n"), std::string::npos);
  EXPECT_TRUE(Shadowed.ends_with(Text));
  Face.SetDrawEffects({});
  Face.Gradient().SetVisible(true);
  Face.SetRenderingHint(TZyTextRenderingHint::AntiAliasGridFit);
  Caption.Take(R"(x\c[A=255, R=0, G=0, B=0]y)");
  TRecordingGraphics Canvas;
  Caption.PaintGr(Canvas);
  ASSERT_EQ(Canvas.Calls().size(), 3u);
  EXPECT_EQ(Canvas.Calls()[0], "SetTextRenderingHint(3)");
  const auto BrushOf = [](const std::string& Call) { return Call.substr(Call.find("linear"), 60); };
  EXPECT_EQ(BrushOf(Canvas.Calls()[1]), BrushOf(Canvas.Calls()[2])) << "one gradient over all runs";
}

TEST(ZyRichCaptionTest, ChangesOfNamesAndCaptionsRenewWhatShowsThem) {
  TSampleChart Chart;
  TZyLineSeries* const Series = Chart.AddSeries("Series");
  Series->SetCaption(R"(S\-1\-)");
  Chart.Graph->SetCaptionVisible(true);
  Chart.Graph->SetCaption("Title of <%form.graph.NAME%>: <%Form.Series.Caption%>");
  TLaid Watch("<%Form.Graph.Caption%>");
  int Told = 0;
  Watch.OnVariablesChanged = [&Told] { ++Told; };
  EXPECT_EQ(Watch.PlainText(), "Title of Graph: S1");
  Chart.Graph->Calculate();
  const float Top = Chart.Graph->DrawingArea().Y;
  Series->SetCaption("two\nlines");
  EXPECT_EQ(Watch.PlainText(), "Title of Graph: twolines");
  EXPECT_EQ(Told, 1);
  EXPECT_TRUE(Chart.Graph->NeedsRecalculate());
  Chart.Graph->Calculate();
  EXPECT_GT(Chart.Graph->DrawingArea().Y, Top + 5) << "the title has one line more";
  UpdateVariablesObjects(*Series->ObjectsToUpdate());
  EXPECT_EQ(Told, 1) << "nothing has changed";
  Series->SetName("Renamed");
  EXPECT_EQ(Watch.PlainText(), "Title of Graph: twolines") << "nothing has the old name, so that the last text stays";
  Chart.Graph->SetCaption("<%Form.Renamed.Name%>");
  EXPECT_EQ(Watch.PlainText(), "Renamed");
  delete Series;
  EXPECT_THROW(Watch.ParseForSize(), EMathError);
}

TEST(ZyRichCaptionTest, SelfReferencesAndMassesOfMarkupEnd) {
  TSampleChart Chart;
  Chart.Graph->SetCaption("a<%Form.Graph.Caption%>");
  TLaid Caption("<%Form.Graph.Caption%>");
  EXPECT_EQ(Caption.PlainText(), std::string(16, 'a') + "<%Form.Graph.Caption%>");
  const auto Start = std::chrono::steady_clock::now();
  std::string Text;
  for (int i = 0; i < 20000; ++i) Text += R"(a\b\+\f[Nobody has this]b\f[])";
  Caption.Take(Text + std::string(100000, '\\'));
  EXPECT_EQ(Caption.PlainText().size(), 20000 * 2 + 99999u);
  EXPECT_LT(std::chrono::steady_clock::now() - Start, std::chrono::seconds(20));
}

}  // namespace
}  // namespace zy::testing
