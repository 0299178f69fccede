#include "platform/data/TFieldDataLink.h"

#include "platform/data/TDataSet.h"
#include "texts/Exceptions.h"

namespace zy {

void TFieldDataLink::SetFieldName(const std::string& Value) {
  if (Value == FFieldName) return;
  FFieldName = Value;
  TestField();
  DataChange();
}

TField* TFieldDataLink::Field() const {
  const TDataSet* const Set = DataSet();
  return Set == nullptr || FFieldName.empty() ? nullptr : Set->FindField(FFieldName);
}

void TFieldDataLink::SetError(const std::string& Value) {
  if (Value == FError) return;
  FError = Value;
  if (const TEvent Event = FOnError) Event();
}

/// Says whether the open data set has the field.
void TFieldDataLink::TestField() {
  std::string Missing;
  if (Active() && !FFieldName.empty()) {
    try {
      DataSet()->FieldByName(FFieldName);
    } catch (const EDatabaseError& Error) {
      Missing = Error.what();
    }
  }
  SetError(Missing);
}

void TFieldDataLink::DataEvent(TDataEvent Event, TField* Info) {
  TDataLink::DataEvent(Event, Info);
  switch (Event) {
    case TDataEvent::ConnectChange:
      if (const TDataSet* const Set = DataSet()) SetError(Set->LastError());
      break;
    case TDataEvent::LayoutChange:
    case TDataEvent::UpdateRecord:
      TestField();
      break;
    case TDataEvent::UpdateState:
      if (!Active()) TestField();
      break;
    case TDataEvent::FieldChange:
      if (Info == Field()) DataChange();
      break;
    case TDataEvent::RecordChange:
    case TDataEvent::DataSetChange:
    case TDataEvent::DataSetScroll:
      DataChange();
      break;
  }
}

void TFieldDataLink::DataChange() {
  if (const TEvent Event = FOnDataChange) Event();
}

}  // namespace zy
