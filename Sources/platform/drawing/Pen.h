#pragma once

#include <memory>
#include <span>
#include <vector>

#include "platform/drawing/Brush.h"
#include "platform/drawing/GraphicsPath.h"
#include "platform/framework/Argb.h"
#include "platform/framework/EnumInfo.h"

class QPen;

namespace zy {

/// How a line is broken up.
enum TDashStyle {
  DashStyleSolid,
  DashStyleDash,
  DashStyleDot,
  DashStyleDashDot,
  DashStyleDashDotDot,
  DashStyleCustom  ///< by the pen's own pattern, see Pen::SetDashPattern
};
ZY_ENUM(TDashStyle, "DashStyleSolid", "DashStyleDash", "DashStyleDot", "DashStyleDashDot", "DashStyleDashDotDot",
        "DashStyleCustom")

/// How a line ends.
enum LineCap {
  LineCapFlat = 0,
  LineCapSquare = 1,
  LineCapRound = 2,
  LineCapTriangle = 3,
  LineCapSquareAnchor = 0x11,
  LineCapRoundAnchor = 0x12,
  LineCapDiamondAnchor = 0x13,
  LineCapArrowAnchor = 0x14,
  LineCapCustom = 0xFF
};

/// What lies at the corners of a line.
enum LineJoin { LineJoinMiter, LineJoinBevel, LineJoinRound };

/// A shape at the end of a line, such as the head of an arrow.
///
/// Its paths are in units of the pen's width, as for a line that runs upwards on a screen with y up and ends at the
/// origin: (0, 0) is the line's end, negative y lies back along the line.
class CustomLineCap {
 public:
  /// The cap is filled with the pen's brush in FillPath and drawn with its width in StrokePath; either may be null.
  /// The line ends BaseInset widths in front of its end, with BaseCap.
  CustomLineCap(const GraphicsPath* FillPath, const GraphicsPath* StrokePath, LineCap BaseCap = LineCapFlat,
                float BaseInset = 0);

  const GraphicsPath& FillPath() const { return FFillPath; }
  const GraphicsPath& StrokePath() const { return FStrokePath; }
  LineCap GetBaseCap() const { return FBaseCap; }
  float GetBaseInset() const { return FBaseInset; }
  void SetBaseInset(float Value) { FBaseInset = Value; }

 private:
  GraphicsPath FFillPath;
  GraphicsPath FStrokePath;
  LineCap FBaseCap;
  float FBaseInset;
};

/// What lines and outlines are drawn with. A value; copies are independent.
class Pen {
 public:
  /// Width in pixels; fractions are legal, and what is thinner than a pixel is drawn as one pixel.
  explicit Pen(ARGB Color, float Width = 1);
  /// A pen that draws with a copy of the brush.
  explicit Pen(const Brush& Fill, float Width = 1);

  /// Colour of a pen of one colour; 0 for one from another brush.
  ARGB GetColor() const;
  void SetColor(ARGB Value);
  const Brush& GetBrush() const { return FOther != nullptr ? *FOther : FSolid; }
  void SetBrush(const Brush& Value);
  float GetWidth() const { return FWidth; }
  void SetWidth(float Value) { FWidth = Value; }
  /// The width that is drawn: finite and at least 1.
  float EffectiveWidth() const;
  TDashStyle GetDashStyle() const { return FDashStyle; }
  void SetDashStyle(TDashStyle Value) { FDashStyle = Value; }
  /// Lengths of dash and gap in turn, in units of the pen's width. Sets DashStyleCustom; entries that are not above 0
  /// are taken as 1, and an odd count repeats the list.
  void SetDashPattern(std::span<const float> Pattern);
  /// Lengths of dash and gap in turn of the present style, in units of the width; empty for a solid line.
  std::vector<float> DashPattern() const;
  /// Longest mitre of a corner, in units of the pen's width; sharper corners are cut off.
  float GetMiterLimit() const { return FMiterLimit; }
  void SetMiterLimit(float Value) { FMiterLimit = Value; }
  LineJoin GetLineJoin() const { return FLineJoin; }
  void SetLineJoin(LineJoin Value) { FLineJoin = Value; }
  LineCap GetStartCap() const { return FStartCap; }
  void SetStartCap(LineCap Value);
  LineCap GetEndCap() const { return FEndCap; }
  void SetEndCap(LineCap Value);
  /// Shapes at the ends of a line; copied.
  void SetCustomStartCap(const CustomLineCap& Value);
  void SetCustomEndCap(const CustomLineCap& Value);
  /// The shape at an end, null when the end is one that the line itself has (flat, square, round).
  const CustomLineCap* StartShape() const { return FStartShape.get(); }
  const CustomLineCap* EndShape() const { return FEndShape.get(); }

  /// The toolkit's pen of the same look, but for its brush and shapes at the ends. For Graphics.
  QPen ToQt() const;

 private:
  SolidBrush FSolid;
  std::shared_ptr<const Brush> FOther;  // in its place; never changed, so that copies share it
  float FWidth;
  float FMiterLimit = 10;
  TDashStyle FDashStyle = DashStyleSolid;
  std::vector<float> FDashPattern;
  LineJoin FLineJoin = LineJoinMiter;
  LineCap FStartCap = LineCapFlat;
  LineCap FEndCap = LineCapFlat;
  std::shared_ptr<const CustomLineCap> FStartShape;
  std::shared_ptr<const CustomLineCap> FEndShape;
};

}  // namespace zy
