#pragma once

#include <QPoint>
#include <QPointer>

#include "widgets/ZyControlWidget.h"

namespace zy {

class TGraphicControl;
class TPanel;
template <class TControl>
class TZyPlacedControl;
class ZyCustomChartWidget;

/// Base of what lies on charts, as widgets of the toolkit: legends and markers.
///
/// A widget whose parent is a chart widget stands on that chart: the chart lays its control out and paints it, with
/// the mouse and all else, and the widget is a frame around it through which the mouse goes, so that forms know where
/// it is. Hiding the widget hides the control. In any other parent the widget shows the control by itself.
class ZyPlacedWidget : public ZyControlWidget {
  Q_OBJECT

 public:
  ~ZyPlacedWidget() override;

  /// The chart on which it stands; null beside one.
  ZyCustomChartWidget* ChartWidget() const;
  /// In the designer the mouse takes the widget, and where it puts it is the control's place.
  void ShowSamples() override;
  ZyControlWidget* LooksLike() const override;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return {8, 8}; }

 protected:
  explicit ZyPlacedWidget(QWidget* Parent);
  /// For the end of constructors of heirs: takes the control, which Owner owns.
  void Place(TGraphicControl& Control);
  /// Null once it was freed.
  TGraphicControl* Placed() const { return FPlaced; }
  bool IsDesigned() const { return FIsDesigned; }
  /// Whether a chart is one for this control.
  virtual bool Fits(const ZyCustomChartWidget& Chart) const = 0;
  /// The control has its parent: the inside of a chart, or of this widget.
  virtual void Joined() = 0;
  /// Whether a move of the widget moves the control, which goes its own ways otherwise.
  virtual bool TakesPlace() const { return FIsDesigned; }

  TPersistent* RootOf(std::string& Path, bool Make) override;
  bool event(QEvent* Event) override;
  void paintEvent(QPaintEvent* Event) override;
  void moveEvent(QMoveEvent* Event) override;
  void resizeEvent(QResizeEvent* Event) override;
  void showEvent(QShowEvent* Event) override;

 private:
  template <class TControl>
  friend class TZyPlacedControl;

  class THost;

  void Join();
  void Follow();
  void TakePlace();

  QPointer<ZyCustomChartWidget> FChart;
  TPanel* FHost = nullptr;  // of the owner; shown while there is no chart
  TGraphicControl* FPlaced = nullptr;
  QPoint FKnown;  // where the widget is by the control's doing
  bool FIsDesigned = false;
  bool FIsTaking = false;
};

/// The control of such a widget, which hears of its bounds. It has the class of the control for all that stores it.
template <class TControl>
class TZyPlacedControl : public TControl {
 public:
  TZyPlacedControl(TComponent* Owner, ZyPlacedWidget& Widget) : TControl(Owner), FWidget(&Widget) {}
  ~TZyPlacedControl() override {
    if (FWidget != nullptr) FWidget->FPlaced = nullptr;
  }

  void SetBounds(int Left, int Top, int Width, int Height) override {
    TControl::SetBounds(Left, Top, Width, Height);
    if (FWidget != nullptr) FWidget->Follow();
  }

 protected:
  QPointer<ZyPlacedWidget> FWidget;
};

}  // namespace zy
