// A table that all users share, with the rows that one user has added to it.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/table_access.h"

namespace kavr6 {

/// Where the user's own rows are, alone in a table of the same shape.
struct OwnRowsPlace {
  /// A table that is not open yet.
  std::function<std::unique_ptr<TableAccess>()> New;
  std::filesystem::path file;
  /// Makes `file` with an empty table, and its folder; leaves one that is there. RuntimeError.
  std::function<void(const std::filesystem::path& file)> Make;
  bool always = false;  ///< nothing is added to the common file, even where it can be written
};

/// Both as one table in one order. A row that stands in both is the common one's, as if it had stood there
/// before the user's was added: a newer catalogue knows more of a motor than the file that brought it. The
/// user's rows are never changed by that. A new row goes into the common file, and into the user's where that
/// one takes none; which is made then. A user's file that cannot be read to its end is left out as a whole,
/// until the table is opened anew, and new rows for it are refused: nobody writes into what may be damaged. A
/// column that it lacks is empty.
class OwnRows : public TableAccess {
 public:
  OwnRows(TableAccess& common, OwnRowsPlace own) : common_(common), place_(std::move(own)) {}

  void Open(const std::filesystem::path& file, std::string_view table) override;
  void SetIndex(std::string_view column) override;
  void Seek(std::string_view key) override;
  bool NoMatch() const override { return noMatch_; }
  void MoveFirst() override;
  void MoveNext() override;
  bool EndOfTable() const override { return current_ != nullptr && current_->EndOfTable(); }
  Variant Read(std::string_view column) const override;
  std::string LeftOut() const override { return leftOut_; }
  void AddNew() override { row_.emplace(); }
  void Assign(std::string_view column, const Variant& value) override;
  std::filesystem::path Update() override;

 private:
  using Row = std::vector<std::pair<std::string, Variant>>;

  /// RuntimeError; the cursor stands where it stood, also then.
  void OpenOwn();
  void OpenOwnIfThere();
  std::string Key(const TableAccess& table) const;
  /// Both cursors stand on the next row of theirs.
  void TakeLower();
  void Bring(TableAccess& table, const std::string& behind) const;
  static void Append(TableAccess& table, const Row& row);

  TableAccess& common_;
  OwnRowsPlace place_;
  std::unique_ptr<TableAccess> own_;  // the cursor may still stand on it when it is open no more
  std::string table_;
  std::string index_;
  bool ownIsOpen_ = false;
  bool inStep_ = false;             // the other cursor stands on the next row of its table
  TableAccess* current_ = nullptr;  // the one whose row is current
  bool noMatch_ = false;
  std::string leftOut_;
  std::optional<Row> row_;
};

}  // namespace kavr6
