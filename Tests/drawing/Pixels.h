#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <string>

#include "platform/drawing/Bitmap.h"
#include "platform/drawing/Graphics.h"

namespace zy {

/// Alpha of the stored pixels of a row from column From on: '#' full, '.' none, '+' between.
inline std::string RowText(const Bitmap& Picture, int Row, int From, int Count) {
  std::string Result;
  for (int Column = From; Column < From + Count; ++Column) {
    const ARGB Alpha = Picture.GetPixel(Column, Row) >> 24;
    Result += Alpha == 255 ? '#' : Alpha == 0 ? '.' : '+';
  }
  return Result;
}

/// The same down a column.
inline std::string ColumnText(const Bitmap& Picture, int Column, int From, int Count) {
  std::string Result;
  for (int Row = From; Row < From + Count; ++Row) Result += RowText(Picture, Row, Column, 1);
  return Result;
}

/// A text with each character repeated: what a row looks like with that many stored pixels for each logical one.
inline std::string Stretched(const std::string& Text, int Ratio) {
  std::string Result;
  for (const char Character : Text) Result.append(static_cast<std::size_t>(Ratio), Character);
  return Result;
}

/// The box of stored pixels that are not transparent; empty with Right < Left.
struct TInkBox {
  int Left, Top, Right, Bottom;
};
inline TInkBox InkBox(const Bitmap& Picture) {
  TInkBox Box{Picture.GetStoredWidth(), Picture.GetStoredHeight(), -1, -1};
  for (int Row = 0; Row < Picture.GetStoredHeight(); ++Row) {
    for (int Column = 0; Column < Picture.GetStoredWidth(); ++Column) {
      if (Picture.GetPixel(Column, Row) >> 24 == 0) continue;
      Box.Left = std::min(Box.Left, Column);
      Box.Right = std::max(Box.Right, Column);
      Box.Top = std::min(Box.Top, Row);
      Box.Bottom = std::max(Box.Bottom, Row);
    }
  }
  return Box;
}

/// Largest difference of a channel of two colours.
inline int Distance(ARGB A, ARGB B) {
  int Result = 0;
  for (int Shift = 0; Shift < 32; Shift += 8)
    Result = std::max(Result, std::abs(static_cast<int>(A >> Shift & 255u) - static_cast<int>(B >> Shift & 255u)));
  return Result;
}

/// What is drawn on a transparent picture.
inline Bitmap PictureOf(int Width, int Height, const std::function<void(Graphics&)>& Draw, float PixelRatio = 1) {
  Bitmap Picture(Width, Height, PixelRatio);
  Graphics Canvas(Picture);
  Draw(Canvas);
  return Picture;
}

/// Expects colours at places.
struct TSpot {
  int X, Y;
  ARGB Color;
};
inline void ExpectSpots(const Bitmap& Picture, std::initializer_list<TSpot> Spots, int Tolerance = 0) {
  for (const auto& [X, Y, Color] : Spots) {
    const ARGB Found = Picture.GetPixel(X, Y);
    EXPECT_LE(Distance(Found, Color), Tolerance)
        << std::hex << Found << " instead of " << Color << std::dec << " at " << X << ", " << Y;
  }
}

}  // namespace zy
