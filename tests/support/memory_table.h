// The motor table in memory: a TableAccess for tests, benchmarks and fuzz targets, with fault switches.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/runtime_error.h"
#include "platform/table_access.h"

namespace kavr6 {

class MemoryTable : public TableAccess {
 public:
  /// A row by its columns' values, in the order of kColumns; empty ones may be left out at the end.
  using Row = std::vector<Variant>;

  static constexpr std::array<std::string_view, 15> kColumns{"part number",
                                                             "PartNoX",
                                                             "current",
                                                             "Torque",
                                                             "TorqueUnit",
                                                             "inertia",
                                                             "InertiaUnit",
                                                             "harmonic gain",
                                                             "harmonic phase",
                                                             "leadangle rps",
                                                             "leadangle deg",
                                                             "PWMmaxPct",
                                                             "R",
                                                             "L",
                                                             "name"};

  bool FailOpen = false;    ///< Open raises an error
  bool FailUpdate = false;  ///< Update raises an error, as with a read-only file

  /// Adds a whole row, whatever the cursor does.
  void Add(Row row) {
    row.resize(kColumns.size());
    const auto after = [this](const Row& a, const Row& b) { return Key(a) < Key(b); };
    const auto place = std::upper_bound(rows_.begin(), rows_.end(), row, after);
    if (cursor_ && static_cast<std::size_t>(place - rows_.begin()) <= *cursor_) ++*cursor_;
    rows_.insert(place, std::move(row));
  }
  /// A catalogue motor in oz in and g cm2, without harmonic values.
  void AddMotor(const std::string& name, double current, double torque, double inertia) {
    Add({name, name, current, torque, std::int64_t{0}, inertia, std::int64_t{1}, std::int64_t{0},
         std::int64_t{0}, std::int64_t{25}, std::int64_t{120}, 94.1, 3.6, 10.0});
  }
  std::size_t RowCount() const { return rows_.size(); }

  void Open(const std::filesystem::path&, std::string_view) override {
    if (FailOpen) throw RuntimeError(3024, "Couldn't find the file.");
    cursor_.reset();
  }
  void SetIndex(std::string_view column) override {
    index_ = ColumnNumber(column);
    std::stable_sort(rows_.begin(), rows_.end(),
                     [this](const Row& a, const Row& b) { return Key(a) < Key(b); });
  }
  void Seek(std::string_view key) override {
    const auto found =
        std::find_if(rows_.begin(), rows_.end(), [&](const Row& row) { return Key(row) == key; });
    noMatch_ = found == rows_.end();
    if (!noMatch_) cursor_ = static_cast<std::size_t>(found - rows_.begin());
  }
  bool NoMatch() const override { return noMatch_; }
  void MoveFirst() override { cursor_ = 0; }
  void MoveNext() override {
    if (cursor_ && *cursor_ < rows_.size()) ++*cursor_;
  }
  bool EndOfTable() const override { return cursor_ && *cursor_ >= rows_.size(); }
  Variant Read(std::string_view column) const override {
    if (!cursor_ || *cursor_ >= rows_.size()) RaiseNoRecord();
    return rows_[*cursor_][ColumnNumber(column)];
  }
  void AddNew() override { pending_.assign(kColumns.size(), {}); }
  void Assign(std::string_view column, const Variant& value) override {
    pending_.at(ColumnNumber(column)) = value;
  }
  void Update() override {
    if (FailUpdate) throw RuntimeError(3027, "The database is read-only.");
    Add(std::exchange(pending_, {}));
  }

 private:
  static bool SameName(std::string_view a, std::string_view b) {
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [&](char x, char y) { return lower(x) == lower(y); });
  }
  static std::size_t ColumnNumber(std::string_view name) {
    // Most ask for the exact name, and benchmarks read many.
    auto found = std::find(kColumns.begin(), kColumns.end(), name);
    if (found == kColumns.end())
      found = std::find_if(kColumns.begin(), kColumns.end(),
                           [&](std::string_view column) { return SameName(column, name); });
    if (found == kColumns.end()) throw RuntimeError(3265, "Item not found in this collection.");
    return static_cast<std::size_t>(found - kColumns.begin());
  }
  std::string_view Key(const Row& row) const {
    const auto* text = std::get_if<std::string>(&row[index_]);
    return text != nullptr ? std::string_view(*text) : std::string_view();
  }

  std::vector<Row> rows_;
  Row pending_;
  std::optional<std::size_t> cursor_;
  std::size_t index_ = 1;
  bool noMatch_ = false;
};

}  // namespace kavr6
