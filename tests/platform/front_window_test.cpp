// The order of events when the front window changes.
#include <fstream>
#include <functional>
#include <map>
#include <memory>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "platform/controls.h"
#include "platform/form.h"
#include "platform/headless/headless_desktop.h"

namespace kavr6 {
namespace {

/// Tells all that happens to it.
struct Window : Form {
  Window(Desktop& desktop, const std::string& name, std::string& log) : Form(desktop, name), log_(log) {
    Activate.Set([this] { Tell("+", "activated"); });
    Deactivate.Set([this] { Tell("-", "deactivated"); });
    field.GotFocus.Set([this] { Tell("f+", ""); });
    field.LostFocus.Set([this] { Tell("f-", "left"); });
    button.Clicked.Set([this] { Tell("!", ""); });
  }
  TextBox field{*this, "field"};
  Button button{*this, "button"};
  std::map<std::string, std::function<void()>> Once;

 private:
  void Tell(const char* what, const char* when) {
    log_ += " " + Name() + what;
    if (const auto act = std::exchange(Once[when], nullptr)) act();
  }
  std::string& log_;
};

struct Windows {
  std::string log;
  HeadlessDesktop desktop;
  Window a{desktop, "A", log};
  Window b{desktop, "B", log};
  Window c{desktop, "C", log};

  Windows() {
    a.Show();
    a.field.TabTo();
  }
  /// An order such as "show B" or "focus A.field".
  void Do(const std::string& order) {
    const std::string subject = order.substr(order.find(' ') + 1);
    Window& w = subject[0] == 'C' ? c : subject[0] == 'B' ? b : a;
    const std::map<std::string, std::function<void()>> orders{
        {"show", [&] { w.Show(); }},
        {"hide", [&] { w.Hide(); }},
        {"raise", [&] { desktop.BroughtToFront(w); }},
        {"click", [&] { w.button.Click(); }},
        {"type", [&] { w.field.Type("x"); }},
        {"focus", [&] { w.Find(subject.substr(2))->Focus(); }},
        {"selected", [&] { log += " " + std::to_string(w.field.SelLength()); }},
        {"who", [&] { log += " " + desktop.ActiveFormName(); }},
        {"box", [&] { desktop.Expect({.text = "?"}), desktop.Ask({.text = "?"}); }},
        {"modal",
         [&] { desktop.Post([&w] { w.button.Click(), w.Hide(); }), w.ShowModal(), log += " after"; }},
        {"passing", [&] { Window(desktop, subject, log).Show(); }}};
    orders.at(order.substr(0, order.find(' ')))();
  }
  /// "once B activated: show C"
  void Arrange(const std::string& line) {
    const std::size_t colon = line.find(':');
    (line[5] == 'B' ? b : a).Once[line.substr(7, colon - 7)] = [this, order = line.substr(colon + 2)] {
      Do(order);
    };
  }
};

TEST(FrontWindow, EachHearsOfItsTurnOnceInOrderWhateverItsHandlersDo) {
  std::ifstream script(KAVR6_SOURCE "/tests/platform/front_window.txt");
  auto windows = std::make_unique<Windows>();
  int orders = 0;
  for (std::string line; std::getline(script, line);) {
    const std::size_t bar = line.find(" |");
    if (line.empty()) windows = std::make_unique<Windows>();
    if (line.starts_with("once ")) windows->Arrange(line);
    if (bar == std::string::npos) continue;
    windows->log.clear();
    windows->Do(line.substr(0, bar));
    EXPECT_EQ(line.substr(0, bar) + " |" + windows->log, line);
    ++orders;
  }
  EXPECT_EQ(orders, 32);
}

}  // namespace
}  // namespace kavr6
