// The motor table of a program and the user's part of it.
#pragma once

#include "adapters/sqlite/sqlite_table.h"
#include "motor/own_rows.h"

namespace kavr6 {

/// Not the name of a program's own: below one prefix the user's folder can be that of the program.
inline constexpr const char* kOwnMotorFile = "own motors.mdb";

class MotorTables {
 public:
  /// `ownFolder`: where the user's file is, or is made. `installed`: the file that is opened takes no rows.
  MotorTables(const std::filesystem::path& ownFolder, bool installed);

  TableAccess& Both() { return both_; }
  /// The file that is opened, without the user's rows.
  TableAccess& Common() { return common_; }

 private:
  SqliteTable common_;
  OwnRows both_;
};

}  // namespace kavr6
