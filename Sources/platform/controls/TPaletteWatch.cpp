#include "platform/controls/TPaletteWatch.h"

#include <QCoreApplication>
#include <QEvent>

#include "platform/controls/TApplication.h"
#include "platform/drawing/SystemPalette.h"

namespace zy {

class TPaletteWatch::TFilter : public QObject {
 public:
  explicit TFilter(std::function<void()> Changed) : FChanged(std::move(Changed)) {
    if (QCoreApplication::instance() != nullptr) QCoreApplication::instance()->installEventFilter(this);
  }
  bool eventFilter(QObject* Watched, QEvent* Event) override {
    if (Watched != QCoreApplication::instance() || Event->type() != QEvent::ApplicationPaletteChange) return false;
    RefreshSystemPalette();
    const std::function<void()> Changed = FChanged;  // it may end the watch
    try {
      Changed();
    } catch (const std::exception& Error) {
      TApplication::HandleException(Error);
    }
    return false;
  }

 private:
  std::function<void()> FChanged;
};

TPaletteWatch::TPaletteWatch(std::function<void()> Changed) : FFilter(std::make_unique<TFilter>(std::move(Changed))) {}

TPaletteWatch::~TPaletteWatch() = default;

}  // namespace zy
