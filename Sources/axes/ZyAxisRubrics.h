#pragma once

#include <functional>

#include "platform/data/TDataSource.h"
#include "platform/framework/TRef.h"
#include "platform/framework/TStrings.h"
#include "series/vectors/ZyListLink.h"

namespace zy {

/// The texts of a rubric axis, by hand or from a field of a data set.
class TZyAxisRubrics {
 public:
  /// Owner keeps track of the data source; OnSourceDied is its setter, which runs with null. OnChanging runs before
  /// texts change by hand, OnChange afterwards, and OnNewData when those of a data set are out of date.
  template <class THolder>
  TZyAxisRubrics(THolder* Owner, void (THolder::*SetSource)(TDataSource*), std::function<void()> OnChanging,
                 std::function<void()> OnChange, std::function<void()> OnNewData)
      : FDataSource(Owner, SetSource), FOnNewData(std::move(OnNewData)) {
    Listen(std::move(OnChanging), std::move(OnChange));
  }

  const TStringList& Texts() const { return FTexts; }
  /// The texts for the application, null while they come from a data set.
  TStringList* Own() { return FIsBound ? nullptr : &FTexts; }
  /// Copies the texts; throws Exception while they come from a data set. Null clears.
  void Set(const TStringList* Value);
  /// Whether the texts come from a data set; a record tells.
  bool IsBound() const { return FIsBound; }
  void SetBound(bool Value);
  TZyListLink& Link() { return FLink; }
  const TZyListLink& Link() const { return FLink; }
  void SetField(const std::string& Value);
  /// The link keeps a source that is fixed while its owner loads.
  void SetDataSource(TDataSource* Value, bool IsLoading);
  /// Reads what a database changed. A walk that fails half way leaves the texts as they are.
  void Update();

 private:
  void Listen(std::function<void()> OnChanging, std::function<void()> OnChange);
  void NewData();

  TStringList FTexts;
  TZyListLink FLink;
  TRef<TDataSource> FDataSource;  // for the notice of its death
  std::function<void()> FOnNewData;
  bool FIsBound = false;  // the texts come from a data set
  bool FIsStale = false;  // what was read is out of date
  bool FIsReading = false;
};

}  // namespace zy
