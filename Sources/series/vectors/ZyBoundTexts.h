#pragma once

#include <cstdint>
#include <functional>
#include <memory>

#include "platform/data/TDataSource.h"
#include "platform/framework/TRef.h"
#include "platform/framework/TStrings.h"
#include "series/vectors/ZyListLink.h"

namespace zy {

class TZyArchive;
class TZyFieldName;

/// A list of texts, by hand or from a field of a data set: rubrics of an axis, captions of bars.
class TZyBoundTexts {
 public:
  /// Owner keeps track of the data source; SetSource is its setter, which runs with null when the source dies.
  /// OnChanging runs before texts change by hand, OnChange afterwards, and OnNewData when those of a data set are out
  /// of date.
  template <class THolder>
  TZyBoundTexts(THolder* Owner, void (THolder::*SetSource)(TDataSource*), std::function<void()> OnChanging,
                std::function<void()> OnChange, std::function<void()> OnNewData)
      : FDataSource(Owner, SetSource),
        FOnChanging(std::move(OnChanging)),
        FOnChange(std::move(OnChange)),
        FOnNewData(std::move(OnNewData)) {
    FOwnListens = Listen(FOwn);
    ListenToData();
  }
  TZyBoundTexts(const TZyBoundTexts&) = delete;
  TZyBoundTexts& operator=(const TZyBoundTexts&) = delete;

  const TStringList& Texts() const { return List(); }
  /// The texts as a record has them, which makes them texts by hand when it is read.
  void Fields(TZyArchive& Archive, const TZyFieldName& Name);
  /// The text at an index, an empty one outside the list.
  std::string At(int Index) const;
  /// The texts for the application, null while they come from a data set.
  TStringList* ByHand() { return FIsBound ? nullptr : &List(); }
  /// Copies the texts; null clears.
  void Set(const TStringList* Value);
  /// Takes a list of the application's in place of the present one, with its events: handlers that it had still run,
  /// behind the ones of here. It stays the application's; when it dies, an empty list is back.
  void Share(TStringList& Value);
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
  TStringList& List() const;
  using TToken = std::shared_ptr<const bool>;
  TToken Listen(TStringList& To);
  void ListenToData();
  void NewData();

  mutable TStringList FOwn;
  std::uint64_t FShared = 0;  // live handle of a list of the application's, 0 for none
  TZyListLink FLink;
  TRef<TDataSource> FDataSource;  // for the notice of its death
  std::function<void()> FOnChanging, FOnChange, FOnNewData;
  TToken FOwnListens, FListens;  // handlers of the own list and of a shared one have them weakly
  bool FIsBound = false;         // the texts come from a data set
  bool FIsStale = false;         // what was read is out of date
  bool FIsReading = false;
};

}  // namespace zy
