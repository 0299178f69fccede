#pragma once

#include <string_view>

namespace zy {

/// Where a field stands in the text forms, and what its absence means there. The stream has no names.
///
///     TZyFieldName("Width").Default("1")             // one name for XML and INI; an absent INI key reads as "1"
///     TZyFieldName("AreaStyle").Ini("Style")         // another name in INI
///     TZyFieldName("CaptionVisible").Xml("Caption/Properties/Visible").Later()
///     TZyFieldName("Caption").Text()                 // <Caption>the text</Caption>
///     TZyFieldName("Captions").CountKey("Rubrics.Count")
///
/// An XML name is an attribute of the object's node or, behind "/", of a node below it; for a group or a list it is the
/// node itself. INI names get the prefix of the parts around them. Texts must outlive the name; literals do.
class TZyFieldName {
 public:
  TZyFieldName(std::string_view Name) : FXml(Name), FIni(Name) {}
  TZyFieldName(const char* Name) : TZyFieldName(std::string_view(Name)) {}

  TZyFieldName& Xml(std::string_view Value) { return FXml = Value, *this; }
  TZyFieldName& Ini(std::string_view Value) { return FIni = Value, *this; }
  /// What an absent INI key reads as. Without it an absent key leaves the property alone.
  TZyFieldName& Default(std::string_view Value) { return FDefault = Value, *this; }
  /// Came in a later version: where it is absent in XML the property is left alone. Any other absence there is an
  /// error.
  TZyFieldName& Later() { return FIsLater = true, *this; }
  /// A text that may have several lines; INI writes their ends in its own way.
  TZyFieldName& MultiLine() { return FIsMultiLine = true, *this; }
  /// In XML the value is the text of the element of that name. MultiLine in INI.
  TZyFieldName& Text() { return FIsElement = FIsMultiLine = true, *this; }

  /// A list of texts, parts or records in INI: the key of its count, by default the name and ".Count".
  TZyFieldName& CountKey(std::string_view Value) { return FCountKey = Value, *this; }
  /// Such a list: the numbers of its keys stand in square brackets, Name[0].
  TZyFieldName& Square() { return FIsSquare = true, *this; }
  /// A list that a writer leaves out, with -1 as its count, when Value is true. A reader then leaves it alone.
  TZyFieldName& Omit(bool Value) { return FIsOmitted = Value, *this; }
  /// An alternative of which INI tells by whether the section of that name, behind that of the object, is there.
  TZyFieldName& Section() { return FIsSection = true, *this; }
  /// A record in XML: how many of the same class stand before it in the same node.
  TZyFieldName& Behind(int Value) { return FBehind = Value, *this; }

  std::string_view XmlName() const { return FXml; }
  std::string_view IniName() const { return FIni; }
  std::string_view DefaultText() const { return FDefault; }
  bool IsLater() const { return FIsLater; }
  bool IsMultiLine() const { return FIsMultiLine; }
  bool IsElement() const { return FIsElement; }
  std::string_view CountName() const { return FCountKey; }
  bool IsSquare() const { return FIsSquare; }
  bool IsOmitted() const { return FIsOmitted; }
  bool IsSection() const { return FIsSection; }
  int Before() const { return FBehind; }

 private:
  std::string_view FXml;
  std::string_view FIni;
  std::string_view FDefault;
  std::string_view FCountKey;
  int FBehind = 0;
  bool FIsLater = false;
  bool FIsMultiLine = false;
  bool FIsElement = false;
  bool FIsSquare = false;
  bool FIsOmitted = false;
  bool FIsSection = false;
};

}  // namespace zy
