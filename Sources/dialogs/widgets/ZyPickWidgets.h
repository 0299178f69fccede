#pragma once

#include <QColor>
#include <QString>
#include <QStringList>
#include <functional>

#include "widgets/ZyControlWidget.h"

namespace zy {

class TObject;
class TZyAreaStylesCombo;
class TZyCaptionEdit;
class TZyColorPickCombo;
class TZyDashStylesCombo;
class TZyDoubleEdit;
class TZyIntegerEdit;
class TZyNumericUpDn;
class TZyPointSymbolsCombo;
class TZyPropertyLinks;

/// Base of the controls with which users change charts, as widgets of the toolkit. The event of a change is the
/// widget's own; programs connect to `changed`.
class ZyLinkedWidget : public ZyControlWidget {
  Q_OBJECT
  /// The properties that the control shows and changes: paths that begin with the name of a chart widget
  /// ("chart.Graph.BackColor", "pie.Pie.StartAngle"). The control then needs no code at all.
  Q_PROPERTY(QStringList links READ links WRITE setLinks)

 public:
  QStringList links() const;
  void setLinks(const QStringList& Value);

 signals:
  /// The value is another one, by the user or by a link.
  void changed();

 protected:
  using ZyControlWidget::ZyControlWidget;
  /// Makes the control, which has an event Changed.
  template <class TControl>
  void Make(void (TControl::*SetChanged)(std::function<void(TObject*)>));
  template <class TControl>
  TControl& As() const;

 private:
  TZyPropertyLinks* FLinks = nullptr;  // of the control
};

/// A colour with its opacity.
class ZyColorPickWidget : public ZyLinkedWidget {
  Q_OBJECT
  Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY changed)

 public:
  Q_INVOKABLE explicit ZyColorPickWidget(QWidget* Parent = nullptr);
  TZyColorPickCombo& Control() const;
  QColor color() const;
  void setColor(const QColor& Value);
};

/// A whole number.
class ZyIntegerEditWidget : public ZyLinkedWidget {
  Q_OBJECT
  Q_PROPERTY(int value READ value WRITE setValue NOTIFY changed)

 public:
  Q_INVOKABLE explicit ZyIntegerEditWidget(QWidget* Parent = nullptr);
  TZyIntegerEdit& Control() const;
  int value() const;
  void setValue(int Value);
};

/// A real, a date, a time span.
class ZyDoubleEditWidget : public ZyLinkedWidget {
  Q_OBJECT
  Q_PROPERTY(double value READ value WRITE setValue NOTIFY changed)

 public:
  Q_INVOKABLE explicit ZyDoubleEditWidget(QWidget* Parent = nullptr);
  TZyDoubleEdit& Control() const;
  double value() const;
  void setValue(double Value);
};

/// A real with step buttons.
class ZyNumericUpDnWidget : public ZyLinkedWidget {
  Q_OBJECT
  Q_PROPERTY(double value READ value WRITE setValue NOTIFY changed)

 public:
  Q_INVOKABLE explicit ZyNumericUpDnWidget(QWidget* Parent = nullptr);
  TZyNumericUpDn& Control() const;
  double value() const;
  void setValue(double Value);
};

/// The dashes of a line. The value is the published "DashStyle".
class ZyDashStylesWidget : public ZyLinkedWidget {
  Q_OBJECT

 public:
  Q_INVOKABLE explicit ZyDashStylesWidget(QWidget* Parent = nullptr);
  TZyDashStylesCombo& Control() const;
};

/// The pattern of an area. The value is the published "AreaStyle".
class ZyAreaStylesWidget : public ZyLinkedWidget {
  Q_OBJECT

 public:
  Q_INVOKABLE explicit ZyAreaStylesWidget(QWidget* Parent = nullptr);
  TZyAreaStylesCombo& Control() const;
};

/// A point symbol. The value is the published "Symbol".
class ZyPointSymbolsWidget : public ZyLinkedWidget {
  Q_OBJECT

 public:
  Q_INVOKABLE explicit ZyPointSymbolsWidget(QWidget* Parent = nullptr);
  TZyPointSymbolsCombo& Control() const;
};

/// A caption with fonts, colours and values.
class ZyCaptionEditWidget : public ZyLinkedWidget {
  Q_OBJECT
  /// In the markup of captions.
  Q_PROPERTY(QString caption READ caption WRITE setCaption NOTIFY changed)

 public:
  Q_INVOKABLE explicit ZyCaptionEditWidget(QWidget* Parent = nullptr);
  TZyCaptionEdit& Control() const;
  QString caption() const;
  void setCaption(const QString& Value);
};

}  // namespace zy
