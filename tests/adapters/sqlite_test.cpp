#include <QTemporaryDir>
#include <fstream>
#include <optional>
#include <sstream>

#include <gtest/gtest.h>
#ifndef _WIN32
#include <unistd.h>
#endif

#include "adapters/sqlite/motor_catalogue.h"
#include "adapters/sqlite/motor_tables.h"
#include "motor/motor_table.h"
#include "platform/path_text.h"
#include "platform/runtime_error.h"

namespace kavr6 {
namespace {

using std::chrono::milliseconds;

/// `work` must end in an error whose number and text hold these words.
void ExpectProblem(const std::string& words, const std::function<void()>& work) {
  std::string problem = "none";
  try {
    work();
  } catch (const RuntimeError& error) {
    problem = std::to_string(error.Number()) + ": " + error.what();
  } catch (const CatalogueError& error) {
    problem = error.what();
  }
  EXPECT_NE(problem.find(words), std::string::npos) << problem << "\nshould say: " << words;
}

/// An empty motor file, and another program that has it open.
struct Bench {
  QTemporaryDir temporary;
  std::filesystem::path folder = temporary.path().toStdString();
  std::filesystem::path file = folder / kMotorFile;
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
  void Open() { motors.Open(folder); }
  /// Before the program opens it: some systems keep a file that is open.
  void RemoveFile() {
    other.reset();
    std::filesystem::remove(file);
  }
  /// What the reason says for a motor that the table does not take.
  std::string Append(const std::string& name) {
    return motors.Append({.MotorName = name}).refusal.value_or("added");
  }
  /// The rows of the file, without those that are only kept.
  std::string Order() {
    std::string names;
    for (const MotorRow& row : MotorTable(access).Overview()) names += row.PartNumber + " ";
    return names;
  }
};

TEST(SqliteTable, FileThatIsNoMotorTableIsToldInPlainWords) {
  const std::string create = "CREATE TABLE \"motor params\" ";
  const std::pair<std::string, const char*> cases[] = {
      {create + "(a TEXT)", "\"PartNoX\""},
      {create + "(PartNoX TEXT); INSERT INTO \"motor params\" VALUES ('KM17')", "\"part number\""}};
  for (const auto& [sql, words] : cases) {
    Bench bench;
    bench.RemoveFile();
    SqliteConnection(bench.file, SqliteConnection::Mode::CreateNew, milliseconds(0)).Run(sql);
    ExpectProblem(words, [&] { bench.Open(); });
  }
  Bench bench;
  bench.RemoveFile();
  ExpectProblem("3024: ", [&] { bench.Open(); });
  EXPECT_FALSE(std::filesystem::exists(bench.file)) << "opening has made a file";
  std::ofstream(bench.file) << std::string(5000, 'x');
  ExpectProblem("not a database", [&] { bench.Open(); });
}

TEST(SqliteTable, RowsComeInPlainCharacterOrderAndSeekIsExact) {
  Bench bench;
  for (const char* name : {"b", "KM9", "\xC3\xA9", "KM17", "B", "KM10", "KM17x"}) bench.Insert(name);
  bench.other->Run("INSERT INTO \"motor params\" (\"part number\") VALUES ('nameless')");
  bench.other->Run("DROP INDEX PartNoX");
  bench.other->Run("INSERT INTO \"motor params\" (\"part number\", PartNoX) VALUES ('twin', 'KM17')");
  bench.Open();
  EXPECT_EQ(bench.Order(), "B KM10 KM17 twin KM17x KM9 b \xC3\xA9 ");
  EXPECT_TRUE(bench.motors.Seek("KM17"));
  for (const char* missing : {"km17", "KM1", "KM17 ", "", "nameless", "' OR 1"}) {
    EXPECT_FALSE(bench.motors.Seek(missing)) << missing;
    EXPECT_EQ(bench.motors.Row().PartNumber, "KM17") << "the cursor has left its row";
  }
}

TEST(SqliteTable, ReadingTellsWhatIsMissing) {
  Bench bench;
  bench.Open();
  ExpectProblem("3021: ", [&] { bench.motors.Row(); });
  bench.Insert("KM17");
  bench.motors.MoveFirst();
  EXPECT_EQ(bench.motors.Row(), (MotorRow{.PartNumber = "KM17", .PartNoX = "KM17", .Current = 1.5}));
  ExpectProblem("94: ", [&] { Needed(bench.motors.Row().R); });
  ExpectProblem("3265: ", [&] { bench.access.Read("voltage"); });
  bench.other->Run("UPDATE \"motor params\" SET Torque = 'much'");
  bench.motors.MoveFirst();
  ExpectProblem("13: ", [&] { bench.motors.Row(); });
}

TEST(SqliteTable, AppendKeepsTheCursorAndIsThereForEverybody) {
  Bench bench;
  bench.Insert("KM17");
  bench.Open();
  bench.motors.Seek("KM17");
  bench.Append("KM23");
  EXPECT_EQ(bench.motors.Row().PartNoX, "KM17");
  bench.Insert("KM22");  // by the other program
  bench.access.MoveNext();
  EXPECT_EQ(bench.access.Read("PartNoX"), Variant("KM22"));
  bench.Append("KM99 \"'; DROP");
  bench.Open();
  EXPECT_EQ(bench.Order(), "KM17 KM22 KM23 KM99 \"'; DROP ");
}

TEST(SqliteTable, LockedFileIsToldAndLeftAsItWas) {
  Bench bench;
  bench.Insert("KM17");
  bench.other->Run("BEGIN EXCLUSIVE");
  ExpectProblem("in use by another program", [&] { bench.Open(); });
  bench.other->Run("COMMIT");
  bench.Open();
  bench.other->Run("BEGIN IMMEDIATE");
  EXPECT_EQ(bench.Append("KM22"), "The file \"" + PathText(bench.file) + "\" is in use by another program.");
  EXPECT_EQ(bench.Order(), "KM17 ") << "another program's write must not stop reading";
  bench.other->Run("COMMIT");
  bench.Append("KM23");
  EXPECT_EQ(bench.Order(), "KM17 KM23 ");
}

/// The motors that a program sees, its catalogue in `folder`. "+NAME": it has appended that one.
std::string SeenFrom(const std::filesystem::path& folder, const std::filesystem::path& own, bool installed,
                     const std::string& missing) {
  MotorTables tables(own, installed);
  MotorTable motors(tables.Both());
  motors.Open(folder);
  std::string seen;
  if (!missing.empty() && !motors.Seek(missing))
    seen = "+" + motors.Append({.MotorName = missing}).refusal.value_or(missing) + ": ";
  for (const MotorRow& row : motors.Overview()) seen += row.PartNumber + " ";
  return seen;
}

#ifndef _WIN32
TEST(SqliteTable, ReadOnlyFileIsReadAndOnlyTheAppendFails) {
  using std::filesystem::perms;
  Bench bench;
  bench.Insert("KM17");
  std::filesystem::permissions(bench.folder, static_cast<perms>(0755));
  std::filesystem::permissions(bench.file, static_cast<perms>(0444));
  // Root may write everywhere, so it works as an ordinary user here.
  const uid_t user = geteuid();
  ASSERT_EQ(seteuid(user == 0 ? 65534 : user), 0);
  bench.Open();
  EXPECT_EQ(bench.Append("KM23"), "The file \"" + PathText(bench.file) + "\" is read-only.");
  EXPECT_EQ(bench.Order(), "KM17 ");
  const QTemporaryDir home;
  EXPECT_EQ(SeenFrom(bench.folder, home.path().toStdString(), false, "KM23"), "+KM23: KM17 KM23 ");
  ASSERT_EQ(seteuid(user), 0);
  // The file may be written to, and no journal made beside it.
  std::filesystem::permissions(bench.file, static_cast<perms>(0666));
  std::filesystem::permissions(bench.folder, static_cast<perms>(0555));
  ASSERT_EQ(seteuid(user == 0 ? 65534 : user), 0);
  EXPECT_EQ(SeenFrom(bench.folder, home.path().toStdString(), false, "KM24"), "+KM24: KM17 KM23 KM24 ");
  ASSERT_EQ(seteuid(user), 0);
  std::filesystem::permissions(bench.folder, static_cast<perms>(0755));
}
#endif

TEST(MotorTables, OwnMotorsOutliveTheCatalogueThatTheyWereAddedTo) {
  Bench bench;
  bench.Insert("KM17");
  const std::filesystem::path own = bench.folder / "home" / "share";
  EXPECT_EQ(SeenFrom(bench.folder, own, true, ""), "KM17 ");
  EXPECT_FALSE(std::filesystem::exists(own)) << "made before there was a need";
  EXPECT_EQ(SeenFrom(bench.folder, own, true, "KM16"), "+KM16: KM16 KM17 ");
  EXPECT_EQ(SeenFrom(bench.folder, own, true, "KM99"), "+KM99: KM16 KM17 KM99 ");
  EXPECT_EQ(SeenFrom(bench.folder, bench.folder / "nobody", true, ""), "KM17 ")
      << "the installed file has been written to";

  bench.RemoveFile();  // the next version knows one of them, and one more
  WriteMotorFile({}, bench.file);
  bench.other.emplace(bench.file, SqliteConnection::Mode::Existing, milliseconds(0));
  for (const char* name : {"KM16", "KM17", "KM18"}) bench.Insert(name);
  EXPECT_EQ(SeenFrom(bench.folder, own, true, "KM16"), "KM16 KM17 KM18 KM99 ");
  EXPECT_EQ(SeenFrom(bench.folder, own, false, "KM20"), "+KM20: KM16 KM17 KM18 KM20 KM99 ");
  bench.Open();
  EXPECT_EQ(bench.Order(), "KM16 KM17 KM18 KM20 ");

  EXPECT_EQ(SeenFrom(bench.folder, bench.folder, true, "KM30"), "+KM30: KM16 KM17 KM18 KM20 KM30 ");
  bench.Open();
  EXPECT_EQ(bench.Order(), "KM16 KM17 KM18 KM20 ") << "the user's folder is that of the program";

  bench.other->Run("BEGIN IMMEDIATE");
  EXPECT_EQ(SeenFrom(bench.folder, own, false, "KM21"),
            "+The file \"" + PathText(bench.file) +
                "\" is in use by another program.: KM16 KM17 KM18 KM20 KM21 KM99 ");
  bench.other->Run("COMMIT");
  EXPECT_EQ(SeenFrom(bench.folder, own, false, ""), "KM16 KM17 KM18 KM20 KM99 ") << "added to the own ones";

  std::ofstream(own / kOwnMotorFile) << std::string(5000, 'x');
  EXPECT_EQ(
      SeenFrom(bench.folder, own, true, "KM99"),
      "+The file \"" + PathText(own / kOwnMotorFile) + "\" is not a database.: KM16 KM17 KM18 KM20 KM99 ");
}

std::string ContentOf(const std::filesystem::path& file) {
  std::ostringstream content;
  content << std::ifstream(file, std::ios::binary).rdbuf();
  return content.str();
}

TEST(MotorTables, OwnFileIsLeftOutWhereAnyOfItIsDamagedAndReadWhereItIsOlder) {
  Bench bench;
  bench.Insert("KM17");
  Bench own;
  for (int i = 100; i < 400; ++i) own.Insert("OWN-" + std::to_string(i));
  own.other->Run("ALTER TABLE \"motor params\" DROP COLUMN R");
  own.other.reset();
  std::filesystem::rename(own.file, own.folder / kOwnMotorFile);
  own.file = own.folder / kOwnMotorFile;
  MotorTables older(own.folder, true);
  MotorTable motors(older.Both());
  motors.Open(bench.folder);
  EXPECT_EQ(motors.LeftOut(), "");
  EXPECT_EQ(motors.Overview().size(), 301U);
  ASSERT_TRUE(motors.Seek("OWN-399"));
  EXPECT_EQ(motors.Row().Current, 1.5);
  EXPECT_EQ(motors.Row().R, std::nullopt);

  std::fstream file(own.file, std::ios::in | std::ios::out | std::ios::binary);
  file.seekp(3 * 4096);  // the fourth page
  file << std::string(4096, 'x') << std::flush;
  const std::string content = ContentOf(own.file);
  EXPECT_EQ(SeenFrom(bench.folder, own.folder, true, "KM99"),
            "+The file \"" + PathText(own.file) + "\" is damaged.: KM17 KM99 ");
  EXPECT_TRUE(motors.Append({.MotorName = "KM98"}).refusal);
  EXPECT_EQ(std::get<std::string>(older.Both().Read("PartNoX")), "OWN-399");
  EXPECT_EQ(ContentOf(own.file), content);

#ifndef _WIN32  // which keeps what a program has open
  std::filesystem::remove(own.file);
  EXPECT_EQ(motors.Append({.MotorName = "KM98"}).elsewhere, own.file);
  EXPECT_EQ(SeenFrom(bench.folder, own.folder, true, ""), "KM17 KM98 ");
#endif

  bench.other->Run("ALTER TABLE \"motor params\" DROP COLUMN R");
  ExpectProblem("3265: ", [&] { SeenFrom(bench.folder, own.folder, true, ""); });
}

TEST(MotorCatalogue, BadLineIsNamedWithItsReason) {
  std::string names = "part number";
  for (std::size_t i = 1; i < kMotorColumns.size(); ++i) names += "," + std::string(kMotorColumns[i].name);
  const std::string good = "KM1,KM1,1.5,60,0,57,1,700,-4,30,120,85,2.1,3.2,x\n";
  const std::pair<const char*, const char*> cases[] = {
      {"KM1,KM1,1.5,60,0,57,1,0,0,30,120,85,2,3,x", "the part number KM1 is there twice"},
      {"KM2,KM2,1.5A,60,0,57,1,0,0,30,120,85,2,3,x", "\"current\" is \"1.5A\", not a number of its kind"},
      {"KM2,KM2,1.5,60,5,57,1,0,0,30,120,85,2,3,x", "\"TorqueUnit\" is \"5\", out of range"}};
  for (const auto& [line, reason] : cases) {
    std::istringstream text(names + "\r\n" + good + line + "\n");
    ExpectProblem("line 3: " + std::string(reason), [&] { ReadCatalogue(text); });
  }
}

TEST(MotorCatalogue, ShippedMotorsHoldTogether) {
  Bench bench;
  std::ifstream text(KAVR6_MOTORS_CSV);
  const std::vector<CatalogueRow> rows = ReadCatalogue(text);
  bench.other.reset();
  WriteMotorFile(rows, bench.file);  // in the place of the empty one
  bench.Open();
  for (std::size_t i = 0; i < rows.size(); ++i, bench.access.MoveNext()) {
    EXPECT_EQ(bench.access.Read("PartNoX"), bench.access.Read("part number"));
    EXPECT_TRUE(std::holds_alternative<double>(bench.access.Read("Torque"))) << "also a whole number";
    EXPECT_TRUE(std::holds_alternative<std::int64_t>(bench.access.Read("harmonic gain")));
  }
  EXPECT_TRUE(bench.access.EndOfTable());
}

}  // namespace
}  // namespace kavr6
