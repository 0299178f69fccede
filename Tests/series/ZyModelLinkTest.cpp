#include "series/models/ZyModelLink.h"

#include <gtest/gtest.h>

#include <QDateTime>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QThread>
#include <QTransposeProxyModel>
#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "annotations/ZyLabelWithArrowMarker.h"
#include "framework/Errors.h"
#include "graph/SampleChart.h"
#include "series/models/ZyModelNumbers.h"
#include "series/models/ZyModelTexts.h"
#include "texts/Exceptions.h"

namespace zy::testing {
namespace {

/// A table that can do all that a model can tell. Each column has a mark in its header, each row in its last cell.
class TTableModel : public QAbstractTableModel {
 public:
  using TRow = std::vector<QVariant>;

  int rowCount(const QModelIndex& Parent = {}) const override {
    return Parent.isValid() ? 0 : static_cast<int>(Rows.size());
  }
  int columnCount(const QModelIndex& Parent = {}) const override {
    return Parent.isValid() ? 0 : static_cast<int>(Marks.size());
  }
  QVariant data(const QModelIndex& Index, int Role) const override {
    ++Reads;
    return Role == Qt::DisplayRole ? Rows[At(Index.row())][At(Index.column())] : QVariant();
  }
  QModelIndex MakeIndex(int Row, int Column) const { return createIndex(Row, Column); }
  static std::size_t At(int Place) { return static_cast<std::size_t>(Place); }

  void InsertRows(int First, std::vector<TRow> New) {
    beginInsertRows({}, First, First + static_cast<int>(New.size()) - 1);
    Rows.insert(Rows.begin() + First, New.begin(), New.end());
    endInsertRows();
  }
  void RemoveRows(int First, int Number) {
    beginRemoveRows({}, First, First + Number - 1);
    Rows.erase(Rows.begin() + First, Rows.begin() + First + Number);
    endRemoveRows();
  }
  bool MoveRows(int First, int Number, int To) {
    if (!beginMoveRows({}, First, First + Number - 1, {}, To)) return false;
    Move(Rows, First, Number, To);
    endMoveRows();
    return true;
  }
  void SetCells(int First, int Last, int Column, const std::function<QVariant()>& Next) {
    for (int Row = First; Row <= Last; ++Row) Rows[At(Row)][At(Column)] = Next();
    emit dataChanged(index(First, Column), index(Last, Column), {Qt::EditRole, Qt::DisplayRole});
  }
  void InsertColumn(int Place, int Mark, const std::function<QVariant()>& Next) {
    beginInsertColumns({}, Place, Place);
    for (TRow& Row : Rows) Row.insert(Row.begin() + Place, Next());
    Marks.insert(Marks.begin() + Place, Mark);
    endInsertColumns();
  }
  void RemoveColumn(int Place) {
    beginRemoveColumns({}, Place, Place);
    for (TRow& Row : Rows) Row.erase(Row.begin() + Place);
    Marks.erase(Marks.begin() + Place);
    endRemoveColumns();
  }
  bool MoveColumn(int From, int To) {
    if (!beginMoveColumns({}, From, From, {}, To)) return false;
    for (TRow& Row : Rows) Move(Row, From, 1, To);
    Move(Marks, From, 1, To);
    endMoveColumns();
    return true;
  }
  void Reverse() {
    emit layoutAboutToBeChanged();
    std::reverse(Rows.begin(), Rows.end());
    for (const QModelIndex& Index : persistentIndexList())
      changePersistentIndex(Index, index(rowCount() - 1 - Index.row(), Index.column()));
    emit layoutChanged();
  }
  void Reset(std::vector<TRow> New) {
    beginResetModel();
    Rows = std::move(New);
    endResetModel();
  }

  std::vector<TRow> Rows;
  std::vector<int> Marks;
  mutable int Reads = 0;

