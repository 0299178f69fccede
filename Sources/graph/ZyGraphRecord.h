#pragma once

#include <vector>

#include "persistence/ZyArchive.h"
#include "platform/controls/TControl.h"

namespace zy {

class TZyGraph2D;
class TZySeries;

/// One walk of an archive through a graph and all that belongs to it.
class TZyGraphRecord {
 public:
  TZyGraphRecord(TZyGraph2D& Graph, TZyArchive& Archive) : FGraph(Graph), FArchive(Archive) {}
  void Fields();

 private:
  using TReadObject = TZyArchive::TReadObject;
  using TRecords = std::vector<TZyRecord*>;

  // The lists, each of which refers to what stands in those before it.
  void Lists();
  std::vector<TZySeries*> StoredSeries() const;
  TRecords Vectors() const;
  TRecords StoredControls(bool (*IsOne)(TControl& Control)) const;
  TRecords Legends() const;
  void ReadVector(const TZyIdentity& Who, const TReadObject& Read);
  void ReadAxis(const TZyIdentity& Who, const TReadObject& Read);
  void ReadSeries(const TZyIdentity& Who, const TReadObject& Read);
  void ReadLegend(const TZyIdentity& Who, const TReadObject& Read);
  void ReadMarker(const TZyIdentity& Who, const TReadObject& Read);
  void TakeOutSeries();
  void CalculateSeries();
  void NoteAxes(const TZySeries& Series);
  void FreeMarkers();

  // The graph's own.
  void PlaceFields();
  void TitleFields();
  void ZoomFields();
  void GridFields();
  void LaterFields();

  TZyGraph2D& FGraph;
  TZyArchive& FArchive;
  bool FHasData = false;
};

}  // namespace zy
