#include "platform/framework/XmlNode.h"

#include <new>
#include <pugixml.hpp>
#include <utility>

#include "platform/framework/XmlText.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

// Values lie in the tree in their escaped form, just as they stand in a file; see TXMLDocument for the reason.

namespace zy {
namespace {

bool IsElement(pugi::xml_node Node) { return Node.type() == pugi::node_element; }

bool IsTextPart(pugi::xml_node Node) { return Node.type() == pugi::node_pcdata || Node.type() == pugi::node_cdata; }

/// The place for removed elements: an element without a name at the top of the document. They cannot be freed while
/// somebody may refer to them or to what lies below them.
pugi::xml_node RemovedElements(pugi::xml_document& Document) {
  for (const pugi::xml_node Node : Document.children())
    if (IsElement(Node) && *Node.name() == '\0') return Node;
  return Document.append_child(pugi::node_element);
}

pugi::xml_attribute FindAttribute(pugi::xml_node Element, std::string_view Name) {
  for (const pugi::xml_attribute Attribute : Element.attributes())
    if (Attribute.name() == Name) return Attribute;
  return {};
}

void RequireName(std::string_view Name) {
  if (!IsXmlName(Name)) throw EXMLError(Format(LoadResString(_sXmlBadName), {Name}));
}

/// Place names what the text is for.
void RequireText(std::string_view Text, std::string_view Place) {
  if (FirstBadXmlByte(Text) < Text.size()) throw EXMLError(Format(LoadResString(_sXmlBadText), {Place}));
}

/// The tree reports want of memory by an empty handle or by false.
template <class T>
T Allocated(T Result) {
  if (!Result) throw std::bad_alloc();
  return Result;
}

}  // namespace

IXMLNode::IXMLNode(TDocument Document, pugi::xml_node_struct* Element) : FElement(Element) {
  if (Element != nullptr) FDocument = std::move(Document);
}

void IXMLNode::RequireElement() const {
  if (IsNull()) throw EXMLError(std::string(LoadResString(_sXmlNullNode)));
}

std::string IXMLNode::NodeName() const { return pugi::xml_node(FElement).name(); }

IXMLNode IXMLNode::ParentNode() const {
  const pugi::xml_node Parent = pugi::xml_node(FElement).parent();
  if (!IsElement(Parent) || *Parent.name() == '\0') return {};
  return {FDocument, Parent.internal_object()};
}

int IXMLNode::ChildCount() const {
  int Count = 0;
  for (const pugi::xml_node Child : pugi::xml_node(FElement).children()) Count += IsElement(Child) ? 1 : 0;
  return Count;
}

IXMLNode IXMLNode::ChildNode(int Index) const {
  int Left = Index;
  for (const pugi::xml_node Child : pugi::xml_node(FElement).children())
    if (IsElement(Child) && Left-- == 0) return {FDocument, Child.internal_object()};
  throw EXMLError(Format(LoadResString(_sXmlNoChildAt), {NodeName(), Index}));
}

std::vector<IXMLNode> IXMLNode::ChildNodes() const {
  std::vector<IXMLNode> Nodes;
  for (const pugi::xml_node Child : pugi::xml_node(FElement).children())
    if (IsElement(Child)) Nodes.push_back({FDocument, Child.internal_object()});
  return Nodes;
}

IXMLNode IXMLNode::FindNode(std::string_view Name) const {
  for (const pugi::xml_node Child : pugi::xml_node(FElement).children())
    if (IsElement(Child) && Child.name() == Name) return {FDocument, Child.internal_object()};
  return {};
}

IXMLNode IXMLNode::Node(std::string_view Name) const {
  IXMLNode Found = FindNode(Name);
  if (Found.IsNull()) throw EXMLError(Format(LoadResString(_sNoNode), {Name}));
  return Found;
}

IXMLNode IXMLNode::AddChild(std::string_view Name) const {
  RequireElement();
  RequireName(Name);
  int Depth = 1;
  for (IXMLNode Outer = *this; !Outer.IsNull(); Outer = Outer.ParentNode()) ++Depth;
  if (Depth > MaxXmlDepth) throw EXMLError(Format(LoadResString(_sXmlTooDeep), {MaxXmlDepth}));
  const pugi::xml_node Child = Allocated(pugi::xml_node(FElement).append_child(std::string(Name).c_str()));
  return {FDocument, Child.internal_object()};
}

void IXMLNode::RemoveChild(const IXMLNode& Child) const {
  RequireElement();
  if (Child.IsNull() || Child.ParentNode() != *this)
    throw EXMLError(Format(LoadResString(_sXmlNotChild), {Child.NodeName(), NodeName()}));
  Allocated(Allocated(RemovedElements(*FDocument)).append_move(pugi::xml_node(Child.FElement)));
}

bool IXMLNode::HasAttribute(std::string_view Name) const {
  return !FindAttribute(pugi::xml_node(FElement), Name).empty();
}

TVariant IXMLNode::Attribute(std::string_view Name) const {
  RequireElement();
  const pugi::xml_attribute Found = FindAttribute(pugi::xml_node(FElement), Name);
  if (Found.empty()) throw EXMLError(Format(LoadResString(_sXmlNoAttribute), {NodeName(), Name}));
  return UnescapeXml(Found.value()).value();
}

void IXMLNode::SetAttribute(std::string_view Name, const TVariant& Value) const {
  RequireElement();
  RequireName(Name);
  const std::string Text = Value.AsText();
  RequireText(Text, Name);
  const pugi::xml_node Element(FElement);
  pugi::xml_attribute Place = FindAttribute(Element, Name);
  if (Place.empty()) Place = Allocated(pugi::xml_node(Element).append_attribute(std::string(Name).c_str()));
  Allocated(Place.set_value(EscapeXmlAttribute(Text).c_str()));
}

void IXMLNode::DeleteAttribute(std::string_view Name) const {
  RequireElement();
  pugi::xml_node Element(FElement);
  Element.remove_attribute(FindAttribute(Element, Name));
}

std::string IXMLNode::Text() const {
  std::string Text;
  for (const pugi::xml_node Part : pugi::xml_node(FElement).children()) {
    if (Part.type() == pugi::node_pcdata) Text += UnescapeXml(Part.value()).value();
    if (Part.type() == pugi::node_cdata) Text += Part.value();
  }
  return Text;
}

void IXMLNode::SetText(std::string_view Value) const {
  RequireElement();
  pugi::xml_node Element(FElement);
  RequireText(Value, NodeName());
  const std::string Escaped = EscapeXmlText(Value);
  for (pugi::xml_node Part = Element.first_child(); !Part.empty();) {
    const pugi::xml_node Next = Part.next_sibling();
    if (IsTextPart(Part)) Element.remove_child(Part);
    Part = Next;
  }
  if (Escaped.empty()) return;
  pugi::xml_node Part = Allocated(Element.prepend_child(pugi::node_pcdata));
  Allocated(Part.set_value(Escaped.c_str()));
}

}  // namespace zy
