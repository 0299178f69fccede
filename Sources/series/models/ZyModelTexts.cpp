#include "series/models/ZyModelTexts.h"

#include <QVariant>
#include <utility>

#include "platform/framework/TPropInfo.h"
#include "series/models/ModelValues.h"

namespace zy {

ZY_PUBLISHED(TZyModelTexts, TZyModelLink)

TZyModelTexts::TZyModelTexts(TComponent* Owner) : TZyModelLink(Owner) {}

TZyModelTexts::~TZyModelTexts() { Destroying(); }

TStringList* TZyModelTexts::List() const {
  return static_cast<TStringList*>(FList == 0 ? nullptr : TPersistent::FromLiveHandle(FList));
}

void TZyModelTexts::SetList(TStringList* Value) {
  if (Value == List()) return;
  FList = Value == nullptr ? 0 : Value->LiveHandle();
  TargetChanged();
}

int TZyModelTexts::HeldRows() const { return List() == nullptr ? -1 : List()->Count(); }

std::string TZyModelTexts::Text(int Row) const { return TextOf(Cell(Row)); }

/// One notice for all that is written, and no step of undo. A handler of that notice may delete the list.
template <class F>
void TZyModelTexts::Write(F Proc) {
  TStringList& Texts = *List();
  const auto Handle = Texts.LiveHandle();
  TStringList::TNotifyEvent Changing = std::exchange(Texts.OnChanging, {});
  const auto Restore = [&] {
    if (TPersistent::FromLiveHandle(Handle) != nullptr) Texts.OnChanging = std::move(Changing);
  };
  Texts.BeginUpdate();
  try {
    Proc(Texts);
  } catch (...) {
    Restore();
    if (TPersistent::FromLiveHandle(Handle) != nullptr) Texts.EndUpdate();
    throw;
  }
  Texts.EndUpdate();
  Restore();
}

void TZyModelTexts::Insert(TStringList& List, int First, int Number) const {
  for (int Row = First; Row < First + Number; ++Row) List.Insert(Row, Text(Row));
}

void TZyModelTexts::TakeAll(int Rows) {
  TStringList All;
  Insert(All, 0, Rows);
  Write([&](TStringList& Texts) { Texts.Assign(&All); });
}

void TZyModelTexts::TakeChanged(int First, int Number) {
  Write([&](TStringList& Texts) {
    for (int Row = First; Row < First + Number; ++Row) Texts.Put(Row, Text(Row));
  });
}

/// Many rows in front of others cost less when all are read.
void TZyModelTexts::TakeInserted(int First, int Number) {
  const int Behind = List()->Count() - First;
  if (Behind > 0 && Number > 1) return TakeAll(List()->Count() + Number);
  Write([&](TStringList& Texts) { Insert(Texts, First, Number); });
}

void TZyModelTexts::TakeRemoved(int First, int Number) {
  const int Behind = List()->Count() - First - Number;
  if (Behind > 0 && Number > 1) return TakeAll(List()->Count() - Number);
  Write([&](TStringList& Texts) {
    for (int Row = First + Number - 1; Row >= First; --Row) Texts.Delete(Row);
  });
}

void TZyModelTexts::TakeMoved(int, int, int) { TakeAll(List()->Count()); }

}  // namespace zy
