#pragma once

namespace zy {

/// How large a chart goes out, and how fine.
struct TZyPictureSize {
  /// Extent in pixels of a screen with 96 to an inch, for which fonts, lines and distances are made: 4 inches of width
  /// are 384. Where one is 0 it is that of the chart itself.
  double Width = 0;
  double Height = 0;
  /// Stored pixels to an inch, for pictures of pixels, and what their files say of it.
  double Dpi = 96;

  static TZyPictureSize Millimeters(double Width, double Height, double Dpi = 300) {
    constexpr double ToPixels = 96 / 25.4;
    return {Width * ToPixels, Height * ToPixels, Dpi};
  }
  /// Stored pixels. The higher Dpi, the larger are texts and lines in them: twice as large at 192 as at 96.
  static TZyPictureSize Pixels(int Width, int Height, double Dpi = 96) {
    return {Width * 96 / Dpi, Height * 96 / Dpi, Dpi};
  }
};

}  // namespace zy
