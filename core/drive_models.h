// The six drives of the family.
#pragma once

#include <array>
#include <string_view>

namespace kavr6 {

struct DriveModel {
  std::string_view name;
  int code;                 ///< model byte that the drive sends
  float continuousCurrent;  ///< A
  bool wyProgram;           ///< can be programmed
  bool zuProgram;           ///< can run a stored program
};

/// The index is the drive model index, and the row in the main screen's list.
inline constexpr std::array<DriveModel, 6> kDriveModels{{
    // The first model's limit is above its siblings' on purpose.
    {"KAVR6-Bx", 41, 7.0F, false, false},
    {"KAVR6-Wy", 42, 6.0F, true, false},
    {"KAVR6-Zu", 43, 6.0F, true, true},
    {"KAVR6-Bx-220", 44, 3.2F, false, false},
    {"KAVR6-Wy-220", 45, 3.2F, true, false},
    {"KAVR6-Zu-220", 46, 3.2F, true, true},
}};

/// Index of the model with this code, or -1.
constexpr int ModelIndex(int code) {
  for (std::size_t i = 0; i < kDriveModels.size(); ++i)
    if (kDriveModels[i].code == code) return static_cast<int>(i);
  return -1;
}

}  // namespace kavr6
