// The plug-in for Qt Designer in the hands of those that load it: the toolkit's loaders of forms, and the designer
// itself.

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QBuffer>
#include <QColor>
#include <QDesignerComponents>
#include <QDesignerDynamicPropertySheetExtension>
#include <QDesignerFormEditorInterface>
#include <QDesignerFormWindowInterface>
#include <QDesignerFormWindowManagerInterface>
#include <QDesignerIntegration>
#include <QDesignerPropertyEditorInterface>
#include <QDesignerPropertySheetExtension>
#include <QDesignerTaskMenuExtension>
#include <QDomDocument>
#include <QExtensionManager>
#include <QFormBuilder>
#include <QIcon>
#include <QPluginLoader>
#include <QUiLoader>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>
#include <algorithm>
#include <memory>

namespace {

const char* const PluginFolder = ZY_DESIGNER_FOLDER;

/// A form with a chart and a pie.
const char* const Form = R"(<ui version="4.0"><class>Form</class>
<widget class="QWidget" name="Form"><property name="geometry"><rect><x>0</x><y>0</y><width>600</width><height>300</height></rect></property>
<layout class="QHBoxLayout">
<item><widget class="zy::ZyChartWidget" name="chart">
<property name="caption"><string>Voltage</string></property>
<property name="look"><enum>zy::ZyChartWidget::DarkLook</enum></property>
<property name="BackColor" stdset="0"><color alpha="255"><red>255</red><green>255</green><blue>0</blue></color></property>
<property name="PrimaryXAxis.Caption" stdset="0"><string>Time</string></property>
<property name="MajorGridVertical.Visible" stdset="0"><bool>true</bool></property>
<property name="Legend.Position" stdset="0"><string>TopCenterOfGraph</string></property>
</widget></item>
<item><widget class="zy::ZyPieWidget" name="pie"><property name="StartAngle" stdset="0"><double>30.5</double></property></widget></item>
</layout></widget>
<customwidgets><customwidget><class>zy::ZyChartWidget</class><extends>QWidget</extends><header>zyphos/widgets/ZyChartWidget.h</header></customwidget>
<customwidget><class>zy::ZyPieWidget</class><extends>QWidget</extends><header>zyphos/widgets/ZyPieWidget.h</header></customwidget></customwidgets>
</ui>)";

QVariant ChartProperty(QObject* Widget, const QString& Path) {
  QVariant Result;
  QMetaObject::invokeMethod(Widget, "PropertyAt", Q_RETURN_ARG(QVariant, Result), Q_ARG(QString, Path));
  return Result;
}

void ExpectForm(QWidget* Loaded) {
  ASSERT_NE(Loaded, nullptr);
  auto* const Chart = Loaded->findChild<QWidget*>("chart");
  auto* const Pie = Loaded->findChild<QWidget*>("pie");
  ASSERT_TRUE(Chart != nullptr && Pie != nullptr);
  ASSERT_STREQ(Chart->metaObject()->className(), "zy::ZyChartWidget");
  EXPECT_EQ(Chart->property("caption"), "Voltage");
  EXPECT_EQ(ChartProperty(Chart, "PrimaryXAxis.Caption"), "Time");
  EXPECT_EQ(ChartProperty(Chart, "MajorGridVertical.Visible"), true);
  EXPECT_EQ(ChartProperty(Chart, "Legend.Position"), "TopCenterOfGraph");
  EXPECT_EQ(ChartProperty(Pie, "StartAngle"), 30.5);
  Chart->resize(300, 200);
  EXPECT_EQ(Chart->grab().toImage().pixelColor(1, 198), QColor(Qt::yellow)) << "behind the look";
}

TEST(DesignerPluginTest, HasEveryKindOfWidget) {
  QPluginLoader Loader(ZY_DESIGNER_PLUGIN);
  auto* const Collection = qobject_cast<QDesignerCustomWidgetCollectionInterface*>(Loader.instance());
  ASSERT_NE(Collection, nullptr) << Loader.errorString().toStdString();
  EXPECT_EQ(Collection->customWidgets().size(), 10);
  for (QDesignerCustomWidgetInterface* Kind : Collection->customWidgets()) {
    const std::unique_ptr<QWidget> Made(Kind->createWidget(nullptr));
    ASSERT_NE(Made, nullptr);
    EXPECT_EQ(Made->metaObject()->className(), Kind->name());
    EXPECT_FALSE(Kind->icon().isNull());
    QDomDocument Dom;
    ASSERT_TRUE(Dom.setContent(Kind->domXml())) << Kind->domXml().toStdString();
    EXPECT_EQ(Dom.documentElement().firstChildElement("widget").attribute("class"), Kind->name());
    EXPECT_TRUE(QFile::exists(QString(ZY_INCLUDE) + '/' + Kind->includeFile())) << Kind->includeFile().toStdString();
  }
}

