#include "platform/controls/TApplicationEvents.h"

#include <algorithm>
#include <exception>
#include <vector>

#include "platform/controls/TApplication.h"
#include "platform/framework/TPropInfo.h"

namespace zy {

/// Those that have an event. One that leaves during a round leaves its place empty until the round is over.
class TApplicationEvents::THub {
 public:
  static THub& Get() {
    static THub Hub;
    return Hub;
  }

  void Enter(TApplicationEvents& Events) {
    if (FEntries.empty()) TApplication::AddIdleHandler(this, [this](bool& Done) { Run(Done); });
    FEntries.push_back(&Events);
  }

  void Leave(TApplicationEvents& Events) {
    std::ranges::replace(FEntries, &Events, static_cast<TApplicationEvents*>(nullptr));
    if (!FRunning) CloseGaps();
  }

 private:
  void Run(bool& Done) {
    FRunning = true;
    const std::size_t Count = FEntries.size();  // those that come meanwhile have their turn in the next round
    for (std::size_t Index = 0; Index < Count; ++Index) {
      if (FEntries[Index] == nullptr) continue;
      bool IsDone = true;
      try {
        TIdleEvent(FEntries[Index]->FOnIdle)(FEntries[Index], IsDone);
      } catch (const std::exception& Error) {
        TApplication::HandleException(Error);
        IsDone = true;  // one that fails is not asked again at once
      }
      Done = Done && IsDone;
    }
    FRunning = false;
    CloseGaps();
  }

  void CloseGaps() {
    std::erase(FEntries, nullptr);
    if (FEntries.empty()) TApplication::RemoveIdleHandler(this);
  }

  std::vector<TApplicationEvents*> FEntries;
  bool FRunning = false;
};

ZY_PUBLISHED(TApplicationEvents, TComponent,
             Published<&TApplicationEvents::OnIdle, &TApplicationEvents::SetOnIdle>("OnIdle"))

TApplicationEvents::TApplicationEvents(TComponent* Owner) : TComponent(Owner) {}

TApplicationEvents::~TApplicationEvents() {
  Destroying();
  SetOnIdle(nullptr);
}

void TApplicationEvents::SetOnIdle(TIdleEvent Value) {
  const bool Was = FOnIdle != nullptr;
  FOnIdle = std::move(Value);
  const bool Is = FOnIdle != nullptr;
  if (Is && !Was) THub::Get().Enter(*this);
  if (Was && !Is) THub::Get().Leave(*this);
}

}  // namespace zy
