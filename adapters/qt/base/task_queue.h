// The scheduler's tasks on the event loop of the toolkit.
#pragma once

#include <QBasicTimer>
#include <QObject>
#include <functional>
#include <utility>

#include "platform/task_list.h"

namespace kavr6 {

/// Runs its tasks in order of time and then of entry, one per event, so that whoever waits looks at the world
/// after each. The next event is under way before a task starts: an event loop inside a task goes on with the
/// tasks that follow.
class TaskQueue : public QObject {
 public:
  using Runner = std::function<void(const Scheduler::Task&)>;

  /// `run` is called for each task and lets no exception out.
  explicit TaskQueue(Runner run) : run_(std::move(run)) {}

  /// Seconds of the machine's monotonic clock.
  static double Now();
  /// `seconds` is finite.
  Scheduler::TaskId Add(double seconds, Scheduler::Task task);
  void Cancel(Scheduler::TaskId id) { tasks_.Cancel(id); }
  Scheduler::TaskId Newest() const { return tasks_.Newest(); }
  /// Whether a task is due that is no newer than `id`.
  bool IsDueUpTo(Scheduler::TaskId id) const { return tasks_.AnyIsDue(Now(), id); }

 protected:
  bool event(QEvent* event) override;
  void timerEvent(QTimerEvent* event) override;

 private:
  void Arm();
  void RunFirst();

  Runner run_;
  TaskList tasks_;
  QBasicTimer timer_;
  bool eventPosted_ = false;
};

}  // namespace kavr6
