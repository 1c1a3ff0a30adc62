#include "tools/servo_fault.h"

#include <string>

#include "core/alarms.h"
#include "link/wire.h"

namespace kavr6 {
namespace {

constexpr double kClearPause = 0.1;  // seconds

}  // namespace

ServoFault::ServoFault(Desktop& desktop, const DriveLine& line) : Form(desktop, "ServoFault"), line_(line) {
  SetCaption("Drive Error");
  for (int bit = 0; bit < kBits; ++bit) {
    const std::string words(kAlarms[static_cast<std::size_t>(bit)].fault);
    Label1[bit].SetCaption(words);
    RedSquare[bit].SetToolTip(words);
  }
  Sample.SetLight(Lamp::State::Red);
  ClearHistory.Clicked.Set([this] { ClearFaultClick(); });
  OK.Clicked.Set([this] { Hide(); });
}

void ServoFault::ServoError152(int alarm) {
  if ((alarm & kPopupAlarms) == 0) return;
  line_.state.DriveHasFault = true;
  ShowRedBoxes(alarm);
  if (Desk().ActiveFormName() == Name()) return;
  OK.Focus();  // the window can open under typing hands, which must not enable the motor
  ShowModal();
}

void ServoFault::ShowRedBoxes(int alarm) {
  for (int bit = 0; bit < kBits; ++bit)
    RedSquare[bit].SetLight((alarm >> bit & 1) != 0 ? Lamp::State::Red : Lamp::State::Off);
}

// The drive is not asked whether the fault has gone: here the message is always the same, and lamps of an
// alarm that comes during the pause go out with the others. The menu command does ask.
void ServoFault::ClearFaultClick() {
  line_.comm.Output(kClearAlarmAndEnable);
  if (line_.comm.PortOpen()) line_.state.Drive.ClearSent();
  Delay(line_.pump, kClearPause);
  ClearRedBoxes();
  Desk().Ask({.text = "The fault has been cleared."});
}

}  // namespace kavr6
