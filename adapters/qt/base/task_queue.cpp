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
  const bool first = time < tasks_.FirstTime();
  const Scheduler::TaskId id = tasks_.Add(time, std::move(task));
  if (first) Arm();
  return id;
}

void TaskQueue::Arm() {
  if (tasks_.Empty() || eventPosted_) return;
  const double wait = tasks_.FirstTime() - Now();
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
  if (tasks_.FirstTime() > Now()) return Arm();
  const Scheduler::Task task = tasks_.TakeFirst().task;
  Arm();
  run_(task);
}

}  // namespace kavr6
