// A gallery of charts of real data: in a window with a list of them, or without a display as PNG, SVG and PDF files.
//
//   gallery [FOLDER]

#include "gallery/Gallery.h"

#include <filesystem>
#include <iostream>
#include <memory>
#include <vector>

#include "common/Pictures.h"
#include "platform/controls/TApplication.h"
#include "platform/controls/TForm.h"
#include "platform/controls/TLabel.h"
#include "platform/drawing/Graphics.h"

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

/// The window: names at the left, the chosen chart at the right.
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
    int Top = 16;
    for (const TEntry& Entry : Entries) {
      auto* const Name = new TLabel(this);
      Name->SetParent(List);
      Name->SetLeft(16);
      Name->SetTop(Top);
      Name->SetCaption(Entry.Title);
      Name->SetCursor(crHandPoint);
      Name->SetOnClick([this, &Entry](TObject*) { Show(Entry); });
      Top += 30;
    }
    Show(Entries[0]);
  }

 private:
  using TForm::Show;
  void Show(const TEntry& Entry) {
    FPage = std::make_unique<TFrame>();
    FPage->SetParent(this);
    FPage->SetAlign(alClient);
    Entry.Make(*FPage);
  }

  std::unique_ptr<TFrame> FPage;
};

void SavePage(const TEntry& Entry, const std::filesystem::path& Folder) {
  TFrame Page;
  Page.SetBounds(0, 0, PageWidth, PageHeight);
  Entry.Make(Page);
  const std::filesystem::path Stem = Folder / Entry.Name;
  const auto Draw = [&Page](Graphics& Canvas) { Page.PaintTo(Canvas); };
  SavePictures(Stem, PageWidth, PageHeight, Draw);
  SaveRecordings(Stem, PageWidth, PageHeight, {".svg", ".pdf"}, Draw);
  std::cout << Entry.Title << ": " << Stem.string() << ".png, @2x.png, .svg, .pdf\n";
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
