// The host command mode dialog.
#pragma once

#include <array>
#include <memory>

#include "dialogs/setup_dialog.h"

namespace kavr6 {

/// Window "VTLdialog": host commands in VTL (Mode 2) or a programmable drive (Mode 7).
class VTLdialog : public SetupDialog {
  OptionGroup direction_;

 public:
  VTLdialog(MainScreen& screen, Settings& settings);

  static constexpr int kAddresses = 32;  ///< the characters "!" to "@"

  ListBox ListCM{*this, "ListCM"};          ///< its data are control modes
  ListBox LstBitRate{*this, "LstBitRate"};  ///< the row is BitRateCode - 1
  CheckBox chkAddress{*this, "chkAddress"};
  CheckBox chkAckNak{*this, "chkAckNak"};
  CheckBox chkConverter{*this, "chkConverter"};
  CheckBox chkRedLion{*this, "chkRedLion"};
  TextBox txtRS485addr{*this, "txtRS485addr"};
  std::array<std::unique_ptr<Button>, kAddresses> RSchar;  ///< named "RSchar0" to "RSchar31"
  TextBox txtTxDelay{*this, "txtTxDelay"};                 ///< ms
  Frame FramePulseType{*this, "FramePulseType"};  ///< this and the next three frames: for pulses only
  ListBox ListPulseType{*this, "ListPulseType"};  ///< the row is PulseType
  OptionButton optDir0{*this, "optDir0", direction_};
  OptionButton optDir1{*this, "optDir1", direction_};
  Frame FrameSPR{*this, "FrameSPR"};
  TextBox SPR{*this, "SPR"};
  Frame FrameStepFilter{*this, "FrameStepFilter"};
  TextBox txtStepFilterFreq{*this, "txtStepFilterFreq"};  ///< Hz
  Frame FrameNoiseFilter{*this, "FrameNoiseFilter"};
  TextBox txtNoiseFilter{*this, "txtNoiseFilter"};  ///< MHz

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
  void CommitPulses();
};

void FillVTLdialog(VTLdialog& dialog, const Settings& settings);

}  // namespace kavr6
