#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "axes/ZyAxis.h"
#include "graph/ZyCustomGraph.h"
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
class Pen;
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
class TZyGraph2D : public TZyCustomGraph, public IZyUndoHolder, public IZySeriesGraph {
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
  const TZyZoomSettings& Zoom() const { return FZoom; }
  /// The scroll bars, owned by the graph; they appear while data lie outside the visible ranges. Null in a graph that
  /// was made in a form designer.
  TScrollBar* HorizontalScrollBar() const override { return FHorizontalScrollBar; }
  TScrollBar* VerticalScrollbar() const override { return FVerticalScrollbar; }
  /// Around a frame, a turn of the wheel or a pinch that zooms, and around a pan. A frame that comes to nothing has no
  /// end.
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
  void ZoomTo(TPoint TopLeft, TPoint BottomRight);
  /// The stage before or behind the present one, where there is one.
  void ZoomBack();
  void RedoZoom();
  /// A stage by its index, under the condition of ZoomBack; 0 is the range before all zooming.
  void ZoomToStage(int Stage);
  /// Gives the axes the ranges of their data again and forgets the stages.
  void ZoomReset() override;
  /// A stack has a stage before and behind the present one but at its ends, a ring has as soon as it has any.
  bool GetCanZoomBack() const;
  bool GetCanRedoZoom() const;
  /// Index of the stage that is shown, and number of stages, of the primary Y axis.
  int GetCurrentZoomStage() const;
  int GetZoomBufferSize() const;
  /// Gives the axes of coupled graphs a stage of their present ends, after those of this graph got one.
  void FixChildZoomStack();
  /// Zooms in, by a Factor below 1, or out around a place in client pixels, as a new stage: all axes when the place
  /// lies in the data area, beside it those of the direction it lies beside. Returns whether any axis moved.
  bool ZoomAround(TPoint Place, double Factor);
  /// Moves the axes of a scroll bar's direction, as the bar asks.
  void Scroll(TObject* Sender, TScrollCode ScrollCode, int& ScrollPos);

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
  void Modified() override;
  void Calculate() override;

  // --- Ways out: the picture holds the graph and all that are coupled to it, the one with the X axis at the bottom ---

  using TZyCustomGraph::SaveImage;
  void PrintTo(TPrinter* APrinter, const TRect& Rect) override;
  void SaveImage(TStream& Stream, TZyImageFileFormat Format, bool RemoveTransparency = false,
                 TColor TransparentExchangeColor = 0xFFFFFF) override;
  void CopyToClipboard() override;
  /// Paints the whole picture into an image, moved by X and Y, as into a file: with markers and rich labels, without
  /// any other control. DoingMetafile decides whether for the screen; it is false afterwards.
  void PaintToImage(Bitmap& Image, float X = 0, float Y = 0);
  void PaintToImage(Metafile& Image, float X = 0, float Y = 0);
  /// Pixels of the control at the left, where vertical scroll bars lie, that the picture leaves out.
  int ImageGraphLeft();
  /// Height of the picture: of all coupled graphs without their horizontal scroll bars.
  int ImgageGraphHeight();

  /// The series have to compute their pixels anew.
  void SeriesModified() override;
  /// Makes the primary axes where they are missing.
  void TestPrimaryAxis();
  /// Takes new data of the series into the ranges of the axes.
  void TestSeriesAndAxis();
  /// Sorts the series by their layers and renumbers these from 0.
  void SortLayers();
  /// Finds the axes of the graph, and the graphs that share its X axis.
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
  bool MouseInDataArea() const;
  /// Paints the graphs that share this graph's X axis anew.
  void RepaintChildGraphs();

  /// The data area in client pixels; width and height count one pixel more than the distance between the edges.
  const RectF& DrawingArea() const override { return FDrawingArea; }
  /// The series of the graph in drawing order. They enter and leave by themselves; AddRelatedSeries says whether one
  /// was new.
  const std::vector<TZySeries*>& RelatedSeries() const { return FRelatedSeries; }
  bool AddRelatedSeries(TZySeries* Series) override;
  void RemoveRelatedSeries(TZySeries* Series) override { std::erase(FRelatedSeries, Series); }
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
  const std::vector<TZyAxis*>& AllAxes() const { return FAxes; }
  /// The graphs that use this graph's X axis, as CheckCoupled found them.
  const std::vector<TZyGraph2D*>& ChildGraphs() const { return FChildGraphs; }
  bool HasChildGraphs() const { return !FChildGraphs.empty(); }
  /// Whether the graph's X axis is the child of another graph.
  bool IsCoupledGraph() const override { return FIsCoupledGraph; }

