#include "platform/framework/TPropInfo.h"

#include <cmath>

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
    Refuse<ERangeError>(IntToStr(Value));
  FSetOrd(Instance, Value);
}

void TPropInfo::SetFloat(TObject& Instance, double Value) const {
  TestFloat(Value);
  FSetFloat(Instance, Value);
}

void TPropInfo::TestFloat(double Value) const {
  const bool Fits = Value >= FLeast && Value <= FMost;
  if (!Fits && (FIsLimited || std::isfinite(Value))) Refuse<ERangeError>(RealToText(Value));
}

std::string TPropInfo::RefusalText(std::string_view Value) const {
  std::string Allowed;
  if (Values != nullptr) {
    for (const std::string_view ValueName : Values->Values) (Allowed += Allowed.empty() ? "" : ", ") += ValueName;
  } else {
    Allowed = Format(LoadResString(_sPropLimits), {RealToText(Lowest), RealToText(Highest)});
  }
  return Format(LoadResString(_sPropNotAllowed), {Value, Name, Allowed});
}

}  // namespace zy
