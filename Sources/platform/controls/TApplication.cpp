#include "platform/controls/TApplication.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/drawing/QtText.h"
#include "platform/framework/ScopedFlag.h"
#include "platform/framework/TPropInfo.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

constexpr const char* PlatformVariable = "QT_QPA_PLATFORM";

/// Whether the toolkit would look for a display server and find none.
bool LacksDisplay(int ArgCount, char** Args) {
#if defined(Q_OS_UNIX) && !defined(Q_OS_DARWIN) && !defined(Q_OS_ANDROID)
  for (int Index = 1; Index < ArgCount; ++Index)
    if (std::string_view(Args[Index]) == "-platform") return false;
  return qEnvironmentVariableIsEmpty(PlatformVariable) && qEnvironmentVariableIsEmpty("DISPLAY") &&
         qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
#else
  static_cast<void>(ArgCount);
  static_cast<void>(Args);
  return false;
#endif
}

/// The idle handlers in the order of their coming, and what calls them.
struct TIdleState {
  struct TEntry {
    const void* Owner;
    std::function<void(bool& Done)> Proc;
  };
  std::vector<TEntry> Entries;
  QPointer<QObject> Source;  // the application object whose waits are heard of
  bool Running = false;
};

TIdleState& IdleState() {
  static TIdleState State;
  return State;
}

void ListenToWaits() {
  QCoreApplication* const Present = QCoreApplication::instance();
  auto* const Events = QAbstractEventDispatcher::instance();
  TIdleState& State = IdleState();
  if (Present == nullptr || Events == nullptr || State.Source == Present) return;
  State.Source = Present;
  QObject::connect(Events, &QAbstractEventDispatcher::aboutToBlock, Present, [Events] {
    if (!TApplication::Idle()) Events->wakeUp();
  });
}

/// The window that a box belongs to: the active one, or any that is to be seen. Null for none.
QWidget* WindowAbove() {
  if (QWidget* const Active = QApplication::activeWindow()) return Active;
  const auto Windows = QApplication::topLevelWidgets();
  const auto Found = std::ranges::find_if(Windows, [](const QWidget* Each) { return Each->isVisible(); });
  return Found == Windows.end() ? nullptr : *Found;
}

QString LinesOf(std::string_view Text) { return ToQString(Text).replace(u'\r', u'\n'); }

/// Runs one idle procedure; one that fails counts as done.
bool RunIdle(const std::function<void(bool& Done)>& Proc) {
  bool Done = true;
  try {
    Proc(Done);
  } catch (const std::exception& Error) {
    TApplication::HandleException(Error);
    return true;
  }
  return Done;
}

}  // namespace

ZY_PUBLISHED(TApplication, TCustomApplication)

TApplication::TApplication(int& ArgCount, char** Args) {
  Start(ArgCount, Args);
  if (ArgCount > 0) SetExeName(Args[0]);
}

TApplication::TApplication() {
  static char Program[] = "zyphos";
  static char* Args[] = {Program, nullptr};
  static int ArgCount = 1;
  Start(ArgCount, Args);
  SetExeName(QCoreApplication::applicationFilePath().toStdString());
}

TApplication::~TApplication() {
  Destroying();
  DestroyComponents();
  if (FToolkit != nullptr) QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void TApplication::Start(int& ArgCount, char** Args) {
  if (QCoreApplication::instance() != nullptr) {
    if (qobject_cast<QApplication*>(QCoreApplication::instance()) == nullptr)
      throw EInvalidOperation(LoadResString(_sApplicationWithoutWidgets));
    return ListenToWaits();
  }
  const bool Offscreen = LacksDisplay(ArgCount, Args);
  if (Offscreen) qputenv(PlatformVariable, "offscreen");
  FToolkit = std::make_unique<QApplication>(ArgCount, Args);
  if (Offscreen) qunsetenv(PlatformVariable);  // not for the programs that this one starts
  ListenToWaits();
}

int TApplication::Run() { return QApplication::exec(); }

void TApplication::ProcessMessages() { QCoreApplication::processEvents(); }

bool TApplication::HasDisplay() const {
  const QString Platform = QGuiApplication::platformName();
  return Platform != QLatin1String("offscreen") && Platform != QLatin1String("minimal");
}

/// A program on a server has no window, and nobody who could close a box.
void TApplication::DoShowMessage(std::string_view Text) {
  const auto Show = [Shown = LinesOf(Text)] {
    QWidget* const Above = WindowAbove();
    if (Above == nullptr) return;
    auto* const Box = new QMessageBox(QMessageBox::Information, Above->windowTitle(), Shown, QMessageBox::Ok, Above);
    Box->setAttribute(Qt::WA_DeleteOnClose);
    Box->open();
  };
  QMetaObject::invokeMethod(QCoreApplication::instance(), Show, Qt::QueuedConnection);
}

bool TApplication::DoConfirm(std::string_view Question) {
  QWidget* const Above = WindowAbove();
  return Above != nullptr && QMessageBox::question(Above, Above->windowTitle(), LinesOf(Question)) == QMessageBox::Yes;
}

bool TApplication::QuitAfterLastWindow() const { return QGuiApplication::quitOnLastWindowClosed(); }

void TApplication::SetQuitAfterLastWindow(bool Value) { QGuiApplication::setQuitOnLastWindowClosed(Value); }

void TApplication::AddIdleHandler(const void* Owner, std::function<void(bool& Done)> Proc) {
  RemoveIdleHandler(Owner);
  IdleState().Entries.push_back({Owner, std::move(Proc)});
  ListenToWaits();
}

void TApplication::RemoveIdleHandler(const void* Owner) {
  std::erase_if(IdleState().Entries, [Owner](const auto& Entry) { return Entry.Owner == Owner; });
}

bool TApplication::Idle() {
  TIdleState& State = IdleState();
  if (State.Running) return true;  // a handler waits for events itself
  const TScopedValue<bool> Running(State.Running, true);
  bool AllDone = true;
  const auto* const Present = dynamic_cast<TApplication*>(&Application());
  if (Present != nullptr && Present->OnIdle) AllDone = RunIdle(std::function(Present->OnIdle));
  for (const auto& Entry : std::vector(State.Entries)) {
    const bool IsThere =
        std::ranges::any_of(State.Entries, [&](const auto& Other) { return Other.Owner == Entry.Owner; });
    if (IsThere && !RunIdle(Entry.Proc)) AllDone = false;
  }
  return AllDone;
}

void TApplication::HandleException(const std::exception& Error) {
  const auto* const Present = dynamic_cast<TApplication*>(&Application());
  if (Present != nullptr && Present->OnException) {
    Present->OnException(Error);
  } else {
    qWarning("%s", Error.what());
  }
}

}  // namespace zy
