#include "persistence/ZyFieldTable.h"

#include <algorithm>
#include <string_view>

#include "persistence/ZyArchive.h"
#include "texts/NumberText.h"

namespace zy {
namespace {

/// Notes what it is told of, in the part of one form.
class TFieldLister : public TZyArchive {
 public:
  explicit TFieldLister(bool TZyFieldRow::*Form) : FForm(Form) {}
  std::vector<TZyFieldRow> Rows;

  bool IsReading() const override { return false; }
  bool IsStream() const override { return FForm == &TZyFieldRow::InStream; }
  bool IsXml() const override { return FForm == &TZyFieldRow::InXml; }
  bool IsIni() const override { return FForm == &TZyFieldRow::InIni; }
  bool NextGroup() override { return Note("", "continuation, 1", 1), true; }
  void EndRecord() override { Note("", "continuation, 0", 1); }

 protected:
  using TName = TZyFieldName;
  bool Visit(const TName& Name, bool&) override { return Note(Name, "boolean", 1); }
  bool Visit(const TName& Name, TOrdinal& Value) override {
    const bool IsSet = Value.Limit != Value.Names->Values.size();
    Note(Name, (IsSet ? "set of " : "") + std::string(Value.Names->Name), Value.Width);
    Rows.back().Names = Value.Names;
    return false;
  }
  bool Visit(const TName& Name, std::int32_t&) override { return Note(Name, "integer", 4); }
  bool Visit(const TName& Name, TZyColor&) override { return Note(Name, "colour", 4); }
  bool Visit(const TName& Name, float&) override { return Note(Name, "single", 4); }
  bool Visit(const TName& Name, double&) override { return Note(Name, "double", 8); }
  bool Visit(const TName& Name, std::string&) override { return Note(Name, "text", 0); }
  bool Visit(const TName& Name, std::vector<double>&) override { return Note(Name, "count of doubles", 8); }
  bool Visit(const TName& Name, std::vector<std::int32_t>&) override { return Note(Name, "count of integers", 4); }
  bool Visit(const TName& Name, std::vector<std::string>&) override { return Note(Name, "count of texts", 0); }
  bool Choose(const TName& Name, bool IsFirst) override { return Note(Name, "alternative", 1), IsFirst; }
  void VisitCount(const TName&, int& Count) override { Count = std::min(Count, 1); }
  bool VisitsAll() const override { return true; }

  bool Enter(const TZyScope& Scope) override {
    if (Scope.Kind == TZyScope::List) Note(Scope.Name, "count of parts", 4);
    if (const auto* const Settings = dynamic_cast<const TPersistent*>(Scope.Object); Settings != nullptr)
      return Note(Scope.Name, "record of " + std::string(Settings->ClassName()), 0);
    if (Scope.Kind == TZyScope::Record || Scope.Kind == TZyScope::ListedRecord)
      return Note(Scope.Name, "record of " + std::string(Scope.NodeName), 0);
    TPlace Place = FPlaces.back();
    if (Scope.Kind == TZyScope::Item) {
      Place.Xml += "Item/";
    } else if (!Scope.Name.XmlName().empty()) {
      Place.Xml.append(Scope.Name.XmlName()).append("/");
    }
    const bool IsPrefix = Scope.Kind == TZyScope::Part && !Scope.Name.IniName().empty();
    if (IsPrefix || Scope.Kind == TZyScope::Item) Place.Ini.append(Scope.Name.IniName()).append(".");
    FPlaces.push_back(std::move(Place));
    return true;
  }
  void Leave() override { FPlaces.pop_back(); }

 private:
  struct TPlace {
    std::string Xml;
    std::string Ini;
  };

  bool Note(const TName& Name, std::string_view Kind, int Width) {
    if (Kind.starts_with("continuation") && !IsStream()) return false;
    const TPlace& Place = FPlaces.back();
    TZyFieldRow Row{Place.Xml + std::string(Name.XmlName()), Place.Ini + std::string(Name.IniName()), std::string(Kind),
                    Width};
    Row.*FForm = true;
    Rows.push_back(std::move(Row));
    return false;
  }

  bool TZyFieldRow::*FForm;
  std::vector<TPlace> FPlaces{{}};
};

}  // namespace

std::vector<TZyFieldRow> FieldTable(TZyRecord& Object) {
  std::vector<TZyFieldRow> Table;
  for (bool TZyFieldRow::*const Form : {&TZyFieldRow::InStream, &TZyFieldRow::InXml, &TZyFieldRow::InIni}) {
    TFieldLister Lister(Form);
    Object.Fields(Lister);
    std::size_t At = 0;  // behind the row that was found last
    for (const TZyFieldRow& Row : Lister.Rows) {
      const auto Same = std::find_if(Table.begin() + static_cast<std::ptrdiff_t>(At), Table.end(),
                                     [&](const TZyFieldRow& Other) { return Other.IsLike(Row); });
      if (Same == Table.end()) {
        Table.insert(Table.begin() + static_cast<std::ptrdiff_t>(At), Row);
        ++At;
      } else {
        (*Same).*Form = true;
        At = static_cast<std::size_t>(Same - Table.begin()) + 1;
      }
    }
  }
  return Table;
}

std::string FieldTableText(const std::vector<TZyFieldRow>& Rows) {
  std::string Text = "| # | width | kind | XML | INI |\n|---|---|---|---|---|\n";
  int Number = 0;
  for (const TZyFieldRow& Row : Rows) {
    const std::string Width = Row.InStream && Row.Width > 0 ? IntToStr(Row.Width) : std::string();
    const bool IsNamed = Row.InXml || Row.InIni || Row.Kind.starts_with("continuation");
    const std::string Kind = Row.Kind + (IsNamed ? std::string() : ": " + Row.Xml);
    Text += '|';
    for (const std::string& Cell : {Row.InStream ? IntToStr(++Number) : std::string(), Width, Kind,
                                    Row.InXml ? Row.Xml : std::string(), Row.InIni ? Row.Ini : std::string()})
      Text.append(" ").append(Cell).append(" |");
    Text += '\n';
  }
  return Text;
}

}  // namespace zy
