#pragma once

#include <memory>
#include <string_view>

#include "undo/controls/ZyPropertyLinks.h"

namespace zy {

/// A control or dialog whose value can be that of properties of other components, without code of the application.
///
/// A class derived from this publishes PropertyLinks, names the property that is linked by LinkBy in its constructor,
/// and calls SetLink behind its event whenever the value changed.
template <class TBase>
class TZyLinked : public TBase {
 public:
  TZyPropertyLinks& PropertyLinks() { return *FLink; }
  void Loaded() override {
    TBase::Loaded();
    FLink->Loaded();
  }

 protected:
  using TBase::TBase;
  /// For constructors: links the property of this name, a row of the class that is being constructed.
  void LinkBy(std::string_view PropName) { FLink = std::make_unique<TZyPropertyLinks>(*this, PropName); }
  template <class T>
  void SetLink(const T& Value) {
    if (FLink != nullptr && FLink->HasItems()) FLink->SetLink(Value);
  }

 private:
  std::unique_ptr<TZyPropertyLinks> FLink;
};

}  // namespace zy
