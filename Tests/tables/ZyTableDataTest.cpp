// Tables that stay in their database: each is compared with a vector that holds all of its rows.

#include "tables/ZyTableData.h"

#include <gtest/gtest.h>

#include <QImage>
#include <cmath>
#include <cstdlib>
#include <random>

#include "framework/Bytes.h"
#include "framework/Errors.h"
#include "graph/SampleChart.h"
#include "platform/data/TDataSource.h"
#include "platform/sql/TSqlDataSet.h"
#include "series/ZyCandleSticks.h"
#include "series/ZyLinearRegression.h"
#include "texts/Exceptions.h"

namespace zy::testing {
namespace {

/// A chart of a data set with a field for X and one for Y.
struct TBoundChart : TSampleChart {
  explicit TBoundChart(TDataSet& Set, const char* YField = "v") : TSampleChart(700, 400) {
    Source.SetDataSet(&Set);
    for (auto& [Data, Field] : {std::pair{Series.XData(), "t"}, std::pair{Series.YData(), YField}}) {
      auto& Vector = dynamic_cast<TZyDoubleVector&>(*Data);
      Vector.SetDataSource(&Source);
      Vector.SetDataField(Field);
    }
    Series.Line().SetColor(Colors::DarkBlue);
  }
  TDataSource Source;
  TZyLineSeries& Series = *AddSeries("Series");
};

/// Pixels of two pictures that differ.
int Differing(const Bitmap& A, const Bitmap& B) {
  int Result = 0;
  for (int Y = 0; Y < A.GetHeight(); ++Y)
    for (int X = 0; X < A.GetWidth(); ++X) Result += A.GetPixel(X, Y) != B.GetPixel(X, Y) ? 1 : 0;
  return Result;
}

class ZyTableDataTest : public ::testing::TestWithParam<const char*> {
 protected:
  void SetUp() override {
    const char* const Server = std::getenv("ZYPHOS_POSTGRES");
    const bool IsServer = std::string(GetParam()) == "Postgres";
    if (IsServer && Server == nullptr) GTEST_SKIP() << "No PostgreSQL server: scripts/test-postgres.sh starts one";
    if (!IsServer) std::fclose(std::fopen((Folder / "rows.db").c_str(), "w"));
    Address = IsServer ? Server : (Folder / "rows.db").string();
    Base.SetConnectionText(Address);
    if (IsServer) {
      Base.ExecSQL("SET client_min_messages = warning");
      Base.ExecSQL("DROP FUNCTION IF EXISTS rows_t_v_summary_drawback() CASCADE");
      Base.ExecSQL("DROP TABLE IF EXISTS rows_t_v_summary");
      Base.ExecSQL("DROP TABLE IF EXISTS rows");
    }
    Data.SetConnectionText(Address);
    Data.SetTableName("rows");
    Data.SetXField("t");
    Data.SetYField("v");
    Data.SetName("Signal");
  }
  /// Rows at uneven distances: noise, a smooth stretch, spikes, nulls.
  void MakeRows(int Count, const char* Key = "PRIMARY KEY") {
    Base.ExecSQL(std::string("CREATE TABLE rows (t DOUBLE PRECISION ") + Key + ", v DOUBLE PRECISION)");
    Append(0, Count);
  }
  void Append(int First, int Last) {
    std::mt19937 Random(static_cast<unsigned>(First) + 1);
    std::uniform_real_distribution<double> Noise(-1, 1);
    for (int From = First; From < Last; From += 500) {
      std::string Rows;
      for (int i = From; i < std::min(From + 500, Last); ++i) {
        const bool IsSmooth = i > Last / 2 && i < Last * 3 / 4;
        const double Value = 5 * std::sin(i * 2e-4) + (IsSmooth ? 0 : Noise(Random)) + (i % 7777 == 1 ? 8 : 0);
        Rows += (Rows.empty() ? "(" : ", (") + TZyTableStatements::Literal(i + 0.3 * Noise(Random)) + ", " +
                (i % 1000 == 503 ? "NULL" : TZyTableStatements::Literal(Value)) + ")";
      }
      Base.ExecSQL("INSERT INTO rows VALUES " + Rows);
    }
  }
  /// The picture of the chart once all answers are there.
  Bitmap Answered(TBoundChart& Chart) {
    do Chart.Paint();
    while (Data.WaitForAnswer());
    EXPECT_EQ(Data.LastError(), "");
    return Chart.Paint();
  }
  /// Compares with a vector of all rows, over ranges from all rows to a few and beyond the end.
  void ExpectSamePictures(const std::string& What) {
    TSqlDataSet All;
    All.SetConnectionText(Address);
    All.SetQuery("SELECT t, v FROM rows ORDER BY t");
    All.Open();
    TBoundChart Held(All), Asked(Data);
    Data.SetXAxis(Asked.X);
    const double Length = All.RecordCount();
    for (const auto& [Start, Share] : {std::pair{0.0, 1.0}, {0.31, 0.1}, {0.6, 0.1}, {0.123, 0.013}, {0.7, 0.001},
                                       {0.35, 20 / Length}, {0.9, 0.3}}) {
      SCOPED_TRACE(What + ", from " + std::to_string(Start) + ", share " + std::to_string(Share));
      for (TBoundChart* Chart : {&Held, &Asked}) {
        if (Share < 1) Chart->FixEnds(Chart->X, Start * Length, (Start + Share) * Length);
        Chart->Series.Area().SetVisible(Share == 0.1);
      }
      const Bitmap Wanted = Held.Paint(), Got = Answered(Asked);
      EXPECT_EQ(Differing(Got, Wanted), 0);
      EXPECT_LT(Data.RecordCount(), 25000);
    }
    Data.Close();
  }

  const TTemporaryFolder Folder;
  std::string Address;
  TSqlDataSet Base;
  TZyTableData Data;
};

TEST_P(ZyTableDataTest, ThePictureIsThatOfAVectorWithAllRows) {
  MakeRows(60000);
  Data.Open();
  ExpectSamePictures("from the table");
  Data.MakeSummary();
  Data.Open();
  ExpectSamePictures("from the summary");
  Append(60000, 70000);
  Base.ExecSQL("DELETE FROM rows WHERE t > 41000 AND t < 41100");
  Base.ExecSQL("UPDATE rows SET v = 20 WHERE t > 50000 AND t < 50002");
  Data.Open();
  ExpectSamePictures("from a summary that holds up to 41000");
  Data.MakeSummary();
  Data.Open();
  ExpectSamePictures("from a summary brought up to date");
}

INSTANTIATE_TEST_SUITE_P(Engines, ZyTableDataTest, ::testing::Values("Sqlite", "Postgres"),
                         [](const auto& Info) { return std::string(Info.param); });

}  // namespace
}  // namespace zy::testing
