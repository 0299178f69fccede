#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "series/ZySeriesEvents.h"

namespace zy {

class TZySeries;

/// Pen and brush of one kept point of a series after the other: those of the settings, and what `OnGetPen` and
/// `OnGetBrush` make of them. The arguments are filled once, so that what a handler changes holds for the points after
/// it, too. A point is no longer asked for once a handler has changed the data.
///
///     TZyPointLook Look(*this);
///     for (std::size_t i = 0; i < Points().size(); ++i) {
///       if (Look.AskBrush(i)) Gr.FillEllipse(Look.Brush(), RectOf(i));
///       if (Look.AskPen(i)) Gr.DrawEllipse(Look.Pen(), RectOf(i));
///     }
class TZyPointLook {
 public:
  explicit TZyPointLook(TZySeries& Series);

  /// Pen, brush and visibility of the settings again.
  void Reset();
  /// Brush or pen for the points from now on, in place of that of the settings; must live until they are drawn.
  void SetBrush(const zy::Brush& Value) { FBrush.Brush = &Value; }
  void SetPen(const TZyPen& Value) { FPen.Pen = &Value; }
  /// The brush of the settings again, with what handlers made of its visibility.
  void ResetBrush();
  /// Runs the event for the kept point of that number. Whether there is something to draw with.
  bool AskBrush(std::size_t Pixel);
  bool AskPen(std::size_t Pixel);
  /// Throws EAbort when a handler freed the series of that live handle: nothing of it may be touched on the way out.
  /// The graph then goes on with the next one.
  static void TestAlive(std::uint64_t Series);
  /// The same while the series is drawn: a handler may also have freed an axis or data, so that it left its graph.
  static void TestDrawn(std::uint64_t Series);
  const zy::Brush& Brush() const { return *FBrush.Brush; }
  const TZyPen& Pen() const { return *FPen.Pen; }
  /// 0 for a pen that a handler took away.
  float PenWidth() const;

 private:
  template <class THandler, class TArgs>
  bool Ask(const THandler& Handler, TArgs& Args, std::size_t Pixel);

  TZySeries& FSeries;
  std::uint64_t FHandle;
  // A handler may change settings and events: what is in use stays.
  TZyPenEventHandler mGetPen;
  TZyBrushEventHandler mGetBrush;
  std::shared_ptr<const TZyPen> FOwnPen;
  std::shared_ptr<const zy::Brush> FOwnBrush;
  TZyBrushEventArgs FBrush;
  TZyPenEventArgs FPen;
};

}  // namespace zy
