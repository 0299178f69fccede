#include "dialogs/frames/ZySettingsFrame.h"

#include <QApplication>
#include <algorithm>
#include <bit>
#include <exception>

#include "annotations/ZyCaptionEdit.h"
#include "dialogs/controls/ZyNumericUpDn.h"
#include "platform/controls/TCustomEdit.h"
#include "platform/controls/TStatusBar.h"
#include "platform/framework/ScopedFlag.h"
#include "texts/Exceptions.h"
#include "texts/ZySettingsTexts.h"
#include "undo/ZyUndoGroup.h"

namespace zy {

ZY_PUBLISHED(TZySettingsFrame, TFrame)

TZyQuietStack::TZyQuietStack(TZyUndoStack* Stack) {
  if (Stack == nullptr) return;
  FStack = Stack->LiveHandle();
  FWasEnabled = Stack->Enabled();
  Stack->SetEnabled(false);
}

TZyQuietStack::~TZyQuietStack() {
  auto* const Stack = static_cast<TZyUndoStack*>(TPersistent::FromLiveHandle(FStack));
  if (Stack != nullptr && FWasEnabled) Stack->SetEnabled(true);
}

TZySettingsFrame::~TZySettingsFrame() { Destroying(); }

void TZySettingsFrame::MissingPart(std::string_view PartName) const {
  throw EInvalidOperation(Format(LoadResString(_sSettingsNoPart), {PartName}));
}

std::vector<TZySetting> TZySettingsFrame::Settings() const {
  std::vector<TZySetting> Result;
  for (const TBinding& Binding : FBindings) Result.push_back({Binding.Control, Binding.Path});
  return Result;
}

// --- From the object to the controls --------------------------------------------------------------------------------

void TZySettingsFrame::UpdateControls() {
  TPersistent* const Object = Shown();
  if (Object == nullptr) return;
  const TZyQuietStack Quiet(FUndoStack);
  const TScopedValue Shows(FCanSet, false);
  for (TBinding& Binding : FBindings) ShowBinding(Binding, *Object);
  for (const TCaption& Caption : FCaptions) ShowFont(Caption);
  ControlsUpdated();
  ShowLeads();
}

/// Equal for equal values, NaN included; a reference as where it leads to. None where the path ends early.
std::optional<TZySettingValue> TZySettingsFrame::SeenAt(const TZyPropertyPlace& Place) {
  if (!Place) return std::nullopt;
  if (Place.Info->Kind == TPropKind::Class) {
    const TPersistent* const Object = Place.GetObject();
    if (const auto* const List = dynamic_cast<const TStrings*>(Object)) return List->Text();
    return Object == nullptr ? 0 : static_cast<std::int64_t>(Object->LiveHandle());
  }
  const TZySettingValue Value = Place.Get();
  if (const auto* const Real = std::get_if<double>(&Value)) return std::bit_cast<std::int64_t>(*Real);
  return Value;
}

bool TZySettingsFrame::IsOutdated() {
  TPersistent* const Object = Shown();
  return Object != nullptr && std::ranges::any_of(FBindings, [Object](const TBinding& Binding) {
           return SeenAt(FindPlace(*Object, Binding.Path)) != Binding.Seen;
         });
}

void TZySettingsFrame::ShowBinding(TBinding& Binding, TPersistent& Object) {
  const TZyPropertyPlace Place = FindPlace(Object, Binding.Path);
  Binding.Seen = SeenAt(Place);
  if (!Place || IsTypedIn(*Binding.Control)) return;
  Binding.Show(Place);
  if (TCaption* const Caption = CaptionOf(*Binding.Control)) Caption->Seen = Caption->Edit->Caption();
}

void TZySettingsFrame::ForgetTyping() {
  for (const TBinding& Binding : FBindings) NoteSeen(*Binding.Control);
}

TZySettingsFrame::TCaption* TZySettingsFrame::CaptionOf(const TWinControl& Control) {
  const auto Found = std::ranges::find_if(FCaptions, [&](const TCaption& Each) { return Each.Edit == &Control; });
  return Found == FCaptions.end() ? nullptr : &*Found;
}

void TZySettingsFrame::NoteSeen(TWinControl& Control) {
  if (TCaption* const Caption = CaptionOf(Control)) Caption->Seen = Caption->Edit->Caption();
  if (auto* const Edit = dynamic_cast<TCustomEdit*>(&Control)) Edit->SetModified(false);
}

/// What is being typed, and is not applied yet, is left to its user.
bool TZySettingsFrame::IsTypedIn(const TWinControl& Control) {
  if (const TCaption* const Caption = CaptionOf(Control)) return Caption->Edit->Caption() != Caption->Seen;
  const auto* const Edit = dynamic_cast<const TCustomEdit*>(&Control);
  return Edit != nullptr && Edit->Focused() && dynamic_cast<const TZyNumericUpDn*>(Edit) == nullptr && Edit->Modified();
}

/// What stands in front of a line is there for what stands behind.
void TZySettingsFrame::ShowLeads() {
  for (const TLine& Line : FLines) {
    if (Line.Lead == nullptr || Line.Controls.empty() || dynamic_cast<TStaticText*>(Line.Lead) == nullptr) continue;
    Line.Lead->SetVisible(std::ranges::any_of(Line.Controls, [](const TWinControl* Each) { return Each->Visible(); }));
  }
}

// --- From the controls to the objects -------------------------------------------------------------------------------

TZySettingsFrame::TBinding& TZySettingsFrame::BindingOf(const TWinControl& Control) {
  const auto Found = std::ranges::find(FBindings, &Control, &TBinding::Control);
  if (Found == FBindings.end()) MissingPart(Control.Name());
  return *Found;
}

void TZySettingsFrame::FirstOnly(TWinControl& Control) { BindingOf(Control).FirstOnly = true; }

void TZySettingsFrame::WithoutGroup(TWinControl& Control) { BindingOf(Control).HasGroup = false; }

void TZySettingsFrame::SetLabel(TWinControl& Control, TZyText Label) { BindingOf(Control).Label = Label; }

void TZySettingsFrame::SetAfter(TWinControl& Control, std::function<void()> After) {
  BindingOf(Control).After = std::move(After);
}

void TZySettingsFrame::SetWriter(TWinControl& Control, std::function<void(TPersistent&)> Writer) {
  BindingOf(Control).Write = [Writer = std::move(Writer)](const TZyPropertyPlace& Place) { Writer(*Place.Object); };
}

void TZySettingsFrame::Edited(const TWinControl& Control) {
  if (!FCanSet) return;
  const auto Index = static_cast<std::size_t>(&BindingOf(Control) - FBindings.data());
  NoteSeen(*FBindings[Index].Control);
  UserActs([this, Index] { Write(Index); });
}

/// A setter may run handlers of the application, which may free the objects, their stack, and the frame.
void TZySettingsFrame::Write(std::size_t Index) {
  const TBinding& Binding = FBindings[Index];
  std::vector<std::uint64_t> Handles;
  if (Binding.FirstOnly) {
    if (const TPersistent* const Object = Shown()) Handles.push_back(Object->LiveHandle());
  } else {
    for (const TPersistent* Object : Targets()) Handles.push_back(Object->LiveHandle());
  }
  const std::uint64_t Alive = LiveHandle();
  std::optional<TZyUndoGroup> Group;
  for (const std::uint64_t Handle : Handles) {
    TPersistent* const Object = FromLiveHandle(Handle);
    if (Object == nullptr) continue;
    const TZyPropertyPlace Place = FindPlace(*Object, Binding.Path);
    if (!Place || Binding.IsSame(Place)) continue;
    if (WritesGroups() && Binding.HasGroup && !Binding.FirstOnly && !Group.has_value()) {
      if (Binding.Label.has_value()) {
        Group.emplace(FUndoStack, *Binding.Label);
      } else {
        Group.emplace(FUndoStack, TZyUndoStack::LabelOf(*Place.Object, Place.Info->Name));
      }
    }
    Binding.Write(Place);
    if (FromLiveHandle(Alive) == nullptr) return;
  }
  if (Binding.After) Binding.After();
}

// --- Borders --------------------------------------------------------------------------------------------------------

bool TZySettingsFrame::IsOn(TPersistent& Object, const char* PartName) {
  const TZyPropertyPlace Place = FindPlace(Object, PathOf(Part<TWinControl>(PartName)));
  return Place && Place.Is(std::int64_t{1});
}

void TZySettingsFrame::SwitchOff(TPersistent& Object, const char* PartName) {
  if (IsOn(Object, PartName)) FindPlace(Object, PathOf(Part<TWinControl>(PartName))).Set(std::int64_t{0});
}

void TZySettingsFrame::Exclude(const TBorder& Border) {
  for (const char* PartName : {Border.Frame, Border.Raised, Border.Lowered, Border.Shadow}) {
    TWinControl& Check = Part<TWinControl>(PartName);
    TBinding& Binding = BindingOf(Check);
    Binding.Write = [this, Border, &Check, Write = Binding.Write](const TZyPropertyPlace& Place) {
      const std::uint64_t Alive = LiveHandle();
      const TZyUndoGroup Group(FUndoStack, TZyUndoStack::LabelOf(*Place.Object, Place.Info->Name));
      const std::vector<TPersistent*> Objects = Targets();
      const std::uint64_t Edited = Objects.front()->LiveHandle();
      Write(Place);
      if (FromLiveHandle(Alive) != nullptr && FromLiveHandle(Edited) != nullptr)
        KeepApart(*Objects.front(), Border, Check);
    };
  }
}

void TZySettingsFrame::KeepApart(TPersistent& Object, const TBorder& Border, const TWinControl& Clicked) {
  const std::string& Name = Clicked.Name();
  const bool Goes = IsOn(Object, Name.c_str());
  if (Name == Border.Frame && Goes) {
    SwitchOff(Object, Border.Raised);
    SwitchOff(Object, Border.Lowered);
  } else if (Name == Border.Raised && Goes) {
    SwitchOff(Object, Border.Gradient);
    SwitchOff(Object, Border.Frame);
  } else if (Name == Border.Raised) {
    if (IsOn(Object, Border.Shadow)) SwitchOff(Object, Border.Lowered);
  } else if (Name == Border.Lowered && Goes) {
    SwitchOff(Object, Border.Frame);
    if (!IsOn(Object, Border.Raised)) SwitchOff(Object, Border.Shadow);
  } else if (Name == Border.Shadow && Goes) {
    if (!IsOn(Object, Border.Raised)) SwitchOff(Object, Border.Lowered);
  }
}

void TZySettingsFrame::UserActs(const std::function<void()>& Act) {
  if (!FCanSet) return;
  const std::uint64_t Alive = LiveHandle();
  std::exception_ptr Error;
  try {
    Act();
  } catch (const EAbort&) {
  } catch (...) {
    Error = std::current_exception();
  }
  const bool IsAlive = FromLiveHandle(Alive) != nullptr;
  if (IsAlive) UpdateControls();
  if (Error == nullptr) return;
  try {
    std::rethrow_exception(Error);
  } catch (const std::exception& Reason) {
    if (!IsAlive || !ShowError(Reason.what())) throw;
  }
}

bool TZySettingsFrame::ShowError(const std::string& Message) {
  TStatusBar* Status = nullptr;
  for (const TComponent* Each = Owner(); Status == nullptr && Each != nullptr; Each = Each->Owner())
    Status = dynamic_cast<TStatusBar*>(Each->FindComponent("ErrorStatus"));
  if (Status == nullptr) return false;
  std::string Line = Message;
  std::ranges::replace(Line, '\r', ' ');
  std::ranges::replace(Line, '\n', ' ');
  Status->SetSimpleText(Line);
  QApplication::beep();
  FErrorTimer.SetOnTimer([this, Handle = Status->LiveHandle()](TObject*) {
    FErrorTimer.SetEnabled(false);
    if (auto* const Shown = static_cast<TStatusBar*>(FromLiveHandle(Handle))) Shown->SetSimpleText({});
  });
  FErrorTimer.SetEnabled(false);
  FErrorTimer.SetEnabled(true);
  return true;
}

}  // namespace zy
