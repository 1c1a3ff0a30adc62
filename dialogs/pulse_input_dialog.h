// What the dialogs that set pulse inputs have in common.
#pragma once

#include <array>

#include "dialogs/setup_dialog.h"

namespace kavr6 {

/// How one kind of pulses looks at the two inputs.
struct PulseLook {
  const char* picture;
  const char* upper;
  const char* lower;
};
/// The index is PulseType.
inline constexpr std::array<PulseLook, 3> kPulseLooks{
    {{"SignalPulseDir", "X1/STEP", "X2/DIR"}, {"SignalCwCcw", "CW", "CCW"}, {"SignalQuadrature", "A", "B"}}};

class PulseInputDialog : public SetupDialog {
  OptionGroup direction_;

 public:
  PulseInputDialog(const SetupParts& parts, const SetupDialogTexts& texts);

  Frame FramePulseType{*this, "FramePulseType"};
  OptionButton optDir0{*this, "optDir0", direction_};
  OptionButton optDir1{*this, "optDir1", direction_};
  Picture picDir0{*this, "picDir0", "QuadALeadsB"};
  Picture picDir1{*this, "picDir1", "QuadBLeadsA"};
  Frame FrameSPR{*this, "FrameSPR"};
  TextBox SPR{*this, "SPR"};
  Frame FrameStepFilter{*this, "FrameStepFilter"};
  TextBox txtStepFilterFreq{*this, "txtStepFilterFreq"};  ///< Hz
  TextBox txtNoiseFilter{*this, "txtNoiseFilter"};        ///< MHz; kept in kHz

  /// Fills direction, steps per revolution and filters.
  void ShowPulseInputs(const Settings& settings);

 protected:
  /// Writes direction and filters. The direction counts also while its choice is hidden.
  void CommitPulseInputs();
};

}  // namespace kavr6
