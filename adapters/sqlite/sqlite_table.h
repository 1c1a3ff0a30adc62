// One table of a SQLite file behind the table interface.
#pragma once

#include <chrono>
#include <map>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "adapters/sqlite/sqlite_connection.h"
#include "platform/table_access.h"

namespace kavr6 {

/// Another program may read and append meanwhile: every move looks into the file anew, only the current row
/// is held in memory. Rows whose index column is empty have no place in the order and are never visited. A
/// file that is read-only opens, and only Update fails. Nothing but Update ever writes; no file is created.
class SqliteTable : public TableAccess {
 public:
  /// `patience`: how long to wait for a file that another program has locked.
  explicit SqliteTable(std::chrono::milliseconds patience = std::chrono::milliseconds(250))
      : patience_(patience) {}

  void Open(const std::filesystem::path& file, std::string_view table) override;
  void SetIndex(std::string_view column) override;
  void Seek(std::string_view key) override;
  bool NoMatch() const override { return noMatch_; }
  void MoveFirst() override;
  /// RuntimeError 3021 without a current row.
  void MoveNext() override;
  bool EndOfTable() const override { return endOfTable_; }
  Variant Read(std::string_view column) const override;
  void AddNew() override;
  void Assign(std::string_view column, const Variant& value) override;
  std::filesystem::path Update() override;

 private:
  struct Row {
    std::int64_t id = 0;
    std::vector<Variant> values;  ///< in the order of columns_
  };

  const SqliteConnection& Connection() const;
  std::size_t ColumnNumber(std::string_view name) const;
  /// The index column as SQL wants it.
  std::string IndexName() const;
  /// The first row in the order of the index for which `condition` holds.
  std::optional<Row> FirstWhere(const std::string& condition, const std::vector<Variant>& parameters) const;

  /// The statement behind FirstWhere, made once.
  SqliteStatement& SelectWhere(const std::string& condition) const;

  std::chrono::milliseconds patience_;
  std::unique_ptr<SqliteConnection> connection_;
  mutable std::map<std::string, SqliteStatement> selects_;  // of connection_, so it goes first
  std::string table_;                                       ///< quoted
  std::vector<std::string> columns_;
  std::optional<std::size_t> index_;
  std::optional<Row> row_;
  bool noMatch_ = false;
  bool endOfTable_ = false;
  std::optional<std::vector<std::pair<std::size_t, Variant>>> newRow_;
};

}  // namespace kavr6
