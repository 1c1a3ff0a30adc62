// The short exchanges that tell whether a drive answers, which model it is and what firmware it runs.
#pragma once

#include <string>

#include "link/drive_line.h"

namespace kavr6 {

inline constexpr const char* kDriveNotResponding =
    "The drive is not responding.  Is it connected to the right port and turned on?";

/// Each exchange writes a command and waits, events running, for a reply in GlobalBuffer. None is repeated; a
/// reply that comes too late stays in GlobalBuffer until the next command empties it.
class DriveIdentity {
 public:
  explicit DriveIdentity(const DriveLine& line) : line_(line), state_(line.state) {}

  /// Asks without any message. True for the model codes of earlier families only, false for all KAVR6 models.
  bool DriveStillThere();
  /// The two reply bytes as text, or empty: no answer, which is told in a box, or an unknown model, which is
  /// not. Sets revision, model and letter, and shows them.
  std::string CheckDrive();
  /// As CheckDrive with another box title, without the letter and without touching the model list.
  std::string SilentCheckDrive();
  /// A blank and the letter of the revision, or empty.
  std::string GetMinorRev();
  /// The status word as a signed 16-bit value; -1 without an answer, 0 with the port closed.
  Long GetServoStatus();

 private:
  bool AwaitReply(std::size_t length, double limit);
  std::string AskIdentity(const std::string& boxTitle);
  std::string TakeIdentity(const Asked& asked);
  void TellLetter(bool told);

  DriveLine line_;
  DriveState& state_;
  bool sound_ = false;  // revision and model are what was answered last
};

}  // namespace kavr6
