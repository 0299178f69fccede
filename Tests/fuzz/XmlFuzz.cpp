// XML: whatever the text, loading ends in a tree or in an exception of ours that changes nothing, and a tree that was
// loaded is saved and loaded again to the same text and the same values. The same bytes as attribute and text either
// are refused or read back exactly.

#include "fuzz/Check.h"
#include "platform/framework/XmlDocument.h"
#include "texts/Exceptions.h"

namespace zy::testing {
namespace {

/// Whether both elements have the same names and texts all the way down.
bool Same(const IXMLNode& Left, const IXMLNode& Right) {
  if (Left.NodeName() != Right.NodeName() || Left.Text() != Right.Text()) return false;
  const auto LeftNodes = Left.ChildNodes(), RightNodes = Right.ChildNodes();
  if (LeftNodes.size() != RightNodes.size()) return false;
  for (std::size_t Index = 0; Index < LeftNodes.size(); ++Index)
    if (!Same(LeftNodes[Index], RightNodes[Index])) return false;
  return true;
}

void CheckText(std::string_view Text) {
  TXMLDocument Document("kept");
  const std::string Before = Document.SaveToText();
  try {
    Document.LoadFromText(Text);
  } catch (const Exception&) {
    Check(Document.SaveToText() == Before, "a failed load changes nothing");
    return;
  }
  const std::string Saved = Document.SaveToText();
  TXMLDocument Again;
  Again.LoadFromText(Saved);
  Check(Again.SaveToText() == Saved, "a loaded text is saved and loaded again the same");
  Check(Same(Document.DocumentElement(), Again.DocumentElement()), "names and texts come back");
}

void CheckValue(std::string_view Text) {
  TXMLDocument Document("r");
  const IXMLNode Root = Document.DocumentElement();
  const IXMLNode Child = Root.AddChild("c");
  try {
    Root.SetAttribute("a", Text);
    Root.SetText(Text);
    Child.SetText(Text);
  } catch (const EXMLError&) {
    return;
  }
  TXMLDocument Again;
  Again.LoadFromText(Document.SaveToText());
  const IXMLNode Read = Again.DocumentElement();
  Check(Read.Attribute("a").AsText() == Text, "an attribute reads back exactly");
  Check(Read.Text() == Text, "a text reads back exactly");
  Check(Read.Node("c").Text() == Text, "the text of a child reads back exactly");
}

}  // namespace
}  // namespace zy::testing

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Data, std::size_t Size) {
  const std::string_view Text(reinterpret_cast<const char*>(Data), Size);
  zy::testing::CheckText(Text);
  zy::testing::CheckValue(Text);
  return 0;
}
