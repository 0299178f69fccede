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

 protected:
  TControl* Legend(bool Make) override;

 private:
  class TWatched;
};

}  // namespace zy
