#include "simulator/byte_line.h"

#include <algorithm>
#include <utility>

namespace kavr6 {

void ByteLine::Put(std::span<const std::uint8_t> bytes, double delay, Scheduler::Task sent) {
  if (bytes.empty()) return;
  freeAt_ = std::max(freeAt_, scheduler_.Now() + delay);
  for (const std::uint8_t byte : bytes) items_.push_back({freeAt_ += byteTime_, byte, {}});
  items_.back().sent = std::move(sent);
  Await();
}

void ByteLine::Clear() {
  if (waiting_) scheduler_.Cancel(task_);
  waiting_ = false;
  items_.clear();
  freeAt_ = 0.0;
}

void ByteLine::Await() {
  if (waiting_ || items_.empty()) return;
  waiting_ = true;
  task_ =
      scheduler_.CallAfter(std::max(0.0, items_.front().due - scheduler_.Now()), [this] { DeliverFirst(); });
}

void ByteLine::DeliverFirst() {
  const Item item = std::move(items_.front());
  items_.pop_front();
  waiting_ = false;
  Await();  // before the delivery, which may clear the line or put more on it
  deliver_(item.byte);
  if (item.sent) item.sent();
}

}  // namespace kavr6
