#include "series/models/ZyModelLink.h"

#include <QAbstractItemModel>
#include <QThread>
#include <QVariant>
#include <algorithm>
#include <utility>

#include "platform/framework/TPropInfo.h"
#include "texts/Exceptions.h"
#include "texts/ZyQtTexts.h"

namespace zy {
namespace {

bool IsShown(int Role) { return Role == Qt::DisplayRole || Role == Qt::EditRole; }

}  // namespace

ZY_PUBLISHED(TZyModelLink, TComponent, Published<&TZyModelLink::Column, &TZyModelLink::SetColumn>("Column", 0),
             Published<&TZyModelLink::Role, &TZyModelLink::SetRole>("Role", static_cast<int>(Qt::DisplayRole)))

TZyModelLink::TZyModelLink(TComponent* Owner) : TComponent(Owner) {}

TZyModelLink::~TZyModelLink() { Destroying(); }

// --- What is followed -----------------------------------------------------------------------------------------------

void TZyModelLink::Bind(QAbstractItemModel* Model, int Column, int Role, const QModelIndex& Root) {
  if (Model != nullptr && Model->thread() != QThread::currentThread())
    throw EInvalidOperation(LoadResString(_sModelThread));
  if (Root.isValid() && Root.model() != Model) throw EInvalidOperation(LoadResString(_sModelOtherRoot));
  FContext.reset();
  FPending = 0;
  FModel = Model;
  FColumn = std::max(Column, -1);
  FRole = Role;
  FRoot = Root;
  FHasRoot = Root.isValid();
  if (Model != nullptr) Connect();
  ReadAgain();
}

void TZyModelLink::SetModel(QAbstractItemModel* Value) {
  if (Value != Model()) Bind(Value, FColumn, FRole);
}

void TZyModelLink::SetColumn(int Value) {
  if (Value == FColumn) return;
  FColumn = std::max(Value, -1);
  ReadAgain();
}

void TZyModelLink::SetRole(int Value) {
  if (Value == FRole) return;
  FRole = Value;
  ReadAgain();
}

void TZyModelLink::SetRoot(const QModelIndex& Value) { Bind(FModel, FColumn, FRole, Value); }

template <class S, class... A>
void TZyModelLink::On(S Signal, void (TZyModelLink::*Do)(A...)) {
  QObject::connect(FModel.data(), Signal, FContext.get(),
                   [this, Do](A... Args) { Guarded([&] { (this->*Do)(Args...); }); });
}

void TZyModelLink::Connect() {
  using M = QAbstractItemModel;
  using T = TZyModelLink;
  FContext = std::make_unique<QObject>();
  On(&M::dataChanged, &T::DataChanged);
  On(&M::rowsAboutToBeInserted, &T::RowsBegin);
  On(&M::rowsAboutToBeRemoved, &T::RowsBegin);
  On(&M::rowsAboutToBeMoved, &T::RowsBegin);
  On(&M::rowsInserted, &T::RowsEnd);
  On(&M::rowsRemoved, &T::RowsEnd);
  On(&M::rowsMoved, &T::RowsEnd);
  On(&M::rowsInserted, &T::RowsInserted);
  On(&M::rowsRemoved, &T::RowsRemoved);
  On(&M::rowsMoved, &T::RowsMoved);
  On(&M::rowsInserted, &T::RowsSettle);
  On(&M::rowsRemoved, &T::RowsSettle);
  On(&M::rowsMoved, &T::RowsSettle);
  On(&M::columnsInserted, &T::ColumnsInserted);
  On(&M::columnsRemoved, &T::ColumnsRemoved);
  On(&M::columnsMoved, &T::ColumnsMoved);
  On(&M::layoutAboutToBeChanged, &T::LayoutChanges);
  On(&M::layoutChanged, &T::LayoutChanged);
  On(&M::modelReset, &T::ReadAgain);
  On(&QObject::destroyed, &T::ModelDied);
}

bool TZyModelLink::IsOurs(const QModelIndex& Parent) const {
  return FHasRoot ? FRoot.isValid() && FRoot == Parent : !Parent.isValid();
}

bool TZyModelLink::HasColumn() const {
  return FModel != nullptr && !RootIsGone() && FColumn >= 0 && FColumn < FModel->columnCount(FRoot);
}

QModelIndex TZyModelLink::IndexOf(int Row) const { return FModel->index(Row, FColumn, FRoot); }

QVariant TZyModelLink::Cell(int Row) const { return IndexOf(Row).data(FRole); }

int TZyModelLink::PlaceAfterMove(int Place, int First, int Number, int To) {
  if (Place >= First && Place < First + Number) return Place + (To > First ? To - Number : To) - First;
  if (Place >= First + Number && Place < To) return Place - Number;
  if (Place >= To && Place < First) return Place + Number;
  return Place;
}

// --- Signals --------------------------------------------------------------------------------------------------------

/// No exception runs through the model's signal.
void TZyModelLink::Guarded(const std::function<void()>& Proc) {
  const auto Alive = LiveHandle();
  try {
    Proc();
  } catch (const std::exception& Error) {
    if (TPersistent::FromLiveHandle(Alive) != nullptr) SetError(Error.what());
  }
}

/// Holds off what a model tells while it is read. Handlers of what is fed may delete the link.
class TZyModelLink::TReading {
 public:
  explicit TReading(TZyModelLink& Link) : FSelf(Link.LiveHandle()), FLink(Link) { Link.FReading = true; }
  ~TReading() {
    if (IsAlive()) FLink.FReading = false;
  }
  TReading(const TReading&) = delete;
  TReading& operator=(const TReading&) = delete;
  bool IsAlive() const { return TPersistent::FromLiveHandle(FSelf) != nullptr; }

