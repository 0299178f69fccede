#pragma once

#include "platform/data/TFieldDataLink.h"

namespace zy {

/// A link to a whole column of a data set, for what shows all records at once: vectors, rubrics, captions. Its
/// OnDataChange runs when values or the number of records changed, and not for each step of the cursor.
class TZyListLink : public TFieldDataLink {
 protected:
  void DataEvent(TDataEvent Event, TField* Info) override;
  void DataChange() override {}

 private:
  int FLastCount = 0;  // records at the last DataSetChange
};

}  // namespace zy
