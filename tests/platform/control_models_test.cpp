#include <string>
#include <tuple>

#include <gtest/gtest.h>

#include "platform/control_array.h"
#include "platform/controls.h"
#include "platform/form.h"
#include "platform/grid.h"
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
    area.KeyUp.Set([this](int code) { log += "key" + std::to_string(code) + " "; });
    list.Clicked.Set([this] { log += "list=" + std::to_string(list.ListIndex()) + " "; });
    list.DoubleClicked.Set([this] { log += "double "; });
    slider.Scrolled.Set([this] { log += "scroll=" + std::to_string(slider.Value()) + " "; });
    slider.Change.Set([this] { log += "slider=" + std::to_string(slider.Value()) + " "; });
    for (ClickableControl* control :
         std::initializer_list<ClickableControl*>{&check, &first, &second, &ok, &framed, &image})
      control->Clicked.Set([this, control] { log += control->Name() + " "; });
    menu.Clicked.Set([this] { log += "menu "; });
    grid.DoubleClicked.Set([this](int row) { log += "grid" + std::to_string(row) + " "; });
    pages.CanGoBackChanged.Set([this] { log += pages.CanGoBack() ? "back " : "no-back "; });
    for (const char* row : {"a", "b", "c"}) list.AddItem(row);
  }
  bool KeyPressed(char character) override {
    log += character;
    return true;
  }
  bool MayClose() override {
    log += "close ";
    return false;
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
  ImageButton image{*this, "image", "Up", "Down"};
  Frame outer{*this, "outer"};
  Frame inner{*this, "inner"};
  Button framed{*this, "framed"};
  MenuItem menu{*this, "menu", "Menu"};
  Grid grid{*this, "grid", 2, 1};
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

TEST_F(ControlModels, ViewIsToldOfEveryChange) {
  const std::tuple<const char*, Control*, Act> changes[] = {
      {"range", &window.slider, [&] { window.slider.SetRange({.min = 0, .max = 40}); }},
      {"slider", &window.slider, [&] { window.slider.SetValue(7); }},
      {"row", &window.list, [&] { window.list.AddItem("d"); }},
      {"tool tip", &window.list, [&] { window.list.SetItemToolTip(0, "first"); }},
      {"rows", &window.list, [&] { window.list.SetItems({"x"}); }},
      {"no rows", &window.list, [&] { window.list.Clear(); }},
      {"more text", &window.record, [&] { window.record.Append("ab"); }},
      {"selection", &window.record, [&] { window.record.SetSelection(1, 1); }},
      {"other text", &window.record, [&] { window.record.SetText("x"); }},
      {"page", &window.pages, [&] { window.pages.Navigate("a.html"); }},
      {"enabled", &window.ok, [&] { window.ok.SetEnabled(false); }},
      {"pictures", &window.image, [&] { window.image.SetPictures("a", "b"); }},
  };
  int shown = 0;
  window.SetView([&shown] { ++shown; });
  window.SetMinSize(10, 10);
  EXPECT_EQ(shown, 1);
  window.SetView({});
  for (const auto& [what, control, change] : changes) {
    int told = 0;
    control->SetView([&told] { ++told; });
    change();
    control->SetView({});
    EXPECT_EQ(told, 1) << what;
  }
}

TEST_F(ControlModels, UserCannotActOnAWindowThatIsNotShown) {
  Window hidden(desktop, "hidden");
  desktop.RecordRefusals();
  const std::pair<const char*, Act> acts[] = {
      {".text", [&] { hidden.text.Type("x"); }},
      {".text", [&] { hidden.text.TabTo(); }},
      {".area", [&] { hidden.area.Type("x"); }},
      {".area", [&] { hidden.area.ReleaseKey(kEnterKey); }},
      {".check", [&] { hidden.check.Click(); }},
      {".first", [&] { hidden.first.Click(); }},
      {".OK", [&] { hidden.ok.Click(); }},
      {".image", [&] { hidden.image.MouseDown(); }},
      {".menu", [&] { hidden.menu.Click(); }},
      {".list", [&] { hidden.list.Select(1); }},
      {".list", [&] { hidden.list.DoubleClick(1); }},
      {".slider", [&] { hidden.slider.Scroll(5); }},
      {".grid", [&] { hidden.grid.DoubleClick(1); }},
      {".pages", [&] { hidden.pages.Follow("x"); }},
      {"", [&] { hidden.PressKey('x'); }},
      {"", [&] { hidden.RequestClose(); }},
  };
  std::vector<std::string> refusals;
  for (const auto& [control, act] : acts) {
    act();
    refusals.push_back("hidden" + std::string(control) + ": the window is not shown");
  }
  EXPECT_EQ(desktop.Refusals(), refusals);
  EXPECT_EQ(hidden.log + hidden.image.Picture() + hidden.pages.Address(), "Up");
  EXPECT_EQ(hidden.FocusedControl(), nullptr);
  EXPECT_EQ(desktop.ActiveFormName(), "window");
}

TEST_F(ControlModels, UserCannotActOnWhatIsGreyedHiddenOrBehind) {
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
      {[&] { window.ok.SetEnabled(false); }, [&] { window.ok.Click(); }, "window.OK: it is disabled ", ""},
      {[&] { window.ok.SetVisible(false); }, [&] { window.ok.Click(); }, "window.OK: it is hidden ", ""},
      {[&] { window.inner.SetVisible(false); },
       [&] { window.framed.Click(), window.framed.Press(), window.framed.Focus(); },
       "window.framed: frame 'inner' is hidden ", ""},
      {[&] { window.outer.SetEnabled(false); }, [&] { window.framed.Click(); },
       "window.framed: frame 'outer' is disabled ", ""},
      {[] {}, [&] { window.record.Type("x"); }, "window.record: it is for reading alone ", ""},
      {[&] {
         desktop.Expect(ExpectedBox{.during = [&] { window.ok.Click(), above.Show(), above.ok.Click(); }});
       },
       [&] { desktop.Ask({.text = "?"}), window.log += above.log, window.ok.Click(); },
       "window.OK: the window stands behind a box ", "OK OK "},
      {[&] { desktop.Expect(ExpectedFile{.name = "", .during = [&] { window.RequestClose(); }}); },
       [&] { desktop.ChooseFile({}); }, "window: the window stands behind a box ", ""},
      {[] {}, behindModal, "window.OK: the window stands behind window 'modal' ", "OK "},
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
    window.log.clear(), above.log.clear(), above.Hide();
    arrange();
    act();
    std::string told;
    for (std::size_t i = before; i < desktop.Refusals().size(); ++i) told += desktop.Refusals()[i] + " ";
    EXPECT_EQ(told, refusals);
    EXPECT_EQ(window.log, log);
  }
}

