#pragma once

#include <string>
#include <vector>

#include "drawing/Pixels.h"
#include "graph/SampleChart.h"
#include "pie/ZyPieDonut.h"
#include "pie/ZyPieLegend.h"
#include "undo/ZyUndoStack.h"

namespace zy::testing {

/// A pie chart on a form, with vectors, captions, a palette, a legend and an undo stack.
struct TPieSample {
  explicit TPieSample(const std::vector<double>& Data = {10, 20, 12, 35}, int Width = 400, int Height = 300) {
    Form.SetName("Form");
    Chart->SetName("Pie");
    Chart->SetParent(&Form);
    Chart->SetBounds(0, 0, Width, Height);
    Chart->SetBackColor(Colors::White);
    Values->SetName("Values");
    Values->SetPersistentValues(true);
    Values->AddRange(Data);
    Out->SetName("Out");
    Out->SetPersistentValues(true);
    Palette->SetName("Palette");
    Palette->FillDefaults();
    Chart->SetSegmentSettingsPalette(Palette);
    Chart->SetValues(Values);
    Chart->Captions()->SetText("one\ntwo\nthree\nfour");
    Chart->SetParentFont(false);  // else the first colour of its own would end it, which is no step
    Stack.SetName("Stack");
    Stack.SetLimit(0);
    Chart->SetUndoStack(&Stack);
    Stack.Clear();
  }
  TZyPieLegend& AddLegend(const char* Name, TWinControl* Parent = nullptr) {
    auto& Legend = *new TZyPieLegend(&Form);
    Legend.SetName(Name);
    Legend.SetParent(Parent == nullptr ? Chart : Parent);
    Legend.SetPieChart(Chart);
    return Legend;
  }
  Bitmap Paint() {
    return PictureOf(std::max(Chart->Width(), 1), std::max(Chart->Height(), 1),
                     [this](Graphics& Gr) { Chart->PaintGr(Gr); });
  }
  std::vector<float> Sweeps() {
    Chart->BringUpToDate();
    std::vector<float> Result;
    for (const TZyPieSegment& Segment : Chart->Layout()->Segments()) Result.push_back(Segment.Sweep);
    return Result;
  }

  TForm Form;
  TZyUndoStack Stack{&Form};
  TZyDoubleVector* Values = new TZyDoubleVector(&Form);
  TZyDoubleVector* Out = new TZyDoubleVector(&Form);
  TZyFillPalette* Palette = new TZyFillPalette(&Form);
  TZyPieChart* Chart = new TZyPieChart(&Form);
};

}  // namespace zy::testing
