// The record of a series, which those of its kinds go on.

#include "persistence/ZyArchive.h"
#include "series/ZyFunctionSeries.h"

namespace zy {

void TZySeriesInput::Fields(TZyArchive& Archive, const TZyFieldName& Name) {
  Archive.Reference(
      Name, [this] { return TZySeries::StoredVector(*this); },
      [this](TZyCustomDoubleVector* Value) { FSeries.SetInput(*this, Value); });
}

/// The band's partner goes into its field: it may not have joined the graph yet.
void TZySeries::Fields(TZyArchive& Archive) {
  using T = TZySeries;
  Archive.TypedIdentity(*this);
  Archive.Field<&T::Caption, &T::SetCaption>(*this, TZyFieldName("Caption").Text());
  Archive.Level("Properties", [&] {
    Archive.Properties(*this, "Visible OutliersVisible IncludeInLegend AutoUpdate Layer Line Area");
  });
  Archive.Level("Links", [&] {
    FX.Fields(Archive, "XData");
    FY.Fields(Archive, "YData");
    Archive.Properties(*this, "XAxis YAxis");
  });
  if (Archive.NextGroup()) {
    Archive.Level("Links", [&] {
      Archive.Properties(*this, "MergeLegendItemWith");
      Archive.Reference(
          "DrawBandTo", [this] { return DrawBandTo(); }, [this](TZyLineSeries* Value) { FDrawBandTo = Value; });
    });
    Archive.EndRecord();
  }
  if (FDoPointSettingsStorage) SymbolFields(Archive);
}

void TZySeries::SymbolFields(TZyArchive& Archive) {
  using T = TZySeries;
  Archive.Part("PointSymbol", *FPointSymbolSettings);
  if (!Archive.NextGroup()) return;
  Archive.Part("OutOfRangeSymbol", *FOutOfRangeSymbolSettings);
  Archive.Reference<&T::RangeFromFunction, &T::SetRangeFromFunction>(
      *this, TZyFieldName("RangeFromFunction").Xml("OutOfRangeSymbol/RangeFromFunction"));
  Archive.EndRecord();
}

}  // namespace zy
