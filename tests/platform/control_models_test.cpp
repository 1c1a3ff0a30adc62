#include <string>
#include <tuple>

#include <gtest/gtest.h>

#include "platform/control_array.h"
#include "platform/controls.h"
#include "platform/form.h"
#include "platform/headless/headless_desktop.h"
#include "platform/page_view.h"
#include "platform/text_area.h"
#include "tests/support/error_of.h"

namespace kavr6 {
namespace {

using Act = std::function<void()>;

struct Window : Form {
  explicit Window(Desktop& desktop, const std::string& name = "window") : Form(desktop, name) {
    outer.Hold({&inner});
    inner.Hold({&framed});
    text.Change.Set([this] { log += "text=" + text.Text() + " "; });
    text.LostFocus.Set([this] { text.SetText("clean"); });
    area.Change.Set([this] { log += "area=" + area.Text() + " "; });
    list.Clicked.Set([this] { log += "list=" + std::to_string(list.ListIndex()) + " "; });
    list.DoubleClicked.Set([this] { log += "double "; });
    slider.Scrolled.Set([this] { log += "scroll=" + std::to_string(slider.Value()) + " "; });
    slider.Change.Set([this] { log += "slider=" + std::to_string(slider.Value()) + " "; });
    for (ClickableControl* control :
         std::initializer_list<ClickableControl*>{&check, &first, &second, &ok, &framed})
      control->Clicked.Set([this, control] { log += control->Name() + " "; });
    for (const char* row : {"a", "b", "c"}) list.AddItem(row);
  }

