// The configuration of one drive.
#pragma once

#include <string>

#include "core/motion_codes.h"

namespace kavr6 {

/// What makes a motor: the custom motor of the settings, or a motor named by a file or a drive.
/// Torque and inertia are in the unit of their index. A new one is all zero and empty.
struct MotorRecord {
  double RatedCurrent = 0;  ///< A
  double RatedTorque = 0;   ///< in TorqueUnit
  double RotorInertia = 0;  ///< in InertiaUnit
  double MaxVoltsPct = 0;   ///< largest PWM output, percent
  double MotorR = 0;        ///< ohm
  double MotorL = 0;        ///< mH
  std::string MotorName;    ///< UTF-8; 13 characters at most reach the image
  Long HarmonicGain = 0;    ///< waveform smoothing
  Long HarmonicPhase = 0;   ///< waveform smoothing, may be negative
  Integer TorqueUnit = 0;   ///< index for TorqueUnitName
  Integer InertiaUnit = 0;  ///< index for InertiaUnitName
  Long LeadAngleDeg = 0;    ///< degrees
  Long LeadAngleRps = 0;    ///< rev/sec at which the largest lead angle applies

  bool operator==(const MotorRecord&) const = default;
};

/// The one record that dialogs edit, files keep and drives receive. Its motor block is the custom motor; a
/// motor from the catalogue is not copied here. InitVars gives the start values.
struct Settings : MotorRecord {
  Long ControlMode = 0;  ///< see motion_codes.h
  Long PowerUpMode = 0;  ///< control mode at power-up, in the host command modes
  double CmdScale = 0;   ///< rev/sec at +10 V
  Long AnalogGain = 0;   ///< raw, passed through
  Long PulseType = 0;    ///< see motion_codes.h
  bool DirIsCW = false;  ///< clockwise when B leads A
  Long OpMode = 0;       ///< see motion_codes.h

  bool EncoderCW = false;
  Long MaxTorquePct = 0;   ///< percent
  Long EncoderCounts = 0;  ///< counts/rev
  bool EncoderSingleEnded = false;
  bool StallDetect = false;
  bool StallPrevent = false;
  bool StallFaultOn = false;
  Long StallFaultMs = 0;  ///< ms
  float StallSpeed = 0;   ///< rev/sec; never reaches the image
  float StallAccel = 0;   ///< rev/s/s; never reaches the image

  Long StepsPerRev = 0;
  double RegenOhms = 0;
  double RegenWatts = 0;
  double RegenSecs = 0;  ///< s
  bool RegenExternal = false;
  double AnalogFilter = 0;  ///< Hz
  Long SpareLong = 0;       ///< set at start, read by nothing
  double IdleDelay = 0;     ///< s
  Long StepFilterFreq = 0;  ///< Hz
  Long NoiseFilter = 0;     ///< kHz
  double RunCurrent = 0;    ///< A
  Long IdlePercent = 0;     ///< percent of RunCurrent

  double LoadInertia = 0;       ///< kg m2, whatever unit the user works in
  Integer LoadInertiaUnit = 0;  ///< the user's unit, index for InertiaUnitName
  double InertiaRatio = 0;      ///< load inertia as a multiple of the rotor's
  bool InertiaIsRatio = false;  ///< InertiaRatio holds, not LoadInertia
  bool CustomMotor = false;     ///< the custom motor is the selected one
  bool SmoothingOn = false;
  bool DampingOn = false;

  double MaxAccel = 0;  ///< rev/s/s, at limits and faults
  double MaxSpeed = 0;  ///< rev/sec; never reaches the image
  double Speed = 0;     ///< rev/sec
  double Accel = 0;     ///< rev/s/s
  double Decel = 0;     ///< rev/s/s
  bool TwoSpeeds = false;
  bool RunStop = false;
  bool AnalogVelocity = false;
  double Speed2 = 0;            ///< rev/sec, while X5 is closed
  Long CmdOffset = 0;           ///< mV
  bool AnalogTypeFlag = false;  ///< bit 7 of the analog byte, inverted
  Integer AnalogRange = 0;      ///< see analog_ranges.h
  Long AnalogDeadband = 0;      ///< mV

  Long BrakeDelay = 0;    ///< ms
  Long BrakeEngage = 0;   ///< ms
  std::string RS485Addr;  ///< UTF-8; the first character reaches the image
  Long EnableMode = 0;    ///< this and the five modes that follow: see io_modes.h
  Long AlarmResetMode = 0;
  Long AlarmOutMode = 0;
  Long BrakeMode = 0;
  Long MotionOutMode = 0;
  Long LimitMode = 0;
  Long TxDelay = 0;        ///< ms
  Long ProtocolFlags = 0;  ///< see serial_protocol.h
  Long BitRateCode = 0;    ///< see serial_protocol.h

  Long TuneWord1 = 0;
  Long TuneWord2 = 0;
  Long TuneWord3 = 0;
  Long TuneWord4 = 0;
  Long TuneWord5 = 0;

  bool operator==(const Settings&) const = default;
};

/// Gives every field its start value.
void InitVars(Settings& settings);

/// Turns a packed ControlMode, 11 to 18, back into 11 and the three velocity options. Any other code and the
/// options that go with it are left alone.
void DecodeControlMode(Settings& settings);

/// The caption for the mode on show, with "&&" for a shown ampersand. `present` is the caption as it stands;
/// it stays where OpMode is 3 and ControlMode is neither 7 nor 11.
std::string ModeName(const Settings& settings, const std::string& present);

/// Words of a unit index; any index beyond the list gives its last words.
std::string TorqueUnitName(int index);
std::string InertiaUnitName(int index);

}  // namespace kavr6
