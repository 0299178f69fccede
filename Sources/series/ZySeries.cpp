#include "series/ZySeries.h"

#include <array>
#include <limits>

#include "graph/parts/ZyGraphDialogs.h"
#include "graph/parts/ZySeriesGraph.h"
#include "persistence/ZyIO.h"
#include "platform/framework/TPropInfo.h"
#include "platform/framework/TReader.h"
#include "platform/framework/TWriter.h"
#include "series/ZyFunctionSeries.h"
#include "undo/ZyChange.h"

namespace zy {
namespace {

constexpr double LargestDouble = std::numeric_limits<double>::max();

/// How a new series looks.
struct TLook {
  TZyColor Line;
  TZyPointSymbol Symbol;
  TZyColor Border, Fill;
};

/// New series walk through these, whatever their kind.
const TLook& NextLook() {
  static constexpr TLook Looks[] = {{Colors::Red, TZyPointSymbol::Circle, Colors::Blue, Colors::LightBlue},
                                    {Colors::Green, TZyPointSymbol::Square, Colors::DarkRed, Colors::LightCoral},
                                    {Colors::Blue, TZyPointSymbol::Diamond, Colors::DarkGreen, Colors::LightGreen},
                                    {Colors::Maroon, TZyPointSymbol::FiveStar, Colors::Chocolate, Colors::Yellow},
                                    {Colors::DarkGreen, TZyPointSymbol::Delta, Colors::Brown, Colors::BurlyWood},
                                    {Colors::DarkBlue, TZyPointSymbol::Nabla, Colors::DarkCyan, Colors::LightCyan}};
  static std::size_t Counter = 0;
  if (Counter >= std::size(Looks)) Counter = 0;
  return Looks[Counter++];
}

void TakeLook(TZyPointSymbolSettings& Settings, TZyPointSymbol Symbol, TZyColor Border, TZyColor Fill) {
  Settings.SetVisible(false);
  Settings.SetPointSymbol(Symbol);
  Settings.SetBorderColor(Border);
  Settings.SetFillColor(Fill);
}

}  // namespace

// What only some kinds publish is hidden here; they name it.
ZY_PUBLISHED(TZySeries, TComponent, Published<&Self::Visible, &Self::SetVisible>("Visible", true, _sSeriesVisible),
             Published<&Self::Caption, &Self::SetCaption>("Caption", _sSeriesCaption),
             Published<&Self::IncludeInLegend, &Self::SetIncludeInLegend>("IncludeInLegend", true,
                                                                          _sSeriesIncludeInLegend),
             Published<&Self::MergeLegendItemWith, &Self::SetMergeLegendItemWith>("MergeLegendItemWith"),
             Published<&Self::AutoUpdate, &Self::SetAutoUpdate>("AutoUpdate", true).Hidden(),
             Published<&Self::OutliersVisible, &Self::SetOutliersVisible>("OutliersVisible", false,
                                                                          _sSeriesOutliersVisible)
                 .Hidden(),
             Published<&Self::XAxis, &Self::SetXAxis>("XAxis", _sSeriesXAxis).Hidden(),
             Published<&Self::YAxis, &Self::SetYAxis>("YAxis", _sSeriesYAxis).Hidden(),
             Published<&Self::XData, &Self::SetXData>("XData", _sSeriesXData).StoredIf<&Self::HasOwnXData>().Hidden(),
             Published<&Self::YData, &Self::SetYData>("YData", _sSeriesYData).StoredIf<&Self::HasOwnYData>().Hidden(),
             Published<&Self::Line>("Line").Hidden(), Published<&Self::Area>("Area").Hidden(),
             Published<&Self::DrawBandTo, &Self::SetDrawBandTo>("DrawBandTo").Hidden(),
             Published<&Self::XValueTransformation>("XValueTransformation").Hidden(),
             Published<&Self::YValueTransformation>("YValueTransformation").Hidden(),
             Published<&Self::OnGetPen>("OnGetPen").Hidden(), Published<&Self::OnGetBrush>("OnGetBrush").Hidden(),
             Published<&Self::PointSymbol>("PointSymbol").Hidden(),
             Published<&Self::RangeFromFunction, &Self::SetRangeFromFunction>("RangeFromFunction").Hidden(),
             Published<&Self::OutOfRangePointSymbol>("OutOfRangePointSymbol").Hidden(),
             Published<&Self::OnGetPointSymbol>("OnGetPointSymbol").Hidden(),
             Published<&Self::Layer, &Self::SetLayer>("Layer", _sSeriesLayering).Hidden(),
             Published<&Self::Place, &Self::SetPlace>("Place", _sSeriesLayering).Hidden())

TZySeries::TZySeries(TComponent* Owner)
    : TComponent(Owner),
      FXStart(LargestDouble),
      FXStop(-LargestDouble),
      FYStart(LargestDouble),
      FYStop(-LargestDouble),
      FLineSettings(std::make_unique<TZyLineSettings>([this] { TestVisibleChanged(); })),
      FAreaSettings(std::make_unique<TZyAreaSettings>([this] { TestVisibleChanged(); })),
      FPointSymbolSettings(std::make_unique<TZyPointSymbolSettings>([this] { TestVisibleChanged(); })),
      FOutOfRangeSymbolSettings(std::make_unique<TZyPointSymbolSettings>([this] { TestVisibleChanged(); })) {
  const TLook& Look = NextLook();
  FLineSettings->SetColor(Look.Line);
  TakeLook(*FPointSymbolSettings, Look.Symbol, Look.Border, Look.Fill);
  TakeLook(*FOutOfRangeSymbolSettings, Look.Symbol, Colors::DimGray, Colors::LightGray);
  FSymbolPen.SetOwn(std::make_shared<TZyPen>(Look.Border));
  FSymbolBrush.SetOwn(std::make_shared<SolidBrush>(Look.Border));
  RegisterWhenAsked();
}

void TZySeries::Initialize(std::string_view KindName) {
  FCaption = UniqueName(Owner(), KindName.substr(1));  // the name of the class without its first letter
  if (!IsDesigning() || Owner() == nullptr) return;
  for (TComponent* Component : Owner()->Components())
    if (auto* const Found = dynamic_cast<IZySeriesGraph*>(Component)) {
      SetDefaultAxis(*Found);
      SetGraph(Found);
    }
}

TZySeries::~TZySeries() {
  TZySeriesInput::NoteChange();
  Destroying();
  LeaveGraph();
  DeRegisterVariables();
}

void TZySeries::SetName(const std::string& Value) {
  FCaptionOfName.Follow(*this, Value);
  TComponent::SetName(Value);
  UpdateVariablesObjects(FObjectsToUpdate);
}

std::string TZySeries::VariablesRef() const { return GetComponentRef(this); }

void TZySeries::RegisterVariables() {
  AddStringToList("Name", LoadResString(_sSeriesInternalName), this, GlobalStringList(), [this] { return Name(); });
  AddStringToList("Caption", LoadResString(_sSeriesLegendCaption), this, GlobalStringList(),
                  [this] { return Caption(); });
}

void TZySeries::DefineProperties(TFiler& Filer) {
  TComponent::DefineProperties(Filer);
  Filer.DefineProperty(
      "Layer", [this](TReader& Reader) { FLayer = static_cast<int>(Reader.ReadInteger()); },
      [this](TWriter& Writer) { Writer.WriteInteger(FLayer); }, !IsSubComponent());  // whose layer is its owner's
}

// --- Properties -----------------------------------------------------------------------------------------------------

void TZySeries::SetVisible(bool Value) {
  if (Change(this, FVisible, Value, "Visible", &TZySeries::TestVisibleChanged)) LegendsModified();
}

void TZySeries::SetCaption(const TZyRichCaption& Value) {
  if (!Change(this, FCaption, TrimRight(Value), "Caption", &TZySeries::LegendsModified)) return;
  FCaptionOfName.WasSet();
  UpdateVariablesObjects(FObjectsToUpdate);
}

void TZySeries::SetIncludeInLegend(bool Value) {
  if (Change(this, FIncludeInLegend, Value, "IncludeInLegend", &TZySeries::Invalidate)) LegendsModified();
}

void TZySeries::SetOutliersVisible(bool Value) {
  Change(this, FOutliersVisible, Value, "OutliersVisible", &TZySeries::RangesModified);
}

void TZySeries::SetMergeLegendItemWith(TZySeries* Value) {
  if (Value == this) Value = nullptr;
  if (FMergeLegendItemWith == Value) return;
  FMergeLegendItemWith = Value;
  LegendsModified();
}

TZyLineSeries* TZySeries::DrawBandTo() const { return static_cast<TZyLineSeries*>(FDrawBandTo.Get()); }

void TZySeries::SetDrawBandTo(TZyLineSeries* Value) { SetBand(Value); }

void TZySeries::SetBand(TZySeries* Value) {
  if (Value == this) Value = nullptr;
  if (FDrawBandTo == Value) return;
  FDrawBandTo = Value;
  PointsModified();
}

TZyFunctionSeries* TZySeries::RangeFromFunction() const {
  return static_cast<TZyFunctionSeries*>(FRangeFromFunction.Get());
}

void TZySeries::SetRangeFromFunction(TZyFunctionSeries* Value) { SetFunction(Value); }

void TZySeries::SetFunction(TZySeries* Value) {
  if (FRangeFromFunction == Value) return;
  FRangeFromFunction = Value;
  Invalidate();
}

void TZySeries::SetOnGetPen(TZyPenEventHandler Value) {
  mGetPen = std::move(Value);
  Invalidate();
}

void TZySeries::SetOnGetBrush(TZyBrushEventHandler Value) {
  mGetBrush = std::move(Value);
  Invalidate();
}

void TZySeries::SetOnGetPointSymbol(PointSymbolEventHandler Value) {
  mPointSymbol = std::move(Value);
  Invalidate();
}

void TZySeries::SetLayer(int Value) { Change(this, FLayer, Value, "Place", &TZySeries::LayerModified); }

int TZySeries::Place() const { return Graph() == nullptr ? FLayer : Graph()->PlaceOf(*this); }

void TZySeries::SetPlace(int Value) {
  if (Graph() == nullptr)
    FLayer = Value;
  else
    Graph()->SetPlaceOf(*this, Value);
}

void TZySeries::LayerModified() {
  if (Graph() != nullptr) Graph()->Modified();
}

void TZySeries::SetUndoStack(TZyUndoStack* Value) {
  FUndo.Set(Value);
  FLineSettings->SetUndoStack(Value);
  FAreaSettings->SetUndoStack(Value);
  FPointSymbolSettings->SetUndoStack(Value);
  FOutOfRangeSymbolSettings->SetUndoStack(Value);
}

void TZySeries::ReplaceLine(std::unique_ptr<TZyLineSettings> Value) {
  Value->SetUndoStack(FUndo);
  FLineSettings = std::move(Value);
}

void TZySeries::SetLinePen(const TZyPen* Value) {
  FPen.SetGiven(Value);
  Invalidate();
}

void TZySeries::SetAreaBrush(const Brush* Value) {
  FBrush.SetGiven(Value);
  Invalidate();
}

void TZySeries::SetSymbolBorderPen(const TZyPen* Value) {
  FSymbolPen.SetGiven(Value);
  Invalidate();
}

void TZySeries::SetSymbolFillBrush(const Brush* Value) {
  FSymbolBrush.SetGiven(Value);
  Invalidate();
}

bool TZySeries::SeriesVisible() const {
  return FVisible && (FLineSettings->Visible() || FAreaSettings->Visible() || FPointSymbolSettings->Visible());
}

void TZySeries::TestVisibleChanged() {
  if (Graph() == nullptr) return;
  const TZyPointSymbolSettings& Symbol = *FPointSymbolSettings;
  if (Symbol.Visible()) {
    if (FSymbolPen.IsOwn()) {
      FSymbolPen.Own()->SetColor(Symbol.BorderColor());
      FSymbolPen.Own()->SetWidth(Symbol.BorderLineWidth());
    }
    if (FSymbolBrush.IsOwn()) static_cast<SolidBrush*>(FSymbolBrush.Own())->SetColor(Symbol.FillColor());
    if (Symbol.Size() != FLastSymbolSize) {
      FLastSymbolSize = Symbol.Size();
      Invalidate();
      LegendsModified();
    }
  }
  if (const float Height = GetItemHeight(); std::exchange(FLastItemHeight, Height) != Height) LegendsModified();
  // Symbols want other pixels than a line alone.
  if (Symbol.Visible() != FPointsForSymbols && FPointCount > 0) PointsModified();
  FPen.SetOwn(FLineSettings->GetPen(Graph()->DrawingArea(), 0));
  FBrush.SetOwn(FAreaSettings->GetBrush(Graph()->DrawingArea()));
  Invalidate();
  if (SeriesVisible() == FLastVisible) return;
  FLastVisible = SeriesVisible();
  if (FXAxis == nullptr || FYAxis == nullptr || FYAxis->GetCurrentZoomStage() > 0) return;
  FXAxis->RangeModified();
  FYAxis->RangeModified();
}

// --- Change protocol ------------------------------------------------------------------------------------------------

void TZySeries::Invalidate() {
  for (IZyGraphDialog* Dialog : OpenGraphDialogs()) Dialog->UpdateLegends();
  if (Graph() != nullptr) Graph()->SeriesInvalidated();
}

void TZySeries::LookModified() {
  Invalidate();
  LegendsModified();
}

void TZySeries::LegendsModified() {
  if (Graph() != nullptr) Graph()->LegendsModified();
}

void TZySeries::ForgetRanges() {
  FXStart = FYStart = LargestDouble;
  FXStop = FYStop = -LargestDouble;
  if (FXAxis != nullptr) FXAxis->RangeModified();
  if (FYAxis != nullptr) FYAxis->RangeModified();
}

void TZySeries::RangesModified() {
  if (FXAxis == nullptr || FYAxis == nullptr) return;
  TZySeriesInput::NoteChange();
  FState.Reset();
  PointsModified();
  ForgetRanges();
}

void TZySeries::PointsModified() {
  FState.PixelsModified();
  Invalidate();
}

void TZySeries::SetLastCount(int Value) { FState.SetLastCount(Value); }

void TZySeries::DataInvalidated() {
  if (!HasTrackedRanges()) FState.SetLastCount(0);
  PointsModified();
}

/// Data may have gone: no count lies beyond them, and with too few of them left there is nothing to show.
void TZySeries::DataReset() {
  FState.SetLastCount(0);
  const int Count = GetCount();
  if (!FState.Shrink(Count)) return;
  TZySeriesInput::NoteChange();
  if (Count < MinCount() || Count == 0) ForgetRanges();
  Invalidate();
}

void TZySeries::DataCleared(const TZyCustomDoubleVector& Vector, bool WithLinkedMarkers) {
  if (WithLinkedMarkers && FY.Vector() == &Vector) ClearLinkedMarkers();
  TZySeriesInput::NoteChange();
  FState.Reset();  // without axes as well
  RangesModified();
}

void TZySeries::DataInserted(const TZyCustomDoubleVector& Vector, int Idx, int Number) {
  if (FY.Vector() == &Vector) ValueInsertedLinkedMarkers(Idx, Number);
}

void TZySeries::DataDeleted(const TZyCustomDoubleVector& Vector, int Idx, int Number) {
  if (FY.Vector() == &Vector) DeleteLinkedMarkers(Idx, Number);
}

}  // namespace zy
