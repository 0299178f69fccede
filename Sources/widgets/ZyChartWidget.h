#pragma once

#include <cstdint>

#include "widgets/ZyCustomChartWidget.h"
#ifndef Q_MOC_RUN  // which cannot read all that this includes
#include "graph/ZyGraph2D.h"
#endif

namespace zy {

/// A cartesian chart as a widget of the toolkit.
///
///     auto* const Chart = new ZyChartWidget;
///     Layout->addWidget(Chart);
///     Chart->AddSeries<TZyLineSeries>(Times, Values)->SetCaption("Voltage");
///     connect(Chart, &ZyChartWidget::clicked, this, &Window::ShowPoint);
class ZyChartWidget : public ZyCustomChartWidget {
  Q_OBJECT
  Q_MOC_INCLUDE("series/ZySeries.h")
  /// Captions of the primary axes, in the markup of captions.
  Q_PROPERTY(QString xCaption READ xCaption WRITE setXCaption)
  Q_PROPERTY(QString yCaption READ yCaption WRITE setYCaption)

 public:
  Q_INVOKABLE explicit ZyChartWidget(QWidget* Parent = nullptr);
  ~ZyChartWidget() override;

  /// The chart. It has its primary axes.
  TZyGraph2D& Graph() const { return static_cast<TZyGraph2D&>(Chart()); }

  QString xCaption() const;
  void setXCaption(const QString& Value);
  QString yCaption() const;
  void setYCaption(const QString& Value);

  /// A series of the kind TSeries, of the owner, with these data, on the primary axes; null as X takes the index. It
  /// has a name, under which it is stored, and the next colour of the look.
  template <class TSeries>
  TSeries* AddSeries(TZyCustomDoubleVector* X, TZyCustomDoubleVector* Y) {
    auto* const Series = new TSeries(&Owner());
    Join(*Series, X, Y);
    return Series;
  }
  void ShowSamples() override;

 signals:
  /// A gesture of the user that may zoom has begun. A frame that comes to nothing has no end.
  void zoomStarted();
  /// A gesture has ended, or the ranges went back: by the user, or by ZoomBack and ZoomReset of the chart, as far as
  /// there was something to go back to. What else the program does to the ranges is not told.
  void zoomed();
  /// The user has begun to move the ranges by the mouse or a touch pad; steps of keys and scroll bars have no
  /// beginning.
  void panStarted();
  /// The user moved the ranges, or gave a move up.
  void panned();
  /// The mouse has come over a point, as FindSeriesPoint has it: its series, and its index in the data. Null and -1
  /// when it lies over none any more, or has left. Not told while a button is pressed.
  void pointHovered(zy::TZySeries* Series, int Index);
  /// A click on a point.
  void pointClicked(zy::TZySeries* Series, int Index);
  /// A click on an item of a legend in the chart.
  void legendItemClicked(zy::TZySeries* Series);

 protected:
  std::vector<std::string> Parts() const override { return {"PrimaryXAxis", "PrimaryYAxis"}; }
  TControl* Legend(bool Make) override;
  void ClickedAt(const QPoint& Place) override;
  void HoversAt(const std::optional<QPoint>& Place) override;

 private:
  class TWatched;

  void Join(TZySeries& Series, TZyCustomDoubleVector* X, TZyCustomDoubleVector* Y);
  TComponent* Part(const char* Name) const { return Owner().FindComponent(Name); }

  std::uint64_t FHovered = 0;  // the live handle of the series
  int FHoveredIndex = -1;
};

}  // namespace zy
