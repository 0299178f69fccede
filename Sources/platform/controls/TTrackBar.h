#pragma once

#include <utility>

#include "platform/controls/TWidgetOf.h"

class QSlider;

namespace zy {

extern template class TWidgetOf<QSlider>;

/// The direction of a track bar.
enum TTrackBarOrientation { trHorizontal, trVertical };
ZY_ENUM(TTrackBarOrientation, "trHorizontal", "trVertical")

/// A slider. A vertical one has Min at the top. 150 by 33 pixels at first.
class TTrackBar : public TWidgetOf<QSlider> {
  ZY_CLASS(TTrackBar, TWinControl)
  explicit TTrackBar(TComponent* Owner = nullptr);
  ~TTrackBar() override;

  int Min() const { return FMin; }
  void SetMin(int Value) { SetParams(FPosition, Value, FMax); }
  int Max() const { return FMax; }
  void SetMax(int Value) { SetParams(FPosition, FMin, Value); }
  int Position() const { return FPosition; }
  void SetPosition(int Value) { SetParams(Value, FMin, FMax); }
  /// Sets all three in one step; a Max below Min becomes Min, and Position is limited to the range.
  void SetParams(int Position, int Min, int Max);
  TTrackBarOrientation Orientation() const { return FOrientation; }
  void SetOrientation(TTrackBarOrientation Value);
  /// Steps of the arrow keys, and of the page keys and the track.
  int LineSize() const { return FLineSize; }
  void SetLineSize(int Value);
  int PageSize() const { return FPageSize; }
  void SetPageSize(int Value);

  /// Runs when the user moved the slider.
  const TNotifyEvent& OnChange() const { return FOnChange; }
  void SetOnChange(TNotifyEvent Value) { FOnChange = std::move(Value); }

 protected:
  virtual void Change();
  void Configure(QSlider& Box) override;
  void Listen(QSlider& Box) override;
  bool ChangesByWheel() const override { return true; }

 private:
  void Carry();

  int FMin = 0, FMax = 10, FPosition = 0, FLineSize = 1, FPageSize = 2;
  TTrackBarOrientation FOrientation = trHorizontal;
  TNotifyEvent FOnChange;
};

}  // namespace zy
