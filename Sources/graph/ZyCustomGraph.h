#pragma once

#include <string>

#include "annotations/ZyRichCaption.h"
#include "platform/controls/TCustomPanel.h"
#include "platform/framework/EnumInfo.h"
#include "platform/framework/TRef.h"

namespace zy {

class Graphics;
class TZyUndoStack;

/// How edges are smoothed.
enum class TZySmoothingMode { None, HighSpeed, AntiAlias, HighQuality };
ZY_ENUM(TZySmoothingMode, "None", "HighSpeed", "AntiAlias", "HighQuality")

/// Base of the chart controls: a panel with a title, a background and an undo link.
///
/// A setter lays out nothing: it marks the chart, and the next paint does what is due. Between BeginUpdate and
/// EndUpdate nothing is computed at all.
class TZyCustomGraph : public TCustomPanel {
  ZY_CLASS(TZyCustomGraph, TCustomPanel)
  explicit TZyCustomGraph(TComponent* Owner = nullptr);
  ~TZyCustomGraph() override;

  /// The title. Trailing blanks are dropped.
  const TZyRichCaption& Caption() const { return FTitleRec.Caption(); }
  void SetCaption(const TZyRichCaption& Value);
  bool CaptionVisible() const { return FCaptionVisible; }
  void SetCaptionVisible(bool Value);
  /// Pixels above and below the title.
  float CaptionDistanceBefore() const { return FCaptionDistanceBefore; }
  void SetCaptionDistanceBefore(float Value);
  float CaptionDistanceAfter() const { return FCaptionDistanceAfter; }
  void SetCaptionDistanceAfter(float Value);
  /// Font of the title.
  TZyFont& Font() { return FTitleRec.CaptionFont(); }
  TZyColor BackColor() const { return FBackColor; }
  void SetBackColor(TZyColor Value);
  TZySmoothingMode SmoothingMode() const { return FSmoothingMode; }
  void SetSmoothingMode(TZySmoothingMode Value);
  TZyUndoStack* UndoStack() const { return FUndoStack; }
  /// Hands the stack on to all that belongs to the chart.
  virtual void SetUndoStack(TZyUndoStack* Value);

  void BeginUpdate() { ++FUpdateCount; }
  void EndUpdate();
  bool Updating() const { return FUpdateCount > 0; }
  /// Marks the chart for layout.
  virtual void Modified() {}
  virtual void Calculate() {}
  /// Turns the smoothing of the chart on, or all smoothing off.
  void SetHighQuality(Graphics& Gr, bool On) const;

  void SetBounds(int ALeft, int ATop, int AWidth, int AHeight) override;

 protected:
  virtual void BoundsChanged() {}
  void Notification(TComponent* AComponent, TOperation Operation) override;

  TZyRichCaptionObject FTitleRec;
  bool FNeedsRecalculate = false;

 private:
  TRef<TZyUndoStack> FUndoStack{this};
  bool FCaptionVisible = false;
  float FCaptionDistanceAfter = 0;
  float FCaptionDistanceBefore = 0;
  TZyColor FBackColor = Colors::Transparent;
  TZySmoothingMode FSmoothingMode = TZySmoothingMode::HighQuality;
  int FUpdateCount = 0;
};

}  // namespace zy
