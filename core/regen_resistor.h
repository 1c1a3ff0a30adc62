// The regeneration resistor inside every drive.
#pragma once

namespace kavr6 {

struct RegenResistor {
  double ohms;
  double watts;    ///< continuous power
  double seconds;  ///< peak duration
};

/// A drive that reports just these values has no external resistor.
inline constexpr RegenResistor kInternalResistor{40, 50, 0.3125};

}  // namespace kavr6
