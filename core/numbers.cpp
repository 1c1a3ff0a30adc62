#include "core/numbers.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "platform/runtime_error.h"

namespace kavr6 {
namespace {

template <class T>
T ToWhole(double value) {
  // The default rounding direction is to nearest, ties to even.
  const double rounded = std::nearbyint(value);
  if (!(rounded >= std::numeric_limits<T>::min() && rounded <= std::numeric_limits<T>::max()))
    RaiseOverflow();
  return static_cast<T>(rounded);
}

/// A number as its significant decimal digits, without leading and trailing zeros: 0.d1d2d3... x 10^point.
/// Zero has no digits.
struct Decimal {
  bool negative = false;
  std::string digits;
  int point = 0;
};

Decimal DecimalOf(double value, int significant) {
  if (!std::isfinite(value)) RaiseOverflow();
  char text[40];
  const auto end =
      std::to_chars(text, text + sizeof text, std::abs(value), std::chars_format::scientific, significant - 1)
          .ptr;
  const char* const e = std::find(text, end, 'e');
  Decimal decimal;
  decimal.negative = value < 0;
  std::copy_if(text, const_cast<char*>(e), std::back_inserter(decimal.digits),
               [](char c) { return c != '.'; });
  decimal.digits.erase(decimal.digits.find_last_not_of('0') + 1);
  int exponent = 0;
  std::from_chars(e[1] == '+' ? e + 2 : e + 1, end, exponent);
  decimal.point = exponent + 1;
  return decimal;
}

/// Digits before and behind the point, each without needless zeros.
std::string WholePart(const Decimal& d) {
  std::string whole = d.digits.substr(0, static_cast<std::size_t>(std::max(d.point, 0)));
  if (!whole.empty()) whole.append(static_cast<std::size_t>(d.point) - whole.size(), '0');
  return whole;
}

std::string FractionPart(const Decimal& d) {
  if (d.digits.empty()) return {};
  if (d.point <= 0) return std::string(static_cast<std::size_t>(-d.point), '0') + d.digits;
  const auto point = static_cast<std::size_t>(d.point);
  return point < d.digits.size() ? d.digits.substr(point) : std::string();
}

std::string PlainText(const Decimal& d) {
  if (d.digits.empty()) return "0";
  std::string text = d.negative ? "-" : "";
  // 0.0001 is the smallest and 999999999999999 the largest number without an exponent.
  if (d.point < -3 || d.point > 15) {
    text += d.digits[0];
    if (d.digits.size() > 1) text += "." + d.digits.substr(1);
    const int exponent = d.point - 1;
    const std::string size = std::to_string(std::abs(exponent));
    return text + (exponent < 0 ? "E-" : "E+") + (size.size() < 2 ? "0" : "") + size;
  }
  const std::string whole = WholePart(d);
  const std::string fraction = FractionPart(d);
  text += whole.empty() ? "0" : whole;
  return fraction.empty() ? text : text + "." + fraction;
}

/// Rounds half away from zero to `places` digits behind the point.
void RoundDecimal(Decimal& d, int places) {
  const int keep = d.point + places;
  if (keep < 0) {
    d.digits.clear();
    return;
  }
  const auto kept = static_cast<std::size_t>(keep);
  if (kept >= d.digits.size()) return;
  const bool up = d.digits[kept] >= '5';
  d.digits.resize(kept);
  if (up) {
    auto place = kept;
    while (place > 0 && d.digits[place - 1] == '9') --place;
    d.digits.resize(place);
    if (place > 0) {
      ++d.digits[place - 1];
    } else {
      d.digits = "1";
      ++d.point;
    }
  }
  d.digits.erase(d.digits.find_last_not_of('0') + 1);
}

std::string ByPicture(Decimal d, std::string_view picture) {
  const std::size_t dot = std::min(picture.find('.'), picture.size());
  const std::string_view wholePicture = picture.substr(0, dot);
  const std::string_view fractionPicture = picture.substr(std::min(dot + 1, picture.size()));
  RoundDecimal(d, static_cast<int>(fractionPicture.size()));
  std::string whole = WholePart(d);
  const auto leastWhole = static_cast<std::size_t>(std::count(wholePicture.begin(), wholePicture.end(), '0'));
  if (whole.size() < leastWhole) whole.insert(0, leastWhole - whole.size(), '0');
  std::string fraction = FractionPart(d);
  const auto leastFraction =
      static_cast<std::size_t>(std::count(fractionPicture.begin(), fractionPicture.end(), '0'));
  if (fraction.size() < leastFraction) fraction.append(leastFraction - fraction.size(), '0');
  const std::string sign = d.negative && !d.digits.empty() ? "-" : "";
  return sign + whole + (dot < picture.size() ? "." : "") + fraction;
}

constexpr int kDoubleDigits = 15;
constexpr int kFloatDigits = 7;

/// Length of the UTF-8 sequence that begins with this byte.
std::size_t SequenceLength(unsigned char lead) {
  if (lead >= 0xF0) return 4;
  if (lead >= 0xE0) return 3;
  return lead >= 0xC0 ? 2 : 1;
}

}  // namespace

Long ToLong(double value) { return ToWhole<Long>(value); }
Integer ToInteger(double value) { return ToWhole<Integer>(value); }
std::uint8_t ToByte(double value) { return ToWhole<std::uint8_t>(value); }

double Divide(double numerator, double denominator) {
  if (denominator == 0.0) {
    if (numerator == 0.0) RaiseOverflow();
    RaiseDivisionByZero();
  }
  return numerator / denominator;
}

std::string NumberText(double value) { return PlainText(DecimalOf(value, kDoubleDigits)); }
std::string NumberText(float value) { return PlainText(DecimalOf(static_cast<double>(value), kFloatDigits)); }
std::string ShownNumber(double value) {
  const auto single = static_cast<float>(value);
  return static_cast<double>(single) == value ? NumberText(single) : NumberText(value);
}

std::string NumberText(Long value) { return std::to_string(value); }

std::string FormatNumber(double value, std::string_view picture) {
  return ByPicture(DecimalOf(value, kDoubleDigits), picture);
}

std::string FormatNumber(float value, std::string_view picture) {
  return ByPicture(DecimalOf(static_cast<double>(value), kFloatDigits), picture);
}

namespace {

constexpr std::string_view kBlanks = " \t";

std::size_t DigitsFrom(std::string_view text, std::size_t at) {
  return std::min(text.find_first_not_of("0123456789", at), text.size()) - at;
}

/// Length of the number that the text begins with, its sign and exponent included; 0 when there is none.
std::size_t NumberLength(std::string_view text) {
  std::size_t at = text.starts_with('-') || text.starts_with('+') ? 1 : 0;
  std::size_t digits = DigitsFrom(text, at);
  at += digits;
  if (at < text.size() && text[at] == '.') {
    const std::size_t fraction = DigitsFrom(text, at + 1);
    digits += fraction;
    at += 1 + fraction;
  }
  if (digits == 0) return 0;
  if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
    const std::size_t sign = at + 1 < text.size() && (text[at + 1] == '-' || text[at + 1] == '+') ? 1 : 0;
    const std::size_t exponent = DigitsFrom(text, at + 1 + sign);
    if (exponent > 0) at += 1 + sign + exponent;
  }
  return at;
}

/// Decimal exponent of a number's first significant digit, roughly.
double PowerOfTen(std::string_view number) {
  const std::size_t e = std::min(number.find_first_of("eE"), number.size());
  const std::size_t point = std::min(number.find('.'), e);
  double exponent = 0;
  if (e < number.size()) {
    std::string_view digits = number.substr(e + 1);
    if (digits.starts_with('+')) digits.remove_prefix(1);
    if (RealFromChars(digits.data(), digits.data() + digits.size(), exponent).ec != std::errc())
      return digits.starts_with('-') ? -HUGE_VAL : HUGE_VAL;
  }
  const std::size_t first = std::min(number.find_first_of("123456789"), e);
  return exponent + static_cast<double>(point) - static_cast<double>(first);
}

/// Value of a text that is a number as a whole; infinite beyond the range of a double.
double ValueOf(std::string_view number) {
  if (number.starts_with('+')) number.remove_prefix(1);
  double value = 0;
  const auto result = RealFromChars(number.data(), number.data() + number.size(), value);
  if (result.ec != std::errc::result_out_of_range) return value;
  if (PowerOfTen(number) < 0) return 0;
  return number.starts_with('-') ? -std::numeric_limits<double>::infinity()
                                 : std::numeric_limits<double>::infinity();
}

std::string_view WithoutLeadingBlanks(std::string_view text) {
  return text.substr(std::min(text.find_first_not_of(kBlanks), text.size()));
}

}  // namespace

