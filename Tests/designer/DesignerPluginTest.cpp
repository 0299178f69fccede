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
#include <QDesignerWidgetFactoryInterface>
#include <QDomDocument>
#include <QEventLoop>
#include <QExtensionManager>
#include <QFormBuilder>
#include <QIcon>
#include <QPluginLoader>
#include <QTimer>
#include <QTreeWidget>
#include <QUiLoader>
#include <QUndoStack>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>
#include <memory>
#include <vector>

namespace {

const char* const PluginFolder = ZY_DESIGNER_FOLDER;

/// A form with a chart and a pie.
const char* const Form = R"(<ui version="4.0"><class>Form</class>
<widget class="QWidget" name="Form"><property name="geometry"><rect><x>0</x><y>0</y><width>600</width><height>300</height></rect></property>
<layout class="QHBoxLayout">
<item><widget class="zy::ZyChartWidget" name="chart">
<property name="caption"><string>Voltage</string></property>
<property name="look"><enum>zy::ZyCustomChartWidget::DarkLook</enum></property>
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
  EXPECT_EQ(Collection->customWidgets().size(), 16);
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

/// The designer with a form.
class DesignerTest : public ::testing::Test {
 protected:
  DesignerTest() {
    FCore->setTopLevel(&FTopLevel);
    FCore->setPropertyEditor(FEditor);
    // Never freed: at its end it asks for settings that only the program of the designer has.
    static auto& Editors = *new std::vector<QWidget*>;
    Editors.push_back(FEditor);
    new QDesignerIntegration(FCore.get(), FCore.get());
    QDesignerComponents::initializePlugins(FCore.get());
    FWindow = FCore->formWindowManager()->createFormWindow();
    FWindow->setParent(&FTopLevel);
    FTopLevel.resize(720, 420);
    FWindow->resize(720, 420);
    FTopLevel.show();
  }
  QWidget* Load(const char* Content) {
    EXPECT_TRUE(FWindow->setContents(QString(Content)));
    return FWindow->findChild<QWidget*>("chart");
  }
  QDesignerPropertySheetExtension* SheetOf(QObject* Widget) const {
    return qt_extension<QDesignerPropertySheetExtension*>(FCore->extensionManager(), Widget);
  }
  /// As the property editor does it.
  void Set(QObject* Widget, const QString& Name, const QVariant& Value) const {
    QDesignerPropertySheetExtension* const Sheet = SheetOf(Widget);
    Sheet->setProperty(Sheet->indexOf(Name), Value);
    Sheet->setChanged(Sheet->indexOf(Name), true);
  }
  /// Names of the published properties that the form stores of a widget.
  QStringList StoredOf(QObject* Widget) const {
    QDesignerPropertySheetExtension* const Sheet = SheetOf(Widget);
    QStringList Result;
    for (int i = 0; i < Sheet->count(); ++i)
      if (Sheet->isChanged(i) && ChartProperty(Widget, Sheet->propertyName(i)).isValid())
        Result.push_back(Sheet->propertyName(i));
    return Result;
  }

  /// What a program makes of a form. Ends the designer.
  std::unique_ptr<QWidget> LoadInProgram(const QString& Content) {
    FCore.reset();
    QByteArray Text = Content.toUtf8();
    QBuffer Source(&Text);
    QUiLoader Loader;
    Loader.addPluginPath(PluginFolder);
    return std::unique_ptr<QWidget>(Loader.load(&Source));
  }

