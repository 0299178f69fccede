#include "annotations/ZyLineMarkerBox.h"

#include <algorithm>
#include <cmath>

#include "annotations/ZyMarkerPixels.h"

namespace zy {

namespace {

void Move(TRect& Rect, TPoint By) { Rect = {Rect.Left + By.X, Rect.Top + By.Y, Rect.Right + By.X, Rect.Bottom + By.Y}; }

int ColumnOf(TZyContentAlignment Place) { return static_cast<int>(Place) % 3; }
int RowOf(TZyContentAlignment Place) { return static_cast<int>(Place) / 3; }

/// Left or top end of a caption along a line from 0 on; Beyond says that it stands past the ends.
int PlaceAlong(const TZyLineMarkerLook& Look, int Third, bool Beyond, float Extent, int Delta) {
  const auto By = static_cast<float>(Delta), Length = static_cast<float>(Look.Length);
  if (Third == 1) return ToPixels(Length / 2 + By - Extent / 2);
  if (!Beyond) return Third == 0 ? -Delta : ToPixels(Length + By - Extent);
  if (Third == 0) return std::max(ToPixels(-Extent - By), -Look.Before);
  return std::min(ToPixels(Length + By), Look.Length + Look.After - ToPixels(Extent));
}

/// Top of a caption above, on or below a horizontal line whose strip begins at 0.
int TopOfUpright(int Row, float Height, int Delta, int Thickness) {
  const float Half = static_cast<float>(Thickness) / 2;
  if (Row == 0) return 1 - ToPixels(Height + static_cast<float>(Delta) - Half);
  if (Row == 2) return Delta + Thickness / 2;
  const int Room = std::max(ToPixels(Height), Thickness);
  return -ToPixels(static_cast<float>(Room - Thickness) / 2 + static_cast<float>(Delta));
}

/// The same of a text that runs upwards.
int TopOfTurned(int Row, float Height, float Delta, int Thickness) {
  const float Half = static_cast<float>(Thickness) / 2;
  const int Away = ToPixels(Half + Delta);
  if (Row == 0)
    return Away > 0 ? Thickness - Away - std::max(ToPixels(Height), Thickness) : -ToPixels(Height + Delta - Half);
  return Row == 1 ? -ToPixels(Height / 2 + Delta) : Away;
}

/// Left of a caption on a vertical line whose strip begins at 0. One that goes beyond the line is placed from the far
/// side of the box.
int LeftOfCentred(float Width, int Delta, int Thickness) {
  const float Half = static_cast<float>(Thickness) / 2, By = static_cast<float>(Delta);
  const int Reach = ToPixels(Half + std::fabs(By)), Room = std::max(ToPixels(Width), Thickness);
  if (Delta < 0 || 2 * Reach <= Room) return ToPixels(Half + By - Width / 2);
  const float Whole = static_cast<float>(ToPixels(static_cast<float>(Room) / 2 + static_cast<float>(Reach)));
  return ToPixels(Whole - Width) - ToPixels(Whole - Width / 2 - By - Half);
}

}  // namespace

TZyLineMarkerBox::TZyLineMarkerBox(const TZyLineMarkerLook& Look) {
  Line = Look.IsHorizontal ? TRect{0, 0, Look.Length, Look.Thickness} : TRect{0, 0, Look.Thickness, Look.Length};
  TRect Whole = Line;
  if (Look.HasCaption) {
    PlaceCaption(Look);
    Whole = {std::min(Line.Left, Caption.Left), std::min(Line.Top, Caption.Top), std::max(Line.Right, Caption.Right),
             std::max(Line.Bottom, Caption.Bottom)};
    const TPoint Inwards{-Whole.Left, -Whole.Top};
    Move(Line, Inwards);
    Move(Caption, Inwards);
    AlignCaption(Look);
  }
  Width = Whole.Right - Whole.Left + Look.Shadow;
  Height = Whole.Bottom - Whole.Top + Look.Shadow;
  HotDelta = Look.IsHorizontal ? TPoint{0, Line.Top + Look.Thickness / 2} : TPoint{Line.Left + Look.Thickness / 2, 0};
}

void TZyLineMarkerBox::PlaceCaption(const TZyLineMarkerLook& Look) {
  const SizeF Extent = Look.IsVertical ? SizeF{Look.Caption.Height, Look.Caption.Width} : Look.Caption;
  const int Column = ColumnOf(Look.Place), Row = RowOf(Look.Place);
  const float Half = static_cast<float>(Look.Thickness) / 2;
  const auto X = static_cast<float>(Look.Delta.X), Y = static_cast<float>(Look.Delta.Y);
  if (Look.IsHorizontal) {
    const int Outwards = Column == 1 && Look.IsVertical ? 0 : Look.Delta.X;
    Caption.Left = PlaceAlong(Look, Column, Row == 1, Extent.Width, Outwards);
    Caption.Top = Look.IsVertical ? TopOfTurned(Row, Extent.Height, Y, Look.Thickness)
                                  : TopOfUpright(Row, Extent.Height, Look.Delta.Y, Look.Thickness);
  } else {
    Caption.Top = PlaceAlong(Look, Row, Column == 1, Extent.Height, Look.Delta.Y);
    if (Column == 0) Caption.Left = -ToPixels(Extent.Width + X - Half);
    if (Column == 1) Caption.Left = LeftOfCentred(Extent.Width, Look.Delta.X, Look.Thickness);
    const int Beside = Look.Delta.X + Look.Thickness / 2;
    if (Column == 2) Caption.Left = Beside > 0 ? Beside : ToPixels(X + Half);
  }
  Caption.Right = Caption.Left + ToPixels(Extent.Width);
  Caption.Bottom = Caption.Top + ToPixels(Extent.Height);
}

/// Lines of text stand at the side of the caption that lies at the marker. The top of a text that runs upwards is on
/// its left, and its left end below.
void TZyLineMarkerBox::AlignCaption(const TZyLineMarkerLook& Look) {
  using enum TZyContentAlignment;
  const int Column = ColumnOf(Look.Place), Row = RowOf(Look.Place);
  int End = 0;  // of the text: its left one, its centre, its right one
  if (Look.IsVertical) {
    End = Look.IsHorizontal || Row == 1 ? Row : Row == 0 && Column != 1 ? 2 : 0;
  } else if (Look.IsHorizontal && Row != 1) {
    End = Column;
  } else {
    End = 2 - Column;
  }
  Align = static_cast<TZyContentAlignment>(End);
  const float B = Look.Border, Left = static_cast<float>(Caption.Left), Right = static_cast<float>(Caption.Right),
              Top = static_cast<float>(Caption.Top), Bottom = static_cast<float>(Caption.Bottom);
  if (Look.IsVertical) {
    const float Ends[] = {Bottom - B, (Top + Bottom) / 2, Top + B};
    Anchor = {Left + B, Ends[End]};
  } else {
    const float Ends[] = {Left + B, (Left + Right) / 2, Right - B};
    Anchor = {Ends[End], Top + B};
  }
}

}  // namespace zy
