// What axes need across their lines and beyond their ends, and the margins that follow from it.

#include <algorithm>
#include <cmath>

#include "axes/ZyAxisLayout.h"
#include "graph/ZyGraph2D.h"
#include "graph/parts/ZyGraphParts.h"
#include "series/ZySeries.h"

namespace zy {
namespace {

constexpr float SmallestLength = 40;
constexpr float GapAtRightEnd = 2;
constexpr float LengthsOfArrow = 3;  // room of an arrow in lengths of its tip

int Whole(float Value) { return static_cast<int>(Value); }

}  // namespace

float TZyAxisLayout::ClientExtent(const TZyAxis& Axis) const {
  if (FGraph == nullptr) return static_cast<float>(Axis.GetHorizontal() ? Axis.Width() : Axis.Height());
  return Axis.GetHorizontal() ? FWidth : FHeight;
}

/// Room of an axis across its direction.
float TZyAxisLayout::NeedOf(const TZyAxis& Axis) {
  const float Labels = Axis.GetHorizontal() ? Axis.FMaxNumberLabelHeight : Axis.FMaxNumberLabelWidth;
  const float Caption = Axis.GetHorizontal() ? Axis.CaptionHeight() : Axis.CaptionWidth();
  float Need = std::ceil(Axis.FAxisThicknes / 2) + Axis.DistanceToBorder() + Axis.FMajorTickLength;
  if (Labels > 0) Need += Axis.FDistanceAxisLabels + Axis.NumbersReach();
  if (Caption > 0) Need += Caption + (Labels > 0 ? Axis.DistanceNumbersCaption() : Axis.FDistanceAxisLabels);
  if (const float Power = Axis.ExtraExponentReach(); Power > 0)
    Need = std::max(Need, Axis.FAxisThicknes + Axis.FMajorTickLength + Axis.FDistanceAxisLabels + Power);
  return std::ceil(std::max(Need, 0.0f));
}

/// Depth of the solids of the axis, which lies behind its upper or right end.
float TZyAxisLayout::DepthAt(const TZyAxis& Axis) const {
  if (FGraph == nullptr || !FGraph->ShowsWalls()) return 0;
  float Result = 0;
  for (TZySeries* Series : Axis.RelatedSeries()) {
    auto* const Solid = dynamic_cast<IZySolidSeries*>(Series);
    if (Solid == nullptr || !Solid->IsSolid()) continue;
    Solid->PrepareDepth();
    Result = std::max(Result, Axis.GetHorizontal() ? Solid->HorizontalDepth() : Solid->VerticalDepth());
  }
  return Result;
}

/// What the drawing of a series takes beyond its data; nothing while data lie beyond the ends anyway.
float TZyAxisLayout::ExtraSpaceOf(const TZyAxis& Axis, TZyAxisPosition Side) const {
  float Result = 0;
  if (FGraph == nullptr || Axis.GetIsClipped()) return Result;
  for (const TZySeries* Series : Axis.RelatedSeries()) Result = std::max(Result, Series->ExtraSpaceAt(Side));
  return Result;
}

TZyAxisLayout::TOverhang TZyAxisLayout::OverhangOf(const TZyAxis& Axis) const {
  TOverhang Result;
  if (Axis.Visible() && !Axis.FAxLabels.empty()) {
    const TZyRichCaptionObject* Low = Axis.FAxLabels.front().get();
    const TZyRichCaptionObject* High = Axis.FAxLabels.back().get();
    if (Axis.FTwisted != Axis.RunsDown(Axis.FStart, Axis.FStop)) std::swap(Low, High);
    const auto Half = [&Axis](const TZyRichCaptionObject& Label) {
      return Axis.AlongAxis(Label.Width(), Label.Height()) / 2;
    };
    if (Axis.GetHorizontal()) {
      Result.Low = Axis.FAxLeft - (Low->X - Half(*Low));
      Result.High = High->X + Half(*High) + GapAtRightEnd - (Axis.FAxLeft + Axis.FAxLength);
    } else {
      Result.Low = Low->Y + Half(*Low) - (Axis.FAxTop + Axis.FAxLength);
      Result.High = Axis.FAxTop - (High->Y - Half(*High));
    }
  }
  using enum TZyAxisPosition;
  Result.Low = std::max(Result.Low, ExtraSpaceOf(Axis, Axis.GetHorizontal() ? Left : Bottom));
  Result.High = std::max({Result.High, ExtraSpaceOf(Axis, Axis.GetHorizontal() ? Right : Top), DepthAt(Axis)});
  if (Axis.FArrowPoint.Visible()) {
    float& AtTip = Axis.FTwisted ? Result.Low : Result.High;
    AtTip = std::max(AtTip, LengthsOfArrow * Axis.FArrowPoint.PointLength());
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
      const TOverhang Overhang = OverhangOf(Axis);
      const float Need = NeedOf(Axis);
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
      (Axis.GetHorizontal() ? Axis.FAxLeft : Axis.FAxTop) = Axis.GetHorizontal() ? Overhang.Low : Overhang.High;
      Axis.FAxLength = std::max(ClientExtent(Axis) - Overhang.Low - Overhang.High, SmallestLength);
    }
    Axis.CalculateTicks();
    Axis.FNeedsRecalculate = false;
  }
}

