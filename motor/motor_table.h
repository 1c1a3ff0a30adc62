// The catalogue of standard motors.
#pragma once

#include <array>
#include <filesystem>
#include <string>
#include <string_view>

#include "core/settings.h"
#include "platform/table_access.h"

namespace kavr6 {

inline constexpr const char* kMotorFile = "kavr6 motors.mdb";
inline constexpr const char* kMotorTableName = "motor params";

enum class ColumnType { Text, Real, Whole };

struct MotorColumn {
  std::string_view name;  ///< compared without regard to case
  ColumnType type;
};

/// The columns of the table. Torque and inertia are in the unit of their unit column, current in A, R in ohm,
/// L in mH, the lead angle in degrees at rev/sec. The last column serves people only and may be missing.
inline constexpr std::array<MotorColumn, 15> kMotorColumns{{
    {"part number", ColumnType::Text},
    {"PartNoX", ColumnType::Text},
    {"current", ColumnType::Real},
    {"Torque", ColumnType::Real},
    {"TorqueUnit", ColumnType::Whole},
    {"inertia", ColumnType::Real},
    {"InertiaUnit", ColumnType::Whole},
    {"harmonic gain", ColumnType::Whole},
    {"harmonic phase", ColumnType::Whole},
    {"leadangle rps", ColumnType::Whole},
    {"leadangle deg", ColumnType::Whole},
    {"PWMmaxPct", ColumnType::Real},
    {"R", ColumnType::Real},
    {"L", ColumnType::Real},
    {"name", ColumnType::Text},
}};

/// The motor table through its one cursor: the row that the cursor stands on is the selected standard motor.
/// Reading without a current row, or a number from an empty column, is a RuntimeError.
class MotorTable {
 public:
  explicit MotorTable(TableAccess& access) : access_(access) {}

  /// Opens the file of that name in `directory`, orders it by "PartNoX" and moves to the first row.
  /// RuntimeError on failure, and where a column is missing: better at the start than in the middle of a
  /// transfer.
  void Open(const std::filesystem::path& directory);
  /// Moves to the row with exactly this "PartNoX"; false, and no move, when there is none.
  bool Seek(std::string_view partNumber);
  void MoveFirst() { access_.MoveFirst(); }
  void MoveNext() { access_.MoveNext(); }
  bool EndOfTable() const { return access_.EndOfTable(); }

  /// Columns of the current row, by name. An empty text column reads as an empty text.
  std::string Text(std::string_view column) const;
  double Number(std::string_view column) const;
  /// As Number, rounded half to even to a 32-bit integer.
  Long Whole(std::string_view column) const;
  bool IsEmpty(std::string_view column) const;

  /// Appends a motor under its name. "R" and "L" stay empty. RuntimeError when the table cannot be written.
  void Append(const MotorRecord& motor);

 private:
  TableAccess& access_;
};

}  // namespace kavr6
