#include "dialogs/advanced_settings.h"

#include "core/numbers.h"
#include "dialogs/numeric_entry.h"
#include "image/byte_codec.h"
#include "link/comm_ports.h"
#include "link/drive_identity.h"

namespace kavr6 {
namespace {

constexpr int kReplySize = 2;
constexpr double kReplyLimit = 0.5;  // seconds

}  // namespace

AdvancedSettings::AdvancedSettings(MainScreen& screen, Settings& settings, VelocityDialog& velocity,
                                   MSComm& comm)
    : SetupDialog(screen, settings,
                  {"AdvancedSettings", "Advanced Analog Settings", "velocity.html#AdvancedAnalog"}),
      velocity_(velocity),
      comm_(comm) {
  for (TextBox* box : {&txtCmdOffset, &txtAnalogDeadband, &txtAnalogFilter}) LimitEntry(*box);
  AutoOffset.Clicked.Set([this] { AutoOffsetClick(); });
}

void AdvancedSettings::Fill() {
  txtCmdOffset.SetText(NumberText(velocity_.PendingOffset));
  txtAnalogDeadband.SetText(NumberText(velocity_.PendingDeadband));
  txtAnalogFilter.SetText(NumberText(velocity_.PendingFilter));
}

void AdvancedSettings::Opened() { txtCmdOffset.Focus(); }

void AdvancedSettings::Commit() {
  velocity_.PendingOffset = EntryLong(txtCmdOffset);
  velocity_.PendingDeadband = EntryLong(txtAnalogDeadband);
  velocity_.PendingFilter = EntryLong(txtAnalogFilter);
  Hide();
  if (velocity_.Visible()) velocity_.Show();
}

void AdvancedSettings::AutoOffsetClick() {
  if (measuring_) return;  // events run meanwhile, a second click among them
  measuring_ = true;
  const BoxAnswer answer = Desk().Ask(
      {.text = "Make sure analog input to drive is set for zero.", .buttons = BoxButtons::OkCancel});
  if (answer == BoxAnswer::Ok) MeasureOffset();
  measuring_ = false;
}

void AdvancedSettings::MeasureOffset() {
  comm_.Input();
  screen_.CommandActive = true;
  PauseBeforeCommand(screen_);
  comm_.SetRThreshold(0);
  comm_.Output(OffsetCommand(screen_.DspRev, screen_.MinorRev));
  if (AwaitBytes(Desk(), comm_, kReplySize, kReplyLimit)) {
    const Bytes reply = comm_.Input();
    txtCmdOffset.SetText(NumberText(ImageReader(reply).SignedStr2Num16() / 2.0));
    screen_.Modified = true;
  } else {
    Desk().Ask({.text = kDriveNotResponding});
  }
  comm_.SetRThreshold(1);
  screen_.CommandActive = false;
}

std::string OffsetCommand(float revision, const std::string& letter) {
  constexpr const char* kPlain = "O";
  const std::string code = CharacterCodes(letter);
  if (code.size() != 1) return kPlain;
  const bool from100k = static_cast<unsigned char>(code[0]) >= 'k' || revision != 1.00F;
  const bool not101A = letter != "A" || revision != 1.01F;
  return from100k && not101A ? "O4071" : kPlain;
}

}  // namespace kavr6
