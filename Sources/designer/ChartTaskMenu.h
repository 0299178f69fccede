#pragma once

#include <QDesignerTaskMenuExtension>
#include <QExtensionFactory>
#include <QObject>
#include <QPointer>

class QAction;
class QExtensionManager;

namespace zy {

class ZyCustomChartWidget;

/// What the context menu of a chart on a form has in front, and a double click does: the settings dialog of the chart.
/// What is set there is a property like those of the property editor, and stored with the form; series are the
/// application's.
class ChartTaskMenu : public QObject, public QDesignerTaskMenuExtension {
  Q_OBJECT
  Q_INTERFACES(QDesignerTaskMenuExtension)

 public:
  ChartTaskMenu(ZyCustomChartWidget& Widget, QObject* Parent);
  QAction* preferredEditAction() const override { return FSettings; }
  QList<QAction*> taskActions() const override { return {FSettings}; }

 private:
  void ShowSettings();

  QPointer<ZyCustomChartWidget> FWidget;
  QAction* FSettings;  // a child
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
