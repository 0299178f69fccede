#include "graph/styles/ZyStyleSettings.h"

#include "platform/framework/Reflection.h"
#include "platform/framework/ScopedFlag.h"

namespace zy {

bool TZyStyleSettings::CopyFrom(const TPersistent* Source) {
  if (Source == nullptr) return false;
  const TScopedValue Copying(FCopying, true);
  return CopyProperties(*Source, *this);
}

void TZyStyleSettings::Assign(const TPersistent* Source) {
  if (!CopyFrom(Source)) return TPersistent::Assign(Source);
  Modified();
}

}  // namespace zy
