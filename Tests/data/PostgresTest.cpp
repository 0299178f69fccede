// Against a server that scripts/test-postgres.sh starts and names in the environment.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>

#include "data/NotingLink.h"
#include "platform/data/TDataSource.h"
#include "platform/sql/TSqlDataSet.h"

namespace zy::testing {
namespace {

class Postgres : public ::testing::Test {
 protected:
  void SetUp() override {
    const char* const Text = std::getenv("ZYPHOS_POSTGRES");
    if (Text == nullptr) GTEST_SKIP() << "No PostgreSQL server: scripts/test-postgres.sh starts one for these tests";
    Address = Text;
    Set.SetConnectionText(Address);
    Set.ExecSQL("SET client_min_messages = warning");
    Set.ExecSQL("DROP TABLE IF EXISTS \"Prices\"");
    Set.ExecSQL("CREATE TABLE \"Prices\" (day date, place text, price float8, at timestamp, PRIMARY KEY (day, place))");
    Set.ExecSQL("INSERT INTO \"Prices\" VALUES ('2024-02-29', 'a''b', 1.5), ('2024-03-01', 'c', NULL)");
    Set.SetTableName("public.Prices");
    Source.SetDataSet(&Set);
    Link.SetFieldName("price");
    Link.SetDataSource(&Source);
  }
  double Sum() {
    double Result = 0.0;
    Set.Walk([&] { Result += Link.Field()->AsFloat(); });
    return Result;
  }
  static void Server(const std::string& Command) {
    ASSERT_EQ(std::system((std::getenv("ZYPHOS_POSTGRES_CTL") + (" " + Command)).c_str()), 0);
  }

  std::string Address;
  TSqlDataSet Set;
  TDataSource Source;
  TNotingLink Link;
};

TEST_F(Postgres, ReadsEveryKindOfValue) {
  struct TCase {
    const char* Expression;
    double Number;
    const char* Text;
    TFieldType Type;
  };
  // Day numbers counted with Python: (date(2024, 2, 29) - date(1899, 12, 30)).days = 45351.
  const TCase Cases[] = {
      {"9223372036854775807", 9223372036854775808.0, "9223372036854775807", TFieldType::Integer},
      {"12.25::numeric(8, 2)", 12.25, "12.25", TFieldType::Float},
      {"0.1::real", 0.1, "0.1", TFieldType::Float},
      {"true", 1, "True", TFieldType::Boolean},
      {"'4.5 ü'::text", NAN, "4.5 ü", TFieldType::String},
      {"date '2024-02-29'", 45351, "2024-02-29", TFieldType::Date},
      {"time '18:00:00.5'", 0.75 + 0.5 / 86400, "18:00:00.500", TFieldType::Time},
      {"timestamp '2024-02-29 06:00'", 45351.25, "2024-02-29 06:00:00", TFieldType::DateTime},
      {"timestamp '2024-03-31 02:30'", 45382 + 2.5 / 24, "2024-03-31 02:30:00", TFieldType::DateTime},
      {"NULL::float8", 0, "", TFieldType::Float}};
  for (const TCase& Case : Cases) {
    SCOPED_TRACE(Case.Expression);
    Set.SetQuery(std::string("SELECT ") + Case.Expression + " AS price");
    Set.Open();
    EXPECT_EQ(Link.Field()->AsString(), Case.Text);
    EXPECT_EQ(Link.Field()->DataType(), Case.Type);
    EXPECT_TRUE(std::isnan(Case.Number) || Link.Field()->AsFloat() == Case.Number) << Link.Field()->AsFloat();
  }
}

TEST_F(Postgres, StoresRecords) {
  Set.Open();
  ASSERT_EQ(Set.RecordCount(), 2);
  Set.Edit();
  Link.Field()->SetAsFloat(2.5);
  Set.FieldByName("at").SetAsDateTime(45351.5);
  Set.Post();
  Set.Append();
  Set.FieldByName("day").SetAsDateTime(45400);
  Set.FieldByName("place").SetAsString("x'); DROP TABLE \"Prices\"; --");
  Link.Field()->SetAsFloat(4);
  Set.Post();
  Set.First();
  Set.Next();
  Set.Delete();
  for (int Pass = 0; Pass < 2; ++Pass) {  // as kept here, and as read anew
    EXPECT_EQ(Set.RecordCount(), 2);
    EXPECT_EQ(Sum(), 6.5);
    Set.First();
    EXPECT_EQ(Set.FieldByName("at").AsString(), "2024-02-29 12:00:00");
    Set.Refresh();
  }
}

TEST_F(Postgres, ALostSessionLeavesTheRecordsAndIsMadeAgain) {
  Set.Open();
  TSqlDataSet Other;  // another text, and so another session
  Other.SetConnectionText(Address + "?application_name=other");
  Other.ExecSQL(
      "SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE pid <> pg_backend_pid() AND state = 'idle'");
  const std::string Error = ErrorOf([&] { Set.Refresh(); });
  EXPECT_NE(Error.find("terminating connection"), std::string::npos) << Error;
  EXPECT_NE(Error.find("was lost"), std::string::npos) << Error;
  EXPECT_EQ(Sum(), 1.5);
  Set.Refresh();
  EXPECT_EQ(Link.Error(), "");
}

TEST_F(Postgres, AStoppedServerLeavesTheRecords) {
  Set.Open();
  Server("stop -m fast");
  const std::string Lost = ErrorOf([&] { Set.Refresh(); });
  EXPECT_NE(Lost.find("was lost"), std::string::npos) << Lost;
  const std::string Away = ErrorOf([&] { Set.Refresh(); });
  EXPECT_NE(Away.find("Cannot connect to postgresql://127.0.0.1"), std::string::npos) << Away;
  EXPECT_EQ(Link.Error(), Away);
  EXPECT_EQ(Sum(), 1.5);
  Set.Edit();
  Link.Field()->SetAsFloat(9);
  EXPECT_NE(ErrorOf([&] { Set.Post(); }), "");
  EXPECT_EQ(Set.State(), TDataSetState::Edit);
  Server("start");
  Set.Post();
  EXPECT_EQ(Sum(), 9.0);
  Set.Refresh();
  EXPECT_EQ(Link.Error(), "");
}

TEST_F(Postgres, MessagesDoNotShowThePassword) {
  TSqlDataSet Stranger;
  const std::size_t Begin = Address.find("tester:") + 7;
  std::string Wrong = Address;
  Wrong.replace(Begin, Address.find('@') - Begin, "wrong%20secret'");
  Stranger.SetConnectionText(Wrong);
  const std::string Error = ErrorOf([&] { Stranger.ExecSQL("SELECT 1"); });
  EXPECT_NE(Error.find("password authentication failed"), std::string::npos) << Error;
  EXPECT_EQ(Error.find("secret"), std::string::npos) << Error;
}

}  // namespace
}  // namespace zy::testing
