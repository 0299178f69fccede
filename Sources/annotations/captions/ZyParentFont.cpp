#include "annotations/captions/ZyParentFont.h"

#include "annotations/captions/ZyFont.h"
#include "platform/controls/TWinControl.h"

namespace zy {

void TZyParentFont::Take() {
  if (!FControl.ParentFont() || FControl.Parent() == nullptr) return;
  FSetting = true;
  FFont.Assign(&FControl.Parent()->ControlFont());
  FSetting = false;
}

void TZyParentFont::FontChanged() {
  if (!FSetting && !FControl.IsLoading()) FControl.SetParentFont(false);
}

}  // namespace zy
