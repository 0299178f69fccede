#pragma once

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "annotations/captions/ZyCaptionOfName.h"
#include "annotations/captions/ZyRichCaption.h"
#include "axes/ZyAxis.h"
#include "graph/parts/ZyAxisSeries.h"
#include "graph/styles/ZyStyles.h"
#include "persistence/ZyRecord.h"
#include "platform/drawing/Region.h"
#include "platform/framework/TRef.h"
#include "series/ZyDataState.h"
#include "series/ZyPixelIndex.h"
#include "series/ZyPointVector.h"
#include "series/ZySeriesEvents.h"
#include "series/ZySeriesInput.h"
#include "series/ZyStyleObject.h"
#include "series/vectors/ZyCustomDoubleVector.h"
#include "series/vectors/ZyIndexer.h"
#include "texts/ZyLocalize.h"
#include "undo/ZyChange.h"
#include "undo/ZyUndoLink.h"

namespace zy {

class Graphics;
class IZySnappingMarker;
class TZyFunctionSeries;
class IZyAxisGraph;
class IZySeriesGraph;
class TZyLineSeries;
class TZyUndoStack;

/// Base of everything that shows data in a TZyGraph2D: a component that refers to vectors and two axes, and turns them
/// into ranges for the axes and a list of pixels to draw.
///
/// A series joins its graph by itself as soon as it has both axes and its vectors, and leaves it when it loses them.
/// With one of X and Y alone, the other direction is the index of the value. Nothing is computed when data change: the
/// next Calculate takes the ranges, the next paint the pixels.
///
/// A point has values when all that its vectors hold for it are finite and, unless outliers are shown, no outliers. All
/// others are left out as if they were not there: a line goes straight across them.
///
/// A further kind of series has its vectors as members of the class TZySeriesInput, and overrides hooks: `TakeRanges`
/// for the ranges of the points, `TakePixels` for the pixels of a stretch of indexes, `DrawPoints` for the drawing of
/// the points that were kept, `AddSampleData` for the form designer.
class TZySeries : public TComponent,
                  public TZyRecord,
                  public IZyAxisSeries,
                  public IZyVectorReader,
                  public IZyUndoUser,
                  public IZyUndoPlace,
                  public TZyVariableContainer {
  ZY_CLASS(TZySeries, TComponent)
  explicit TZySeries(TComponent* Owner = nullptr);
  ~TZySeries() override;

  // ---- Properties ----

  bool Visible() const { return FVisible; }
  void SetVisible(bool Value);
  /// Text for legends and for Diagnose. At first it is the first name that is free for the class, so that series
  /// without names are called alike. Trailing blanks are dropped.
  const TZyRichCaption& Caption() const { return FCaption; }
  void SetCaption(const TZyRichCaption& Value);
  bool IncludeInLegend() const { return FIncludeInLegend; }
  void SetIncludeInLegend(bool Value);
  /// The series that shares this one's item in legends.
  TZySeries* MergeLegendItemWith() const { return FMergeLegendItemWith; }
  void SetMergeLegendItemWith(TZySeries* Value);
  /// Whether the graph takes this series' new data by itself, without a call of the application.
  bool AutoUpdate() const { return FAutoUpdate; }
  void SetAutoUpdate(bool Value) { FAutoUpdate = Value; }
  /// Whether outliers count as data.
  bool OutliersVisible() const { return FOutliersVisible; }
  void SetOutliersVisible(bool Value);
  TZyAxis* XAxis() const { return FXAxis; }
  virtual void SetXAxis(TZyAxis* Value);
  TZyAxis* YAxis() const { return FYAxis; }
  virtual void SetYAxis(TZyAxis* Value);
  /// The data; one of the two may be the series' own indexer. Null does not remove the indexer, which stands in as long
  /// as the other vector is there.
  TZyCustomDoubleVector* XData() const override { return FX.Vector(); }
  void SetXData(TZyCustomDoubleVector* Value) { SetInput(FX, Value); }
  TZyCustomDoubleVector* YData() const override { return FY.Vector(); }
  void SetYData(TZyCustomDoubleVector* Value) { SetInput(FY, Value); }
  /// Whether the data of a direction are a vector, and not the index that stands in for one.
  bool HasOwnXData() const { return HasOwnData(FX); }
  bool HasOwnYData() const { return HasOwnData(FY); }
  TZyLineSettings& Line() { return *FLineSettings; }
  /// What lies below the line, down to the start of the Y axis or to 0. Hidden at first.
  TZyAreaSettings& Area() { return *FAreaSettings; }
  /// The area goes to the line of this series instead, and is made visible by the next paint.
  TZyLineSeries* DrawBandTo() const;
  void SetDrawBandTo(TZyLineSeries* Value);
  /// Events that turn the values of the vectors into those that the axes show. A point whose value becomes one that is
  /// not finite is left out of ranges and pixels.
  const TZyValueTransformation& XValueTransformation() const { return FX.Transformation(); }
  void SetXValueTransformation(TZyValueTransformation Value) { SetTransformation(FX, std::move(Value)); }
  const TZyValueTransformation& YValueTransformation() const { return FY.Transformation(); }
  void SetYValueTransformation(TZyValueTransformation Value) { SetTransformation(FY, std::move(Value)); }
  /// Asked for the pen of each segment of the line, and the brush of the area below it. They may free the series.
  const TZyPenEventHandler& OnGetPen() const { return mGetPen; }
  void SetOnGetPen(TZyPenEventHandler Value);
  const TZyBrushEventHandler& OnGetBrush() const { return mGetBrush; }
  void SetOnGetBrush(TZyBrushEventHandler Value);
  /// Place in the drawing order, lower first. The graph renumbers all layers from 0, which is no step of undo.
  int Layer() const { return FLayer; }
  void SetLayer(int Value);
  void Renumber(int Value) { FLayer = Value; }
  /// Place in the drawing order among the series of the graph, from 0; without a graph the layer. It is what undo
  /// brings back of a layer, since the numbers of all others may have changed silently meanwhile.
  int Place() const override;
  void SetPlace(int Value) override;
  TZyUndoStack* UndoStack() const override { return FUndo; }
  void SetUndoStack(TZyUndoStack* Value) override;
  /// Pen and brush that draw line and area: those of the settings, or in their place ones of the caller's, which stay
  /// the caller's and must outlive the series. Null goes back to the settings.
  const TZyPen* LinePen() const { return FPen.Get(); }
  void SetLinePen(const TZyPen* Value);
  const Brush* AreaBrush() const { return FBrush.Get(); }
  void SetAreaBrush(const Brush* Value);

  // ---- Data ----

  /// Number of points: the smallest count of the vectors that every point needs, 0 when one is missing.
  virtual int GetCount();
  /// Fewest points that there is something to show of.
  virtual int MinCount() const;
  /// The number of points as of the last Calculate, or less when data went since.
  int Count() const { return FState.Count(); }
  int LastCount() const { return FState.LastCount(); }
  virtual bool HasValuesAt(int Idx) const;
  /// The first index from First on that has no values because it is marked as an outlier; the largest int for none.
  int NextOutlier(int First) const;
  /// Whether there is anything to show: visible, with a line, an area or symbols.
  bool SeriesVisible() const override;
  /// The value as the axis sees it: Value, or what the event makes of it.
  double TransformX(double Value, int Idx) const override { return FX.Transform(Value, Idx); }
  double TransformY(double Value, int Idx) const override { return FY.Transform(Value, Idx); }
  /// The data range as the axes read it; a start above its stop means that there is none.
  double XStart() const override { return FXStart; }
  double XStop() const override { return FXStop; }
  double YStart() const override { return FYStart; }
  double YStop() const override { return FYStop; }
  /// Whether an axis is logarithmic and has no place for some of the data: these are drawn before its start.
  bool LeavesScaleOf(const TZyAxis& Axis) const;
  /// The lowest place on an axis at which something of the points is drawn.
  virtual double LowestOn(const TZyAxis& Axis) const;
  /// A sentence that says why nothing of the series is to be seen, with its name in front; empty when something is.
  /// True as of the last paint.
  std::string Diagnose() const;
  /// Y at AtX by linear interpolation between the neighbouring points, in values of the vectors. 0 without points.
  virtual double GetY(double AtX) const;
  /// The caption, or the name of the component without one.
  const std::string& ToString() const { return FCaption.empty() ? Name() : FCaption; }

  /// What a screen reader says of it: caption or name, kind, number of points, and their range in X and Y, as of the
  /// last paint.
  std::string AccessibleText() const;

  /// The vectors that the series reads, null for those that are not there.
  std::vector<TZyCustomDoubleVector*> Vectors() const;

  // ---- Pixels, in client coordinates of the graph, as the last paint computed them ----

  /// The pixels of the line.
  std::span<const PointF> Points() const { return FPoints.Values().first(static_cast<std::size_t>(FPointCount)); }
  /// Data index of each of them.
  std::span<const int> PointIndex() const { return FPointIndex.Values().first(static_cast<std::size_t>(FPointCount)); }
  /// The line and what closes its area.
  std::span<const PointF> AreaPoints() const {
    return FPoints.Values().first(static_cast<std::size_t>(FAreaPointCount));
  }
  bool RecalculatePoints() const { return FState.PixelsAreStale(); }
  /// Data index of the first point of the line within Delta pixels of a place both ways; -1 for none, and always while
  /// the pixels are out of date. Without Delta it is the size of the symbols, or 1.
  virtual int FindPoint(int X, int Y, float Delta) const;
  virtual int FindPoint(int X, int Y) const;
  /// The point nearest to a place, or in one direction alone, among those within the data area; the first of equally
  /// near ones.
  TZyNearestPointResult NearestPoint(PointF FromPosition) const;
  TZyNearestPointResult NearestX(float FromX) const;
  TZyNearestPointResult NearestY(float FromY) const;

  /// Values of a point by its data index and its pixel: those of the data, transformed, or for a curve that has none of
  /// its own those at the pixel, with an index of -1.
  struct TPointValues {
    int Index = -1;
    double X = 0, Y = 0;
  };
  virtual TPointValues ValuesOfPixel(int Index, float PixelX) const;

  // ---- What graph and axes call ----

  TComponent& Component() override { return *this; }
  /// Takes new data into the ranges; costs a comparison of counts when there are none.
  virtual void Calculate();
  /// Reads what a database changed.
  virtual void CheckDBVectors();
  /// Maps the data to pixels. Without symbols at most some points for each pixel column, however many values there are.
  virtual void CalculatePoints();
  virtual void PaintGr(Graphics& Gr);
  /// Draws the symbols of the points; the graph calls it after frame and axes, so that they lie on top.
  virtual void DrawSymbols(Graphics& Gr);
  /// Pixels by which the drawing reaches beyond its data at a side of the data area: half a symbol.
  float ExtraSpaceAt(TZyAxisPosition Border) const override;
  /// Whether the line is long, plain and opaque, and nothing is smoothed: the kind that is drawn without smoothing in
  /// whole pixels, and that a partial repaint has to follow up with a whole one.
  bool CanDoCanvasDraw() const;
  /// Follows a change of visibility or style; the graph calls it at each of its calculations.
  virtual void TestVisibleChanged();
  /// Joins or leaves graph and axes, as the references allow.
  void TestAllAssigned() override;
  /// Whether it stands in the list of a graph.
  bool HasGraph() const { return Graph() != nullptr; }
  /// Leaves graph and axes, to which the references go on to stand, until TestAllAssigned runs again.
  void LeaveGraph();
  /// Takes the primary axes of a graph as they are, without a step of undo, and joins it when the data are there. See
  /// TZyGraph2D::AddSeries.
  void SetDefaultAxis(IZyAxisGraph& FromGraph);

  // ---- Variables of formulas and captions ----

  /// Enters what they can name of the series, "Name" and "Caption", into the list of text variables. The constructor of
  /// each kind that has more calls RegisterWhenAsked.
  void RegisterVariables() override;
  std::string VariablesRef() const override;
  TZyDependentList* ObjectsToUpdate() override { return &FObjectsToUpdate; }

  // ---- Items of legends ----

  /// The height in pixels that an item asks for.
  virtual float GetItemHeight() const;
  virtual void DrawListItem(const TZyLegendItemDrawArgs& e, LegendItemStyle Style);
  virtual void DrawListItem(const TZyLegendItemDrawArgs& e);
  /// One item for this series and its partner.
  void DrawMergedItems(const TZyLegendItemDrawArgs& e);

  // ---- Change protocol ----

  /// Repaints the graph and its legends.
  void Invalidate();
  /// Makes the series begin anew: ranges, points, axes.
  void RangesModified();
  /// The pixels are out of date.
  void PointsModified();
  /// Lowers the count of points that are known to ranges and pixels, never raises it.
  void SetLastCount(int Value);
  /// Exchanges X and Y data, with their transformations, and tells nobody.
  void SwapDataVecs();
  /// What happens to the markers that snapped to points of this series when points go, or one goes or comes.
  void ClearLinkedMarkers();
  void DeleteLinkedMarkers(int Idx, int Number = 1);
  void ValueInsertedLinkedMarkers(int Idx, int Number = 1);

  void DataReset() override;
  void DataInvalidated() override;
  void DataCleared(const TZyCustomDoubleVector& Vector, bool WithLinkedMarkers) override;
  void DataInserted(const TZyCustomDoubleVector& Vector, int Idx, int Number) override;
  void DataDeleted(const TZyCustomDoubleVector& Vector, int Idx, int Number) override;

  /// What the record of every series has; a kind calls the inherited operation, then tells its own level.
  void Fields(TZyArchive& Archive) override;
  void SetName(const std::string& Value) override;
  void DefineProperties(TFiler& Filer) override;

 protected:
  friend class TZyPointLook;
  friend class TZySeriesInput;

  /// The range of a direction. A low end above the high one means that no point had values.
  struct TRange {
    double Low, High;
    TRange();
    TRange(double ALow, double AHigh) : Low(ALow), High(AHigh) {}
    void Take(double Value);
    void TakeLow(double Value);
    void TakeHigh(double Value);
    bool IsEmpty() const { return Low > High; }
  };

  // ---- Hooks of the kinds ----

  /// Whether the ranges are the tracked extremes of X and Y, which tell by themselves when they move. If not, every
  /// change of a value means to take the ranges anew.
  virtual bool HasTrackedRanges() const;
  /// The ranges of the points: all `Count` of them, since extremes may have gone.
  virtual void TakeRanges(TRange& X, TRange& Y);
  /// Where, in values of the X axis, points can lie that reach into it. Of ascending data the others, but for one at
  /// each end, get no pixels.
  virtual TRange ReachIntoX() const;
  /// Forgets pixels beyond the first Count in lists of the kind's own beside Points; those of the inputs go by
  /// themselves.
  virtual void KeepPixels(int) {}
  /// Appends the pixels of the points from Start to Stop.
  virtual void TakePixels(int Start, int Stop);
  /// Appends the pixels that are missing: those of the points behind the last ones.
  virtual void TakeNewPixels();
  /// Draws the points that were kept; there are some.
  virtual void DrawPoints(Graphics& Gr);
  /// Brings pixels up to date and draws; what PaintGr does for a series that is to be seen.
  void PaintPoints(Graphics& Gr);
  /// While a form is designed: fills vectors that are empty, so that a new series shows.
  virtual void AddSampleData();
  void BeginRead() override { FReadsRecord = true; }
  void EndRead() override;

  /// Chooses the axes that SetDefaultAxis gives.
  virtual void TakeDefaultAxis(IZyAxisGraph& FromGraph);
  /// What Diagnose says of a visible series in a graph that has no points to show.
  virtual std::string WhyNoRange() const;
  /// The same of one whose points lie in what its axes show.
  virtual std::string WhyNothingDrawn() const;

  // ---- What hooks are written with ----

  std::string WhyNoPoints() const;

  /// While the record of the series or of its graph is read: what it stores is no choice of a designer, who gets
  /// samples where data are missing.
  bool ReadsRecord() const;

  /// The setter of an input: undo, joining and leaving.
  void SetInput(TZySeriesInput& Input, TZyCustomDoubleVector* Value);
  void SetTransformation(TZySeriesInput& Input, TZyValueTransformation Value);
  /// The setter of what changes the look alone, in the chart and in its legends.
  template <class TField, class TValue>
  void SetLook(TField& Field, TValue Value, const char* PropName) {
    Change(this, Field, Value, PropName, &TZySeries::LookModified);
  }
  /// The setter of an axis. Without a name there is no undo.
  void SetAxis(TRef<TZyAxis>& Field, TZyAxis* Value, const char* PropName);
  /// Does something with each index from First up to, but not including, Last that has values.
  template <class TDo>
  void ForEachPoint(int First, int Last, const TDo& Do) const {
    const bool MayLack = MayLackValues();
    int Outlier = NextOutlier(First);
    for (int i = First; i < Last; ++i) {
      if (i == Outlier)
        Outlier = NextOutlier(i + 1);
      else if (!MayLack || HasValuesAt(i))
        Do(i);
    }
  }
  /// Does something with each stretch of indexes from First up to, but not including, Last that holds no outlier that
  /// is to be left out. Whether values are finite is not asked.
  template <class TDo>
  void ForEachStretch(int First, int Last, const TDo& Do) const {
    for (int From = First; From < Last;) {
      const int To = std::min(NextOutlier(From), Last);
      if (From < To) Do(From, To);
      From = To + 1;
    }
  }
  /// Whether points may be without values that are no outliers.
  bool MayLackValues() const;
  /// Data index of the first kept point whose number Fits; -1 for none, and while pixels are out of date.
  template <class TFits>
  int FirstPoint(const TFits& Fits) const {
    const std::size_t Number = FState.PixelsAreStale() ? 0 : Points().size();
    for (std::size_t i = 0; i < Number; ++i)
      if (Fits(i)) return PointIndex()[i];
    return -1;
  }
  /// Empties the list of pixels.
  void ForgetPixels();
  /// Keeps a pixel with its data index.
  void Keep(const PointF& Pixel, int Idx);
  /// Keeps the points from First up to, but not including, Last; their pixels are to be written.
  std::span<PointF> KeepStretch(int First, int Last);
  /// Pixel of a data point.
  PointF GetCalcPoint(int Idx) const;
  /// The smallest value above 0 of an input, whatever lies behind the last point included; Otherwise when there is
  /// none.
  double SmallestPositive(const TZySeriesInput& Input, double Otherwise) const;
  /// The smallest value of an input by its tracked extremes; the largest double for none.
  double LowestOf(const TZySeriesInput& Input) const { return TransformedExtremes(Input, Input).Low; }
  /// Range of an input by its tracked extremes, as far as they are those of the points.
  TRange RangeOf(TZySeriesInput& Input, const TZySeriesInput& Other, const TZyAxis& Axis) const;
  void SetRange(TZyAxis& Axis, double& Start, double& Stop, const TRange& Range);
  /// What ends every Calculate that took new ranges.
  void RangesTaken();
  /// Counts anew. Whether there are points that the ranges do not know yet, and enough of them.
  bool TakeCount();
  void LegendsModified();
  void LookModified();
  /// Fills a vector, if it is an empty one for values. Whether it was.
  static bool FillValues(TZyCustomDoubleVector* Data, std::span<const double> Values);
  /// A vector's sample data: the start of the axis, nine values that scatter by a part of a step, its stop.
  static bool FillSample(TZyCustomDoubleVector* Data, double Start, double Step, double Scatter, double Stop);
  /// Number values from Size up to twice that. Whether the vector was empty.
  static bool FillRandom(TZyCustomDoubleVector* Data, int Number, double Size);
  static double Random();
  /// Changes settings without a step of undo, for what is no change of the user's.
  template <class TDo>
  void Silently(TZyStyleSettings& Settings, const TDo& Do) {
    struct TSilence {
      TZyStyleSettings& Settings;
      TZyUndoStack* Stack;
      ~TSilence() { Settings.SetUndoStack(Stack); }
    } const Silence{Settings, FUndo};
    Settings.SetUndoStack(nullptr);
    Do();
  }

  void Notification(TComponent* AComponent, TOperation Operation) override;
  /// Area and line, for at least as many points as it takes.
  virtual void DrawLine(Graphics& Gr);
  virtual int FewestPointsOfLine() const { return 2; }
  /// The first and the last data index to draw; points beyond the X axis are left out.
  virtual void GetCalcPointsStartStop(int& Start, int& Stop) const;
  /// Closes the area below the line, or to the line of the band's partner.
  virtual void AddBandPoints();
  /// The graph, null while the series is in none.
  IZySeriesGraph* Graph() const { return FGraphControl == nullptr ? nullptr : FGraph; }
  /// A number that is another one whenever the pixels were computed anew.
  int PixelsVersion() const { return FPixelsVersion; }
  /// Whether pen and brush follow the settings.
  bool OwnsPen() const { return FPen.IsOwn(); }
  bool OwnsBrush() const { return FBrush.IsOwn(); }
  /// Puts other settings in the place of those of the line, as a kind with more than a line has.
  void ReplaceLine(std::unique_ptr<TZyLineSettings> Value);

  /// For the constructors of the kinds: the caption that a series has until one is set, and at design time its axes.
  void Initialize(std::string_view KindName);

  // What the kinds with point symbols publish.
  TZyPointSymbolSettings& PointSymbol() { return *FPointSymbolSettings; }
  TZyPointSymbolSettings& OutOfRangePointSymbol() { return *FOutOfRangeSymbolSettings; }
  TZyFunctionSeries* RangeFromFunction() const;
  void SetRangeFromFunction(TZyFunctionSeries* Value);
  const PointSymbolEventHandler& OnGetPointSymbol() const { return mPointSymbol; }
  void SetOnGetPointSymbol(PointSymbolEventHandler Value);
  const TZyPen* SymbolBorderPen() const { return FSymbolPen.Get(); }
  void SetSymbolBorderPen(const TZyPen* Value);
  const Brush* SymbolFillBrush() const { return FSymbolBrush.Get(); }
  void SetSymbolFillBrush(const Brush* Value);

  float SymbolSize() const { return FPointSymbolSettings->Size(); }

  bool FDoPointSettingsStorage = false;  // the kind has point symbols, and stores their settings
  std::unique_ptr<TZyIndexer> FIndexer;  // made when it is needed first
  std::vector<TZySeriesInput*> FInputs;  // in the order of the members; above them, since they enter it
  TZySeriesInput FX{*this, "XData", TZyInputUse::Coordinate};
  TZySeriesInput FY{*this, "YData", TZyInputUse::Coordinate};
  TRef<TZyAxis> FXAxis{this, &TZySeries::SetXAxis}, FYAxis{this, &TZySeries::SetYAxis};
  double FXStart, FXStop, FYStart, FYStop;
  TZyDataState FState;
  int FPointCount = 0;  // pixels of the line
  TZyPointVector FPoints;
  TZyIntegerVector FPointIndex;

 private:
  class TPixelBlocks;
  class TReducedPixels;
  struct TReducedPixel {
    PointF Pixel;
    int Index;
    float Column;  // its middle
  };

  void EnterInput(TZySeriesInput& Input);
  void LeaveInput(TZySeriesInput& Input);
  template <class TStore>
  void ChangeJoining(const char* PropName, const TStore& Store);
  bool Reads(const TZyCustomDoubleVector* Vector, const TZySeriesInput* But = nullptr) const;
  bool HasOwnData(const TZySeriesInput& Input) const { return Input && Input.Vector() != FIndexer.get(); }
  /// What a record names: no index, be it the series' own or that of another one.
  static TZyCustomDoubleVector* StoredVector(const TZySeriesInput& Input) {
    return dynamic_cast<TZyIndexer*>(Input.Vector()) == nullptr ? Input.Vector() : nullptr;
  }
  void SymbolFields(TZyArchive& Archive);
  bool IsComplete() const;
  std::string WhyNotJoined() const;
  std::string WhyNotOn(const TZyAxis& Axis, double Low, double High) const;
  void PointIndexer();
  void SetGraph(IZySeriesGraph* Value);
  void JoinGraph();
  void ForgetRanges();
  void LayerModified();
  void SetBand(TZySeries* Value);
  void SetFunction(TZySeries* Value);

  // Ranges.
  TRange TransformedExtremes(const TZySeriesInput& Input, const TZySeriesInput& Other) const;
  TRange SearchRange(const TZySeriesInput& Input, const TZySeriesInput& Other) const;
  std::vector<IZySnappingMarker*> LinkedMarkers() const;
  void CheckLinkedMarkers();

  // Pixels.
  bool HasPixelAt(int Idx) const;
  bool HasGapsBeside() const;
  bool MayReduce(int Start, int Stop) const;
  void ReduceToColumns(int Start, int Stop);
  void ReduceColumn(int First, int Last, float Centre, int& Outlier);
  template <class TPixels>
  void ThinToLine(TPixels& Pixels, int Start, int Stop);
  void ThinToSymbols(TPixelBlocks& Pixels, int Start, int Stop);
  const TZySeries* BandPartner() const;
  bool IsBandStale() const;

  // Drawing.
  void DrawArea(Graphics& Gr);
  void DrawSegmentAreas(Graphics& Gr);
  void DrawSegments(Graphics& Gr);
  void DrawUnsmoothed(Graphics& Gr);
  float BaseLine() const;
  bool HasTranslucentSymbols() const;
  bool SymbolsCoverThemselves() const;
  void ShootHolesToClip(Graphics& Gr);
  /// What every symbol out of range is drawn with, whatever colours its settings have.
  static const TZyPen& OutOfRangePen();
  static const Brush& OutOfRangeBrush();
  bool IsInRange(std::size_t Pixel) const;
  void DrawAskedSymbols(Graphics& Gr);

  // Hit tests.
  TZyNearestPointResult Nearest(PointF From, TZyPixelIndex::TMetric Metric) const;

  bool FVisible = true;
  bool FAutoUpdate = true;
  bool FOutliersVisible = false;
  bool FLastVisible = true;
  bool FIncludeInLegend = true;
  bool FCalculatingPoints = false;
  bool FReadsRecord = false;
  bool FPointsForSymbols = false;  // whether the pixels were computed for symbols
  TRef<TZySeries> FMergeLegendItemWith{this, &TZySeries::SetMergeLegendItemWith};
  TRef<TZySeries> FRangeFromFunction{this, &TZySeries::SetFunction}, FDrawBandTo{this, &TZySeries::SetBand};
  TRef<TWinControl> FGraphControl{this};  // the graph, for the notice of its death
  IZySeriesGraph* FGraph = nullptr;       // the same; see Graph
  TZyUndoLink FUndo{this, &TZySeries::SetUndoStack};
  TZyPenEventHandler mGetPen;
  TZyBrushEventHandler mGetBrush;
  PointSymbolEventHandler mPointSymbol;
  std::unique_ptr<TZyLineSettings> FLineSettings;
  std::unique_ptr<TZyAreaSettings> FAreaSettings;
  std::unique_ptr<TZyPointSymbolSettings> FPointSymbolSettings, FOutOfRangeSymbolSettings;
  TZyStyleObject<TZyPen> FPen, FSymbolPen;
  TZyStyleObject<Brush> FBrush, FSymbolBrush;
  float FLastSymbolSize = 0;
  float FLastItemHeight = 1;  // of a plain line
  TZyRichCaption FCaption;
  TZyCaptionOfName FCaptionOfName;
  TZyDependentList FObjectsToUpdate;  // what shows values of the series
  int FLayer = 0;
  int FAreaPointCount = 0;              // pixels with those that close the area
  int FPixelsVersion = 0;               // goes up whenever the pixels are computed
  int FPartnerVersion = -1;             // that of the band's partner when the band was closed; -1 for a baseline
  std::vector<PointF> FWholePixels;     // rounded, for the unsmoothed line; kept for its memory
  std::vector<TReducedPixel> FReduced;  // what the columns of pixels were reduced to; kept for its memory
  mutable TZyPixelIndex FPixelIndex;
};

}  // namespace zy
