#include "core/settings.h"

#include <array>

#include "core/io_modes.h"
#include "core/regen_resistor.h"
#include "core/serial_protocol.h"

namespace kavr6 {
namespace {

void InitMotor(MotorRecord& motor) {
  motor.RatedCurrent = 2.0;
  motor.RatedTorque = 118.0;
  motor.RotorInertia = 300.0;
  motor.MaxVoltsPct = 16000.0 / 170.0;
  motor.MotorR = 3.6;
  motor.MotorL = 10.0;
  motor.MotorName = "custom motor";
  motor.InertiaUnit = 1;
  motor.LeadAngleDeg = 120;
  motor.LeadAngleRps = 25;
}

void InitMotion(Settings& s) {
  s.ControlMode = kControlPulse;
  s.PowerUpMode = kControlPointToPoint;
  s.CmdScale = 10.0;
  s.AnalogGain = 8000;
  s.OpMode = kOpPulseOrVelocity;
  s.StepsPerRev = 25000;
  s.AnalogFilter = 500.0;
  s.StepFilterFreq = 1000;
  s.NoiseFilter = 1000;
  s.MaxAccel = 3000.0;
  s.MaxSpeed = 50.0;
  s.Speed = 10.0;
  s.Accel = 100.0;
  s.Decel = 100.0;
  s.RunStop = true;
  s.Speed2 = 5.0;
  s.AnalogTypeFlag = true;
  s.AnalogRange = 1;
  s.AnalogDeadband = 5;
}

void InitMotorUse(Settings& s) {
  s.RunCurrent = 1.4;
  s.IdlePercent = 50;
  s.IdleDelay = 0.4;
  s.LoadInertiaUnit = 1;
  s.InertiaRatio = 1.0;
  s.InertiaIsRatio = true;
  s.SmoothingOn = true;
  s.DampingOn = true;
  s.MaxTorquePct = 100;
  s.EncoderCounts = 4000;
  s.StallFaultMs = 20;
  s.StallSpeed = 25.0F;
  s.StallAccel = 120.0F;
  s.RegenOhms = kInternalResistor.ohms;
  s.RegenWatts = kInternalResistor.watts;
  s.RegenSecs = kInternalResistor.seconds;
}

void InitConnections(Settings& s) {
  s.BrakeDelay = 200;
  s.BrakeEngage = 200;
  s.RS485Addr = "!";
  for (const IoFunction& function : kIoFunctions) s.*function.mode = kNotUsed;
  s.LimitMode = kLimitClosed;
  s.ProtocolFlags = kProtocolAlways;
  s.BitRateCode = 1;
  s.SpareLong = 10;
  s.TuneWord1 = 625;
  s.TuneWord2 = 30;
  s.TuneWord3 = 5000;
  s.TuneWord4 = 250;
  s.TuneWord5 = 250;
}

template <std::size_t N>
std::string NameOf(const std::array<const char*, N>& names, int index) {
  return index >= 0 && index < static_cast<int>(N) ? names[static_cast<std::size_t>(index)] : names.back();
}

std::string PulseName(Long pulseType) {
  const bool known = pulseType >= 0 && pulseType < Long{kPulseKinds.size()};
  return std::string(kPulseKinds[static_cast<std::size_t>(known ? pulseType : kCwCcwPulse)].name);
}

}  // namespace

void InitVars(Settings& settings) {
  settings = {};
  InitMotor(settings);
  InitMotion(settings);
  InitMotorUse(settings);
  InitConnections(settings);
}

void DecodeControlMode(Settings& settings) {
  if (settings.ControlMode < kControlVelocity || settings.ControlMode > kControlVelocityLast) return;
  const Long options = settings.ControlMode - kControlVelocity;
  settings.ControlMode = kControlVelocity;
  settings.AnalogVelocity = (options & kPackedFixedSpeed) == 0;
  settings.TwoSpeeds = (options & kPackedTwoSpeeds) != 0;
  settings.RunStop = (options & kPackedRunStop) != 0;
}

std::string ModeName(const Settings& settings, const std::string& present) {
  if (settings.OpMode != kOpPulseOrVelocity) {
    const OperatingMode* const mode = RowOfCode(kOperatingModes, settings.OpMode);
    return mode == nullptr ? std::string() : std::string(mode->name);
  }
  if (settings.ControlMode == kControlVelocity) return "Velocity Mode";
  if (settings.ControlMode == kControlPulse) return PulseName(settings.PulseType);
  return present;
}

std::string TorqueUnitName(int index) {
  static constexpr std::array kNames{"oz in", "lb in", "g cm", "kg cm", "N m"};
  return NameOf(kNames, index);
}

std::string InertiaUnitName(int index) {
  static constexpr std::array kNames{"oz in sec2", "g cm2", "kg cm2", "kg m2"};
  return NameOf(kNames, index);
}

}  // namespace kavr6
