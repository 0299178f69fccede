// Paints a chart, and looks for classes that this program never names, as a stored form may do: those of the components
// that it links, and no other.

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
#ifdef LINKS_ALL
  const bool LinksAll = true;
#else
  const bool LinksAll = false;
#endif
  bool Registered = true;
  for (const char* Name : {"TSqlDataSet", "TZyGraphSettingsTool", "TZyColorPickCombo"})
    Registered = Registered && (zy::GetClass(Name) != nullptr) == LinksAll;
  for (const char* Name :
       {"TZyAxis", "TZyBubbles", "TZyLegend", "TZyLineSeries", "TZyMovingAverage", "TZyRichLabel", "TZyUndoStack"})
    Registered = Registered && zy::GetClass(Name) != nullptr;
  std::printf("painted: %d, registered: %d\n", Painted, Registered);
  return Painted && Registered ? 0 : 1;
}
