#pragma once

#include <utility>

#include "platform/controls/TWinControl.h"

class QScrollBar;

namespace zy {

/// The direction of a scroll bar.
enum TScrollBarKind { sbHorizontal, sbVertical };
ZY_ENUM(TScrollBarKind, "sbHorizontal", "sbVertical")

/// What a user does with a scroll bar. Each action but the drag of the thumb (scTrack, then scPosition) ends with
/// scEndScroll as well.
enum TScrollCode { scLineUp, scLineDown, scPageUp, scPageDown, scPosition, scTrack, scTop, scBottom, scEndScroll };
ZY_ENUM(TScrollCode, "scLineUp", "scLineDown", "scPageUp", "scPageDown", "scPosition", "scTrack", "scTop", "scBottom",
        "scEndScroll")

/// Runs before the bar moves to ScrollPos, which the handler may change.
using TScrollEvent = std::function<void(TObject* Sender, TScrollCode ScrollCode, int& ScrollPos)>;

/// A scroll bar. Its thumb covers PageSize of the range from Min to Max, so that a user gets as far as
/// Max - PageSize + 1, or Max without a page. 121 by 17 pixels at first.
class TScrollBar : public TWinControl {
  ZY_CLASS(TScrollBar, TWinControl)
  explicit TScrollBar(TComponent* Owner = nullptr);
  ~TScrollBar() override;

  TScrollBarKind Kind() const { return FKind; }
  /// A change exchanges width and height.
  void SetKind(TScrollBarKind Value);
  int Min() const { return FMin; }
  void SetMin(int Value) { SetParams(FPosition, Value, FMax); }
  int Max() const { return FMax; }
  void SetMax(int Value) { SetParams(FPosition, FMin, Value); }
  int PageSize() const { return FPageSize; }
  void SetPageSize(int Value);
  int Position() const { return FPosition; }
  void SetPosition(int Value) { SetParams(Value, FMin, FMax); }
  /// Sets all three in one step. Throws ERangeError for a Max below Min; Position is limited to the range.
  void SetParams(int Position, int Min, int Max);
  /// Steps of the arrows and of the track beside the thumb; 1 at least.
  int SmallChange() const { return FSmallChange; }
  void SetSmallChange(int Value);
  int LargeChange() const { return FLargeChange; }
  void SetLargeChange(int Value);

  const TScrollEvent& OnScroll() const { return FOnScroll; }
  void SetOnScroll(TScrollEvent Value) { FOnScroll = std::move(Value); }
  /// Runs after each change of the position.
  const TNotifyEvent& OnChange() const { return FOnChange; }
  void SetOnChange(TNotifyEvent Value) { FOnChange = std::move(Value); }

 protected:
  /// Tells a user's action.
  virtual void Scroll(TScrollCode ScrollCode, int& ScrollPos);
  virtual void Change();
  QWidget* CreateWidget() override;
  bool WidgetEvent(QEvent& Event) override;

 private:
  void Act(int Action);
  void Send(TScrollCode ScrollCode);
  void EndThumb();
  void ApplyParams();
  void Configure(QScrollBar& Bar) const;

  TScrollBarKind FKind = sbHorizontal;
  int FMin = 0;
  int FMax = 100;
  int FPageSize = 0;
  int FPosition = 0;
  int FSmallChange = 1;
  int FLargeChange = 1;
  bool FPressed = false;   // a mouse button is down on the bar
  bool FEndIsDue = false;  // an action of that press waits for its end
  TScrollEvent FOnScroll;
  TNotifyEvent FOnChange;
};

}  // namespace zy
