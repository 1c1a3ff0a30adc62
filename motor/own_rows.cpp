#include "motor/own_rows.h"

#include "platform/path_text.h"
#include "platform/runtime_error.h"

namespace kavr6 {

void OwnRows::Open(const std::filesystem::path& file, std::string_view table) {
  common_.Open(file, table);
  table_ = table;
  ownIsOpen_ = false;
  current_ = nullptr;
  own_.reset();
  noMatch_ = false;
  leftOut_.clear();
  row_.reset();
}

void OwnRows::SetIndex(std::string_view column) {
  common_.SetIndex(column);
  index_ = column;
  if (ownIsOpen_) own_->SetIndex(column);
}

void OwnRows::OpenOwn() {
  if (ownIsOpen_) return;
  std::unique_ptr<TableAccess> fresh = place_.New();
  fresh->Open(place_.file, table_);
  fresh->SetIndex(index_);
  for (fresh->MoveFirst(); !fresh->EndOfTable(); fresh->MoveNext()) continue;
  if (own_ && current_ == own_.get()) {
    if (!own_->EndOfTable()) fresh->Seek(Key(*own_));
    current_ = fresh.get();
  }
  own_ = std::move(fresh);
  ownIsOpen_ = true;
  inStep_ = false;
  leftOut_.clear();
}

void OwnRows::OpenOwnIfThere() {
  if (ownIsOpen_ || !leftOut_.empty()) return;
  // Another program may have made it by now.
  std::error_code error;
  const bool there = std::filesystem::exists(place_.file, error);
  if (error)
    leftOut_ = "The file \"" + PathText(place_.file) + "\" cannot be reached: " + error.message() + ".";
  if (!there) return;
  try {
    OpenOwn();
  } catch (const RuntimeError& failure) {
    leftOut_ = failure.what();  // the catalogue works without it
  }
}

void OwnRows::Seek(std::string_view key) {
  OpenOwnIfThere();
  const auto finds = [key](TableAccess& table) {
    table.Seek(key);
    return !table.NoMatch();
  };
  const bool inCommon = finds(common_);
  noMatch_ = !inCommon && !(ownIsOpen_ && finds(*own_));
  if (noMatch_) return;
  current_ = inCommon ? &common_ : own_.get();
  inStep_ = false;
}

void OwnRows::MoveFirst() {
  OpenOwnIfThere();
  common_.MoveFirst();
  if (ownIsOpen_) own_->MoveFirst();
  inStep_ = true;
  TakeLower();
}

void OwnRows::MoveNext() {
  if (current_ == nullptr) RaiseNoRecord();
  const bool left = current_ != &common_ && !ownIsOpen_;  // a row that has been left out since
  if (left || (ownIsOpen_ && !inStep_)) Bring(current_ == &common_ ? *own_ : common_, Key(*current_));
  inStep_ = true;
  if (!left) current_->MoveNext();
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
    while (!own_->EndOfTable() && Key(*own_) == Key(common_)) own_->MoveNext();
  if (own_->EndOfTable()) return;
  if (common_.EndOfTable() || Key(*own_) < Key(common_)) current_ = own_.get();
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
    if (!place_.always) {
      Append(common_, row);
      return {};
    }
  } catch (const RuntimeError& error) {
    if (error.Number() != kTableReadOnly && error.Number() != kTableUnreachable) throw;
  }
  place_.Make(place_.file);
  ownIsOpen_ = false;  // the one that is open may have been removed
  OpenOwn();
  Append(*own_, row);
  return place_.file;
}

void OwnRows::Append(TableAccess& table, const Row& row) {
  table.AddNew();
  for (const auto& [column, value] : row) table.Assign(column, value);
  table.Update();
}

}  // namespace kavr6
