// The catalogue of standard motors.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "motor/motor_row.h"
#include "platform/table_access.h"

namespace kavr6 {

inline constexpr const char* kMotorFile = "kavr6 motors.mdb";
inline constexpr const char* kMotorTableName = "motor params";

/// Said where the user's own motors are left out, with the reason behind it.
inline constexpr const char* kOwnMotorsLeftOut = "Your own motors are left out";

/// What has become of a motor that was to be appended.
struct AppendedMotor {
  std::optional<std::string> refusal;  ///< why the table could not be written
  std::filesystem::path elsewhere;     ///< the file that has taken it, where that is not the opened one
};

/// The motor table with its one cursor: the row that the cursor stands on is the selected standard motor.
class MotorTable {
 public:
  explicit MotorTable(TableAccess& access) : access_(access) {}
  MotorTable(const MotorTable&) = delete;
  MotorTable& operator=(const MotorTable&) = delete;

  /// Opens the file of that name in `directory`, orders it by "PartNoX" and moves to the first row.
  /// RuntimeError on failure, and where a column is missing: better at the start than in the middle of a
  /// transfer.
  void Open(const std::filesystem::path& directory);
  void MoveFirst();
  /// Why the user's own motors are left out of the table, as a sentence; empty where they are in it.
  std::string LeftOut() const { return access_.LeftOut(); }
  /// Moves to the row with exactly this "PartNoX"; false, and no move, when there is none.
  bool Seek(std::string_view partNumber);
  /// The selected motor. RuntimeError without a current row and for a text in a column of numbers.
  const MotorRow& Row() const;
  /// The same, and nothing where that is a RuntimeError.
  std::optional<MotorRow> RowIfAny() const;

  /// All rows in the order of "PartNoX", with part number, current and torque alone; a text where a number
  /// belongs counts as empty. The cursor then stands on no row.
  std::vector<MotorRow> Overview();
  /// Appends a motor under its name, which no row has yet; the cursor stays. Where the table cannot be
  /// written, the motor is kept until the program ends and otherwise behaves as a row of the table.
  AppendedMotor Append(const MotorRecord& motor);

 private:
  std::filesystem::path Write(const MotorRow& row);

  TableAccess& access_;
  std::vector<MotorRow> kept_;               // that the table would not take
  mutable std::optional<MotorRow> current_;  // the row under the cursor, once it has been read
};

}  // namespace kavr6
