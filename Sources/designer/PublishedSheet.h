#pragma once

#include <QDesignerDynamicPropertySheetExtension>
#include <QDesignerPropertySheetExtension>
#include <QExtensionFactory>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QVariant>

namespace zy {

class ZyControlWidget;

/// What the designer's property editor shows of a widget of the library: what it shows of any widget, and behind that
/// the published properties of its control by their paths. Those that are not as in a new one are stored in the form,
/// as dynamic properties.
class PublishedSheet : public QObject,
                       public QDesignerPropertySheetExtension,
                       public QDesignerDynamicPropertySheetExtension {
  Q_OBJECT
  Q_INTERFACES(QDesignerPropertySheetExtension QDesignerDynamicPropertySheetExtension)

 public:
  /// Of the two parts of the toolkit's own sheet for the widget; they belong to the designer.
  PublishedSheet(ZyControlWidget& Widget, QDesignerPropertySheetExtension& Base,
                 QDesignerDynamicPropertySheetExtension* BaseDynamic, QObject* Parent);

  /// Null once the widget died.
  const ZyControlWidget* Widget() const;

  int count() const override { return FBase.count() + static_cast<int>(FRows.size()); }
  int indexOf(const QString& Name) const override;
  QString propertyName(int Index) const override;
  QString propertyGroup(int Index) const override;
  void setPropertyGroup(int Index, const QString& Group) override;
  bool hasReset(int Index) const override { return IsOurs(Index) || FBase.hasReset(Index); }
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
  struct TRow {
    QString Path;
    QVariant Default;
  };

  bool IsOurs(int Index) const { return Index >= FBase.count(); }
  QString TextOf(const QVariant& Value);
  const TRow& Row(int Index) const { return FRows[Index - FBase.count()]; }

  QPointer<ZyControlWidget> FWidget;
  QDesignerPropertySheetExtension& FBase;
  QDesignerDynamicPropertySheetExtension* FBaseDynamic;
  QList<TRow> FRows;
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
