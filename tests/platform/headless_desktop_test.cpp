#include "platform/headless_desktop.h"

#include <string>

#include <gtest/gtest.h>

namespace kavr6 {
namespace {

TEST(HeadlessDesktop, RunsByTimeThenByOrderAcrossNestingLevels) {
  HeadlessDesktop desktop;
  std::string order;
  desktop.CallAfter(2.0, [&] { order += 'd'; });
  desktop.CallAfter(1.0, [&] {
    order += 'a';
    Delay(desktop, 0.5);
    order += 'c';
  });
  desktop.CallAfter(1.0, [&] { order += 'b'; });
  Delay(desktop, 3.0);
  EXPECT_EQ(order, "abcd");
  EXPECT_DOUBLE_EQ(desktop.Now(), 3.0);
}

TEST(HeadlessDesktop, WaitEndsWithTheConditionOrExactlyAtItsLimit) {
  HeadlessDesktop desktop;
  bool done = false;
  desktop.CallAfter(0.3, [&] { done = true; });
  EXPECT_TRUE(desktop.PumpEventsUntil([&] { return done; }, 1.0));
  EXPECT_DOUBLE_EQ(desktop.Now(), 0.3);
  EXPECT_FALSE(desktop.PumpEventsUntil([] { return false; }, 0.5));
  EXPECT_DOUBLE_EQ(desktop.Now(), 0.8);
}

TEST(HeadlessDesktop, PumpRunsWhatIsPendingButNotWhatThatPosts) {
  HeadlessDesktop desktop;
  int runs = 0;
  std::function<void()> again = [&] {
    ++runs;
    desktop.Post(again);
  };
  desktop.Post(again);
  desktop.PumpEvents();
  EXPECT_EQ(runs, 1);
  EXPECT_THROW(Delay(desktop, 0.1), HeadlessFault) << "a circle without time is found out";
}

TEST(HeadlessDesktop, CancelledTaskDoesNotRun) {
  HeadlessDesktop desktop;
  bool ran = false;
  desktop.Cancel(desktop.CallAfter(1.0, [&] { ran = true; }));
  Delay(desktop, 2.0);
  EXPECT_FALSE(ran);
}

TEST(HeadlessDesktop, UnexpectedBoxWrongBoxAndMissingBoxFail) {
  HeadlessDesktop desktop;
  EXPECT_THROW(desktop.Ask({.text = "surprise"}), HeadlessFault);
  desktop.Expect({.textPart = "this"});
  EXPECT_THROW(desktop.CheckNothingLeft(), HeadlessFault);
  EXPECT_THROW(desktop.Ask({.text = "that"}), HeadlessFault);
}

}  // namespace
}  // namespace kavr6
