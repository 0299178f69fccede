#include "platform/controls/TPostBox.h"

#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <atomic>
#include <exception>
#include <utility>

#include "platform/controls/TApplication.h"

namespace zy {

class TPostBox::TReceiver : public QObject {
 public:
  explicit TReceiver(std::function<void()> Proc) : FProc(std::move(Proc)) {}

  void Post() {
    if (!FWaiting.exchange(true)) QCoreApplication::postEvent(this, new QEvent(QEvent::User));
  }

  bool event(QEvent* Event) override {
    if (Event->type() != QEvent::User) return QObject::event(Event);
    FWaiting = false;
    try {
      FProc();
    } catch (const std::exception& Error) {
      TApplication::HandleException(Error);  // the toolkit cannot carry it
    }
    return true;
  }

 private:
  std::function<void()> FProc;
  std::atomic<bool> FWaiting = false;
};

TPostBox::TPostBox(std::function<void()> Proc) : FReceiver(std::make_unique<TReceiver>(std::move(Proc))) {}

TPostBox::~TPostBox() = default;

void TPostBox::Post() { FReceiver->Post(); }

}  // namespace zy
