#include "dialogs/vtl_dialog.h"

#include <array>

#include "core/numbers.h"
#include "core/serial_protocol.h"
#include "dialogs/numeric_entry.h"

namespace kavr6 {
namespace {

constexpr unsigned char kFirstAddress = '!';

std::string AddressOf(int button) { return CharacterOf(static_cast<std::uint8_t>(kFirstAddress + button)); }

struct ProtocolBox {
  CheckBox VTLdialog::*box;
  Long bit;
};
constexpr std::array kProtocolBoxes{
    ProtocolBox{&VTLdialog::chkAddress, kAddressPrefix},
    ProtocolBox{&VTLdialog::chkAckNak, kAckNak},
    ProtocolBox{&VTLdialog::chkConverter, kConverter},
    ProtocolBox{&VTLdialog::chkRedLion, kRedLion},
};

}  // namespace

VTLdialog::VTLdialog(const SetupParts& parts) : PulseInputDialog(parts, {"VTLdialog", "VTL Configuration"}) {
  FramePulseType.Hold(
      {&ListPulseType, &picPulseType, &lblUpper, &lblLower, &optDir0, &optDir1, &picDir0, &picDir1});
  FrameNoiseFilter.Hold({&txtNoiseFilter});
  for (const ControlModeWords& mode : kPowerUpModes)
    ListCM.AddItem(std::to_string(mode.code) + ": " + std::string(mode.words), mode.code);
  for (const int rate : kBitRates) LstBitRate.AddItem(std::to_string(rate));
  for (const PulseKind& kind : kPulseKinds) ListPulseType.AddItem(std::string(kind.listed));
  LimitEntry(txtTxDelay);
  MakeAddressButtons();
  ListCM.Clicked.Set([this] { ShowPulseFrames(); });
  ListPulseType.Clicked.Set([this] { ShowPulseKind(); });
  txtRS485addr.Change.Set([this] { MarkAddress(); });
  for (ListBox* list : {&ListCM, &LstBitRate, &ListPulseType}) list->SetListIndex(0);
}

void VTLdialog::MakeAddressButtons() {
  for (int i = 0; i < RSchar.Count(); ++i) {
    const std::string address = AddressOf(i);
    // A lone ampersand in a caption would mark a mnemonic.
    RSchar[i].SetCaption(address == "&" ? "&&" : address);
    RSchar[i].Clicked.Set([this, address] {
      txtRS485addr.SetText(address);
      txtRS485addr.Focus();  // Enter is OK then, not this button once more
    });
  }
}

void VTLdialog::MarkAddress() {
  for (int i = 0; i < RSchar.Count(); ++i)
    RSchar[i].SetMark(txtRS485addr.Text() == AddressOf(i) ? "chosen" : "");
}

void VTLdialog::ShowPulseKind() {
  const PulseLook& look = kPulseLooks.at(static_cast<std::size_t>(ListPulseType.ListIndex()));
  picPulseType.SetImage(look.picture);
  lblUpper.SetCaption(look.upper);
  lblLower.SetCaption(look.lower);
}

bool VTLdialog::PulseChosen() const { return ListCM.ItemData(ListCM.ListIndex()) == kControlPulse; }

void VTLdialog::ShowPulseFrames() {
  for (Frame* frame : {&FramePulseType, &FrameSPR, &FrameStepFilter, &FrameNoiseFilter})
    frame->SetVisible(PulseChosen());
}

void VTLdialog::OpenFor(Long mode) {
  if (Visible() && Mode != mode) Hide();
  Mode = mode;
  SetCaption(mode == kOpWyProgram ? "Wy Configuration" : "VTL Configuration");
  Open();
}

void VTLdialog::Fill() { FillVTLdialog(*this, settings_); }

void VTLdialog::Opened() { ListCM.Focus(); }

void VTLdialog::Commit() {
  settings_.RS485Addr = txtRS485addr.Text();
  settings_.TxDelay = EntryLong(txtTxDelay);
  settings_.PowerUpMode = ListCM.ItemData(ListCM.ListIndex());
  settings_.StepsPerRev = PulseChosen() ? EntryLong(SPR) : kFixedStepsPerRev;
  settings_.OpMode = Mode;
  settings_.ControlMode = settings_.PowerUpMode;
  if (PulseChosen()) {
    settings_.PulseType = ListPulseType.ListIndex();
    CommitPulseInputs();
  }
  settings_.ProtocolFlags = kProtocolAlways;
  for (const ProtocolBox& protocol : kProtocolBoxes)
    if ((this->*protocol.box).Value()) settings_.ProtocolFlags |= protocol.bit;
  settings_.BitRateCode = LstBitRate.ListIndex() + 1;
  ShowModeName(state_, settings_);
  Finish();
}

void FillVTLdialog(VTLdialog& dialog, const Settings& settings) {
  SelectIfThere(dialog.ListPulseType, settings.PulseType);
  dialog.ShowPulseInputs(settings);
  dialog.txtTxDelay.SetText(NumberText(settings.TxDelay));
  dialog.txtRS485addr.SetText(settings.RS485Addr);
  if (settings.BitRateCode > 0) SelectIfThere(dialog.LstBitRate, settings.BitRateCode - 1);
  for (const ProtocolBox& protocol : kProtocolBoxes)
    (dialog.*protocol.box).SetValue((settings.ProtocolFlags & protocol.bit) != 0);
  dialog.ListCM.SetListIndex(0);
  for (int row = 0; row < dialog.ListCM.Count(); ++row)
    if (dialog.ListCM.ItemData(row) == settings.PowerUpMode) dialog.ListCM.SetListIndex(row);
}

}  // namespace kavr6
