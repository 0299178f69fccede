#include "annotations/ZyLegendGrid.h"

#include <algorithm>
#include <cmath>

#include "platform/controls/TControl.h"

namespace zy {

int RoundToPixels(float Value) {
  constexpr auto Most = static_cast<float>(TControl::MostExtent);
  if (!(std::fabs(Value) < Most)) return Value > 0 ? TControl::MostExtent : -TControl::MostExtent;
  return static_cast<int>(std::lrint(Value));
}

namespace {

float ToFloat(int Value) { return static_cast<float>(Value); }

}  // namespace

TZyLegendGrid::TZyLegendGrid(const TZyLegendGridLook& Look, const TZyLegendTitle* Title,
                             std::vector<TZyLegendCell>& Cells)
    : FLook(Look),
      FCells(Cells),
      FToCaption(RoundToPixels(Look.ItemWidth + Look.DistanceItemCaption)),
      FWidth(RoundToPixels(2 * Look.DistanceToBorder)),
      FHeight(RoundToPixels(Look.DistanceToBorder)) {
  if (Title != nullptr)
    FHeight = RoundToPixels(
        ToFloat(FHeight) + ToFloat(RoundToPixels(Title->Extent.Height + Title->DistanceBefore + Title->DistanceAfter)));
  if (!FCells.empty()) {
    if (Look.Order == TZyItemsOrder::ByColumn) {
      FillColumns();
    } else {
      FillRows();
    }
  }
  FHeight = RoundToPixels(ToFloat(FHeight) + Look.DistanceToBorder);
  if (Title != nullptr) FitTitle(*Title);
}

int TZyLegendGrid::HeightOf(const TZyLegendCell& Cell) const {
  const int OfCaption = RoundToPixels(Cell.Caption.Height);
  return ToFloat(OfCaption) < FLook.ItemHeight ? RoundToPixels(FLook.ItemHeight) : OfCaption;
}

void TZyLegendGrid::Place(TZyLegendCell& Cell, int X, int Y) const {
  const auto Height = ToFloat(HeightOf(Cell));
  const int Top = RoundToPixels((Height - FLook.ItemHeight) / 2 + ToFloat(Y));
  Cell.Symbol = {X, Top, X + RoundToPixels(FLook.ItemWidth), Top + RoundToPixels(FLook.ItemHeight)};
  Cell.Anchor = {ToFloat(X + FToCaption), ToFloat(Y) + Height / 2};
}

void TZyLegendGrid::Move(TZyLegendCell& Cell, float By) const {
  const int Whole = RoundToPixels(By);
  Cell.Symbol.Left += Whole;
  Cell.Symbol.Right += Whole;
  Cell.Anchor.X += By;
}

void TZyLegendGrid::FillColumns() {
  const int Top = FHeight;
  float Quota = 0;  // of the height, for each column
  for (const TZyLegendCell& Cell : FCells) Quota += ToFloat(HeightOf(Cell));
  Quota /= ToFloat(FLook.Columns);
  int X = RoundToPixels(FLook.DistanceToBorder), Y = Top, Widest = 0;
  float Filled = 0;
  for (TZyLegendCell& Cell : FCells) {
    const int Height = HeightOf(Cell);
    Filled += ToFloat(Height);
    Widest = std::max(Widest, RoundToPixels(Cell.Caption.Width));
    Place(Cell, X, Y);
    FHeight = std::max(FHeight, Y + Height);
    Y = RoundToPixels(ToFloat(Y + Height) + FLook.DistanceBetweenLines);
    if (Filled < Quota || &Cell == &FCells.back()) continue;
    const float Step = ToFloat(Widest) + FLook.DistanceBetweenColumns + ToFloat(FToCaption);
    X = RoundToPixels(ToFloat(X) + Step);
    FWidth = RoundToPixels(ToFloat(FWidth) + Step);
    Y = Top;
    Filled = 0;
    Widest = 0;
  }
  FWidth += Widest + FToCaption;
}

void TZyLegendGrid::FillRows() {
  const int Count = static_cast<int>(FCells.size());
  const int Quota = FLook.Rows >= Count ? 0 : Count / FLook.Rows;
  std::vector<TRow> Rows(1);
  int X = 0, Y = FHeight, Tallest = 0, InRow = 0;
  float Along = 0;
  const auto EndRow = [&](std::size_t End) {
    Rows.back().End = End;
    Rows.back().Width = RoundToPixels(Along - FLook.DistanceBetweenColumns);
  };
  for (std::size_t Index = 0; Index < FCells.size(); ++Index) {
    TZyLegendCell& Cell = FCells[Index];
    ++InRow;
    Tallest = std::max(Tallest, HeightOf(Cell));
    Place(Cell, X, Y);
    Along += ToFloat(RoundToPixels(Cell.Caption.Width) + FToCaption) + FLook.DistanceBetweenColumns;
    FWidth = std::max(FWidth, RoundToPixels(Along - FLook.DistanceBetweenColumns + 2 * FLook.DistanceToBorder));
    X = RoundToPixels(Along);
    if (InRow < Quota || Index + 1 == FCells.size()) continue;
    EndRow(Index + 1);
    Rows.push_back({Index + 1});
    const float Down = ToFloat(Tallest) + FLook.DistanceBetweenLines;
    Y = RoundToPixels(ToFloat(Y) + Down);
    FHeight = RoundToPixels(ToFloat(FHeight) + Down);
    X = InRow = Tallest = 0;
    Along = 0;
  }
  EndRow(FCells.size());
  FHeight += Tallest;
  for (const TRow& Row : Rows) CentreRow(Row);
}

void TZyLegendGrid::CentreRow(const TRow& Row) {
  const int Offset = ((FLook.FixedWidth < 0 ? FWidth : FLook.FixedWidth) - Row.Width) / 2;
  for (std::size_t Index = Row.First; Index < Row.End; ++Index) Move(FCells[Index], ToFloat(Offset));
}

/// A title that is wider than the items has these stand below it as it is aligned.
void TZyLegendGrid::FitTitle(const TZyLegendTitle& Title) {
  const float Wanted = 2 * FLook.DistanceToBorder + Title.Extent.Width;
  if (Wanted > ToFloat(FWidth)) {
    const float Beyond = Wanted - ToFloat(FWidth);
    if (Title.Alignment != TAlignment::taLeftJustify)
      for (TZyLegendCell& Cell : FCells) Move(Cell, Title.Alignment == TAlignment::taCenter ? Beyond / 2 : Beyond);
    FWidth = RoundToPixels(Wanted);
  }
  FTitleAnchor.Y = FLook.DistanceToBorder + Title.DistanceBefore;
  switch (Title.Alignment) {
    case TAlignment::taLeftJustify:
      FTitleAnchor.X = FLook.DistanceToBorder;
      break;
    case TAlignment::taRightJustify:
      FTitleAnchor.X = ToFloat(FWidth) - FLook.DistanceToBorder;
      break;
    case TAlignment::taCenter:
      FTitleAnchor.X = ToFloat(FWidth) / 2;
      break;
  }
}

}  // namespace zy
