#include "platform/sql/SqlConnection.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlIndex>
#include <QUrl>
#include <QUrlQuery>
#include <atomic>
#include <map>

#include "texts/Exceptions.h"
#include "texts/ZyLocalize.h"

namespace zy {
namespace {

/// Seconds after which a server that does not answer counts as out of reach.
constexpr const char* ConnectTimeout = "connect_timeout=10";

std::map<std::string, std::weak_ptr<TSqlConnection>>& Connections() {
  static std::map<std::string, std::weak_ptr<TSqlConnection>> Result;
  return Result;
}

template <class... TArgs>
[[noreturn]] void Raise(TZyText Text, const TArgs&... Args) {
  throw EDatabaseError(Format(LoadResString(Text), {Args...}));
}

/// A text for a message: in one line, and not too long.
std::string Shown(const QString& Text) { return Text.simplified().left(300).toStdString(); }

}  // namespace

std::shared_ptr<TSqlConnection> TSqlConnection::Share(const std::string& Text) {
  std::erase_if(Connections(), [](const auto& Entry) { return Entry.second.expired(); });
  std::weak_ptr<TSqlConnection>& Known = Connections()[Text];
  std::shared_ptr<TSqlConnection> Result = Known.lock();
  if (Result == nullptr) {
    Result.reset(new TSqlConnection(Text));
    Known = Result;
  }
  return Result;
}

std::unique_ptr<TSqlConnection> TSqlConnection::Own(const std::string& Text) {
  return std::unique_ptr<TSqlConnection>(new TSqlConnection(Text));
}

TSqlConnection::TSqlConnection(const std::string& Text) {
  static std::atomic<int> Count = 0;
  FName = QStringLiteral("zyphos %1").arg(++Count);
  const std::size_t Mark = Text.find(':');
  const std::string Scheme = Mark == std::string::npos ? std::string() : Text.substr(0, Mark);
  const bool IsUrl = Mark != std::string::npos && Text.compare(Mark, 3, "://") == 0;
  if (IsUrl && (Scheme == "postgresql" || Scheme == "postgres")) {
    TakeServer(Text);
  } else if (IsUrl) {
    Raise(_sDatabaseKind, Scheme);
  } else {
    TakeFile(Scheme == "sqlite" ? Text.substr(Mark + 1) : Text);
  }
}

TSqlConnection::~TSqlConnection() {
  if (!FDatabase.isValid()) return;
  FDatabase = QSqlDatabase();
  QSqlDatabase::removeDatabase(FName);
}

void TSqlConnection::TakeFile(const std::string& Path) {
  FDriver = QStringLiteral("QSQLITE");
  const bool InMemory = Path.empty() || Path == ":memory:";
  FPlace = InMemory ? ":memory:" : Path;
  if (!InMemory) FFile = QString::fromStdString(Path);
}

void TSqlConnection::TakeServer(const std::string& Text) {
  FDriver = QStringLiteral("QPSQL");
  FServer = QUrl(QString::fromStdString(Text), QUrl::StrictMode);
  if (!FServer.isValid()) Raise(_sDatabaseAddress, "postgresql://");
  FPlace = FServer.toString(QUrl::RemoveUserInfo | QUrl::RemoveQuery | QUrl::RemoveFragment).toStdString();
}

/// Makes the toolkit's connection object. Not before it is needed: a data set may be older than the application object.
void TSqlConnection::Make() {
  if (QCoreApplication::instance() == nullptr) Raise(_sDatabaseNoApplication, FPlace);
  if (!QSqlDatabase::isDriverAvailable(FDriver)) Raise(_sDatabaseNoDriver, FDriver.toStdString(), FPlace);
  FDatabase = QSqlDatabase::addDatabase(FDriver, FName);
  if (FServer.isEmpty()) {
    FDatabase.setDatabaseName(FFile.isEmpty() ? QStringLiteral(":memory:") : FFile);
  } else {
    SetServer();
  }
}

void TSqlConnection::SetServer() {
  FDatabase.setHostName(FServer.host(QUrl::FullyDecoded));
  FDatabase.setPort(FServer.port(-1));
  FDatabase.setDatabaseName(FServer.path(QUrl::FullyDecoded).mid(1));
  FDatabase.setUserName(FServer.userName(QUrl::FullyDecoded));
  FDatabase.setPassword(FServer.password(QUrl::FullyDecoded));
  QStringList Options;
  for (const auto& [Key, Value] : QUrlQuery(FServer).queryItems(QUrl::FullyDecoded)) {
    QString Quoted = Value;
    Quoted.replace('\\', "\\\\").replace('\'', "\\'");
    Options += QStringLiteral("%1='%2'").arg(Key, Quoted);
  }
  if (!FServer.query().contains("connect_timeout=")) Options += ConnectTimeout;
  FDatabase.setConnectOptions(Options.join(';'));
}

QSqlDatabase& TSqlConnection::Opened() {
  if (FDatabase.isOpen()) return FDatabase;
  if (!FDatabase.isValid()) Make();
  // The driver would make an empty one, and the wrong name would pass for a missing table.
  if (!FFile.isEmpty() && !QFileInfo::exists(FFile)) Raise(_sDatabaseNoFile, FPlace);
  if (!FDatabase.open()) Raise(_sDatabaseConnect, FPlace, Shown(FDatabase.lastError().text()));
  return FDatabase;
}

QSqlQuery TSqlConnection::Run(const QString& Statement, const QVariantList& Values) {
  QSqlQuery Query(Opened());
  Query.setForwardOnly(true);  // no second copy of the records in the driver
  if (Values.isEmpty()) {
    if (!Query.exec(Statement)) Fail(Query, Statement);
    return Query;
  }
  if (!Query.prepare(Statement)) Fail(Query, Statement);
  for (const QVariant& Value : Values) Query.addBindValue(Value);
  if (!Query.exec()) Fail(Query, Statement);
  return Query;
}

void TSqlConnection::CheckEnd(const QSqlQuery& Query) {
  if (Query.lastError().isValid()) Fail(Query, Query.lastQuery());
}

void TSqlConnection::Fail(const QSqlQuery& Query, const QString& Statement) {
  const std::string Reason = Shown(Query.lastError().text());
  // A server that goes says so in a last message (codes 08 and 57P), or the driver finds the connection gone.
  const QString Code = Query.lastError().nativeErrorCode();
  const bool Lost = !FDatabase.isOpen() || (!FServer.isEmpty() && (Code.startsWith("08") || Code.startsWith("57P")));
  if (!Lost) Raise(_sDatabaseStatement, FPlace, Shown(Statement), Reason);
  FDatabase.close();  // the next statement tries to make it again
  Raise(_sDatabaseLost, FPlace, Reason);
}

QStringList TSqlConnection::PrimaryKey(const QString& Table) {
  // The driver gives no reason when it finds no key because the connection is gone.
  if (!FServer.isEmpty()) Run("SELECT 1");
  const QSqlIndex Key = Opened().primaryIndex(Table);
  QStringList Result;
  for (int i = 0; i < Key.count(); ++i) Result += Key.fieldName(i);
  return Result;
}

QString TSqlConnection::QuotedTable(const std::string& Name) {
  return Opened().driver()->escapeIdentifier(QString::fromStdString(Name), QSqlDriver::TableName);
}

QString TSqlConnection::QuotedField(const QString& Name) {
  return Opened().driver()->escapeIdentifier(Name, QSqlDriver::FieldName);
}

}  // namespace zy
