// How the drive is commanded: the codes of OpMode, ControlMode and PulseType with the words for them.
#pragma once

#include <array>
#include <string_view>

#include "core/codes.h"

namespace kavr6 {

// Operating modes (OpMode).
inline constexpr Long kOpZuProgram = 1;
inline constexpr Long kOpVtl = 2;
inline constexpr Long kOpPulseOrVelocity = 3;  ///< which of the two, ControlMode says
inline constexpr Long kOpHub = 4;
inline constexpr Long kOpVtlToo = 5;  ///< as kOpVtl; comes from files and drives alone
inline constexpr Long kOpWyProgram = 7;

struct OperatingMode {
  Long code;
  std::string_view name;      ///< on the main screen
  std::string_view reported;  ///< in print; the address follows an equals sign
};
/// kOpPulseOrVelocity is named by its control mode. A code without a row has no words: the name is empty and
/// the report has no line.
inline constexpr auto kOperatingModes = std::to_array<OperatingMode>({
    {kOpZuProgram, "Zu Program", "Zu Programmer mode"},
    {kOpVtl, "VTL Mode", "VTL mode, RS-485 address = "},
    {kOpHub, "Zulink Hub", "Hub mode"},
    {kOpWyProgram, "Wy Program", "Wy Programmer mode, RS-485 address = "},
});

// Control modes (ControlMode, PowerUpMode) that mean something here.
inline constexpr Long kControlTorque = 2;
inline constexpr Long kControlPulse = 7;
inline constexpr Long kControlVelocity = 11;  ///< in the image packed with the options that follow
inline constexpr Long kControlPointToPoint = 21;
// Added to kControlVelocity in the image.
inline constexpr Long kPackedRunStop = 1;     ///< RunStop is set
inline constexpr Long kPackedTwoSpeeds = 2;   ///< TwoSpeeds is set
inline constexpr Long kPackedFixedSpeed = 4;  ///< AnalogVelocity is not set
inline constexpr Long kControlVelocityLast =
    kControlVelocity + kPackedRunStop + kPackedTwoSpeeds + kPackedFixedSpeed;

struct ControlModeWords {
  Long code;
  std::string_view words;
};
/// The control modes that a drive under a host can take at power-up, as they are offered. Any other code is
/// shown as the first.
inline constexpr auto kPowerUpModes = std::to_array<ControlModeWords>({
    {kControlPulse, "Step & Direction"},
    {10, "Commanded Vel"},
    {kControlVelocity, "Analog Velocity"},
    {12, "Analog Vel, X1=run"},
    {13, "Analog Vel, X5=change speed"},
    {14, "Analog Vel, X1=run, X5=change speed"},
    {15, "Fixed Velocity"},
    {16, "Fixed Vel, X1=run"},
    {17, "Fixed Vel, X5=change speed"},
    {18, "Fixed Vel, X1=run, X5=change speed"},
    {kControlPointToPoint, "Point to Point Positioning"},
    {22, "Analog Positioning"},
});

// Kinds of pulses (PulseType).
inline constexpr Long kPulseAndDirection = 0;
inline constexpr Long kCwCcwPulse = 1;
inline constexpr Long kQuadrature = 2;

struct PulseKind {
  std::string_view name;      ///< on the main screen, whose label needs "&&" to show "&"
  std::string_view listed;    ///< in the list of a dialog, which shows what it is given
  std::string_view reported;  ///< in print
};
/// The index is PulseType. Any other code from a file or a drive goes by the words of kCwCcwPulse on the main
/// screen and of kQuadrature in print; a dialog shows it as kPulseAndDirection or leaves its list alone.
inline constexpr auto kPulseKinds = std::to_array<PulseKind>({
    {"Pulse && Direction", "Pulse & Direction", "Pulse & direction"},
    {"CW/CCW Pulse", "CW & CCW Pulse", "CW Pulse / CCW Pulse"},
    {"Quadrature Following", "A/B Quadrature", "Quadrature encoder following"},
});

/// StepsPerRev of every mode but the pulse modes.
inline constexpr Long kFixedStepsPerRev = 20000;

}  // namespace kavr6
