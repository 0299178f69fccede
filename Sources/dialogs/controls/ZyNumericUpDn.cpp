#include "dialogs/controls/ZyNumericUpDn.h"

#include <QAbstractSpinBox>
#include <QFocusEvent>
#include <QLineEdit>
#include <algorithm>
#include <cmath>
#include <limits>

#include "platform/framework/TPropInfo.h"

namespace zy {

ZY_PUBLISHED(TZyNumericUpDn, TZyCustomDoubleEdit,
             Published<&TZyNumericUpDn::DecimalPlaces, &TZyNumericUpDn::SetDigits>("DecimalPlaces", 0),
             Published<&TZyNumericUpDn::Increment, &TZyNumericUpDn::SetIncrement>("Increment", 1.0),
             Published<&TZyNumericUpDn::BtnWidth, &TZyNumericUpDn::SetBtnWidth>("BtnWidth", 15),
             Republished("MinValue MaxValue Value PropertyLinks OnValueChanged"),
             Published<&TZyNumericUpDn::AsInteger, &TZyNumericUpDn::SetAsInteger>("AsInteger", 0).NotStored())

/// The toolkit's buttons beside our own line; it knows no value itself.
class TZyNumericUpDn::TSpinWidget : public QAbstractSpinBox {
 public:
  TSpinWidget(TZyNumericUpDn& Owner, QLineEdit* Line) : FOwner(Owner.LiveHandle()) { setLineEdit(Line); }
  QLineEdit& Line() const { return *lineEdit(); }

  void stepBy(int Count) override {
    Tell([Count](TZyNumericUpDn& Owner) { Owner.StepBy(Count); });
  }
  StepEnabled stepEnabled() const override { return isReadOnly() ? StepNone : StepUpEnabled | StepDownEnabled; }
  QValidator::State validate(QString&, int&) const override { return QValidator::Acceptable; }
  void fixup(QString&) const override {}
  QSize sizeHint() const override { return QAbstractSpinBox::sizeHint().expandedTo(QSize(64, 0)); }

 protected:
  void focusInEvent(QFocusEvent* Event) override {
    QAbstractSpinBox::focusInEvent(Event);
    if (Event->reason() != Qt::PopupFocusReason) Tell([](TZyNumericUpDn& Owner) { Owner.Entered(); });
  }

 private:
  template <class F>
  void Tell(F Do) {
    HandleEvent([&] {
      if (TPersistent* const Owner = TPersistent::FromLiveHandle(FOwner)) Do(static_cast<TZyNumericUpDn&>(*Owner));
    });
  }

  std::uint64_t FOwner;
};

TZyNumericUpDn::TZyNumericUpDn(TComponent* Owner) : TZyCustomDoubleEdit(Owner) {
  SetDigits(0);
  SetDoHashes(false);
}

TZyNumericUpDn::~TZyNumericUpDn() { Destroying(); }

QWidget* TZyNumericUpDn::Make() { return new TSpinWidget(*this, MakeLine(false)); }

QLineEdit& TZyNumericUpDn::LineOf(QWidget& Box) { return static_cast<TSpinWidget&>(Box).Line(); }

void TZyNumericUpDn::SetBtnWidth(int Value) {
  if (Value == FBtnWidth) return;
  FBtnWidth = std::max(Value, 0);
  ShowAnew();
}

/// The line stands beside the buttons already.
int TZyNumericUpDn::WinWidth() { return std::min(TextWidth(), Width() - FBtnWidth); }

int TZyNumericUpDn::AsInteger() const {
  using TLimits = std::numeric_limits<int>;
  const double Rounded = std::nearbyint(Value());
  if (!(Rounded > TLimits::min())) return std::isnan(Rounded) ? 0 : TLimits::min();
  return Rounded < TLimits::max() ? static_cast<int>(Rounded) : TLimits::max();
}

void TZyNumericUpDn::StepBy(int Count) {
  if (!ReadOnly()) SetValue(Value() + Count * FIncrement);
}

void TZyNumericUpDn::KeyDown(TKey& Key, TShiftState Shift) {
  const std::uint64_t Alive = LiveHandle();
  TZyCustomDoubleEdit::KeyDown(Key, Shift);
  if (FromLiveHandle(Alive) == nullptr || (Key != vkUp && Key != vkDown)) return;
  const int Count = Key == vkUp ? 1 : -1;
  Key = 0;
  StepBy(Count);
}

}  // namespace zy
