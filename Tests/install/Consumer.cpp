// Paints a chart, and reads a form from a stream whose series class this program never names.

#include <cstdio>

#include <zyphos/Charts.h>

int main(int ArgCount, char** Args) {
  const zy::TApplication Program(ArgCount, Args);
  zy::TForm Form;
  auto* const Graph = new zy::TZyGraph2D(&Form);
  Graph->SetBackColor(zy::Colors::White);
  zy::Bitmap Picture(Graph->Width(), Graph->Height());
  {
    zy::Graphics Canvas(Picture);
    Graph->PaintGr(Canvas);
  }
  const bool Painted = Picture.GetPixel(0, 0) == zy::Colors::White;
  bool Registered = zy::GetClass("TSqlDataSet") == nullptr;  // no SQL in a program that binds no data
  for (const char* Name :
       {"TZyAxis", "TZyBubbles", "TZyLegend", "TZyLineSeries", "TZyMovingAverage", "TZyRichLabel", "TZyUndoStack"})
    Registered = Registered && zy::GetClass(Name) != nullptr;
  std::printf("painted: %d, registered: %d\n", Painted, Registered);
  return Painted && Registered ? 0 : 1;
}
