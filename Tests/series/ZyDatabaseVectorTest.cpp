#include <gtest/gtest.h>

#include "graph/SampleChart.h"
#include "platform/data/TDataSource.h"
#include "platform/sql/TSqlDataSet.h"
#include "texts/Exceptions.h"

namespace zy::testing {
namespace {

std::vector<double> ValuesOf(const TZyDoubleVector& Vector) { return {Vector.Values().begin(), Vector.Values().end()}; }

/// A series of two columns of a table in memory.
class ZyDatabaseVectorTest : public ::testing::Test {
 protected:
  ZyDatabaseVectorTest() {
    Source.SetDataSet(&Query);
    for (auto& [Vector, Field] : {std::pair{&X, "t"}, std::pair{&Y, "v"}}) {
      Vector->SetDataSource(&Source);
      Vector->SetDataField(Field);
    }
  }
  void Open(const std::string& Sql) {
    Query.SetQuery(Sql);
    Query.Open();
    Chart.Paint();
  }
  static constexpr const char* Gaps =
      "SELECT 1.0 AS t, 10.0 AS v UNION ALL SELECT 2.0, NULL UNION ALL SELECT 3.0, 30.0 UNION ALL SELECT 4.0, NULL";

  TSampleChart Chart;
  TSqlDataSet Query;
  TDataSource Source;
  TZyLineSeries& Series = *Chart.AddSeries("Series");
  TZyDoubleVector& X = dynamic_cast<TZyDoubleVector&>(*Series.XData());
  TZyDoubleVector& Y = dynamic_cast<TZyDoubleVector&>(*Series.YData());
};

TEST_F(ZyDatabaseVectorTest, AChartReadsItsDataSetWhenThatOpens) {
  Query.SetQuery(Gaps);
  Chart.Paint();
  EXPECT_EQ(X.Count(), 0) << "closed: put off";
  EXPECT_TRUE(X.DBData());
  Query.Open();
  EXPECT_EQ(X.Count(), 0) << "an event reads nothing";
  Query.DisableControls();
  Chart.Paint();
  EXPECT_EQ(X.Count(), 0) << "put off";
  Query.EnableControls();
  Query.Next();
  Chart.Paint();
  EXPECT_EQ(ValuesOf(X), (std::vector<double>{1, 2, 3, 4}));
  EXPECT_EQ(ValuesOf(Y), (std::vector<double>{10, 0, 30})) << "a null is a gap, and nothing at the end";
  EXPECT_TRUE(Y.IsOutlier(1));
  EXPECT_EQ(Query.RecNo(), 1) << "the cursor is back";
  EXPECT_EQ(Series.Points().size(), 2u) << "the line goes across the gap";

  Open("SELECT 1.0 AS t, 5.0 AS v UNION ALL SELECT 2.0, 6.0");
  EXPECT_EQ(ValuesOf(Y), (std::vector<double>{5, 6}));
  EXPECT_FALSE(Y.AnyOutliers());
}

TEST_F(ZyDatabaseVectorTest, WhatCannotBeReadLeavesTheVectorAndTellsWhy) {
  Open(Gaps);
  const std::vector<double> Before = ValuesOf(Y);
  Open("SELECT 1.0 AS t, 'high' AS v UNION ALL SELECT 2.0, 'low'");
  EXPECT_EQ(ValuesOf(Y), Before);
  EXPECT_NE(Y.DataLink().Error().find("high"), std::string::npos) << Y.DataLink().Error();
  EXPECT_EQ(X.Count(), 2);
  EXPECT_TRUE(Y.DBData()) << "the next change of the data is read again";

  Open("SELECT 1.0 AS t, 7.0 AS renamed");
  EXPECT_EQ(ValuesOf(Y), Before);
  EXPECT_FALSE(Y.DBData());
  EXPECT_NE(Y.DataLink().Error().find("\"v\""), std::string::npos) << Y.DataLink().Error();
  Y.SetDataField("renamed");
  Chart.Paint();
  EXPECT_EQ(ValuesOf(Y), std::vector<double>{7});
}

TEST_F(ZyDatabaseVectorTest, AnAxisTakesItsTextsFromAField) {
  Chart.X->SetScaling(TZyAxisScaling::Rubrics);
  Chart.FixEnds(Chart.X, 0, 3);
  Chart.X->SetRubricsField("name");
  Chart.X->SetDataSource(&Source);
  TStringList Others;
  EXPECT_THROW(Chart.X->SetRubrics(&Others), Exception);
  Open("SELECT 0.5 AS t, 1.0 AS v, 'one' AS name UNION ALL SELECT 1.5, 2.0, NULL UNION ALL SELECT 2.5, 3.0, 'three'");
  EXPECT_EQ(Chart.X->LabelTexts(), (std::vector<std::string>{"one", "", "three"}));
  Open("SELECT 0.5 AS t, 1.0 AS v, 'single' AS name");
  EXPECT_EQ(Chart.X->LabelTexts(), std::vector<std::string>{"single"});
  Chart.X->SetDataSource(nullptr);
  ASSERT_NE(Chart.X->Rubrics(), nullptr);
  EXPECT_EQ(Chart.X->Rubrics()->Get(0), "single") << "the texts stay";
}

TEST_F(ZyDatabaseVectorTest, ADyingSourceUnbindsTheVector) {
  {
    TDataSource Mortal;
    Mortal.SetDataSet(&Query);
    X.SetDataSource(&Mortal);
    Open(Gaps);
  }
  EXPECT_EQ(X.DataSource(), nullptr);
  EXPECT_FALSE(X.DBData());
  Chart.Paint();
  X.Add(5);
  EXPECT_EQ(ValuesOf(X), (std::vector<double>{1, 2, 3, 4, 5})) << "the data stay";
}

TEST_F(ZyDatabaseVectorTest, ItsRecordHoldsTheLinkAndNotTheValues) {
  Source.SetName("Source");
  Chart.Form.InsertComponent(&Source);
  Open(Gaps);
  TMemoryStream Stream;
  Y.WriteTo(Stream);
  Stream.SetPosition(0);
  TZyDoubleVector Other;
  Other.ReadFrom(Stream);
  EXPECT_EQ(Other.Count(), 0);
  Other.UpdateDB();
  EXPECT_EQ(ValuesOf(Other), (std::vector<double>{10, 0, 30}));
  Chart.Form.RemoveComponent(&Source);
}

}  // namespace
}  // namespace zy::testing
