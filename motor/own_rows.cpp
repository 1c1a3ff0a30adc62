#include "motor/own_rows.h"

#include "platform/runtime_error.h"

namespace kavr6 {

void OwnRows::Open(const std::filesystem::path& file, std::string_view table) {
  common_.Open(file, table);
  table_ = table;
  ownIsOpen_ = false;
  current_ = nullptr;
  noMatch_ = false;
  leftOut_.clear();
  row_.reset();
}

void OwnRows::SetIndex(std::string_view column) {
  common_.SetIndex(column);
  index_ = column;
  if (ownIsOpen_) own_.table.SetIndex(column);
}

void OwnRows::OpenOwn() {
  if (ownIsOpen_) return;
  own_.table.Open(own_.file, table_);
  own_.table.SetIndex(index_);
  for (own_.table.MoveFirst(); !own_.table.EndOfTable(); own_.table.MoveNext()) continue;
  ownIsOpen_ = true;
  inStep_ = false;
  leftOut_.clear();
}

void OwnRows::OpenOwnIfThere() {
  // Another program may have made it by now.
  std::error_code unknown;
  if (ownIsOpen_ || !std::filesystem::exists(own_.file, unknown)) return;
  try {
    OpenOwn();
  } catch (const RuntimeError& error) {
    leftOut_ = error.what();  // the catalogue works without it
  }
}

void OwnRows::Seek(std::string_view key) {
  OpenOwnIfThere();
  const auto finds = [key](TableAccess& table) {
    table.Seek(key);
    return !table.NoMatch();
  };
  const bool inCommon = finds(common_);
  noMatch_ = !inCommon && !(ownIsOpen_ && finds(own_.table));
  if (noMatch_) return;
  current_ = inCommon ? &common_ : &own_.table;
  inStep_ = false;
}

void OwnRows::MoveFirst() {
  OpenOwnIfThere();
  common_.MoveFirst();
  if (ownIsOpen_) own_.table.MoveFirst();
  inStep_ = true;
  TakeLower();
}

void OwnRows::MoveNext() {
  if (current_ == nullptr) RaiseNoRecord();
  if (ownIsOpen_ && !inStep_) Bring(current_ == &common_ ? own_.table : common_, Key(*current_));
  inStep_ = true;
  current_->MoveNext();
  TakeLower();
}

void OwnRows::Bring(TableAccess& table, const std::string& behind) const {
  table.MoveFirst();
  while (!table.EndOfTable() && Key(table) <= behind) table.MoveNext();
}

void OwnRows::TakeLower() {
  current_ = &common_;
  if (!ownIsOpen_) return;
  if (!common_.EndOfTable())
    while (!own_.table.EndOfTable() && Key(own_.table) == Key(common_)) own_.table.MoveNext();
  if (own_.table.EndOfTable()) return;
  if (common_.EndOfTable() || Key(own_.table) < Key(common_)) current_ = &own_.table;
}

std::string OwnRows::Key(const TableAccess& table) const {
  const Variant value = table.Read(index_);
  const auto* const text = std::get_if<std::string>(&value);
  return text == nullptr ? std::string() : *text;
}

Variant OwnRows::Read(std::string_view column) const {
  if (current_ == nullptr) RaiseNoRecord();
  try {
    return current_->Read(column);
  } catch (const RuntimeError& error) {
    // An older program has made the file, which knew less of a motor.
    if (current_ == &common_ || error.Number() != kNoColumn) throw;
    return {};
  }
}

void OwnRows::Assign(std::string_view column, const Variant& value) {
  if (!row_) RaiseInvalidCall();
  row_->emplace_back(column, value);
}

std::filesystem::path OwnRows::Update() {
  if (!row_) RaiseInvalidCall();
  const Row row = *std::exchange(row_, std::nullopt);
  try {
    if (!own_.always) {
      Append(common_, row);
      return {};
    }
  } catch (const RuntimeError& error) {
    if (error.Number() != kTableReadOnly && error.Number() != kTableUnreachable) throw;
  }
  own_.Make(own_.file);
  const bool onOwn = ownIsOpen_ && current_ == &own_.table && !own_.table.EndOfTable();
  const std::string key = onOwn ? Key(own_.table) : "";
  ownIsOpen_ = false;  // the one that is open may have been removed
  OpenOwn();
  if (onOwn) own_.table.Seek(key);
  Append(own_.table, row);
  return own_.file;
}

void OwnRows::Append(TableAccess& table, const Row& row) {
  table.AddNew();
  for (const auto& [column, value] : row) table.Assign(column, value);
  table.Update();
}

}  // namespace kavr6
