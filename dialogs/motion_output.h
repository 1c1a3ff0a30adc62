// The choice of what the motion output tells, which two dialogs offer.
#pragma once

#include "core/settings.h"
#include "platform/controls.h"

namespace kavr6 {

/// The controls are named alike in both dialogs.
class MotionOutput {
  OptionGroup group_;

 public:
  explicit MotionOutput(Form& form);

  OptionButton optMotionClosed;
  OptionButton optMotionOpen;
  OptionButton optMotionOff;
  OptionButton optMotionTach;
  ListBox TachPPR;  ///< pulses per turn of the tach output; filled from the beginning, first row selected
  Picture picMotionClosed;
  Picture picMotionOpen;
  Picture picMotionOff;
  Picture picMotionTach;

  /// `mode` as in MotionOutMode; one beyond the tach choices shows the first of these.
  void Show(Long mode);
  Long Mode() const;
};

}  // namespace kavr6