TEST_F(ControlModels, PressDoesWhatAClickDoesBehindOtherWindows) {
  Window front(desktop, "front");
  window.text.Type("dirty");
  window.log.clear();
  front.Show();
  EXPECT_EQ(window.log, "text=clean ") << "a field left for another window is left";
  window.ok.Press();
  window.check.Press();
  window.ok.SetEnabled(false);
  window.ok.Press();
  EXPECT_EQ(window.log, "text=clean OK check ");
  EXPECT_EQ(window.FocusedControl(), &window.check);
  EXPECT_EQ(desktop.ActiveFormName(), "front");
}

TEST_F(ControlModels, PicturesNamesAndPages) {
  window.image.MouseDown();
  window.image.SetPictures("PlayGreen", "PlayDown");
  EXPECT_EQ(window.image.Picture(), "PlayDown");
  window.image.MouseUp();
  EXPECT_EQ(window.image.Picture(), "PlayGreen");

  ControlArray<Lamp> lamps(window, "LED", 2);
  lamps[1].SetLight(Lamp::State::Orange);
  EXPECT_EQ(window.Find("LED(1)"), &lamps[1]);
  EXPECT_EQ(ErrorOf([&] { lamps[2]; }), 9);
  EXPECT_EQ(ErrorOf([&] { lamps[-1]; }), 9);

  std::string shown;
  const std::pair<Act, const char*> steps[] = {
      {[&] { window.pages.GoBack(); }, ""},          {[&] { window.pages.Navigate("a"); }, "a"},
      {[&] { window.pages.Navigate("a"); }, "a"},    {[&] { window.pages.Follow("a#b"); }, "back a#b"},
      {[&] { window.pages.Navigate("c"); }, "c"},    {[&] { window.pages.GoBack(); }, "a#b"},
      {[&] { window.pages.GoBack(); }, "no-back a"},
  };
  for (const auto& [act, expected] : steps) {
    window.log.clear();
    act();
    EXPECT_EQ(window.log + window.pages.Address(), expected);
  }
  const std::pair<const char*, PageAddress> addresses[] = {
      {"C#/help/contact us.html", {"C#/help/contact us.html", "", false}},
      {"C#/help/contact", {"C#/help/contact", "", false}},
      {"C#\\help\\velocity.html#AdvancedAnalog", {"C#\\help\\velocity.html", "AdvancedAnalog", false}},
      {"https://a.example/#b", {"https://a.example/#b", "", true}},
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

TEST_F(ControlModels, TextAreaKeepsItsCaretWhileTextIsAdded) {
  TextArea& record = window.record;
  record.Append("ab");
  record.CaretToEnd();
  record.Append("\r\n");
  EXPECT_EQ(record.Text(), "ab\r\n");
  EXPECT_EQ(record.SelStart(), 2U);
  EXPECT_EQ(record.Rewrites(), 0);
  record.SetSelection(1, 99);
  EXPECT_EQ(record.SelLength(), 3U);
  record.SetSelection(99, 0);
  EXPECT_EQ(record.SelStart(), 4U);
  record.SetText("x");
  EXPECT_TRUE(record.SelStart() == 1 && record.SelLength() == 0 && record.Rewrites() == 1);
  window.area.Type("RV\r\n");
  window.area.ReleaseKey(kEnterKey);
  EXPECT_EQ(window.log, "area=RV\r\n key13 ");
  EXPECT_TRUE(window.area.SelStart() == 4 && window.area.SelLength() == 0);
  EXPECT_EQ(window.FocusedControl(), &window.area);
  window.text.Type("dirty");
  window.text.SetText("d");
  EXPECT_TRUE(window.text.SelStart() == 1 && window.text.SelLength() == 0);
}

TEST_F(ControlModels, TimerNeverRunsInsideItself) {
  int runs = 0, depth = 0;
  window.timer.Tick.Set([&] {
    EXPECT_EQ(++depth, 1);
    ++runs;
    Delay(desktop, 0.5);  // five intervals
    --depth;
  });
  Control& timer = window.timer;
  timer.SetEnabled(true);
  Delay(desktop, 1.0);
  EXPECT_EQ(runs, 0) << "a timer without an interval does not run";
  timer.SetEnabled(false);
  window.timer.SetInterval(100);
  Delay(desktop, 1.0);
  EXPECT_EQ(runs, 0) << "a timer begins disabled";
  timer.SetEnabled(true);
  Delay(desktop, 2.0);
  timer.SetEnabled(false);
  const int until = std::exchange(runs, 0);
  Delay(desktop, 2.0);
  EXPECT_TRUE(until >= 3 && runs == 0) << until << ' ' << runs;
}

TEST_F(ControlModels, TimerKeepsStepWithItsIntervalHoweverLongItsHandlerTakes) {
  std::vector<double> beats;
  window.timer.Tick.Set([&] {
    beats.push_back(desktop.Now());
    Delay(desktop, beats.size() == 2 ? 0.25 : 0.06);
  });
  window.timer.SetInterval(100);
  Control& timer = window.timer;
  timer.SetEnabled(true);
  Delay(desktop, 0.65);
  ASSERT_EQ(beats.size(), 4U);
  const double expected[] = {0.1, 0.2, 0.5, 0.6};
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
