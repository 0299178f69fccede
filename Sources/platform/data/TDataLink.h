#pragma once

#include "platform/data/DataTypes.h"

namespace zy {

class TDataSet;
class TDataSource;
class TField;

/// The end of the wire in somebody who shows data: knows the source, and hears of its events. A member of whoever
/// listens, no component; source and data set may die in any order, the link then has none.
class TDataLink {
 public:
  TDataLink() = default;
  TDataLink(const TDataLink&) = delete;
  TDataLink& operator=(const TDataLink&) = delete;
  virtual ~TDataLink();

  TDataSource* DataSource() const { return FDataSource; }
  /// Throws EDatabaseError for another source while the source is fixed.
  void SetDataSource(TDataSource* Value);
  /// Whether the source may not be exchanged. Its death still clears it.
  bool DataSourceFixed() const { return FDataSourceFixed; }
  void SetDataSourceFixed(bool Value) { FDataSourceFixed = Value; }

  /// Null without a source, and when the source has none.
  TDataSet* DataSet() const;
  /// Whether there is a data set and it is open.
  bool Active() const;

 protected:
  /// Hears of everything that happens to the data set; Info is the field of a FieldChange, else null. Another source,
  /// and another data set behind it, comes as UpdateState, LayoutChange, UpdateRecord and DataSetChange. An override
  /// calls the inherited operation first.
  virtual void DataEvent(TDataEvent Event, TField* Info);

 private:
  friend class TDataSource;
  void LoseDataSource();
  void OtherDataSet();

  TDataSource* FDataSource = nullptr;  // clears it in its destructor
  bool FDataSourceFixed = false;
};

}  // namespace zy
