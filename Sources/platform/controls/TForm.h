#pragma once

#include <string>
#include <utility>

#include "platform/controls/TWinControl.h"

class QEventLoop;

namespace zy {

/// Where a form comes up: at its Left and Top, where the desktop finds a place, or in the middle of the screen.
enum TPosition { poDesigned, poDefault, poScreenCenter };
ZY_ENUM(TPosition, "poDesigned", "poDefault", "poScreenCenter")

/// What becomes of a form that is closed.
enum TCloseAction { caNone, caHide, caFree, caMinimize };
ZY_ENUM(TCloseAction, "caNone", "caHide", "caFree", "caMinimize")

/// Clearing CanClose keeps the form open.
using TCloseQueryEvent = std::function<void(TObject* Sender, bool& CanClose)>;
/// Action is caHide at first.
using TCloseEvent = std::function<void(TObject* Sender, TCloseAction& Action)>;

/// What ends a form that is shown modally; 0 while nothing has.
enum TModalResult { mrNone, mrOk, mrCancel, mrAbort, mrRetry, mrIgnore, mrYes, mrNo };

/// A window of its own, and the root of what is streamed with it. Hidden and 640 by 480 pixels at first; the bounds are
/// those of the inside. The screen lists every form.
class TForm : public TWinControl {
  ZY_CLASS(TForm, TWinControl)
  explicit TForm(TComponent* Owner = nullptr);
  ~TForm() override;

  /// Text in the window's title.
  const std::string& Caption() const { return FCaption; }
  void SetCaption(const std::string& Value);

  /// poDefault at first; with a Left or Top other than 0 that means this place.
  TPosition Position() const { return FPosition; }
  void SetPosition(TPosition Value) { FPosition = Value; }

  /// Makes the form visible and brings it to the front.
  void Show();
  /// Asks OnCloseQuery and OnClose and does what they say, as when the user presses the window's close button. By
  /// default the form is hidden and lives on.
  void Close();
  /// Shows the form and waits until it is closed; the other windows take no input meanwhile. Returns ModalResult, which
  /// is mrCancel when the user closed the window. Throws EInvalidOperation while it is visible.
  ///
  /// Events and idle moments go on. A form that is deleted meanwhile ends with mrCancel.
  int ShowModal();
  int ModalResult() const { return FModalResult; }
  /// While the form is shown modally, a value other than 0 closes it, if OnCloseQuery lets it go.
  void SetModalResult(int Value);
  /// The return key clicks the default button, escape the cancel button, where no control uses them up.
  void KeyDown(TKey& Key, TShiftState Shift) override;
  /// Deletes the form when the present events are done.
  void Release();

  /// Runs before the window appears.
  const TNotifyEvent& OnShow() const { return FOnShow; }
  void SetOnShow(TNotifyEvent Value) { FOnShow = std::move(Value); }
  const TCloseQueryEvent& OnCloseQuery() const { return FOnCloseQuery; }
  void SetOnCloseQuery(TCloseQueryEvent Value) { FOnCloseQuery = std::move(Value); }
  const TCloseEvent& OnClose() const { return FOnClose; }
  void SetOnClose(TCloseEvent Value) { FOnClose = std::move(Value); }
  /// Run when the window becomes the active one, and when it no longer is.
  const TNotifyEvent& OnActivate() const { return FOnActivate; }
  void SetOnActivate(TNotifyEvent Value) { FOnActivate = std::move(Value); }
  const TNotifyEvent& OnDeactivate() const { return FOnDeactivate; }
  void SetOnDeactivate(TNotifyEvent Value) { FOnDeactivate = std::move(Value); }

 protected:
  virtual void DoShow();
  virtual void Activate();
  virtual void Deactivate();
  bool WidgetEvent(QEvent& Event) override;
  QWidget* CreateWidget() override;
  void ApplyVisible() override;
  void CMVisibleChanged() override;

 private:
  bool MayHide();
  void PlaceWindow();

  std::string FCaption;
  TPosition FPosition = poDefault;
  int FModalResult = mrNone;
  QEventLoop* FModalLoop = nullptr;  // waits within ShowModal
  TNotifyEvent FOnShow, FOnActivate, FOnDeactivate;
  TCloseQueryEvent FOnCloseQuery;
  TCloseEvent FOnClose;
};

}  // namespace zy
