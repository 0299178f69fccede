#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "graph/values/ZyColors.h"
#include "platform/framework/EnumInfo.h"
#include "platform/framework/ShiftState.h"

namespace zy {

/// Where a field stands in the text forms, and what its absence means there. The stream has no names.
///
///     TZyFieldName("Width").Default("1")             // one name for XML and INI; an absent INI key reads as "1"
///     TZyFieldName("AreaStyle").Ini("Style")         // another name in INI
///     TZyFieldName("CaptionVisible").Xml("Caption/Properties/Visible").Later()
///
/// An XML name is an attribute of the object's node or, behind "/", of a node below it. INI names get the prefix of the
/// parts around them. Texts must outlive the name; literals do.
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

  std::string_view XmlName() const { return FXml; }
  std::string_view IniName() const { return FIni; }
  std::string_view DefaultText() const { return FDefault; }
  bool IsLater() const { return FIsLater; }
  bool IsMultiLine() const { return FIsMultiLine; }

 private:
  std::string_view FXml;
  std::string_view FIni;
  std::string_view FDefault;
  bool FIsLater = false;
  bool FIsMultiLine = false;
};

/// The one mechanism behind the three stored forms: stream, XML and INI.
///
/// A class has one list of its fields, a function that tells an archive of each in the order of the stream. The six
/// archives (ZyStreamArchive.h, ZyXmlArchive.h, ZyIniArchive.h) write or read what they are told of, so forms and
/// directions cannot drift apart:
///
///     void Fields(TZyArchive& Archive, TZyAreaSettings& Area) {
///       Archive.Field<&TZyAreaSettings::Visible, &TZyAreaSettings::SetVisible>(Area, "Visible");
///       Archive.Field<&TZyAreaSettings::AreaStyle, &TZyAreaSettings::SetAreaStyle>(
///           Area, TZyFieldName("AreaStyle").Ini("Style"));
///       if (!Archive.NextGroup()) return;
///       Archive.Part(TZyFieldName("Gradient").Later(), [&] { Fields(Archive, Area.Gradient()); });
///       Archive.EndRecord();
///     }
///
/// What only one form has stands behind a question: `if (Archive.IsStream()) ...`.
///
/// The kind of a field comes from its type: `bool`, an enumeration, a set, `std::int32_t`, TZyColor (every unsigned is
/// a colour), `float`, `double`, `std::string`. A reader reads a value whole and tests it, then runs the setter; so a
/// failure leaves what was read before it and nothing half-set. Ordinals and sets beyond the enumeration are EReadError
/// in a stream and EConvertError in a text. A writer only runs getters.
class TZyArchive {
 public:
  virtual ~TZyArchive() = default;
  TZyArchive(const TZyArchive&) = delete;
  TZyArchive& operator=(const TZyArchive&) = delete;

  virtual bool IsReading() const = 0;
  virtual bool IsStream() const { return false; }
  virtual bool IsXml() const { return false; }
  virtual bool IsIni() const { return false; }

  /// A property of an object.
  template <auto Getter, auto Setter, class TObjectClass>
  void Field(TObjectClass& Object, const TZyFieldName& Name) {
    Field(
        Name, [&Object] { return (std::as_const(Object).*Getter)(); },
        [&Object](auto&& Value) { (Object.*Setter)(std::forward<decltype(Value)>(Value)); });
  }

  /// A value that Get returns and Set takes, for what is no plain property.
  template <class TGet, class TSetValue>
  void Field(const TZyFieldName& Name, TGet Get, TSetValue Set) {
    using TValue = std::remove_cvref_t<decltype(Get())>;
    TValue Value = Get();
    if (Visit(Name, Value)) Set(std::move(Value));
  }

  /// An object inside this one: its fields follow in the stream, stand in a child node of that name in XML, and have
  /// the name as a further prefix in INI. Fields() tells of them.
  template <std::invocable TFields>
  void Part(const TZyFieldName& Name, TFields Fields) {
    if (!BeginPart(Name)) return;
    const TEnd End{*this, &TZyArchive::EndPart};
    Fields();
  }

  /// The fields of one class in a chain of classes: in XML they stand in a child node named after it; the other forms
  /// have all classes in a row.
  template <std::invocable TFields>
  void Level(const char* Name, TFields Fields) {
    BeginLevel(Name);
    const TEnd End{*this, &TZyArchive::EndLevel};
    Fields();
  }

  /// The continuation byte between two groups of fields: whether the next one follows. A record of an older writer ends
  /// before it; its properties are then left alone. Without meaning, and true, in the text forms.
  virtual bool NextGroup() { return true; }
  /// The byte at the end of a record. A reader ignores its value: it knows of no further group.
  virtual void EndRecord() {}

 protected:
  TZyArchive() = default;

  /// The ordinal of an enumeration or the bits of a set, with what the stream and the tests have to know.
  struct TOrdinal {
    std::uint32_t Value;
    std::uint32_t Limit;  ///< first value that is none
    int Width;            ///< bytes in the stream
  };

  // A writer writes Value and returns false. A reader returns whether it has read one.
  virtual bool Visit(const TZyFieldName& Name, bool& Value) = 0;
  virtual bool Visit(const TZyFieldName& Name, TOrdinal& Value) = 0;
  virtual bool Visit(const TZyFieldName& Name, std::int32_t& Value) = 0;
  virtual bool Visit(const TZyFieldName& Name, TZyColor& Value) = 0;
  virtual bool Visit(const TZyFieldName& Name, float& Value) = 0;
  virtual bool Visit(const TZyFieldName& Name, double& Value) = 0;
  virtual bool Visit(const TZyFieldName& Name, std::string& Value) = 0;

  /// False leaves the part out.
  virtual bool BeginPart(const TZyFieldName&) { return true; }
  virtual void EndPart() {}
  virtual void BeginLevel(const char*) {}
  virtual void EndLevel() {}

 private:
  struct TEnd {
    TZyArchive& Archive;
    void (TZyArchive::*Proc)();
    ~TEnd() { (Archive.*Proc)(); }
  };

  template <class TEnum>
  requires std::is_enum_v<TEnum>
  bool Visit(const TZyFieldName& Name, TEnum& Value) {
    TOrdinal Ordinal{static_cast<std::uint32_t>(Value), static_cast<std::uint32_t>(EnumInfo(TEnum{}).Values.size()), 1};
    if (!Visit(Name, Ordinal)) return false;
    Value = static_cast<TEnum>(Ordinal.Value);
    return true;
  }

  template <class TEnum>
  bool Visit(const TZyFieldName& Name, TSet<TEnum>& Value) {
    const auto Limit = std::uint32_t{1} << EnumInfo(TEnum{}).Values.size();
    TOrdinal Ordinal{Value.Bits(), Limit, std::is_same_v<TEnum, TShiftStateElement> ? 2 : 1};
    if (!Visit(Name, Ordinal)) return false;
    Value = TSet<TEnum>::FromBits(Ordinal.Value);
    return true;
  }
};

}  // namespace zy
