#include "persistence/ZyStreamArchive.h"

#include "persistence/ZyIO.h"
#include "platform/framework/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {

bool TZyStreamWriter::NextGroup() {
  ContinuationToStream(FStream, true);
  return true;
}

void TZyStreamWriter::EndRecord() { ContinuationToStream(FStream, false); }

bool TZyStreamWriter::Visit(const TZyFieldName&, bool& Value) {
  ToStream(FStream, Value);
  return false;
}

bool TZyStreamWriter::Visit(const TZyFieldName&, TOrdinal& Value) {
  if (Value.Width == 1)
    ToStream(FStream, static_cast<std::uint8_t>(Value.Value));
  else
    ToStream(FStream, static_cast<std::uint16_t>(Value.Value));
  return false;
}

bool TZyStreamWriter::Visit(const TZyFieldName&, std::int32_t& Value) {
  ToStream(FStream, Value);
  return false;
}

bool TZyStreamWriter::Visit(const TZyFieldName&, TZyColor& Value) {
  ToStream(FStream, Value);
  return false;
}

bool TZyStreamWriter::Visit(const TZyFieldName&, float& Value) {
  ToStream(FStream, Value);
  return false;
}

bool TZyStreamWriter::Visit(const TZyFieldName&, double& Value) {
  ToStream(FStream, Value);
  return false;
}

bool TZyStreamWriter::Visit(const TZyFieldName&, std::string& Value) {
  StringToStream(FStream, Value);
  return false;
}

bool TZyStreamReader::NextGroup() { return ContinuationFromStream(FStream); }

void TZyStreamReader::EndRecord() { ContinuationFromStream(FStream); }

bool TZyStreamReader::Visit(const TZyFieldName&, bool& Value) {
  Value = FromStream<bool>(FStream);
  return true;
}

bool TZyStreamReader::Visit(const TZyFieldName& Name, TOrdinal& Value) {
  Value.Value = Value.Width == 1 ? FromStream<std::uint8_t>(FStream) : FromStream<std::uint16_t>(FStream);
  if (Value.Value >= Value.Limit)
    throw EReadError(Format(LoadResString(_sPropOutOfRange), {Value.Value, Name.XmlName()}));
  return true;
}

bool TZyStreamReader::Visit(const TZyFieldName&, std::int32_t& Value) {
  Value = FromStream<std::int32_t>(FStream);
  return true;
}

bool TZyStreamReader::Visit(const TZyFieldName&, TZyColor& Value) {
  Value = FromStream<TZyColor>(FStream);
  return true;
}

bool TZyStreamReader::Visit(const TZyFieldName&, float& Value) {
  Value = FromStream<float>(FStream);
  return true;
}

bool TZyStreamReader::Visit(const TZyFieldName&, double& Value) {
  Value = FromStream<double>(FStream);
  return true;
}

bool TZyStreamReader::Visit(const TZyFieldName&, std::string& Value) {
  Value = StringFromStream(FStream);
  return true;
}

}  // namespace zy
