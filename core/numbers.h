// Conversions between numbers and between numbers and texts.
#pragma once

#include <charconv>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/settings.h"

namespace kavr6 {

/// Nearest integer, an exact half to the even neighbour. RuntimeError Overflow outside the result's range and
/// for infinity or a not-a-number.
Long ToLong(double value);
Integer ToInteger(double value);
/// 0 to 255, else RuntimeError Overflow.
std::uint8_t ToByte(double value);
/// `numerator / denominator`. A denominator of 0 is a RuntimeError: Division by zero, or Overflow for 0 / 0.
double Divide(double numerator, double denominator);

/// Shortest plain decimal text: at most 15 significant digits for a double, 7 for a float, no trailing zeros,
/// exponent form such as 1E-05 below 1E-04 and from 1E+15. RuntimeError Overflow for what is not finite.
std::string NumberText(double value);
std::string NumberText(float value);
std::string NumberText(Long value);
/// For the screen: a double that holds a single, such as 3.2F, is shown as that single, "3.2".
std::string ShownNumber(double value);

/// The number that the whole text is, blanks around it allowed: sign, digits, decimal point, exponent as in
/// "1E-05". RuntimeError: Type mismatch for any other text, Overflow beyond the range of a double.
double StrictNumber(std::string_view text);
/// The number at the beginning of a text: leading blanks are skipped, reading ends at the first character
/// that cannot continue the number. 0 without one; beyond the range of a double, the end of that range.
double PrefixNumber(std::string_view text);

/// std::from_chars for a plain decimal number with a fraction, which not every standard library has.
std::from_chars_result RealFromChars(const char* first, const char* last, double& value);

/// A number by a picture such as "0.00", "#0.000" or "#.0##": 0 is a digit always shown, # one shown when
/// significant. The decimal text of the value is rounded, a half away from zero.
std::string FormatNumber(double value, std::string_view picture);
std::string FormatNumber(float value, std::string_view picture);

/// Character codes of a text, one byte each; a character without a code below 256 becomes "?".
std::string CharacterCodes(std::string_view utf8);
/// The one-character text of a code from 0 to 255.
std::string CharacterOf(std::uint8_t code);
/// Drops each character outside " " to "~", then the trailing blanks.
std::string NoBadChars(std::string_view text);
std::string TrimTrailingBlanks(std::string_view text);

}  // namespace kavr6
