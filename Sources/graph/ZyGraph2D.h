#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "axes/ZyAxis.h"
#include "graph/ZyCustomGraph.h"
#include "graph/ZyGraphCoupling.h"
#include "graph/ZyGraphGestures.h"
#include "graph/ZyGraphZoom.h"
#include "graph/ZyZoomSettings.h"
#include "graph/parts/ZySeriesGraph.h"
#include "graph/styles/ZyStyles.h"
#include "platform/controls/TScrollBar.h"
#include "platform/drawing/Geometry.h"
#include "texts/ZyLocalize.h"
#include "undo/ZyUndoParts.h"

namespace zy {

class Bitmap;
class Metafile;
class TZyDoubleVector;
class TZySeries;

/// What lies at a place of a chart: a point of a series and its values.
struct TZyFindSeriesPointResult {
  bool Found = false;
  TZySeries* InSeries = nullptr;
  int Index = -1;
  double X = 0;
  double Y = 0;
};

/// The cartesian chart: finds its axes and series, and turns a change or a paint request into a picture.
///
/// Axes are child controls of the graph; series join it by themselves. The graph owns neither: all belong to the
/// graph's owner. A graph without axes makes its two primary ones at the first paint; they are the graph's own when it
/// has no owner.
///
/// What it does with them is done by parts: TZyGraphPainter draws, TZyGraphGestures follows mouse and keys,
/// TZyGraphZoom moves the ranges, TZyGraphCoupling knows the graphs that share the X axis, TZyGraphPicture makes files.
class TZyGraph2D : public TZyCustomGraph, public IZyUndoHolder, public IZySeriesGraph, private IZyGestureTarget {
  ZY_CLASS(TZyGraph2D, TZyCustomGraph)
  explicit TZyGraph2D(TComponent* Owner = nullptr);
  ~TZyGraph2D() override;

  /// Whether the axes cross at the value 0 instead of standing beside the data area.
  bool ZeroOrigin() const override { return FZeroOrigin; }
  void SetZeroOrigin(bool Value);
  TZyColor DataAreaColor() const { return FDataAreaColor; }
  void SetDataAreaColor(TZyColor Value);
  TZyGradientSettings& DataAreaGradient() { return FDataAreaGradient; }
  TZyLineSettings& DataAreaFrame() { return *FDataAreaFrame; }
  TZyLineSettings& MajorGridHorizontal() { return *FMajorGridHorizontal; }
  TZyLineSettings& MinorGridHorizontal() { return *FMinorGridHorizontal; }
  TZyLineSettings& MajorGridVertical() { return *FMajorGridVertical; }
  TZyLineSettings& MinorGridVertical() { return *FMinorGridVertical; }
  TZyAxis* PrimaryXAxis() const override { return FPrimaryXAxis; }
  void SetPrimaryXAxis(TZyAxis* Value);
  TZyAxis* PrimaryYAxis() const override { return FPrimaryYAxis; }
  void SetPrimaryYAxis(TZyAxis* Value);
  /// Margins in pixels to the control's edges.
  float DistanceBorderAxisTop() const override { return FDistanceBorderAxisTop; }
  void SetDistanceBorderAxisTop(float Value);
  float DistanceBorderAxisBottom() const override { return FDistanceBorderAxisBottom; }
  void SetDistanceBorderAxisBottom(float Value);
  float DistanceBorderAxisLeft() const override { return FDistanceBorderAxisLeft; }
  void SetDistanceBorderAxisLeft(float Value);
  float DistanceBorderAxisRight() const override { return FDistanceBorderAxisRight; }
  void SetDistanceBorderAxisRight(float Value);
  TZyUndoStack* UndoStack() const override { return TZyCustomGraph::UndoStack(); }
  void SetUndoStack(TZyUndoStack* Value) override;
  TZyZoomSettings& Zoom() { return FZoom; }
  const TZyZoomSettings& Zoom() const override { return FZoom; }
  /// The scroll bars, owned by the graph; they appear while data lie outside the visible ranges. Null in a graph that
  /// was made in a form designer.
  TScrollBar* HorizontalScrollBar() const override { return FHorizontalScrollBar; }
  TScrollBar* VerticalScrollbar() const override { return FVerticalScrollbar; }
  /// Around a frame, a turn of the wheel or a pinch that zooms, and around a pan. A frame that comes to nothing has no
  /// end. A handler may free the graph.
  const TNotifyEvent& OnBeginZoom() const { return FOnBeginZoom; }
  void SetOnBeginZoom(TNotifyEvent Value) { FOnBeginZoom = std::move(Value); }
  const TNotifyEvent& OnEndZoom() const { return FOnEndZoom; }
  void SetOnEndZoom(TNotifyEvent Value) { FOnEndZoom = std::move(Value); }
  const TNotifyEvent& OnBeginPanning() const { return FOnBeginPanning; }
  void SetOnBeginPanning(TNotifyEvent Value) { FOnBeginPanning = std::move(Value); }
  const TNotifyEvent& OnEndPanning() const { return FOnEndPanning; }
  void SetOnEndPanning(TNotifyEvent Value) { FOnEndPanning = std::move(Value); }