/// Where axes cross at 0, one that lies inside the data area takes no room beside it.
bool TZyAxisLayout::DropsMargin(const TZyAxis* Across) const {
  return FGraph != nullptr && FGraph->ZeroOrigin() && Across != nullptr && Across->Start() < 0;
}

void TZyAxisLayout::SizeLeftAxis(TZyAxis& Axis, float Need) {
  if (FGraph == nullptr) {
    Axis.SetWidth(Whole(Need));
  } else {
    Axis.SetBounds(Whole(FLeft.Margin), 0, Whole(Need), FParent.ClientHeight());
  }
  Axis.FAxLeft = Axis.FTicksPointToData ? Need - Axis.FMajorTickLength : std::ceil(Need - Axis.FAxisThicknes / 2);
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
  Axis.FAxLeft = Axis.FTicksPointToData ? Axis.FMajorTickLength : std::ceil(Axis.FAxisThicknes / 2);
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
  Axis.FAxTop = Axis.FTicksPointToData ? Axis.FMajorTickLength : std::ceil(Axis.FAxisThicknes / 2);
  if (Axis.FAxTop < 1) Axis.FAxTop = 0;
}

void TZyAxisLayout::SizeTopAxis(TZyAxis& Axis, float Need) {
  if (FGraph == nullptr) {
    Axis.SetHeight(Whole(Need));
  } else {
    Axis.SetBounds(0, Whole(FTop.Margin), FParent.ClientWidth(), Whole(Need));
  }
  Axis.FAxTop = Axis.FTicksPointToData ? Need - Axis.FMajorTickLength : std::ceil(Need - Axis.FAxisThicknes / 2);
  if (!Axis.Visible()) return;
  FTop.Axis = &Axis;
  FTop.Margin += Need;
}

/// The side at coordinate 0: left or top. Edge is the place of the axis control on it.
void TZyAxisLayout::FitLow(TSide& Side, float Overhang, int Edge, float& (*Origin)(TZyAxis&)) {
  if (Side.Axis == nullptr) {
    Side.Margin += Overhang;
  } else if (Side.Margin < Overhang) {
    Side.Margin = Overhang;
    Origin(*Side.Axis) = Side.Margin - Side.Axis->FDistanceValuesAxis - static_cast<float>(Edge);
  } else {
    Side.Margin = std::ceil(static_cast<float>(Edge) + Origin(*Side.Axis) + Side.Axis->FDistanceValuesAxis);
  }
}

/// The side at the far end of Extent: right or bottom.
void TZyAxisLayout::FitHigh(TSide& Side, float Overhang, int Edge, float Extent, float& (*Origin)(TZyAxis&)) {
  if (Side.Axis == nullptr) {
    Side.Margin += Overhang;
  } else if (Side.Margin < Overhang) {
    Side.Margin = Overhang;
    Origin(*Side.Axis) = Extent - Side.Margin + Side.Axis->FDistanceValuesAxis - static_cast<float>(Edge);
  } else {
    const float Line = static_cast<float>(Edge) + Origin(*Side.Axis);
    Side.Margin = std::ceil(Extent - Line + Side.Axis->FDistanceValuesAxis);
  }
}

/// A margin is at least the overhang of the axes across it; the axis at that side keeps its line at the data area.
void TZyAxisLayout::FitOverhangs() {
  float Left = 0, Right = 0, Top = 0, Bottom = 0;
  for (const TZyAxis* Axis : FAxes) {
    if (!Axis->AutoSize()) continue;
    const TOverhang Overhang = OverhangOf(*Axis);
    if (Axis->GetHorizontal()) {
      Left = std::max(Left, Overhang.Low);
      Right = std::max(Right, Overhang.High);
    } else {
      Bottom = std::max(Bottom, Overhang.Low);
      Top = std::max(Top, Overhang.High);
    }
  }
  if (HasZeroOrigin()) {  // an axis inside the data area stands at no side
    if (CrossesZero(*FGraph->PrimaryXAxis())) FLeft.Axis = FRight.Axis = nullptr;
    if (CrossesZero(*FGraph->PrimaryYAxis())) FTop.Axis = FBottom.Axis = nullptr;
  }
  const auto AxLeft = [](TZyAxis& Axis) -> float& { return Axis.FAxLeft; };
  const auto AxTop = [](TZyAxis& Axis) -> float& { return Axis.FAxTop; };
  const auto LeftOf = [](const TSide& Side) { return Side.Axis == nullptr ? 0 : Side.Axis->Left(); };
  const auto TopOf = [](const TSide& Side) { return Side.Axis == nullptr ? 0 : Side.Axis->Top(); };
  FitLow(FLeft, Left, LeftOf(FLeft), AxLeft);
  FitHigh(FRight, Right, LeftOf(FRight), FWidth, AxLeft);
  FitLow(FTop, Top, TopOf(FTop), AxTop);
  FitHigh(FBottom, Bottom, TopOf(FBottom), FHeight, AxTop);
}

}  // namespace zy
