#include "dialogs/pulse_input_dialog.h"

#include "core/numbers.h"
#include "dialogs/numeric_entry.h"

namespace kavr6 {
namespace {

constexpr double kKilohertz = 1000;  // to the megahertz

}  // namespace

PulseInputDialog::PulseInputDialog(const SetupParts& parts, const SetupDialogTexts& texts)
    : SetupDialog(parts, texts) {
  optDir0.IllustrateBy(picDir0);
  optDir1.IllustrateBy(picDir1);
  FrameSPR.Hold({&SPR});
  FrameStepFilter.Hold({&txtStepFilterFreq});
  for (TextBox* box : {&SPR, &txtStepFilterFreq, &txtNoiseFilter}) LimitEntry(*box);
}

void PulseInputDialog::ShowPulseInputs(const Settings& settings) {
  (settings.DirIsCW ? optDir1 : optDir0).SetValue(true);
  txtStepFilterFreq.SetText(NumberText(settings.StepFilterFreq));
  txtNoiseFilter.SetText(NumberText(settings.NoiseFilter / kKilohertz));
  SPR.SetText(NumberText(settings.StepsPerRev));
}

void PulseInputDialog::CommitPulseInputs() {
  settings_.DirIsCW = optDir1.Value();
  settings_.StepFilterFreq = EntryLong(txtStepFilterFreq);
  settings_.NoiseFilter = ToLong(EntryNumber(txtNoiseFilter) * kKilohertz);
}

}  // namespace kavr6
