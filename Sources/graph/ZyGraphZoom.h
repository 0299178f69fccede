#pragma once

#include <cstdint>
#include <vector>

#include "platform/controls/ControlTypes.h"
#include "platform/controls/TScrollBar.h"
#include "platform/drawing/Geometry.h"

namespace zy {

class TZyAxis;
class TZyGraph2D;

/// Moves the ranges of all axes of a graph together, and keeps the zoom stages of the graphs that are coupled to it in
/// step: frames, steps from stage to stage, scaling around a place, pans, scroll bars.
///
/// Every operation that starts from what is to be seen first takes new data and the layout that is due.
class TZyGraphZoom {
 public:
  explicit TZyGraphZoom(TZyGraph2D& Graph) : FGraph(Graph) {}

  // --- Stages ---

  bool CanZoomBack() const;
  bool CanRedoZoom() const;
  /// That which is shown, and how many there are.
  int Stage() const;
  int BufferSize() const;
  void ZoomBack();
  void RedoZoom();
  void ZoomToStage(int Stage);
  /// To the ranges of the data, without stages.
  void Reset();
  /// Gives coupled graphs a stage of their present ends.
  void FixCoupled();
  /// Gives a graph that has just been coupled to this one as many stages as this one has, all of its whole range, and
  /// the same one as the present.
  void Join(TZyGraph2D& Newcomer) const;

  // --- Moves ---

  /// To a frame between two corners in client pixels, cut to the data area. False when it lies outside.
  bool ZoomTo(TPoint From, TPoint To);
  /// In one step. Whether any axis moved; if none did, there is no new stage.
  bool ZoomAround(TPoint Place, double Factor);
  void BeginScale(TPoint Place);
  /// Scales the ranges of the beginning. Whether any axis moved.
  bool ScaleBy(double Factor);
  void EndScale();
  void BeginPan();
  /// Moves the ranges of the beginning by pixels; an axis that would leave the whole range stays.
  void PanBy(double Dx, double Dy);
  void EndPan(bool Keeps);
  /// As a scroll bar asks.
  void Scroll(bool Horizontal, TScrollCode Code, int Pos);
  /// Shows what a move of the axes changed, also in coupled graphs.
  void ShowMove();

 private:
  struct TRange;
  /// An axis that a gesture moves, and its ends when that began, on its scale.
  struct TMoved {
    std::uint64_t Axis;  // its live handle
    double Start, Stop;
    double Fixed;  // the place that stays; not a number for an axis that does
  };

  template <class TDo>
  void OnCoupledAxes(const TDo& Do) const;
  template <class TDo>
  void WalkStages(const TDo& Do);
  template <class TDo>
  void ForEachMoved(const TDo& Do) const;
  void NoteEnds();
  bool HasMoved() const;
  void BeginStages();
  void ForgetUnusedStages();
  void AddStage();
  void TakeFrameEdges(const RectF& Frame, std::vector<TRange>& Ranges) const;
  void TakeFramePoints(const RectF& Frame, std::vector<TRange>& Ranges) const;
  double ScrollDistance(const TZyAxis& Primary, bool Horizontal, TScrollCode Code, int Pos) const;

  TZyGraph2D& FGraph;
  std::vector<TMoved> FMoved;
};

}  // namespace zy
