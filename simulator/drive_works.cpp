#include "simulator/drive_works.h"

#include <cmath>

#include "core/alarms.h"
#include "core/io_modes.h"

namespace kavr6 {
namespace {

constexpr std::size_t kBrakeOutput = DriveTerminals::kY;
constexpr std::size_t kMotionOutput = DriveTerminals::kY + 1;
constexpr std::size_t kAlarmOutput = DriveTerminals::kY + 2;

int ModeOf(const Registers& registers, std::size_t output) {
  switch (output) {
    case kBrakeOutput:
      return static_cast<int>(registers["BO"]);
    case kMotionOutput:
      return static_cast<int>(registers["MO"]);
    case kAlarmOutput:
      return static_cast<int>(registers["AO"]);
    default:
      return kNotUsed;
  }
}

}  // namespace

bool DriveWorks::HasFunction(std::size_t output) const { return ModeOf(registers, output) != kNotUsed; }

bool DriveWorks::OutputHigh(std::size_t output) const {
  if (!HasFunction(output)) return terminals.ByHand(output);
  const int mode = ModeOf(registers, output);
  if (output == kBrakeOutput) return motor.Enabled() == (mode == kBrakeOpens);
  if (output == kAlarmOutput) return (motor.AlarmWord() != 0) == (mode == kAlarmOpens);
  if (mode < kFirstTach) return motor.Moving() == (mode == kMotionOpen);
  const int pulses = kTachPulses.at(static_cast<std::size_t>(mode - kFirstTach));
  return std::fmod(std::abs(motor.ShaftTurns()) * pulses, 1.0) < 0.5;
}

}  // namespace kavr6
