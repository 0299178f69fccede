#include "gallery/GalleryWindow.h"

#include <QDropEvent>
#include <QMessageBox>
#include <QMimeData>
#include <QToolTip>
#include <QUrl>

#include "axes/ZyDateTimeText.h"
#include "common/ChartDialogs.h"
#include "common/ChartForms.h"
#include "gallery/RecentFiles.h"
#include "graph/ZyImageFileNames.h"
#include "graph/values/ZyStringFunctions.h"
#include "platform/controls/TApplication.h"
#include "platform/controls/TFileDialog.h"
#include "platform/controls/TLabel.h"
#include "platform/controls/TPrintDialog.h"
#include "platform/controls/TPrinter.h"
#include "texts/Exceptions.h"
#include "undo/ZyUndoGroup.h"

namespace zy::examples {
namespace {

constexpr const char* Title = "Zyphos: gallery";
constexpr int ListWidth = 190;

/// The chart file that is dragged; empty when it is none, or more than one file.
std::filesystem::path DraggedChart(const QMimeData& Data) {
  const QList<QUrl> Urls = Data.urls();
  if (Urls.size() != 1 || !Urls.front().isLocalFile()) return {};
  const std::filesystem::path FileName = Urls.front().toLocalFile().toStdString();
  return ChartFormOf(FileName) ? FileName : std::filesystem::path();
}

std::string ValueText(const TZyAxis& Axis, double Value) {
  constexpr int Digits = 7;
  if (Axis.Scaling() == TZyAxisScaling::DateTime) return DateTimeToString("c", Value);
  if (Axis.Scaling() == TZyAxisScaling::Seconds) return SecondsToString(Value, 3);
  return RealToStrDigits(Value, Digits);
}

/// Tells of the point under the mouse: its series, and its values.
void ShowPointTip(TZyGraph2D& Graph, int X, int Y) {
  const TZyFindSeriesPointResult Point = Graph.FindSeriesPoint(X, Y);
  if (!Point.Found) return QToolTip::hideText();
  const TZySeries& Series = *Point.InSeries;
  const std::string Text =
      Series.ToString() + "\n" + ValueText(*Series.XAxis(), Point.X) + "; " + ValueText(*Series.YAxis(), Point.Y);
  QToolTip::showText(Graph.Widget()->mapToGlobal(QPoint(X, Y)), QString::fromStdString(Text), Graph.Widget());
}

}  // namespace

TGalleryWindow::TGalleryWindow()
    : FOpenDropped([this] {
        try {
          Open(FDropped);
        } catch (const std::exception& Error) {
          TApplication::HandleException(Error);
        }
      }) {
  SetPosition(poScreenCenter);
  SetBounds(0, 0, PageWidth + 2 * ListWidth, PageHeight);
  FKeys.SetAutoPopup(false);  // the right button belongs to the chart
  SetPopupMenu(&FKeys);
  AddCharts(AddList());
  AddCommands(AddList());
  SetOnCloseQuery([this](TObject*, bool& CanClose) { CanClose = MayLeave(); });
  Make(Entries().front());
}

TGalleryWindow::~TGalleryWindow() {
  Destroying();
  FDocument.reset();
}

// --- Commands -------------------------------------------------------------------------------------------------------

TFrame& TGalleryWindow::AddList() {
  auto* const List = new TFrame(this);
  List->SetParent(this);
  List->SetBounds(Width(), 0, ListWidth, ClientHeight());  // behind the one before
  List->SetAlign(alLeft);
  FTop = FirstTop;
  return *List;
}

void TGalleryWindow::AddCharts(TFrame& List) {
  for (const TEntry& Entry : Entries())
    AddCommand(List, Entry.Title, "", [this, &Entry] {
      if (MayLeave()) Make(Entry);
    });
}

void TGalleryWindow::AddCommands(TFrame& List) {
  AddCommand(List, "Open...", "Ctrl+O", [this] { AskOpen(); });
  AddCommand(List, "Open recent", "", [this] { ShowRecent(); });
  AddCommand(List, "Save", "Ctrl+S", [this] { Save(); });
  AddCommand(List, "Save as...", "Ctrl+Shift+S", [this] { SaveAs(); });
  AddCommand(List, "Save picture...", "Ctrl+E", [this] { SavePicture(); });
  AddCommand(List, "Copy", "Ctrl+C", [this] { Chart().CopyToClipboard(); });
  AddCommand(List, "Print...", "Ctrl+P", [this] { Print(); });
  AddGap();
  AddCommand(List, "Grid", "", [this] { ToggleGrid(); });
  AddCommand(List, "Thicker lines", "", [this] { ThickenLines(); });
  AddCommand(List, "Undo", "Ctrl+Z", [this] { FDocument->Undo().Undo(); });
  AddCommand(List, "Redo", "Ctrl+Y", [this] { FDocument->Undo().Redo(); });
  AddGap();
  AddCommand(List, "Zoom in", "", [this] { Zoom(0.5); });
  AddCommand(List, "Zoom out", "", [this] { Zoom(2); });
  AddCommand(List, "Zoom back", "", [this] { WithGraph(&TZyGraph2D::ZoomBack); });
  AddCommand(List, "Zoom forward", "", [this] { WithGraph(&TZyGraph2D::RedoZoom); });
  AddCommand(List, "Whole range", "", [this] { WithGraph(&TZyGraph2D::ZoomReset); });
}

void TGalleryWindow::AddCommand(TFrame& List, const char* Text, const char* Keys, const TCommand& Run) {
  const auto RunAndTell = [this, Run](TObject*) {
    Run();
    ShowTitle();
  };
  auto* const Command = new TLabel(this);
  Command->SetParent(&List);
  Command->SetCaption(Text);
  Command->SetAutoSize(false);  // the whole row takes the click
  Command->SetBounds(16, FTop, ListWidth - 16, Command->Height());
  Command->SetCursor(crHandPoint);
  Command->SetHint(Keys);
  Command->SetShowHint(*Keys != '\0');
  Command->SetOnClick(RunAndTell);
  if (*Keys != '\0') FKeys.Items().Add(Text, RunAndTell).SetShortCut(Keys);
  FTop += 20;
}

/// The grid lines of the X axes, of all graphs in one step.
void TGalleryWindow::ToggleGrid() {
  WithGraph([this](TZyGraph2D& First) {
    const bool Value = !First.MajorGridVertical().Visible();
    const TZyUndoGroup Group(&FDocument->Undo(), "Grid");
    for (TZyGraph2D* One : FDocument->Graphs()) One->MajorGridVertical().SetVisible(Value);
  });
}

void TGalleryWindow::ThickenLines() {
  const TZyUndoGroup Group(&FDocument->Undo(), "Thicker lines");
  for (TZyGraph2D* One : FDocument->Graphs())
    for (TZySeries* Series : One->RelatedSeries()) Series->Line().SetWidth(Series->Line().Width() + 1);
}

void TGalleryWindow::WithGraph(const std::function<void(TZyGraph2D& Graph)>& Do) {
  if (!FDocument->Graphs().empty()) Do(*FDocument->Graphs().front());
}

/// Around the middle of the data area.
void TGalleryWindow::Zoom(double Factor) {
  WithGraph([Factor](TZyGraph2D& Graph) {
    const RectF& Area = Graph.DrawingArea();
    Graph.ZoomAround({static_cast<int>(Area.X + Area.Width / 2), static_cast<int>(Area.Y + Area.Height / 2)}, Factor);
  });
}

void TGalleryWindow::SavePicture() {
  TSaveDialog Dialog;
  Dialog.Title = "Save a picture of the chart";
  Dialog.Filter = ImageFileFilter();
  Dialog.FileName = FEntry != nullptr ? std::filesystem::path(FEntry->Name) : FFileName.stem();
  if (!Dialog.Execute(this)) return;
  Chart().SaveImage(Dialog.FileName, ImageFileFormatOf(Dialog.FileName).value_or(TZyImageFileFormat::PNG));
}

void TGalleryWindow::Print() {
  TPrinter Printer;
  Printer.SetTitle(FEntry != nullptr ? FEntry->Title : FFileName.stem().string());
  Printer.SetOrientation(poLandscape);
  if (!TPrintDialog::Execute(Printer, this)) return;
  Printer.BeginDoc();
  Chart().PrintTo(&Printer, {0, 0, Printer.PageWidth(), Printer.PageHeight()});
  Printer.EndDoc();
}

// --- Charts and files -----------------------------------------------------------------------------------------------

void TGalleryWindow::Make(const TEntry& Entry) {
  auto Document = std::make_unique<TChartDocument>("Gallery");
  Document->Page().SetBounds(0, 0, ClientWidth() - 2 * ListWidth, ClientHeight());
  Entry.Make(*Document);
  Take(std::move(Document), {});
  FEntry = &Entry;
  ShowTitle();
}

void TGalleryWindow::Open(const std::filesystem::path& FileName) {
  if (!MayLeave()) return;
  auto Document = std::make_unique<TChartDocument>();
  try {
    const TChartDocument::THidden Hidden(*FDocument);
    Document->Load(FileName);
  } catch (const Exception&) {
    TRecentFiles::Remove(FileName);
    throw;
  }
  TRecentFiles::Add(FileName);
  Take(std::move(Document), FileName);
}

void TGalleryWindow::Take(std::unique_ptr<TChartDocument> Document, const std::filesystem::path& FileName) {
  FMenus.clear();
  FDocument = std::move(Document);
  FEntry = nullptr;
  FFileName = FileName;
  FDocument->Undo().SetLimit(0);
  for (TZyGraph2D* One : FDocument->Graphs()) {
    One->Zoom().SetWheelZoom(TZyWheelZoom::Always);  // the window has nothing that the wheel could scroll instead
    One->SetOnMouseMove([One](TObject*, TShiftState, int X, int Y) { ShowPointTip(*One, X, Y); });
  }
  for (TZyCustomGraph* One : FDocument->Charts()) {
    One->SetTabStop(true);  // a click or the Tab key brings the keyboard here
    if (auto* const Pie = dynamic_cast<TZyPieChart*>(One)) {
      Pie->SetShowHint(true);
      Pie->SetExplodeOnClick(true);
    }
    One->SetUndoStack(&FDocument->Undo());  // from here on changes are the user's
    FMenus.push_back(std::make_unique<TZyChartMenu>());
    FMenus.back()->SetChart(One);
  }
  FDocument->Page().SetParent(this);
  FDocument->Page().SetAlign(alClient);
  ShowTitle();
}

void TGalleryWindow::ShowTitle() {
  const std::string Name =
      FFileName.empty() ? std::string(FEntry != nullptr ? FEntry->Title : "") : FFileName.filename().string();
  SetCaption(Name + (FDocument->Undo().Saved() ? "" : "*") + " - " + Title);
}

bool TGalleryWindow::MayLeave() {
  return examples::MayLeave(Widget(), Title, FDocument->Undo(), [this] { return Save(); });
}

void TGalleryWindow::AskOpen() {
  if (const auto Chosen = AskToOpen(this, "Open a chart", ChartFileFilter(false), FFileName)) Open(*Chosen);
}

void TGalleryWindow::ShowRecent() {
  FRecent.Items().Clear();
  for (const std::filesystem::path& FileName : TRecentFiles::Files())
    FRecent.Items().Add(FileName.string(), [this, FileName](TObject*) { Open(FileName); });
  if (FRecent.Items().Items().empty()) FRecent.Items().Add("No files yet").SetEnabled(false);
  const TPoint Corner = ClientToScreen({2 * ListWidth, FirstTop});
  FRecent.SetPopupComponent(this);
  FRecent.Popup(Corner.X, Corner.Y);
}

bool TGalleryWindow::Save() {
  if (FFileName.empty()) return SaveAs();
  SaveTo(FFileName);
  return true;
}

bool TGalleryWindow::SaveAs() {
  const auto Chosen = AskToSave(this, FEntry != nullptr ? std::filesystem::path(FEntry->Name) : FFileName);
  if (Chosen) SaveTo(*Chosen);
  return Chosen.has_value();
}

void TGalleryWindow::SaveTo(const std::filesystem::path& Target) {
  FDocument->Save(Target);
  FDocument->Undo().MarkSaved();
  FFileName = Target;
  TRecentFiles::Add(Target);
  ShowTitle();
}

void TGalleryWindow::Tell(const std::exception& Error) {
  QMessageBox::warning(Widget(), Title, QString::fromUtf8(Error.what()));
}

// --- Files that are dropped -----------------------------------------------------------------------------------------

QWidget* TGalleryWindow::CreateWidget() {
  QWidget* const Result = TForm::CreateWidget();
  Result->setAcceptDrops(true);
  return Result;
}

bool TGalleryWindow::WidgetEvent(QEvent& Event) {
  const QEvent::Type Type = Event.type();
  if (Type != QEvent::DragEnter && Type != QEvent::DragMove && Type != QEvent::Drop) return TForm::WidgetEvent(Event);
  auto& Drop = static_cast<QDropEvent&>(Event);  // the base of all three
  const std::filesystem::path FileName = DraggedChart(*Drop.mimeData());
  Event.setAccepted(!FileName.empty());
  if (FileName.empty()) return true;
  Drop.setDropAction(Qt::CopyAction);  // the file stays where it is
  if (Type == QEvent::Drop) {
    FDropped = FileName;
    FOpenDropped.Post();
  }
  return true;
}

}  // namespace zy::examples
