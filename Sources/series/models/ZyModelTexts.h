#pragma once

#include <cstdint>

#include "platform/framework/TStrings.h"
#include "series/models/ZyModelLink.h"

namespace zy {

/// Keeps a list of texts equal to a column of an item model: rubrics of an axis, captions of bars and of segments.
///
/// Numbers come with up to 15 digits in the user's decimal separator, dates and times in ISO form, other values by the
/// toolkit's own conversion. What the link writes is no step of undo: it goes by the list's OnChanging.
class TZyModelTexts : public TZyModelLink {
  ZY_CLASS(TZyModelTexts, TZyModelLink)
  explicit TZyModelTexts(TComponent* Owner = nullptr);
  ~TZyModelTexts() override;

  /// The list that is fed, null for none and once it died: `Texts.SetList(Axis->Rubrics())`.
  TStringList* List() const;
  void SetList(TStringList* Value);

 protected:
  int HeldRows() const override;
  void TakeAll(int Rows) override;
  void TakeChanged(int First, int Number) override;
  void TakeInserted(int First, int Number) override;
  void TakeRemoved(int First, int Number) override;
  void TakeMoved(int First, int Number, int To) override;

 private:
  template <class F>
  void Write(F Proc);
  std::string Text(int Row) const;
  void Insert(TStringList& List, int First, int Number) const;

  std::uint64_t FList = 0;  // live handle
};

}  // namespace zy
