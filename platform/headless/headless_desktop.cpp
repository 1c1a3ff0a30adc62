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

Scheduler::TaskId HeadlessDesktop::CallAfter(double seconds, Task task) {
  const TaskId id = ++lastId_;
  const double time = now_ + seconds;
  queue_.emplace(std::pair(time, id), std::move(task));
  times_.emplace(id, time);
  return id;
}

void HeadlessDesktop::Cancel(TaskId id) {
  const auto found = times_.find(id);
  if (found == times_.end()) return;
  queue_.erase({found->second, id});
  times_.erase(found);
}

void HeadlessDesktop::RunFirst() {
  const auto first = queue_.begin();
  now_ = std::max(now_, first->first.first);
  if (std::exchange(lastRun_, now_) != now_) runsAtThisTime_ = 0;
  if (++runsAtThisTime_ > kMostRunsAtOneTime) throw HeadlessFault("the same moment never ends");
  const Task task = std::move(first->second);
  times_.erase(first->first.second);
  queue_.erase(first);
  Enter(task);
}

void HeadlessDesktop::PumpEvents() {
  // What these tasks post for this same moment has a higher number and waits for the next pump.
  const TaskId newest = lastId_;
  while (!queue_.empty() && queue_.begin()->first.first <= now_ && queue_.begin()->first.second <= newest)
    RunFirst();
}

bool HeadlessDesktop::PumpEventsUntil(const std::function<bool()>& done, double limit) {
  const double deadline = now_ + limit;
  while (!done()) {
    if (queue_.empty() || queue_.begin()->first.first > deadline) {
      if (limit == kForever)
        throw HeadlessFault("nobody ends the wait in front of window '" + ActiveFormName() + "'");
      now_ = std::max(now_, deadline);
      return done();
    }
    RunFirst();
  }
  return true;
}

BoxAnswer HeadlessDesktop::Ask(const MessageBox& box) {
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

std::string HeadlessDesktop::ChooseFile(const FileDialog& dialog) {
  fileDialogs_.push_back(dialog);
  if (expectedFiles_.empty() || expectedFiles_.front().purpose != dialog.purpose)
    throw HeadlessFault("unexpected file dialog for " + dialog.filter);
  const ExpectedFile expected = std::move(expectedFiles_.front());
  expectedFiles_.pop_front();
  if (expected.during) expected.during();
  return expected.name;
}

void HeadlessDesktop::EndProgram(int exitCode) { throw ProgramEnded{exitCode}; }

void HeadlessDesktop::CheckNothingLeft() const {
  if (!expected_.empty()) {
    const auto& whole = expected_.front().whole;
    throw HeadlessFault("a box has not come" + (whole ? ": " + InWords(*whole) : std::string()));
  }
  if (!expectedFiles_.empty())
    throw HeadlessFault("this file dialog has not come: " + expectedFiles_.front().name);
}

}  // namespace kavr6