 private:
  std::uint64_t FSelf;
  TZyModelLink& FLink;
};

/// Carries over a change of single rows, before which there were RowsBefore. Where that cannot be, all is read, at once
/// or as soon as possible. A slot that hears the model before the link does may change it again: that change is told
/// first then, and neither is one of what the link has.
template <class F>
void TZyModelLink::Carry(int RowsBefore, F Take) {
  if (HeldRows() < 0) return;
  if (FUpdating > 0 || FReading || FPending > 0) {
    FStale = true;
    return;
  }
  if (!FFollows || FStale || HeldRows() != RowsBefore) return ReadAll();
  {
    const TReading Reading(*this);
    FStale = false;
    Take();
    if (!Reading.IsAlive()) return;
  }
  if (FStale) return ReadAll();
  TellUnfit();
}

void TZyModelLink::RowsEnd() { FPending = std::max(FPending - 1, 0); }

void TZyModelLink::RowsSettle() {
  if (FStale && FPending == 0 && FUpdating == 0 && !FReading) ReadAgain();
}

void TZyModelLink::DataChanged(const QModelIndex& First, const QModelIndex& Last, const QList<int>& Roles) {
  if (!First.isValid() || !Last.isValid()) return ReadAgain();  // how some models say that all may be others
  if (!IsOurs(First.parent()) || FColumn < First.column() || FColumn > Last.column()) return;
  const auto Tells = [this](int Role) { return Role == FRole || (IsShown(Role) && IsShown(FRole)); };
  if (!Roles.isEmpty() && std::none_of(Roles.begin(), Roles.end(), Tells)) return;
  const int Rows = FModel->rowCount(FRoot), Behind = std::min(Last.row() + 1, Rows);  // some models tell of a row more
  if (First.row() < Behind) Carry(Rows, [&] { TakeChanged(First.row(), Behind - First.row()); });
}

void TZyModelLink::RowsInserted(const QModelIndex& Parent, int First, int Last) {
  if (!IsOurs(Parent)) return;
  const int Number = Last - First + 1;
  Carry(FModel->rowCount(FRoot) - Number, [&] { TakeInserted(First, Number); });
}

void TZyModelLink::RowsRemoved(const QModelIndex& Parent, int First, int Last) {
  if (!IsOurs(Parent)) return CheckStructure();  // the root may be among them
  const int Number = Last - First + 1;
  Carry(FModel->rowCount(FRoot) + Number, [&] { TakeRemoved(First, Number); });
}

void TZyModelLink::RowsMoved(const QModelIndex& From, int First, int Last, const QModelIndex& Into, int To) {
  const int Number = Last - First + 1;
  if (IsOurs(From) && IsOurs(Into)) {
    Carry(FModel->rowCount(FRoot), [&] { TakeMoved(First, Number, To); });
  } else if (IsOurs(From)) {
    RowsRemoved(From, First, Last);
  } else if (IsOurs(Into)) {
    RowsInserted(Into, To, To + Number - 1);
  }
}

void TZyModelLink::ColumnsInserted(const QModelIndex& Parent, int First, int Last) {
  if (FFollows && IsOurs(Parent) && FColumn >= First) FColumn += Last - First + 1;
  CheckStructure();
}

void TZyModelLink::ColumnsRemoved(const QModelIndex& Parent, int First, int Last) {
  if (FFollows && IsOurs(Parent) && FColumn >= First) FColumn = FColumn <= Last ? -1 : FColumn - (Last - First + 1);
  CheckStructure();
}

void TZyModelLink::ColumnsMoved(const QModelIndex& From, int First, int Last, const QModelIndex& Into, int To) {
  const int Number = Last - First + 1;
  if (IsOurs(From) && IsOurs(Into)) {
    if (FFollows) FColumn = PlaceAfterMove(FColumn, First, Number, To);
    CheckStructure();
  } else if (IsOurs(From)) {
    ColumnsRemoved(From, First, Last);
  } else {
    ColumnsInserted(Into, To, To + Number - 1);
  }
}

/// Columns and root may have come or gone.
void TZyModelLink::CheckStructure() {
  FStale = FStale || FReading || FPending > 0;
  if (HasColumn() != FFollows) ReadAgain();
}

void TZyModelLink::LayoutChanges() {
  if (!FFollows || HeldRows() < 0 || FReading || FUpdating > 0 || FPending > 0) return;
  if (HeldRows() > 0) FAnchor = IndexOf(0);
  NoteOrder();
}

/// The order of columns may be another one as well.
void TZyModelLink::LayoutChanged() {
  if (FAnchor.isValid()) FColumn = FAnchor.column();
  FAnchor = QModelIndex();
  const auto Alive = LiveHandle();
  ReadAgain();  // a handler of what is fed may delete the link
  if (TPersistent::FromLiveHandle(Alive) != nullptr) ForgetOrder();
}

void TZyModelLink::ModelDied() {
  FModel.clear();
  FPending = 0;
  FFollows = false;
  SetError(LoadResString(_sModelGone));
}

// --- Reading --------------------------------------------------------------------------------------------------------

void TZyModelLink::EndUpdate() {
  if (FUpdating > 0 && --FUpdating == 0 && std::exchange(FStale, false)) ReadAgain();
}

void TZyModelLink::ReadAgain() {
  if (HeldRows() < 0) {
    FFollows = HasColumn();
    return;
  }
  FStale = FUpdating > 0 || FReading;
  if (FStale) return;
  const auto Alive = LiveHandle();
  ReadAll();  // a handler of what is fed may delete the link
  if (TPersistent::FromLiveHandle(Alive) != nullptr) FStale = FStale || FPending > 0;
}

/// A model may tell of changes while it is read, as those do that compute or load their cells then; a second reading
/// has the lasting ones.
void TZyModelLink::ReadAll() {
  FError.clear();
  FFollows = HasColumn();
  if (FModel == nullptr) return;
  if (!FFollows) {
    const auto Alive = LiveHandle();
    TakeAll(0);
    if (TPersistent::FromLiveHandle(Alive) == nullptr) return;
    if (RootIsGone()) return SetError(LoadResString(_sModelRootGone));
    return SetError(FColumn < 0 ? LoadResString(_sModelColumnGone) : Format(LoadResString(_sModelNoColumn), {FColumn}));
  }
  constexpr int Attempts = 4;
  for (int Attempt = 0; Attempt == 0 || FStale; ++Attempt) {
    FStale = false;
    if (Attempt == Attempts) return SetError(LoadResString(_sModelRestless));
    const TReading Reading(*this);
    FUnfit = {};
    TakeAll(FModel->rowCount(FRoot));
    if (!Reading.IsAlive()) return;
  }
  TellUnfit();
}

void TZyModelLink::NoteUnfit(int Row, const QVariant& Value) {
  if (FUnfit.Number++ > 0) return;
  FUnfit.Row = Row;
  FUnfit.Text = Value.toString().left(40).toStdString();
  if (FUnfit.Text.empty()) FUnfit.Text = Value.typeName();
}

void TZyModelLink::TellUnfit() {
  const TUnfit Unfit = std::exchange(FUnfit, {});
  if (Unfit.Number == 1) SetError(Format(LoadResString(_sModelUnfit), {Unfit.Row, FColumn, Unfit.Text}));
  if (Unfit.Number > 1)
    SetError(Format(LoadResString(_sModelUnfitMore), {Unfit.Row, FColumn, Unfit.Text, Unfit.Number - 1}));
}

void TZyModelLink::SetError(const std::string& Text) {
  FError = Text;
  if (const TErrorEvent Handler = FOnError) Handler(this, Text);  // it may be replaced meanwhile
}

}  // namespace zy
