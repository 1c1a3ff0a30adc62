// Everything that the drive sends outside a block transfer arrives here.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>

#include "link/drive_line.h"
#include "link/rx_ring.h"

namespace kavr6 {

/// Splits the received bytes into reply text, which goes to GlobalBuffer, and three-byte binary messages,
/// which go to HandleMsg; while a live tool is active and in front, every byte goes to that tool instead.
class ReceivePath {
 public:
  using ProcessChar = std::function<void(std::uint8_t)>;

  /// Takes over the receive notification of the line.
  explicit ReceivePath(const DriveLine& line);
  ReceivePath(const ReceivePath&) = delete;
  ReceivePath& operator=(const ReceivePath&) = delete;

  /// The tool's window name and its sink, called once for each byte while LiveToolActive holds and the window
  /// is the front one. Events are let through after each byte.
  void AddLiveTool(const std::string& windowName, ProcessChar sink);
  /// Name of the program's front window. Without it no live tool is ever in front.
  std::function<std::string()> FrontWindow;
  /// Called with the 14-bit alarm word of an alarm message, unless AlarmPopupOff holds.
  std::function<void(int)> ServoError152;

  /// Hands the live tool in front what has come in while it was not.
  void DeliverWaiting();
  /// Empties GlobalBuffer and the ring.
  void Clear();
  void HandleMsg(std::uint8_t header, std::uint8_t b2, std::uint8_t b3);
  RxRing& Ring() { return ring_; }

 private:
  void OnComm();
  void FeedLiveTool();
  void ScanRing();
  void ScanForHeader();
  void ScanForPacket();
  void RevisionTold();
  void PowerUp(int revision, int model);

  DriveLine line_;
  DriveState& state_;
  RxRing ring_;
  std::map<std::string, ProcessChar> tools_;
};

}  // namespace kavr6
