// How a marker is dragged, and the points of series that it holds on to.

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "annotations/ZyMovable.h"
#include "platform/controls/TWinControl.h"
#include "series/ZyFunctionSeries.h"
#include "undo/ZyUndoGroup.h"

namespace zy {

namespace {

bool IsFunction(const TZySeries* Series) { return dynamic_cast<const TZyFunctionSeries*>(Series) != nullptr; }

bool IsRestoring(const TZyUndoStack* Stack) { return Stack != nullptr && Stack->Restoring(); }

}  // namespace

// --- Drags ----------------------------------------------------------------------------------------------------------

void TZyMovable::DragBegins() {
  FBeforeDrag = {FX, FY, FSnappedIdx};
  FSeriesBeforeDrag = FSnappedSeries.Get();
  FDragStart = HotPoint();
}

/// The hot point stays in the parent; the drag itself goes on beyond, so that nothing is lost on the way back.
void TZyMovable::DragTo(TPoint Way) {
  const TPoint Place{FDragStart.X + Way.X, FDragStart.Y + Way.Y};
  if (!FSnapToSeries || !SearchSeriesSnap(Place))
    TakeHotPoint({std::clamp(Place.X, 0, std::max(Parent()->ClientWidth() - 1, 0)),
                  std::clamp(Place.Y, 0, std::max(Parent()->ClientHeight() - 1, 0))});
  PlaceChanged();
  TellMoving();
}

void TZyMovable::MoveTo(TPoint Place) {
  if (IsDragged() || Parent() == nullptr) return;
  FDragStart = {};
  DragTo(Place);
}

/// Returns whether the marker holds on to a point now.
bool TZyMovable::SearchSeriesSnap(TPoint DragPoint) {
  FSnappedIdx = -1;
  const PointF From{static_cast<float>(DragPoint.X), static_cast<float>(DragPoint.Y)};
  const bool HasX = FXAxis != nullptr && MovesAlongX(), HasY = FYAxis != nullptr && MovesAlongY();
  if (!HasX && !HasY) return false;
  TZyNearestPointResult Best;
  TZySeries* BestSeries = nullptr;
  const auto Search = [&](TZySeries& Series) {
    const TZyNearestPointResult Found = HasX && HasY ? Series.NearestPoint(From)
                                        : HasX       ? Series.NearestX(From.X)
                                                     : Series.NearestY(From.Y);
    if (!Found.Found || (Best.Found && !(Found.Distance < Best.Distance))) return;
    Best = Found;
    BestSeries = &Series;
  };
  if (FSnapToSingleSeries) {
    if (FSnappedSeries != nullptr) Search(*FSnappedSeries);
  } else {
    for (IZyAxisSeries* Item : (HasX ? FXAxis : FYAxis)->RelatedSeries()) {
      auto* const Series = dynamic_cast<TZySeries*>(Item);
      if (Series != nullptr && (FSnapToFunctions || !IsFunction(Series))) Search(*Series);
    }
    FSnappedSeries = BestSeries;
  }
  if (!Best.Found) return false;
  FSnappedIdx = Best.Index;
  if (HasX) FX = Best.X;
  if (HasY) FY = Best.Y;
  return true;
}

/// The step is logged with the old place in place. A drag that went nowhere logs nothing.
void TZyMovable::DragEnds(bool Keeps) {
  const TPlace New{FX, FY, FSnappedIdx};
  TZySeries* const NewSeries = FSnappedSeries;
  const auto Take = [this](const TPlace& Place, TZySeries* Series) {
    FX = Place.X;
    FY = Place.Y;
    FSnappedIdx = Place.Idx;
    FSnappedSeries = Series;
  };
  Take(FBeforeDrag, FSeriesBeforeDrag);
  if (!Keeps) return PlaceChanged();
  if (FUndo != nullptr && (New != FBeforeDrag || NewSeries != FSeriesBeforeDrag)) {
    const TZyUndoGroup Group(FUndo, _sMarkerMoved);
    if (MovesAlongX()) FUndo->PushProperty(this, "X");
    if (MovesAlongY()) FUndo->PushProperty(this, "Y");
    if (FSnapToSeries)
      for (const char* Name : {"SnappedSeries", "SnappedIdx"}) FUndo->PushProperty(this, Name);
  }
  Take(New, NewSeries);
  TellMoved();
}

// --- Snapping -------------------------------------------------------------------------------------------------------

void TZyMovable::SetSnappedSeries(TZySeries* Value) {
  if (IsRestoring(FUndo)) {  // SnapsToOne is a part of the step, and of a drag it is not
    FSnappedSeries = Value;
    return;
  }
  if (Value == FSnappedSeries && FSnapToSingleSeries == (Value != nullptr)) return;
  const TZyUndoGroup Group(FUndo, *this, {"SnappedSeries", "SnapsToOne"});
  FSnapToSingleSeries = Value != nullptr;
  FSnappedSeries = Value;
  if (IsFunction(Value)) SetSnapToFunctions(true);
}

/// The series is gone. What was looked for in it alone is not looked for elsewhere.
void TZyMovable::LoseSeries(TZySeries*) {
  if (FUndo != nullptr) FUndo->PushProperty(this, "SnappedSeries");
  FSnappedSeries = nullptr;
}

void TZyMovable::SetSnapToFunctions(bool Value) {
  if (Value == FSnapToFunctions) return;
  const TZyUndoGroup Group(FUndo, *this, {"SnapToFunctions"});
  FSnapToFunctions = Value;
  if (!Value && IsFunction(FSnappedSeries) && !IsRestoring(FUndo)) SetSnappedSeries(nullptr);
}

void TZyMovable::SetSnappedIdx(int Value) {
  if (std::max(Value, -1) == FSnappedIdx) return;
  const TZyUndoGroup Group(FUndo, _sMarkerMoved);
  if (FUndo != nullptr) FUndo->PushProperty(this, "SnappedIdx");
  TakeSnappedIdx(Value);
  TZySeries* const Series = FSnappedSeries;
  if (Series == nullptr || !FSnapToSeries || FSnappedIdx < 0 || FSnappedIdx >= Series->Count() || IsRestoring(FUndo))
    return;
  const std::uint64_t Alive = LiveHandle();
  if (MovesAlongX() && Series->XData() != nullptr) SetX(Series->XData()->GetValue(FSnappedIdx));
  if (FromLiveHandle(Alive) == nullptr || Series != FSnappedSeries || FSnappedIdx >= Series->Count()) return;
  if (MovesAlongY() && Series->YData() != nullptr) SetY(Series->YData()->GetValue(FSnappedIdx));
}

void TZyMovable::SnapTo(double X, double Y) {
  if (MovesAlongX() && std::isfinite(X)) FX = X;
  if (MovesAlongY() && std::isfinite(Y)) FY = Y;
  PlaceChanged();
}

}  // namespace zy
