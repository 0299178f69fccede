#include "graph/ZyCustomGraph.h"

#include <algorithm>

#include "persistence/ZyIO.h"
#include "platform/drawing/Graphics.h"
#include "platform/framework/TPropInfo.h"
#include "undo/ZyChange.h"
#include "undo/ZyUndoGroup.h"

namespace zy {

ZY_PUBLISHED(
    TZyCustomGraph, TCustomPanel,
    Published<&TZyCustomGraph::Caption, &TZyCustomGraph::SetCaption>("Caption", _sGraphCaption),
    Published<&TZyCustomGraph::CaptionAlignment, &TZyCustomGraph::SetCaptionAlignment>("CaptionAlignment",
                                                                                       TAlignment::taCenter,
                                                                                       _sGraphCaptionAlignment),
    Published<&TZyCustomGraph::CaptionColor, &TZyCustomGraph::SetCaptionColor>("CaptionColor", _sGraphCaptionColor)
        .NotStored(),
    Published<&TZyCustomGraph::CaptionVisible, &TZyCustomGraph::SetCaptionVisible>("CaptionVisible", false,
                                                                                   _sGraphCaptionVisible),
    Published<&TZyCustomGraph::CaptionDistanceBefore, &TZyCustomGraph::SetCaptionDistanceBefore>(
        "CaptionDistanceBefore", 0.0f, _sGraphCaptionDistanceBefore),
    Published<&TZyCustomGraph::CaptionDistanceAfter, &TZyCustomGraph::SetCaptionDistanceAfter>(
        "CaptionDistanceAfter", 0.0f, _sGraphCaptionDistanceAfter),
    Published<&TZyCustomGraph::Font>("Font").StoredIf<&TZyCustomGraph::HasOwnFont>(),
    Published<&TZyCustomGraph::ParentFont, &TZyCustomGraph::SetParentFont>("ParentFont", true),
    Published<&TZyCustomGraph::BackColor, &TZyCustomGraph::SetBackColor>("BackColor", Colors::Transparent,
                                                                         _sGraphBackColor),
    Published<&TZyCustomGraph::BackgroundGradient>("BackgroundGradient"),
    Published<&TZyCustomGraph::SmoothingMode, &TZyCustomGraph::SetSmoothingMode>("SmoothingMode",
                                                                                 TZySmoothingMode::HighQuality))

TZyCustomGraph::TZyCustomGraph(TComponent* Owner)
    : TCustomPanel(Owner),
      FTitleRec([this] {
        TitleFontChanged();
        Invalidate();
      }),
      FBackgroundGradient([this] { Invalidate(); }) {
  FTitleRec.CaptionFont().OnNeedsResize = [this] {
    TitleFontChanged();
    Modified();
  };
  FTitleRec.OnVariablesChanged = [this] {
    Modified();
    Invalidate();
  };
  FTitleRec.Alignment = TZyContentAlignment::TopCenter;
  TCustomPanel::SetBounds(0, 0, 600, 400);
  RegisterWhenAsked();
}

TZyCustomGraph::~TZyCustomGraph() {
  Destroying();
  DeRegisterVariables();
}

std::string TZyCustomGraph::VariablesRef() const { return GetComponentRef(this); }

void TZyCustomGraph::RegisterVariables() {
  AddStringToList("Name", LoadResString(_sGraphName), this, GlobalStringList(), [this] { return Name(); });
  AddStringToList("Caption", LoadResString(_sGraphCaption), this, GlobalStringList(), [this] { return Caption(); });
}

void TZyCustomGraph::SetCaption(const TZyRichCaption& Value) {
  ChangeBy(this, Caption(), TrimRight(Value), "Caption", [this](const TZyRichCaption& Text) {
    FTitleRec.SetCaption(Text);
    FCaptionOfName.WasSet();
    ParseCaption();
    UpdateVariablesObjects(FObjectsToUpdate);
  });
}

/// A chart without a parent still paints into pictures, and one that is loaded may name what is not there yet: both
/// parse at their next layout.
void TZyCustomGraph::ParseCaption() {
  if (Parent() == nullptr || IsLoading()) return Modified();
  FTitleRec.ParseForSize();
  Modified();
}

void TZyCustomGraph::SetCaptionAlignment(TAlignment Value) {
  if (!Change(this, FCaptionAlignment, Value, "CaptionAlignment", &TZyCustomGraph::Modified)) return;
  constexpr TZyContentAlignment Places[] = {TZyContentAlignment::TopLeft, TZyContentAlignment::TopRight,
                                            TZyContentAlignment::TopCenter};
  FTitleRec.Alignment = Places[static_cast<int>(Value)];
}

void TZyCustomGraph::SetCaptionColor(TZyColor Value) {
  ChangeBy(this, CaptionColor(), Value, "CaptionColor", [this](TZyColor Color) {
    FTitleRec.CaptionFont().SetFillColor(Color);
    Invalidate();
  });
}

void TZyCustomGraph::SetCaptionFont(const TZyFont& Value) {
  CaptionFont().PushToUndoStack(FUndo, LoadResString(_sGraphFont));
  CaptionFont().Assign(&Value);
}

void TZyCustomGraph::SetFont(const TZyFont& Value) {
  const TZyUndoGroup Group(FUndo, _sGraphFont);
  if (FUndo != nullptr) FUndo->PushProperty(this, "ParentFont");  // undone last: the parent's font comes back with it
  Font().PushToUndoStack(FUndo, LoadResString(_sGraphFont));
  Font().Assign(&Value);
}

void TZyCustomGraph::SetCaptionVisible(bool Value) {
  Change(this, FCaptionVisible, Value, "CaptionVisible", &TZyCustomGraph::Modified);
}

void TZyCustomGraph::SetCaptionDistanceBefore(float Value) {
  Change(this, FCaptionDistanceBefore, Value, "CaptionDistanceBefore", &TZyCustomGraph::Modified);
}

void TZyCustomGraph::SetCaptionDistanceAfter(float Value) {
  Change(this, FCaptionDistanceAfter, Value, "CaptionDistanceAfter", &TZyCustomGraph::Modified);
}

void TZyCustomGraph::SetBackColor(TZyColor Value) {
  Change(this, FBackColor, Value, "BackColor", &TZyCustomGraph::Invalidate);
}

void TZyCustomGraph::SetSmoothingMode(TZySmoothingMode Value) {
  if (FSmoothingMode == Value) return;
  FSmoothingMode = Value;
  Invalidate();
}

void TZyCustomGraph::SetUndoStack(TZyUndoStack* Value) {
  FUndo.Set(Value);
  for (IZyGraphLegend* Legend : FRelatedLegends) Legend->SetUndoStack(Value);
}

void TZyCustomGraph::SetName(const std::string& Value) {
  const bool IsFirst = Name().empty();
  TCustomPanel::SetName(Value);
  UpdateVariablesObjects(FObjectsToUpdate);
  FCaptionOfName.Follow(*this, Value);
  if (IsDesigning() && IsFirst && !IsLoading() && FUndo == nullptr && Owner() != nullptr) TakeUndoStack();
}

void TZyCustomGraph::TakeUndoStack() {
  for (TComponent* Component : Owner()->Components())
    if (auto* const Stack = dynamic_cast<TZyUndoStack*>(Component)) return SetUndoStack(Stack);
  auto* const Stack = new TZyUndoStack(Owner());
  Stack->SetName(UniqueName(Owner(), "ZyUndoStack"));
  SetUndoStack(Stack);
}

bool TZyCustomGraph::Contains(const TComponent* Component) const {
  return std::find(Components().begin(), Components().end(), Component) != Components().end();
}

void TZyCustomGraph::AddRelatedLegend(IZyGraphLegend* Legend) { FRelatedLegends.Add(Legend, &Legend->Control()); }

void TZyCustomGraph::EndUpdate() {
  if (FUpdateCount > 0) --FUpdateCount;
  if (!Updating() && FNeedsRecalculate) Invalidate();
}

void TZyCustomGraph::SetBorderStyle(TBorderStyle Value) {
  if (Value == BorderStyle()) return;
  TCustomPanel::SetBorderStyle(Value);
  Modified();
}

void TZyCustomGraph::SetBounds(int ALeft, int ATop, int AWidth, int AHeight) {
  if (FHasPictureSize) return;
  if (AWidth != Width() || AHeight != Height()) BoundsChanged();
  TCustomPanel::SetBounds(ALeft, ATop, AWidth, AHeight);
}

void TZyCustomGraph::ApplyBounds() {
  if (!FHasPictureSize) TCustomPanel::ApplyBounds();
}

void TZyCustomGraph::ParentFontChanged() {
  TCustomPanel::ParentFontChanged();
  FTitleFont.Take();
}

bool TZyCustomGraph::WMEraseBkgnd(Graphics& Gr) {
  constexpr unsigned Opaque = 255;
  if (GetAlpha(FBackColor) < Opaque && !FDoingImage) DrawParentBackground(Gr);
  return true;
}

zy::SmoothingMode TZyCustomGraph::SmoothingOfSurfaces() const {
  switch (FSmoothingMode) {
    case TZySmoothingMode::None:
      return SmoothingModeNone;
    case TZySmoothingMode::HighSpeed:
      return SmoothingModeHighSpeed;
    case TZySmoothingMode::AntiAlias:
      return SmoothingModeAntiAlias;
    case TZySmoothingMode::HighQuality:
      return SmoothingModeHighQuality;
  }
  return SmoothingModeNone;
}

void TZyCustomGraph::SetHighQuality(Graphics& Gr, bool On) const {
  Gr.SetSmoothingMode(On ? SmoothingOfSurfaces() : SmoothingModeNone);
}

}  // namespace zy
