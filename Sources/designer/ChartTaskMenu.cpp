#include "designer/ChartTaskMenu.h"

#include <QAction>
#include <QDesignerFormEditorInterface>
#include <QDesignerFormWindowInterface>
#include <QDesignerPropertyEditorInterface>
#include <QExtensionManager>
#include <QUndoCommand>
#include <QUndoStack>
#include <utility>

#include "annotations/ZyCustomLegend.h"
#include "dialogs/forms/ZyGraphSettingsTool.h"
#include "dialogs/forms/ZyPieSettings.h"
#include "platform/controls/TApplication.h"
#include "platform/drawing/QtText.h"
#include "texts/ZyQtTexts.h"
#include "widgets/ZyChartWidget.h"
#include "widgets/ZyLegendWidgets.h"
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

/// Shows the dialog, with the page of a legend in front; returns whether it is open from then on.
template <class TTool>
std::function<bool()> Open(TTool& Tool, ZyCustomChartWidget* Chart, ZyCustomLegendWidget* Legend) {
  if (Legend != nullptr && Legend->Legend() != nullptr)
    Tool.Show(*Legend->Legend());
  else
    Tool.Show();
  return [&Tool, Alive = QPointer<ZyCustomChartWidget>(Chart)] {
    return Alive != nullptr && Tool.Dialog() != nullptr && Tool.Dialog()->Visible();
  };
}

/// The property editor reads anew what it shows.
void Refresh(const QDesignerFormWindowInterface& Form) {
  QDesignerPropertyEditorInterface* const Editor = Form.core() == nullptr ? nullptr : Form.core()->propertyEditor();
  if (Editor != nullptr && Editor->object() != nullptr) Editor->setObject(Editor->object());
}

}  // namespace

/// What was set in the dialog meanwhile.
class ChartTaskMenu::TStep : public QUndoCommand {
 public:
  TStep(const QString& Text, QDesignerFormWindowInterface& Form, TValues Before, TValues After)
      : QUndoCommand(Text), FForm(&Form), FBefore(std::move(Before)), FAfter(std::move(After)) {}
  void undo() override { Write(FBefore); }
  void redo() override { Write(FAfter); }

 private:
  void Write(const TValues& Values) {
    for (const TValue& Each : Values)
      if (Each.Widget != nullptr && Each.Widget->PropertyAt(Each.Path) != Each.Value)
        Each.Widget->SetPropertyAt(Each.Path, Each.Value);
    if (FForm != nullptr) Refresh(*FForm);
  }

  QPointer<QDesignerFormWindowInterface> FForm;
  TValues FBefore, FAfter;
};

ChartTaskMenu::ChartTaskMenu(ZyControlWidget& Widget, QObject* Parent)
    : QObject(Parent), FWidget(&Widget), FSettings(new QAction(ToQString(LoadResString(_sDesignerSettings)), this)) {
  connect(&Widget, &QObject::destroyed, this, &QObject::deleteLater);
  connect(FSettings, &QAction::triggered, this, [this] { TWinControl::HandleEvent([this] { ShowSettings(); }); });
}

ChartTaskMenu::~ChartTaskMenu() { Unwatch(); }

ZyCustomChartWidget* ChartTaskMenu::Chart() const {
  if (auto* const Legend = qobject_cast<ZyCustomLegendWidget*>(FWidget)) return Legend->Listed();
  return qobject_cast<ZyCustomChartWidget*>(FWidget);
}

void ChartTaskMenu::ShowSettings() {
  auto* const Legend = qobject_cast<ZyCustomLegendWidget*>(FWidget);
  Unwatch();
  if (auto* const Plot = qobject_cast<ZyChartWidget*>(Chart())) {
    auto& Tool = ToolOf<TZyGraphSettingsTool>(*Plot);
    Tool.SetGraph(&Plot->Graph());
    FIsShown = Open(Tool, Plot, Legend);
  } else if (auto* const Pie = qobject_cast<ZyPieWidget*>(Chart())) {
    auto& Tool = ToolOf<TZyPieSettingsTool>(*Pie);
    Tool.SetPieChart(&Pie->Graph());
    FIsShown = Open(Tool, Pie, Legend);
  }
  auto* const Form = QDesignerFormWindowInterface::findFormWindow(FWidget);
  if (Form == nullptr || !FIsShown) return;
  FKnown = Values();
  connect(Form->commandHistory(), &QUndoStack::indexChanged, this, [this] { FKnown = Values(); });
  TApplication::AddIdleHandler(this, [this](bool&) { Watch(); });
}

// --- What the dialog changes ----------------------------------------------------------------------------------------

ChartTaskMenu::TValues ChartTaskMenu::Values() const {
  TValues Result;
  ZyCustomChartWidget* const Listed = Chart();
  const auto* const Form = QDesignerFormWindowInterface::findFormWindow(FWidget);
  if (Listed == nullptr || Form == nullptr) return Result;
  for (ZyControlWidget* Each : Form->findChildren<ZyControlWidget*>()) {
    if (Each != Listed && Each->LooksLike() != Listed) continue;
    for (const std::string& Path : Each->PropertyPaths()) {
      const QString Name = QString::fromStdString(Path);
      if (Each->IsStoredAt(Name)) Result.push_back({Each, Name, Each->PropertyAt(Name)});
    }
  }
  return Result;
}

ChartTaskMenu::TValues ChartTaskMenu::Without(TValues Values, const TValues& Others) {
  Values.removeIf([&Others](const TValue& Each) { return Others.contains(Each); });
  return Values;
}

/// While the dialog is shown, and once more when it was closed.
void ChartTaskMenu::Watch() {
  const bool IsLast = !FIsShown || !FIsShown();
  auto* const Form = QDesignerFormWindowInterface::findFormWindow(FWidget);
  if (const TValues Present = Values(); Form != nullptr && !Present.isEmpty() && Present != FKnown) {
    const TValues Before = std::exchange(FKnown, Present);
    Form->commandHistory()->push(
        new TStep(FSettings->text(), *Form, Without(Before, Present), Without(Present, Before)));
  }
  if (IsLast) Unwatch();
}

void ChartTaskMenu::Unwatch() {
  TApplication::RemoveIdleHandler(this);
  FIsShown = nullptr;
  auto* const Form = FWidget == nullptr ? nullptr : QDesignerFormWindowInterface::findFormWindow(FWidget);
  if (Form != nullptr) disconnect(Form->commandHistory(), nullptr, this, nullptr);
}

void ChartTaskMenuFactory::Register(QExtensionManager& Manager) {
  Manager.registerExtensions(new ChartTaskMenuFactory(&Manager), TaskMenuIid);
}

QObject* ChartTaskMenuFactory::createExtension(QObject* Object, const QString& Iid, QObject* Parent) const {
  auto* const Widget = qobject_cast<ZyControlWidget*>(Object);
  const bool HasSettings =
      qobject_cast<ZyCustomChartWidget*>(Object) != nullptr || qobject_cast<ZyCustomLegendWidget*>(Object) != nullptr;
  return !HasSettings || Iid != TaskMenuIid ? nullptr : new ChartTaskMenu(*Widget, Parent);
}

}  // namespace zy
