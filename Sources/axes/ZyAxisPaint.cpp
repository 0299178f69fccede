// Ticks and labels of an axis for the place where the layout put it, and its painting.

#include "axes/ZyAxis.h"
#include "axes/ZyAxisLayout.h"
#include "axes/ZyAxisPainter.h"
#include "graph/parts/ZyAxisGraph.h"
#include "platform/controls/TWinControl.h"
#include "texts/NumberText.h"
#include "texts/ZyLocalize.h"

namespace zy {

void TZyAxis::Calculate() {
  TWinControl* const Container = Parent();
  if (Container == nullptr || LayoutRunning) return;
  if (const IZyAxisGraph* const Chart = Graph(); Chart != nullptr && Chart->Updating()) return;
  TZyAxisLayout(*this).Run();
  TZyAxisLayout::TellListeners(*Container);
}

// --- Ticks and labels -----------------------------------------------------------------------------------------------

std::string TZyAxis::LabelText(std::string Text, double Value) {
  if (!mGetScaleLabel) return Text;
  TZyScaleLabelEventArgs Args{Value, std::move(Text)};
  const auto Handler = mGetScaleLabel;  // it may be replaced while it runs
  Handler(this, Args);
  return std::move(Args.Caption);
}

std::string TZyAxis::AccessibleName() const {
  std::string Title = Caption().empty() ? Name() : FCaptionRec.PlainText();
  const std::vector<std::string> Labels = AccessibleItems();
  return Labels.empty() ? Title : Format(LoadResString(_sToldRange), {Title, Labels.front(), Labels.back()});
}

/// Without its markup the power of a logarithmic axis, and any other text that is raised, would run into what it stands
/// at.
std::vector<std::string> TZyAxis::AccessibleItems() const {
  constexpr std::string_view Raised = "\\+";
  const std::string Power = FTicks.HasExponent() ? "E" + IntToStr(FTicks.Exponent()) : std::string();
  std::vector<std::string> Result;
  for (const auto& Label : FLabels.Labels()) {
    std::string Text = Label->Caption();
    if (Text.find(Raised) == std::string::npos) {
      Result.push_back(Label->PlainText() + Power);
      continue;
    }
    for (std::size_t Place; (Place = Text.find(Raised)) != std::string::npos;) Text.replace(Place, Raised.size(), "^");
    TZyRichCaptionObject Shown;
    Shown.SetCaption(Text);
    Shown.ParseIfNeeded();
    Result.push_back(Shown.PlainText() + Power);
  }
  return Result;
}

/// The extent of the control along the axis. Where a graph's layout gives it one, a new control and one whose parent
/// was resized get it only in the next pass, while ranges are taken before it.
TZyLabelRoom TZyAxis::LabelRoom() {
  const TWinControl* const Container = AutoSize() && Graph() != nullptr ? Parent() : nullptr;
  const int Across = Container == nullptr ? Width() : Container->ClientWidth();
  const int Upright = Container == nullptr ? Height() : Container->ClientHeight();
  const int Length = GetHorizontal() ? Across : Upright;
  return {static_cast<double>(Length), static_cast<double>(FStepRules.LabelDistanceFactor),
          [this](std::string Text, double Value) {
            const std::string Shown = LabelText(std::move(Text), Value);
            return static_cast<double>(FLabels.Estimate(Shown, FFont.Size(), GetHorizontal()));
          }};
}

void TZyAxis::CalculateTicks() {
  constexpr float LengthWithoutRoom = 100;  // pixels
  if (const auto Handler = mGetTicks) Handler(this);
  if (!(FGeometry.Length > 0)) FGeometry.Length = LengthWithoutRoom;
  FTicks.Clear();
  FLabels.Clear();
  FTransform = {FKind->Mapping(FSteps), FSteps.HasLogScaling ? FSteps.LogStart : Start(),
                FKind->PerPixel(FSteps, Start(), Stop(), FGeometry.Length), FGeometry};
  FKind->FollowSpan(FSteps, FStepRules, Start(), Stop());
  TZyTickWriter Writer(FTicks, Transform(), LowEnd(), HighEnd(), static_cast<double>(FGeometry.Length),
                       NumbersVisible(), FMajorGridMode);
  FKind->PutTicks(Writer, FSteps, FStepRules, LabelRoom(), FRubrics.Texts());
  FLabels.Take(
      FTicks, FGeometry, FLook, FFont,
      [this](std::string Text, double Value) { return LabelText(std::move(Text), Value); }, [this] { Modified(); });
  FLabels.PlaceExponent(FTicks, FGeometry, FLook, FFont, NumberToWorld(HighEnd()));
  PlaceAxisCaption(FCaptionRec, FGeometry, FLook, FLabels);
}

void TZyAxis::DropAtZero() {
  constexpr float NearZero = 0.1f;  // pixels; what lies so near would be hidden by the other axis
  const float Zero = NumberToWorld(0);
  FLabels.EraseNear(Zero, NearZero, GetHorizontal());
  FTicks.EraseNear(Zero, NearZero);
}

// --- Room -----------------------------------------------------------------------------------------------------------

float TZyAxis::CaptionHeight() const {
  if (!CaptionVisible() || Caption().empty()) return 0;
  return CaptionIsTurned(FGeometry, FLook) ? FCaptionRec.Width() : FCaptionRec.Height();
}

float TZyAxis::CaptionWidth() const {
  if (!CaptionVisible() || Caption().empty()) return 0;
  return CaptionIsTurned(FGeometry, FLook) ? FCaptionRec.Height() : FCaptionRec.Width();
}

float TZyAxis::RoomNeeded() const { return RoomAcross(FGeometry, FLook, FLabels, AcrossCaption()); }

TZyOverhang TZyAxis::LabelOverhang() const {
  if (!Visible() || AxLabels().empty()) return {};
  return FLabels.Overhang(FGeometry, Twisted() != FKind->RunsDown(Start(), Stop()));
}

// --- Painting -------------------------------------------------------------------------------------------------------

void TZyAxis::Paint(Graphics& Gr) {
  if (Graph() == nullptr) PaintGr(Gr);
}

void TZyAxis::PaintGr(Graphics& Gr) {
  if (LayoutRunning) return;
  if (FNeedsRecalculate) {
    const std::uint64_t Alive = LiveHandle();
    Calculate();
    if (FromLiveHandle(Alive) == nullptr) return;  // a handler freed it
  }
  const IZyAxisGraph* const Chart = Graph();
  const TZyAxisPainter Painter(FGeometry, FLook, Chart != nullptr && Chart->DoingMetafile());
  Painter.PaintTicks(Gr, FTicks);
  Painter.PaintLine(Gr, FArrowPoint);
  if (NumbersVisible()) FLabels.Paint(Gr);
  if (CaptionVisible()) FCaptionRec.PaintGr(Gr);
  FLabels.PaintExponent(Gr);
}

}  // namespace zy
