#include "adapters/sqlite/sqlite_table.h"

#include <algorithm>

#include "platform/path_text.h"
#include "platform/runtime_error.h"

namespace kavr6 {
namespace {

constexpr int kNoTable = 3078;

bool SameName(std::string_view a, std::string_view b) {
  const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [&](char x, char y) { return lower(x) == lower(y); });
}

}  // namespace

void SqliteTable::Open(const std::filesystem::path& file, std::string_view table) {
  auto connection = std::make_unique<SqliteConnection>(file, SqliteConnection::Mode::Existing, patience_);
  std::vector<std::string> columns;
  {
    SqliteStatement names(*connection,
                          "SELECT name FROM pragma_table_info(?1) WHERE EXISTS (SELECT 1 FROM sqlite_master "
                          "WHERE type = 'table' AND name = ?1 COLLATE NOCASE)");
    names.Bind(1, std::string(table));
    while (names.Step()) columns.push_back(std::get<std::string>(names.Column(0)));
  }
  if (columns.empty())
    throw RuntimeError(
        kNoTable, "The file \"" + PathText(file) + "\" has no table named \"" + std::string(table) + "\".");
  selects_.clear();
  connection_ = std::move(connection);
  table_ = QuotedName(table);
  columns_ = std::move(columns);
  index_.reset();
  row_.reset();
  newRow_.reset();
  noMatch_ = false;
  endOfTable_ = false;
}

void SqliteTable::SetIndex(std::string_view column) { index_ = ColumnNumber(column); }

void SqliteTable::Seek(std::string_view key) {
  auto found = FirstWhere(IndexName() + " = ?1", {std::string(key)});
  noMatch_ = !found;
  if (noMatch_) return;
  row_ = std::move(found);
  endOfTable_ = false;
}

void SqliteTable::MoveFirst() {
  row_ = FirstWhere(IndexName() + " IS NOT NULL", {});
  endOfTable_ = !row_;
}

void SqliteTable::MoveNext() {
  if (!row_) RaiseNoRecord();
  // The first half of the condition lets the engine go straight to the place; the second alone would not.
  row_ = FirstWhere(IndexName() + " >= ?1 AND (" + IndexName() + ", rowid) > (?1, ?2)",
                    {row_->values[*index_], row_->id});
  endOfTable_ = !row_;
}

Variant SqliteTable::Read(std::string_view column) const {
  if (!row_) RaiseNoRecord();
  return row_->values[ColumnNumber(column)];
}

void SqliteTable::AddNew() { newRow_.emplace(); }

void SqliteTable::Assign(std::string_view column, const Variant& value) {
  if (!newRow_) RaiseInvalidCall();
  newRow_->emplace_back(ColumnNumber(column), value);
}

std::filesystem::path SqliteTable::Update() {
  if (!newRow_) RaiseInvalidCall();
  const auto newRow = *std::exchange(newRow_, std::nullopt);
  std::string names;
  std::string places;
  for (std::size_t i = 0; i < newRow.size(); ++i) {
    names += (i > 0 ? ", " : "") + QuotedName(columns_[newRow[i].first]);
    places += (i > 0 ? ", ?" : "?") + std::to_string(i + 1);
  }
  // A statement of its own is one transaction.
  SqliteStatement insert(Connection(), "INSERT INTO " + table_ + " (" + names + ") VALUES (" + places + ")");
  for (std::size_t i = 0; i < newRow.size(); ++i) insert.Bind(static_cast<int>(i + 1), newRow[i].second);
  insert.Step();
  return {};
}

const SqliteConnection& SqliteTable::Connection() const {
  if (!connection_) RaiseInvalidCall();
  return *connection_;
}

std::size_t SqliteTable::ColumnNumber(std::string_view name) const {
  auto found = std::find(columns_.begin(), columns_.end(), name);
  if (found == columns_.end())
    found = std::find_if(columns_.begin(), columns_.end(),
                         [name](const std::string& column) { return SameName(column, name); });
  if (found == columns_.end())
    throw RuntimeError(kNoColumn, "The table has no column named \"" + std::string(name) + "\".");
  return static_cast<std::size_t>(found - columns_.begin());
}

std::string SqliteTable::IndexName() const {
  if (!index_) RaiseInvalidCall();
  return QuotedName(columns_[*index_]) + " COLLATE BINARY";
}

std::optional<SqliteTable::Row> SqliteTable::FirstWhere(const std::string& condition,
                                                        const std::vector<Variant>& parameters) const {
  SqliteStatement& select = SelectWhere(condition);
  for (std::size_t i = 0; i < parameters.size(); ++i) select.Bind(static_cast<int>(i + 1), parameters[i]);
  if (!select.Step()) {
    select.Reset();
    return std::nullopt;
  }
  Row row{std::get<std::int64_t>(select.Column(0)), {}};
  for (std::size_t i = 0; i < columns_.size(); ++i)
    row.values.push_back(select.Column(static_cast<int>(i + 1)));
  select.Reset();  // lets go of the file, which others may want to write
  return row;
}

SqliteStatement& SqliteTable::SelectWhere(const std::string& condition) const {
  const auto known = selects_.find(condition);
  if (known != selects_.end()) {
    known->second.Reset();
    return known->second;
  }
  std::string sql = "SELECT rowid";
  for (const std::string& column : columns_) sql += ", " + QuotedName(column);
  sql += " FROM " + table_ + " WHERE " + condition + " ORDER BY " + IndexName() + ", rowid LIMIT 1";
  return selects_.try_emplace(condition, Connection(), sql).first->second;
}

}  // namespace kavr6
