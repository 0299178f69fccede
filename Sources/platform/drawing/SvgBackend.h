#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "platform/drawing/GraphicsBackend.h"

class QBrush;
class QPainterPath;

namespace zy {

/// Writes what is drawn as an SVG document: paths, texts and pictures with gradients, patterns, clips and masks. The
/// toolkit's own writer knows neither clips nor patterns.
class TSvgBackend : public TGraphicsBackend {
 public:
  /// Extent of the page in pixels.
  TSvgBackend(float Width, float Height) : FWidth(Width), FHeight(Height) {}

  void Draw(const TDrawState& State, const Pen& Pen, const TShape& Shape) override;
  void Fill(const TDrawState& State, const Brush& Brush, const TShape& Shape) override;
  void DrawImage(const TDrawState& State, const Bitmap& Picture, const RectF& To, const RectF& From) override;
  void DrawString(const TDrawState& State, std::string_view Text, const Font& Font, const Brush& Brush,
                  PointF Origin) override;
  void Clear(const TDrawState& State, ARGB Color) override;

  /// The whole document.
  std::string Document();

 private:
  void DrawPlain(const TDrawState& State, const Pen& Pen, const GraphicsPath& Path);
  void Add(const TDrawState& State, std::string_view Element);
  void UseClip(const Region& Clip);
  std::vector<std::string> GroupsOf(const Region& Clip);
  std::string MaskOf(const Region& Clip);
  std::string ShapeOf(const Region::TPart& Part) const;
  std::string PaintOf(const TDrawState& State, float Offset, const Brush& Brush, const RectF& Box,
                      std::string_view Role);
  std::string Define(std::string_view Element, const std::string& Attributes, const std::string& Content);

  float FWidth;
  float FHeight;
  std::string FDefinitions;
  std::string FBody;
  std::map<std::string, std::string> FNames;  // of definitions by what they are
  Region FClip;                               // of the groups that are open
  std::vector<std::string> FGroups;           // their attributes
};

}  // namespace zy
