#include "designer/PublishedSheet.h"

#include <QDesignerFormWindowInterface>
#include <QExtensionManager>
#include <QGuiApplication>
#include <QMetaProperty>
#include <QPalette>
#include <QRegularExpression>

#include "platform/framework/ScopedFlag.h"
#include "widgets/ZyControlWidget.h"

namespace zy {
namespace {

const QString SheetIid = Q_TYPEID(QDesignerPropertySheetExtension);
const QString DynamicIid = Q_TYPEID(QDesignerDynamicPropertySheetExtension);

PublishedSheet* SheetOf(QExtensionManager& Manager, QObject* Widget) {
  return dynamic_cast<PublishedSheet*>(qt_extension<QDesignerPropertySheetExtension*>(&Manager, Widget));
}

/// The name that a text begins, whatever its case; the text itself where that is none or several.
QString Completed(const QString& Text, const QStringList& Names) {
  const QStringList Fitting =
      Text.isEmpty() ? QStringList()
                     : QStringList(Names).filter(QRegularExpression('^' + QRegularExpression::escape(Text),
                                                                    QRegularExpression::CaseInsensitiveOption));
  return Fitting.size() == 1 && !Names.contains(Text) ? Fitting.front() : Text;
}

}  // namespace

PublishedSheet::PublishedSheet(ZyControlWidget& Widget, QDesignerPropertySheetExtension& Base,
                               QDesignerDynamicPropertySheetExtension* BaseDynamic, QExtensionManager& Manager,
                               QObject* Parent)
    : QObject(Parent), FWidget(&Widget), FBase(Base), FBaseDynamic(BaseDynamic), FManager(Manager) {
  connect(&Widget, &QObject::destroyed, this, &QObject::deleteLater);
  Widget.MakeParts();
  for (const std::string& Each : Widget.PropertyPaths()) FPaths.push_back(QString::fromStdString(Each));
}

const ZyControlWidget* PublishedSheet::Widget() const { return FWidget; }

// --- What a new widget has ------------------------------------------------------------------------------------------

/// The properties of the widgets' own classes that the form stores, in its order.
PublishedSheet::TDeclared PublishedSheet::Declared() const {
  TDeclared Result;
  const QMetaObject& Kind = *FWidget->metaObject();
  for (int i = ZyControlWidget::staticMetaObject.propertyCount(); i < Kind.propertyCount(); ++i) {
    const char* const Name = Kind.property(i).name();
    const int Index = FBase.indexOf(Name);
    if (Index >= 0 && FBase.isChanged(Index)) Result.push_back({Name, FWidget->property(Name)});
  }
  return Result;
}

/// The sheet of the chart that gives the widget its look, null for none.
const PublishedSheet* PublishedSheet::Chart() const {
  ZyControlWidget* const Chart = FWidget->LooksLike();
  return Chart == nullptr ? nullptr : SheetOf(FManager, Chart);
}

/// What the defaults depend on.
QList<PublishedSheet::TDeclared> PublishedSheet::Key() const {
  QList<TDeclared> Result;
  if (const PublishedSheet* const Other = Chart()) Result = Other->Key();
  Result.push_back(Declared());
  Result.back().push_back({"palette", QGuiApplication::palette().cacheKey()});
  return Result;
}

/// With the samples that it has on the form.
std::unique_ptr<ZyControlWidget> PublishedSheet::MakeNew(QWidget* On) const {
  std::unique_ptr<QObject> Made(FWidget->metaObject()->newInstance(Q_ARG(QWidget*, On)));
  auto* const Result = qobject_cast<ZyControlWidget*>(Made.get());
  if (Result == nullptr) return nullptr;
  static_cast<void>(Made.release());  // the same object
  Result->ShowSamples();
  Result->MakeParts();
  for (const auto& [Name, Value] : Declared()) Result->setProperty(Name, Value);
  return std::unique_ptr<ZyControlWidget>(Result);
}

QVariant PublishedSheet::Default(const QString& Path) const {
  if (const QList<TDeclared> Present = Key(); Present != FKey) {
    FKey = Present;
    FDefaults.clear();
    const PublishedSheet* const Other = Chart();
    const std::unique_ptr<ZyControlWidget> On = Other == nullptr ? nullptr : Other->MakeNew(nullptr);
    if (const std::unique_ptr<ZyControlWidget> Fresh = MakeNew(On.get()))
      for (const QString& Each : FPaths) FDefaults.insert(Each, Fresh->PropertyAt(Each));
  }
  return FDefaults.value(Path);
}

/// Those that are as in a new widget.
QHash<QString, QVariant> PublishedSheet::AsNew() const {
  QHash<QString, QVariant> Result;
  for (const QString& Each : FPaths)
    if (const QVariant Value = FWidget->PropertyAt(Each); Value == Default(Each)) Result.insert(Each, Value);
  return Result;
}

/// Makes what was as in a new widget so again, unless it is another value since.
void PublishedSheet::Renew(const QHash<QString, QVariant>& Before) {
  for (auto Each = Before.cbegin(); Each != Before.cend(); ++Each)
    if (Each.value() != Default(Each.key()) && FWidget->PropertyAt(Each.key()) == Each.value())
      FWidget->SetPropertyAt(Each.key(), Default(Each.key()));
}

/// Runs a change of a property that is not published. A declared one may change what is new, here and in what lies on
/// the chart.
void PublishedSheet::Declare(int Index, const std::function<void()>& Do) {
  const int Place = FWidget->metaObject()->indexOfProperty(FBase.propertyName(Index).toUtf8());
  if (Place < ZyControlWidget::staticMetaObject.propertyCount()) return Do();
  QList<PublishedSheet*> Sheets{this};
  if (auto* const Form = QDesignerFormWindowInterface::findFormWindow(FWidget))
    for (ZyControlWidget* Each : Form->findChildren<ZyControlWidget*>())
      if (auto* const Sheet = Each->LooksLike() == FWidget ? SheetOf(FManager, Each) : nullptr) Sheets.push_back(Sheet);
  QList<QHash<QString, QVariant>> Before;
  for (const PublishedSheet* Each : Sheets) Before.push_back(Each->AsNew());
  Do();
  for (qsizetype i = 0; i < Sheets.size(); ++i) Sheets[i]->Renew(Before[i]);
}

// --- Rows -----------------------------------------------------------------------------------------------------------

int PublishedSheet::indexOf(const QString& Name) const {
  const auto Found = static_cast<int>(FPaths.indexOf(Name));
  return Found >= 0 ? FBase.count() + Found : FBase.indexOf(Name);
}

QString PublishedSheet::propertyName(int Index) const {
  return IsOurs(Index) ? Path(Index) : FBase.propertyName(Index);
}

/// A heading for each part of the control.
QString PublishedSheet::propertyGroup(int Index) const {
  if (!IsOurs(Index)) return FBase.propertyGroup(Index);
  const qsizetype Point = Path(Index).lastIndexOf('.');
  return Point < 0 ? QStringLiteral("Published") : Path(Index).left(Point);
}

void PublishedSheet::setPropertyGroup(int Index, const QString& Group) {
  if (!IsOurs(Index)) FBase.setPropertyGroup(Index, Group);
}

bool PublishedSheet::hasReset(int Index) const {
  return IsOurs(Index) ? FWidget != nullptr && !FWidget->IsPlace(Path(Index)) : FBase.hasReset(Index);
}

bool PublishedSheet::reset(int Index) {
  if (FWidget == nullptr || !hasReset(Index)) return false;
  if (IsOurs(Index)) return FWidget->SetPropertyAt(Path(Index), Default(Path(Index)));
  bool Result = false;
  Declare(Index, [&] { Result = FBase.reset(Index); });
  return Result;
}

void PublishedSheet::setVisible(int Index, bool Value) {
  if (!IsOurs(Index)) FBase.setVisible(Index, Value);
}

void PublishedSheet::setAttribute(int Index, bool Value) {
  if (!IsOurs(Index)) FBase.setAttribute(Index, Value);
}

/// Values of enumerations and sets are bytes: texts would be given to translators. The designer's own lists are out of
/// reach, since a form stores what they hold in a way that only compilers of forms, and declared properties, can read.
QVariant PublishedSheet::property(int Index) const {
  if (!IsOurs(Index)) return FBase.property(Index);
  if (FWidget == nullptr) return {};
  const QVariant Value = FWidget->PropertyAt(Path(Index));
  const bool IsName = Value.typeId() == QMetaType::QString && !FWidget->NamesAt(Path(Index)).isEmpty();
  return IsName ? QVariant(Value.toString().toUtf8()) : Value;
}

void PublishedSheet::setProperty(int Index, const QVariant& Value) {
  if (FWidget == nullptr) return;
  if (!IsOurs(Index)) return Declare(Index, [&] { FBase.setProperty(Index, Value); });
  const bool IsText = FWidget->PropertyAt(Path(Index)).typeId() == QMetaType::QString;
  const QVariant Given = IsText && !Value.canConvert<QString>() ? QVariant(TextOf(Value)) : Value;
  const QStringList Names = FWidget->NamesAt(Path(Index));
  FWidget->SetPropertyAt(Path(Index), Names.isEmpty() ? Given : QVariant(Completed(Given.toString(), Names)));
}

/// The designer hands texts over in a class of its own, which its own sheet can read alone: it takes one to a property
/// of the widget, which then has it as a text.
QString PublishedSheet::TextOf(const QVariant& Value) {
  const int Index = FBase.indexOf("statusTip");
  const QVariant Before = FBase.property(Index);
  const bool WasChanged = FBase.isChanged(Index);
  FBase.setProperty(Index, Value);
  QString Result = FWidget->statusTip();
  FBase.setProperty(Index, Before);
  FBase.setChanged(Index, WasChanged);
  return Result;
}

bool PublishedSheet::isChanged(int Index) const {
  if (!IsOurs(Index)) return FBase.isChanged(Index);
  if (FWidget == nullptr) return false;
  if (FWidget->IsPlace(Path(Index))) return true;
  return FWidget->IsStoredAt(Path(Index)) && FWidget->PropertyAt(Path(Index)) != Default(Path(Index));
}

void PublishedSheet::setChanged(int Index, bool Value) {
  if (FWidget != nullptr && !IsOurs(Index)) Declare(Index, [&] { FBase.setChanged(Index, Value); });
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
  return new PublishedSheet(*Widget, *Base, Dynamic, Manager, Parent);
}

}  // namespace zy
