#include "platform/data/TDataLink.h"

#include "platform/data/TDataSet.h"
#include "platform/data/TDataSource.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {

TDataLink::~TDataLink() {
  if (FDataSource != nullptr) FDataSource->FLinks.Remove(this);
}

void TDataLink::SetDataSource(TDataSource* Value) {
  if (Value == FDataSource) return;
  if (FDataSourceFixed) throw EDatabaseError(LoadResString(_sDataSourceFixed));
  if (FDataSource != nullptr) FDataSource->FLinks.Remove(this);
  FDataSource = Value;
  if (Value != nullptr) Value->FLinks.Add(this);
  OtherDataSet();
}

void TDataLink::LoseDataSource() {
  FDataSource = nullptr;
  OtherDataSet();
}

void TDataLink::OtherDataSet() {
  for (const TDataEvent Event :
       {TDataEvent::UpdateState, TDataEvent::LayoutChange, TDataEvent::UpdateRecord, TDataEvent::DataSetChange})
    DataEvent(Event, nullptr);
}

TDataSet* TDataLink::DataSet() const { return FDataSource == nullptr ? nullptr : FDataSource->DataSet(); }

bool TDataLink::Active() const {
  const TDataSet* const Set = DataSet();
  return Set != nullptr && Set->Active();
}

void TDataLink::DataEvent(TDataEvent, TField*) {}

}  // namespace zy