  /// A gesture is running: a frame, a pan, a pinch. Ends are not rounded during the latter two.
  bool Zooming() const { return FZooming; }
  bool Panning() const override { return FPanning; }
  bool Pinching() const override { return FPinching; }
  void SetPanning(bool Value);
  /// While the graph paints for a printer or a file: places of ticks and grid lines keep their fractions.
  bool DoingMetafile() const override { return FDoingMetafile; }
  void SetDoingMetafile(bool Value) { FDoingMetafile = Value; }
  /// While TestPrimaryAxis makes the default axes.
  bool DoingPrimary() const override { return FDoingPrimary; }
  /// While the graph reads its record; axes ignore changes of ranges then.
  bool LoadingRecord() const override { return FLoadingRecord; }
  bool NeedsRecalculate() const { return FNeedsRecalculate; }
  /// Whether solids are drawn with walls behind them: there is a data area in a colour of its own, or a grid.
  bool ShowsWalls() const override;

  /// While the form is designed, a new graph gets dashed grids, and its axes the undo stack of the graph.
  void SetName(const std::string& Value) override;

  // For series.
  int SeriesCount() const override { return static_cast<int>(FRelatedSeries.size()); }
  void ForEachSeries(const std::function<void(TZySeries& Series)>& Do) const override;
  void SeriesInvalidated() override;
  bool DrawsUnsmoothed() const override { return !DoingImage() && SmoothingMode() == TZySmoothingMode::None; }

  // For axes and the layout pass.
  TWinControl& Control() override { return *this; }
  void BeginUpdate() override { TZyCustomGraph::BeginUpdate(); }
  void EndUpdate() override { TZyCustomGraph::EndUpdate(); }
  bool Updating() const override { return TZyCustomGraph::Updating(); }
  void EndUserZoom(bool Horizontal) override;
  bool MayScroll(bool Horizontal) const override;
  bool HasBorder() const override { return BorderStyle() == bsSingle; }
  std::vector<TZyAxis*> AxesToLayOut() const override { return AllAxes(); }
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
  void Notification(TComponent* AComponent, TOperation Operation) override;
  void BoundsChanged() override;
  void PaintOverlay(Graphics& Gr) override;

 private:
  /// How solids turn the data area into a room: pixels from the front to the back, and where floor and side wall meet
  /// the front.
  struct TRoom {
    float DepthX = 0;
    float DepthY = 0;
    float Floor = 0;
    float Wall = 0;
    bool IsOpen = false;   // there are solids
    bool HasGrid = false;  // any grid is shown
    bool HasAxisAtRight = false;
  };

  std::unique_ptr<TZyLineSettings> MakeLine(TZyColor Color);
  TScrollBar* MakeScrollBar(TScrollBarKind Kind);
  void ShowScrollBars();
  std::vector<TZyLineSettings*> Lines() const;
  void SetMargin(float& Field, float Value, TZyText Label, const char* PropName);
  void SeriesPoll();
  std::vector<TZyGraph2D*> StackedGraphs();
  int HeightInImage() const;
  bool PrepareImage();
  void PaintPicture(Graphics& Gr, float X, float Y);
  void PaintInto(Graphics& Gr, bool AsMetafile);
  Metafile Recorded();
  Bitmap PaintedBitmap(bool RemoveTransparency, TColor Ground);
  bool PreparePaint();
  void CalculateWhenDirty();
  void CalculateCoupled();
  bool HasDataAreaColor() const;
  TRoom FindRoom() const;
  void PaintBackground(Graphics& Gr);
  void PaintDataArea(Graphics& Gr, const TRoom& Room);
  void PaintWalls(Graphics& Gr, const TRoom& Room);
  void PaintVerticalGrid(Graphics& Gr, const TRoom& Room) const;
  void PaintHorizontalGrid(Graphics& Gr, const TRoom& Room) const;
  void PaintRoomEdges(Graphics& Gr, const Pen& EdgePen, const TRoom& Room) const;
  float GridPlace(float Tick) const;
  template <class TDraw>
  void PaintClippedToData(Graphics& Gr, const TDraw& Draw);
  RectF DataClip() const;
  void PaintFrame(Graphics& Gr) const;
  void PaintAxes(Graphics& Gr);
  void PaintLegends(Graphics& Gr);
  template <class TPart>
  void PaintMoved(Graphics& Gr, const TControl& Control, const TPart& Part);

