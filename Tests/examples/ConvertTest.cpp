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

std::string ContentOf(const std::filesystem::path& FileName) {
  std::ifstream File(FileName, std::ios::binary);
  return {std::istreambuf_iterator<char>(File), {}};
}

void Replace(const std::filesystem::path& From, const std::filesystem::path& To, const std::string& Old,
             const std::string& New) {
  std::string Text = ContentOf(From);
  for (std::size_t At = Text.find(Old); At != std::string::npos; At = Text.find(Old, At + New.size()))
    Text.replace(At, Old.size(), New);
  std::ofstream(To, std::ios::binary) << Text;
}

class ConvertTest : public ::testing::Test {
 protected:
  static testing::TRun Convert(const std::string& Arguments) { return RunProgram(ZY_CONVERT, Arguments); }
  std::string In(const char* Name) const { return Folder / Name; }

  const testing::TTemporaryFolder Folder;
};

TEST_F(ConvertTest, EachChartOfTheGalleryComesThroughAllFormsIntoTheSamePicture) {
  for (const TEntry& Entry : Entries()) {
    SCOPED_TRACE(Entry.Name);
    TChartDocument Document("Gallery");
    Document.Page().SetBounds(0, 0, PageWidth, PageHeight);
    Entry.Make(Document);
    Document.Save(In("unseen.zys"));  // before its first paint
    const Bitmap Seen = PictureOf(PageWidth, PageHeight, [&](Graphics& Gr) { Document.Page().PaintTo(Gr); });
    for (const char* Name : {"a.zys", "a.zyx", "a.zyi"}) Document.Save(In(Name));
    for (const auto& [From, To] : {std::pair{"a.zys", "b.zyx"}, {"b.zyx", "b.zyi"}, {"b.zyi", "b.zys"}}) {
      const testing::TRun Done = Convert(In(From) + " " + In(To));
      ASSERT_EQ(Done.ExitCode, 0) << Done.Output;
      EXPECT_TRUE(ContentOf(In(To)) == ContentOf(In(("a" + std::string(To + 1)).c_str()))) << From << " to " << To;
    }
    for (const char* From : {"b.zys", "unseen.zys"}) {
      Convert(In(From) + " " + In("b.png"));
      EXPECT_TRUE(QImage(QString::fromStdString(In("b.png"))).convertToFormat(QImage::Format_ARGB32) ==
                  Seen.ToQt().convertToFormat(QImage::Format_ARGB32))
          << From;
    }
  }
}

TEST_F(ConvertTest, WritesEveryKindOfPictureInTheSizeThatIsAskedFor) {
  TChartDocument Document("Gallery");
  Document.Page().SetBounds(0, 0, 300, 200);
  MakeCoupled(Document);
  Document.Save(In("a.xml"));
  for (const char* Name : {"a.png", "a.JPG", "a.jpeg", "a.tif", "a.tiff", "a.gif", "a.bmp"}) {
    EXPECT_EQ(Convert("--size 400x250 --scale 1.5 " + In("a.xml") + " " + In(Name)).ExitCode, 0) << Name;
    EXPECT_EQ(QImage(QString::fromStdString(In(Name))).size(), QSize(600, 375)) << Name;
  }
  for (const auto& [Name, Head] : {std::pair{"a.pdf", "%PDF-"}, {"a.emf", "\x01"}, {"a.svg", "<?xml"}}) {
    EXPECT_EQ(Convert("--size 400x250 -- " + In("a.xml") + " " + In(Name)).ExitCode, 0) << Name;
    EXPECT_TRUE(ContentOf(In(Name)).starts_with(Head)) << Name;
  }
  EXPECT_NE(ContentOf(In("a.svg")).find("viewBox=\"0 0 400 250\""), std::string::npos);
  const testing::TRun Helped = Convert("--help");
  EXPECT_EQ(Helped.ExitCode, 0);
  EXPECT_TRUE(Helped.Output.starts_with("Usage: convert"));
}

