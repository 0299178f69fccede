#pragma once

#include "widgets/ZyPlacedWidget.h"

namespace zy {

class TZyCrossHair;
class TZyHorizontalMarker;
class TZyLabelWithArrowMarker;
class TZyMovable;
class TZyVerticalMarker;

/// Base of markers as widgets, children of a ZyChartWidget. They stand on its primary axes until they are given others,
/// at the values "X" and "Y":
///
///     auto* const Limit = new ZyHorizontalMarkerWidget(Chart);
///     Limit->setProperty("Y", 4.5);
///     connect(Limit, &ZyMarkerWidget::moved, this, &Window::TakeLimit);
class ZyMarkerWidget : public ZyPlacedWidget {
  Q_OBJECT

 public:
  /// The marker as far as all kinds have it in common, null once it was freed. It is a part of the widget: records of
  /// the chart have nothing of it.
  TZyMovable* Marker() const;
  bool IsPlace(const QString& Path) const override;

 signals:
  /// The user moves it, or it was moved: by the end of a drag, by the program, by undo.
  void moving();
  void moved();

 protected:
  using ZyPlacedWidget::ZyPlacedWidget;
  /// Makes the marker.
  template <class TMarker>
  void Make();
  bool Fits(const ZyCustomChartWidget& Chart) const override;
  void Joined() override;

 private:
  template <class TMarker>
  class TWatched;
};

/// A line at a value of the Y axis.
class ZyHorizontalMarkerWidget : public ZyMarkerWidget {
  Q_OBJECT

 public:
  Q_INVOKABLE explicit ZyHorizontalMarkerWidget(QWidget* Parent = nullptr);
  TZyHorizontalMarker* Control() const;
};

/// A line at a value of the X axis.
class ZyVerticalMarkerWidget : public ZyMarkerWidget {
  Q_OBJECT

 public:
  Q_INVOKABLE explicit ZyVerticalMarkerWidget(QWidget* Parent = nullptr);
  TZyVerticalMarker* Control() const;
};

/// Two lines with a handle where they cross.
class ZyCrossHairWidget : public ZyMarkerWidget {
  Q_OBJECT

 public:
  Q_INVOKABLE explicit ZyCrossHairWidget(QWidget* Parent = nullptr);
  TZyCrossHair* Control() const;
};

/// A caption with an arrow that points at a place.
class ZyArrowLabelWidget : public ZyMarkerWidget {
  Q_OBJECT

 public:
  Q_INVOKABLE explicit ZyArrowLabelWidget(QWidget* Parent = nullptr);
  TZyLabelWithArrowMarker* Control() const;
};

}  // namespace zy
