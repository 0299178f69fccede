#pragma once

#include <memory>

#include "graph/values/ZyColors.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/Pen.h"
#include "platform/framework/EnumInfo.h"

namespace zy {

class TStrings;

/// The pen of all line settings.
class TZyPen : public Pen {
 public:
  using Pen::Pen;
  TZyColor Color() const { return GetColor(); }
  float Width() const { return GetWidth(); }
  TDashStyle DashStyle() const { return GetDashStyle(); }
};

/// How an area is filled: a pattern, or Total for one colour. The order is that of HatchStyle.
enum class TZyAreaStyle {
  Horizontal,
  Vertical,
  ForwardDiagonal,
  BackwardDiagonal,
  Cross,
  DiagonalCross,
  Percent05,
  Percent10,
  Percent20,
  Percent25,
  Percent30,
  Percent40,
  Percent50,
  Percent60,
  Percent70,
  Percent75,
  Percent80,
  Percent90,
  LightDownwardDiagonal,
  LightUpwardDiagonal,
  DarkDownwardDiagonal,
  DarkUpwardDiagonal,
  WideDownwardDiagonal,
  WideUpwardDiagonal,
  LightVertical,
  LightHorizontal,
  NarrowVertical,
  NarrowHorizontal,
  DarkVertical,
  DarkHorizontal,
  DashedDownwardDiagonal,
  DashedUpwardDiagonal,
  DashedHorizontal,
  DashedVertical,
  SmallConfetti,
  LargeConfetti,
  ZigZag,
  Wave,
  DiagonalBrick,
  HorizontalBrick,
  Weave,
  Plaid,
  Divot,
  DottedGrid,
  DottedDiamond,
  Shingle,
  Trellis,
  Sphere,
  SmallGrid,
  SmallCheckerBoard,
  LargeCheckerBoard,
  OutlinedDiamond,
  SolidDiamond,
  Total
};
ZY_ENUM(TZyAreaStyle, "Horizontal", "Vertical", "ForwardDiagonal", "BackwardDiagonal", "Cross", "DiagonalCross",
        "Percent05", "Percent10", "Percent20", "Percent25", "Percent30", "Percent40", "Percent50", "Percent60",
        "Percent70", "Percent75", "Percent80", "Percent90", "LightDownwardDiagonal", "LightUpwardDiagonal",
        "DarkDownwardDiagonal", "DarkUpwardDiagonal", "WideDownwardDiagonal", "WideUpwardDiagonal", "LightVertical",
        "LightHorizontal", "NarrowVertical", "NarrowHorizontal", "DarkVertical", "DarkHorizontal",
        "DashedDownwardDiagonal", "DashedUpwardDiagonal", "DashedHorizontal", "DashedVertical", "SmallConfetti",
        "LargeConfetti", "ZigZag", "Wave", "DiagonalBrick", "HorizontalBrick", "Weave", "Plaid", "Divot", "DottedGrid",
        "DottedDiamond", "Shingle", "Trellis", "Sphere", "SmallGrid", "SmallCheckerBoard", "LargeCheckerBoard",
        "OutlinedDiamond", "SolidDiamond", "Total")

/// The brush of an area style: ForeColor alone for Total, else the pattern in ForeColor on BackColor.
std::unique_ptr<Brush> GetAreaBrush(TZyAreaStyle Style, TZyColor ForeColor, TZyColor BackColor);

/// Replaces the texts of Strings by the names of the installed font families; nothing happens without Strings. Needs
/// the application object to exist.
void GetInstalledFontNames(TStrings* Strings);

}  // namespace zy
