// What has no control in the dialogs, from the tables of properties, so that none is forgotten.

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <string_view>

#include "annotations/ZyLegend.h"
#include "dialogs/forms/ZyPieSettings.h"

#include "dialogs/frames/ZyAxisSettingsFrame.h"
#include "dialogs/frames/ZyGraphSettingsFrame.h"
#include "dialogs/frames/ZyLegendSettingsFrame.h"
#include "dialogs/frames/ZyPieFrames.h"
#include "dialogs/frames/ZySeriesSettingsFrame.h"
#include "platform/controls/TCustomPanel.h"
#include "platform/framework/ClassRegistry.h"

namespace zy {
namespace {

using TPaths = std::set<std::string>;

/// Paths of the properties that a program can store, those of settings objects included; of a gradient as a whole.
void AddPaths(const TClassInfo& Class, const std::string& Before, TPaths& Result) {
  for (const TPropInfo* Info : Class.Properties()) {
    if (Info->Kind == TPropKind::Method) continue;
    const std::string Path = Before + Info->Name;
    const bool IsSettings = Info->Kind == TPropKind::Class &&
                            !Info->ObjectClass().InheritsFrom(TComponent::StaticClassInfo()) &&
                            !Info->ObjectClass().Properties().empty();
    if (IsSettings && !Path.ends_with("Gradient"))
      AddPaths(Info->ObjectClass(), Path + ".", Result);
    else
      Result.insert(Path);
  }
}

void AddControls(const TComponent& Box, TPaths& Result) {
  for (const TComponent* Each : Box.Components()) {
    const auto* const Frame = dynamic_cast<const TZySettingsFrame*>(Each);
    if (Frame == nullptr) continue;
    for (const TZySetting& Setting : Frame->Settings()) Result.insert(Setting.Path);
    AddControls(*Frame, Result);
  }
}

/// Those without a control, but for what code of the frames sets (Others), which the tests of the frames look at. A
/// control for a settings object, or for one of a gradient's properties, serves it whole.
std::string Without(const TClassInfo& Class, const TPaths& Controls, const TPaths& Others = {}) {
  TPaths All, Panel;
  AddPaths(Class, "", All);
  AddPaths(TCustomPanel::StaticClassInfo(), "", Panel);
  std::string Result;
  for (const std::string& Path : All) {
    bool Has = Others.contains(Path) || (Panel.contains(Path) && !Controls.contains(Path));
    for (std::size_t End = Path.find('.'); !Has && End != std::string::npos; End = Path.find('.', End + 1))
      Has = Controls.contains(Path.substr(0, End));
    const auto Next = Controls.lower_bound(Path);
    Has = Has || (Next != Controls.end() && Next->starts_with(Path));
    if (!Has) Result += Path + " ";
  }
  return Result;
}

template <class TFrameClass>
TPaths PathsIn() {
  TForm Form;
  new TFrameClass(&Form);
  TPaths Result;
  AddControls(Form, Result);
  return Result;
}

TEST(NoControlTest, OfAxesGraphsAndLegends) {
  EXPECT_EQ(Without(TZyAxis::StaticClassInfo(), PathsIn<TZyAxisSettingsFrame>(), {"MajorGridMode"}),
            "CaptionDistanceAfter CaptionDistanceBefore DataSource ExtraDigits IsSlaveAxis LogToNormalScalingLevel "
            "MaxForExtraExponent MinForExtraExponent ParentFont Position RubricsField StartPadding StopPadding ");
  EXPECT_EQ(Without(TZyGraph2D::StaticClassInfo(), PathsIn<TZyGraphSettingsFrame>(),
                    {"CaptionAlignment", "ZeroOrigin", "Zoom.StartPanning", "Zoom.StartZoom"}),
            "ParentFont Zoom.BackOnRightBottomLeftTopFrame Zoom.KeyboardZoom Zoom.PanningCursor Zoom.TouchGestures "
            "Zoom.WheelZoom ");
  EXPECT_EQ(Without(TZyLegend::StaticClassInfo(), PathsIn<TZyLegendSettingsFrame>(), {"ItemsOrderList"}),
            "AutoSize Graph ParentFont StartFreeFloatingMovingKeys ");
}

TEST(NoControlTest, OfSeries) {
  const TPaths Controls = PathsIn<TZySeriesSettingsFrame>();
  std::string Result;
  TPaths Kinds;
  for (const TClassInfo* Info : RegisteredClasses())
    if (Info->Factory() != nullptr && Info->InheritsFrom(TZySeries::StaticClassInfo()))
      Kinds.insert(
          std::string(Info->Name()) + ": " +
          Without(*Info, Controls, {"AutoUpdate", "BarStyle", "Coefficients"}));  // none has one for AutoUpdate
  for (const std::string& Kind : Kinds)
    if (!Kind.ends_with(": ")) Result += Kind + "\n";
  EXPECT_EQ(Result,
            "TZyArrows: Arrow.Color Arrow.DashStyle Arrow.Gradient Arrow.Visible Arrow.Width \n"
            "TZyBars: CaptionsField DataSource \n"
            "TZyDiscreteFourier: Phase \n"
            "TZyLinearRegression: ConfidenceIntervalArea.AreaStyle ConfidenceIntervalArea.BackColor "
            "ConfidenceIntervalArea.ForeColor ConfidenceIntervalArea.Gradient ConfidenceIntervalArea.Visible "
            "ConfidenceIntervalLine.Color ConfidenceIntervalLine.DashStyle ConfidenceIntervalLine.Gradient "
            "ConfidenceIntervalLine.Visible ConfidenceIntervalLine.Width \n"
            "TZyPointWithErrorSeries: ErrorIndicator.Gradient \n");
}

TEST(NoControlTest, OfPies) {
  TZyPieSettingsForm Form;
  TPaths Controls;
  AddControls(Form, Controls);
  EXPECT_EQ(Without(TZyPieChart::StaticClassInfo(), Controls,
                    {"CaptionAlignment", "ExplodePercent", "SegmentSettingsPalette", "SmoothingMode", "Values"}),
            "AutoUpdate CalloutArrow.DashStyle CalloutArrow.Gradient CalloutArrow.Visible CalloutFrame.DashStyle "
            "CalloutFrame.Gradient CaptionsField DataSource ExplodeOnClick OutliersVisible ParentFont "
            "SegmentBorder.DashStyle SegmentBorder.Gradient ");
  EXPECT_EQ(Without(TZyPieLegend::StaticClassInfo(), PathsIn<TZyPieLegendSettingsFrame>()),
            "AutoSize ParentFont PieChart ");
}

}  // namespace
}  // namespace zy
