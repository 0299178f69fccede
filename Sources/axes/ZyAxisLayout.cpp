// The layout pass: its order, the ends of the scales, margins, the data area and what follows it. What axes need across
// and beyond their lines is in ZyAxisSizes.cpp.

#include "axes/ZyAxisLayout.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <limits>

#include "axes/ZyAxisWatcher.h"
#include "graph/parts/ZyAxisGraph.h"
#include "graph/parts/ZyGraphParts.h"
#include "platform/controls/TScrollBar.h"
#include "platform/controls/TWinControl.h"
#include "texts/Exceptions.h"

namespace zy {
namespace {

/// An axis too short for its labels still keeps a usable length.
constexpr float SmallestLength = 40;

/// What a single border takes below.
constexpr float RoomOfBorder = 4;

int Rounded(float Value) { return static_cast<int>(std::lround(Value)); }

}  // namespace

TZyAxisLayout::TZyAxisLayout(TZyAxis& Axis)
    : FStarter(Axis),
      FParent(*Axis.Parent()),
      FParentHandle(FParent.LiveHandle()),
      FGraph(dynamic_cast<IZyAxisGraph*>(&FParent)),
      FWidth(static_cast<float>(FParent.ClientWidth())),
      FHeight(static_cast<float>(FParent.ClientHeight())) {
  TZyAxis::LayoutRunning = true;
  for (TControl* Control : FParent.Controls())
    if (auto* const Child = dynamic_cast<TZyAxis*>(Control)) FAxes.push_back(Child);
}

TZyAxisLayout::~TZyAxisLayout() {
  TZyAxis::LayoutRunning = false;
  if (FIsDone || FGraph == nullptr || TPersistent::FromLiveHandle(FParentHandle) == nullptr) return;
  for (TControl* Control : FParent.Controls())
    if (auto* const Axis = dynamic_cast<TZyAxis*>(Control)) Axis->SetLaidOut(false);
}

void TZyAxisLayout::Run() {
  if (FGraph != nullptr && FGraph->Panning()) {
    TakePannedTicks();
  } else {
    if (FGraph != nullptr) FGraph->SetDoScrollBars(false, false);
    ShowAxesThatCross();
    MarkMasterGraph();
    for (TZyAxis* Axis : FAxes) Axis->UpdateDB();
    RoundEndsAndTakeTicks();
    TakeMarginsOfGraph();
    TakeTitle();
    ReserveLegends();
    SizeAxes();
    FitOverhangs();
    TakeFinalTicks();
    PlaceDataArea();
    PlaceScrollBars();
    PlaceLegends();
    ShareCommonArea();
  }
  FIsDone = true;
  if (FGraph != nullptr) FGraph->SeriesModified();
}

/// All are told, also when one of them throws: the axes are laid out, and nothing would tell the others later.
void TZyAxisLayout::TellListeners(TWinControl& Parent) {
  const std::vector<TControl*> Controls = Parent.Controls();  // a listener may free some of them, and the parent
  const std::uint64_t Alive = Parent.LiveHandle();
  std::exception_ptr Failure;
  const auto Try = [&](const auto& Tell) {
    if (TPersistent::FromLiveHandle(Alive) == nullptr) return;
    try {
      Tell();
    } catch (...) {
      if (Failure == nullptr) Failure = std::current_exception();
    }
  };
  const auto ForEach = [&](const auto& Tell) {
    for (TControl* Control : Controls)
      Try([&] {
        if (std::find(Parent.Controls().begin(), Parent.Controls().end(), Control) != Parent.Controls().end())
          Tell(Control);
      });
  };
  ForEach([](TControl* Control) {
    auto* const Axis = dynamic_cast<TZyAxis*>(Control);
    if (Axis == nullptr || !Axis->OnCalculated()) return;
    const auto Handler = Axis->OnCalculated();  // it may be replaced while it runs
    Handler(Axis);
  });
  ForEach([](TControl* Control) {
    if (auto* const Marker = dynamic_cast<IZyGraphMarker*>(Control)) Marker->UpdatePosition();
  });
  Try([&] { TZyAxisWatcher::Tell(Parent); });
  if (Failure != nullptr) std::rethrow_exception(Failure);
}

// --- Ends -----------------------------------------------------------------------------------------------------------

bool TZyAxisLayout::HasZeroOrigin(const IZyAxisGraph* Graph) {
  return Graph != nullptr && Graph->ZeroOrigin() && Graph->PrimaryXAxis() != nullptr &&
         Graph->PrimaryYAxis() != nullptr;
}

void TZyAxisLayout::ShowAxesThatCross() {
  if (FGraph == nullptr || !FGraph->ZeroOrigin()) return;
  for (TZyAxis* Axis : {FGraph->PrimaryXAxis(), FGraph->PrimaryYAxis()})
    if (Axis != nullptr) Axis->SetVisible(true);
}

/// The graph that owns a shared X axis has to take the common area anew.
void TZyAxisLayout::MarkMasterGraph() {
  if (FGraph == nullptr || !FGraph->IsCoupledGraph()) return;
  TZyAxis* const Shared = FGraph->PrimaryXAxis();
  if (Shared != nullptr && !Shared->NeedsRecalculate()) Shared->Modified();
}

/// A pan keeps the layout and only moves ticks, of the axes that moved.
void TZyAxisLayout::TakePannedTicks() {
  for (TZyAxis* Axis : FAxes) {
    if (!Axis->NeedsRecalculate() && Axis != &FStarter) continue;
    Axis->CalculateTicks();
    Axis->SetLaidOut(true);
  }
}

void TZyAxisLayout::RoundEndsAndTakeTicks() {
  for (TZyAxis* Axis : FAxes) {
    if (FGraph != nullptr && Axis->AutoSize()) {
      if (Axis->GetHorizontal()) {
        Axis->SetBounds(Axis->Left(), Axis->Top(), FParent.ClientWidth(), Axis->Height());
      } else {
        Axis->SetBounds(Axis->Left(), Axis->Top(), Axis->Width(), FParent.ClientHeight());
      }
    }
    Axis->TakeEnds();
    Axis->SetAxLeft(0);
    Axis->SetAxTop(0);
    Axis->SetAxLength(static_cast<float>(Axis->GetHorizontal() ? Axis->Width() : Axis->Height()));
    Axis->CalculateTicks();
  }
}

// --- Margins --------------------------------------------------------------------------------------------------------

void TZyAxisLayout::TakeMarginsOfGraph() {
  if (FGraph == nullptr) return;
  FLeft.Margin = std::ceil(FGraph->DistanceBorderAxisLeft());
  FRight.Margin = std::ceil(FGraph->DistanceBorderAxisRight());
  FTop.Margin = std::ceil(FGraph->DistanceBorderAxisTop());
  FBottom.Margin = std::ceil(FGraph->DistanceBorderAxisBottom());
  if (FGraph->HasBorder()) FBottom.Margin += RoomOfBorder;
  TakeScrollBars();
}

/// Scroll bars take room where data lie outside; a file or a page does not show them.
void TZyAxisLayout::TakeScrollBars() {
  if (FParent.IsDesigning()) return;
  const auto AnyClipped = [&](bool Horizontal) {
    return std::any_of(FAxes.begin(), FAxes.end(), [&](const TZyAxis* Axis) {
      return Axis->GetHorizontal() == Horizontal && Axis->GetIsClipped();
    });
  };
  const TScrollBar* const Across = FGraph->HorizontalScrollBar();
  FShowScrollH = FGraph->MayScroll(true) && Across != nullptr && AnyClipped(true);
  if (FShowScrollH) FBottom.Margin += static_cast<float>(Across->Height());
  const TScrollBar* const Upright = FGraph->VerticalScrollbar();
  FShowScrollV = FGraph->MayScroll(false) && Upright != nullptr && AnyClipped(false);
  if (FShowScrollV) FLeft.Margin += static_cast<float>(Upright->Width());
  FShowScrollH = FShowScrollH && !FGraph->DoingMetafile();
  FShowScrollV = FShowScrollV && !FGraph->DoingMetafile();
}

void TZyAxisLayout::TakeTitle() {
  if (FGraph != nullptr) FTop.Margin = FGraph->BelowTitle(FTop.Margin);
}

std::vector<IZyGraphLegend*> TZyAxisLayout::LegendsAtSides() const {
  std::vector<IZyGraphLegend*> Result;
  for (TControl* Control : FParent.Controls()) {
    auto* const Legend = dynamic_cast<IZyGraphLegend*>(Control);
    if (Legend != nullptr && Control->Visible() && Legend->Dock() != TZyLegendPosition::FreeFloating)
      Result.push_back(Legend);
  }
  return Result;
}

/// Legends of one side share its room: the largest counts.
void TZyAxisLayout::ReserveLegends() {
  using enum TZyLegendPosition;
  float Left = 0, Right = 0, Top = 0, Bottom = 0;
  for (IZyGraphLegend* Legend : LegendsAtSides()) {
    try {
      Legend->PreparePaint();
    } catch (const EAbort&) {
      continue;  // a handler freed it
    }
    TControl& Control = Legend->Control();
    const auto Width = static_cast<float>(Control.Width()), Height = static_cast<float>(Control.Height());
    switch (Legend->Dock()) {
      case BottomCenterOfGraph:
      case BottomCenterOfAxis:
        Control.SetTop(Rounded(FHeight - Height - FBottom.Margin));
        Bottom = std::max(Bottom, Height);
        break;
      case LeftCenterOfGraph:
      case LeftCenterOfAxis:
      case LeftTopOfAxis:
        Control.SetLeft(Rounded(FLeft.Margin));
        Left = std::max(Left, Width);
        break;
      case TopCenterOfGraph:
      case TopCenterOfAxis:
        Control.SetTop(Rounded(FTop.Margin));
        Top = std::max(Top, Height);
        break;
      case RightCenterOfGraph:
      case RightCenterOfAxis:
      case RightTopOfAxis:
        Control.SetLeft(Rounded(FWidth - Width - FRight.Margin));
        Right = std::max(Right, Width);
        break;
      case FreeFloating:
        break;
    }
  }
  FLeft.Margin += Left;
  FRight.Margin += Right;
  FTop.Margin += Top;
  FBottom.Margin += Bottom;
}

// --- Final lengths --------------------------------------------------------------------------------------------------

void TZyAxisLayout::TakeFinalTicks() {
  const bool Cross = HasZeroOrigin();
  std::vector<TZyAxis*> Axes = FAxes;
  std::erase_if(Axes, [&](const TZyAxis* Axis) {
    return !Axis->AutoSize() && !(Cross && (Axis == FGraph->PrimaryXAxis() || Axis == FGraph->PrimaryYAxis()));
  });
  for (const TZyAxis* Axis : Axes) {
    const float HalfTick = Axis->MajorTickThicknes() / 2;
    TSide& End = Axis->GetHorizontal() ? FRight : FTop;
    if (!Cross && End.Margin < HalfTick)
      End.Margin = std::ceil(HalfTick);  // one inside the data area has no tick there
  }
  for (const bool Horizontal : {true, false})
    if (std::ranges::any_of(Axes, [&](const TZyAxis* Axis) { return Axis->GetHorizontal() == Horizontal; }))
      KeepSmallestArea(Horizontal);
  for (TZyAxis* Axis : Axes) TakeFinalLength(*Axis);
  if (Cross) CrossAxes(*FGraph);
}

/// A graph too small for its margins keeps the smallest length between them: what stands at the far side gives way and
/// reaches beyond the control, so that all lines stay at the edges of the data area.
void TZyAxisLayout::KeepSmallestArea(bool Horizontal) {
  if (FGraph == nullptr) return;
  TSide& Far = Horizontal ? FRight : FBottom;
  const float Length = (Horizontal ? FWidth - FLeft.Margin : FHeight - FTop.Margin) - Far.Margin;
  if (!(Length < SmallestLength)) return;
  Far.Margin -= SmallestLength - Length;
  const int Shift = Rounded(SmallestLength - Length);
  for (TZyAxis* Axis : FAxes) {
    if (!Axis->AutoSize()) continue;
    if (Horizontal && Axis->Position() == TZyAxisPosition::Right) Axis->SetLeft(Axis->Left() + Shift);
    if (!Horizontal && Axis->Position() == TZyAxisPosition::Bottom) Axis->SetTop(Axis->Top() + Shift);
  }
}

void TZyAxisLayout::TakeFinalLength(TZyAxis& Axis) {
  float Length = ClientExtent(Axis);
  if (Axis.GetHorizontal()) {
    Axis.SetAxLeft(FLeft.Margin);
    Length = Length - FLeft.Margin - FRight.Margin;
  } else {
    Axis.SetAxTop(FTop.Margin);
    Length = Length - FBottom.Margin - FTop.Margin;
  }
  Axis.SetAxLength(std::max(Length, SmallestLength));
  Axis.CalculateTicks();
}

/// Moves each of the two primary axes to the value 0 of the other. An axis that has no such value keeps its side, and
/// the first label of the other one gives way to it. An X axis of another graph stays where that one has it.
void TZyAxisLayout::CrossAxes(const IZyAxisGraph& Graph) {
  TZyAxis& X = *Graph.PrimaryXAxis();
  TZyAxis& Y = *Graph.PrimaryYAxis();
  const bool HasOwnX = !Graph.IsCoupledGraph();
  if (X.CrossesZero()) {
    Y.SetLeft(Rounded(X.NumberToWorld(0) - Y.AxLeft()));
    Y.DropAtZero();
  } else if (HasOwnX) {
    X.DropFirstLabel();
  }
  if (!Y.CrossesZero()) {
    Y.DropFirstLabel();
  } else if (HasOwnX) {
    X.SetTop(Rounded(Y.NumberToWorld(0)));
    X.DropAtZero();
  }
}

// --- Data area ------------------------------------------------------------------------------------------------------

void TZyAxisLayout::PlaceDataArea() {
  if (FGraph == nullptr) return;
  FGraph->SetDrawingArea({FLeft.Margin, FTop.Margin, FWidth - FLeft.Margin - FRight.Margin + 1,
                          FHeight - FTop.Margin - FBottom.Margin + 1});
  FGraph->PlaceTitle();
}

void TZyAxisLayout::PlaceScrollBars() {
  if (FGraph == nullptr || FGraph->PrimaryXAxis() == nullptr || FGraph->PrimaryYAxis() == nullptr) return;
  const RectF& Area = FGraph->DrawingArea();
  const auto Place = [](TScrollBar& Bar, const TZyAxis& Axis, bool FromStop, int Left, int Top, int Width, int Height) {
    if (Bar.Focused()) Bar.ReleaseFocus();
    const int Page = Axis.ScrollRangeSize(Axis.Start(), Axis.Stop());
    const int Position = FromStop ? Bar.Max() - Axis.ScrollPosition(Axis.Stop()) : Axis.ScrollPosition(Axis.Start());
    Bar.SetPageSize(Page);
    Bar.SetPosition(std::clamp(Position, Bar.Min(), Bar.Max()));
    Bar.SetBounds(Left, Top, Width, Height);
  };
  if (FShowScrollH) {
    TScrollBar& Bar = *FGraph->HorizontalScrollBar();
    const TZyAxis& Axis = *FGraph->PrimaryXAxis();
    Place(Bar, Axis, Axis.Twisted(), Rounded(Area.X), FParent.ClientHeight() - Bar.Height(), Rounded(Area.Width),
          Bar.Height());
  }
  if (FShowScrollV) {
    TScrollBar& Bar = *FGraph->VerticalScrollbar();
    const TZyAxis& Axis = *FGraph->PrimaryYAxis();
    Place(Bar, Axis, !Axis.Twisted(), 0, Rounded(Area.Y), Bar.Width(), Rounded(Area.Height));
  }
  FGraph->SetDoScrollBars(FShowScrollH, FShowScrollV);
}

/// One that has room in the graph is not cut off for the sake of the axis.
void TZyAxisLayout::PlaceLegends() {
  if (FGraph == nullptr) return;
  using enum TZyLegendPosition;
  const auto Within = [](int Place, int Room) { return Room >= 0 ? std::clamp(Place, 0, Room) : Place; };
  const RectF& Area = FGraph->DrawingArea();
  for (IZyGraphLegend* Legend : LegendsAtSides()) {
    TControl& Control = Legend->Control();
    const auto Width = static_cast<float>(Control.Width()), Height = static_cast<float>(Control.Height());
    switch (Legend->Dock()) {
      case BottomCenterOfGraph:
      case TopCenterOfGraph:
        Control.SetLeft((FParent.Width() - Control.Width()) / 2);
        break;
      case BottomCenterOfAxis:
      case TopCenterOfAxis:
        Control.SetLeft(Within(Rounded(Area.Width - Width) / 2 + Rounded(Area.X), FParent.Width() - Control.Width()));
        break;
      case LeftCenterOfGraph:
      case RightCenterOfGraph:
        Control.SetTop((FParent.Height() - Control.Height()) / 2);
        break;
      case LeftCenterOfAxis:
      case RightCenterOfAxis:
        Control.SetTop(Within(Rounded((Area.Height - Height) / 2 + Area.Y), FParent.Height() - Control.Height()));
        break;
      case LeftTopOfAxis:
      case RightTopOfAxis:
        Control.SetTop(Within(Rounded(Area.Y), FParent.Height() - Control.Height()));
        break;
      case FreeFloating:
        break;
    }
  }
}

/// Graphs that share an X axis get the part of the width that all of them have.
void TZyAxisLayout::ShareCommonArea() {
  if (FGraph == nullptr) return;
  std::vector<IZyAxisGraph*> Graphs = FGraph->GraphsOnXAxis();
  if (Graphs.empty()) return;
  std::erase_if(Graphs, [](const IZyAxisGraph* Child) {
    return Child->DrawingArea() == RectF{};  // one never laid out has nothing to say
  });
  Graphs.insert(Graphs.begin(), FGraph);
  float Left = -std::numeric_limits<float>::max(), Right = std::numeric_limits<float>::max();
  for (const IZyAxisGraph* Chart : Graphs) {
    const RectF& Area = Chart->DrawingArea();
    Left = std::max(Left, Area.X);
    Right = std::min(Right, Area.X + Area.Width - 1);
  }
  Right = std::max(Right, Left + SmallestLength);
  for (IZyAxisGraph* Chart : Graphs) TakeCommonArea(*Chart, Left, Right);
  for (const IZyAxisGraph* Chart : Graphs)  // the ticks are new, and 0 may have moved
    if (HasZeroOrigin(Chart)) CrossAxes(*Chart);
}

void TZyAxisLayout::TakeCommonArea(IZyAxisGraph& Graph, float Left, float Right) {
  RectF Area = Graph.DrawingArea();
  const float LeftShift = Area.X - Left;
  const float RightShift = Area.X + Area.Width - Right - 1;
  Area.X = Left;
  Area.Width = Right - Left + 1;
  Graph.SetDrawingArea(Area);
  if (TScrollBar* const Bar = Graph.HorizontalScrollBar(); Bar != nullptr)
    Bar->SetBounds(Rounded(Left), Bar->Top(), Rounded(Area.Width), Bar->Height());  // it stays below its axis
  for (TZyAxis* Axis : Graph.AxesToLayOut()) {
    if (Axis->GetHorizontal()) {
      Axis->SetAxLeft(Left);
      Axis->SetAxLength(Right - Left);
    } else {
      const float Shift = Axis->Position() == TZyAxisPosition::Left ? LeftShift : RightShift;
      Axis->SetLeft(Axis->Left() - Rounded(Shift));
      Axis->SetAxLeft(Axis->AxLeft() + (std::round(Shift) - Shift));
    }
    Axis->CalculateTicks();
  }
  Graph.SeriesModified();
}

}  // namespace zy
