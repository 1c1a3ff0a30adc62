// What can go wrong with the bytes in one direction of a serial line.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "simulator/byte_line.h"

namespace kavr6 {

enum class LineFault { Lost, Doubled, Flipped, Inserted, Late, Silence, HangUp, Restart, Swapped };

/// One thing that goes wrong on the line, at one byte. Lost, HangUp and the first byte of a Silence do not
/// arrive; a Restart of the drive comes just after the byte; Swapped puts the byte behind its successor.
struct FaultAt {
  enum class Direction { ToDrive, ToTool };
  Direction direction = Direction::ToTool;
  LineFault fault = LineFault::Lost;
  int byte = 0;            ///< counted from 0, from the moment the fault is armed
  std::uint8_t value = 1;  ///< Flipped: bits to turn; Inserted: the byte put before
  double seconds = 1.0;    ///< Late: how much later this byte and all behind it arrive
};

/// Passes bytes on and lets one armed fault happen to them, once. Late and Silence then last until the faults
/// are cleared or another one is armed.
class FaultyWay {
 public:
  /// `beyond` is called for a HangUp or Restart, which are not a matter of bytes alone.
  FaultyWay(Scheduler& scheduler, ByteLine::Deliver arrive, std::function<void(LineFault)> beyond)
      : arrive_(std::move(arrive)), beyond_(std::move(beyond)), late_(scheduler, 0.0, arrive_) {}

  void Arm(const FaultAt& fault);
  void ClearFault();
  void Carry(std::uint8_t byte);
  /// Forgets the bytes that a Late fault holds back.
  void DropHeldBack() { late_.Clear(); }

 private:
  void Deliver(std::uint8_t byte);
  void Happen(const FaultAt& fault, std::uint8_t byte);

  ByteLine::Deliver arrive_;
  std::function<void(LineFault)> beyond_;
  ByteLine late_;
  std::optional<FaultAt> fault_;
  std::optional<std::uint8_t> swapped_;
  int carried_ = 0;
  bool silent_ = false;
  double delay_ = 0.0;
};

}  // namespace kavr6
