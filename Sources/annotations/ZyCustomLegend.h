#pragma once

#include <functional>
#include <string>
#include <vector>

#include "annotations/ZyLegendGrid.h"
#include "annotations/captions/ZyCaptionOfName.h"
#include "annotations/captions/ZyParentFont.h"
#include "annotations/captions/ZyRichCaption.h"
#include "graph/parts/ZyGraphParts.h"
#include "graph/styles/ZyLineSettings.h"
#include "persistence/ZyRecord.h"
#include "platform/controls/TGraphicControl.h"
#include "series/ZySeriesEvents.h"
#include "undo/ZyUndoLink.h"

namespace zy {

/// Draws the symbol of an item in place of the chart's own; Sender is what the item stands for.
using TZyLegendItemDrawHandler = std::function<void(TObject* Sender, const TZyLegendItemDrawArgs& e)>;
template <>
inline std::string_view TypeName<TZyLegendItemDrawHandler>() {
  return "TZyLegendItemDrawHandler";
}

/// The text of an item, which a handler may change, and its index.
struct TZyLegendItemCaptionEventArgs {
  TZyRichCaption Caption;
  int Index = 0;
};
using TZyLegendItemCaptionEventHandler = std::function<void(TObject* Sender, TZyLegendItemCaptionEventArgs& e)>;
template <>
inline std::string_view TypeName<TZyLegendItemCaptionEventHandler>() {
  return "TZyLegendItemCaptionEventHandler";
}

/// Base of legends: a control with a title and a grid of items, each a symbol and a caption beside it.
///
/// An heir tells what there is (NewList, CheckItemHeight) and draws it (PaintItems); frame, background, title, grid and
/// size are done here. Items are listed and measured only when something has changed: a setter marks the legend
/// (Modified), and the next layout or paint does what is due (PreparePaint). With AutoSize, which it has at first, the
/// legend is as large as its content.
class TZyCustomLegend : public TGraphicControl, public TZyRecord, public IZyGraphLegend, public IZyUndoUser {
  ZY_CLASS(TZyCustomLegend, TGraphicControl)
  ~TZyCustomLegend() override;

