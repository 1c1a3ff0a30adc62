// The pulse and direction dialog.
#pragma once

#include "dialogs/pulse_input_dialog.h"

namespace kavr6 {

/// Window "PulseDirDialog". Its OK puts the drive into pulse mode, whatever mode it was in.
class PulseDirDialog : public PulseInputDialog {
  OptionGroup type_;

 public:
  PulseDirDialog(const SetupParts& parts);

  OptionButton optPulseDir{*this, "optPulseDir", type_};
  OptionButton optPulsePulse{*this, "optPulsePulse", type_};
  OptionButton optQuad{*this, "optQuad", type_};
  Picture picPulseDir{*this, "picPulseDir", kPulseLooks[kPulseAndDirection].picture};
  Picture picPulsePulse{*this, "picPulsePulse", kPulseLooks[kCwCcwPulse].picture};
  Picture picQuad{*this, "picQuad", kPulseLooks[kQuadrature].picture};
  Frame FrameDir{*this, "FrameDir"};  ///< shown for quadrature alone
  Label RevG{*this, "RevG", "Requires hardware rev D or later"};

  void ShowHideOptions();

 protected:
  void Fill() override;
  void Opened() override;
  void Commit() override;
};

void FillPulseDirDialog(PulseDirDialog& dialog, const Settings& settings);

}  // namespace kavr6
