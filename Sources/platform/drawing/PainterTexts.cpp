// Texts and small shapes of the painter's backend, drawn once and put down many times.

#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <algorithm>
#include <cmath>
#include <functional>
#include <string>

#include "platform/drawing/Brush.h"
#include "platform/drawing/Font.h"
#include "platform/drawing/Graphics.h"
#include "platform/drawing/PainterBackend.h"
#include "platform/drawing/PainterShapes.h"
#include "platform/drawing/QtGeometry.h"
#include "platform/drawing/QtText.h"
#include "platform/drawing/ZySymbolStamps.h"

namespace zy {

bool TPainterBackend::DrawStamps(const TDrawState& State, std::string_view Look, const RectF& Extent,
                                 std::span<const PointF> Points, const std::function<void(Graphics&)>& Paint) {
  const QTransform Device = AsQt(DeviceTransform(State, TGrid::Centers));
  const double Scale = Device.m11();
  if (FImage == nullptr || Device.type() > QTransform::TxScale || !(Scale > 0) || Device.m22() != Scale) return false;
  Prepare(State);
  thread_local std::string Key;  // kept for its memory, as are the places
  thread_local std::vector<PointF> Kept;
  std::vector<PointF> Places = std::move(Kept);  // a stamp may be made of stamps
  Key.assign(Look).append(reinterpret_cast<const char*>(&Scale), sizeof Scale);
  Key += static_cast<char>(State.Smoothing);
  Key += static_cast<char>(State.Hint);
  const auto PaintStamp = [&](const TRasterTarget& Stamp, PointF Anchor) {
    QImage Picture(reinterpret_cast<uchar*>(Stamp.Pixels), Stamp.Width, Stamp.Height, Stamp.Stride * 4,
                   QImage::Format_ARGB32_Premultiplied);
    QPainter Painter(&Picture);
    Painter.translate(AsQt(Anchor) - QPointF(Scale, Scale) / 2);
    Painter.scale(Scale, Scale);
    Graphics Canvas(Painter);
    Canvas.SetSmoothingMode(State.Smoothing);
    Canvas.SetTextRenderingHint(State.Hint);
    Paint(Canvas);
  };
  const auto Factor = static_cast<float>(Scale);
  const RectF Room{(Extent.X - 1) * Factor, (Extent.Y - 1) * Factor, (Extent.Width + 2) * Factor,
                   (Extent.Height + 2) * Factor};
  constexpr float Most = TZySymbolStamps::LargestExtent;
  if (Room.Width > Most || Room.Height > Most || std::fabs(Room.X) > Most || std::fabs(Room.Y) > Most) return false;
  constexpr std::size_t MostLooks = 128;  // of one kind in all its sizes
  thread_local TZySymbolStamps Stamps(MostLooks);
  Places.clear();
  for (const PointF& Point : Points) Places.push_back(FromQt(Device).TransformPoint(Point));
  Stamps.Draw(SettledPixels(), RasterClip(), Key, Room, Places, std::cref(PaintStamp));
  Kept = std::move(Places);
  return true;
}

namespace {

QFont FaceOf(const Font& Font, TextRenderingHint Hint) {
  const bool WholePixels =
      Hint == TextRenderingHintSingleBitPerPixelGridFit || Hint == TextRenderingHintSingleBitPerPixel;
  QFont Result = Font.ToQt();
  // Coloured subpixels would make texts differ between a widget and a picture.
  Result.setStyleStrategy(WholePixels ? QFont::NoAntialias : QFont::NoSubpixelAntialias);
  return Result;
}

}  // namespace

/// Short texts are kept as stamps where they lie level or upright, as the toolkit lays a text out anew each time. It
/// too places glyphs at quarters of a pixel, and level base lines at whole ones.
bool TPainterBackend::DrawStringByStamp(const TDrawState& State, std::string_view Text, const Font& Font,
                                        const Brush& Brush, PointF Origin) {
  constexpr std::size_t LongestText = 64;
  constexpr double LargestFont = 48;  // pixels; the toolkit draws larger ones by their outlines, anywhere
  const auto* const Solid = dynamic_cast<const SolidBrush*>(&Brush);
  if (FImage == nullptr || Solid == nullptr || Text.size() > LongestText || Text.find('\n') != Text.npos) return false;
  const QTransform Device = AsQt(DeviceTransform(State, TGrid::Corners));
  const bool IsLevel = Device.type() <= QTransform::TxScale;
  const double Scale = IsLevel ? Device.m11() : std::abs(Device.m12());
  const bool IsEven = IsLevel ? Device.m22() == Scale : Device.m21() == -Device.m12();
  const double Pixels = static_cast<double>(Font.GetSize()) * static_cast<double>(Font::PixelsPerPoint) * Scale;
  if (!KeepsBoxes(Device) || !IsEven || !(Scale > 0) || Pixels > LargestFont) return false;

  const float Ascent = Font.GetAscent();
  const struct {
    float Across, Down, Size, Ascent;  // the first two are the way of the base line
    std::uint32_t Color, Style, Hint;
  } Look{static_cast<float>(Device.m11()),
         static_cast<float>(Device.m12()),
         Font.GetSize(),
         Ascent,
         Solid->GetColor(),
         Font.GetStyle().Bits(),
         State.Hint};
  thread_local std::string Key;  // kept for its memory
  Key.assign(Text).append(1, '\0').append(Font.GetFamilyName());
  Key.append(reinterpret_cast<const char*>(&Look), sizeof Look);
  const QPointF Anchor = Device.map(QPointF(Origin.X, static_cast<double>(Origin.Y) + static_cast<double>(Ascent)));
  const double Height = IsLevel ? std::floor(Anchor.y() + 0.5) : Anchor.y();
  const PointF Place{static_cast<float>(Anchor.x()), static_cast<float>(Height)};
  constexpr std::size_t MostTexts = 512;
  thread_local TZySymbolStamps Stamps(MostTexts);
  if (Stamps.DrawMade(SettledPixels(), RasterClip(), Key, Place)) return true;

  const QFont Face = FaceOf(Font, State.Hint);
  const QString Written = ToShownLine(Text);
  QTransform Way(Device.m11(), Device.m12(), Device.m21(), Device.m22(), 0, 0);
  Way.scale(Font.QtScale(), Font.QtScale());
  const QRectF Lines = QFontMetricsF(Face).boundingRect(Written);
  const double Room = Lines.height() / 2 + 2;  // for what leaves the line's box
  const QRectF Box = Way.mapRect(Lines.adjusted(-Room, -Room, Room, Room));
  const RectF Extent{static_cast<float>(Box.x()), static_cast<float>(Box.y()), static_cast<float>(Box.width()),
                     static_cast<float>(Box.height())};
  Stamps.Draw(SettledPixels(), RasterClip(), Key, Extent, {&Place, 1},
              [&](const TRasterTarget& Stamp, PointF StampAnchor) {
                QImage Picture(reinterpret_cast<uchar*>(Stamp.Pixels), Stamp.Width, Stamp.Height, Stamp.Stride * 4,
                               QImage::Format_ARGB32_Premultiplied);
                QPainter Painter(&Picture);
                Painter.setWorldTransform(Way * QTransform::fromTranslate(StampAnchor.X, StampAnchor.Y));
                Painter.setFont(Face);
                Painter.setPen(QColor::fromRgba(Solid->GetColor()));
                Painter.drawText(QPointF(0, 0), Written);
              });
  return true;
}

namespace {

/// Whether glyphs come to be so wide or so high that only their outlines can be drawn. The toolkit would make pictures
/// of them as long as they are thin enough, whatever memory these take.
bool AreVast(const QPainter& Painter, const QFont& Face) {
  constexpr double Vast = 2048;  // pixels
  const QTransform Whole = Painter.deviceTransform();
  return std::max(std::hypot(Whole.m11(), Whole.m12()), std::hypot(Whole.m21(), Whole.m22())) *
             QFontMetricsF(Face).height() >
         Vast;
}

}  // namespace

void TPainterBackend::DrawString(const TDrawState& State, std::string_view Text, const Font& Font, const Brush& Brush,
                                 PointF Origin) {
  Prepare(State);
  if (DrawStringByStamp(State, Text, Font, Brush, Origin)) return;
  const QFont Face = FaceOf(Font, State.Hint);
  PaintWithPainter(State, TGrid::Corners, [&](QPainter& Painter) {
    const double Scale = Font.QtScale();
    QBrush Fill = BrushOf(State, TGrid::Corners, Brush, Font.BoxOf(Text, Origin));
    Fill.setTransform(Fill.transform() * QTransform::fromScale(1 / Scale, 1 / Scale));
    Painter.setFont(Face);
    Painter.setPen(QPen(Fill, 0));
    if (Scale != 1) Painter.scale(Scale, Scale);
    FHasTransform = FHasTransform && Scale == 1;
    double BaseLine = static_cast<double>(Origin.Y) + static_cast<double>(Font.GetAscent());
    const bool ByOutlines = AreVast(Painter, Face);
    ForEachLine(Text, [&](std::string_view Line) {
      const QPointF Start = QPointF(Origin.X, BaseLine) / Scale;
      if (ByOutlines) {
        QPainterPath Outlines;
        Outlines.addText(Start, Face, ToShownLine(Line));
        Painter.fillPath(Outlines, Fill);
      } else {
        Painter.drawText(Start, ToShownLine(Line));
      }
      BaseLine += static_cast<double>(Font.GetHeight());
    });
  });
}

}  // namespace zy
