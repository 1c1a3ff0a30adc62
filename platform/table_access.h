// One table of a database file, read through a cursor.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <variant>

namespace kavr6 {

/// Value of one column; monostate stands for an empty column.
using Variant = std::variant<std::monostate, std::int64_t, double, std::string>;

/// Errors of a table that is read as ever and takes no new rows.
inline constexpr int kTableReadOnly = 3027;
inline constexpr int kTableUnreachable = 3051;
/// A column that the table lacks.
inline constexpr int kNoColumn = 3265;

/// Access to one table. The cursor stands on a row, or on none: before the first move and past the end.
/// Failures of the database are RuntimeErrors with a plain sentence as text.
class TableAccess {
 public:
  virtual ~TableAccess() = default;

  /// Opens the file and its table. The cursor then stands on no row.
  virtual void Open(const std::filesystem::path& file, std::string_view table) = 0;
  /// Sets the column that Seek compares and that orders the rows, by plain order of its characters.
  virtual void SetIndex(std::string_view column) = 0;
  /// Moves to the first row whose index column equals `key` exactly. Without such a row the cursor stays
  /// where it is and NoMatch holds until the next Seek.
  virtual void Seek(std::string_view key) = 0;
  virtual bool NoMatch() const = 0;
  virtual void MoveFirst() = 0;
  virtual void MoveNext() = 0;
  /// The cursor has passed the last row.
  virtual bool EndOfTable() const = 0;
  /// A column of the current row; its name is compared without regard to case. RuntimeError 3021 without a
  /// current row, kNoColumn for an unknown column.
  virtual Variant Read(std::string_view column) const = 0;
  /// Why rows that belong to the table are left out, as a sentence; empty where all are there.
  virtual std::string LeftOut() const { return {}; }
  /// Begins a new row; Assign fills it, Update appends it in one transaction. The cursor does not move.
  /// When Update fails the table is as before. It returns the file that the row has gone to, where that is
  /// not the opened one.
  virtual void AddNew() = 0;
  virtual void Assign(std::string_view column, const Variant& value) = 0;
  virtual std::filesystem::path Update() = 0;
};

}  // namespace kavr6
