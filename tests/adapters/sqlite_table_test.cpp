#include "adapters/sqlite/sqlite_table.h"

#include <fstream>
#include <optional>

#include <gtest/gtest.h>
#include <unistd.h>

#include "adapters/sqlite/motor_catalogue.h"
#include "motor/motor_table.h"
#include "platform/runtime_error.h"
#include "tests/support/temp_folder.h"

namespace kavr6 {
namespace {

using std::chrono::milliseconds;

std::string ProblemOf(const std::function<void()>& work) {
  try {
    work();
  } catch (const RuntimeError& error) {
    return std::to_string(error.Number()) + ": " + error.what();
  }
  return "none";
}

void ExpectWords(const std::string& problem, const std::string& words) {
  EXPECT_NE(problem.find(words), std::string::npos) << problem << "\nshould say: " << words;
}

std::string OpenProblem(const std::filesystem::path& folder) {
  SqliteTable access(milliseconds(0));
  return ProblemOf([&] { MotorTable(access).Open(folder); });
}

/// An empty motor file, and another program that has it open.
struct Bench {
  TempFolder folder;
  std::filesystem::path file = folder.Path() / kMotorFile;
  std::optional<SqliteConnection> other;
  SqliteTable access{milliseconds(0)};
  MotorTable motors{access};

