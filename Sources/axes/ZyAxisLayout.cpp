#include "axes/ZyAxisLayout.h"

#include <algorithm>
#include <cmath>

#include "graph/ZyGraph2D.h"

namespace zy {

void TZyAxis::Calculate() {
  if (Parent() == nullptr || LayoutRunning) return;
  if (const TZyGraph2D* const Parent = Graph(); Parent != nullptr && Parent->Updating()) return;
  TZyAxisLayout(*this).Run();
}

TZyAxisLayout::TZyAxisLayout(TZyAxis& Axis)
    : FParent(*Axis.Parent()),
      FGraph(Axis.Graph()),
      FClientWidth(FParent.ClientWidth()),
      FClientHeight(FParent.ClientHeight()) {
  TZyAxis::LayoutRunning = true;
  for (TControl* Control : FParent.Controls())
    if (auto* const Child = dynamic_cast<TZyAxis*>(Control)) FAxes.push_back(Child);
}

TZyAxisLayout::~TZyAxisLayout() { TZyAxis::LayoutRunning = false; }

void TZyAxisLayout::Run() {
  RoundEndsAndTakeTicks();
  TakeMarginsOfGraph();
  SizeAxes();
  FitOverhangs();
  TakeFinalTicks();
  PlaceDataArea();
  if (FGraph != nullptr) FGraph->SeriesModified();
}

/// An axis too short for its labels still keeps a usable length.
float TZyAxisLayout::SmallestLength(float Length) { return std::max(Length, 40.0f); }

void TZyAxisLayout::RoundEndsAndTakeTicks() {
  for (TZyAxis* Axis : FAxes) {
    if (Axis->GetHorizontal()) {
      Axis->SetBounds(Axis->Left(), Axis->Top(), FClientWidth, Axis->Height());
    } else {
      Axis->SetBounds(Axis->Left(), Axis->Top(), Axis->Width(), FClientHeight);
    }
    if (!Axis->FValuesRounded) {
      Axis->RoundEnds(Axis->FStart, Axis->FStop);
      Axis->FValuesRounded = true;
    }
    Axis->FAxLeft = Axis->FAxTop = 0;
    Axis->FAxLength = static_cast<float>(Axis->GetHorizontal() ? Axis->Width() : Axis->Height());
    Axis->CalculateTicks();
  }
}

void TZyAxisLayout::TakeMarginsOfGraph() {
  if (FGraph == nullptr) return;
  FLeft = std::ceil(FGraph->DistanceBorderAxisLeft());
  FRight = std::ceil(FGraph->DistanceBorderAxisRight());
  FTop = std::ceil(FGraph->DistanceBorderAxisTop());
  FBottom = std::ceil(FGraph->DistanceBorderAxisBottom());
  if (FGraph->CaptionVisible() && !FGraph->Caption().empty())
    FTop = std::ceil(FTop + FGraph->TitleHeight() + FGraph->CaptionDistanceBefore() + FGraph->CaptionDistanceAfter());
}

/// Room of an axis across its direction.
float TZyAxisLayout::NeedOf(const TZyAxis& Axis) {
  const float Labels = Axis.GetHorizontal() ? Axis.FMaxNumberLabelHeight : Axis.FMaxNumberLabelWidth;
  const float Caption = Axis.CaptionExtent();
  float Need = std::ceil(Axis.FAxisThicknes / 2) + Axis.DistanceToBorder() + Axis.FMajorTickLength;
  if (Labels > 0) Need += Axis.FDistanceAxisLabels + Labels;
  if (Caption > 0) Need += Caption + (Labels > 0 ? Axis.DistanceNumbersCaption() : Axis.FDistanceAxisLabels);
  return Need;
}

TZyAxisLayout::TOverhang TZyAxisLayout::OverhangOf(const TZyAxis& Axis) {
  TOverhang Result;
  if (!Axis.Visible() || Axis.FAxLabels.empty()) return Result;
  const TZyRichCaptionObject* Low = Axis.FAxLabels.front().get();
  const TZyRichCaptionObject* High = Axis.FAxLabels.back().get();
  if (Axis.FTwisted) std::swap(Low, High);
  if (Axis.GetHorizontal()) {
    Result.Low = Axis.FAxLeft - (Low->X - Low->Width() / 2);
    Result.High = High->X + High->Width() / 2 + 2 - (Axis.FAxLeft + Axis.FAxLength);
  } else {
    Result.Low = Low->Y + Low->Height() / 2 - (Axis.FAxTop + Axis.FAxLength);
    Result.High = Axis.FAxTop - (High->Y - High->Height() / 2);
  }
  Result.Low = std::max(0.0f, std::ceil(Result.Low));
  Result.High = std::max(0.0f, std::ceil(Result.High));
  return Result;
}

void TZyAxisLayout::SizeAxes() {
  for (auto Place = FAxes.rbegin(); Place != FAxes.rend(); ++Place) {
    TZyAxis& Axis = **Place;
    const auto Need = static_cast<int>(std::ceil(NeedOf(Axis)));
    if (Axis.GetHorizontal()) {
      SizeHorizontalAxis(Axis, Need);
    } else {
      SizeVerticalAxis(Axis, Need);
    }
    Axis.CalculateTicks();
    Axis.FNeedsRecalculate = false;
  }
}

void TZyAxisLayout::SizeVerticalAxis(TZyAxis& Axis, int Need) {
  const TOverhang Overhang = OverhangOf(Axis);
  const bool IsLeft = Axis.Position() == TZyAxisPosition::Left;
  const float Half = Axis.FAxisThicknes / 2;
  if (IsLeft) {
    Axis.SetBounds(static_cast<int>(FLeft), 0, Need, FClientHeight);
    if (Axis.Visible()) FLeft += static_cast<float>(Need);
    Axis.FAxLeft = Axis.FTicksPointToData ? static_cast<float>(Need) - Axis.FMajorTickLength
                                          : std::ceil(static_cast<float>(Need) - Half);
    if (Axis.Visible()) FLeftAxis = &Axis;
  } else {
    if (Axis.Visible()) FRight += static_cast<float>(Need);
    Axis.SetBounds(FClientWidth - static_cast<int>(FRight), 0, Need, FClientHeight);
    Axis.FAxLeft = Axis.FTicksPointToData ? Axis.FMajorTickLength : std::ceil(Half);
    if (Axis.Visible()) FRightAxis = &Axis;
  }
  Axis.FAxTop = Overhang.High;
  Axis.FAxLength = SmallestLength(static_cast<float>(Axis.Height()) - Overhang.Low - Overhang.High);
}

void TZyAxisLayout::SizeHorizontalAxis(TZyAxis& Axis, int Need) {
  const TOverhang Overhang = OverhangOf(Axis);
  const bool IsBottom = Axis.Position() == TZyAxisPosition::Bottom;
  const float Half = Axis.FAxisThicknes / 2;
  if (IsBottom) {
    if (Axis.Visible()) FBottom += static_cast<float>(Need);
    Axis.SetBounds(0, FClientHeight - static_cast<int>(FBottom), FClientWidth, Need);
    Axis.FAxTop = Axis.FTicksPointToData ? Axis.FMajorTickLength : std::ceil(Half);
    if (Axis.FAxTop < 1) Axis.FAxTop = 0;
    if (Axis.Visible()) FBottomAxis = &Axis;
  } else {
    Axis.SetBounds(0, static_cast<int>(FTop), FClientWidth, Need);
    if (Axis.Visible()) FTop += static_cast<float>(Need);
    Axis.FAxTop = Axis.FTicksPointToData ? static_cast<float>(Need) - Axis.FMajorTickLength
                                         : std::ceil(static_cast<float>(Need) - Half);
    if (Axis.Visible()) FTopAxis = &Axis;
  }
  Axis.FAxLeft = Overhang.Low;
  Axis.FAxLength = SmallestLength(static_cast<float>(Axis.Width()) - Overhang.Low - Overhang.High);
}

/// A margin is at least the overhang of the axes across it; an axis at that side then keeps its line at the data area.
void TZyAxisLayout::FitOverhangs() {
  float Left = 0, Right = 0, Top = 0, Bottom = 0;
  for (const TZyAxis* Axis : FAxes) {
    const TOverhang Overhang = OverhangOf(*Axis);
    if (Axis->GetHorizontal()) {
      Left = std::max(Left, Overhang.Low);
      Right = std::max(Right, Overhang.High);
    } else {
      Bottom = std::max(Bottom, Overhang.Low);
      Top = std::max(Top, Overhang.High);
    }
  }
  // Origin and Line: the axis line within the control and measured from the client edge of its side.
  const auto Fit = [](float& Margin, float Overhang, const TZyAxis* Axis, float Line, float Shift, float* Origin) {
    if (Axis == nullptr) {
      Margin += Overhang;
    } else if (Margin < Overhang) {
      Margin = Overhang;
      *Origin = Shift;
    } else {
      Margin = std::ceil(Line + Axis->FDistanceValuesAxis);
    }
  };
  const auto Width = static_cast<float>(FClientWidth), Height = static_cast<float>(FClientHeight);
  const auto Edge = [](int Place) { return static_cast<float>(Place); };
  if (TZyAxis* const A = FLeftAxis) {
    Fit(FLeft, Left, A, Edge(A->Left()) + A->FAxLeft, Left - A->FDistanceValuesAxis, &A->FAxLeft);
  } else {
    Fit(FLeft, Left, nullptr, 0, 0, nullptr);
  }
  if (TZyAxis* const A = FRightAxis) {
    Fit(FRight, Right, A, Width - Edge(A->Left()) - A->FAxLeft, Edge(A->Width()) - Right + A->FDistanceValuesAxis,
        &A->FAxLeft);
  } else {
    Fit(FRight, Right, nullptr, 0, 0, nullptr);
  }
  if (TZyAxis* const A = FTopAxis) {
    Fit(FTop, Top, A, Edge(A->Top()) + A->FAxTop, Top - A->FDistanceValuesAxis, &A->FAxTop);
  } else {
    Fit(FTop, Top, nullptr, 0, 0, nullptr);
  }
  if (TZyAxis* const A = FBottomAxis) {
    Fit(FBottom, Bottom, A, Height - Edge(A->Top()) - A->FAxTop, Edge(A->Height()) - Bottom + A->FDistanceValuesAxis,
        &A->FAxTop);
  } else {
    Fit(FBottom, Bottom, nullptr, 0, 0, nullptr);
  }
}

void TZyAxisLayout::TakeFinalTicks() {
  for (TZyAxis* Axis : FAxes) {
    if (Axis->GetHorizontal()) {
      FRight = std::max(FRight, std::ceil(Axis->FMajorTickThicknes / 2));
      Axis->FAxLeft = FLeft;
      Axis->FAxLength = SmallestLength(static_cast<float>(FClientWidth) - FLeft - FRight);
    } else {
      FTop = std::max(FTop, std::ceil(Axis->FMajorTickThicknes / 2));
      Axis->FAxTop = FTop;
      Axis->FAxLength = SmallestLength(static_cast<float>(FClientHeight) - FBottom - FTop);
    }
    Axis->CalculateTicks();
  }
}

void TZyAxisLayout::PlaceDataArea() {
  if (FGraph == nullptr) return;
  FGraph->SetDrawingArea({FLeft, FTop, static_cast<float>(FClientWidth) - FLeft - FRight + 1,
                          static_cast<float>(FClientHeight) - FTop - FBottom + 1});
  FGraph->PlaceTitle();
}

}  // namespace zy
