#pragma once

#include <string>
#include <vector>

#include "axes/ZyAxisTransform.h"

namespace zy {

/// A tick and what starts at it.
struct TZyTick {
  float Position = 0;     ///< pixel along the axis, in coordinates of its parent
  double Value = 0;       ///< of the axis
  bool Major = false;     ///< drawn as a major tick
  bool Labelled = false;  ///< has a label
  bool Grid = false;      ///< a line of the major grid starts here
};

/// The text of a label, before a handler changed it, its value, and the pixel along the axis where it is centred.
struct TZyTickLabel {
  std::string Text;
  double Value = 0;
  float Position = 0;
};

/// The ticks of an axis in the order of their values, and the texts of their labels.
class TZyAxisTicks {
 public:
  const std::vector<TZyTick>& Ticks() const { return FTicks; }
  const std::vector<TZyTickLabel>& Labels() const { return FLabels; }
  /// Whether the labels are mantissas, beside which a power of ten stands, and its exponent.
  bool HasExponent() const { return FHasExponent; }
  int Exponent() const { return FExponent; }
  bool empty() const { return FTicks.empty(); }

  void Clear();
  /// Ticks that would cover each other count as one, the one that says most. Tells whether this one stands.
  bool Add(const TZyTick& Tick);
  void AddLabel(std::string Text, double Value, float Position);
  void SetExponent(int Value);
  /// Takes out the first tick that lies nearer than Distance to a pixel.
  void EraseNear(float Position, float Distance);

 private:
  std::vector<TZyTick> FTicks;
  std::vector<TZyTickLabel> FLabels;
  bool FHasExponent = false;
  int FExponent = 0;
};

/// Where the kinds of scale put their ticks: between two values, with and without labels, with grid lines by a mode.
class TZyTickWriter {
 public:
  /// Low and High are the ends in the order of their values.
  TZyTickWriter(TZyAxisTicks& Ticks, const TZyAxisTransform& Transform, double Low, double High, double Length,
                bool ShowsLabels, TZyMajorGridMode GridMode)
      : FTicks(Ticks),
        FTransform(Transform),
        FLow(Low),
        FHigh(High),
        FLength(Length),
        FShowsLabels(ShowsLabels),
        FGridMode(GridMode) {}

  double Low() const { return FLow; }
  double High() const { return FHigh; }
  /// Pixels between the ends.
  double Length() const { return FLength; }
  const TZyAxisTransform& Transform() const { return FTransform; }
  bool ShowsLabels() const { return FShowsLabels; }
  bool empty() const { return FTicks.empty(); }

  /// Puts a tick, and with WantsLabel a label, which gets what Text returns.
  template <class TText>
  void Put(double Value, bool Major, bool WantsLabel, const TText& Text) {
    const bool Labelled = WantsLabel && FShowsLabels;
    PutOnGrid(Value, Major, Labelled, FGridMode == TZyMajorGridMode::AtLabel ? Labelled : Major, 0, Text);
  }
  /// The same with a grid line or without one whatever the mode; the label stands so many pixels behind the tick.
  template <class TText>
  void PutOnGrid(double Value, bool Major, bool Labelled, bool Grid, float Shift, const TText& Text) {
    const float Position = FTransform.PixelOf(Value);
    if (FTicks.Add({Position, Value, Major, Labelled, Grid}) && Labelled)
      FTicks.AddLabel(Text(), Value, Position + Shift);
  }
  /// A power of ten stands apart from the labels.
  void SetExponent(int Value) { FTicks.SetExponent(Value); }

 private:
  TZyAxisTicks& FTicks;
  const TZyAxisTransform FTransform;
  double FLow, FHigh, FLength;
  bool FShowsLabels;
  TZyMajorGridMode FGridMode;
};

}  // namespace zy
