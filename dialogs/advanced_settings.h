// The advanced analog dialog.
#pragma once

#include <string>
#include <string_view>

#include "dialogs/setup_dialog.h"
#include "dialogs/velocity_dialog.h"
#include "link/drive_line.h"

namespace kavr6 {

/// Window "AdvancedSettings". It works on the pending values of the velocity dialog; only that dialog's OK
/// takes them into the settings. Auto Offset asks the drive.
class AdvancedSettings : public SetupDialog {
 public:
  AdvancedSettings(const SetupParts& parts, VelocityDialog& velocity, const DriveLine& line);

  TextBox txtCmdOffset{*this, "txtCmdOffset"};            ///< mV
  TextBox txtAnalogDeadband{*this, "txtAnalogDeadband"};  ///< mV
  TextBox txtAnalogFilter{*this, "txtAnalogFilter"};      ///< Hz
  Button AutoOffset{*this, "AutoOffset", "Auto Offset"};

 protected:
  void Fill() override;
  void Opened() override;
  void Commit() override;

 private:
  void AutoOffsetClick();
  void MeasureOffset();

  VelocityDialog& velocity_;
  DriveLine line_;
  bool measuring_ = false;
};

/// The command that asks for the analog offset: later firmware wants a guard code with it.
std::string_view OffsetCommand(float revision, const std::string& letter);

}  // namespace kavr6
