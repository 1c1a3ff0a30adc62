#include "link/rx_ring.h"

#include "link/wire.h"

namespace kavr6 {
namespace {

constexpr int kRingSize = 32;

constexpr Integer Around(int index) { return static_cast<Integer>(index % kRingSize); }

}  // namespace

void RxRing::RingClear() { Tail_ = Head_ = 0; }

int RxRing::RingCount() const { return Around(Head_ - Tail_ + kRingSize); }

std::uint8_t RxRing::RingPop() {
  if (Tail_ == Head_) return 0;
  Tail_ = Around(Tail_ + 1);
  return RingPeek(0);
}

std::uint8_t RxRing::RingPeek(int i) const { return Data_[static_cast<std::size_t>(Around(Tail_ + i))]; }

void RxRing::RingPush(std::span<const std::uint8_t> bytes) {
  for (const std::uint8_t byte : bytes) {
    Head_ = Around(Head_ + 1);
    Data_[static_cast<std::size_t>(Head_)] = byte;
  }
}

bool RxRing::RingHasHigh() const {
  for (int i = 1; i <= RingCount(); ++i)
    if (RingPeek(i) >= kFirstHeader) return true;
  return false;
}

}  // namespace kavr6
