// A small chart program: opens a CSV file or a table of an SQLite database, draws columns as series, adds curves,
// markers and a legend, edits everything in the settings dialogs, undoes, saves and opens charts, exports and prints.
//
//   studio [FILE]      the window, with data or a chart in it
//   studio [FOLDER]    without a display: a session of the window, as pictures and a chart file in the folder

#include <QApplication>
#include <QIcon>
#include <QPainter>
#include <QPixmap>
#include <iostream>

#include "platform/controls/TApplication.h"
#include "studio/StudioWindow.h"
#include "texts/ZyLocalize.h"

namespace zy::examples {
namespace {

void SaveWindow(QWidget& Window, const std::filesystem::path& FileName) {
  QApplication::processEvents();
  TApplication::Idle();
  QApplication::processEvents();
  Window.grab().save(QString::fromStdString(FileName.string()));
  std::cout << FileName.string() << '\n';
}

/// The window with a dialog before it, as they lie on a screen.
void SaveBoth(QWidget& Window, QWidget& Dialog, const std::filesystem::path& FileName) {
  constexpr int Right = 180, Below = 50;
  QPixmap Screen(Window.width() + Right, Window.height() + Below);
  Screen.fill(Qt::lightGray);
  QPainter Painter(&Screen);
  Painter.drawPixmap(0, 0, Window.grab());
  const QRect Place(QPoint(Screen.width() - Dialog.width() - 1, Screen.height() - Dialog.height() - 1), Dialog.size());
  Painter.drawPixmap(Place, Dialog.grab());
  Painter.setPen(Qt::darkGray);
  Painter.drawRect(Place.adjusted(-1, -1, 0, 0));
  Painter.end();
  Screen.save(QString::fromStdString(FileName.string()));
  std::cout << FileName.string() << '\n';
}

/// What a user would do, without one.
void PlaySession(TStudioWindow& Window, const std::filesystem::path& Folder) {
  std::filesystem::create_directories(Folder);
  Window.Open(ZY_EXAMPLE_DATA "/co2-concentration.csv");
  TZySeries& Measured = Window.AddSeries("TZyLineSeries", 0, 1);
  Window.AddCurve("TZyPolynomial", Measured).Line().SetWidth(2);
  Window.AddLegend();
  Window.show();
  SaveWindow(Window, Folder / "studio.png");
  Window.Menu().ShowSettings(Measured);
  TGraphEdit& Dialog = *Window.Menu().GraphTool().Dialog();
  SaveWindow(*Dialog.Widget(), Folder / "settings.png");
  SaveBoth(Window, *Dialog.Widget(), Folder / "session.png");
  Dialog.Close();
  Window.SaveTo(Folder / "studio.zyx");
  Window.Open(Folder / "studio.zyx");
  SaveWindow(Window, Folder / "opened.png");
  LoadLanguage(ZY_LANGUAGES "/de.lng");  // for dialogs that open from now on
  Window.Menu().ShowSettings(*Window.Graph().PrimaryYAxis());
  SaveWindow(*Window.Menu().GraphTool().Dialog()->Widget(), Folder / "settings_german.png");
}

}  // namespace
}  // namespace zy::examples

int main(int ArgCount, char** Args) {
  using namespace zy::examples;
  zy::TApplication Program(ArgCount, Args);
  QApplication::setWindowIcon(QIcon(ZY_EXAMPLE_DATA "/../studio/studio.svg"));
  try {
    TStudioWindow Window;
    Program.OnException = [&Window](const std::exception& Error) { Window.Tell(Error); };
    if (!Program.HasDisplay()) {
      PlaySession(Window, ArgCount > 1 ? Args[1] : "out/studio");
      return 0;
    }
    Window.show();
    if (ArgCount > 1) Window.Open(Args[1]);
    return Program.Run();
  } catch (const std::exception& Error) {
    std::cerr << "studio: " << Error.what() << '\n';
    return 1;
  }
}
