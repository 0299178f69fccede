#pragma once

#include <QByteArray>

class QImage;

namespace zy {

/// The picture as a GIF file of 256 colours at most; what is more than half transparent becomes fully so. Throws
/// EStreamError with the reason when it cannot be encoded. For Bitmap; the toolkit reads GIF files but does not write
/// them.
QByteArray EncodeGif(const QImage& Picture);

}  // namespace zy
