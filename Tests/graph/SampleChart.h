#pragma once

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "annotations/ZyMovable.h"
#include "drawing/Pixels.h"
#include "graph/ZyGraph2D.h"
#include "platform/controls/TForm.h"
#include "platform/drawing/Bitmap.h"
#include "platform/drawing/Graphics.h"
#include "platform/drawing/TRecordingGraphics.h"
#include "platform/framework/Reflection.h"
#include "platform/framework/TRefList.h"
#include "series/ZyLineSeries.h"
#include "series/vectors/ZyDoubleVector.h"

namespace zy::testing {

/// What a list of references holds.
template <class T>
std::vector<T*> Listed(const TRefList<T>& List) {
  std::vector<T*> Result;
  for (T* Object : List) Result.push_back(Object);
  return Result;
}

/// Extent of a text of one line as a caption: with a sixth of the font's size at each side, and as high as a line.
inline SizeF CaptionExtent(const Font& Face, std::string_view Text) {
  return {Face.MeasureString(Text).Width + Face.GetSize() * Font::PixelsPerPoint / 3, Face.GetHeight()};
}

/// The first and last columns and rows of the pixels of a colour; from the far end to -1 for none.
inline TRect BoxOf(const Bitmap& Picture, ARGB Color) {
  TRect Box{Picture.GetWidth(), Picture.GetHeight(), -1, -1};
  for (int Y = 0; Y < Picture.GetHeight(); ++Y)
    for (int X = 0; X < Picture.GetWidth(); ++X)
      if (Distance(Picture.GetPixel(X, Y), Color) < 8)
        Box = {std::min(Box.Left, X), std::min(Box.Top, Y), std::max(Box.Right, X), std::max(Box.Bottom, Y)};
  return Box;
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

  TZyDoubleVector* AddVector(const std::string& Name, const std::vector<double>& Values = {}) {
    auto* const Vector = new TZyDoubleVector(&Form);
    Vector->SetName(Name);
    Vector->SetPersistentValues(true);
    Vector->AddRange(Values);
    return Vector;
  }

  /// A series of its own vectors on both axes.
  template <class TSeries = TZyLineSeries>
  TSeries* AddSeries(const std::string& Name, const std::vector<double>& XValues = {},
                     const std::vector<double>& YValues = {}) {
    auto* const Series = new TSeries(&Form);
    Join(*Series, Name, XValues, YValues);
    return Series;
  }
  /// A series of every kind that is registered, named by a prefix and its class.
  std::vector<TZySeries*> AddOfEachKind(const std::string& Prefix) {
    std::vector<TZySeries*> Result;
    for (const TClassInfo* Info : RegisteredClasses()) {
      if (Info->Factory() == nullptr || !Info->InheritsFrom(TZySeries::StaticClassInfo())) continue;
      Result.push_back(dynamic_cast<TZySeries*>(Info->Factory()(&Form)));
      Join(*Result.back(), Prefix + Info->Name(), {1, 2, 3, 4}, {10, 30, 20, 40});
    }
    return Result;
  }
  /// A marker of every kind on both axes, named by a prefix and its class.
  std::vector<TZyMovable*> AddMarkers(const std::string& Prefix) {
    std::vector<TZyMovable*> Result;
    for (const TClassInfo* Info : RegisteredClasses()) {
      if (Info->Factory() == nullptr || !Info->InheritsFrom(TZyMovable::StaticClassInfo())) continue;
      TZyMovable& Marker = *Result.emplace_back(dynamic_cast<TZyMovable*>(Info->Factory()(&Form)));
      Marker.SetName(Prefix + Info->Name());
      Marker.SetParent(Graph);
      Marker.SetXAxis(X);
      Marker.SetYAxis(Y);
    }
    return Result;
  }
  /// One more graph of the form, on the X axis of this one.
  TZyGraph2D& AddCoupled() {
    auto& Other = *new TZyGraph2D(&Form);
    Other.SetParent(&Form);
    Other.SetPrimaryXAxis(X);
    return Other;
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

  /// Plain axes from 0 to 10: 50 and 25 pixels for 1.
  void UseTenAxes() {
    UsePlainAxes();
    for (TZyAxis* Axis : {X, Y}) FixEnds(Axis, 0, 10);
  }

  static void FixEnds(TZyAxis* Axis, double Start, double Stop) {
    Axis->SetStop(Stop);
    Axis->SetStart(Start);
    Axis->SetStartEnd(TZyAxisEnd::Fixed);
    Axis->SetStopEnd(TZyAxisEnd::Fixed);
  }

  static Bitmap Paint(TZyGraph2D& Graph) {
    return PictureOf(std::max(Graph.Width(), 1), std::max(Graph.Height(), 1),
                     [&Graph](Graphics& Gr) { Graph.PaintGr(Gr); });
  }
  Bitmap Paint() { return Paint(*Graph); }

  using TCalls = std::vector<std::string>;
  static TCalls CallsOf(const std::function<void(Graphics&)>& Draw) {
    TRecordingGraphics Canvas;
    Draw(Canvas);
    return Canvas.Calls();
  }
  TCalls Calls() {
    return CallsOf([this](Graphics& Gr) { Graph->PaintGr(Gr); });
  }
  /// The number of calls that hold a text.
  static std::ptrdiff_t CountOf(const TCalls& Calls, std::string_view Text) {
    return std::ranges::count_if(Calls, [&](const std::string& Call) { return Call.find(Text) != std::string::npos; });
  }

  TForm Form;
  TCountingGraph* Graph = new TCountingGraph(&Form);
  TZyAxis* X = new TZyAxis(&Form);
  TZyAxis* Y = new TZyAxis(&Form);

 private:
  void Join(TZySeries& Series, const std::string& Name, const std::vector<double>& XValues,
            const std::vector<double>& YValues) {
    Series.SetName(Name);
    Series.SetXAxis(X);
    Series.SetYAxis(Y);
    Series.SetXData(AddVector(Name + "X", XValues));
    Series.SetYData(AddVector(Name + "Y", YValues));
  }
};

}  // namespace zy::testing
