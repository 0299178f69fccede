#pragma once

#include <cstdint>
#include <vector>

#include "platform/framework/TRefList.h"

namespace zy {

class TZyAxis;
class TZyGraph2D;

/// What belongs together around one X axis: the axes of a graph, and the graphs that share its X axis. The graph that
/// is the parent of that axis is the master of those that only use it.
class TZyGraphCoupling {
 public:
  explicit TZyGraphCoupling(TZyGraph2D& Graph);

  /// Looks for all of it anew.
  void Find();
  /// The child axes in control order, and behind them a foreign X axis.
  const TRefList<TZyAxis>& Axes() const { return FAxes; }
  /// The graphs that use this graph's X axis.
  const TRefList<TZyGraph2D>& Children() const { return FChildren; }
  /// Whether the X axis is the child of another control.
  bool IsCoupled() const { return FIsCoupled; }
  /// The graph whose X axis this one uses, null for one with an axis of its own.
  TZyGraph2D* Master() const;
  /// The master that the graph has had since the last call, once for each.
  TZyGraph2D* NewMaster();
  /// All that are coupled to this graph: those that use its X axis, or its master and the others that use that one's.
  std::vector<TZyGraph2D*> Others() const;
  /// All, from the top of their common picture to its bottom, where the master stands.
  std::vector<TZyGraph2D*> Stacked() const;

 private:
  TZyGraph2D& FGraph;
  TRefList<TZyAxis> FAxes;
  TRefList<TZyGraph2D> FChildren;
  bool FIsCoupled = false;
  std::uint64_t FKnownMaster = 0;  // its live handle
};

}  // namespace zy
