// A small chart in the three forms: its bytes, older records of it, broken ones, and files that cannot be written.

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <array>
#include <csignal>
#include <fstream>
#include <sstream>

#include "framework/Errors.h"
#include "graph/ChartStubs.h"
#include "persistence/ChartForms.h"
#include "persistence/ZyStreamArchive.h"
#include "undo/ZyUndoStack.h"

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
    auto* const Limit = new TZyHorizontalMarker(&Form);
    Limit->SetName("Limit");
    Limit->SetParent(Graph);
    Limit->SetYAxis(YAxis);
    Limit->SetY(2.5);
    Limit->SetCaption("a\rb");
    Limit->SetCaptionDeltaX(-3);
    Limit->SetSnappedSeries(Series);
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

/// Its data are not there in an empty form: the series wait, and are not lost.
TEST(ZySmallChartTest, SeriesWithoutTheirDataAreStoredAgain) {
  const std::string Text = Written(*TSmallChart().Graph, TForm3::Stream, false);
  const TGraphPair Loaded(false);
  Loaded.Graph->SetName("Chart");
  Read(*Loaded.Graph, TForm3::Stream, Text);
  auto* const Series = dynamic_cast<TZySeries*>(Loaded.Form.FindComponent("Line"));
  ASSERT_NE(Series, nullptr);
  EXPECT_TRUE(Loaded.Graph->RelatedSeries().empty());
  EXPECT_NE(Written(*Loaded.Graph, TForm3::Stream, false).find("TZyLineSeries"), std::string::npos);
  auto* const Data = new TZyDoubleVector(Series);
  Data->AddRange(std::vector<double>{1, 2});
  Series->SetYData(Data);
  EXPECT_EQ(Loaded.Graph->SeriesCount(), 1);
  const std::string Again = Written(*Loaded.Graph, TForm3::Stream, false);
  EXPECT_EQ(Again.find("TZyLineSeries"), Again.rfind("TZyLineSeries"));
}

/// Notes where the groups of one record begin and end, without what is nested in it.
class TGroupNoter : public TZyStreamWriter {
 public:
  explicit TGroupNoter(TMemoryStream& Stream) : TZyStreamWriter(Stream), FStream(Stream) {}
  bool NextGroup() override {
    if (FNested == 0) Groups.push_back({Place(), 0});
    return TZyStreamWriter::NextGroup();
  }
  void EndRecord() override {
    if (FNested == 0)
      for (auto& [Begin, End] : Groups) End = End == 0 ? Place() : End;
    TZyStreamWriter::EndRecord();
  }
  std::vector<std::pair<std::size_t, std::size_t>> Groups;  // the byte in front of each, and the last one of its chain

 protected:
  bool Enter(const TZyScope& Scope) override {
    const bool IsRecord = Scope.Kind == TZyScope::Record || Scope.Kind == TZyScope::ListedRecord;
    FAreNested.push_back(Scope.Object != nullptr || IsRecord);
    FNested += FAreNested.back() ? 1 : 0;
    return true;
  }
  void Leave() override {
    FNested -= FAreNested.back() ? 1 : 0;
    FAreNested.pop_back();
  }

 private:
  std::size_t Place() const { return static_cast<std::size_t>(FStream.Position()); }
  TMemoryStream& FStream;
  std::vector<bool> FAreNested;
  int FNested = 0;
};

/// What stands from a group to the end of its chain.
std::string GroupOf(TZyRecord& Object, std::size_t Nr) {
  TMemoryStream Bytes;
  TGroupNoter Noter(Bytes);
  Object.Fields(Noter);
  const auto [Begin, End] = Noter.Groups.at(Nr);
  return AsText(Bytes).substr(Begin, End - Begin);
}

