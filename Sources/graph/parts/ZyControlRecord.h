#pragma once

#include "persistence/ZyArchive.h"
#include "platform/controls/TControl.h"

namespace zy {

/// The three fields of a control's hint. Whether it is shown is the control's own only while the parent does not say
/// so.
inline void HintFields(TZyArchive& Archive, TControl& Control) {
  Archive.Properties(Control, "Hint ParentShowHint");
  Archive.Field(
      "ShowHint", [&Control] { return Control.ShowHint(); },
      [&Control](bool Value) {
        if (!Control.ParentShowHint()) Control.SetShowHint(Value);
      });
}

}  // namespace zy
