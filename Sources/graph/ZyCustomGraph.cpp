#include "graph/ZyCustomGraph.h"

#include <algorithm>

#include "persistence/ZyIO.h"
#include "platform/drawing/Graphics.h"
#include "platform/framework/TPropInfo.h"
#include "undo/ZyChange.h"

namespace zy {

ZY_PUBLISHED(
    TZyCustomGraph, TCustomPanel, Published<&TZyCustomGraph::Caption, &TZyCustomGraph::SetCaption>("Caption"),
    Published<&TZyCustomGraph::CaptionAlignment, &TZyCustomGraph::SetCaptionAlignment>("CaptionAlignment",
                                                                                       TAlignment::taCenter),
    Published<&TZyCustomGraph::CaptionColor, &TZyCustomGraph::SetCaptionColor>("CaptionColor").NotStored(),
    Published<&TZyCustomGraph::CaptionVisible, &TZyCustomGraph::SetCaptionVisible>("CaptionVisible", false),
    Published<&TZyCustomGraph::CaptionDistanceBefore, &TZyCustomGraph::SetCaptionDistanceBefore>(
        "CaptionDistanceBefore", 0.0f),
    Published<&TZyCustomGraph::CaptionDistanceAfter, &TZyCustomGraph::SetCaptionDistanceAfter>("CaptionDistanceAfter",
                                                                                               0.0f),
    Published<&TZyCustomGraph::Font>("Font").StoredIf<&TZyCustomGraph::HasOwnFont>(),
    Published<&TZyCustomGraph::ParentFont, &TZyCustomGraph::SetParentFont>("ParentFont", true),
    Published<&TZyCustomGraph::BackColor, &TZyCustomGraph::SetBackColor>("BackColor", Colors::Transparent),
    Published<&TZyCustomGraph::BackgroundGradient>("BackgroundGradient"),
    Published<&TZyCustomGraph::SmoothingMode, &TZyCustomGraph::SetSmoothingMode>("SmoothingMode",
                                                                                 TZySmoothingMode::HighQuality))

TZyCustomGraph::TZyCustomGraph(TComponent* Owner)
    : TCustomPanel(Owner),
      FTitleRec([this] {
        FTitleFont.FontChanged();
        Invalidate();
      }),
      FBackgroundGradient([this] { Invalidate(); }) {
  FTitleRec.CaptionFont().OnNeedsResize = [this] {
    FTitleFont.FontChanged();
    Modified();
  };
  FTitleRec.OnVariablesChanged = [this] {
    Modified();
    Invalidate();
  };
  FTitleRec.Alignment = TZyContentAlignment::TopCenter;
  TCustomPanel::SetBounds(0, 0, 600, 400);
  TZyCustomGraph::RegisterVariables();
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
  const TZyRichCaption Trimmed = TrimRight(Value);
  if (Trimmed == FTitleRec.Caption()) return;
  if (FUndoStack != nullptr) FUndoStack->PushProperty(this, LoadResString(_sGraphCaption), "Caption");
  FTitleRec.SetCaption(Trimmed);
  FCaptionSet = true;
  ParseCaption();
  UpdateVariablesObjects(FObjectsToUpdate);
}

/// A chart without a parent still paints into pictures, and one that is loaded may name what is not there yet: both
/// parse at their next layout.
void TZyCustomGraph::ParseCaption() {
  if (Parent() == nullptr || IsLoading()) return Modified();
  FTitleRec.ParseForSize();
  Modified();
}

void TZyCustomGraph::SetCaptionAlignment(TAlignment Value) {
  if (!Change(this, FCaptionAlignment, Value, _sGraphCaptionAlignment, "CaptionAlignment", &TZyCustomGraph::Modified))
    return;
  constexpr TZyContentAlignment Places[] = {TZyContentAlignment::TopLeft, TZyContentAlignment::TopRight,
                                            TZyContentAlignment::TopCenter};
  FTitleRec.Alignment = Places[static_cast<int>(Value)];
}

void TZyCustomGraph::SetCaptionColor(TZyColor Value) {
  if (CaptionColor() == Value) return;
  if (FUndoStack != nullptr) FUndoStack->PushProperty(this, LoadResString(_sGraphCaptionColor), "CaptionColor");
  FTitleRec.CaptionFont().SetFillColor(Value);
  Invalidate();
}

void TZyCustomGraph::SetCaptionVisible(bool Value) {
  Change(this, FCaptionVisible, Value, _sGraphCaptionVisible, "CaptionVisible", &TZyCustomGraph::Modified);
}

void TZyCustomGraph::SetCaptionDistanceBefore(float Value) {
  Change(this, FCaptionDistanceBefore, Value, _sGraphCaptionDistanceBefore, "CaptionDistanceBefore",
         &TZyCustomGraph::Modified);
}

void TZyCustomGraph::SetCaptionDistanceAfter(float Value) {
  Change(this, FCaptionDistanceAfter, Value, _sGraphCaptionDistanceAfter, "CaptionDistanceAfter",
         &TZyCustomGraph::Modified);
}

void TZyCustomGraph::SetBackColor(TZyColor Value) {
  Change(this, FBackColor, Value, _sGraphBackColor, "BackColor", &TZyCustomGraph::Invalidate);
}

void TZyCustomGraph::SetSmoothingMode(TZySmoothingMode Value) {
  if (FSmoothingMode == Value) return;
  FSmoothingMode = Value;
  Invalidate();
}

void TZyCustomGraph::SetUndoStack(TZyUndoStack* Value) {
  FUndoStack = Value;
  FBackgroundGradient.SetUndoStack(Value);
  for (IZyGraphLegend* Legend : FRelatedLegends) Legend->SetUndoStack(Value);
}

void TZyCustomGraph::SetName(const std::string& Value) {
  const bool IsFirst = Name().empty();
  TCustomPanel::SetName(Value);
  UpdateVariablesObjects(FObjectsToUpdate);
  if (!IsDesigning()) return;
  if (!FCaptionSet) {
    SetCaption(Value);
    FCaptionSet = false;
  }
  if (IsFirst && !IsLoading() && FUndoStack == nullptr && Owner() != nullptr) TakeUndoStack();
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

void TZyCustomGraph::AddRelatedLegend(IZyGraphLegend* Legend) {
  if (std::find(FRelatedLegends.begin(), FRelatedLegends.end(), Legend) == FRelatedLegends.end())
    FRelatedLegends.push_back(Legend);
}

void TZyCustomGraph::Notification(TComponent* AComponent, TOperation Operation) {
  TCustomPanel::Notification(AComponent, Operation);
  if (Operation == TOperation::Remove && AComponent == FUndoStack && !IsDestroying()) SetUndoStack(nullptr);
}

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
  if (AWidth != Width() || AHeight != Height()) BoundsChanged();
  TCustomPanel::SetBounds(ALeft, ATop, AWidth, AHeight);
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

void TZyCustomGraph::SetHighQuality(Graphics& Gr, bool On) const {
  if (!On) return Gr.SetSmoothingMode(SmoothingModeNone);
  switch (FSmoothingMode) {
    case TZySmoothingMode::None:
      return Gr.SetSmoothingMode(SmoothingModeNone);
    case TZySmoothingMode::HighSpeed:
      return Gr.SetSmoothingMode(SmoothingModeHighSpeed);
    case TZySmoothingMode::AntiAlias:
      return Gr.SetSmoothingMode(SmoothingModeAntiAlias);
    case TZySmoothingMode::HighQuality:
      return Gr.SetSmoothingMode(SmoothingModeHighQuality);
  }
}

}  // namespace zy
