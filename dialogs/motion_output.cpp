#include "dialogs/motion_output.h"

#include "core/io_modes.h"

namespace kavr6 {

MotionOutput::MotionOutput(Form& form)
    : optMotionClosed(form, "optMotionClosed", group_),
      optMotionOpen(form, "optMotionOpen", group_),
      optMotionOff(form, "optMotionOff", group_),
      optMotionTach(form, "optMotionTach", group_),
      TachPPR(form, "TachPPR"),
      picMotionClosed(form, "picMotionClosed", "OutputClosed"),
      picMotionOpen(form, "picMotionOpen", "OutputOpen"),
      picMotionOff(form, "picMotionOff", "OutputUnused"),
      picMotionTach(form, "picMotionTach", "OutputTach") {
  for (const int pulses : kTachPulses) TachPPR.AddItem(std::to_string(pulses) + " pulses/rev");
  TachPPR.SetListIndex(0);
  optMotionClosed.IllustrateBy(picMotionClosed);
  optMotionOpen.IllustrateBy(picMotionOpen);
  optMotionOff.IllustrateBy(picMotionOff);
  optMotionTach.IllustrateBy(picMotionTach);
  optMotionOff.SetValue(true);
}

void MotionOutput::Show(Long mode) {
  if (mode >= kFirstTach) {
    optMotionTach.SetValue(true);
    const Long row = mode - kFirstTach;
    TachPPR.SetListIndex(row < TachPPR.Count() ? row : 0);
    return;
  }
  (mode == kMotionOpen     ? optMotionOpen
   : mode == kMotionClosed ? optMotionClosed
                           : optMotionOff)
      .SetValue(true);
}

Long MotionOutput::Mode() const {
  if (optMotionTach.Value()) return TachPPR.ListIndex() + kFirstTach;
  return optMotionClosed.Value() ? kMotionClosed : optMotionOpen.Value() ? kMotionOpen : kNotUsed;
}

}  // namespace kavr6
