// A gallery of charts of real data: in a window where they are chosen, saved and printed, or without a display as
// files.
//
//   gallery [FOLDER]

#include "gallery/Gallery.h"

#include <filesystem>
#include <functional>
#include <iostream>
#include <memory>
#include <vector>

#include "common/Pictures.h"
#include "graph/ZyImageFileNames.h"
#include "platform/controls/TApplication.h"
#include "platform/controls/TForm.h"
#include "platform/controls/TLabel.h"
#include "platform/controls/TPrintDialog.h"
#include "platform/controls/TPrinter.h"
#include "platform/controls/TSaveDialog.h"
#include "platform/drawing/Graphics.h"
#include "texts/Exceptions.h"

namespace zy::examples {

TZyGraph2D& TChartPage::AddGraph(const char* Title, const char* XCaption, const char* YCaption) {
  auto& Graph = *new TZyGraph2D(&Page);
  Graph.SetParent(&Page);
  Graph.SetAlign(alClient);
  Graph.SetBackColor(Colors::White);
  Graph.SetCaption(Title);
  Graph.SetCaptionVisible(*Title != '\0');
  Graph.SetCaptionDistanceBefore(10);
  Graph.SetCaptionDistanceAfter(8);
  Graph.Font().SetSize(14);
  Graph.SetDistanceBorderAxisLeft(10);
  Graph.SetDistanceBorderAxisRight(16);
  Graph.SetDistanceBorderAxisTop(*Title != '\0' ? 0 : 12);
  Graph.SetDistanceBorderAxisBottom(8);
  Graph.MajorGridHorizontal().SetVisible(true);
  for (TZyLineSettings* Grid : {&Graph.MajorGridHorizontal(), &Graph.MajorGridVertical()}) Grid->SetColor(0xFFDDDDDD);
  Graph.TestPrimaryAxis();
  Graph.PrimaryXAxis()->SetCaption(XCaption);
  Graph.PrimaryYAxis()->SetCaption(YCaption);
  for (TZyAxis* Axis : Graph.Axes()) {
    Axis->SetDistanceAxisLabels(4);
    Axis->SetDistanceNumbersCaption(6);
    Axis->CaptionFont().SetSize(12);
    Axis->Font().SetSize(10);
    Axis->Font().SetStyle({});
  }
  return Graph;
}

TZyAxis& TChartPage::AddAxis(TZyGraph2D& Graph, TZyAxisPosition Position, const char* Caption) {
  auto& Axis = *new TZyAxis(&Page);
  Axis.SetPosition(Position);
  Axis.SetParent(&Graph);
  Axis.SetCaption(Caption);
  Axis.SetDistanceAxisLabels(4);
  Axis.SetDistanceNumbersCaption(6);
  Axis.CaptionFont().Assign(&Graph.PrimaryYAxis()->CaptionFont());
  Axis.Font().Assign(&Graph.PrimaryYAxis()->Font());
  return Axis;
}

namespace {

struct TEntry {
  const char* Name;
  const char* Title;
  void (*Make)(TFrame& Page);
};

constexpr TEntry Entries[] = {{"shares", "Shares on a date axis", MakeShares},
                              {"carbon-dioxide", "Trend and seasons", MakeCarbonDioxide},
                              {"weather", "A band and two Y axes", MakeWeather},
                              {"health", "Points on a log axis", MakeHealth},
                              {"day", "Time of day", MakeDay},
                              {"coupled", "Two graphs, one X axis", MakeCoupled},
                              {"sides", "Axes on four sides", MakeSides},
                              {"rubrics", "An axis of texts", MakeRubrics},
                              {"zero-origin", "Axes through zero", MakeZeroOrigin}};
constexpr int PageWidth = 900, PageHeight = 560, ListWidth = 190;

/// A chart of the page; of coupled ones any stands for all.
TZyGraph2D& GraphOf(const TFrame& Page) {
  for (TComponent* Component : Page.Components())
    if (auto* const Graph = dynamic_cast<TZyGraph2D*>(Component)) return *Graph;
  throw EInvalidOperation("The page has no chart");
}

void SaveAs(const TEntry& Entry, TFrame& Page) {
  TSaveDialog Dialog;
  Dialog.Title = "Save the chart";
  Dialog.Filter = ImageFileFilter();
  Dialog.FileName = Entry.Name;
  if (!Dialog.Execute(&Page)) return;
  GraphOf(Page).SaveImage(Dialog.FileName, ImageFileFormatOf(Dialog.FileName).value_or(TZyImageFileFormat::PNG));
}

void Print(const TEntry& Entry, TFrame& Page) {
  TPrinter Printer;
  Printer.SetTitle(Entry.Title);
  Printer.SetOrientation(poLandscape);
  if (!TPrintDialog::Execute(Printer, &Page)) return;
  Printer.BeginDoc();
  GraphOf(Page).PrintTo(&Printer, {0, 0, Printer.PageWidth(), Printer.PageHeight()});
  Printer.EndDoc();
}

/// Around the middle of the data area.
void Zoom(TZyGraph2D& Graph, double Factor) {
  const RectF& Area = Graph.DrawingArea();
  Graph.ZoomAround({static_cast<int>(Area.X + Area.Width / 2), static_cast<int>(Area.Y + Area.Height / 2)}, Factor);
}

/// The window: names and commands at the left, the chosen chart at the right.
class TGalleryForm : public TForm {
 public:
  TGalleryForm() {
    SetCaption("Zyphos: gallery");
    SetPosition(poScreenCenter);
    SetBounds(0, 0, PageWidth + ListWidth, PageHeight);
    auto* const List = new TFrame(this);
    List->SetParent(this);
    List->SetWidth(ListWidth);
    List->SetAlign(alLeft);
    for (const TEntry& Entry : Entries) AddCommand(*List, Entry.Title, [this, &Entry] { Show(Entry); });
    FTop += 20;
    AddCommand(*List, "Zoom in", [this] { Zoom(GraphOf(*FPage), 0.5); });
    AddCommand(*List, "Zoom out", [this] { Zoom(GraphOf(*FPage), 2); });
    AddCommand(*List, "Back", [this] { GraphOf(*FPage).ZoomBack(); });
    AddCommand(*List, "Forward", [this] { GraphOf(*FPage).RedoZoom(); });
    AddCommand(*List, "Whole range", [this] { GraphOf(*FPage).ZoomReset(); });
    FTop += 20;
    AddCommand(*List, "Save...", [this] { SaveAs(*FEntry, *FPage); });
    AddCommand(*List, "Copy", [this] { GraphOf(*FPage).CopyToClipboard(); });
    AddCommand(*List, "Print...", [this] { Print(*FEntry, *FPage); });
    Show(Entries[0]);
  }

