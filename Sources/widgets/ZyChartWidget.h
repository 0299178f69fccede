#pragma once

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
  /// Colours, fonts and grid, given to what the chart has at that time; see ApplyLook. PaletteLook follows the palette
  /// of the application.
  Q_PROPERTY(Look look READ look WRITE setLook)
  /// Captions of the primary axes, in the markup of captions.
  Q_PROPERTY(QString xCaption READ xCaption WRITE setXCaption)
  Q_PROPERTY(QString yCaption READ yCaption WRITE setYCaption)

 public:
  enum Look { OwnLook, LightLook, DarkLook, PrintLook, HighContrastLook, PaletteLook };
  Q_ENUM(Look)

  Q_INVOKABLE explicit ZyChartWidget(QWidget* Parent = nullptr);
  ~ZyChartWidget() override;

  /// The chart. It has its primary axes.
  TZyGraph2D& Graph() const { return static_cast<TZyGraph2D&>(Chart()); }

  Look look() const { return FLook; }
  void setLook(Look Value);
  QString xCaption() const;
  void setXCaption(const QString& Value);
  QString yCaption() const;
  void setYCaption(const QString& Value);

  /// A series of the kind TSeries, of the owner, with these data, on the primary axes; null as X takes the index.
  template <class TSeries>
  TSeries* AddSeries(TZyCustomDoubleVector* X, TZyCustomDoubleVector* Y) {
    auto* const Series = new TSeries(&Owner());
    Join(*Series, X, Y);
    return Series;
  }
  void ShowSamples() override;
  void GiveLook(TControl& Part) const override;

 signals:
  /// The user zoomed, by whatever gesture, or went back.
  void zoomed();
  /// The user moved the ranges.
  void panned();

 protected:
  std::vector<std::string> Parts() const override { return {"PrimaryXAxis", "PrimaryYAxis"}; }
  TControl* Legend(bool Make) override;

 private:
  class TWatched;

  void Join(TZySeries& Series, TZyCustomDoubleVector* X, TZyCustomDoubleVector* Y);
  TComponent* Part(const char* Name) const { return Owner().FindComponent(Name); }

  Look FLook = OwnLook;
};

}  // namespace zy
