#include "platform/framework/Reflection.h"

#include <gtest/gtest.h>

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
  EXPECT_THROW(SetOrdProp(Sample, "Small", 128), ERangeError);
  EXPECT_THROW(SetOrdProp(Sample, "Shade", 3), ERangeError);
  EXPECT_THROW(SetOrdProp(Sample, "Shade", -1), ERangeError);
  EXPECT_THROW(SetOrdProp(Sample, "Shades", 8), ERangeError);
  EXPECT_THROW(SetOrdProp(Sample, "Whole", std::int64_t{1} << 31), ERangeError);
  EXPECT_THROW(SetEnumProp(Sample, "Shade", "Pink"), EConvertError);
  EXPECT_THROW(SetSetProp(Sample, "Shades", "[Pink]"), EConvertError);
  EXPECT_THROW(SetPropValue(Sample, "Whole", "1x"), EConvertError);
  EXPECT_THROW(SetPropValue(Sample, "Whole", 1.5), EConvertError);
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
ZY_PUBLISHED(TDarkSample, TSample, Published<&TDarkSample::Shade, &TDarkSample::SetShade>("Shade", TShade::Dark))

TEST(Reflection, ADescendantPublishesAPropertyAnew) {
  TDarkSample Sample;
  EXPECT_EQ(Sample.ClassInfo().Properties().size(), TSample::StaticClassInfo().Properties().size());
  EXPECT_FALSE(GetPropInfo(Sample, "Shade")->IsDefault(Sample));
  Sample.SetShade(TShade::Dark);
  EXPECT_TRUE(GetPropInfo(Sample, "Shade")->IsDefault(Sample));
}

}  // namespace
}  // namespace zy::testing
