// Pies on a picture of 800 x 600: first paints with their layout, of a pie that has turned since, and repaints.

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

TResult PaintPie(TZyPieChartType Type, int Count, bool HasCallouts, bool HasShadow, bool Anew) {
  TPie Pie(Type, Count, HasCallouts, HasShadow);
  Bitmap Picture(PieWidth, PieHeight);
  Graphics Canvas(Picture);
  float Angle = 0;
  const auto Turn = [&] {
    if (Anew) Pie.Chart->SetStartAngle(Angle += 1);
  };
  const auto Paint = [&] { Pie.Chart->PaintGr(Canvas); };
  Paint();
  TResult Result = Median(Paint, Turn);
  const long Before = Allocations();
  Paint();
  Result.Allocations = Allocations() - Before;
  return Result;
}

}  // namespace

std::span<const TCase> PieCases() {
  using enum TZyPieChartType;
  constexpr int Few = 8, Many = 100, Most = 10000;
  static const TCase All[] = {
      {"pie8", 3, [] { return PaintPie(FlatPie, Few, false, true, true); }},
      {"pie8-plain", 3, [] { return PaintPie(FlatPie, Few, false, false, true); }},
      {"pie8-repaint", 1.5, [] { return PaintPie(FlatPie, Few, false, true, false); }},
      {"pie8-solid", 8, [] { return PaintPie(ThreeDPie, Few, false, true, true); }},
      {"pie8-solid-plain", 8, [] { return PaintPie(ThreeDPie, Few, false, false, true); }},
      {"pie8-solid-repaint", 4, [] { return PaintPie(ThreeDPie, Few, false, true, false); }},
      {"pie100", 20, [] { return PaintPie(FlatPie, Many, true, true, true); }},
      {"pie100-repaint", 10, [] { return PaintPie(FlatPie, Many, true, true, false); }},
      {"pie1e4", 0, [] { return PaintPie(FlatPie, Most, true, true, true); }},
  };
  return All;
}

}  // namespace zy::cases
