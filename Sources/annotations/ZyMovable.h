#pragma once

#include <algorithm>

#include "annotations/ZyDraggedControl.h"
#include "annotations/ZyMarkerBox.h"
#include "annotations/captions/ZyCaptionOfName.h"
#include "annotations/captions/ZyParentFont.h"
#include "annotations/captions/ZyRichCaption.h"
#include "axes/ZyAxis.h"
#include "graph/parts/ZyGraphParts.h"
#include "graph/styles/ZyLineSettings.h"
#include "series/ZySeries.h"
#include "undo/ZyUndoLink.h"

namespace zy {

/// Base of markers: controls on a graph that stand at values of axes and that the user moves.
///
/// X and Y are values of the axes, or pixels of the parent in a direction without axis. They stay as they are whatever
/// the axes do: the marker follows them. A drag by mouse, or by the arrow keys once the marker was clicked or reached
/// by the tabulator key, is one step of undo, logged when it ends, with the point that the marker held on to before.
///
/// An heir says how large it is (SetHotDelta), paints itself (PaintGr), and publishes what it has.
class TZyMovable : public TZyDraggedControl,
                   public TZyRecord,
                   public IZyGraphMarker,
                   public IZySnappingMarker,
                   public IZyUndoUser {
  ZY_CLASS(TZyMovable, TZyDraggedControl)
  ~TZyMovable() override;

  double X() const { return FX; }
  virtual void SetX(double Value);
  double Y() const { return FY; }
  virtual void SetY(double Value);
  /// The marker takes over the undo stack of its first axis.
  TZyAxis* XAxis() const { return FXAxis; }
  virtual void SetXAxis(TZyAxis* Value);
  TZyAxis* YAxis() const { return FYAxis; }
  virtual void SetYAxis(TZyAxis* Value);
  virtual TZySimpleLineSettings& Line() { return FLine; }
  /// Whether nothing is shown outside the data area.
  bool ClipToData() const { return FClipToData; }
  virtual void SetClipToData(bool Value);
  /// Whether it is stored: where it is other than what a marker that is read has before.
  virtual bool StoresClipToData() const { return !FClipToData; }

  /// Whether the mouse and the arrow keys move the marker.
  bool MouseDrag() const { return FMouseDrag; }
  void SetMouseDrag(bool Value) { FMouseDrag = Value; }
  /// Keys and buttons, exactly these, whose press begins to drag; the left button at first.
  TShiftState StartMovingKeys() const { return FStartMoveKeys; }
  void SetStartMovingKeys(TShiftState Value) { FStartMoveKeys = Value; }
  /// Whether a dragged marker goes to the nearest point of a series, however far that is: of SnappedSeries where one
  /// was set, else of all series of the marker's axes, the first of equally near ones.
  bool SnapToSeriesValues() const { return FSnapToSeries; }
  void SetSnapToSeriesValues(bool Value) { FSnapToSeries = Value; }
  bool SnapToFunctions() const { return FSnapToFunctions; }
  /// False drops a function as SnappedSeries.
  void SetSnapToFunctions(bool Value);
  /// The one that was set or, while none is, the one that the last drag found.
  TZySeries* SnappedSeries() const { return FSnappedSeries; }
  /// A function sets SnapToFunctions.
  void SetSnappedSeries(TZySeries* Value);
  TZySeries* LinkedSeries() const override { return FSnapToSeries ? FSnappedSeries.Get() : nullptr; }
  int SnappedIdx() const override { return FSnappedIdx; }
  /// Below 0 for none. With SnapToSeriesValues the marker moves to the point, if SnappedSeries has it.
  void SetSnappedIdx(int Value);
  void TakeSnappedIdx(int Value) override { FSnappedIdx = std::max(Value, -1); }
  void SnapTo(double X, double Y) override;

  const TZyRichCaption& Caption() const { return FCaptionRec.Caption(); }
  /// Trailing blanks are dropped. What cannot be evaluated is shown as it is written.
  void SetCaption(const TZyRichCaption& Value);
  bool CaptionVisible() const { return FCaptionVisible; }
  void SetCaptionVisible(bool Value);
  /// Whether the text runs upwards.
  bool CaptionVertical() const { return FCaptionRec.Angle != 0; }
  virtual void SetCaptionVertical(bool Value);
  /// Pixels by which the caption is moved off its place.
  int CaptionDeltaX() const { return FCaptionDelta.X; }
  void SetCaptionDeltaX(int Value);
  int CaptionDeltaY() const { return FCaptionDelta.Y; }
  void SetCaptionDeltaY(int Value);
  TZyContentAlignment CaptionPosition() const { return FCaptionPosition; }
  void SetCaptionPosition(TZyContentAlignment Value);
  /// Fill colour of the caption's font.
  TZyColor ForeColor() const { return FCaptionRec.CaptionFont().FillColor(); }
  void SetForeColor(TZyColor Value);
  /// That of the parent until it is changed. SetFont logs the old one as one step; who changes the font itself pushes
  /// it before (TZyFont::PushToUndoStack).
  TZyFont& Font() { return FCaptionRec.CaptionFont(); }
  void SetFont(const TZyFont& Value);
  TZyColor CaptionBackColor() const { return FBackColor; }
  void SetCaptionBackColor(TZyColor Value);
  TZyGradientSettings& CaptionBackGradient() { return FBackGradient; }
  TZyLineSettings& CaptionBackFrame() { return FBackFrame; }
  /// Edges in light and shade, which turn the frame off.
  bool CaptionBackRaised() const { return FBackRaised; }
  void SetCaptionBackRaised(bool Value);
  bool CaptionBackLowered() const { return FBackLowered; }
  void SetCaptionBackLowered(bool Value);
  bool CaptionBackShadow() const { return FBackShadow; }
  void SetCaptionBackShadow(bool Value);
  /// Fiftieths of the font's size: between text and edge of the background, and rounding of its corners.
  float CaptionBackSpaceToBorder() const { return FBackSpaceToBorder; }
  void SetCaptionBackSpaceToBorder(float Value);
  float CaptionBackRounding() const { return FBackRounding; }
  void SetCaptionBackRounding(float Value);

  /// Goes where a drag to a place of the parent, in pixels, would put the marker, snapping included: to follow the
  /// mouse. No step of undo. Nothing during a drag, and without a parent.
  void MoveTo(TPoint Place);

  /// Told while a drag, or MoveTo, moves the marker, and when it was moved otherwise or a drag ended. Handlers may free
  /// the marker.
  const TNotifyEvent& OnMarkerMoving() const { return FOnMoving; }
  void SetOnMarkerMoving(TNotifyEvent Value) { FOnMoving = std::move(Value); }
  const TNotifyEvent& OnMarkerMoved() const { return FOnMoved; }
  void SetOnMarkerMoved(TNotifyEvent Value) { FOnMoved = std::move(Value); }

  TZyUndoStack* UndoStack() const override { return FUndo; }
  void SetUndoStack(TZyUndoStack* Value) override;
  TControl& Control() override { return *this; }
  /// Size and place follow what is shown. Runs after each layout, and for each change.
  void UpdatePosition() override;
  void PaintGr(Graphics& Gr) override;

  /// A move by anybody but the marker itself writes X and Y.
  void SetBounds(int Left, int Top, int Width, int Height) override;
  void SetAutoSize(bool) override {}
  void SetParent(TWinControl* Value) override;
  void SetName(const std::string& Value) override;
  bool TakesKeys() const override { return FMouseDrag; }
  std::string AccessibleName() const override;

  void Fields(TZyArchive& Archive) override;

 protected:
  explicit TZyMovable(TComponent* Owner);

  /// Sets FSize and FHotDelta, and places the caption: works out a box and takes it.
  virtual void SetHotDelta();
  void TakeBox(const TZyMarkerBox& Box);
  /// In which directions the marker can go.
  virtual bool MovesAlongX() const { return true; }
  virtual bool MovesAlongY() const { return true; }
  /// Left or top of the control for a hot point; a line that spans the data area has its own.
  virtual TPoint CornerFor(TPoint HotPoint) const { return {HotPoint.X - FHotDelta.X, HotPoint.Y - FHotDelta.Y}; }
  virtual void Modified();
  /// X or Y changed otherwise than by their setters.
  virtual void PlaceChanged() { Modified(); }
  /// Tell the events; they may free the marker.
  virtual void TellMoving() { TellMove(FOnMoving, false); }
  virtual void TellMoved() { TellMove(FOnMoved, true); }
  /// The handler of the event, and then a parent that listens.
  void TellMove(const TNotifyEvent& Event, bool IsOver);
  /// Returns whether the marker is still there.
  bool Tell(const TNotifyEvent& Event);
  /// Stands on the axes and at the values of another marker, without a step of undo and without telling anybody.
  void StandWith(const TZyMovable& Other);
  /// The settings that are stored of the caption's place: one of nine around the line, unless an heir has its own.
  virtual void CaptionPlaceField(TZyArchive& Archive);
  /// Axes and values of a marker with both.
  void PlaceFields(TZyArchive& Archive);

  bool HasCaption() const { return FCaptionVisible && !Caption().empty(); }
  bool HasBackground() const;
  bool HasShadow() const;
  float CaptionB() const;
  SizeF CaptionSize() const;
  /// The data area with ClipToData in a graph, else the parent's inside; in its coordinates.
  RectF OuterRect() const;
  /// The same in the control's own.
  RectF ClipRect() const;
  void PaintCaption(Graphics& Gr);
  void Paint(Graphics& Gr) override { PaintGr(Gr); }
  void CMVisibleChanged() override;
  void ParentFontChanged() override;

  static constexpr int ShadowExtent = 5;
  TZyRichCaptionObject FCaptionRec;
  TRect FLineRect, FCaptionRect;
  TPoint FSize, FHotDelta, FCaptionDelta;
  TZyContentAlignment FCaptionPosition = TZyContentAlignment::TopLeft;
  bool FCaptionVisible = false;

  bool StartsBy(TShiftState Shift) const override { return FMouseDrag && Shift == FStartMoveKeys; }
  void DragBegins() override;
  void DragTo(TPoint Way) override;
  void DragEnds(bool Keeps) override;
  void BeginRead() override { FReadsRecord = true; }
  void EndRead() override;

 private:
  /// What a drag changes, but for the series.
  struct TPlace {
    double X = 0, Y = 0;
    int Idx = -1;
    bool operator==(const TPlace&) const = default;
  };

  TPoint HotPoint() const;
  void TakeHotPoint(TPoint Value);
  bool SearchSeriesSnap(TPoint DragPoint);
  void LoseSeries(TZySeries*);
  bool SnapsToOne() const { return FSnapToSingleSeries; }
  void SetSnapsToOne(bool Value) { FSnapToSingleSeries = Value; }
  void TakeStackOf(const TZyAxis* Axis);
  void SnapFields(TZyArchive& Archive);
  void CaptionFields(TZyArchive& Archive);
  void BackgroundFields(TZyArchive& Archive);
  void FontChanged();
  void SetEdge(bool& Field, bool Value, const char* PropName);

  TZySimpleLineSettings FLine{[this] { Modified(); }};
  TZyGradientSettings FBackGradient{[this] { Modified(); }};
  TZyLineSettings FBackFrame{[this] { Modified(); }};
  TZyUndoLink FUndo{this, &TZyMovable::SetUndoStack, FLine, FBackGradient, FBackFrame};
  TZyCaptionOfName FCaptionOfName;
  TZyParentFont FMarkerFont{*this, FCaptionRec.CaptionFont()};
  TRef<TZyAxis> FXAxis{this, &TZyMovable::SetXAxis}, FYAxis{this, &TZyMovable::SetYAxis};
  TRef<TZySeries> FSnappedSeries{this, &TZyMovable::LoseSeries};
  double FX = 0, FY = 0;
  int FSnappedIdx = -1;
  bool FClipToData = true;
  bool FSnapToSeries = false;
  bool FSnapToSingleSeries = false;
  bool FSnapToFunctions = true;
  bool FMouseDrag = true;
  bool FSetting = false;  // the bounds are the marker's own doing
  bool FReadsRecord = false;
  bool FBackRaised = false, FBackLowered = false, FBackShadow = false;
  float FBackSpaceToBorder = 40, FBackRounding = 0;
  TZyColor FBackColor = Colors::Transparent;
  TShiftState FStartMoveKeys{ssLeft};
  TPlace FBeforeDrag;
  TRef<TZySeries> FSeriesBeforeDrag{this};
  TPoint FDragStart;  // hot point when the drag began
  TNotifyEvent FOnMoving, FOnMoved;
};

}  // namespace zy
