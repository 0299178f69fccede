#pragma once

#include <cstdint>

#include "platform/framework/TObject.h"

namespace zy {

class TFiler;

/// An object with published properties that can be copied, streamed and logged for undo: settings, string lists and,
/// through TComponent, everything that has a name.
class TPersistent : public TObject {
  ZY_CLASS(TPersistent, TObject)
  ~TPersistent() override;

  /// Takes over the values of Source. A class that knows Source's class copies; everything else goes to the inherited
  /// operation, which lets Source try (AssignTo). Throws EConvertError when neither knows the other.
  virtual void Assign(const TPersistent* Source);

  /// Adds values beyond the published properties to the component's streamed form.
  virtual void DefineProperties(TFiler& Filer);

  /// A number that names this object for as long as it lives, and no other object ever after. Never 0.
  std::uint64_t LiveHandle() const;
  /// The living object of that handle, null when it died or never was.
  static TPersistent* FromLiveHandle(std::uint64_t Handle);
  /// Makes this object, made anew, the one that a handle of its dead predecessor names. Nothing for 0 and for the
  /// handle of an object that lives.
  void TakeLiveHandle(std::uint64_t Handle);
  /// The handle, 0 as long as nobody asked for one.
  std::uint64_t KnownLiveHandle() const { return FLiveHandle; }

 protected:
  /// Copies this object's values into Dest, a class that does not know this one. Throws EConvertError by default.
  virtual void AssignTo(TPersistent* Dest) const;

 private:
  mutable std::uint64_t FLiveHandle = 0;
};

}  // namespace zy
