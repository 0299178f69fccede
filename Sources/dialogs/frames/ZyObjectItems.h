#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/controls/TCustomComboBox.h"
#include "platform/controls/TCustomListBox.h"
#include "platform/framework/TComponent.h"

namespace zy {

/// What a reader of the chart knows an axis or a series by, without marks of the caption language; Text for any other
/// component.
std::string PlainName(const TComponent& Object, const std::string& Text = {});
/// Draws the ground of an item as marked or not, and returns the colour of its text.
ARGB DrawItemBack(Graphics& Canvas, const TRect& Box, bool IsMarked);
/// Draws a caption in the font of a control, from X on in the middle of an item.
void DrawItemCaption(Graphics& Canvas, TWinControl& Control, const std::string& Text, int X, const TRect& Box,
                     ARGB Color);

/// A list or combo box whose items stand for components, which may die before it.
template <class TBase>
class TZyObjectItems : public TBase {
 public:
  void AddObject(const std::string& Text, const TComponent* Object) {
    this->Items().Add(Text);
    FObjects.push_back(Object == nullptr ? 0 : Object->LiveHandle());
  }
  void ClearObjects() {
    FObjects.clear();
    this->Items().Clear();
  }
  int ObjectCount() const { return static_cast<int>(FObjects.size()); }
  /// Null for an item without one, for one that died, and outside the items.
  TComponent* ObjectAt(int Index) const {
    if (Index < 0 || Index >= ObjectCount()) return nullptr;
    return static_cast<TComponent*>(TPersistent::FromLiveHandle(FObjects[static_cast<std::size_t>(Index)]));
  }
  TComponent* SelectedObject() const { return ObjectAt(this->ItemIndex()); }
  /// -1 when it has no item.
  int IndexOfObject(const TComponent* Object) const {
    for (int Index = 0; Object != nullptr && Index < ObjectCount(); ++Index)
      if (ObjectAt(Index) == Object) return Index;
    return -1;
  }
  /// Moves an item to another place and selects it there.
  void MoveObject(int From, int To) {
    const std::uint64_t Object = FObjects[static_cast<std::size_t>(From)];
    FObjects.erase(FObjects.begin() + From);
    FObjects.insert(FObjects.begin() + To, Object);
    const std::string Text = this->Items().Get(From);
    this->Items().BeginUpdate();
    this->Items().Delete(From);
    this->Items().Insert(To, Text);
    this->Items().EndUpdate();
    this->SetItemIndex(To);
  }

 protected:
  using TBase::TBase;
  /// What a screen reader says of an item; the texts of drawn items are often stand-ins.
  std::string ItemName(int Index) const override {
    const TComponent* const Object = ObjectAt(Index);
    return Object == nullptr ? TBase::ItemName(Index) : PlainName(*Object, TBase::ItemName(Index));
  }

 private:
  std::vector<std::uint64_t> FObjects;
};

/// A combo box of axes or other components, drawn as what a reader of the chart knows them by.
class TZyObjectCombo : public TZyObjectItems<TComboBox> {
  ZY_CLASS(TZyObjectCombo, TComboBox)
  explicit TZyObjectCombo(TComponent* Owner = nullptr);
  ~TZyObjectCombo() override;

 protected:
  void DrawItem(Graphics& Canvas, int Index, const TRect& Box, TOwnerDrawState State) override;
};

/// A list of such components.
class TZyObjectListBox : public TZyObjectItems<TListBox> {
  ZY_CLASS(TZyObjectListBox, TListBox)
  explicit TZyObjectListBox(TComponent* Owner = nullptr);
  ~TZyObjectListBox() override;

 protected:
  void DrawItem(Graphics& Canvas, int Index, const TRect& Box, TOwnerDrawState State) override;
};

}  // namespace zy