  TextBox text{*this, "text"};
  TextArea area{*this, "area", TextArea::Use::Edit};
  TextArea record{*this, "record", TextArea::Use::Read};
  CheckBox check{*this, "check"};
  OptionGroup group;
  OptionButton first{*this, "first", group};
  OptionButton second{*this, "second", group};
  ListBox list{*this, "list"};
  Slider slider{*this, "slider", {.min = 0, .max = 90}};
  Button ok{*this, "OK"};
  Frame outer{*this, "outer"};
  Frame inner{*this, "inner"};
  Button framed{*this, "framed"};
  PageView pages{*this, "pages"};
  Timer timer{*this, "timer"};
  std::string log;
};

class ControlModels : public testing::Test {
 protected:
  ControlModels() { window.Show(); }
  HeadlessDesktop desktop;
  Window window{desktop};
};

TEST_F(ControlModels, EventComesOnceAndOnlyForAnotherValue) {
  const std::pair<Act, const char*> cases[] = {
      {[&] { window.text.SetText("x"); }, "text=x "},
      {[&] { window.check.SetValue(true); }, "check "},
      {[&] { window.first.SetValue(true); }, "first "},
      {[&] { window.second.Click(); }, "second "},
      {[&] { window.list.SetListIndex(1); }, "list=1 "},
      {[&] { window.slider.SetValue(120); }, "slider=90 "},
      {[&] { window.slider.Scroll(-500); }, "scroll=0 slider=0 "},
      {[&] { window.slider.SetRange({.min = -128, .max = 128}, -200); }, "slider=-128 "},
      {[&] { window.slider.SetRange({.min = 10, .max = 20}); }, "slider=10 "},
      {[&] { window.slider.SetRange({.min = 0, .max = 3000}); }, ""},
      {[&] { window.area.SetText("RV\r\n"); }, "area=RV\r\n "},
      {[&] { window.area.Append(""); }, ""},
      {[&] { window.area.Append("x"); }, "area=RV\r\nx area=RV\r\nxx "},
      {[&] { window.text.Type("dirty"), window.ok.Click(); },
       "text=dirty text=clean OK text=dirty text=clean OK "},
  };
  for (const auto& [act, events] : cases) {
    window.log.clear();
    act();
    act();
    EXPECT_EQ(window.log, events);
  }
  EXPECT_FALSE(window.first.Value());
}

TEST_F(ControlModels, UserCannotActOnWhatHandlersOrOtherWindowsHaveTakenAway) {
  Form modal(desktop, "modal");
  Window above(desktop, "above");
  const auto behindModal = [&] {
    desktop.Post([&] {
      desktop.BroughtToFront(window);
      EXPECT_EQ(desktop.ActiveFormName(), "modal");
      window.Show();  // the program may, and yet it stays behind
      window.ok.Click();
      above.Show();  // opened above it, so not behind it
      above.ok.Click();
      modal.Hide();
    });
    modal.ShowModal();
    window.log += above.log;
  };
  const std::tuple<Act, Act, const char*, const char*> cases[] = {
      {[] {}, behindModal, "window.OK: the window stands behind window 'modal' ", "OK "},
      {[&] { above.Hide(); }, [&] { above.list.DoubleClick(1), above.pages.Follow("x"); },
       "above.list: the window is not shown above.pages: the window is not shown ", ""},
      {[&] { window.inner.SetVisible(false); },
       [&] { window.framed.Click(), window.framed.Press(), window.framed.Focus(); },
       "window.framed: frame 'inner' is hidden ", ""},
      {[&] { window.outer.SetEnabled(false); }, [&] { window.framed.Click(); },
       "window.framed: frame 'outer' is disabled ", ""},
      {[&] { above.Show(), window.Activate.Replace([&] { window.ok.SetEnabled(false); }); },
       [&] { window.ok.Click(); }, "window.OK: it is disabled ", ""},
      {[&] { window.list.Clicked.Replace([&] { window.list.SetVisible(false); }); },
       [&] { window.list.DoubleClick(1); }, "", ""},
      {[&] { window.text.LostFocus.Replace([&] { window.ok.SetEnabled(false); }); },
       [&] { window.text.TabTo(), window.ok.Click(); }, "", ""},
  };
  desktop.RecordRefusals();
  for (const auto& [arrange, act, refusals, log] : cases) {
    const std::size_t before = desktop.Refusals().size();
    for (Control* control : window.Controls())
      control->SetEnabled(control != &window.timer), control->SetVisible(true);
    window.log.clear();
    arrange();
    act();
    std::string told;
    for (std::size_t i = before; i < desktop.Refusals().size(); ++i) told += desktop.Refusals()[i] + " ";
    EXPECT_EQ(told, refusals);
    EXPECT_EQ(window.log, log);
  }
}

TEST_F(ControlModels, PressTakesTheFocusBehindOtherWindows) {
  Window front(desktop, "front");
  front.Show();
  window.check.Press();
  EXPECT_EQ(window.log, "check ");
  EXPECT_EQ(window.FocusedControl(), &window.check);
  EXPECT_EQ(desktop.ActiveFormName(), "front");
}

TEST_F(ControlModels, ViewIsToldOfAnEmptyListAndOfTheLeastSize) {
  int told = 0;
  window.list.SetView([&told] { ++told; });
  window.SetView([&told] { ++told; });
  window.list.Clear();
  EXPECT_EQ(told, 1);
  window.SetMinSize(10, 10);
  EXPECT_EQ(told, 2);
  window.SetView({}), window.list.SetView({});
}

TEST_F(ControlModels, SelectionKeepsWithinItsText) {
  const auto expect = [](const auto& field, std::size_t start, std::size_t length) {
    EXPECT_EQ(std::pair(field.SelStart(), field.SelLength()), std::pair(start, length));
  };
  window.area.Type("RV\r\n");
  expect(window.area, 4, 0);
  window.area.SetSelection(99, 0);
  expect(window.area, 4, 0);
  window.area.SetSelection(1, 99);
  expect(window.area, 1, 3);
  window.area.SetText("xy");
  expect(window.area, 1, 1);
  window.area.SetText("");
  expect(window.area, 0, 0);
  window.text.Type("dirty"), window.text.SetText("d");
  expect(window.text, 1, 0);
}

TEST_F(ControlModels, NamesOfArraysAndAddressesOfPages) {
  ControlArray<Lamp> lamps(window, "LED", 2);
  EXPECT_EQ(window.Find("LED(1)"), &lamps[1]);
  EXPECT_EQ(ErrorOf([&] { lamps[2]; }), 9);
  EXPECT_EQ(ErrorOf([&] { lamps[-1]; }), 9);
  const std::pair<const char*, PageAddress> addresses[] = {
      {"C#/help/contact us.html", {"C#/help/contact us.html", ""}},
      {"C#/help/contact", {"C#/help/contact", ""}},
      {"C#\\help\\velocity.html#AdvancedAnalog", {"C#\\help\\velocity.html", "AdvancedAnalog"}},
  };
  for (const auto& [address, parts] : addresses) EXPECT_TRUE(SplitAddress(address) == parts) << address;
}

TEST_F(ControlModels, TextAreaLosesItsBeginningWithAllThatStandsThere) {
  TextArea& record = window.record;
  record.Append("ab", true);
  record.Append("cd");
  record.Append("efg", true);
  record.SetSelection(1, 4);
  record.DropFront(3);
  EXPECT_EQ(record.Text(), "defg");
  EXPECT_EQ(record.StandingOut(), (std::vector<TextArea::Stretch>{{1, 4}}));
  EXPECT_TRUE(record.SelStart() == 0 && record.SelLength() == 2);
  record.DropFront(2);
  EXPECT_EQ(record.StandingOut(), (std::vector<TextArea::Stretch>{{0, 2}}));
  EXPECT_EQ(record.Dropped(), 5U);
  record.DropFront(99);
  EXPECT_TRUE(record.Text().empty() && record.StandingOut().empty() && record.Dropped() == 7);
}

TEST_F(ControlModels, TimerKeepsStepWithItsIntervalHoweverLongItsHandlerTakes) {
  std::vector<double> beats;
  window.timer.Tick.Set([&] {
    beats.push_back(desktop.Now());
    Delay(desktop, beats.size() == 2 ? 0.25 : 0.06);
  });
  Control& timer = window.timer;
  timer.SetEnabled(true);
  Delay(desktop, 1.0);
  ASSERT_TRUE(beats.empty()) << "a timer without an interval does not run";
  window.timer.SetInterval(100);
  Delay(desktop, 0.65);
  ASSERT_EQ(beats.size(), 4U);
  const double expected[] = {1.1, 1.2, 1.5, 1.6};
  for (std::size_t i = 0; i < beats.size(); ++i) EXPECT_NEAR(beats[i], expected[i], 1e-9);
}

TEST(Event, RefusesASecondHandlerUnlessItIsToReplaceTheFirst) {
  Event<> event;
  int runs = 0;
  event.Set([] {});
  EXPECT_THROW(event.Set([] {}), std::logic_error);
  event.Replace([&] { ++runs; });
  event.Raise();
  EXPECT_EQ(runs, 1);
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
  Window window(desktop);
  EXPECT_THROW(window.ok.Click(), HeadlessFault);
}

}  // namespace
}  // namespace kavr6
