#include "tools/drive_commands.h"

#include "core/status_word.h"
#include "link/wire.h"

namespace kavr6 {
namespace {

constexpr double kClearPause = 0.1;  // seconds
constexpr double kRestorePause = 0.5;
constexpr Long kNotReported = -1;

}  // namespace

void MenuClearFault(const DriveLine& line, DriveIdentity& identity) {
  line.state.AlarmPopupOff = true;
  line.comm.Output(kClearAlarm);
  Delay(line.pump, kClearPause);
  const Long status = identity.GetServoStatus();
  const bool sticks = status != kNotReported && (status & kStatusAlarm) != 0;
  // With the port closed nobody has reported anything.
  if (status != kNotReported && line.comm.PortOpen()) {
    sticks ? line.state.Drive.FaultStands() : line.state.Drive.FaultCleared();
  }
  if (sticks) {
    line.boxes.Ask({.text = "The fault will not clear.  Perhaps cycling the power will help."});
  } else {
    line.boxes.Ask({.text = status == kNotReported
                                ? "Drive is not reporting whether or not the fault has been cleared."
                                : "The fault has been cleared."});
    line.comm.Output(kEnableMotor);
  }
  line.state.AlarmPopupOff = false;
}

void MenuRestore(const DriveLine& line, DriveIdentity& identity) {
  const BoxAnswer answer =
      line.boxes.Ask({.text = "Do you want to erase all the information in your drive and restore factory "
                              "default values?",
                      .title = "Reset Drive Data",
                      .buttons = BoxButtons::OkCancel,
                      .careful = true});
  if (answer == BoxAnswer::Ok) {
    line.state.CommandActive = true;
    PauseBeforeCommand(line);
    line.comm.Output(kRestoreFactory);
    if (line.comm.PortOpen()) line.state.Drive.Restored();
    Delay(line.pump, kRestorePause);
    identity.CheckDrive();
  }
  line.state.CommandActive = false;
}

}  // namespace kavr6
