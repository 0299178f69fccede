#include "dialogs/widgets/ZyPickWidgets.h"

#include "annotations/ZyCaptionEdit.h"
#include "dialogs/controls/ZyAreaStyles.h"
#include "dialogs/controls/ZyColorPickCombo.h"
#include "dialogs/controls/ZyDashStyles.h"
#include "dialogs/controls/ZyDoubleEdit.h"
#include "dialogs/controls/ZyIntegerEdit.h"
#include "dialogs/controls/ZyNumericUpDn.h"
#include "dialogs/controls/ZyPointSymbols.h"
#include "platform/drawing/QtText.h"

namespace zy {

QStringList ZyLinkedWidget::links() const {
  QStringList Result;
  for (int i = 0; i < FLinks->Items().Count(); ++i) Result.push_back(ToQString(FLinks->Items().Get(i)));
  return Result;
}

void ZyLinkedWidget::setLinks(const QStringList& Value) {
  TStringList Paths;
  for (const QString& Each : Value) Paths.Add(Each.toStdString());
  Guarded([&] { FLinks->SetItems(Paths); });
}

template <class TControl>
void ZyLinkedWidget::Make(void (TControl::*SetChanged)(std::function<void(TObject*)>)) {
  auto* const Control = new TControl(&Owner());
  Control->SetName("Control");
  FLinks = &Control->PropertyLinks();
  (Control->*SetChanged)([this](TObject*) { emit changed(); });
  Show(*Control);
}

template <class TControl>
TControl& ZyLinkedWidget::As() const {
  return static_cast<TControl&>(Shown());
}

ZyColorPickWidget::ZyColorPickWidget(QWidget* Parent) : ZyLinkedWidget(Parent) {
  Make(&TZyColorPickCombo::SetOnChanged);
}
TZyColorPickCombo& ZyColorPickWidget::Control() const { return As<TZyColorPickCombo>(); }
QColor ZyColorPickWidget::color() const { return QColor::fromRgba(Control().ActiveColor()); }
void ZyColorPickWidget::setColor(const QColor& Value) {
  Guarded([&] { Control().SetActiveColor(Value.rgba()); });
}

ZyIntegerEditWidget::ZyIntegerEditWidget(QWidget* Parent) : ZyLinkedWidget(Parent) {
  Make<TZyIntegerEdit>(&TZyIntegerEdit::SetOnValueChanged);
}
TZyIntegerEdit& ZyIntegerEditWidget::Control() const { return As<TZyIntegerEdit>(); }
int ZyIntegerEditWidget::value() const { return Control().Value(); }
void ZyIntegerEditWidget::setValue(int Value) {
  Guarded([&] { Control().SetValue(Value); });
}

ZyDoubleEditWidget::ZyDoubleEditWidget(QWidget* Parent) : ZyLinkedWidget(Parent) {
  Make<TZyDoubleEdit>(&TZyDoubleEdit::SetOnValueChanged);
}
TZyDoubleEdit& ZyDoubleEditWidget::Control() const { return As<TZyDoubleEdit>(); }
double ZyDoubleEditWidget::value() const { return Control().Value(); }
void ZyDoubleEditWidget::setValue(double Value) {
  Guarded([&] { Control().SetValue(Value); });
}

ZyNumericUpDnWidget::ZyNumericUpDnWidget(QWidget* Parent) : ZyLinkedWidget(Parent) {
  Make<TZyNumericUpDn>(&TZyNumericUpDn::SetOnValueChanged);
}
TZyNumericUpDn& ZyNumericUpDnWidget::Control() const { return As<TZyNumericUpDn>(); }
double ZyNumericUpDnWidget::value() const { return Control().Value(); }
void ZyNumericUpDnWidget::setValue(double Value) {
  Guarded([&] { Control().SetValue(Value); });
}

ZyDashStylesWidget::ZyDashStylesWidget(QWidget* Parent) : ZyLinkedWidget(Parent) {
  Make<TZyDashStylesCombo>(&TZyDashStylesCombo::SetOnValueChanged);
}
TZyDashStylesCombo& ZyDashStylesWidget::Control() const { return As<TZyDashStylesCombo>(); }

ZyAreaStylesWidget::ZyAreaStylesWidget(QWidget* Parent) : ZyLinkedWidget(Parent) {
  Make<TZyAreaStylesCombo>(&TZyAreaStylesCombo::SetOnValueChanged);
}
TZyAreaStylesCombo& ZyAreaStylesWidget::Control() const { return As<TZyAreaStylesCombo>(); }

ZyPointSymbolsWidget::ZyPointSymbolsWidget(QWidget* Parent) : ZyLinkedWidget(Parent) {
  Make<TZyPointSymbolsCombo>(&TZyPointSymbolsCombo::SetOnValueChanged);
}
TZyPointSymbolsCombo& ZyPointSymbolsWidget::Control() const { return As<TZyPointSymbolsCombo>(); }

ZyCaptionEditWidget::ZyCaptionEditWidget(QWidget* Parent) : ZyLinkedWidget(Parent) {
  Make<TZyCaptionEdit>(&TZyCaptionEdit::SetOnChange);
}
TZyCaptionEdit& ZyCaptionEditWidget::Control() const { return As<TZyCaptionEdit>(); }
QString ZyCaptionEditWidget::caption() const { return ToQString(Control().Caption()); }
void ZyCaptionEditWidget::setCaption(const QString& Value) {
  Guarded([&] { Control().SetCaption(Value.toStdString()); });
}

}  // namespace zy
