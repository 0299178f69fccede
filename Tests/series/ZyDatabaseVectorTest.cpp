#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "graph/SampleChart.h"
#include "platform/data/TDataSource.h"
#include "platform/framework/Reflection.h"
#include "platform/framework/TPropInfo.h"
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

/// Every vector that a kind reads, each from a column of its own.
TEST_F(ZyDatabaseVectorTest, EveryVectorOfEveryKindIsBound) {
  struct TCase {
    std::string_view Kind;
    std::vector<std::string> Inputs;
    double XStart, XStop, YStart, YStop;
  };
  // Points (2, 4) and (6, 8); the others are 1 and 2, 0.5 and 1, and for records 3 and 7 as low, 5 and 9 as high.
  const TCase Cases[] = {
      {"TZyBars", {"XData", "YData"}, 2, 6, 0, 4},  // two boundaries have one bar
      {"TZyPointWithErrorSeries",
       {"XData", "YData", "DeltaXPlus=a", "DeltaXMinus=b", "DeltaYPlus=b", "DeltaYMinus=a"},
       1.5,
       8,
       3,
       9},
      {"TZyBubbles", {"XData", "YData", "RadiusData=a", "Elliptical"}, 1, 8, 3, 10},
      {"TZyArrows", {"XData", "YData", "DeltaX=a", "DeltaY=b"}, 2, 8, 4, 9},
      {"TZyOHLC", {"XData", "CloseData=y", "LowData=l", "OpenData=y", "HighData=h"}, 2, 6, 3, 9},
      {"TZyCandleSticks", {"XData", "CloseData=y", "LowData=l", "OpenData=y", "HighData=h"}, 2, 6, 3, 9}};
  for (const TCase& Case : Cases) {
    SCOPED_TRACE(Case.Kind);
    const auto Classes = RegisteredClasses();
    const auto Found = std::ranges::find(Classes, Case.Kind, [](const TClassInfo* Info) { return Info->Name(); });
    ASSERT_NE(Found, Classes.end());
    auto& Kind = dynamic_cast<TZySeries&>(*(*Found)->Factory()(&Chart.Form));
    Kind.SetXAxis(Chart.X);
    Kind.SetYAxis(Chart.Y);
    std::vector<TZyDoubleVector*> Bound;
    for (const std::string& Input : Case.Inputs) {
      const std::string Name = Input.substr(0, Input.find('='));
      const TPropInfo& Info = *Kind.ClassInfo().FindProperty(Name);
      if (Name == "Elliptical") {
        Info.SetOrd(Kind, 1);
        continue;
      }
      auto* const Vector = Chart.AddVector(std::string(Case.Kind) + Name);
      Vector->SetDataSource(&Source);
      Vector->SetDataField(Name == "XData" ? "x" : Name == "YData" ? "y" : Input.substr(Input.find('=') + 1));
      Info.SetObject(Kind, Vector);
      Bound.push_back(Vector);
    }
    Query.Close();
    Open(
        "SELECT 2.0 AS x, 4.0 AS y, 1.0 AS a, 0.5 AS b, 3.0 AS l, 5.0 AS h, 0.0 AS t, 0.0 AS v UNION ALL "
        "SELECT 6.0, 8.0, 2.0, 1.0, 7.0, 9.0, 1.0, 1.0");
    for (const TZyDoubleVector* Vector : Bound) EXPECT_EQ(Vector->Count(), 2) << Vector->Name();
    EXPECT_EQ((std::array{Kind.XStart(), Kind.XStop(), Kind.YStart(), Kind.YStop()}),
              (std::array{Case.XStart, Case.XStop, Case.YStart, Case.YStop}));
    delete &Kind;
    for (TZyDoubleVector* Vector : Bound) delete Vector;
  }
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
