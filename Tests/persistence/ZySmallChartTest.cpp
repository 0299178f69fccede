// A small chart in the three forms: its bytes, and a file that cannot be written.

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <array>
#include <csignal>
#include <fstream>
#include <sstream>

#include "persistence/ChartForms.h"

namespace zy::testing {
namespace {

/// The chart that small_chart.txt, small_chart.xml and small_chart.ini hold.
struct TSmallChart : TGraphPair {
  TSmallChart() : TGraphPair(false) {
    Graph->SetName("Chart");
    Graph->SetBounds(20, 10, 300, 200);
    Graph->SetCaption("A chart");
    TZyAxis* const XAxis = AddAxis("XAxis", TZyAxisPosition::Bottom, {0, 0, 100, 30});
    TZyAxis* const YAxis = AddAxis("YAxis", TZyAxisPosition::Left, {0, 0, 30, 100});
    XAxis->SetCaption("Time");
    YAxis->SetScaling(TZyAxisScaling::Log);
    Graph->SetPrimaryXAxis(XAxis);
    Graph->SetPrimaryYAxis(YAxis);
    Data = AddVector("Y", {1, 2.5, -3});
    Data->AddOutlier(1);
    auto* const Series = new TZyLineSeries(&Form);
    Series->SetName("Line");
    Series->SetCaption("Two\rlines");
    Series->Line().SetColor(Colors::Red);
    Series->Line().SetWidth(2);
    Series->SetXAxis(XAxis);
    Series->SetYAxis(YAxis);
    Series->SetYData(Data);
  }
  TZyAxis* AddAxis(const char* Name, TZyAxisPosition Position, const std::array<int, 4>& Bounds) {
    auto* const Axis = new TZyAxis(&Form);
    Axis->SetName(Name);
    Axis->SetParent(Graph);
    Axis->SetPosition(Position);
    Axis->SetBounds(Bounds[0], Bounds[1], Bounds[2], Bounds[3]);
    for (const char* Text : {"a", "b\rc"}) Axis->Rubrics()->Add(Text);
    return Axis;
  }
  TZyDoubleVector* Data;
};

std::string TextOf(const std::filesystem::path& File) {
  std::ostringstream Text;
  Text << std::ifstream(File, std::ios::binary).rdbuf();
  return Text.str();
}

/// The chart as it stands in the files, written from the tables of the format alone. The one of the stream has the
/// bytes of each field in a line, and behind a number sign what it is.
std::string Stored(TForm3 Form) {
  const std::filesystem::path Folder = ZY_TEST_CHARTS;
  if (Form == TForm3::Xml) return TextOf(Folder / "small_chart.xml");
  if (Form == TForm3::Ini) return TextOf(Folder / "small_chart.ini");
  std::istringstream Lines(TextOf(Folder / "small_chart.txt"));
  std::string Line, Byte, Result;
  while (std::getline(Lines, Line))
    for (std::istringstream Bytes(Line.substr(0, Line.find('#'))); Bytes >> Byte;)
      Result += static_cast<char>(std::stoi(Byte, nullptr, 16));
  return Result;
}

TEST(ZySmallChartTest, FilesHoldWhatTheTablesSay) {
  for (const TForm3 Form : AllForms) {
    SCOPED_TRACE(static_cast<int>(Form));
    EXPECT_TRUE(Same(Written(*TSmallChart().Graph, Form), Stored(Form)));
    const TGraphPair Loaded(false);
    Loaded.Graph->SetName("Chart");
    Read(*Loaded.Graph, Form, Stored(Form));
    EXPECT_TRUE(Same(Written(*Loaded.Graph, Form), Stored(Form)));
  }
}

TEST(ZySmallChartTest, AFailedSaveLeavesTheOldFile) {
  const TSmallChart Chart;
  const TTemporaryFolder Folder;
  const std::filesystem::path File = Folder / "chart";
  Chart.Graph->WriteTo(File);
  EXPECT_EQ(TextOf(File), Stored(TForm3::Stream));
  for (int Count = 0; Count < 10000; ++Count) Chart.Data->Add(Count);
  const auto Handler = std::signal(SIGXFSZ, SIG_IGN);
  rlimit Limit;
  getrlimit(RLIMIT_FSIZE, &Limit);
  const rlimit Small{4096, Limit.rlim_max};
  setrlimit(RLIMIT_FSIZE, &Small);
  EXPECT_THROW(Chart.Graph->WriteTo(File), EFileError);
  setrlimit(RLIMIT_FSIZE, &Limit);
  std::signal(SIGXFSZ, Handler);
  EXPECT_EQ(TextOf(File), Stored(TForm3::Stream));
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(Folder.Path()), {}), 1) << "nothing is left behind";
}

}  // namespace
}  // namespace zy::testing
