// The custom motor editor.
#pragma once

#include <functional>
#include <string>

#include "motor/motor_dialog.h"

namespace kavr6 {

/// Window "EditMotor". Its OK writes straight into the settings: a later Cancel of the motor dialog, which
/// has opened it, takes nothing back.
class EditMotor : public Form {
 public:
  EditMotor(Desktop& desktop, MainScreen& screen, Settings& settings, MotorDialog& motorDialog);

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
  Button OK{*this, "OK", "OK", Button::Role::Default};
  Button Cancel{*this, "Cancel", "Cancel", Button::Role::Cancel};
  Button Help{*this, "Help", "Help"};

  /// To be set before the window is loaded. Without ShowHelp the help button is greyed.
  std::function<void()> OpenWizard;
  std::function<void(const std::string& page)> ShowHelp;

  /// Shows the custom motor of the settings and opens the editor; one that stands open only comes to the
  /// front.
  void Open();

 protected:
  void Load() override;

 private:
  void WireEntries();
  void WireButtons();
  void Fill();
  void TakeOver();
  MotorRecord Edited() const;
  void ShowInMotorDialog();
  void WizardClick();

  MainScreen& screen_;
  Settings& settings_;
  MotorDialog& motorDialog_;
};

}  // namespace kavr6
