// The pulse and direction dialog.
#pragma once

#include "dialogs/setup_dialog.h"

namespace kavr6 {

/// Window "PulseDirDialog". Its OK puts the drive into pulse mode, whatever mode it was in.
class PulseDirDialog : public SetupDialog {
  OptionGroup type_;
  OptionGroup direction_;

 public:
  PulseDirDialog(MainScreen& screen, Settings& settings);

  Frame FramePulseType{*this, "FramePulseType"};
  OptionButton optPulseDir{*this, "optPulseDir", type_};
  OptionButton optPulsePulse{*this, "optPulsePulse", type_};
  OptionButton optQuad{*this, "optQuad", type_};
  Frame FrameDir{*this, "FrameDir"};  ///< shown for quadrature alone
  OptionButton optDir0{*this, "optDir0", direction_};
  OptionButton optDir1{*this, "optDir1", direction_};
  Frame FrameSPR{*this, "FrameSPR"};
  TextBox SPR{*this, "SPR"};
  Frame FrameStepFilter{*this, "FrameStepFilter"};
  TextBox txtStepFilterFreq{*this, "txtStepFilterFreq"};  ///< Hz
  TextBox txtNoiseFilter{*this, "txtNoiseFilter"};        ///< MHz
  Label RevG{*this, "RevG", "Requires hardware rev D or later"};

  void ShowHideOptions();

 protected:
  void Fill() override;
  void Opened() override;
  void Commit() override;
};

void FillPulseDirDialog(PulseDirDialog& dialog, const Settings& settings);

}  // namespace kavr6
