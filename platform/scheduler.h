// Time: what the clock says and what is to happen later.
#pragma once

#include <cstdint>
#include <functional>
#include <limits>

namespace kavr6 {

/// Infinite waiting time, in seconds.
inline constexpr double kForever = std::numeric_limits<double>::infinity();

/// A monotonic clock with a list of tasks. All tasks run on the one thread of the program, from its event
/// pump, in order of their time and, at equal times, in the order in which they were given.
class Scheduler {
 public:
  using Task = std::function<void()>;
  using TaskId = std::uint64_t;

  virtual ~Scheduler() = default;

  /// Seconds since an arbitrary start; never goes back.
  virtual double Now() const = 0;
  /// Runs `task` once, `seconds` (>= 0) from now.
  virtual TaskId CallAfter(double seconds, Task task) = 0;
  /// Forgets a task that has not run yet; an unknown or finished one is ignored.
  virtual void Cancel(TaskId id) = 0;

  /// Runs `task` once, from the event pump, as soon as what is already waiting has run.
  TaskId Post(Task task) { return CallAfter(0.0, std::move(task)); }
};

}  // namespace kavr6
