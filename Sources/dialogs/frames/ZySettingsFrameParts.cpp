#include <cmath>
#include <set>
#include <tuple>
#include <utility>

#include "annotations/ZyCaptionEdit.h"
#include "dialogs/controls/ZyAreaStyles.h"
#include "dialogs/controls/ZyColorPickCombo.h"
#include "dialogs/controls/ZyDashStyles.h"
#include "dialogs/controls/ZyFontDialog.h"
#include "dialogs/controls/ZyGradientFrame.h"
#include "dialogs/controls/ZyNumericUpDn.h"
#include "dialogs/controls/ZyPointSymbols.h"
#include "dialogs/frames/ZyMoveButtons.h"
#include "dialogs/frames/ZyObjectItems.h"
#include "dialogs/frames/ZySeriesListBox.h"
#include "dialogs/frames/ZySettingsFrame.h"
#include "graph/styles/ZyLineSettings.h"
#include "platform/controls/TButtonControl.h"
#include "platform/controls/TCustomEdit.h"
#include "platform/controls/TGroupBox.h"
#include "platform/controls/TPanel.h"
#include "platform/controls/TScrollBox.h"
#include "platform/framework/Reflection.h"
#include "series/vectors/ZyDoubleVector.h"
#include "texts/Exceptions.h"
#include "texts/ZySettingsTexts.h"

