// The velocity dialog.
#pragma once

#include "dialogs/motion_output.h"
#include "dialogs/setup_dialog.h"

namespace kavr6 {

/// Window "VelocityDialog". Its OK puts the drive into velocity mode, whatever mode it was in.
class VelocityDialog : public SetupDialog {
 public:
  VelocityDialog(const SetupParts& parts);

  CheckBox chkRunStop{*this, "chkRunStop"};
  Picture picRunStop{*this, "picRunStop", "InputRun"};
  CheckBox chkAnalog{*this, "chkAnalog"};
  Picture picAnalog{*this, "picAnalog", "SpeedAnalog"};
  Frame FrameSpeed{*this, "FrameSpeed"};
  TextBox txtSpeed{*this, "txtSpeed"};  ///< rev/sec
  Label lblSpeedUnit{*this, "lblSpeedUnit", "rev/sec"};
  CheckBox chk2Speeds{*this, "chk2Speeds"};
  Picture picSpeed2{*this, "picSpeed2", "SpeedTwo"};
  TextBox txtSpeed2{*this, "txtSpeed2"};  ///< rev/sec
  TextBox txtAccel{*this, "txtAccel"};    ///< rev/s/s
  TextBox txtDecel{*this, "txtDecel"};    ///< rev/s/s
  Frame FrameAnalog{*this, "FrameAnalog"};
  Label lblRange{*this, "lblRange", "Range"};
  ListBox ListAnalogRange{*this, "ListAnalogRange"};  ///< the row is AnalogRange
  Label lblSpeed{*this, "lblSpeed", "Speed"};
  TextBox CmdScale{*this, "CmdScale"};  ///< rev/sec at the top of the range
  Label lblAnalogUnits{*this, "lblAnalogUnits"};
  Button Advanced{*this, "Advanced", "Advanced Settings..."};
  Frame FrameInPosition{*this, "FrameInPosition"};
  MotionOutput MotionOut{*this};

  /// What the advanced dialog works on while this one is open; OK takes them.
  Long PendingOffset = 0;    ///< mV
  Long PendingDeadband = 0;  ///< mV
  Long PendingFilter = 0;    ///< Hz

  /// To be set before the dialog is loaded. PendingReplaced is called when the pending values are new.
  std::function<void()> OpenAdvanced;
  std::function<void()> PendingReplaced;

  void DispScaleOffset();
  void ShowHideAnalog();

 protected:
  void Fill() override;
  void Opened() override;
  void Commit() override;
};

void FillVelocityDialog(VelocityDialog& dialog, const Settings& settings);

}  // namespace kavr6
