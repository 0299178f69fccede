#pragma once

#include <QColor>
#include <QPoint>
#include <QString>
#include <optional>

#include "widgets/ZyControlWidget.h"
#ifndef Q_MOC_RUN  // which cannot read all that this includes
#include "graph/ZyCustomGraph.h"
#endif

class QPrinter;

namespace zy {

class TZyMovable;
struct TZyLook;
template <class TChart>
class TZyWatchedChart;

/// Base of the chart widgets. They take the keyboard by the tabulator key and by a click (Qt::StrongFocus), unless
/// setFocusPolicy says otherwise.
class ZyCustomChartWidget : public ZyControlWidget {
  Q_OBJECT
  Q_MOC_INCLUDE("annotations/ZyMovable.h")
  /// The title, shown unless it is empty. In the markup of captions.
  Q_PROPERTY(QString caption READ caption WRITE setCaption)
  /// Colours, fonts and grid, given to what the chart has at that time; see ApplyLook. PaletteLook follows the palette
  /// of the application.
  Q_PROPERTY(Look look READ look WRITE setLook)
  /// The ground of the whole chart; what is not opaque lets the window shine through.
  Q_PROPERTY(QColor backColor READ backColor WRITE setBackColor)
  /// Whether there is a legend, at the right at first. Paths to its properties begin with "Legend.".
  Q_PROPERTY(bool legendVisible READ legendVisible WRITE setLegendVisible)

 public:
  enum Look { OwnLook, LightLook, DarkLook, PrintLook, HighContrastLook, PaletteLook };
  Q_ENUM(Look)

  /// The chart as far as all kinds have it in common.
  TZyCustomGraph& Chart() const { return static_cast<TZyCustomGraph&>(Shown()); }

  QString caption() const;
  void setCaption(const QString& Value);
  Look look() const { return FLook; }
  void setLook(Look Value);
  QColor backColor() const;
  void setBackColor(const QColor& Value);
  bool legendVisible() const;
  void setLegendVisible(bool Value);

  std::vector<std::string> PropertyPaths() const override;
  void MakeParts() override;
  /// Gives a legend or a marker that comes later the look that the chart was given.
  void GiveLook(TControl& Part) const;

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
  /// A click, at a place in the widget; what lies there the chart can tell. A drag is none, wherever it ends.
  void clicked(const QPoint& Place);
  /// The second press of a double click, which has been, and will be, a click as well.
  void doubleClicked(const QPoint& Place);
  /// The user, or the program by MoveTo, moves a marker of the chart; and it has been moved, by whomever. The markers
  /// of labels tell of their arrows, too. A cross hair tells of itself, not of its lines.
  void markerMoving(zy::TZyMovable* Marker);
  void markerMoved(zy::TZyMovable* Marker);
  /// Series came, went or look otherwise, or their data are others; once for all that happened until the program waits
  /// for events.
  void contentChanged();

 protected:
  explicit ZyCustomChartWidget(QWidget* Parent);
  /// Takes the chart, with the keys that go with it.
  void ShowChart(TZyCustomGraph& Value);
  /// The legend, null while there is none and it is not to be made.
  virtual TControl* Legend(bool Make) = 0;
  /// The look that the chart was given, nothing for its own.
  std::optional<TZyLook> PresentLook() const;
  TPersistent* RootOf(std::string& Path, bool Make) override;
  void NoteContent();
  /// Tells what was clicked, and what the mouse is over without a button, nothing when it has left. Either may delete
  /// the widget.
  virtual void ClickedAt(const QPoint& Place) = 0;
  virtual void HoversAt(const std::optional<QPoint>& Place) = 0;
  /// What lies at a place, unless the question throws.
  template <class TResult, class F>
  TResult Asked(TResult Without, F Ask) {
    Guarded([&] { Without = Ask(); });
    return Without;
  }
  /// The item of a legend in the chart that is seen at a place, and its legend.
  struct TLegendItem {
    TControl* Legend = nullptr;
    int Index = -1;
  };
  TLegendItem LegendItemAt(const QPoint& Place) const;

 private:
  template <class TChart>
  friend class TZyWatchedChart;

  void NotePress(const QEvent& Event);
  void TellMouse(const QEvent& Event);

  std::optional<QPoint> FPressed;  // of what may be a click yet
  bool FContentNoted = false;
  Look FLook = OwnLook;
};

}  // namespace zy
