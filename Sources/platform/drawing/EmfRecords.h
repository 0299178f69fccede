#pragma once

// The records of an enhanced metafile; for EmfDevice. Numbers and layouts are those that Microsoft publishes for the
// format, [MS-EMF], section 2.3.

#include <QImage>
#include <QPainterPath>
#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/drawing/EmfPlus.h"

namespace zy {

/// The styles of a geometric pen; one of each group is or-ed together.
enum TEmfPenStyle : std::uint32_t {
  epsSolid = 0,
  epsDash = 1,
  epsDot = 2,
  epsDashDot = 3,
  epsDashDotDot = 4,
  epsUserStyle = 7,
  epsCapRound = 0,
  epsCapSquare = 0x100,
  epsCapFlat = 0x200,
  epsJoinRound = 0,
  epsJoinBevel = 0x1000,
  epsJoinMiter = 0x2000,
  epsGeometric = 0x10000,
};

struct TEmfPen {
  std::uint32_t Style = epsSolid;
  double Width = 1;  ///< pixels
  QRgb Color = 0;
  double MiterLimit = 10;        ///< length of the mitre from inner to outer corner, in pen widths
  std::vector<double> Dashes{};  ///< pixels, for epsUserStyle
};

struct TEmfFont {
  QString Family{};
  double Size = 0;   ///< em height in pixels
  double Angle = 0;  ///< degrees, counterclockwise on the screen
  int Weight = 400;
  bool Italic = false;
};

/// Collects records. Coordinates are pixels and are stored in sixteenths of one; pens, brushes and fonts of one look
/// are made once. Clips nest: what is selected inside a level ends with it.
class TEmfRecords {
 public:
  /// Sixteenths of a pixel that are still written; what lies beyond is moved there. Players of the format reckon with
  /// 28 bits.
  static constexpr double LargestCoordinate = 1 << 26;

  TEmfRecords(QSizeF Pixels, double DotsPerInch);

  /// Between shapes, when nothing is selected for the next one: keeps the number of objects in bounds.
  void BeginShape();

  /// Leaves the clip levels of before, if any, and starts a level without a clip.
  void StartClips();
  void BeginLevel();
  void EndLevel();
  void ClipToRect(const QRectF& Rect);
  void ClipToPath(const QPainterPath& Path);

  /// No pen or no brush: outlines or insides are left out.
  void SelectPen(const std::optional<TEmfPen>& Pen);
  void SelectBrush(std::optional<QRgb> Color);
  void SelectFont(const TEmfFont& Font);
  void SetTextColor(QRgb Color);

  /// Through the pen.
  void Polyline(std::span<const QPointF> Points);
  void StrokePath(const QPainterPath& Path);
  /// Through pen and brush.
  void Polygon(std::span<const QPointF> Points, Qt::FillRule Rule);
  void StrokeAndFillPath(const QPainterPath& Path);
  /// Through the brush.
  void FillPath(const QPainterPath& Path);
  /// Blended when the picture has transparent pixels, copied when it has none.
  void Picture(const QRectF& Place, const QImage& Picture);
  /// What a reader draws that knows the other language, in place of all records up to EndAlternative.
  void BeginAlternative(const TEmfPlus& Drawing);
  void EndAlternative();
  /// Ends has, for each UTF-16 unit, the way in pixels from the start of the line to the unit's end.
  void Text(const QPointF& BaseLine, const QString& Text, std::span<const double> Ends);

  /// The whole file as it would be if it ended here.
  std::vector<std::byte> File() const;

 private:
  /// What is selected.
  struct TState {
    std::uint32_t Pen;
    std::uint32_t Brush;
    std::uint32_t Font;
    std::uint32_t FillMode;
    QRgb TextColor;
    std::uint32_t MiterLimit;
  };

  void Begin(std::uint32_t Type);
  void End();
  template <typename T>
  void Put(T Value);
  void Put(const QRectF& Bounds);
  void Put(const QPointF& Point);
  void PutEmpty(std::uint32_t Type);
  void PutOne(std::uint32_t Type, std::uint32_t Value);
  void PutPair(std::uint32_t Type, std::int32_t First, std::int32_t Second);
  void PutPoints(std::uint32_t Type, std::span<const QPointF> Points);
  void PutPath(const QPainterPath& Path);
  void PutFigure(std::span<const QPainterPath::Element> Figure);
  void PutHeader();
  void PutBlended(const QRectF& Place, const QImage& Picture);
  void PutCopied(const QRectF& Place, const QImage& Picture);
  void Select(std::uint32_t& Selected, std::uint32_t Handle);
  std::uint32_t Object(std::uint32_t Type, const std::string& Look);
  void ForgetObjects();
  void SetFillMode(Qt::FillRule Rule);
  void PutComment(const TEmfPlus& Drawing);
  void PutOpening();
  void Finish();

  QSizeF FPixels;
  double FDotsPerInch;
  std::vector<std::byte> FBytes;
  std::size_t FRecordStart = 0;
  std::uint32_t FRecordCount = 0;
  std::unordered_map<std::string, std::uint32_t> FObjects;  // handles by kind and look
  std::uint32_t FMostObjects = 0;
  bool FHasAlternatives = false;
  std::vector<TState> FStates;  // one for each open level, the current one last
};

}  // namespace zy
