// Paints a chart, and reads a form from a stream whose series class this program never names.

#include <cstdio>

#include "graph/ZyGraph2D.h"
#include "platform/controls/TApplication.h"
#include "platform/controls/TForm.h"
#include "platform/drawing/Bitmap.h"
#include "platform/drawing/Graphics.h"
#include "platform/framework/ClassRegistry.h"

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
  const bool Registered = zy::GetClass("TZyLineSeries") != nullptr && zy::GetClass("TZyUndoStack") != nullptr;
  std::printf("painted: %d, registered: %d\n", Painted, Registered);
  return Painted && Registered ? 0 : 1;
}
