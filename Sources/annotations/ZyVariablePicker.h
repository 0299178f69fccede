#pragma once

#include <string>

#include "platform/controls/TPopupForm.h"
#include "platform/framework/TRef.h"

class QTreeWidget;
class QTreeWidgetItem;

namespace zy {

class TZyCaptionEdit;

/// Drops down below a caption edit and offers what its caption can name: texts and numbers of all objects, as a tree by
/// forms and objects. The return key and a double click put the chosen one into the caption in place of the selection;
/// the escape key, and a click elsewhere, close it. Of a list of numbers, the first one is taken.
class TZyVariablePicker : public TPopupForm {
  ZY_CLASS(TZyVariablePicker, TPopupForm)
  /// Belongs to the edit. 260 by 240 pixels.
  explicit TZyVariablePicker(TZyCaptionEdit& Edit);
  ~TZyVariablePicker() override;

  /// Fills the tree anew, with the variable at the caret chosen, and shows it.
  void Open();
  /// What is chosen, as it stands in a caption; empty for none, and for what only has others below it.
  std::string Chosen() const;

 protected:
  QWidget* CreateWidget() override;
  bool WidgetEvent(QEvent& Event) override;

 private:
  void Fill();
  void Choose(QTreeWidgetItem* Item);

  TZyCaptionEdit& FEdit;
  QTreeWidget* FTree = nullptr;  // of the widget
  TFocusMark FFocus;
};

}  // namespace zy
