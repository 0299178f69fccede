// A series in words, for who does not see it.

#include "platform/data/DateTimeText.h"
#include "series/ZySeries.h"
#include "texts/NumberText.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

/// The text of the class or of the nearest base that has one; an application's own kind is one of those, too.
std::string KindOf(const TZySeries& Series) {
  constexpr std::string_view Prefix = "TZy";
  for (const TClassInfo* Class = &Series.ClassInfo(); Class != nullptr; Class = Class->Parent()) {
    const std::string_view Name = Class->Name();
    if (!Name.starts_with(Prefix)) continue;
    if (const auto Row = FindText("_sTold" + std::string(Name.substr(Prefix.size())))) return LoadResString(*Row);
  }
  return LoadResString(_sToldKind);
}

std::string ValueOn(const TZyAxis* Axis, double Value) {
  return Axis != nullptr && Axis->Scaling() == TZyAxisScaling::DateTime ? DateTimeToText(Value, TFieldType::DateTime)
                                                                        : FloatToStr(Value);
}

}  // namespace

std::string TZySeries::AccessibleText() const {
  TZyRichCaptionObject Shown;
  Shown.SetCaption(FCaption);
  Shown.ParseIfNeeded();
  const std::string Title = FCaption.empty() ? Name() : Shown.PlainText(), Kind = KindOf(*this);
  if (!FVisible) return Format(LoadResString(_sToldHidden), {Title, Kind});
  if (Count() == 0 || FXStart > FXStop || FYStart > FYStop) return Format(LoadResString(_sToldEmpty), {Title, Kind});
  return Format(LoadResString(_sToldSeries), {Title, Kind, Count(), ValueOn(FXAxis, FXStart), ValueOn(FXAxis, FXStop),
                                              ValueOn(FYAxis, FYStart), ValueOn(FYAxis, FYStop)});
}

}  // namespace zy
