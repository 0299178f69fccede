#pragma once

#include "dialogs/frames/ZySeriesListBox.h"
#include "dialogs/frames/ZySettingsFrame.h"
#include "pie/ZyFillPalette.h"

namespace zy {

/// The entries of a palette: their order, and the fill of the selected one.
class TZyFillPaletteFrame : public TZySettingsFrame {
  ZY_CLASS(TZyFillPaletteFrame, TZySettingsFrame)
  explicit TZyFillPaletteFrame(TComponent* Owner = nullptr);
  ~TZyFillPaletteFrame() override;

  TZyFillPalette* Palette() const { return FPalette; }
  void SetPalette(TZyFillPalette* Value);
  void UpdateControls() override;

 protected:
  std::vector<TPersistent*> Targets() const override;
  void ControlsUpdated() override;

 private:
  void FillList(int Index);
  void Move(int From, int To);
  void Delete();
  void Add();
  void DrawEntry(Graphics& Canvas, int Index, const TRect& Box, TOwnerDrawState State) const;

  TRef<TZyFillPalette> FPalette{this, &TZyFillPaletteFrame::SetPalette};
  TZyDragListBox* PaletteList = nullptr;
};

}  // namespace zy