  Bench() {
    WriteMotorFile({}, file);
    other.emplace(file, SqliteConnection::Mode::Existing, milliseconds(0));
    other->Run("PRAGMA synchronous = OFF");
  }
  void Insert(const std::string& name) const {
    other->Run("INSERT INTO \"motor params\" (\"part number\", PartNoX, current) VALUES ('" + name + "', '" +
               name + "', 1.5)");
  }
  void Open() { motors.Open(folder.Path()); }
  void Append(const std::string& name) { motors.Append({.MotorName = name}); }
  std::string Order() {
    std::string names;
    for (motors.MoveFirst(); !motors.EndOfTable(); motors.MoveNext())
      names += motors.Text("Part Number") + " ";
    return names;
  }
};

TEST(SqliteTable, FileThatIsNoMotorTableIsToldInPlainWords) {
  const std::string create = "CREATE TABLE \"motor params\" ";
  const std::pair<std::string, const char*> cases[] = {
      {"CREATE TABLE motors (PartNoX TEXT)", "no table"},
      {"CREATE VIEW \"motor params\" AS SELECT 1 AS PartNoX", "no table"},
      {create + "(a TEXT)", "\"PartNoX\""},
      {create + "(PartNoX TEXT); INSERT INTO \"motor params\" VALUES ('KM17')", "\"part number\""}};
  for (const auto& [sql, words] : cases) {
    const TempFolder folder;
    SqliteConnection(folder.Path() / kMotorFile, SqliteConnection::Mode::CreateNew, milliseconds(0)).Run(sql);
    ExpectWords(OpenProblem(folder.Path()), words);
  }
  const TempFolder folder;
  ExpectWords(OpenProblem(folder.Path()), "3024: ");
  EXPECT_TRUE(std::filesystem::is_empty(folder.Path())) << "opening has made a file";
  std::ofstream(folder.Path() / kMotorFile).close();
  ExpectWords(OpenProblem(folder.Path()), "no table");
  std::ofstream(folder.Path() / kMotorFile) << std::string(5000, 'x');
  ExpectWords(OpenProblem(folder.Path()), "not a database");
  std::filesystem::remove(folder.Path() / kMotorFile);
  std::filesystem::create_directory(folder.Path() / kMotorFile);
  ExpectWords(OpenProblem(folder.Path()), "cannot be opened");
}

TEST(SqliteTable, DamagedPagesAreAnErrorAndNoMotors) {
  Bench bench;
  for (int i = 0; i < 100; ++i) bench.Insert("KM" + std::to_string(i));
  const auto size = std::filesystem::file_size(bench.file);
  std::fstream bytes(bench.file, std::ios::in | std::ios::out | std::ios::binary);
  bytes.seekp(4096) << std::string(size - 4096, '\xA5');
  bytes.close();
  ExpectWords(ProblemOf([&] { bench.Open(); }), "is damaged");
}

TEST(SqliteTable, RowsComeInPlainCharacterOrderAndSeekIsExact) {
  Bench bench;
  for (const char* name : {"b", "KM9", "\xC3\xA9", "KM17", "B", "KM10", "KM17x"}) bench.Insert(name);
  bench.other->Run("INSERT INTO \"motor params\" (\"part number\") VALUES ('nameless')");
  bench.other->Run("DROP INDEX PartNoX");
  bench.other->Run("INSERT INTO \"motor params\" (\"part number\", PartNoX) VALUES ('twin', 'KM17')");
  bench.Open();
  EXPECT_EQ(bench.Order(), "B KM10 KM17 twin KM17x KM9 b \xC3\xA9 ");
  ExpectWords(ProblemOf([&] { bench.motors.MoveNext(); }), "3021: ");
  EXPECT_TRUE(bench.motors.Seek("KM17"));
  EXPECT_FALSE(bench.motors.EndOfTable());
  EXPECT_EQ(bench.motors.Text("PART NUMBER"), "KM17");
  for (const char* missing : {"km17", "KM1", "KM17 ", "", "nameless", "' OR 1"}) {
    EXPECT_FALSE(bench.motors.Seek(missing)) << missing;
    EXPECT_EQ(bench.motors.Text("PartNoX"), "KM17") << "the cursor has left its row";
  }
}

TEST(SqliteTable, ReadingTellsWhatIsMissing) {
  Bench bench;
  bench.Open();
  EXPECT_EQ(bench.Order(), "");
  ExpectWords(ProblemOf([&] { bench.motors.Number("current"); }), "3021: ");
  bench.Insert("KM17");
  bench.motors.MoveFirst();
  EXPECT_EQ(bench.motors.Number("CURRENT"), 1.5);
  EXPECT_TRUE(bench.motors.IsEmpty("r"));
  ExpectWords(ProblemOf([&] { bench.motors.Number("R"); }), "94: ");
  ExpectWords(ProblemOf([&] { bench.motors.Number("PartNoX"); }), "13: ");
  ExpectWords(ProblemOf([&] { bench.motors.Number("voltage"); }), "3265: ");
}

TEST(SqliteTable, AppendKeepsTheCursorAndIsThereForEverybody) {
  Bench bench;
  bench.Insert("KM17");
  bench.Insert("KM34");
  bench.Open();
  bench.motors.Seek("KM17");
  bench.Append("KM23");
  EXPECT_EQ(bench.motors.Text("PartNoX"), "KM17");
  bench.motors.MoveNext();
  EXPECT_EQ(bench.motors.Text("PartNoX"), "KM23");
  bench.Insert("KM24");  // by the other program
  bench.motors.MoveNext();
  EXPECT_EQ(bench.motors.Text("PartNoX"), "KM24");
  bench.Append("KM99 \"'; DROP");
  bench.Open();
  EXPECT_EQ(bench.Order(), "KM17 KM23 KM24 KM34 KM99 \"'; DROP ");
}

TEST(SqliteTable, LockedFileIsToldAndLeftAsItWas) {
  Bench bench;
  bench.Insert("KM17");
  bench.other->Run("BEGIN EXCLUSIVE");
  ExpectWords(ProblemOf([&] { bench.Open(); }), "in use by another program");
  bench.other->Run("COMMIT");
  bench.Open();
  bench.other->Run("BEGIN IMMEDIATE");
  EXPECT_EQ(bench.Order(), "KM17 ") << "another program's write must not stop reading";
  ExpectWords(ProblemOf([&] { bench.Append("KM22"); }), "in use by another program");
  bench.other->Run("COMMIT");
  bench.Append("KM23");
  EXPECT_EQ(bench.Order(), "KM17 KM23 ");
}

/// Root may write everywhere: a test that runs as root does its work as an ordinary user.
void AsOrdinaryUser(const std::function<void()>& work) {
  const bool root = geteuid() == 0;
  ASSERT_EQ(seteuid(root ? 65534 : geteuid()), 0);
  work();
  ASSERT_EQ(seteuid(root ? 0 : geteuid()), 0);
}

TEST(SqliteTable, ReadOnlyFileIsReadAndOnlyTheAppendFails) {
  using std::filesystem::perms;
  Bench bench;
  bench.Insert("KM17");
  std::filesystem::permissions(bench.folder.Path(), static_cast<perms>(0755));
  std::filesystem::permissions(bench.file, static_cast<perms>(0444));
  AsOrdinaryUser([&] {
    bench.Open();
    ExpectWords(ProblemOf([&] { bench.Append("KM23"); }), "3027: ");
    EXPECT_EQ(bench.Order(), "KM17 ");
  });
}

}  // namespace
}  // namespace kavr6
