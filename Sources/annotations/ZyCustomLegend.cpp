#include "annotations/ZyCustomLegend.h"

#include <algorithm>
#include <cmath>

#include "graph/ZyCustomGraph.h"
#include "graph/shapes/ZyDrawing.h"
#include "platform/drawing/Brush.h"
#include "platform/drawing/ClipGuard.h"
#include "platform/drawing/Graphics.h"
#include "platform/framework/ScopedFlag.h"
#include "platform/framework/TPropInfo.h"
#include "texts/Exceptions.h"
#include "undo/ZyChange.h"
#include "undo/ZyUndoGroup.h"

namespace zy {

using TLegend = TZyCustomLegend;
ZY_PUBLISHED(
    TZyCustomLegend, TGraphicControl, Published<&TLegend::Caption, &TLegend::SetCaption>("Caption", _sLegendCaption),
    Published<&TLegend::CaptionAlignment, &TLegend::SetCaptionAlignment>("CaptionAlignment", TAlignment::taCenter,
                                                                         _sLegendCaptionAlignment),
    Published<&TLegend::CaptionColor, &TLegend::SetCaptionColor>("CaptionColor", _sLegendCaptionColor).NotStored(),
    Published<&TLegend::CaptionDistanceAfter, &TLegend::SetCaptionDistanceAfter>("CaptionDistanceAfter", 0.0f,
                                                                                 _sLegendCaptionDistanceAfter),
    Published<&TLegend::CaptionDistanceBefore, &TLegend::SetCaptionDistanceBefore>("CaptionDistanceBefore", 0.0f,
                                                                                   _sLegendCaptionDistanceBefore),
    Published<&TLegend::CaptionFont>("CaptionFont"),
    Published<&TLegend::CaptionVisible, &TLegend::SetCaptionVisible>("CaptionVisible", false, _sLegendCaptionVisible),
    Published<&TLegend::BackColor, &TLegend::SetBackColor>("BackColor", Colors::Transparent, _sLegendBackColor),
    Published<&TLegend::ForeColor, &TLegend::SetForeColor>("ForeColor", _sLegendForeColor).NotStored(),
    Published<&TLegend::BackgroundGradient>("BackgroundGradient"),
    Published<&TLegend::DropShadow, &TLegend::SetDropShadow>("DropShadow", false, _sLegendDropShadow),
    Published<&TLegend::BorderLowered, &TLegend::SetBorderLowered>("BorderLowered", false, _sLegendBorderLowered),
    Published<&TLegend::BorderRaised, &TLegend::SetBorderRaised>("BorderRaised", false, _sLegendBorderRaised),
    Published<&TLegend::Rows, &TLegend::SetRows>("Rows", 1, _sLegendRows),
    Published<&TLegend::Columns, &TLegend::SetColumns>("Columns", 1, _sLegendColumns),
    Published<&TLegend::Frame>("Frame"),
    Published<&TLegend::ItemHeight, &TLegend::SetItemHeight>("ItemHeight", 0.0f, _sLegendItemHeight),
    Published<&TLegend::ItemWidth, &TLegend::SetItemWidth>("ItemWidth", 80.0f, _sLegendItemWidth),
    Published<&TLegend::ItemsOrder, &TLegend::SetItemsOrder>("ItemsOrder", TZyItemsOrder::ByColumn, _sLegendItemsOrder),
    Published<&TLegend::DistanceItemCaption, &TLegend::SetDistanceItemCaption>("DistanceItemCaption", 4.0f,
                                                                               _sLegendDistanceItemCaption),
    Published<&TLegend::DistanceBetweenLines, &TLegend::SetDistanceBetweenLines>("DistanceBetweenLines", 3.0f,
                                                                                 _sLegendDistanceBetweenLines),
    Published<&TLegend::DistanceBetweenColumns, &TLegend::SetDistanceBetweenColumns>("DistanceBetweenColumns", 10.0f,
                                                                                     _sLegendDistanceBetweenColumns),
    Published<&TLegend::DistanceToBorder, &TLegend::SetDistanceToBorder>("DistanceToBorder", 8.0f,
                                                                         _sLegendDistanceToBorder),
    Published<&TLegend::CornerRounding, &TLegend::SetCornerRounding>("CornerRounding", 0.0f, _sLegendCornerRounding),
    Published<&TLegend::OnDrawLegendItem, &TLegend::SetOnDrawLegendItem>("OnDrawLegendItem"),
    Published<&TLegend::OnGetLegendItemCaption, &TLegend::SetOnGetLegendItemCaption>("OnGetLegendItemCaption"),
    Published<&TLegend::AutoSize, &TControl::SetAutoSize>("AutoSize", true),
    Published<&TLegend::ParentFont, &TLegend::SetParentFont>("ParentFont", false),
    Published<&TLegend::Font>("Font").StoredIf<&TLegend::HasOwnFont>())

TZyCustomLegend::TZyCustomLegend(TComponent* Owner) : TGraphicControl(Owner) {
  FFrame.SetColor(ColorToARGB("WindowFrame"));
  TZyFont& Title = FCaptionRec.CaptionFont();
  Title.SetSize(11);
  Title.SetStyle({TFontStyle::Bold});
  Title.SetFillColor(ColorToARGB("ControlText"));
  Title.OnNeedsResize = [this] { Modified(); };
  FCaptionRec.Alignment = TZyContentAlignment::TopCenter;
  FCaptionRec.OnVariablesChanged = [this] { Modified(); };
  FFont.SetSize(9);
  FFont.OnNeedsResize = [this] { FontChanged(); };
  SetParentFont(false);
  TGraphicControl::SetAutoSize(true);
}

TZyCustomLegend::~TZyCustomLegend() { Destroying(); }

// --- Properties -----------------------------------------------------------------------------------------------------

void TZyCustomLegend::SetCaption(const TZyRichCaption& Value) {
  ChangeBy(this, Caption(), TrimRight(Value), "Caption", [this](const TZyRichCaption& Text) {
    FCaptionRec.SetCaption(Text);
    FCaptionOfName.WasSet();
    ParseCaption();
  });
}

/// What is loaded or read may name what is not there yet, and is laid out later.
void TZyCustomLegend::ParseCaption() {
  if (Parent() != nullptr && !IsLoading() && !FReadsRecord) FCaptionRec.ParseForSize();
  Modified();
}

void TZyCustomLegend::SetName(const std::string& Value) {
  TGraphicControl::SetName(Value);
  FCaptionOfName.Follow(*this, Value);
}

void TZyCustomLegend::SetCaptionAlignment(TAlignment Value) {
  if (!Change(this, FCaptionAlignment, Value, "CaptionAlignment", &TZyCustomLegend::Modified)) return;
  constexpr TZyContentAlignment Places[] = {TZyContentAlignment::TopLeft, TZyContentAlignment::TopRight,
                                            TZyContentAlignment::TopCenter};
  FCaptionRec.Alignment = Places[static_cast<int>(Value)];
}

void TZyCustomLegend::SetCaptionColor(TZyColor Value) {
  ChangeBy(this, CaptionColor(), Value, "CaptionColor",
           [this](TZyColor Color) { FCaptionRec.CaptionFont().SetFillColor(Color); });
}

void TZyCustomLegend::SetCaptionFont(const TZyFont& Value) {
  CaptionFont().PushToUndoStack(FUndo, LoadResString(_sLegendCaptionFont));
  CaptionFont().Assign(&Value);
}

void TZyCustomLegend::SetCaptionVisible(bool Value) {
  Change(this, FCaptionVisible, Value, "CaptionVisible", &TZyCustomLegend::Modified);
}

void TZyCustomLegend::SetLength(float& Field, float Value, const char* PropName) {
  Change(this, Field, Value, PropName, &TZyCustomLegend::Modified);
}

void TZyCustomLegend::SetCaptionDistanceAfter(float Value) {
  SetLength(FCaptionDistanceAfter, Value, "CaptionDistanceAfter");
}

void TZyCustomLegend::SetCaptionDistanceBefore(float Value) {
  SetLength(FCaptionDistanceBefore, Value, "CaptionDistanceBefore");
}

void TZyCustomLegend::SetItemWidth(float Value) { SetLength(FItemWidth, Value, "ItemWidth"); }

void TZyCustomLegend::SetDistanceItemCaption(float Value) {
  SetLength(FDistanceItemCaption, Value, "DistanceItemCaption");
}

void TZyCustomLegend::SetDistanceBetweenLines(float Value) {
  SetLength(FDistanceBetweenLines, Value, "DistanceBetweenLines");
}

void TZyCustomLegend::SetDistanceBetweenColumns(float Value) {
  SetLength(FDistanceBetweenColumns, Value, "DistanceBetweenColumns");
}

void TZyCustomLegend::SetDistanceToBorder(float Value) { SetLength(FDistanceToBorder, Value, "DistanceToBorder"); }

void TZyCustomLegend::SetCornerRounding(float Value) { SetLength(FCornerRounding, Value, "CornerRounding"); }

void TZyCustomLegend::SetItemHeight(float Value) {
  if (!std::isfinite(Value) || (Value == FItemHeight && Value == FItemHeightSet)) return;
  if (FUndo != nullptr && Value != FItemHeightSet) FUndo->PushProperty(this, "ItemHeight");
  FItemHeightSet = Value;
  CheckItemHeight();
  Modified();
}

void TZyCustomLegend::SetBackColor(TZyColor Value) {
  Change(this, FBackColor, Value, "BackColor", &TZyCustomLegend::GroundChanged);
}

/// A ground that lets a shadow through, or no longer does, changes the size.
void TZyCustomLegend::GroundChanged() {
  if (HasShadow() != FHasRoomForShadow) Modified();
  DoInvalidate();
}

void TZyCustomLegend::SetForeColor(TZyColor Value) {
  ChangeBy(this, ForeColor(), Value, "ForeColor", [this](TZyColor Color) { FFont.SetFillColor(Color); });
}

void TZyCustomLegend::SetDropShadow(bool Value) {
  Change(this, FDropShadow, Value, "DropShadow", &TZyCustomLegend::Modified);
}

void TZyCustomLegend::SetBorder(bool& Field, bool Value, const char* PropName) {
  if (Field == Value) return;
  const TZyUndoGroup Group(FUndo, TZyUndoStack::LabelOf(*this, PropName));
  Change(this, Field, Value, PropName, &TZyCustomLegend::DoInvalidate);
  const bool IsRestored = IsLoading() || (FUndo != nullptr && FUndo->Restoring());  // the frame comes by itself
  if (Value && !IsRestored) FFrame.SetVisible(false);
}

void TZyCustomLegend::SetBorderLowered(bool Value) { SetBorder(FBorderLowered, Value, "BorderLowered"); }

void TZyCustomLegend::SetBorderRaised(bool Value) { SetBorder(FBorderRaised, Value, "BorderRaised"); }

void TZyCustomLegend::SetCount(int& Field, int Value, const char* PropName) {
  Change(this, Field, std::max(Value, 1), PropName, &TZyCustomLegend::Modified);
}

void TZyCustomLegend::SetRows(int Value) { SetCount(FRows, Value, "Rows"); }

void TZyCustomLegend::SetColumns(int Value) { SetCount(FColumns, Value, "Columns"); }

void TZyCustomLegend::SetItemsOrder(TZyItemsOrder Value) {
  Change(this, FItemsOrder, Value, "ItemsOrder", &TZyCustomLegend::Modified);
}

void TZyCustomLegend::OrderByPlace(bool IsAcross) {
  const bool IsRestored = FUndo != nullptr && FUndo->Restoring();
  if (!IsLoading() && !IsRestored) FItemsOrder = IsAcross ? TZyItemsOrder::ByRow : TZyItemsOrder::ByColumn;
}

void TZyCustomLegend::SetFont(const TZyFont& Value) {
  FFont.PushToUndoStack(FUndo, LoadResString(_sLegendFont));
  FFont.Assign(&Value);
}

void TZyCustomLegend::FontChanged() {
  FItemsFont.FontChanged();
  Modified();
}

void TZyCustomLegend::ParentFontChanged() {
  TGraphicControl::ParentFontChanged();
  FItemsFont.Take();
}

void TZyCustomLegend::SetOnDrawLegendItem(TZyLegendItemDrawHandler Value) {
  FOnDrawLegendItem = std::move(Value);
  DoInvalidate();
}

void TZyCustomLegend::SetOnGetLegendItemCaption(TZyLegendItemCaptionEventHandler Value) {
  FOnGetLegendItemCaption = std::move(Value);
  Modified();
}

void TZyCustomLegend::SetUndoStack(TZyUndoStack* Value) { FUndo.Set(Value); }

void TZyCustomLegend::SetAutoSize(bool Value) {
  if (Value == AutoSize()) return;
  FRecalculate = true;
  TGraphicControl::SetAutoSize(Value);
  Modified();
}

// --- Change protocol ------------------------------------------------------------------------------------------------

void TZyCustomLegend::DoInvalidate() {
  if (IsPaintedByParent()) {
    Parent()->Invalidate();
  } else {
    Invalidate();
  }
}

void TZyCustomLegend::VisibleChanging() {
  if (FUndo != nullptr) FUndo->PushProperty(this, LoadResString(_sLegendVisible), "Visible");
  TGraphicControl::VisibleChanging();
}

void TZyCustomLegend::Resize() {
  if (!FSetting && !IsDestroying() && Parent() != nullptr) Modified();
  TGraphicControl::Resize();
}

void TZyCustomLegend::Recalculate() {
  NewList();
  CheckItemHeight();
  SetItemPositions();
  FRecalculate = false;
}

// --- Items ----------------------------------------------------------------------------------------------------------

float TZyCustomLegend::StartItemHeight() const {
  TZyRichCaptionObject Sample;
  Sample.CaptionFont().Assign(&FFont);
  Sample.SetCaption("M");
  Sample.ParseForSize();
  return Sample.Height() > FItemHeightSet ? static_cast<float>(RoundToPixels(Sample.Height())) : FItemHeightSet;
}

void TZyCustomLegend::TakeItemHeight(float Symbols) {
  const float Needed = std::max(StartItemHeight(), Symbols);
  if (FItemHeightRead > Needed) FItemHeightSet = FItemHeightRead;
  FItemHeight = std::max(Needed, FItemHeightRead);
  FItemHeightRead = 0;
}

TZyRichCaption TZyCustomLegend::AskCaption(TObject* Sender, const TZyRichCaption& Text, int Index) {
  if (!FOnGetLegendItemCaption) return Text;
  const std::uint64_t Alive = LiveHandle();
  TZyLegendItemCaptionEventArgs Args{Text, Index};
  const auto Handler = FOnGetLegendItemCaption;  // it may be replaced meanwhile
  Handler(Sender, Args);
  if (FromLiveHandle(Alive) == nullptr) throw EAbort(LoadResString(_sLegendFreed));
  return std::move(Args.Caption);
}

void TZyCustomLegend::SetCaptions(const std::vector<TZyRichCaption>& Texts) {
  FLegendCaptions.Clear();
  for (const TZyRichCaption& Text : Texts) {
    auto Item = std::make_unique<TZyRichCaptionObject>();
    Item->CaptionFont().Assign(&FFont);
    Item->Alignment = TZyContentAlignment::MiddleLeft;
    Item->SetCaption(Text);
    Item->ParseIfNeeded();
    Item->OnVariablesChanged = [this, Shown = Item.get(), Before = SizeF{Item->Width(), Item->Height()}] {
      CaptionRenewed(*Shown, Before);
    };
    FLegendCaptions.Add(std::move(Item));
  }
  FItemRects.assign(Texts.size(), {});
}

/// A caption with live values needs another layout only when it is larger or smaller than before.
void TZyCustomLegend::CaptionRenewed(const TZyRichCaptionObject& Item, SizeF Before) {
  const bool IsSame = RoundToPixels(Item.Width()) == RoundToPixels(Before.Width) &&
                      RoundToPixels(Item.Height()) == RoundToPixels(Before.Height);
  if (IsSame) {
    Invalidate();
  } else {
    Modified();
  }
}

void TZyCustomLegend::SetItemPositions() {
  std::vector<TZyLegendCell> Cells;
  for (const auto& Item : FLegendCaptions) Cells.push_back({{Item->Width(), Item->Height()}, {}});
  TZyLegendTitle Title;
  if (HasTitle()) {
    FCaptionRec.ParseIfNeeded();
    Title = {
        {FCaptionRec.Width(), FCaptionRec.Height()}, FCaptionDistanceBefore, FCaptionDistanceAfter, FCaptionAlignment};
  }
  const TZyLegendGridLook Look{.Order = FItemsOrder,
                               .Columns = FColumns,
                               .Rows = FRows,
                               .ItemWidth = FItemWidth,
                               .ItemHeight = FItemHeight,
                               .DistanceItemCaption = FDistanceItemCaption,
                               .DistanceBetweenLines = FDistanceBetweenLines,
                               .DistanceBetweenColumns = FDistanceBetweenColumns,
                               .DistanceToBorder = FDistanceToBorder,
                               .FixedWidth = AutoSize() ? -1 : Width()};
  const TZyLegendGrid Grid(Look, HasTitle() ? &Title : nullptr, Cells);
  for (std::size_t Index = 0; Index < Cells.size(); ++Index) {
    FItemRects[Index] = Cells[Index].Symbol;
    FLegendCaptions[Index]->X = Cells[Index].Anchor.X;
    FLegendCaptions[Index]->Y = Cells[Index].Anchor.Y;
  }
  FCaptionRec.X = Grid.TitleAnchor().X;
  FCaptionRec.Y = Grid.TitleAnchor().Y;
  FHasRoomForShadow = HasShadow();
  if (!AutoSize()) return;
  const TScopedValue Setting(FSetting, true);
  const TPoint Shadow = FHasRoomForShadow ? TPoint{ShadowX, ShadowY} : TPoint{};
  SetBounds(Left(), Top(), Grid.Width() + Shadow.X, Grid.Height() + Shadow.Y);
}

/// The whole line of an item, from its symbol to the end of its caption.
int TZyCustomLegend::ItemAt(int X, int Y) const {
  for (std::size_t Index = 0; Index < FItemRects.size(); ++Index) {
    const TRect& Symbol = FItemRects[Index];
    const TZyRichCaptionObject& Text = *FLegendCaptions[Index];
    const int Half = RoundToPixels(Text.Height() / 2), Middle = RoundToPixels(Text.Y);
    const int Right = std::max(Symbol.Right, RoundToPixels(Text.X + Text.Width()));
    const int Top = std::min(Symbol.Top, Middle - Half), Bottom = std::max(Symbol.Bottom, Middle + Half);
    if (X >= Symbol.Left && X < Right && Y >= Top && Y < Bottom) return static_cast<int>(Index);
  }
  return -1;
}

bool TZyCustomLegend::HasShadow() const {
  constexpr unsigned LeastAlpha = 200;
  return FDropShadow && (GetAlpha(FBackColor) >= LeastAlpha || FBackgroundGradient.Visible());
}

bool TZyCustomLegend::CMHitTest(int X, int Y) {
  return !HasShadow() || (X < Width() - ShadowX && Y < Height() - ShadowY);
}

std::string TZyCustomLegend::AccessibleName() const {
  return HasTitle() && !FCaptionRec.PlainText().empty() ? FCaptionRec.PlainText() : Name();
}

std::vector<std::string> TZyCustomLegend::AccessibleItems() const {
  std::vector<std::string> Result;
  for (const auto& Item : FLegendCaptions) Result.push_back(Item->PlainText());
  return Result;
}

// --- Painting -------------------------------------------------------------------------------------------------------

void TZyCustomLegend::Paint(Graphics& Gr) {
  if (!IsPaintedByParent()) PaintGr(Gr);
}

void TZyCustomLegend::PaintGr(Graphics& Gr) {
  PreparePaint();
  const RectF Client{0, 0, static_cast<float>(Width()), static_cast<float>(Height())};
  const bool Shadow = HasShadow();
  const float Thickness = std::max(FFrame.Width(), 1.0f);
  const RectF Box{Thickness / 2, Thickness / 2, Client.Width - 1 - Thickness - (Shadow ? ShadowX : 0),
                  Client.Height - 1 - Thickness - (Shadow ? ShadowY : 0)};
  if (const auto* const Chart = dynamic_cast<const TZyCustomGraph*>(Parent())) {
    Chart->SetHighQuality(Gr, true);
  } else {
    Gr.SetSmoothingMode(SmoothingModeHighQuality);
  }
  const auto Shaded = FBackgroundGradient.Visible() ? FBackgroundGradient.GetBrush(Client, 0) : nullptr;
  const SolidBrush Plain(FBackColor);
  const auto Outline = FFrame.GetPen(Client, 0);
  Outline->SetWidth(Thickness);
  const Brush& Ground = Shaded != nullptr ? *Shaded : static_cast<const Brush&>(Plain);
  if (Box.Width > 0 && Box.Height > 0)
    DrawRoundRect(Gr, Ground, *Outline, Box, FCornerRounding, FFrame.Visible(), Shadow, FBorderRaised, FBorderLowered);
  if (HasTitle()) FCaptionRec.PaintGr(Gr);
  PaintItems(Gr);
}

void TZyCustomLegend::PaintItem(Graphics& Gr, std::size_t Place, TObject* Sender, int Index, const TDrawItem& Draw) {
  {
    const TClipGuard Clip(Gr);
    const TRect& Rect = FItemRects[Place];
    Gr.SetClip(TRectToRectF(Rect), CombineModeIntersect);
    const TZyLegendItemDrawArgs Args{&Gr, Rect, Index};
    const std::uint64_t Alive = LiveHandle();
    if (const auto Handler = FOnDrawLegendItem) {
      Handler(Sender, Args);
    } else {
      Draw(Args);
    }
    if (FromLiveHandle(Alive) == nullptr) throw EAbort(LoadResString(_sLegendFreed));
  }
  if (Place < FLegendCaptions.size()) FLegendCaptions[Place]->PaintGr(Gr);
}

}  // namespace zy
