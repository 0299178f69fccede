#include "designer/PublishedSheet.h"

#include <QExtensionManager>
#include <QHash>
#include <memory>

#include "platform/framework/ScopedFlag.h"
#include "widgets/ZyControlWidget.h"

namespace zy {
namespace {

const QString SheetIid = Q_TYPEID(QDesignerPropertySheetExtension);
const QString DynamicIid = Q_TYPEID(QDesignerDynamicPropertySheetExtension);

using TDefaults = QHash<QString, QVariant>;

/// The values of a new widget of that kind, with the samples that it has on the form.
const TDefaults& DefaultsOf(const ZyControlWidget& Widget) {
  static QHash<QByteArray, TDefaults> Known;
  const QMetaObject& Kind = *Widget.metaObject();
  const auto Found = Known.constFind(Kind.className());
  if (Found != Known.constEnd()) return *Found;
  TDefaults& Result = Known[Kind.className()];
  const std::unique_ptr<QObject> Made(Kind.newInstance(Q_ARG(QWidget*, nullptr)));
  auto* const Fresh = qobject_cast<ZyControlWidget*>(Made.get());
  if (Fresh == nullptr) return Result;
  Fresh->ShowSamples();
  Fresh->MakeParts();
  for (const std::string& Path : Fresh->PropertyPaths())
    Result.insert(QString::fromStdString(Path), Fresh->PropertyAt(QString::fromStdString(Path)));
  return Result;
}

}  // namespace

PublishedSheet::PublishedSheet(ZyControlWidget& Widget, QDesignerPropertySheetExtension& Base,
                               QDesignerDynamicPropertySheetExtension* BaseDynamic, QObject* Parent)
    : QObject(Parent), FWidget(&Widget), FBase(Base), FBaseDynamic(BaseDynamic) {
  connect(&Widget, &QObject::destroyed, this, &QObject::deleteLater);
  Widget.MakeParts();
  const TDefaults& Defaults = DefaultsOf(Widget);
  for (const std::string& Each : Widget.PropertyPaths()) {
    const QString Path = QString::fromStdString(Each);
    FRows.push_back({Path, Defaults.value(Path)});
  }
}

const ZyControlWidget* PublishedSheet::Widget() const { return FWidget; }

int PublishedSheet::indexOf(const QString& Name) const {
  for (int i = 0; i < FRows.size(); ++i)
    if (FRows[i].Path == Name) return FBase.count() + i;
  return FBase.indexOf(Name);
}

QString PublishedSheet::propertyName(int Index) const {
  return IsOurs(Index) ? Row(Index).Path : FBase.propertyName(Index);
}

/// A heading for each part of the control.
QString PublishedSheet::propertyGroup(int Index) const {
  if (!IsOurs(Index)) return FBase.propertyGroup(Index);
  const qsizetype Point = Row(Index).Path.lastIndexOf('.');
  return Point < 0 ? QStringLiteral("Published") : Row(Index).Path.left(Point);
}

void PublishedSheet::setPropertyGroup(int Index, const QString& Group) {
  if (!IsOurs(Index)) FBase.setPropertyGroup(Index, Group);
}

bool PublishedSheet::reset(int Index) {
  if (!IsOurs(Index)) return FBase.reset(Index);
  setProperty(Index, Row(Index).Default);
  return true;
}

void PublishedSheet::setVisible(int Index, bool Value) {
  if (!IsOurs(Index)) FBase.setVisible(Index, Value);
}

void PublishedSheet::setAttribute(int Index, bool Value) {
  if (!IsOurs(Index)) FBase.setAttribute(Index, Value);
}

QVariant PublishedSheet::property(int Index) const {
  if (!IsOurs(Index)) return FBase.property(Index);
  return FWidget == nullptr ? QVariant() : FWidget->PropertyAt(Row(Index).Path);
}

void PublishedSheet::setProperty(int Index, const QVariant& Value) {
  if (!IsOurs(Index)) return FBase.setProperty(Index, Value);
  if (FWidget == nullptr) return;
  const bool IsText = Row(Index).Default.typeId() == QMetaType::QString;
  FWidget->SetPropertyAt(Row(Index).Path, IsText && !Value.canConvert<QString>() ? QVariant(TextOf(Value)) : Value);
}

/// The designer hands texts over in a class of its own, which its own sheet can read alone: it takes one to a property
/// of the widget, which then has it as a text.
QString PublishedSheet::TextOf(const QVariant& Value) {
  const int Index = FBase.indexOf("statusTip");
  const QVariant Before = FBase.property(Index);
  const bool WasChanged = FBase.isChanged(Index);
  FBase.setProperty(Index, Value);
  const QString Result = FWidget->statusTip();
  FBase.setProperty(Index, Before);
  FBase.setChanged(Index, WasChanged);
  return Result;
}

bool PublishedSheet::isChanged(int Index) const {
  return IsOurs(Index) ? property(Index) != Row(Index).Default : FBase.isChanged(Index);
}

void PublishedSheet::setChanged(int Index, bool Value) {
  if (!IsOurs(Index)) FBase.setChanged(Index, Value);
}

int PublishedSheet::addDynamicProperty(const QString& Name, const QVariant& Value) {
  return FBaseDynamic == nullptr ? -1 : FBaseDynamic->addDynamicProperty(Name, Value);
}

bool PublishedSheet::removeDynamicProperty(int Index) {
  return IsOurs(Index) ? reset(Index) : FBaseDynamic != nullptr && FBaseDynamic->removeDynamicProperty(Index);
}

/// The form stores all dynamic properties, and tells compilers of forms that they have no setter of their own.
bool PublishedSheet::isDynamicProperty(int Index) const {
  return IsOurs(Index) ? isChanged(Index) : FBaseDynamic != nullptr && FBaseDynamic->isDynamicProperty(Index);
}

bool PublishedSheet::canAddDynamicProperty(const QString& Name) const {
  return indexOf(Name) < 0 && FBaseDynamic != nullptr && FBaseDynamic->canAddDynamicProperty(Name);
}

void PublishedSheetFactory::Register(QExtensionManager& Manager) {
  auto* const Factory = new PublishedSheetFactory(&Manager);
  Manager.registerExtensions(Factory, SheetIid);
  Manager.registerExtensions(Factory, DynamicIid);
}

QObject* PublishedSheetFactory::createExtension(QObject* Object, const QString& Iid, QObject* Parent) const {
  auto* const Widget = qobject_cast<ZyControlWidget*>(Object);
  if (Widget == nullptr || FAsksOthers || (Iid != SheetIid && Iid != DynamicIid)) return nullptr;
  for (QObject* Child : Parent->children())  // both parts are one sheet
    if (auto* const Sheet = qobject_cast<PublishedSheet*>(Child); Sheet != nullptr && Sheet->Widget() == Widget)
      return Sheet;
  const TScopedValue Asks(FAsksOthers, true);
  QExtensionManager& Manager = *extensionManager();
  auto* const Base = qobject_cast<QDesignerPropertySheetExtension*>(Manager.extension(Object, SheetIid));
  if (Base == nullptr) return nullptr;
  auto* const Dynamic = qobject_cast<QDesignerDynamicPropertySheetExtension*>(Manager.extension(Object, DynamicIid));
  return new PublishedSheet(*Widget, *Base, Dynamic, Parent);
}

}  // namespace zy
