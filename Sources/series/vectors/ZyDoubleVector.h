#pragma once

#include <initializer_list>
#include <span>
#include <string>
#include <vector>

#include "persistence/ZyRecord.h"
#include "platform/data/TDataSource.h"
#include "platform/framework/TRef.h"
#include "platform/framework/TStream.h"
#include "series/vectors/ZyCustomDoubleVector.h"
#include "series/vectors/ZyListLink.h"
#include "undo/ZyUndoParts.h"

namespace zy {

/// A data vector that holds its values.
class TZyDoubleVector : public TZyCustomDoubleVector, public TZyRecord, public IZyStreamState {
  ZY_CLASS(TZyDoubleVector, TZyCustomDoubleVector)
  explicit TZyDoubleVector(TComponent* Owner = nullptr);

  /// Whether the values are stored with the form.
  bool PersistentValues() const { return FPersistentValues; }
  void SetPersistentValues(bool Value) { FPersistentValues = Value; }

  /// The field of a data set that fills the vector: each record gives a value, dates as day numbers. A null gives a 0
  /// that is an outlier, unless it is the last record, which then gives nothing. Setting one of the two clears the
  /// vector; it is read when a chart needs it, or by UpdateDB.
  const std::string& DataField() const { return FDataLink.FieldName(); }
  void SetDataField(const std::string& Value);
  TDataSource* DataSource() const { return FDataLink.DataSource(); }
  void SetDataSource(TDataSource* Value);
  /// Whether the vector is filled from a database field. Ends when data source, data set or field are gone; the values
  /// stay then.
  bool DBData() const { return FDBData; }
  /// Reads the field anew, when the data set changed since the last time. Put off while the data set is closed or
  /// being edited, or its controls are disabled. When a value cannot be read, the vector stays as it is and the link
  /// has the reason.
  void UpdateDB();
  /// The link to the field, with the text of what keeps it from its data.
  TZyListLink& DataLink() { return FDataLink; }

  /// Appends all values with one notification.
  void AddRange(std::span<const double> Range);
  void AddRange(std::span<const float> Range);
  void AddRange(std::span<const int> Range);
  void AddRange(std::initializer_list<double> Range) { AddRange(std::span(Range.begin(), Range.size())); }

  /// The values themselves. Writes through it pass by all tracking: call OutOfRange when they are done.
  std::span<double> InternalArray() { return FArray; }
  /// Takes over an array as the storage, without a copy; count and capacity become its length. Outlier marks stay.
  void SetInternalArray(std::vector<double> Value);

  /// Readers replace increment, capacity, values and marks.
  void Fields(TZyArchive& Archive) override;
  using TZyRecord::ReadFrom;
  using TZyRecord::WriteTo;
  void WriteTo(TStream& Stream) const override { TZyRecord::WriteTo(Stream); }
  void ReadFrom(TStream& Stream) override { TZyRecord::ReadFrom(Stream); }

  void DefineProperties(TFiler& Filer) override;

 protected:
  void Notification(TComponent* AComponent, TOperation Operation) override;
  void BeginRead() override { Clear(); }
  void EndRead() override;

 private:
  template <class T>
  void Append(std::span<const T> Range);

  void Bind();
  void LinkFields(TZyArchive& Archive);
  void ValueFields(TZyArchive& Archive);
  void DBChanged();

  bool FPersistentValues = false;
  bool FDBData = false;
  bool FUpdateDB = false;  // what was read is out of date
  bool FSetting = false;   // UpdateDB is running
  TZyListLink FDataLink;
  TRef<TDataSource> FDataSource{this};  // for the notice of its death
};

}  // namespace zy
