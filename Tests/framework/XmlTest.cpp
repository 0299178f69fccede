#include <gtest/gtest.h>

#include "framework/Bytes.h"
#include "framework/Errors.h"
#include "platform/framework/XmlDocument.h"
#include "texts/Exceptions.h"

namespace zy::testing {
namespace {

using namespace std::string_literals;

const std::string Declared = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

/// Attribute "a" and text of the root element of a text.
std::pair<std::string, std::string> AttributeAndText(const std::string& Text) {
  TXMLDocument Document;
  Document.LoadFromText(Text);
  const IXMLNode Root = Document.DocumentElement();
  return {Root.HasAttribute("a") ? Root.Attribute("a").AsText() : "-", Root.Text()};
}

TEST(Xml, BuildsATreeAndFindsItsWay) {
  TXMLDocument Document("Chart");
  const IXMLNode Root = Document.DocumentElement();
  const IXMLNode Axis = Root.AddChild("Axis");
  Root.AddChild("Series").SetText("1 < 2");
  Root.AddChild("Axis").SetAttribute("Name", "second");
  Axis.SetAttribute("Visible", true);
  Axis.SetAttribute("Width", 0.1);
  Axis.SetAttribute("Count", -3);
  Axis.SetAttribute("Text", "a\"b'<>&\t\r\n");
  EXPECT_EQ(Document.SaveToText(), Declared +
                                       "<Chart>\n"
                                       "  <Axis Visible=\"true\" Width=\"0.1\" Count=\"-3\" "
                                       "Text=\"a&quot;b'&lt;&gt;&amp;&#9;&#13;&#10;\" />\n"
                                       "  <Series>1 &lt; 2</Series>\n"
                                       "  <Axis Name=\"second\" />\n"
                                       "</Chart>\n");
  EXPECT_EQ(Root.ChildNode(2).Attribute("Name").AsText(), "second");
  EXPECT_EQ(Root.Node("Axis"), Axis);
  EXPECT_EQ(Axis.ParentNode(), Root);
  EXPECT_FALSE(Root.ContainsNode("axis"));
  EXPECT_THROW(Axis.Attribute("Text").AsReal(), EConvertError);
  EXPECT_THROW(Axis.Attribute("visible"), EXMLError);
  EXPECT_THROW(Root.Node("None"), EXMLError);
  EXPECT_THROW(Root.ChildNode(3), EXMLError);
  EXPECT_THROW(Root.ChildNode(-1), EXMLError);
  Axis.DeleteAttribute("Visible");
  Axis.DeleteAttribute("Visible");
  EXPECT_FALSE(Axis.HasAttribute("Visible"));
  for (const char* Name : {"", "1a", "-a", "a b", "a<", "a\xFF", "\xC3\x97"}) {
    EXPECT_THROW(Root.AddChild(Name), EXMLError) << Name;
    EXPECT_THROW(Root.SetAttribute(Name, 1), EXMLError) << Name;
    EXPECT_THROW(TXMLDocument{Name}, EXMLError) << Name;
  }
  Root.AddChild("n\xC3\xA4h-1.2");
  EXPECT_THROW(Root.SetAttribute("Array", TVariant::TArray{}), EConvertError);
  EXPECT_EQ(Root.ChildCount(), 4);
}

TEST(Xml, TextsSurviveSavingAndLoading) {
  for (const std::string& Text :
       {""s, " "s, "\n"s, "\r\n"s, "\t x \t"s, "\r"s, "a\rb\nc\r\n"s, "&amp;"s, "<![CDATA[x]]>"s, "]]>"s, "\"'"s,
        "@\\r"s, "n\xC3\xA4h"s, "\xF0\x9F\x98\x80"s, "\xEF\xBB\xBF"s, "&#10;"s, "<!-- c -->"s}) {
    TXMLDocument Document("r");
    Document.DocumentElement().SetAttribute("a", Text);
    Document.DocumentElement().SetText(Text);
    EXPECT_EQ(AttributeAndText(Document.SaveToText()), std::pair(Text, Text));
    Document.DocumentElement().AddChild("inner");  // beside which a text of white space looks like indentation
    EXPECT_EQ(AttributeAndText(Document.SaveToText()).second, Text);
  }
  TXMLDocument Document("r");
  for (const std::string& Bad : {"\x01"s, "a\0"s, "\x1F"s, "\xC3"s, "\xED\xA0\x80"s, "\xEF\xBF\xBF"s}) {
    EXPECT_THROW(Document.DocumentElement().SetText(Bad), EXMLError);
    EXPECT_THROW(Document.DocumentElement().SetAttribute("a", Bad), EXMLError);
  }
  EXPECT_EQ(Document.SaveToText(), Declared + "<r />\n");
}

TEST(Xml, ReadsWhatOthersWrite) {
  using TPair = std::pair<std::string, std::string>;
  const std::pair<std::string, TPair> Rows[] = {
      {"<r a='x\ty\r\nz'>1\r\n2\r3</r>", {"x y z", "1\n2\n3"}},  // white space as the XML rules have it
      {"<r a=\"&lt;&gt;&amp;&quot;&apos;&#65;&#x20AC;\">&#13;</r>", {"<>&\"'A\xE2\x82\xAC", "\r"}},
      {"\xEF\xBB\xBF<?xml version='1.0' encoding='UTF-16'?>\n<!-- c --><r>a<![CDATA[<&]]>b</r>\n<?p i?>",
       {"-", "a<&b"}},
      {"<r>before<c>inner</c> after</r>", {"-", "before after"}},
      {"<r>\n  <c/>\n</r>", {"-", ""}}};
  for (const auto& [Text, Expected] : Rows) EXPECT_EQ(AttributeAndText(Text), Expected) << Text;
  TXMLDocument Document;
  Document.LoadFromText("<!--c--><?p i?><r><!--d--></r><!--e-->");
  EXPECT_EQ(Document.SaveToText(), Declared + "<!--c-->\n<?p i?>\n<r>\n  <!--d-->\n</r>\n<!--e-->\n");
}

TEST(Xml, MalformedTextNamesThePlaceAndChangesNothing) {
  const std::pair<const char*, std::vector<std::string>> Rows[] = {
      {"line 1, column 1:", {"", "text"}},
      {"line 2, column 2:", {" \n ", "<r/>\r\n<s/>", "<r>\n\xC3\xA4\x01</r>"}},
      {"line 2, column 7:", {"<r/><!--\n\xC3\xA4--> <s/>"}},
      {"line 1, column 2:", {"<r a='1' a='2'/>", "<r a='<'/>", "<r a='&#x;'/>"}},
      {"line 1, column 4:",
       {"<r>\0</r>"s, "<r>\xC3</r>", "<r>&none;</r>", "<r>a & b</r>", "<r>&amp</r>", "<r>&#0;</r>", "<r>&#xD800;</r>",
        "<r>&#x110000;</r>", "<r>&#99999999999;</r>", "<r>&#-1;</r>", "<r>]]></r>"}},
      {"line 1", {"<!DOCTYPE r><r/>", "<!DOCTYPE r [<!ENTITY e \"x\">]><r>&e;</r>"}},
      // Several places would do.
      {"line ",
       {"<!-- c -->", "<r>\r\r\n<c>\n</d></r>", "<r", "<r a></r>", "<r a=1/>", "<r a='1'b='2'/>", "<r><![CDATA[x</r>",
        "<r><!-- a -- b --></r>", "<!--a---><r/>", "<r><!DOCTYPE r></r>", "<r><1/></r>", "<r \xC3\x97='1'/>"}}};
  for (const auto& [Place, Texts] : Rows)
    for (const std::string& Text : Texts) {
      TXMLDocument Document("kept");
      const std::string Message = MessageOf<EXMLError>([&] { Document.LoadFromText(Text, "some.xml"); });
      EXPECT_TRUE(Message.starts_with("some.xml, "s + Place)) << Text << ": " << Message;
      EXPECT_EQ(Document.SaveToText(), Declared + "<kept />\n");
    }
}

TEST(Xml, NestingIsBounded) {
  const auto Nested = [](int Depth) {
    std::string Begins, Ends;
    for (int Level = 0; Level < Depth; ++Level) Begins += "<e>", Ends += "</e>";
    return Begins + Ends;
  };
  TXMLDocument Document;
  Document.LoadFromText(Nested(MaxXmlDepth));
  EXPECT_THROW(TXMLDocument().LoadFromText(Nested(MaxXmlDepth + 1)), EXMLError);
  EXPECT_THROW(TXMLDocument().LoadFromText(Nested(200'000)), EXMLError);
  IXMLNode Deepest = Document.DocumentElement();
  while (Deepest.ChildCount() > 0) Deepest = Deepest.ChildNode(0);
  EXPECT_THROW(Deepest.AddChild("e"), EXMLError);
}

TEST(Xml, NodesOutliveRemovalReloadAndDocument) {
  IXMLNode Child, Grandchild, OldRoot;
  {
    TXMLDocument Document;
    Document.LoadFromText("<r><c><g>deep</g></c><d/></r>");
    OldRoot = Document.DocumentElement();
    Child = OldRoot.Node("c");
    Grandchild = Child.Node("g");
    OldRoot.RemoveChild(Child);
    for (const IXMLNode& Alien : {Child, Grandchild}) EXPECT_THROW(OldRoot.RemoveChild(Alien), EXMLError);
    EXPECT_EQ(Document.SaveToText(), Declared + "<r>\n  <d />\n</r>\n");
    EXPECT_TRUE(Child.ParentNode().IsNull());
    Document.LoadFromText("<new/>");
    OldRoot.AddChild("more");
    EXPECT_EQ(Document.SaveToText(), Declared + "<new />\n");
  }
  EXPECT_EQ(Grandchild.Text(), "deep");
  EXPECT_EQ(Grandchild.ParentNode(), Child);
  Child.AddChild("x").SetText("y");
  EXPECT_EQ(Child.Node("x").Text(), "y");
  EXPECT_TRUE(OldRoot.ContainsNode("more"));
}

TEST(Xml, NullNodesFindNothingAndRefuseChanges) {
  const IXMLNode Null = TXMLDocument().DocumentElement();
  EXPECT_TRUE(Null.ChildCount() == 0 && Null.FindNode("a").IsNull() && !Null.HasAttribute("a"));
  EXPECT_EQ(Null.Text() + Null.NodeName(), "");
  EXPECT_THROW(Null.AddChild("a"), EXMLError);
  EXPECT_THROW(Null.SetText("a"), EXMLError);
  EXPECT_THROW(Null.SetAttribute("a", 1), EXMLError);
  EXPECT_THROW(Null.Attribute("a"), EXMLError);
  EXPECT_THROW(TXMLDocument().SaveToText(), EXMLError);
}

TEST(Xml, FilesAreReadAndReplacedWhole) {
  const TTemporaryFolder Folder;
  TXMLDocument Document("r"), Again;
  Document.SaveToFile(Folder / "a.xml");
  Again.LoadFromFile(Folder / "a.xml");
  EXPECT_EQ(Again.SaveToText(), Document.SaveToText());
  EXPECT_THROW(Again.LoadFromFile(Folder / "none.xml"), EFileError);
  EXPECT_THROW(Again.SaveToFile(Folder / "none" / "a.xml"), EFileError);
}

}  // namespace
}  // namespace zy::testing
