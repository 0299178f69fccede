#pragma once

#include <string>
#include <vector>

namespace zy {

class TZyRecord;
struct TEnumInfo;

/// One row of the description of a record: a field, or one of the bytes between groups.
struct TZyFieldRow {
  std::string Xml;  ///< path of the attribute, element or node below the object's node, as "Bars/OverlayStyle"
  std::string Ini;  ///< key in the object's section
  /// "boolean", "double", "text", ...; "count of doubles" and the like for a list; the name of an enumeration, also as
  /// "set of TAnchor"; "record of TZyFont" for a settings object whose own table says the rest.
  std::string Kind;
  int Width = 0;                     ///< bytes in the stream, of one element of a list; 0 for a text or a record
  const TEnumInfo* Names = nullptr;  ///< of an enumeration or a set
  bool InStream = false;
  bool InXml = false;
  bool InIni = false;

  bool IsLike(const TZyFieldRow& Other) const { return Xml == Other.Xml && Ini == Other.Ini && Kind == Other.Kind; }
};

/// What the field list of an object tells, in the order of the stream, both groups of each alternative included: the
/// description of its class's record. Of a list of things with fields it has those of the first, if there is one.
std::vector<TZyFieldRow> FieldTable(TZyRecord& Object);

/// The rows as a table in Markdown: place in the stream, width, kind, XML, INI. Only what a form has is filled in;
/// the name of a field of the stream alone stands behind its kind.
std::string FieldTableText(const std::vector<TZyFieldRow>& Rows);

}  // namespace zy
