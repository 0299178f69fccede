#pragma once

#include "platform/drawing/Argb.h"

class QBrush;

namespace zy {

/// What areas and texts are filled with.
class Brush {
 public:
  virtual ~Brush();

  /// The toolkit's brush of the same look, for Graphics.
  virtual QBrush ToQt() const = 0;

 protected:
  Brush() = default;
  Brush(const Brush&) = default;
  Brush& operator=(const Brush&) = default;
};

/// One colour everywhere. Cheap to set to another colour and reused over many shapes.
class SolidBrush : public Brush {
 public:
  explicit SolidBrush(ARGB Color) : FColor(Color) {}

  ARGB GetColor() const { return FColor; }
  void SetColor(ARGB Value) { FColor = Value; }
  QBrush ToQt() const override;

 private:
  ARGB FColor;
};

}  // namespace zy