 private:
  template <class T>
  static void Move(std::vector<T>& List, int First, int Number, int To) {
    std::vector<T> Taken(List.begin() + First, List.begin() + First + Number);
    List.erase(List.begin() + First, List.begin() + First + Number);
    List.insert(List.begin() + (To > First ? To - Number : To), Taken.begin(), Taken.end());
  }
};

/// A sequence of any cells: numbers, texts of numbers, nothing, and what is no number.
class TCells {
 public:
  explicit TCells(unsigned Seed) : FRandom(Seed) {}
  int Roll(int Below) { return static_cast<int>(FRandom() % static_cast<unsigned>(Below)); }
  QVariant Next() {
    const int Kind = Roll(10);
    if (Kind == 0) return {};
    if (Kind == 1) return QString("n/a");
    if (Kind == 2) return QString::number(Roll(1000) / 8.0);
    return Kind < 6 ? QVariant(Roll(100)) : QVariant(Roll(1000) / 4.0);
  }
  TTableModel::TRow NextRow(int Columns) {
    TTableModel::TRow Row;
    for (int i = 0; i < Columns; ++i) Row.push_back(Next());
    return Row;
  }
  std::vector<TTableModel::TRow> NextRows(int Number, int Columns) {
    std::vector<TTableModel::TRow> Result;
    for (int i = 0; i < Number; ++i) Result.push_back(NextRow(Columns));
    return Result;
  }

