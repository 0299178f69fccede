#pragma once

#include <memory>
#include <vector>

#include "graph/styles/ZyGDI.h"
#include "graph/styles/ZyStyleSettings.h"
#include "platform/framework/TComponent.h"
#include "platform/framework/TRefList.h"
#include "series/ZySeriesEvents.h"
#include "undo/ZyUndoLink.h"

namespace zy {

class TControl;

/// How a segment of a pie is filled: in one colour, or in a pattern of two.
class TZyFillSettings : public TZyStyleSettings {
  ZY_CLASS(TZyFillSettings, TPersistent)
  explicit TZyFillSettings(ModifiedCallback WhenModified = {}) : TZyStyleSettings(std::move(WhenModified)) {}

  TZyColor ForeColor() const { return FForeColor; }
  void SetForeColor(TZyColor Value);
  TZyColor BackColor() const { return FBackColor; }
  void SetBackColor(TZyColor Value);
  TZyAreaStyle AreaStyle() const { return FAreaStyle; }
  void SetAreaStyle(TZyAreaStyle Value);
  /// Whether the style is one colour, Total.
  bool Solid() const { return FAreaStyle == TZyAreaStyle::Total; }

  std::unique_ptr<Brush> GetBrush() const { return GetAreaBrush(FAreaStyle, FForeColor, FBackColor); }
  /// The swatch of a legend: the area filled, and outlined in black.
  void DrawListItem(const TZyLegendItemDrawArgs& e) const;

  void Fields(TZyArchive& Archive) override;
  std::string RecordName() const override { return "Item"; }

 private:
  TZyAreaStyle FAreaStyle = TZyAreaStyle::Total;
  TZyColor FForeColor = Colors::LightGray;
  TZyColor FBackColor = Colors::DarkGray;
};

/// The fills of the segments of pies, one after the other; charts share a palette, and begin anew when there are more
/// segments than entries. All charts of a palette are painted again when an entry changes.
class TZyFillPalette : public TComponent, public IZyUndoUser, public IZyUndoParts {
  ZY_CLASS(TZyFillPalette, TComponent)
  explicit TZyFillPalette(TComponent* Owner = nullptr);
  ~TZyFillPalette() override;

  int Count() const { return static_cast<int>(FItems.size()); }
  /// The entry at an index. Throws ERangeError outside 0 to Count - 1.
  TZyFillSettings& Items(int i) const;
  /// Puts a new entry with the given settings in the place of one. Throws as Items does.
  void SetItems(int i, const TZyFillSettings& Value);
  /// Add an entry with the given settings; Insert puts it in front of the one at i, which may be Count, and throws
  /// ERangeError outside.
  void Add(const TZyFillSettings& Item) { Insert(Count(), Item); }
  void Insert(int i, const TZyFillSettings& Item);
  /// Throws ERangeError outside.
  void Move(int From, int To);
  /// Frees an entry; nothing at or above Count. The undo stack is cleared before, since its steps may be the entry's.
  void Delete(int i);
  void Clear();
  /// Adds eight entries.
  void FillDefaults();
  /// Takes the entries of another palette.
  void Assign(const TPersistent* Source) override;

  TZyUndoStack* UndoStack() const override { return FUndo; }
  /// Hands the stack on to all entries.
  void SetUndoStack(TZyUndoStack* Value) override;
  std::vector<TPersistent*> UndoParts() const override;

  /// The charts that use the palette; they enter and leave by themselves.
  void AddRelatedControl(TControl& Control);
  void RemoveRelatedControl(TControl& Control);
  /// Has all of them painted again.
  void InvalidateControls();

  void DefineProperties(TFiler& Filer) override;

 private:
  std::unique_ptr<TZyFillSettings> Made(const TZyFillSettings& Like);
  /// Throws ERangeError above Limit.
  static std::size_t Checked(int i, int Limit);

  std::vector<std::unique_ptr<TZyFillSettings>> FItems;
  TRefList<TControl> FRelatedControls{this};
  TZyUndoLink FUndo{this, &TZyFillPalette::SetUndoStack};
};

}  // namespace zy
