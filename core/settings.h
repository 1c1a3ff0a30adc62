// The configuration of one drive.
#pragma once

#include <cstdint>
#include <string>

namespace kavr6 {

using Long = std::int32_t;
using Integer = std::int16_t;

// Operating modes (OpMode).
inline constexpr Long kOpZuProgram = 1;
inline constexpr Long kOpVtl = 2;
inline constexpr Long kOpPulseOrVelocity = 3;  ///< which of the two, ControlMode says
inline constexpr Long kOpHub = 4;
inline constexpr Long kOpVtlToo = 5;  ///< as kOpVtl; comes from files and drives alone
inline constexpr Long kOpWyProgram = 7;
// Control modes (ControlMode) that decide something here.
inline constexpr Long kControlPulse = 7;
inline constexpr Long kControlVelocity = 11;      ///< in the image packed with its options,
inline constexpr Long kControlVelocityLast = 18;  ///< up to this code
inline constexpr Long kControlPointToPoint = 21;
// Kinds of pulses (PulseType); whatever else comes from a file or a drive is shown as one of these.
inline constexpr Long kPulseAndDirection = 0;
inline constexpr Long kCwCcwPulse = 1;
inline constexpr Long kQuadrature = 2;
/// StepsPerRev of every mode but the pulse modes.
inline constexpr Long kFixedStepsPerRev = 20000;
/// Mode of a dedicated input or output that is not used.
inline constexpr Long kNotUsed = 3;

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
  Long ControlMode = 0;  ///< 2 analog torque, 7 pulse, 11 analog velocity, 21 point to point
  Long PowerUpMode = 0;  ///< control mode at power-up, in the host command modes
  double CmdScale = 0;   ///< rev/sec at +10 V
  Long AnalogGain = 0;   ///< raw, passed through
  Long PulseType = 0;    ///< 0 pulse and direction, 1 CW/CCW, 2 A/B quadrature
  bool DirIsCW = false;  ///< clockwise when B leads A
  Long OpMode = 0;       ///< 1 stored program, 2 VTL, 3 pulse or velocity, 4 hub, 5 as 2, 7 programmable

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
  Integer AnalogRange = 0;      ///< 0 +/-10 V, 1 0..10 V, 2 +/-5 V, 3 0..5 V
  Long AnalogDeadband = 0;      ///< mV

  Long BrakeDelay = 0;    ///< ms
  Long BrakeEngage = 0;   ///< ms
  std::string RS485Addr;  ///< UTF-8; the first character reaches the image
  Long EnableMode = 0;
  Long AlarmResetMode = 0;
  Long AlarmOutMode = 0;
  Long BrakeMode = 0;
  Long MotionOutMode = 0;  ///< 4 to 8: tach output
  Long LimitMode = 0;
  Long TxDelay = 0;        ///< ms
  Long ProtocolFlags = 0;  ///< 1 always, 2 address prefix, 4 ack/nak, 16 converter, 32 Red Lion
  Long BitRateCode = 0;    ///< 1 9600 .. 5 115200

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
