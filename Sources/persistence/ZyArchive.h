#pragma once

#include <concepts>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "graph/values/ZyColors.h"
#include "persistence/ZyFieldName.h"
#include "persistence/ZyIO.h"
#include "persistence/ZyRecord.h"
#include "platform/framework/EnumInfo.h"
#include "platform/framework/ShiftState.h"
#include "platform/framework/TComponent.h"

namespace zy {

class TPropInfo;

/// Who a stored object is: its class, empty where the record does not tell it, and its reference (GetComponentRef).
struct TZyIdentity {
  std::string ClassName;
  std::string Reference;
};

/// A group of fields that an archive enters and leaves.
struct TZyScope {
  enum TKind { Part, Level, List, Item, ListedRecord, Record };
  TKind Kind;
  const TZyFieldName& Name;
  int Index = -1;
  std::string_view NodeName = {};     ///< of a record's own node
  const TZyRecord* Object = nullptr;  ///< whose fields a part has; null for some of its holder's own
};

/// The one mechanism behind the three stored forms: stream, XML and INI.
///
/// A class has one list of its fields, TZyRecord::Fields, which tells an archive of each in the order of the stream.
/// The six archives (ZyStreamArchive.h, ZyXmlArchive.h, ZyIniArchive.h) write or read what they are told of, so forms
/// and directions cannot drift apart:
///
///     void TZyAreaSettings::Fields(TZyArchive& Archive) {
///       using T = TZyAreaSettings;
///       Archive.Field<&T::Visible, &T::SetVisible>(*this, "Visible");
///       Archive.Field<&T::AreaStyle, &T::SetAreaStyle>(*this, TZyFieldName("AreaStyle").Ini("Style"));
///       if (!Archive.NextGroup()) return;
///       Archive.Part(TZyFieldName("Gradient").Later(), FGradient);
///       Archive.EndRecord();
///     }
///
/// What only one form has stands behind a question: `if (Archive.IsStream()) ...`.
///
/// The kind of a field comes from its type: `bool`, an enumeration, a set, `std::int32_t`, TZyColor (every unsigned is
/// a colour), `float`, `double`, `std::string`. A reader reads a value whole and tests it, then runs the setter; so a
/// failure leaves what was read before it and nothing half-set. Ordinals and sets beyond the enumeration, and counts
/// beyond what is left, are EReadError in a stream and EConvertError in a text, before anything is allocated. A writer
/// only runs getters. After an error the archive is of no further use: it stands where the error was.
class TZyArchive {
 public:
  virtual ~TZyArchive() = default;
  TZyArchive(const TZyArchive&) = delete;
  TZyArchive& operator=(const TZyArchive&) = delete;

  virtual bool IsReading() const = 0;
  virtual bool IsStream() const { return false; }
  virtual bool IsXml() const { return false; }
  virtual bool IsIni() const { return false; }

  // ---- Values ----

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
    std::remove_cvref_t<decltype(Get())> Value = Get();
    if (Take(Name, Value)) Set(std::move(Value));
  }

  /// A member that is read without a setter. A list may be one: of `double`, `std::int32_t` or `std::string`. The
  /// stream has its count and its elements, which are read and written in one block when they are numbers. XML has a
  /// node with the count and an `Item` for each. INI has numbers in one line, "None" when there are none, and texts
  /// under keys Name(0) and so on. Whether it was read: false in a writer, and where the field is left alone. Of a list
  /// that ends in an error the elements before it are kept.
  template <class T>
  bool Value(const TZyFieldName& Name, T& Member) {
    return Take(Name, Member);
  }

  /// Properties by the rows of the object's table, in the order of the names, which have blanks between them. The
  /// stored name is that of the property. Settings objects are parts.
  void Properties(TPersistent& Object, std::string_view Names);

  // ---- References ----

  /// The first row of a record: the reference of the object. A reader drops it, since whoever reads has found the
  /// object by it.
  void Identity(const TComponent& Object);
  /// The same behind the name of the class, which is the node's name in XML and `Type` in INI.
  void TypedIdentity(const TComponent& Object);

  /// A property that refers to another component, stored as GetComponentRef. What does not resolve to one of the
  /// property's class reads as null. In a list of records the other one may stand further behind: what does not resolve
  /// is null until the list was read, and then set once more.
  template <auto Getter, auto Setter, class TObjectClass>
  void Reference(TObjectClass& Object, const TZyFieldName& Name) {
    Reference(
        Name, [&Object] { return (std::as_const(Object).*Getter)(); },
        [&Object](auto* Target) { (Object.*Setter)(Target); });
  }

