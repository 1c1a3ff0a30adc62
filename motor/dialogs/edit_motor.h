// The custom motor editor.
#pragma once

#include <functional>
#include <string>

#include "motor/dialogs/motor_dialog.h"

namespace kavr6 {

/// Window "EditMotor". Its OK writes straight into the settings: a later Cancel of the motor dialog, which
/// has opened it, takes nothing back.
class EditMotor : public SetupDialog {
 public:
  EditMotor(const SetupParts& parts, MotorDialog& motorDialog);

  TextBox txtMotorName{*this, "txtMotorName"};
  TextBox txtRatedCurrent{*this, "txtRatedCurrent"};
  TextBox txtRatedTorque{*this, "txtRatedTorque"};
  ListBox TorqueUnit{*this, "TorqueUnit"};
  TextBox txtRotorInertia{*this, "txtRotorInertia"};
  ListBox JUnits{*this, "JUnits"};
  TextBox txtR{*this, "txtR"};
  TextBox txtL{*this, "txtL"};
  TextBox txtMaxVolts{*this, "txtMaxVolts"};
  Slider SliderMaxVolts{*this, "SliderMaxVolts", {10, 100, 1, 10, 10}};  ///< percent
  TextBox txtDeg{*this, "txtDeg"};
  TextBox txtRPS{*this, "txtRPS"};
  TextBox Gain{*this, "Gain"};
  Slider SliderGain{
      *this, "SliderGain", {0, 3000, 10, 100, 500}};  ///< ends below the text's limit on purpose
  TextBox Phase{*this, "Phase"};
  Slider SliderPhase{*this, "SliderPhase", {-128, 128, 1, 10, 32}};
  Button Wizard{*this, "Wizard", "Wizard..."};

  /// To be set before the window is loaded. Without it the wizard button is greyed.
  std::function<void()> OpenWizard;

 protected:
  void Load() override;
  void Fill() override;
  void Opened() override;
  void Commit() override;

 private:
  void WireEntries();
  MotorRecord Edited() const;
  void ShowInMotorDialog();
  void WizardClick();

  MotorDialog& motorDialog_;
};

}  // namespace kavr6