 private:
  using TForm::Show;
  void AddCommand(TFrame& List, const char* Text, const std::function<void()>& Run) {
    auto* const Command = new TLabel(this);
    Command->SetParent(&List);
    Command->SetCaption(Text);
    Command->SetAutoSize(false);  // the whole row takes the click
    Command->SetBounds(16, FTop, ListWidth - 16, Command->Height());
    Command->SetCursor(crHandPoint);
    Command->SetOnClick([Run](TObject*) { Run(); });
    FTop += 28;
  }

  void Show(const TEntry& Entry) {
    FEntry = &Entry;
    FPage = std::make_unique<TFrame>();
    FPage->SetParent(this);
    FPage->SetAlign(alClient);
    Entry.Make(*FPage);
    for (TComponent* Component : FPage->Components()) {
      auto* const Graph = dynamic_cast<TZyGraph2D*>(Component);
      if (Graph == nullptr) continue;
      Graph->Zoom().SetWheelZoom(TZyWheelZoom::Always);  // the window has nothing that the wheel could scroll instead
      Graph->SetTabStop(true);                           // a click or the Tab key brings the keyboard here
    }
  }

  std::unique_ptr<TFrame> FPage;
  const TEntry* FEntry = nullptr;
  int FTop = 16;  // of the next command
};

void SavePage(const TEntry& Entry, const std::filesystem::path& Folder) {
  TFrame Page;
  Page.SetBounds(0, 0, PageWidth, PageHeight);
  Entry.Make(Page);
  const std::filesystem::path Stem = Folder / Entry.Name;
  SavePictures(Stem, PageWidth, PageHeight, [&Page](Graphics& Canvas) { Page.PaintTo(Canvas); });
  for (const char* Extension : {".svg", ".pdf", ".emf"}) {
    const std::string FileName = Stem.string() + Extension;
    GraphOf(Page).SaveImage(FileName, ImageFileFormatOf(FileName).value());
  }
  std::cout << Entry.Title << ": " << Stem.string() << ".png, @2x.png, .svg, .pdf, .emf\n";
}

}  // namespace
}  // namespace zy::examples

int main(int ArgCount, char** Args) {
  zy::TApplication Program(ArgCount, Args);
  try {
    if (Program.HasDisplay()) {
      zy::examples::TGalleryForm Form;
      static_cast<zy::TForm&>(Form).Show();
      return Program.Run();
    }
    const std::filesystem::path Folder = ArgCount > 1 ? Args[1] : "out/gallery";
    std::filesystem::create_directories(Folder);
    for (const auto& Entry : zy::examples::Entries) zy::examples::SavePage(Entry, Folder);
    return 0;
  } catch (const std::exception& Error) {
    std::cerr << "gallery: " << Error.what() << '\n';
    return 1;
  }
}
