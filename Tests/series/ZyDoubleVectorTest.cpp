#include "series/ZyDoubleVector.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <functional>
#include <limits>
#include <string>

#include "graph/SampleChart.h"
#include "platform/framework/Exceptions.h"

namespace zy::testing {
namespace {

constexpr double LargestDouble = std::numeric_limits<double>::max();
constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

TEST(ZyDoubleVectorTest, AnEmptyVectorHasNoExtremes) {
  TZyDoubleVector Vector;
  EXPECT_EQ(Vector.Count(), 0);
  EXPECT_EQ(Vector.Minimum(), LargestDouble);
  EXPECT_EQ(Vector.Maximum(), -LargestDouble);
  EXPECT_EQ(Vector.GetMinimumIdx(), -1);
  EXPECT_EQ(Vector.GetMaximumIdx(), -1);
  EXPECT_EQ(Vector.Sum(), 0);
  EXPECT_TRUE(Vector.OnlyAscending());
  EXPECT_FALSE(Vector.IsChanged());
  EXPECT_THROW(Vector.GetValue(0), ERangeError);
}

TEST(ZyDoubleVectorTest, WritesPastTheEndFillUpWithZeros) {
  TZyDoubleVector Vector;
  Vector.SetValue(10, 3.5);
  ASSERT_EQ(Vector.Count(), 11);
  for (int i = 0; i < 10; ++i) EXPECT_EQ(Vector.GetValue(i), 0);
  EXPECT_EQ(Vector.GetValue(10), 3.5);
  EXPECT_EQ(Vector.Add(-1), 12) << "the new count";
  for (const int Outside : {-1, 12, std::numeric_limits<int>::min()}) {
    try {
      Vector.GetValue(Outside);
      ADD_FAILURE() << Outside;
    } catch (const ERangeError& Error) {
      EXPECT_EQ(std::string(Error.what()), "i=" + std::to_string(Outside) + " index out of range");
    }
  }
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

// Against plain loops over the values, after each of many random writes.
TEST(ZyDoubleVectorTest, ExtremesAndSumDescribeTheDataAfterAnyWrite) {
  TZyDoubleVector Vector;
  unsigned Seed = 12345;
  const auto Random = [&Seed](unsigned Below) {
    Seed = Seed * 1664525u + 1013904223u;
    return static_cast<int>((Seed >> 8) % Below);
  };
  const double Special[] = {NotANumber, Infinity, -Infinity};
  for (int Step = 0; Step < 3000; ++Step) {
    const int Choice = Random(20);
    const double Value = Choice == 0 ? Special[Random(3)] : Random(41) - 20;
    if (Choice == 1 && Random(5) == 0) {
      Vector.Clear();
    } else {
      Vector.SetValue(Random(static_cast<unsigned>(std::min(Vector.Count(), 30)) + 1), Value);
    }
    if (Random(3) == 0) continue;  // so that several writes meet one scan
    double Least = LargestDouble, Greatest = -LargestDouble, Sum = 0;
    for (const double n : Vector.Values()) {
      Least = std::min(Least, std::isfinite(n) ? n : Least);
      Greatest = std::max(Greatest, std::isfinite(n) ? n : Greatest);
      Sum += std::isfinite(n) ? n : 0;
    }
    ASSERT_EQ(Vector.Minimum(), Least) << Step;
    ASSERT_EQ(Vector.Maximum(), Greatest) << Step;
    const int LeastAt = Vector.GetMinimumIdx(), GreatestAt = Vector.GetMaximumIdx();
    ASSERT_EQ(LeastAt < 0 ? LargestDouble : Vector.GetValue(LeastAt), Least) << Step;
    ASSERT_EQ(GreatestAt < 0 ? -LargestDouble : Vector.GetValue(GreatestAt), Greatest) << Step;
    ASSERT_EQ(Vector.Sum(), Sum) << Step;
  }
}

TEST(ZyDoubleVectorTest, CapacityGrowsByTheIncrement) {
  TZyDoubleVector Vector;
  EXPECT_EQ(Vector.Capacity(), 128);
  EXPECT_EQ(Vector.Increment(), 128);
  Vector.SetIncrement(100);
  EXPECT_EQ(Vector.Increment(), 128) << "too small";
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
}

TEST(ZyDoubleVectorTest, AddsRangesOfEachKind) {
  TZyDoubleVector Vector;
  const double Doubles[] = {0.1};
  const float Floats[] = {0.5f, -2.0f};
  const int Integers[] = {7};
  Vector.AddRange(Doubles);
  Vector.AddRange(Floats);
  Vector.AddRange(Integers);
  Vector.AddRange({1, 2});
  Vector.AddRange(std::span<const double>());
  const auto Values = Vector.Values();
  EXPECT_EQ(std::vector(Values.begin(), Values.end()), (std::vector<double>{0.1, 0.5, -2, 7, 1, 2}));
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

std::span<const std::byte> BytesOf(const std::string& Text) { return std::as_bytes(std::span(Text)); }

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
  std::string Expected = Record();
  const auto Bytes = Written.Bytes();
  std::string Text(Bytes.size(), '\0');
  std::memcpy(Text.data(), Bytes.data(), Bytes.size());
  EXPECT_EQ(Text, Expected);

  for (const bool WithOutliers : {false, true}) {
    TMemoryStream Stream(BytesOf(Record(WithOutliers)));
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

TEST(ZyDoubleVectorTest, RefusesBrokenRecords) {
  const std::string Whole = Record(true);
  for (std::size_t Length = 0; Length < Whole.size(); ++Length) {
    TMemoryStream Stream(BytesOf(Whole.substr(0, Length)));
    TZyDoubleVector Vector;
    EXPECT_THROW(Vector.ReadFrom(Stream), EReadError) << Length;
    Vector.Add(5);
    EXPECT_EQ(Vector.Maximum(), 5) << Length;
  }
  const std::size_t CountAt = 4 + 6 + 4 + 4 + 1;
  for (const char* Count : {"\xFF\xFF\xFF\x7F", "\x05\x01\x01\x01"}) {
    std::string Broken = Whole;
    Broken.replace(CountAt, 4, Count, 4);
    TMemoryStream Stream(BytesOf(Broken));
    TZyDoubleVector Vector;
    EXPECT_THROW(Vector.ReadFrom(Stream), EReadError);
    EXPECT_EQ(Vector.Count(), 0);
  }
}

}  // namespace
}  // namespace zy::testing
