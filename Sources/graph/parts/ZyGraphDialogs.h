#pragma once

#include <vector>

namespace zy {

/// An open dialog with the settings of graphs, as far as graphs and series have to know.
class IZyGraphDialog {
 public:
  virtual ~IZyGraphDialog() = default;
  /// Series, axes or legends came, went or changed what they are listed as.
  virtual void ListsModified() = 0;
  /// A series looks otherwise; its samples have to be painted.
  virtual void UpdateLegends() = 0;
};

/// The dialogs that are open now. They enter and leave by themselves.
inline std::vector<IZyGraphDialog*>& OpenGraphDialogs() {
  static std::vector<IZyGraphDialog*> Open;
  return Open;
}

}  // namespace zy
