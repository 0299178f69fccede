// What is stored of an axis, in the order of the stream.

#include <array>
#include <cmath>

#include "axes/ZyAxis.h"
#include "graph/parts/ZyControlRecord.h"
#include "persistence/ZyArchive.h"
#include "platform/framework/ScopedFlag.h"
#include "series/vectors/ZyDoubleVector.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {

/// One walk of an archive through an axis.
class TZyAxisRecord {
 public:
  TZyAxisRecord(TZyAxis& Axis, TZyArchive& Archive) : FAxis(Axis), FArchive(Archive) {}

  void Fields() {
    FArchive.Identity(FAxis);
    LookFields();
    CaptionFields();
    ScaleFields();
    RubricFields();
    DateTimeFields();
    SlaveFields();
    FArchive.Part("Arrow", FAxis.FArrowPoint);
    DistanceFields();
    StageFields();
    LaterFields();
    if (!FArchive.IsReading()) return;
    FAxis.FEnds.TakeStored(TakesRange() ? std::optional(FValues) : std::nullopt);
    TakeMapping();
  }

 private:
  using T = TZyAxis;

  /// INI keeps the stages alone when an axis is read without its range.
  bool TakesRange() const { return FAxis.FReadsRange || FArchive.IsIni(); }

  template <auto Getter, auto Setter>
  void Field(const TZyFieldName& Name) {
    FArchive.Field<Getter, Setter>(FAxis, Name);
  }
  /// One that is read without a setter.
  void Real(const TZyFieldName& Name, double& Member) {
    double Value = Member;
    if (FArchive.Value(Name, Value) && std::isfinite(Value)) Member = Value;
  }

  void LookFields();
  void CaptionFields();
  void ScaleFields();
  void EndFields();
  void RubricFields();
  void DateTimeFields();
  void SlaveFields();
  void DistanceFields();
  void StageFields();
  void TakeStages(const TZyDoubleVector& Starts, const TZyDoubleVector& Stops, int Current);
  void LaterFields();
  void TableFields();
  void TakeMapping();

  TZyAxis& FAxis;
  TZyArchive& FArchive;
  TZyAxisRange FValues = FAxis.FEnds.Values();
};

void TZyAxisRecord::LookFields() {
  FArchive.Level("Properties", [&] {
    FArchive.Properties(FAxis, "Visible");
    HintFields(FArchive, FAxis);
    FArchive.Properties(FAxis, "Position Top Left");
    Field<&T::AutoSize, &T::SetAutoSize>("AutoSize");
    FArchive.Properties(FAxis, "Width Height AxisThicknes MajorTickThicknes TickThicknes MajorTickLength TickLength");
    Field<&T::ForeColor, &T::SetForeColor>("AxisColor");
    FArchive.Properties(FAxis, "MajorTickColor TickColor");
  });
}

void TZyAxisRecord::CaptionFields() {
  Field<&T::Caption, &T::SetCaption>(TZyFieldName("Caption").Xml("Caption/Text").MultiLine());
  FArchive.Part(TZyFieldName("Caption/Properties").Ini("Caption"), [&] {
    Field<&T::CaptionVisible, &T::SetCaptionVisible>("Visible");
    Field<&T::CaptionHorizontalOnVerticalAxis, &T::SetCaptionHorizontalOnVerticalAxis>("HorizontalOnVerticalAxis");
    Field<&T::CaptionAlignment, &T::SetCaptionAlignment>("Alignment");
    Field<&T::CaptionColor, &T::SetCaptionColor>("Color");
    Field<&T::CaptionDistanceBefore, &T::SetCaptionDistanceBefore>("DistanceBefore");
    Field<&T::CaptionDistanceAfter, &T::SetCaptionDistanceAfter>("DistanceAfter");
  });
  FArchive.Part(TZyFieldName("Caption/Font").Ini("Caption.Font"), FAxis.CaptionFont());
}

void TZyAxisRecord::ScaleFields() {
  FArchive.Level("Scaling", [&] {
    Field<&T::Scaling, &T::SetScaling>(TZyFieldName("Type").Ini("Scaling"));
    Field<&T::LogToNormalScalingLevel, &T::SetLogToNormalScalingLevel>(
        TZyFieldName("LogToNormalScalingLevel").Default("0"));
    FArchive.Properties(FAxis, "TicksPointToData Twisted");
    Field<&T::NumbersVisible, &T::SetNumbersVisible>(TZyFieldName("NumbersVisible").Ini("Numbers.Visible"));
    Field<&T::NumbersColor, &T::SetNumbersColor>(TZyFieldName("NumbersColor").Ini("Numbers.Color"));
    FArchive.Properties(FAxis, "RubricsAngle");
    Field<&T::MovingSlitWidth, &T::SetMovingSlitWidth>(TZyFieldName("MovingSlitWidth").Ini("MovingSlit.Width"));
    Field<&T::MovingSlitIncrement, &T::SetMovingSlitIncrement>(
        TZyFieldName("MovingSlitIncrement").Ini("MovingSlit.Increment"));
    FArchive.Properties(FAxis, "ExtraDigits MaxForExtraExponent MinForExtraExponent");
    FArchive.Part("TickParts", [&] {
      Field<&T::AutoTickParts, &T::SetAutoTickParts>("Auto");
      Field<&T::LabelPart, &T::SetLabelPart>("Label");
      Field<&T::MajorTickPart, &T::SetMajorTickPart>("Major");
      Field<&T::TickPart, &T::SetTickPart>("Minor");
    });
    FArchive.Part("Font", FAxis.FFont);
    FArchive.Part("Ends", [&] { EndFields(); });
  });
}

