#include "designer/DesignerWidgets.h"

#include <QDesignerFormEditorInterface>
#include <QExtensionManager>
#include <QIcon>
#include <QMessageBox>
#include <QPixmap>
#include <QPointer>
#include <algorithm>

#include "designer/ChartTaskMenu.h"
#include "designer/PublishedSheet.h"
#include "dialogs/widgets/ZyPickWidgets.h"
#include "platform/drawing/QtText.h"
#include "texts/ZyQtTexts.h"
#include "widgets/ZyChartWidget.h"
#include "widgets/ZyLegendWidgets.h"
#include "widgets/ZyMarkerWidgets.h"
#include "widgets/ZyPieWidget.h"

namespace zy {
namespace {

struct TKind {
  const char* ClassName;  // with its namespace
  const char* ObjectName;
  const char* Header;
  TZyText Group, Help;
  int Width, Height;
  QWidget* (*Make)(QWidget* Parent);
  QWidget* (*MakeGround)(QWidget* Parent) = nullptr;  // the chart of a legend or a marker
};

template <class T>
QWidget* Make(QWidget* Parent) {
  return new T(Parent);
}

constexpr const char* PickHeader = "zyphos/dialogs/widgets/ZyPickWidgets.h";
constexpr const char* LegendHeader = "zyphos/widgets/ZyLegendWidgets.h";
constexpr const char* MarkerHeader = "zyphos/widgets/ZyMarkerWidgets.h";

const TKind Kinds[] = {
    {"zy::ZyChartWidget", "chart", "zyphos/widgets/ZyChartWidget.h", _sDesignerCharts, _sDesignerChart, 480, 320,
     &Make<ZyChartWidget>},
    {"zy::ZyPieWidget", "pie", "zyphos/widgets/ZyPieWidget.h", _sDesignerCharts, _sDesignerPie, 320, 320,
     &Make<ZyPieWidget>},
    {"zy::ZyLegendWidget", "legend", LegendHeader, _sDesignerCharts, _sDesignerLegend, 180, 48, &Make<ZyLegendWidget>,
     &Make<ZyChartWidget>},
    {"zy::ZyPieLegendWidget", "pieLegend", LegendHeader, _sDesignerCharts, _sDesignerPieLegend, 60, 80,
     &Make<ZyPieLegendWidget>, &Make<ZyPieWidget>},
    {"zy::ZyHorizontalMarkerWidget", "horizontalMarker", MarkerHeader, _sDesignerCharts, _sDesignerHorizontalMarker,
     100, 5, &Make<ZyHorizontalMarkerWidget>, &Make<ZyChartWidget>},
    {"zy::ZyVerticalMarkerWidget", "verticalMarker", MarkerHeader, _sDesignerCharts, _sDesignerVerticalMarker, 5, 100,
     &Make<ZyVerticalMarkerWidget>, &Make<ZyChartWidget>},
    {"zy::ZyCrossHairWidget", "crossHair", MarkerHeader, _sDesignerCharts, _sDesignerCrossHair, 20, 20,
     &Make<ZyCrossHairWidget>, &Make<ZyChartWidget>},
    {"zy::ZyArrowLabelWidget", "arrowLabel", MarkerHeader, _sDesignerCharts, _sDesignerArrowLabel, 60, 60,
     &Make<ZyArrowLabelWidget>, &Make<ZyChartWidget>},
    {"zy::ZyColorPickWidget", "color", PickHeader, _sDesignerControls, _sDesignerColor, 60, 24,
     &Make<ZyColorPickWidget>},
    {"zy::ZyIntegerEditWidget", "integer", PickHeader, _sDesignerControls, _sDesignerInteger, 80, 24,
     &Make<ZyIntegerEditWidget>},
    {"zy::ZyDoubleEditWidget", "real", PickHeader, _sDesignerControls, _sDesignerReal, 80, 24,
     &Make<ZyDoubleEditWidget>},
    {"zy::ZyNumericUpDnWidget", "steps", PickHeader, _sDesignerControls, _sDesignerSteps, 80, 24,
     &Make<ZyNumericUpDnWidget>},
    {"zy::ZyDashStylesWidget", "dashes", PickHeader, _sDesignerControls, _sDesignerDashes, 100, 24,
     &Make<ZyDashStylesWidget>},
    {"zy::ZyAreaStylesWidget", "pattern", PickHeader, _sDesignerControls, _sDesignerPattern, 100, 24,
     &Make<ZyAreaStylesWidget>},
    {"zy::ZyPointSymbolsWidget", "symbol", PickHeader, _sDesignerControls, _sDesignerSymbol, 100, 24,
     &Make<ZyPointSymbolsWidget>},
    {"zy::ZyCaptionEditWidget", "captionEdit", PickHeader, _sDesignerControls, _sDesignerCaption, 200, 60,
     &Make<ZyCaptionEditWidget>},
};

/// One kind of widget.
class TDesignerWidget : public QDesignerCustomWidgetInterface {
 public:
  explicit TDesignerWidget(const TKind& Kind)
      : FKind(Kind),
        FIsChart(std::ranges::any_of(Kinds, [&](const TKind& Each) { return Each.MakeGround == Kind.Make; })) {}

