// A serial conductor: bytes leave one behind the other, each after its time on the line.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <span>

#include "platform/scheduler.h"

namespace kavr6 {

/// Delivers bytes in order. The times are counted from one another and not from the moment of the last
/// delivery, so a late wake-up delays one byte and not all that follow.
class ByteLine {
 public:
  using Deliver = std::function<void(std::uint8_t)>;

  /// `byteTime` in seconds; with 0 bytes arrive as soon as events run.
  ByteLine(Scheduler& scheduler, double byteTime, Deliver deliver)
      : scheduler_(scheduler), byteTime_(byteTime), deliver_(std::move(deliver)) {}
  ByteLine(const ByteLine&) = delete;
  ByteLine& operator=(const ByteLine&) = delete;
  ~ByteLine() { Clear(); }

  void SetByteTime(double seconds) { byteTime_ = seconds; }
  /// Queues bytes behind those under way. The first one starts no earlier than `delay` seconds from now;
  /// `sent` is called when the last one has been delivered.
  void Put(std::span<const std::uint8_t> bytes, double delay = 0.0, Scheduler::Task sent = {});
  /// Forgets all that is under way. May be called from within a delivery.
  void Clear();
  /// Number of bytes under way.
  std::size_t Size() const { return items_.size(); }

 private:
  struct Item {
    double due;
    std::uint8_t byte;
    Scheduler::Task sent;
  };
  void Await();
  void DeliverFirst();

  Scheduler& scheduler_;
  double byteTime_;
  Deliver deliver_;
  std::deque<Item> items_;
  double freeAt_ = 0.0;
  Scheduler::TaskId task_ = 0;
  bool waiting_ = false;
};

}  // namespace kavr6
