#include "platform/controls/TRadioGroup.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QGroupBox>
#include <QRadioButton>
#include <algorithm>

#include "platform/drawing/QtText.h"
#include "platform/framework/TPropInfo.h"

namespace zy {

ZY_PUBLISHED(TRadioGroup, TCustomGroupBox,
             Published<static_cast<TStrings& (TRadioGroup::*)()>(&TRadioGroup::Items), &TRadioGroup::SetItems>("Items"),
             Published<&TRadioGroup::ItemIndex, &TRadioGroup::SetItemIndex>("ItemIndex", -1),
             Published<&TRadioGroup::Columns, &TRadioGroup::SetColumns>("Columns", 1),
             Published<&TRadioGroup::TabStop, &TRadioGroup::SetTabStop>("TabStop", false))

TRadioGroup::TRadioGroup(TComponent* Owner) : TCustomGroupBox(Owner) {
  FItems.OnChange = [this](TObject*) { ItemsChanged(); };
}

TRadioGroup::~TRadioGroup() { Destroying(); }

void TRadioGroup::Configure(QGroupBox& Box) {
  Inherited::Configure(Box);
  ShowItems(Box);
}

void TRadioGroup::ShowItems(QGroupBox& Box) {
  qDeleteAll(Box.findChildren<QRadioButton*>(QString(), Qt::FindDirectChildrenOnly));
  delete Box.findChild<QButtonGroup*>();
  delete Box.layout();
  auto* const Grid = new QGridLayout(&Box);
  auto* const Group = new QButtonGroup(&Box);
  const int Rows = std::max((FItems.Count() + FColumns - 1) / FColumns, 1);
  for (int Index = 0; Index < FItems.Count(); ++Index) {
    auto* const Radio = new QRadioButton(ToQString(FItems.Get(Index)));
    Group->addButton(Radio, Index);
    Grid->addWidget(Radio, Index % Rows, Index / Rows);
  }
  ShowChoice(Box);
  On(*Group, &QButtonGroup::idClicked, [this](int Index) { Choose(Index); });
}

void TRadioGroup::ShowChoice(QGroupBox& Box) const {
  auto& Group = *Box.findChild<QButtonGroup*>();
  if (QAbstractButton* const Chosen = Group.button(FItemIndex)) return Chosen->setChecked(true);
  Group.setExclusive(false);  // else the last one could not be cleared
  if (QAbstractButton* const Old = Group.checkedButton()) Old->setChecked(false);
  Group.setExclusive(true);
}

void TRadioGroup::Choose(int Index) {
  if (Index == FItemIndex) return;
  const std::uint64_t Alive = LiveHandle();
  FItemIndex = Index;
  CMChanged();
  if (FromLiveHandle(Alive) != nullptr) Click();
}

void TRadioGroup::ItemsChanged() {
  if (!IsLoading() && FItemIndex >= FItems.Count()) FItemIndex = -1;
  With([this](QGroupBox& Box) { ShowItems(Box); });
}

/// A stored index may be read before the items are.
void TRadioGroup::SetItemIndex(int Value) {
  if (!IsLoading() && (Value < 0 || Value >= FItems.Count())) Value = -1;
  if (Value == FItemIndex) return;
  FItemIndex = Value;
  With([this](QGroupBox& Box) { ShowChoice(Box); });
  CMChanged();
}

void TRadioGroup::SetColumns(int Value) {
  FColumns = std::max(Value, 1);
  With([this](QGroupBox& Box) { ShowItems(Box); });
}

}  // namespace zy
