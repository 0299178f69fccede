#include "platform/data/TDataSource.h"

#include "platform/data/TDataLink.h"
#include "platform/data/TDataSet.h"
#include "platform/framework/TPropInfo.h"

namespace zy {

ZY_PUBLISHED(TDataSource, TComponent, Published<&TDataSource::DataSet, &TDataSource::SetDataSet>("DataSet"))

TDataSource::TDataSource(TComponent* Owner) : TComponent(Owner) {}

TDataSource::~TDataSource() {
  Destroying();
  FLinks.ForEach([](TDataLink& Link) { Link.LoseDataSource(); });
  if (FDataSet != nullptr) FDataSet->FSources.Remove(this);
}

void TDataSource::SetDataSet(TDataSet* Value) {
  if (Value == FDataSet) return;
  if (FDataSet != nullptr) FDataSet->FSources.Remove(this);
  FDataSet = Value;
  if (Value != nullptr) Value->FSources.Add(this);
  FLinks.ForEach([](TDataLink& Link) { Link.OtherDataSet(); });
}

void TDataSource::DataEvent(TDataEvent Event, TField* Info) {
  FLinks.ForEach([&](TDataLink& Link) { Link.DataEvent(Event, Info); });
}

void TDataSource::Notification(TComponent* AComponent, TOperation Operation) {
  Inherited::Notification(AComponent, Operation);
  if (Operation == TOperation::Remove && AComponent == FDataSet) SetDataSet(nullptr);
}

}  // namespace zy
