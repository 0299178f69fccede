#pragma once

#include <vector>

#include "persistence/ZyTextArchive.h"
#include "platform/framework/XmlNode.h"

namespace zy {

/// Writes fields as attributes of a node and of nodes below it. Booleans are "true" and "false".
class TZyXmlWriter : public TZyTextWriter {
 public:
  explicit TZyXmlWriter(const IXMLNode& Node) : FNodes{Node} {}
  bool IsXml() const override { return true; }
  /// The node of the object whose fields are written.
  const IXMLNode& Node() const { return FNodes.back(); }

 protected:
  using TZyTextWriter::Visit;
  bool Visit(const TZyFieldName& Name, bool& Value) override;
  bool Visit(const TZyFieldName& Name, std::string& Value) override;
  void Put(const TZyFieldName& Name, std::string_view Text) override;
  void PutItems(const TZyFieldName& Name, std::size_t Count, const TTextAt& TextAt) override;
  void PutTexts(const TZyFieldName& Name, const std::vector<std::string>& Texts) override;
  bool Choose(const TZyFieldName&, bool IsFirst) override { return IsFirst; }
  void VisitCount(const TZyFieldName& Name, int& Count) override;
  bool Enter(const TZyScope& Scope) override;
  void Leave() override { FNodes.pop_back(); }

 private:
  std::vector<IXMLNode> FNodes;
};

/// Reads such attributes. Throws EXMLError for one, or for a node, that is absent and is no later addition.
class TZyXmlReader : public TZyTextReader {
 public:
  explicit TZyXmlReader(const IXMLNode& Node) : FPlaces{{Node, {}}} {}
  bool IsXml() const override { return true; }
  /// The node of the object whose fields are read.
  const IXMLNode& Node() const { return FPlaces.back().Node; }

 protected:
  std::optional<std::string> Get(const TZyFieldName& Name) const override;
  bool GetItems(const TZyFieldName& Name, const TStart& Start, const TTakeText& Take) const override;
  bool GetTexts(const TZyFieldName& Name, const TStart& Start, const TTakeText& Take) const override {
    return GetItems(Name, Start, Take);
  }
  [[noreturn]] void Mistyped(const TZyFieldName& Name, std::string_view Text) const override;
  bool Choose(const TZyFieldName& Name, bool IsFirst) override;
  void VisitCount(const TZyFieldName& Name, int& Count) override;
  bool Enter(const TZyScope& Scope) override;
  void Leave() override { FPlaces.pop_back(); }
  TZyIdentity Identify(bool Typed) override;

 private:
  struct TPlace {
    IXMLNode Node;
    std::vector<IXMLNode> Items;  // of a list
  };
  static IXMLNode NthNode(const IXMLNode& Holder, const TZyScope& Scope);

  std::vector<TPlace> FPlaces;
};

}  // namespace zy
