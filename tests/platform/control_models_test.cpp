#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/controls.h"
#include "platform/form.h"
#include "platform/grid.h"
#include "platform/headless_desktop.h"

namespace kavr6 {
namespace {

class Window : public Form {
 public:
  Window(Desktop& desktop, const std::string& name) : Form(desktop, name) {
    text.Change.Set([this] { log.push_back("Change " + text.Text()); });
    text.LostFocus.Set([this] { text.SetText("clean"); });
    check.Clicked.Set([this] { log.push_back("check"); });
    first.Clicked.Set([this] { log.push_back("first"); });
    second.Clicked.Set([this] { log.push_back("second"); });
    list.Clicked.Set([this] { log.push_back("list " + std::to_string(list.ListIndex())); });
    slider.Scrolled.Set([this] { log.push_back("Scroll " + std::to_string(slider.Value())); });
    slider.Change.Set([this] { log.push_back("Change " + std::to_string(slider.Value())); });
    ok.Clicked.Set([this] { log.push_back("OK " + text.Text()); });
    Activate.Set([this] { log.push_back(Name() + " on"); });
    Deactivate.Set([this] { log.push_back(Name() + " off"); });
    for (const char* row : {"a", "b", "c"}) list.AddItem(row);
  }

  std::vector<std::string> Log() { return std::exchange(log, {}); }

  TextBox text{*this, "text"};
  CheckBox check{*this, "check"};
  OptionGroup group;
  OptionButton first{*this, "first", group};
  OptionButton second{*this, "second", group};
  ListBox list{*this, "list"};
  Slider slider{*this, "slider", {.min = 0, .max = 90}};
  Button ok{*this, "OK"};
  Timer timer{*this, "timer"};
  std::vector<std::string> log;
  int loads = 0;
  bool mayClose = true;

