// The status word of the drive.
#pragma once

#include <array>
#include <string_view>

#include "platform/controls.h"

namespace kavr6 {

struct StatusBit {
  std::string_view name;  ///< in the status monitor
  Lamp::State lit;
};

/// The index is the bit; those above have no meaning here.
inline constexpr auto kStatusBits = std::to_array<StatusBit>({
    {"Enabled", Lamp::State::Green},
    {"Sampling", Lamp::State::Green},
    {"Fault", Lamp::State::Red},
    {"Motion", Lamp::State::Green},
    {"P2P Move", Lamp::State::Green},
    {"Jogging", Lamp::State::Green},
    {"Stopping", Lamp::State::Yellow},
    {"Wait Input", Lamp::State::Green},
    {"Saving", Lamp::State::Green},
    {"Alarm", Lamp::State::Yellow},
    {"Homing", Lamp::State::Green},
    {"Wait Time", Lamp::State::Green},
    {"Wizard 1", Lamp::State::Green},
    {"Wizard 2", Lamp::State::Green},
});

/// The word with the bit of this name alone. A name that is not in the table does not compile.
consteval int StatusMask(std::string_view name) {
  std::size_t bit = 0;
  while (kStatusBits.at(bit).name != name) ++bit;
  return 1 << bit;
}
inline constexpr int kStatusEnabled = StatusMask("Enabled");
inline constexpr int kStatusFault = StatusMask("Fault");
inline constexpr int kStatusAlarm = StatusMask("Alarm");

}  // namespace kavr6
