// What the dedicated inputs and outputs can do: the codes of their modes with the words for them.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "core/settings.h"

namespace kavr6 {

// The modes. Each input and output has 1, 2 or both of its own.
inline constexpr Long kEnableOpen = 1;
inline constexpr Long kEnableClosed = 2;
inline constexpr Long kAlarmReset = 1;
inline constexpr Long kAlarmCloses = 1;
inline constexpr Long kAlarmOpens = 2;
inline constexpr Long kBrakeCloses = 1;
inline constexpr Long kBrakeOpens = 2;
inline constexpr Long kMotionOpen = 1;
inline constexpr Long kMotionClosed = 2;
inline constexpr Long kLimitClosed = 1;
inline constexpr Long kLimitOpen = 2;
/// Mode of any input or output that is not used. Without its input the motor is enabled on its own.
inline constexpr Long kNotUsed = 3;
inline constexpr Long kFirstTach = 4;  ///< of MotionOutMode: from here on the output is a tachometer

/// Pulses per turn of the tach modes from kFirstTach on. The grid and the dialogs take a mode beyond them as
/// the first; the report has no line for it.
inline constexpr std::array<int, 5> kTachPulses{100, 200, 400, 800, 1600};
inline constexpr Long kLastTach = kFirstTach + Long{kTachPulses.size()} - 1;

/// "Tach 200 ppr", of one of the tach modes.
inline std::string TachText(Long mode) {
  return "Tach " + std::to_string(kTachPulses.at(static_cast<std::size_t>(mode - kFirstTach))) + " ppr";
}

/// The words for limit inputs at the end of travel, as they are offered: for the modes from 1 to kNotUsed.
inline constexpr auto kLimitWords = std::to_array<std::string_view>({"closed", "open", "not used"});

struct IoFunction {
  std::string_view name;  ///< in the grid
  Long Settings::*mode;
  std::array<std::string_view, 2> shown;     ///< in the grid, for modes 1 and 2
  std::array<std::string_view, 3> reported;  ///< in print, for modes 1 to 3
  Long reportedOther;  ///< the mode as which the report takes any code beyond; 0: no line for these
};

/// In the order of the grid, where a mode without words reads "not used" if it is no tach mode. A "#" in
/// print stands for a time of the brake in ms: first BrakeDelay, then BrakeEngage.
inline constexpr auto kIoFunctions = std::to_array<IoFunction>({
    {"Fault Out",
     &Settings::AlarmOutMode,
     {"Close on fault", "Open on fault"},
     {"If a fault occurs, close Alarm Output.", "If a fault occurs, open Alarm Output.",
      "Alarm Output not used for signaling faults, available for other uses."},
     kNotUsed},
    {"Alarm In",
     &Settings::AlarmResetMode,
     {"Close to reset", "Open to reset"},
     {"Allow faults to be cleared by closing Alarm Reset Input",
      "Allow faults to be cleared by opening Alarm Reset Input",
      "Do not allow faults to be cleared by Alarm Reset Input"},
     kNotUsed},
    {"Limits",
     &Settings::LimitMode,
     {"Closed at limit", "Open at limit"},
     {"At end of travel limit, sensors are closed.", "At end of travel limit, sensors are open.",
      "No limit sensors, limit inputs are available for other uses."},
     0},
    // The grid is right about mode 1; the report has always said the reverse, and goes on to.
    {"Enable",
     &Settings::EnableMode,
     {"Open to enable", "Close to enable"},
     {"Enable motor when Enable input is closed.", "Enable motor when Enable input is open.",
      "Enable motor automatically at power up."},
     kNotUsed},
    {"Motion Out",
     &Settings::MotionOutMode,
     {"Open if running", "Close if running"},
     {"Open Motion Output when moving.", "Close Motion Output when moving.", "Motion Output not used."},
     0},
    {"Brake Out",
     &Settings::BrakeMode,
     {"Close to release", "Open to release"},
     {"Close Brake Output # ms before moving, open brake output # ms before disabling servo.",
      "Open Brake Output # ms before moving, close brake output # ms before disabling servo.",
      "Brake Output not used for brake, available for other uses."},
     kBrakeOpens},
});

/// Names of the inputs, with what some do on their own; the first eight are on the larger drives alone.
inline constexpr auto kInputNames = std::to_array<std::string_view>(
    {"IN1", "IN2", "IN3", "IN4", "IN5/cwjog", "IN6/ccwjog", "IN7/cwlim", "IN8/ccwlim", "X0", "X1/cwjog",
     "X2/ccwjog", "X3", "X4", "X5", "X6/ccwlimit", "X7/cwlimit"});

}  // namespace kavr6
