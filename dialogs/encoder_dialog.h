// The encoder dialog.
#pragma once

#include "dialogs/setup_dialog.h"

namespace kavr6 {

/// Window "EncoderDialog": resolution and phase of the encoder, stall detection and prevention.
class EncoderDialog : public SetupDialog {
  OptionGroup turn_;

 public:
  EncoderDialog(const SetupParts& parts);

  TextBox txtEncCounts{*this, "txtEncCounts"};  ///< counts per turn
  Label lblLines{*this, "lblLines"};            ///< tells of the settings, not of the text being typed
  Label lblAleadsB{*this, "lblAleadsB", "Ch A leads Ch B when shaft turns:"};
  OptionButton optCW{*this, "optCW", turn_};
  OptionButton optCCW{*this, "optCCW", turn_};
  Picture DC7encpic{*this, "DC7encpic"};  ///< phase diagram: "DC7ab" or "DC7ba"
  Label lblShaftTurning{*this, "lblShaftTurning", "shaft turning ccw"};
  CheckBox ChkSingleEnded{*this, "ChkSingleEnded"};
  CheckBox chkStallDetect{*this, "chkStallDetect"};
  CheckBox chkCorrect{*this, "chkCorrect"};
  TextBox txtMaxTorque{*this, "txtMaxTorque"};  ///< percent
  CheckBox chkAttemptsFault{*this, "chkAttemptsFault"};
  TextBox txtAttempts{*this, "txtAttempts"};  ///< ms

 protected:
  void Fill() override;
  void Opened() override;
  void Commit() override;

 private:
  void ShowLines();
};

}  // namespace kavr6
