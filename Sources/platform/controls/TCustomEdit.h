#pragma once

#include <string>
#include <utility>

#include "platform/controls/TWidgetOf.h"
#include "platform/framework/Alignment.h"

class QLineEdit;

namespace zy {

extern template class TWidgetOf<QWidget>;

/// A line of text that is typed; base of edits. Positions count characters of 16 bits from 0. 121 by 21 pixels at
/// first.
///
/// Typed characters come to KeyPress, which may refuse them; what is pasted, dropped or composed by an input method
/// does not. Line ends and other control characters never get into the text.
class TCustomEdit : public TWidgetOf<QWidget> {
  ZY_CLASS(TCustomEdit, TWinControl)
  explicit TCustomEdit(TComponent* Owner = nullptr);
  ~TCustomEdit() override;

  const std::string& Text() const { return FText; }
  /// Runs OnChange, as a change by the user does.
  void SetText(const std::string& Value);
  int SelStart() const;
  void SetSelStart(int Value) { Select(Value, 0); }
  int SelLength() const;
  void SetSelLength(int Value) { Select(SelStart(), Value); }
  /// Brought into the text.
  void Select(int Start, int Length);
  void SelectAll();
  /// Whether the user changed the text since this was set to false.
  bool Modified() const { return FModified; }
  void SetModified(bool Value) { FModified = Value; }
  bool ReadOnly() const { return FReadOnly; }
  void SetReadOnly(bool Value);
  TAlignment Alignment() const { return FAlignment; }
  void SetAlignment(TAlignment Value);

  const TNotifyEvent& OnChange() const { return FOnChange; }
  void SetOnChange(TNotifyEvent Value) { FOnChange = std::move(Value); }

 protected:
  /// Told of each change of the text, by the user or by code.
  virtual void Change();
  /// The width in which the text shows, without the frame, and that of a text in the line's font. Need a widget.
  int TextWidth();
  int WidthOf(const std::string& Shown);
  /// A signal that something was refused.
  static void Beep();
  /// Told when the keyboard has come and the line has placed its caret for that.
  virtual void Entered() {}
  /// Told when the line comes to be seen.
  virtual void Appeared() {}

  /// The toolkit's line, which tells the control what came to it.
  class TLine;

  QWidget* Make() override;
  /// A line for the widget of this control; TellsFocus unless the widget around it does (Entered).
  QLineEdit* MakeLine(bool TellsFocus);
  /// The line in the widget.
  virtual QLineEdit& LineOf(QWidget& Box);
  void Configure(QWidget& Box) override;
  void Listen(QWidget& Box) override;
  bool WidgetEvent(QEvent& Event) override;

 private:
  template <class F>
  void WithLine(F Do);

  std::string FText;
  int FSelStart = 0, FSelLength = 0;  // while there is no widget
  TAlignment FAlignment = TAlignment::taLeftJustify;
  bool FReadOnly = false;
  bool FModified = false;
  TNotifyEvent FOnChange;
};

/// A line of text that is typed, with all its properties published.
class TEdit : public TCustomEdit {
  ZY_CLASS(TEdit, TCustomEdit)
  explicit TEdit(TComponent* Owner = nullptr);
  ~TEdit() override;
};

}  // namespace zy
