#include "platform/framework/XmlDocument.h"

#include <algorithm>
#include <pugixml.hpp>
#include <utility>
#include <vector>

#include "platform/framework/TStream.h"
#include "platform/framework/WholeFile.h"
#include "platform/framework/XmlText.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view Declaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

// The parser is lenient about references, and the writer would let carriage returns and white space get lost. So both
// leave references alone, and the values in the tree are kept in escaped form, checked and brought to one form on
// loading. A document is parsed as a fragment so that what stands around the root element is seen and not skipped.
constexpr unsigned ParseFlags = pugi::parse_cdata | pugi::parse_eol | pugi::parse_wconv_attribute |
                                pugi::parse_ws_pcdata_single | pugi::parse_comments | pugi::parse_pi |
                                pugi::parse_doctype | pugi::parse_fragment;
constexpr unsigned WriteFlags = pugi::format_indent | pugi::format_no_escapes | pugi::format_no_declaration;

/// An element with a name: the one without holds those that were removed.
bool IsRootElement(pugi::xml_node Node) { return Node.type() == pugi::node_element && *Node.name() != '\0'; }

pugi::xml_node RootElement(const pugi::xml_document& Document) {
  for (const pugi::xml_node Node : Document.children())
    if (IsRootElement(Node)) return Node;
  return {};
}

class TTextWriter : public pugi::xml_writer {
 public:
  explicit TTextWriter(std::string& Text) : FText(Text) {}
  void write(const void* Data, std::size_t Size) override { FText.append(static_cast<const char*>(Data), Size); }

 private:
  std::string& FText;
};

/// Turns a text into a tree, and sees to all that the parser takes too easy.
class TXmlLoader {
 public:
  TXmlLoader(std::string_view Text, std::string_view SourceName) : FText(Text), FSourceName(SourceName) {
    if (FText.substr(0, ByteOrderMark.size()) == ByteOrderMark) FText.remove_prefix(ByteOrderMark.size());
  }

  std::shared_ptr<pugi::xml_document> Load() {
    if (const std::size_t Bad = FirstBadXmlByte(FText); Bad < FText.size()) Fail(Bad, LoadResString(_sXmlBadCharacter));
    auto Document = std::make_shared<pugi::xml_document>();
    const pugi::xml_parse_result Result =
        Document->load_buffer(FText.data(), FText.size(), ParseFlags, pugi::encoding_utf8);
    if (!Result) Fail(static_cast<std::size_t>(std::max<std::ptrdiff_t>(Result.offset, 0)), Result.description());
    CheckTop(*Document);
    CheckElement(RootElement(*Document), 1);
    return Document;
  }

 private:
  [[noreturn]] void Fail(std::size_t Place, std::string_view Reason) const {
    const std::string_view Before = FText.substr(0, Place);
    std::int64_t Line = 1, Column = 1;
    for (std::size_t Index = 0; Index < Before.size(); ++Index) {
      const char Character = Before[Index];
      const bool InLineEnd = Character == '\r' && Before.substr(Index + 1, 1) == "\n";
      if (Character == '\n' || (Character == '\r' && !InLineEnd)) {
        ++Line;
        Column = 1;
      } else if ((static_cast<unsigned char>(Character) & 0xC0u) != 0x80u) {
        ++Column;
      }
    }
    throw EXMLError(Format(LoadResString(_sXmlSyntax), {FSourceName, Line, Column, Reason}));
  }

  [[noreturn]] void Fail(pugi::xml_node Node, std::string_view Reason) const {
    Fail(static_cast<std::size_t>(std::max<std::ptrdiff_t>(Node.offset_debug(), 0)), Reason);
  }

  void CheckTop(const pugi::xml_document& Document) const {
    int Roots = 0;
    for (const pugi::xml_node Node : Document.children()) {
      if (Node.type() == pugi::node_doctype) Fail(Node, LoadResString(_sXmlDocType));
      if (Node.type() == pugi::node_pcdata || Node.type() == pugi::node_cdata)
        Fail(Node, LoadResString(_sXmlTextOutside));
      if (Node.type() == pugi::node_comment) CheckComment(Node);
      if (Node.type() == pugi::node_element && ++Roots > 1) Fail(Node, LoadResString(_sXmlSecondRoot));
    }
    if (Roots == 0) Fail(FText.size(), LoadResString(_sXmlNoRoot));
  }

