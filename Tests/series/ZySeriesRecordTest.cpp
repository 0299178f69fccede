// The records of all kinds of series in the three forms.

#include <gtest/gtest.h>

#include "framework/Bytes.h"
#include "graph/SampleChart.h"
#include "platform/framework/TMemIniFile.h"
#include "platform/framework/XmlDocument.h"
#include "series/ZyArrows.h"
#include "series/ZyBubbles.h"
#include "series/ZyCandleSticks.h"
#include "series/ZyOHLC.h"
#include "series/ZyPointWithErrorSeries.h"
#include "undo/RandomSetters.h"

namespace zy::testing {
namespace {

std::string BytesOf(const TZySeries& Series) {
  TMemoryStream Stream;
  Series.WriteTo(Stream);
  return AsText(Stream);
}
/// The bytes behind class name and reference, which are the series' own.
std::string FieldsOf(const TZySeries& Series) {
  const std::string Reference = "Form." + Series.Name();
  return BytesOf(Series).substr(8 + std::string(Series.ClassName()).size() + Reference.size());
}

TEST(ZySeriesRecordTest, EveryFormBringsBackAllFields) {
  TSampleChart Chart;
  std::mt19937 Random(2);
  const auto Empty = Chart.AddOfEachKind("Read"), Filled = Chart.AddOfEachKind("");
  for (std::size_t i = 0; i < Filled.size(); ++i) {
    std::vector<TPersistent*> Objects;
    Collect(*Filled[i], Objects, true);
    std::erase_if(Objects, [](TPersistent* Object) {
      return Object->ClassInfo().InheritsFrom(TZyGradientSettings::StaticClassInfo());
    });  // a line's are in streams only
    for (TPersistent* Object : Objects)
      for (const TPropInfo* Info : Object->ClassInfo().Properties())
        if (Info->Name != std::string_view("Name")) SetAtRandom(*Object, *Info, Chart.Form, Random);
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
      EXPECT_NE(FieldsOf(Target), Before);
      EXPECT_EQ(FieldsOf(Target), FieldsOf(*Filled[i]));
      TMemoryStream Old(std::as_bytes(std::span(Whole)));
      Target.ReadFrom(Old);
      EXPECT_EQ(FieldsOf(Target), Before) << "and takes them back";
    }
  }
}

TEST(ZySeriesRecordTest, KindsAddTheirFieldsBehindThoseOfTheBase) {
  TSampleChart Chart;
  TZyDoubleVector* const V = Chart.AddVector("V");
  auto* const Bubbles = Chart.AddSeries<TZyBubbles>("Bubbles");
  auto* const OHLC = Chart.AddSeries<TZyOHLC>("OHLC");
  auto* const Arrows = Chart.AddSeries<TZyArrows>("Arrows");
  auto* const Points = Chart.AddSeries<TZyPointWithErrorSeries>("Points");
  Arrows->Arrow().SetWidth(2);
  Arrows->Arrow().SetPointLength(7.5);
  Arrows->SetDeltaY(V);
  Points->ErrorIndicator().SetColor(0x12345678);
  Points->SetDeltaXPlus(V);
  Points->SetDeltaYMinus(V);
  Bubbles->SetElliptical(true);
  Bubbles->SetRadiusData(V);
  OHLC->SetBarWidth(7.5);
  OHLC->SetLowData(V);
  OHLC->SetIndicatorLength(0);
  auto* const Candles = Chart.AddSeries<TZyCandleSticks>("Candles");
  Candles->SetBullColor(0x80010203);
  Candles->SetBearColor(0xFF040506);
  Candles->SetShadowsSameColorAsFill(true);
  const std::string Reference("\x06\0\0\0Form.V", 10);
  EXPECT_TRUE(FieldsOf(*Bubbles).ends_with(std::string("\0\x01", 2) + Reference + '\0'))
      << "end of the base, elliptical, radius, end";
  EXPECT_TRUE(FieldsOf(*Arrows).ends_with(std::string("\0\x01"
                                                      "\0\0\xF0\x40\0\0\x40\x40\0\0\0\x40"
                                                      "\0\0\0\0",
                                                      18) +
                                          Reference + '\0'))
      << "end of the base, visible, 7.5f, 3.0f, 2.0f, no X, Y, end";
  const std::string OfPoints = FieldsOf(*Points), None(4, '\0');
  EXPECT_TRUE(OfPoints.ends_with(Reference + None + None + Reference + '\0')) << "X+, no X-, no Y+, Y-, end";
  const std::string Bar("\x01\x78\x56\x34\x12\0\0\x80\x3F\0", 10);
  EXPECT_NE(OfPoints.find('\0' + Bar), std::string::npos) << "end of the symbols; visible, colour, 1.0f, solid";
  EXPECT_TRUE(FieldsOf(*OHLC).ends_with(Reference + std::string("\0\0\xF0\x40\0"
                                                                "\0\0\0\0\0",
                                                                10)))
      << "low, 7.5f, end; 0.0f, end";
  EXPECT_TRUE(FieldsOf(*Candles).ends_with(std::string("\0\0\xC0\x40\0\x03\x02\x01\x80\x06\x05\x04\xFF\x01\0", 15)))
      << "6.0f, end; bull, bear, wicks, end";
}

}  // namespace
}  // namespace zy::testing
