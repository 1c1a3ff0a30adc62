#include "dialogs/pulse_dir_dialog.h"

#include "dialogs/numeric_entry.h"

namespace kavr6 {

PulseDirDialog::PulseDirDialog(const SetupParts& parts)
    : PulseInputDialog(parts, {"PulseDirDialog", "Pulse & Direction Control"}) {
  FramePulseType.Hold({&optPulseDir, &optPulsePulse, &optQuad, &picPulseDir, &picPulsePulse, &picQuad});
  FrameDir.Hold({&optDir0, &optDir1, &picDir0, &picDir1});
  optPulseDir.IllustrateBy(picPulseDir);
  optPulsePulse.IllustrateBy(picPulsePulse);
  optQuad.IllustrateBy(picQuad);
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
  CommitPulseInputs();
  ShowModeName(state_, settings_);
  Finish();
}

void FillPulseDirDialog(PulseDirDialog& dialog, const Settings& settings) {
  OptionButton& type = settings.PulseType == kCwCcwPulse   ? dialog.optPulsePulse
                       : settings.PulseType == kQuadrature ? dialog.optQuad
                                                           : dialog.optPulseDir;
  type.SetValue(true);
  dialog.ShowPulseInputs(settings);
}

}  // namespace kavr6
