#pragma once

#include <string>

namespace zy {

/// Lets the caption of a component follow its name while that is designed, until the caption is set by itself.
class TZyCaptionOfName {
 public:
  /// For SetCaption, once the new caption is stored.
  void WasSet() { FWasSet = FWasSet || !FFollowing; }
  /// For SetName: gives the new name to the owner's SetCaption.
  template <class TOwner>
  void Follow(TOwner& Owner, const std::string& NewName) {
    if (FWasSet || !Owner.IsDesigning()) return;
    struct TFollowing {
      explicit TFollowing(bool& AFlag) : Flag(AFlag) { Flag = true; }
      ~TFollowing() { Flag = false; }
      bool& Flag;
    } const Following(FFollowing);
    Owner.SetCaption(NewName);
  }

 private:
  bool FWasSet = false;
  bool FFollowing = false;
};

}  // namespace zy
