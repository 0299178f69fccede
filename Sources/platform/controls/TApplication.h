#pragma once

#include <exception>
#include <functional>
#include <memory>

#include "platform/framework/Application.h"

class QApplication;

namespace zy {

/// The application object of a program with windows. It makes the toolkit's application object when the host has none,
/// without a display on the offscreen platform, so that the same program runs on servers and in tests.
///
/// Lives in main, before every control and to the end. What it owns is deleted before the toolkit's object.
class TApplication : public TCustomApplication {
  ZY_CLASS(TApplication, TCustomApplication)
  /// Arguments that the toolkit knows are taken out. Both must live as long as this. Throws EInvalidOperation when the
  /// host has an application object without widgets.
  TApplication(int& ArgCount, char** Args);
  /// For hosts that keep their arguments to themselves.
  TApplication();
  ~TApplication() override;

  /// Handles events until the program is told to quit; returns its exit code.
  int Run();
  /// Handles the events that are waiting.
  void ProcessMessages();
  /// Whether windows can be seen by anyone.
  bool HasDisplay() const;

  /// Whether Run ends when the last window is closed; true at first.
  bool QuitAfterLastWindow() const;
  void SetQuitAfterLastWindow(bool Value);

  /// Runs when the event queue is empty, before the program waits. Clearing Done asks for another call at once.
  /// ProcessMessages does not wait, and so makes no idle time.
  std::function<void(bool& Done)> OnIdle;
  /// Further procedures for idle time, one for each owner; a program that has only the toolkit's own application object
  /// runs them too. Whoever adds one removes it before it dies.
  static void AddIdleHandler(const void* Owner, std::function<void(bool& Done)> Proc);
  static void RemoveIdleHandler(const void* Owner);
  /// Runs OnIdle and the idle handlers now; returns whether all are done.
  static bool Idle();

  /// Told of exceptions that leave an event's handler. Without one the text goes to the toolkit's message log.
  std::function<void(const std::exception&)> OnException;
  /// Takes an exception at the place where it cannot travel any further.
  static void HandleException(const std::exception& Error);

 protected:
  void DoShowMessage(std::string_view Text) override;
  bool DoConfirm(std::string_view Question) override;

 private:
  void Start(int& ArgCount, char** Args);

  std::unique_ptr<QApplication> FToolkit;  // null when the host has its own
};

}  // namespace zy
