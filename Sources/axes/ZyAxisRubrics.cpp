// The texts of a rubric axis, by hand or from a field of a data set.

#include "axes/ZyAxis.h"
#include "platform/data/TDataSet.h"
#include "texts/Exceptions.h"
#include "undo/ZyUndoStack.h"

namespace zy {

void TZyAxis::SetUpRubrics() {
  FRubrics.OnChanging = [this](TObject*) {
    if (!FReadingRubrics && FUndoStack != nullptr)
      FUndoStack->PushProperty(this, LoadResString(_sAxisRubrics), "Rubrics");
  };
  FRubrics.OnChange = [this](TObject*) {
    if (!FReadingRubrics) Modified();
  };
  FRubricsLink.SetOnDataChange([this] {
    if (!FReadingRubrics) DBModified();
  });
}

void TZyAxis::SetRubrics(const TStringList* Value) {
  if (Value == nullptr) {
    FRubrics.Clear();
    return;
  }
  if (FDBData) throw Exception(LoadResString(_sRubricsDB));
  FRubrics.Assign(Value);
}

void TZyAxis::SetRubricsField(const std::string& Value) {
  if (Value == RubricsField()) return;
  FRubricsLink.SetFieldName(Value);
  FDBData = true;
  DBModified();
}

void TZyAxis::SetDataSource(TDataSource* Value) {
  if (Value == DataSource()) return;
  if (!FRubricsLink.DataSourceFixed() || !IsLoading()) FRubricsLink.SetDataSource(Value);
  FDataSource = Value;
  FDBData = Value != nullptr;
  if (FDBData) DBModified();
}

void TZyAxis::DBModified() {
  FRubricsChanged = true;
  if (FScaling == TZyAxisScaling::Rubrics) Modified();
}

/// Reads into a list of its own, so that a walk that fails half way leaves the texts as they are.
void TZyAxis::UpdateDB() {
  if (!FDBData || !FRubricsChanged || FReadingRubrics) return;
  TDataSet* const DataSet = FRubricsLink.DataSet();
  if (DataSet != nullptr && !DataSet->CanWalk()) return;
  if (DataSet == nullptr || FRubricsLink.Field() == nullptr) {
    FDBData = false;
    return;
  }
  FReadingRubrics = true;
  FRubricsChanged = false;
  try {
    TStringList Texts;
    const TField& Field = *FRubricsLink.Field();
    DataSet->Walk([&] { Texts.Add(Field.IsNull() ? std::string() : Field.AsString()); });
    FRubrics.Assign(&Texts);
  } catch (const EDatabaseError& Error) {
    FRubricsLink.SetError(Error.what());
  }
  FReadingRubrics = false;
}

}  // namespace zy
