#include "analysis/ZyParseFktPicker.h"

#include <algorithm>

#include "analysis/ZyParseFktLists.h"

namespace zy {
namespace {

/// Takes the first part off a dotted text.
std::string_view TakePart(std::string_view& Text) {
  const std::string_view Part = Text.substr(0, Text.find('.'));
  Text.remove_prefix(std::min(Text.size(), Part.size() + 1));
  return Part;
}

void AddFullName(TZyPickerTree& Tree, std::string_view Name) {
  TZyPickerNode* Current = Tree.GetFirstNode();
  TZyPickerNode* From = Current;
  while (Name.find('.') != std::string_view::npos) {
    const std::string Part(TakePart(Name));
    while (From != nullptr && From->Text() != Part) From = From->GetNext();
    Current = From != nullptr ? From : Tree.AddChild(Current, Part);
    From = Current->GetNext();  // a part never stands for the node of the part before it
  }
  Tree.AddChild(Current, std::string(Name));
}

std::string_view WithoutIndex(std::string_view Text) {
  const std::size_t Round = Text.find('(');
  return Text.substr(0, Round != std::string_view::npos ? Round : Text.find('['));
}

}  // namespace

void PopulateListWithFunctions(std::vector<std::string>& Strings) {
  Strings = {"Pi", "e", "Random"};
  for (const TZyFunctionRec& Row : GlobalFunctionList()) Strings.push_back(Row.Id + "()");
}

void PopulateTreeWithVariables(TZyPickerTree& Tree) {
  Tree.Clear();
  for (const TZyDoubleGetterRec& Row : GlobalVariableList()) AddFullName(Tree, FullName(Row));
  for (const TZyDoubleArrayRec& Row : GlobalArrayList()) AddFullName(Tree, FullName(Row) + "[]");
}

void PopulateTreeWithStrings(TZyPickerTree& Tree) {
  Tree.Clear();
  for (const TZyStringGetterRec& Row : GlobalStringList()) AddFullName(Tree, FullName(Row));
}

TZyPickerNode* FindInTree(std::string_view Reference, const TZyPickerTree& Tree) {
  TZyPickerNode* From = Tree.GetFirstNode();
  for (;;) {
    const bool Last = Reference.find('.') == std::string_view::npos;
    const std::string_view Part = WithoutIndex(TakePart(Reference));
    while (From != nullptr && WithoutIndex(From->Text()) != Part) From = From->GetNext();
    if (From == nullptr || Last) return From;
    From = From->GetNext();
  }
}

std::string RefFromNode(const TZyPickerNode* Node) {
  std::string Result;
  for (; Node != nullptr; Node = Node->Parent()) Result.insert(0, Result.empty() ? Node->Text() : Node->Text() + '.');
  return Result;
}

}  // namespace zy