 protected:
  void Load() override { ++loads; }
  bool MayClose() override { return mayClose; }
};

using Log = std::vector<std::string>;

class ControlModels : public testing::Test {
 protected:
  HeadlessDesktop desktop;
  Window window{desktop, "window"};
};

TEST_F(ControlModels, SettingFromCodeRaisesTheEventOnceAndOnlyForAnotherValue) {
  struct Case {
    void (*set)(Window&);
    Log expected;
  };
  const Case cases[] = {
      {[](Window& w) { w.text.SetText("x"); }, {"Change x"}},
      {[](Window& w) { w.check.SetValue(true); }, {"check"}},
      {[](Window& w) { w.first.SetValue(true); }, {"first"}},
      {[](Window& w) { w.list.SetListIndex(1); }, {"list 1"}},
      {[](Window& w) { w.slider.SetValue(120); }, {"Change 90"}},
  };
  for (const Case& c : cases) {
    c.set(window);
    EXPECT_EQ(window.Log(), c.expected);
    c.set(window);
    EXPECT_EQ(window.Log(), Log{});
  }
}

TEST_F(ControlModels, OptionClearsItsGroupWithoutAClickOfTheOthers) {
  window.first.SetValue(true);
  window.Log();
  window.second.Click();
  window.second.Click();
  EXPECT_EQ(window.Log(), Log{"second"});
  EXPECT_FALSE(window.first.Value());
}

TEST_F(ControlModels, UsersSliderMoveScrollsAndChanges) {
  window.slider.Scroll(-5);
  EXPECT_EQ(window.Log(), Log{}) << "it stood at its minimum already";
  window.slider.Scroll(500);
  EXPECT_EQ(window.Log(), (Log{"Scroll 90", "Change 90"}));
}

TEST_F(ControlModels, ClickTakesTheFocusSoThatTheFieldLeftIsCleanedFirst) {
  window.text.Type("dirty");
  EXPECT_EQ(window.text.SelLength(), 0U);
  window.ok.Click();
  EXPECT_EQ(window.Log(), (Log{"Change dirty", "Change clean", "OK clean"}));
  window.text.Focus();
  EXPECT_EQ(window.text.SelLength(), 5U) << "entering selects everything";
  window.ok.SetEnabled(false);
  window.ok.Click();
  EXPECT_EQ(window.Log(), Log{}) << "a disabled button can't be clicked";
}

TEST_F(ControlModels, ListRefusesRowsThatItDoesNotHave) {
  EXPECT_THROW(window.list.SetListIndex(3), RuntimeError);
  EXPECT_THROW(window.list.SetListIndex(-2), RuntimeError);
  window.list.SetListIndex(2);
  window.list.Clear();
  EXPECT_EQ(window.list.ListIndex(), -1);
  EXPECT_EQ(window.list.Text(), "");
}

TEST_F(ControlModels, TimerNeverRunsInsideItself) {
  int depth = 0;
  int deepest = 0;
  int runs = 0;
  window.timer.Tick.Set([&] {
    deepest = std::max(deepest, ++depth);
    ++runs;
    Delay(desktop, 0.5);  // five intervals
    --depth;
  });
  window.timer.SetInterval(100);
  window.timer.SetEnabled(true);
  Delay(desktop, 2.0);
  window.timer.SetEnabled(false);
  const int until = runs;
  Delay(desktop, 2.0);
  EXPECT_EQ(deepest, 1);
  EXPECT_GE(until, 3);
  EXPECT_EQ(runs, until);
}

TEST_F(ControlModels, TwoControlsOfOneNameAreAMistake) {
  EXPECT_THROW(Label(window, "text"), std::logic_error);
}

TEST_F(ControlModels, GridMergesAndRefusesCellsOutside) {
  Grid grid(window, "grid", 3, 2);
  int clicked = -1;
  grid.DoubleClicked.Set([&](int row) { clicked = row; });
  grid.DoubleClick(2);
  EXPECT_EQ(clicked, 2);
  EXPECT_THROW(grid.SetText(3, 0, "x"), RuntimeError);
  EXPECT_THROW(grid.SetText(0, 2, "x"), RuntimeError);
}

TEST_F(ControlModels, FormsLoadOnceAndTellWhenTheFrontChanges) {
  Window dialog(desktop, "dialog");
  window.Show();
  dialog.Show();
  EXPECT_EQ(desktop.ActiveFormName(), "dialog");
  desktop.BroughtToFront(window);
  EXPECT_EQ(dialog.Log(), (Log{"dialog on", "dialog off"}));
  dialog.Hide();
  dialog.Show();
  EXPECT_EQ(dialog.loads, 1);
  dialog.mayClose = false;
  dialog.RequestClose();
  EXPECT_TRUE(dialog.Visible());
  dialog.mayClose = true;
  dialog.RequestClose();
  EXPECT_FALSE(dialog.Visible());
  EXPECT_EQ(desktop.ActiveFormName(), "window");
}

TEST_F(ControlModels, ModalWindowReturnsWhenHiddenAndIsNamedWhenNobodyDoes) {
  desktop.CallAfter(2.0, [&] { window.Hide(); });
  window.ShowModal();
  EXPECT_DOUBLE_EQ(desktop.Now(), 2.0);
  try {
    window.ShowModal();
    FAIL() << "nobody has closed it";
  } catch (const HeadlessFault& fault) {
    EXPECT_NE(std::string(fault.what()).find("window"), std::string::npos);
  }
}

TEST_F(ControlModels, UnhandledErrorIsReportedWhereItsEventEnteredAndEndsTheProgram) {
  desktop.Expect({.textPart = "Run-time error '6':\n\nOverflow"});
  desktop.Post([] { RaiseOverflow(); });
  try {
    desktop.PumpEvents();
    FAIL() << "the program went on";
  } catch (const ProgramEnded& end) {
    EXPECT_EQ(end.exitCode, 1);
  }
}

}  // namespace
}  // namespace kavr6
