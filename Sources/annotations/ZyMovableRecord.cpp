// What is stored of a marker, in the order of the stream.

#include "annotations/ZyMovable.h"
#include "graph/parts/ZyControlRecord.h"

namespace zy {

using T = TZyMovable;

void TZyMovable::Fields(TZyArchive& Archive) {
  Archive.TypedIdentity(*this);
  Archive.Level("Properties", [&] {
    Archive.Properties(*this, "Visible");
    HintFields(Archive, *this);
    Archive.Properties(*this, "ClipToData MouseDrag StartMovingKeys");
    SnapFields(Archive);
    Archive.Field<&T::ForeColor, &T::SetForeColor>(*this, "ForeColor");
    Archive.Part("Line", [&] { Line().TZySimpleLineSettings::Fields(Archive); });
  });
  if (!Archive.NextGroup()) return;
  CaptionFields(Archive);
  if (!Archive.NextGroup()) return;
  if (Archive.IsStream()) Archive.Field<&T::SnappedIdx, &T::TakeSnappedIdx>(*this, "SnappedIdx");
  if (!Archive.NextGroup()) return;
  BackgroundFields(Archive);
  Archive.EndRecord();
}

void TZyMovable::EndRead() {
  FReadsRecord = false;
  for (const TZyAxis* Axis : {FXAxis.Get(), FYAxis.Get()}) TakeStackOf(Axis);
  Modified();
}

void TZyMovable::SnapFields(TZyArchive& Archive) {
  Archive.Reference<&T::SnappedSeries, &T::SetSnappedSeries>(*this, "SnappedSeries");
  if (!Archive.IsStream()) Archive.Field<&T::SnappedIdx, &T::TakeSnappedIdx>(*this, "SnappedIdx");
}

void TZyMovable::CaptionPlaceField(TZyArchive& Archive) {
  Archive.Field<&T::CaptionPosition, &T::SetCaptionPosition>(*this,
                                                             TZyFieldName("Caption/Position").Ini("Caption.Position"));
}

void TZyMovable::PlaceFields(TZyArchive& Archive) {
  Archive.Level("Location", [&] {
    Archive.Reference<&T::XAxis, &T::SetXAxis>(*this, "XAxis");
    Archive.Reference<&T::YAxis, &T::SetYAxis>(*this, "YAxis");
    Archive.Field<&T::X, &T::SetX>(*this, "X");
    Archive.Field<&T::Y, &T::SetY>(*this, "Y");
  });
}

void TZyMovable::CaptionFields(TZyArchive& Archive) {
  Archive.Part(TZyFieldName("Caption/Font").Ini("Font"), Font());
  Archive.Field<&T::Caption, &T::SetCaption>(*this, TZyFieldName("Caption").Text());
  Archive.Level("Caption", [&] {
    const auto Name = [](const char* Text) { return TZyFieldName(Text); };
    Archive.Field<&T::CaptionVisible, &T::SetCaptionVisible>(*this, Name("Visible").Ini("Caption.Visible"));
    Archive.Field<&T::CaptionVertical, &T::SetCaptionVertical>(*this, Name("Vertical").Ini("Caption.Vertical"));
    Archive.Field<&T::CaptionDeltaX, &T::SetCaptionDeltaX>(*this, Name("DeltaX").Ini("Caption.DeltaX"));
    Archive.Field<&T::CaptionDeltaY, &T::SetCaptionDeltaY>(*this, Name("DeltaY").Ini("Caption.DeltaY"));
  });
  CaptionPlaceField(Archive);
}

void TZyMovable::BackgroundFields(TZyArchive& Archive) {
  Archive.Level("Caption", [&] {
    const auto Name = [](const char* Text) { return TZyFieldName(Text); };
    Archive.Field<&T::CaptionBackColor, &T::SetCaptionBackColor>(*this, Name("BackColor").Ini("Caption.BackColor"));
    Archive.Part(Name("Gradient").Ini("Caption.BackGradient"), FBackGradient);
    Archive.Part(Name("Line").Ini("Caption.BackFrame"), FBackFrame);
    Archive.Value(Name("BackRaised").Ini("Caption.BackRaised"), FBackRaised);
    Archive.Value(Name("BackLowered").Ini("Caption.BackLowered"), FBackLowered);
    Archive.Field<&T::CaptionBackShadow, &T::SetCaptionBackShadow>(*this, Name("BackShadow").Ini("Caption.BackShadow"));
    Archive.Field<&T::CaptionBackSpaceToBorder, &T::SetCaptionBackSpaceToBorder>(
        *this, Name("BackSpaceToBorder").Ini("CaptionBack.SpaceToBorder"));
    Archive.Field<&T::CaptionBackRounding, &T::SetCaptionBackRounding>(
        *this, Name("BackRounding").Ini("CaptionBack.Rounding"));
  });
}

}  // namespace zy
