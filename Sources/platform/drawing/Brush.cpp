#include "platform/drawing/Brush.h"

#include <QBrush>

namespace zy {

Brush::~Brush() = default;

QBrush SolidBrush::ToQt() const { return QBrush(QColor::fromRgba(FColor)); }

}  // namespace zy
