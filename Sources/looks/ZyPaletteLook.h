#pragma once

#include "graph/ZyCustomGraph.h"
#include "platform/controls/TPaletteWatch.h"
#include "platform/framework/TComponent.h"
#include "platform/framework/TRef.h"

namespace zy {

/// Keeps a chart in the colours of the application's palette: it gives the look TZyLook::OfPalette when the graph is
/// set, and again whenever the palette changes. That is no step of undo, since the user changed the desktop and not the
/// chart. Steps that are there already bring back what they logged.
class TZyPaletteLook : public TComponent {
  ZY_CLASS(TZyPaletteLook, TComponent)
  explicit TZyPaletteLook(TComponent* Owner = nullptr);

  TZyCustomGraph* Graph() const { return FGraph; }
  void SetGraph(TZyCustomGraph* Value);

 protected:
  void Loaded() override;

 private:
  void Follow();

  TRef<TZyCustomGraph> FGraph{this};
  TPaletteWatch FWatch{[this] { Follow(); }};
};

}  // namespace zy
