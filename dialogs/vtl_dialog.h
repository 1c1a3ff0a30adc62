// The host command mode dialog.
#pragma once

#include "dialogs/pulse_input_dialog.h"
#include "platform/control_array.h"

namespace kavr6 {

/// Window "VTLdialog": host commands in VTL (Mode 2) or a programmable drive (Mode 7). The frames of the
/// pulse inputs show in control mode 7 alone.
class VTLdialog : public PulseInputDialog {
 public:
  VTLdialog(const SetupParts& parts);

  static constexpr int kAddresses = 32;  ///< the characters "!" to "@"

  ListBox ListCM{*this, "ListCM"};          ///< its data are control modes
  ListBox LstBitRate{*this, "LstBitRate"};  ///< the row is BitRateCode - 1
  CheckBox chkAddress{*this, "chkAddress"};
  CheckBox chkAckNak{*this, "chkAckNak"};
  CheckBox chkConverter{*this, "chkConverter"};
  CheckBox chkRedLion{*this, "chkRedLion"};
  TextBox txtRS485addr{*this, "txtRS485addr"};
  ControlArray<Button> RSchar{*this, "RSchar", kAddresses};
  TextBox txtTxDelay{*this, "txtTxDelay"};        ///< ms
  ListBox ListPulseType{*this, "ListPulseType"};  ///< the row is PulseType
  Picture picPulseType{*this, "picPulseType"};
  Label lblUpper{*this, "lblUpper"};  ///< the input beside the upper line of the picture
  Label lblLower{*this, "lblLower"};
  Frame FrameNoiseFilter{*this, "FrameNoiseFilter"};

  /// The operating mode that OK sets.
  Long Mode = kOpVtl;

  /// Opens the dialog for operating mode kOpVtl or kOpWyProgram, with the caption that belongs to it. One
  /// that stands open for this very mode only comes to the front.
  void OpenFor(Long mode);

 protected:
  void Fill() override;
  void Opened() override;
  void Commit() override;

 private:
  void MakeAddressButtons();
  bool PulseChosen() const;
  void ShowPulseFrames();
  void ShowPulseKind();
  void MarkAddress();
};

void FillVTLdialog(VTLdialog& dialog, const Settings& settings);

}  // namespace kavr6
