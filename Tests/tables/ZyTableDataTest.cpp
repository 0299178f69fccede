// Tables that stay in their database: each is compared with a vector that holds all of its rows.

#include "tables/ZyTableData.h"

#include <gtest/gtest.h>

#include <QImage>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <random>
#include <thread>

#include "controls/ControlSamples.h"
#include "framework/Bytes.h"
#include "framework/Errors.h"
#include "graph/SampleChart.h"
#include "platform/data/TDataSource.h"
#include "platform/sql/TSqlDataSet.h"
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
  Bitmap Picture(float Ratio) {
    return PictureOf(
        Graph->Width(), Graph->Height(), [this](Graphics& Gr) { Graph->PaintGr(Gr); }, Ratio);
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
    if (!IsServer) Base.ExecSQL("PRAGMA synchronous = OFF");
    if (IsServer) {
      Base.ExecSQL("SET client_min_messages = warning");
      Base.ExecSQL("DROP FUNCTION IF EXISTS rows_t_v_summary_drawback() CASCADE");
      Base.ExecSQL("DROP TABLE IF EXISTS rows_t_v_summary");
      Base.ExecSQL("DROP TABLE IF EXISTS rows");
      Base.ExecSQL("DROP TABLE IF EXISTS other");
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
  /// Paints the chart until all answers are there.
  void Answered(TBoundChart& Chart) {
    do Chart.Paint();
    while (Data.WaitForAnswer());
    EXPECT_EQ(Data.LastError(), "");
    Chart.Paint();
  }
  /// Compares with a vector of all rows, over ranges from all rows to a few and beyond the end.
  void ExpectSamePictures(const std::string& What) {
    Data.Open();
    TSqlDataSet All;
    All.SetConnectionText(Address);
    All.SetQuery("SELECT t, v FROM " + Data.TableName() + " ORDER BY t");
    All.Open();
    TBoundChart Held(All), Asked(Data);
    Data.SetXAxis(Asked.X);
    const double Length = All.RecordCount();
    for (const auto& [Start, Share] : {std::pair{0.0, 1.0},
                                       {0.31, 0.1},
                                       {0.6, 0.1},
                                       {0.123, 0.013},
                                       {0.7, 0.001},
                                       {0.35, 20 / Length},
                                       {0.9, 0.3}}) {
      SCOPED_TRACE(What + ", from " + std::to_string(Start) + ", share " + std::to_string(Share));
      for (TBoundChart* Chart : {&Held, &Asked}) {
        if (Share < 1) Chart->FixEnds(Chart->X, Start * Length, (Start + Share) * Length);
        Chart->Series.Area().SetVisible(Share == 0.1);
      }
      Answered(Asked);
      for (const float Ratio : {1.0f, 2.0f}) EXPECT_EQ(Differing(Asked.Picture(Ratio), Held.Picture(Ratio)), 0);
      EXPECT_LT(Data.RecordCount(), 25000);
    }
    for (const int Width : {703, 700}) {  // a window that becomes wider, and is again what it was
      for (TBoundChart* Chart : {&Held, &Asked}) Chart->Graph->SetBounds(0, 0, Width, 400);
      Answered(Asked);
      EXPECT_EQ(Differing(Asked.Picture(1), Held.Picture(1)), 0) << What << ", " << Width << " pixels";
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
  ExpectSamePictures("from the table");
  Data.MakeSummary();
  ExpectSamePictures("from the summary");
  Base.ExecSQL("CREATE TABLE other (t BIGINT, v DOUBLE PRECISION)");
  Base.ExecSQL("INSERT INTO other SELECT ROW_NUMBER() OVER (ORDER BY t), v FROM rows");
  Data.SetTableName("other");
  ExpectSamePictures("from a table without an index");
  EXPECT_NE(MessageOf<EDatabaseError>([&] { Data.MakeSummary(); }), "");
  Base.ExecSQL("CREATE INDEX ordered ON other (t)");
  ExpectSamePictures("from a table of whole X");
  Data.SetTableName("rows");
  Append(60000, 70000);
  Base.ExecSQL("DELETE FROM rows WHERE t > 41000 AND t < 41100");
  Base.ExecSQL("UPDATE rows SET v = 20 WHERE t > 50000 AND t < 50002");
  ExpectSamePictures("from a summary that holds up to 41000");
  Data.MakeSummary();
  ExpectSamePictures("from a summary brought up to date");
}

/// What the whole table is told to be, against what it is.
TEST_P(ZyTableDataTest, ASummaryFollowsWhateverHappensToItsTable) {
  const auto ExpectWhole = [this](const std::string& What) {
    SCOPED_TRACE(What);
    TSqlDataSet All;
    All.SetConnectionText(Address);
    All.SetQuery("SELECT COUNT(v) AS n, SUM(v) AS s FROM rows");
    All.Open();
    Data.Open();
    while (Data.WaitForAnswer()) continue;
    EXPECT_EQ(Data.LastError(), "");
    const double Number = All.FieldByName("n").AsFloat();
    EXPECT_EQ(static_cast<double>(Data.Total().Count), Number);
    EXPECT_NEAR(Data.Total().Sum, All.FieldByName("s").AsFloat(), 1e-6);
    EXPECT_LT(Data.RecordCount(), 12000);
    std::int64_t Visited = 0;
    Data.ForEachBlock([&](std::span<const double> X, auto) {
      Visited += static_cast<std::int64_t>(X.size());
      return true;
    });
    EXPECT_EQ(static_cast<double>(Visited), Number);
    Data.Close();
  };
  MakeRows(40);
  Data.MakeSummary();
  ExpectWhole("fewer rows than a block");
  Append(40, 40000);
  Data.MakeSummary([](std::int64_t) { return false; });
  ExpectWhole("summed up in part");
  Data.MakeSummary();
  for (int i = 1; i < 400; ++i)  // between two blocks, among others
    Base.ExecSQL("INSERT INTO rows VALUES (" + TZyTableStatements::Literal(20000 + i * 3 + 0.45) + ", 1)");
  ExpectWhole("rows that came late");
  Data.MakeSummary();
  ExpectWhole("and were summed up");
  Base.ExecSQL("UPDATE rows SET v = 3 WHERE t > 100 AND t < 101");
  ExpectWhole("nearly all behind the end of the summary");
  Data.MakeSummary([&](std::int64_t) {
    Base.ExecSQL("UPDATE rows SET v = v + 1 WHERE t > 39000");
    return true;
  });
  ExpectWhole("rows that changed while it was made");
  Base.ExecSQL("INSERT INTO rows VALUES (1.6e9, 5)");
  Data.MakeSummary();
  ExpectWhole("an X far away");
  Base.ExecSQL("ALTER TABLE rows RENAME TO other");
  MakeRows(300, "");
  Base.ExecSQL("CREATE INDEX rows_t2 ON rows (t)");
  ExpectWhole("another table of the name");
  Data.SetSummaryTable("rows");
  EXPECT_NE(MessageOf<EDatabaseError>([&] { Data.MakeSummary(); }).find("is no summary"), std::string::npos);
  EXPECT_NE(MessageOf<EDatabaseError>([&] { Data.DropSummary(); }).find("is no summary"), std::string::npos);
  ExpectWhole("left alone");
  Data.SetSummaryTable(std::string(80, 'x'));
  Data.MakeSummary();
  Data.MakeSummary();
  ExpectWhole("a long name");
  Data.DropSummary();
}

/// A record holds 200 rows or 500, by the pixels that the labels of Y leave: the one with the spike is so high that
/// those become wider, or not. Which width of records makes them turn is for the font to say.
TEST_P(ZyTableDataTest, LabelsThatSwayWithTheAnswersAreNotAskedForWithoutAnEnd) {
  MakeRows(1);
  Base.ExecSQL("INSERT INTO rows VALUES (10002.5, 3000)");
  Base.ExecSQL(
      "INSERT INTO rows WITH RECURSIVE g (i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM g WHERE i < 24000) SELECT i, 0 "
      "FROM g");
  Data.SetKind(TZyTableKind::Records);
  TBoundChart Chart(Data, "Mean");
  Data.SetXAxis(Chart.X);
  Chart.FixEnds(Chart.X, 0, 22000);
  for (float Width = 5.6f; Width < 6.4f; Width += 0.04f) {
    Data.SetRecordWidth(Width);
    Data.Open();
    int Questions = 0;
    do Chart.Paint();
    while (Data.WaitForAnswer() && ++Questions < 20);
    EXPECT_LT(Questions, 20) << "records of " << Width << " pixels";
  }
}

/// Of an embedded database alone: REPLACE, which tells no trigger of the rows that it pushes out, and a schema that
/// stands elsewhere in an index and nowhere in a trigger.
TEST_P(ZyTableDataTest, ASecondSummaryHasNotTheRowsThatReplacePushedOut) {
  if (std::string(GetParam()) == "Postgres") return;
  Base.ExecSQL("CREATE TABLE rows (id INTEGER PRIMARY KEY, t REAL, v REAL)");
  Base.ExecSQL(
      "INSERT INTO rows WITH RECURSIVE g (i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM g WHERE i < 2000) SELECT i, i, 1 "
      "FROM g");
  Data.SetTableName("main.rows");
  std::string Notice;
  Data.SetOnNotice([&](TObject*, const std::string& Text) { Notice = Text; });
  Data.Open();
  Data.WaitForAnswer();
  Base.ExecSQL(Notice.substr(std::min(Notice.find("CREATE INDEX"), Notice.size())));
  Data.MakeSummary();
  Base.ExecSQL("DELETE FROM rows WHERE t > 1000 AND t <= 1100");
  Base.ExecSQL("REPLACE INTO rows VALUES (100, 5000, 1)");  // not t = 100 any more
  Data.MakeSummary();
  Data.Refresh();
  Data.WaitForAnswer();
  EXPECT_EQ(Data.Total().Count, 1900);
  Base.ExecSQL("CREATE VIEW other AS SELECT t, v FROM rows");
  Data.SetTableName("other");
  EXPECT_NE(MessageOf<EDatabaseError>([&] { Data.MakeSummary(); }), "");
  EXPECT_NO_THROW(Base.ExecSQL("CREATE TABLE other_t_v_summary (t)")) << "nothing of it is left";
}

/// Records against all rows, counted and summed here.
TEST_P(ZyTableDataTest, RecordsSumUpStretchesOfRoundWidth) {
  MakeRows(30000);
  TSqlDataSet All;
  All.SetConnectionText(Address);
  All.SetQuery("SELECT t, v FROM rows WHERE v IS NOT NULL ORDER BY t");
  All.Open();
  std::vector<std::pair<double, double>> Rows;
  All.Walk([&] { Rows.emplace_back(All.FieldByName("t").AsFloat(), All.FieldByName("v").AsFloat()); });
  Data.SetKind(TZyTableKind::Records);
  for (const bool HasSummary : {false, true}) {
    if (HasSummary) Data.MakeSummary();
    Data.Open();
    TBoundChart Chart(Data, "high");
    Data.SetXAxis(Chart.X);
    Chart.FixEnds(Chart.X, 10000, 20000);
    Answered(Chart);
    // 6 of some 650 pixels for 10000 are 92 or so.
    constexpr double Width = 100;
    auto Row = Rows.begin();
    int Compared = 0;
    double End = 0;  // of the last record
    Data.Walk([&] {
      const double X = Data.FieldByName("t").AsFloat(), Start = std::floor(X / Width) * Width;
      if (Data.FieldByName("open").IsNull()) End = X;
      if (X < 9900 || X >= 20100) return;
      double High = -1e9, Low = 1e9, Sum = 0, Count = 0;
      while (Row->first < Start) ++Row;
      const auto First = Row;
      for (; Row != Rows.end() && Row->first < Start + Width; ++Row, ++Count) {
        High = std::max(High, Row->second);
        Low = std::min(Low, Row->second);
        Sum += Row->second;
      }
      const std::pair<const char*, double> Wanted[] = {
          {"t", First->first}, {"open", First->second}, {"high", High},        {"low", Low},
          {"sum", Sum},        {"count", Count},        {"mean", Sum / Count}, {"close", (Row - 1)->second}};
      for (const auto& [Field, Value] : Wanted)
        EXPECT_NEAR(Data.FieldByName(Field).AsFloat(), Value, 1e-9) << Field << X;
      ++Compared;
    });
    EXPECT_EQ(Compared, 102);
    EXPECT_GE(End, Rows.back().first);
    Data.SetXAxis(nullptr);
    Data.Close();
  }
}

TEST_P(ZyTableDataTest, TellsOfTheWholeAndRefusesWhatNeedsAllOfIt) {
  MakeRows(40000);
  Data.Open();
  TBoundChart Chart(Data);
  Data.SetXAxis(Chart.X);
  auto& Line = *new TZyLinearRegression(&Chart.Form);
  Line.SetXData(Chart.Series.XData());
  Line.SetYData(Chart.Series.YData());
  std::string Refusal;
  Line.SetOnCalculationError([&](TObject*, const std::exception& Error) { Refusal = Error.what(); });
  Line.SetXAxis(Chart.X);
  Line.SetYAxis(Chart.Y);
  Answered(Chart);
  double Sum = 0, Low = 1e9, High = -1e9, Before = -1;
  std::int64_t Count = 0;
  Data.ForEachBlock([&](std::span<const double> X, std::span<const double> Y) {
    EXPECT_LT(X.size(), 200000u);
    for (std::size_t i = 0; i < X.size(); Before = X[i++]) EXPECT_GT(X[i], Before);
    for (const double Value : Y) Sum += Value, Low = std::min(Low, Value), High = std::max(High, Value);
    Count += static_cast<std::int64_t>(Y.size());
    return true;
  });
  EXPECT_EQ(Count, 40000 - 40);
  EXPECT_EQ(Data.Total().Count, Count);
  EXPECT_NEAR(Data.Total().Sum, Sum, 1e-6);
  EXPECT_EQ(Data.Total().Min, Low);
  EXPECT_EQ(Data.Total().Max, High);
  EXPECT_EQ(Chart.Series.YData()->Minimum(), Low);
  EXPECT_EQ(Chart.Series.YData()->Maximum(), High);
  EXPECT_NE(Refusal.find("39960 rows of table \"rows\""), std::string::npos) << Refusal;
  Base.ExecSQL("DELETE FROM rows WHERE t > 500");
  Data.Refresh();
  Answered(Chart);
  Refusal.clear();
  Line.RangesModified();
  Chart.Paint();
  EXPECT_EQ(Refusal, "") << "few rows are all there";
  EXPECT_EQ(Line.XData()->Count(), 501);
}

TEST_P(ZyTableDataTest, AFaultLeavesTheChartAndIsToldByItsName) {
  MakeRows(20000, "");
  Base.ExecSQL("CREATE INDEX partly ON rows (t) WHERE v > 0");  // finds no stretch of all rows
  std::string Notice;
  int Notices = 0;
  Data.SetOnNotice([&](TObject*, const std::string& Text) { Notice = Text, ++Notices; });
  Data.Open();
  TBoundChart Chart(Data);
  Data.SetXAxis(Chart.X);
  Answered(Chart);
  const std::size_t Mark = Notice.find("CREATE INDEX");
  ASSERT_NE(Mark, std::string::npos) << Notice;
  Base.ExecSQL(Notice.substr(Mark));
  const auto Pan = [&](double Start) {
    Chart.FixEnds(Chart.X, Start, Start + 5000);
    Chart.Paint();
    Data.WaitForAnswer();
  };
  Pan(1000);
  const int Records = Data.RecordCount();
  Base.ExecSQL("ALTER TABLE rows RENAME COLUMN v TO w");
  Pan(2000);
  EXPECT_NE(Data.LastError().find("v"), std::string::npos);
  EXPECT_NE(Data.LastError().find("refuses"), std::string::npos) << Data.LastError();
  EXPECT_EQ(dynamic_cast<TZyDoubleVector*>(Chart.Series.YData())->DataLink().Error(), Data.LastError());
  EXPECT_EQ(Data.RecordCount(), Records);
  Chart.Graph->Modified();
  Chart.Paint();
  EXPECT_FALSE(Data.IsWaiting()) << "the same range once more";
  EXPECT_NE(MessageOf<EDatabaseError>([&] { Data.Refresh(); }), "");
  Base.ExecSQL("ALTER TABLE rows RENAME COLUMN w TO v");
  Data.Refresh();
  Answered(Chart);
  Base.ExecSQL("DELETE FROM rows");
  Data.Refresh();
  Answered(Chart);
  EXPECT_EQ(Data.RecordCount(), 0);
  EXPECT_EQ(Notices, 1);
  Data.Close();
  Base.ExecSQL("DROP TABLE rows");
  Base.ExecSQL("CREATE TABLE rows (t DOUBLE PRECISION PRIMARY KEY, v TEXT)");
  Base.ExecSQL("INSERT INTO rows VALUES (1, 'warm'), (2, 'cold')");
  std::string Error = MessageOf<EDatabaseError>([&] { Data.Open(); });
  if (Error.empty()) {  // a database whose values have kinds, and not its columns
    Data.WaitForAnswer();
    Error = Data.LastError();
    EXPECT_NE(Error.find("warm"), std::string::npos) << Error;
  }
  EXPECT_NE(Error.find("column \"v\" of table \"rows\""), std::string::npos) << Error;
  EXPECT_NE(Error.find("Signal"), std::string::npos);
}

TEST_P(ZyTableDataTest, ShowsWhatItHasUntilTheNewestQuestionIsAnswered) {
  MakeRows(20000);
  std::string Events;
  Data.SetOnAsked([&](TObject*) { Events += "asked "; });
  Data.SetOnAnswered([&](TObject*) { Events += "answered "; });
  Data.Open();
  TBoundChart Chart(Data);
  Data.SetXAxis(Chart.X);
  Answered(Chart);
  Events.clear();
  for (int i = 0; i < 50; ++i) {
    Chart.FixEnds(Chart.X, 100 * i, 100 * i + 1000);
    Chart.Paint();
    EXPECT_GT(Chart.Series.Points().size(), 3u) << "of the whole table";
    EXPECT_TRUE(Data.IsWaiting());
  }
  EXPECT_EQ(Events, "asked ");
  // No answer but the last one is left, whatever was on its way.
  while (Data.IsWaiting()) HandleEvents();
  EXPECT_EQ(Events, "asked answered ");
  int Rows = 0;
  Data.Walk([&] { Rows += std::fabs(Data.FieldByName("t").AsFloat() - 5400) <= 500; });
  EXPECT_EQ(Rows, 1000 - 1);
  EXPECT_EQ(Chart.Graph->Cursor(), crDefault);
}

TEST_P(ZyTableDataTest, AConnectionThatIsLostOrLockedIsTriedAgain) {
  MakeRows(5000);
  Data.Open();
  TBoundChart Chart(Data);
  Data.SetXAxis(Chart.X);
  Answered(Chart);
  const int Records = Data.RecordCount();
  const bool IsServer = std::string(GetParam()) == "Postgres";
  const auto Server = [](const char* Command) {
    ASSERT_EQ(std::system((std::getenv("ZYPHOS_POSTGRES_CTL") + std::string(Command)).c_str()), 0);
  };
  if (IsServer) {
    Server(" stop -m immediate");
  } else {
    Base.ExecSQL("BEGIN EXCLUSIVE");
  }
  Chart.FixEnds(Chart.X, 1000, 1100);
  Chart.Paint();
  Data.WaitForAnswer();
  EXPECT_NE(Data.LastError().find(IsServer ? "postgresql://" : "locked"), std::string::npos) << Data.LastError();
  EXPECT_EQ(Data.RecordCount(), Records);
  if (IsServer) {
    Server(" start");
  } else {
    Base.ExecSQL("COMMIT");
  }
  Chart.FixEnds(Chart.X, 1000, 1200);  // the next zoom asks again
  Answered(Chart);
  EXPECT_EQ(Data.LastError(), "");
}

TEST_P(ZyTableDataTest, ClosesWhileAStatementRunsAndOpensAnewWithinAnAnswer) {
  MakeRows(2000, "");
  int Notices = 0;
  Data.SetOnNotice([&](TObject*, const std::string&) {
    if (++Notices > 1) return;
    Data.Close();
    Data.Open();
  });
  Data.Open();
  TBoundChart Chart(Data);
  Data.SetXAxis(Chart.X);
  Answered(Chart);
  EXPECT_EQ(Notices, 2);
  EXPECT_EQ(Data.Total().Count, 1998);
  if (std::string(GetParam()) == "Postgres") return;
  Base.ExecSQL("BEGIN EXCLUSIVE");
  Chart.FixEnds(Chart.X, 100, 200);
  Chart.Paint();
  std::this_thread::sleep_for(std::chrono::milliseconds(50));
  const auto Begin = std::chrono::steady_clock::now();
  Data.Close();
  EXPECT_LT(std::chrono::steady_clock::now() - Begin, std::chrono::seconds(3)) << "the lock is waited for five";
  Base.ExecSQL("COMMIT");
}

INSTANTIATE_TEST_SUITE_P(Engines, ZyTableDataTest, ::testing::Values("Sqlite", "Postgres"),
                         [](const auto& Info) { return std::string(Info.param); });

}  // namespace
}  // namespace zy::testing
