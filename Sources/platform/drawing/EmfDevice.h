#pragma once

#include <QPaintDevice>
#include <QPainter>
#include <QSizeF>
#include <cstddef>
#include <memory>
#include <vector>

namespace zy {

class TStream;

/// Whether a painter with these hints draws a picture of a gradient, whose pixels nobody sees: both of them are set
/// for such a picture, and for no other.
inline bool ShowsGradient(QPainter::RenderHints Hints) {
  return Hints.testFlag(QPainter::LosslessImageRendering) && Hints.testFlag(QPainter::SmoothPixmapTransform);
}

/// A paint device whose picture becomes an enhanced metafile: paint on it with a QPainter, end the painter, take the
/// file. Painting anew starts a new picture.
///
/// Lines, areas and texts stay what they are. What the format has no word for is put together from what it has:
/// gradients from strips and rings under a clip, other brushes and turned pictures from pictures of two
/// pixels for each one. Translucent shapes are there twice: as shapes and pictures of EMF+, and, for readers that do
/// not know it, as pictures under a clip, multiplied by their alpha as the format wants them; those of large gradients
/// have fewer pixels, see ShowsGradient. Texts that are sheared,
/// mirrored or stretched become outlines. Composition modes other than "source over" are painted as that one.
class TEmfDevice : public QPaintDevice {
 public:
  /// Pixels is the extent of the picture, DotsPerInch how many pixels make an inch of it. Throws ERangeError for an
  /// extent that is not above 0 and at most 1,000,000, or for less than 1 or more than 10,000 dots per inch.
  explicit TEmfDevice(QSizeF Pixels, double DotsPerInch = 96);
  ~TEmfDevice() override;

  /// The whole file. Before anything was painted, an empty picture.
  std::vector<std::byte> Bytes() const;
  /// Writes the file at the stream's position. Throws EStreamError as the stream does.
  void Save(TStream& Target) const;

  QPaintEngine* paintEngine() const override;

 protected:
  int metric(PaintDeviceMetric Metric) const override;

 private:
  class TEngine;

  QSizeF FPixels;
  double FDotsPerInch;
  std::unique_ptr<TEngine> FEngine;
};

}  // namespace zy