 private:
  std::mt19937 FRandom;
};

/// The plain reading of a column of such cells.
std::vector<double> PlainColumn(const QAbstractItemModel& Model, int Column) {
  std::vector<double> Result;
  for (int Row = 0; Row < Model.rowCount() && Column >= 0; ++Row) {
    bool IsNumber = false;
    const double Value = Model.index(Row, Column).data().toDouble(&IsNumber);
    Result.push_back(IsNumber ? Value : std::numeric_limits<double>::quiet_NaN());
  }
  return Result;
}

bool AreSame(std::span<const double> A, std::span<const double> B) {
  return std::ranges::equal(A, B, [](double x, double y) { return x == y || (std::isnan(x) && std::isnan(y)); });
}

std::vector<std::string> TextsOf(const TStringList& List) {
  std::vector<std::string> Result;
  for (int i = 0; i < List.Count(); ++i) Result.push_back(List.Get(i));
  return Result;
}

/// One operation of any kind on the model.
void Step(TTableModel& Model, TCells& Cells, int& NextMark) {
  const int Rows = Model.rowCount(), Columns = Model.columnCount();
  const int Row = Cells.Roll(Rows + 1), Number = std::min(1 + Cells.Roll(90), Rows - Row);
  const auto Next = [&] { return Cells.Next(); };
  switch (Cells.Roll(12)) {
    case 0:
    case 1:
      return Model.InsertRows(Cells.Roll(3) == 0 ? Rows : Row, Cells.NextRows(1 + Cells.Roll(80), Columns));
    case 2:
      return Number > 0 ? Model.RemoveRows(Row, Number) : static_cast<void>(0);
    case 3:
    case 4:
      if (Number > 0) Model.MoveRows(Row, Number, Cells.Roll(Rows + 1));
      return;
    case 5:
    case 6:
    case 7:
      return Number > 0 ? Model.SetCells(Row, Row + Number - 1, Cells.Roll(Columns), Next) : static_cast<void>(0);
    case 8:
      return Model.InsertColumn(Cells.Roll(Columns + 1), NextMark++, Next);
    case 9:
      if (Columns > 2) Model.MoveColumn(Cells.Roll(Columns), Cells.Roll(Columns + 1));
      return;
    case 10:
      return Model.Reverse();
    default:
      return Cells.Roll(4) == 0 ? Model.Reset(Cells.NextRows(Cells.Roll(300), Columns)) : static_cast<void>(0);
  }
}

TEST(ZyModelLinkTest, VectorsAndTextsEqualAPlainReadingAfterAnyWalk) {
  for (unsigned Seed = 1; Seed <= 6; ++Seed) {
    TTableModel Model;
    TCells Cells(Seed);
    Model.Marks = {0, 1, 2};
    int NextMark = 3;
    TZyDoubleVector Vector;
    TStringList List;
    TZyModelNumbers Numbers;
    TZyModelTexts Texts;
    Numbers.SetVector(&Vector);
    Texts.SetList(&List);
    Numbers.Bind(&Model, 1);
    Texts.Bind(&Model, 1);
    QPersistentModelIndex Marked;  // a row whose point is an outlier
    for (int Turn = 0; Turn < 400; ++Turn) {
      Step(Model, Cells, NextMark);
      ASSERT_EQ(Model.Marks[TTableModel::At(Numbers.Column())], 1) << "the column that was bound";
      ASSERT_EQ(Texts.Column(), Numbers.Column());
      ASSERT_TRUE(AreSame(Vector.Values(), PlainColumn(Model, Numbers.Column()))) << Seed << ' ' << Turn;
      std::vector<std::string> Wanted;
      for (int Row = 0; Row < Model.rowCount(); ++Row)
        Wanted.push_back(Model.index(Row, Texts.Column()).data().toString().toStdString());
      ASSERT_EQ(TextsOf(List), Wanted) << Seed << ' ' << Turn;
      const std::span<const int> Marks = Vector.Outliers().Marked();
      ASSERT_EQ(std::vector<int>(Marks.begin(), Marks.end()),
                Marked.isValid() ? std::vector<int>{Marked.row()} : std::vector<int>())
          << Seed << ' ' << Turn;
      if (!Marked.isValid() && Model.rowCount() > 0) {
        Marked = Model.index(Cells.Roll(Model.rowCount()), 0);
        Vector.AddOutlier(Marked.row());
      }
    }
    Model.RemoveColumn(Numbers.Column());
    EXPECT_EQ(Vector.Count() + List.Count(), 0);
    EXPECT_EQ(Numbers.Error(), "The column was removed from the model");
  }
}

TEST(ZyModelLinkTest, SlotsMayChangeTheModelAgainBeforeTheLinkHearsOfIt) {
  TTableModel Model;
  Model.Marks = {0};
  for (int i = 0; i < 10; ++i) Model.Rows.push_back({QVariant(i)});
  int Again = 0;
  const auto Nest = [&](auto Signal, const auto& Do) {
    QObject::connect(&Model, Signal, &Model, [&Again, Do] { return Again-- > 0 ? Do() : static_cast<void>(0); });
  };
  Nest(&QAbstractItemModel::rowsMoved, [&] { Model.MoveRows(1, 2, 9); });
  Nest(&QAbstractItemModel::rowsInserted, [&] { Model.SetCells(0, 0, 0, [] { return 77; }); });
  TZyDoubleVector Vector;
  TZyModelNumbers Link;
  Link.SetVector(&Vector);
  Link.Bind(&Model, 0);
  for (Again = 2; Model.Rows.size() < 12; Again = 1) {
    Model.MoveRows(0, 3, 8);
    EXPECT_TRUE(AreSame(Vector.Values(), PlainColumn(Model, 0)));
    Again = 1;
    Model.InsertRows(0, {{QVariant(5)}});
    EXPECT_TRUE(AreSame(Vector.Values(), PlainColumn(Model, 0)));
  }
  Again = Model.Reads = 0;
  Model.InsertRows(2, {{QVariant(5)}});
  EXPECT_EQ(Model.Reads, 1) << "as ever";
}

TEST(ZyModelLinkTest, FollowsTheToolkitsProxiesAndItemsOfTrees) {
  QStandardItemModel Items(0, 2);
  QSortFilterProxyModel Sorted;
  Sorted.setSourceModel(&Items);
  Sorted.setFilterKeyColumn(1);
  Sorted.sort(0);
  QTransposeProxyModel Turned;
  Turned.setSourceModel(&Items);
  TZyDoubleVector Column, InOrder, Row, Below;
  TZyModelNumbers Links[4];
  for (int i = 0; i < 4; ++i)
    Links[i].SetVector(std::array{&Column, &InOrder, &Row, &Below}[static_cast<std::size_t>(i)]);
  Links[0].Bind(&Items, 0);
  Links[1].Bind(&Sorted, 0);
  Links[2].Bind(&Turned, 0);
  EXPECT_EQ(Links[2].Error(), "The model has no column 0") << "until there is a row";
  TCells Cells(7);
  for (int Turn = 0; Turn < 300; ++Turn) {
    const int Rows = Items.rowCount();
    if (Cells.Roll(3) == 0 || Rows == 0) {
      QList<QStandardItem*> New{new QStandardItem, new QStandardItem(Turn % 2 == 0 ? "even" : "odd")};
      New[0]->setData(Cells.Roll(50), Qt::DisplayRole);
      Items.insertRow(Cells.Roll(Rows + 1), New);
    } else if (Cells.Roll(4) == 0) {
      Items.removeRow(Cells.Roll(Rows));
    } else {
      Items.setData(Items.index(Cells.Roll(Rows), 0), Cells.Roll(50), Qt::EditRole);
    }
    if (Turn % 50 == 49) Sorted.setFilterFixedString(Turn % 100 == 99 ? "" : "even");
    ASSERT_TRUE(AreSame(Column.Values(), PlainColumn(Items, 0))) << Turn;
    ASSERT_TRUE(AreSame(InOrder.Values(), PlainColumn(Sorted, 0))) << Turn;
    ASSERT_TRUE(std::ranges::is_sorted(InOrder.Values())) << Turn;
    ASSERT_TRUE(AreSame(Row.Values(), PlainColumn(Turned, Links[2].Column()))) << Turn;
    if (Links[2].Column() < 0) Links[2].SetColumn(0);  // its row was removed
  }
  // The rows below an item, wherever that goes.
  auto* const Parent = new QStandardItem("parent");
  Items.insertRow(Items.rowCount(), Parent);
  Links[3].Bind(&Items, 0, Qt::DisplayRole, Parent->index());
  for (int i = 0; i < 3; ++i) {
    Parent->appendRow(new QStandardItem(QString::number(i * i)));
    Items.insertRow(0, new QStandardItem("8"));
  }
  EXPECT_TRUE(AreSame(Below.Values(), std::vector<double>{0, 1, 4}));
  EXPECT_EQ(Below.Sum(), 5);
  Items.removeRow(Parent->row());
  EXPECT_EQ(Below.Count(), 0);
  EXPECT_EQ(Links[3].Error(), "The item whose rows were followed was removed from the model");
  EXPECT_EQ(MessageOf<EInvalidOperation>([&] { Links[0].SetRoot(Sorted.index(0, 0)); }),
            "The root is an index of another model");
}

TEST(ZyModelLinkTest, AStormCostsWhatItChanges) {
  TTableModel Model;
  TCells Cells(3);
  Model.Marks = {0};
  constexpr int Many = 100000;
  Model.Rows.assign(Many, {QVariant(1.0)});
  TZyDoubleVector Vector;
  TZyModelNumbers Link;
  Link.SetVector(&Vector);
  Link.Bind(&Model, 0);
  EXPECT_EQ(Model.Reads, Many);
  const double* const Storage = Vector.Values().data();
  const auto ReadsOf = [&](const std::function<void()>& Storm) {
    Model.Reads = 0;
    Storm();
    return Model.Reads;
  };
  EXPECT_EQ(ReadsOf([&] {
              for (int i = 0; i < 5000; ++i) Model.SetCells(i * 7, i * 7, 0, [&] { return QVariant(i); });
            }),
            5000);
  EXPECT_EQ(Vector.Values().data(), Storage) << "no copy";
  EXPECT_EQ(ReadsOf([&] {
              for (int i = 0; i < 5000; ++i) Model.InsertRows(Model.rowCount(), {{QVariant(i)}});
            }),
            5000);
  EXPECT_EQ(ReadsOf([&] { Model.InsertRows(10, std::vector<TTableModel::TRow>(20000, {QVariant(2)})); }), 20000);
  EXPECT_EQ(ReadsOf([&] {
              Model.MoveRows(5, 30000, 90000);
              Model.RemoveRows(100, 20000);
            }),
            0);
  EXPECT_EQ(ReadsOf([&] {
              Link.BeginUpdate();
              for (int i = 0; i < 50; ++i) Model.Reset(Cells.NextRows(10, 1));
              Link.EndUpdate();
            }),
            10)
      << "once";
  Model.Reset(Cells.NextRows(100, 1));
  emit Model.dataChanged(Model.index(0, 0), Model.MakeIndex(100, 0));  // a row more than there are
  EXPECT_EQ(Vector.Count(), 100);
  EXPECT_TRUE(AreSame(Vector.Values(), PlainColumn(Model, 0)));
}

TEST(ZyModelLinkTest, CellsAreNumbersDatesOrMissing) {
  const QDateTime Noon(QDate(1900, 1, 1), QTime(12, 0), Qt::UTC);
  const double Missing = std::numeric_limits<double>::quiet_NaN();
  struct TCase {
    QVariant Cell;
    double Number;
    std::string Text;
  };
  const TCase Cases[] = {{1.5, 1.5, "1.5"},
                         {true, 1, "true"},
                         {qulonglong{7}, 7, "7"},
                         {Noon, 2.5, "1900-01-01 12:00:00"},  // days since 30 December 1899
                         {QDate(1899, 12, 29), -1, "1899-12-29"},
                         {QTime(6, 0), 0.25, "06:00:00"},
                         {QString(" 2.25 "), 2.25, " 2.25 "},
                         {QString("1900-01-01"), 2, "1900-01-01"},
                         {QString(), Missing, ""},
                         {QDateTime(), Missing, ""},
                         {QVariant(QMetaType(QMetaType::Double)), Missing, ""},
                         {QByteArray("8"), 8, "8"}};
  TTableModel Model;
  Model.Marks = {0};
  for (const TCase& Case : Cases) Model.Rows.push_back({Case.Cell});
  TZyDoubleVector Vector;
  TStringList List;
  TZyModelNumbers Link;
  TZyModelTexts Texts;
  std::vector<std::string> Told;
  Link.SetOnError([&](TObject*, const std::string& Text) { Told.push_back(Text); });
  Link.Bind(&Model, 0);
  Link.SetVector(&Vector);
  Texts.SetList(&List);
  Texts.Bind(&Model, 0);
  for (int i = 0; i < std::ssize(Cases); ++i) {
    EXPECT_TRUE(AreSame(Vector.Values().subspan(TTableModel::At(i), 1), std::span(&Cases[i].Number, 1))) << i;
    EXPECT_EQ(List.Get(i), Cases[i].Text);
  }
  EXPECT_EQ(Link.Error(), "");
  Model.SetCells(3, 5, 0, [] { return QString("many"); });
  Model.SetCells(3, 3, 0, [] { return QVariant::fromValue(QList<int>()); });
  EXPECT_EQ(Told, (std::vector<std::string>{"Row 3, column 0: \"many\" is neither a number nor a date, nor are 2 more",
                                            "Row 3, column 0: \"QList<int>\" is neither a number nor a date"}));
  Vector.CheckMinMax();
  EXPECT_EQ(Vector.Minimum(), 1) << "the unfit ones take no part";
}

TEST(ZyModelLinkTest, AnyPartMayDieFirstAndMarkersGoWithTheirRows) {
  TSampleChart Chart;
  TZyLineSeries* const Series = Chart.AddSeries("Series", {}, {});
  auto& Values = dynamic_cast<TZyDoubleVector&>(*Series->YData());
  Series->SetXData(nullptr);
  auto Model = std::make_unique<TTableModel>();
  Model->Marks = {0};
  for (int i = 0; i < 10; ++i) Model->Rows.push_back({QVariant(i * i)});
  auto Link = std::make_unique<TZyModelNumbers>();
  auto Second = std::make_unique<TZyDoubleVector>();
  TZyModelNumbers Other;
  Other.SetVector(Second.get());
  Other.Bind(Model.get(), 0);
  Link->SetVector(&Values);
  Link->Bind(Model.get(), 0);
  Chart.Paint();
  auto* const Label = new TZyLabelWithArrowMarker(&Chart.Form);
  Label->SetParent(Chart.Graph);
  Label->SetSnapToSeriesValues(true);
  Label->SetSnappedSeries(Series);
  Label->SetSnappedIdx(4);
  Model->InsertRows(2, std::vector<TTableModel::TRow>(3, {QVariant(1)}));
  EXPECT_EQ(Label->SnappedIdx(), 7);
  Model->RemoveRows(0, 5);
  EXPECT_EQ(Label->SnappedIdx(), 2);
  // The marker's death runs foreign code in the midst of the model's signal.
  class TDeleter : public TComponent {
   public:
    std::function<void()> Do;
    ~TDeleter() override { Do(); }
  };
  auto* const Deleter = new TDeleter;
  Label->InsertComponent(Deleter);
  Deleter->Do = [&] { Link.reset(); };
  Model->RemoveRows(2, 1);
  EXPECT_EQ(Link, nullptr);
  Second.reset();
  EXPECT_EQ(Other.Vector(), nullptr);
  Model->Reverse();
  Other.SetVector(&Values);
  const int Count = Values.Count();
  Model.reset();
  EXPECT_EQ(Values.Count(), Count) << "what was read stays";
  EXPECT_EQ(Other.Error(), "The model was destroyed");
  std::unique_ptr<QThread> Thread(QThread::create([&] { Model = std::make_unique<TTableModel>(); }));
  Thread->start();
  Thread->wait();
  EXPECT_EQ(MessageOf<EInvalidOperation>([&] { Other.SetModel(Model.get()); }),
            "A model that lives in another thread cannot be followed");
}

}  // namespace
}  // namespace zy::testing
