// Waiting without windows, on whichever loop the toolkit has.
#include <QEventLoop>
#include <QTimer>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include "adapters/qt/base/qt_event_pump.h"
#include "tests/adapters/processor_time.h"

namespace kavr6 {
namespace {

struct EventPumpTest : testing::Test {
  /// Runs `wait`, which should take `seconds` and next to no processor time.
  void ExpectCalm(double seconds, const Scheduler::Task& wait) const {
    const double start = pump.Now();
    const double used = ProcessorSeconds();
    wait();
    EXPECT_LT(ProcessorSeconds() - used, 0.05);
    EXPECT_GE(pump.Now() - start, seconds);
    EXPECT_LT(pump.Now() - start, seconds + 0.1);
  }
  QtEventPump pump;
};

TEST_F(EventPumpTest, TasksRunInOrderOfTimeAndEntryAtAnyDepth) {
  std::string log;
  pump.CallAfter(0.05, [&] { log += "late "; });
  pump.CallAfter(0.04, [&] { log += "soon "; });
  pump.Cancel(pump.CallAfter(0.001, [&] { log += "never "; }));
  pump.Post([&] {
    log += "a( ";
    pump.PumpEventsUntil([&] { return log.ends_with("soon "); }, 1.0);
    log += ")a ";
  });
  pump.Post([&] {
    log += "b( ";
    pump.PumpEvents();
    log += ")b ";
  });
  pump.Post([&] { log += "c "; });
  pump.PumpEventsUntil([&] { return log.ends_with("late "); }, 1.0);
  EXPECT_EQ(log, "a( b( c )b soon )a late ");
}

TEST_F(EventPumpTest, WaitEndsAtItsLimit) {
  pump.CallAfter(0.2, [] {});  // due with the limit
  ExpectCalm(0.2, [this] { EXPECT_FALSE(pump.PumpEventsUntil([] { return false; }, 0.2)); });
}

TEST_F(EventPumpTest, ConditionIsNoticedBeforeTheNextSleep) {
  bool outer = false;
  bool inner = false;
  // Of several tasks only the first one wakes some loops.
  for (int turn = 0; turn < 3; ++turn) {
    outer = false;
    for (int before = 0; before < turn; ++before) pump.Post([] {});
    pump.Post([&] { outer = true; });
    ExpectCalm(0.0, [&] { EXPECT_TRUE(pump.PumpEventsUntil([&] { return outer; }, 5.0)); });
  }
  outer = false;
  // The outer condition comes true inside the inner wait, which goes on for a while.
  pump.Post([&] {
    pump.Post([&] { outer = true; });
    pump.CallAfter(0.1, [&] { inner = true; });
    EXPECT_TRUE(pump.PumpEventsUntil([&] { return inner; }, 5.0));
  });
  ExpectCalm(0.1, [&] { EXPECT_TRUE(pump.PumpEventsUntil([&] { return outer; }, 5.0)); });
}

TEST_F(EventPumpTest, LoopOfTheToolkitEndsWithTheWaitThatItsEndFellInto) {
  QEventLoop box;
  bool done = false;
  pump.Post([&] { box.exec(); });
  pump.Post([&] {
    bool inner = false;
    pump.CallAfter(0.1, [&] { box.exit(); });
    QTimer::singleShot(200, Qt::PreciseTimer, [&] { inner = done = true; });
    EXPECT_TRUE(pump.PumpEventsUntil([&] { return inner; }, 5.0));
  });
  // The timers of the toolkit go by whole milliseconds.
  ExpectCalm(0.199, [&] { EXPECT_TRUE(pump.PumpEventsUntil([&] { return done; }, 5.0)); });
  EXPECT_FALSE(box.isRunning());
}

TEST_F(EventPumpTest, OuterConditionCostsNothingWhileALoopOfTheToolkitGoesOn) {
  QEventLoop box;
  bool done = false;
  pump.Post([&] { box.exec(); });
  pump.Post([&] { done = true; });
  pump.CallAfter(0.2, [&] { box.exit(); });
  ExpectCalm(0.2, [&] { EXPECT_TRUE(pump.PumpEventsUntil([&] { return done; }, 5.0)); });
}

TEST_F(EventPumpTest, ErrorOfATaskComesOutOfTheWaitThatRanIt) {
  std::string log;
  pump.Post([&] {
    pump.Post([] {});
    pump.Post([] { throw std::runtime_error("lost"); });
    try {
      Delay(pump, 5.0);
    } catch (const std::runtime_error& error) {
      log = error.what();
      throw;
    }
  });
  ExpectCalm(0.0, [&] { EXPECT_THROW(Delay(pump, 5.0), std::runtime_error); });
  EXPECT_EQ(log, "lost");
  EXPECT_NO_THROW(pump.PumpEvents());
}

}  // namespace
}  // namespace kavr6
