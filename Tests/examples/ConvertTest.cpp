// Chart files as a user converts them: the charts of the gallery through all forms into a picture, and what goes wrong.

#include <gtest/gtest.h>

#include <QImage>
#include <fstream>
#include <iterator>

#include "drawing/Pixels.h"
#include "examples/RunProgram.h"
#include "framework/Bytes.h"
#include "gallery/Gallery.h"

namespace zy::examples {
namespace {

using testing::RunProgram;

class ConvertTest : public ::testing::Test {
 protected:
  ConvertTest() { Document.Page().SetBounds(0, 0, PageWidth, PageHeight); }
  /// Runs the program in the folder.
  testing::TRun Convert(const std::string& Arguments) const {
    return RunProgram("cd " + Folder.Path().string() + " && " ZY_CONVERT, Arguments);
  }
  std::string In(const std::string& Name) const { return Folder / Name; }
  std::string ContentOf(const std::string& Name) const {
    std::ifstream File(In(Name), std::ios::binary);
    return {std::istreambuf_iterator<char>(File), {}};
  }
  /// Makes a file of another one by changing a text in it.
  void Derive(const std::string& From, const std::string& To, const std::string& Old, const std::string& New) const {
    std::string Text = ContentOf(From);
    for (std::size_t At = Text.find(Old); At != std::string::npos; At = Text.find(Old, At + New.size()))
      Text.replace(At, Old.size(), New);
    std::ofstream(In(To), std::ios::binary) << Text;
  }

