// The motor table in memory: a TableAccess for tests, benchmarks and fuzz targets, with fault switches.
#pragma once

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "motor/motor_table.h"
#include "platform/runtime_error.h"
#include "platform/table_access.h"

namespace kavr6 {

class MemoryTable : public TableAccess {
 public:
  /// A row by its columns' values, in the order of kMotorColumns; empty ones may be left out at the end.
  using Row = std::vector<Variant>;

  bool FailOpen = false;  ///< Open raises an error
  std::function<void(const Row&)> Added;
  std::filesystem::path TakenBy;  ///< where new rows are said to have gone
  std::string Missing;            ///< why rows are said to be left out
  bool FailUpdate = false;        ///< Update raises an error, as with a read-only file

  /// Adds a whole row, whatever the cursor does.
  void Add(Row row) {
    row.resize(kMotorColumns.size());
    const std::string key = std::get<std::string>(row[ColumnNumber("PartNoX")]);
    rows_[key] = std::move(row);
  }
  /// A catalogue motor in oz in and g cm2, without harmonic values.
  void AddMotor(const std::string& name, double current, double torque, double inertia) {
    Add({name, name, current, torque, std::int64_t{0}, inertia, std::int64_t{1}, std::int64_t{0},
         std::int64_t{0}, std::int64_t{25}, std::int64_t{120}, 94.1, 3.6, 10.0});
  }
  std::size_t RowCount() const { return rows_.size(); }

  void Open(const std::filesystem::path&, std::string_view) override {
    if (FailOpen) throw RuntimeError(3024, "Couldn't find the file.");
  }
  void SetIndex(std::string_view) override {}
  void Seek(std::string_view key) override {
    const auto found = rows_.find(std::string(key));
    noMatch_ = found == rows_.end();
    if (!noMatch_) MoveTo(found);
  }
  bool NoMatch() const override { return noMatch_; }
  std::string LeftOut() const override { return Missing; }
  void MoveFirst() override { MoveTo(rows_.begin()); }
  void MoveNext() override { MoveTo(rows_.upper_bound(current_)); }
  bool EndOfTable() const override { return !onRow_; }
  Variant Read(std::string_view column) const override {
    if (!onRow_) RaiseNoRecord();
    return rows_.at(current_)[ColumnNumber(column)];
  }
  void AddNew() override { pending_.assign(kMotorColumns.size(), {}); }
  void Assign(std::string_view column, const Variant& value) override {
    pending_.at(ColumnNumber(column)) = value;
  }
  std::filesystem::path Update() override {
    if (FailUpdate) throw RuntimeError(kTableReadOnly, "The database is read-only.");
    if (Added) Added(pending_);
    Add(std::exchange(pending_, {}));
    return TakenBy;
  }

 private:
  using Rows = std::map<std::string, Row>;
  static std::size_t ColumnNumber(std::string_view name) {
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
    for (std::size_t i = 0; i < kMotorColumns.size(); ++i)
      if (std::ranges::equal(std::string_view(kMotorColumns[i].name), name, {}, lower, lower)) return i;
    throw RuntimeError(kNoColumn, "Item not found in this collection.");
  }
  void MoveTo(Rows::const_iterator row) {
    onRow_ = row != rows_.end();
    if (onRow_) current_ = row->first;
  }

  Rows rows_;  // in the order of their part numbers
  Row pending_;
  std::string current_;
  bool onRow_ = false;
  bool noMatch_ = false;
};

}  // namespace kavr6