TEST_F(ConvertTest, TellsWhatIsWrongAndLeavesTheTargetAlone) {
  TChartDocument Document("Gallery");
  Document.Page().SetBounds(0, 0, 300, 200);
  MakeDay(Document);
  for (const char* Name : {"a.zys", "a.zyx", "a.zyi"}) Document.Save(In(Name));
  Document.Save(In("empty.zys"), false);
  std::ofstream(In("cut.zys"), std::ios::binary) << ContentOf(In("a.zys")).substr(0, 2000);
  std::ofstream(In("none.ini")) << "[a]\nb=c\n";
  Replace(In("a.zyx"), In("typed.zyx"), "Scaling Type=\"", "Scaling Type=\"x");
  Replace(In("a.zyi"), In("typed.zyi"), "Height=", "Height=x");
  Replace(In("a.zyi"), In("owner.zyi"), "Gallery.XAxis1", "Other.XAxis1");
  for (const char* Name : {"class.zys", "class.zyx", "class.zyi"})
    Replace(In(("a" + std::string(Name + 5)).c_str()), In(Name), "TZyPointSeries", "TZyOtherSeries");
  std::filesystem::create_directory(In("folder.png"));
  struct TCase {
    int ExitCode;
    const char *Arguments, *Message;
  };
  const TCase Cases[] = {
      {2, "", "a source and a target are wanted"},
      {2, "a.zyx", "a source and a target are wanted"},
      {2, "a.txt old.png", "a.txt: the extension"},
      {2, "a.zyx old.txt", "old.txt: the extension"},
      {2, "--fast a.zyx old.png", "--fast"},
      {2, "a.zyx old.png --size", "--size wants"},
      {2, "--size 10x a.zyx old.png", "--size 10x:"},
      {2, "--scale 0 a.zyx old.png", "--scale 0:"},
      {2, "--scale 2 a.zyx old.svg", "--scale"},
      {2, "--size 9x9 a.zyx old.zyx", "--size"},
      {1, "missing.zyx old.png", "missing.zyx"},
      {1, "none.ini old.png", "none.ini: there is no chart"},
      {1, "empty.zys old.png", "empty.zys: the data or the axes of Gallery.Series1"},
      {1, "cut.zys old.zyx", "cut.zys: TZyGraph2D Graph1, Axes(1): TZyAxis YAxis1, Scaling"},
      {1, "typed.zyx old.png", "typed.zyx: TZyGraph2D Graph1, Axes(0): TZyAxis XAxis1, Scaling.Type: \"x"},
      {1, "typed.zyi old.png", "typed.zyi: TZyGraph2D Graph1, Axes(0): TZyAxis XAxis1, Properties.Height: \"x"},
      {1, "owner.zyi old.png", "owner.zyi: TZyGraph2D Graph1, Axes(0): The owner of \"Other.XAxis1\""},
      {1, "class.zys old.png", "TZyOtherSeries"},
      {1, "class.zyx old.png", "TZyOtherSeries"},
      {1, "class.zyi old.png", "TZyOtherSeries"},
      {3, "--size 400x300 --scale 100 a.zyx old.png", "40000 pixels"},
      {3, "a.zyx folder.png", "folder.png"},
      {3, "a.zyx nowhere/new.zyi", "nowhere/new.zyi"}};
  for (const TCase& Case : Cases) {
    SCOPED_TRACE(Case.Arguments);
    for (const char* Name : {"old.png", "old.svg", "old.txt", "old.zyx"}) std::ofstream(In(Name)) << "old";
    const testing::TRun Done = RunProgram("cd " + Folder.Path().string() + " && " ZY_CONVERT, Case.Arguments);
    EXPECT_EQ(Done.ExitCode, Case.ExitCode);
    EXPECT_NE(Done.Output.find("convert: "), std::string::npos);
    EXPECT_NE(Done.Output.find(Case.Message), std::string::npos) << Done.Output;
    for (const char* Name : {"old.png", "old.svg", "old.txt", "old.zyx"}) EXPECT_TRUE(ContentOf(In(Name)) == "old") << Name;
  }
  EXPECT_EQ(Convert("--holder Other " + In("owner.zyi") + " " + In("new.png")).ExitCode, 0);
}

}  // namespace
}  // namespace zy::examples