/// A record that ends in front of a group is one of an older writer.
TEST(ZySmallChartTest, OlderRecordsLeaveLaterFieldsAlone) {
  std::mt19937 Random(3);
  TGraphPair Chart(true);
  TZyAreaSettings Areas[2] = {TZyAreaSettings(nullptr), TZyAreaSettings(nullptr)};
  TZyLineSettings Lines[2] = {TZyLineSettings(nullptr), TZyLineSettings(nullptr)};
  std::vector<std::pair<TZyRecord*, TZyRecord*>> Pairs = {
      {Chart.Graph, Chart.Other}, {Chart.X, Chart.Y}, {&Areas[0], &Areas[1]}, {&Lines[0], &Lines[1]}};
  const auto Filled = Chart.AddOfEachKind(""), Empty = Chart.AddOfEachKind("Read");
  for (std::size_t i = 0; i < Filled.size(); ++i) Pairs.emplace_back(Filled[i], Empty[i]);
  const auto Markers = Chart.AddMarkers(""), Others = Chart.AddMarkers("Read");
  for (std::size_t i = 0; i < Markers.size(); ++i) Pairs.emplace_back(Markers[i], Others[i]);
  for (const auto& [Source, Target] : Pairs) {
    SCOPED_TRACE(Source->RecordName());
    std::vector<TPersistent*> Objects;
    Collect(dynamic_cast<TPersistent&>(*Source), Objects, true);
    for (TPersistent* Object : Objects)
      for (const TPropInfo* Info : Object->ClassInfo().Properties())
        if (!std::string_view(Info->Name).ends_with("Marker") && Info->Name != std::string_view("Name"))  // parts stay
          SetAtRandom(*Object, *Info, Chart.Form, Random);
    if (auto* const Marker = dynamic_cast<TZyMovable*>(Source))  // the one colour stands in both groups
      dynamic_cast<TZyMovable&>(*Target).SetForeColor(Marker->ForeColor());
    TMemoryStream Bytes;
    TGroupNoter Noter(Bytes);
    Source->Fields(Noter);
    ASSERT_FALSE(Noter.Groups.empty());
    const bool IsCross = dynamic_cast<TZyCrossHair*>(Source) != nullptr;  // whose first group its lines store again
    for (std::size_t Nr = IsCross ? 1 : 0; Nr < Noter.Groups.size(); ++Nr) {
      const auto [Begin, End] = Noter.Groups[Nr];
      const std::string Before = GroupOf(*Target, Nr);
      const std::string Old = AsText(Bytes).substr(0, Begin) + '\0' + AsText(Bytes).substr(End + 1);
      TMemoryStream Stream(AsBytes(Old));
      Target->ReadFrom(Stream);
      EXPECT_EQ(Stream.Remaining(), 0);
      EXPECT_TRUE(Same(GroupOf(*Target, Nr), Before)) << "group " << Nr;
    }
  }
}

/// Stored charts with a fault in one place: cut off, another byte, another value of a key or an attribute.
std::vector<std::string> Broken(TForm3 Form, const std::string& Text) {
  std::vector<std::string> Result;
  for (std::size_t At = 0; At < Text.size(); At += Form == TForm3::Stream ? 3 : 97)
    Result.push_back(Text.substr(0, At));
  if (Form == TForm3::Stream) {
    for (std::size_t At = 0; At < Text.size(); At += 2)
      for (const char* Bytes : {"\xFF", "\x7F\xFF", "\xFF\xFF\xFF\x7F"})
        Result.push_back(std::string(Text).replace(At, std::string_view(Bytes).size(), Bytes));
    return Result;
  }
  for (std::size_t At = 0; (At = Text.find('=', At)) != std::string::npos; ++At) {
    const std::size_t From = At + (Form == TForm3::Xml ? 2 : 1),
                      End = Text.find(Form == TForm3::Xml ? '"' : '\n', From);
    for (const char* Value : {"", "x", "-1", "99999999999", "nan", "1e999", "Form.XAxis", "Form"})
      Result.push_back(std::string(Text).replace(From, End - From, Value));
  }
  return Result;
}

TEST(ZySmallChartTest, BrokenRecordsLeaveAChartThatCanBeUsed) {
  for (const TForm3 Form : AllForms) {
    const std::string Text = Stored(Form);
    auto Chart = std::make_unique<TSmallChart>();
    auto Stack = std::make_unique<TZyUndoStack>(&Chart->Form);
    Chart->Graph->SetUndoStack(Stack.get());
    int Failed = 0, Nr = 0;
    for (const std::string& Fault : Broken(Form, Text)) {
      SCOPED_TRACE("form " + std::to_string(static_cast<int>(Form)) + ", case " + std::to_string(Nr++));
      try {
        Read(*Chart->Graph, Form, Fault, false);
      } catch (const EXMLError&) {
        ++Failed;
      } catch (const EIniFileError&) {
        ++Failed;
      } catch (const Exception& Error) {
        ++Failed;
        EXPECT_NE(std::string(Error.what()).find("TZyGraph2D Chart"), std::string::npos) << Error.what();
      }
      ASSERT_FALSE(Chart->Graph->LoadingRecord());
      Chart->Graph->SetBounds(20, 10, 300, 200);
      TSampleChart::Paint(*Chart->Graph);
      const std::string After = Written(*Chart->Graph, TForm3::Stream);
      while (Stack->CanUndo()) Stack->Undo();
      TSampleChart::Paint(*Chart->Graph);
      while (Stack->CanRedo()) Stack->Redo();
      if (Nr % 50 == 0) {
        Stack->Clear();
        Read(*Chart->Graph, Form, Text);
        TSampleChart::Paint(*Chart->Graph);
      }
    }
    EXPECT_GT(Failed, 400);
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
