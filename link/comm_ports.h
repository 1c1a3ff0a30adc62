// Choosing, opening and changing the serial port.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

#include "link/drive_line.h"
#include "platform/event.h"

namespace kavr6 {

/// Owner of the port choice: finds the first port that opens, and follows the user's choice.
///
/// A port in use whose device goes away stays the port in use. When the device comes back the port is opened
/// again: nobody is asked or told, nothing is sent, and buffer, threshold and whoever listens are as before.
/// Waiting for that costs nothing.
class CommPorts {
 public:
  /// The port's news of a loss are for this object.
  explicit CommPorts(const DriveLine& line);
  CommPorts(const CommPorts&) = delete;
  CommPorts& operator=(const CommPorts&) = delete;
  ~CommPorts();

  /// A port whose device is awaited is still closed behind news of devices.
  Event<> StillClosed;

  /// Opens the first port that works, with a box for each that does not; StartPort is 0 when none did.
  void StartComm();
  /// The row of the port list that is selected now, -1 for none: a row other than that of the port in use
  /// changes the port. When the new one does not open, that is told and the old one taken back; where that
  /// fails too, it stays closed until its device has gone and come back.
  void Select(int row);
  /// The selected row has been chosen once more: the port in use is opened where it is closed. A port that
  /// does not open is told. After a start that has found no port there is none in use, and nothing happens.
  void SelectAgain();

 private:
  bool MoveOn(const std::string& error);
  bool OpenPort(int port);
  void ChangePort(int port);
  void TellUnavailable();
  void AwaitDevice();
  void StopAwaiting();
  void TryAnew();
  void Reopen();

  DriveLine line_;
  DriveState& state_;
  bool inUse_ = false;  // a port has been open
  bool gone_ = false;   // the device of the port in use has gone since
  std::unique_ptr<DeviceWatch> watch_;
  Scheduler::TaskId attempt_ = 0;
  std::size_t refusals_ = 0;  // since there was news
  std::optional<double> refusedAt_;
  bool newsHeard_ = false;         // since the port was opened
  double openedWithoutNews_ = -1;  // when, below 0: never
};

}  // namespace kavr6