void TZyAxisRecord::EndFields() {
  double Start = FAxis.Start(), Stop = FAxis.Stop();
  FArchive.Value("Start", Start);
  FArchive.Value("Stop", Stop);
  if (FArchive.IsReading() && TakesRange()) {
    FAxis.SetStart(Start);
    FAxis.SetStop(Stop);
  }
  Field<&T::EndRounding, &T::SetEndRounding>("Rounding");
  Field<&T::StartEnd, &T::SetStartEnd>("StartEnd");
  Field<&T::StopEnd, &T::SetStopEnd>("StopEnd");
}

/// A source that cannot be found leaves the axis without one, and with the texts that it has.
void TZyAxisRecord::RubricFields() {
  const auto LinkFields = [&] {
    FArchive.Reference<&T::DataSource, &T::SetDataSource>(
        FAxis, TZyFieldName("Rubrics.DataSource").Xml("Rubrics/Database/DataSource"));
    Field<&T::RubricsField, &T::SetRubricsField>(
        TZyFieldName("Rubrics.RubricsField").Xml("Rubrics/Database/RubricsField"));
    if (FArchive.IsReading()) FAxis.FRubrics.SetBound(FAxis.DataSource() != nullptr);
  };
  FArchive.Alternative(
      TZyFieldName("Rubrics.FromDatabase").Xml("Rubrics/Database"), FAxis.FRubrics.IsBound(), LinkFields, [&] {
        FAxis.FRubrics.Fields(FArchive, TZyFieldName("Captions").Xml("Rubrics/Captions").CountKey("Rubrics.Count"));
      });
}

void TZyAxisRecord::DateTimeFields() {
  TZyDateTimeFormats& Formats = FAxis.FStepRules.DateTimeFormats;
  FArchive.Part("DateTimeFormat", [&] {
    FArchive.Value("ShortMonth", Formats.ShortMonth);
    FArchive.Value("LongMonth", Formats.LongMonth);
    FArchive.Value("Day", Formats.Day);
    FArchive.Value("DayAndHour", Formats.DayAndHour);
    FArchive.Value("Minute", Formats.Minute);
    FArchive.Value("Second", Formats.Second);
    FArchive.Value("MilliSecond", Formats.MilliSecond);
  });
}

void TZyAxisRecord::SlaveFields() {
  FArchive.Level("SlaveAxis", [&] {
    Field<&T::IsSlaveAxis, &T::SetIsSlaveAxis>(TZyFieldName("IsSlave").Ini("SlaveAxis"));
    FArchive.Reference<&T::MasterAxis, &T::SetMasterAxis>(FAxis, "MasterAxis");
    Field<&T::SlaveOffset, &T::SetSlaveOffset>(TZyFieldName("Offset").Ini("Slave.Offset"));
    Field<&T::SlaveSlope, &T::SetSlaveSlope>(TZyFieldName("Slope").Ini("Slave.Slope"));
  });
}

void TZyAxisRecord::DistanceFields() {
  FArchive.Part("Distance", [&] {
    Field<&T::DistanceValuesAxis, &T::SetDistanceValuesAxis>("ValuesAxis");
    Field<&T::DistanceAxisLabels, &T::SetDistanceAxisLabels>("AxisLabels");
    Field<&T::DistanceAxisExtraExponent, &T::SetDistanceAxisExtraExponent>("AxisExtraExponent");
  });
}

/// The zoom stages, as one vector of starts and one of stops.
void TZyAxisRecord::StageFields() {
  const bool HadStages = FAxis.GetCanZoomBack();
  const bool HasStages = FArchive.Alternative("Zoom", HadStages, [&] {
    TZyDoubleVector Starts, Stops;
    for (const TZyAxisRange& Stage : FAxis.FStages.Ranges()) {
      if (FArchive.IsReading()) break;
      Starts.Add(Stage.Start);
      Stops.Add(Stage.Stop);
    }
    FArchive.Record(TZyFieldName("Zoom").Ini("Zoom.Start").Later(), Starts);
    FArchive.Record(TZyFieldName("Zoom").Ini("Zoom.Stop").Later().Behind(1), Stops);
    auto Current = std::int32_t{FAxis.GetCurrentZoomStage()};
    if (FArchive.Value(TZyFieldName("Zoom.Idx").Xml("Zoom/Idx").Later(), Current) && FAxis.FReadsRange)
      TakeStages(Starts, Stops, Current);
  });
  if (FArchive.IsReading() && FAxis.FReadsRange && !HasStages) FAxis.ZoomClearBuffer();
}

