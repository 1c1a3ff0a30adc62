#include <string>

#include <gtest/gtest.h>

#include "platform/controls.h"
#include "platform/form.h"
#include "platform/headless/headless_desktop.h"

namespace kavr6 {
namespace {

struct Window : Form {
  explicit Window(Desktop& desktop) : Form(desktop, "window") {
    text.Change.Set([this] { log += "text=" + text.Text() + " "; });
    text.LostFocus.Set([this] { text.SetText("clean"); });
    check.Clicked.Set([this] { log += "check "; });
    first.Clicked.Set([this] { log += "first "; });
    second.Clicked.Set([this] { log += "second "; });
    list.Clicked.Set([this] { log += "list=" + std::to_string(list.ListIndex()) + " "; });
    slider.Scrolled.Set([this] { log += "scroll=" + std::to_string(slider.Value()) + " "; });
    slider.Change.Set([this] { log += "slider=" + std::to_string(slider.Value()) + " "; });
    ok.Clicked.Set([this] { log += "OK "; });
    for (const char* row : {"a", "b", "c"}) list.AddItem(row);
  }

  TextBox text{*this, "text"};
  CheckBox check{*this, "check"};
  OptionGroup group;
  OptionButton first{*this, "first", group};
  OptionButton second{*this, "second", group};
  ListBox list{*this, "list"};
  Slider slider{*this, "slider", {.min = 0, .max = 90}};
  Button ok{*this, "OK"};
  Timer timer{*this, "timer"};
  std::string log;
};

class ControlModels : public testing::Test {
 protected:
  HeadlessDesktop desktop;
  Window window{desktop};
};

TEST_F(ControlModels, EventComesOnceAndOnlyForAnotherValue) {
  const std::pair<std::function<void()>, const char*> cases[] = {
      {[&] { window.text.SetText("x"); }, "text=x "},
      {[&] { window.check.SetValue(true); }, "check "},
      {[&] { window.first.SetValue(true); }, "first "},
      {[&] { window.second.Click(); }, "second "},
      {[&] { window.list.SetListIndex(1); }, "list=1 "},
      {[&] { window.slider.SetValue(120); }, "slider=90 "},
      {[&] { window.slider.Scroll(-500); }, "scroll=0 slider=0 "},
      {[&] { window.text.Type("dirty"), window.ok.Click(); },
       "text=dirty text=clean OK text=dirty text=clean OK "},
      {[&] { window.ok.SetEnabled(false), window.ok.Click(); }, ""},
  };
  for (const auto& [act, events] : cases) {
    window.log.clear();
    act();
    act();
    EXPECT_EQ(window.log, events);
  }
  EXPECT_FALSE(window.first.Value());
}

TEST_F(ControlModels, TimerNeverRunsInsideItself) {
  int runs = 0, depth = 0;
  window.timer.Tick.Set([&] {
    EXPECT_EQ(++depth, 1);
    ++runs;
    Delay(desktop, 0.5);  // five intervals
    --depth;
  });
  window.timer.SetInterval(100);
  window.timer.SetEnabled(true);
  Delay(desktop, 2.0);
  window.timer.SetEnabled(false);
  const int until = std::exchange(runs, 0);
  Delay(desktop, 2.0);
  EXPECT_TRUE(until >= 3 && runs == 0) << until << ' ' << runs;
}

TEST(HeadlessDesktop, WhatDoesNotFitTheSceneIsAFault) {
  HeadlessDesktop desktop;
  EXPECT_THROW(desktop.Ask({.text = "surprise"}), HeadlessFault);
  const MessageBox wanted{"this", BoxIcon::Question, "title", BoxButtons::YesNo};
  const MessageBox others[] = {{"that", BoxIcon::Question, "title", BoxButtons::YesNo},
                               {"this", BoxIcon::Critical, "title", BoxButtons::YesNo},
                               {"this", BoxIcon::Question, "", BoxButtons::YesNo},
                               {"this", BoxIcon::Question, "title", BoxButtons::Ok}};
  for (const MessageBox& other : others) {
    desktop.Expect(wanted);
    EXPECT_THROW(desktop.CheckNothingLeft(), HeadlessFault);
    EXPECT_THROW(desktop.Ask(other), HeadlessFault);
  }
  desktop.Expect(wanted, BoxAnswer::No);
  EXPECT_EQ(desktop.Ask(wanted), BoxAnswer::No);
}

}  // namespace
}  // namespace kavr6
