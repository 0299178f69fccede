#pragma once

#include "platform/framework/Argb.h"

namespace zy {

/// What a tool bar says of the look of the buttons in it. A bar implements this beside its own base; buttons without a
/// window find it in their parent by a dynamic cast.
class IToolBarLook {
 public:
  virtual ~IToolBarLook() = default;
  /// Whether buttons have an edge only under the mouse.
  virtual bool Flat() const = 0;
  /// Whether what lies behind the bar is the ground of the buttons.
  virtual bool Transparent() const = 0;
  /// Whether the bar is filled from one colour at its top to another at its bottom, and its buttons likewise.
  virtual bool HasGradient() const = 0;
  virtual ARGB GradientStartColor() const = 0;
  virtual ARGB GradientEndColor() const = 0;
};

}  // namespace zy