std::from_chars_result RealFromChars(const char* first, const char* last, double& value) {
#ifdef __cpp_lib_to_chars
  return std::from_chars(first, last, value);
#else
  const std::string text(first, last);
  char* end = nullptr;
  errno = 0;
  const double read = std::strtod(text.c_str(), &end);
  if (end == text.c_str()) return {first, std::errc::invalid_argument};
  const char* const rest = first + (end - text.c_str());
  // A number too small for all its digits is told in the same way, and is right.
  if (errno == ERANGE && (read == 0 || std::isinf(read))) return {rest, std::errc::result_out_of_range};
  value = read;
  return {rest, {}};
#endif
}

double StrictNumber(std::string_view text) {
  text = WithoutLeadingBlanks(text);
  text = text.substr(0, text.find_last_not_of(kBlanks) + 1);
  const std::size_t length = NumberLength(text);
  if (length == 0 || length != text.size()) RaiseTypeMismatch();
  const double value = ValueOf(text);
  if (!std::isfinite(value)) RaiseOverflow();
  return value;
}

double PrefixNumber(std::string_view text) {
  text = WithoutLeadingBlanks(text);
  const std::size_t length = NumberLength(text);
  if (length == 0) return 0;
  constexpr double kMost = std::numeric_limits<double>::max();
  return std::clamp(ValueOf(text.substr(0, length)), -kMost, kMost);
}

std::string CharacterCodes(std::string_view utf8) {
  std::string codes;
  for (std::size_t i = 0; i < utf8.size();) {
    const auto lead = static_cast<unsigned char>(utf8[i]);
    const std::size_t length = SequenceLength(lead);
    if (length == 1 || i + length > utf8.size()) {
      codes += utf8[i++];
      continue;
    }
    // Two-byte sequences that begin with C2 or C3 are the codes 128 to 255.
    const auto next = static_cast<unsigned char>(utf8[i + 1]);
    codes += length == 2 && lead <= 0xC3 ? static_cast<char>((lead & 0x03U) << 6U | (next & 0x3FU)) : '?';
    i += length;
  }
  return codes;
}

std::string CharacterOf(std::uint8_t code) {
  if (code < 128) return {static_cast<char>(code)};
  return {static_cast<char>(0xC0U | code >> 6U), static_cast<char>(0x80U | (code & 0x3FU))};
}

std::string TrimTrailingBlanks(std::string_view text) {
  return std::string(text.substr(0, text.find_last_not_of(' ') + 1));
}

std::string NoBadChars(std::string_view text) {
  std::string kept;
  std::copy_if(text.begin(), text.end(), std::back_inserter(kept),
               [](char c) { return c >= ' ' && c <= '~'; });
  return TrimTrailingBlanks(kept);
}

}  // namespace kavr6
