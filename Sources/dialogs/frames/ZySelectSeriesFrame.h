#pragma once

#include <cstdint>
#include <vector>

#include "annotations/captions/ZyParentFont.h"
#include "graph/ZyGraph2D.h"
#include "platform/controls/OwnerDraw.h"
#include "platform/controls/TFrame.h"

namespace zy {

class TCheckListBox;

/// A list of the series of a graph, in which the user ticks those to be shown.
class TZySelectSeriesFrame : public TFrame {
  ZY_CLASS(TZySelectSeriesFrame, TFrame)
  explicit TZySelectSeriesFrame(TComponent* Owner = nullptr);
  ~TZySelectSeriesFrame() override;

  TZyGraph2D* Graph() const { return FGraph; }
  void SetGraph(TZyGraph2D* Value);
  /// Whether only series that stand in legends are listed, with those that are merged with one standing for each other.
  bool FromIncludeInLegend() const { return FFromIncludeInLegend; }
  void SetFromIncludeInLegend(bool Value);
  /// Width of the samples in pixels.
  int ItemWidth() const { return FItemWidth; }
  void SetItemWidth(int Value);
  int ItemHeight() const;
  void SetItemHeight(int Value);
  /// Of the texts; the parent's until it is set.
  TZyFont& Font() { return FFont; }
  void SetFont(const TZyFont& Value) { FFont.Assign(&Value); }

  /// Lists the series anew.
  void UpdateList();
  /// To be called when series or their captions have changed.
  void Modified() { UpdateList(); }
  void Loaded() override;

 protected:
  void ArrangeWidgets() override;
  void ParentFontChanged() override;

 private:
  void ClickCheck();
  void DrawItem(Graphics& Canvas, int Index, const TRect& Box, TOwnerDrawState State);
  TZySeries* SeriesAt(int Index) const;

  TRef<TZyGraph2D> FGraph{this, &TZySelectSeriesFrame::SetGraph};
  bool FFromIncludeInLegend = false;
  int FItemWidth = 50;
  TZyFont FFont;
  TZyParentFont FParentsFont{*this, FFont};
  TCheckListBox* SeriesCheckListBox;
  std::vector<std::uint64_t> FSeries;  // live handles, one for each item
  std::vector<bool> FTicked;           // as they were last seen
};

}  // namespace zy
