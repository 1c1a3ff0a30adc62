// The motor dialog's numbers: from the settings, among the controls, and back.
#include <algorithm>

#include "core/numbers.h"
#include "dialogs/numeric_entry.h"
#include "motor/dialogs/motor_dialog.h"
#include "motor/dialogs/unit_list.h"
#include "motor/motor_units.h"

namespace kavr6 {
namespace {

constexpr int kLeastScrolledCurrent = 50;

/// A value in steps of the slider that goes with its text.
double Steps(double value, const TextBox& text) { return value * LimitsOf(text).sliderFactor; }

/// The text is written even where the slider stands there already: it may be left from a cancelled session.
void FillSlider(Slider& slider, TextBox& text, double value) {
  MoveSlider(slider, Steps(value, text));
  TextFollows(text, slider);
}

}  // namespace

void MotorDialog::ShowRatedCurrent(double amperes) {
  const auto most = static_cast<double>(limits_.MaxDriveCurrent());
  MoveSlider(SliderMaxCurrent, Steps(std::min(amperes, most), txtDriveCurrent));
}

void MotorDialog::HoldRunningCurrent() {
  // With a limit below the least current the two rules would chase each other.
  if (holding_) return;
  const double most = Steps(static_cast<double>(limits_.MotorCurrentLimit()), txtDriveCurrent);
  holding_ = true;
  if (SliderMaxCurrent.Value() > most) {
    MoveSlider(SliderMaxCurrent, most);
  } else if (SliderMaxCurrent.Value() < kLeastScrolledCurrent) {
    SliderMaxCurrent.SetValue(kLeastScrolledCurrent);
  }
  holding_ = false;
}

void MotorDialog::RunningCurrentTyped() {
  const std::string& text = txtDriveCurrent.Text();
  const float most = limits_.MotorCurrentLimit();
  const bool tooMuch = PrefixNumber(text) > static_cast<double>(most);
  txtDriveCurrent.SetText(tooMuch ? FormatNumber(most, "0.00") : CleanEntry(text, LimitsOf(txtDriveCurrent)));
  // The limit itself can lie above what the slider, and so the text, can show.
  FillSlider(SliderMaxCurrent, txtDriveCurrent, EntryNumber(txtDriveCurrent));
}

void MotorDialog::ShowIdleAmps() {
  const double amperes = PrefixNumber(txtIdlePercent.Text()) / 100 * PrefixNumber(txtDriveCurrent.Text());
  IdleLabel.SetCaption("%  (" + FormatNumber(amperes, "0.00") + " A)");
}

void MotorDialog::Opened() {
  if (settings_.CustomMotor) {
    DefineNewMotor.Focus();
  } else {
    MotorList.Focus();
  }
  InertiaEdited = false;  // filling is no edit
}

void MotorDialog::Fill() {
  SetMotorList(table_.Row().PartNoX);
  FillCurrents();
  FillLoadInertia();
  // Comes after the currents: another source than the one last shown puts its rated current there.
  (settings_.CustomMotor ? optCustom : optStandard).SetValue(true);
  chkDampingOff.SetValue(!settings_.DampingOn);
  chkSmoothingOff.SetValue(!settings_.SmoothingOn);
  ShowCustomSpecs();
}

void MotorDialog::Refilled() {
  // Nobody has chosen another motor here: the current is that of the settings, not the motor's.
  FillCurrents();
  InertiaEdited = false;
}

void MotorDialog::FillCurrents() {
  FillSlider(SliderIdleDelay, IdleDelayTime, settings_.IdleDelay);
  state_.MotorTouched = true;
  FillSlider(SliderMaxCurrent, txtDriveCurrent, settings_.RunCurrent);
  // The text goes further than the slider.
  txtIdlePercent.SetText(CleanEntry(NumberText(settings_.IdlePercent), LimitsOf(txtIdlePercent)));
  SliderFollows(txtIdlePercent, SliderIdleCurrent, LimitsOf(txtIdlePercent).sliderFactor);
}

void MotorDialog::FillLoadInertia() {
  SelectUnit(JUnits, settings_.LoadInertiaUnit);
  txtLoadInertia.SetText(
      FormatByMagnitude(InertiaFromKgM2(settings_.LoadInertia, settings_.LoadInertiaUnit)));
  FillSlider(SliderInertiaRatio, txtInertiaRatio, settings_.InertiaRatio);
  (settings_.InertiaIsRatio ? optRatio : optValue).SetValue(true);
}

void MotorDialog::ShowCustomSpecs() {
  OtherTorque.SetCaption(FormatByMagnitude(settings_.RatedTorque));
  OtherTorqueUnit.SetCaption(TorqueUnitName(settings_.TorqueUnit));
  OtherInertia.SetCaption(FormatByMagnitude(settings_.RotorInertia));
  OtherInertiaUnit.SetCaption(InertiaUnitName(settings_.InertiaUnit));
  OtherCurrent.SetCaption(NumberText(settings_.RatedCurrent));
  OtherHarmonicGain.SetCaption(NumberText(settings_.HarmonicGain));
  OtherHarmonicPhase.SetCaption(NumberText(settings_.HarmonicPhase));
  OtherDeg.SetCaption(NumberText(settings_.LeadAngleDeg));
  OtherRPS.SetCaption(NumberText(settings_.LeadAngleRps));
}

void MotorDialog::Commit() {
  const double most = Steps(static_cast<double>(limits_.MotorCurrentLimit()), txtDriveCurrent);
  if (most < SliderMaxCurrent.Value()) MoveSlider(SliderMaxCurrent, most);
  settings_ = Edited();
  if (InertiaEdited) state_.InertiaSet = true;
  Finish();
}

Settings MotorDialog::Edited() const {
  Settings s = settings_;
  s.IdleDelay = EntryNumber(IdleDelayTime);
  s.IdlePercent = EntryLong(txtIdlePercent);
  s.RunCurrent = EntryNumber(txtDriveCurrent);
  s.LoadInertiaUnit = static_cast<Integer>(JUnits.ListIndex());
  s.LoadInertia = InertiaToKgM2(EntryNumber(txtLoadInertia), s.LoadInertiaUnit);
  s.InertiaIsRatio = optRatio.Value();
  s.InertiaRatio = EntryNumber(txtInertiaRatio);
  s.CustomMotor = optCustom.Value();
  s.DampingOn = !chkDampingOff.Value();
  s.SmoothingOn = !chkSmoothingOff.Value();
  return s;
}

}  // namespace kavr6
