#pragma once

#include <QList>
#include <QObject>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>
#include <memory>
#include <vector>

namespace zy {

/// The widgets of the library for Qt Designer, and for programs that load forms at run time.
class DesignerWidgets : public QObject, public QDesignerCustomWidgetCollectionInterface {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID "org.qt-project.Qt.QDesignerCustomWidgetCollectionInterface")
  Q_INTERFACES(QDesignerCustomWidgetCollectionInterface)

 public:
  explicit DesignerWidgets(QObject* Parent = nullptr);
  ~DesignerWidgets() override;
  QList<QDesignerCustomWidgetInterface*> customWidgets() const override;

 private:
  std::vector<std::unique_ptr<QDesignerCustomWidgetInterface>> FWidgets;
};

}  // namespace zy
