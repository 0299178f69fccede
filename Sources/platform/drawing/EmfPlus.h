#pragma once

// Drawings in the second language that a metafile may hold in its comments, beside its records; for EmfDevice. Numbers
// and layouts are those that Microsoft publishes for it, [MS-EMFPLUS], section 2.3.

#include <QColor>
#include <QImage>
#include <QPainterPath>
#include <QRectF>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace zy {

/// Records for one comment: a translucent shape and the clips that it needs. Coordinates are pixels. A reader that
/// knows the language draws them and passes over the records that follow, up to ThenRecords; any other reader knows
/// only those.
class TEmfPlus {
 public:
  /// What opens the file, which then goes on with records, and what closes it.
  static TEmfPlus Opening(double DotsPerInch);
  static TEmfPlus Closing();
  /// From here on, records count again.
  static TEmfPlus ThenRecords();

  /// Narrows the clip, until Finish. Overlaps of a path's figures are seen by the odd-even rule.
  void ClipTo(const QRectF& Rect);
  void ClipTo(const QPainterPath& Path);
  void Fill(const QPainterPath& Area, const QColor& Color);
  void Draw(const QRectF& Place, const QImage& Picture);
  /// Undoes the clips.
  void Finish();

  std::span<const std::byte> Bytes() const { return FBytes; }

 private:
  void Begin(std::uint16_t Type, std::uint16_t Flags);
  void End();
  template <typename T>
  void Put(T Value);
  void Put(const QRectF& Rect);
  void PutPath(const QPainterPath& Path);

  std::vector<std::byte> FBytes;
  std::size_t FRecordStart = 0;
  bool FIsClipped = false;
};

}  // namespace zy
