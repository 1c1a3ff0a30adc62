#include "tools/status_replies.h"

#include <charconv>

#include "core/numbers.h"
#include "link/wire.h"

namespace kavr6 {
namespace {

constexpr const char* kPicture = "#0.00";
constexpr const char* kInsteadOfDigit = "  ";
constexpr double kTwoDigits = 10.0;

}  // namespace

bool HoldsAnswer(std::string_view buffer, std::string_view prefix) {
  const std::size_t at = buffer.find(prefix);
  return at != std::string_view::npos && buffer.find(kReturn, at) != std::string_view::npos;
}

std::string_view Behind(std::string_view buffer, std::string_view prefix) {
  return buffer.substr(buffer.find(prefix) + prefix.size());
}

std::string_view FieldBehind(std::string_view buffer, std::string_view prefix) {
  return Behind(buffer, prefix).substr(0, buffer.size() - prefix.size() - 1);
}

std::optional<std::string_view> LineBehind(std::string_view buffer, std::string_view prefix) {
  const std::size_t begin = buffer.find(prefix) + prefix.size();
  const std::size_t end = buffer.find(kReturn);
  if (end < begin) return std::nullopt;
  return buffer.substr(begin, end - begin);
}

bool IsHigh(std::string_view signals, std::size_t place) {
  return place < signals.size() && signals[place] == '1';
}

unsigned HexNumber(std::string_view text) {
  unsigned number = 0;
  for (const char& c : text) {
    unsigned digit = 0;
    if (std::from_chars(&c, &c + 1, digit, 16).ec != std::errc()) break;
    number = number << 4 | digit;
  }
  return number;
}

std::string ShownSpeed(double rpm) {
  // What is just below still gets the blanks, though it is rounded up.
  return (rpm >= kTwoDigits * kSecondsPerMinute ? "" : kInsteadOfDigit) +
         FormatNumber(rpm / kSecondsPerMinute, kPicture);
}

std::string ShownVolts(double volts) {
  return (volts >= kTwoDigits ? "" : kInsteadOfDigit) + FormatNumber(volts, kPicture);
}

}  // namespace kavr6
