#include "series/vectors/ZyDoubleVector.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <limits>
#include <random>
#include <string>

#include "framework/Bytes.h"
#include "framework/Errors.h"
#include "graph/SampleChart.h"
#include "platform/framework/TMemIniFile.h"
#include "series/ZyPointVector.h"
#include "texts/Exceptions.h"

namespace zy::testing {
namespace {

constexpr double LargestDouble = std::numeric_limits<double>::max();
constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

std::vector<double> ValuesOf(const TZyDoubleVector& Vector) { return {Vector.Values().begin(), Vector.Values().end()}; }

TEST(ZyDoubleVectorTest, WritesPastTheEndFillUpWithZeros) {
  TZyDoubleVector Vector;
  Vector.SetValue(3, 3.5);
  EXPECT_EQ(Vector.Add(-1), 5) << "the new count";
  EXPECT_EQ(ValuesOf(Vector), (std::vector<double>{0, 0, 0, 3.5, -1}));
  for (const int Outside : {-1, 5, std::numeric_limits<int>::min()})
    EXPECT_EQ(MessageOf<ERangeError>([&] { Vector.GetValue(Outside); }),
              "i=" + std::to_string(Outside) + " index out of range");
  for (const int Outside : {-1, std::numeric_limits<int>::max()})
    EXPECT_THROW(Vector.SetValue(Outside, 0), ERangeError) << Outside;
  EXPECT_EQ(Vector.Count(), 5);
}

TEST(ZyDoubleVectorTest, ScansOnlyForAReader) {
  TZyDoubleVector Vector;
  Vector.AddRange({3, 1, 4, 1, 4});
  EXPECT_TRUE(Vector.IsChanged());
  EXPECT_EQ(Vector.GetMinimumIdx(), 1) << "the first of equal ones";
  EXPECT_FALSE(Vector.IsChanged());
  EXPECT_EQ(Vector.GetMaximumIdx(), 2) << "the first of equal ones";
  Vector.Add(9);
  EXPECT_TRUE(Vector.IsChanged());
}

TEST(ZyDoubleVectorTest, OnlyAscendingIsStrictAndNeverComesBack) {
  TZyDoubleVector Equal, Vector;
  for (const double Last : {2, 3}) {
    Equal.Clear();
    Equal.AddRange({1, 2, Last});
    EXPECT_FALSE(Equal.OnlyAscending()) << Last;
  }
  Vector.AddRange({1, 2, 3, 4});
  EXPECT_TRUE(Vector.OnlyAscending());
  // Values that move along by one are in order again before anybody looks.
  for (int i = 0; i < 3; ++i) Vector.SetValue(i, Vector.GetValue(i + 1));
  Vector.SetValue(3, 5);
  EXPECT_TRUE(Vector.OnlyAscending());
  // A write into values that were scanned already, between the extremes.
  for (const double n : {3.5, 4.5}) {
    Vector.SetValue(1, n);
    EXPECT_EQ(Vector.OnlyAscending(), n < 4) << n;
  }
  // Among those that count, whatever outliers lie between.
  TZyDoubleVector Marked;
  Marked.AddRange({1, 2, 3, 5, 0, 6, 7});
  Marked.AddOutlier(4);
  ASSERT_TRUE(Marked.OnlyAscending());
  Marked.SetValue(5, 2.5);
  EXPECT_FALSE(Marked.OnlyAscending());
}

/// Values and marks kept in the plainest way.
struct TModel {
  using TExtremes = std::array<double, 3>;    // least, greatest, sum
  std::vector<std::pair<double, bool>> Rows;  // value, and whether it is an outlier

