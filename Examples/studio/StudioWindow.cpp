#include "studio/StudioWindow.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QDockWidget>
#include <QFormLayout>
#include <QInputDialog>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>

#include "Charts.h"
#include "common/ChartDialogs.h"
#include "common/ChartForms.h"

namespace zy::examples {
namespace {

constexpr const char* Program = "Zyphos studio";

struct TKind {
  const char *Text, *Class;
};
constexpr TKind Kinds[] = {{"Line", "TZyLineSeries"}, {"Points", "TZyPointSeries"}, {"Bars", "TZyBars"}};
constexpr TKind Curves[] = {{"&Linear regression", "TZyLinearRegression"},
                            {"&Polynomial", "TZyPolynomial"},
                            {"&Formula...", "TZyFittedLine"},
                            {"Moving &average", "TZyMovingAverage"},
                            {"&Interpolation", "TZyInterpolation"},
                            {"&Differential", "TZyDifferential"},
                            {"I&ntegral", "TZyIntegral"},
                            {"Fo&urier transform", "TZyDiscreteFourier"}};
constexpr TKind Markers[] = {{"&Vertical line", "TZyVerticalMarker"},
                             {"&Horizontal line", "TZyHorizontalMarker"},
                             {"&Cross hair", "TZyCrossHair"},
                             {"&Label with arrow", "TZyLabelWithArrowMarker"}};

template <class T>
T& Make(const std::string& Class, TComponent& Owner, const char* BaseName) {
  auto& Result = dynamic_cast<T&>(*FindClass(Class).Factory()(&Owner));
  Result.SetName(UniqueName(&Owner, BaseName));
  return Result;
}

}  // namespace

TStudioWindow::TStudioWindow() {
  MakeMenus();
  MakeColumns();
  resize(1000, 640);
  NewChart("");
}

TStudioWindow::~TStudioWindow() {
  FMenu.reset();
  FDocument.reset();
}

// --- Commands -------------------------------------------------------------------------------------------------------

void TStudioWindow::AddCommand(QMenu& Menu, const char* Text, const char* Keys, const TCommand& Run) {
  Menu.addAction(Text, QKeySequence(Keys), this, [this, Run] {
    try {
      Run();
    } catch (const EAbort&) {
    } catch (const std::exception& Error) {
      Tell(Error);
    }
    ShowTitle();
  });
}

void TStudioWindow::MakeMenus() {
  QMenu& File = *menuBar()->addMenu("&File");
  AddCommand(File, "Open &data...", "Ctrl+D",
             [this] { Ask("Open data", "Tables (*.csv;*.db;*.sqlite)|*.csv;*.db;*.sqlite|All files (*)|*"); });
  AddCommand(File, "&Open chart...", "Ctrl+O", [this] { Ask("Open a chart", ChartFileFilter(false)); });
  AddCommand(File, "&Save", "Ctrl+S", [this] { Save(); });
  AddCommand(File, "Save &as...", "Ctrl+Shift+S", [this] { SaveAs(); });
  AddCommand(File, "Save p&icture...", "Ctrl+E", [this] { FMenu->SavePicture(); });
  AddCommand(File, "&Print...", "Ctrl+P", [this] { FMenu->Print(); });
  AddCommand(File, "&Quit", "Ctrl+Q", [this] { close(); });
  QMenu& Edit = *menuBar()->addMenu("&Edit");
  AddCommand(Edit, "&Undo", "Ctrl+Z", [this] { FDocument->Undo().Undo(); });
  AddCommand(Edit, "&Redo", "Ctrl+Y", [this] { FDocument->Undo().Redo(); });
  AddCommand(Edit, "&Copy", "Ctrl+C", [this] { FGraph->CopyToClipboard(); });
  AddCommand(Edit, "&Settings...", "F2", [this] { FMenu->ShowSettings(*FGraph); });
  QMenu& Chart = *menuBar()->addMenu("&Chart");
  QMenu& CurveMenu = *Chart.addMenu("Add &curve");
  for (const TKind& Kind : Curves)
    AddCommand(CurveMenu, Kind.Text, "", [this, &Kind] {
      if (TZySeries* const Of = ChooseSeries()) AddCurve(Kind.Class, *Of);
    });
  QMenu& MarkerMenu = *Chart.addMenu("Add &marker");
  for (const TKind& Kind : Markers) AddCommand(MarkerMenu, Kind.Text, "", [this, &Kind] { AddMarker(Kind.Class); });
  AddCommand(Chart, "Add &legend", "", [this] { AddLegend(); });
  AddCommand(Chart, "Zoom &back", "Alt+Left", [this] { FGraph->ZoomBack(); });
  AddCommand(Chart, "&Whole range", "Home", [this] { FGraph->ZoomReset(); });
}

void TStudioWindow::MakeColumns() {
  auto* const Page = new QWidget;
  auto* const Form = new QFormLayout(Page);
  for (QComboBox** Box : {&FX, &FY, &FKind}) *Box = new QComboBox;
  for (const TKind& Kind : Kinds) FKind->addItem(Kind.Text);
  for (const auto& [Label, Box] : {std::pair{"&X", FX}, {"&Y", FY}, {"&Kind", FKind}}) Form->addRow(Label, Box);
  auto* const Add = new QPushButton("&Add series");
  Form->addRow(Add);
  FHelp = new QLabel(
      "Open data from the file menu. The right mouse button and a double click open the settings of what "
      "is under the mouse.");
  FHelp->setWordWrap(true);
  Form->addRow(FHelp);
  connect(Add, &QPushButton::clicked, this, [this] {
    if (FY->currentIndex() < 0) return;
    AddSeries(Kinds[FKind->currentIndex()].Class, FX->currentIndex() - 1, FY->currentIndex());
    ShowTitle();
  });
  auto* const Dock = new QDockWidget("Columns");
  Dock->setWidget(Page);
  Dock->setFeatures(QDockWidget::NoDockWidgetFeatures);
  addDockWidget(Qt::LeftDockWidgetArea, Dock);
}

void TStudioWindow::ShowColumns() {
  FX->clear();
  FY->clear();
  FX->addItem("(Row)");
  for (const TStudioColumn& Column : FColumns)
    for (QComboBox* Box : {FX, FY}) Box->addItem(QString::fromStdString(Column.Name));
  if (FColumns.size() < 2) return;
  for (QComboBox* Box : {FX, FY}) Box->setCurrentIndex(1);
}

// --- The chart ------------------------------------------------------------------------------------------------------

void TStudioWindow::NewChart(const std::string& Title) {
  auto Document = std::make_unique<TChartDocument>("Studio");
  auto& NewGraph = Make<TZyGraph2D>("TZyGraph2D", Document->Holder(), "Graph");
  NewGraph.SetParent(&Document->Page());
  NewGraph.SetAlign(alClient);
  NewGraph.SetCaption(Title);
  NewGraph.SetCaptionVisible(!Title.empty());
  NewGraph.TestPrimaryAxis();
  for (TZyAxis* Axis : {NewGraph.PrimaryXAxis(), NewGraph.PrimaryYAxis()}) Axis->SetCaptionVisible(false);
  ApplyLook(NewGraph, TZyLook::Light());
  FFileName.clear();
  Take(std::move(Document));
}

/// The page goes into the window, with the size that the window gives it.
void TStudioWindow::Take(std::unique_ptr<TChartDocument> Document) {
  if (Document->Graphs().empty()) throw EReadError("The file has no chart with axes");
  FMenu.reset();
  if (FDocument != nullptr) FDocument->Page().Widget()->setParent(nullptr);
  FDocument = std::move(Document);
  FGraph = FDocument->Graphs().front();
  for (TZyGraph2D* Each : FDocument->Graphs()) {
    Each->Zoom().SetWheelZoom(TZyWheelZoom::Always);
    Each->SetTabStop(true);
    Each->SetUndoStack(&FDocument->Undo());
  }
  FDocument->Undo().Clear();
  FDocument->Undo().MarkSaved();
  FMenu = std::make_unique<TZyChartMenu>();
  FMenu->SetChart(FGraph);
  setCentralWidget(FDocument->Page().Widget());
  ShowTitle();
}

TZyDoubleVector& TStudioWindow::VectorOf(int Column) {
  const TStudioColumn& From = FColumns.at(static_cast<std::size_t>(Column));
  auto& Result = Make<TZyDoubleVector>("TZyDoubleVector", FDocument->Holder(), "Data");
  Result.AddRange(From.Values);
  return Result;
}

/// A series in the next colour, which undo takes away again.
TZySeries& TStudioWindow::Join(const std::string& Kind, const std::string& Caption) {
  auto& Series = Make<TZySeries>(Kind, FDocument->Holder(), "Series");
  Series.SetCaption(Caption);
  const std::vector<TZyColor>& Colors = TZyLook::Light().SeriesColors;
  const TZyColor Color = Colors[FGraph->RelatedSeries().size() % Colors.size()];
  Series.Line().SetColor(Color);
  Series.Area().SetForeColor(Color);
  if (auto* const Points = dynamic_cast<TZyPointSeries*>(&Series)) {
    Points->PointSymbol().SetBorderColor(Color);
    Points->PointSymbol().SetFillColor(Color);
  }
  FDocument->Undo().PushFreeComponent(&Series, "Add " + Caption);
  return Series;
}

TZySeries& TStudioWindow::AddSeries(const std::string& Kind, int XColumn, int YColumn) {
  const TStudioColumn& Y = FColumns.at(static_cast<std::size_t>(YColumn));
  TZySeries& Series = Join(Kind, Y.Name);
  if (XColumn >= 0) Series.SetXData(&VectorOf(XColumn));
  Series.SetYData(&VectorOf(YColumn));
  FGraph->AddSeries(Series);
  const bool IsFirst = FGraph->RelatedSeries().size() == 1;
  const auto Name = [](TZyAxis& Axis, const TStudioColumn& Column) {
    Axis.SetCaption(Column.Name);
    Axis.SetCaptionVisible(true);
    if (Column.IsDate) Axis.SetScaling(TZyAxisScaling::DateTime);
  };
  if (IsFirst && XColumn >= 0) Name(*FGraph->PrimaryXAxis(), FColumns[static_cast<std::size_t>(XColumn)]);
  if (IsFirst) Name(*FGraph->PrimaryYAxis(), Y);
  return Series;
}

TZySeries& TStudioWindow::AddCurve(const std::string& Kind, TZySeries& Of) {
  QString Formula;
  if (Kind == "TZyFittedLine") {
    Formula =
        QInputDialog::getText(this, Program, "Formula of X with the coefficients A to P", QLineEdit::Normal, "A*X+B");
    if (Formula.isEmpty()) throw EAbort("No formula");
  }
  TZySeries& Series = Join(Kind, Of.ToString() + ", " + Kind.substr(3));
  if (auto* const Fit = dynamic_cast<TZyFittedLine*>(&Series)) Fit->SetExpression(Formula.toStdString());
  dynamic_cast<TZyFunctionSeries&>(Series).SetOnCalculationError(
      [this](TObject*, const std::exception& Error) { FHelp->setText(QString::fromUtf8(Error.what())); });
  Series.SetXData(Of.XData());
  Series.SetYData(Of.YData());
  if (Kind != "TZyDiscreteFourier") {
    Series.SetXAxis(Of.XAxis());
    Series.SetYAxis(Of.YAxis());
    return Series;
  }
  // A spectrum has axes of its own.
  for (const auto Position : {TZyAxisPosition::Top, TZyAxisPosition::Right}) {
    auto& Axis = Make<TZyAxis>("TZyAxis", FDocument->Holder(), "Axis");
    Axis.SetParent(FGraph);
    Axis.SetPosition(Position);
    Axis.SetUndoStack(&FDocument->Undo());
    Position == TZyAxisPosition::Top ? Series.SetXAxis(&Axis) : Series.SetYAxis(&Axis);
  }
  return Series;
}

void TStudioWindow::AddLegend() {
  auto& Legend = Make<TZyLegend>("TZyLegend", FDocument->Holder(), "Legend");
  Legend.SetParent(FGraph);
  Legend.SetGraph(FGraph);
  Legend.SetPosition(TZyLegendPosition::RightTopOfAxis);
  FDocument->Undo().PushFreeComponent(&Legend, "Add legend");
}

void TStudioWindow::AddMarker(const std::string& Kind) {
  auto& Marker = Make<TZyMovable>(Kind, FDocument->Holder(), "Marker");
  Marker.SetParent(FGraph);
  Marker.SetXAxis(FGraph->PrimaryXAxis());
  Marker.SetYAxis(FGraph->PrimaryYAxis());
  Marker.SetX((FGraph->PrimaryXAxis()->Start() + FGraph->PrimaryXAxis()->Stop()) / 2);
  Marker.SetY((FGraph->PrimaryYAxis()->Start() + FGraph->PrimaryYAxis()->Stop()) / 2);
  Marker.SetCaptionVisible(true);
  FDocument->Undo().PushFreeComponent(&Marker, "Add marker");
}

TZySeries* TStudioWindow::ChooseSeries() {
  std::vector<TZySeries*> Offered;
  QStringList Names;
  for (TZySeries* Series : FGraph->RelatedSeries()) {
    if (dynamic_cast<TZyFunctionSeries*>(Series) != nullptr) continue;
    Offered.push_back(Series);
    Names += QString::fromStdString(Series->ToString());
  }
  if (Offered.empty()) throw EInvalidOperation("Add a series first");
  const int Chosen = Offered.size() == 1 ? 0 : Choose("Curve of", Names);
  return Chosen < 0 ? nullptr : Offered[static_cast<std::size_t>(Chosen)];
}

/// The index of what the user chooses, -1 for nothing.
int TStudioWindow::Choose(const char* Question, const QStringList& Names) {
  bool IsChosen = false;
  const QString Name = QInputDialog::getItem(this, Program, Question, Names, 0, false, &IsChosen);
  return IsChosen ? static_cast<int>(Names.indexOf(Name)) : -1;
}

// --- Files ----------------------------------------------------------------------------------------------------------

void TStudioWindow::Ask(const char* Title, const std::string& Filter) {
  if (const auto Chosen = AskToOpen(nullptr, Title, Filter)) Open(*Chosen);
}

void TStudioWindow::Open(const std::filesystem::path& FileName) {
  if (!ChartFormOf(FileName)) return OpenData(FileName);
  if (!MayLeave()) return;
  auto Document = std::make_unique<TChartDocument>();
  {
    const TChartDocument::THidden Hidden(*FDocument);
    Document->Load(FileName);
  }
  Take(std::move(Document));
  FFileName = FileName;
  FColumns.clear();
  ShowColumns();
  ShowTitle();
}

/// Another table begins another chart.
void TStudioWindow::OpenData(const std::filesystem::path& FileName) {
  auto Columns = LoadColumns(FileName, [this](const std::vector<std::string>& Tables) {
    QStringList Names;
    for (const std::string& Table : Tables) Names += QString::fromStdString(Table);
    const int Chosen = Choose("Table", Names);
    return Chosen < 0 ? std::string() : Tables[static_cast<std::size_t>(Chosen)];
  });
  if (!MayLeave()) return;
  NewChart(FileName.stem().string());
  FColumns = std::move(Columns);
  ShowColumns();
}

void TStudioWindow::SaveTo(const std::filesystem::path& FileName) {
  FDocument->Save(FileName);
  FDocument->Undo().MarkSaved();
  FFileName = FileName;
  ShowTitle();
}

bool TStudioWindow::Save() { return FFileName.empty() ? SaveAs() : (SaveTo(FFileName), true); }

bool TStudioWindow::SaveAs() {
  const auto Chosen = AskToSave(nullptr, FFileName);
  if (Chosen) SaveTo(*Chosen);
  return Chosen.has_value();
}

bool TStudioWindow::MayLeave() {
  return examples::MayLeave(this, Program, FDocument->Undo(), [this] { return Save(); });
}

void TStudioWindow::closeEvent(QCloseEvent* Event) { Event->setAccepted(MayLeave()); }

void TStudioWindow::ShowTitle() {
  const QString Name = QString::fromStdString(FFileName.filename().string());
  setWindowTitle((Name.isEmpty() ? "New chart" : Name) + (FDocument->Undo().Saved() ? "" : "*") + " - " + Program);
}

void TStudioWindow::Tell(const std::exception& Error) {
  QMessageBox::warning(this, Program, QString::fromUtf8(Error.what()));
}

}  // namespace zy::examples