  QString name() const override { return FKind.ClassName; }
  QString group() const override { return ToQString(LoadResString(FKind.Group)); }
  QString toolTip() const override { return ToQString(LoadResString(FKind.Help)); }
  QString whatsThis() const override { return ToQString(LoadResString(FKind.Help)); }
  QString includeFile() const override { return FKind.Header; }
  QIcon icon() const override;
  bool isContainer() const override { return FIsChart; }  // for legends and markers
  bool isInitialized() const override { return FCore != nullptr; }
  void initialize(QDesignerFormEditorInterface* Core) override;
  QWidget* createWidget(QWidget* Parent) override;
  QString domXml() const override;

 private:
  const TKind& FKind;
  bool FIsChart;
  QPointer<QDesignerFormEditorInterface> FCore;  // none in a program that loads forms
};

/// The widget itself, small; of what lies on a chart the piece of a chart within its axes.
QIcon TDesignerWidget::icon() const {
  const auto Small = [](const QPixmap& Picture) {
    return Picture.scaled(48, 48, Qt::KeepAspectRatio, Qt::SmoothTransformation);
  };
  const auto Made = [](QWidget* (*Make)(QWidget*), QWidget* Parent) {
    QWidget* const Result = Make(Parent);
    if (auto* const Widget = qobject_cast<ZyControlWidget*>(Result)) Widget->ShowSamples();
    return Result;
  };
  if (FKind.MakeGround == nullptr) {
    const std::unique_ptr<QWidget> Sample(Made(FKind.Make, nullptr));
    Sample->resize(std::min(FKind.Width, 96), std::min(FKind.Height, 72));
    return Small(Sample->grab());
  }
  const bool HasAxes = FKind.MakeGround == &Make<ZyChartWidget>;
  const QRect Piece(HasAxes ? 80 : 0, HasAxes ? 16 : 0, 96, 72);
  const std::unique_ptr<QWidget> Ground(Made(FKind.MakeGround, nullptr));
  Ground->resize(HasAxes ? QSize(192, 160) : Piece.size());
  Ground->grab();  // lays it out
  auto* const Sample = static_cast<ZyControlWidget*>(Made(FKind.Make, Ground.get()));
  for (const char* Line : {"Line.Width", "Arrow.Width"}) Sample->SetPropertyAt(Line, 2);
  Sample->move(Piece.topLeft() + QPoint(32, 18));
  return Small(Ground->grab(Piece));
}

void TDesignerWidget::initialize(QDesignerFormEditorInterface* Core) {
  if (isInitialized() || Core == nullptr) return;
  FCore = Core;
  constexpr const char* HasSheets = "zyphosPropertySheets";
  if (Core->property(HasSheets).toBool() || Core->extensionManager() == nullptr) return;
  Core->setProperty(HasSheets, true);
  PublishedSheetFactory::Register(*Core->extensionManager());
  ChartTaskMenuFactory::Register(*Core->extensionManager());
}

/// On a form of the designer it shows samples, and says why a property could not be set.
QWidget* TDesignerWidget::createWidget(QWidget* Parent) {
  QWidget* const Result = FKind.Make(Parent);
  auto* const Widget = qobject_cast<ZyControlWidget*>(Result);
  if (Widget == nullptr || FCore == nullptr) return Result;
  Widget->ShowSamples();
  QObject::connect(Widget, &ZyControlWidget::errorOccurred, Widget, [Widget](const QString& Text) {
    auto* const Box = new QMessageBox(QMessageBox::Warning, ToQString(LoadResString(_sDesignerError)), Text,
                                      QMessageBox::Ok, Widget->window());
    Box->setAttribute(Qt::WA_DeleteOnClose);
    Box->open();
  });
  return Result;
}

QString TDesignerWidget::domXml() const {
  return QStringLiteral(
             "<ui language=\"c++\"><widget class=\"%1\" name=\"%2\"><property name=\"geometry\"><rect>"
             "<x>0</x><y>0</y><width>%3</width><height>%4</height></rect></property></widget></ui>")
      .arg(FKind.ClassName, FKind.ObjectName)
      .arg(FKind.Width)
      .arg(FKind.Height);
}

}  // namespace

DesignerWidgets::DesignerWidgets(QObject* Parent) : QObject(Parent) {
  for (const TKind& Kind : Kinds) FWidgets.push_back(std::make_unique<TDesignerWidget>(Kind));
}

DesignerWidgets::~DesignerWidgets() = default;

QList<QDesignerCustomWidgetInterface*> DesignerWidgets::customWidgets() const {
  QList<QDesignerCustomWidgetInterface*> Result;
  for (const auto& Widget : FWidgets) Result.push_back(Widget.get());
  return Result;
}

}  // namespace zy
