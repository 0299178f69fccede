#include "persistence/ZyStreamArchive.h"

#include "persistence/ZyIO.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {

template <class T>
bool TZyStreamArchive::WriteOrRead(T& Value) {
  if (FReading) {
    Value = FromStream<T>(FStream);
  } else {
    ToStream(FStream, Value);
  }
  return FReading;
}

/// The count of a list whose elements take Width bytes at least; below 0 for one that is left out.
int TZyStreamArchive::VisitCount(const TZyFieldName& Name, std::size_t Count, int Width) {
  auto Stored = Name.IsOmitted() ? std::int32_t{-1} : static_cast<std::int32_t>(Count);
  if (WriteOrRead(Stored)) RequireRemaining(FStream, Stored, Width);
  return Stored;
}

template <class T>
bool TZyStreamArchive::WriteOrReadAll(const TZyFieldName& Name, std::vector<T>& Values) {
  const int Count = VisitCount(Name, Values.size(), sizeof(T));
  if (Count < 0) return false;
  if (FReading) {
    Values.resize(static_cast<std::size_t>(Count));
    ArrayFromStream(FStream, Values);
  } else {
    ArrayToStream(FStream, Values);
  }
  return FReading;
}

bool TZyStreamArchive::NextGroup() {
  bool Follows = true;
  WriteOrRead(Follows);
  return Follows;
}

void TZyStreamArchive::EndRecord() {
  bool Follows = false;
  WriteOrRead(Follows);
}

bool TZyStreamArchive::Visit(const TZyFieldName&, bool& Value) { return WriteOrRead(Value); }

bool TZyStreamArchive::Visit(const TZyFieldName& Name, TOrdinal& Value) {
  auto Narrow = static_cast<std::uint8_t>(Value.Value);
  auto Wide = static_cast<std::uint16_t>(Value.Value);
  if (!(Value.Width == 1 ? WriteOrRead(Narrow) : WriteOrRead(Wide))) return false;
  Value.Value = Value.Width == 1 ? Narrow : Wide;
  if (Value.Value >= Value.Limit)
    throw EReadError(Format(LoadResString(_sPropOutOfRange), {Value.Value, Name.XmlName()}));
  return true;
}

bool TZyStreamArchive::Visit(const TZyFieldName&, std::int32_t& Value) { return WriteOrRead(Value); }

bool TZyStreamArchive::Visit(const TZyFieldName&, TZyColor& Value) { return WriteOrRead(Value); }

bool TZyStreamArchive::Visit(const TZyFieldName&, float& Value) { return WriteOrRead(Value); }

bool TZyStreamArchive::Visit(const TZyFieldName&, double& Value) { return WriteOrRead(Value); }

bool TZyStreamArchive::Visit(const TZyFieldName&, std::string& Value) {
  if (FReading) {
    Value = StringFromStream(FStream);
  } else {
    StringToStream(FStream, Value);
  }
  return FReading;
}

bool TZyStreamArchive::Visit(const TZyFieldName& Name, std::vector<double>& Values) {
  return WriteOrReadAll(Name, Values);
}

bool TZyStreamArchive::Visit(const TZyFieldName& Name, std::vector<std::int32_t>& Values) {
  return WriteOrReadAll(Name, Values);
}

bool TZyStreamArchive::Visit(const TZyFieldName& Name, std::vector<std::string>& Values) {
  const int Count = VisitCount(Name, Values.size(), sizeof(std::int32_t));
  if (Count < 0) return false;
  if (FReading) {
    Values.clear();
    for (int Left = Count; Left > 0; --Left) Values.push_back(StringFromStream(FStream));
  } else {
    for (const std::string& Text : Values) StringToStream(FStream, Text);
  }
  return FReading;
}

bool TZyStreamArchive::Choose(const TZyFieldName&, bool IsFirst) {
  WriteOrRead(IsFirst);
  return IsFirst;
}

void TZyStreamArchive::VisitCount(const TZyFieldName& Name, int& Count) {
  Count = VisitCount(Name, static_cast<std::size_t>(Count), 1);
}

TZyIdentity TZyStreamArchive::Identify(bool Typed) {
  const std::int64_t Start = FStream.Position();
  TZyIdentity Who;
  if (Typed) Who.ClassName = StringFromStream(FStream);
  Who.Reference = StringFromStream(FStream);
  FStream.SetPosition(Start);
  return Who;
}

}  // namespace zy
