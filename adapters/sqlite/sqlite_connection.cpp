#include "adapters/sqlite/sqlite_connection.h"

#include <algorithm>
#include <array>

#include <sqlite3.h>

#include "platform/path_text.h"
#include "platform/runtime_error.h"

namespace kavr6 {
namespace {

struct Failure {
  int code;
  int number;
  std::string_view sentence;  ///< what is the matter with the file
};

constexpr std::array kFailures{
    Failure{SQLITE_BUSY, 3260, "is in use by another program."},
    Failure{SQLITE_READONLY, kTableReadOnly, "is read-only."},
    Failure{SQLITE_NOTADB, 3343, "is not a database."},
    Failure{SQLITE_CORRUPT, 3343, "is damaged."},
    Failure{SQLITE_CANTOPEN, kTableUnreachable, "cannot be opened, or its folder cannot be written to."},
    Failure{SQLITE_FULL, 3026, "cannot grow: the disk is full."},
    Failure{SQLITE_IOERR, 3024, "cannot be read or written: the disk reports an error."},
    Failure{SQLITE_CONSTRAINT, 3022, "does not accept this row."},
};
constexpr int kMissingFile = 3024;
constexpr int kOtherFailure = 3146;

}  // namespace

SqliteConnection::SqliteConnection(const std::filesystem::path& file, Mode mode,
                                   std::chrono::milliseconds patience)
    : file_(file) {
  std::error_code ignored;
  if (mode == Mode::Existing && !std::filesystem::exists(file, ignored))
    throw RuntimeError(kMissingFile, "The file \"" + PathText(file) + "\" cannot be found.");
  sqlite3* database = nullptr;
  const int flags = SQLITE_OPEN_READWRITE | (mode == Mode::CreateNew ? SQLITE_OPEN_CREATE : 0);
  const int code = sqlite3_open_v2(PathText(file).c_str(), &database, flags, nullptr);
  database_.reset(database);
  Check(code);
  Check(sqlite3_busy_timeout(database, static_cast<int>(patience.count())));
}

void SqliteConnection::Run(const std::string& sql) const {
  Check(sqlite3_exec(database_.get(), sql.c_str(), nullptr, nullptr, nullptr));
}

void SqliteConnection::Check(int code) const {
  if (code != SQLITE_OK) Fail(code);
}

void SqliteConnection::Fail(int code) const {
  const std::string begin = "The file \"" + PathText(file_) + "\" ";
  const auto known = std::find_if(kFailures.begin(), kFailures.end(),
                                  [code](const Failure& f) { return f.code == (code & 0xFF); });
  if (known != kFailures.end()) throw RuntimeError(known->number, begin + std::string(known->sentence));
  throw RuntimeError(kOtherFailure,
                     begin + "cannot be used: " + std::string(sqlite3_errmsg(database_.get())) + ".");
}

void SqliteConnection::Close::operator()(sqlite3* database) const { sqlite3_close(database); }

SqliteStatement::SqliteStatement(const SqliteConnection& connection, const std::string& sql)
    : connection_(connection) {
  sqlite3_stmt* statement = nullptr;
  connection_.Check(sqlite3_prepare_v2(connection_.database_.get(), sql.c_str(), -1, &statement, nullptr));
  statement_.reset(statement);
}

void SqliteStatement::Bind(int parameter, const Variant& value) {
  sqlite3_stmt* const s = statement_.get();
  if (const auto* whole = std::get_if<std::int64_t>(&value)) {
    connection_.Check(sqlite3_bind_int64(s, parameter, *whole));
  } else if (const auto* number = std::get_if<double>(&value)) {
    connection_.Check(sqlite3_bind_double(s, parameter, *number));
  } else if (const auto* text = std::get_if<std::string>(&value)) {
    connection_.Check(
        sqlite3_bind_text(s, parameter, text->data(), static_cast<int>(text->size()), SQLITE_TRANSIENT));
  } else {
    connection_.Check(sqlite3_bind_null(s, parameter));
  }
}

bool SqliteStatement::Step() {
  const int code = sqlite3_step(statement_.get());
  if (code != SQLITE_ROW && code != SQLITE_DONE) connection_.Fail(code);
  return code == SQLITE_ROW;
}

Variant SqliteStatement::Column(int column) const {
  sqlite3_stmt* const s = statement_.get();
  switch (sqlite3_column_type(s, column)) {
    case SQLITE_NULL:
      return {};
    case SQLITE_INTEGER:
      return std::int64_t{sqlite3_column_int64(s, column)};
    case SQLITE_FLOAT:
      return sqlite3_column_double(s, column);
    default: {
      const auto* const bytes = static_cast<const char*>(sqlite3_column_blob(s, column));
      const auto size = static_cast<std::size_t>(sqlite3_column_bytes(s, column));
      return bytes == nullptr ? std::string() : std::string(bytes, size);
    }
  }
}

void SqliteStatement::Reset() { sqlite3_reset(statement_.get()); }

void SqliteStatement::Finalize::operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }

std::string QuotedName(std::string_view name) {
  std::string quoted = "\"";
  for (const char c : name) quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
  return quoted + '"';
}

}  // namespace kavr6
