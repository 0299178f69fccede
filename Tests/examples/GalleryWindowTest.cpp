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
#include <QUrl>
#include <fstream>

#include "controls/ControlSamples.h"
#include "framework/Bytes.h"
#include "framework/Errors.h"
#include "gallery/RecentFiles.h"

namespace zy::examples {
namespace {

using TFiles = std::vector<std::filesystem::path>;

class GalleryWindowTest : public ::testing::Test {
 protected:
  GalleryWindowTest() {
    Application().SetConfigFolder(Folder.Path());
    Window.Show();
    HandleEvents();
  }

  std::string In(const char* Name) const { return Folder / Name; }
  void MakeFile(const char* Name, void (*Make)(TChartDocument&)) const {
    TChartDocument Document("Gallery");
    Document.Page().SetBounds(0, 0, PageWidth, PageHeight);
    Make(Document);
    Document.Save(In(Name));
  }
  void Change() { Window.Document().Graphs().front()->SetBackColor(++Color); }
  /// Keys go to the chart, which leaves these to the window.
  void Press(int Key, Qt::KeyboardModifiers Modifiers) {
    QKeyEvent Event(QEvent::KeyPress, Key, Modifiers);
    QCoreApplication::sendEvent(Window.Document().Graphs().front()->Widget(), &Event);
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
  /// Runs something that asks, and answers; the message box must come.
  template <class TRun>
  void Answering(QMessageBox::StandardButton Answer, const TRun& Run) {
    bool WasAsked = false;
    QTimer::singleShot(0, [&] {
      auto* const Box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (Box == nullptr) return;
      WasAsked = true;
      Box->button(Answer)->click();
    });
    Run();
    HandleEvents();
    EXPECT_TRUE(WasAsked);
  }
  /// Chooses a file in the dialog that comes next.
  static void Choose(const std::string& FileName) {
    QTimer::singleShot(0, [FileName] {
      auto* const Dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(Dialog, nullptr);
      Dialog->selectFile(QString::fromStdString(FileName));
      QMetaObject::invokeMethod(Dialog, "accept");
    });
  }

  const testing::TTemporaryFolder Folder;
  TGalleryWindow Window;
  TZyColor Color = 0xFFEEEEEE;
};

TEST_F(GalleryWindowTest, AFileThatIsDroppedIsShownAndSavedAgainWhenItChanged) {
  MakeFile("day.zyx", MakeDay);
  EXPECT_FALSE(Drop({}));
  EXPECT_FALSE(Drop({QUrl("https://host/day.zyx")}));
  EXPECT_FALSE(Drop({QUrl::fromLocalFile("/chart.png")}));
  const QUrl File = QUrl::fromLocalFile(QString::fromStdString(In("day.zyx")));
  EXPECT_FALSE(Drop({File, File}));
  ASSERT_TRUE(Drop({File}));
  EXPECT_EQ(Window.FileName(), In("day.zyx"));
  EXPECT_EQ(Window.Caption(), "day.zyx - Zyphos: gallery");

  TChartDocument Wanted("Wanted");
  Wanted.Page().SetBounds(0, 0, Window.Document().Page().Width(), Window.Document().Page().Height());
  MakeDay(Wanted);
  EXPECT_TRUE(Painted(Window.Document().Page()) == Painted(Wanted.Page()));

  EXPECT_TRUE(Window.Document().Undo().Saved());
  Change();
  Press(Qt::Key_S, Qt::ControlModifier);
  EXPECT_TRUE(Window.Document().Undo().Saved());
  Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Window.Caption(), "day.zyx* - Zyphos: gallery");
  Press(Qt::Key_Y, Qt::ControlModifier);
  EXPECT_EQ(Window.Caption(), "day.zyx - Zyphos: gallery");
  TChartDocument Saved;
  const TChartDocument::THidden Hidden(Window.Document());
  Saved.Load(In("day.zyx"));
  EXPECT_EQ(Saved.Graphs().front()->BackColor(), Color);
}

TEST_F(GalleryWindowTest, SaveAsAndOpenTakeTheFormFromTheExtension) {
  for (const char* Name : {"a.zyi", "b.zys", "c.zyx"}) {
    Change();
    Choose(In(Name));
    Press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Window.FileName(), In(Name));
    TChartDocument Saved;
    const TChartDocument::THidden Hidden(Window.Document());
    Saved.Load(In(Name));
    EXPECT_EQ(Saved.Graphs().front()->BackColor(), Color);
  }
  EXPECT_EQ(TRecentFiles::Files(), (TFiles{In("c.zyx"), In("b.zys"), In("a.zyi")}));
  Choose(In("a.zyi"));
  Press(Qt::Key_O, Qt::ControlModifier);
  EXPECT_EQ(Window.FileName(), In("a.zyi"));
  EXPECT_EQ(TRecentFiles::Files(), (TFiles{In("a.zyi"), In("c.zyx"), In("b.zys")}));
}

TEST_F(GalleryWindowTest, ChangesAreNotLostWithoutAQuestion) {
  MakeFile("day.zyx", MakeDay);
  Change();
  Answering(QMessageBox::Cancel, [&] { Window.Open(In("day.zyx")); });
  EXPECT_TRUE(Window.FileName().empty());
  Answering(QMessageBox::Cancel, [&] { Window.Close(); });
  EXPECT_TRUE(Window.Visible());
  Answering(QMessageBox::Discard, [&] { Window.Open(In("day.zyx")); });
  EXPECT_EQ(Window.FileName(), In("day.zyx"));
  Change();
  Answering(QMessageBox::Save, [&] { Window.Close(); });
  EXPECT_FALSE(Window.Visible());
  Window.Open(In("day.zyx"));  // asks nothing: it was saved
  EXPECT_EQ(Window.Document().Graphs().front()->BackColor(), Color);
}

TEST_F(GalleryWindowTest, AFileThatCannotBeLoadedLeavesTheChartWhereItWas) {
  MakeFile("day.zys", MakeDay);
  Window.Open(In("day.zys"));
  const QImage Before = Painted(Window.Document().Page());
  std::filesystem::resize_file(In("day.zys"), 1000);
  EXPECT_NE(testing::MessageOf([&] { Window.Open(In("day.zys")); }).find("TZyAxis XAxis1"), std::string::npos);
  EXPECT_TRUE(Painted(Window.Document().Page()) == Before);
  EXPECT_TRUE(TRecentFiles::Files().empty());
  Change();  // and its parts are found by their names again
  Window.Document().Undo().Undo();
  EXPECT_TRUE(Painted(Window.Document().Page()) == Before);
}

}  // namespace
}  // namespace zy::examples
