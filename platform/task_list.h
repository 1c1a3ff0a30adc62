// What is to happen later, in its order: the heart of every scheduler.
#pragma once

#include <map>
#include <utility>

#include "platform/scheduler.h"

namespace kavr6 {

/// Tasks in the order of their time and, at equal times, of their entry. Times are seconds of whatever clock
/// the owner has; it also says when a task runs.
class TaskList {
 public:
  using Task = Scheduler::Task;
  using TaskId = Scheduler::TaskId;
  struct Entry {
    double time = 0.0;
    TaskId id = 0;  ///< grows with each task added
    Task task;
    bool marked = false;  ///< by the owner, who can take these apart from the others
  };

  TaskId Add(double time, Task task, bool marked = false);
  /// Forgets a task; an unknown one is ignored.
  void Cancel(TaskId id);
  bool Empty() const { return queue_.empty(); }
  /// Of the task that comes first; kForever without one.
  double FirstTime() const { return queue_.empty() ? kForever : queue_.begin()->first.first; }
  /// Number of the task added last.
  TaskId Newest() const { return newest_; }
  /// Whether the task that comes first is due at `now` and no newer than `newest`.
  bool FirstIsDue(double now, TaskId newest) const;
  /// Whether any task is.
  bool AnyIsDue(double now, TaskId newest) const;
  /// Takes the task that comes first off the list, which is not empty.
  Entry TakeFirst() { return Take(queue_.begin()); }
  /// The same among the marked tasks.
  double FirstMarkedTime() const;
  Entry TakeFirstMarked() { return Take(FirstMarked()); }

 private:
  struct Waiting {
    Task task;
    bool marked;
  };
  using Queue = std::map<std::pair<double, TaskId>, Waiting>;

  Queue::const_iterator FirstMarked() const;
  Entry Take(Queue::const_iterator place);

  Queue queue_;
  std::map<TaskId, double> times_;
  TaskId newest_ = 0;
};

}  // namespace kavr6
