#include "platform/controls/TApplication.h"

#include <QApplication>
#include <string_view>

#include "platform/framework/Exceptions.h"
#include "platform/framework/TPropInfo.h"
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
}

void TApplication::Start(int& ArgCount, char** Args) {
  if (QCoreApplication::instance() != nullptr) {
    if (qobject_cast<QApplication*>(QCoreApplication::instance()) == nullptr)
      throw EInvalidOperation(LoadResString(_sApplicationWithoutWidgets));
    return;
  }
  const bool Offscreen = LacksDisplay(ArgCount, Args);
  if (Offscreen) qputenv(PlatformVariable, "offscreen");
  FToolkit = std::make_unique<QApplication>(ArgCount, Args);
  if (Offscreen) qunsetenv(PlatformVariable);  // not for the programs that this one starts
}

int TApplication::Run() { return QApplication::exec(); }

void TApplication::ProcessMessages() { QCoreApplication::processEvents(); }

bool TApplication::HasDisplay() const {
  const QString Platform = QGuiApplication::platformName();
  return Platform != QLatin1String("offscreen") && Platform != QLatin1String("minimal");
}

bool TApplication::QuitAfterLastWindow() const { return QGuiApplication::quitOnLastWindowClosed(); }

void TApplication::SetQuitAfterLastWindow(bool Value) { QGuiApplication::setQuitOnLastWindowClosed(Value); }

void TApplication::HandleException(const std::exception& Error) {
  const auto* const Present = dynamic_cast<TApplication*>(&Application());
  if (Present != nullptr && Present->OnException) {
    Present->OnException(Error);
  } else {
    qWarning("%s", Error.what());
  }
}

}  // namespace zy
