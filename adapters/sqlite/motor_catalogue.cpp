#include "adapters/sqlite/motor_catalogue.h"

#include <algorithm>
#include <charconv>
#include <set>

#include "adapters/sqlite/sqlite_connection.h"
#include "motor/motor_table.h"

namespace kavr6 {
namespace {

constexpr std::size_t kLongestPartNumber = 13;  // more does not travel to the drive

/// What a numeric column may hold.
struct Limits {
  std::string_view column;
  double least;
  double most;
};

constexpr std::array<Limits, 12> kLimits{{
    {"current", 0.1, 20},
    {"Torque", 0.01, 1e6},
    {"TorqueUnit", 0, 4},
    {"inertia", 1e-7, 1e7},
    {"InertiaUnit", 0, 3},
    {"harmonic gain", 0, 10000},
    {"harmonic phase", -128, 128},
    {"leadangle rps", 0, 100},
    {"leadangle deg", 0, 360},
    {"PWMmaxPct", 1, 100},
    {"R", 0.01, 1000},
    {"L", 0.01, 1000},
}};

std::vector<std::string> Fields(const std::string& line) {
  std::vector<std::string> fields{{}};
  for (const char c : line) {
    if (c == ',') {
      fields.emplace_back();
    } else {
      fields.back() += c;
    }
  }
  return fields;
}

bool AreTheColumns(const std::vector<std::string>& fields) {
  return std::equal(fields.begin(), fields.end(), kMotorColumns.begin(), kMotorColumns.end(),
                    [](const std::string& field, const MotorColumn& column) { return field == column.name; });
}

template <class T>
T NumberField(const MotorColumn& column, const std::string& field, int line) {
  T value{};
  const auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), value);
  const std::string what = "\"" + std::string(column.name) + "\" is \"" + field + "\", ";
  if (error != std::errc() || end != field.data() + field.size())
    throw CatalogueError(line, what + "not a number of its kind");
  for (const Limits& limits : kLimits) {
    if (limits.column != column.name) continue;
    const auto number = static_cast<double>(value);
    if (!(number >= limits.least && number <= limits.most)) throw CatalogueError(line, what + "out of range");
  }
  return value;
}

CatalogueRow RowOf(const std::vector<std::string>& fields, int line) {
  CatalogueRow row;
  for (std::size_t i = 0; i < kMotorColumns.size(); ++i) {
    const MotorColumn& column = kMotorColumns[i];
    switch (column.type) {
      case ColumnType::Text:
        row.emplace_back(fields[i]);
        break;
      case ColumnType::Real:
        row.emplace_back(NumberField<double>(column, fields[i], line));
        break;
      case ColumnType::Whole:
        row.emplace_back(NumberField<std::int64_t>(column, fields[i], line));
        break;
    }
  }
  return row;
}

void CheckPartNumber(const std::string& partNumber, const std::string& key, int line) {
  if (partNumber.empty() || partNumber.size() > kLongestPartNumber)
    throw CatalogueError(line, "the part number must have 1 to 13 characters");
  for (const char c : partNumber)
    if (c <= ' ' || c > '~') throw CatalogueError(line, "the part number has a blank or a special character");
  if (key != partNumber) throw CatalogueError(line, "\"PartNoX\" must repeat the part number");
}

/// SQL that makes the table and its index; `unless` says when not.
std::string CreateSql(const std::string& unless = "") {
  constexpr std::array kTypes{"TEXT", "REAL", "INTEGER"};  // by ColumnType
  std::string columns;
  for (const MotorColumn& column : kMotorColumns)
    columns += (columns.empty() ? "" : ", ") + QuotedName(column.name) + " " +
               kTypes[static_cast<std::size_t>(column.type)];
  const std::string table = QuotedName(kMotorTableName);
  return "CREATE TABLE " + unless + table + " (" + columns + "); CREATE UNIQUE INDEX " + unless +
         "\"PartNoX\" ON " + table + " (\"PartNoX\")";
}

void FillTable(const SqliteConnection& file, const std::vector<CatalogueRow>& rows) {
  std::string places = "?";
  for (std::size_t i = 1; i < kMotorColumns.size(); ++i) places += ", ?";
  SqliteStatement insert(file, "INSERT INTO " + QuotedName(kMotorTableName) + " VALUES (" + places + ")");
  for (const CatalogueRow& row : rows) {
    for (std::size_t i = 0; i < row.size(); ++i) insert.Bind(static_cast<int>(i + 1), row[i]);
    insert.Step();
    insert.Reset();
  }
}

}  // namespace

std::vector<CatalogueRow> ReadCatalogue(std::istream& text) {
  std::vector<CatalogueRow> rows;
  std::set<std::string> partNumbers;
  int number = 0;
  for (std::string line; std::getline(text, line);) {
    ++number;
    if (line.ends_with('\r')) line.pop_back();
    if (line.find('"') != std::string::npos) throw CatalogueError(number, "quotes are not allowed");
    const std::vector<std::string> fields = Fields(line);
    if (number == 1) {
      if (!AreTheColumns(fields))
        throw CatalogueError(number, "these are not the columns of the motor table");
      continue;
    }
    if (fields.size() != kMotorColumns.size())
      throw CatalogueError(number, std::to_string(fields.size()) + " values instead of " +
                                       std::to_string(kMotorColumns.size()));
    CheckPartNumber(fields[0], fields[1], number);
    if (!partNumbers.insert(fields[0]).second)
      throw CatalogueError(number, "the part number " + fields[0] + " is there twice");
    rows.push_back(RowOf(fields, number));
  }
  if (rows.empty()) throw CatalogueError(number, "the catalogue has no motor");
  return rows;
}

void WriteMotorFile(const std::vector<CatalogueRow>& rows, const std::filesystem::path& file) {
  std::filesystem::path fresh = file;
  fresh += ".new";
  std::filesystem::remove(fresh);
  {
    const SqliteConnection connection(fresh, SqliteConnection::Mode::CreateNew, std::chrono::milliseconds(0));
    connection.Run("BEGIN");
    connection.Run(CreateSql());
    FillTable(connection, rows);
    connection.Run("COMMIT");
  }
  std::filesystem::rename(fresh, file);
}

void EnsureMotorFile(const std::filesystem::path& file) {
  constexpr std::chrono::milliseconds kPatience(250);
  const SqliteConnection connection(file, SqliteConnection::Mode::CreateNew, kPatience);
  connection.Run("BEGIN IMMEDIATE; " + CreateSql("IF NOT EXISTS ") + "; COMMIT");
}

}  // namespace kavr6
