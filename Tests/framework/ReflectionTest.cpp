#include "platform/framework/Reflection.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <tuple>

#include "framework/Errors.h"
#include "framework/SampleComponent.h"
#include "texts/Exceptions.h"

namespace zy::testing {
namespace {

TEST(Reflection, WritesThroughSettersInEveryTypedForm) {
  TSample Sample, Other;
  SetOrdProp(Sample, "Whole", -7);
  SetOrdProp(Sample, "Letter", 'x');
  SetEnumProp(Sample, "Shade", "Dark");
  SetSetProp(Sample, "Shades", "[Light,Dark]");
  SetFloatProp(Sample, "Single", 0.25);
  SetStrProp(Sample, "Text", "näh");
  SetObjectProp(Sample, "Link", &Other);
  SetInt64Prop(Sample, "Big", std::int64_t{1} << 40);
  SetVariantProp(Sample, "Numbers", TVariant::TArray{1.5, 2, "3.25"});
  SetPropValue(Sample, "Switch", "True");
  SetPropValue(Sample, "Any", TVariant());
  EXPECT_EQ(std::tuple(Sample.Whole(), Sample.Letter(), Sample.Shade(), Sample.Shades(), Sample.Single()),
            std::tuple(-7, 'x', TShade::Dark, TSet<TShade>({TShade::Light, TShade::Dark}), 0.25f));
  EXPECT_EQ(std::tuple(Sample.Text(), Sample.Link(), Sample.Big()), std::tuple("näh", &Other, std::int64_t{1} << 40));
  EXPECT_EQ(Sample.Numbers(), (std::vector<double>{1.5, 2, 3.25}));
  EXPECT_TRUE(Sample.Switch());
  EXPECT_EQ(GetSetProp(Sample, "Shades"), "[Light,Dark]");
  EXPECT_EQ(GetEnumProp(Sample, "Shade"), "Dark");
  EXPECT_EQ(GetPropValue(Sample, "Switch"), TVariant(true));
  EXPECT_EQ(GetPropValue(Sample, "Shade"), TVariant(2));
  TSampleStyle Style;
  Style.SetWidth(3);
  SetObjectProp(Sample, "Style", &Style);
  EXPECT_EQ(Sample.Style().Width(), 3.0f);
  EXPECT_EQ(GetObjectProp(Sample, "Style"), &Sample.Style());
}

TEST(Reflection, RefusesWhatDoesNotFitAndSetsNothing) {
  TSample Sample;
  EXPECT_THROW(SetOrdProp(Sample, "Shade", -1), ERangeError);
  EXPECT_THROW(SetOrdProp(Sample, "Shades", 8), ERangeError);
  EXPECT_THROW(SetOrdProp(Sample, "Whole", std::int64_t{1} << 31), ERangeError);
  EXPECT_THROW(SetPropValue(Sample, "Numbers", TVariant::TArray{1.0, "two"}), EConvertError);
  EXPECT_THROW(SetFloatProp(Sample, "Text", 1), EConvertError);
  EXPECT_THROW(GetPropValue(Sample, "Link"), EConvertError);
  EXPECT_THROW(SetOrdProp(Sample, "Nothing", 1), EFilerError);
  TComponent NoSample;
  EXPECT_THROW(SetObjectProp(Sample, "Link", &NoSample), EConvertError);
  EXPECT_THROW(SetObjectProp(Sample, "Style", &NoSample), EConvertError);
  EXPECT_THROW(SetObjectProp(Sample, "Style", nullptr), EConvertError);
  TSample Untouched;
  EXPECT_EQ(BytesOf(Sample), BytesOf(Untouched));
}

TEST(Reflection, KnowsClassesByName) {
  EXPECT_EQ(GetClass("TSample"), &TSample::StaticClassInfo());
  EXPECT_EQ(GetClass("TNothing"), nullptr);
  EXPECT_NE(MessageOf<EClassNotFound>([] { FindClass("TNothing"); }).find("TNothing"), std::string::npos);
}

/// A descendant that publishes a property of its base anew, with another default.
class TDarkSample : public TSample {
  ZY_CLASS(TDarkSample, TSample)
  using TSample::TSample;
};
ZY_PUBLISHED(TDarkSample, TSample, Published<&TDarkSample::Shade, &TDarkSample::SetShade>("Shade", TShade::Dark),
             Published<&TDarkSample::Real, &TDarkSample::SetReal>("Real", 0.0, _sLineWidth).Limited(-1, 2.5),
             Published<&TDarkSample::Whole, &TDarkSample::SetWhole>("Whole", 0).Limited(1, 12))

TEST(Reflection, ADescendantPublishesAPropertyAnew) {
  TDarkSample Sample;
  EXPECT_EQ(Sample.ClassInfo().Properties().size(), TSample::StaticClassInfo().Properties().size());
  EXPECT_FALSE(GetPropInfo(Sample, "Shade")->IsDefault(Sample));
  Sample.SetShade(TShade::Dark);
  EXPECT_TRUE(GetPropInfo(Sample, "Shade")->IsDefault(Sample));
}

TEST(Reflection, ARefusalNamesClassPropertyValueAndWhatIsAllowed) {
  TDarkSample Sample, Named;
  Named.SetName("Night");
  const std::pair<std::function<void()>, const char*> Cases[] = {
      {[&] { SetPropValue(Named, "Shade", "Gray"); },
       R"("Gray" is no value of property "TDarkSample Night.Shade"; allowed are Light, Middle, Dark)"},
      {[&] { SetOrdProp(Sample, "Shade", 3); },
       R"("3" is no value of property "TDarkSample.Shade"; allowed are Light, Middle, Dark)"},
      {[&] { SetEnumProp(Sample, "Shade", "Pink"); },
       R"("Pink" is no value of property "TDarkSample.Shade"; allowed are Light, Middle, Dark)"},
      {[&] { SetSetProp(Sample, "Shades", "[Pink]"); },
       R"("Pink" is no value of property "TDarkSample.Shades"; allowed are Light, Middle, Dark)"},
      {[&] { SetPropValue(Sample, "Switch", "Yes"); },
       R"("Yes" is no value of property "TDarkSample.Switch"; allowed are False, True)"},
      {[&] { SetOrdProp(Sample, "Small", 128); },
       R"("128" is no value of property "TDarkSample.Small"; allowed are -128 to 127)"},
      {[&] { SetPropValue(Sample, "Whole", 13); },
       R"("13" is no value of property "TDarkSample.Whole"; allowed are 1 to 12)"},
      {[&] { SetPropValue(Sample, "Whole", 1.5); },
       R"("1.5" is no value of property "TDarkSample.Whole"; allowed are 1 to 12)"},
      {[&] { SetFloatProp(Sample, "Real", 2.75); },
       R"("2.75" is no value of property "TDarkSample.Real"; allowed are -1 to 2.5)"},
      {[&] { SetPropValue(Sample, "Real", "-INF"); },
       R"("-INF" is no value of property "TDarkSample.Real"; allowed are -1 to 2.5)"},
      {[&] { SetFloatProp(Sample, "Real", NAN); },
       R"("NAN" is no value of property "TDarkSample.Real"; allowed are -1 to 2.5)"}};
  for (const auto& [Write, Message] : Cases) EXPECT_EQ(MessageOf([&] { Write(); }), Message);
  EXPECT_THROW(SetFloatProp(Sample, "Single", 1e39), ERangeError);
  SetFloatProp(Sample, "Single", HUGE_VAL);  // fits where no limits are told
  EXPECT_EQ(std::tuple(Sample.Real(), Sample.Whole(), Sample.Shade()), std::tuple(0.0, 0, TShade::Light));
}

TEST(Reflection, RowsKnowTheirTypes) {
  std::string Found;
  for (const TPropInfo* Info : TDarkSample::StaticClassInfo().Properties())
    (Found += Info->Name) += ' ' + std::string(Info->TypeName()) + (Info->Label == _sLineWidth ? "*, " : ", ");
  EXPECT_EQ(Found,
            "Name String, Whole Integer, Small Integer, Letter Char, Switch Boolean, Shade TShade, Shades TShades, "
            "Single Single, Real Double*, Text String, Lines TStringList, Style TSampleStyle, Link TSample, Big Int64, "
            "Numbers Array, Any Variant, Table Array, Part TSample, OnEvent Event, ");
  EXPECT_EQ(GetPropInfo(TSampleStyle(), "Color")->TypeName(), "TZyColor");
  const TPropInfo& Small = *GetPropInfo(TSample(), "Small");
  EXPECT_EQ(std::tuple(Small.Lowest, Small.Highest), std::tuple(-128.0, 127.0));
}

TEST(Reflection, CopiesWhatTwoObjectsHaveInCommon) {
  TDarkSample Source;
  TSample Copy, Other;
  Source.SetWhole(7);
  Source.SetShades({TShade::Dark});
  Source.SetSingle(0.25f);
  Source.SetText("text");
  Source.Lines().SetText("a\nb\n");
  Source.Style().SetWidth(3);
  Source.SetLink(&Other);
  Source.SetNumbers({1, 2});
  Source.SetTable({{1}});  // never stored
  EXPECT_TRUE(CopyProperties(Source, Copy));
  EXPECT_EQ(std::tuple(Copy.Whole(), Copy.Shades(), Copy.Single(), Copy.Text(), Copy.Lines().Text()),
            std::tuple(7, TSet<TShade>{TShade::Dark}, 0.25f, "text", "a\nb\n"));
  EXPECT_EQ(std::tuple(Copy.Style().Width(), Copy.Link(), Copy.Numbers(), Copy.Table().size()),
            std::tuple(3.0f, &Other, std::vector<double>{1, 2}, 0u));
  EXPECT_FALSE(CopyProperties(Source.Style(), Copy));
}

}  // namespace
}  // namespace zy::testing
