#include "graph/ZyGraphPicture.h"

#include <algorithm>

#include "graph/ZyGraph2D.h"
#include "platform/drawing/Graphics.h"

namespace zy {

void TZyGraphPicture::FindGraphs() {
  if (FGraph.NeedsRecalculate()) FGraph.CheckCoupled();
  TZyGraph2D* const Master = FGraph.MasterGraph();
  if (Master != nullptr && Master->NeedsRecalculate()) Master->CheckCoupled();
  FGraphs = FGraph.StackedGraphs();
}

void TZyGraphPicture::LayOut() {
  FGraph.PrepareForScreen();
  FindGraphs();
  for (TZyGraph2D* Graph : FGraphs) Graph->PrepareForScreen();
}

int TZyGraphPicture::Left() const {
  int Result = 0;
  for (const TZyGraph2D* Graph : FGraphs) {
    const TScrollBar* const Bar = Graph->VerticalScrollbar();
    if (Bar != nullptr && Bar->Visible() && (Graph->IsCoupledGraph() || Graph->Visible()))
      Result = std::max(Result, Bar->Width());
  }
  if (Result == 0 || FGraphs.size() == 1) return Result;
  for (const TZyGraph2D* Graph : FGraphs)  // no axis is cut off
    Graph->ForEachAxis([&Result](const TZyAxis& Axis) {
      if (Axis.Position() == TZyAxisPosition::Left) Result = std::min(Result, Axis.Left());
    });
  return Result;
}

int TZyGraphPicture::Width() const { return FGraph.Width() - Left(); }

int TZyGraphPicture::Height() const {
  int Result = 0;
  for (const TZyGraph2D* Graph : FGraphs) Result += Graph->HeightInImage();
  return Result;
}

void TZyGraphPicture::Paint(Graphics& Gr, float X, float Y, bool AsMetafile) {
  LayOut();
  if (X != 0 || Y != 0) Gr.TranslateTransform(X, Y);
  for (TZyGraph2D* Graph : FGraphs) {
    Graph->PaintInto(Gr, AsMetafile);
    Gr.TranslateTransform(0, static_cast<float>(Graph->HeightInImage()));
  }
}

}  // namespace zy
