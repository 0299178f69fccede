#pragma once

#include <functional>
#include <string>

#include "platform/data/TDataLink.h"

namespace zy {

/// A link to one field of a data set. Its handlers may do anything but delete the link.
class TFieldDataLink : public TDataLink {
 public:
  using TEvent = std::function<void()>;

  const std::string& FieldName() const { return FFieldName; }
  void SetFieldName(const std::string& Value);
  /// The field of that name; null while the data set is inactive and when it has no such field. To be asked for anew
  /// after each event: fields do not outlive a change of the layout.
  TField* Field() const;

  /// Runs when the field's value in the current record may be another one: the value or the record has changed, the
  /// cursor has moved, the data set, the source or the name is another one. It does not run for other fields.
  const TEvent& OnDataChange() const { return FOnDataChange; }
  void SetOnDataChange(TEvent Value) { FOnDataChange = std::move(Value); }

  /// What keeps the link from its data, for showing: the open data set has no field of the name, the data set could not
  /// be read, or what SetError was told. Empty when all is well. The next successful reading clears it, as do another
  /// source and another field name.
  const std::string& Error() const { return FError; }
  /// For whoever reads through the link and fails.
  void SetError(const std::string& Value);
  /// Runs when Error is another text than before, also when it became empty.
  const TEvent& OnError() const { return FOnError; }
  void SetOnError(TEvent Value) { FOnError = std::move(Value); }

 protected:
  void DataEvent(TDataEvent Event, TField* Info) override;
  /// Runs OnDataChange. A link that reads whole columns and not the current record overrides it to do nothing.
  virtual void DataChange();

 private:
  void TestField();

  std::string FFieldName;
  std::string FError;
  TEvent FOnDataChange;
  TEvent FOnError;
};

}  // namespace zy
