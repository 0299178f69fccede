#pragma once

#include <QModelIndex>
#include <QObject>
#include <QPersistentModelIndex>
#include <QPointer>
#include <functional>
#include <string>

#include "platform/framework/TComponent.h"

class QAbstractItemModel;
class QVariant;

namespace zy {

/// Follows one column of an item model of the toolkit and keeps what it feeds equal to the cells, row by row. Base of
/// TZyModelNumbers and TZyModelTexts.
///
/// Rows that come, go, move or change are carried over at once, within the model's own signal, and cost what they are:
/// a changed cell costs a cell, appended rows are appended. All rows are read when the model says that they are others
/// (a reset, a new order). The column is followed like its rows: columns that come in front of it move it along.
///
/// A model that dies, or is taken away, leaves what was read. A column or a root that is removed from a living model
/// leaves nothing; Error then has the reason. The model stays the application's, lives in the thread of the user
/// interface, and may be taken by any number of links. Rows that a model has not fetched yet do not exist for a link
/// either. What the link feeds is not to be written by others: where that shows by another number of rows, the next
/// signal has all rows read anew.
class TZyModelLink : public TComponent {
  ZY_CLASS(TZyModelLink, TComponent)
  explicit TZyModelLink(TComponent* Owner = nullptr);
  ~TZyModelLink() override;

  /// Model, column, role and root in one step: all rows are read once.
  void Bind(QAbstractItemModel* Model, int Column, int Role = Qt::DisplayRole, const QModelIndex& Root = {});
  /// Null for none. Throws EInvalidOperation for a model that lives in another thread.
  QAbstractItemModel* Model() const { return FModel; }
  void SetModel(QAbstractItemModel* Value);
  /// The column, from 0; -1 once it was removed from the model. A number beyond the model's last column waits for one.
  int Column() const { return FColumn; }
  void SetColumn(int Value);
  /// The role of the cells that are read; Qt::DisplayRole at first.
  int Role() const { return FRole; }
  void SetRole(int Value);
  /// The item whose rows are followed, an invalid index for the rows of the model itself. Another model forgets it.
  /// Throws EInvalidOperation for an index of another model.
  QModelIndex Root() const { return FRoot; }
  void SetRoot(const QModelIndex& Value);

  /// Between these two nothing is carried over; calls nest, and the last EndUpdate reads all rows when there was
  /// something to carry over. For storms of changes that leave no row as it was.
  void BeginUpdate() { ++FUpdating; }
  void EndUpdate();
  /// Reads all rows now. For models that change without telling.
  void ReadAgain();

  /// What keeps the link from its column, or the last cells that had no place in what it feeds; empty when all is well.
  /// Reading all rows begins anew.
  const std::string& Error() const { return FError; }
  /// Told of each error, with its text.
  using TErrorEvent = std::function<void(TObject* Sender, const std::string& Text)>;
  const TErrorEvent& OnError() const { return FOnError; }
  void SetOnError(TErrorEvent Value) { FOnError = std::move(Value); }

 protected:
  /// Number of rows in what is fed, -1 while there is nothing to feed.
  virtual int HeldRows() const = 0;
  /// Takes all of so many rows; 0 empties.
  virtual void TakeAll(int Rows) = 0;
  virtual void TakeChanged(int First, int Number) = 0;
  virtual void TakeInserted(int First, int Number) = 0;
  virtual void TakeRemoved(int First, int Number) = 0;
  /// Number rows from First on stand in front of the one that was To, which lies outside them.
  virtual void TakeMoved(int First, int Number, int To) = 0;
  /// Around a new order of the rows, which ends in a TakeAll: for what is kept of single ones.
  virtual void NoteOrder() {}
  virtual void ForgetOrder() {}

  /// Where Place is after Number rows from First on went in front of the one that was To.
  static int PlaceAfterMove(int Place, int First, int Number, int To);
  QVariant Cell(int Row) const;
  QModelIndex IndexOf(int Row) const;
  /// Notes a cell whose value cannot be fed, for Error.
  void NoteUnfit(int Row, const QVariant& Value);
  /// Reads all rows after what is fed became another one.
  void TargetChanged() { ReadAgain(); }

 private:
  struct TUnfit {
    int Number = 0;
    int Row = 0;  // of the first
    std::string Text;
  };

  void Connect();
  template <class S, class... A>
  void On(S Signal, void (TZyModelLink::*Do)(A...));
  bool IsOurs(const QModelIndex& Parent) const;
  bool HasColumn() const;
  bool RootIsGone() const { return FHasRoot && !FRoot.isValid(); }
  class TReading;
  template <class F>
  void Carry(int RowsBefore, F Take);
  void Guarded(const std::function<void()>& Proc);
  void ReadAll();
  void RowsBegin() { ++FPending; }
  void RowsEnd();
  void RowsSettle();
  void DataChanged(const QModelIndex& First, const QModelIndex& Last, const QList<int>& Roles);
  void RowsInserted(const QModelIndex& Parent, int First, int Last);
  void RowsRemoved(const QModelIndex& Parent, int First, int Last);
  void RowsMoved(const QModelIndex& From, int First, int Last, const QModelIndex& Into, int To);
  void ColumnsInserted(const QModelIndex& Parent, int First, int Last);
  void ColumnsRemoved(const QModelIndex& Parent, int First, int Last);
  void ColumnsMoved(const QModelIndex& From, int First, int Last, const QModelIndex& Into, int To);
  void LayoutChanges();
  void LayoutChanged();
  void ModelDied();
  void CheckStructure();
  void TellUnfit();
  void SetError(const std::string& Text);

  QPointer<QAbstractItemModel> FModel;
  std::unique_ptr<QObject> FContext;     // ends the connections
  QPersistentModelIndex FRoot, FAnchor;  // of the column, while the layout changes
  TUnfit FUnfit;
  std::string FError;
  TErrorEvent FOnError;
  int FColumn = 0;
  int FRole = Qt::DisplayRole;
  int FUpdating = 0;
  int FPending = 0;  // changes of rows that the model has begun and not told the end of
  bool FHasRoot = false;
  bool FFollows = false;  // what is fed had the column's cells after the last signal
  bool FReading = false;
  bool FStale = false;  // something happened that was not carried over
};

}  // namespace zy
