#pragma once

#include <QColor>
#include <QPoint>
#include <QString>

#include "widgets/ZyControlWidget.h"
#ifndef Q_MOC_RUN  // which cannot read all that this includes
#include "graph/ZyCustomGraph.h"
#endif

class QPrinter;

namespace zy {

template <class TChart>
class TZyWatchedChart;

/// Base of the chart widgets.
class ZyCustomChartWidget : public ZyControlWidget {
  Q_OBJECT
  /// The title, shown unless it is empty. In the markup of captions.
  Q_PROPERTY(QString caption READ caption WRITE setCaption)
  /// The ground of the whole chart; what is not opaque lets the window shine through.
  Q_PROPERTY(QColor backColor READ backColor WRITE setBackColor)
  /// Whether there is a legend, at the right at first. Paths to its properties begin with "Legend.".
  Q_PROPERTY(bool legendVisible READ legendVisible WRITE setLegendVisible)

 public:
  /// The chart as far as all kinds have it in common.
  TZyCustomGraph& Chart() const { return static_cast<TZyCustomGraph&>(Shown()); }

  QString caption() const;
  void setCaption(const QString& Value);
  QColor backColor() const;
  void setBackColor(const QColor& Value);
  bool legendVisible() const;
  void setLegendVisible(bool Value);

  std::vector<std::string> PropertyPaths() const override;
  void MakeParts() override;
  /// Gives a legend or a marker that comes later the look that the chart was given.
  virtual void GiveLook(TControl& /*Part*/) const {}

  QSize sizeHint() const override { return {480, 320}; }
  QSize minimumSizeHint() const override { return {80, 60}; }

 public slots:
  /// Prints the chart on the printer's page, as large as fits: for QPrintPreviewDialog::paintRequested.
  void print(QPrinter* Printer);
  /// Shows the print preview.
  void printPreview();
  /// Shows new data now.
  void refresh();

 signals:
  /// A click, at a place in the widget; what lies there the chart can tell. A drag that ends here is none.
  void clicked(const QPoint& Place);
  void doubleClicked(const QPoint& Place);
  /// Series came, went or look otherwise, or their data are others; once for all that happened until the program waits
  /// for events.
  void contentChanged();

 protected:
  explicit ZyCustomChartWidget(QWidget* Parent);
  /// The legend, null while there is none and it is not to be made.
  virtual TControl* Legend(bool Make) = 0;
  TPersistent* RootOf(std::string& Path, bool Make) override;
  void NoteContent();

 private:
  template <class TChart>
  friend class TZyWatchedChart;

  void NoteClick(const QPoint& From, const QPoint& Place);

  bool FContentNoted = false;
};

}  // namespace zy
