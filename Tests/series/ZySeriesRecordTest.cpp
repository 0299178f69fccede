// The records of series in the three forms.

#include <gtest/gtest.h>

#include "graph/SampleChart.h"
#include "platform/framework/TMemIniFile.h"
#include "platform/framework/XmlDocument.h"
#include "series/ZyBubbles.h"
#include "series/ZyMovingAverage.h"
#include "series/ZyOHLC.h"
#include "series/ZyPointSeries.h"

namespace zy::testing {
namespace {

/// One of each kind that has fields of its own, with values that no new series has.
class ZySeriesRecordTest : public ::testing::Test {
 protected:
  ZySeriesRecordTest() {
    Chart.AddVector("V", {1, 2, 3});
    for (const bool IsFilled : {true, false}) {
      auto& All = IsFilled ? Filled : Empty;
      const std::string Ending = IsFilled ? "" : "Read";
      All = {New<TZyPointSeries>("Points" + Ending), New<TZyBubbles>("Bubbles" + Ending), New<TZyOHLC>("OHLC" + Ending),
             New<TZyMovingAverage>("Average" + Ending)};
    }
    TZyCustomDoubleVector* const V = Vector();
    for (TZySeries* Series : Filled) {
      Series->SetCaption("two\r\nlines of " + Series->Name());
      Series->SetVisible(false);
      Series->SetLayer(3);
      Series->Line().SetWidth(2.5);
      Series->Area().SetForeColor(0x80102030);
      Series->SetXAxis(Chart.X);
      Series->SetYAxis(Chart.Y);
      Series->SetYData(V);
      Series->SetMergeLegendItemWith(Filled[0]);
    }
    auto& Points = As<TZyPointSeries>(0);
    Points.PointSymbol().SetSize(9.25);
    Points.OutOfRangePointSymbol().SetPointSymbol(TZyPointSymbol::Delta);
    Points.SetRangeFromFunction(&As<TZyMovingAverage>(3));
    As<TZyBubbles>(1).SetElliptical(true);
    As<TZyBubbles>(1).SetRadiusData(V);
    As<TZyOHLC>(2).SetBarWidth(7.5);
    As<TZyOHLC>(2).SetLowData(V);
    As<TZyOHLC>(2).SetIndicatorLength(0);
    As<TZyMovingAverage>(3).SetN(4.75);
    As<TZyMovingAverage>(3).SetAveragingMethod(TZyAveragingMethod::ExponentiallyWeighted);
    As<TZyMovingAverage>(3).SetDisplayAutoStop(false);
    As<TZyMovingAverage>(3).SetDisplayStop(1e-300);
    As<TZyMovingAverage>(3).SetWeight(V);
  }
  template <class T>
  T* New(const std::string& Name) {
    auto* const Series = new T(&Chart.Form);
    Series->SetName(Name);
    return Series;
  }
  template <class T>
  T& As(std::size_t i) {
    return dynamic_cast<T&>(*Filled[i]);
  }
  TZyCustomDoubleVector* Vector() { return dynamic_cast<TZyDoubleVector*>(Chart.Form.FindComponent("V")); }
  static std::string BytesOf(const TZySeries& Series) {
    TMemoryStream Stream;
    Series.WriteTo(Stream);
    return {reinterpret_cast<const char*>(Stream.Bytes().data()), Stream.Bytes().size()};
  }
  /// The bytes behind class name and reference, which are the series' own.
  static std::string FieldsOf(const TZySeries& Series) {
    const std::string Reference = "Form." + Series.Name();
    return BytesOf(Series).substr(8 + std::string(Series.ClassName()).size() + Reference.size());
  }

  TSampleChart Chart;
  std::vector<TZySeries*> Filled, Empty;
};

TEST_F(ZySeriesRecordTest, EveryFormBringsBackAllFields) {
  for (std::size_t i = 0; i < Filled.size(); ++i)
    for (const char* Form : {"stream", "XML", "INI"}) {
      SCOPED_TRACE(std::string(Filled[i]->ClassName()) + " " + Form);
      TZySeries& Target = *Empty[i];
      const std::string Before = FieldsOf(Target), Whole = BytesOf(Target);
      TMemoryStream Stream;
      Filled[i]->WriteTo(Stream);
      Stream.SetPosition(0);
      const TXMLDocument Document("Chart");
      Filled[i]->WriteTo(Document.DocumentElement());
      TMemIniFile Ini;
      Filled[i]->WriteTo(Ini, "Series");
      if (*Form == 's') Target.ReadFrom(Stream);
      if (*Form == 'X') Target.ReadFrom(Document.DocumentElement());
      if (*Form == 'I') Target.ReadFrom(Ini, "Series");
      EXPECT_EQ(FieldsOf(Target), FieldsOf(*Filled[i]));
      TMemoryStream Old;
      Old.WriteBuffer(Whole.data(), Whole.size());
      Old.SetPosition(0);
      Target.ReadFrom(Old);
      EXPECT_EQ(FieldsOf(Target), Before) << "and takes them back";
    }
}

TEST_F(ZySeriesRecordTest, KindsAddTheirFieldsBehindThoseOfTheBase) {
  const std::string Base = FieldsOf(*Filled[1]);
  const std::string Reference("\x06\0\0\0Form.V", 10);
  EXPECT_TRUE(Base.ends_with(std::string("\0\x01", 2) + Reference + '\0'))
      << "end of the base, elliptical, radius, end";
  EXPECT_TRUE(FieldsOf(*Filled[2])
                  .ends_with(Reference + std::string("\0\0\xF0\x40\0"
                                                     "\0\0\0\0\0",
                                                     10)))
      << "low, 7.5f, end; 0.0f, end";
}

}  // namespace
}  // namespace zy::testing
