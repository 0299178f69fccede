#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "dialogs/controls/ZyDialogParts.h"
#include "dialogs/frames/ZyPropertyPlace.h"
#include "graph/values/ZyColors.h"
#include "platform/controls/TFrame.h"
#include "platform/controls/TTimer.h"
#include "platform/framework/TRef.h"
#include "undo/ZyUndoStack.h"

namespace zy {

class Graphics;
class TButton;
class TCheckBox;
class TPanel;
class TRadioButton;
class TScrollBox;
class TZyAreaStylesList;
class TZyCaptionEdit;
class TZyColorPickCombo;
class TZyDashStylesCombo;
class TZyDoubleEdit;
class TZyFont;
class TZyFontDialog;
class TZyGradientFrame;
class TZyNumericUpDn;
class TZyObjectCombo;
class TZyPointSymbolsCombo;
class TZySeriesListBox;
class TComboBox;
class TEdit;
enum class TZyGlyph;

/// A control of a frame, and the path from the frame's object to the property that it shows.
struct TZySetting {
  TWinControl* Control;
  std::string Path;
};

/// Base of the parts of a form in which the user changes the settings of one object of a chart, or of several at once.
///
/// A frame is a table of controls, each tied to the property at a path from the object. What the user does is written
/// at once through the property's setter, so that it can be undone as any other change; then all controls show what
/// became of it. Reading the object into the controls changes nothing, and nothing is logged meanwhile. A value that
/// the setter refuses leaves the control with the present one, and the message goes to the status bar "ErrorStatus" of
/// the nearest owner that has one, where it stays for ten seconds; without one the exception goes on.
///
/// The controls stand in groups below each other, which scroll; each line has a label or a check box in front. Access
/// keys are given out by the frame, so that none is there twice.
class TZySettingsFrame : public TFrame {
  ZY_CLASS(TZySettingsFrame, TFrame)
  ~TZySettingsFrame() override;

  /// Brings all controls up to date with the object. Nothing without one.
  virtual void UpdateControls();
  /// Whether the object has another value than when its control was filled, as when the program or a calculation sets
  /// one. Settings objects as a whole (fonts, gradients) do not count.
  virtual bool IsOutdated();
  /// Has the next UpdateControls show the object's own texts where something is being typed.
  void ForgetTyping();
  /// False while the frame fills its own controls.
  bool CanSet() const { return FCanSet; }
  /// The stack of the object that is shown.
  TZyUndoStack* UndoStack() const { return FUndoStack; }

  /// The controls that are tied to properties, in the order of the frame; what a frame's own code sets is not among
  /// them.
  std::vector<TZySetting> Settings() const;
  /// A control of the frame. Throws EInvalidOperation when it has none of that name and class.
  template <class T>
  T& Part(std::string_view PartName) const {
    auto* const Found = dynamic_cast<T*>(FindComponent(PartName));
    if (Found == nullptr) MissingPart(PartName);
    return *Found;
  }

  /// Shows a message in that status bar, with a beep, for ten seconds. False without one.
  bool ShowError(const std::string& Message);

 protected:
  /// Edited is the class whose properties the paths begin with. A frame within another one does not scroll by itself.
  TZySettingsFrame(TComponent* Owner, const TClassInfo& Edited, bool IsInner = false);

  /// What a value of the controls is written to, in this order. None for nothing to edit.
  virtual std::vector<TPersistent*> Targets() const = 0;
  /// Whether all that a control writes is one step, with the label of the property, even for one object.
  virtual bool WritesGroups() const { return false; }
  /// Enables, hides and fills what depends on the object, after the controls took their values.
  virtual void ControlsUpdated() {}
  /// Runs when another object is taken: its stack. What was typed for the one before is forgotten.
  void SetUndoStack(TZyUndoStack* Value) {
    FUndoStack = Value;
    ForgetTyping();
  }
  /// The one that is shown, which gets what is not written to all; the first one unless a frame knows better.
  virtual TPersistent* Shown() const {
    const std::vector<TPersistent*> Objects = Targets();
    return Objects.empty() ? nullptr : Objects.front();
  }

  // --- Building, in constructors. Each control comes behind the last one of its line. ---

  /// A frame with a title around the lines that follow, or a panel without one.
  TWinControl& AddGroup(const char* PartName, TZyText Title);
  TWinControl& AddPanel(const char* PartName);
  /// Begins a panel within the present group, which is shown and hidden as a whole.
  TPanel& AddSubPanel(const char* PartName);
  void EndSubPanel();
  /// Begins a line with a label in front, which names its first control.
  TStaticText& AddLine(TZyText Label);
  void AddLine();

