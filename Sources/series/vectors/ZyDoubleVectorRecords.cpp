// The record of a data vector in the three forms of stored charts.

#include <algorithm>

#include "graph/values/ZyStringFunctions.h"
#include "persistence/ZyIO.h"
#include "platform/framework/TCustomIniFile.h"
#include "platform/framework/XmlNode.h"
#include "series/vectors/ZyDoubleVector.h"

namespace zy {
namespace {

constexpr std::string_view NodeName = "TZyDoubleVector";
constexpr std::string_view NoValues = "None";  // in INI, where an empty text would read as an absent key

/// Calls Take for each of the words of Text, which are separated by blanks; once for all, since a vector may hold
/// millions.
template <class TTake>
void ForEachWord(std::string_view Text, const TTake& Take) {
  while (true) {
    Text.remove_prefix(std::min(Text.find_first_not_of(' '), Text.size()));
    if (Text.empty()) return;
    const std::size_t End = std::min(Text.find(' '), Text.size());
    Take(Text.substr(0, End));
    Text.remove_prefix(End);
  }
}

int IntFromWord(std::string_view Word) {
  std::string Text(Word);
  return ExtractOneInt(Text);
}

template <class TRange, class TText>
std::string Joined(const TRange& Values, const TText& TextOf) {
  std::string Result;
  for (const auto Value : Values) {
    if (!Result.empty()) Result += ' ';
    Result += TextOf(Value);
  }
  return Result.empty() ? std::string(NoValues) : Result;
}

template <class TRange, class TText>
void ToItems(const IXMLNode& Node, const TRange& Values, const TText& TextOf) {
  Node.SetAttribute("Count", static_cast<int>(std::size(Values)));
  for (const auto Value : Values) Node.AddChild("Item").SetText(TextOf(Value));
}

}  // namespace

void TZyDoubleVector::WriteTo(TStream& Stream) const {
  StringToStream(Stream, GetComponentRef(this));
  ToStream(Stream, std::int32_t{Increment()});
  ToStream(Stream, std::int32_t{Capacity()});
  ToStream(Stream, FDBData);
  if (FDBData) {
    StringToStream(Stream, GetComponentRef(DataSource()));
    StringToStream(Stream, DataField());
  } else {
    ToStream(Stream, std::int32_t{FCount});
    ArrayToStream(Stream, Values());
  }
  ToStream(Stream, AnyOutliers());
  if (AnyOutliers()) {
    const std::span<const int> Marks = Outliers().Marked();
    ToStream(Stream, static_cast<std::int32_t>(Marks.size()));
    for (const int Mark : Marks) ToStream(Stream, std::int32_t{Mark});
  }
  ContinuationToStream(Stream, false);
}

void TZyDoubleVector::ReadFrom(TStream& Stream) {
  StringFromStream(Stream);
  const auto NewIncrement = FromStream<std::int32_t>(Stream);
  const auto NewCapacity = FromStream<std::int32_t>(Stream);
  Clear();
  SetIncrement(NewIncrement);
  if (FromStream<bool>(Stream)) {
    const std::string Source = StringFromStream(Stream);
    LinkTo(Source, StringFromStream(Stream));
  } else {
    const int NewCount = CountFromStream(Stream, sizeof(double));
    SetCapacity(NewCapacity);
    CheckCount(NewCount);
    ArrayFromStream(Stream, FArray);
    OutOfRange();
  }
  if (FromStream<bool>(Stream))
    for (int Left = CountFromStream(Stream, sizeof(std::int32_t)); Left > 0; --Left)
      AddOutlier(FromStream<std::int32_t>(Stream));
  ContinuationFromStream(Stream);
}

/// A source that cannot be found leaves the vector without one, and unbound.
void TZyDoubleVector::LinkTo(std::string_view SourceRef, const std::string& NewField) {
  SetDataSource(dynamic_cast<TDataSource*>(GetComponentFromRef(SourceRef)));
  SetDataField(NewField);
  FDBData = FUpdateDB = DataSource() != nullptr;
}

void TZyDoubleVector::WriteTo(const std::filesystem::path& FileName) const {
  TFileStream File(FileName, fmCreate);
  WriteTo(File);
}

void TZyDoubleVector::ReadFrom(const std::filesystem::path& FileName) {
  TFileStream File(FileName, fmOpenRead | fmShareDenyWrite);
  ReadFrom(File);
}

void TZyDoubleVector::WriteTo(const IXMLNode& Node) const {
  const IXMLNode Mine = Node.AddChild(NodeName);
  Mine.SetAttribute("Name", Name());
  Mine.SetAttribute("Increment", Increment());
  Mine.SetAttribute("Capacity", Capacity());
  if (FDBData) {
    const IXMLNode Link = Mine.AddChild("Database");
    Link.SetAttribute("DataSource", GetComponentRef(DataSource()));
    Link.SetAttribute("DataField", DataField());
  } else {
    ToItems(Mine.AddChild("Values"), Values(), DoubleToStr);
  }
  if (AnyOutliers())
    ToItems(Mine.AddChild("Outliers"), Outliers().Marked(), [](int Mark) { return std::to_string(Mark); });
}

void TZyDoubleVector::ReadFrom(const IXMLNode& Node) {
  const IXMLNode Mine = Node.Node(NodeName);
  Clear();
  SetIncrement(static_cast<int>(Mine.Attribute("Increment").AsInteger()));
  SetCapacity(static_cast<int>(Mine.Attribute("Capacity").AsInteger()));
  if (const IXMLNode Link = Mine.FindNode("Database"))
    LinkTo(Link.Attribute("DataSource").AsText(), Link.Attribute("DataField").AsText());
  else if (const IXMLNode Items = Mine.FindNode("Values"))
    for (const IXMLNode& Item : Items.ChildNodes()) Add(DoubleFromStr(Item.Text()));
  if (const IXMLNode Items = Mine.FindNode("Outliers"))
    for (const IXMLNode& Item : Items.ChildNodes()) AddOutlier(IntFromWord(Item.Text()));
}

void TZyDoubleVector::WriteTo(TCustomIniFile& Ini, std::string_view Section) const {
  Ini.WriteString(Section, "Name", Name());
  Ini.WriteInteger(Section, "Increment", Increment());
  Ini.WriteInteger(Section, "Capacity", Capacity());
  Ini.WriteBool(Section, "FromDatabase", FDBData);
  if (FDBData) {
    Ini.WriteString(Section, "DataSource", GetComponentRef(DataSource()));
    Ini.WriteString(Section, "DataField", DataField());
  } else {
    Ini.WriteString(Section, "Values", Joined(Values(), DoubleToStr));
  }
  Ini.WriteString(Section, "Outliers", Joined(Outliers().Marked(), [](int Mark) { return std::to_string(Mark); }));
}

void TZyDoubleVector::ReadFrom(const TCustomIniFile& Ini, std::string_view Section) {
  Clear();
  SetIncrement(Ini.ReadInteger(Section, "Increment", Increment()));
  SetCapacity(Ini.ReadInteger(Section, "Capacity", Capacity()));
  if (Ini.ReadBool(Section, "FromDatabase", false))
    LinkTo(Ini.ReadString(Section, "DataSource", ""), Ini.ReadString(Section, "DataField", ""));
  const std::string NewValues = Ini.ReadString(Section, "Values", NoValues);
  if (!FDBData && NewValues != NoValues)
    ForEachWord(NewValues, [this](std::string_view Word) { Add(DoubleFromStr(Word)); });
  const std::string Marks = Ini.ReadString(Section, "Outliers", NoValues);
  if (Marks != NoValues) ForEachWord(Marks, [this](std::string_view Word) { AddOutlier(IntFromWord(Word)); });
}

}  // namespace zy
