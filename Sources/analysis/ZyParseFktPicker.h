#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zy {

/// A node of the tree in which a dialog offers variables.
class TZyPickerNode {
 public:
  virtual ~TZyPickerNode() = default;
  virtual std::string Text() const = 0;
  /// Null for a root.
  virtual TZyPickerNode* Parent() const = 0;
  /// The node behind this one in depth-first order, null behind the last.
  virtual TZyPickerNode* GetNext() const = 0;
};

/// Such a tree, which owns its nodes.
class TZyPickerTree {
 public:
  virtual ~TZyPickerTree() = default;
  virtual void Clear() = 0;
  /// Null when there is none.
  virtual TZyPickerNode* GetFirstNode() const = 0;
  /// Adds a last child, or a root when Parent is null.
  virtual TZyPickerNode* AddChild(TZyPickerNode* Parent, const std::string& Text) = 0;
};

/// Replaces the texts by what a formula can call: "Pi", "e", "Random", then the global functions as "Sin()".
void PopulateListWithFunctions(std::vector<std::string>& Strings);

/// Replaces the nodes by the full names of the global variables and, with "[]" behind, of the global arrays, split into
/// levels at each ".".
void PopulateTreeWithVariables(TZyPickerTree& Tree);
/// The same with the global text variables.
void PopulateTreeWithStrings(TZyPickerTree& Tree);

/// The node of a reference, such as a full name with an index; null when there is none. Brackets and what stands in
/// them do not count, case does.
TZyPickerNode* FindInTree(std::string_view Reference, const TZyPickerTree& Tree);

/// The texts of the node and of those above it, joined by "."; empty for null.
std::string RefFromNode(const TZyPickerNode* Node);

}  // namespace zy
