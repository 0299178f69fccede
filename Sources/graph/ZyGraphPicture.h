#pragma once

#include <vector>

#include "graph/ZyChartPicture.h"

namespace zy {

class TZyGraph2D;

/// The picture of a graph and of all that are coupled to it, one below the other, the one with the X axis at the
/// bottom. Scroll bars are left out.
class TZyGraphPicture : public TZyChartPicture {
 public:
  explicit TZyGraphPicture(TZyGraph2D& Graph) : FGraph(Graph) { FindGraphs(); }

  void LayOut() override;
  int Left() const override;
  int Width() const override;
  int Height() const override;
  void Paint(Graphics& Gr, float X, float Y, bool AsMetafile) override;

 private:
  void FindGraphs();

  TZyGraph2D& FGraph;
  std::vector<TZyGraph2D*> FGraphs;  // from top to bottom
};

}  // namespace zy
