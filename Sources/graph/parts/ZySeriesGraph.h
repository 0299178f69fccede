#pragma once

#include <functional>

#include "graph/parts/ZyAxisGraph.h"

namespace zy {

class TZySeries;

/// What a series asks of its graph, beyond what its axes do. A series finds it as the parent of its Y axis.
class IZySeriesGraph : public IZyAxisGraph {
 public:
  /// A series enters and leaves. Whether it was new.
  virtual bool AddRelatedSeries(TZySeries* Series) = 0;
  virtual void RemoveRelatedSeries(TZySeries* Series) = 0;
  virtual int SeriesCount() const = 0;
  /// Place of a series in the drawing order, from 0.
  virtual int PlaceOf(const TZySeries& Series) const = 0;
  /// Moves a series there, and numbers all layers by the order.
  virtual void SetPlaceOf(TZySeries& Series, int Place) = 0;
  /// All series in drawing order.
  virtual void ForEachSeries(const std::function<void(TZySeries& Series)>& Do) const = 0;
  /// The series has computed its pixels.
  virtual void PointsCalculated() = 0;
  /// Repaints the graph, and the legends that may show a series of it.
  virtual void SeriesInvalidated() = 0;
  /// The content of the legends is stale.
  virtual void LegendsModified() = 0;
  /// Takes new data and the layout that is due: what is to be seen at the next paint.
  virtual void BringUpToDate() = 0;
  /// While the graph writes its record: whether data go along. True else.
  virtual bool SavesData() const = 0;
  /// Whether lines are drawn on the screen without any smoothing.
  virtual bool DrawsUnsmoothed() const = 0;
};

/// While it lives nothing of a graph is computed; null for none.
class TZySeriesUpdate {
 public:
  explicit TZySeriesUpdate(IZySeriesGraph* Graph) : FGraph(Graph) {
    if (FGraph != nullptr) FGraph->BeginUpdate();
  }
  ~TZySeriesUpdate() {
    if (FGraph != nullptr) FGraph->EndUpdate();
  }
  TZySeriesUpdate(const TZySeriesUpdate&) = delete;
  TZySeriesUpdate& operator=(const TZySeriesUpdate&) = delete;

 private:
  IZySeriesGraph* FGraph;
};

}  // namespace zy
