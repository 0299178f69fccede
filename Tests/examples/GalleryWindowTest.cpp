// The gallery's window as a user works in it: files that are dropped, opened, changed and saved.

#include "gallery/GalleryWindow.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDropEvent>
#include <QFileDialog>
#include <QKeyEvent>
#include <QMessageBox>
#include <QMimeData>
#include <QTimer>
#include <QToolTip>
#include <QUrl>

#include "controls/ControlSamples.h"
#include "framework/Bytes.h"
#include "framework/Errors.h"
#include "gallery/RecentFiles.h"

namespace zy::examples {
namespace {

class GalleryWindowTest : public ::testing::Test {
 protected:
  GalleryWindowTest() {
    Application().SetConfigFolder(Folder.Path());
    ShowNow(Window);
    TChartDocument Document("Gallery");
    Document.Page().SetBounds(0, 0, PageWidth, PageHeight);
    MakeDay(Document);
    Document.Save(In("day.zyx"));
  }

  std::string In(const char* Name) const { return Folder / Name; }
  TZyGraph2D& Graph() { return *Window.Document().Graphs().front(); }
  void Change() { Graph().SetBackColor(++Color); }
  TZyColor ColorIn(const char* Name) {
    TChartDocument Saved;
    const TChartDocument::THidden Hidden(Window.Document());
    Saved.Load(In(Name));
    return Saved.Graphs().front()->BackColor();
  }
  /// Keys go to the chart, which leaves these to the window.
  void Press(int Key, Qt::KeyboardModifiers Modifiers = Qt::ControlModifier) {
    QKeyEvent Event(QEvent::KeyPress, Key, Modifiers);
    QCoreApplication::sendEvent(Graph().Widget(), &Event);
  }
  /// Whether the window takes the files when they are dropped on it.
  bool Drop(const QList<QUrl>& Files) {
    QMimeData Data;
    Data.setUrls(Files);
    QDragEnterEvent Enter({400, 200}, Qt::MoveAction | Qt::CopyAction, &Data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(Window.Widget(), &Enter);
    if (!Enter.isAccepted()) return false;
    EXPECT_EQ(Enter.dropAction(), Qt::CopyAction);  // otherwise some programs delete the file
    QDropEvent Event({400, 200}, Qt::CopyAction, &Data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(Window.Widget(), &Event);
    HandleEvents();
    return true;
  }
  /// Runs something that must bring up a dialog, and does something with that.
  template <class TDialog, class TRun, class TAct>
  static void With(const TRun& Run, const TAct& Act) {
    bool Came = false;
    QTimer::singleShot(0, [&] {
      auto* const Dialog = qobject_cast<TDialog*>(QApplication::activeModalWidget());
      Came = Dialog != nullptr;
      if (Came) Act(*Dialog);
    });
    Run();
    HandleEvents();
    EXPECT_TRUE(Came);
  }
  template <class TRun>
  static void Answering(QMessageBox::StandardButton Answer, const TRun& Run) {
    With<QMessageBox>(Run, [Answer](QMessageBox& Box) { Box.button(Answer)->click(); });
  }
  template <class TRun>
  void Choosing(const char* Name, const TRun& Run) {
    With<QFileDialog>(Run, [this, Name](QFileDialog& Dialog) {
      Dialog.selectFile(QString::fromStdString(In(Name)));
      QMetaObject::invokeMethod(&Dialog, "accept");
    });
  }

  const testing::TTemporaryFolder Folder;
  TGalleryWindow Window;
  TZyColor Color = 0xFFEEEEEE;
};

TEST_F(GalleryWindowTest, AFileThatIsDroppedIsShownAndSavedAgainWhenItChanged) {
  const QUrl File = QUrl::fromLocalFile(QString::fromStdString(In("day.zyx")));
  for (const QList<QUrl>& Files : {QList<QUrl>{}, {QUrl("https://host/day.zyx")}, {File, File}})
    EXPECT_FALSE(Drop(Files));
  ASSERT_TRUE(Drop({File}));
  TChartDocument Wanted("Wanted");
  Wanted.Page().SetBounds(0, 0, Window.Document().Page().Width(), Window.Document().Page().Height());
  MakeDay(Wanted);
  EXPECT_TRUE(Painted(Window.Document().Page()) == Painted(Wanted.Page()));
  EXPECT_EQ(Window.Caption(), "day.zyx - Zyphos: gallery");
  Change();
  Press(Qt::Key_S);
  EXPECT_EQ(ColorIn("day.zyx"), Color);
  Press(Qt::Key_Z);
  EXPECT_EQ(Window.Caption(), "day.zyx* - Zyphos: gallery");
  Press(Qt::Key_Y);
  EXPECT_EQ(Window.Caption(), "day.zyx - Zyphos: gallery");
}

TEST_F(GalleryWindowTest, TellsOfThePointUnderTheMouse) {
  HandleEvents();
  const PointF Point = (*Graph().RelatedSeries().begin())->Points()[0];
  const QPointF Place(Point.X, Point.Y);
  QMouseEvent Event(QEvent::MouseMove, Place, Graph().Widget()->mapToGlobal(Place), Qt::NoButton, Qt::NoButton,
                    Qt::NoModifier);
  QCoreApplication::sendEvent(Graph().Widget(), &Event);
  EXPECT_TRUE(QToolTip::text().contains("01/03/2000; 1455.22")) << QToolTip::text().toStdString();
}

TEST_F(GalleryWindowTest, SaveAsAndOpenTakeTheFormFromTheExtension) {
  for (const char* Name : {"a.zyi", "b.zys", "c.zyx"}) {
    Change();
    Choosing(Name, [&] { Press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier); });
    EXPECT_EQ(ColorIn(Name), Color);
  }
  Choosing("a.zyi", [&] { Press(Qt::Key_O); });
  EXPECT_EQ(Window.FileName(), In("a.zyi"));
  const std::vector<std::filesystem::path> Recent{In("a.zyi"), In("c.zyx"), In("b.zys")};
  EXPECT_EQ(TRecentFiles::Files(), Recent);
}

TEST_F(GalleryWindowTest, ChangesAreNotLostWithoutAQuestion) {
  Change();
  Answering(QMessageBox::Cancel, [&] { Window.Open(In("day.zyx")); });
  Answering(QMessageBox::Cancel, [&] { Window.Close(); });
  EXPECT_TRUE(Window.Visible());
  EXPECT_EQ(Graph().BackColor(), Color);
  Answering(QMessageBox::Discard, [&] { Window.Open(In("day.zyx")); });
  EXPECT_NE(Graph().BackColor(), Color);
  Change();
  Answering(QMessageBox::Save, [&] { Window.Close(); });
  EXPECT_FALSE(Window.Visible());
  EXPECT_EQ(ColorIn("day.zyx"), Color);
}

TEST_F(GalleryWindowTest, AFileThatCannotBeLoadedLeavesTheChartWhereItWas) {
  Window.Open(In("day.zyx"));
  const QImage Before = Painted(Window.Document().Page());
  std::filesystem::resize_file(In("day.zyx"), 1000);
  EXPECT_NE(testing::MessageOf([&] { Window.Open(In("day.zyx")); }).find("day.zyx, line"), std::string::npos);
  EXPECT_TRUE(TRecentFiles::Files().empty());
  Change();  // its parts are found by their names again
  Window.Document().Undo().Undo();
  EXPECT_TRUE(Painted(Window.Document().Page()) == Before);
}

}  // namespace
}  // namespace zy::examples
