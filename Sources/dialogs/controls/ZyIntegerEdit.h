#pragma once

#include <string>

#include "dialogs/controls/ZyNumberEdit.h"

namespace zy {

/// An edit of a whole number. While the keyboard is elsewhere, a number that is too wide shows as "#".
class TZyIntegerEdit : public TZyNumberEdit<int> {
  ZY_CLASS(TZyIntegerEdit, TCustomEdit)
  explicit TZyIntegerEdit(TComponent* Owner = nullptr);
  ~TZyIntegerEdit() override;

 protected:
  std::string TextOf(int Value) const override;
  std::optional<int> Parse(const std::string& Text) const override;
  bool Accepts(char32_t Key) const override;
  std::string Fitted(int Width) override;
};

}  // namespace zy
