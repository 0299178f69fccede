#include "dialogs/controls/ZyStyleSamples.h"

#include <algorithm>

#include "graph/shapes/ZyDrawing.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/Graphics.h"
#include "platform/framework/SystemColors.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

constexpr int WindowColor = 5;  // the desktop's number of it

RectF Inset(const TRect& Box, float Each) {
  return {static_cast<float>(Box.Left) + Each, static_cast<float>(Box.Top) + Each,
          static_cast<float>(Box.Width()) - 2 * Each, static_cast<float>(Box.Height()) - 2 * Each};
}

}  // namespace

void DrawItemGround(Graphics& Canvas, const TRect& Box) {
  Canvas.FillRectangle(SolidBrush(SystemColor(WindowColor)), Inset(Box, 0));
}

void DrawItemFrame(Graphics& Canvas, const TRect& Box) {
  RectF Frame = Inset(Box, 1);
  --Frame.Width;
  --Frame.Height;
  Canvas.SetSmoothingMode(SmoothingModeNone);
  Canvas.DrawRectangle(Pen(ContrastBackGroundARGB(SystemColor(WindowColor)), 2), Frame);
}

std::string TZyDashSample::ItemText(int Index) {
  constexpr TZyText Texts[] = {_sDashSolid, _sDashDash, _sDashDot, _sDashDashDot, _sDashDashDotDot};
  return LoadResString(Texts[Index]);
}

void TZyDashSample::Draw(Graphics& Canvas, int Index, const TRect& Box) const {
  constexpr float Margin = 3;
  const auto* const Settings = static_cast<TZySimpleLineSettings*>(TPersistent::FromLiveHandle(UseLineSettings));
  TZyPen Line = Settings != nullptr ? TZyPen(*Settings->GetPen(Box, 0)) : TZyPen(LineColor, LineWidth);
  Line.SetDashStyle(static_cast<TDashStyle>(Index));
  const int MiddleRow = Box.Top + Box.Height() / 2;
  const auto Middle = static_cast<float>(MiddleRow);
  Canvas.DrawLine(Line, static_cast<float>(Box.Left) + Margin, Middle, static_cast<float>(Box.Right) - Margin, Middle);
}

void TZyAreaSample::Draw(Graphics& Canvas, int Index, const TRect& Box) const {
  Canvas.FillRectangle(*GetAreaBrush(static_cast<TZyAreaStyle>(Index), ForeColor, BackColor), Inset(Box, 3));
}

void TZySymbolSample::Draw(Graphics& Canvas, int Index, const TRect& Box) const {
  const SmoothingMode Outer = Canvas.GetSmoothingMode();
  Canvas.SetSmoothingMode(SmoothingModeAntiAlias);
  const float X = static_cast<float>(Box.Left) + static_cast<float>(Box.Width()) / 2 - 1;
  const float Y = static_cast<float>(Box.Top) + static_cast<float>(Box.Height()) / 2 - 1;
  DrawPointSymbol(Canvas, Pen(BorderColor, BorderLineWidth), SolidBrush(FillColor), X, Y,
                  static_cast<float>(Box.Height() - 4), static_cast<TZyPointSymbol>(Index));
  Canvas.SetSmoothingMode(Outer);
}

}  // namespace zy
