#include "graph/styles/ZyGDI.h"

#include "platform/drawing/FontFamily.h"
#include "platform/framework/TStrings.h"

namespace zy {

static_assert(static_cast<int>(TZyAreaStyle::Total) == HatchStyleTotal);

std::unique_ptr<Brush> GetAreaBrush(TZyAreaStyle Style, TZyColor ForeColor, TZyColor BackColor) {
  if (Style == TZyAreaStyle::Total) return std::make_unique<SolidBrush>(ForeColor);
  return std::make_unique<HatchBrush>(static_cast<HatchStyle>(Style), ForeColor, BackColor);
}

void GetInstalledFontNames(TStrings* Strings) {
  if (Strings == nullptr) return;
  Strings->BeginUpdate();
  Strings->Clear();
  for (const FontFamily& Family : InstalledFontCollection().GetFamilies()) Strings->Add(Family.GetFamilyName());
  Strings->EndUpdate();
}

}  // namespace zy