  // Zoom and gestures.
  struct TZoomRange;  // what an axis is to show
  TZyGraph2D* MasterGraph() const;
  std::vector<TZyGraph2D*> CoupledGraphs() const;
  template <class TDo>
  void OnCoupledAxes(const TDo& Do);
  template <class TDo>
  void WalkStages(const TDo& Do);
  void AddStage();
  void NoteEnds();
  void BeginScale(TPoint Place);
  bool ScaleBy(double Factor);
  void EndScale();
  void TakeFrameEdges(const RectF& Frame, std::vector<TZoomRange>& Ranges) const;
  void TakeFramePoints(const RectF& Frame, std::vector<TZoomRange>& Ranges) const;
  void Fire(const TNotifyEvent& Event);
  void InvalidateFrame();
  void EndFrame();
  void StartPan();
  bool PanByPad(double Dx, double Dy);
  void PinchBy(TPoint Place, double Scale);
  bool EndPadGesture();
  void SetPinching(bool Value);
  void PanBy(double Dx, double Dy);
  void EndPan();
  void ShowMove();
  void CancelGesture();
  void ZoomStep(TPoint Place, double Factor);
  bool UseKey(TKey Key, TShiftState Shift);

  TZyColor FDataAreaColor = Colors::Transparent;
  TZyGradientSettings FDataAreaGradient;
  std::unique_ptr<TZyLineSettings> FDataAreaFrame;
  std::unique_ptr<TZyLineSettings> FMajorGridHorizontal, FMinorGridHorizontal;
  std::unique_ptr<TZyLineSettings> FMajorGridVertical, FMinorGridVertical;
  TRef<TZyAxis> FPrimaryXAxis{this}, FPrimaryYAxis{this};
  float FDistanceBorderAxisTop = 0;
  float FDistanceBorderAxisBottom = 0;
  float FDistanceBorderAxisLeft = 0;
  float FDistanceBorderAxisRight = 0;
  bool FZeroOrigin = false;
  bool FZooming = false;
  bool FPanning = false;
  bool FDoHScrollBar = false;
  bool FDoVScrollBar = false;
  bool FDoingMetafile = false;
  bool FDoingPrimary = false;
  bool FLoadingRecord = false;
  bool FIsCoupledGraph = false;
  bool FTellingLegends = false;
  bool FCalculatingCoupled = false;
  bool FOnce = true;
  TZyZoomSettings FZoom{*this};
  TScrollBar* FHorizontalScrollBar = nullptr;
  TScrollBar* FVerticalScrollbar = nullptr;
  TNotifyEvent FOnBeginZoom, FOnEndZoom, FOnBeginPanning, FOnEndPanning;
  TPoint FDragStart, FDragEnd;  // of the mouse gesture, in client pixels
  TCursor FSavedCursor = crDefault;
  std::vector<double> FPanStarts, FPanStops;  // ends of each axis of FAxes when the gesture began, on its scale
  std::vector<double> FScalePlaces;           // of each axis, the place that stays; not a number for an axis that does
  PointF FPadWay;                             // of a pan on the touch pad, in pixels
  double FPinchScale = 1;
  bool FPanIsMouse = false;
  bool FPinching = false;
  int FWheelTurn = 0;  // of a notch that is not complete
  TRect FLastClip;     // of the previous paint
  RectF FDrawingArea;
  std::vector<TZySeries*> FRelatedSeries;
  std::vector<TZyAxis*> FAxes;
  std::vector<TZyGraph2D*> FChildGraphs;
};

}  // namespace zy
