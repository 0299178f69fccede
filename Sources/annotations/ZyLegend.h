#pragma once

#include <deque>

#include "annotations/ZyControlDrag.h"
#include "annotations/ZyCustomLegend.h"
#include "graph/ZyGraph2D.h"
#include "platform/framework/TStrings.h"

namespace zy {

/// What colours the captions of a legend: its own font, or the line or area of their series.
enum class TZyLegendCaptionColorFrom { LegendForeColor, SeriesLineColor, SeriesAreaForeColor };
ZY_ENUM(TZyLegendCaptionColorFrom, "LegendForeColor", "SeriesLineColor", "SeriesAreaForeColor")

/// A legend: lists the series of a graph and of all that are coupled to it.
///
/// In its graph it stands at one of ten docked places, for which the layout makes room, or floats where it was put, and
/// the user drags it; the graph paints it. In any other parent it stands and paints by itself. Listed are, first, the
/// series of ItemsOrderList, and then, in drawing order, all others that are visible or share the item of a visible
/// one.
///
/// A drag, and a move by the arrow keys once the legend was clicked or reached by the tabulator key, is one step of
/// undo, logged when it ends: with the button, with another key, or when the keyboard goes elsewhere. Escape, and
/// hiding the legend meanwhile, gives the old place back and logs nothing. The mouse is followed within the graph, so
/// that the legend can always be reached.
class TZyLegend : public TZyCustomLegend, public IZyStoredLegend {
  ZY_CLASS(TZyLegend, TZyCustomLegend)
  explicit TZyLegend(TComponent* Owner = nullptr);
  ~TZyLegend() override;

  /// The graph whose series are listed. The legend takes over its undo stack. A graph that becomes the parent of a
  /// legend without one is taken.
  TZyGraph2D* Graph() const { return FGraph; }
  void SetGraph(TZyGraph2D* Value);
  /// References (GetComponentRef) of the series to list first; those that are not in the graph are passed over. Setting
  /// copies the texts; null clears.
  TStringList* ItemsOrderList() { return &FItemsOrderList; }
  void SetItemsOrderList(const TStringList* Value);
  /// Where the legend stands. A docked place sets ItemsOrder: rows above and below, columns at the sides.
  TZyLegendPosition Position() const { return FPosition; }
  void SetPosition(TZyLegendPosition Value);
  /// Keys and buttons, exactly these, whose press begins to drag a floating legend; the left button at first.
  TShiftState StartFreeFloatingMovingKeys() const { return FStartMoveKeys; }
  void SetStartFreeFloatingMovingKeys(TShiftState Value) { FStartMoveKeys = Value; }
  /// Told when a drag by the mouse begins.
  const TNotifyEvent& OnStartFreeFloating() const { return FOnStartFreeFloating; }
  void SetOnStartFreeFloating(TNotifyEvent Value) { FOnStartFreeFloating = std::move(Value); }
  /// LegendForeColor at first. No step of undo.
  TZyLegendCaptionColorFrom LegendCaptionColorFrom() const { return FLegendCaptionColorFrom; }
  void SetLegendCaptionColorFrom(TZyLegendCaptionColorFrom Value);

  /// The series that are shown, in display order; null where one died since.
  std::vector<TZySeries*> Items() const { return {FItems.begin(), FItems.end()}; }

  void Modified() override;
  void PreparePaint() override;
  TZyLegendPosition Dock() const override { return FPosition; }
  bool IsMoving() const override { return FDrag.IsActive(); }
  void JoinGraph(TZyCustomGraph& Graph) override;
  /// While the form is designed, a legend without a graph takes its parent, or the first graph of its owner.
  void SetParent(TWinControl* Value) override;

  void MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) override;
  void MouseMove(TShiftState Shift, int X, int Y) override;
  void MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) override;
  void KeyDown(TKey& Key, TShiftState Shift) override;
  bool TakesKeys() const override { return IsMovable(); }

  /// The height of the items is stored as it is in force. What is read is taken for one that was set when the items
  /// would not need it.
  void Fields(TZyArchive& Archive) override;

 protected:
  void NewList() override;
  void CheckItemHeight() override;
  void PaintItems(Graphics& Gr) override;
  bool IsPaintedByParent() const override { return dynamic_cast<TZyGraph2D*>(Parent()) != nullptr; }
  void Paint(Graphics& Gr) override;
  bool InOverlay() const override { return FDrag.IsActive(); }
  void Deactivated() override { EndDrag(true); }
  void Resize() override;
  void CMVisibleChanged() override;

 private:
  friend class TZyLegendRecord;

  void TakeGraph(TZyGraph2D* Value);
  TZyGraph2D& SourceGraph() const;
  std::vector<TZySeries*> ListedSeries() const;
  void MakeRoom(bool Anyway);
  void SetColors();
  bool IsMovable() const;
  void MoveBy(TPoint From, TPoint Way);
  void EndDrag(bool Keeps);

  TRef<TZyGraph2D> FGraph{this, &TZyLegend::SetGraph};
  TStringList FItemsOrderList;
  std::deque<TRef<TZySeries>> FItems;  // which cannot move
  TZyLegendCaptionColorFrom FLegendCaptionColorFrom = TZyLegendCaptionColorFrom::LegendForeColor;
  TZyLegendPosition FPosition = TZyLegendPosition::FreeFloating;
  TShiftState FStartMoveKeys{ssLeft};
  TNotifyEvent FOnStartFreeFloating;
  TZyControlDrag FDrag{*this};
  float FItemHeightRead = 0;  // in force where the record was written, until the items are measured
};

}  // namespace zy
