#include "adapters/qt/base/task_queue.h"

#include <QCoreApplication>
#include <QEvent>
#include <algorithm>
#include <chrono>
#include <cmath>

namespace kavr6 {
namespace {
constexpr double kLongestTimerMs = 1e9;
}  // namespace

double TaskQueue::Now() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

Scheduler::TaskId TaskQueue::Add(double seconds, Scheduler::Task task) {
  const double time = Now() + std::max(seconds, 0.0);
  const Scheduler::TaskId id = ++newest_;
  times_.emplace(id, time);
  const auto place = queue_.emplace(std::pair(time, id), std::move(task)).first;
  if (place == queue_.begin()) Arm();
  return id;
}

void TaskQueue::Cancel(Scheduler::TaskId id) {
  const auto found = times_.find(id);
  if (found == times_.end()) return;
  queue_.erase({found->second, id});
  times_.erase(found);
}

bool TaskQueue::IsDueUpTo(Scheduler::TaskId id) const {
  const double now = Now();
  for (const auto& [key, task] : queue_) {
    if (key.first > now) return false;
    if (key.second <= id) return true;
  }
  return false;
}

void TaskQueue::Arm() {
  if (queue_.empty() || eventPosted_) return;
  const double wait = queue_.begin()->first.first - Now();
  if (wait > 0.0) {
    const double milliseconds = std::clamp(std::ceil(wait * 1000.0), 1.0, kLongestTimerMs);
    timer_.start(static_cast<int>(milliseconds), Qt::PreciseTimer, this);
    return;
  }
  eventPosted_ = true;
  QCoreApplication::postEvent(this, new QEvent(QEvent::User));
}

void TaskQueue::timerEvent(QTimerEvent* /*event*/) {
  timer_.stop();
  Arm();
}

bool TaskQueue::event(QEvent* event) {
  if (event->type() != QEvent::User) return QObject::event(event);
  eventPosted_ = false;
  RunFirst();
  return true;
}

void TaskQueue::RunFirst() {
  const auto first = queue_.begin();
  if (first == queue_.end() || first->first.first > Now()) return Arm();
  const Scheduler::Task task = std::move(first->second);
  times_.erase(first->first.second);
  queue_.erase(first);
  Arm();
  run_(task);
}

}  // namespace kavr6
