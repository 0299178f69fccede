#pragma once

#include <QDesignerDynamicPropertySheetExtension>
#include <QDesignerPropertySheetExtension>
#include <QExtensionFactory>
#include <QHash>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QVariant>
#include <functional>
#include <memory>
#include <utility>

class QExtensionManager;

namespace zy {

class ZyControlWidget;

/// What the designer's property editor shows of a widget of the library: what it shows of any widget, and behind that
/// the published properties of its control by their paths. Those that are not as in a new one are stored in the form,
/// as dynamic properties. New is a widget with the same declared properties, on or for a chart of the same: what its
/// look makes of it is no change, and what is as in a new one stays so when a declared property changes.
class PublishedSheet : public QObject,
                       public QDesignerPropertySheetExtension,
                       public QDesignerDynamicPropertySheetExtension {
  Q_OBJECT
  Q_INTERFACES(QDesignerPropertySheetExtension QDesignerDynamicPropertySheetExtension)

 public:
  /// Of the two parts of the toolkit's own sheet for the widget; they belong to the designer.
  PublishedSheet(ZyControlWidget& Widget, QDesignerPropertySheetExtension& Base,
                 QDesignerDynamicPropertySheetExtension* BaseDynamic, QExtensionManager& Manager, QObject* Parent);

  /// Null once the widget died.
  const ZyControlWidget* Widget() const;

  int count() const override { return FBase.count() + static_cast<int>(FPaths.size()); }
  int indexOf(const QString& Name) const override;
  QString propertyName(int Index) const override;
  QString propertyGroup(int Index) const override;
  void setPropertyGroup(int Index, const QString& Group) override;
  bool hasReset(int Index) const override;
  bool reset(int Index) override;
  bool isVisible(int Index) const override { return IsOurs(Index) || FBase.isVisible(Index); }
  void setVisible(int Index, bool Value) override;
  bool isAttribute(int Index) const override { return !IsOurs(Index) && FBase.isAttribute(Index); }
  void setAttribute(int Index, bool Value) override;
  QVariant property(int Index) const override;
  void setProperty(int Index, const QVariant& Value) override;
  bool isChanged(int Index) const override;
  void setChanged(int Index, bool Value) override;
  bool isEnabled(int Index) const override { return IsOurs(Index) || FBase.isEnabled(Index); }

  bool dynamicPropertiesAllowed() const override { return true; }
  int addDynamicProperty(const QString& Name, const QVariant& Value) override;
  bool removeDynamicProperty(int Index) override;
  bool isDynamicProperty(int Index) const override;
  bool canAddDynamicProperty(const QString& Name) const override;

 private:
  using TDeclared = QList<std::pair<QByteArray, QVariant>>;

  bool IsOurs(int Index) const { return Index >= FBase.count(); }
  QString TextOf(const QVariant& Value);
  const QString& Path(int Index) const { return FPaths[Index - FBase.count()]; }
  TDeclared Declared() const;
  QList<TDeclared> Key() const;
  std::unique_ptr<ZyControlWidget> MakeNew(QWidget* On) const;
  const PublishedSheet* Chart() const;
  QVariant Default(const QString& Path) const;
  QHash<QString, QVariant> AsNew() const;
  void Renew(const QHash<QString, QVariant>& Before);
  void Declare(int Index, const std::function<void()>& Do);

  QPointer<ZyControlWidget> FWidget;
  QDesignerPropertySheetExtension& FBase;
  QDesignerDynamicPropertySheetExtension* FBaseDynamic;
  QExtensionManager& FManager;
  QList<QString> FPaths;
  mutable QHash<QString, QVariant> FDefaults;
  mutable QList<TDeclared> FKey;  // of the defaults
};

/// Makes these sheets, in front of the designer's own.
class PublishedSheetFactory : public QExtensionFactory {
  Q_OBJECT

 public:
  using QExtensionFactory::QExtensionFactory;
  /// Registers a factory for both parts of a sheet.
  static void Register(QExtensionManager& Manager);

 protected:
  QObject* createExtension(QObject* Object, const QString& Iid, QObject* Parent) const override;

 private:
  mutable bool FAsksOthers = false;
};

}  // namespace zy
