#include <gtest/gtest.h>

#include "graph/SampleChart.h"
#include "platform/data/TDataSource.h"
#include "platform/data/TSqlDataSet.h"
#include "platform/framework/Exceptions.h"

namespace zy::testing {
namespace {

std::vector<double> ValuesOf(const TZyDoubleVector& Vector) { return {Vector.Values().begin(), Vector.Values().end()}; }

/// A series of two columns of a table in memory.
class ZyDatabaseVectorTest : public ::testing::Test {
 protected:
  ZyDatabaseVectorTest() {
    Query.SetQuery(
        "SELECT 1.0 AS t, 10.0 AS v UNION ALL SELECT 2.0, NULL UNION ALL SELECT 3.0, 30.0 UNION ALL SELECT 4.0, NULL");
    Source.SetDataSet(&Query);
    for (auto& [Vector, Field] : {std::pair{&X, "t"}, std::pair{&Y, "v"}}) {
      Vector->SetDataSource(&Source);
      Vector->SetDataField(Field);
    }
  }

  TSampleChart Chart;
  TSqlDataSet Query;
  TDataSource Source;
  TZyLineSeries& Series = *Chart.AddSeries("Series");
  TZyDoubleVector& X = dynamic_cast<TZyDoubleVector&>(*Series.XData());
  TZyDoubleVector& Y = dynamic_cast<TZyDoubleVector&>(*Series.YData());
};

TEST_F(ZyDatabaseVectorTest, AChartReadsItsDataSetWhenThatOpens) {
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
  EXPECT_EQ(Y.Minimum(), 10);
  EXPECT_EQ(Query.RecNo(), 1) << "the cursor is back";
  EXPECT_EQ(Series.Points().size(), 2u) << "the line goes across the gap";
  EXPECT_EQ(Chart.Y->Stop(), 30);

  Query.SetQuery("SELECT 1.0 AS t, 5.0 AS v UNION ALL SELECT 2.0, 6.0");
  Query.Open();
  Chart.Paint();
  EXPECT_EQ(ValuesOf(Y), (std::vector<double>{5, 6}));
  EXPECT_FALSE(Y.AnyOutliers());
}

TEST_F(ZyDatabaseVectorTest, WhatCannotBeReadLeavesTheVectorAndTellsWhy) {
  Query.Open();
  Chart.Paint();
  const std::vector<double> Before = ValuesOf(Y);
  Query.SetQuery("SELECT 1.0 AS t, 'high' AS v UNION ALL SELECT 2.0, 'low'");
  Query.Open();
  Chart.Paint();
  EXPECT_EQ(ValuesOf(Y), Before);
  EXPECT_NE(Y.DataLink().Error().find("high"), std::string::npos) << Y.DataLink().Error();
  EXPECT_EQ(X.Count(), 2);
  EXPECT_TRUE(Y.DBData()) << "the next change of the data is read again";

  Query.SetQuery("SELECT 1.0 AS t, 7.0 AS renamed");
  Query.Open();
  Chart.Paint();
  EXPECT_EQ(ValuesOf(Y), Before);
  EXPECT_FALSE(Y.DBData());
  EXPECT_NE(Y.DataLink().Error().find("\"v\""), std::string::npos) << Y.DataLink().Error();
  Y.SetDataField("renamed");
  Chart.Paint();
  EXPECT_EQ(ValuesOf(Y), std::vector<double>{7});
}

TEST_F(ZyDatabaseVectorTest, AnAxisTakesItsTextsFromAField) {
  Query.SetQuery(
      "SELECT 0.5 AS t, 1.0 AS v, 'one' AS name UNION ALL SELECT 1.5, 2.0, NULL UNION ALL SELECT 2.5, 3.0, 'three'");
  Query.Open();
  Chart.X->SetScaling(TZyAxisScaling::Rubrics);
  Chart.X->SetStop(3);
  Chart.X->SetStopEnd(TZyAxisEnd::Fixed);
  Chart.X->SetRubricsField("name");
  Chart.X->SetDataSource(&Source);
  EXPECT_EQ(Chart.X->Rubrics(), nullptr);
  TStringList Others;
  EXPECT_THROW(Chart.X->SetRubrics(&Others), Exception);
  Chart.Paint();
  EXPECT_EQ(Chart.X->LabelTexts(), (std::vector<std::string>{"one", "", "three"}));
  Query.SetQuery("SELECT 0.5 AS t, 1.0 AS v, 'single' AS name");
  Query.Open();
  Chart.Paint();
  EXPECT_EQ(Chart.X->LabelTexts(), std::vector<std::string>{"single"});
  Chart.X->SetDataSource(nullptr);
  ASSERT_NE(Chart.X->Rubrics(), nullptr);
  EXPECT_EQ(Chart.X->Rubrics()->Get(0), "single") << "the texts stay";
}

TEST_F(ZyDatabaseVectorTest, ADyingSourceUnbindsTheVector) {
  auto* const Mortal = new TDataSource;
  Mortal->SetDataSet(&Query);
  Query.Open();
  X.SetDataSource(Mortal);
  Chart.Paint();
  EXPECT_EQ(X.Count(), 4);
  delete Mortal;
  EXPECT_EQ(X.DataSource(), nullptr);
  EXPECT_FALSE(X.DBData());
  Chart.Paint();
  EXPECT_EQ(X.Count(), 4) << "the data stay";
  X.Add(5);
  EXPECT_EQ(X.Maximum(), 5);
}

TEST_F(ZyDatabaseVectorTest, ItsRecordHoldsTheLinkAndNotTheValues) {
  Source.SetName("Source");
  Chart.Form.InsertComponent(&Source);
  Query.Open();
  Chart.Paint();
  TMemoryStream Stream;
  Y.WriteTo(Stream);
  Stream.Seek(0, TSeekOrigin::Beginning);
  TZyDoubleVector Other;
  Other.ReadFrom(Stream);
  EXPECT_EQ(Other.DataSource(), &Source);
  EXPECT_EQ(Other.DataField(), "v");
  EXPECT_EQ(Other.Count(), 0);
  Other.UpdateDB();
  EXPECT_EQ(ValuesOf(Other), (std::vector<double>{10, 0, 30}));
  Chart.Form.RemoveComponent(&Source);
}

}  // namespace
}  // namespace zy::testing
