#include "dialogs/pulse_dir_dialog.h"

#include "dialogs/pulse_settings.h"

namespace kavr6 {

PulseDirDialog::PulseDirDialog(MainScreen& screen, Settings& settings)
    : SetupDialog(screen, settings, {"PulseDirDialog", "Pulse & Direction Control", "DigitalPosn.html"}) {
  for (TextBox* box : {&SPR, &txtStepFilterFreq, &txtNoiseFilter}) LimitEntry(*box);
  for (OptionButton* type : {&optPulseDir, &optPulsePulse, &optQuad})
    type->Clicked.Set([this] { ShowHideOptions(); });
  Activate.Set([this] { ShowHideOptions(); });
}

void PulseDirDialog::ShowHideOptions() { FrameDir.SetVisible(optQuad.Value()); }

void PulseDirDialog::Fill() { FillPulseDirDialog(*this, settings_); }

void PulseDirDialog::Opened() {
  for (OptionButton* type : {&optPulseDir, &optPulsePulse, &optQuad})
    if (type->Value()) type->Focus();
}

void PulseDirDialog::Commit() {
  settings_.StepsPerRev = EntryLong(SPR);
  settings_.OpMode = kOpPulseOrVelocity;
  settings_.ControlMode = kControlPulse;
  settings_.PulseType = optPulseDir.Value()     ? kPulseAndDirection
                        : optPulsePulse.Value() ? kCwCcwPulse
                                                : kQuadrature;
  settings_.DirIsCW = optDir1.Value();  // also while it is hidden
  settings_.StepFilterFreq = EntryLong(txtStepFilterFreq);
  settings_.NoiseFilter = NoiseFilterOf(txtNoiseFilter);
  ShowModeName(screen_, settings_);
  Finish();
}

void FillPulseDirDialog(PulseDirDialog& dialog, const Settings& settings) {
  OptionButton& type = settings.PulseType == kCwCcwPulse   ? dialog.optPulsePulse
                       : settings.PulseType == kQuadrature ? dialog.optQuad
                                                           : dialog.optPulseDir;
  type.SetValue(true);
  (settings.DirIsCW ? dialog.optDir1 : dialog.optDir0).SetValue(true);
  dialog.txtStepFilterFreq.SetText(NumberText(settings.StepFilterFreq));
  dialog.txtNoiseFilter.SetText(NoiseFilterText(settings.NoiseFilter));
  dialog.SPR.SetText(NumberText(settings.StepsPerRev));
}

}  // namespace kavr6
