// The motor turning back and forth, to prove drive, wiring and motor.
#pragma once

#include <string_view>

#include "link/drive_line.h"
#include "platform/controls.h"
#include "platform/form.h"

namespace kavr6 {

/// Window "SelfTest". It is shown modally, and Stop is the one way out of it. It hears nothing of the drive
/// and does not look at the port: the user watches the shaft.
///
/// Each time the window comes to the front the test begins anew, also behind an alarm window that has been
/// closed; the moves go on while that is open.
class SelfTest : public Form {
 public:
  /// `over`: the main window.
  SelfTest(const Form& over, const DriveLine& line);

  Label Label1{*this, "Label1",
               "Motor should be turning 1/2 revolution at 0.25 rev/sec in alternating directions."};
  Button StopSelfTest{*this, "StopSelfTest", "Stop"};
  Timer Timer1{*this, "Timer1"};

  /// Tells the drive to stop and to leave the text language, without a pause, when a test is under way: for
  /// the end of the program.
  void StopMotor();

 protected:
  void Load() override { CenterOn(over_, *this); }
  bool MayClose() override { return false; }

 private:
  void Begin();
  void Move();
  void Stop();
  void Send(std::string_view letters);

  const Form& over_;
  DriveLine line_;
  bool GoForward = false;  // the direction of the next move
  bool stopping_ = false;
};

}  // namespace kavr6
