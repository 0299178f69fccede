#pragma once

#include "graph/SampleChart.h"
#include "graph/parts/ZyGraphParts.h"
#include "platform/controls/TGraphicControl.h"
#include "platform/drawing/Brush.h"
#include "texts/Exceptions.h"

namespace zy::testing {

/// A legend that fills its box and notes what it is told; of a size of its own if it is given one.
struct TStubLegend : TGraphicControl, IZyGraphLegend {
  using TGraphicControl::TGraphicControl;
  TStubLegend(TSampleChart& Chart, TZyLegendPosition Position, int Width, int Height)
      : TGraphicControl(&Chart.Form), FPosition(Position), FWidth(Width), FHeight(Height) {
    SetBounds(7, 9, 1, 1);
    SetParent(Chart.Graph);
  }
  TControl& Control() override { return *this; }
  TZyLegendPosition Dock() const override { return FPosition; }
  void PreparePaint() override {
    if (FWidth > 0) SetBounds(Left(), Top(), FWidth, FHeight);
  }
  void PaintGr(Graphics& Gr) override { Gr.FillRectangle(SolidBrush(0xFF123456), 0, 0, 7, 8); }
  void Modified() override {
    ++Modifications;
    if (Fails) throw EInvalidOperation("no");
  }
  void SetUndoStack(TZyUndoStack* Value) override { Stack = Value; }

  int Modifications = 0;
  bool Fails = false;
  TZyUndoStack* Stack = nullptr;
  const TZyLegendPosition FPosition = TZyLegendPosition::FreeFloating;
  const int FWidth = 0, FHeight = 0;
};

/// A marker that is a red box and counts when it is to find its place, within a layout and after it.
struct TStubMarker : TGraphicControl, IZyGraphMarker {
  using TGraphicControl::TGraphicControl;
  void PaintGr(Graphics& Gr) override {
    if (Fails) throw EInvalidOperation("no");
    Gr.FillRectangle(SolidBrush(Colors::Red), 0, 0, 10, 10);
  }
  void UpdatePosition() override { ++(TZyAxis::LayoutRunning ? Inside : After); }
  void SetUndoStack(TZyUndoStack*) override {}

  int Inside = 0, After = 0;
  bool Fails = false;
};

/// A series whose bars may have depth, and that may be drawn beyond its last point.
struct TStubSeries : TZyLineSeries, IZySolidSeries {
  using TZyLineSeries::TZyLineSeries;
  bool IsSolid() const override { return Solid; }
  void PrepareDepth() override { ++Prepared; }
  float HorizontalDepth() const override { return Depth.X; }
  float VerticalDepth() const override { return Depth.Y; }
  float ExtraSpaceAt(TZyAxisPosition Side) const override { return Side == TZyAxisPosition::Right ? ExtraSpace : 0; }

  bool Solid = false;
  PointF Depth{12.4f, 30};
  float ExtraSpace = 0;
  int Prepared = 0;
};

}  // namespace zy::testing
