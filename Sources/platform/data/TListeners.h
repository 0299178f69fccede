#pragma once

#include <algorithm>
#include <memory>
#include <vector>

namespace zy {

/// Objects that are told of events. While they are told, any of them may leave, join or die, and the list itself may.
template <class T>
class TListeners {
 public:
  TListeners() = default;
  TListeners(const TListeners&) = delete;
  TListeners& operator=(const TListeners&) = delete;
  ~TListeners() { std::fill(FState->Items.begin(), FState->Items.end(), nullptr); }

  void Add(T* Listener) { FState->Items.push_back(Listener); }
  void Remove(const T* Listener) {
    auto& Items = FState->Items;
    const auto Place = std::find(Items.begin(), Items.end(), Listener);
    if (Place == Items.end()) return;
    if (FState->Depth > 0) {
      *Place = nullptr;  // the loop that runs keeps its places
    } else {
      Items.erase(Place);
    }
  }

  /// Calls Call for each of those that are in the list at the start and still when their turn comes.
  template <class TCall>
  void ForEach(const TCall& Call) {
    const TRun Run(FState);
    auto& Items = Run.State->Items;
    for (std::size_t Index = 0, Count = Items.size(); Index < Count; ++Index)
      if (T* const Listener = Items[Index]) Call(*Listener);
  }

 private:
  struct TState {
    std::vector<T*> Items;
    int Depth = 0;
  };
  struct TRun {
    explicit TRun(std::shared_ptr<TState> List) : State(std::move(List)) { ++State->Depth; }
    TRun(const TRun&) = delete;
    TRun& operator=(const TRun&) = delete;
    ~TRun() {
      if (--State->Depth == 0) std::erase(State->Items, nullptr);
    }
    const std::shared_ptr<TState> State;
  };

  std::shared_ptr<TState> FState = std::make_shared<TState>();
};

}  // namespace zy
