// A gallery of charts of real data: in a window where they are chosen, changed, saved, loaded and printed, or without a
// display as files.
//
//   gallery [FILE]      the window, with a chart file in it
//   gallery [FOLDER]    without a display: all charts into the folder

#include <filesystem>
#include <iostream>

#include "common/Pictures.h"
#include "gallery/GalleryWindow.h"
#include "graph/ZyImageFileNames.h"
#include "platform/controls/TApplication.h"
#include "platform/drawing/Graphics.h"

namespace zy::examples {
namespace {

/// Each chart as pictures, drawings and chart files.
void SaveAll(const TEntry& Entry, const std::filesystem::path& Folder) {
  TChartDocument Document("Gallery");
  Document.Page().SetBounds(0, 0, PageWidth, PageHeight);
  Entry.Make(Document);
  const std::filesystem::path Stem = Folder / Entry.Name;
  SavePictures(Stem, PageWidth, PageHeight, [&](Graphics& Canvas) { Document.Page().PaintTo(Canvas); });
  for (const char* Extension : {".svg", ".pdf", ".emf"}) {
    const std::string FileName = Stem.string() + Extension;
    Document.Charts().front()->SaveImage(FileName, ImageFileFormatOf(FileName).value());
  }
  for (const char* Extension : {".zys", ".zyx", ".zyi"}) Document.Save(Stem.string() + Extension);
  std::cout << Entry.Title << ": " << Stem.string() << ".png, @2x.png, .svg, .pdf, .emf, .zys, .zyx, .zyi\n";
}

}  // namespace
}  // namespace zy::examples

int main(int ArgCount, char** Args) {
  using namespace zy::examples;
  zy::TApplication Program(ArgCount, Args);
  try {
    if (Program.HasDisplay()) {
      TGalleryWindow Window;
      Program.OnException = [&Window](const std::exception& Error) { Window.Tell(Error); };
      Window.Show();
      if (ArgCount > 1) Window.Open(Args[1]);
      return Program.Run();
    }
    const std::filesystem::path Folder = ArgCount > 1 ? Args[1] : "out/gallery";
    std::filesystem::create_directories(Folder);
    for (const TEntry& Entry : Entries()) SaveAll(Entry, Folder);
    return 0;
  } catch (const std::exception& Error) {
    std::cerr << "gallery: " << Error.what() << '\n';
    return 1;
  }
}
