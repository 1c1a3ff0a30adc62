// Choosing, opening and changing the serial port.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "core/main_screen.h"
#include "platform/mscomm.h"

namespace kavr6 {

/// Owner of the port choice: fills CommList, finds the first port that opens, and follows the user's choice.
class CommPorts {
 public:
  /// Takes over the selection handler of the screen's CommList.
  CommPorts(MainScreen& screen, MSComm& comm);
  CommPorts(const CommPorts&) = delete;
  CommPorts& operator=(const CommPorts&) = delete;

  /// Adds "COM1" to "COM8"; selects none.
  void LoadCommList();
  /// Looks anew which devices are there and names them in the tooltips of the rows. Takes milliseconds.
  void RefreshDeviceNames();
  /// Opens the first port that works, with a box for each that does not; StartPort is 0 when none did.
  void StartComm();

 private:
  bool MoveOn(const std::string& error);
  bool OpenPort(int port);
  void CommListClick();

  MainScreen& screen_;
  MSComm& comm_;
};

inline bool NoCommPort(const MSComm& comm) { return !comm.PortOpen(); }

/// Send one or two bytes in one write. With the port closed they do nothing.
void WriteByte(MSComm& comm, std::uint8_t byte);
void Write2Bytes(MSComm& comm, std::uint8_t first, std::uint8_t second);

/// Lets events run until that many bytes wait at the port, for `limit` seconds at most; `onEvent` is called
/// after each event. True when they were there in time.
bool AwaitBytes(Desktop& desktop, const MSComm& comm, int count, double limit,
                const std::function<void()>& onEvent = {});

}  // namespace kavr6
