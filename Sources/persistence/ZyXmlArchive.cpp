#include "persistence/ZyXmlArchive.h"

#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

/// Walks from Node down the names in front of the last "/" and leaves the last name in Path. Step gives the child of a
/// name.
template <class TStep>
IXMLNode WalkDown(IXMLNode Node, std::string_view& Path, TStep Step) {
  for (std::size_t Slash = Path.find('/'); Slash != std::string_view::npos && Node; Slash = Path.find('/')) {
    Node = Step(Node, Path.substr(0, Slash));
    Path.remove_prefix(Slash + 1);
  }
  return Node;
}

IXMLNode FindOrAdd(const IXMLNode& Node, std::string_view Name) {
  const IXMLNode Found = Node.FindNode(Name);
  return Found ? Found : Node.AddChild(Name);
}

/// The node of the whole path, made where it is absent. Node itself for an empty path.
IXMLNode MadeNode(const IXMLNode& Node, std::string_view Path) {
  const IXMLNode Parent = WalkDown(Node, Path, FindOrAdd);
  return Path.empty() ? Parent : FindOrAdd(Parent, Path);
}

/// The node that holds the last name of the path; null when the field is a later addition and the node is absent.
IXMLNode NodeOf(const IXMLNode& Node, const TZyFieldName& Name, std::string_view& Path) {
  return WalkDown(Node, Path, [&Name](const IXMLNode& Parent, std::string_view Child) {
    return Name.IsLater() ? Parent.FindNode(Child) : Parent.Node(Child);
  });
}

/// The node of the whole path. Null when the field is a later addition and one on the way is absent.
IXMLNode WholeNodeOf(const IXMLNode& Node, const TZyFieldName& Name) {
  std::string_view Path = Name.XmlName();
  IXMLNode Parent = NodeOf(Node, Name, Path);
  if (Path.empty()) return Parent;
  return Name.IsLater() ? Parent.FindNode(Path) : Parent.Node(Path);
}

/// Whether the writer left the list out.
bool IsOmitted(const IXMLNode& List) {
  return List.HasAttribute("Count") && List.Attribute("Count").AsText().starts_with('-');
}

}  // namespace

void TZyXmlWriter::Put(const TZyFieldName& Name, std::string_view Text) {
  if (Name.IsElement()) return MadeNode(Node(), Name.XmlName()).SetText(Text);
  std::string_view Path = Name.XmlName();
  WalkDown(Node(), Path, FindOrAdd).SetAttribute(Path, Text);
}

void TZyXmlWriter::PutItems(const TZyFieldName& Name, std::size_t Count, const TTextAt& TextAt) {
  const IXMLNode Items = MadeNode(Node(), Name.XmlName());
  Items.SetAttribute("Count", Name.IsOmitted() ? -1 : static_cast<int>(Count));
  if (Name.IsOmitted()) return;
  for (std::size_t Index = 0; Index < Count; ++Index) Items.AddChild("Item").SetText(TextAt(Index));
}

void TZyXmlWriter::PutTexts(const TZyFieldName& Name, const std::vector<std::string>& Texts) {
  PutItems(Name, Texts.size(), [&](std::size_t Index) { return Texts[Index]; });
}

bool TZyXmlWriter::Visit(const TZyFieldName& Name, bool& Value) {
  Put(Name, TVariant(Value).AsText());
  return false;
}

bool TZyXmlWriter::Visit(const TZyFieldName& Name, std::string& Value) {
  Put(Name, Value);
  return false;
}

void TZyXmlWriter::VisitCount(const TZyFieldName& Name, int& Count) {
  if (Name.IsOmitted()) Count = -1;
  Node().SetAttribute("Count", Count);
}

bool TZyXmlWriter::Enter(const TZyScope& Scope) {
  switch (Scope.Kind) {
    case TZyScope::Part:
    case TZyScope::Level:
    case TZyScope::List:
      FNodes.push_back(MadeNode(Node(), Scope.Name.XmlName()));
      break;
    case TZyScope::Item:
      FNodes.push_back(Node().AddChild("Item"));
      break;
    case TZyScope::ListedRecord:
      FNodes.push_back(Node().AddChild(Scope.NodeName));
      break;
    case TZyScope::Record:
      FNodes.push_back(MadeNode(Node(), Scope.Name.XmlName()).AddChild(Scope.NodeName));
      break;
  }
  return true;
}

std::optional<std::string> TZyXmlReader::Get(const TZyFieldName& Name) const {
  if (Name.IsElement()) {
    const IXMLNode Element = WholeNodeOf(Node(), Name);
    if (!Element) return {};
    return Element.Text();
  }
  std::string_view Path = Name.XmlName();
  const IXMLNode Holder = NodeOf(Node(), Name, Path);
  if (Name.IsLater() && (!Holder || !Holder.HasAttribute(Path))) return {};
  return Holder.Attribute(Path).AsText();
}

bool TZyXmlReader::GetItems(const TZyFieldName& Name, const TStart& Start, const TTakeText& Take) const {
  const IXMLNode List = WholeNodeOf(Node(), Name);
  if (!List || IsOmitted(List)) return false;
  const std::vector<IXMLNode> Items = List.ChildNodes();
  Start(Items.size());
  for (const IXMLNode& Item : Items) Take(Item.Text());
  return true;
}

void TZyXmlReader::Mistyped(const TZyFieldName& Name, std::string_view Text) const {
  throw EConvertError(
      Format(LoadResString(_sPropUnknownValue), {Text, Node().NodeName() + "." + std::string(Name.XmlName())}));
}

bool TZyXmlReader::Choose(const TZyFieldName& Name, bool) {
  return Name.XmlName().empty() || WholeNodeOf(Node(), TZyFieldName(Name.XmlName()).Later());
}

/// The nodes themselves count; what the attribute tells is only whether the list was left out.
void TZyXmlReader::VisitCount(const TZyFieldName&, int& Count) {
  Count = IsOmitted(Node()) ? -1 : static_cast<int>(FPlaces.back().Items.size());
}

bool TZyXmlReader::Enter(const TZyScope& Scope) {
  TPlace Place;
  switch (Scope.Kind) {
    case TZyScope::Part:
    case TZyScope::Level:
      Place.Node = WholeNodeOf(Node(), Scope.Name);
      break;
    case TZyScope::List:
      Place.Node = WholeNodeOf(Node(), Scope.Name);
      Place.Items = Place.Node.ChildNodes();
      break;
    case TZyScope::Item:
    case TZyScope::ListedRecord:
      Place.Node = FPlaces.back().Items[static_cast<std::size_t>(Scope.Index)];
      break;
    case TZyScope::Record:
      if (const IXMLNode Holder = WholeNodeOf(Node(), Scope.Name)) Place.Node = NthNode(Holder, Scope);
      break;
  }
  if (!Place.Node) return false;
  FPlaces.push_back(std::move(Place));
  return true;
}

IXMLNode TZyXmlReader::NthNode(const IXMLNode& Holder, const TZyScope& Scope) {
  int Left = Scope.Name.Before();
  for (const IXMLNode& Child : Holder.ChildNodes())
    if (Child.NodeName() == Scope.NodeName && Left-- == 0) return Child;
  if (Scope.Name.IsLater()) return {};
  throw EXMLError(Format(LoadResString(_sNoNode), {Scope.NodeName}));
}

TZyIdentity TZyXmlReader::Identify(bool) {
  return {Node().NodeName(), Node().HasAttribute("Name") ? Node().Attribute("Name").AsText() : std::string()};
}

}  // namespace zy
