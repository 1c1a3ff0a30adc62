// A SQLite database file and its statements. Every failure is a RuntimeError with a plain sentence that names
// the file.
#pragma once

#include <chrono>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "platform/table_access.h"

struct sqlite3;
struct sqlite3_stmt;

namespace kavr6 {

class SqliteConnection;

/// One statement; parameters and columns count from 1 and 0, as in SQL.
class SqliteStatement {
 public:
  SqliteStatement(const SqliteConnection& connection, const std::string& sql);

  void Bind(int parameter, const Variant& value);
  /// Fetches the next row; false when there is none.
  bool Step();
  Variant Column(int column) const;
  /// Makes the statement ready for new parameters and another run.
  void Reset();

 private:
  struct Finalize {
    void operator()(sqlite3_stmt* statement) const;
  };
  const SqliteConnection& connection_;
  std::unique_ptr<sqlite3_stmt, Finalize> statement_;
};

class SqliteConnection {
 public:
  enum class Mode { Existing, CreateNew };

  /// Opens a file that exists, for reading alone where it cannot be written; CreateNew makes one. While
  /// another program has the file locked, each statement tries again for the time of `patience`.
  SqliteConnection(const std::filesystem::path& file, Mode mode, std::chrono::milliseconds patience);

  void Run(const std::string& sql) const;

 private:
  friend class SqliteStatement;
  struct Close {
    void operator()(sqlite3* database) const;
  };
  [[noreturn]] void Fail(int code) const;
  void Check(int code) const;

  std::filesystem::path file_;
  std::unique_ptr<sqlite3, Close> database_;
};

/// A name of a table or column as SQL wants it.
std::string QuotedName(std::string_view name);

}  // namespace kavr6
