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

}  // namespace zy
