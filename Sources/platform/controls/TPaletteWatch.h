#pragma once

#include <functional>
#include <memory>

namespace zy {

/// Runs a procedure whenever the palette of the application changed, as long as it lives; desktop colours are those of
/// the new one by then. Nothing happens in a program without an application object.
class TPaletteWatch {
 public:
  explicit TPaletteWatch(std::function<void()> Changed);
  ~TPaletteWatch();
  TPaletteWatch(const TPaletteWatch&) = delete;
  TPaletteWatch& operator=(const TPaletteWatch&) = delete;

 private:
  class TFilter;
  std::unique_ptr<TFilter> FFilter;
};

}  // namespace zy
