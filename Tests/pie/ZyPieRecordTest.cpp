#include <gtest/gtest.h>

#include <random>
#include <set>

#include "framework/SampleComponent.h"
#include "persistence/ChartForms.h"
#include "persistence/ZyIO.h"
#include "pie/PieSample.h"
#include "texts/Exceptions.h"
#include "undo/RandomSetters.h"

namespace zy::testing {
namespace {

/// A form with nothing but a pie chart of the same name, which a record is read into.
struct TEmptyPie {
  TEmptyPie() {
    Form.SetName("Form");
    Chart->SetName("Pie");
    Chart->SetParent(&Form);
  }
  TForm Form;
  TZyPieChart* Chart = new TZyPieChart(&Form);
};

std::string Passed(const std::string& Text, TForm3 Form, bool SaveData = true) {
  TEmptyPie Other;
  Read(*Other.Chart, Form, Text);
  PictureOf(200, 200, [&](Graphics& Gr) { Other.Chart->PaintGr(Gr); });  // changes nothing that is stored but sizes
  Read(*Other.Chart, Form, Text);
  return Written(*Other.Chart, Form, SaveData);
}

TEST(ZyPieRecord, BringsChartsBackInThreeForms) {
  for (unsigned Seed = 0; Seed < 12; ++Seed) {
    TPieSample Sample;
    std::mt19937 Random(Seed);
    auto& Legend = Sample.AddLegend("Legend");
    Sample.Chart->SetExplodePercent(Sample.Out);
    Sample.Out->AddRange({1, 2});
    static const std::set<std::string_view> Kept = {
        "Values",        "ExplodePercent", "PieChart",     "SegmentSettingsPalette", "Captions",
        "SmoothingMode", "ExplodeOnClick", "BorderRaised", "BorderLowered",          "ItemHeight"};
    std::vector<TPersistent*> Objects;
    for (TPersistent* Object : std::initializer_list<TPersistent*>{Sample.Chart, &Legend, &Sample.Palette->Items(1)})
      Collect(*Object, Objects);
    for (TPersistent* Object : Objects)
      for (const TPropInfo* Info : Object->ClassInfo().Properties())
        if (IsUndone(*Info) && !Kept.contains(Info->Name)) SetAtRandom(*Object, *Info, Sample.Form, Random);
    Sample.Paint();
    for (const TForm3 Form : AllForms)
      for (const bool SaveData : {true, false}) {
        SCOPED_TRACE(static_cast<int>(Form));
        const std::string Text = Written(*Sample.Chart, Form, SaveData);
        EXPECT_TRUE(Same(Passed(Text, Form, SaveData), Text)) << Seed;
        EXPECT_EQ(Text.find("four") != std::string::npos, SaveData);
      }
  }
}

/// Bytes that are written out here.
struct TBytes {
  TBytes& Text(std::string_view Value) { return StringToStream(Stream, Value), *this; }
  TBytes& Byte(int Value) { return Int(Value, 1); }
  TBytes& Int(std::int64_t Value, int Width = 4) { return Stream.WriteBuffer(&Value, Width), *this; }
  TBytes& Color(TZyColor Value) { return Int(static_cast<std::int64_t>(Value)); }
  TBytes& Single(float Value) { return Stream.WriteBuffer(&Value, sizeof Value), *this; }
  TBytes& Record(const TZyRecord& Value) { return Value.WriteTo(Stream), *this; }
  TMemoryStream Stream;
};

TEST(ZyPieRecord, HasItsFieldsInTheOrderOfTheStream) {
  TPieSample Sample({1, 2}, 123, 77);
  TZyPieChart& Chart = *Sample.Chart;
  auto& Legend = Sample.AddLegend("Legend");
  Chart.SetExplodePercent(Sample.Out);
  Chart.Captions()->SetText("a\nb");
  Sample.Palette->Clear();
  TZyFillSettings Fill;
  Fill.SetForeColor(0xFF010203);
  Fill.SetBackColor(0xFF040506);
  Fill.SetAreaStyle(TZyAreaStyle::Wave);
  Sample.Palette->Add(Fill);
  Chart.SetCaption("title");
  Chart.SetPieChartType(TZyPieChartType::ThreeDDonut);
  Chart.SetDistanceAtLeft(3);
  Chart.SetLabelPosition(TZyPieLabelPosition::InsideAligned);
  Chart.SetLabelFormat("0.0");
  Chart.SetCalloutRaised(true);
  Chart.SetOrderAscending(true);
  Chart.BringUpToDate();
  TBytes Expected;
  Expected.Text("Form.Pie").Byte(1);
  Expected.Byte(1).Record(*Sample.Values).Byte(1).Record(*Sample.Out);
  Expected.Byte(0).Int(2).Text("a").Text("b");
  Expected.Int(1).Record(Legend);
  Expected.Byte(1).Byte(static_cast<int>(Chart.Anchors().Bits())).Byte(0).Int(0).Int(0).Int(123).Int(77).Byte(0);
  Expected.Text("").Byte(1).Byte(0).Color(Colors::White).Record(Chart.BackgroundGradient());
  Expected.Single(0).Single(0).Single(3).Single(0);
  Expected.Byte(0).Text("title").Byte(2).Color(Chart.CaptionColor()).Single(0).Single(0).Record(Chart.CaptionFont());
  Expected.Record(Chart.Font());
  for (const float Value : {0.0f, 360.0f, 50.0f, 10.0f, 35.0f, 3.5f, 0.0f, 0.0f, 10.0f}) Expected.Single(Value);
  Expected.Byte(3).Byte(1).Byte(0).Byte(1).Byte(1).Byte(0).Byte(2).Text("0.0");
  Expected.Byte(1).Color(Chart.CalloutBackColor()).Byte(1).Byte(0).Byte(0);
  Expected.Record(Chart.SegmentBorder()).Record(Chart.CalloutGradient()).Record(Chart.CalloutFrame());
  Expected.Record(Chart.CalloutArrow());
  Expected.Text("Form.Palette").Int(1).Color(0xFF010203).Color(0xFF040506).Byte(37);
  EXPECT_TRUE(Same(Written(Chart, TForm3::Stream), AsText(Expected.Stream)));

  TBytes OfLegend;
  OfLegend.Text("Form.Legend").Text("Form.Pie").Byte(1).Text("").Byte(1).Byte(0).Byte(6).Text("Form.Pie");
  OfLegend.Int(Legend.Top()).Int(Legend.Left()).Byte(1).Int(Legend.Width()).Int(Legend.Height());
  const float InForce = static_cast<float>(Legend.ItemRects().front().Height());
  OfLegend.Single(InForce).Single(20).Color(Legend.ForeColor()).Color(Legend.BackColor()).Byte(0).Int(1).Int(1);
  OfLegend.Record(Legend.Font()).Record(Legend.Frame());
  for (const float Value : {0.0f, 8.0f, 4.0f, 3.0f, 10.0f, 8.0f}) OfLegend.Single(Value);
  OfLegend.Byte(1).Text("").Byte(0).Text("").Byte(2).Color(Legend.CaptionColor()).Single(0).Single(0);
  OfLegend.Record(Legend.CaptionFont()).Byte(0).Record(Legend.BackgroundGradient()).Byte(0);
  TMemoryStream Stream;
  Legend.WriteTo(Stream);
  EXPECT_TRUE(Same(AsText(Stream), AsText(OfLegend.Stream)));
}

TEST(ZyPieRecord, KeepsWhatARecordDoesNotHave) {
  TPieSample Sample;
  Sample.Chart->SetSegmentSettingsPalette(nullptr);
  for (const TForm3 Form : AllForms) {
    const std::string Text = Written(*Sample.Chart, Form, false);
    TPieSample Other({5, 6, 7});
    Read(*Other.Chart, Form, Text);
    EXPECT_EQ(Other.Chart->SegmentSettingsPalette(), Other.Palette);
    EXPECT_EQ(Other.Palette->Count(), 8);
    EXPECT_EQ(Other.Sweeps().size(), 3U);
    EXPECT_EQ(Other.Chart->Captions()->Count(), 4);
  }
}

TEST(ZyPieRecord, LeavesTheChartWholeWhenItBreaksOff) {
  TPieSample Sample;
  Sample.AddLegend("Legend");
  const std::string Text = Written(*Sample.Chart, TForm3::Stream);
  for (std::size_t Length = 0; Length < Text.size(); Length += 7) {
    TEmptyPie Other;
    TMemoryStream Stream(AsBytes(Text.substr(0, Length)));
    EXPECT_THROW(Other.Chart->ReadFrom(Stream), EReadError) << Length;
    EXPECT_FALSE(Other.Chart->Updating());
    PictureOf(250, 250, [&](Graphics& Gr) { Other.Chart->PaintGr(Gr); });
    EXPECT_FALSE(Other.Chart->NeedsRecalculate() && Other.Chart->AutoUpdate()) << Length;
  }
}

}  // namespace
}  // namespace zy::testing
