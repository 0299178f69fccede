#pragma once

#include "platform/data/DataTypes.h"
#include "platform/data/TListeners.h"
#include "platform/framework/TComponent.h"
#include "platform/framework/TRef.h"

namespace zy {

class TDataLink;
class TDataSet;
class TField;

/// Stands between a data set and those who show it: all of them refer to the source, and the data set behind it can be
/// exchanged in one place.
class TDataSource : public TComponent {
  ZY_CLASS(TDataSource, TComponent)
  explicit TDataSource(TComponent* Owner = nullptr);
  ~TDataSource() override;

  /// Null at first, and when the data set dies.
  TDataSet* DataSet() const { return FDataSet; }
  void SetDataSet(TDataSet* Value);

 protected:
  void Notification(TComponent* AComponent, TOperation Operation) override;

 private:
  friend class TDataSet;
  friend class TDataLink;
  void DataEvent(TDataEvent Event, TField* Info);

  TRef<TDataSet> FDataSet{this};
  TListeners<TDataLink> FLinks;
};

}  // namespace zy