  QWidget FTopLevel;
  std::unique_ptr<QDesignerFormEditorInterface> FCore{QDesignerComponents::createFormEditor(nullptr)};
  QDesignerPropertyEditorInterface* FEditor = QDesignerComponents::createPropertyEditor(FCore.get(), nullptr);
  QDesignerFormWindowInterface* FWindow = nullptr;
};

TEST_F(DesignerTest, EditsAndStoresWhatChartsPublish) {
  QWidget* const Chart = Load(Form);
  ExpectForm(FWindow);
  QDesignerPropertySheetExtension* const Sheet = SheetOf(Chart);
  ASSERT_NE(Sheet, nullptr);
  EXPECT_GT(Sheet->count(), 150);
  EXPECT_GE(Sheet->indexOf("caption"), 0);
  const int Width = Sheet->indexOf("DataAreaFrame.Width");
  ASSERT_GE(Width, 0);
  EXPECT_EQ(Sheet->propertyGroup(Width), "DataAreaFrame");
  EXPECT_FALSE(Sheet->isChanged(Width));
  QString Content = FWindow->contents();
  EXPECT_EQ(Stored(Content, "chart", "DataAreaFrame.Width"), "") << "as in a new chart";
  EXPECT_EQ(Stored(Content, "chart", "PrimaryXAxis.Caption"), "0: Time");
  Sheet->setProperty(Width, 3.0);
  Content = FWindow->contents();
  EXPECT_TRUE(Stored(Content, "chart", "DataAreaFrame.Width").startsWith("0: 3"));
  EXPECT_TRUE(Stored(Content, "pie", "StartAngle").startsWith("0: 30.5"));
  EXPECT_EQ(Stored(Content, "pie", "caption"), "");
  EXPECT_TRUE(Content.contains("<cstring>TopCenterOfGraph</cstring>")) << "nothing for translators";
  Set(Chart, "Legend.Position", QByteArray("rightt"));
  EXPECT_EQ(ChartProperty(Chart, "Legend.Position"), "RightTopOfAxis") << "what it begins";
  ASSERT_TRUE(Sheet->reset(Width));
  EXPECT_EQ(Stored(FWindow->contents(), "chart", "DataAreaFrame.Width"), "");
}

/// A form with one of each, in places of their own.
QString FormWithAll() {
  QString Widgets, Classes;
  const auto Rect = [](int X, int Y, int Width, int Height) {
    return QStringLiteral(
               "<property name=\"geometry\"><rect><x>%1</x><y>%2</y><width>%3</width><height>%4</height></rect>"
               "</property>")
        .arg(X)
        .arg(Y)
        .arg(Width)
        .arg(Height);
  };
  const auto Real = [](const char* Path, double Value) {
    return QStringLiteral("<property name=\"%1\" stdset=\"0\"><double>%2</double></property>").arg(Path).arg(Value);
  };
  const auto Text = [](const char* Path, const char* Value) {
    return QStringLiteral("<property name=\"%1\" stdset=\"0\"><string>%2</string></property>").arg(Path, Value);
  };
  const auto Widget = [&Classes](const char* Class, const char* Name, const QString& Content) {
    const QString Row =
        QStringLiteral(
            "<customwidget><class>zy::%1</class><extends>QWidget</extends><header>zyphos/Widgets.h</header>"
            "<container>%2</container></customwidget>")
            .arg(Class)
            .arg(QString(Class) == "ZyChartWidget" || QString(Class) == "ZyPieWidget");
    if (!Classes.contains(Row)) Classes += Row;
    return QStringLiteral("<widget class=\"zy::%1\" name=\"%2\">%3</widget>").arg(Class, Name, Content);
  };
  const QString OnChart =
      Widget("ZyLegendWidget", "floating", Rect(150, 20, 90, 40) + Text("Frame.Visible", "true")) +
      Widget("ZyLegendWidget", "docked",
             Rect(0, 0, 90, 40) +
                 "<property name=\"position\"><enum>zy::ZyLegendWidget::BottomCenterOfAxis</enum>"
                 "</property>") +
      Widget("ZyHorizontalMarkerWidget", "limit", Rect(0, 0, 100, 5) + Real("Y", 1.5)) +
      Widget("ZyVerticalMarkerWidget", "instant", Rect(0, 0, 5, 100) + Real("X", 2)) +
      Widget("ZyCrossHairWidget", "cross", Rect(0, 0, 20, 20) + Real("X", 5) + Real("Y", 3)) +
      Widget("ZyArrowLabelWidget", "arrow", Rect(0, 0, 60, 60) + Text("Caption", "here") + Real("X", 4) + Real("Y", 2));
  Widgets += Widget("ZyChartWidget", "chart", Rect(10, 10, 400, 300) + OnChart);
  Widgets += Widget("ZyPieWidget", "pie",
                    Rect(420, 10, 250, 220) + Widget("ZyPieLegendWidget", "segments", Rect(0, 0, 60, 80)));
  Widgets += Widget("ZyLegendWidget", "beside",
                    Rect(420, 240, 120, 60) + "<property name=\"chart\"><string>chart</string></property>");
  Widgets += Widget("ZyColorPickWidget", "color", Rect(560, 240, 60, 24));
  Widgets += Widget("ZyNumericUpDnWidget", "steps", Rect(560, 270, 80, 24));
  Widgets += Widget("ZyDashStylesWidget", "dashes", Rect(560, 300, 100, 24));
  Widgets += Widget("ZyPointSymbolsWidget", "symbol", Rect(560, 330, 100, 24));
  Widgets += Widget("ZyCaptionEditWidget", "captionEdit", Rect(10, 320, 300, 60));
  return QStringLiteral(
             "<ui version=\"4.0\"><class>Form</class><widget class=\"QWidget\" name=\"Form\">%1%2</widget>"
             "<customwidgets>%3</customwidgets></ui>")
      .arg(Rect(0, 0, 690, 400), Widgets, Classes);
}

TEST_F(DesignerTest, StoresWhatLiesOnCharts) {
  QWidget* const Chart = Load(qPrintable(FormWithAll()));
  const auto Settle = [this] {
    for (int i = 0; i < 2; ++i) {
      FWindow->grab();
      QApplication::processEvents();
    }
  };
  Settle();
  const auto Find = [this](const char* Name) { return FWindow->findChild<QWidget*>(Name); };
  EXPECT_EQ(StoredOf(Chart), QStringList());
  EXPECT_EQ(StoredOf(Find("docked")), QStringList()) << "its place is declared";
  EXPECT_EQ(StoredOf(Find("arrow")), QStringList({"Caption", "X", "Y"}));
  EXPECT_EQ(Find("floating")->pos(), QPoint(150, 20));
  EXPECT_GT(Find("docked")->y(), 250);
  EXPECT_GT(Find("beside")->grab().toImage().pixelColor(40, 14).blue(), 200) << "the item of the first series";
  if (const QByteArray Folder = qgetenv("ZY_PICTURES"); !Folder.isEmpty())
    FWindow->grab().save(Folder + "/designer_form.png");
  EXPECT_EQ(Find("limit")->grab().toImage().pixelColor(50, 2), QColor(Qt::black)) << "what the designer drags";
  // Whoever drags a frame in the designer drags what is in it.
  Find("instant")->move(Find("instant")->pos() + QPoint(33, 7));
  Find("segments")->move(5, 5);
  Find("docked")->move(5, 5);
  Settle();
  const double X = ChartProperty(Find("instant"), "X").toDouble();
  EXPECT_NEAR(X, 3, 0.02) << "33 pixels are a tenth of the axis";
  EXPECT_EQ(ChartProperty(Find("segments"), "Position"), "LeftTop");
  EXPECT_GT(Find("docked")->y(), 250) << "the layout's business";
  QWidget* const New = FCore->widgetFactory()->createWidget("zy::ZyVerticalMarkerWidget", Chart);
  ASSERT_NE(New, nullptr);
  New->setGeometry(Find("instant")->x() + 66, 40, 5, 100);
  FWindow->manageWidget(New);
  New->show();
  Settle();
  EXPECT_NEAR(ChartProperty(New, "X").toDouble(), X + 2, 0.02) << "where it was dropped";
  EXPECT_EQ(Load(qPrintable(FWindow->contents()))->findChildren<QWidget*>("instant").size(), 1);
  Settle();
  EXPECT_EQ(ChartProperty(Find("instant"), "X"), X);
  EXPECT_EQ(ChartProperty(Find("segments"), "Position"), "LeftTop");
  const std::unique_ptr<QWidget> Loaded = LoadInProgram(FWindow->contents());
  ASSERT_NE(Loaded, nullptr);
  Loaded->grab();
  for (const char* Name : {"limit", "instant", "cross", "arrow", "floating", "docked"}) {
    const auto* const Part = Loaded->findChild<QWidget*>(Name);
    ASSERT_TRUE(Part != nullptr && Part->parent()->objectName() == "chart") << Name;
    EXPECT_EQ(Part->testAttribute(Qt::WA_TransparentForMouseEvents), true);
  }
  EXPECT_EQ(ChartProperty(Loaded->findChild<QWidget*>("instant"), "X"), X);
  EXPECT_EQ(Loaded->findChild<QWidget*>("floating")->pos(), QPoint(150, 20));
}

TEST_F(DesignerTest, ALookIsNoChangeOfWhatItGives) {
  QWidget* const Chart = Load(qPrintable(FormWithAll()));
  QWidget *const Legend = FWindow->findChild<QWidget*>("floating"), *const Beside =
                                                                        FWindow->findChild<QWidget*>("beside");
  QWidget* const Limit = FWindow->findChild<QWidget*>("limit");
  FWindow->grab();
  const QVariant Back = ChartProperty(Chart, "BackColor"), Line = ChartProperty(Limit, "Line.Color");
  const auto ExpectNone = [&] {
    EXPECT_EQ(StoredOf(Chart), QStringList());
    EXPECT_EQ(StoredOf(Legend), QStringList());
    EXPECT_EQ(StoredOf(Beside), QStringList());
    EXPECT_EQ(StoredOf(Limit), QStringList("Y"));
  };
  Set(Chart, "caption", "Voltage");
  enum { OwnLook, DarkLook = 2, PaletteLook = 5 };
  for (const int Look : {PaletteLook, DarkLook}) {
    Set(Chart, "look", Look);
    ASSERT_EQ(Chart->property("look").toInt(), Look);
    FWindow->grab();
    ExpectNone();
  }
  EXPECT_NE(ChartProperty(Chart, "BackColor"), Back);
  EXPECT_NE(ChartProperty(Limit, "Line.Color"), Line);
  const QString Dark = FWindow->contents();
  Set(Chart, "PrimaryXAxis.Caption", "Time");
  Set(Chart, "look", OwnLook);
  EXPECT_EQ(StoredOf(Chart), QStringList("PrimaryXAxis.Caption"));
  SheetOf(Chart)->reset(SheetOf(Chart)->indexOf("PrimaryXAxis.Caption"));
  ExpectNone();
  EXPECT_EQ(ChartProperty(Chart, "BackColor"), Back);
  EXPECT_EQ(ChartProperty(Limit, "Line.Color"), Line);
  const std::unique_ptr<QWidget> Loaded = LoadInProgram(Dark);
  const auto Colors = [](QWidget* Of) { return ChartProperty(Of, "BackColor").value<QColor>().name(); };
  EXPECT_EQ(Colors(Loaded->findChild<QWidget*>("floating")), Colors(Loaded->findChild<QWidget*>("chart")));
  EXPECT_EQ(Colors(Loaded->findChild<QWidget*>("chart")), "#202124") << "dark";
}

TEST_F(DesignerTest, WhatTheSettingsDialogChangesIsAStepOfTheForm) {
  QWidget* const Chart = Load(Form);
  auto* const Menu = qt_extension<QDesignerTaskMenuExtension*>(FCore->extensionManager(), Chart);
  ASSERT_NE(Menu, nullptr);
  FWindow->clearSelection(false);
  FWindow->selectWidget(Chart);
  const auto Shown = [this] {
    for (const QTreeWidget* Tree : FEditor->findChildren<QTreeWidget*>())
      for (const QTreeWidgetItem* Item : Tree->findItems("DataAreaFrame.Width", Qt::MatchRecursive | Qt::MatchExactly))
        return Item->text(1).toDouble();
    return -1.0;
  };
  const auto Windows = [] {
    QWidgetList Result = QApplication::topLevelWidgets();
    Result.removeIf([](const QWidget* Each) { return !Each->isVisible(); });
    return Result;
  };
  const auto Rest = [] {
    QEventLoop Loop;
    QTimer::singleShot(30, &Loop, &QEventLoop::quit);
    Loop.exec();
  };
  const auto Change = [&](double Width) {
    QMetaObject::invokeMethod(Chart, "SetPropertyAt", Q_ARG(QString, "DataAreaFrame.Width"), Q_ARG(QVariant, Width));
    Rest();
  };
  Rest();
  FWindow->setDirty(false);
  const QWidgetList Before = Windows();
  Menu->preferredEditAction()->trigger();
  QWidgetList Dialogs = Windows();
  Dialogs.removeIf([&](QWidget* Each) { return Before.contains(Each); });
  ASSERT_EQ(Dialogs.size(), 1);
  Rest();
  EXPECT_FALSE(FWindow->isDirty()) << "only opened";
  const double Old = ChartProperty(Chart, "DataAreaFrame.Width").toDouble();
  Change(4);
  EXPECT_TRUE(FWindow->isDirty());
  EXPECT_EQ(Shown(), 4);
  FWindow->setDirty(false);
  Change(5);
  EXPECT_TRUE(FWindow->isDirty()) << "saved while the dialog was open";
  FWindow->commandHistory()->undo();
  Rest();
  EXPECT_EQ(ChartProperty(Chart, "DataAreaFrame.Width"), 4.0);
  EXPECT_EQ(Shown(), 4);
  FWindow->commandHistory()->undo();
  Rest();
  EXPECT_EQ(ChartProperty(Chart, "DataAreaFrame.Width"), Old);
  EXPECT_FALSE(FWindow->commandHistory()->canUndo());
  Dialogs.front()->close();
  Rest();
  const int Steps = FWindow->commandHistory()->count();
  Change(7);
  EXPECT_EQ(FWindow->commandHistory()->count(), Steps) << "nobody watches any more";
  if (const QByteArray Folder = qgetenv("ZY_PICTURES"); !Folder.isEmpty()) {
    FEditor->resize(420, 900);
    FEditor->grab().save(Folder + "/designer_properties.png");
  }
}

}  // namespace

int main(int ArgCount, char** Args) {
  testing::InitGoogleTest(&ArgCount, Args);
  QCoreApplication::addLibraryPath(QString(PluginFolder) + "/..");
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication Program(ArgCount, Args);
  return RUN_ALL_TESTS();
}
