// A legend of many items, and the drag of one over many points.

#include <QCoreApplication>
#include <QMouseEvent>
#include <QWidget>
#include <string>

#include "Cases.h"
#include "annotations/ZyLegend.h"
#include "platform/controls/TApplication.h"

namespace zy::cases {
namespace {

constexpr int Many = 10000, Few = 100;

/// A chart with so many short lines, and a legend of them.
struct TLegendChart : TChart {
  explicit TLegendChart(int Count) {
    const TData Data(4);
    for (int Index = 0; Index < Count; ++Index)
      Add(Data.X, Data.Y).SetCaption("item " + std::to_string(Index) + " of the legend");
    Legend->SetGraph(Graph);
    Legend->SetParent(Graph);
    Legend->SetColumns(5);
    Legend->SetItemWidth(40);
  }
  TZyLegend* Legend = new TZyLegend(&Form);
};

/// Paints of the legend alone, listed and measured anew before each or not.
TResult PaintLegend(int Count, bool Anew) {
  TLegendChart Chart(Count);
  Bitmap Picture(Width, Height);
  Graphics Canvas(Picture);
  const auto Prepare = [&] {
    if (Anew) Chart.Legend->Modified();
  };
  const auto Paint = [&] { Chart.Legend->PaintGr(Canvas); };
  Paint();
  TResult Result = Median(Paint, Prepare);
  const long Before = Allocations();
  Paint();
  Result.Allocations = Allocations() - Before;
  return Result;
}

/// One move of a legend that the mouse drags over a line, from the event to the pixels of the window.
TResult MoveLegend(int Count) {
  TData Data(Count);
  TChart Chart;
  Chart.Form.SetBounds(0, 0, Width, Height);
  Chart.Graph->SetParent(&Chart.Form);
  Chart.Take(Data).SetCaption("noise");
  auto& Legend = *new TZyLegend(&Chart.Form);
  Legend.SetParent(Chart.Graph);
  Legend.SetGraph(Chart.Graph);
  Legend.SetBackColor(Colors::White);
  Legend.SetBounds(200, 200, 0, 0);
  Chart.Form.Show();
  auto& Program = dynamic_cast<TApplication&>(Application());
  const auto Send = [&](QEvent::Type Type, int X, int Y, Qt::MouseButton Button) {
    QWidget* const Widget = Chart.Graph->Widget();
    QMouseEvent Event(Type, QPointF(X, Y), Widget->mapToGlobal(QPointF(X, Y)), Button, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(Widget, &Event);
    Program.ProcessMessages();
  };
  Program.ProcessMessages();
  Send(QEvent::MouseButtonPress, 210, 210, Qt::LeftButton);
  int Step = 0;
  const auto Move = [&] {
    Step = (Step + 7) % 400;
    Send(QEvent::MouseMove, 210 + Step, 210 + Step / 2, Qt::NoButton);
  };
  for (int Times = 0; Times < 3; ++Times) Move();  // the first one paints the chart without it
  return Median(Move);
}

}  // namespace

std::span<const TCase> LegendCases() {
  static const TCase All[] = {
      {"legend100", 4, [] { return PaintLegend(Few, true); }},
      {"legend100-repaint", 0.5, [] { return PaintLegend(Few, false); }},
      {"legend1e4", 0, [] { return PaintLegend(Many, true); }},
      {"legend1e4-repaint", 0, [] { return PaintLegend(Many, false); }},
      {"legend-move1e6", 0.3, [] { return MoveLegend(Million); }},
      {"legend-move1e7", 0.3, [] { return MoveLegend(10 * Million); }},
  };
  return All;
}

}  // namespace zy::cases
