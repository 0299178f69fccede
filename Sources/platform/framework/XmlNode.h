#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/framework/TVariant.h"

namespace pugi {
class xml_document;
struct xml_node_struct;
}  // namespace pugi

namespace zy {

/// How deep elements may be nested, in a tree that is built and in a text that is read.
inline constexpr int MaxXmlDepth = 1000;

/// A reference to an element of an XML document, or to none (null).
///
/// Copies refer to the same element, and `const` guards the reference, not the element. A node keeps its document
/// alive, and an element that was removed or whose document has loaded something else stays usable through the nodes
/// that refer to it. Names compare exactly. Readers of a null node find nothing; everything that changes a null node
/// throws EXMLError.
class IXMLNode {
 public:
  IXMLNode() = default;

  bool IsNull() const { return FElement == nullptr; }
  explicit operator bool() const { return !IsNull(); }
  /// Whether both refer to the same element, or both to none.
  bool operator==(const IXMLNode& Other) const { return FElement == Other.FElement; }

  /// Name of the element; empty for null.
  std::string NodeName() const;
  /// The element around this one; null at the root element and for an element that was removed.
  IXMLNode ParentNode() const;

  /// Number of child elements.
  int ChildCount() const;
  /// The child element at Index, counted from 0; takes time in proportion to Index. Throws EXMLError when there is
  /// none.
  IXMLNode ChildNode(int Index) const;
  /// All child elements in their order; the way to visit many.
  std::vector<IXMLNode> ChildNodes() const;
  /// The first child element of that name, or null.
  IXMLNode FindNode(std::string_view Name) const;
  /// The first child element of that name. Throws EXMLError when there is none.
  IXMLNode Node(std::string_view Name) const;
  bool ContainsNode(std::string_view Name) const { return !FindNode(Name).IsNull(); }
  /// Appends a child element. Throws EXMLError when Name is no XML name or the child would lie deeper than MaxXmlDepth.
  IXMLNode AddChild(std::string_view Name) const;
  /// Takes a child element out of this one. Throws EXMLError when it is no child of it.
  void RemoveChild(const IXMLNode& Child) const;

  bool HasAttribute(std::string_view Name) const;
  /// Text of an attribute, as a variant that converts to what is asked for. Throws EXMLError when there is none.
  TVariant Attribute(std::string_view Name) const;
  /// Sets or makes an attribute: booleans as "true" and "false", numbers as the shortest text that reads back. Throws
  /// EXMLError for a name that is no XML name and for characters that XML cannot carry: control characters other than
  /// tab and line ends, malformed UTF-8. Throws EConvertError for an array.
  void SetAttribute(std::string_view Name, const TVariant& Value) const;
  /// Removes an attribute. Nothing happens when there is none.
  void DeleteAttribute(std::string_view Name) const;

  /// The text that stands directly in the element, without that of child elements.
  std::string Text() const;
  /// Replaces that text. Throws EXMLError for characters that XML cannot carry.
  void SetText(std::string_view Value) const;

 private:
  friend class TXMLDocument;
  using TDocument = std::shared_ptr<pugi::xml_document>;
  IXMLNode(TDocument Document, pugi::xml_node_struct* Element);
  void RequireElement() const;

  TDocument FDocument;
  pugi::xml_node_struct* FElement = nullptr;
};

}  // namespace zy
