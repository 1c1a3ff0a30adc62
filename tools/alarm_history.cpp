#include "tools/alarm_history.h"

#include <string>

#include "link/wire.h"

namespace kavr6 {
namespace {

constexpr int kBytesInACode = 2;

}  // namespace

std::optional<Bytes> GetAlarmHistory(const DriveLine& line) {
  line.state.CommandActive = true;
  PauseBeforeCommand(line);
  LineHold hold(line, 0);
  line.state.Progress = 0;
  line.comm.Output(kReadHistory);
  if (hold.Await(AlarmHistory::kCodes * kBytesInACode, ReplyLimit(kReadHistory))) {
    line.state.Drive.Heard();
    return hold.Read();
  }
  hold.TellNoAnswer();
  line.boxes.Ask({.text = "The drive is not responding to the \"a\" command.  Is it connected to the right "
                          "port and turned on?",
                  .icon = BoxIcon::Question,
                  .title = "Alarm History Upload "});
  return {};
}

AlarmHistory::AlarmHistory(Desktop& desktop, const DriveLine& line)
    : Form(desktop, "AlarmHistory"), line_(line) {
  SetCaption("Alarm History");
  for (int bit = 0; bit < kAlarmsInACode; ++bit) {
    const std::string words(kAlarms[static_cast<std::size_t>(bit)].history);
    Label1[bit].SetCaption(words);
    for (int code = 0; code < kCodes; ++code)
      RedSquare[kAlarmsInACode * code + bit].SetToolTip(words + ", code " + std::to_string(code + 1));
  }
  for (int code = 0; code < kCodes; ++code) AlarmNum[code].SetCaption(std::to_string(code + 1));
  RedSquare[kSample].SetLight(Lamp::State::Red);
  ClearHistory.Clicked.Set([this] { ClearHistoryClick(); });
  OK.Clicked.Set([this] { Hide(); });
}

void AlarmHistory::Run() {
  const std::optional<Bytes> data = GetAlarmHistory(line_);
  if (!data) return;
  DispAlarmHistory(*data);
  OK.Focus();  // a key that comes too early must not erase anything
  ShowModal();
}

void AlarmHistory::DispAlarmHistory(const Bytes& data) {
  for (int code = 0; code < kCodes; ++code) {
    const auto at = std::size_t{kBytesInACode} * static_cast<std::size_t>(code);
    const int word = data.at(at) * 256 + data.at(at + 1);
    for (int bit = 0; bit < kAlarmsInACode; ++bit)
      RedSquare[kAlarmsInACode * code + bit].SetLight((word >> bit & 1) != 0 ? Lamp::State::Red
                                                                             : Lamp::State::Off);
  }
}

void AlarmHistory::ClearHistoryClick() {
  line_.comm.Output(kClearHistory);
  // Without an answer the grid stays as it is.
  if (const std::optional<Bytes> data = GetAlarmHistory(line_)) DispAlarmHistory(*data);
}

}  // namespace kavr6
