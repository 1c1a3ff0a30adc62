// The alarm word of the drive.
#pragma once

#include <array>
#include <string_view>

#include "platform/controls.h"

namespace kavr6 {

/// One bit of the word. Each window words it in its own way; an empty text: the window does not show the bit.
struct Alarm {
  std::string_view monitored;  ///< in the status monitor
  std::string_view fault;      ///< in the fault window
  std::string_view history;    ///< in the alarm history
  Lamp::State lit;             ///< in the status monitor; red: the motor is disabled
  bool popsUp;                 ///< an alarm message with this bit opens the fault window
};

/// The index is the bit. Messages carry the first 14 bits alone.
inline constexpr auto kAlarms = std::to_array<Alarm>({
    {"motor stall", "motor stalled", "motor stall", Lamp::State::Yellow, true},
    {"CCW Limit", "CCW Limit", "CCW Limit", Lamp::State::Yellow, false},
    {"CW Limit", "CW Limit", "CW Limit", Lamp::State::Yellow, false},
    {"over temp", "drive overtemp", "drive overtemp", Lamp::State::Red, true},
    {"excess regen", "excess regen", "excess regen", Lamp::State::Red, true},
    {"over voltage", "over voltage", "over voltage", Lamp::State::Red, true},
    {"under voltage", "under voltage", "under voltage", Lamp::State::Red, false},
    {"overcurrent", "motor short", "over current", Lamp::State::Red, true},
    {"open phase", "open motor winding", "open motor winding", Lamp::State::Red, false},
    {"bad encoder", "bad encoder", "bad encoder", Lamp::State::Red, true},
    {"serial comm", "comm error", "comm error", Lamp::State::Yellow, false},
    {"flash memory", "save failed", "save failed", Lamp::State::Yellow, false},
    {"move while dis", "move while disabled", "move attempted while disabled", Lamp::State::Yellow, false},
    {"motor ohms", "motor resistance error", "motor resistance", Lamp::State::Yellow, false},
    {"", "", "reserved", Lamp::State::Off, true},
    {"", "", "reserved", Lamp::State::Off, true},
});

/// Bits of the alarms in the status monitor, from its first row down.
inline constexpr std::array<std::size_t, 14> kMonitoredAlarms{0, 13, 1, 2, 3, 4, 5, 6, 12, 7, 8, 9, 10, 11};

/// The word of those alarms of which `holds`.
template <class Predicate>
constexpr int AlarmsThat(Predicate holds) {
  int word = 0;
  for (std::size_t bit = 0; bit < kAlarms.size(); ++bit)
    if (holds(kAlarms[bit])) word |= 1 << bit;
  return word;
}
inline constexpr int kPopupAlarms = AlarmsThat([](const Alarm& alarm) { return alarm.popsUp; });
inline constexpr int kDisablingAlarms =
    AlarmsThat([](const Alarm& alarm) { return alarm.lit == Lamp::State::Red; });

}  // namespace kavr6
