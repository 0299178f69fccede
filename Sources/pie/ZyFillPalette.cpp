#include "pie/ZyFillPalette.h"

#include <algorithm>
#include <array>

#include "graph/shapes/ZyDrawing.h"
#include "persistence/ZyArchive.h"
#include "platform/controls/TControl.h"
#include "platform/drawing/Graphics.h"
#include "platform/framework/Reflection.h"
#include "platform/framework/TPropInfo.h"
#include "platform/framework/TReader.h"
#include "platform/framework/TWriter.h"
#include "texts/Exceptions.h"
#include "undo/ZyChange.h"

namespace zy {

using TFill = TZyFillSettings;
ZY_PUBLISHED(TZyFillSettings, TPersistent,
             Published<&TFill::ForeColor, &TFill::SetForeColor>("ForeColor", Colors::LightGray, _sAreaForeColor),
             Published<&TFill::BackColor, &TFill::SetBackColor>("BackColor", Colors::DarkGray, _sAreaBackColor),
             Published<&TFill::AreaStyle, &TFill::SetAreaStyle>("AreaStyle", TZyAreaStyle::Total, _sAreaStyle))
ZY_PUBLISHED(TZyFillPalette, TComponent)

void TZyFillSettings::SetForeColor(TZyColor Value) {
  Change(this, FForeColor, Value, "ForeColor", &TZyFillSettings::Modified);
}

void TZyFillSettings::SetBackColor(TZyColor Value) {
  Change(this, FBackColor, Value, "BackColor", &TZyFillSettings::Modified);
}

void TZyFillSettings::SetAreaStyle(TZyAreaStyle Value) {
  Change(this, FAreaStyle, Value, "AreaStyle", &TZyFillSettings::Modified);
}

void TZyFillSettings::DrawListItem(const TZyLegendItemDrawArgs& e) const {
  const RectF Area = TRectToRectF(e.Rect);
  e.Graphics->FillRectangle(*GetBrush(), Area);
  e.Graphics->DrawRectangle(Pen(Colors::Black), Area.X, Area.Y, Area.Width - 1, Area.Height - 1);
}

void TZyFillSettings::Fields(TZyArchive& Archive) {
  Archive.Field<&TFill::ForeColor, &TFill::SetForeColor>(*this, TZyFieldName("ForeColor").Default("White"));
  Archive.Field<&TFill::BackColor, &TFill::SetBackColor>(*this, TZyFieldName("BackColor").Default("White"));
  Archive.Field<&TFill::AreaStyle, &TFill::SetAreaStyle>(*this, "AreaStyle");
}

// --- Palette --------------------------------------------------------------------------------------------------------

TZyFillPalette::TZyFillPalette(TComponent* Owner) : TComponent(Owner) {}

TZyFillPalette::~TZyFillPalette() { Destroying(); }

std::size_t TZyFillPalette::Checked(int i, int Limit) {
  if (i < 0 || i >= Limit) throw ERangeError(Format(LoadResString(_sVectorIdxOutOfRange), {i}));
  return static_cast<std::size_t>(i);
}

TZyFillSettings& TZyFillPalette::Items(int i) const { return *FItems[Checked(i, Count())]; }

std::unique_ptr<TZyFillSettings> TZyFillPalette::Made(const TZyFillSettings& Like) {
  auto Result = std::make_unique<TZyFillSettings>([this] { InvalidateControls(); });
  Result->Assign(&Like);
  Result->SetUndoStack(FUndo);
  return Result;
}

void TZyFillPalette::SetItems(int i, const TZyFillSettings& Value) {
  Items(i);
  FItems[static_cast<std::size_t>(i)] = Made(Value);
  InvalidateControls();
}

void TZyFillPalette::Insert(int i, const TZyFillSettings& Item) {
  const std::size_t Place = Checked(i, Count() + 1);
  FItems.insert(FItems.begin() + static_cast<std::ptrdiff_t>(Place), Made(Item));
  InvalidateControls();
}

void TZyFillPalette::Move(int From, int To) {
  const auto Source = FItems.begin() + static_cast<std::ptrdiff_t>(Checked(From, Count()));
  const auto Target = FItems.begin() + static_cast<std::ptrdiff_t>(Checked(To, Count()));
  Source < Target ? std::rotate(Source, Source + 1, Target + 1) : std::rotate(Target, Source, Source + 1);
  InvalidateControls();
}

void TZyFillPalette::Delete(int i) {
  if (i < 0 || i >= Count()) return;
  if (FUndo != nullptr) FUndo->Clear();
  FItems.erase(FItems.begin() + i);
  InvalidateControls();
}

void TZyFillPalette::Clear() {
  while (!FItems.empty()) FItems.pop_back();
  InvalidateControls();
}

void TZyFillPalette::FillDefaults() {
  constexpr std::array DefaultColors = {Colors::CornflowerBlue, Colors::Maroon,  Colors::LemonChiffon,
                                        Colors::PaleTurquoise,  Colors::Sienna,  Colors::Coral,
                                        Colors::SteelBlue,      Colors::Lavender};
  for (const TZyColor Color : DefaultColors) {
    TZyFillSettings Like;
    Like.SetForeColor(Color);
    FItems.push_back(Made(Like));
  }
  InvalidateControls();
}

void TZyFillPalette::Assign(const TPersistent* Source) {
  const auto* const Other = dynamic_cast<const TZyFillPalette*>(Source);
  if (Other == nullptr) return TComponent::Assign(Source);
  if (Other == this) return;
  FItems.resize(std::min(FItems.size(), Other->FItems.size()));
  while (FItems.size() < Other->FItems.size()) FItems.push_back(Made(TZyFillSettings()));
  for (std::size_t i = 0; i < FItems.size(); ++i) FItems[i]->Assign(Other->FItems[i].get());
  InvalidateControls();
}

void TZyFillPalette::SetUndoStack(TZyUndoStack* Value) {
  FUndo.Set(Value);
  for (const auto& Item : FItems) Item->SetUndoStack(Value);
}

std::vector<TPersistent*> TZyFillPalette::UndoParts() const {
  std::vector<TPersistent*> Result;
  Result.reserve(FItems.size());
  for (const auto& Item : FItems) Result.push_back(Item.get());
  return Result;
}

void TZyFillPalette::AddRelatedControl(TControl& Control) { FRelatedControls.Add(&Control); }

void TZyFillPalette::RemoveRelatedControl(TControl& Control) { FRelatedControls.Remove(&Control); }

void TZyFillPalette::InvalidateControls() {
  for (TControl* Control : FRelatedControls) Control->Invalidate();
}

/// Three whole numbers for each entry: style, fore colour, back colour.
void TZyFillPalette::DefineProperties(TFiler& Filer) {
  TComponent::DefineProperties(Filer);
  const auto Read = [this](TReader& Reader) {
    FItems.clear();
    Reader.ReadListBegin();
    while (!Reader.EndOfList()) {
      const std::int64_t Style = Reader.ReadInteger(), Fore = Reader.ReadInteger(), Back = Reader.ReadInteger();
      TZyFillSettings Like;
      FindPropInfo(Like, "AreaStyle").SetOrd(Like, Style);
      Like.SetForeColor(static_cast<TZyColor>(Fore));
      Like.SetBackColor(static_cast<TZyColor>(Back));
      FItems.push_back(Made(Like));
    }
    Reader.ReadListEnd();
    InvalidateControls();
  };
  const auto Write = [this](TWriter& Writer) {
    Writer.WriteListBegin();
    for (const auto& Item : FItems) {
      Writer.WriteInteger(static_cast<int>(Item->AreaStyle()));
      Writer.WriteInteger(static_cast<std::int64_t>(Item->ForeColor()));
      Writer.WriteInteger(static_cast<std::int64_t>(Item->BackColor()));
    }
    Writer.WriteListEnd();
  };
  Filer.DefineProperty("Items", Read, Write, !FItems.empty());
}

}  // namespace zy
