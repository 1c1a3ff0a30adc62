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

/// The tasks of a simulated line and of what hangs at its far end, for which the program is a partner and not
/// the master: they run from the event pump among all others, and alone while the program is blocked.
class LineScheduler : public Scheduler {
 public:
  /// Runs these tasks alone, as their time comes, until `done` holds or `limit` seconds have passed. All
  /// others wait for the next pump.
  virtual void Block(const std::function<bool()>& done, double limit) = 0;
};

}  // namespace kavr6
