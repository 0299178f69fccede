#pragma once

#include <type_traits>
#include <utility>

#include "platform/controls/TWinControl.h"

namespace zy {

/// A control over one widget W of the toolkit's, which paints itself and handles its own mouse and keys.
///
/// The control holds all that is stored, and works without a widget; the widget shows it. A setter stores the value and
/// carries it on by With; what the user does comes back by On. So nothing that a setter does ever looks like the
/// user's doing, and a click of the user's is told once, by the toolkit's own signal.
///
/// The header of a control declares W only; it names `extern template class TWidgetOf<W>`, and its source, which knows
/// W, instantiates it, so that descendants of the control need no header of the toolkit's.
///
/// A control derived from this names TBase as the parent of its table: `ZY_CLASS(TCheckBox, TWinControl)`.
template <class W, class TBase = TWinControl>
class TWidgetOf : public TBase {
 protected:
  explicit TWidgetOf(TComponent* Owner) : TBase(Owner) {
    TControlStyle Style = this->ControlStyle();
    Style.Exclude(csClickEvents);  // the signals of the widget tell clicks
    Style.Exclude(csCaptureMouse);
    this->SetControlStyle(Style);
  }

  /// Makes the widget; an heir of W where the toolkit's own is not enough.
  virtual W* Make();
  /// Carries all that is stored to a fresh widget.
  virtual void Configure(W& Box) = 0;
  /// Connects to the signals of a fresh widget.
  virtual void Listen(W&) {}
  /// Whether a click gives the control the keyboard though the tabulator key does not.
  virtual bool TakesFocusByClick() const { return true; }
  /// Whether the wheel over the control would change its value; it does so only where the keyboard is.
  virtual bool ChangesByWheel() const { return false; }

  /// Runs Do with the widget, if there is one, while its signals are silent.
  template <class F>
  void With(F Do) {
    if (!this->HasWidget()) return;
    W& Box = Toolkit();
    const TSilent<W> Silent(Box);
    Do(Box);
  }
  /// The widget; there must be one.
  W& Toolkit() { return static_cast<W&>(*this->Widget()); }
  /// Has Do run when a part of the widget (the widget itself, as a rule) tells Signal. Exceptions end there; nothing
  /// runs once this control died.
  template <class P, class S, class F>
  void On(P& Part, S Signal, F Do) {
    P::connect(&Part, Signal, &Part, [Alive = this->LiveHandle(), Do = std::move(Do)](auto... Args) {
      if (TPersistent::FromLiveHandle(Alive) == nullptr) return;
      TWinControl::HandleEvent([&] { Do(Args...); });
    });
  }

  QWidget* CreateWidget() override;
  void ApplyStyle() override;
  bool WidgetEvent(QEvent& Event) override;

 private:
  template <class P>
  class TSilent {
   public:
    explicit TSilent(P& Part) : FPart(Part), FOuter(Part.blockSignals(true)) {}
    ~TSilent() { FPart.blockSignals(FOuter); }
    TSilent(const TSilent&) = delete;
    TSilent& operator=(const TSilent&) = delete;

   private:
    P& FPart;
    bool FOuter;
  };
};

// Not inline: only the one source that instantiates them knows W.

template <class W, class TBase>
W* TWidgetOf<W, TBase>::Make() {
  if constexpr (std::is_default_constructible_v<W>) return new W;
  return nullptr;
}

template <class W, class TBase>
QWidget* TWidgetOf<W, TBase>::CreateWidget() {
  W* const Box = Make();
  Configure(*Box);
  Listen(*Box);
  return Box;
}

template <class W, class TBase>
void TWidgetOf<W, TBase>::ApplyStyle() {
  TBase::ApplyStyle();
  this->ApplyFocusPolicy(TakesFocusByClick());
}

template <class W, class TBase>
bool TWidgetOf<W, TBase>::WidgetEvent(QEvent& Event) {
  if (TBase::WidgetEvent(Event)) return true;
  return ChangesByWheel() && this->IsForeignWheel(Event);
}

}  // namespace zy