  /// A check box begins a line, as what stands in front, unless the line that was begun has nothing in it.
  TCheckBox& AddCheck(const char* PartName, const char* Path, TZyText Text);
  /// A check box of which the frame's own code makes something.
  TCheckBox& AddFreeCheck(const char* PartName, TZyText Text, TZyText HintText, std::function<void()> Click,
                          bool IsLead = true);
  /// The same, behind the last control of its line.
  TCheckBox& AddBesideCheck(const char* PartName, TZyText Text, TZyText HintText, std::function<void()> Click) {
    return AddFreeCheck(PartName, Text, HintText, std::move(Click), false);
  }
  /// One of the values of a property; those of one line exclude each other.
  TRadioButton& AddRadio(const char* PartName, const char* Path, std::int64_t Value, TZyText Text);
  TRadioButton& AddFreeRadio(const char* PartName, TZyText Text, TZyText HintText, std::function<void()> Click);
  TZyNumericUpDn& AddUpDown(const char* PartName, const char* Path, double Least = 0, double Most = 100,
                            double Step = 1);
  TZyDoubleEdit& AddEdit(const char* PartName, const char* Path);
  TEdit& AddText(const char* PartName, const char* Path, TZyText HintText);
  TZyColorPickCombo& AddColor(const char* PartName, const char* Path);
  /// Items are texts with line ends between them; the property's values are their places.
  TComboBox& AddCombo(const char* PartName, const char* Path, TZyText Items);
  TZyDashStylesCombo& AddDashes(const char* PartName, const char* Path);
  TZyAreaStylesList& AddAreaStyles(const char* PartName, const char* Path);
  TZyPointSymbolsCombo& AddSymbols(const char* PartName, const char* Path);
  /// A caption, in the font and colour of the paths; an empty one for none.
  TZyCaptionEdit& AddCaption(const char* PartName, const char* Path, const char* FontPath, const char* ColorPath);
  /// A list of captions, one in a line.
  TZyCaptionEdit& AddLines(const char* PartName, const char* Path, const char* FontPath, const char* ColorPath);
  TButton& AddFont(const char* PartName, const char* Path);
  /// A check box for the gradient at a path, and the frame with its settings below, which is shown while it is on.
  TZyGradientFrame& AddGradient(const char* CheckName, const char* FrameName, const char* Path, TZyText Text);
  /// The frame alone.
  TZyGradientFrame& AddGradientFrame(const char* PartName, const char* Path);
  /// A reference to one of the objects in the combo's items; an item without one stands for none.
  TZyObjectCombo& AddReference(const char* PartName, const char* Path);
  /// A reference to a vector: the first item stands for none, and with HasIndex the second for the index.
  TZyObjectCombo& AddData(const char* PartName, const char* Path, bool HasIndex);
  TButton& AddButton(const char* PartName, TZyText Text, TZyText HintText, std::function<void()> Click);
  /// A list of series that the user puts into another order, and below it the four buttons that move the selected one.
  TZySeriesListBox& AddOrderList(const char* PartName, TZyText HintText);
  /// A control of the frame's own over the whole width.
  void AddWide(TWinControl& Control);
  /// The checks of a border's parts, and of a gradient.
  struct TBorder {
    const char *Frame, *Raised, *Lowered, *Shadow, *Gradient;
  };
  /// Has the checks of a border's parts exclude each other: a line goes with nothing raised or lowered, a raised border
  /// with no gradient, one that is only lowered with no shadow. What a click brings along is one step with it.
  void Exclude(const TBorder& Border);
  /// A panel for controls of the frame's own, beside each other, in a line.
  TPanel& AddBar(const char* PartName);
  TScrollBox& AddScroll(const char* PartName, int Height);
  /// A small button with a picture.
  TWinControl& AddTool(const char* PartName, TZyText HintText, TZyGlyph Glyph, std::function<void()> Click);
  /// A picture over the whole width.
  TPanel& AddPicture(const char* PartName, int Height, TZyText HintText, std::function<void(Graphics&, TPanel&)> Draw);
  /// Ends a constructor: gives out the access keys.
  void AllAdded();

  /// The path of the property that a control shows.
  const std::string& PathOf(const TWinControl& Control) { return BindingOf(Control).Path; }
  /// Has what a control writes go to the first object only.
  void FirstOnly(TWinControl& Control);
  /// Has what a control writes be a step for each object.
  void WithoutGroup(TWinControl& Control);
  /// Has what a control writes be called by another text than the property's.
  void SetLabel(TWinControl& Control, TZyText Label);
  /// Has After run when a control has written.
  void SetAfter(TWinControl& Control, std::function<void()> After);
  /// Has a control write by Writer, where the property's row has no setter that can be undone.
  void SetWriter(TWinControl& Control, std::function<void(TPersistent&)> Writer);
  /// Replaces the texts of a list by the lines of an edit.
  static void TakeLines(const TZyCaptionEdit& Edit, TStrings& List);
  /// The font that the user chose, within the writer of a font button.
  const TZyFont& ChosenFont();
  /// Takes the class whose properties the following paths begin with; the object may be of another one, for which these
  /// controls show nothing.
  void SetClass(const TClassInfo& Value) { FClass = &Value; }

