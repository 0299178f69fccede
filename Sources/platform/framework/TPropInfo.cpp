#include "platform/framework/TPropInfo.h"

#include <cmath>

#include "platform/framework/Reflection.h"
#include "texts/Exceptions.h"
#include "texts/NumberText.h"

namespace zy {

namespace detail {

void ElementOutOfRange(const char* PropName, std::int64_t Value, std::int64_t Low, std::int64_t High) {
  throw ERangeError(Format(LoadResString(_sPropNotAllowed),
                           {Value, PropName, Format(LoadResString(_sPropLimits), {IntToStr(Low), IntToStr(High)})}));
}

void WrongObject(const char* PropName, const TPersistent* Value) {
  throw EConvertError(
      Format(LoadResString(_sPropWrongObject), {PropName, Value == nullptr ? "nil" : Value->ClassName()}));
}

}  // namespace detail

/// The limits of floats in few digits.
static std::string LimitText(double Value) {
  if (std::fabs(Value) == static_cast<double>(std::numeric_limits<float>::max()))
    return Value < 0 ? "-3.4E38" : "3.4E38";
  return RealToText(Value);
}

bool TPropInfo::IsDefault(const TObject& Instance) const {
  if (!HasDefault()) return false;
  if (GetOrd != nullptr) return GetOrd(Instance) == FDefault.AsInteger();
  if (GetFloat != nullptr) return GetFloat(Instance) == FDefault.AsReal();
  if (GetStr != nullptr) return GetStr(Instance) == FDefault.AsText();
  return GetVariant != nullptr && GetVariant(Instance) == FDefault;
}

TPropInfo TPropInfo::NotStored() && {
  FStored = [](const TObject&) { return false; };
  FIsNeverStored = true;
  return std::move(*this);
}

TPropInfo TPropInfo::Limited(double Low, double High) && {
  Lowest = FLeast = Low;
  Highest = FMost = High;
  FIsLimited = true;
  return std::move(*this);
}

void TPropInfo::SetOrd(TObject& Instance, std::int64_t Value) const {
  const auto Shown = static_cast<double>(Value);
  if ((Kind != TPropKind::Int64 || FIsLimited) && !(Shown >= FLeast && Shown <= FMost))
    Refuse<ERangeError>(Instance, IntToStr(Value));
  FSetOrd(Instance, Value);
}

void TPropInfo::SetFloat(TObject& Instance, double Value) const {
  TestFloat(Instance, Value);
  FSetFloat(Instance, Value);
}

void TPropInfo::TestFloat(const TObject& Instance, double Value) const {
  const bool Fits = Value >= FLeast && Value <= FMost;
  if (!Fits && (FIsLimited || std::isfinite(Value))) Refuse<ERangeError>(Instance, RealToText(Value));
}

std::string TPropInfo::RefusalText(const TObject& Instance, std::string_view Value) const {
  std::string Allowed;
  if (Values != nullptr) {
    for (const std::string_view ValueName : Values->Values) (Allowed += Allowed.empty() ? "" : ", ") += ValueName;
  } else {
    Allowed = Format(LoadResString(_sPropLimits), {LimitText(Lowest), LimitText(Highest)});
  }
  return Format(LoadResString(_sPropNotAllowed), {Value, FullPropName(Instance, Name), Allowed});
}

}  // namespace zy