  /// The same for a pointer that Get returns and Set takes; both may hold the object, and nothing that it outlives.
  template <class TGet, class TSetTarget>
  void Reference(const TZyFieldName& Name, TGet Get, TSetTarget Set) {
    std::string Ref = GetComponentRef(Get());
    if (Take(Name, Ref))
      Resolve(Ref, [Set](TComponent* Target) { Set(dynamic_cast<decltype(std::declval<TGet>()())>(Target)); });
  }

  // ---- Groups ----

  /// An object inside this one: its fields follow in the stream, stand in a child node of that name in XML, and have
  /// the name as a further prefix in INI. An empty name leaves out the node or the prefix.
  template <std::invocable TFields>
  void Part(const TZyFieldName& Name, TFields Fields) {
    Within({TZyScope::Part, Name}, Fields);
  }
  void Part(const TZyFieldName& Name, TZyRecord& Object) {
    Within({TZyScope::Part, Name, -1, {}, &Object}, [&] { Object.Fields(*this); });
  }

  /// The fields of one class in a chain of classes, or of one theme: in XML they stand in a child node of that name;
  /// the other forms have all in a row. A level may be entered again.
  template <std::invocable TFields>
  void Level(const TZyFieldName& Name, TFields Fields) {
    Within({TZyScope::Level, Name}, Fields);
  }

  /// A level that is the properties of those names, and ends the record of its class.
  void Level(const TZyFieldName& Name, TPersistent& Object, std::string_view Names) {
    Level(Name, [&] {
      Properties(Object, Names);
      EndRecord();
    });
  }

  /// One of two groups of fields. The stream has a flag; XML tells by whether the node of that name is there, which the
  /// first group makes; INI has a boolean key. A form in which the name is empty has no flag: a writer follows IsFirst
  /// and a reader tries the first group, whose fields are then absent in XML or INI. The result is whether it was the
  /// first: `FDBData = Archive.Alternative(...)`.
  template <std::invocable TFirst, std::invocable TSecond>
  bool Alternative(const TZyFieldName& Name, bool IsFirst, TFirst First, TSecond Second) {
    const bool TakesFirst = Choose(Name, IsFirst);
    if (TakesFirst || VisitsAll()) First();
    if (!TakesFirst || VisitsAll()) Second();
    return TakesFirst;
  }
  /// A group of fields that may be left out.
  template <std::invocable TFirst>
  bool Alternative(const TZyFieldName& Name, bool IsThere, TFirst First) {
    return Alternative(Name, IsThere, First, [] {});
  }

  /// The continuation byte between two groups of fields: whether the next one follows. A record of an older writer ends
  /// before it; its properties are then left alone. Without meaning, and true, in the text forms.
  virtual bool NextGroup() { return true; }
  /// The byte at the end of a record. A reader ignores its value: it knows of no further group.
  virtual void EndRecord() {}

  // ---- Lists and records ----

  /// A list whose elements Get copies into a vector and Set takes from one; see Value for the forms.
  template <class TGet, class TSetList>
  void List(const TZyFieldName& Name, TGet Get, TSetList Set) {
    decltype(Get()) Values;
    if (!IsReading()) Values = Get();
    if (Take(Name, Values)) Set(std::move(Values));
  }

  /// A list of things with fields of their own: Start hears the count in a reader, and Item tells the fields of the
  /// element of that index, which a reader makes. XML has an `Item` node for each, INI the prefix Name(0) and so on.
  void Items(const TZyFieldName& Name, int Count, const std::function<void(int Count)>& Start,
             const std::function<void(int Index)>& Item);

  /// A whole record inside this one: it follows in the stream, stands in its own node in the node of that name in XML
  /// (in this one's when the name is empty), and has a section of its own in INI, this one's with a point and the name
  /// behind it.
  void Record(const TZyFieldName& Name, TZyRecord& Object);

  /// A list of objects that a reader finds or makes. A reader calls Take with the identity of each, and Take passes the
  /// object to Read, or leaves the record out, which is an error in a stream, since what follows cannot be found then.
  /// Typed tells whether the records begin with the class. INI has each in a section of its own: this one's, a point,
  /// the name, and the index in brackets.
  using TReadObject = std::function<void(TZyRecord& Object)>;
  using TTakeObject = std::function<void(const TZyIdentity& Who, const TReadObject& Read)>;
  void Records(const TZyFieldName& Name, const std::vector<TZyRecord*>& Objects, bool Typed, const TTakeObject& Take);
  /// One such object, whose record begins with its reference and has the node of that name in XML. Its place is that of
  /// a record inside this one. Written counts in writers alone.
  void Record(const TZyFieldName& Name, std::string_view NodeName, TZyRecord* Written, const TTakeObject& Take);

  // ---- For TZyRecord: where a reader stands ----

