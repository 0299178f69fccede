#include "series/vectors/ZyDoubleVector.h"

#include <algorithm>
#include <limits>

#include "persistence/ZyArchive.h"
#include "platform/data/TDataSet.h"
#include "platform/framework/ScopedFlag.h"
#include "platform/framework/TPropInfo.h"
#include "platform/framework/TReader.h"
#include "platform/framework/TWriter.h"
#include "series/vectors/ZyVectors.h"
#include "texts/Exceptions.h"

namespace zy {
ZY_PUBLISHED(TZyDoubleVector, TZyCustomDoubleVector,
             Published<&TZyDoubleVector::PersistentValues, &TZyDoubleVector::SetPersistentValues>("PersistentValues",
                                                                                                  false),
             Published<&TZyDoubleVector::Increment, &TZyDoubleVector::SetIncrement>("Increment", 128),
             Published<&TZyDoubleVector::Capacity, &TZyDoubleVector::SetCapacity>("Capacity", 128),
             Published<&TZyDoubleVector::DataField, &TZyDoubleVector::SetDataField>("DataField", ""),
             Published<&TZyDoubleVector::DataSource, &TZyDoubleVector::SetDataSource>("DataSource"))

TZyDoubleVector::TZyDoubleVector(TComponent* Owner) : TZyCustomDoubleVector(Owner) {
  FDataLink.SetOnDataChange([this] { DBChanged(); });
}

// --- Database -------------------------------------------------------------------------------------------------------

void TZyDoubleVector::Bind() {
  FDBData = FUpdateDB = true;
  Clear();
}

void TZyDoubleVector::SetDataField(const std::string& Value) {
  if (Value == DataField()) return;
  FDataLink.SetFieldName(Value);
  Bind();
}

void TZyDoubleVector::SetDataSource(TDataSource* Value) {
  if (Value == DataSource()) return;
  if (!FDataLink.DataSourceFixed() || !IsLoading()) FDataLink.SetDataSource(Value);
  FDataSource = Value;
  if (Value == nullptr) {
    FDBData = false;
  } else {
    Bind();
  }
}

void TZyDoubleVector::Notification(TComponent* AComponent, TOperation Operation) {
  TZyCustomDoubleVector::Notification(AComponent, Operation);
  if (Operation == TOperation::Remove && AComponent == FDataSource) SetDataSource(nullptr);
}

/// Only notes that there is something to read.
void TZyDoubleVector::DBChanged() {
  if (IsDestroying() || !FDBData || FUpdateDB || FSetting || FDataLink.DataSet() == nullptr) return;
  FUpdateDB = true;
}

/// Reads into new storage, so that a walk that fails half way loses nothing.
void TZyDoubleVector::UpdateDB() {
  if (!FDBData || !FUpdateDB || FSetting) return;
  TDataSet* const DataSet = FDataLink.DataSet();
  if (DataSet != nullptr && !DataSet->CanWalk()) return;
  if (DataSet == nullptr || FDataLink.Field() == nullptr) {
    FDBData = false;
    return;
  }
  const TScopedValue Setting(FSetting, true);
  std::vector<double> Values;
  std::vector<int> Nulls;
  FUpdateDB = false;
  try {
    const TField& Field = *FDataLink.Field();
    const auto Count = static_cast<std::size_t>(DataSet->RecordCount());
    Values.reserve(Count);
    DataSet->Walk([&] {
      if (!Field.IsNull()) {
        Values.push_back(Field.AsFloat());
      } else if (Values.size() + 1 < Count) {
        Nulls.push_back(static_cast<int>(Values.size()));
        Values.push_back(0);
      }
    });
  } catch (const EDatabaseError& Error) {
    return FDataLink.SetError(Error.what());
  }
  ClearOutlieres();
  AddOutliers(Nulls);
  FArray = std::move(Values);
  FCount = static_cast<int>(FArray.size());
  SetCapacity(std::max(Capacity(), FCount + 1));
  OutOfRange();
}

// --- Values ---------------------------------------------------------------------------------------------------------

/// What was scanned before stays so: values that are appended move no extreme out of its place, and the next reader
/// only takes the new ones.
template <class T>
void TZyDoubleVector::Append(std::span<const T> Range) {
  if (Range.size() > static_cast<std::size_t>(std::numeric_limits<int>::max() - FCount))
    detail::VectorIndexOutOfRange(std::numeric_limits<int>::max());
  const int NewCount = FCount + static_cast<int>(Range.size());
  FArray.insert(FArray.end(), Range.begin(), Range.end());
  CheckCount(NewCount);
  ResetRelatedSeries();
}

void TZyDoubleVector::AddRange(std::span<const double> Range) { Append(Range); }

void TZyDoubleVector::AddRange(std::span<const float> Range) { Append(Range); }

void TZyDoubleVector::AddRange(std::span<const int> Range) { Append(Range); }

void TZyDoubleVector::SetInternalArray(std::vector<double> Value) {
  if (Value.size() > static_cast<std::size_t>(std::numeric_limits<int>::max()))
    detail::VectorIndexOutOfRange(std::numeric_limits<int>::max());
  FArray = std::move(Value);
  const auto NewCount = static_cast<int>(FArray.size());
  FCount = 0;  // the capacity may become the very count, which it never does while the vector is filled
  SetCapacity(NewCount);
  FCount = NewCount;
  OutOfRange();
}

void TZyDoubleVector::DefineProperties(TFiler& Filer) {
  TZyCustomDoubleVector::DefineProperties(Filer);
  Filer.DefineProperty(
      "Values",
      [this](TReader& Reader) {
        Clear();
        Reader.ReadListBegin();
        while (!Reader.EndOfList()) SetValue(FCount, GetFloatFromStringOrFloat(Reader));
        Reader.ReadListEnd();
      },
      [this](TWriter& Writer) {
        Writer.WriteListBegin();
        for (const double n : Values()) StoreFloatToString(Writer, n);
        Writer.WriteListEnd();
      },
      FPersistentValues && FCount > 0);
}

// --- Record ---------------------------------------------------------------------------------------------------------

void TZyDoubleVector::Fields(TZyArchive& Archive) {
  using T = TZyDoubleVector;
  Archive.Identity(*this);
  Archive.Field<&T::Increment, &T::SetIncrement>(*this, "Increment");
  Archive.Field<&T::Capacity, &T::NoteCapacity>(*this, "Capacity");
  Archive.Alternative(
      TZyFieldName("Database").Ini("FromDatabase"), FDBData, [&] { LinkFields(Archive); },
      [&] { ValueFields(Archive); });
  // In INI the line of marks is always there.
  Archive.Alternative(TZyFieldName("Outliers").Ini(""), AnyOutliers() || Archive.IsIni(), [&] {
    Archive.List(
        "Outliers", [this] { return std::vector<int>(Outliers().Marked().begin(), Outliers().Marked().end()); },
        [this](const std::vector<int>& Marks) { AddOutliers(Marks); });
  });
  Archive.EndRecord();
}

/// A source that cannot be found leaves the vector without one, and unbound.
void TZyDoubleVector::LinkFields(TZyArchive& Archive) {
  using T = TZyDoubleVector;
  Archive.Reference<&T::DataSource, &T::SetDataSource>(*this, TZyFieldName("DataSource").Xml("Database/DataSource"));
  Archive.Field<&T::DataField, &T::SetDataField>(*this, TZyFieldName("DataField").Xml("Database/DataField"));
  if (Archive.IsReading()) FDBData = FUpdateDB = DataSource() != nullptr;
}

void TZyDoubleVector::ValueFields(TZyArchive& Archive) {
  if (Archive.IsReading()) FDBData = false;
  Archive.Value(TZyFieldName("Values").Later(), FArray);
  CheckCount(static_cast<int>(FArray.size()));
}

/// Also when the values end in an error: those before it count.
void TZyDoubleVector::EndRead() {
  CheckCount(static_cast<int>(FArray.size()));
  OutOfRange();
}

}  // namespace zy
