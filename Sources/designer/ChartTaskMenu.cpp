#include "designer/ChartTaskMenu.h"

#include <QAction>
#include <QDesignerFormWindowInterface>
#include <QExtensionManager>

#include "dialogs/forms/ZyGraphSettingsTool.h"
#include "dialogs/forms/ZyPieSettings.h"
#include "platform/drawing/QtText.h"
#include "texts/ZyQtTexts.h"
#include "widgets/ZyChartWidget.h"
#include "widgets/ZyPieWidget.h"

namespace zy {
namespace {

const QString TaskMenuIid = Q_TYPEID(QDesignerTaskMenuExtension);

/// The tool of a chart, which lives with it.
template <class TTool>
TTool& ToolOf(ZyCustomChartWidget& Widget) {
  constexpr const char* Name = "SettingsTool";
  if (auto* const Present = dynamic_cast<TTool*>(Widget.Owner().FindComponent(Name))) return *Present;
  auto* const Result = new TTool(&Widget.Owner());
  Result->SetName(Name);
  return *Result;
}

}  // namespace

ChartTaskMenu::ChartTaskMenu(ZyCustomChartWidget& Widget, QObject* Parent)
    : QObject(Parent), FWidget(&Widget), FSettings(new QAction(ToQString(LoadResString(_sDesignerSettings)), this)) {
  connect(&Widget, &QObject::destroyed, this, &QObject::deleteLater);
  connect(FSettings, &QAction::triggered, this, [this] { TWinControl::HandleEvent([this] { ShowSettings(); }); });
}

/// The designer is told that the form changes, since the dialog goes past its own list of steps.
void ChartTaskMenu::ShowSettings() {
  if (FWidget == nullptr) return;
  if (auto* const Chart = qobject_cast<ZyChartWidget*>(FWidget.data())) {
    auto& Tool = ToolOf<TZyGraphSettingsTool>(*Chart);
    Tool.SetGraph(&Chart->Graph());
    Tool.Show();
  } else if (auto* const Pie = qobject_cast<ZyPieWidget*>(FWidget.data())) {
    auto& Tool = ToolOf<TZyPieSettingsTool>(*Pie);
    Tool.SetPieChart(&Pie->Graph());
    Tool.Show();
  }
  if (auto* const Form = QDesignerFormWindowInterface::findFormWindow(FWidget)) Form->setDirty(true);
}

void ChartTaskMenuFactory::Register(QExtensionManager& Manager) {
  Manager.registerExtensions(new ChartTaskMenuFactory(&Manager), TaskMenuIid);
}

QObject* ChartTaskMenuFactory::createExtension(QObject* Object, const QString& Iid, QObject* Parent) const {
  auto* const Widget = qobject_cast<ZyCustomChartWidget*>(Object);
  return Widget == nullptr || Iid != TaskMenuIid ? nullptr : new ChartTaskMenu(*Widget, Parent);
}

}  // namespace zy
