#include "adapters/qt/base/qt_event_pump.h"

#include <QAbstractEventDispatcher>
#include <QThread>
#include <utility>

namespace kavr6 {
namespace {

// Events that keep making new ones do not hold up whoever only wanted to let the waiting ones run.
constexpr int kMostPumpRounds = 8;

/// A task that is forgotten when its owner's block is left.
class ScopedTask {
 public:
  ScopedTask(Scheduler& scheduler, double seconds, Scheduler::Task task) : scheduler_(scheduler) {
    if (seconds != kForever) id_ = scheduler.CallAfter(seconds, std::move(task));
  }
  ScopedTask(const ScopedTask&) = delete;
  ScopedTask& operator=(const ScopedTask&) = delete;
  ~ScopedTask() { scheduler_.Cancel(id_); }

 private:
  Scheduler& scheduler_;
  Scheduler::TaskId id_ = 0;
};

}  // namespace

/// One pump or wait under way, possibly inside another one or inside a loop of the toolkit's own.
class QtEventPump::Level {
 public:
  /// `mayReturn` must outlive the level.
  Level(QtEventPump& pump, const std::function<bool()>& mayReturn)
      : pump_(pump), mayReturn_(mayReturn), outer_(std::exchange(pump.innermost_, this)) {}
  Level(const Level&) = delete;
  Level& operator=(const Level&) = delete;
  ~Level() {
    pump_.innermost_ = outer_;
    // The call that was to wake an outer loop may have been taken by this one.
    pump_.outerIsToLook_ = true;
  }

  bool Process(QEventLoop::ProcessEventsFlags flags) const {
    return QAbstractEventDispatcher::instance()->processEvents(flags);
  }
  /// Not so while a loop of the toolkit runs inside, which cannot return for this level's sake.
  bool MayReturn() const { return QThread::currentThread()->loopLevel() == toolkitLoops_ && mayReturn_(); }

 private:
  QtEventPump& pump_;
  const std::function<bool()>& mayReturn_;
  const Level* outer_;
  const int toolkitLoops_ = QThread::currentThread()->loopLevel();
};

QtEventPump::QtEventPump()
    : QtEventPump([this](const Task& task) {
        try {
          task();
        } catch (...) {
          // The toolkit lets no exception through.
          failure_ = std::current_exception();
        }
      }) {}

QtEventPump::QtEventPump(TaskQueue::Runner run) : tasks_(std::move(run)) {
  QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, &tasks_,
                   [this] { LookBeforeSleep(); });
}

/// Some dispatchers deliver what has been posted and then sleep in the same call, whatever the events have
/// brought about.
void QtEventPump::LookBeforeSleep() {
  const bool mayReturn = innermost_ != nullptr && innermost_->MayReturn();
  if (std::exchange(outerIsToLook_, false) || mayReturn) QAbstractEventDispatcher::instance()->interrupt();
}

void QtEventPump::RaiseFailure() {
  if (failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
}

void QtEventPump::PumpEvents() {
  const std::function<bool()> always = [] { return true; };
  const Level level(*this, always);
  const TaskId newest = tasks_.Newest();
  for (int rounds = 0;;) {
    const bool any = level.Process(QEventLoop::AllEvents);
    RaiseFailure();
    if (!tasks_.IsDueUpTo(newest) && (!any || ++rounds == kMostPumpRounds)) return;
  }
}

bool QtEventPump::PumpEventsUntil(const std::function<bool()>& done, double limit) {
  bool expired = false;
  const ScopedTask deadline(*this, limit, [&expired] { expired = true; });
  const std::function<bool()> mayReturn = [&] { return expired || failure_ || done(); };
  const Level level(*this, mayReturn);
  while (!done()) {
    if (expired) return false;
    level.Process(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    RaiseFailure();
  }
  return true;
}

}  // namespace kavr6
