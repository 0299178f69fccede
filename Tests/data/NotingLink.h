#pragma once

#include <string>
#include <utility>
#include <vector>

#include "framework/Errors.h"
#include "platform/data/TFieldDataLink.h"
#include "texts/Exceptions.h"

namespace zy::testing {

/// A link that notes what it hears.
class TNotingLink : public TFieldDataLink {
 public:
  std::vector<TDataEvent> TakeEvents() { return std::exchange(FEvents, {}); }

 protected:
  void DataEvent(TDataEvent Event, TField* Info) override {
    TFieldDataLink::DataEvent(Event, Info);
    FEvents.push_back(Event);
  }

 private:
  std::vector<TDataEvent> FEvents;
};

using TEvents = std::vector<TDataEvent>;

/// The text of the EDatabaseError that Call throws, empty when it throws none.
template <class TCall>
std::string ErrorOf(const TCall& Call) {
  return MessageOf<EDatabaseError>(Call);
}

}  // namespace zy::testing