  using TMark = std::size_t;
  TMark Mark() const { return FPlaces.size(); }
  /// The groups entered since, and the last field, as ", Caption.Font.Size". They are then forgotten.
  std::string PlaceSince(TMark Mark);

 protected:
  TZyArchive() = default;

  /// The ordinal of an enumeration or the bits of a set, with what the stream and the tests have to know.
  struct TOrdinal {
    std::uint32_t Value;
    std::uint32_t Limit;     ///< first value that is none
    int Width;               ///< bytes in the stream
    const TEnumInfo* Names;  ///< of the values, or of the bits of a set
  };

  // A writer writes Value and returns false. A reader returns whether it has read one.
  virtual bool Visit(const TZyFieldName& Name, bool& Value) = 0;
  virtual bool Visit(const TZyFieldName& Name, TOrdinal& Value) = 0;
  virtual bool Visit(const TZyFieldName& Name, std::int32_t& Value) = 0;
  virtual bool Visit(const TZyFieldName& Name, TZyColor& Value) = 0;
  virtual bool Visit(const TZyFieldName& Name, float& Value) = 0;
  virtual bool Visit(const TZyFieldName& Name, double& Value) = 0;
  virtual bool Visit(const TZyFieldName& Name, std::string& Value) = 0;
  virtual bool Visit(const TZyFieldName& Name, std::vector<double>& Values) = 0;
  virtual bool Visit(const TZyFieldName& Name, std::vector<std::int32_t>& Values) = 0;
  virtual bool Visit(const TZyFieldName& Name, std::vector<std::string>& Values) = 0;

  /// The flag of an alternative: the one to write, and the one that counts.
  virtual bool Choose(const TZyFieldName& Name, bool IsFirst) = 0;
  /// The count of a list that was entered; a reader gives one that the rest of the form can hold.
  virtual void VisitCount(const TZyFieldName& Name, int& Count) = 0;
  /// False leaves the group out.
  virtual bool Enter(const TZyScope&) { return true; }
  virtual void Leave() {}
  /// Who the object of the entered record is, which is not read past; for readers.
  virtual TZyIdentity Identify(bool) { return {}; }
  /// Whether both groups of an alternative are visited, for those who want to know what there is.
  virtual bool VisitsAll() const { return false; }

 private:
  /// Not left again after an error, so that it can be told where the error was.
  template <class TFields>
  void Within(const TZyScope& Scope, const TFields& Fields) {
    if (!Begin(Scope)) return;
    Fields();
    End();
  }
  bool Begin(const TZyScope& Scope);
  void Property(TPersistent& Object, const TPropInfo& Row);
  using TSetTarget = std::function<void(TComponent* Target)>;
  void Resolve(const std::string& Ref, TSetTarget Set);
  void ResolvePending(std::size_t First);
  void TakeRecord(bool Typed, const TTakeObject& Take);
  void ReadListed(TZyRecord& Object);
  void Reference(TPersistent& Object, const TPropInfo& Row, const TZyFieldName& Name);
  void End();

  template <class T>
  bool Take(const TZyFieldName& Name, T& Value) {
    if (IsReading()) FField = Name.XmlName();
    return Visit(Name, Value);
  }

  template <class TEnum>
  requires std::is_enum_v<TEnum>
  bool Visit(const TZyFieldName& Name, TEnum& Value) {
    TOrdinal Ordinal{static_cast<std::uint32_t>(Value), static_cast<std::uint32_t>(EnumInfo(TEnum{}).Values.size()), 1,
                     &EnumInfo(TEnum{})};
    if (!Visit(Name, Ordinal)) return false;
    Value = static_cast<TEnum>(Ordinal.Value);
    return true;
  }

  template <class TEnum>
  bool Visit(const TZyFieldName& Name, TSet<TEnum>& Value) {
    const auto Limit = std::uint32_t{1} << EnumInfo(TEnum{}).Values.size();
    TOrdinal Ordinal{Value.Bits(), Limit, std::is_same_v<TEnum, TShiftStateElement> ? 2 : 1, &EnumInfo(TEnum{})};
    if (!Visit(Name, Ordinal)) return false;
    Value = TSet<TEnum>::FromBits(Ordinal.Value);
    return true;
  }

  /// A reference of a listed object to one that was not there yet, or may give way to another one of the list.
  struct TPending {
    std::uint64_t Holder;  // its live handle: an object of the list may give way to another one
    std::uint64_t Target;  // likewise, 0 for none yet
    std::string Ref;
    TSetTarget Set;
  };

  std::vector<TPending> FPending;
  std::uint64_t FListed = 0;         // the live handle of the listed object that is being read, 0 for none
  std::vector<std::string> FPlaces;  // the groups that a reader is in
  std::string FField;                // the last field that it came to
};

}  // namespace zy
