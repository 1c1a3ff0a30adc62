// What is inside a drive, whichever language it is asked in.
#pragma once

#include "core/drive_models.h"
#include "simulator/drive_terminals.h"
#include "simulator/motor_control.h"
#include "simulator/registers.h"

namespace kavr6 {

/// The parts of a drive and what joins them.
struct DriveWorks {
  explicit DriveWorks(Scheduler& drivesTime) : scheduler(drivesTime) {}

  Scheduler& scheduler;
  int revision = 52;  ///< byte r for firmware 1 + r / 100
  int model = kDriveModels.front().code;
  char letter = 'k';
  Registers registers = {};
  DriveTerminals terminals = {};
  MotorControl motor{scheduler, registers, terminals};

  /// An output that has no function shows what it was told by hand.
  bool OutputHigh(std::size_t output) const;
  /// Whether a function of the drive drives the output.
  bool HasFunction(std::size_t output) const;
};

}  // namespace kavr6
