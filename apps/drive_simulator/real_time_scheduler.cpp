#include "apps/drive_simulator/real_time_scheduler.h"

#include <algorithm>

#include <time.h>

namespace kavr6 {
namespace {

double MonotonicSeconds() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

}  // namespace

RealTimeScheduler::RealTimeScheduler() : start_(MonotonicSeconds()) {}

double RealTimeScheduler::Now() const { return MonotonicSeconds() - start_; }

Scheduler::TaskId RealTimeScheduler::CallAfter(double seconds, Task task) {
  const TaskId id = ++lastId_;
  const double time = Now() + seconds;
  queue_.emplace(std::pair(time, id), std::move(task));
  times_.emplace(id, time);
  return id;
}

void RealTimeScheduler::Cancel(TaskId id) {
  const auto found = times_.find(id);
  if (found == times_.end()) return;
  queue_.erase({found->second, id});
  times_.erase(found);
}

void RealTimeScheduler::RunDue() {
  const double now = Now();
  const TaskId newest = lastId_;
  while (!queue_.empty()) {
    const auto first = queue_.begin();
    const auto [time, id] = first->first;
    if (time > now || id > newest) return;
    const Task task = std::move(first->second);
    times_.erase(id);
    queue_.erase(first);
    task();
  }
}

double RealTimeScheduler::SecondsToNext() const {
  return queue_.empty() ? kForever : std::max(0.0, queue_.begin()->first.first - Now());
}

}  // namespace kavr6
