#pragma once

#include "widgets/ZyPlacedWidget.h"

namespace zy {

class TZyCustomLegend;
class TZyLegend;
class TZyPieLegend;

/// Base of legends as widgets: children of a chart widget, which makes room for them, or anywhere else in its window.
class ZyCustomLegendWidget : public ZyPlacedWidget {
  Q_OBJECT
  /// Name of the chart widget that is listed by a legend beside it; while it is empty, the nearest one in the window.
  /// It is looked for whenever the legend is shown or painted and has none.
  Q_PROPERTY(QString chart READ chart WRITE setChart)

 public:
  QString chart() const;
  void setChart(const QString& Value);
  /// The legend as far as all kinds have it in common, null once it was freed.
  TZyCustomLegend* Legend() const;
  /// What is listed; null while there is nothing.
  ZyCustomChartWidget* Listed() const;
  ZyControlWidget* LooksLike() const override;

 protected:
  using ZyPlacedWidget::ZyPlacedWidget;
  template <class TLegend>
  class TWatched;
  void Joined() override;
  /// Has the legend list that chart, which fits, or none.
  virtual void List(ZyCustomChartWidget* Chart) = 0;
  void showEvent(QShowEvent* Event) override;
  void paintEvent(QPaintEvent* Event) override;

 private:
  void Find();
  ZyCustomChartWidget* Nearest() const;

  QString FName;
  QPointer<ZyCustomChartWidget> FFound;  // beside this
};

/// The series of a ZyChartWidget. On the chart it floats where the widget is, or is docked:
///
///     auto* const Legend = new ZyLegendWidget(Chart);
///     Legend->setPosition(ZyLegendWidget::TopCenterOfAxis);
class ZyLegendWidget : public ZyCustomLegendWidget {
  Q_OBJECT
  Q_PROPERTY(Position position READ position WRITE setPosition)

 public:
  /// As TZyLegendPosition.
  enum Position {
    BottomCenterOfGraph,
    BottomCenterOfAxis,
    LeftCenterOfGraph,
    LeftCenterOfAxis,
    LeftTopOfAxis,
    TopCenterOfGraph,
    TopCenterOfAxis,
    RightCenterOfGraph,
    RightCenterOfAxis,
    RightTopOfAxis,
    FreeFloating
  };
  Q_ENUM(Position)

  Q_INVOKABLE explicit ZyLegendWidget(QWidget* Parent = nullptr);
  TZyLegend* Control() const;
  Position position() const;
  void setPosition(Position Value);

 protected:
  bool Fits(const ZyCustomChartWidget& Chart) const override;
  void List(ZyCustomChartWidget* Chart) override;
  bool TakesPlace() const override;
};

/// The segments of a ZyPieWidget. On the chart it is docked; in the designer, where it is dropped.
class ZyPieLegendWidget : public ZyCustomLegendWidget {
  Q_OBJECT
  Q_PROPERTY(Position position READ position WRITE setPosition)

 public:
  /// As TZyPieLegendPosition.
  enum Position { LeftTop, LeftCenter, LeftBottom, CenterTop, CenterBottom, RightTop, RightCenter, RightBottom };
  Q_ENUM(Position)

  Q_INVOKABLE explicit ZyPieLegendWidget(QWidget* Parent = nullptr);
  TZyPieLegend* Control() const;
  Position position() const;
  void setPosition(Position Value);
  bool IsPlace(const QString& Path) const override;

 protected:
  bool Fits(const ZyCustomChartWidget& Chart) const override;
  void List(ZyCustomChartWidget* Chart) override;
};

}  // namespace zy
