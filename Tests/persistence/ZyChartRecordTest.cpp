// Whole charts in the three forms.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

#include "framework/Bytes.h"
#include "persistence/RandomChart.h"
#include "platform/framework/TMemIniFile.h"
#include "platform/framework/XmlDocument.h"

namespace zy::testing {
namespace {

enum class TForm3 { Stream, Xml, Ini };
constexpr TForm3 AllForms[] = {TForm3::Stream, TForm3::Xml, TForm3::Ini};

std::string Written(const TZyGraph2D& Graph, TForm3 Form, bool SaveData = true) {
  if (Form == TForm3::Stream) {
    TMemoryStream Stream;
    Graph.WriteTo(Stream, SaveData);
    return AsText(Stream);
  }
  if (Form == TForm3::Xml) {
    const TXMLDocument Document("Chart");
    Graph.WriteTo(Document.DocumentElement(), SaveData);
    return Document.SaveToText();
  }
  TMemIniFile Ini;
  Graph.WriteTo(Ini, "Chart", SaveData);
  return Ini.SaveToText();
}

void Read(TZyGraph2D& Graph, TForm3 Form, std::string_view Text) {
  if (Form == TForm3::Stream) {
    TMemoryStream Stream(AsBytes(Text));
    Graph.ReadFrom(Stream);
    EXPECT_EQ(Stream.Remaining(), 0);
  } else if (Form == TForm3::Xml) {
    TXMLDocument Document("Chart");
    Document.LoadFromText(Text);
    Graph.ReadFrom(Document.DocumentElement());
  } else {
    TMemIniFile Ini;
    Ini.LoadFromText(Text);
    Graph.ReadFrom(Ini, "Chart");
  }
  for (TZySeries* Series : Graph.RelatedSeries()) Quieten(*Series);
}

std::vector<ARGB> PixelsOf(TZyGraph2D& Graph) {
  const Bitmap Picture = TSampleChart::Paint(Graph);
  std::vector<ARGB> Result;
  for (int Y = 0; Y < Picture.GetHeight(); ++Y)
    for (int X = 0; X < Picture.GetWidth(); ++X) Result.push_back(Picture.GetPixel(X, Y));
  return Result;
}

/// Whether two texts are the same, and where they begin to differ.
::testing::AssertionResult Same(const std::string& Left, const std::string& Right) {
  const auto [At, Other] = std::ranges::mismatch(Left, Right);
  if (At == Left.end() && Other == Right.end()) return ::testing::AssertionSuccess();
  const std::size_t Place = static_cast<std::size_t>(At - Left.begin());
  const std::size_t From = Place < 60 ? 0 : Place - 60;
  return ::testing::AssertionFailure() << "byte " << Place << " of " << Right.size() << ": "
                                       << ::testing::PrintToString(Left.substr(From, 100)) << "\n"
                                       << ::testing::PrintToString(Right.substr(From, 100));
}

/// ZY_RANDOM_CHARTS in the environment tells how many.
int NumberOfCharts() {
  const char* const Text = std::getenv("ZY_RANDOM_CHARTS");
  return Text == nullptr ? 20 : std::atoi(Text);
}

/// Reads a chart back from one form: the same text again before and after a paint, and the same pixels.
void ExpectBack(const std::vector<std::string>& Stored, TForm3 Form, const std::vector<std::vector<ARGB>>* Pictures) {
  const TGraphPair Loaded(false);
  const std::vector<TZyGraph2D*> Graphs = Loaded.Graphs();
  for (std::size_t i = 0; i < Stored.size(); ++i) Read(*Graphs[i], Form, Stored[i]);
  for (std::size_t i = 0; i < Stored.size(); ++i) ASSERT_TRUE(Same(Written(*Graphs[i], Form), Stored[i]));
  for (TZyGraph2D* Graph : Graphs) {
    PixelsOf(*Graph);

    Graph->Modified();  // gradients of lines span the data area of the layout before
  }
  for (std::size_t i = 0; i < Stored.size(); ++i)
    EXPECT_TRUE(Pictures == nullptr || PixelsOf(*Graphs[i]) == (*Pictures)[i]) << "graph " << i;
  for (std::size_t i = 0; i < Stored.size(); ++i)
    EXPECT_TRUE(Same(Written(*Graphs[i], Form), Stored[i])) << "after a paint";
}

TEST(ZyChartRecordTest, RandomChartsComeBackInEachForm) {
  TSampleData Data;
  for (unsigned Seed = 1; Seed <= static_cast<unsigned>(NumberOfCharts()); ++Seed) {
    std::vector<std::string> Texts[3];
    std::vector<std::vector<ARGB>> Pictures;
    bool HasLineGradients = false;  // which streams alone have
    {
      const TRandomChart Chart(Seed, Data);
      HasLineGradients = Chart.HasLineGradients;
      for (TZyGraph2D* Graph : Chart.Graphs()) {
        for (const TForm3 Form : AllForms) Texts[static_cast<int>(Form)].push_back(Written(*Graph, Form));
        Pictures.push_back(PixelsOf(*Graph));
      }
    }
    for (const TForm3 Form : AllForms) {
      SCOPED_TRACE("seed " + std::to_string(Seed) + ", form " + std::to_string(static_cast<int>(Form)));
      ExpectBack(Texts[static_cast<int>(Form)], Form, HasLineGradients && Form != TForm3::Stream ? nullptr : &Pictures);
    }
  }
}

}  // namespace
}  // namespace zy::testing
