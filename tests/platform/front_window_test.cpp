// The order of events when the front window changes.
#include <string>

#include <gtest/gtest.h>

#include "platform/controls.h"
#include "platform/form.h"
#include "platform/headless/headless_desktop.h"

namespace kavr6 {
namespace {

/// Tells all that happens to it: "A+" activated, "A-" deactivated, "Af+" its field has got the focus.
struct Window : Form {
  Window(Desktop& desktop, const std::string& name, std::string& log) : Form(desktop, name), log_(log) {
    Activate.Set([this] { Tell("+", OnActivate); });
    Deactivate.Set([this] { Tell("-", OnDeactivate); });
    field.GotFocus.Set([this] { Tell("f+", nullptr); });
    field.LostFocus.Set([this] { Tell("f-", OnLeave); });
    button.Clicked.Set([this] { Tell("!", nullptr); });
  }
  TextBox field{*this, "field"};
  Button button{*this, "button"};
  std::function<void()> OnActivate, OnDeactivate, OnLeave;

 private:
  void Tell(const char* what, const std::function<void()>& then) {
    log_ += Name() + what + " ";
    if (then) then();
  }
  std::string& log_;
};

class FrontWindow : public testing::Test {
 protected:
  /// A is in front with its field focused.
  FrontWindow() {
    a.Show();
    a.field.TabTo();
    log.clear();
  }
  std::string log;
  HeadlessDesktop desktop;
  Window a{desktop, "A", log};
  Window b{desktop, "B", log};
  Window c{desktop, "C", log};
};

TEST_F(FrontWindow, EachHearsOfItsTurnOnceInOrder) {
  const std::pair<std::function<void()>, const char*> steps[] = {
      {[&] { b.Show(); }, "Af- A- B+ "},
      {[&] { a.field.Focus(); }, ""},
      {[&] { b.field.Focus(); }, "Bf+ "},
      {[&] { a.button.Click(); }, "Bf- B- A+ Af+ Af- A! "},
      {[&] { b.field.Type("x"); }, "A- B+ Bf+ "},
      {[&] { desktop.Expect({.text = "?"}), desktop.Ask({.text = "?"}); }, ""},
      {[&] { desktop.BroughtToFront(a); }, "Bf- B- A+ "},
      {[&] { b.Show(), c.Show(); }, "A- B+ Bf+ Bf- B- C+ "},
      {[&] { b.Hide(); }, ""},
      {[&] { c.Hide(); }, "C- A+ "},
      {[&] { a.Hide(); }, "A- "},
      {[&] { b.Show(); }, "B+ Bf+ "},
      {[&] { b.Hide(); }, "Bf- B- "},
  };
  for (const auto& [act, events] : steps) {
    log.clear();
    act();
    EXPECT_EQ(log, events);
  }
}

TEST_F(FrontWindow, EnteringSelectsAllTextAlsoWhenTheWindowComesBack) {
  a.field.Type("12");
  EXPECT_EQ(a.field.SelLength(), 0U);
  b.Show();
  a.Show();
  EXPECT_EQ(a.field.SelLength(), 2U);
}

TEST_F(FrontWindow, HandlerThatChangesWindowsLeavesNothingOutAndNothingTwice) {
  const std::tuple<const char*, std::function<void()>&, std::function<void()>, const char*> cases[] = {
      {"activated, it shows another", b.OnActivate, [&] { c.Show(); }, "Af- A- B+ B- C+ "},
      {"activated, it hides itself", b.OnActivate, [&] { b.Hide(); }, "Af- A- B+ B- A+ Af+ "},
      {"deactivated, it shows another", a.OnDeactivate, [&] { c.Show(); }, "Af- A- C+ "},
      {"deactivated, it takes the new one away", a.OnDeactivate, [&] { b.Hide(); }, "Af- A- A+ Af+ "},
      {"left, its field shows another", a.OnLeave, [&] { c.Show(); }, "Af- A- C+ "},
      {"left, its field takes the new one away", a.OnLeave, [&] { b.Hide(); }, "Af- Af+ "},
      {"left, its field passes the focus on", a.OnLeave, [&] { a.button.Focus(); }, "Af- A- B+ "},
      {"activated, it gives the focus", b.OnActivate, [&] { b.field.Focus(); }, "Af- A- B+ Bf+ "},
  };
  for (const auto& [name, handler, act, events] : cases) {
    a.field.Focus();
    log.clear();
    handler = [&, once = true, then = act]() mutable {
      if (std::exchange(once, false)) then();
    };
    b.Show();
    EXPECT_EQ(log, events) << name;
    handler = nullptr;
    b.button.Focus();
    c.Hide(), b.Hide();
  }
}

TEST_F(FrontWindow, ModalWindowInsideAnActivationHasItsTurnThere) {
  b.OnActivate = [&] {
    b.OnActivate = nullptr;
    desktop.Post([&] { c.button.Click(), c.Hide(); });
    c.ShowModal();
    log += "after ";
  };
  b.Show();
  EXPECT_EQ(log, "Af- A- B+ B- C+ C! C- B+ after ");
  EXPECT_EQ(desktop.ActiveFormName(), "B");
}

TEST_F(FrontWindow, FormThatHasDiedIsForgotten) {
  {
    Window d(desktop, "D", log);
    d.Show();
  }
  EXPECT_EQ(desktop.ActiveFormName(), "A");
  b.Show();
  EXPECT_EQ(log, "Af- A- D+ B+ ");
}

}  // namespace
}  // namespace kavr6
