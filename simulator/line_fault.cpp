#include "simulator/line_fault.h"

#include <utility>

namespace kavr6 {

void FaultyWay::Arm(const FaultAt& fault) {
  ClearFault();
  fault_ = fault;
}

void FaultyWay::ClearFault() {
  fault_.reset();
  swapped_.reset();
  carried_ = 0;
  silent_ = false;
  delay_ = 0.0;
}

void FaultyWay::Carry(std::uint8_t byte) {
  if (silent_) return;
  if (!fault_ || carried_++ != fault_->byte) {
    Deliver(byte);
    if (const auto before = std::exchange(swapped_, std::nullopt)) Deliver(*before);
    return;
  }
  Happen(*std::exchange(fault_, std::nullopt), byte);
}

void FaultyWay::Happen(const FaultAt& fault, std::uint8_t byte) {
  switch (fault.fault) {
    case LineFault::Lost:
      break;
    case LineFault::Doubled:
      Deliver(byte);
      Deliver(byte);
      break;
    case LineFault::Flipped:
      Deliver(byte ^ fault.value);
      break;
    case LineFault::Inserted:
      Deliver(fault.value);
      Deliver(byte);
      break;
    case LineFault::Late:
      delay_ = fault.seconds;
      Deliver(byte);
      break;
    case LineFault::Silence:
      silent_ = true;
      break;
    case LineFault::HangUp:
      beyond_(fault.fault);
      break;
    case LineFault::Swapped:
      swapped_ = byte;
      break;
    case LineFault::Restart:
      Deliver(byte);
      beyond_(fault.fault);
      break;
  }
}

void FaultyWay::Deliver(std::uint8_t byte) {
  // Behind bytes that are held back none may overtake.
  if (delay_ > 0.0 || late_.Size() > 0) {
    late_.Put(std::span(&byte, 1), delay_);
  } else {
    arrive_(byte);
  }
}

}  // namespace kavr6
