#include "platform/drawing/Font.h"

#include <QFont>
#include <QFontMetricsF>
#include <algorithm>
#include <cmath>

#include "platform/drawing/QtText.h"
#include "texts/Exceptions.h"
#include "texts/NumberText.h"
#include "texts/ZyLocalize.h"

namespace zy {

// The toolkit knows fonts of whole pixel sizes only. The nearest one is taken, laid out with unhinted advances, so that
// widths are proportional to the size, and the remaining factor is left to the transform.
Font::Font(std::string_view FamilyName, float Size, TFontStyles Style)
    : FFamilyName(FamilyName), FSize(Size), FStyle(Style) {
  if (!(Size > 0 && Size <= MaxSize))
    throw ERangeError(Format(LoadResString(_sFontSize), {FloatToStr(static_cast<double>(Size))}));
  const double Pixels = static_cast<double>(Size) * (96.0 / 72.0);
  const int WholePixels = std::max(1, static_cast<int>(std::lround(Pixels)));
  FQtScale = Pixels / WholePixels;
  QFont Result(ToQString(FamilyName));
  Result.setPixelSize(WholePixels);
  Result.setHintingPreference(QFont::PreferNoHinting);
  Result.setBold(Style.Contains(TFontStyle::Bold));
  Result.setItalic(Style.Contains(TFontStyle::Italic));
  Result.setUnderline(Style.Contains(TFontStyle::Underline));
  Result.setStrikeOut(Style.Contains(TFontStyle::Strikeout));
  FQtFont = std::make_shared<const QFont>(std::move(Result));
}

float Font::GetHeight() const { return static_cast<float>(QFontMetricsF(*FQtFont).lineSpacing() * FQtScale); }

float Font::GetAscent() const { return static_cast<float>(QFontMetricsF(*FQtFont).ascent() * FQtScale); }

float Font::GetDescent() const { return static_cast<float>(QFontMetricsF(*FQtFont).descent() * FQtScale); }

SizeF Font::MeasureString(std::string_view Text) const {
  const QFontMetricsF Metrics(*FQtFont);
  double Width = 0;
  double Height = Metrics.ascent() + Metrics.descent() - Metrics.lineSpacing();
  ForEachLine(Text, [&](std::string_view Line) {
    Width = std::max(Width, Metrics.horizontalAdvance(ToShownLine(Line)));
    Height += Metrics.lineSpacing();
  });
  return {static_cast<float>(Width * FQtScale), static_cast<float>(Height * FQtScale)};
}

RectF Font::BoxOf(std::string_view Text, PointF Origin) const {
  const auto [Width, Height] = MeasureString(Text);
  const float Room = GetHeight() / 2 + 2;
  return {Origin.X - Room, Origin.Y - Room, Width + 2 * Room, Height + 2 * Room};
}

}  // namespace zy
