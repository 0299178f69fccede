#include "widgets/ZyControlWidget.h"

#include <QDynamicPropertyChangeEvent>
#include <QMetaMethod>
#include <QPointer>
#include <QVBoxLayout>

#include "platform/controls/TApplication.h"
#include "platform/controls/TWinControl.h"
#include "platform/drawing/QtText.h"
#include "platform/framework/Application.h"
#include "platform/framework/Reflection.h"
#include "texts/Exceptions.h"
#include "texts/NumberText.h"
#include "widgets/PublishedPaths.h"

namespace zy {

ZyControlWidget::ZyControlWidget(QWidget* Parent) : QWidget(Parent), FOwner(std::make_unique<TDataModule>()) {
  auto* const Layout = new QVBoxLayout(this);
  Layout->setContentsMargins(0, 0, 0, 0);
  TakeName();
  connect(this, &QObject::objectNameChanged, this, &ZyControlWidget::TakeName);
}

ZyControlWidget::~ZyControlWidget() = default;

void ZyControlWidget::Show(TWinControl& Value) {
  FControl = &Value;
  QWidget* const Inner = Value.Widget();
  layout()->addWidget(Inner);
  setFocusProxy(Inner);
}

TComponent& ZyControlWidget::Owner() const { return *FOwner; }

void ZyControlWidget::FreeOwned() {
  FControl = nullptr;
  FOwner->DestroyComponents();
}

void ZyControlWidget::TakeName() {
  const std::string Wanted = objectName().toStdString();
  const auto IsFree = [this](const std::string& Name) {
    const TComponent* const Other = Screen().FindByName(Name);
    return Other == nullptr || Other == FOwner.get();
  };
  try {
    if (!Wanted.empty() && IsFree(Wanted)) return FOwner->SetName(Wanted);
  } catch (const EComponentError&) {
    // No identifier: the name stays as it is.
  }
  for (int i = 1; FOwner->Name().empty(); ++i)
    if (const std::string Name = "ChartWidget" + IntToStr(i); IsFree(Name)) FOwner->SetName(Name);
}

// --- Properties -----------------------------------------------------------------------------------------------------

TPersistent* ZyControlWidget::RootOf(std::string&, bool) { return FControl; }

std::vector<std::string> ZyControlWidget::PropertyPaths() const {
  std::vector<std::string> Result;
  std::string None;
  TPersistent* const Root = const_cast<ZyControlWidget*>(this)->RootOf(None, false);
  if (Root == nullptr) return Result;
  for (const TPublishedPath& Each : PublishedPaths(*Root, Parts())) Result.push_back(Each.Path);
  return Result;
}

QVariant ZyControlWidget::PropertyAt(const QString& Path) const {
  std::string Rest = Path.toStdString();
  TPersistent* const Root = const_cast<ZyControlWidget*>(this)->RootOf(Rest, false);
  return Root == nullptr ? QVariant() : ReadPublished(*Root, Rest);
}

/// Whether a path begins with an object that is published.
static bool NamesPart(const TPersistent& Root, std::string_view Path) {
  const std::size_t Point = Path.find('.');
  const TPropInfo* const Info = GetPropInfo(Root, Path.substr(0, Point));
  return Point != std::string_view::npos && Info != nullptr && Info->Kind == TPropKind::Class;
}

bool ZyControlWidget::SetPropertyAt(const QString& Path, const QVariant& Value) {
  bool IsSet = false;
  Guarded([&] {
    std::string Rest = Path.toStdString();
    TPersistent* const Root = RootOf(Rest, true);
    IsSet = Root != nullptr && WritePublished(*Root, Rest, Value);
    // A name that no part has is somebody's own dynamic property, but not below a part.
    const bool IsOfPart = Root != nullptr && (Rest.size() < Path.toStdString().size() || NamesPart(*Root, Rest));
    if (!IsSet && IsOfPart) throw EFilerError(Format(LoadResString(_sPropNotFound), {Path.toStdString()}));
  });
  return IsSet;
}

QStringList ZyControlWidget::NamesAt(const QString& Path) const {
  QStringList Result;
  std::string Rest = Path.toStdString();
  if (TPersistent* const Root = const_cast<ZyControlWidget*>(this)->RootOf(Rest, false))
    for (const std::string_view Each : PublishedNames(*Root, Rest)) Result.push_back(ToQString(Each));
  return Result;
}

bool ZyControlWidget::IsStoredAt(const QString& Path) const {
  std::string Rest = Path.toStdString();
  TPersistent* const Root = const_cast<ZyControlWidget*>(this)->RootOf(Rest, false);
  return Root != nullptr && IsPublishedStored(*Root, Rest);
}

/// Forms set published properties as dynamic ones. These are taken off again: the toolkit does not tell of a value that
/// is the one from before, while the control may have another one since.
bool ZyControlWidget::event(QEvent* Event) {
  if (Event->type() != QEvent::DynamicPropertyChange || FControl == nullptr) return QWidget::event(Event);
  const QByteArray Name = static_cast<QDynamicPropertyChangeEvent*>(Event)->propertyName();
  const QVariant Value = property(Name.constData());
  const QPointer<ZyControlWidget> Alive = this;
  if (!Value.isValid()) return QWidget::event(Event);
  const bool IsSet = SetPropertyAt(Name, Value);  // what is told of an error may delete the widget
  if (Alive == nullptr) return true;
  if (IsSet || PropertyAt(Name).isValid()) setProperty(Name.constData(), QVariant());
  return QWidget::event(Event);
}

// --- Errors ---------------------------------------------------------------------------------------------------------

bool ZyControlWidget::TellError(const char* Text) {
  if (!isSignalConnected(QMetaMethod::fromSignal(&ZyControlWidget::errorOccurred))) return false;
  emit errorOccurred(QString::fromUtf8(Text));
  return true;
}

void ZyControlWidget::Guarded(const std::function<void()>& Proc) {
  try {
    Proc();
  } catch (const std::exception& Error) {
    if (!TellError(Error.what())) TApplication::HandleException(Error);
  }
}

}  // namespace zy
