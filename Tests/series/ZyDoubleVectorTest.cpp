#include "series/ZyDoubleVector.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <random>
#include <string>

#include "framework/Bytes.h"
#include "framework/Errors.h"
#include "graph/SampleChart.h"
#include "platform/framework/Exceptions.h"
#include "platform/framework/TMemIniFile.h"
#include "platform/framework/XmlDocument.h"
#include "series/ZyVectors.h"

namespace zy::testing {
namespace {

constexpr double LargestDouble = std::numeric_limits<double>::max();
constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

TEST(ZyDoubleVectorTest, WritesPastTheEndFillUpWithZeros) {
  TZyDoubleVector Vector;
  Vector.SetValue(10, 3.5);
  ASSERT_EQ(Vector.Count(), 11);
  for (int i = 0; i < 10; ++i) EXPECT_EQ(Vector.GetValue(i), 0);
  EXPECT_EQ(Vector.GetValue(10), 3.5);
  EXPECT_EQ(Vector.Add(-1), 12) << "the new count";
  for (const int Outside : {-1, 12, std::numeric_limits<int>::min()})
    EXPECT_EQ(MessageOf<ERangeError>([&] { Vector.GetValue(Outside); }),
              "i=" + std::to_string(Outside) + " index out of range");
  EXPECT_THROW(Vector.SetValue(-1, 0), ERangeError);
  EXPECT_THROW(Vector.SetValue(std::numeric_limits<int>::max(), 0), ERangeError);
  EXPECT_EQ(Vector.Count(), 12);
}

TEST(ZyDoubleVectorTest, ScansOnlyForAReader) {
  TZyDoubleVector Vector;
  Vector.AddRange({3, 1, 4, 1, 4});
  EXPECT_TRUE(Vector.IsChanged());
  EXPECT_EQ(Vector.Minimum(), 1);
  EXPECT_FALSE(Vector.IsChanged());
  EXPECT_EQ(Vector.Maximum(), 4);
  EXPECT_EQ(Vector.GetMinimumIdx(), 1) << "the first of equal ones";
  EXPECT_EQ(Vector.GetMaximumIdx(), 2) << "the first of equal ones";
  EXPECT_EQ(Vector.Sum(), 13);
  EXPECT_FALSE(Vector.OnlyAscending());
  Vector.Add(9);
  EXPECT_TRUE(Vector.IsChanged());
  EXPECT_EQ(Vector.GetMaximumIdx(), 5);
  EXPECT_EQ(Vector.Sum(), 22);
}

TEST(ZyDoubleVectorTest, OnlyAscendingIsStrictAndNeverComesBack) {
  TZyDoubleVector Equal, Vector;
  Equal.AddRange({1, 2, 2});
  EXPECT_FALSE(Equal.OnlyAscending());
  Equal.Clear();
  Equal.AddRange({1, 2, 3});
  EXPECT_FALSE(Equal.OnlyAscending());
  // A write into values that were scanned already, between the extremes.
  Vector.AddRange({1, 2, 3, 4});
  EXPECT_TRUE(Vector.OnlyAscending());
  Vector.SetValue(1, 2.5);
  EXPECT_TRUE(Vector.OnlyAscending());
  Vector.SetValue(1, 3.5);
  EXPECT_FALSE(Vector.OnlyAscending());
  // Values that move along by one are in order again before anybody looks.
  TZyDoubleVector Window;
  Window.AddRange({1, 2, 3, 4});
  EXPECT_TRUE(Window.OnlyAscending());
  for (int i = 0; i < 3; ++i) Window.SetValue(i, Window.GetValue(i + 1));
  Window.SetValue(3, 5);
  EXPECT_TRUE(Window.OnlyAscending());
}

/// Values and marks kept in the plainest way.
struct TModel {
  struct TExtremes {
    double Least = LargestDouble, Greatest = -LargestDouble, Sum = 0;
    void Take(double n) {
      if (!std::isfinite(n)) return;
      Least = std::min(Least, n);
      Greatest = std::max(Greatest, n);
      Sum += n;
    }
  };
  std::vector<std::pair<double, bool>> Rows;  // value, and whether it is an outlier

