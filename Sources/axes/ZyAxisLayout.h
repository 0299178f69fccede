#pragma once

#include <vector>

#include "axes/ZyAxis.h"

namespace zy {

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

 private:
  /// Room in whole pixels beyond the two ends of an axis: at the left or the bottom, at the right or the top.
  struct TOverhang {
    float Low = 0;
    float High = 0;
  };

  void RoundEndsAndTakeTicks();
  void TakeMarginsOfGraph();
  void SizeAxes();
  void SizeHorizontalAxis(TZyAxis& Axis, int Need);
  void SizeVerticalAxis(TZyAxis& Axis, int Need);
  void FitOverhangs();
  void TakeFinalTicks();
  void PlaceDataArea();

  static float SmallestLength(float Length);
  static TOverhang OverhangOf(const TZyAxis& Axis);
  static float NeedOf(const TZyAxis& Axis);

  TWinControl& FParent;
  TZyGraph2D* FGraph;
  std::vector<TZyAxis*> FAxes;  // in control order
  int FClientWidth;
  int FClientHeight;
  float FLeft = 0, FRight = 0, FTop = 0, FBottom = 0;  // margins between client edges and data area
  TZyAxis* FLeftAxis = nullptr;                        // the last visible axis at each side
  TZyAxis* FRightAxis = nullptr;
  TZyAxis* FTopAxis = nullptr;
  TZyAxis* FBottomAxis = nullptr;
};

}  // namespace zy
