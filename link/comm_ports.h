// Choosing, opening and changing the serial port.
#pragma once

#include <string>

#include "link/drive_line.h"

namespace kavr6 {

/// Owner of the port choice: finds the first port that opens, and follows the user's choice.
class CommPorts {
 public:
  explicit CommPorts(const DriveLine& line) : line_(line), state_(line.state) {}
  CommPorts(const CommPorts&) = delete;
  CommPorts& operator=(const CommPorts&) = delete;

  /// Opens the first port that works, with a box for each that does not; StartPort is 0 when none did.
  void StartComm();
  /// The row of the port list that is selected now, -1 for none: a row other than that of the port in use
  /// changes the port. When the new one does not open, that is told and the old one taken back.
  void Select(int row);

 private:
  bool MoveOn(const std::string& error);
  bool OpenPort(int port);
  void ChangePort(int port);

  DriveLine line_;
  DriveState& state_;
};

}  // namespace kavr6
