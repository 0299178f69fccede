#pragma once

#include "widgets/ZyCustomChartWidget.h"
#ifndef Q_MOC_RUN  // which cannot read all that this includes
#include "pie/ZyPieDonut.h"
#endif

namespace zy {

class TZyDoubleVector;

/// A pie or donut chart as a widget of the toolkit. It has a vector for its values and a palette of fills.
///
///     auto* const Shares = new ZyPieWidget;
///     Shares->Values()->AddRange({45, 30, 25});
///     Layout->addWidget(Shares);
class ZyPieWidget : public ZyCustomChartWidget {
  Q_OBJECT
  Q_PROPERTY(Shape shape READ shape WRITE setShape)

 public:
  /// As TZyPieChartType.
  enum Shape { FlatPie, FlatDonut, ThreeDPie, ThreeDDonut };
  Q_ENUM(Shape)

  Q_INVOKABLE explicit ZyPieWidget(QWidget* Parent = nullptr);
  ~ZyPieWidget() override;

  /// The chart.
  TZyPieChart& Graph() const { return static_cast<TZyPieChart&>(Chart()); }
  /// The vector that the chart had from the beginning; null once it was freed.
  TZyDoubleVector* Values() const;

  Shape shape() const;
  void setShape(Shape Value);

  void ShowSamples() override;

 signals:
  /// A click on a segment, with the index of its value.
  void segmentClicked(int Index);
  /// The mouse has come over a segment; -1 when it lies over none any more, or has left.
  void segmentHovered(int Index);
  /// A click on an item of a legend in the chart, with the index of its value.
  void legendItemClicked(int Index);

 protected:
  TControl* Legend(bool Make) override;
  void ClickedAt(const QPoint& Place) override;
  void HoversAt(const std::optional<QPoint>& Place) override;

 private:
  int ValueAt(const QPoint& Place);

  int FHovered = -1;
  class TWatched;
};

}  // namespace zy