  /// Runs what the user asked for: nothing while the frame fills its controls; afterwards these are up to date. Errors
  /// are shown.
  void UserActs(const std::function<void()>& Act);
  /// A label in front of a line is shown while anything in the line is.
  void ShowPart(std::string_view PartName, bool Value) { Part<TWinControl>(PartName).SetVisible(Value); }
  void EnablePart(std::string_view PartName, bool Value) { Part<TWinControl>(PartName).SetEnabled(Value); }

  void ArrangeWidgets() override;

  mutable bool FCanSet = true;

 private:
  /// A control that is tied to a property.
  struct TBinding {
    TWinControl* Control;
    std::string Path;
    std::function<void(const TZyPropertyPlace&)> Show;
    std::function<bool(const TZyPropertyPlace&)> IsSame;
    std::function<void(const TZyPropertyPlace&)> Write;
    std::optional<TZyText> Label;
    std::function<void()> After;
    bool FirstOnly = false;
    bool HasGroup = true;
    std::optional<TZySettingValue> Seen;  // the property when the control was last filled
  };
  /// A caption edit, shown in a font and a colour of the object's.
  struct TCaption {
    TZyCaptionEdit* Edit;
    std::string FontPath, ColorPath;
    bool KeepsSize = false;  // that of the edit
    std::string Seen = {};   // what the edit held when it was last filled or applied; what differs is being typed
  };
  /// Controls beside each other: what stands in front, and those behind.
  struct TLine {
    TWinControl* Box;   // what the line lies in
    TWinControl* Lead;  // null for none
    std::vector<TWinControl*> Controls;
    bool IsWide = false;     // over the whole width
    bool IsPicture = false;  // of the height that it has
  };

  template <class T>
  T& AddControl(const char* PartName, const TPropInfo* Info);
  template <class T>
  T& AddBound(const char* PartName, const char* Path);
  TBinding& Bind(TWinControl& Control, const char* Path);
  void BindValue(TWinControl& Control, const char* Path, const std::function<TZySettingValue()>& Get,
                 std::function<void(const TZySettingValue&)> Show);
  TZyCaptionEdit& AddCaptionEdit(const char* PartName, const char* FontPath, const char* ColorPath,
                                 const TPropInfo& Info, bool ReturnApplies);
  const TPropInfo& RowAt(const char* PartName, const char* Path) const;
  void EnterLine(TWinControl& Control, bool IsLead = false);
  TBinding& BindingOf(const TWinControl& Control);
  void Edited(const TWinControl& Control);
  void Write(std::size_t Index);
  bool IsTypedIn(const TWinControl& Control);
  TCaption* CaptionOf(const TWinControl& Control);
  void NoteSeen(TWinControl& Control);
  static std::optional<TZySettingValue> SeenAt(const TZyPropertyPlace& Place);
  void ShowBinding(TBinding& Binding, TPersistent& Object);
  void ShowFont(const TCaption& Caption);
  void AskFont(TWinControl& Control, const std::string& Path);
  TZyFontDialog& FindFontDialog();
  void ShowLeads();
  bool IsOn(TPersistent& Object, const char* PartName);
  void SwitchOff(TPersistent& Object, const char* PartName);
  void KeepApart(TPersistent& Object, const TBorder& Border, const TWinControl& Clicked);
  [[noreturn]] void MissingPart(std::string_view PartName) const;

  const TClassInfo* FClass;
  TWinControl* FBox;                 // holds the groups
  TWinControl* FGroup = nullptr;     // in which lines are added
  std::vector<TWinControl*> FOuter;  // the groups that the sub-panels lie in
  std::vector<TBinding> FBindings;
  std::vector<TCaption> FCaptions;
  std::vector<TLine> FLines;
  std::vector<TWinControl*> FGroups;
  bool FIsLineOpen = false;
  TRef<TZyUndoStack> FUndoStack{this};
  TTimer FErrorTimer;
};

/// Keeps a stack from recording until the end of the block.
class TZyQuietStack {
 public:
  explicit TZyQuietStack(TZyUndoStack* Stack);
  ~TZyQuietStack();
  TZyQuietStack(const TZyQuietStack&) = delete;
  TZyQuietStack& operator=(const TZyQuietStack&) = delete;

 private:
  std::uint64_t FStack = 0;
  bool FWasEnabled = false;
};

}  // namespace zy
