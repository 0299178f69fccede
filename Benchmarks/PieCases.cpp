// Pies on a picture of 800 x 600: paints with their layout, of a pie that has turned since the last one or has got
// another size, and repaints.

#include <string>

#include "Cases.h"
#include "pie/ZyPieDonut.h"

namespace zy::cases {
namespace {

constexpr int PieWidth = 800, PieHeight = 600;

struct TPie {
  TPie(TZyPieChartType Type, int Count, bool HasCallouts, bool HasShadow) {
    Chart->SetBounds(0, 0, PieWidth, PieHeight);
    Chart->SetBackColor(Colors::White);
    for (int Index = 0; Index < Count; ++Index) {
      Values->Add(10 + Index * 7 % 23);
      Chart->Captions()->Add("part " + std::to_string(Index));
    }
    Palette->FillDefaults();
    Chart->SetSegmentSettingsPalette(Palette);
    Chart->SetValues(Values);
    Chart->SetPieChartType(Type);
    Chart->SetDropShadow(HasShadow);
    Chart->SetLabelFrom(TZyLabelStyle::CaptionAndPercent);
    if (HasCallouts) Chart->SetLabelPosition(TZyPieLabelPosition::Callouts);
  }
  TForm Form;
  TZyPieChart* Chart = new TZyPieChart(&Form);
  TZyDoubleVector* Values = new TZyDoubleVector(&Form);
  TZyFillPalette* Palette = new TZyFillPalette(&Form);
};

enum class TBefore { Nothing, Turned, Sized };

TResult PaintPie(TZyPieChartType Type, int Count, bool HasCallouts, bool HasShadow, TBefore Before) {
  TPie Pie(Type, Count, HasCallouts, HasShadow);
  Bitmap Picture(PieWidth, PieHeight);
  Graphics Canvas(Picture);
  int Turns = 0;
  const auto Change = [&] {
    ++Turns;
    if (Before == TBefore::Turned) Pie.Chart->SetStartAngle(static_cast<float>(Turns));
    if (Before == TBefore::Sized) Pie.Chart->SetBounds(0, 0, PieWidth, PieHeight - Turns % 100);
  };
  const auto Paint = [&] { Pie.Chart->PaintGr(Canvas); };
  Paint();
  TResult Result = Median(Paint, Change);
  const long Known = Allocations();
  Paint();
  Result.Allocations = Allocations() - Known;
  return Result;
}

}  // namespace

std::span<const TCase> PieCases() {
  using enum TZyPieChartType;
  using enum TBefore;
  constexpr int Few = 8, Many = 100, Most = 10000;
  static const TCase All[] = {
      {"pie8", 3, [] { return PaintPie(FlatPie, Few, false, true, Turned); }},
      {"pie8-plain", 3, [] { return PaintPie(FlatPie, Few, false, false, Turned); }},
      {"pie8-sized", 3, [] { return PaintPie(FlatPie, Few, false, true, Sized); }},
      {"pie8-repaint", 1.5, [] { return PaintPie(FlatPie, Few, false, true, Nothing); }},
      {"pie8-solid", 8, [] { return PaintPie(ThreeDPie, Few, false, true, Turned); }},
      {"pie8-solid-plain", 8, [] { return PaintPie(ThreeDPie, Few, false, false, Turned); }},
      {"pie8-solid-sized", 8, [] { return PaintPie(ThreeDPie, Few, false, true, Sized); }},
      {"pie8-solid-repaint", 4, [] { return PaintPie(ThreeDPie, Few, false, true, Nothing); }},
      {"pie100", 20, [] { return PaintPie(FlatPie, Many, true, true, Turned); }},
      {"pie100-repaint", 10, [] { return PaintPie(FlatPie, Many, true, true, Nothing); }},
      {"pie1e4", 0, [] { return PaintPie(FlatPie, Most, true, true, Turned); }},
  };
  return All;
}

}  // namespace zy::cases
