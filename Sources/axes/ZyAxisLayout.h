#pragma once

#include <cstdint>
#include <vector>

#include "axes/ZyAxis.h"

namespace zy {

class IZyAxisGraph;
class IZyGraphLegend;

/// The layout pass: fixes ends, ticks, sizes and places of all axes of a parent, and the data area of a graph.
///
/// A fixed sequence without iteration: ticks are computed on a provisional length, sizes are taken from their labels,
/// and ticks are computed once more on the final length.
class TZyAxisLayout {
 public:
  /// Of the parent of Axis, which is not null.
  explicit TZyAxisLayout(TZyAxis& Axis);
  ~TZyAxisLayout();
  TZyAxisLayout(const TZyAxisLayout&) = delete;
  TZyAxisLayout& operator=(const TZyAxisLayout&) = delete;

  void Run();
  /// Tells the axes' events and the markers of the parent; for after the pass, when its flag is clear.
  static void TellListeners(TWinControl& Parent);

 private:
  /// A side of the data area: what lies between it and the client edge, and the innermost visible axis there.
  struct TSide {
    float Margin = 0;
    TZyAxis* Axis = nullptr;
  };

  // Ends and margins, in the order of the pass.
  void ShowAxesThatCross();
  void MarkMasterGraph();
  void TakePannedTicks();
  void RoundEndsAndTakeTicks();
  void TakeMarginsOfGraph();
  void TakeScrollBars();
  void TakeTitle();
  void ReserveLegends();

  // Sizes of the axes.
  void SizeAxes();
  void SizeLeftAxis(TZyAxis& Axis, float Need);
  void SizeRightAxis(TZyAxis& Axis, float Need);
  void SizeBottomAxis(TZyAxis& Axis, float Need);
  void SizeTopAxis(TZyAxis& Axis, float Need);
  void FitOverhangs();
  static void KeepLineInside(TZyAxis& Axis);
  void FitLow(TSide& Side, float Overhang);
  void FitHigh(TSide& Side, float Overhang, float Extent);

  // Final lengths and places.
  void TakeFinalTicks();
  void KeepSmallestArea(bool Horizontal);
  void TakeFinalLength(TZyAxis& Axis);
  static void CrossAxes(const IZyAxisGraph& Graph);
  void PlaceDataArea();
  void PlaceScrollBars();
  void PlaceLegends();
  void ShareCommonArea();

  std::vector<IZyGraphLegend*> LegendsAtSides() const;
  static bool HasZeroOrigin(const IZyAxisGraph* Graph);
  bool HasZeroOrigin() const { return HasZeroOrigin(FGraph); }
  bool DropsMargin(const TZyAxis* Across) const;
  float ClientExtent(const TZyAxis& Axis) const;
  TZyOverhang OverhangOf(const TZyAxis& Axis) const;
  float ExtraSpaceOf(const TZyAxis& Axis, TZyAxisPosition Side) const;
  float DepthAt(const TZyAxis& Axis) const;
  static void TakeCommonArea(IZyAxisGraph& Graph, float Left, float Right);

  TZyAxis& FStarter;
  TWinControl& FParent;
  std::uint64_t FParentHandle;
  IZyAxisGraph* FGraph;
  std::vector<TZyAxis*> FAxes;  // in control order
  float FWidth;                 // of the client area
  float FHeight;
  TSide FLeft, FRight, FTop, FBottom;
  bool FShowScrollH = false;
  bool FShowScrollV = false;
  bool FIsDone = false;  // else a handler threw: all axes of a graph have to be laid out again
};

}  // namespace zy