void TZyAxisRecord::TakeStages(const TZyDoubleVector& Starts, const TZyDoubleVector& Stops, int Current) {
  if (Current < 0 || Current >= Starts.Count() || Starts.Count() != Stops.Count())
    throw EReadError(Format(LoadResString(_sPropOutOfRange), {Current, "Zoom.Idx"}));
  std::vector<TZyAxisRange> Ranges;
  for (int Index = 0; Index < Starts.Count(); ++Index) {
    const TZyAxisRange Range{Starts.GetValue(Index), Stops.GetValue(Index)};
    if (!std::isfinite(Range.Start) || !std::isfinite(Range.Stop))
      throw EReadError(Format(LoadResString(_sPropOutOfRange), {Index, "Zoom"}));
    Ranges.push_back(Range);
  }
  FAxis.FStages.Take(std::move(Ranges), Current);
}

/// The parts of the table of steps, and what later versions of charts came to store.
void TZyAxisRecord::LaterFields() {
  if (!FArchive.NextGroup()) return;
  FArchive.Level("Scaling", [&] { TableFields(); });
  if (!FArchive.NextGroup()) return;
  Field<&T::MajorGridMode, &T::SetMajorGridMode>(
      TZyFieldName("TickParts.MajorGridMode").Xml("Scaling/TickParts/MajorGridMode").Later());
  if (!FArchive.NextGroup()) return;
  TZyAxisRange Values = FValues;
  const auto InEnds = [&](const TZyFieldName& Name, double& Member) {
    FArchive.Level("Scaling", [&] { FArchive.Part("Ends", [&] { Real(TZyFieldName(Name).Later(), Member); }); });
  };
  InEnds("ValuesStart", Values.Start);
  InEnds("ValuesStop", Values.Stop);
  FValues = Values;
  if (!FArchive.NextGroup()) return;
  TZyEndRules Rules = FAxis.FEnds.Rules;
  InEnds("StartPadding", Rules.StartPadding);
  InEnds("StopPadding", Rules.StopPadding);
  if (!FArchive.IsXml() || FAxis.FReadsRange) FAxis.FEnds.Rules = Rules;
  FArchive.EndRecord();
}

void TZyAxisRecord::TableFields() {
  Field<&T::LabelDistanceFactor, &T::SetLabelDistanceFactor>(
      TZyFieldName("LabelDistanceFactor").Xml("TickParts/LabelDistanceFactor"));
  const auto Row = [&](const std::array<const char*, 3>& Names, std::array<double, 3>& Parts) {
    for (std::size_t Index = 0; Index < Names.size(); ++Index)
      Real(TZyFieldName(Names[Index]).Ini(Names[Index] + std::string_view("TickParts/").size()), Parts[Index]);
  };
  TZyTickTable& Table = FAxis.FStepRules.TickTable;
  Row({"TickParts/LabelParts.0", "TickParts/LabelParts.1", "TickParts/LabelParts.2"}, Table.LabelParts);
  Row({"TickParts/MajorParts.0", "TickParts/MajorParts.1", "TickParts/MajorParts.2"}, Table.MajorParts);
  Row({"TickParts/MinorParts.0", "TickParts/MinorParts.1", "TickParts/MinorParts.2"}, Table.MinorParts);
}

/// Series ask for their ranges, before a layout, whether the scale is logarithmic at its ends. Ends that have no
/// logarithm are still to be mended.
void TZyAxisRecord::TakeMapping() {
  if (FAxis.LowEnd() > 0) {
    FAxis.FKind->TakeMapping(FAxis.FSteps, FAxis.FStepRules, FAxis.LowEnd(), FAxis.HighEnd());
  } else {
    FAxis.FSteps.HasLogScaling = FAxis.FKind->IsLogarithmic();
  }
}

void TZyAxis::Fields(TZyArchive& Archive) {
  const TScopedValue Reading(FReadsRecord, Archive.IsReading());
  TZyAxisRecord(*this, Archive).Fields();
}

void TZyAxis::ReadBy(const std::function<void()>& Read, bool WithRange) {
  const TScopedValue Range(FReadsRange, WithRange);
  Read();
}

void TZyAxis::ReadFrom(TStream& Stream, bool WithRange) {
  ReadBy([&] { ReadFrom(Stream); }, WithRange);
}

void TZyAxis::ReadFrom(const std::filesystem::path& FileName, bool WithRange) {
  ReadBy([&] { ReadFrom(FileName); }, WithRange);
}

void TZyAxis::ReadFrom(const IXMLNode& Node, bool WithRange) {
  ReadBy([&] { ReadFrom(Node); }, WithRange);
}

void TZyAxis::ReadFrom(const TCustomIniFile& Ini, std::string_view Section, bool WithRange) {
  ReadBy([&] { ReadFrom(Ini, Section); }, WithRange);
}

}  // namespace zy
