#include <QVBoxLayout>
#include <QWidget>
#include <algorithm>

#include "dialogs/forms/ZyComponentsOf.h"
#include "dialogs/forms/ZyGraphEdit.h"
#include "dialogs/frames/ZyAxisSettingsFrame.h"
#include "dialogs/frames/ZyGraphSettingsFrame.h"
#include "dialogs/frames/ZyMoveButtons.h"
#include "dialogs/frames/ZyObjectItems.h"
#include "dialogs/frames/ZySeriesListBox.h"
#include "dialogs/frames/ZySeriesSettingsFrame.h"
#include "platform/controls/TButtonControl.h"
#include "platform/controls/TPanel.h"
#include "platform/controls/TPopupMenu.h"
#include "platform/controls/TToolBar.h"
#include "platform/framework/ScopedFlag.h"
#include "texts/ZySettingsTexts.h"

namespace zy {

namespace {

/// The combos of the series' data; the first two may have the index.
constexpr const char* DataCombos[] = {"AssXDataCombo",    "AssYDataCombo",    "AssWeightCombo",   "AssRadiusCombo",
                                      "AssArrowXCombo",   "AssArrowYCombo",   "AssOpenCombo",     "AssHighCombo",
                                      "AssLowCombo",      "AssCloseCombo",    "AssErrXPlusCombo", "AssErrXMinusCombo",
                                      "AssErrYPlusCombo", "AssErrYMinusCombo"};

}  // namespace

// --- Controls -------------------------------------------------------------------------------------------------------

void TGraphEdit::AddAxesPage() {
  AxesPage = &AddPage("AxesPage", LoadResString(_sPageAxes));
  ZeroOriginCheck = AddPart<TCheckBox>(*this, *AxesPage, "ZeroOriginCheck", _sZeroOriginHint);
  ZeroOriginCheck->SetCaption(LoadResString(_sZeroOrigin));
  ZeroOriginCheck->SetTabStop(true);
  ZeroOriginCheck->SetOnClick([this](TObject*) {
    if (FCanSet && FGraph != nullptr) FGraph->SetZeroOrigin(ZeroOriginCheck->Checked());
  });
  auto* const Label = AddPart<TStaticText>(*this, *AxesPage, "AxSelectLab");
  Label->SetCaption(LoadResString(_sSelectAxes));
  FAxes = AddPart<TZyObjectListBox>(*this, *AxesPage, "FAxes", _sSelectAxesHint);
  FAxes->SetMultiSelect(true);
  FAxes->SetOnClick([this](TObject*) { AxesListClick(); });
  Label->SetFocusControl(FAxes);
  AddPart<TStaticText>(*this, *AxesPage, "AxAlterLab")->SetCaption(LoadResString(_sAlterAxes));
  AxisSettingsFrame = new TZyAxisSettingsFrame(this);
  AddFrame(*AxesPage, *AxisSettingsFrame, "AxisSettingsFrame");
  AxisSettingsFrame->SetRelatedAxesList(FAxes);
  AxesPage->SetOnShow([this](TObject*) {
    if (FAxes->SelCount() == 0 && FAxes->ItemIndex() >= 0) FAxes->SetSelected(FAxes->ItemIndex(), true);
  });
}

void TGraphEdit::AddSeriesPage() {
  constexpr int ListHeight = 110;
  SeriesPage = &AddPage("SeriesPage", LoadResString(_sPageSeries));
  auto* const Label = AddPart<TStaticText>(*this, *SeriesPage, "SelSeriesLab");
  Label->SetCaption(LoadResString(_sSelectSeries));
  SeriesListBox = AddPart<TZySeriesListBox>(*this, *SeriesPage, "SeriesListBox", _sSelectSeriesHint);
  SeriesListBox->SetBounds(0, 0, SeriesListBox->Width(), ListHeight);
  SeriesListBox->SetOnClick([this](TObject*) { SeriesListBoxClick(); });
  SeriesListBox->OnReordered = [this] { UpdateLayers(); };
  Label->SetFocusControl(SeriesListBox);
  auto* const Buttons = AddPart<TPanel>(*this, *SeriesPage, "OrderPanel");
  using enum TZyDragListBox::TMove;
  const std::tuple<const char*, TZyText, TZyDragListBox::TMove> Moves[] = {
      {"TopButton", _sMoveSeriesTop, Top},
      {"UpButton", _sMoveSeriesUp, Up},
      {"DownButton", _sMoveSeriesDown, Down},
      {"BottomButton", _sMoveSeriesBottom, Bottom}};
  for (const auto& [ButtonName, HintText, Move] : Moves)
    AddMoveButton(*this, *Buttons, ButtonName, HintText, Move,
                  [this, Move = Move] { SeriesListBox->MoveSelected(Move); });
  AddPart<TStaticText>(*this, *SeriesPage, "SerDetailLab")->SetCaption(LoadResString(_sSeriesDetails));
  SeriesSettingsFrame = new TZySeriesSettingsFrame(this);
  AddFrame(*SeriesPage, *SeriesSettingsFrame, "SeriesSettingsFrame");
  Pages().SetOnChange([this](TObject*) { SettingsTabChange(); });
}

/// What the buttons of a form designer add is the designer's to say.
void TGraphEdit::AddDesignBars() {
  auto* const Design = AddPart<TToolBar>(*this, SecondLine(), "DesignToolBar");
  Design->SetAlign(alNone);
  const auto AddMenuButton = [&](const char* ButtonName, const char* MenuName, TZyText Text, TZyText HintText,
                                 TZyText Items) {
    auto* const Button = AddPart<TToolButton>(*this, *Design, ButtonName, HintText);
    Button->SetCaption(LoadResString(Text));
    auto* const Menu = new TPopupMenu(this);
    Menu->SetName(MenuName);
    TStringList Texts;
    Texts.SetText(LoadResString(Items));
    for (int Index = 0; Index < Texts.Count(); ++Index) Menu->Items().Add(Texts.Get(Index));
    Button->SetDropDownMenu(Menu);
  };
  AddMenuButton("AxisButton", "AxisMenu", _sAddAxis, _sAddAxisHint, _sAxisPlaces);
  AddMenuButton("SeriesButton", "SeriesMenu", _sAddSeries, _sAddSeriesHint, _sSeriesKinds);
  auto* const Add = AddPart<TToolBar>(*this, SecondLine(), "AddToolBar");
  Add->SetAlign(alNone);
  for (const auto& [ButtonName, Text, HintText] :
       {std::tuple{"AddVectorButton", _sAddVector, _sAddVectorHint}, {"AddLegendButton", _sAddLegend, _sAddLegendHint}})
    AddPart<TToolButton>(*this, *Add, ButtonName, HintText)->SetCaption(LoadResString(Text));
}

void TGraphEdit::ArrangePage(TTabSheet& Page) {
  TZySettingsForm::ArrangePage(Page);
  if (&Page == AxesPage) FAxes->Widget()->setFixedHeight(FAxes->Height());
  if (&Page == SeriesPage) SeriesListBox->Widget()->setFixedHeight(SeriesListBox->Height());
}

// --- Lists ----------------------------------------------------------------------------------------------------------

void TGraphEdit::UpdateCombos() {
  FListsAreStale = false;
  const TScopedValue Shows(FCanSet, false);
  const TZyQuietStack Quiet(UndoStack());
  FillAxes();
  const bool IsAlone = FGraph != nullptr && Graphs().size() == 1 && !FGraph->IsCoupledGraph();
  ZeroOriginCheck->SetEnabled(IsAlone && FAxes->ObjectCount() <= 2);
  if (FAsDesigner) FillAssociations();
  FillSeries();
  SeriesPage->SetTabVisible(SeriesListBox->ObjectCount() > 0);
  for (TTabSheet* Page : Pages().Pages())
    if (auto* const Frame = dynamic_cast<TZyGraphSettingsFrame*>(FrameOn(Page, "GraphFrame"))) {
      Frame->UpdateCombos();
      Frame->UpdateControls();
    }
}

/// Two columns, or three of more than four axes, of up to four rows; more are scrolled.
void TGraphEdit::FillAxes() {
  constexpr int FewAxes = 4, MostRows = 4, LeastHeight = 20, Edge = 6;
  std::vector<std::uint64_t> Chosen;
  for (int Index = 0; Index < FAxes->ObjectCount(); ++Index)
    if (FAxes->Selected(Index) && FAxes->ObjectAt(Index) != nullptr)
      Chosen.push_back(FAxes->ObjectAt(Index)->LiveHandle());
  TComponent* Current = FAxes->SelectedObject();
  FAxes->ClearObjects();
  if (FGraph == nullptr) return;
  for (TZyGraph2D* Graph : Graphs()) Graph->ForEachAxis([this](TZyAxis& Axis) { FAxes->AddObject("A", &Axis); });
  TZyAxis* const Primary = FGraph->PrimaryXAxis();
  if (Primary != nullptr && FAxes->IndexOfObject(Primary) < 0) FAxes->AddObject("A", Primary);
  const int Columns = FAxes->ObjectCount() > FewAxes ? 3 : 2;
  const int Rows = std::clamp((FAxes->ObjectCount() + Columns - 1) / Columns, 1, MostRows);
  const int Text = HasWidget() ? Widget()->fontMetrics().height() + 4 : LeastHeight;
  FAxes->SetItemHeight(std::max(LeastHeight, Text));
  FAxes->SetColumns(Columns);
  FAxes->SetBounds(FAxes->Left(), FAxes->Top(), FAxes->Width(), Rows * FAxes->ItemHeight() + Edge);
  if (FAxes->HasWidget()) FAxes->Widget()->setFixedHeight(Rows * FAxes->ItemHeight() + Edge);
  std::erase_if(Chosen, [this](std::uint64_t Each) {
    return FAxes->IndexOfObject(static_cast<TComponent*>(FromLiveHandle(Each))) < 0;
  });
  if (FAxes->IndexOfObject(Current) < 0) Current = Primary;
  for (int Index = 0; Index < FAxes->ObjectCount(); ++Index) {
    const TComponent* const Axis = FAxes->ObjectAt(Index);
    const bool WasChosen = std::ranges::find(Chosen, Axis->LiveHandle()) != Chosen.end();
    FAxes->SetSelected(Index, WasChosen || (Axis == Current && Chosen.empty()));
  }
  FAxes->SetItemIndex(FAxes->IndexOfObject(Current));
  AxesListClick();
}

/// The series of the graphs, the top layer first; in a form designer also those that lie in none.
void TGraphEdit::FillSeries() {
  const TComponent* const Chosen = SeriesListBox->SelectedObject();
  SeriesListBox->ClearObjects();
  for (TZyGraph2D* Graph : Graphs()) {
    std::vector<TZySeries*> Layers;
    for (TZySeries* Series : Graph->RelatedSeries()) Layers.push_back(Series);
    std::ranges::reverse(Layers);
    for (TZySeries* Series : Layers) {
      SeriesListBox->AddObject("S", Series);
      if (!FAsDesigner) continue;
      AddAssociation(Series->XAxis());
      AddAssociation(Series->YAxis());
    }
  }
  if (FAsDesigner)
    for (TZySeries* Series : AllOf<TZySeries>()) {
      if (SeriesListBox->IndexOfObject(Series) >= 0) continue;
      SeriesListBox->AddObject("N", Series);
      AddAssociation(Series->XAxis());
      AddAssociation(Series->YAxis());
    }
  if (SeriesListBox->ObjectCount() == 0) return SeriesSettingsFrame->SetSelectedSeries(nullptr);
  SeriesListBox->TestSeriesItemHeight();
  SeriesListBox->SetItemIndex(std::max(SeriesListBox->IndexOfObject(Chosen), 0));
  SeriesListBoxClick();
}

void TGraphEdit::AddAssociation(TZyAxis* Axis) {
  if (Axis == nullptr) return;
  auto& Combo = SeriesSettingsFrame->Part<TZyObjectCombo>(Axis->GetHorizontal() ? "AssXCombo" : "AssYCombo");
  if (Combo.IndexOfObject(Axis) < 0) Combo.AddObject(Axis->GetHorizontal() ? "X" : "Y", Axis);
}

/// The axes and vectors that a series can have.
void TGraphEdit::FillAssociations() {
  for (const char* ComboName : {"AssXCombo", "AssYCombo"}) {
    auto& Combo = SeriesSettingsFrame->Part<TZyObjectCombo>(ComboName);
    Combo.ClearObjects();
  }
  for (int Index = 0; Index < FAxes->ObjectCount(); ++Index)
    AddAssociation(dynamic_cast<TZyAxis*>(FAxes->ObjectAt(Index)));
  for (std::size_t i = 0; i < std::size(DataCombos); ++i) {
    auto& Combo = SeriesSettingsFrame->Part<TZyObjectCombo>(DataCombos[i]);
    Combo.ClearObjects();
    Combo.AddObject(LoadResString(_sSettingsNone), nullptr);
    if (i < 2) Combo.AddObject(LoadResString(_sSettingsIndex), nullptr);
    AddVectorsTo(Combo, FGraph == nullptr ? nullptr : FGraph->Owner());
  }
}

}  // namespace zy
