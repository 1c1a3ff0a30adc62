#include "simulator/simulated_line.h"

namespace kavr6 {

SimulatedLine::SimulatedLine(Scheduler& scheduler)
    : toDrive_(
          scheduler,
          [this](std::uint8_t byte) {
            if (drive_ != nullptr) drive_->Receive(byte);
          },
          [this](LineFault fault) { Beyond(fault); }),
      toTool_(
          scheduler,
          [this](std::uint8_t byte) {
            if (ToTool) ToTool(byte);
          },
          [this](LineFault fault) { Beyond(fault); }),
      outgoing_(scheduler, SimulatedDrive::kByteTime, [this](std::uint8_t byte) { toDrive_.Carry(byte); }) {}

void SimulatedLine::Connect(SimulatedDrive* drive) {
  outgoing_.Clear();
  toDrive_.DropHeldBack();
  toTool_.DropHeldBack();
  if (drive_ != nullptr) drive_->Transmit = {};
  drive_ = drive;
  if (drive_ == nullptr) return;
  drive_->Transmit = [this, alive = std::weak_ptr(alive_)](std::uint8_t byte) {
    if (!alive.expired()) toTool_.Carry(byte);
  };
}

void SimulatedLine::Arm(const FaultAt& fault) {
  (fault.direction == FaultAt::Direction::ToDrive ? toDrive_ : toTool_).Arm(fault);
}

void SimulatedLine::ClearFaults() {
  toDrive_.ClearFault();
  toTool_.ClearFault();
}

void SimulatedLine::Beyond(LineFault fault) {
  if (fault == LineFault::Restart && drive_ != nullptr) drive_->Restart();
  if (fault == LineFault::HangUp && HungUp) HungUp();
}

}  // namespace kavr6
