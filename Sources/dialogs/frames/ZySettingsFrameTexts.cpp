#include <QPalette>
#include <QWidget>
#include <memory>

#include "annotations/ZyCaptionEdit.h"
#include "annotations/captions/ZyFont.h"
#include "dialogs/controls/ZyFontDialog.h"
#include "dialogs/frames/ZySettingsFrame.h"
#include "graph/values/ZyColors.h"
#include "platform/controls/TButtonControl.h"
#include "texts/ZySettingsTexts.h"
#include "undo/ZyUndoGroup.h"

namespace zy {

namespace {

/// The texts of a list, one in a line, and back.
std::string JoinLines(const TStrings& List) {
  std::string Result;
  for (int Index = 0; Index < List.Count(); ++Index) Result += (Index > 0 ? "\r\n" : "") + List.Get(Index);
  return Result;
}

/// An empty text has no line.
void SplitLines(const std::string& Text, TStrings& List) {
  for (std::size_t Start = 0; !Text.empty() && Start <= Text.size();) {
    std::size_t End = Text.find('\r', Start);
    if (End == std::string::npos) End = Text.size();
    List.Add(Text.substr(Start, End - Start));
    Start = End + 1;
    if (Start < Text.size() && Text[Start] == '\n') ++Start;
  }
}

TStrings* ListAt(const TZyPropertyPlace& Place) { return dynamic_cast<TStrings*>(Place.GetObject()); }

/// Heights of edits in pixels: that of one caption, and of a list of them.
constexpr int CaptionHeight = 56, LinesHeight = 84;

}  // namespace

/// Shows the edit in the font of the caption, on a ground on which its colour can be read.
void TZySettingsFrame::ShowFont(const TCaption& Caption) {
  TZyCaptionEdit& Edit = *Caption.Edit;
  TPersistent* const Object = Shown();
  if (Object == nullptr || Caption.FontPath.empty()) return;
  const TZyPropertyPlace FontPlace = FindPlace(*Object, Caption.FontPath);
  const auto* const Present = FontPlace ? dynamic_cast<const TZyFont*>(FontPlace.GetObject()) : nullptr;
  if (Present == nullptr) return;
  const std::unique_ptr<TControlFont> Face = Present->AsTFont();
  if (const TZyPropertyPlace Color = FindPlace(*Object, Caption.ColorPath))
    Face->SetColor(static_cast<TZyColor>(std::get<std::int64_t>(Color.Get())));
  if (Caption.KeepsSize) Face->SetSize(Edit.ControlFont().Size());
  if (!(Edit.ControlFont() == *Face)) Edit.SetControlFont(*Face);
  if (!Edit.HasWidget()) return;
  QPalette Colors = Edit.Widget()->palette();
  const QColor Ground = QColor::fromRgb(ContrastBackGroundARGB(Face->Color()));
  if (Colors.color(QPalette::Base) == Ground) return;
  Colors.setColor(QPalette::Base, Ground);
  Edit.Widget()->setPalette(Colors);
}

/// The return key applies a caption, and breaks the line with the shift key held; in a list it begins another line and
/// applies what is there.
TZyCaptionEdit& TZySettingsFrame::AddCaptionEdit(const char* PartName, const char* FontPath, const char* ColorPath,
                                                 const TPropInfo& Info, bool ReturnApplies) {
  auto& Edit = *AddPart<TZyCaptionEdit>(*this, *FGroup, PartName);
  Edit.SetTabStop(true);
  if (Info.Label.has_value()) Edit.SetHint(LoadResString(*Info.Label));
  Edit.SetBounds(0, 0, Edit.Width(), ReturnApplies ? CaptionHeight : LinesHeight);
  EnterLine(Edit);
  FCaptions.push_back({&Edit, FontPath, ColorPath, !ReturnApplies});
  const auto Apply = [this, &Edit](TObject*) { Edited(Edit); };
  Edit.SetOnExit(Apply);
  Edit.SetOnDblClick(Apply);
  Edit.SetOnKeyDown([&Edit, ReturnApplies](TObject*, TKey& Key, TShiftState Shift) {
    if (Key != vkReturn || Shift.Contains(ssShift)) return;
    if (ReturnApplies) Key = 0;
    Edit.DblClick();
  });
  return Edit;
}

TZyCaptionEdit& TZySettingsFrame::AddCaption(const char* PartName, const char* Path, const char* FontPath,
                                             const char* ColorPath) {
  auto& Edit = AddCaptionEdit(PartName, FontPath, ColorPath, RowAt(PartName, Path), true);
  BindValue(
      Edit, Path, [&Edit] { return TZySettingValue(std::string(Edit.Caption())); },
      [&Edit](const TZySettingValue& Value) {
        if (Edit.Caption() != std::get<std::string>(Value)) Edit.SetCaption(std::get<std::string>(Value));
      });
  return Edit;
}

TZyCaptionEdit& TZySettingsFrame::AddLines(const char* PartName, const char* Path, const char* FontPath,
                                           const char* ColorPath) {
  auto& Edit = AddCaptionEdit(PartName, FontPath, ColorPath, RowAt(PartName, Path), false);
  TBinding& Binding = Bind(Edit, Path);
  Binding.Show = [&Edit](const TZyPropertyPlace& Place) {
    const TStrings* const List = ListAt(Place);
    const std::string Text = List == nullptr ? std::string() : JoinLines(*List);
    if (Edit.Caption() != Text) Edit.SetCaption(Text);
  };
  const auto Typed = [&Edit](TStringList& List) { SplitLines(Edit.Caption(), List); };
  Binding.IsSame = [Typed](const TZyPropertyPlace& Place) {
    TStringList List;
    Typed(List);
    const TStrings* const Present = ListAt(Place);
    return Present == nullptr ? List.Count() == 0 : List.HasTextsOf(*Present);
  };
  Binding.Write = [Typed](const TZyPropertyPlace& Place) {
    TStringList List;
    Typed(List);
    Place.Info->SetObject(*Place.Object, &List);
  };
  return Edit;
}

void TZySettingsFrame::TakeLines(const TZyCaptionEdit& Edit, TStrings& List) {
  TStringList Lines;
  SplitLines(Edit.Caption(), Lines);
  List.BeginUpdate();
  List.Assign(&Lines);
  List.EndUpdate();
}

/// The dialog waits for its user, in whose course everything may go.
void TZySettingsFrame::AskFont(TWinControl& Control, const std::string& Path) {
  TPersistent* const Object = Shown();
  if (Object == nullptr) return;
  const TZyPropertyPlace Place = FindPlace(*Object, Path);
  const auto* const Present = Place ? dynamic_cast<const TZyFont*>(Place.GetObject()) : nullptr;
  if (Present == nullptr) return;
  auto& Dialog = FindFontDialog();
  Dialog.SetFont(*Present);
  const std::uint64_t Alive = LiveHandle(), Asked = Control.LiveHandle();
  if (!Dialog.Execute() || FromLiveHandle(Alive) == nullptr || FromLiveHandle(Asked) == nullptr) return;
  Write(static_cast<std::size_t>(&BindingOf(Control) - FBindings.data()));
}

const TZyFont& TZySettingsFrame::ChosenFont() { return FindFontDialog().Font(); }

TZyFontDialog& TZySettingsFrame::FindFontDialog() {
  if (auto* const Found = dynamic_cast<TZyFontDialog*>(FindComponent("FontDialog"))) return *Found;
  auto* const Made = new TZyFontDialog(this);
  Made->SetName("FontDialog");
  return *Made;
}

TButton& TZySettingsFrame::AddFont(const char* PartName, const char* Path) {
  const TPropInfo& Info = RowAt(PartName, Path);
  auto& Button = AddButton(PartName, _sSettingsFont, Info.Label.value_or(_sSettingsFont), nullptr);
  TBinding& Binding = Bind(Button, Path);
  Binding.Show = [](const TZyPropertyPlace&) {};
  Binding.IsSame = [](const TZyPropertyPlace&) { return false; };
  Binding.Write = [this](const TZyPropertyPlace& Place) {
    Place.Info->SetObject(*Place.Object, &FindFontDialog().Font());
  };
  Button.SetOnClick(
      [this, &Button](TObject*) { UserActs([this, &Button] { AskFont(Button, BindingOf(Button).Path); }); });
  return Button;
}

}  // namespace zy
