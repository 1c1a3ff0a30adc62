// The short ring between the serial port and the scanners.
#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "core/settings.h"

namespace kavr6 {

/// Holds at most kRoom bytes. There is no overflow check: one more unread byte makes the ring read as empty,
/// and further bytes overwrite. Drives and tool count on that size.
class RxRing {
 public:
  static constexpr int kRoom = 31;

  void RingClear();
  int RingCount() const;
  /// 0, and no change, when empty.
  std::uint8_t RingPop();
  /// The i-th waiting byte, from 1, without taking it. Does not look at RingCount.
  std::uint8_t RingPeek(int i) const;
  void RingPush(std::span<const std::uint8_t> bytes);
  /// Any waiting byte is kFirstHeader or more.
  bool RingHasHigh() const;

 private:
  std::array<std::uint8_t, 33> Data_{};  // the last element is never used
  Integer Tail_ = 0;                     // index of the last byte taken
  Integer Head_ = 0;                     // index of the last byte stored
};

}  // namespace kavr6
