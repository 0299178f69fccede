// What is stored of a graph itself, in the order of the stream, behind the lists of what belongs to it.

#include "graph/ZyGraphRecord.h"

#include "graph/ZyGraph2D.h"
#include "graph/parts/ZyControlRecord.h"
#include "platform/framework/ScopedFlag.h"

namespace zy {

void TZyGraphRecord::Fields() {
  FArchive.Identity(FGraph);
  Lists();
  PlaceFields();
  TitleFields();
  ZoomFields();
  GridFields();
  LaterFields();
}

void TZyGraphRecord::PlaceFields() {
  FArchive.Level("Properties", [&] {
    FArchive.Properties(FGraph, "Visible Anchors Align Top Left Width Height BorderStyle");
    HintFields(FArchive, FGraph);
    FArchive.Properties(FGraph,
                        "BackColor DataAreaColor ZeroOrigin PrimaryXAxis PrimaryYAxis DistanceBorderAxisTop "
                        "DistanceBorderAxisBottom DistanceBorderAxisLeft DistanceBorderAxisRight");
  });
}

void TZyGraphRecord::TitleFields() {
  using T = TZyGraph2D;
  FArchive.Field<&T::Caption, &T::SetCaption>(FGraph, TZyFieldName("Caption").Xml("Caption/Text").MultiLine());
  FArchive.Part(TZyFieldName("Caption/Properties").Ini("Caption"), [&] {
    FArchive.Field<&T::CaptionAlignment, &T::SetCaptionAlignment>(FGraph, "Alignment");
    FArchive.Field<&T::CaptionColor, &T::SetCaptionColor>(FGraph, "Color");
    FArchive.Field<&T::CaptionDistanceBefore, &T::SetCaptionDistanceBefore>(FGraph, "DistanceBefore");
    FArchive.Field<&T::CaptionDistanceAfter, &T::SetCaptionDistanceAfter>(FGraph, "DistanceAfter");
    FArchive.Part("Font", FGraph.Font());
  });
}

void TZyGraphRecord::ZoomFields() {
  FArchive.Part("Zoom", [&] {
    FArchive.Properties(FGraph.Zoom(),
                        "Auto OptimizeSeries BackOnClickBeside ResetOnDoubleClickBeside "
                        "ResetOnRightBottomLeftTopFrame HScrollbarVisible VScrollbarVisible StartZoom StartPanning");
  });
}

void TZyGraphRecord::GridFields() {
  FArchive.Level("Grid", [&] {
    FArchive.Properties(FGraph, "MajorGridHorizontal MajorGridVertical MinorGridHorizontal MinorGridVertical");
  });
}

/// What later versions of charts came to store.
void TZyGraphRecord::LaterFields() {
  using T = TZyGraph2D;
  if (!FArchive.NextGroup()) return;
  FArchive.Level("Grid", [&] { FArchive.Properties(FGraph, "BackgroundGradient DataAreaGradient"); });
  if (!FArchive.NextGroup()) return;
  FArchive.Part("Zoom", [&] { FArchive.Properties(FGraph.Zoom(), "BufferType"); });
  if (!FArchive.NextGroup()) return;
  FArchive.Field<&T::CaptionVisible, &T::SetCaptionVisible>(
      FGraph, TZyFieldName("Caption.Visible").Xml("Caption/Properties/Visible"));
  FArchive.Level("Grid", [&] { FArchive.Part(TZyFieldName("DataAreaFrame").Later(), FGraph.DataAreaFrame()); });
  if (!FArchive.NextGroup()) return;
  using TZoom = TZyZoomSettings;
  FArchive.Part("Zoom", [&] {
    FArchive.Field<&TZoom::BackOnRightBottomLeftTopFrame, &TZoom::SetBackOnRightBottomLeftTopFrame>(
        FGraph.Zoom(), TZyFieldName("BackOnRightBottomLeftTopFrame").Later());
  });
  FArchive.EndRecord();
}

void TZyGraph2D::Fields(TZyArchive& Archive) {
  TZyGraphRecord Record(*this, Archive);
  if (!Archive.IsReading()) return Record.Fields();
  const TScopedValue Loading(FLoadingRecord, true);
  const TScopedValue Held(TZyAxis::RangesHeld, true);
  const TZyGraphUpdate Update(*this);  // ends while the axes still ignore changes of ranges
  Record.Fields();
  Modified();
}

/// The axes of the graph may have to show data of other graphs as well, which come later.
void TZyGraph2D::EndRead() {
  for (TZyAxis* Axis : FAxesToTest) Axis->TestRange(Axis->Parent() != this);
  FAxesToTest.Clear();
}

// --- With and without the data --------------------------------------------------------------------------------------

void TZyCustomGraph::WriteTo(TStream& Stream, bool SaveData) const {
  const TScopedValue Saves(FSavesData, SaveData);
  WriteTo(Stream);
}

void TZyCustomGraph::WriteTo(const std::filesystem::path& FileName, bool SaveData) const {
  const TScopedValue Saves(FSavesData, SaveData);
  WriteTo(FileName);
}

void TZyCustomGraph::WriteTo(const IXMLNode& Node, bool SaveData) const {
  const TScopedValue Saves(FSavesData, SaveData);
  WriteTo(Node);
}

void TZyCustomGraph::WriteTo(TCustomIniFile& Ini, std::string_view Section, bool SaveData) const {
  const TScopedValue Saves(FSavesData, SaveData);
  WriteTo(Ini, Section);
}

}  // namespace zy
