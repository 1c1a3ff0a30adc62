// The ranges of the analog input.
#pragma once

#include <array>
#include <string_view>

#include "core/codes.h"

namespace kavr6 {

struct AnalogRange {
  std::string_view listed;  ///< in the velocity dialog
  std::string_view top;     ///< end of the range, to which CmdScale belongs
  std::string_view reported;
};

/// The index is the code, AnalogRange of the settings.
inline constexpr auto kAnalogRanges = std::to_array<AnalogRange>({
    {"\u00B110V", "10V", "Range = +/- 10V"},
    {"0 to 10V", "10V", "Range = 0 to 10V"},
    {"\u00B15V", "5V", "Range = +/- 5V"},
    {"0 to 5V", "5V", "Range = 0 to 5V"},
});

/// The words for a code; any code that is not known goes by those of the last range.
constexpr const AnalogRange& AnalogRangeOf(Long code) {
  const bool known = code >= 0 && code < Long{kAnalogRanges.size()};
  return known ? kAnalogRanges[static_cast<std::size_t>(code)] : kAnalogRanges.back();
}

}  // namespace kavr6
