// Properties of bars, the group that the bars of a graph are, and their record.

#include "series/ZyBars.h"

#include <algorithm>

#include "graph/parts/ZySeriesGraph.h"
#include "persistence/ZyArchive.h"
#include "platform/framework/ScopedFlag.h"
#include "platform/framework/TPropInfo.h"
#include "texts/Exceptions.h"
#include "undo/ZyUndoGroup.h"

namespace zy {

ZY_PUBLISHED(TZyBars, TZySeries,
             Published<&Self::OverlayStyle, &Self::SetOverlayStyle>("OverlayStyle", TZyBarsOverlayStyle::Shift,
                                                                    _sBarsOverlayStyle),
             Published<&Self::BarsHorizontal, &Self::SetBarsHorizontal>("BarsHorizontal", false, _sBarsHorizontal),
             Published<&Self::BarStyle, &Self::SetBarStyle>("BarStyle", TZyBarStyle::Flat, _sBarsStyle),
             Published<&Self::Depth3D, &Self::SetDepth3D>("Depth3D", 50.0, _sBarsDepth3D),
             Published<&Self::ClassesDistance, &Self::SetClassesDistance>("ClassesDistance", 0.0,
                                                                          _sBarsClassesDistance),
             Published<&Self::Captions, &Self::SetCaptions>("Captions", _sBarsCaptionsList),
             Published<&Self::CaptionsField, &Self::SetCaptionsField>("CaptionsField", ""),
             Published<&Self::DataSource, &Self::SetDataSource>("DataSource"),
             Published<&Self::Font, &Self::SetFont>("Font", _sBarsFont),
             Published<&Self::LabelColor, &Self::SetLabelColor>("LabelColor", _sBarsLabelColor).NotStored(),
             Published<&Self::LabelFormat, &Self::SetLabelFormat>("LabelFormat", "", _sBarsLabelFormat),
             Published<&Self::LabelFrom, &Self::SetLabelFrom>("LabelFrom", TZyLabelStyle::Value, _sBarsLabelFrom),
             Published<&Self::LabelPosition, &Self::SetLabelPosition>("LabelPosition", TZyBarLabelPosition::Invisible,
                                                                      _sBarsLabelPosition),
             Published<&Self::LabelSize, &Self::SetLabelSize>("LabelSize", 20.0f, _sBarsLabelSize),
             Published<&Self::LabelVertical, &Self::SetLabelVertical>("LabelVertical", false, _sBarsLabelVertical),
             Published<&Self::OnGetLabel>("OnGetLabel"),
             Republished("AutoUpdate OutliersVisible XAxis YAxis XData YData Line Area XValueTransformation "
                         "YValueTransformation OnGetPen OnGetBrush"))

TZyBars::TZyBars(TComponent* Owner)
    : TZySeries(Owner),
      FFont([this] { LabelModified(); }),
      FCaptions(
          this, &TZyBars::SetDataSource, [this] { CaptionsChanging(); }, [this] { LabelModified(); },
          [this] { LabelModified(); }) {
  constexpr float FontSize = 12;
  FX.SetUse(TZyInputUse::Partial);
  FY.SetUse(TZyInputUse::Partial);
  Line().SetColor(Colors::Blue);
  Area().SetForeColor(Colors::Navy);
  Area().SetVisible(true);
  FFont.SetSize(FontSize);
  FFont.SetStyle({TFontStyle::Bold});
  FFont.SetFillColor(Colors::Red);
  FFont.OnNeedsResize = [this] { LabelModified(); };
  Initialize(StaticClassInfo().Name());
}

// --- The group ------------------------------------------------------------------------------------------------------

/// All bars of the graph in drawing order; those alone that are in none.
TZyBars::TBarsList TZyBars::AllBars() const {
  if (Graph() == nullptr) return {const_cast<TZyBars*>(this)};
  TBarsList Result;
  Graph()->ForEachSeries([&](TZySeries& Series) {
    if (auto* const Bars = dynamic_cast<TZyBars*>(&Series)) Result.push_back(Bars);
  });
  return Result;
}

/// Those that a setter of this one sets. A form is read, and a step undone, for each of them by itself.
TZyBars::TBarsList TZyBars::BarsToSet() {
  const bool IsAlone = IsLoading() || (UndoStack() != nullptr && UndoStack()->Restoring());
  return IsAlone ? TBarsList{this} : AllBars();
}

/// After runs for each one that changes. Whether this one does.
template <class T>
bool TZyBars::SetForAll(T TZyBars::*Field, T Value, const char* PropName, void (TZyBars::*After)()) {
  if (this->*Field == Value) return false;
  const TZyUndoGroup Group(UndoStack(), TZyUndoStack::LabelOf(*this, PropName));
  for (TZyBars* Bars : BarsToSet()) Change(Bars, Bars->*Field, Value, PropName, After);
  return true;
}

bool TZyBars::SharesClasses(const TZyBars& Other) const {
  const auto AxisOf = [](const TZyBars& Bars) { return Bars.FBarsHorizontal ? Bars.YAxis() : Bars.XAxis(); };
  return Other.FBarsHorizontal == FBarsHorizontal && AxisOf(Other) == AxisOf(*this);
}

/// The bars that this one stands on, the lowest first.
TZyBars::TBarsList TZyBars::Below() const {
  TBarsList Result;
  if (FOverlayStyle != TZyBarsOverlayStyle::Stack) return Result;
  for (TZyBars* Bars : AllBars()) {
    if (Bars == this) break;
    if (Bars->FOverlayStyle == TZyBarsOverlayStyle::Stack && SharesClasses(*Bars)) Result.push_back(Bars);
  }
  return Result;
}

/// Whether no later bars share the classes.
bool TZyBars::IsTopMost() const {
  const TBarsList All = AllBars();
  const auto Next = std::find(All.begin(), All.end(), this);
  return Next == All.end() ||
         std::none_of(Next + 1, All.end(), [&](const TZyBars* Bars) { return SharesClasses(*Bars); });
}

/// What pixels of each of these series depend on, in one walk; All are all bars of the graph in drawing order.
std::vector<TZyBars::TGroup> TZyBars::GroupsOf(const TBarsList& All) {
  struct TShared {
    const TZyBars* First;  // those of one overlay, direction and axis
    TGroup Group;
  };
  std::vector<TShared> Shared;
  std::vector<std::size_t> SharedOf;
  std::vector<TGroup> Result;
  for (const TZyBars* Bars : All) {
    const auto IsTheirs = [Bars](const TShared& Each) {
      return Each.First->FOverlayStyle == Bars->FOverlayStyle && Each.First->SharesClasses(*Bars);
    };
    auto At = std::find_if(Shared.begin(), Shared.end(), IsTheirs);
    if (At == Shared.end()) At = Shared.insert(At, {.First = Bars, .Group = {.Number = 0}});
    SharedOf.push_back(static_cast<std::size_t>(At - Shared.begin()));
    TGroup& Group = At->Group;
    if (Bars->FOverlayStyle == TZyBarsOverlayStyle::Stack) {
      Result.push_back({.Distance = Bars->FClassesDistance, .Depth = Bars->FDepth3D, .Under = Group.Under});
      Group.Under = Bars->LiveHandle();
      continue;
    }
    Result.push_back({.Place = Group.Number + 1});
    if (!Bars->SeriesVisible()) continue;
    ++Group.Number;
    Group.Distance = std::max(Group.Distance, Bars->FClassesDistance);
    Group.Depth = std::max(Group.Depth, Bars->FDepth3D);
  }
  for (std::size_t i = 0; i < All.size(); ++i) {
    if (All[i]->FOverlayStyle == TZyBarsOverlayStyle::Stack) continue;
    const TGroup& Group = Shared[SharedOf[i]].Group;
    Result[i].Number = Group.Number + (All[i]->SeriesVisible() ? 0 : 1);
    Result[i].Distance = std::max(Group.Distance, All[i]->FClassesDistance);
    Result[i].Depth = std::max(Group.Depth, All[i]->FDepth3D);
  }
  return Result;
}

TZyBars::TGroup TZyBars::Group() const {
  const TBarsList All = AllBars();
  return GroupsOf(All)[static_cast<std::size_t>(std::find(All.begin(), All.end(), this) - All.begin())];
}

/// What stands on these bars has other ends.
void TZyBars::TellAbove() {
  if (Graph() == nullptr || FOverlayStyle != TZyBarsOverlayStyle::Stack) return;
  const TBarsList All = AllBars();
  const auto Place = std::find(All.begin(), All.end(), this);
  for (auto Next = Place; Next != All.end(); ++Next) {
    if (*Next == this || (*Next)->FOverlayStyle != TZyBarsOverlayStyle::Stack || !SharesClasses(**Next)) continue;
    (*Next)->SetLastCount(0);
    (*Next)->PointsModified();
  }
}

void TZyBars::SetBarStyle(TZyBarStyle Value) {
  SetForAll(&TZyBars::FBarStyle, Value, "BarStyle", &TZyBars::RangesModified);
}

void TZyBars::SetDepth3D(double Value) { SetForAll(&TZyBars::FDepth3D, Value, "Depth3D", &TZyBars::RangesModified); }

void TZyBars::SetClassesDistance(double Value) {
  SetForAll(&TZyBars::FClassesDistance, Value, "ClassesDistance", &TZyBars::RangesModified);
}

void TZyBars::SetBarsHorizontal(bool Value) {
  if (!SetForAll(&TZyBars::FBarsHorizontal, Value, "BarsHorizontal", &TZyBars::DirectionModified)) return;
  LegendsModified();
  if (Value) LayOutAgain();
}

/// The vectors of a form are read as they are.
void TZyBars::DirectionModified() {
  if (!IsLoading()) SwapDataVecs();
  RangesModified();
}

void TZyBars::SetOverlayStyle(TZyBarsOverlayStyle Value) {
  if (FOverlayStyle == Value) return;
  {
    const TZySeriesUpdate Update(Graph());
    SetForAll(&TZyBars::FOverlayStyle, Value, "OverlayStyle", &TZyBars::RangesModified);
    if (Graph() != nullptr) Graph()->Modified();
  }
  if (FBarsHorizontal) LayOutAgain();
}

/// The room for labels beside lying bars follows from the bars of a first layout.
void TZyBars::LayOutAgain() {
  if (Graph() == nullptr || Graph()->LoadingRecord()) return;
  const std::uint64_t Handle = LiveHandle();
  try {
    Graph()->BringUpToDate();
  } catch (const Exception&) {  // the next paint meets it again, and tells
  }
  if (FromLiveHandle(Handle) == nullptr || Graph() == nullptr) return;  // a handler freed the bars or their graph
  Graph()->Modified();
}

// --- Labels ---------------------------------------------------------------------------------------------------------

void TZyBars::LabelModified() {
  if (FPointsCalculating || !HasLabels()) return;
  if (FLabelPosition == TZyBarLabelPosition::OnTopOfBar)
    RangesModified();
  else
    PointsModified();
}

void TZyBars::SetLabelPosition(TZyBarLabelPosition Value) {
  Change(this, FLabelPosition, Value, "LabelPosition", &TZyBars::RangesModified);
}

void TZyBars::SetLabelFrom(TZyLabelStyle Value) {
  Change(this, FLabelFrom, Value, "LabelFrom", &TZyBars::LabelModified);
}

void TZyBars::SetLabelFormat(const std::string& Value) {
  Change(this, FLabelFormat, Value, "LabelFormat", &TZyBars::LabelModified);
}

void TZyBars::SetLabelVertical(bool Value) {
  Change(this, FLabelVertical, Value, "LabelVertical", &TZyBars::LabelModified);
}

void TZyBars::SetLabelSize(float Value) { Change(this, FLabelSize, Value, "LabelSize", &TZyBars::LabelModified); }

void TZyBars::SetFont(const TZyFont& Value) {
  FFont.PushToUndoStack(UndoStack(), LoadResString(_sBarsFont));
  FFont.Assign(&Value);
}

void TZyBars::SetLabelColor(TZyColor Value) {
  ChangeBy(this, LabelColor(), Value, "LabelColor", [this](TZyColor Color) {
    const TScopedValue Calculating(FPointsCalculating, true);  // no place changes
    FFont.SetFillColor(Color);
    for (const auto& Label : FLabels)
      if (Label != nullptr) Label->CaptionFont().SetFillColor(Color);
    if (HasLabels()) Invalidate();
  });
}

void TZyBars::SetOnGetLabel(TZyGetLabelEventHandler Value) {
  mGetLabel = std::move(Value);
  LabelModified();
}

void TZyBars::CaptionsChanging() {
  if (UndoStack() != nullptr) UndoStack()->PushProperty(this, "Captions");
}

void TZyBars::SetCaptions(TStringList* Value) {
  if (Value == nullptr) return FCaptions.Set(nullptr);
  if (FCaptions.IsBound()) throw EExternal(LoadResString(_sCaptionsDB));
  FCaptions.Share(*Value);
}

void TZyBars::SetCaptionsField(const std::string& Value) { FCaptions.SetField(Value); }

void TZyBars::SetDataSource(TDataSource* Value) { FCaptions.SetDataSource(Value, IsLoading()); }

// --- Record ---------------------------------------------------------------------------------------------------------

void TZyBars::Fields(TZyArchive& Archive) {
  using T = TZyBars;
  TZySeries::Fields(Archive);
  Archive.Level("Bars", [&] {
    Archive.Properties(*this, "OverlayStyle");
    // The vectors were read as they stand in the record, and the setter exchanges them.
    Archive.Field(
        TZyFieldName("Horizontal").Ini("BarsHorizontal"), [this] { return FBarsHorizontal; },
        [this](bool Value) {
          if (Value != FBarsHorizontal) SwapDataVecs();
          SetBarsHorizontal(Value);
        });
    Archive.Properties(*this, "Depth3D ClassesDistance");
  });
  Archive.Level("Labels", [&] {
    Archive.Field<&T::LabelSize, &T::SetLabelSize>(*this, TZyFieldName("Size").Ini("LabelSize"));
    Archive.Field<&T::LabelVertical, &T::SetLabelVertical>(*this, TZyFieldName("Vertical").Ini("LabelVertical"));
    Archive.Field<&T::LabelColor, &T::SetLabelColor>(*this, TZyFieldName("Color").Ini("LabelColor"));
    Archive.Field<&T::LabelPosition, &T::SetLabelPosition>(*this, TZyFieldName("Position").Ini("LabelPosition"));
    Archive.Field<&T::LabelFrom, &T::SetLabelFrom>(*this, TZyFieldName("From").Ini("LabelFrom"));
    Archive.Field<&T::LabelFormat, &T::SetLabelFormat>(*this, TZyFieldName("Format").Ini("LabelFormat"));
    if (!Archive.IsStream()) return;
    Archive.Field<&TZyFont::Name, &TZyFont::SetName>(FFont, "Font/Name");
    Archive.Field<&TZyFont::Style, &TZyFont::SetStyle>(FFont, "Font/Style");
  });
  CaptionFields(Archive);
  if (!Archive.NextGroup()) return;
  Archive.Level("Labels", [&] { Archive.Part("Font", FFont); });
  Archive.Level("Bars", [&] {
    TZyBarStyle Style = FBarStyle;
    if (Archive.Value("BarStyle", Style)) Change(this, FBarStyle, Style, "BarStyle", &TZyBars::RangesModified);
    Archive.EndRecord();
  });
}

/// The texts go along with the data. Bars whose source cannot be found keep the texts that they have.
void TZyBars::CaptionFields(TZyArchive& Archive) {
  using T = TZyBars;
  const auto Link = [&] {
    Archive.Reference<&T::DataSource, &T::SetDataSource>(*this, TZyFieldName("DataSource").Xml("Database/DataSource"));
    Archive.Field<&T::CaptionsField, &T::SetCaptionsField>(*this,
                                                           TZyFieldName("CaptionsField").Xml("Database/CaptionsField"));
    if (Archive.IsReading()) FCaptions.SetBound(true);
  };
  const bool AreLeftOut = Graph() != nullptr && !Graph()->SavesData();
  Archive.Alternative(TZyFieldName("Database").Ini("FromDatabase"), FCaptions.IsBound(), Link,
                      [&] { FCaptions.Fields(Archive, TZyFieldName("Captions").Omit(AreLeftOut)); });
}

}  // namespace zy
