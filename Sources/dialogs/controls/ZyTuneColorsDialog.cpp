#include "dialogs/controls/ZyTuneColorsDialog.h"

#include "dialogs/controls/ZyTuneColorsForm.h"
#include "platform/framework/TPropInfo.h"
#include "texts/ZyLocalize.h"

namespace zy {

ZY_PUBLISHED(TZyTuneColorsDialog, TComponent,
             Published<&TZyTuneColorsDialog::EnableAlpha, &TZyTuneColorsDialog::SetEnableAlpha>("EnableAlpha", true),
             Published<&TZyTuneColorsDialog::ActiveColor, &TZyTuneColorsDialog::SetActiveColor>("ActiveColor",
                                                                                                Colors::Red),
             Published<&TZyTuneColorsDialog::AsTColor, &TZyTuneColorsDialog::SetAsTColor>("AsTColor").NotStored(),
             Published<&TZyTuneColorsDialog::Title, &TZyTuneColorsDialog::SetTitle>("Title"),
             Published<&TZyTuneColorsDialog::PropertyLinks>("PropertyLinks"))

TZyTuneColorsDialog::TZyTuneColorsDialog(TComponent* Owner) : TZyLinked(Owner), FTitle(LoadResString(_sTuneColors)) {
  LinkBy("ActiveColor");
}

TZyTuneColorsDialog::~TZyTuneColorsDialog() { Destroying(); }

void TZyTuneColorsDialog::SetActiveColor(TZyColor Value) {
  FActiveColor = Value;
  SetLink(FActiveColor);
}

bool TZyTuneColorsDialog::Execute() {
  TZyTuneColorsForm& Form = TuneColorsForm();
  Form.SetCaption(FTitle);
  Form.SetEnableAlpha(FEnableAlpha);
  Form.SetActiveColor(FActiveColor);
  const std::uint64_t Alive = LiveHandle();
  if (!Form.Execute() || FromLiveHandle(Alive) == nullptr) return false;
  SetActiveColor(TuneColorsForm().ActiveColor());
  return true;
}

}  // namespace zy
