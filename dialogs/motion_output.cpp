#include "dialogs/motion_output.h"

namespace kavr6 {
namespace {

constexpr Long kOpen = 1;
constexpr Long kClosed = 2;
constexpr Long kFirstTach = 4;

}  // namespace

MotionOutput::MotionOutput(Form& form)
    : optMotionClosed(form, "optMotionClosed", group_),
      optMotionOpen(form, "optMotionOpen", group_),
      optMotionOff(form, "optMotionOff", group_),
      optMotionTach(form, "optMotionTach", group_),
      TachPPR(form, "TachPPR") {
  for (const int pulses : {100, 200, 400, 800, 1600}) TachPPR.AddItem(std::to_string(pulses) + " pulses/rev");
  TachPPR.SetListIndex(0);
  optMotionOff.SetValue(true);
}

void MotionOutput::Show(Long mode) {
  if (mode >= kFirstTach) {
    optMotionTach.SetValue(true);
    const Long row = mode - kFirstTach;
    TachPPR.SetListIndex(row < TachPPR.Count() ? row : 0);
    return;
  }
  (mode == kOpen ? optMotionOpen : mode == kClosed ? optMotionClosed : optMotionOff).SetValue(true);
}

Long MotionOutput::Mode() const {
  if (optMotionTach.Value()) return TachPPR.ListIndex() + kFirstTach;
  return optMotionClosed.Value() ? kClosed : optMotionOpen.Value() ? kOpen : kNotUsed;
}

}  // namespace kavr6
