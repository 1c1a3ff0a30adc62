// Codes of the settings in the words of the program. A code without words is told by its number, so that two
// codes never read the same.
#pragma once

#include <string>

#include "core/io_modes.h"
#include "core/settings.h"

namespace kavr6::setting_words {

std::string OperatingModeOf(Long code);
std::string ControlModeOf(Long code);
std::string PowerUpModeOf(Long code);
std::string PulseKindOf(Long code);
std::string RangeOf(Long code);
std::string BitRateOf(Long code);
/// All bits, one behind the other.
std::string ProtocolOf(Long flags);
std::string TorqueUnitOf(Long index);
std::string InertiaUnitOf(Long index);
/// Rows of the lists of the main screen.
std::string ModelOf(Long row);
std::string PortOf(Long row);
/// The mode of an input or output, as the grid words it.
std::string IoModeOf(const IoFunction& function, Long mode);

}  // namespace kavr6::setting_words
