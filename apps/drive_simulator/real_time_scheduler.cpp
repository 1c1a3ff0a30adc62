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

double RealTimeScheduler::Now() const { return running_ ? *running_ : MonotonicSeconds() - start_; }

void RealTimeScheduler::RunDue() {
  const double now = Now();
  const TaskId newest = tasks_.Newest();
  while (tasks_.FirstIsDue(now, newest)) {
    const TaskList::Entry first = tasks_.TakeFirst();
    running_ = first.time;
    first.task();
  }
  running_.reset();
}

double RealTimeScheduler::SecondsToNext() const { return std::max(0.0, tasks_.FirstTime() - Now()); }

}  // namespace kavr6
