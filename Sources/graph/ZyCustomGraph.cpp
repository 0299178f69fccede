#include "graph/ZyCustomGraph.h"

#include "platform/drawing/Graphics.h"
#include "platform/framework/TPropInfo.h"
#include "undo/ZyChange.h"

namespace zy {

ZY_PUBLISHED(
    TZyCustomGraph, TCustomPanel, Published<&TZyCustomGraph::Caption, &TZyCustomGraph::SetCaption>("Caption"),
    Published<&TZyCustomGraph::CaptionVisible, &TZyCustomGraph::SetCaptionVisible>("CaptionVisible", false),
    Published<&TZyCustomGraph::CaptionDistanceBefore, &TZyCustomGraph::SetCaptionDistanceBefore>(
        "CaptionDistanceBefore", 0.0f),
    Published<&TZyCustomGraph::CaptionDistanceAfter, &TZyCustomGraph::SetCaptionDistanceAfter>("CaptionDistanceAfter",
                                                                                               0.0f),
    Published<&TZyCustomGraph::Font>("Font"),
    Published<&TZyCustomGraph::BackColor, &TZyCustomGraph::SetBackColor>("BackColor", Colors::Transparent),
    Published<&TZyCustomGraph::SmoothingMode, &TZyCustomGraph::SetSmoothingMode>("SmoothingMode",
                                                                                 TZySmoothingMode::HighQuality))

TZyCustomGraph::TZyCustomGraph(TComponent* Owner) : TCustomPanel(Owner), FTitleRec([this] { Invalidate(); }) {
  FTitleRec.CaptionFont().OnNeedsResize = [this] { Modified(); };
  FTitleRec.Alignment = TZyContentAlignment::TopCenter;
  TCustomPanel::SetBounds(0, 0, 600, 400);
}

TZyCustomGraph::~TZyCustomGraph() { Destroying(); }

void TZyCustomGraph::SetCaption(const TZyRichCaption& Value) {
  const TZyRichCaption Trimmed = Value.substr(0, Value.find_last_not_of(' ') + 1);
  if (Trimmed == FTitleRec.Caption()) return;
  if (FUndoStack != nullptr) FUndoStack->PushProperty(this, LoadResString(_sGraphCaption), "Caption");
  FTitleRec.SetCaption(Trimmed);
  Modified();
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

void TZyCustomGraph::SetUndoStack(TZyUndoStack* Value) { FUndoStack = Value; }

void TZyCustomGraph::Notification(TComponent* AComponent, TOperation Operation) {
  TCustomPanel::Notification(AComponent, Operation);
  if (Operation == TOperation::Remove && AComponent == FUndoStack && !IsDestroying()) SetUndoStack(nullptr);
}

void TZyCustomGraph::EndUpdate() {
  if (FUpdateCount > 0) --FUpdateCount;
  if (!Updating() && FNeedsRecalculate) Invalidate();
}

void TZyCustomGraph::SetBounds(int ALeft, int ATop, int AWidth, int AHeight) {
  const bool SizeChanges = AWidth != Width() || AHeight != Height();
  TCustomPanel::SetBounds(ALeft, ATop, AWidth, AHeight);
  if (SizeChanges) BoundsChanged();
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
