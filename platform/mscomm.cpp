#include "platform/mscomm.h"

#include <algorithm>
#include <utility>

#include "platform/runtime_error.h"

namespace kavr6 {
namespace {

/// True until its block is left.
class ScopedFlag {
 public:
  explicit ScopedFlag(bool& flag) : flag_(flag) { flag_ = true; }
  ScopedFlag(const ScopedFlag&) = delete;
  ScopedFlag& operator=(const ScopedFlag&) = delete;
  ~ScopedFlag() { flag_ = false; }

 private:
  bool& flag_;
};

}  // namespace

MSComm::~MSComm() {
  if (notificationQueued_) scheduler_.Cancel(notification_);
  scheduler_.Cancel(lossReport_);
}

void MSComm::SetCommPort(int number) {
  if (open_) throw RuntimeError(8000, "The port cannot be changed while it is open");
  if (number < 1 || number > 8) throw RuntimeError(8002, "Invalid port number");
  commPort_ = number;
}

void MSComm::SetPortOpen(bool open) {
  if (open == open_) {
    if (open) throw RuntimeError(8005, "The port is already open");
    return;
  }
  int& refusal = refusals_[static_cast<std::size_t>(commPort_)];
  if (open) {
    try {
      OpenDevice(commPort_);
      refusal = 0;
    } catch (const RuntimeError& error) {
      refusal = error.Number();
      StateChanged.Raise();
      throw;
    }
    ++openings_;
  } else {
    CloseDevice();
    scheduler_.Cancel(std::exchange(lossReport_, 0));
  }
  buffer_.clear();
  open_ = open;
  StateChanged.Raise();
}

void MSComm::Output(std::span<const std::uint8_t> bytes) {
  if (open_) Send(bytes);
}

void MSComm::Output(std::string_view text) {
  Output(std::span(reinterpret_cast<const std::uint8_t*>(text.data()), text.size()));
}

Bytes MSComm::Input() { return std::exchange(buffer_, {}); }

Bytes MSComm::Input(int most) {
  const auto end = buffer_.begin() + std::min(most, InBufferCount());
  Bytes taken(buffer_.begin(), end);
  buffer_.erase(buffer_.begin(), end);
  return taken;
}

bool MSComm::WaitBlocking(int count, double limit) {
  const auto enough = [this, count] { return InBufferCount() >= count; };
  if (open_ && lossReport_ == 0 && !enough()) {
    const ScopedFlag blocked(blocked_);
    Block([&] { return lossReport_ != 0 || enough(); }, limit);
  }
  return enough();
}

void MSComm::Arrived(std::span<const std::uint8_t> bytes) {
  buffer_.insert(buffer_.end(), bytes.begin(), bytes.end());
  if (threshold_ == 0 || InBufferCount() < threshold_ || notificationQueued_) return;
  notificationQueued_ = true;
  notification_ = scheduler_.Post([this] { Notify(); });
}

void MSComm::LineLost() {
  if (blocked_) {
    LineLostLater();
  } else if (open_) {
    refusals_[static_cast<std::size_t>(commPort_)] = kNotThere;
    SetPortOpen(false);
    Lost.Raise();
  }
}

void MSComm::LineLostLater() {
  if (lossReport_ == 0) lossReport_ = scheduler_.Post([this] { LineLost(); });
}

void MSComm::Notify() {
  notificationQueued_ = false;
  if (threshold_ > 0 && InBufferCount() >= threshold_) OnComm.Raise(kEventReceive);
}

}  // namespace kavr6
