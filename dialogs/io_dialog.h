// The I/O dialog.
#pragma once

#include "dialogs/motion_output.h"
#include "dialogs/setup_dialog.h"
#include "platform/mscomm.h"

namespace kavr6 {

/// Window "IOdialog". No control is disabled or hidden by another's state.
class IOdialog : public SetupDialog {
  OptionGroup enable_;
  OptionGroup alarm_;
  OptionGroup brake_;

 public:
  IOdialog(const SetupParts& parts, MSComm& comm);

  OptionButton optServoClosed{*this, "optServoClosed", enable_};
  OptionButton optServoOpen{*this, "optServoOpen", enable_};
  OptionButton optEnableAuto{*this, "optEnableAuto", enable_};
  CheckBox chkAlarmInput{*this, "chkAlarmInput"};
  OptionButton optCloseAlarm{*this, "optCloseAlarm", alarm_};
  OptionButton optOpenAlarm{*this, "optOpenAlarm", alarm_};
  OptionButton optNoAlarm{*this, "optNoAlarm", alarm_};
  Button ShowHistory{*this, "ShowHistory", "Show history..."};
  CheckBox chkBrake{*this, "chkBrake"};
  OptionButton optBrakeClose{*this, "optBrakeClose", brake_};
  OptionButton optBrakeOpen{*this, "optBrakeOpen", brake_};
  TextBox txtBrakeDelay{*this, "txtBrakeDelay"};    ///< ms
  TextBox txtBrakeEngage{*this, "txtBrakeEngage"};  ///< ms
  MotionOutput MotionOut{*this};
  ListBox ListLimits{*this, "ListLimits"};    ///< the row is LimitMode - 1
  TextBox txtMaxAccel{*this, "txtMaxAccel"};  ///< rev/s/s
  Button Wiring{*this, "Wiring", "Wiring"};

  /// To be set before the dialog is loaded. Without it the history button is greyed.
  std::function<void()> OpenHistory;

  /// The words of the limit input modes 1 to 3; selects the first.
  void FillLimitList();

 protected:
  void Load() override;
  void Fill() override;
  void Opened() override;
  void Commit() override;

 private:
  MSComm& comm_;
};

}  // namespace kavr6
