#include "platform/task_list.h"

#include <algorithm>

namespace kavr6 {

Scheduler::TaskId TaskList::Add(double time, Task task, bool marked) {
  const TaskId id = ++newest_;
  queue_.emplace(std::pair(time, id), Waiting{std::move(task), marked});
  times_.emplace(id, time);
  return id;
}

void TaskList::Cancel(TaskId id) {
  const auto found = times_.find(id);
  if (found == times_.end()) return;
  queue_.erase({found->second, id});
  times_.erase(found);
}

bool TaskList::FirstIsDue(double now, TaskId newest) const {
  return !queue_.empty() && queue_.begin()->first.first <= now && queue_.begin()->first.second <= newest;
}

bool TaskList::AnyIsDue(double now, TaskId newest) const {
  for (const auto& [key, waiting] : queue_) {
    if (key.first > now) return false;
    if (key.second <= newest) return true;
  }
  return false;
}

TaskList::Queue::const_iterator TaskList::FirstMarked() const {
  return std::find_if(queue_.begin(), queue_.end(), [](const auto& item) { return item.second.marked; });
}

double TaskList::FirstMarkedTime() const {
  const auto first = FirstMarked();
  return first == queue_.end() ? kForever : first->first.first;
}

TaskList::Entry TaskList::Take(Queue::const_iterator place) {
  auto taken = queue_.extract(place);
  const auto [time, id] = taken.key();
  times_.erase(id);
  return {time, id, std::move(taken.mapped().task), taken.mapped().marked};
}

}  // namespace kavr6
