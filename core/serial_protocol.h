// How the drive talks to a host: the bit rates and the bits of the protocol.
#pragma once

#include <array>
#include <string_view>

#include "core/codes.h"

namespace kavr6 {

/// In bits per second, from BitRateCode 1 on. The report takes a code that is not known as the first; a
/// dialog leaves its list alone.
inline constexpr std::array<int, 5> kBitRates{9600, 19200, 38400, 57600, 115200};

// Bits of ProtocolFlags.
inline constexpr Long kProtocolAlways = 1;
inline constexpr Long kAddressPrefix = 2;
inline constexpr Long kAckNak = 4;
inline constexpr Long kConverter = 16;
inline constexpr Long kRedLion = 32;

struct ProtocolBit {
  Long code;
  std::string_view reported;  ///< in print
};
/// What can be chosen. The dialog words the last one in its own way, without the name of a make.
inline constexpr auto kProtocolBits = std::to_array<ProtocolBit>({
    {kAddressPrefix, "Prefix all responses with address character"},
    {kAckNak, "Respond to all commands with ack or nak"},
    {kConverter, "Use this drive as RS-232 to RS-485 converter"},
    {kRedLion, "Use Red Lion register addressing"},
});

/// All bits that are known here; an upload drops the others.
inline constexpr Long kKnownProtocolBits = [] {
  Long known = kProtocolAlways;
  for (const ProtocolBit& bit : kProtocolBits) known |= bit.code;
  return known;
}();

}  // namespace kavr6
