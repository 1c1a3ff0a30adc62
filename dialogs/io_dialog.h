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
  Picture picInputClosed{*this, "picInputClosed", "InputClosed"};
  Picture picInputOpen{*this, "picInputOpen", "InputOpen"};
  Picture picInputBypassed{*this, "picInputBypassed", "InputBypassed"};
  CheckBox chkAlarmInput{*this, "chkAlarmInput"};
  Picture picAlarmReset{*this, "picAlarmReset", "InputRun"};
  OptionButton optCloseAlarm{*this, "optCloseAlarm", alarm_};
  OptionButton optOpenAlarm{*this, "optOpenAlarm", alarm_};
  OptionButton optNoAlarm{*this, "optNoAlarm", alarm_};
  Picture picFaultCloses{*this, "picFaultCloses", "FaultCloses"};
  Picture picFaultOpens{*this, "picFaultOpens", "FaultOpens"};
  Picture picFaultUnused{*this, "picFaultUnused", "FaultUnused"};
  Button ShowHistory{*this, "ShowHistory", "Show history..."};
  CheckBox chkBrake{*this, "chkBrake"};
  OptionButton optBrakeClose{*this, "optBrakeClose", brake_};
  OptionButton optBrakeOpen{*this, "optBrakeOpen", brake_};
  // The pictures of the brake fade all of them while there is none.
  Picture picBrakeCloses{*this, "picBrakeCloses", "BrakeCloses"};
  Picture picBrakeOpens{*this, "picBrakeOpens", "BrakeOpens"};
  Picture picBrakeRelease{*this, "picBrakeRelease", "BrakeRelease"};
  Picture picBrakeEngage{*this, "picBrakeEngage", "BrakeEngage"};
  TextBox txtBrakeDelay{*this, "txtBrakeDelay"};    ///< ms
  TextBox txtBrakeEngage{*this, "txtBrakeEngage"};  ///< ms
  MotionOutput MotionOut{*this};
  ListBox ListLimits{*this, "ListLimits"};                ///< the row is LimitMode - 1
  Picture picLimits{*this, "picLimits", "LimitsClosed"};  ///< follows ListLimits
  TextBox txtMaxAccel{*this, "txtMaxAccel"};              ///< rev/s/s
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
  void ShowBrake();

  MSComm& comm_;
};

}  // namespace kavr6
