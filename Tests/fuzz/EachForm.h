#pragma once

#include <span>
#include <string_view>

#include "persistence/ZyRecord.h"
#include "platform/framework/TMemIniFile.h"
#include "platform/framework/TStream.h"
#include "platform/framework/XmlDocument.h"
#include "texts/Exceptions.h"

namespace zy::testing {

/// Checks the record that a text is as a stream, and as XML and INI where it is such a text. Each check gets what reads
/// the text into an object. The record of INI stands in a section of that name.
template <class TCheck>
void CheckEachForm(std::string_view Text, std::string_view Section, const TCheck& Check) {
  Check([&](TZyRecord& Object) {
    TMemoryStream Stream(std::as_bytes(std::span(Text)));
    Object.ReadFrom(Stream);
  });
  TXMLDocument Document("r");
  TMemIniFile Ini;
  bool IsXml = true, IsIni = true;
  try {
    Document.LoadFromText(Text);
  } catch (const EXMLError&) {
    IsXml = false;
  }
  try {
    Ini.LoadFromText(Text);
  } catch (const EIniFileError&) {
    IsIni = false;
  }
  if (IsXml) Check([&](TZyRecord& Object) { Object.ReadFrom(Document.DocumentElement()); });
  if (IsIni && Ini.SectionExists(Section)) Check([&](TZyRecord& Object) { Object.ReadFrom(Ini, Section); });
}

}  // namespace zy::testing