  void CheckElement(pugi::xml_node Element, int Depth) const {
    if (Depth > MaxXmlDepth) Fail(Element, Format(LoadResString(_sXmlTooDeep), {MaxXmlDepth}));
    if (!IsXmlName(Element.name()))
      Fail(Element, Format(LoadResString(_sXmlBadName), {std::string_view(Element.name())}));
    CheckAttributes(Element);
    for (pugi::xml_node Child : Element.children()) {
      if (Child.type() == pugi::node_element) CheckElement(Child, Depth + 1);
      if (Child.type() == pugi::node_doctype) Fail(Child, LoadResString(_sXmlDocType));
      if (Child.type() == pugi::node_comment) CheckComment(Child);
      if (Child.type() == pugi::node_pcdata) Normalize(Child, Child, "]]>", EscapeXmlText);
    }
  }

  void CheckComment(pugi::xml_node Comment) const {
    const std::string_view Value = Comment.value();
    if (Value.find("--") != std::string_view::npos || (!Value.empty() && Value.back() == '-'))
      Fail(Comment, Format(LoadResString(_sXmlMisplaced), {"--"}));
  }

  void CheckAttributes(pugi::xml_node Element) const {
    std::vector<std::string_view> Names;
    for (pugi::xml_attribute Attribute : Element.attributes()) {
      const std::string_view Name = Names.emplace_back(Attribute.name());
      if (!IsXmlName(Name)) Fail(Element, Format(LoadResString(_sXmlBadName), {Name}));
      Normalize(Element, Attribute, "<", EscapeXmlAttribute);
    }
    std::sort(Names.begin(), Names.end());
    const auto Twin = std::adjacent_find(Names.begin(), Names.end());
    if (Twin != Names.end()) Fail(Element, Format(LoadResString(_sXmlAttributeTwice), {*Twin}));
  }

  /// Brings a value to the one escaped form of its text. Holder is a node or an attribute, Forbidden what may not stand
  /// there unescaped.
  template <class THolder>
  void Normalize(pugi::xml_node Place, THolder& Holder, std::string_view Forbidden,
                 std::string (*Escape)(std::string_view)) const {
    if (std::string_view(Holder.value()).find(Forbidden) != std::string_view::npos)
      Fail(Place, Format(LoadResString(_sXmlMisplaced), {Forbidden}));
    const std::optional<std::string> Plain = UnescapeXml(Holder.value());
    if (!Plain) Fail(Place, LoadResString(_sXmlBadReference));
    const std::string Escaped = Escape(*Plain);
    if (Escaped != Holder.value() && !Holder.set_value(Escaped.c_str())) throw std::bad_alloc();
  }

  std::string_view FText;
  std::string_view FSourceName;
};

}  // namespace

TXMLDocument::TXMLDocument() : FDocument(std::make_shared<pugi::xml_document>()) {}

TXMLDocument::TXMLDocument(std::string_view RootName) : TXMLDocument() {
  if (!IsXmlName(RootName)) throw EXMLError(Format(LoadResString(_sXmlBadName), {RootName}));
  FDocument->append_child(std::string(RootName).c_str());
}

TXMLDocument::~TXMLDocument() = default;

IXMLNode TXMLDocument::DocumentElement() const { return {FDocument, RootElement(*FDocument).internal_object()}; }

void TXMLDocument::LoadFromText(std::string_view Text, std::string_view SourceName) {
  FDocument = TXmlLoader(Text, SourceName).Load();
}

void TXMLDocument::LoadFromStream(TStream& Stream, std::string_view SourceName) {
  LoadFromText(ReadToEnd(Stream), SourceName);
}

void TXMLDocument::LoadFromFile(const std::filesystem::path& FileName) {
  TFileStream Stream(FileName, fmOpenRead | fmShareDenyWrite);
  LoadFromStream(Stream, FileName.string());
}

std::string TXMLDocument::SaveToText() const {
  if (DocumentElement().IsNull()) throw EXMLError(std::string(LoadResString(_sXmlNoRoot)));
  std::string Text(Declaration);
  TTextWriter Writer(Text);
  for (const pugi::xml_node Node : FDocument->children())
    if (Node.type() != pugi::node_element || IsRootElement(Node))
      Node.print(Writer, "  ", WriteFlags, pugi::encoding_utf8);
  return Text;
}

void TXMLDocument::SaveToStream(TStream& Stream) const {
  const std::string Text = SaveToText();
  Stream.WriteBuffer(Text.data(), Text.size());
}

void TXMLDocument::SaveToFile(const std::filesystem::path& FileName) const { SaveWholeFile(FileName, SaveToText()); }

}  // namespace zy