namespace zy {

namespace {

/// Milliseconds for which a message stays.
constexpr int ErrorTime = 10000;

/// A single's own digits as a real.
double Rounded(double Value, bool IsSingle) { return IsSingle ? std::round(Value * 1e6) / 1e6 : Value; }

}  // namespace

TZySettingsFrame::TZySettingsFrame(TComponent* Owner, const TClassInfo& Edited, bool IsInner)
    : TFrame(Owner), FClass(&Edited) {
  if (IsInner) {
    FBox = AddPart<TPanel>(*this, *this, "Box");
  } else {
    FBox = AddPart<TScrollBox>(*this, *this, "ScrollBox");
  }
  SetShowHint(true);
  FErrorTimer.SetEnabled(false);
  FErrorTimer.SetInterval(ErrorTime);
}

// --- Groups and lines -----------------------------------------------------------------------------------------------

TWinControl& TZySettingsFrame::AddGroup(const char* PartName, TZyText Title) {
  auto* const Group = AddPart<TGroupBox>(*this, *FBox, PartName);
  Group->SetCaption(LoadResString(Title));
  FGroup = Group;
  FGroups.push_back(Group);
  FIsLineOpen = false;
  return *Group;
}

TWinControl& TZySettingsFrame::AddPanel(const char* PartName) {
  FGroup = AddPart<TPanel>(*this, *FBox, PartName);
  FGroups.push_back(FGroup);
  FIsLineOpen = false;
  return *FGroup;
}

TPanel& TZySettingsFrame::AddSubPanel(const char* PartName) {
  FIsLineOpen = false;
  auto* const Panel = AddPart<TPanel>(*this, *FGroup, PartName);
  EnterLine(*Panel);
  FLines.back().IsWide = true;
  FIsLineOpen = false;
  FOuter.push_back(std::exchange(FGroup, Panel));
  return *Panel;
}

void TZySettingsFrame::EndSubPanel() {
  FGroup = FOuter.back();
  FOuter.pop_back();
  FIsLineOpen = false;
}

void TZySettingsFrame::AddLine() {
  FLines.push_back({FGroup, nullptr, {}});
  FIsLineOpen = true;
}

/// The label names the first control that comes; see EnterLine.
TStaticText& TZySettingsFrame::AddLine(TZyText Label) {
  AddLine();
  auto* const Text = new TStaticText(this);
  Text->SetCaption(LoadResString(Label));
  Text->SetParent(FGroup);
  FLines.back().Lead = Text;
  return *Text;
}

void TZySettingsFrame::EnterLine(TWinControl& Control, bool IsLead) {
  const bool IsEmpty = FIsLineOpen && FLines.back().Lead == nullptr && FLines.back().Controls.empty();
  if (!FIsLineOpen || (IsLead && !IsEmpty)) AddLine();
  TLine& Line = FLines.back();
  if (IsLead) {
    Line.Lead = &Control;
    return;
  }
  auto* const Label = dynamic_cast<TStaticText*>(Line.Lead);
  if (Label != nullptr && Line.Controls.empty()) Label->SetFocusControl(&Control);
  Line.Controls.push_back(&Control);
}

/// Access keys of labels, boxes and radio buttons: the first letter of each that none before it has.
void TZySettingsFrame::AllAdded() {
  std::set<char> Taken;
  const auto Mark = [&Taken](const std::string& Text) {
    for (std::size_t Place = 0; Place < Text.size(); ++Place) {
      const char Letter = Text[Place];
      const bool IsLower = Letter >= 'a' && Letter <= 'z', IsUpper = Letter >= 'A' && Letter <= 'Z';
      if ((!IsLower && !IsUpper) || !Taken.insert(IsUpper ? static_cast<char>(Letter - 'A' + 'a') : Letter).second)
        continue;
      return Text.substr(0, Place) + '&' + Text.substr(Place);
    }
    return Text;
  };
  for (TComponent* Each : std::vector(Components())) {
    if (auto* const Label = dynamic_cast<TStaticText*>(Each); Label != nullptr && Label->FocusControl() != nullptr)
      Label->SetCaption(Mark(Label->Caption()));
    else if (auto* const Button = dynamic_cast<TButtonControl*>(Each); Button != nullptr && !Button->Caption().empty())
      Button->SetCaption(Mark(Button->Caption()));
  }
}

// --- Controls -------------------------------------------------------------------------------------------------------

const TPropInfo& TZySettingsFrame::RowAt(const char* PartName, const char* Path) const {
  if (const TPropInfo* const Info = FindRowOf(*FClass, Path)) return *Info;
  throw EInvalidOperation(Format(LoadResString(_sSettingsNoPath), {PartName, Path}));
}

template <class T>
T& TZySettingsFrame::AddControl(const char* PartName, const TPropInfo* Info) {
  T* const Control = AddPart<T>(*this, *FGroup, PartName);
  Control->SetTabStop(true);
  if (Info != nullptr && Info->Label.has_value()) Control->SetHint(LoadResString(*Info->Label));
  return *Control;
}

template <class T>
T& TZySettingsFrame::AddBound(const char* PartName, const char* Path) {
  return AddControl<T>(PartName, &RowAt(PartName, Path));
}

TZySettingsFrame::TBinding& TZySettingsFrame::Bind(TWinControl& Control, const char* Path) {
  TBinding Binding;
  Binding.Control = &Control;
  Binding.Path = Path;
  FBindings.push_back(std::move(Binding));
  return FBindings.back();
}

void TZySettingsFrame::BindValue(TWinControl& Control, const char* Path, const std::function<TZySettingValue()>& Get,
                                 std::function<void(const TZySettingValue&)> Show) {
  TBinding& Binding = Bind(Control, Path);
  Binding.Show = [Get, Show = std::move(Show)](const TZyPropertyPlace& Place) { Show(Place.Get()); };
  Binding.IsSame = [Get](const TZyPropertyPlace& Place) { return Place.Is(Get()); };
  Binding.Write = [Get](const TZyPropertyPlace& Place) { Place.Set(Get()); };
}

TCheckBox& TZySettingsFrame::AddCheck(const char* PartName, const char* Path, TZyText Text) {
  auto& Check = AddBound<TCheckBox>(PartName, Path);
  Check.SetCaption(LoadResString(Text));
  EnterLine(Check, true);
  BindValue(
      Check, Path, [&Check] { return TZySettingValue(std::int64_t{Check.Checked()}); },
      [&Check](const TZySettingValue& Value) { Check.SetChecked(std::get<std::int64_t>(Value) != 0); });
  Check.SetOnClick([this, &Check](TObject*) { Edited(Check); });
  return Check;
}

TCheckBox& TZySettingsFrame::AddFreeCheck(const char* PartName, TZyText Text, TZyText HintText,
                                          std::function<void()> Click, bool IsLead) {
  auto& Check = AddControl<TCheckBox>(PartName, nullptr);
  Check.SetCaption(LoadResString(Text));
  Check.SetHint(LoadResString(HintText));
  EnterLine(Check, IsLead);
  Check.SetOnClick([this, Click = std::move(Click)](TObject*) { UserActs(Click); });
  return Check;
}

/// Those of one line lie in a panel, which makes them exclude each other.
TRadioButton& TZySettingsFrame::AddFreeRadio(const char* PartName, TZyText Text, TZyText HintText,
                                             std::function<void()> Click) {
  if (!FIsLineOpen) AddLine();
  auto* Panel = FLines.back().Controls.empty() ? nullptr : dynamic_cast<TPanel*>(FLines.back().Controls.back());
  if (Panel == nullptr) {
    Panel = new TPanel(this);
    Panel->SetParent(FGroup);
    FLines.back().Controls.push_back(Panel);
  }
  auto* const Radio = AddPart<TRadioButton>(*this, *Panel, PartName, HintText);
  auto* const Label = dynamic_cast<TStaticText*>(FLines.back().Lead);
  if (Label != nullptr && Label->FocusControl() == nullptr) Label->SetFocusControl(Radio);
  Radio->SetTabStop(true);
  Radio->SetCaption(LoadResString(Text));
  Radio->SetOnClick([this, Click = std::move(Click)](TObject*) { UserActs(Click); });
  return *Radio;
}

TRadioButton& TZySettingsFrame::AddRadio(const char* PartName, const char* Path, std::int64_t Value, TZyText Text) {
  auto& Radio = AddFreeRadio(PartName, Text, RowAt(PartName, Path).Label.value_or(Text), nullptr);
  BindValue(
      Radio, Path, [Value] { return TZySettingValue(Value); },
      [&Radio, Value](const TZySettingValue& Present) { Radio.SetChecked(Present == TZySettingValue(Value)); });
  Radio.SetOnClick([this, &Radio](TObject*) { Edited(Radio); });
  return Radio;
}

TZyNumericUpDn& TZySettingsFrame::AddUpDown(const char* PartName, const char* Path, double Least, double Most,
                                            double Step) {
  auto& Edit = AddBound<TZyNumericUpDn>(PartName, Path);
  const bool IsReal = FindRowOf(*FClass, Path)->Kind == TPropKind::Float;
  Edit.SetMinValue(Least);
  Edit.SetMaxValue(Most);
  Edit.SetIncrement(Step);
  if (IsReal) Edit.ShowAllDigits();
  EnterLine(Edit);
  BindValue(
      Edit, Path, [&Edit, IsReal] { return IsReal ? TZySettingValue(Edit.Value()) : std::int64_t{Edit.AsInteger()}; },
      [&Edit, IsReal, Single = FindRowOf(*FClass, Path)->IsSingle](const TZySettingValue& Value) {
        const double Number = IsReal ? std::get<double>(Value) : static_cast<double>(std::get<std::int64_t>(Value));
        const bool IsSame =
            Single ? static_cast<float>(Edit.Value()) == static_cast<float>(Number) : Edit.Value() == Number;
        if (!IsSame) Edit.SetValue(Rounded(Number, Single));
      });
  Edit.SetOnValueChanged([this, &Edit](TObject*) { Edited(Edit); });
  return Edit;
}

/// Applied when the keyboard leaves, at the return key and by a double click.
TZyDoubleEdit& TZySettingsFrame::AddEdit(const char* PartName, const char* Path) {
  auto& Edit = AddBound<TZyDoubleEdit>(PartName, Path);
  EnterLine(Edit);
  BindValue(
      Edit, Path, [&Edit] { return TZySettingValue(Edit.Value()); },
      [&Edit, Single = FindRowOf(*FClass, Path)->IsSingle](const TZySettingValue& Value) {
        if (Edit.Value() != std::get<double>(Value)) Edit.SetValue(Rounded(std::get<double>(Value), Single));
      });
  Edit.SetOnExit([this, &Edit](TObject*) { Edited(Edit); });
  Edit.SetOnDblClick([this, &Edit](TObject*) { Edited(Edit); });
  return Edit;
}

TEdit& TZySettingsFrame::AddText(const char* PartName, const char* Path, TZyText HintText) {
  auto& Edit = AddBound<TEdit>(PartName, Path);
  Edit.SetHint(LoadResString(HintText));
  EnterLine(Edit);
  BindValue(
      Edit, Path, [&Edit] { return TZySettingValue(Edit.Text()); },
      [&Edit](const TZySettingValue& Value) {
        if (Edit.Text() != std::get<std::string>(Value)) Edit.SetText(std::get<std::string>(Value));
      });
  const auto Apply = [this, &Edit](TObject*) { Edited(Edit); };
  Edit.SetOnExit(Apply);
  Edit.SetOnDblClick(Apply);
  Edit.SetOnKeyDown([&Edit](TObject*, TKey& Key, TShiftState) {
    if (Key != vkReturn) return;
    Key = 0;
    Edit.DblClick();
  });
  return Edit;
}

TZyColorPickCombo& TZySettingsFrame::AddColor(const char* PartName, const char* Path) {
  auto& Pick = AddBound<TZyColorPickCombo>(PartName, Path);
  Pick.SetDialogTitle(LoadResString(_sTuneColors));
  Pick.SetOtherBtnCaption(LoadResString(_sPickerOther));
  EnterLine(Pick);
  BindValue(
      Pick, Path, [&Pick] { return TZySettingValue(std::int64_t{Pick.ActiveColor()}); },
      [&Pick](const TZySettingValue& Value) {
        Pick.SetActiveColor(static_cast<TZyColor>(std::get<std::int64_t>(Value)));
      });
  Pick.SetOnChanged([this, &Pick](TObject*) { Edited(Pick); });
  return Pick;
}

TComboBox& TZySettingsFrame::AddCombo(const char* PartName, const char* Path, TZyText Items) {
  auto& Combo = AddBound<TComboBox>(PartName, Path);
  Combo.SetStyle(csDropDownList);
  Combo.Items().SetText(LoadResString(Items));
  Combo.SetDropDownCount(12);
  EnterLine(Combo);
  BindValue(
      Combo, Path, [&Combo] { return TZySettingValue(std::int64_t{Combo.ItemIndex()}); },
      [&Combo](const TZySettingValue& Value) { Combo.SetItemIndex(static_cast<int>(std::get<std::int64_t>(Value))); });
  Combo.SetOnSelect([this, &Combo](TObject*) { Edited(Combo); });
  return Combo;
}

/// Drawn as the line itself.
TZyDashStylesCombo& TZySettingsFrame::AddDashes(const char* PartName, const char* Path) {
  auto& Combo = AddBound<TZyDashStylesCombo>(PartName, Path);
  EnterLine(Combo);
  TBinding& Binding = Bind(Combo, Path);
  Binding.Show = [&Combo](const TZyPropertyPlace& Place) {
    Combo.SetUseLineSettings(dynamic_cast<const TZySimpleLineSettings*>(Place.Object));
    Combo.SetDashStyle(static_cast<TDashStyle>(std::get<std::int64_t>(Place.Get())));
    Combo.Invalidate();  // the line may have another colour or width
  };
  Binding.IsSame = [&Combo](const TZyPropertyPlace& Place) { return Place.Is(std::int64_t{Combo.DashStyle()}); };
  Binding.Write = [&Combo](const TZyPropertyPlace& Place) { Place.Set(std::int64_t{Combo.DashStyle()}); };
  Combo.SetOnValueChanged([this, &Combo](TObject*) { Edited(Combo); });
  return Combo;
}

/// Drawn in the colours of the settings that have the style.
TZyAreaStylesList& TZySettingsFrame::AddAreaStyles(const char* PartName, const char* Path) {
  constexpr int Columns = 8, Rows = 7, ItemHeight = 20, Edge = 4;
  auto& List = AddBound<TZyAreaStylesList>(PartName, Path);
  List.SetColumns(Columns);
  List.SetItemHeight(ItemHeight);
  List.SetBounds(0, 0, Columns * 2 * ItemHeight, Rows * ItemHeight + Edge);
  EnterLine(List);
  TBinding& Binding = Bind(List, Path);
  Binding.Show = [&List](const TZyPropertyPlace& Place) {
    List.SetAreaForeColor(static_cast<TZyColor>(GetOrdProp(*Place.Object, "ForeColor")));
    List.SetAreaBackColor(static_cast<TZyColor>(GetOrdProp(*Place.Object, "BackColor")));
    List.SetAreaStyle(static_cast<TZyAreaStyle>(std::get<std::int64_t>(Place.Get())));
  };
  const auto Present = [&List] { return static_cast<std::int64_t>(List.AreaStyle()); };
  Binding.IsSame = [Present](const TZyPropertyPlace& Place) { return Place.Is(Present()); };
  Binding.Write = [Present](const TZyPropertyPlace& Place) { Place.Set(Present()); };
  List.SetOnValueChanged([this, &List](TObject*) { Edited(List); });
  return List;
}

/// Drawn in the colours of the settings that have the symbol.
TZyPointSymbolsCombo& TZySettingsFrame::AddSymbols(const char* PartName, const char* Path) {
  auto& Combo = AddBound<TZyPointSymbolsCombo>(PartName, Path);
  Combo.SetDropPickList(true);
  EnterLine(Combo);
  TBinding& Binding = Bind(Combo, Path);
  Binding.Show = [&Combo](const TZyPropertyPlace& Place) {
    Combo.SetSymbolBorderColor(static_cast<TZyColor>(GetOrdProp(*Place.Object, "BorderColor")));
    Combo.SetSymbolFillColor(static_cast<TZyColor>(GetOrdProp(*Place.Object, "FillColor")));
    Combo.SetSymbolBorderLineWidth(static_cast<float>(GetFloatProp(*Place.Object, "BorderLineWidth")));
    Combo.SetPointSymbol(static_cast<TZyPointSymbol>(std::get<std::int64_t>(Place.Get())));
  };
  const auto Present = [&Combo] { return static_cast<std::int64_t>(Combo.PointSymbol()); };
  Binding.IsSame = [Present](const TZyPropertyPlace& Place) { return Place.Is(Present()); };
  Binding.Write = [Present](const TZyPropertyPlace& Place) { Place.Set(Present()); };
  Combo.SetOnValueChanged([this, &Combo](TObject*) { Edited(Combo); });
  return Combo;
}

TZyGradientFrame& TZySettingsFrame::AddGradientFrame(const char* PartName, const char* Path) {
  auto& Frame = AddControl<TZyGradientFrame>(PartName, nullptr);
  Frame.SetTabStop(false);
  FIsLineOpen = false;
  EnterLine(Frame);
  FLines.back().IsWide = true;
  FIsLineOpen = false;
  TBinding& Binding = Bind(Frame, Path);
  Binding.Show = [this, &Frame](const TZyPropertyPlace& Place) {
    auto* const Settings = dynamic_cast<TZyGradientSettings*>(Place.GetObject());
    Frame.SetGradient(Settings);
    Frame.SetUndoStack(FUndoStack);
    Frame.SetVisible(Settings != nullptr && Settings->Visible());
  };
  Frame.SetOnChanged([this](TObject*) { UserActs([] {}); });
  return Frame;
}

TZyGradientFrame& TZySettingsFrame::AddGradient(const char* CheckName, const char* FrameName, const char* Path,
                                                TZyText Text) {
  AddCheck(CheckName, (std::string(Path) + ".Visible").c_str(), Text);
  return AddGradientFrame(FrameName, Path);
}

TZyObjectCombo& TZySettingsFrame::AddReference(const char* PartName, const char* Path) {
  auto& Combo = AddBound<TZyObjectCombo>(PartName, Path);
  Combo.SetDropDownCount(12);
  EnterLine(Combo);
  TBinding& Binding = Bind(Combo, Path);
  Binding.Show = [&Combo](const TZyPropertyPlace& Place) {
    const auto* const Object = static_cast<const TComponent*>(Place.GetObject());
    Combo.SetItemIndex(Object == nullptr ? 0 : Combo.IndexOfObject(Object));
  };
  Binding.IsSame = [&Combo](const TZyPropertyPlace& Place) { return Place.GetObject() == Combo.SelectedObject(); };
  Binding.Write = [&Combo](const TZyPropertyPlace& Place) {
    Place.Info->SetObject(*Place.Object, Combo.SelectedObject());
  };
  Combo.SetOnSelect([this, &Combo](TObject*) { Edited(Combo); });
  return Combo;
}

TZySeriesListBox& TZySettingsFrame::AddOrderList(const char* PartName, TZyText HintText) {
  constexpr int ListHeight = 140;
  using enum TZyDragListBox::TMove;
  auto& List = AddControl<TZySeriesListBox>(PartName, nullptr);
  List.SetHint(LoadResString(HintText));
  List.SetBounds(0, 0, List.Width(), ListHeight);
  AddLine();
  EnterLine(List);
  FLines.back().IsWide = true;
  AddLine();
  const std::tuple<const char*, TZyText, TZyDragListBox::TMove> Buttons[] = {
      {"TopButton", _sMoveSeriesTop, Top},
      {"UpButton", _sMoveSeriesUp, Up},
      {"DownButton", _sMoveSeriesDown, Down},
      {"BottomButton", _sMoveSeriesBottom, Bottom}};
  for (const auto& [ButtonName, ButtonHint, Move] : Buttons)
    EnterLine(*AddMoveButton(*this, *FGroup, ButtonName, ButtonHint, Move,
                             [&List, Move = Move] { List.MoveSelected(Move); }));
  return List;
}

TPanel& TZySettingsFrame::AddPicture(const char* PartName, int PixelHeight, TZyText HintText,
                                     std::function<void(Graphics&, TPanel&)> Draw) {
  auto& Panel = *AddPart<TPanel>(*this, *FGroup, PartName, HintText);
  Panel.SetBounds(0, 0, Panel.Width(), PixelHeight);
  Panel.SetOnPaint([&Panel, Draw = std::move(Draw)](TObject*, Graphics& Canvas) { Draw(Canvas, Panel); });
  FIsLineOpen = false;
  EnterLine(Panel);
  FLines.back().IsWide = true;
  FLines.back().IsPicture = true;
  FIsLineOpen = false;
  return Panel;
}

TZyObjectCombo& TZySettingsFrame::AddData(const char* PartName, const char* Path, bool HasIndex) {
  auto& Combo = AddReference(PartName, Path);
  TBinding& Binding = BindingOf(Combo);
  const auto IsIndex = [HasIndex](const TPersistent* Object) {
    return HasIndex && dynamic_cast<const TZyIndexer*>(Object) != nullptr;
  };
  Binding.Show = [&Combo, IsIndex](const TZyPropertyPlace& Place) {
    const auto* const Vector = static_cast<const TComponent*>(Place.GetObject());
    Combo.SetItemIndex(Vector == nullptr ? 0 : IsIndex(Vector) ? 1 : Combo.IndexOfObject(Vector));
  };
  Binding.IsSame = [&Combo, IsIndex](const TZyPropertyPlace& Place) {
    const TPersistent* const Vector = Place.GetObject();
    if (Combo.SelectedObject() != nullptr || Vector == nullptr) return Vector == Combo.SelectedObject();
    return Combo.ItemIndex() == 1 && IsIndex(Vector);
  };
  return Combo;
}

void TZySettingsFrame::AddWide(TWinControl& Control) {
  Control.SetParent(FGroup);
  FIsLineOpen = false;
  EnterLine(Control);
  FLines.back().IsWide = true;
  FIsLineOpen = false;
}

TPanel& TZySettingsFrame::AddBar(const char* PartName) {
  auto* const Panel = AddPart<TPanel>(*this, *FGroup, PartName);
  if (!FIsLineOpen) AddLine();
  FLines.back().Controls.push_back(Panel);
  return *Panel;
}

TScrollBox& TZySettingsFrame::AddScroll(const char* PartName, int PixelHeight) {
  auto& Box = AddControl<TScrollBox>(PartName, nullptr);
  Box.SetBounds(0, 0, Box.Width(), PixelHeight);
  EnterLine(Box);
  return Box;
}

TWinControl& TZySettingsFrame::AddTool(const char* PartName, TZyText HintText, TZyGlyph Glyph,
                                       std::function<void()> Click) {
  auto* const Button =
      AddToolButton(*this, *FGroup, PartName, HintText, Glyph, [this, Click = std::move(Click)] { UserActs(Click); });
  Button->SetTabStop(true);
  EnterLine(*Button);
  return *Button;
}

TButton& TZySettingsFrame::AddButton(const char* PartName, TZyText Text, TZyText HintText,
                                     std::function<void()> Click) {
  auto& Button = AddControl<TButton>(PartName, nullptr);
  Button.SetCaption(LoadResString(Text));
  Button.SetHint(LoadResString(HintText));
  EnterLine(Button);
  Button.SetOnClick([this, Click = std::move(Click)](TObject*) { UserActs(Click); });
  return Button;
}

}  // namespace zy
