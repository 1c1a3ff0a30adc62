// Tasks on the machine's own clock.
#pragma once

#include <optional>

#include "platform/task_list.h"

namespace kavr6 {

/// Runs nothing by itself: a loop sleeps until SecondsToNext have passed and then calls RunDue.
class RealTimeScheduler : public Scheduler {
 public:
  RealTimeScheduler();

  /// Seconds on the monotonic clock since the construction. A task sees the time for which it was due: what
  /// it starts then is not late because the machine has woken up late.
  double Now() const override;
  TaskId CallAfter(double seconds, Task task) override {
    return tasks_.Add(Now() + seconds, std::move(task));
  }
  void Cancel(TaskId id) override { tasks_.Cancel(id); }

  /// Runs the tasks that are due at this moment. What they add waits for the next call.
  void RunDue();
  /// 0 when a task is due, kForever when there is none.
  double SecondsToNext() const;

 private:
  double start_;
  std::optional<double> running_;  // when the task that runs was due
  TaskList tasks_;
};

}  // namespace kavr6
