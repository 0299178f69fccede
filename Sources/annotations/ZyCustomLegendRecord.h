#pragma once

#include "annotations/ZyCustomLegend.h"
#include "persistence/ZyArchive.h"

namespace zy {

/// One walk of an archive through a legend, in the order of the stream. An heir adds what its kind has.
class TZyCustomLegendRecord {
 public:
  TZyCustomLegendRecord(TZyCustomLegend& Legend, TZyArchive& Archive) : FArchive(Archive), FLegend(Legend) {}
  virtual ~TZyCustomLegendRecord() = default;

  void Fields();

 protected:
  /// The chart that is listed, and the place in it.
  virtual void ChartFields() = 0;
  /// What follows the colours and counts of the items.
  virtual void ColorFields() {}
  virtual void ListFields() {}
  virtual void DistanceToChart() {}
  virtual void LabelFields() {}
  /// From the ground on to the end of the record.
  virtual void LastFields() = 0;
  void GroundFields();

  /// A length that is read without a setter.
  void Real(const TZyFieldName& Name, float& Member);

  TZyArchive& FArchive;

 private:
  using T = TZyCustomLegend;

  template <auto Getter, auto Setter>
  void Field(const TZyFieldName& Name) {
    FArchive.Field<Getter, Setter>(FLegend, Name);
  }
  void Count(const TZyFieldName& Name, int& Member);
  void PlaceFields();
  void ItemFields();
  void DistanceFields();
  void TitleFields();

  TZyCustomLegend& FLegend;
  bool FVisible = FLegend.Visible();
};

}  // namespace zy
