#pragma once

#include <algorithm>
#include <initializer_list>
#include <string>

#include "graph/ZyGraph2D.h"
#include "platform/controls/TForm.h"
#include "platform/drawing/Bitmap.h"
#include "platform/drawing/Graphics.h"
#include "series/ZyDoubleVector.h"
#include "series/ZyLineSeries.h"

namespace zy::testing {

/// Extent of a text of one line as a caption: with a sixth of the font's size at each side, and as high as a line.
inline SizeF CaptionExtent(const Font& Face, std::string_view Text) {
  return {Face.MeasureString(Text).Width + Face.GetSize() * Font::PixelsPerPoint / 3, Face.GetHeight()};
}

/// A graph that counts how often it asked for a new picture.
class TCountingGraph : public TZyGraph2D {
 public:
  using TZyGraph2D::TZyGraph2D;
  int Invalidations = 0;

 protected:
  void InvalidateBox() override { ++Invalidations; }
};

/// A form with a graph and its two primary axes.
class TSampleChart {
 public:
  explicit TSampleChart(int Width = 600, int Height = 400) {
    Form.SetName("Form");
    Graph->SetName("Graph");
    Graph->SetParent(&Form);
    Graph->SetBounds(0, 0, Width, Height);
    X->SetName("X");
    Y->SetName("Y");
    Y->SetPosition(TZyAxisPosition::Left);
    for (TZyAxis* Axis : {X, Y}) Axis->SetParent(Graph);
    Graph->SetPrimaryXAxis(X);
    Graph->SetPrimaryYAxis(Y);
  }

  TZyDoubleVector* AddVector(const char* Name, std::initializer_list<double> Values = {}) {
    auto* const Vector = new TZyDoubleVector(&Form);
    Vector->SetName(Name);
    Vector->SetPersistentValues(true);
    Vector->AddRange(Values);
    return Vector;
  }

  /// A series of its own vectors on both axes.
  TZyLineSeries* AddSeries(const char* Name, std::initializer_list<double> XValues = {},
                           std::initializer_list<double> YValues = {}) {
    auto* const Series = new TZyLineSeries(&Form);
    Series->SetName(Name);
    Series->SetXAxis(X);
    Series->SetYAxis(Y);
    Series->SetXData(AddVector((std::string(Name) + "X").c_str(), XValues));
    Series->SetYData(AddVector((std::string(Name) + "Y").c_str(), YValues));
    return Series;
  }

  /// Axes of nothing but lines and ticks, and borders for a data area from (50, 50) of 500 by 250 pixels between its
  /// edges. An axis takes 11 pixels across: half its line rounded up, and the major tick.
  void UsePlainAxes() {
    for (TZyAxis* Axis : {X, Y}) {
      Axis->SetNumbersVisible(false);
      Axis->SetCaptionVisible(false);
    }
    Graph->SetDistanceBorderAxisLeft(50 - 11);
    Graph->SetDistanceBorderAxisTop(50);
    Graph->SetDistanceBorderAxisRight(50);
    Graph->SetDistanceBorderAxisBottom(100 - 10);  // one less: the line is the axis's second row
  }

  static Bitmap Paint(TZyGraph2D& Graph) {
    Bitmap Picture(std::max(Graph.Width(), 1), std::max(Graph.Height(), 1));
    Graphics Gr(Picture);
    Graph.PaintGr(Gr);
    return Picture;
  }
  Bitmap Paint() { return Paint(*Graph); }

  TForm Form;
  TCountingGraph* Graph = new TCountingGraph(&Form);
  TZyAxis* X = new TZyAxis(&Form);
  TZyAxis* Y = new TZyAxis(&Form);
};

}  // namespace zy::testing
