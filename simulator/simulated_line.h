// A serial cable with a simulated drive at its far end.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>

#include "simulator/byte_line.h"
#include "simulator/line_fault.h"
#include "simulator/simulated_drive.h"

namespace kavr6 {

/// Carries bytes to the drive at line speed, and back as the drive sends them.
class SimulatedLine {
 public:
  explicit SimulatedLine(Scheduler& scheduler);
  SimulatedLine(const SimulatedLine&) = delete;
  SimulatedLine& operator=(const SimulatedLine&) = delete;

  /// The drive at the far end, whose Transmit is taken over, or null. The drive that hung here before is let
  /// go, so it must still be there; line and drive may be destroyed in any order. What was under way is lost.
  void Connect(SimulatedDrive* drive);
  /// Time that each byte to the drive takes.
  void SetByteTime(double seconds) { outgoing_.SetByteTime(seconds); }
  void FromTool(std::span<const std::uint8_t> bytes) { outgoing_.Put(bytes); }
  /// Number of bytes still on their way to the drive.
  std::size_t Backlog() const { return outgoing_.Size(); }

  /// A byte has arrived at the tool's end.
  std::function<void(std::uint8_t)> ToTool;
  /// A fault has cut the line; whoever owns the tool's end closes it.
  std::function<void()> HungUp;

  /// One fault at most is armed in each direction; the last one counts.
  void Arm(const FaultAt& fault);
  void ClearFaults();

 private:
  void Beyond(LineFault fault);

  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
  SimulatedDrive* drive_ = nullptr;
  FaultyWay toDrive_;
  FaultyWay toTool_;
  ByteLine outgoing_;
};

}  // namespace kavr6
