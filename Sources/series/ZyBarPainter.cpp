#include "series/ZyBarPainter.h"

#include <algorithm>
#include <cmath>

#include "graph/parts/ZySeriesGraph.h"
#include "graph/shapes/ZyDrawing.h"
#include "platform/drawing/Graphics.h"

namespace zy {
namespace {

/// The colour of a brush, which may be one of a handler.
TZyColor ColorOf(const Brush& Brush, TZyColor Otherwise) {
  const auto* const Solid = dynamic_cast<const SolidBrush*>(&Brush);
  return Solid == nullptr ? Otherwise : Solid->GetColor();
}

/// A bar with a length of its own, but no more width than its pen.
bool IsLine(const RectF& Rect, bool IsHorizontal, float Width) {
  return IsHorizontal ? Rect.Height <= Width && Rect.Width > Width : Rect.Width <= Width && Rect.Height > Width;
}

float ColumnOf(const RectF& Rect, bool IsHorizontal) {
  return std::round(IsHorizontal ? Rect.Y + Rect.Height / 2 : Rect.X + Rect.Width / 2);
}

/// The colour of bars that are lines: the pen's, or the area's without it.
TZyColor ColorOfLines(const TZyPointLook& Look, bool HasArea, bool HasLine, TZyColor ForeColor) {
  if (HasLine) return Look.Pen().Color();
  return HasArea ? ColorOf(Look.Brush(), ForeColor) : Colors::Transparent;
}

}  // namespace

TZyBarPainter::TEntry::TEntry(TZyBars& Of)
    : Bars(Of),
      Handle(Of.LiveHandle()),
      Look(Of),
      IsHorizontal(Of.BarsHorizontal()),
      IsPlain(!Of.OnGetPen() && !Of.OnGetBrush()),
      LineWidth(Of.LinePen()->Width()),
      LineColor(ColorOfLines(Look, Of.Area().Visible(), Of.Line().Visible(), Of.Area().ForeColor())) {}

TZyBarPainter::TZyBarPainter(Graphics& Gr, const std::vector<TZyBars*>& Bars) : FGr(Gr) {
  for (TZyBars* One : Bars) FEntries.push_back(std::make_unique<TEntry>(*One));
  for (const auto& Entry : FEntries) {
    const TRange Range =
        Entry->IsPlain && !Entry->Bars.HasLabels() ? VisibleBars(Entry->Bars) : TRange{0, Entry->Bars.Points().size()};
    FHasEvents = FHasEvents || !Entry->IsPlain;
    Entry->First = Range.First;
    Entry->Last = Range.Last;
  }
}

/// Those that reach into the data area. Ascending classes are found by binary search.
TZyBarPainter::TRange TZyBarPainter::VisibleBars(TZyBars& Bars) {
  const std::size_t Count = Bars.Points().size();
  if (!Bars.FIsAscending || Count == 0) return {0, Count};
  const bool IsHorizontal = Bars.BarsHorizontal();
  const auto Along = [IsHorizontal](const PointF& P) { return IsHorizontal ? P.Y : P.X; };
  const RectF& Area = Bars.Graph()->DrawingArea();
  const float Margin = Bars.FDepthX + Bars.FDepthY + Bars.Line().Width() + 1;
  const float Low = (IsHorizontal ? Area.Y : Area.X) - Margin;
  const float High = (IsHorizontal ? Area.Y + Area.Height : Area.X + Area.Width) + Margin;
  const bool IsUpwards = Along(Bars.Points().front()) <= Along(Bars.Points().back());
  const auto IsBelow = [&](std::size_t i) { return Along(Bars.BottomRight()[i]) < Low; };
  const auto IsAbove = [&](std::size_t i) { return Along(Bars.Points()[i]) > High; };
  const auto FirstWithout = [Count](const auto& IsOutside) {
    std::size_t From = 0, To = Count;
    while (From < To) {
      const std::size_t Middle = From + (To - From) / 2;
      if (IsOutside(Middle))
        From = Middle + 1;
      else
        To = Middle;
    }
    return From;
  };
  if (IsUpwards) return {FirstWithout(IsBelow), FirstWithout([&](std::size_t i) { return !IsAbove(i); })};
  return {FirstWithout(IsAbove), FirstWithout([&](std::size_t i) { return !IsBelow(i); })};
}

void TZyBarPainter::Paint() {
  std::size_t First = std::numeric_limits<std::size_t>::max(), Last = 0;
  for (const auto& Entry : FEntries) {
    First = std::min(First, Entry->First);
    Last = std::max(Last, Entry->Last);
  }
  for (std::size_t Bar = First; Bar < Last; ++Bar)
    for (const auto& Entry : FEntries)
      if (Bar >= Entry->First && Bar < Entry->Last) PaintBar(*Entry, Bar);
  PaintColumn();
}

/// Whatever handlers did to the data meanwhile, bars that are gone are left out.
void TZyBarPainter::PaintBar(TEntry& Entry, std::size_t Bar) {
  if (FHasEvents) TZyPointLook::TestDrawn(Entry.Handle);
  TZyBars& Bars = Entry.Bars;
  if (Bars.RecalculatePoints() || Bar >= Bars.Points().size() || Bars.IsEmpty(Bar)) return;
  const RectF Rect = Bars.RectOf(Bar);
  const bool IsFlat = !Bars.IsSolid(), HasLabel = Bar < Bars.Labels().size() && Bars.Labels()[Bar] != nullptr;
  if (IsFlat && Entry.IsPlain && !HasLabel && IsLine(Rect, Entry.IsHorizontal, Entry.LineWidth))
    return Gather(Entry, Rect);
  PaintColumn();
  Entry.Look.Reset();
  const bool FitsBrush = IsFlat && Bars.OwnsBrush() && !(Bars.Area().Solid() && !Bars.Area().Gradient().Visible());
  const auto Brush = FitsBrush ? Bars.Area().GetBrush(Rect) : nullptr;
  if (Brush) Entry.Look.SetBrush(*Brush);
  const auto Pen = IsFlat && Bars.Line().Gradient().Visible() ? Bars.Line().GetPen(Rect, 0) : nullptr;
  if (Pen) Entry.Look.SetPen(*Pen);
  const bool HasArea = Entry.Look.AskBrush(Bar), HasLine = Entry.Look.AskPen(Bar);
  if (Bars.RecalculatePoints() || Bar >= Bars.Points().size()) return;
  if (IsFlat) {
    const float Width = Entry.Look.PenWidth();
    if (IsLine(Rect, Entry.IsHorizontal, Width))
      PaintLine(Rect, Entry.IsHorizontal, Width, ColorOfLines(Entry.Look, HasArea, HasLine, Bars.Area().ForeColor()));
    else
      PaintFlat(Entry.Look, Rect, HasArea, HasLine);
  } else if (HasArea || HasLine) {
    PaintSolid(Entry, Bar, HasLine ? Entry.Look.Pen().Color() : Colors::Transparent,
               HasArea ? ColorOf(Entry.Look.Brush(), Bars.Area().ForeColor()) : Colors::Transparent);
  }
  if (Bar < Bars.Labels().size() && Bars.Labels()[Bar] != nullptr) Bars.Labels()[Bar]->PaintGr(FGr);
}

// --- Flat bars ------------------------------------------------------------------------------------------------------

void TZyBarPainter::PaintFlat(const TZyPointLook& Look, const RectF& Rect, bool HasArea, bool HasLine) {
  const float Width = Look.PenWidth();
  if (!(Width < Rect.Width && Width < Rect.Height)) return;
  const RectF Inside{Rect.X + Width / 2, Rect.Y + Width / 2, Rect.Width - Width, Rect.Height - Width};
  if (HasArea) FGr.FillRectangle(Look.Brush(), Inside);
  if (HasLine) FGr.DrawRectangle(Look.Pen(), Inside);
}

/// Lines stand in the middle of a column.
void TZyBarPainter::PaintLine(const RectF& Rect, bool IsHorizontal, float Width, TZyColor Color) {
  if (GetAlpha(Color) == 0) return;
  const float Column = ColumnOf(Rect, IsHorizontal) - Width / 2;
  const RectF Line =
      IsHorizontal ? RectF{Rect.X, Column, Rect.Width, Width} : RectF{Column, Rect.Y, Width, Rect.Height};
  FGr.FillRectangle(SolidBrush(Color), Line);
}

void TZyBarPainter::Gather(TEntry& Entry, const RectF& Rect) {
  const float Column = ColumnOf(Rect, Entry.IsHorizontal);
  if (!FColumn.empty() && (Column != FColumnAt || Entry.IsHorizontal != FColumnIsHorizontal)) PaintColumn();
  FColumnAt = Column;
  FColumnIsHorizontal = Entry.IsHorizontal;
  FColumn.push_back(Entry.IsHorizontal ? TLine{&Entry, Rect.X, Rect.X + Rect.Width}
                                       : TLine{&Entry, Rect.Y, Rect.Y + Rect.Height});
}

/// Later lines cover earlier ones: looking back, one that lies within what is covered is not seen.
void TZyBarPainter::PaintColumn() {
  FSeen.clear();
  float Low = 0, High = 0;
  for (auto At = FColumn.rbegin(); At != FColumn.rend(); ++At) {
    const TLine& Line = *At;
    const bool Touches = !FSeen.empty() && Line.Low <= High && Line.High >= Low;
    if (Touches && Line.Low >= Low && Line.High <= High) continue;
    Low = Touches ? std::min(Low, Line.Low) : Line.Low;
    High = Touches ? std::max(High, Line.High) : Line.High;
    if (Touches && FSeen.back().Of == Line.Of)
      FSeen.back() = {Line.Of, std::min(FSeen.back().Low, Line.Low), std::max(FSeen.back().High, Line.High)};
    else
      FSeen.push_back(Line);
  }
  FColumn.clear();
  for (auto At = FSeen.rbegin(); At != FSeen.rend(); ++At) {
    const TLine& Line = *At;
    const float Length = Line.High - Line.Low;
    PaintLine(FColumnIsHorizontal ? RectF{Line.Low, FColumnAt, Length, 0} : RectF{FColumnAt, Line.Low, 0, Length},
              FColumnIsHorizontal, Line.Of->LineWidth, Line.Of->LineColor);
  }
}

// --- Solids ---------------------------------------------------------------------------------------------------------

/// The shading of lying cuboids runs along the data area.
void TZyBarPainter::PaintSolid(const TEntry& Entry, std::size_t Bar, TZyColor Frame, TZyColor Fill) {
  const TZyBars& Bars = Entry.Bars;
  const auto [l, t] = Bars.Points()[Bar];
  const auto [r, b] = Bars.BottomRight()[Bar];
  const float Lean = Bars.FZylShift;
  const RectF& Area = Bars.Graph()->DrawingArea();
  if (Bars.BarStyle() == TZyBarStyle::Cylinder) {
    if (Entry.IsHorizontal)
      DrawCylinderHorizontal(FGr, Frame, Fill, l, t, r, b, Bars.DepthX(), Lean);
    else
      DrawCylinderVertical(FGr, Frame, Fill, l, t, r, b, Lean, Bars.DepthY());
  } else if (Entry.IsHorizontal) {
    Draw3DBar(FGr, Frame, Fill, l, t, r, b, Bars.DepthX(), Bars.DepthY(), Area.X, Area.Width);
  } else {
    Draw3DBar(FGr, Frame, Fill, l, t, r, b, Bars.DepthX(), Bars.DepthY());
  }
}

// --- The frame ------------------------------------------------------------------------------------------------------

bool TZyBars::IsShown() const { return FXAxis != nullptr && FYAxis != nullptr && SeriesVisible() && Count() >= 1; }

/// Whether bars that are drawn earlier are to be seen.
bool TZyBars::IsPaintedByOthers() const {
  const TZyBars* First = nullptr;
  Graph()->ForEachSeries([&First](TZySeries& Series) {
    if (First != nullptr) return;
    const auto* const Bars = dynamic_cast<const TZyBars*>(&Series);
    if (Bars != nullptr && Bars->IsShown()) First = Bars;
  });
  return First != this;
}

/// The first visible bars paint those of all.
void TZyBars::PaintGr(Graphics& Gr) {
  if (Graph() == nullptr || !IsShown() || IsPaintedByOthers()) return;
  TBarsList All;
  std::vector<TGroup> Groups = GroupsOf(AllBars());
  std::size_t Shown = 0, Place = 0;
  for (TZyBars* Bars : AllBars()) {
    if (Bars->IsShown()) {
      All.push_back(Bars);
      Groups[Shown++] = Groups[Place];
    }
    ++Place;
  }
  std::vector<std::uint64_t> Handles;
  for (const TZyBars* Bars : All) Handles.push_back(Bars->LiveHandle());
  for (std::size_t i = 0; i < All.size(); ++i) {  // a handler may free any of them
    TZyPointLook::TestDrawn(Handles[i]);
    if (All[i]->LinePen() == nullptr || All[i]->AreaBrush() == nullptr) All[i]->TestVisibleChanged();
    if (All[i]->RecalculatePoints() || Groups[i] != All[i]->FGroup) All[i]->CalculatePoints();
  }
  for (const std::uint64_t Handle : Handles) TZyPointLook::TestDrawn(Handle);
  TZyBarPainter(Gr, All).Paint();
}

// --- Legends --------------------------------------------------------------------------------------------------------

void TZyBars::DrawListItem(const TZyLegendItemDrawArgs& e, LegendItemStyle) {
  Graphics& Gr = *e.Graphics;
  const RectF R = TRectToRectF(e.Rect);
  const float q = R.Height / 4;
  const TZyColor Frame = Line().Visible() ? Line().Color() : Colors::Transparent;
  const TZyColor Fill = Area().Visible() ? Area().ForeColor() : Colors::Transparent;
  if (FBarStyle == TZyBarStyle::Flat) {
    const float Edge = std::max(LinePen() == nullptr ? 1.0f : LinePen()->Width(), 1.0f);
    const RectF Inside{R.X + Edge, R.Y + Edge, R.Width - 2 * Edge, R.Height - 2 * Edge};
    if (Area().Visible()) Gr.FillRectangle(*Area().GetBrush(Inside), Inside);
    if (Line().Visible()) Gr.DrawRectangle(*Line().GetPen(Inside, 0), Inside);
    return;
  }
  if (!Line().Visible() && !Area().Visible()) return;
  if (FBarStyle == TZyBarStyle::Cuboid)
    Draw3DBar(Gr, Frame, Fill, R.X, R.Y + q, R.X + R.Width - q, R.Y + R.Height - 1, q, q, R.X, R.Width - q);
  else
    DrawCylinderHorizontal(Gr, Frame, Fill, R.X, R.Y + q, R.X + R.Width - q - 1, R.Y + R.Height - 1, q, 0);
}

}  // namespace zy
