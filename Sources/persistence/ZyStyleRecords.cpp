#include "persistence/ZyStyleRecords.h"

#include "annotations/captions/ZyFont.h"
#include "graph/styles/ZyStyles.h"

namespace zy {

void Fields(TZyArchive& Archive, TZyGradientSettings& Settings) {
  using T = TZyGradientSettings;
  Archive.Field<&T::Visible, &T::SetVisible>(Settings, "Visible");
  Archive.Field<&T::Style, &T::SetStyle>(Settings, "Style");
  Archive.Field<&T::FirstColor, &T::SetFirstColor>(Settings, "FirstColor");
  Archive.Field<&T::MiddleColor, &T::SetMiddleColor>(Settings, "MiddleColor");
  Archive.Field<&T::LastColor, &T::SetLastColor>(Settings, "LastColor");
  Archive.Field<&T::LinearAngle, &T::SetLinearAngle>(Settings, TZyFieldName("LinearAngle").Default("90"));
  Archive.Field<&T::LinearCenter, &T::SetLinearCenter>(Settings, TZyFieldName("LinearCenter").Default("0.5"));
  Archive.Field<&T::RadialCenterX, &T::SetRadialCenterX>(Settings, TZyFieldName("RadialCenterX").Default("0.5"));
  Archive.Field<&T::RadialCenterY, &T::SetRadialCenterY>(Settings, TZyFieldName("RadialCenterY").Default("0.5"));
  Archive.EndRecord();
}

void Fields(TZyArchive& Archive, TZySimpleLineSettings& Settings) {
  using T = TZySimpleLineSettings;
  Archive.Field<&T::Color, &T::SetColor>(Settings, "Color");
  Archive.Field<&T::Width, &T::SetWidth>(Settings, TZyFieldName("Width").Default("1"));
  Archive.Field<&T::DashStyle, &T::SetDashStyle>(Settings, "DashStyle");
  if (!Archive.NextGroup()) return;
  if (Archive.IsStream()) Archive.Part("Gradient", [&] { Fields(Archive, Settings.Gradient()); });
  Archive.EndRecord();
}

void Fields(TZyArchive& Archive, TZyLineSettings& Settings) {
  Archive.Field<&TZyLineSettings::Visible, &TZyLineSettings::SetVisible>(Settings, "Visible");
  Fields(Archive, static_cast<TZySimpleLineSettings&>(Settings));
}

void Fields(TZyArchive& Archive, TZyAreaSettings& Settings) {
  using T = TZyAreaSettings;
  Archive.Field<&T::Visible, &T::SetVisible>(Settings, "Visible");
  Archive.Field<&T::ForeColor, &T::SetForeColor>(Settings, "ForeColor");
  Archive.Field<&T::BackColor, &T::SetBackColor>(Settings, "BackColor");
  Archive.Field<&T::AreaStyle, &T::SetAreaStyle>(Settings, TZyFieldName("AreaStyle").Ini("Style"));
  if (!Archive.NextGroup()) return;
  Archive.Part(TZyFieldName("Gradient").Later(), [&] { Fields(Archive, Settings.Gradient()); });
  Archive.EndRecord();
}

void Fields(TZyArchive& Archive, TZyFont& Settings) {
  using T = TZyFont;
  Archive.Field<&T::Name, &T::SetName>(Settings, "Name");
  // In a stream the size is a whole number first; its fraction came later.
  if (Archive.IsStream()) {
    Archive.Field(
        "Size", [&] { return static_cast<std::int32_t>(Settings.WholeSize()); },
        [&](std::int32_t Value) { Settings.SetSize(static_cast<float>(Value)); });
  } else {
    Archive.Field<&T::Size, &T::SetSize>(Settings, "Size");
  }
  Archive.Field<&T::Style, &T::SetStyle>(Settings, "Style");
  if (!Archive.NextGroup()) return;
  Archive.Field<&T::DrawEffects, &T::SetDrawEffects>(Settings, TZyFieldName("DrawEffects").Later());
  Archive.Field<&T::RenderingHint, &T::SetRenderingHint>(Settings, TZyFieldName("RenderingHint").Later());
  Archive.Field<&T::FillColor, &T::SetFillColor>(Settings, TZyFieldName("FillColor").Later());
  Archive.Part(TZyFieldName("Gradient").Later(), [&] { Fields(Archive, Settings.Gradient()); });
  if (!Archive.NextGroup()) return;
  if (Archive.IsStream()) Archive.Field<&T::Size, &T::SetSize>(Settings, "Size");
  Archive.EndRecord();
}

void ToNode(const IXMLNode& Node, const TZySimpleLineSettings& Settings) { ToNode(Node, Settings, "Line"); }

void ToNode(const IXMLNode& Node, const TZyFont& Settings) { ToNode(Node, Settings, "Font"); }

void FromNode(const IXMLNode& Node, TZySimpleLineSettings& Settings) { FromNode(Node, Settings, "Line"); }

void FromNode(const IXMLNode& Node, TZyFont& Settings) { FromNode(Node, Settings, "Font"); }

}  // namespace zy
