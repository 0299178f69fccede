#include "axes/ZyAxisRubrics.h"

#include "platform/data/TDataSet.h"
#include "platform/framework/ScopedFlag.h"
#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {

void TZyAxisRubrics::Listen(std::function<void()> OnChanging, std::function<void()> OnChange) {
  FTexts.OnChanging = [this, Tell = std::move(OnChanging)](TObject*) {
    if (!FIsReading) Tell();
  };
  FTexts.OnChange = [this, Tell = std::move(OnChange)](TObject*) {
    if (!FIsReading) Tell();
  };
  FLink.SetOnDataChange([this] {
    if (!FIsReading) NewData();
  });
}

void TZyAxisRubrics::Set(const TStringList* Value) {
  if (Value == nullptr) {
    FTexts.Clear();
    return;
  }
  if (FIsBound) throw Exception(LoadResString(_sRubricsDB));
  FTexts.Assign(Value);
}

void TZyAxisRubrics::SetBound(bool Value) {
  FIsBound = Value;
  if (Value) NewData();
}

void TZyAxisRubrics::SetField(const std::string& Value) {
  if (Value == FLink.FieldName()) return;
  FLink.SetFieldName(Value);
  FIsBound = true;
  NewData();
}

void TZyAxisRubrics::SetDataSource(TDataSource* Value, bool IsLoading) {
  if (Value == FLink.DataSource()) return;
  if (!FLink.DataSourceFixed() || !IsLoading) FLink.SetDataSource(Value);
  FDataSource = Value;
  FIsBound = Value != nullptr;
  if (FIsBound) NewData();
}

void TZyAxisRubrics::NewData() {
  FIsStale = true;
  FOnNewData();
}

void TZyAxisRubrics::Update() {
  if (!FIsBound || !FIsStale || FIsReading) return;
  TDataSet* const DataSet = FLink.DataSet();
  if (DataSet != nullptr && !DataSet->CanWalk()) return;
  if (DataSet == nullptr || FLink.Field() == nullptr) {
    FIsBound = false;
    return;
  }
  const TScopedValue Reading(FIsReading, true);
  FIsStale = false;
  try {
    TStringList Texts;
    const TField& Field = *FLink.Field();
    DataSet->Walk([&] { Texts.Add(Field.IsNull() ? std::string() : Field.AsString()); });
    FTexts.Assign(&Texts);
  } catch (const EDatabaseError& Error) {
    FLink.SetError(Error.what());
  }
}

}  // namespace zy
