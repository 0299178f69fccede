#pragma once

#include <algorithm>
#include <cmath>

#include "series/ZyRecordColumns.h"
#include "series/ZySeries.h"

namespace zy {

/// Base of the series that show a record of low, open, high and close for each X, as of prices. Close is the Y data.
///
/// A record has values when all five of its vectors have. The range of Y goes from the least low to the greatest high;
/// lows below 0 do not count on a logarithmic axis. On a twisted axis records stand upside down.
class TZyCustomOHLC : public TZySeries {
  ZY_CLASS(TZyCustomOHLC, TZySeries)

  /// Width of a bar in pixels; 0, less and infinity are stored as 1.
  float BarWidth() const { return FBarWidth; }
  void SetBarWidth(float Value) { SetLook(FBarWidth, Value > 0 && std::isfinite(Value) ? Value : 1, "BarWidth"); }
  TZyCustomDoubleVector* LowData() const { return FLow.Vector(); }
  void SetLowData(TZyCustomDoubleVector* Value) { SetInput(FLow, Value); }
  TZyCustomDoubleVector* OpenData() const { return FOpen.Vector(); }
  void SetOpenData(TZyCustomDoubleVector* Value) { SetInput(FOpen, Value); }
  TZyCustomDoubleVector* HighData() const { return FHigh.Vector(); }
  void SetHighData(TZyCustomDoubleVector* Value) { SetInput(FHigh, Value); }
  TZyCustomDoubleVector* CloseData() const { return YData(); }
  void SetCloseData(TZyCustomDoubleVector* Value);
  const TZyValueTransformation& LowValueTransformation() const { return FLow.Transformation(); }
  void SetLowValueTransformation(TZyValueTransformation Value) { SetTransformation(FLow, std::move(Value)); }
  const TZyValueTransformation& OpenValueTransformation() const { return FOpen.Transformation(); }
  void SetOpenValueTransformation(TZyValueTransformation Value) { SetTransformation(FOpen, std::move(Value)); }
  const TZyValueTransformation& HighValueTransformation() const { return FHigh.Transformation(); }
  void SetHighValueTransformation(TZyValueTransformation Value) { SetTransformation(FHigh, std::move(Value)); }
  const TZyValueTransformation& CloseValueTransformation() const { return YValueTransformation(); }
  void SetCloseValueTransformation(TZyValueTransformation Value) { SetYValueTransformation(std::move(Value)); }

  double TransformLow(double Value, int Idx) const { return FLow.Transform(Value, Idx); }
  double TransformHigh(double Value, int Idx) const { return FHigh.Transform(Value, Idx); }
  /// Transformed values of a record.
  double GetLow(int Idx) const { return FLow.At(Idx); }
  double GetOpen(int Idx) const { return FOpen.At(Idx); }
  double GetHigh(int Idx) const { return FHigh.At(Idx); }

  void Fields(TZyArchive& Archive) override;
  int MinCount() const override { return 1; }
  float ExtraSpaceAt(TZyAxisPosition Border) const override {
    using enum TZyAxisPosition;
    return Border == Left || Border == Right ? FBarWidth / 2 + Overhang() : 0;
  }
  void DataWritten(const TZyCustomDoubleVector& Vector, int Idx) override;
  void CalculatePoints() override;
  /// Whether line or area show makes no difference: the bars are there.
  void PaintGr(Graphics& Gr) override;
  using TZySeries::FindPoint;
  /// The first bar, from low to high, whose width holds the place.
  int FindPoint(int X, int Y) const override;

 protected:
  explicit TZyCustomOHLC(TComponent* Owner);
  /// Pixels by which a bar reaches beyond its width at both sides.
  virtual float Overhang() const { return 0; }

  /// The y of the upper and the lower end of a kept record.
  float TopOf(std::size_t Record) const { return std::min(FHigh.Pixels()[Record], FLow.Pixels()[Record]); }
  float BottomOf(std::size_t Record) const { return std::max(FHigh.Pixels()[Record], FLow.Pixels()[Record]); }

  /// Whether records stand so densely, and without events, that all of a column of pixels are drawn together. The
  /// colours are for the kind to fill in, and to test.
  bool HasColumns(TZyRecordLook& Look);
  /// Draws them; Kind is that of TZyRecordColumns.
  template <class TKind>
  void DrawColumns(Graphics& Gr, const TKind& Kind, const TZyRecordLook& Look) {
    FColumns.Update(Kind, Points(), Look, HasAscendingPixels());
    FColumns.Draw(Gr);
  }

  bool HasTrackedRanges() const override;
  void TakeRanges(TRange& X, TRange& Y) override;
  void KeepPixels(int Count) override { FColumns.KeepRecords(static_cast<std::size_t>(Count)); }
  void TakePixels(int Start, int Stop) override;
  void AddBandPoints() override {}
  void AddSampleData() override;

  // Their pixels are the y of each kept record; `Points` has the x, and the y of close.
  TZySeriesInput FLow{*this, "LowData", TZyInputUse::Needed};
  TZySeriesInput FOpen{*this, "OpenData", TZyInputUse::Needed};
  TZySeriesInput FHigh{*this, "HighData", TZyInputUse::Needed};

 private:
  /// Transformed values of a record.
  struct TRecord {
    double X, Low, Open, High, Close;
    bool IsFinite() const {
      return std::isfinite(X) && std::isfinite(Low) && std::isfinite(Open) && std::isfinite(High) &&
             std::isfinite(Close);
    }
  };

  bool IsWhole() const;
  TRecord RecordAt(int Idx) const { return {FX.At(Idx), GetLow(Idx), GetOpen(Idx), GetHigh(Idx), FY.At(Idx)}; }
  void TakeStretch(int First, int Last);
  bool HasAscendingPixels() const;

  TZyRecordColumns FColumns;
  float FBarWidth = 4;
};

}  // namespace zy
