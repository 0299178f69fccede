#pragma once

#include <cstdint>

#include "platform/controls/TForm.h"
#include "platform/controls/TStaticText.h"
#include "platform/framework/Application.h"
#include "texts/ZyLocalize.h"

namespace zy {

// What dialogs and frames are put together from. Every control in them is a component with a name, by which it is
// found.

/// A new control of Form with a name, in Parent.
template <class T>
T* AddPart(TComponent& Form, TWinControl& Parent, const char* Name) {
  auto* const Part = new T(&Form);
  Part->SetName(Name);
  Part->SetParent(&Parent);
  return Part;
}
/// The same with a text for tool tips and screen readers.
template <class T>
T* AddPart(TComponent& Form, TWinControl& Parent, const char* Name, TZyText Hint) {
  T* const Part = AddPart<T>(Form, Parent, Name);
  Part->SetHint(LoadResString(Hint));
  return Part;
}

/// The one form of a class that the program has, made by whoever needs it first. The application owns it.
template <class TFormClass>
TFormClass& SharedForm() {
  static std::uint64_t Shared = 0;
  if (auto* const Present = static_cast<TFormClass*>(TPersistent::FromLiveHandle(Shared))) return *Present;
  auto* const Made = new TFormClass(&Application());
  Shared = Made->LiveHandle();
  return *Made;
}

/// A label in front of a control, with its access key.
inline TStaticText* AddLabel(TComponent& Form, TWinControl& Control, TZyText Text) {
  auto* const Label = new TStaticText(&Form);
  Label->SetCaption(LoadResString(Text));
  Label->SetParent(Control.Parent());
  Label->SetFocusControl(&Control);
  return Label;
}

/// Gives a dialog the font of the program's first form, in a size of up to Cap points, where that form has one of its
/// own; else that of the desktop stays.
inline void TakeMainFont(TForm& Form, float Cap) {
  for (TComponent* Each : Screen().Forms()) {
    auto* const Main = dynamic_cast<TForm*>(Each);
    if (Main == nullptr || Main == &Form) continue;
    if (Main->ParentFont()) return;
    TControlFont Font;
    Font.Assign(&Main->ControlFont());
    if (Font.Size() > Cap) Font.SetSize(Cap);
    return Form.SetControlFont(Font);
  }
}

}  // namespace zy
