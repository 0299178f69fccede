#include "graph/ZyChartPicture.h"

#include "graph/values/ZyColors.h"
#include "platform/drawing/Graphics.h"

namespace zy {
namespace {

constexpr ARGB TransparentWhite = 0x00FFFFFF;

}  // namespace

Metafile TZyChartPicture::Recorded(float PageWidth, float PageHeight) {
  Metafile Result(PageWidth, PageHeight);
  {
    Graphics Gr(Result);
    Paint(Gr, static_cast<float>(-Left()), 0, true);
  }
  return Result;
}

Bitmap TZyChartPicture::Painted(bool RemoveTransparency, TColor Ground, float PixelRatio) {
  Bitmap Result(Width(), Height(), PixelRatio);
  Result.SetOpaque(RemoveTransparency);
  {
    Graphics Gr(Result);
    Gr.Clear(RemoveTransparency ? TColorToARGB(Ground) : TransparentWhite);
    Paint(Gr, static_cast<float>(-Left()), 0, false);
  }
  return Result;
}

RectF PlaceOnPage(const TRect& Rect, float Ratio) {
  constexpr float Unit = 1.0f / 6;  // of the page, in printer pixels
  const auto Width = static_cast<float>(Rect.Width()), Height = static_cast<float>(Rect.Height());
  RectF Place{static_cast<float>(Rect.Left) * Unit, static_cast<float>(Rect.Top) * Unit, Width * Unit, Height * Unit};
  if (Width / Height < Ratio) {
    Place.Height = Width / Ratio * Unit;
  } else {
    Place.Width = Height * Ratio * Unit;
    Place.X += (Width * Unit - Place.Width) * 0.5f;
  }
  return Place;
}

}  // namespace zy
