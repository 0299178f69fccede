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

/// The node that holds the last name of the path; null when the field is a later addition and the node is absent.
IXMLNode NodeOf(const IXMLNode& Node, const TZyFieldName& Name, std::string_view& Path) {
  return WalkDown(Node, Path, [&Name](const IXMLNode& Parent, std::string_view Child) {
    return Name.IsLater() ? Parent.FindNode(Child) : Parent.Node(Child);
  });
}

}  // namespace

void TZyXmlWriter::Put(const TZyFieldName& Name, std::string_view Text) {
  std::string_view Path = Name.XmlName();
  WalkDown(Node(), Path, FindOrAdd).SetAttribute(Path, Text);
}

bool TZyXmlWriter::Visit(const TZyFieldName& Name, bool& Value) {
  Put(Name, TVariant(Value).AsText());
  return false;
}

bool TZyXmlWriter::Visit(const TZyFieldName& Name, std::string& Value) {
  Put(Name, Value);
  return false;
}

bool TZyXmlWriter::BeginPart(const TZyFieldName& Name) {
  std::string_view Path = Name.XmlName();
  const IXMLNode Parent = WalkDown(Node(), Path, FindOrAdd);
  FNodes.push_back(Parent.AddChild(Path));
  return true;
}

void TZyXmlWriter::BeginLevel(const char* Name) { FNodes.push_back(FindOrAdd(Node(), Name)); }

std::optional<std::string> TZyXmlReader::Get(const TZyFieldName& Name) const {
  std::string_view Path = Name.XmlName();
  const IXMLNode Holder = NodeOf(Node(), Name, Path);
  if (Name.IsLater() && (!Holder || !Holder.HasAttribute(Path))) return {};
  return Holder.Attribute(Path).AsText();
}

void TZyXmlReader::Mistyped(const TZyFieldName& Name, std::string_view Text) const {
  throw EConvertError(
      Format(LoadResString(_sPropUnknownValue), {Text, Node().NodeName() + "." + std::string(Name.XmlName())}));
}

bool TZyXmlReader::BeginPart(const TZyFieldName& Name) {
  std::string_view Path = Name.XmlName();
  const IXMLNode Parent = NodeOf(Node(), Name, Path);
  if (Name.IsLater() && !Parent.ContainsNode(Path)) return false;
  FNodes.push_back(Parent.Node(Path));
  return true;
}

void TZyXmlReader::BeginLevel(const char* Name) { FNodes.push_back(Node().Node(Name)); }

}  // namespace zy
