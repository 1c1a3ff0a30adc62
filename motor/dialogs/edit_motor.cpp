#include "motor/dialogs/edit_motor.h"

#include <utility>

#include "core/numbers.h"
#include "dialogs/numeric_entry.h"
#include "motor/dialogs/unit_list.h"
#include "motor/motor_units.h"

namespace kavr6 {
namespace {

constexpr float kWizardRevision = 1.0F;
constexpr unsigned char kWizardLetter = 'k';

}  // namespace

EditMotor::EditMotor(const SetupParts& parts, MotorDialog& motorDialog)
    : SetupDialog(parts, {"EditMotor", "Define Custom Motor"}), motorDialog_(motorDialog) {
  FillUnits(TorqueUnit, TorqueUnitName);
  FillUnits(JUnits, InertiaUnitName);
  WireEntries();
  Wizard.Clicked.Set([this] { WizardClick(); });
}

void EditMotor::WireEntries() {
  for (TextBox* box : {&txtR, &txtL, &txtMaxVolts, &txtDeg, &txtRPS}) LimitEntry(*box);
  LimitEntry(Gain, &SliderGain);
  LimitEntry(Phase, &SliderPhase);
  // The largest voltage goes one way only: its text does not move the slider.
  const std::pair<Slider*, TextBox*> shown[] = {
      {&SliderGain, &Gain}, {&SliderPhase, &Phase}, {&SliderMaxVolts, &txtMaxVolts}};
  for (const auto& [slider, box] : shown) {
    slider->Change.Set([slider = slider, box = box] { TextFollows(*box, *slider); });
    TextFollows(*box, *slider);
  }
}

void EditMotor::Load() {
  SetupDialog::Load();
  Wizard.SetEnabled(static_cast<bool>(OpenWizard));
}

void EditMotor::Opened() { txtMotorName.Focus(); }

void EditMotor::Fill() {
  txtRatedTorque.SetText(FormatByMagnitude(settings_.RatedTorque));
  SelectUnit(TorqueUnit, settings_.TorqueUnit);
  txtRotorInertia.SetText(FormatByMagnitude(settings_.RotorInertia));
  SelectUnit(JUnits, settings_.InertiaUnit);
  MoveSlider(SliderGain, settings_.HarmonicGain);
  Gain.SetText(NumberText(settings_.HarmonicGain));
  MoveSlider(SliderPhase, settings_.HarmonicPhase);
  Phase.SetText(NumberText(settings_.HarmonicPhase));
  txtRatedCurrent.SetText(NumberText(settings_.RatedCurrent));
  txtMotorName.SetText(settings_.MotorName);
  txtR.SetText(NumberText(settings_.MotorR));
  txtL.SetText(NumberText(settings_.MotorL));
  MoveSlider(SliderMaxVolts, settings_.MaxVoltsPct);
  TextFollows(txtMaxVolts, SliderMaxVolts);
  txtRPS.SetText(NumberText(settings_.LeadAngleRps));
  txtDeg.SetText(NumberText(settings_.LeadAngleDeg));
}

void EditMotor::Commit() {
  static_cast<MotorRecord&>(settings_) = Edited();
  ShowInMotorDialog();
  Finish();
}

MotorRecord EditMotor::Edited() const {
  return {.RatedCurrent = EntryNumber(txtRatedCurrent),
          .RatedTorque = EntryNumber(txtRatedTorque),
          .RotorInertia = EntryNumber(txtRotorInertia),
          .MaxVoltsPct = EntryNumber(txtMaxVolts),
          .MotorR = EntryNumber(txtR),
          .MotorL = EntryNumber(txtL),
          .MotorName = txtMotorName.Text(),
          .HarmonicGain = EntryLong(Gain),
          .HarmonicPhase = EntryLong(Phase),
          .TorqueUnit = static_cast<Integer>(TorqueUnit.ListIndex()),
          .InertiaUnit = static_cast<Integer>(JUnits.ListIndex()),
          .LeadAngleDeg = EntryLong(txtDeg),
          .LeadAngleRps = EntryLong(txtRPS)};
}

void EditMotor::ShowInMotorDialog() {
  // As typed; the motor dialog's own picture of the numbers comes with its next opening.
  const std::pair<Label*, std::string> shown[] = {
      {&motorDialog_.OtherTorque, txtRatedTorque.Text()},
      {&motorDialog_.OtherTorqueUnit, TorqueUnit.Text()},
      {&motorDialog_.OtherInertia, txtRotorInertia.Text()},
      {&motorDialog_.OtherInertiaUnit, JUnits.Text()},
      {&motorDialog_.OtherCurrent, txtRatedCurrent.Text()},
      {&motorDialog_.OtherHarmonicGain, Gain.Text()},
      {&motorDialog_.OtherHarmonicPhase, Phase.Text()},
      {&motorDialog_.OtherDeg, txtDeg.Text()},
      {&motorDialog_.OtherRPS, txtRPS.Text()},
  };
  for (const auto& [label, text] : shown) label->SetCaption(text);
  motorDialog_.ShowRatedCurrent(settings_.RatedCurrent);
}

void EditMotor::WizardClick() {
  // Without a letter there is no knowing what the firmware can do.
  const std::string& letter = state_.MinorRev;
  if (letter.empty() ||
      (state_.DspRev == kWizardRevision && static_cast<unsigned char>(letter[0]) < kWizardLetter)) {
    Desk().Ask(
        {.text = "You must have firmware version 1.00k or later to use the Waveform Smoothing Wizard."});
  } else {
    OpenWizard();
  }
}

}  // namespace kavr6
