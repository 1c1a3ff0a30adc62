#include "image/byte_codec.h"

#include <algorithm>
#include <bit>
#include <cmath>

#include "core/numbers.h"
#include "platform/runtime_error.h"

namespace kavr6 {
namespace {

constexpr int kBitsPerDigit = 4;
/// A mantissa has its highest bit here or above, unless the value is so large that the exponent is 0.
constexpr int kMantissaBit = 22;

/// The first `digits` digits of the value written in hexadecimal, with zeros in front of a shorter one. What
/// stands behind them is lost: the format cuts a long number at its end, not at its beginning.
std::uint32_t FirstDigits(std::uint32_t value, int digits) {
  const int present = (std::bit_width(value) + kBitsPerDigit - 1) / kBitsPerDigit;
  return present > digits ? value >> (kBitsPerDigit * (present - digits)) : value;
}

Byte ByteAt(std::uint32_t value, int shift) { return static_cast<Byte>(value >> shift & 0xFFU); }

std::uint32_t DigitValue(Byte character) {
  if (character >= '0' && character <= '9') return character - std::uint32_t{'0'};
  const Byte letter = character | 0x20U;
  if (letter >= 'a' && letter <= 'f') return letter - std::uint32_t{'a'} + 10;
  RaiseTypeMismatch();
}

Long Signed16(Long word) { return word >= 32768 ? word - 65536 : word; }

}  // namespace

void HexBytes16(Long value, Byte& high, Byte& low) {
  // A negative value has eight digits, of which the last four count: its low half.
  const auto bits = static_cast<std::uint32_t>(value);
  const std::uint32_t word = value < 0 ? bits & 0xFFFFU : FirstDigits(bits, 4);
  high = ByteAt(word, 8);
  low = ByteAt(word, 0);
}

void SignedString16(Long value, Byte& high, Byte& low) {
  const Long word = value < 0 ? value + 65536 : value;
  if (word < 0 || word > 0xFFFF) RaiseOverflow();
  high = static_cast<Byte>(word / 256);
  low = static_cast<Byte>(word % 256);
}

void HexBytes24(Long value, Byte& top, Byte& middle, Byte& low) {
  const std::uint32_t word = FirstDigits(static_cast<std::uint32_t>(value), 6);
  top = ByteAt(word, 16);
  middle = ByteAt(word, 8);
  low = ByteAt(word, 0);
}

void FloatBytes(double value, Byte& exponent, Byte& top, Byte& middle, Byte& low) {
  if (value == 0.0) {
    exponent = top = middle = low = 0;
    return;
  }
  // Doubling a negative value would never reach the mantissa's range.
  if (!std::isfinite(value) || value < 0.0) RaiseOverflow();
  const int doublings = std::max(0, kMantissaBit - std::ilogb(value));
  exponent = ToByte(doublings);
  HexBytes24(ToLong(std::ldexp(value, doublings)), top, middle, low);
}

Long ImageReader::Str2Num16() {
  const Long high = Str2Num8();
  return high * 256 + Str2Num8();
}

Long ImageReader::Str2Num16Signed() { return Signed16(Str2Num16()); }

Long ImageReader::SignedStr2Num16() { return Signed16(Str2Num16()); }

Long ImageReader::Str2Num24() {
  const Long high = Str2Num16();
  return high * 256 + Str2Num8();
}

double ImageReader::Str2Float() {
  const int exponent = Str2Num8();
  return std::ldexp(Str2Num24(), -exponent);
}

Long ByteSum(std::span<const Byte> bytes) {
  Long sum = 0;
  for (std::size_t i = 0; i + 2 < bytes.size(); ++i) sum += bytes[i];
  return sum;
}

Long SumStr(std::string_view text) {
  Long sum = 0;
  for (const char c : text) sum += static_cast<unsigned char>(c);
  return sum;
}

Long MakeLong(std::span<const Byte> bytes) {
  if (bytes.size() < 5) RaiseSubscript();
  std::uint32_t value = 0;
  for (const Byte character : bytes.subspan(1, 4)) value = value << kBitsPerDigit | DigitValue(character);
  return static_cast<Long>(value);
}

std::string String32(Long value) {
  const auto bits = static_cast<std::uint32_t>(value);
  std::string text;
  for (const int shift : {24, 16, 8, 0}) text += static_cast<char>(ByteAt(bits, shift));
  return text;
}

}  // namespace kavr6