  void Expect(TZyDoubleVector& Vector) const {
    TExtremes Plain, All;
    ASSERT_EQ(Vector.Count(), static_cast<int>(Rows.size()));
    for (std::size_t i = 0; i < Rows.size(); ++i) {
      ASSERT_EQ(Vector.IsOutlier(static_cast<int>(i)), Rows[i].second) << i;
      All.Take(Rows[i].first);
      if (!Rows[i].second) Plain.Take(Rows[i].first);
    }
    ASSERT_EQ(Vector.Minimum(), Plain.Least);
    ASSERT_EQ(Vector.Maximum(), Plain.Greatest);
    ASSERT_EQ(Vector.Sum(), Plain.Sum);
    ASSERT_EQ(Vector.MinimumIncludingOutliers(), All.Least);
    ASSERT_EQ(Vector.MaximumIncludingOutliers(), All.Greatest);
    ASSERT_EQ(Vector.SumIncludingOutliers(), All.Sum);
    const int LeastAt = Vector.MinimumIdx(), GreatestAt = Vector.MaximumIdx();
    ASSERT_EQ(LeastAt < 0 ? LargestDouble : Vector.GetValue(LeastAt), Plain.Least);
    ASSERT_EQ(GreatestAt < 0 ? -LargestDouble : Vector.GetValue(GreatestAt), Plain.Greatest);
  }
};

TEST(ZyDoubleVectorTest, ExtremesSumsAndMarksDescribeTheDataAfterAnyChange) {
  TZyDoubleVector Vector;
  TModel Model;
  std::mt19937 Random(1);
  const auto Roll = [&Random](std::size_t Below) { return static_cast<int>(Random() % Below); };
  const double Special[] = {NotANumber, Infinity, -Infinity};
  for (int Step = 0; Step < 20000; ++Step) {
    const double n = Roll(20) == 0 ? Special[Roll(3)] : Roll(41) - 20;
    const int Count = Vector.Count(), Any = Roll(static_cast<std::size_t>(Count) + 1);
    const auto At = Model.Rows.begin() + Any;
    switch (Roll(Count > 40 ? 6 : 4)) {
      case 0:
        Vector.Add(n);
        Model.Rows.emplace_back(n, false);
        break;
      case 1:
        EXPECT_EQ(Vector.Insert(Any, n), Count + 1);
        Model.Rows.emplace(At, n, false);
        break;
      case 2:
        Vector.SetValue(Any, n);
        if (Any == Count)
          Model.Rows.emplace_back(n, false);
        else
          At->first = n;
        break;
      case 3:
        if (Any == Count) break;
        Vector.SetOutlier(Any, !At->second);
        At->second = !At->second;
        break;
      default:
        Vector.Delete(Any);
        if (Any < Count) Model.Rows.erase(At);
    }
    if (Roll(3) == 0) continue;  // so that several writes meet one scan
    ASSERT_NO_FATAL_FAILURE(Model.Expect(Vector)) << Step;
  }
  Vector.ClearOutlieres();
  for (auto& Row : Model.Rows) Row.second = false;
  ASSERT_NO_FATAL_FAILURE(Model.Expect(Vector));
  Vector.Clear();
  EXPECT_EQ(Vector.Maximum(), -LargestDouble);
  EXPECT_THROW(Vector.Insert(1, 0), ERangeError);
}

TEST(ZyDoubleVectorTest, FindsTheExtremesOfAnyStretch) {
  std::mt19937 Random(2);
  TZyDoubleVector Vector;
  const auto Value = [&Random] { return Random() % 50 == 0 ? NotANumber : static_cast<double>(Random() % 1000); };
  for (int Round = 0; Round < 300; ++Round) {
    switch (Random() % 5) {
      case 0:
        for (auto i = Random() % 9000; i > 0; --i) Vector.Add(Value());
        break;
      case 1:
        if (Round % 10 == 1) Vector.Clear();
        break;
      case 2:
        for (auto i = Random() % 500; i > 0; --i) Vector.Delete(Vector.Count() - 1);
        break;
      default:
        if (Vector.Count() > 0)
          Vector.SetValue(static_cast<int>(Random() % static_cast<unsigned>(Vector.Count())), 2000);
    }
    const int Count = Vector.Count();
    if (Count == 0) continue;
    for (int Try = 0; Try < 10; ++Try) {
      int First = static_cast<int>(Random() % static_cast<unsigned>(Count));
      int Last = static_cast<int>(Random() % static_cast<unsigned>(Count)) + 1;
      if (First > Last) std::swap(First, Last);
      double Least = Infinity, Greatest = -Infinity;
      for (int i = First; i < Last; ++i)
        if (const double n = Vector.GetValue(i); std::isfinite(n))
          Least = std::min(Least, n), Greatest = std::max(Greatest, n);
      const TZyExtremes Found = Vector.FindExtremes(First, Last);
      ASSERT_EQ(Found.Minimum < 0 ? Infinity : Vector.GetValue(Found.Minimum), Least) << Round;
      ASSERT_EQ(Found.Maximum < 0 ? -Infinity : Vector.GetValue(Found.Maximum), Greatest) << Round;
      ASSERT_TRUE(Found.Minimum < 0 || (Found.Minimum >= First && Found.Minimum < Last));
    }
  }
}

TEST(ZyDoubleVectorTest, SmallVectorsKeepWhatLiesBehindTheirCount) {
  TZyIntegerVector Small(3);
  EXPECT_EQ(Small.Capacity(), 3);
  for (int i = 0; i < 4; ++i) EXPECT_EQ(Small.Add(i + 10), i + 1);
  EXPECT_EQ(Small.Capacity(), 6);
  Small.Delete(1);
  Small.Delete(9);
  EXPECT_EQ(Small.GetValue(1), 12);
  EXPECT_THROW(Small.GetValue(3), ERangeError);
  Small.Clear();
  Small.CheckCount(2);
  EXPECT_EQ(Small.GetValue(0), 10) << "the storage stays";
  Small.SetCount(1);
  EXPECT_EQ(Small.Capacity(), 1) << "it can shrink";
  TZyPointVector Points;
  Points.SetY(1, 5);
  EXPECT_EQ(Points.Count(), 2);
  int Walked = 0;
  for (auto Enum = Points.GetEnumerator(); Enum.MoveNext(); ++Walked) EXPECT_EQ(Enum.GetCurrent().X, 0);
  EXPECT_EQ(Walked, 2);
}

TEST(ZyDoubleVectorTest, CapacityGrowsByTheIncrement) {
  TZyDoubleVector Vector;
  Vector.SetIncrement(200);
  Vector.SetValue(127, 1);
  EXPECT_EQ(Vector.Capacity(), 128);
  Vector.Add(1);
  EXPECT_EQ(Vector.Capacity(), 328);
  Vector.SetValue(999, 1);
  EXPECT_EQ(Vector.Capacity(), 1128) << "as many steps as it takes";
  Vector.SetCapacity(1000);
  EXPECT_EQ(Vector.Capacity(), 1128) << "not above the count";
  Vector.SetCapacity(1001);
  EXPECT_EQ(Vector.Capacity(), 1001);
  Vector.SetCapacity(std::numeric_limits<int>::max());  // no promise of memory
  EXPECT_EQ(Vector.Count(), 1000);
  Vector.Clear();
  EXPECT_EQ(Vector.Capacity(), std::numeric_limits<int>::max());
  EXPECT_EQ(Vector.Count(), 0);
  Vector.SetInternalArray(std::vector<double>(300, 1.0));
  EXPECT_EQ(Vector.Count(), 300);
  EXPECT_EQ(Vector.Capacity(), 300) << "both are the length of the array";
}

TEST(ZyDoubleVectorTest, TellsItsSeriesNoMoreThanIsDue) {
  TSampleChart Chart;
  TZyLineSeries* const Series = Chart.AddSeries("Series", {0, 1, 2, 3}, {0, 1, 5, 9});
  TZyCustomDoubleVector& Y = *Series->YData();
  const auto Requests = [&](const std::function<void()>& Step) {
    Chart.Paint();
    Chart.Graph->Invalidations = 0;
    Step();
    return Chart.Graph->Invalidations;
  };
  EXPECT_EQ(Requests([&] { Y.SetValue(1, 1); }), 0) << "what is there already";
  EXPECT_EQ(Requests([&] { Y.SetValue(1, 2); }), 1);
  EXPECT_EQ(Requests([&] { Y.Add(4); }), 1);
  EXPECT_EQ(Series->YStop(), 9);
  // Ranges that go make no request of their own: the series takes them anew when it is asked next.
  EXPECT_EQ(Requests([&] { Y.SetValue(3, 7); }), 0) << "the maximum";
  Series->Calculate();
  EXPECT_EQ(Series->YStop(), 7);
  const std::vector<double> Many(1000, 20.0);
  EXPECT_LE(Requests([&] { dynamic_cast<TZyDoubleVector&>(Y).AddRange(Many); }), 1) << "a thousand values at once";
  EXPECT_GE(Requests([&] { Y.Clear(); }), 1);
  EXPECT_GT(Series->YStart(), Series->YStop()) << "no range";
}

TEST(ZyDoubleVectorTest, DataThatAreNotFiniteLeaveTheAxesAlone) {
  for (const double Bad : {NotANumber, Infinity, -Infinity}) {
    TSampleChart Chart;
    TZyLineSeries* const Series = Chart.AddSeries("Series", {0, 1, 2, 3, 4}, {0, 1, Bad, 3, 10});
    Series->XData()->Add(5);
    Series->XData()->Add(Bad);  // without a partner
    Chart.Paint();
    EXPECT_EQ(Chart.X->Start(), 0) << Bad;
    EXPECT_EQ(Chart.X->Stop(), 4) << Bad;
    EXPECT_EQ(Chart.Y->Start(), 0) << Bad;
    EXPECT_EQ(Chart.Y->Stop(), 10) << Bad;
    for (const PointF& Point : Series->Points()) EXPECT_TRUE(std::isfinite(Point.X) && std::isfinite(Point.Y)) << Bad;
    Series->YData()->SetValue(2, 2);
    Chart.Paint();
    EXPECT_EQ(Series->YData()->Sum(), 16) << Bad;
    Series->YData()->Clear();
    Series->XData()->Clear();
    for (int i = 0; i < 5; ++i) {
      Series->XData()->Add(Bad);
      Series->YData()->Add(Bad);
    }
    Chart.Paint();
    EXPECT_EQ(Chart.X->Stop(), 10) << "as without data, " << Bad;
  }
}

/// The record of the vector "V" of a form "Form": increment 200, capacity 400, the values 1, -2.5.
std::string Record(bool WithOutliers = false) {
  using namespace std::string_literals;
  return "\x06\0\0\0"s + "Form.V" +         // reference
         "\xC8\0\0\0"s + "\x90\x01\0\0"s +  // increment, capacity
         "\0"s +                            // not linked to a database
         "\x02\0\0\0"s +                    // count
         "\0\0\0\0\0\0\xF0\x3F"s + "\0\0\0\0\0\0\x04\xC0"s +
         (WithOutliers ? "\x01\x01\0\0\0\x01\0\0\0"s : "\0"s) +  // outliers
         "\0"s;                                                  // no continuation
}

TEST(ZyDoubleVectorTest, StreamsItsRecordByteForByte) {
  TForm Form;
  Form.SetName("Form");
  TZyDoubleVector Vector(&Form);
  Vector.SetName("V");
  Vector.SetIncrement(200);
  Vector.AddRange({1, -2.5});
  Vector.SetCapacity(400);
  TMemoryStream Written;
  Vector.WriteTo(Written);
  EXPECT_EQ(AsText(Written), Record());

  for (const bool WithOutliers : {false, true}) {
    TMemoryStream Stream(AsBytes(Record(WithOutliers)));
    TZyDoubleVector Other;
    Other.AddRange({7, 8, 9});
    Other.ReadFrom(Stream);
    EXPECT_EQ(Stream.Remaining(), 0);
    EXPECT_EQ(Other.Increment(), 200);
    EXPECT_EQ(Other.Capacity(), 400);
    ASSERT_EQ(Other.Count(), 2);
    EXPECT_EQ(Other.IsOutlier(1), WithOutliers);
    EXPECT_EQ(Other.Minimum(), WithOutliers ? 1 : -2.5);
    EXPECT_EQ(Other.MinimumIncludingOutliers(), -2.5);
    EXPECT_EQ(Other.Maximum(), 1);
  }
}

TEST(ZyDoubleVectorTest, TextFormsKeepValuesAndMarks) {
  TZyDoubleVector Vector;
  Vector.SetName("V");
  Vector.SetIncrement(300);
  Vector.AddRange({0.1, -1e300, 1.0 / 3, NotANumber});
  Vector.AddOutlier(2);
  TXMLDocument Document("Chart");
  const IXMLNode Root = Document.DocumentElement();
  Vector.WriteTo(Root);
  TMemIniFile Ini;
  Vector.WriteTo(Ini, "S");
  EXPECT_EQ(Ini.ReadString("S", "Outliers", ""), "2");
  EXPECT_EQ(Root.Node("TZyDoubleVector").Node("Values").ChildNode(0).Text(), "0.1");
  for (const bool Xml : {true, false}) {
    TZyDoubleVector Other;
    Other.Add(5);
    if (Xml)
      Other.ReadFrom(Root);
    else
      Other.ReadFrom(Ini, "S");
    ASSERT_EQ(Other.Count(), 4);
    EXPECT_EQ(Other.Increment(), 300);
    EXPECT_EQ(Other.GetValue(2), 1.0 / 3);
    EXPECT_TRUE(std::isnan(Other.GetValue(3)));
    EXPECT_TRUE(Other.IsOutlier(2));
    EXPECT_EQ(Other.Maximum(), 0.1);
  }
  Ini.WriteString("S", "Values", "1 2 three");
  TZyDoubleVector Broken;
  EXPECT_THROW(Broken.ReadFrom(Ini, "S"), EConvertError);
  Ini.WriteString("S", "Values", "None");
  Broken.ReadFrom(Ini, "S");
  EXPECT_EQ(Broken.Count(), 0);
}

TEST(ZyDoubleVectorTest, RefusesBrokenRecords) {
  const std::string Whole = Record(true);
  for (std::size_t Length = 0; Length < Whole.size(); ++Length) {
    TMemoryStream Stream(AsBytes(Whole.substr(0, Length)));
    TZyDoubleVector Vector;
    EXPECT_THROW(Vector.ReadFrom(Stream), EReadError) << Length;
    Vector.Add(5);
    EXPECT_EQ(Vector.Maximum(), 5) << Length;
  }
  const std::size_t CountAt = 4 + 6 + 4 + 4 + 1;
  for (const char* Count : {"\xFF\xFF\xFF\x7F", "\x05\x01\x01\x01"}) {
    std::string Broken = Whole;
    Broken.replace(CountAt, 4, Count, 4);
    TMemoryStream Stream(AsBytes(Broken));
    TZyDoubleVector Vector;
    EXPECT_THROW(Vector.ReadFrom(Stream), EReadError);
    EXPECT_EQ(Vector.Count(), 0);
  }
}

}  // namespace
}  // namespace zy::testing
