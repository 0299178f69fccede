#pragma once

#include "platform/framework/EnumInfo.h"

namespace zy {

/// What a chart is saved as. EMF, SVG and PDF are drawings of lines, areas and texts, the others pictures of pixels.
/// Nothing encodes EXIF and Icon: saving as one of them gives no bytes.
enum class TZyImageFileFormat { EMF, BMP, JPEG, PNG, GIF, TIFF, EXIF, Icon, SVG, PDF };
ZY_ENUM(TZyImageFileFormat, "EMF", "BMP", "JPEG", "PNG", "GIF", "TIFF", "EXIF", "Icon", "SVG", "PDF")

}  // namespace zy