  /// Compares all of a vector, and the extremes of its values from First up to Last.
  void Expect(TZyDoubleVector& Vector, int First, int Last) const {
    TExtremes Plain{LargestDouble, -LargestDouble, 0}, All = Plain, Stretch = Plain;
    const auto Take = [](TExtremes& To, double n) { To = {std::min(To[0], n), std::max(To[1], n), To[2] + n}; };
    ASSERT_EQ(Vector.Count(), static_cast<int>(Rows.size()));
    for (int i = 0; i < Vector.Count(); ++i) {
      const auto& [Value, IsOutlier] = Rows[static_cast<std::size_t>(i)];
      ASSERT_EQ(Vector.IsOutlier(i), IsOutlier) << i;
      if (!std::isfinite(Value)) continue;
      Take(All, Value);
      if (!IsOutlier) Take(Plain, Value);
      if (i >= First && i < Last) Take(Stretch, Value);
    }
    ASSERT_EQ((TExtremes{Vector.Minimum(), Vector.Maximum(), Vector.Sum()}), Plain);
    ASSERT_EQ((TExtremes{Vector.MinimumIncludingOutliers(), Vector.MaximumIncludingOutliers(),
                         Vector.SumIncludingOutliers()}),
              All);
    const auto ExpectAt = [&](int Least, int Greatest, const TExtremes& Wanted) {
      ASSERT_EQ(Least < 0 ? LargestDouble : Vector.GetValue(Least), Wanted[0]);
      ASSERT_EQ(Greatest < 0 ? -LargestDouble : Vector.GetValue(Greatest), Wanted[1]);
    };
    ExpectAt(Vector.MinimumIdx(), Vector.MaximumIdx(), Plain);
    const TZyExtremes Found = Vector.FindExtremes(First, Last);
    ExpectAt(Found.Minimum, Found.Maximum, Stretch);
    ASSERT_TRUE(Found.Minimum < 0 || (Found.Minimum >= First && Found.Minimum < Last));
  }
};

TEST(ZyDoubleVectorTest, ExtremesSumsAndMarksDescribeTheDataAfterAnyChange) {
  TZyDoubleVector Vector;
  TModel Model;
  std::mt19937 Random(1);
  const auto Roll = [&Random](int Below) { return static_cast<int>(Random() % static_cast<unsigned>(Below)); };
  const double Special[] = {NotANumber, Infinity, -Infinity};
  for (int Step = 0; Step < 10000; ++Step) {
    const int Range = Step > 8000 ? 1000 : 41;  // with many equal ones
    const double n = Roll(20) == 0 ? Special[Roll(3)] : Roll(Range) - 20;
    const int Any = Roll(Vector.Count() + 1), Way = Roll(500);
    const auto At = Model.Rows.begin() + Any;
    if (Way == 0 && Step > 8000) {  // long ones later, so that the extremes of short ones go often
      for (int i = Roll(9000); i > 0; --i) {
        Model.Rows.emplace_back(Roll(Range) - 20, false);
        Vector.Add(Model.Rows.back().first);
      }
    } else if (Way == 1) {
      Vector.DeleteRange(Any, std::numeric_limits<int>::max());
      Model.Rows.resize(static_cast<std::size_t>(Any));
    } else if (Way < 20) {
      const std::vector<double> Many(static_cast<std::size_t>(Roll(4)), n);
      Vector.InsertRange(Any, Many);
      for (const double Each : Many) Model.Rows.emplace(Model.Rows.begin() + Any, Each, false);
    } else if (Way < 35) {
      const int Number = Roll(4);
      Vector.DeleteRange(Any, Number);
      Model.Rows.erase(At, At + std::min(Number, static_cast<int>(Model.Rows.end() - At)));
    } else if (Way < 100) {
      EXPECT_EQ(Vector.Insert(Any, n), static_cast<int>(Model.Rows.size()) + 1);
      Model.Rows.emplace(At, n, false);
    } else if (Way < 300) {
      Vector.SetValue(Any, n);
      At == Model.Rows.end() ? static_cast<void>(Model.Rows.emplace_back(n, false)) : static_cast<void>(At->first = n);
    } else if (At != Model.Rows.end() && Way < 400) {
      Vector.SetOutlier(Any, !At->second);
      At->second = !At->second;
    } else {
      Vector.Delete(Any);
      if (At != Model.Rows.end()) Model.Rows.erase(At);
    }
    if (Roll(3) == 0) continue;  // so that several writes meet one scan
    const auto [First, Last] = std::minmax({Roll(Vector.Count() + 1), Roll(Vector.Count() + 1)});
    ASSERT_NO_FATAL_FAILURE(Model.Expect(Vector, First, Last)) << Step;
  }
  Vector.ClearOutlieres();
  for (auto& Row : Model.Rows) Row.second = false;
  ASSERT_NO_FATAL_FAILURE(Model.Expect(Vector, 0, Vector.Count()));
  Vector.Clear();
  ASSERT_NO_FATAL_FAILURE(TModel().Expect(Vector, 0, 0));
  EXPECT_THROW(Vector.Insert(1, 0), ERangeError);
}

TEST(ZyDoubleVectorTest, SmallVectorsKeepWhatLiesBehindTheirCount) {
  TZyIntegerVector Small(3);
  for (int i = 0; i < 4; ++i) EXPECT_EQ(Small.Add(i + 10), i + 1);
  EXPECT_EQ(Small.Capacity(), 6);
  for (const int Index : {1, 9}) Small.Delete(Index);
  EXPECT_EQ(Small.GetValue(1), 12);
  EXPECT_THROW(Small.GetValue(3), ERangeError);
  Small.Clear();
  Small.CheckCount(2);
  EXPECT_EQ(Small.GetValue(0), 10) << "the storage stays";
  Small.SetCount(1);
  EXPECT_EQ(Small.Capacity(), 1) << "it can shrink";
  TZyPointVector Points;
  Points.SetY(1, 5);
  float Sum = 0;
  for (auto Enum = Points.GetEnumerator(); Enum.MoveNext();) Sum += Enum.GetCurrent().Y + 1;
  EXPECT_EQ(Sum, 7) << "(0, 0) and (0, 5)";
}

TEST(ZyDoubleVectorTest, CapacityGrowsByTheIncrement) {
  TZyDoubleVector Vector;
  Vector.SetIncrement(200);
  const std::pair<int, int> Writes[] = {{127, 128}, {128, 328}, {999, 1128}};  // as many steps as it takes
  for (const auto& [Index, Capacity] : Writes) {
    Vector.SetValue(Index, 1);
    EXPECT_EQ(Vector.Capacity(), Capacity);
  }
  const int Huge = std::numeric_limits<int>::max();  // no promise of memory
  // Not what is not above the count.
  const std::pair<int, int> Requests[] = {{1000, 1128}, {1001, 1001}, {Huge, Huge}};
  for (const auto& [Asked, Capacity] : Requests) {
    Vector.SetCapacity(Asked);
    EXPECT_EQ(Vector.Capacity(), Capacity);
  }
  Vector.SetInternalArray(std::vector<double>(300, 1.0));
  EXPECT_EQ(std::pair(Vector.Count(), Vector.Capacity()), std::pair(300, 300)) << "the length of the array";
}

TEST(ZyDoubleVectorTest, TellsItsSeriesNoMoreThanIsDue) {
  TSampleChart Chart;
  TZyLineSeries* const Series = Chart.AddSeries("Series", {0, 1, 2, 3}, {0, 1, 5, 9});
  auto& Y = dynamic_cast<TZyDoubleVector&>(*Series->YData());
  const auto Requests = [&](const std::function<void()>& Step) {
    Chart.Paint();
    Chart.Graph->Invalidations = 0;
    Step();
    return Chart.Graph->Invalidations;
  };
  EXPECT_EQ(Requests([&] { Y.SetValue(1, 1); }), 0) << "what is there already";
  EXPECT_EQ(Requests([&] { Y.SetValue(1, 2); }), 1);
  EXPECT_EQ(Requests([&] { Y.Add(4); }), 1);
  // Ranges that go make no request of their own: the series takes them anew when it is asked next.
  EXPECT_EQ(Requests([&] { Y.SetValue(3, 7); }), 0) << "the maximum";
  EXPECT_EQ(Series->YStop(), 9);
  Series->Calculate();
  EXPECT_EQ(Series->YStop(), 7);
  EXPECT_LE(Requests([&] { Y.AddRange(std::vector<double>(1000, 20)); }), 1) << "a thousand values at once";
  EXPECT_GE(Requests([&] { Y.Clear(); }), 1);
  EXPECT_GT(Series->YStart(), Series->YStop()) << "no range";
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
    EXPECT_EQ(std::pair(Other.Increment(), Other.Capacity()), std::pair(200, 400));
    EXPECT_EQ(ValuesOf(Other), (std::vector<double>{1, -2.5}));
    EXPECT_EQ(Other.IsOutlier(1), WithOutliers);
    EXPECT_EQ(Other.Minimum(), WithOutliers ? 1 : -2.5);
  }
}

TEST(ZyDoubleVectorTest, RefusesBrokenRecords) {
  const std::string Whole = Record(true);
  std::vector<std::string> Bad;
  for (std::size_t Length = 0; Length < Whole.size(); ++Length) Bad.push_back(Whole.substr(0, Length));
  for (const char* Count : {"\xFF\xFF\xFF\x7F", "\x05\x01\x01\x01"})
    Bad.push_back(std::string(Whole).replace(4 + 6 + 4 + 4 + 1, 4, Count, 4));
  for (const std::string& Bytes : Bad) {
    TMemoryStream Stream(AsBytes(Bytes));
    TZyDoubleVector Vector;
    EXPECT_THROW(Vector.ReadFrom(Stream), EReadError) << Bytes.size();
    Vector.Add(5);
    EXPECT_EQ(Vector.Maximum(), 5) << Bytes.size();
  }
  TMemIniFile Ini;
  TZyDoubleVector Vector;
  Vector.Add(5);
  Vector.WriteTo(Ini, "S");
  for (const auto& [Values, Count] : {std::pair("1 2 three", -1), {"None", 0}}) {
    Ini.WriteString("S", "Values", Values);
    EXPECT_EQ(MessageOf<EConvertError>([&] { Vector.ReadFrom(Ini, "S"); }).empty(), Count == 0);
  }
  EXPECT_EQ(Vector.Count(), 0);
}

}  // namespace
}  // namespace zy::testing
