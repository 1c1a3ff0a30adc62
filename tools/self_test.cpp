#include "tools/self_test.h"

#include <string>

#include "link/wire.h"

namespace kavr6 {
namespace {

// Milliseconds. A move takes 2000.
constexpr int kFirstPeriod = 10;
constexpr int kMovePeriod = 2250;
constexpr double kStopPause = 0.1;  // seconds

constexpr std::string_view kStopMotion = "SK";

}  // namespace

SelfTest::SelfTest(const Form& over, const DriveLine& line)
    : Form(over.Desk(), "SelfTest"), over_(over), line_(line) {
  SetCaption("Self Test");
  Timer1.SetInterval(kFirstPeriod);
  Activate.Set([this] { Begin(); });
  Timer1.Tick.Set([this] { Move(); });
  StopSelfTest.Clicked.Set([this] { Stop(); });
}

void SelfTest::Send(std::string_view letters) { line_.comm.Output(std::string(letters) + kReturn); }

void SelfTest::Begin() {
  // An alarm window that opens and closes in the pause of Stop must not set the motor going again.
  if (stopping_) return;
  for (const std::string_view letters : {"HR", "SK", "CM21", "DI25000", "MR16", "VE.25"}) Send(letters);
  line_.state.Drive.TextSessionBegins();
  line_.state.Drive.ForgetImage();  // what it sets, the drive keeps until the next download
  GoForward = true;
  Timer1.SetEnabled(true);
}

void SelfTest::Move() {
  // Half a revolution: "MR16" has made it 25000 steps to one.
  Send(GoForward ? "DI12500" : "DI-12500");
  Send("FL");
  GoForward = !GoForward;
  Timer1.SetInterval(kMovePeriod);
}

void SelfTest::Stop() {
  Timer1.SetEnabled(false);
  Send(kStopMotion);
  stopping_ = true;
  Delay(line_.pump, kStopPause);
  if (!Visible()) return;  // a further click, which stops the motor once more, has come to its end first
  Send(kQuitText);
  line_.state.Drive.TextSessionEnds();
  Timer1.SetInterval(kFirstPeriod);
  stopping_ = false;
  Hide();
}

void SelfTest::StopMotor() {
  if (!Visible()) return;
  Send(kStopMotion);
  Send(kQuitText);
}

}  // namespace kavr6