  /// The title. Trailing blanks are dropped. Throws what TZyRichCaptionObject::ParseForSize throws, when the legend has
  /// a parent; the text is stored then.
  const TZyRichCaption& Caption() const { return FCaptionRec.Caption(); }
  void SetCaption(const TZyRichCaption& Value);
  /// Where the title stands along the width; centred at first.
  TAlignment CaptionAlignment() const { return FCaptionAlignment; }
  void SetCaptionAlignment(TAlignment Value);
  /// Fill colour of the title's font.
  TZyColor CaptionColor() const { return FCaptionRec.CaptionFont().FillColor(); }
  void SetCaptionColor(TZyColor Value);
  /// Pixels below and above the title.
  float CaptionDistanceAfter() const { return FCaptionDistanceAfter; }
  void SetCaptionDistanceAfter(float Value);
  float CaptionDistanceBefore() const { return FCaptionDistanceBefore; }
  void SetCaptionDistanceBefore(float Value);
  TZyFont& CaptionFont() { return FCaptionRec.CaptionFont(); }
  void SetCaptionFont(const TZyFont& Value);
  bool CaptionVisible() const { return FCaptionVisible; }
  void SetCaptionVisible(bool Value);
  TZyColor BackColor() const { return FBackColor; }
  void SetBackColor(TZyColor Value);
  /// Fill colour of the items' font.
  TZyColor ForeColor() const { return FFont.FillColor(); }
  void SetForeColor(TZyColor Value);
  /// Takes the place of the back colour while it is visible.
  TZyGradientSettings& BackgroundGradient() { return FBackgroundGradient; }
  /// A shadow to the right and below, for which the legend is 5 pixels wider and 4 higher. Not drawn under a
  /// background of an alpha below 200, through which it would be seen.
  bool DropShadow() const { return FDropShadow; }
  void SetDropShadow(bool Value);
  /// Edges in light and shade. Setting one to true turns the frame off, which covers them, in the same step of undo.
  bool BorderLowered() const { return FBorderLowered; }
  void SetBorderLowered(bool Value);
  bool BorderRaised() const { return FBorderRaised; }
  void SetBorderRaised(bool Value);
  /// Rows and columns to fill, at least 1. Columns are filled by height and their number is an aim; rows take as many
  /// items each as there are for one, and what is left makes a further row.
  int Rows() const { return FRows; }
  void SetRows(int Value);
  int Columns() const { return FColumns; }
  void SetColumns(int Value);
  TZyLineSettings& Frame() { return FFrame; }
  /// Least height of an item in pixels; items are as high as the tallest symbol and the font of the captions need.
  float ItemHeight() const { return FItemHeightSet; }
  void SetItemHeight(float Value);
  /// Width of the symbols in pixels.
  float ItemWidth() const { return FItemWidth; }
  void SetItemWidth(float Value);
  TZyItemsOrder ItemsOrder() const { return FItemsOrder; }
  void SetItemsOrder(TZyItemsOrder Value);
  /// Pixels between symbol and caption, between rows, between columns, and between the items and the edge.
  float DistanceItemCaption() const { return FDistanceItemCaption; }
  void SetDistanceItemCaption(float Value);
  float DistanceBetweenLines() const { return FDistanceBetweenLines; }
  void SetDistanceBetweenLines(float Value);
  float DistanceBetweenColumns() const { return FDistanceBetweenColumns; }
  void SetDistanceBetweenColumns(float Value);
  float DistanceToBorder() const { return FDistanceToBorder; }
  void SetDistanceToBorder(float Value);
  /// Diameter of the circles at the corners in pixels; 0 for plain corners.
  float CornerRounding() const { return FCornerRounding; }
  void SetCornerRounding(float Value);
  /// Font of the items: that of the parent with ParentFont, which is false at first.
  TZyFont& Font() { return FFont; }
  void SetFont(const TZyFont& Value);
  /// Handlers may free what the items stand for, and the legend.
  const TZyLegendItemDrawHandler& OnDrawLegendItem() const { return FOnDrawLegendItem; }
  void SetOnDrawLegendItem(TZyLegendItemDrawHandler Value);
  const TZyLegendItemCaptionEventHandler& OnGetLegendItemCaption() const { return FOnGetLegendItemCaption; }
  void SetOnGetLegendItemCaption(TZyLegendItemCaptionEventHandler Value);

  TZyUndoStack* UndoStack() const override { return FUndo; }
  void SetUndoStack(TZyUndoStack* Value) override;
  /// The title, or the name of the component without one.
  const std::string& CaptionAsString() const { return Caption().empty() ? Name() : Caption(); }
  /// Evaluates and measures the title anew. Throws as SetCaption does.
  void ParseCaption();
  /// Marks the legend: its items are listed and measured anew at the next layout or paint.
  void Modified() override {}
  void PreparePaint() override {}
  /// Draws the legend with its corner at the origin, into whatever it may be.
  void PaintGr(Graphics& Gr) override;
  /// Places title and items and, with AutoSize, takes their extent.
  void SetItemPositions();
  void SetAutoSize(bool Value) override;
  TControl& Control() override { return *this; }

  /// What is shown: the areas of the symbols, in pixels of the legend, and beside each its caption.
  const std::vector<TRect>& ItemRects() const { return FItemRects; }
  const TZyRichCaptionObjects& LegendCaptions() const { return FLegendCaptions; }
  /// The item whose symbol or caption lies at a place in the legend, -1 for none.
  int ItemAt(int X, int Y) const;

  /// Nothing; an heir tells what it has.
  void Fields(TZyArchive&) override {}
  /// While the form is designed, the title follows the name until it is set by hand.
  void SetName(const std::string& Value) override;
  std::string AccessibleName() const override;
  std::vector<std::string> AccessibleItems() const override;
  /// The box without its shadow.
  bool CMHitTest(int X, int Y) override;

 protected:
  explicit TZyCustomLegend(TComponent* Owner);

  /// Lists what there is, through SetCaptions.
  virtual void NewList() {}
  /// Sets FItemHeight, from StartItemHeight.
  virtual void CheckItemHeight() {}
  /// Draws the items, by PaintItem.
  virtual void PaintItems(Graphics&) {}

