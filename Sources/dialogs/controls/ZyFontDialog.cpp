#include "dialogs/controls/ZyFontDialog.h"

#include <QDesktopServices>
#include <QUrl>

#include "platform/drawing/QtText.h"
#include "platform/framework/TPropInfo.h"
#include "texts/NumberText.h"

namespace zy {

ZY_PUBLISHED(
    TZyFontDialog, TComponent,
    Published<static_cast<TZyFont& (TZyFontDialog::*)()>(&TZyFontDialog::Font), &TZyFontDialog::SetFont>("Font"),
    Published<&TZyFontDialog::MinFontSize, &TZyFontDialog::SetMinFontSize>("MinFontSize", 0),
    Published<&TZyFontDialog::MaxFontSize, &TZyFontDialog::SetMaxFontSize>("MaxFontSize", 0),
    Published<&TZyFontDialog::ShowGradientSettings, &TZyFontDialog::SetShowGradientSettings>("ShowGradientSettings",
                                                                                             true),
    Published<&TZyFontDialog::ShowApply, &TZyFontDialog::SetShowApply>("ShowApply", false),
    Published<&TZyFontDialog::ShowHelp, &TZyFontDialog::SetShowHelp>("ShowHelp", false),
    Published<&TZyFontDialog::HelpType, &TZyFontDialog::SetHelpType>("HelpType", TZyHelpType::Context),
    Published<&TZyFontDialog::HelpContext, &TZyFontDialog::SetHelpContext>("HelpContext", 0),
    Published<&TZyFontDialog::HelpKeyword, &TZyFontDialog::SetHelpKeyword>("HelpKeyword", std::string()),
    Published<&TZyFontDialog::HelpFile, &TZyFontDialog::SetHelpFile>("HelpFile", std::string()),
    Published<&TZyFontDialog::OnApply, &TZyFontDialog::SetOnApply>("OnApply"))

TZyFontDialog::TZyFontDialog(TComponent* Owner) : TComponent(Owner) {}

TZyFontDialog::~TZyFontDialog() { Destroying(); }

const TZyFont& TZyFontDialog::EditedFont() const {
  return FForm != nullptr && FForm->Visible() ? FForm->EditedFont() : FFont;
}

bool TZyFontDialog::Execute() {
  if (FForm == nullptr) FForm = new TZyFontDialogForm(this);
  const auto Apply = [this] {
    if (const auto Event = mApply) Event(this);
  };
  const auto Help = [this] { DoHelp(); };
  FForm->SetGradient(FShowGradient);
  FForm->SetButtons(FShowApply ? std::function<void()>(Apply) : nullptr,
                    FShowHelp ? std::function<void()>(Help) : nullptr);
  FForm->SetSizeLimits(FMinSize, FMaxSize);
  FForm->SetFont(FFont);
  const std::uint64_t Alive = LiveHandle();
  if (FForm->ShowModal() != mrOk || FromLiveHandle(Alive) == nullptr) return false;
  FFont.Assign(&FForm->EditedFont());
  return true;
}

void TZyFontDialog::DoHelp() {
  if (FHelpFile.empty()) return;
  QUrl Page = QUrl::fromLocalFile(ToQString(FHelpFile));
  Page.setFragment(ToQString(FHelpType == TZyHelpType::Keyword ? FHelpKeyword : IntToStr(FHelpContext)));
  QDesktopServices::openUrl(Page);
}

}  // namespace zy