  // --- Zoom stages. All operations keep the stages of coupled graphs in step. ---

  /// Zooms to a frame between two corners in client pixels, cut to the data area. The range becomes a new stage.
  /// Nothing for a frame that lies outside.
  void ZoomTo(TPoint TopLeft, TPoint BottomRight) { FStages.ZoomTo(TopLeft, BottomRight); }
  /// The stage before or behind the present one, where there is one.
  void ZoomBack() override { FStages.ZoomBack(); }
  void RedoZoom() { FStages.RedoZoom(); }
  /// A stage by its index, under the condition of ZoomBack; 0 is the range before all zooming.
  void ZoomToStage(int Stage) { FStages.ZoomToStage(Stage); }
  /// Gives the axes the ranges of their data again and forgets the stages.
  void ZoomReset() override { FStages.Reset(); }
  /// A stack has a stage before and behind the present one but at its ends, a ring has as soon as it has any.
  bool GetCanZoomBack() const override { return FStages.CanZoomBack(); }
  bool GetCanRedoZoom() const { return FStages.CanRedoZoom(); }
  /// Index of the stage that is shown, and number of stages, of the primary Y axis.
  int GetCurrentZoomStage() const { return FStages.Stage(); }
  int GetZoomBufferSize() const { return FStages.BufferSize(); }
  /// Gives the axes of coupled graphs a stage of their present ends, after those of this graph got one.
  void FixChildZoomStack() { FStages.FixCoupled(); }
  /// Zooms in, by a Factor below 1, or out around a place in client pixels, as a new stage: all axes when the place
  /// lies in the data area, beside it those of the direction it lies beside. Returns whether any axis moved; without a
  /// move there is no stage.
  bool ZoomAround(TPoint Place, double Factor) override { return FStages.ZoomAround(Place, Factor); }
  /// Moves the axes of a scroll bar's direction, as the bar asks.
  virtual void Scroll(TObject* Sender, TScrollCode ScrollCode, int& ScrollPos);
  /// The range of scroll bars.
  static constexpr int WholeScrollBar = 10000;

