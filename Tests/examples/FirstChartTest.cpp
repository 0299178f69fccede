// The first chart as a user runs it: a program with files in and a picture out.

#include <gtest/gtest.h>

#include <QImage>
#include <filesystem>
#include <fstream>
#include <string>

#include "examples/RunProgram.h"
#include "framework/Bytes.h"

namespace zy {
namespace {

class FirstChartTest : public ::testing::Test {
 protected:
  /// Runs the program and returns its exit code; what it printed is in Output.
  int Run(const std::string& FileName) {
    testing::TRun Done = testing::RunProgram(ZY_FIRST_CHART, FileName + " " + Picture);
    Output = std::move(Done.Output);
    return Done.ExitCode;
  }
  int RunWith(const std::string& Content) {
    std::ofstream(Csv, std::ios::binary) << Content;
    return Run(Csv);
  }

  const testing::TTemporaryFolder Folder;
  const std::string Csv = Folder / "prices.csv", Picture = Folder / "sub/chart.png";
  std::string Output;
};

TEST_F(FirstChartTest, DrawsTheCurveIntoAPicture) {
  ASSERT_EQ(Run(ZY_EXAMPLE_DATA "/sp500-2000.csv"), 0) << Output;
  const QImage Image(QString::fromStdString(Picture));
  ASSERT_EQ(Image.size(), QSize(1200, 800));
  // The curve is dark blue on white. Its first value, 1455, lies well below its highest, 3386 in February 2020, which
  // lies right of the middle; prices of 20 years leave ink in every part of the width.
  const auto HighestInk = [&Image](int From, int To) {
    for (int Y = 0; Y < Image.height(); ++Y)
      for (int X = From; X < To; ++X)
        if (qBlue(Image.pixel(X, Y)) > qRed(Image.pixel(X, Y)) + 60) return Y;
    return Image.height();
  };
  const int Start = HighestInk(110, 200), Middle = HighestInk(500, 600), End = HighestInk(1050, 1160);
  EXPECT_LT(End, Middle);
  EXPECT_LT(End, Start);
  EXPECT_LT(Start, 700);
  EXPECT_GT(End, 20);
}

TEST_F(FirstChartTest, TellsWhatIsWrongWithItsDataAndWhere) {
  const std::string Head = "date,open,close\n2000-01-03,1,2.5\n";
  const std::pair<std::string, std::string> Cases[] = {
      {Head + "2000-01-04,1,two\n", "line 3, column 14: \"two\" is no number"},
      {Head + "2000-01-04,1,inf\n", "line 3, column 14: \"inf\" is no number"},
      {Head + "2000-01-04,1\n", "line 3, column 13: 2 fields found, 3 wanted"},
      {Head + "\r\n2000-01-04,1,2,3\r\n", "line 4, column 16: 4 fields found, 3 wanted"},
      {Head + "2001-02-29,1,2\n", "line 3, column 1: \"2001-02-29\" is no date"},
      {"date,open\n2000-01-03,1\n", "line 1, column 1: there is no column \"close\""},
      {"", "line 1, column 1: there are no rows of data"}};
  for (const auto& [Content, Message] : Cases) {
    EXPECT_EQ(RunWith(Content), 1) << Content;
    EXPECT_NE(Output.find(Csv + ", " + Message + "\n"), std::string::npos) << Output;
    EXPECT_FALSE(std::filesystem::exists(Picture));
  }
  EXPECT_EQ(Run("/nothing.csv"), 1);
  EXPECT_NE(Output.find("nothing.csv"), std::string::npos) << Output;
  EXPECT_EQ(RunWith("date,close\r\n2000-01-03,1\r\n2000-01-04,2"), 0) << Output;  // every line end
  EXPECT_TRUE(std::filesystem::exists(Picture));
}

}  // namespace
}  // namespace zy