TEST(DesignerPluginTest, FormsAreLoadedAtRunTime) {
  QByteArray Text(Form);
  QBuffer Source(&Text);
  QUiLoader Loader;
  Loader.addPluginPath(PluginFolder);
  const std::unique_ptr<QWidget> Loaded(Loader.load(&Source));
  ExpectForm(Loaded.get());
  Source.open(QIODevice::ReadOnly);
  Source.seek(0);
  QFormBuilder Builder;
  Builder.setPluginPath({PluginFolder});
  const std::unique_ptr<QWidget> Built(Builder.load(&Source, nullptr));
  ExpectForm(Built.get());
}

/// What a form stores of a property: its text, or null when it is not stored.
QString Stored(const QString& Content, const QString& Widget, const QString& Name) {
  QDomDocument Dom;
  Dom.setContent(Content);
  const QDomNodeList Widgets = Dom.elementsByTagName("widget");
  for (int i = 0; i < Widgets.size(); ++i) {
    const QDomElement Each = Widgets.at(i).toElement();
    if (Each.attribute("name") != Widget) continue;
    for (QDomElement Prop = Each.firstChildElement("property"); !Prop.isNull();
         Prop = Prop.nextSiblingElement("property"))
      if (Prop.attribute("name") == Name) return Prop.attribute("stdset", "1") + ": " + Prop.text();
  }
  return {};
}

TEST(DesignerPluginTest, TheDesignerEditsAndStoresWhatChartsPublish) {
  const std::unique_ptr<QDesignerFormEditorInterface> Made(QDesignerComponents::createFormEditor(nullptr));
  QDesignerFormEditorInterface* const Core = Made.get();
  QDesignerPropertyEditorInterface* const Editor = QDesignerComponents::createPropertyEditor(Core, nullptr);
  Core->setPropertyEditor(Editor);
  new QDesignerIntegration(Core, Core);
  QDesignerComponents::initializePlugins(Core);
  QDesignerFormWindowInterface* const Window = Core->formWindowManager()->createFormWindow();
  ASSERT_TRUE(Window->setContents(QString(Form)));
  Window->resize(700, 400);
  QWidget* const Chart = Window->findChild<QWidget*>("chart");
  ExpectForm(Window);
  auto* const Sheet = qt_extension<QDesignerPropertySheetExtension*>(Core->extensionManager(), Chart);
  ASSERT_NE(Sheet, nullptr);
  EXPECT_GT(Sheet->count(), 150);
  EXPECT_GE(Sheet->indexOf("caption"), 0);
  const int Width = Sheet->indexOf("DataAreaFrame.Width");
  ASSERT_GE(Width, 0);
  EXPECT_EQ(Sheet->propertyGroup(Width), "DataAreaFrame");
  EXPECT_FALSE(Sheet->isChanged(Width));
  QString Content = Window->contents();
  EXPECT_EQ(Stored(Content, "chart", "DataAreaFrame.Width"), "") << "as in a new chart";
  EXPECT_EQ(Stored(Content, "chart", "PrimaryXAxis.Caption"), "0: Time");
  Sheet->setProperty(Width, 3.0);
  Content = Window->contents();
  EXPECT_TRUE(Stored(Content, "chart", "DataAreaFrame.Width").startsWith("0: 3"));
  EXPECT_TRUE(Stored(Content, "pie", "StartAngle").startsWith("0: 30.5"));
  EXPECT_EQ(Stored(Content, "pie", "caption"), "");
  ASSERT_TRUE(Sheet->reset(Width));
  EXPECT_EQ(Stored(Window->contents(), "chart", "DataAreaFrame.Width"), "");
  auto* const Menu = qt_extension<QDesignerTaskMenuExtension*>(Core->extensionManager(), Chart);
  ASSERT_NE(Menu, nullptr);
  Window->setDirty(false);
  const auto CountShown = [] {
    return std::ranges::count_if(QApplication::topLevelWidgets(),
                                 [](const QWidget* Each) { return Each->isVisible(); });
  };
  const auto Before = CountShown();
  Menu->preferredEditAction()->trigger();
  EXPECT_EQ(CountShown(), Before + 1) << "the settings dialog";
  EXPECT_TRUE(Window->isDirty());
  Editor->setObject(Chart);
  Editor->resize(420, 900);
  if (const QByteArray Folder = qgetenv("ZY_PICTURES"); !Folder.isEmpty()) {
    Editor->grab().save(Folder + "/designer_properties.png");
    Window->grab().save(Folder + "/designer_form.png");
  }
  EXPECT_EQ(Editor->object(), Chart);
}

}  // namespace

int main(int ArgCount, char** Args) {
  testing::InitGoogleTest(&ArgCount, Args);
  QCoreApplication::addLibraryPath(QString(PluginFolder) + "/..");
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication Program(ArgCount, Args);
  return RUN_ALL_TESTS();
}
