// What axes need across their lines and beyond their ends, and the margins that follow from it.

#include <algorithm>
#include <cmath>

#include "axes/ZyAxisLayout.h"
#include "graph/parts/ZyAxisGraph.h"
#include "graph/parts/ZyGraphParts.h"
#include "platform/controls/TWinControl.h"
#include "texts/Exceptions.h"

namespace zy {
namespace {

constexpr float SmallestLength = 40;
constexpr float LengthsOfArrow = 3;  // room of an arrow in lengths of its tip

/// In whole pixels, within what a control can be: settings that were read may be of any size.
int Whole(float Value) {
  constexpr auto Most = static_cast<float>(TControl::MostExtent);
  return static_cast<int>(std::isnan(Value) ? 0 : std::clamp(Value, -Most, Most));
}

/// Half the thickness of what is drawn at a line, in whole pixels' edges: a line covers the pixels around its centre.
float HalfLine(const TZyAxis& Axis) { return Axis.AxisThicknes() / 2 + 0.5f; }

/// What the control of a left or upper axis needs for its line and what points from there to the data. The line is the
/// first one of the data area, behind the room that the axis takes beside that.
float ExtentUpToData(const TZyAxis& Axis) {
  const float Ticks = Axis.TicksPointToData() ? std::max(Axis.MajorTickLength(), Axis.TickLength()) : 0;
  return std::ceil(Axis.Geometry().Across() + std::max(HalfLine(Axis), Ticks));
}

/// What a series asks for; nothing from one that a handler freed meanwhile.
template <class TAsk>
float RoomFor(const TAsk& Ask) {
  try {
    return Ask();
  } catch (const EAbort&) {
    return 0;
  }
}

}  // namespace

float TZyAxisLayout::ClientExtent(const TZyAxis& Axis) const {
  if (FGraph == nullptr) return static_cast<float>(Axis.GetHorizontal() ? Axis.Width() : Axis.Height());
  return Axis.GetHorizontal() ? FWidth : FHeight;
}

/// Depth of the solids of the axis, which lies behind its upper or right end.
float TZyAxisLayout::DepthAt(const TZyAxis& Axis) const {
  if (FGraph == nullptr || !FGraph->ShowsWalls()) return 0;
  float Result = 0;
  for (IZyAxisSeries* Series : Axis.RelatedSeries()) {
    auto* const Solid = dynamic_cast<IZySolidSeries*>(Series);
    if (Solid == nullptr || !Solid->IsSolid()) continue;
    Result = std::max(Result, RoomFor([&] {
                        Solid->PrepareDepth();
                        return Axis.GetHorizontal() ? Solid->HorizontalDepth() : Solid->VerticalDepth();
                      }));
  }
  return Result;
}

/// What the drawing of a series takes beyond its data; nothing while data lie beyond the ends anyway.
float TZyAxisLayout::ExtraSpaceOf(const TZyAxis& Axis, TZyAxisPosition Side) const {
  float Result = 0;
  if (FGraph == nullptr || Axis.GetIsClipped()) return Result;
  for (const IZyAxisSeries* Series : Axis.RelatedSeries())
    Result = std::max(Result, RoomFor([&] { return Series->ExtraSpaceAt(Side); }));
  return Result;
}

TZyOverhang TZyAxisLayout::OverhangOf(const TZyAxis& Axis) const {
  TZyOverhang Result = Axis.LabelOverhang();
  using enum TZyAxisPosition;
  Result.Low = std::max(Result.Low, ExtraSpaceOf(Axis, Axis.GetHorizontal() ? Left : Bottom));
  Result.High = std::max({Result.High, ExtraSpaceOf(Axis, Axis.GetHorizontal() ? Right : Top), DepthAt(Axis)});
  if (Axis.ArrowPoint().Visible()) {
    float& AtTip = Axis.Twisted() ? Result.Low : Result.High;
    AtTip = std::max(AtTip, LengthsOfArrow * Axis.ArrowPoint().PointLength());
  }
  Result.Low = std::max(0.0f, std::ceil(Result.Low));
  Result.High = std::max(0.0f, std::ceil(Result.High));
  return Result;
}

/// From the last control to the first, so that the first one lies innermost.
void TZyAxisLayout::SizeAxes() {
  for (auto Place = FAxes.rbegin(); Place != FAxes.rend(); ++Place) {
    TZyAxis& Axis = **Place;
    if (Axis.AutoSize()) {
      const TZyOverhang Overhang = OverhangOf(Axis);
      const float Need = Axis.RoomNeeded();
      switch (Axis.Position()) {
        case TZyAxisPosition::Left:
          SizeLeftAxis(Axis, Need);
          break;
        case TZyAxisPosition::Right:
          SizeRightAxis(Axis, Need);
          break;
        case TZyAxisPosition::Bottom:
          SizeBottomAxis(Axis, Need);
          break;
        case TZyAxisPosition::Top:
          SizeTopAxis(Axis, Need);
          break;
      }
      if (Axis.GetHorizontal()) {
        Axis.SetAxLeft(Overhang.Low);
      } else {
        Axis.SetAxTop(Overhang.High);
      }
      Axis.SetAxLength(std::max(ClientExtent(Axis) - Overhang.Low - Overhang.High, SmallestLength));
    }
    Axis.CalculateTicks();
    Axis.SetLaidOut(true);
  }
}

/// Where axes cross at 0, one that lies inside the data area takes no room beside it.
bool TZyAxisLayout::DropsMargin(const TZyAxis* Across) const {
  return FGraph != nullptr && FGraph->ZeroOrigin() && Across != nullptr && Across->Start() < 0;
}

void TZyAxisLayout::SizeLeftAxis(TZyAxis& Axis, float Need) {
  Axis.SetAxLeft(Axis.TicksPointToData() ? Need - Axis.MajorTickLength() : std::ceil(Need - Axis.AxisThicknes() / 2));
  const int Extent = Whole(std::max(Need, ExtentUpToData(Axis)));
  if (FGraph == nullptr) {
    Axis.SetWidth(Extent);
  } else {
    Axis.SetBounds(Whole(FLeft.Margin), 0, Extent, FParent.ClientHeight());
  }
  if (!Axis.Visible()) return;
  FLeft.Axis = &Axis;
  if (FGraph == nullptr || !DropsMargin(FGraph->PrimaryXAxis())) FLeft.Margin += Need;
}

void TZyAxisLayout::SizeRightAxis(TZyAxis& Axis, float Need) {
  if (Axis.Visible()) {
    FRight.Axis = &Axis;
    FRight.Margin += Need;
  }
  if (FGraph == nullptr) {
    Axis.SetWidth(Whole(Need));
  } else {
    Axis.SetBounds(Whole(FWidth - FRight.Margin), 0, Whole(Need), FParent.ClientHeight());
  }
  Axis.SetAxLeft(Axis.TicksPointToData() ? Axis.MajorTickLength() : std::ceil(Axis.AxisThicknes() / 2));
}

void TZyAxisLayout::SizeBottomAxis(TZyAxis& Axis, float Need) {
  if (Axis.Visible()) {
    FBottom.Axis = &Axis;
    if (FGraph == nullptr || !DropsMargin(FGraph->PrimaryYAxis())) FBottom.Margin += Need;
  }
  if (FGraph == nullptr) {
    Axis.SetHeight(Whole(Need));
  } else {
    Axis.SetBounds(0, Whole(FHeight - FBottom.Margin), FParent.ClientWidth(), Whole(Need));
  }
  Axis.SetAxTop(Axis.TicksPointToData() ? Axis.MajorTickLength() : std::ceil(Axis.AxisThicknes() / 2));
  if (Axis.AxTop() < 1) Axis.SetAxTop(0);
}

void TZyAxisLayout::SizeTopAxis(TZyAxis& Axis, float Need) {
  Axis.SetAxTop(Axis.TicksPointToData() ? Need - Axis.MajorTickLength() : std::ceil(Need - Axis.AxisThicknes() / 2));
  const int Extent = Whole(std::max(Need, ExtentUpToData(Axis)));
  if (FGraph == nullptr) {
    Axis.SetHeight(Extent);
  } else {
    Axis.SetBounds(0, Whole(FTop.Margin), FParent.ClientWidth(), Extent);
  }
  if (!Axis.Visible()) return;
  FTop.Axis = &Axis;
  FTop.Margin += Need;
}

namespace {

/// Place of an axis at a side, and where its line starts in it, both across the axis.
float EdgeOf(const TZyAxis& Axis) { return static_cast<float>(Axis.GetHorizontal() ? Axis.Top() : Axis.Left()); }

void SetLine(TZyAxis& Axis, float Value) {
  if (Axis.GetHorizontal()) {
    Axis.SetAxTop(Value);
  } else {
    Axis.SetAxLeft(Value);
  }
}

}  // namespace

/// A line that was moved to the data area lies inside the control again, which grows up to it.
void TZyAxisLayout::KeepLineInside(TZyAxis& Axis) {
  const float Line = Axis.Geometry().Across();
  const int Before = std::max(Whole(std::ceil(HalfLine(Axis) - 1 - Line)), 0);
  SetLine(Axis, Line + static_cast<float>(Before));
  const int Extent = Whole(std::ceil(Axis.Geometry().Across() + HalfLine(Axis)));
  if (Axis.GetHorizontal()) {
    Axis.SetBounds(Axis.Left(), Axis.Top() - Before, Axis.Width(), std::max(Axis.Height() + Before, Extent));
  } else {
    Axis.SetBounds(Axis.Left() - Before, Axis.Top(), std::max(Axis.Width() + Before, Extent), Axis.Height());
  }
}

/// The side at coordinate 0: left or top.
void TZyAxisLayout::FitLow(TSide& Side, float Overhang) {
  if (Side.Axis == nullptr) {
    Side.Margin += Overhang;
  } else if (Side.Margin < Overhang) {
    Side.Margin = Overhang;
    SetLine(*Side.Axis, Side.Margin - Side.Axis->DistanceValuesAxis() - EdgeOf(*Side.Axis));
    KeepLineInside(*Side.Axis);
  } else {
    Side.Margin = std::ceil(EdgeOf(*Side.Axis) + Side.Axis->Geometry().Across() + Side.Axis->DistanceValuesAxis());
  }
}

/// The side at the far end of Extent: right or bottom.
void TZyAxisLayout::FitHigh(TSide& Side, float Overhang, float Extent) {
  if (Side.Axis == nullptr) {
    Side.Margin += Overhang;
  } else if (Side.Margin < Overhang) {
    Side.Margin = Overhang;
    SetLine(*Side.Axis, Extent - Side.Margin + Side.Axis->DistanceValuesAxis() - EdgeOf(*Side.Axis));
    KeepLineInside(*Side.Axis);
  } else {
    const float Line = EdgeOf(*Side.Axis) + Side.Axis->Geometry().Across();
    Side.Margin = std::ceil(Extent - Line + Side.Axis->DistanceValuesAxis());
  }
}

/// A margin is at least the overhang of the axes across it; the axis at that side keeps its line at the data area.
void TZyAxisLayout::FitOverhangs() {
  float Left = 0, Right = 0, Top = 0, Bottom = 0;
  for (const TZyAxis* Axis : FAxes) {
    if (!Axis->AutoSize()) continue;
    const TZyOverhang Overhang = OverhangOf(*Axis);
    if (Axis->GetHorizontal()) {
      Left = std::max(Left, Overhang.Low);
      Right = std::max(Right, Overhang.High);
    } else {
      Bottom = std::max(Bottom, Overhang.Low);
      Top = std::max(Top, Overhang.High);
    }
  }
  if (HasZeroOrigin()) {  // an axis inside the data area stands at no side
    if (FGraph->PrimaryXAxis()->CrossesZero()) FLeft.Axis = FRight.Axis = nullptr;
    if (FGraph->PrimaryYAxis()->CrossesZero()) FTop.Axis = FBottom.Axis = nullptr;
  }
  FitLow(FLeft, Left);
  FitHigh(FRight, Right, FWidth);
  FitLow(FTop, Top);
  FitHigh(FBottom, Bottom, FHeight);
}

}  // namespace zy