  const testing::TTemporaryFolder Folder;
  TChartDocument Document{"Gallery"};
};

TEST_F(ConvertTest, EachChartOfTheGalleryComesThroughAllFormsIntoTheSamePicture) {
  for (const TEntry& Entry : Entries()) {
    if (!Entry.HasItsData) continue;
    SCOPED_TRACE(Entry.Name);
    TChartDocument Chart("Gallery");
    Chart.Page().SetBounds(0, 0, PageWidth, PageHeight);
    Entry.Make(Chart);
    Chart.Save(In("unseen.zys"));  // before its first paint
    const Bitmap Seen = PictureOf(
        PageWidth, PageHeight, [&](Graphics& Gr) { Chart.Page().PaintTo(Gr); }, 2);
    for (const char* Name : {"a.zys", "a.zyx", "a.zyi"}) Chart.Save(In(Name));
    for (const auto& [From, To] : {std::pair{"a.zys", "b.zyx"}, {"b.zyx", "b.zyi"}, {"b.zyi", "b.zys"}}) {
      EXPECT_EQ(Convert(std::string(From) + " " + To).Output, "");
      EXPECT_TRUE(ContentOf(To) == ContentOf("a" + std::string(To + 1))) << From << " to " << To;
    }
    for (const char* From : {"b.zys", "unseen.zys"}) {
      Convert(std::string("--scale 2 ") + From + " b.png");
      const QImage Picture = QImage(QString::fromStdString(In("b.png"))).convertToFormat(QImage::Format_ARGB32);
      EXPECT_TRUE(Picture == Seen.ToQt().convertToFormat(QImage::Format_ARGB32)) << From;
    }
  }
}

TEST_F(ConvertTest, WritesEveryKindOfPictureInTheSizeThatIsAskedFor) {
  MakeCoupled(Document);
  Document.Save(In("a.xml"));
  for (const std::string Name : {"a.png", "a.JPG", "a.jpeg", "a.tif", "a.tiff", "a.gif", "a.bmp"}) {
    Convert("--size 400x250 --scale 1.5 a.xml " + Name);
    EXPECT_EQ(QImage(QString::fromStdString(In(Name))).size(), QSize(600, 375)) << Name;
  }
  for (const auto& [Name, Head] : {std::pair<std::string, const char*>{"a.pdf", "%PDF-"}, {"a.emf", "\x01"}}) {
    Convert("-- a.xml " + Name);
    EXPECT_TRUE(ContentOf(Name).starts_with(Head)) << Name;
  }
  Convert("--size 400x250 a.xml a.svg");
  EXPECT_NE(ContentOf("a.svg").find("viewBox=\"0 0 400 250\""), std::string::npos);
  EXPECT_TRUE(Convert("--help").Output.starts_with("Usage: convert"));
}

TEST_F(ConvertTest, TellsWhatIsWrongAndLeavesTheTargetAlone) {
  MakeDay(Document);
  for (const char* Name : {"a.zys", "a.zyx", "a.zyi"}) Document.Save(In(Name));
  Document.Save(In("empty.zys"), false);
  std::ofstream(In("cut.zys"), std::ios::binary) << ContentOf("a.zys").substr(0, 2000);
  std::ofstream(In("none.ini")) << "[a]\nb=c\n";
  Derive("a.zyx", "typed.zyx", "Scaling Type=\"", "Scaling Type=\"x");
  Derive("a.zyi", "owner.zyi", "Gallery.XAxis1", "Other.XAxis1");
  for (const std::string Form : {"zys", "zyx", "zyi"})
    Derive("a." + Form, "class." + Form, "TZyPointSeries", "TZyOtherSeries");
  std::filesystem::create_directory(In("folder.png"));
  struct TCase {
    int ExitCode;
    const char *Arguments, *Message;
  };
  const TCase Cases[] = {
      {2, "a.zyx", "a source and a target are wanted"},
      {2, "a.txt old.png", "a.txt: the extension"},
      {2, "a.zyx old.txt", "old.txt: the extension"},
      {2, "--fast a.zyx old.png", "--fast"},
      {2, "a.zyx old.png --size", "--size wants"},
      {2, "--size 10x a.zyx old.png", "--size 10x:"},
      {2, "--scale 0 a.zyx old.png", "--scale 0:"},
      {2, "--size 9x9 a.zyx old.zyx", "--size"},
      {1, "missing.zyx old.png", "missing.zyx"},
      {1, "none.ini old.png", "none.ini: there is no chart"},
      {1, "empty.zys old.png", "empty.zys: the data or the axes of Gallery.Series1"},
      {1, "cut.zys old.zyx", "cut.zys: TZyGraph2D Graph1, Axes(1): TZyAxis YAxis1, Scaling"},
      {1, "typed.zyx old.png", "typed.zyx: TZyGraph2D Graph1, Axes(0): TZyAxis XAxis1, Scaling.Type: \"x"},
      {1, "owner.zyi old.png", "owner.zyi: TZyGraph2D Graph1, Axes(0): The owner of \"Other.XAxis1\""},
      {1, "class.zys old.png", "TZyOtherSeries"},
      {1, "class.zyx old.png", "TZyOtherSeries"},
      {1, "class.zyi old.png", "TZyOtherSeries"},
      {3, "--scale 100 a.zyx old.png", "90000 pixels"},
      {3, "a.zyx folder.png", "folder.png"},
      {3, "a.zyx nowhere/new.zyi", "nowhere/new.zyi"}};
  for (const TCase& Case : Cases) {
    SCOPED_TRACE(Case.Arguments);
    for (const char* Name : {"old.png", "old.zyx"}) std::ofstream(In(Name)) << "old";
    const testing::TRun Done = Convert(Case.Arguments);
    EXPECT_EQ(Done.ExitCode, Case.ExitCode);
    EXPECT_NE(Done.Output.find("convert: "), std::string::npos);
    EXPECT_NE(Done.Output.find(Case.Message), std::string::npos) << Done.Output;
    for (const char* Name : {"old.png", "old.zyx"}) EXPECT_TRUE(ContentOf(Name) == "old") << Name;
  }
  EXPECT_EQ(Convert("--holder Other owner.zyi new.png").ExitCode, 0);
}

}  // namespace
}  // namespace zy::examples
