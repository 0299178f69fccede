#include "series/vectors/ZyListLink.h"

#include "platform/data/TDataSet.h"

namespace zy {

void TZyListLink::DataEvent(TDataEvent Event, TField* Info) {
  TFieldDataLink::DataEvent(Event, Info);
  bool Tells = Event == TDataEvent::FieldChange || Event == TDataEvent::UpdateRecord;
  if (Event == TDataEvent::DataSetChange) {
    const int Count = DataSet() == nullptr ? 0 : DataSet()->RecordCount();
    Tells = Count != FLastCount;
    FLastCount = Count;
  }
  if (Tells && OnDataChange()) OnDataChange()();
}

}  // namespace zy
