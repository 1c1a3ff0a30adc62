// The motor table for a program that leaves it as it is.
#pragma once

#include <filesystem>
#include <string>
#include <utility>

#include "platform/runtime_error.h"
#include "platform/table_access.h"

namespace kavr6 {

/// Reads a table; a motor that is appended is refused, and whoever appends keeps it for himself.
class ReadOnlyTable : public TableAccess {
 public:
  /// `file`: to be opened instead of the one that is asked for, where it is not empty.
  ReadOnlyTable(TableAccess& table, std::filesystem::path file) : table_(table), file_(std::move(file)) {}

  void Open(const std::filesystem::path& file, std::string_view table) override {
    table_.Open(file_.empty() ? file : file_, table);
  }
  void SetIndex(std::string_view column) override { table_.SetIndex(column); }
  void Seek(std::string_view key) override { table_.Seek(key); }
  bool NoMatch() const override { return table_.NoMatch(); }
  void MoveFirst() override { table_.MoveFirst(); }
  void MoveNext() override { table_.MoveNext(); }
  std::string LeftOut() const override { return table_.LeftOut(); }
  bool EndOfTable() const override { return table_.EndOfTable(); }
  Variant Read(std::string_view column) const override { return table_.Read(column); }
  void AddNew() override { throw RuntimeError(kTableReadOnly, "The motor table is not written to"); }
  void Assign(std::string_view column, const Variant& value) override { table_.Assign(column, value); }
  std::filesystem::path Update() override { return table_.Update(); }

 private:
  TableAccess& table_;
  std::filesystem::path file_;
};

}  // namespace kavr6
