#pragma once

#include <QDesignerTaskMenuExtension>
#include <QExtensionFactory>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QVariant>
#include <functional>

class QAction;
class QDesignerFormWindowInterface;
class QExtensionManager;

namespace zy {

class ZyControlWidget;
class ZyCustomChartWidget;

/// What the context menu of a chart or a legend on a form has in front, and a double click does: the settings dialog of
/// the chart. What is set there is a property like those of the property editor, stored with the form, and a step of
/// the designer's undo; series are the application's.
class ChartTaskMenu : public QObject, public QDesignerTaskMenuExtension {
  Q_OBJECT
  Q_INTERFACES(QDesignerTaskMenuExtension)

 public:
  ChartTaskMenu(ZyControlWidget& Widget, QObject* Parent);
  ~ChartTaskMenu() override;
  QAction* preferredEditAction() const override { return FSettings; }
  QList<QAction*> taskActions() const override { return {FSettings}; }

 private:
  /// A published property of the chart, or of what lies on it.
  struct TValue {
    QPointer<ZyControlWidget> Widget;
    QString Path;
    QVariant Value;
    bool operator==(const TValue&) const = default;
  };
  using TValues = QList<TValue>;
  class TStep;

  void ShowSettings();
  void Watch();
  void Unwatch();
  ZyCustomChartWidget* Chart() const;
  TValues Values() const;
  static TValues Without(TValues Values, const TValues& Others);

  QPointer<ZyControlWidget> FWidget;
  QAction* FSettings;              // a child
  std::function<bool()> FIsShown;  // the dialog
  TValues FKnown;                  // since the last step
};

/// Makes these menus.
class ChartTaskMenuFactory : public QExtensionFactory {
  Q_OBJECT

 public:
  using QExtensionFactory::QExtensionFactory;
  static void Register(QExtensionManager& Manager);

 protected:
  QObject* createExtension(QObject* Object, const QString& Iid, QObject* Parent) const override;
};

}  // namespace zy