  void Click() override;
  void DblClick() override;
  void MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) override;
  void MouseMove(TShiftState Shift, int X, int Y) override;
  void MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) override;
  bool MouseWheel(TShiftState Shift, int WheelDelta, int X, int Y) override;
  bool Gesture(const TGesture& Gesture) override;
  void KeyDown(TKey& Key, TShiftState Shift) override;

  /// Draws the whole chart: the one order for screen, image and printer.
  void PaintGr(Graphics& Gr);
  /// Paints on the screen. Where a part alone would not fit what stands beside it, the whole chart is painted once more
  /// afterwards.
  void Paint(Graphics& Gr) override;
  /// While Paint runs, above whose picture controls may lie that the mouse moves.
  bool PaintsScreen() const { return FPaintsScreen; }
  void Modified() override;
  void Calculate() override;

  // --- Ways out: the picture holds the graph and all that are coupled to it, the one with the X axis at the bottom ---

  /// Paints the whole picture into an image, moved by X and Y, as into a file: with markers and rich labels, without
  /// any other control. DoingMetafile decides whether for the screen; it is false afterwards.
  void PaintToImage(Bitmap& Image, float X = 0, float Y = 0);
  void PaintToImage(Metafile& Image, float X = 0, float Y = 0);
  /// Pixels of the control at the left, where vertical scroll bars lie, that the picture leaves out.
  int ImageGraphLeft();
  /// Height of the picture: of all coupled graphs without their horizontal scroll bars.
  int ImgageGraphHeight();
  /// Height of this graph in it.
  int HeightInImage() const;
  /// Lays the graph out as for the screen and shows the scroll bars that it then has.
  void PrepareForScreen();
  /// Paints the graph and what its picture shows of the controls on it, kept within its place as a window would keep
  /// it.
  void PaintInto(Graphics& Gr, bool AsMetafile);
  void PaintTitle(Graphics& Gr) { FTitleRec.PaintGr(Gr); }

  /// The series have to compute their pixels anew.
  void SeriesModified() override;
  /// Makes the primary axes where they are missing.
  void TestPrimaryAxis();
  /// Takes new data of the series into the ranges of the axes.
  void TestSeriesAndAxis();
  /// Takes new data and the layout that is due: what is to be seen at the next paint.
  void BringUpToDate() override;
  /// Sorts the series by their layers and renumbers these from 0, which is no step of undo.
  void SortLayers();
  /// Finds the axes of the graph, and the graphs that share its X axis. A graph that was coupled while the others are
  /// zoomed gets as many stages as they have, all of its whole range; its own are gone.
  void CheckCoupled();
  /// The content of the legends is stale, here and in coupled graphs.
  void LegendsModified() override;
  /// Logs the data of all series as one step of undo, before they change.
  void UndoPushSeriesVectors();
  /// The vectors that serve as X or Y data of the series that have a name, each once.
  std::vector<TZyDoubleVector*> GetVectorsList() const;

  /// The point of a series at a place in client pixels; the series that was drawn last has the first say.
  TZyFindSeriesPointResult FindSeriesPoint(int X, int Y) const;
  /// Whether the mouse is over the data area, its edges included.
  bool MouseInDataArea() const override;
  /// Paints the graphs that share this graph's X axis anew.
  void RepaintChildGraphs();

  /// The data area in client pixels; width and height count one pixel more than the distance between the edges.
  const RectF& DrawingArea() const override { return FDrawingArea; }
  /// The series of the graph in drawing order. They enter and leave by themselves; AddRelatedSeries says whether one
  /// was new.
  const TRefList<TZySeries>& RelatedSeries() const { return FRelatedSeries; }
  bool AddRelatedSeries(TZySeries* Series) override;
  /// Gives a series the graph's primary axes, which are made where they are missing, unless it has axes already. It is
  /// drawn as soon as it has data; the owner stays.
  void AddSeries(TZySeries& Series);
  /// Says in sentences why nothing is to be seen: of the graph, of its series, and of those of the same owner that have
  /// not come into any graph. Empty when everything shows. Takes new data and the layout that is due.
  std::vector<std::string> Diagnose();
  /// What a screen reader says of the series, in their order. Axes, legends and markers stand beside it, as the
  /// controls that they are.
  std::vector<std::string> AccessibleItems() const override;
  void RemoveRelatedSeries(TZySeries* Series) override { FRelatedSeries.Remove(Series); }
  /// A series has computed its pixels.
  void PointsCalculated() override { FPointsAreStale = false; }
  /// All child axes in control order, as they are now.
  std::vector<TZyAxis*> Axes() const;
  /// Does something to each of them, without a list.
  template <class TDo>
  void ForEachAxis(const TDo& Do) const {
    for (std::size_t i = 0; i < Controls().size(); ++i)
      if (auto* const Axis = dynamic_cast<TZyAxis*>(Controls()[i])) Do(*Axis);
  }
  /// All child axes in control order, and behind them the X axis of a coupled graph, which is a child of another one;
  /// as CheckCoupled found them.
  const TRefList<TZyAxis>& AllAxes() const { return FCoupling.Axes(); }
  /// The graphs that use this graph's X axis, as CheckCoupled found them.
  const TRefList<TZyGraph2D>& ChildGraphs() const { return FCoupling.Children(); }
  bool HasChildGraphs() const { return !ChildGraphs().empty(); }
  /// Whether the graph's X axis is the child of another graph.
  bool IsCoupledGraph() const override { return FCoupling.IsCoupled(); }
  /// The graph whose X axis this one uses, null for one with an axis of its own.
  TZyGraph2D* MasterGraph() const { return FCoupling.Master(); }
  /// All other graphs on the same X axis; and all, from the top of their common picture to its bottom.
  std::vector<TZyGraph2D*> CoupledGraphs() const { return FCoupling.Others(); }
  std::vector<TZyGraph2D*> StackedGraphs() const { return FCoupling.Stacked(); }

  /// A gesture is running: a frame, a pan, a pinch, here or, of the latter two, in a coupled graph. Ends are not
  /// rounded during these.
  bool Zooming() const { return FGestures.Kind() == TZyGraphGestures::TKind::Frame; }
  bool Panning() const override { return FPanning; }
  bool Pinching() const override { return FPinching; }
  /// Also of coupled graphs.
  void SetPanning(bool Value);
  /// While the graph paints for a printer or a file: places of ticks and grid lines keep their fractions.
  bool DoingMetafile() const override { return FDoingMetafile; }
  void SetDoingMetafile(bool Value) { FDoingMetafile = Value; }
  /// While TestPrimaryAxis makes the default axes.
  bool DoingPrimary() const override { return FDoingPrimary; }
  /// The vectors, axes, series, legends and markers of the graph that have a name, each before what refers to it, and
  /// then the graph's own settings. A reader takes out all series and legends, and frees all markers; of series those
  /// that were stored and are complete come back, in their order; the others wait for what they lack, and are stored
  /// again. What it does not know it leaves out where the form allows it. It throws EReadError when a name stands for
  /// an object of another kind, or its owner cannot be found. Handlers that run meanwhile may throw, and free series
  /// and axes, but not the graph.
  void Fields(TZyArchive& Archive) override;
  /// While the graph reads its record; axes ignore changes of ranges then.
  bool LoadingRecord() const override { return FLoadingRecord; }
  bool NeedsRecalculate() const { return FNeedsRecalculate; }
  /// Whether solids are drawn with walls behind them: there is a data area in a colour of its own, or a grid.
  bool ShowsWalls() const override;

  /// While the form is designed, a new graph gets dashed grids, and its axes the undo stack of the graph.
  void SetName(const std::string& Value) override;

  // For series.
  int SeriesCount() const override { return static_cast<int>(FRelatedSeries.size()); }
  int PlaceOf(const TZySeries& Series) const override;
  void SetPlaceOf(TZySeries& Series, int Place) override;
  void ForEachSeries(const std::function<void(TZySeries& Series)>& Do) const override;
  void SeriesInvalidated() override;
  bool SavesData() const override { return TZyCustomGraph::SavesData(); }
  bool DrawsUnsmoothed() const override { return !DoingImage() && SmoothingMode() == TZySmoothingMode::None; }

  // For axes and the layout pass.
  TWinControl& Control() override { return *this; }
  void BeginUpdate() override { TZyCustomGraph::BeginUpdate(); }
  void EndUpdate() override { TZyCustomGraph::EndUpdate(); }
  bool Updating() const override { return TZyCustomGraph::Updating(); }
  void EndUserZoom(bool Horizontal) override;
  bool MayScroll(bool Horizontal) const override;
  bool HasBorder() const override { return BorderStyle() == bsSingle; }
  std::vector<TZyAxis*> AxesToLayOut() const override;
  std::vector<IZyAxisGraph*> GraphsOnXAxis() const override;
  float BelowTitle(float Top) const override;
  void SetDrawingArea(const RectF& Value) override { FDrawingArea = Value; }
  /// Which scroll bars the end of the next paint shows.
  void SetDoScrollBars(bool Horizontal, bool Vertical) override {
    FDoHScrollBar = Horizontal;
    FDoVScrollBar = Vertical;
  }
  void PlaceTitle() override;

 protected:
  void BoundsChanged() override;
  void CMVisibleChanged() override;
  void PaintOverlay(Graphics& Gr) override;
  void EndRead() override;
  std::unique_ptr<TZyChartPicture> MakePicture() override;
  std::vector<TZyCustomGraph*> ChartsOfPicture() override;
  /// Runs the handler of an event around a gesture. False when the graph did not survive it.
  bool Tell(TZyGestureEvent Event) override;

 private:
  friend class TZyGraphRecord;

  std::unique_ptr<TZyLineSettings> MakeLine(TZyColor Color);
  TScrollBar* MakeScrollBar(TScrollBarKind Kind);
  void ShowScrollBars();
  std::vector<TZyLineSettings*> Lines() const;
  void SetMargin(float& Field, float Value, const char* PropName);
  void TakePrimaryXAxis(TZyAxis* Value);
  TZyAxis* MakePrimaryAxis(TZyAxisPosition Position, const char* BaseName, const char* Text);
  void SeriesPoll();
  bool PreparePaint();
  void CalculateWhenDirty();
  void CalculateCoupled();
  void PaintToImage(Graphics& Gr, float X, float Y);

  // What gestures act on.
  bool HasPrimaryAxes() const override { return FPrimaryXAxis != nullptr && FPrimaryYAxis != nullptr; }
  bool ZoomToFrame(TPoint From, TPoint To) override { return FStages.ZoomTo(From, To); }
  TPoint MiddleOfData() const override;
  void BeginPan() override;
  void PanBy(double Dx, double Dy) override { FStages.PanBy(Dx, Dy); }
  void EndPan(bool Keeps) override;
  void BeginPinch(TPoint Place) override;
  void PinchTo(double Scale) override;
  void EndPinch() override;
  void ScrollStep(bool Horizontal, bool Forward) override;
  bool IsTwisted(bool Horizontal) const override;
  void FrameChanged(const TRect& Frame) override;
  TCursor PointerShape() const override { return Cursor(); }
  void SetPointerShape(TCursor Value) override { SetCursor(Value); }
  void CaptureKeys(bool Value) override { SetKeyCapture(Value); }
  void SetMoving(bool& Field, bool Value);

  TZyColor FDataAreaColor = Colors::Transparent;
  TZyGradientSettings FDataAreaGradient;
  std::unique_ptr<TZyLineSettings> FDataAreaFrame;
  std::unique_ptr<TZyLineSettings> FMajorGridHorizontal, FMinorGridHorizontal;
  std::unique_ptr<TZyLineSettings> FMajorGridVertical, FMinorGridVertical;
  TRef<TZyAxis> FPrimaryXAxis{this, &TZyGraph2D::TakePrimaryXAxis}, FPrimaryYAxis{this};
  float FDistanceBorderAxisTop = 0;
  float FDistanceBorderAxisBottom = 0;
  float FDistanceBorderAxisLeft = 0;
  float FDistanceBorderAxisRight = 0;
  bool FZeroOrigin = false;
  bool FPanning = false;
  bool FPinching = false;
  bool FLeadsMove = false;  // the pan or pinch is this graph's own
  bool FDoHScrollBar = false;
  bool FDoVScrollBar = false;
  bool FDoingMetafile = false;
  bool FDoingPrimary = false;
  bool FLoadingRecord = false;
  bool FTellingLegends = false;
  bool FPaintsScreen = false;
  bool FCalculatingCoupled = false;
  bool FPointsAreStale = false;  // of all series
  bool FOnce = true;
  TZyZoomSettings FZoom{*this};
  TRef<TScrollBar> FHorizontalScrollBar{this}, FVerticalScrollbar{this};
  TNotifyEvent FOnBeginZoom, FOnEndZoom, FOnBeginPanning, FOnEndPanning;
  TRect FLastClip;  // of the previous paint
  RectF FDrawingArea;
  TRefList<TZyAxis> FAxesToTest{this};  // whose data may be others than was stored of them, when a record was read
  TRefList<TZySeries> FIncompleteSeries{this};  // that were read, and lack data or axes; they are stored again
  TRefList<TZySeries> FRelatedSeries{this, &TZyGraph2D::RemoveRelatedSeries};
  TZyGraphCoupling FCoupling{*this};
  TZyGraphZoom FStages{*this};
  TZyGraphGestures FGestures{*this};
};

}  // namespace zy
