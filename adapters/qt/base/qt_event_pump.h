// The event pump on the toolkit's loop.
#pragma once

#include <exception>
#include <functional>

#include "adapters/qt/base/task_queue.h"
#include "platform/event_pump.h"

namespace kavr6 {

/// Needs a QCoreApplication and no windows; with a QApplication their events run too. There is one for the
/// thread.
class QtEventPump : public EventPump {
 public:
  /// What a task throws comes out of the pump or wait that ran it.
  QtEventPump();
  /// `run` is called for each task and lets no exception out.
  explicit QtEventPump(TaskQueue::Runner run);

  double Now() const override { return TaskQueue::Now(); }
  TaskId CallAfter(double seconds, Task task) override { return tasks_.Add(seconds, std::move(task)); }
  void Cancel(TaskId id) override { tasks_.Cancel(id); }
  void PumpEvents() override;
  bool PumpEventsUntil(const std::function<bool()>& done, double limit) override;

 private:
  class Level;
  void LookBeforeSleep();
  void RaiseFailure();

  TaskQueue tasks_;
  const Level* innermost_ = nullptr;
  bool outerIsToLook_ = false;
  std::exception_ptr failure_;
};

}  // namespace kavr6
