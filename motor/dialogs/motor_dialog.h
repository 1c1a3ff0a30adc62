// The motor dialog: choice of the motor, its currents and its load.
#pragma once

#include <functional>
#include <string>

#include "dialogs/setup_dialog.h"
#include "motor/motor_calculations.h"
#include "motor/motor_table.h"

namespace kavr6 {

/// Window "MotorDialog". It opens the motor table when it is loaded and keeps it for the whole run. It works
/// on its controls and writes the settings in OK alone, but a row picked in MotorList is the selected
/// standard motor at once, and Cancel does not bring the earlier one back.
class MotorDialog : public SetupDialog {
  OptionGroup source_;
  OptionGroup load_;

 public:
  MotorDialog(const SetupParts& parts, MotorTable& table, CurrentLimits& limits);

  OptionButton optStandard{*this, "optStandard", source_};
  OptionButton optCustom{*this, "optCustom", source_};
  ListBox MotorList{*this, "MotorList"};
  Button DefineNewMotor{*this, "DefineNewMotor", "Define Custom Motor..."};

  Frame FrameMotorSpecs{*this, "FrameMotorSpecs"};
  Label lblRatedTorque{*this, "lblRatedTorque"};
  Label TorqueUnit{*this, "TorqueUnit"};
  Label lblRatedCurrent{*this, "lblRatedCurrent"};
  Label lblRotorInertia{*this, "lblRotorInertia"};
  Label RotorInertiaUnit{*this, "RotorInertiaUnit"};
  Frame MotorMore{*this, "MotorMore"};
  Label lblSmoothingGain{*this, "lblSmoothingGain"};
  Label lblSmoothingPhase{*this, "lblSmoothingPhase"};
  Label lblDeg{*this, "lblDeg"};
  Label lblrps{*this, "lblrps"};

  Frame FrameOtherMotor{*this, "FrameOtherMotor"};
  Label OtherTorque{*this, "OtherTorque"};
  Label OtherTorqueUnit{*this, "OtherTorqueUnit"};
  Label OtherCurrent{*this, "OtherCurrent"};
  Label OtherInertia{*this, "OtherInertia"};
  Label OtherInertiaUnit{*this, "OtherInertiaUnit"};
  Frame OtherMore{*this, "OtherMore"};
  Label OtherHarmonicGain{*this, "OtherHarmonicGain"};
  Label OtherHarmonicPhase{*this, "OtherHarmonicPhase"};
  Label OtherDeg{*this, "OtherDeg"};
  Label OtherRPS{*this, "OtherRPS"};
  Button MoreOrLess{*this, "MoreOrLess", "More"};

  TextBox txtDriveCurrent{*this, "txtDriveCurrent"};
  Slider SliderMaxCurrent{*this, "SliderMaxCurrent", {1, 600, 10, 100, 100}};  ///< 1/100 A
  Label lblAmps{*this, "lblAmps", "amps"};
  TextBox txtIdlePercent{*this, "txtIdlePercent"};
  Slider SliderIdleCurrent{*this, "SliderIdleCurrent", {0, 90, 1, 10, 10}};  ///< percent
  Label IdleLabel{*this, "IdleLabel"};
  TextBox IdleDelayTime{*this, "IdleDelayTime"};
  Slider SliderIdleDelay{*this, "SliderIdleDelay", {0, 1000, 10, 100, 100}};  ///< 1/100 s

  OptionButton optRatio{*this, "optRatio", load_};
  TextBox txtInertiaRatio{*this, "txtInertiaRatio"};
  Slider SliderInertiaRatio{*this, "SliderInertiaRatio", {0, 200, 1, 10, 20}};  ///< 1/10
  OptionButton optValue{*this, "optValue", load_};
  TextBox txtLoadInertia{*this, "txtLoadInertia"};
  ListBox JUnits{*this, "JUnits"};

  CheckBox chkSmoothingOff{*this, "chkSmoothingOff"};
  CheckBox chkDampingOff{*this, "chkDampingOff"};
  Button Wiring{*this, "Wiring", "Wiring"};

  /// The user has touched the load inertia since the dialog was opened.
  bool InertiaEdited = false;

  /// To be set before the window is loaded.
  std::function<void()> OpenEditor;

  /// Fills MotorList in the order of the table and selects its first row.
  void LoadMotorList();
  /// Selects the row of that name, or the first one when there is none.
  void SetMotorList(const std::string& name);
  /// Shows the custom motor of the settings.
  void ShowCustomSpecs();
  /// Puts the running current on show at a motor's rated current, or at what the drive can give at most.
  void ShowRatedCurrent(double amperes);

 protected:
  /// Opens the table and fills the list; a table that cannot be opened is told in a box and ends the program.
  void Load() override;
  void Fill() override;
  void Opened() override;
  void Refilled() override;
  void Commit() override;

 private:
  void HoldSpecs();
  void WireMotorChoice();
  void WireRunningCurrent();
  void WireIdleCurrent();
  void WireLoadInertia();

  void MotorPicked();
  void SourceChosen(bool custom);
  void ShowMore(bool more);
  void LoadKindChosen(bool ratio);
  void HoldRunningCurrent();
  void RunningCurrentTyped();
  void ShowIdleAmps();

  void FillCurrents();
  void FillLoadInertia();
  Settings Edited() const;

  MotorTable& table_;
  CurrentLimits& limits_;
  bool holding_ = false;
  bool leavingCurrent_ = false;
};

/// Selects the motor of that name in the dialog, after appending it to the table where it is missing. A motor
/// without a name is ignored. That the table cannot be written is told in a box; the motor is selected all
/// the same, and stays in the list until the program ends. A box also tells which file has taken it, where
/// that is the user's own.
void AddMotorIfMissing(MotorTable& table, MotorDialog& dialog, const MotorRecord& motor);

}  // namespace kavr6
