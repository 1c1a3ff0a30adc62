#include "link/rx_ring.h"

#include <numeric>

#include <gtest/gtest.h>

#include "platform/mscomm.h"

namespace kavr6 {
namespace {

Bytes Drain(RxRing& ring) {
  Bytes bytes;
  while (ring.RingCount() > 0) bytes.push_back(ring.RingPop());
  return bytes;
}

TEST(RxRing, KeepsOrderUpTo31BytesAndForgets32FromEveryStartingPoint) {
  Bytes bytes(40);
  std::iota(bytes.begin(), bytes.end(), std::uint8_t{101});
  for (std::size_t offset = 0; offset < 32; ++offset) {
    for (const std::size_t count : {3U, 31U, 32U, 40U}) {
      RxRing ring;
      ring.RingPush(std::span(bytes).first(offset));
      Drain(ring);
      ring.RingPush(std::span(bytes).first(count));
      const auto left = bytes.begin() + (count < 32 ? 0 : 32);
      EXPECT_EQ(ring.RingHasHigh(), count != 32 && *(bytes.begin() + static_cast<int>(count) - 1) >= 128);
      EXPECT_EQ(Drain(ring), Bytes(left, bytes.begin() + static_cast<int>(count))) << count << ", " << offset;
      EXPECT_FALSE(ring.RingHasHigh()) << "bytes that were taken do not count";
      EXPECT_EQ(ring.RingPop(), 0);
      EXPECT_EQ(ring.RingCount(), 0);
    }
  }
}

}  // namespace
}  // namespace kavr6
