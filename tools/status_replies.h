// How the status monitor reads the drive's answers.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kavr6 {

// The buffer holds all that has come in since it was cleared: before and behind the answer may stand what the
// drive has said to something else. Nothing here raises an error, whatever stands there.

/// The prefix, such as "IA=", is there, and somewhere behind it a carriage return.
bool HoldsAnswer(std::string_view buffer, std::string_view prefix);

// The functions below take a buffer that holds an answer to the prefix.

/// What stands behind the prefix, to the end of the buffer.
std::string_view Behind(std::string_view buffer, std::string_view prefix);
/// As many characters behind the prefix as the buffer has, less the prefix and one carriage return.
std::string_view FieldBehind(std::string_view buffer, std::string_view prefix);
/// What stands between the prefix and the first carriage return of the buffer; none when that comes first.
std::optional<std::string_view> LineBehind(std::string_view buffer, std::string_view prefix);

/// Character `place` of a row of signals, from 0, tells of one that is high. All others, also places beyond
/// the end, are low.
bool IsHigh(std::string_view signals, std::size_t place);
/// The hexadecimal number at the beginning of a text, its last 32 bits; 0 without one.
unsigned HexNumber(std::string_view text);
inline constexpr double kSecondsPerMinute = 60.0;
/// Revolutions per minute as revolutions per second, "10.00" or "  9.98": decimal points stand in line.
std::string ShownSpeed(double rpm);
/// "10.00" or "  9.98".
std::string ShownVolts(double volts);

}  // namespace kavr6