  /// NewList, CheckItemHeight, SetItemPositions; then the legend is up to date.
  void Recalculate();
  /// The height that was set, or that of the captions' font where this is more.
  float StartItemHeight() const;
  /// Sets FItemHeight to that, or to the height of the symbols where this is more. A height that was read is taken for
  /// one that was set when the items would not need it.
  void TakeItemHeight(float Symbols);
  /// What the handler makes of the text of an item that stands for Sender. Throws EAbort when it freed the legend.
  TZyRichCaption AskCaption(TObject* Sender, const TZyRichCaption& Text, int Index);
  /// Makes the captions of the items, and their areas. A text that cannot be evaluated is shown as it is written.
  void SetCaptions(const std::vector<TZyRichCaption>& Texts);
  /// Draws the item of that place: its symbol, by the handler or by Draw, cut to its area, and its caption. Throws
  /// EAbort when the handler freed the legend.
  using TDrawItem = std::function<void(const TZyLegendItemDrawArgs& e)>;
  void PaintItem(Graphics& Gr, std::size_t Place, TObject* Sender, int Index, const TDrawItem& Draw);
  /// The order that a place asks for. What is loaded or undone has one of its own.
  void OrderByPlace(bool IsAcross);
  /// Whether the shadow is drawn.
  bool HasShadow() const;
  /// Paints the chart that the legend stands in, or the legend alone in any other parent.
  void DoInvalidate();
  /// Whether the chart that the legend stands in paints it.
  virtual bool IsPaintedByParent() const { return false; }
  /// Whether a new size is the legend's own doing.
  bool IsSetting() const { return FSetting; }

  void AdjustSize() override { PreparePaint(); }
  void Resize() override;
  void Paint(Graphics& Gr) override;
  void VisibleChanging() override;
  void ParentFontChanged() override;

  bool FRecalculate = true;
  float FItemHeight = 0;      // in force
  float FItemHeightSet = 0;   // asked for
  float FItemHeightRead = 0;  // in force where the record was written, until the items are measured
  float FItemWidth = 80;
  float FDistanceItemCaption = 4;
  float FDistanceBetweenLines = 3;
  float FDistanceBetweenColumns = 10;
  float FDistanceToBorder = 8;
  float FCornerRounding = 0;
  TZyColor FBackColor = Colors::Transparent;
  TZyItemsOrder FItemsOrder = TZyItemsOrder::ByColumn;
  int FColumns = 1;
  int FRows = 1;
  TZyRichCaptionObjects FLegendCaptions;
  std::vector<TRect> FItemRects;
  bool FReadsRecord = false;

 private:
  friend class TZyCustomLegendRecord;

  /// Pixels that the shadow takes.
  static constexpr int ShadowX = 5, ShadowY = 4;

  /// Sets one of the edges, and turns the frame off that would cover it.
  void SetBorder(bool& Field, bool Value, const char* PropName);
  void SetCount(int& Field, int Value, const char* PropName);
  void SetLength(float& Field, float Value, const char* PropName);
  void FontChanged();
  void GroundChanged();
  void CaptionRenewed(const TZyRichCaptionObject& Item, SizeF Before);
  bool HasTitle() const { return FCaptionVisible && !Caption().empty(); }

  TZyLineSettings FFrame{[this] { DoInvalidate(); }};
  TZyGradientSettings FBackgroundGradient{[this] { GroundChanged(); }};
  TZyUndoLink FUndo{this, &TZyCustomLegend::SetUndoStack, FFrame, FBackgroundGradient};
  TZyRichCaptionObject FCaptionRec{[this] { DoInvalidate(); }};
  TZyCaptionOfName FCaptionOfName;
  TZyFont FFont{[this] { FontChanged(); }};
  TZyParentFont FItemsFont{*this, FFont};
  TAlignment FCaptionAlignment = TAlignment::taCenter;
  float FCaptionDistanceAfter = 0;
  float FCaptionDistanceBefore = 0;
  bool FCaptionVisible = false;
  bool FDropShadow = false;
  bool FBorderRaised = false;
  bool FBorderLowered = false;
  bool FSetting = false;  // the size is the legend's own doing
  bool FHasRoomForShadow = false;
  TZyLegendItemDrawHandler FOnDrawLegendItem;
  TZyLegendItemCaptionEventHandler FOnGetLegendItemCaption;
};

}  // namespace zy
