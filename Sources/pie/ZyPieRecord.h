#pragma once

#include "persistence/ZyArchive.h"
#include "pie/ZyPieDonut.h"

namespace zy {

/// One walk of an archive through a pie chart and all that belongs to it.
class TZyPieRecord {
 public:
  TZyPieRecord(TZyPieChart& Chart, TZyArchive& Archive) : FChart(Chart), FArchive(Archive) {}
  void Fields();

 private:
  using TReadObject = TZyArchive::TReadObject;
  using T = TZyPieChart;

  template <auto Getter, auto Setter>
  void Field(const TZyFieldName& Name) {
    FArchive.Field<Getter, Setter>(FChart, Name);
  }
  /// One that is read without a setter, brought into the limits of its property.
  void Real(const TZyFieldName& Name, float& Member, const char* PropName);

  void DataFields();
  void VectorField(const TZyFieldName& Name, TZyCustomDoubleVector* Vector,
                   void (TZyPieChart::*Set)(TZyCustomDoubleVector*));
  void CaptionFields();
  void LegendFields();
  void ReadLegend(const TZyIdentity& Who, const TReadObject& Read);
  void PlaceFields();
  void TitleFields();
  void ShapeFields();
  void LookFields();
  void PaletteFields();
  TZyFillPalette& PaletteToRead(const std::string& Reference);

  TZyPieChart& FChart;
  TZyArchive& FArchive;
};

}  // namespace zy
