// News handed on from the event pump.
#pragma once

#include <functional>
#include <utility>

#include "platform/scheduler.h"

namespace kavr6 {

/// Several at once are told as one. Nothing is told once this object has gone.
class QueuedNews {
 public:
  QueuedNews(Scheduler& scheduler, std::function<void()> told)
      : scheduler_(scheduler), told_(std::move(told)) {}
  QueuedNews(const QueuedNews&) = delete;
  QueuedNews& operator=(const QueuedNews&) = delete;
  ~QueuedNews() { scheduler_.Cancel(task_); }

  void Tell() {
    if (task_ != 0) return;
    task_ = scheduler_.Post([this] {
      task_ = 0;
      const std::function<void()> tell = told_;  // which may be the end of this object
      tell();
    });
  }

 private:
  Scheduler& scheduler_;
  std::function<void()> told_;
  Scheduler::TaskId task_ = 0;  // 0: none is under way
};

}  // namespace kavr6
