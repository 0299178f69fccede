#include "platform/controls/TForm.h"

#include <QEvent>
#include <QWidget>

#include "platform/framework/Application.h"
#include "platform/framework/TPropInfo.h"

namespace zy {

ZY_PUBLISHED(TForm, TWinControl, Published<&TForm::Caption, &TForm::SetCaption>("Caption", std::string()),
             Published<&TForm::Visible, &TForm::SetVisible>("Visible", false))

TForm::TForm(TComponent* Owner) : TWinControl(Owner) {
  NoteVisible(false);
  TForm::SetBounds(0, 0, 640, 480);
  Screen().AddForm(this);
}

TForm::~TForm() {
  Destroying();
  Screen().RemoveForm(this);
}

void TForm::SetCaption(const std::string& Value) {
  if (Value == FCaption) return;
  FCaption = Value;
  if (HasWidget()) Widget()->setWindowTitle(QString::fromStdString(FCaption));
}

void TForm::Show() {
  SetVisible(true);
  Widget()->raise();
  Widget()->activateWindow();
}

// Through the widget, so that the toolkit notices when the last window closes.
void TForm::Close() {
  if (HasWidget()) {
    Widget()->close();
  } else {
    SetVisible(false);
  }
}

bool TForm::WidgetEvent(QEvent& Event) {
  if (Event.type() == QEvent::Close) NoteVisible(false);
  return Inherited::WidgetEvent(Event);
}

QWidget* TForm::CreateWidget() {
  QWidget* const Result = Inherited::CreateWidget();
  Result->setWindowTitle(QString::fromStdString(FCaption));
  return Result;
}

void TForm::ApplyVisible() {
  if (HasWidget() || Visible()) Widget()->setVisible(Visible());
}

}  // namespace zy
