#pragma once

#include "platform/controls/TGroupBox.h"
#include "platform/framework/TStrings.h"

namespace zy {

/// A frame with one radio button for each of its items, of which one at most is chosen. OnClick runs when the user
/// chooses.
class TRadioGroup : public TCustomGroupBox {
  ZY_CLASS(TRadioGroup, TCustomGroupBox)
  explicit TRadioGroup(TComponent* Owner = nullptr);
  ~TRadioGroup() override;

  TStrings& Items() { return FItems; }
  const TStrings& Items() const { return FItems; }
  void SetItems(const TStrings& Value) { FItems.Assign(&Value); }
  /// From 0; -1 for none, as is everything beyond the items.
  int ItemIndex() const { return FItemIndex; }
  void SetItemIndex(int Value);
  /// Columns, filled from the top; 1 at least.
  int Columns() const { return FColumns; }
  void SetColumns(int Value);

 protected:
  /// Told of each change of the choice, by whomever.
  virtual void CMChanged() {}
  void Configure(QGroupBox& Box) override;

 private:
  void ItemsChanged();
  void ShowItems(QGroupBox& Box);
  void ShowChoice(QGroupBox& Box) const;
  void Choose(int Index);

  TStringList FItems;
  int FItemIndex = -1;
  int FColumns = 1;
};

}  // namespace zy
