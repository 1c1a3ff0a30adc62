#include "platform/headless/headless_desktop.h"

#include <algorithm>

namespace kavr6 {
namespace {
// A scene that does this much without letting the clock move goes round in a circle.
constexpr int kMostRunsAtOneTime = 100'000;

std::string InWords(const MessageBox& box) {
  return "'" + box.title + "', icon " + std::to_string(static_cast<int>(box.icon)) + ", buttons " +
         std::to_string(static_cast<int>(box.buttons)) + ": " + box.text;
}
}  // namespace

void HeadlessDesktop::Run(const TaskList::Entry& entry) {
  now_ = std::max(now_, entry.time);
  if (std::exchange(lastRun_, now_) != now_) runsAtThisTime_ = 0;
  if (++runsAtThisTime_ > kMostRunsAtOneTime) throw HeadlessFault("the same moment never ends");
  Enter(entry.task);
}

void HeadlessDesktop::PumpEvents() {
  // What these tasks post for this same moment has a higher number and waits for the next pump.
  const TaskId newest = tasks_.Newest();
  while (tasks_.FirstIsDue(now_, newest)) Run(tasks_.TakeFirst());
}

bool HeadlessDesktop::PumpEventsUntil(const std::function<bool()>& done, double limit) {
  const double deadline = now_ + limit;
  while (!done()) {
    if (tasks_.Empty() || tasks_.FirstTime() > deadline) {
      if (limit == kForever)
        throw HeadlessFault("nobody ends the wait in front of window '" + ActiveFormName() + "'");
      now_ = std::max(now_, deadline);
      return done();
    }
    Run(tasks_.TakeFirst());
  }
  return true;
}

void HeadlessDesktop::LineView::Block(const std::function<bool()>& done, double limit) {
  const double deadline = Now() + limit;
  while (!done()) {
    if (const double next = desktop_.tasks_.FirstMarkedTime(); next == kForever || next > deadline) {
      desktop_.now_ = std::max(Now(), deadline);
      return;
    }
    desktop_.Run(desktop_.tasks_.TakeFirstMarked());
  }
}

BoxAnswer HeadlessDesktop::ShowBox(const MessageBox& box) {
  boxes_.push_back(box);
  if (expected_.empty() && answerAnything_)
    return box.buttons == BoxButtons::YesNo ? BoxAnswer::Yes : BoxAnswer::Ok;
  if (expected_.empty()) throw HeadlessFault("unexpected box '" + box.title + "': " + box.text);
  const ExpectedBox expected = std::move(expected_.front());
  expected_.pop_front();
  if (expected.whole && box != *expected.whole)
    throw HeadlessFault("box " + InWords(box) + "\nbut expected: " + InWords(*expected.whole));
  if (expected.during) expected.during();
  if (expected.after > 0.0) Delay(*this, expected.after);
  return expected.answer;
}

std::string HeadlessDesktop::ShowFileDialog(const FileDialog& dialog) {
  fileDialogs_.push_back(dialog);
  if (expectedFiles_.empty() || expectedFiles_.front().purpose != dialog.purpose)
    throw HeadlessFault("unexpected file dialog for " + dialog.filter);
  const ExpectedFile expected = std::move(expectedFiles_.front());
  expectedFiles_.pop_front();
  if (expected.during) expected.during();
  return expected.name;
}

void HeadlessDesktop::Expect(ExpectedBox box) { expected_.push_back(std::move(box)); }

void HeadlessDesktop::Refused(const std::string& what) {
  if (!recordRefusals_) throw HeadlessFault("a user cannot do this: " + what);
  refusals_.push_back(what);
}

void HeadlessDesktop::EndProcess(int exitCode) { throw ProgramEnded{exitCode}; }

void HeadlessDesktop::CheckNothingLeft() const {
  if (!expected_.empty()) {
    const auto& whole = expected_.front().whole;
    throw HeadlessFault("a box has not come" + (whole ? ": " + InWords(*whole) : std::string()));
  }
  if (!expectedFiles_.empty())
    throw HeadlessFault("this file dialog has not come: " + expectedFiles_.front().name);
}

}  // namespace kavr6
