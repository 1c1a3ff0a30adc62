// The number encodings of the parameter image and of the short binary exchanges. All are big-endian.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "core/settings.h"
#include "platform/runtime_error.h"

namespace kavr6 {

using Byte = std::uint8_t;

/// 16-bit word by hexadecimal text: a negative value gives its last four digits, a value above 65535 its
/// first four.
void HexBytes16(Long value, Byte& high, Byte& low);
/// 16-bit two's complement word by arithmetic. RuntimeError Overflow from 65536 and below -65536.
void SignedString16(Long value, Byte& high, Byte& low);
/// 24-bit word by hexadecimal text, first six digits.
void HexBytes24(Long value, Byte& top, Byte& middle, Byte& low);
/// Exponent e and 23-bit mantissa m, value = m / 2^e. RuntimeError Overflow for a negative value, infinity
/// and a not-a-number, and for a value whose parts do not fit.
void FloatBytes(double value, Byte& exponent, Byte& top, Byte& middle, Byte& low);

/// Reads a buffer from front to back. ImagePos is the index of the next byte; each decoder advances it by
/// what it has read. Reading beyond the end is a RuntimeError.
class ImageReader {
 public:
  explicit ImageReader(std::span<const Byte> buffer) : buffer_(buffer) {}

  Integer ImagePos = 0;

  Byte Str2Num8() {
    const auto place = static_cast<std::size_t>(ImagePos);
    if (place >= buffer_.size()) RaiseSubscript();
    ++ImagePos;
    return buffer_[place];
  }
  Long Str2Num16();
  /// Two names for one reading; each field keeps the one it has always had.
  Long Str2Num16Signed();
  Long SignedStr2Num16();
  Long Str2Num24();
  double Str2Float();

 private:
  std::span<const Byte> buffer_;
};

/// Sum of all elements but the last two, which carry the sum itself.
Long ByteSum(std::span<const Byte> bytes);
/// Sum of the character codes of a text with one byte a character.
Long SumStr(std::string_view text);
/// Elements 1 to 4 as the four characters of a hexadecimal number.
Long MakeLong(std::span<const Byte> bytes);
/// The value's four bytes, most significant first.
std::string String32(Long value);

}  // namespace kavr6
