#include "graph/styles/ZyStyleSettings.h"

#include "platform/framework/Reflection.h"

namespace zy {

bool TZyStyleSettings::CopyFrom(const TPersistent* Source) {
  if (Source == nullptr) return false;
  struct TCopying {
    explicit TCopying(bool& AFlag) : Flag(AFlag) { Flag = true; }
    ~TCopying() { Flag = false; }
    bool& Flag;
  } const Copying(FCopying);
  return CopyProperties(*Source, *this);
}

void TZyStyleSettings::Assign(const TPersistent* Source) {
  if (!CopyFrom(Source)) return TPersistent::Assign(Source);
  Modified();
}

}  // namespace zy
