#pragma once

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QStringList>
#include <QUrl>
#include <QVariant>
#include <memory>
#include <string>

namespace zy {

/// A connection that all data sets with the same connection text share. It is made when the first statement runs, and
/// again after it was lost; it closes with the last data set that uses it. Each belongs to the thread that made it.
class TSqlConnection {
 public:
  /// The connection of this text (see TSqlDataSet). Throws EDatabaseError for a text that is no address.
  static std::shared_ptr<TSqlConnection> Share(const std::string& Text);
  /// A connection of the caller's own, for the thread that calls. A database in memory is another one for each.
  static std::unique_ptr<TSqlConnection> Own(const std::string& Text);

  TSqlConnection(const TSqlConnection&) = delete;
  TSqlConnection& operator=(const TSqlConnection&) = delete;
  ~TSqlConnection();

  /// Runs a statement, with Values for its question marks, and gives its records, to be read forwards before the next
  /// statement. Throws EDatabaseError with the reason, for a connection that is gone as well.
  QSqlQuery Run(const QString& Statement, const QVariantList& Values = {});
  /// Throws EDatabaseError when reading the records ended early.
  void CheckEnd(const QSqlQuery& Query);
  /// The open connection. Throws EDatabaseError when it cannot be opened.
  QSqlDatabase& Opened();
  /// Table name in the quotes that the database wants; a schema may stand before a point.
  QString QuotedTable(const std::string& Name);
  QString QuotedField(const QString& Name);
  /// Names of the fields of the primary key of a table in quotes; none when it has no such key or is a view.
  QStringList PrimaryKey(const QString& Table);
  /// Whether it is an embedded database, and whether one in memory, which no other connection sees.
  bool IsEmbedded() const { return FServer.isEmpty(); }
  bool IsInMemory() const { return FServer.isEmpty() && FFile.isEmpty(); }
  /// Where the database lies, without user and password, for messages.
  const std::string& Place() const { return FPlace; }

 private:
  explicit TSqlConnection(const std::string& Text);
  void TakeFile(const std::string& Path);
  void TakeServer(const std::string& Text);
  void Make();
  void SetServer();
  [[noreturn]] void Fail(const QSqlQuery& Query, const QString& Statement);

  std::string FPlace;
  QString FName;
  QString FDriver;
  QString FFile;  // of an embedded database that lies in one
  QUrl FServer;   // of the others
  QSqlDatabase FDatabase;
};

}  // namespace zy
